#include "dice/roll_pad.h"

#include "core/game.h"
#include "core/money.h"

namespace {

constexpr std::int32_t kKindBits = 15;
constexpr int kTotals = 11;

bool OnDie(int d) { return d >= 1 && d <= 6; }

PadCell PairCell(int die1, int die2) {
  PadCell cell;
  if (!OnDie(die1) || !OnDie(die2)) return cell;
  cell.what = PadCell::Pair;
  cell.die1 = die1;
  cell.die2 = die2;
  return cell;
}

PadCell TotalCell(int n) {
  PadCell cell;
  if (n < 1 || n > kTotals) return cell;
  cell.what = PadCell::Total;
  cell.total = n + 1;
  return cell;
}

}  // namespace

void CheckPadOptions(RollPadState& pad) {
  if (pad.PadColor < 0 || pad.PadColor > 2) pad.PadColor = 0;
  if ((pad.PadOptions & kKindBits) == 0)
    pad.PadOptions = 1 << static_cast<int>(PadKind::TriangleCombos);
}

PadKind PadKindOf(std::int32_t options) {
  for (int k = 0; k < 4; ++k)
    if (options & (1 << k)) return static_cast<PadKind>(k);
  return PadKind::TriangleCombos;
}

void SetPadKind(RollPadState& pad, PadKind kind) {
  pad.PadOptions = (pad.PadOptions & ~kKindBits) | (1 << static_cast<int>(kind));
  pad.PadFacePick1 = pad.PadFacePick2 = 0;
}

PadLayout PadLayoutFor(PadKind kind, int width, int height) {
  PadLayout l;
  l.kind = kind;
  const bool wide = 2 * height < width, tall = 2 * width < height;
  switch (kind) {
    case PadKind::BoxCombos:
      l.rows = l.columns = 6;
      break;
    case PadKind::TriangleCombos:
      l.linesAsColumns = wide;
      l.rows = wide ? 6 : kTotals;
      l.columns = wide ? kTotals : 6;
      break;
    case PadKind::DiceFaces:
      // The six faces along the long side, the two dice across.
      l.linesAsColumns = width > height;
      l.rows = l.linesAsColumns ? 2 : 6;
      l.columns = l.linesAsColumns ? 6 : 2;
      break;
    case PadKind::BasicNumbers:
      l.basicShape = wide ? 0 : tall ? 1 : 2;
      l.rows = wide ? 1 : tall ? kTotals : 3;
      l.columns = wide ? kTotals : tall ? 1 : 5;
      break;
  }
  return l;
}

PadCell PadCellAt(const PadLayout& l, int r, int c) {
  if (r < 1 || c < 1 || r > l.rows || c > l.columns) return {};
  switch (l.kind) {
    case PadKind::BoxCombos:
      return PairCell(r, c);
    case PadKind::TriangleCombos: {
      // A line per total: the line's number and the place along it.
      const int line = l.linesAsColumns ? c : r, at = l.linesAsColumns ? r : c;
      return line <= 6 ? PairCell(line - at + 1, at) : PairCell(7 - at, at + line - 6);
    }
    case PadKind::DiceFaces: {
      PadCell cell;
      cell.what = PadCell::Face;
      cell.die = l.linesAsColumns ? r : c;
      cell.face = l.linesAsColumns ? c : r;
      return cell;
    }
    case PadKind::BasicNumbers:
      if (l.basicShape == 0) return TotalCell(c);
      if (l.basicShape == 1) return TotalCell(r);
      return TotalCell(r == 1 ? c : r == 2 ? 6 : c + 6);
  }
  return {};
}

PadCell PadCellOfClick(const PadLayout& l, int x, int y, int width, int height, bool counterShown) {
  const int top = counterShown ? kPadCounterHeight : 0;
  if (y < top || x < 0 || l.rows == 0 || l.columns == 0) return {};
  const double cellWidth = static_cast<double>(width) / l.columns;
  const double cellHeight = static_cast<double>(height - top) / l.rows;
  if (cellWidth <= 0 || cellHeight <= 0) return {};
  const int c = static_cast<int>(x / cellWidth) + 1;
  const int r = static_cast<int>((y - top) / cellHeight) + 1;
  return PadCellAt(l, r, c);
}

std::array<int, 2> PadDiceForTotal(int total, double rnd) {
  // The first die runs over the faces that leave the second one on the die.
  const int low = std::max(1, total - 6), high = std::min(6, total - 1);
  int die1 = static_cast<int>(rnd * (high - low + 1)) + low;
  die1 = std::clamp(die1, low, high);
  return {die1, total - die1};
}

bool ChoosePadDice(RollPadState& pad, const PadCell& cell, double rnd) {
  switch (cell.what) {
    case PadCell::Empty:
      return false;
    case PadCell::Total: {
      const auto dice = PadDiceForTotal(cell.total, rnd);
      pad.PadDie1 = dice[0];
      pad.PadDie2 = dice[1];
      break;
    }
    case PadCell::Pair:
      pad.PadDie1 = cell.die1;
      pad.PadDie2 = cell.die2;
      break;
    case PadCell::Face:
      (cell.die == 1 ? pad.PadFacePick1 : pad.PadFacePick2) = cell.face;
      if (pad.PadFacePick1 == 0 || pad.PadFacePick2 == 0) return false;
      pad.PadDie1 = pad.PadFacePick1;
      pad.PadDie2 = pad.PadFacePick2;
      pad.PadFacePick1 = pad.PadFacePick2 = 0;
      break;
  }
  pad.PadRollPending = true;
  return true;
}

std::string PadCounterText(const Game& g) {
  return FormatCount(g.RollTally(kTableSession, kEventRolls));
}
