// Small helpers shared by the placing files: when a notice may be shown, the
// title it carries, and the working state a bet takes back.
#pragma once

#include <string>

#include "core/game.h"

// True outside Hyper-Drive when the class bit of NoticeFlags is set.
bool CanNotify(const Game& game, long noticeBit);
// BetName followed by " Bet": the title of every notice about a bet.
std::string BetTitle(int b);
// ResetBetWorking for a seat 0..8 and bet 0..85 the caller has checked: the
// come-out default, or 1 (working) with a point on. Marks the cell for the
// roll's snapshots.
inline void ResetWorkingOf(Game& game, int p, int b) {
  game.BetWorking(p, b) = game.Point == 0 ? game.BetWorkingDefault(p, b) : 1;
  game.roll.MarkBetChanged(p, b);
}
