// The script editor's file commands: New, Open, Save, Save As, Paste From
// File and Copy To File on the script of the editor's player (EdPlayer),
// with the question about unsaved changes and the one file chooser.
//
// What must stay true:
// - No run of scripts is on (the editor asks to interrupt one first).
// - A Cancel, at the question or in the chooser, changes nothing.
// - A file that can't be read or written leaves the script as it was and
//   tells the user why in a message naming the failure.
// - Save and Save As clear ScriptDirty; New, Open and Paste From clear
//   ScriptsOK, so the next roll compiles the new text.
#pragma once

#include "store/file_chooser.h"

struct Game;

// The chooser of script files: "Auto-bet files (*.bet)" and the other types.
FileChoice AutoBetFileChoice(const char* caption, bool writing);
// With unsaved changes: "Your current logged bets have not been saved ...";
// Yes saves first. False when the command is to end (Cancel, a failed save).
bool AskSaveEditorScript(Game& game);
// mnuNew: the question, then the script emptied.
bool NewAutoBetCommand(Game& game);
// mnuOpen: the question, the chooser "Open Auto-Bet File", OpenAutoBets.
bool OpenAutoBetCommand(Game& game);
// mnuSave: SaveAutoBets to the script's file, or Save As without one.
bool SaveAutoBetCommand(Game& game);
// mnuSaveAs: the chooser "Save Auto-Bet File As", then the save.
bool SaveAutoBetAsCommand(Game& game);
// mnuPasteFrom: a file's lines inserted at the editor's caret.
bool PasteFromAutoBetCommand(Game& game);
// mnuCopyTo: the selected text written to a chosen file.
bool CopyToFileCommand(Game& game);
