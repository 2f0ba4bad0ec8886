// The game files a player opened or saved last, newest first, for the Game
// menu's Recent Games: kept in "Recent Games.txt" of the data folder, one
// path a line.
//
// What must stay true:
// - At most kRecentGamesKept paths, each once (as spelt: file names keep
//   their case); a default game file (default.rvg) is never listed.
// - The list file is written through a temporary and a rename, and a list
//   that cannot be written costs nothing else: it is a convenience.
// - A list file that is long, binary or hostile is read only as far as its
//   first kRecentGamesKept lines of at most kRecentGamePathLimit bytes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct Game;

constexpr std::size_t kRecentGamesKept = 8;
// The longest path a line of the list may hold; a longer line is skipped.
constexpr std::size_t kRecentGamePathLimit = 4096;

// The list file of the data folder.
std::string RecentGamesPath(const Game& game);
// The listed paths, newest first; empty when there is no list.
std::vector<std::string> ReadRecentGames(const Game& game);
// Puts `path` first in the list (moving it up if it is there), a relative
// one made whole from the current folder.
void NoteRecentGame(const Game& game, const std::string& path);
// Takes `path` off the list.
void ForgetRecentGame(const Game& game, const std::string& path);
// A Recent Games entry chosen: the prompts for unsaved work, then the game
// opened; a file that is no longer there is told and taken off the list.
// True when the game was opened.
bool OpenRecentGameCommand(Game& game, const std::string& path);
// The menu's caption of entry `index` (from 0): "&1 name  (folder)".
std::string RecentGameCaption(std::size_t index, const std::string& path);
