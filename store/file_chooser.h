// The one file chooser of the game (frmFile) as the commands use it: it asks
// the platform for a name, turns the typed name into a path (a name without
// a folder is taken in the chooser's folder, the type's extension is added
// when the name has no dot, the case is kept), refuses an empty name, and
// for a file to be written asks before overwriting one that exists.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct Game;

struct FileChoice {
  const char* caption;               // "Save Session File As"
  std::vector<std::string> types;    // the first type's extension is added
  const char* extension;             // ".rvg"
  bool writing = false;              // asks before overwriting
};

// Session files, for the game file commands.
FileChoice SessionFileChoice(const char* caption, bool writing);
// Plain text files, for logs and listings read or written as text.
FileChoice TextFileChoice(const char* caption, bool writing);
// Dice roll files, for the recorded rolls the dice files form opens.
FileChoice RollFileChoice(const char* caption, bool writing);
// Asks for a file; the path, or nothing when the user cancelled.
std::optional<std::string> ChooseFilePath(Game& game, const FileChoice& choice);
