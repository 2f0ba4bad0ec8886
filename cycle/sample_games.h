// The sample games that ship with the program, for Game > Sample Games: the
// .rvg files of the share folder's examples/, opened as a new untitled game
// so that Save asks for a name of the player's own and the sample stays as
// it shipped.
#pragma once

#include <string>
#include <vector>

struct Game;

// The sample games of the program's share folder, by file name.
std::vector<std::string> SampleGames(const Game& game);
// A sample chosen: the prompts for unsaved work, then the game opened as
// untitled (not a file of the player's, so not listed in Recent Games).
// True when it was opened.
bool OpenSampleGameCommand(Game& game, const std::string& path);
// The menu's caption of a sample: its file name without ".rvg", with a
// capital first, underscores read as blanks and ampersands doubled.
std::string SampleGameCaption(const std::string& path);
