// Drawing the table with QPainter in layout coordinates: the painter comes
// already transformed by zoom, angle and offsets, so everything is vector
// drawing that stays sharp at any scale, angle and screen density.
#pragma once

#include <QPointF>
#include <string>

class QPainter;
struct Game;

// What the window adds to the game's tables when it draws: presentation only.
struct PaintState {
  bool flashOff = false;    // the bettor's checks on bets are hidden this phase
  int ringPhase = 0;        // 0..3: the ring round the selected check
  QPointF die1{}, die2{};   // where the dice lie on the table (layout)
  bool diceOnTable = false; // false: the dice lie at the shooter's place
  std::string statusLine;   // the short text at the table (PendingAction, Hyper-Drive)
};

// The clean table: rail, felt, lines, texts and the payoffs of PayoffTbl.
void PaintTable(QPainter& painter, const Game& game);
// What stands on it: Don't Come marks, Fire marks, the puck, checks, the
// rail's checks and stacks, the selected-check ring, the dice, the status line.
void PaintPlay(QPainter& painter, const Game& game, const PaintState& state);
// "a to d" or "(a + d) for d" of bet b's row in PayoffTbl.
std::string PayoffText(const Game& game, int b);
