// The data folder: where this user's files live (the events log and its
// index, the dice roll clipboard and conversion files, the game file).
//
// It is $RAVELTON_DATA when that is set, else $XDG_DATA_HOME/ravelton/, else
// ~/.local/share/ravelton/. What must stay true: the folder is always
// returned with a trailing separator, so a file's path is folder + name, and
// it is only created when something is about to be written into it.
#pragma once

#include <string>

// The data folder, from the environment, with a trailing '/'.
std::string DataFolder();
// Creates a folder and its parents when missing; false with an error naming it.
bool EnsureFolder(const std::string& folder, std::string& error);
