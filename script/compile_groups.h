// Expands the names of bet groups into lists of their member bets.
//
// "place bets" (V4050 with its P H X Y) becomes V31 P H X Y , V32 P H X Y ...
// so that the later passes and the interpreter see single bets only; the
// CheckStack groups (V980, V990) carry their player qualifier alone.
#pragma once

#include <span>

struct Game;

// Members of a group variable, or an empty span for any other number.
std::span<const int> GroupMembers(int group);

// Replaces every group variable of the stream by its member list.
void ExpandGroups(Game& game);
