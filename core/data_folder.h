// The per-user data folder and the rules that turn a typed file name into a
// path.
//
// The program's own folder is read-only once installed, so every file the
// game writes for the user (default.rvg, default.prb, the events log and its
// index, HotKeys.dta, the clipboard file of dice rolls, sessions logs, script
// output) lives in one data folder: $RAVELTON_DATA when set, else
// $XDG_DATA_HOME/ravelton/, else ~/.local/share/ravelton/. Read-only assets
// that ship with the program are looked for in the install's folder first
// and then here.
//
// What must stay true:
// - A folder path always ends in '/'; names keep their case (the file
//   system is case-sensitive).
// - The folder is made only when something is about to be written there,
//   never by merely naming it.
#pragma once

#include <string>
#include <string_view>

// Environment variable that names the data folder outright.
inline constexpr const char* kDataFolderVariable = "RAVELTON_DATA";

// The data folder the environment names, with a trailing '/'.
std::string DataFolderPath();
// The folder with a trailing '/' (an empty folder stays empty).
std::string WithTrailingSlash(std::string folder);
// Makes the folder and its parents when missing; false with `error` naming it.
bool MakeFolder(const std::string& folder, std::string& error);
// The file name of a path: what follows the last '/'.
std::string_view FileNameOf(std::string_view path);
// A typed file name as a path: trimmed, case kept; prefixed by `folder` when
// it names no folder; `extension` (".rvg") added when the file name has no dot.
std::string ChosenFilePath(std::string_view typed, std::string_view folder,
                           std::string_view extension);
