// The players' status boxes: the texts of one box, and how a box is drawn.
// A box holds the name, "Rail:  ", "1 Bet:  " or n & " Bets:  ",
// "Bankroll:  " and "Even:  ", "Won:  " or "Lost:  " against what the
// player put in. All boxes use whole amounts ("#,#;-#,#;0") until any amount
// of any player has a fraction, then all show cents ("#,0.00;-#,0.00;0.00").
#pragma once

#include <QRectF>
#include <array>
#include <string>

#include "core/currency.h"

class QPainter;
struct Game;

constexpr double kStatusBoxWidth = 128;
constexpr double kStatusBoxHeight = 76;
constexpr double kStatusBoxGap = 4;        // between a status box and its neighbour
constexpr double kStatusBoxMinWidth = 100;  // the widest line of a box still fits

struct StatusBoxText {
  std::string name;
  std::array<std::string, 4> lines;  // rail, bets, bankroll, even/won/lost
};

// An amount in the boxes' format.
std::string StatusAmount(Currency amount, bool fraction);
// True when the bankroll or another amount of any seated player has a fraction.
bool StatusBoxesUseFractions(const Game& game);
// The texts of player p's box.
StatusBoxText StatusBoxLines(const Game& game, int p, bool fraction);
// Draws one box; the bettor's is framed in gold, the shooter's name carries dice.
void PaintStatusBox(QPainter& painter, const QRectF& r, const StatusBoxText& text, bool bettor,
                    bool shooter);
