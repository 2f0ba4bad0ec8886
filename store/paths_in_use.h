// What Game > Show Path lists: every file and folder the game has in use,
// under its caption, in the order the form shows them. The form only lays
// these lines out.
//
// What must stay true:
// - Paths are shown as the user typed them: a script's path has its doubled
//   '&' made single again.
// - The per-player groups list the seated players in slot order, each line
//   "Name: path", and say "(none)" for a player without that file.
#pragma once

#include <string>
#include <vector>

struct Game;

struct PathGroup {
  std::string caption;             // "Game File:", ...
  std::vector<std::string> lines;  // one path, or one line per seated player
};

// The groups "Ravelton location:", "Game File:", "Events Log File:", "Dice
// Roll File:", "Probability File:", "Auto-Bet Files:", "Sessions Log Files:".
std::vector<PathGroup> PathsInUse(const Game& game);
