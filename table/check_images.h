// The checks on the table as a display list: one row per check (or the
// overflow mark) with its player, bet, kind and layout position. Built from
// the bets each time the table is drawn, so it can never disagree with them.
//
// What must stay true:
// - A stack holds at most 13 checks, highest denomination first; what
//   remains beyond them shows as one overflow mark (kind 6) at the base.
// - Rows stand in a fixed rank of player and bet (back of the table first),
//   so stacks overlap the same way at every angle.
#pragma once

#include <QPointF>
#include <vector>

#include "core/currency.h"

struct Game;

constexpr int kMaxStackChecks = 13;
constexpr int kOverflowKind = 6;

struct DrawnCheck {
  int player = 0;
  int bet = 0;
  int kind = 0;  // 1..5 a check of CheckValue(kind), 6 the overflow mark
  QPointF pos;   // layout coordinates
};

// The rows of one stack of `amount` for player p on bet b.
void AppendStack(std::vector<DrawnCheck>& rows, const Game& game, int p, int b, Currency amount);
// Every stack on the table: bets 1..85 of every seated player, then the
// four rail CheckStacks, in draw order.
std::vector<DrawnCheck> BuildCheckImages(const Game& game);
// True when the row's bet lies in the centre set that HopBetsShown hides.
bool CheckImageHidden(const Game& game, const DrawnCheck& row);
