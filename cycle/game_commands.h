// The commands around the game file that a front end calls: the game opened
// at start-up, New, Open, Save, Save As, and the close of the program, with
// the prompts for unsaved work that come before each of them.
//
// What must stay true:
// - The prompts run in one order (scripts, probabilities, session); a
//   Cancel anywhere, or a save that fails, stops the command and changes
//   nothing more.
// - SessionDirty is cleared by SaveGame, OpenGame and New only.
// - The program's own default game (default.rvg in the data folder) is
//   written at every close and read at every start.
// - Every other game file opened or saved by these commands goes first in
//   the Recent Games list.
#pragma once

#include <string>

struct Game;

// What frmNew answers on OK.
struct NewSessionChoice {
  bool retainAutoBets = true;       // chkRetainAutoBets: keep the scripts
  bool preserveGames = true;        // chkPreserveGames
  bool preserveCheckstacks = true;  // chkPreserveCheckstacks
  bool preserveSessionsLogs = true; // chkPreserveSessionsLogs
  int diceMode = 0;                 // 0 drop the dice roll file, 1 rewind, 2 continue
};

// The data folder's default game file.
std::string DefaultGamePath(const Game& game);
// Opens the command line's game file, else default.rvg, else keeps the
// defaults; true when a game file was opened.
bool OpenStartupGame(Game& game, const std::string& commandLine);
// The prompts for unsaved scripts, probabilities and session; false on Cancel.
bool PromptUnsavedWork(Game& game);
// mnuNew after frmNew's OK: the prompts, then a new session; false on Cancel.
bool NewGameCommand(Game& game, const NewSessionChoice& choice);
// What follows frmNew's OK once the prompts have run (the window asks them
// before it shows the form): the scripts kept or cleared, NewSession, the
// first script cycle, no game file, the stick call.
void StartNewGame(Game& game, const NewSessionChoice& choice);
// frmNew's second dice option: " Continue playback as is", " Continue
// recording as is" or " Continue inactive", by the dice roll file's mode.
const char* ContinueDiceCaption(const Game& game);
// mnuOpen: the prompts, the chooser, OpenGame; true when a game was opened.
bool OpenGameCommand(Game& game);
// mnuSave: to GameFilePath, or as mnuSaveAs without one; true when saved.
bool SaveGameCommand(Game& game);
// mnuSaveAs: the prompts for scripts and probabilities, the chooser, SaveGame.
bool SaveGameAsCommand(Game& game);
// Closing the program: the questions and prompts (with the graph's auto-print
// on, PromptGraphPrint first), then default.rvg saved and
// the dice clipboard file removed; false keeps the program open.
// windowMoved: the main window was moved or resized since the last save.
bool CloseProgram(Game& game, bool windowMoved);
// After a new session: the active scripts compiled if they are not, and
// their first cycle run once, so every new session starts initialized.
void StartScriptsAfterNewSession(Game& game);
