// The table's layout: every place on the drawn table as fixed rectangles in
// one layout coordinate system, 1248 units wide, whatever the zoom or the
// angle. It answers the pixel question of the hot-spot map ("which bet,
// rail spot or tool lies under this point?") by geometry instead of a
// flat-colour picture, and gives each player's base position and stack
// step on every bet.
//
// The table has two ends that mirror each other about the stick (x = 624):
// players 1 to 4 bet on the left end, players 5 to 8 on the right end, and
// everybody on the proposition centre. A bet id therefore has a region in
// each end (or one in the centre).
//
// What must stay true:
// - The base position of every player on every bet lies inside a region of
//   that bet at least kBaseMargin units from its edges, so the hot-spot under
//   it is the bet at any zoom and angle.
// - A region of a bet that is switched off or hidden (Big 6/8, Midway, Fire,
//   the Hop or proposition set) answers no hot-spot.
#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

struct Game;

constexpr double kLayoutWidth = 1248.0;
constexpr double kLayoutHeight = 770.0;
constexpr double kStickX = 624.0;
constexpr double kCheckRadius = 11.0;  // at scale 1
constexpr double kBaseMargin = 4.0;

// Hot-spot values besides the bet ids 1..85.
namespace hot {
constexpr int kNone = 0;
constexpr int kDiceFile = 88;
constexpr int kToolBuy = 89, kToolCallOff = 90, kToolCallOn = 91;
constexpr int kStick = 92;
constexpr int kEdge = 93;
constexpr int kHopSwitch = 999;
constexpr int kRailFactor = 1000;  // p * 1000 + k on the rail of player p
constexpr int kRailPlate = 0;      // the name plate: selects the player
constexpr int kRailStackSource = 6;  // + spot 1..4: k = 7..10
constexpr int kRailStackTarget = 10; // + spot 1..4: k = 11..14
}  // namespace hot

// Which end of the table a region lies in.
enum class End { Left, Right, Centre };

struct Region {
  int id = 0;        // hot-spot value
  QRectF rect;       // layout coordinates
  End end = End::Centre;
  bool primary = true;  // holds the base positions of its players
};

// All regions, in draw order (later ones lie on top).
const std::vector<Region>& LayoutRegions();
// The felt, the rail's outer edge and one player's rail block.
QRectF FeltRect();
QRectF TableRect();
QRectF RailBlock(int p);
// Rail spots of player p: check k (1..5), stack spot i (1..4) as a source or a target.
QRectF RailCheckRect(int p, int k);
QRectF RailStackRect(int p, int spot);
QRectF RailStackLabelRect(int p, int spot);
QRectF NamePlateRect(int p);
QRectF ToolRect(int tool);  // 89..91
QRectF StickRect();
QRectF DiceFileRect();
QRectF HopSwitchRect();
// The Place box of number n in one end, where the puck stands.
QRectF PlaceBoxRect(int n, End end);
// The Don't Come strip of one end (marked while one of its players has a Don't Come point).
QRectF DontComeStripRect(End end);
// Where the Fire marks are drawn.
QRectF FireRect();
// Where the dice land when they are shown centred.
QRectF DiceCentreRect();

// True when region id is shown under the game's settings and HopBetsShown.
bool RegionShown(const Game& game, int id);
// The hot-spot under a layout point (0 for none).
int HotSpotAt(const Game& game, QPointF point);
// The end player p bets in.
End EndOf(int p);
// True when a click of player p at layout x lies on the player's half:
// players 1 to 4 up to x 688, players 5 to 8 from x 559.
bool OnPlayersHalf(int p, double x);
// Base position of player p on bet b (a real bet or a rail CheckStack 101..104).
QPointF BasePosition(int p, int b);
// Offset from one check of p's stack on bet b to the next.
QPointF StackStep(int p, int b);
// The region of bet b in p's end (or the centre) holding its base positions.
QRectF BetRect(int p, int b);
