// Files a script names: where they may lie, and the output file's three
// operations.
//
// Scripts are shared between users, so a script's file stays inside the
// data folder: a relative name is taken there, and a name that leads
// anywhere else (an absolute path, "..") is refused unless the player has
// the permission to use any folder.
//
// What must stay true: a file is opened only within one call here and is
// closed before it returns; nothing is written outside the folder the rule
// allows.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

struct Game;

// The refusal text of a name outside the data folder.
inline constexpr std::string_view kOutsideDataFolder = "File must be in the data folder.";

// The data folder a script's files are taken in (the current folder when
// none is set).
std::filesystem::path ScriptDataFolder(const Game& game);

// The full path of a file named by player p's script; false when the name
// leads outside the data folder and p may not use other folders.
bool ScriptFilePath(const Game& game, int p, std::string_view name, std::filesystem::path& out);

// Creates the file if absent; with `clear` an existing file starts empty.
// False with `error` set when the file can't be made.
bool OpenOutputFile(const std::filesystem::path& path, bool clear, std::string& error);

// Appends text to the file (no line end of its own). False on failure.
bool AppendOutputFile(const std::filesystem::path& path, std::string_view text, std::string& error);
