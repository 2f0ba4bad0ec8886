#include "table/layout.h"

#include <array>
#include <cmath>

#include "core/catalogue.h"
#include "core/game.h"

namespace {

// Left end, from the rail inward: the Pass Line along the rail and up the
// end, the Don't Come box and Big 6/8 beside the end, the six number
// columns along the back, Come, Field and the Don't Pass bar.
constexpr double kFeltLeft = 40, kFeltTop = 40, kFeltBottom = 656;
constexpr double kNumbersLeft = 170, kNumberWidth = 61;
// The seven strips of a number column, back to front: Lay, Don't Come point,
// its odds, Place (the number itself), Come point, its odds, Buy.
constexpr std::array<double, 8> kStripY = {44, 80, 114, 142, 216, 250, 278, 312};
constexpr double kCentreLeft = 544, kCentreWidth = 160;

// Rail: eight blocks along the front rail, four each side of the stick.
constexpr double kRailTop = 662, kBlockWidth = 138, kBlockHeight = 104, kBlockInset = 44;
constexpr double kRailCheckStep = 26, kRailStackStep = 33;

int StripBet(int strip, int n) {
  switch (strip) {
    case 0: return LayId(n);
    case 1: return DontComeId(n);
    case 2: return DontComeId(n) + 6;
    case 3: return PlaceId(n);
    case 4: return ComeId(n);
    case 5: return ComeId(n) + 6;
    default: return BuyId(n);
  }
}

QRectF Mirror(const QRectF& r) {
  return QRectF(kLayoutWidth - r.right(), r.top(), r.width(), r.height());
}

std::vector<Region> LeftEnd() {
  std::vector<Region> v;
  auto add = [&](int id, QRectF r, bool primary = true) { v.push_back({id, r, End::Left, primary}); };
  add(bet::kPassLine, QRectF(44, 564, 396, 84));
  add(bet::kPassLine, QRectF(44, 44, 52, 520), false);
  add(bet::kPassLineOdds, QRectF(440, 564, 96, 84));
  add(bet::kDontPass, QRectF(100, 520, 370, 40));
  add(bet::kDontPassOdds, QRectF(470, 520, 66, 40));
  add(bet::kDontCome, QRectF(100, 44, 66, 236));
  add(bet::kBig6, QRectF(100, 284, 66, 114));
  add(bet::kBig8, QRectF(100, 402, 66, 114));
  for (int i = 0; i < 6; ++i)
    for (int s = 0; s < 7; ++s)
      add(StripBet(s, BoxNumber(i)),
          QRectF(kNumbersLeft + kNumberWidth * i, kStripY[static_cast<std::size_t>(s)],
                 kNumberWidth, kStripY[static_cast<std::size_t>(s) + 1] -
                                   kStripY[static_cast<std::size_t>(s)]));
  add(bet::kCome, QRectF(170, 316, 366, 94));
  add(bet::kField, QRectF(170, 414, 366, 102));
  return v;
}

std::vector<Region> Centre() {
  std::vector<Region> v;
  auto add = [&](int id, QRectF r) { v.push_back({id, r, End::Centre, true}); };
  const double l = kCentreLeft;
  add(bet::kSeven, QRectF(l, 44, 160, 40));
  add(bet::kHard6, QRectF(l, 88, 78, 58));
  add(bet::kHard10, QRectF(l + 82, 88, 78, 58));
  add(bet::kHard8, QRectF(l, 150, 78, 58));
  add(bet::kHard4, QRectF(l + 82, 150, 78, 58));
  add(bet::kThree, QRectF(l, 212, 52, 50));
  add(bet::kTwo, QRectF(l + 54, 212, 52, 50));
  add(bet::kTwelve, QRectF(l + 108, 212, 52, 50));
  add(bet::kEleven, QRectF(l, 266, 78, 50));
  add(bet::kHorn, QRectF(l + 82, 266, 78, 50));
  add(bet::kCraps, QRectF(l, 320, 160, 40));
  // The Hop side: World, Over 7, Under 7 and the seventeen hops, four a row.
  for (int id = bet::kWorld; id <= bet::kHopLast; ++id) {
    const int i = id - bet::kWorld;
    add(id, QRectF(l + 40 * (i % 4), 44 + 63.2 * (i / 4), 40, 63.2));
  }
  add(bet::kCandE, QRectF(l, 364, 160, 40));
  add(bet::kMidway, QRectF(l, 408, 160, 36));
  add(bet::kFire, QRectF(l, 448, 160, 44));
  add(hot::kHopSwitch, QRectF(l + 40, 498, 80, 22));
  return v;
}

std::vector<Region> Rail() {
  std::vector<Region> v;
  for (int p = 1; p <= 8; ++p) {
    const int base = p * hot::kRailFactor;
    const End end = EndOf(p);
    v.push_back({base + hot::kRailPlate, RailBlock(p), end, false});
    for (int k = 1; k <= 5; ++k) v.push_back({base + k, RailCheckRect(p, k), end, false});
    for (int i = 1; i <= 4; ++i) {
      v.push_back({base + hot::kRailStackTarget + i, RailStackRect(p, i), end, false});
      v.push_back({base + hot::kRailStackSource + i, RailStackLabelRect(p, i), end, false});
    }
  }
  for (int t = hot::kToolBuy; t <= hot::kToolCallOn; ++t) v.push_back({t, ToolRect(t), End::Centre, false});
  v.push_back({hot::kStick, StickRect(), End::Centre, false});
  v.push_back({hot::kDiceFile, DiceFileRect(), End::Centre, false});
  return v;
}

std::vector<Region> BuildRegions() {
  std::vector<Region> v = LeftEnd();
  const std::size_t left = v.size();
  for (std::size_t i = 0; i < left; ++i) {
    Region r = v[i];
    r.rect = Mirror(r.rect);
    r.end = End::Right;
    v.push_back(r);
  }
  for (const Region& r : Centre()) v.push_back(r);
  for (const Region& r : Rail()) v.push_back(r);
  return v;
}

// The players who bet in a region, in the order of their seats along the rail.
int PlayersOf(End end, int (&players)[8]) {
  int n = 0;
  if (end != End::Right)
    for (int p = 1; p <= 4; ++p) players[n++] = p;
  if (end != End::Left)
    for (int p = 5; p <= 8; ++p) players[n++] = p;
  return n;
}

// The grid of base positions that spreads n players widest over a rectangle.
void ChooseGrid(const QRectF& r, int n, int& cols, int& rows) {
  double best = -1;
  for (int c = 1; c <= n; ++c) {
    const int rr = (n + c - 1) / c;
    if (c * rr != n) continue;
    const double spread = std::min(r.width() / c, r.height() / rr);
    if (spread > best) {
      best = spread;
      cols = c;
      rows = rr;
    }
  }
}

const Region* PrimaryRegion(int p, int b) {
  // Ids up to Big 8 lie on both ends; the propositions, hops, Midway and Fire in the centre.
  const End want = b >= 1 && b <= bet::kBig8 ? EndOf(p) : End::Centre;
  for (const Region& r : LayoutRegions())
    if (r.id == b && r.primary && (r.end == want || r.end == End::Centre)) return &r;
  return nullptr;
}

}  // namespace

const std::vector<Region>& LayoutRegions() {
  static const std::vector<Region> regions = BuildRegions();
  return regions;
}

QRectF FeltRect() { return QRectF(kFeltLeft, kFeltTop, kLayoutWidth - 2 * kFeltLeft, kFeltBottom - kFeltTop); }
QRectF TableRect() { return QRectF(0, 0, kLayoutWidth, kLayoutHeight); }

QRectF RailBlock(int p) {
  const double x = p <= 4 ? kBlockInset + kBlockWidth * (p - 1)
                          : kLayoutWidth - kBlockInset - kBlockWidth * (9 - p);
  return QRectF(x, kRailTop, kBlockWidth, kBlockHeight);
}
QRectF RailCheckRect(int p, int k) {
  const QRectF b = RailBlock(p);
  return QRectF(b.left() + 4 + kRailCheckStep * (k - 1), b.top() + 4, kRailCheckStep, 28);
}
QRectF RailStackRect(int p, int spot) {
  const QRectF b = RailBlock(p);
  return QRectF(b.left() + 4 + kRailStackStep * (spot - 1), b.top() + 36, kRailStackStep - 2, 30);
}
QRectF RailStackLabelRect(int p, int spot) {
  const QRectF s = RailStackRect(p, spot);
  return QRectF(s.left(), s.bottom(), s.width(), 15);
}
QRectF NamePlateRect(int p) {
  const QRectF b = RailBlock(p);
  return QRectF(b.left() + 2, b.bottom() - 20, b.width() - 4, 18);
}
QRectF ToolRect(int tool) { return QRectF(566 + 40 * (tool - hot::kToolBuy), 4, 36, 32); }
QRectF StickRect() { return QRectF(kStickX - 20, kRailTop + 10, 40, 90); }
QRectF DiceFileRect() { return QRectF(500, 6, 40, 28); }
QRectF HopSwitchRect() { return QRectF(kCentreLeft + 40, 498, 80, 22); }
QRectF PlaceBoxRect(int n, End end) {
  const QRectF r(kNumbersLeft + kNumberWidth * BoxIndex(n), kStripY[3], kNumberWidth,
                 kStripY[4] - kStripY[3]);
  return end == End::Right ? Mirror(r) : r;
}
QRectF DontComeStripRect(End end) {
  const QRectF r(kNumbersLeft, kStripY[1], kNumberWidth * 6, kStripY[3] - kStripY[1]);
  return end == End::Right ? Mirror(r) : r;
}
QRectF FireRect() { return QRectF(kCentreLeft, 448, kCentreWidth, 44); }
QRectF DiceCentreRect() { return QRectF(kCentreLeft + 30, 540, 100, 60); }

bool RegionShown(const Game& g, int id) {
  if (id == bet::kBig6 || id == bet::kBig8) return g.rules.UseBig68;
  if (id == bet::kMidway) return g.rules.UseMidwayBet;
  if (id == bet::kFire) return g.rules.UseFireBet;
  if (id == hot::kDiceFile) return false;  // no dice roll file can be open yet
  if (g.table.HopBetsShown)
    return !((id >= bet::kHard4 && id <= bet::kCraps) || id == bet::kHorn);
  return !(id >= bet::kWorld && id <= bet::kHopLast);
}

int HotSpotAt(const Game& g, QPointF pt) {
  const std::vector<Region>& regions = LayoutRegions();
  for (auto it = regions.rbegin(); it != regions.rend(); ++it)
    if (it->rect.contains(pt) && RegionShown(g, it->id)) return it->id;
  if (TableRect().contains(pt) && !FeltRect().contains(pt)) return hot::kEdge;
  return hot::kNone;
}

End EndOf(int p) { return p <= 4 ? End::Left : End::Right; }

bool OnPlayersHalf(int p, double x) { return p <= 4 ? x <= 688 : x >= 559; }

QRectF BetRect(int p, int b) {
  if (b >= 101 && b <= 104) return RailStackRect(p, b - 100);
  const Region* r = PrimaryRegion(p, b);
  return r ? r->rect : QRectF();
}

QPointF BasePosition(int p, int b) {
  if (b >= 101 && b <= 104) return RailStackRect(p, b - 100).center();
  const Region* r = PrimaryRegion(p, b);
  if (!r) return {};
  // In the centre, players 1 to 4 bet on the left half of a box and 5 to 8
  // on the right half, so that each base lies on its player's half.
  QRectF area = r->rect;
  End end = r->end;
  if (end == End::Centre) {
    end = EndOf(p);
    area.setWidth(area.width() / 2);
    if (end == End::Right) area.moveLeft(r->rect.center().x());
  }
  int players[8];
  const int n = PlayersOf(end, players);
  int slot = 0;
  while (slot < n && players[slot] != p) ++slot;
  int cols = n, rows = 1;
  ChooseGrid(area, n, cols, rows);
  const double cw = area.width() / cols, ch = area.height() / rows;
  return {area.left() + cw * (slot % cols + 0.5), area.top() + ch * (slot / cols + 0.5)};
}

QPointF StackStep(int p, int b) {
  // Stacks rise toward the back of the table and lean away from the
  // neighbouring player's stack: outward on each side of the base grid.
  const QPointF base = BasePosition(p, b);
  const QRectF r = BetRect(p, b);
  const double lean = base.x() < r.center().x() ? -0.8 : 0.8;
  return {lean, -2.6};
}
