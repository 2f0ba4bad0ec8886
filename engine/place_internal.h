// Small helpers shared by the placing files: when a notice may be shown and
// the title it carries.
#pragma once

#include <string>

struct Game;

// True outside Hyper-Drive when the class bit of NoticeFlags is set.
bool CanNotify(const Game& game, long noticeBit);
// BetName followed by " Bet": the title of every notice about a bet.
std::string BetTitle(int b);
