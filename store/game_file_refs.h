// The references a game file makes to other files, followed when a game is
// opened: the dice roll file, the probability file, the events log, each
// player's script and sessions log. Each missing or changed file gets its
// OK-only message and opening goes on; a missing file's reference is
// dropped or replaced by its default in the data folder.
#pragma once

#include <array>

#include "store/game_file_records.h"

struct Game;

// Checks the references read from a file and puts them in the game being
// opened; loads each player's script into it.
void FollowReferences(Game& game, const GameFilePaths& paths, const std::array<BlockPaths, 9>& blocks);
