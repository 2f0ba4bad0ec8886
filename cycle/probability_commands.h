// The file commands of the Probability tab: New, Open, Save and Save As of
// probability files (.prb), with the question about unsaved numbers that
// comes before New and Open, and the file chooser of the game.
//
// What must stay true:
// - A Cancel, a chooser closed without a name, or a save that fails stops
//   the command: the table stays as it was.
// - A file that can't be read, or is not a probability file, is told with a
//   notice naming it, and the table in use, its file and its dirty mark stay
//   untouched.
// - Nothing here touches ProbabilityDiceOn.
#pragma once

struct Game;
struct FileChoice;

// The chooser of probability files: "Probability files (*.prb)", "All files (*.*)".
FileChoice ProbabilityFileChoice(const char* caption, bool writing);
// mnuNew: after the question, the true table, Percentage dice, "untitled".
bool NewProbabilityCommand(Game& game);
// mnuOpen: after the question, "Open Probability File"; true when a file was read.
bool OpenProbabilityCommand(Game& game);
// mnuSave: over ProbFilePath, or as Save As when there is none or it is
// default.prb; true when saved.
bool SaveProbabilityCommand(Game& game);
// mnuSaveAs: "Save Probability File As"; true when saved.
bool SaveProbabilityAsCommand(Game& game);
