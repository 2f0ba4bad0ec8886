// The time stamp a game file keeps beside each file it refers to, so that a
// file changed since the game was saved is noticed on opening.
//
// What must stay true: the rendering is stable (the same file time always
// gives the same text) and fits the 56 bytes of a path record's stamp.
#pragma once

#include "core/file_io.h"

#include <string>

#include "core/file_io.h"  // FileExists

// The file's last-modified time as text; empty when the file does not exist.
std::string FileStamp(const std::string& path);
