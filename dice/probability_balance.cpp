// SetProbabilityCell: one entry set, the rest of the table rebalanced round
// the locks. During one set a cell's flag carries marks beside the lock:
// kMarkTotal for a cell of a locked total, kMarkFirstDie / kMarkSecondDie
// for a cell of a locked face. A cell whose flag is exactly one line's mark
// is free within that line; any other flag holds the cell's value.
#include <algorithm>
#include <array>

#include "dice/probability_internal.h"

namespace {

constexpr Long kMarkFirstDie = 1;
constexpr Long kMarkSecondDie = 2;
constexpr Long kMarkTotal = 4;
constexpr int kCells = 36;
constexpr int kFaceCells = 6;

Long FaceMark(int die) { return die == 1 ? kMarkFirstDie : kMarkSecondDie; }
int FaceColumn(int die) { return die == 1 ? kFirstDieColumn : kSecondDieColumn; }

// "R = 0 when it isn't above 1".
double AboveOneOrZero(double r) { return r > 1 ? r : 0; }

// Count and sum of cells.
struct Held {
  int count = 0;
  double sum = 0;
  void Add(Long value) {
    ++count;
    sum += value;
  }
};

void MarkLockedLines(Game& game) {
  for (int b = 1; b <= kLastTotalColumn; ++b)
    if (ProbFlag(game, kTotalRow, b) > 0)
      ForEachCellOfColumn(b, [&](int a, int c) { ProbFlag(game, a, c) |= kMarkTotal; });
  for (int die = 1; die <= 2; ++die)
    for (int face = 1; face <= 6; ++face)
      if (ProbFlag(game, face + 1, FaceColumn(die)) > 0)
        ForEachCellOfFace(die, face, [&](int a, int b) { ProbFlag(game, a, b) |= FaceMark(die); });
}

// A total set: its column shares v, the other columns the rest.
bool BalanceTotal(Game& game, int b, double& v) {
  ProbFlag(game, 0, 0) = kFreeFormDice;
  Held other, column;
  ForEachProbabilityCell([&](int ca, int cb) {
    const Long flag = ProbFlag(game, ca, cb);
    if (flag <= 0) return;
    if (cb != b)
      other.Add(ProbValue(game, ca, cb));
    else if (flag != kMarkTotal)
      column.Add(ProbValue(game, ca, cb));
  });
  const int n = CellCount(b);
  const int freeColumn = n - column.count, freeOther = kCells - n - other.count;
  if (freeColumn == 0 || freeOther == 0) return false;
  double r = AboveOneOrZero(kProbCertain - other.sum);
  v = std::max(std::min(v, r), column.sum);
  ForEachCellOfColumn(b, [&](int ca, int cb) {
    const Long flag = ProbFlag(game, ca, cb);
    if (flag == 0 || flag == kMarkTotal)
      ProbValue(game, ca, cb) = RoundUnits((v - column.sum) / freeColumn);
  });
  r = AboveOneOrZero(RoundUnits(r - v));
  ForEachProbabilityCell([&](int ca, int cb) {
    if (cb != b && ProbFlag(game, ca, cb) == 0) ProbValue(game, ca, cb) = RoundUnits(r / freeOther);
  });
  return true;
}

// A face set while no total and no cell is locked: the die's other faces
// share the rest and every cell is the product of its faces.
bool BalancePercentage(Game& game, int die, int face, double& v) {
  ProbFlag(game, 0, 0) = kPercentageDice;
  const int col = FaceColumn(die);
  Held held;
  for (int r = kFirstCellRow; r <= kLastCellRow; ++r)
    if (ProbFlag(game, r, col) > 0) held.Add(ProbValue(game, r, col));
  const int free = kFaceCells - held.count;
  if (free == 0) return false;
  v = std::min(v, AboveOneOrZero(kProbCertain - held.sum));
  ProbValue(game, face + 1, col) = RoundUnits(v);
  for (int r = kFirstCellRow; r <= kLastCellRow; ++r)
    if (ProbFlag(game, r, col) == 0)
      ProbValue(game, r, col) = RoundUnits((kProbCertain - v - held.sum) / free);
  SetCellsFromFaces(game);
  return true;
}

// A face set with something locked: the face's free cells share v, every
// cell without a flag shares the rest.
bool BalanceFaceFreeForm(Game& game, int die, int face, double& v) {
  ProbFlag(game, 0, 0) = kFreeFormDice;
  const Long mark = FaceMark(die);
  std::array<bool, 14 * 8> inFace{};
  ForEachCellOfFace(die, face, [&](int a, int b) { inFace[a * 14 + b] = true; });
  Held ofFace, other;
  ForEachProbabilityCell([&](int a, int b) {
    const Long flag = ProbFlag(game, a, b);
    if (flag <= 0) return;
    if (!inFace[a * 14 + b])
      other.Add(ProbValue(game, a, b));
    else if (flag != mark)
      ofFace.Add(ProbValue(game, a, b));
  });
  const int freeFace = kFaceCells - ofFace.count, freeOther = kCells - kFaceCells - other.count;
  if (freeFace == 0 || freeOther == 0) return false;
  v = std::max(std::min(v, AboveOneOrZero(kProbCertain - other.sum)), ofFace.sum);
  ForEachCellOfFace(die, face, [&](int a, int b) {
    const Long flag = ProbFlag(game, a, b);
    if (flag == 0 || flag == mark) ProbValue(game, a, b) = RoundUnits((v - ofFace.sum) / freeFace);
  });
  const double r = AboveOneOrZero(RoundUnits(kProbCertain - other.sum - v));
  ForEachProbabilityCell([&](int a, int b) {
    if (ProbFlag(game, a, b) == 0) ProbValue(game, a, b) = RoundUnits(r / freeOther);
  });
  return true;
}

// One of a cell's three lines: its total, its first-die face, its second-die face.
struct CellLine {
  Long mark = 0;
  ProbEntry entry;  // the total or face entry
  int die = 0;      // 0 for the total, else the die of the face
  int face = 0;
  int cells = 0;
  Held held;
};

template <class F>
void ForEachCellOfLine(const CellLine& line, F&& visit) {
  if (line.die == 0)
    ForEachCellOfColumn(line.entry.b, visit);
  else
    ForEachCellOfFace(line.die, line.face, visit);
}

// A cell set: each locked line through the cell rebalances its own free
// cells, then every cell without a flag shares what is left.
bool BalanceCell(Game& game, int a, int b, double& v) {
  ProbFlag(game, 0, 0) = kFreeFormDice;
  const DicePair d = CellDice(a, b);
  std::array<CellLine, 3> lines{};
  lines[0] = {kMarkTotal, {kTotalRow, b}, 0, 0, CellCount(b), {}};
  lines[1] = {kMarkFirstDie, FaceEntry(1, d.die1), 1, d.die1, kFaceCells, {}};
  lines[2] = {kMarkSecondDie, FaceEntry(2, d.die2), 2, d.die2, kFaceCells, {}};
  auto locked = [&](const CellLine& l) { return ProbFlag(game, l.entry.a, l.entry.b) > 0; };
  auto lineValue = [&](const CellLine& l) { return ProbValue(game, l.entry.a, l.entry.b); };

  for (CellLine& line : lines) {
    if (!locked(line)) continue;
    ForEachCellOfLine(line, [&](int ca, int cb) {
      if (ProbFlag(game, ca, cb) != line.mark) line.held.Add(ProbValue(game, ca, cb));
    });
    if (line.cells - line.held.count == 0) return false;
    v = std::min(v, lineValue(line) - line.held.sum);
  }
  for (const CellLine& line : lines) {
    if (!locked(line)) continue;
    const int free = line.cells - line.held.count;
    const double share = (lineValue(line) - v - line.held.sum) / free;
    ForEachCellOfLine(line, [&](int ca, int cb) {
      const Long flag = ProbFlag(game, ca, cb);
      if (flag == 0 || flag == line.mark) ProbValue(game, ca, cb) = RoundUnits(share);
    });
  }
  Held held;
  ForEachProbabilityCell([&](int ca, int cb) {
    if (ProbFlag(game, ca, cb) > 0) held.Add(ProbValue(game, ca, cb));
  });
  const int free = kCells - held.count;
  const double r = std::max(0.0, kProbCertain - held.sum);
  if (free > 0) {
    v = std::min(v, r);
    ForEachProbabilityCell([&](int ca, int cb) {
      if (ProbFlag(game, ca, cb) == 0) ProbValue(game, ca, cb) = RoundUnits((r - v) / free);
    });
  }
  return true;
}

}  // namespace

void SetCellsFromFaces(Game& game) {
  ForEachProbabilityCell([&](int a, int b) {
    const DicePair d = CellDice(a, b);
    const double f1 = ProbValue(game, d.die1 + 1, kFirstDieColumn);
    const double f2 = ProbValue(game, d.die2 + 1, kSecondDieColumn);
    ProbValue(game, a, b) = RoundUnits(f1 * f2 * 0.00001);
  });
}

void SumUnlockedLines(Game& game) {
  for (int b = 1; b <= kLastTotalColumn; ++b) {
    if (ProbFlag(game, kTotalRow, b) & kProbLocked) continue;
    std::int64_t sum = 0;
    ForEachCellOfColumn(b, [&](int a, int c) { sum += ProbValue(game, a, c); });
    ProbValue(game, kTotalRow, b) = RoundUnits(static_cast<double>(sum));
  }
  if (!IsFreeFormDice(game)) return;
  for (int die = 1; die <= 2; ++die) {
    for (int face = 1; face <= 6; ++face) {
      if (ProbFlag(game, face + 1, FaceColumn(die)) & kProbLocked) continue;
      std::int64_t sum = 0;
      ForEachCellOfFace(die, face, [&](int a, int b) { sum += ProbValue(game, a, b); });
      ProbValue(game, face + 1, FaceColumn(die)) = RoundUnits(static_cast<double>(sum));
    }
  }
}

void SetProbabilityCell(Game& game, int a, int b, double value, bool absolute) {
  const ProbEntryKind kind = ProbabilityEntryKind(a, b);
  if (kind == ProbEntryKind::None) return;
  ProbabilityState& s = game.probability;

  const double t = TrueProbability(a, b);
  double v = value;
  if (!absolute) {
    switch (s.ProbDisplayMode) {
      case kShowPercentFromTrue:
        v = value + t;
        break;
      case kShowRollsOutOf:
        v = value * 100 / s.RollsOutOf;
        break;
      case kShowRollsFromTrue:
        v = value * 100 / s.RollsOutOf + t;
        break;
      default:
        break;
    }
  }
  if (!(v >= 0)) v = 0;  // below 0, and NaN from a zero N

  ProbFlag(game, a, b) = kProbLocked;
  const Long old = ProbValue(game, a, b);
  ProbValue(game, a, b) = 0;
  MarkLockedLines(game);

  bool balanced = false;
  switch (kind) {
    case ProbEntryKind::Total:
      balanced = BalanceTotal(game, b, v);
      break;
    case ProbEntryKind::Face: {
      const int die = b == kFirstDieColumn ? 1 : 2;
      balanced = NoCellLocked(game) ? BalancePercentage(game, die, a - 1, v)
                                    : BalanceFaceFreeForm(game, die, a - 1, v);
      break;
    }
    default:
      balanced = BalanceCell(game, a, b, v);
      break;
  }

  if (balanced) {
    ProbValue(game, a, b) = RoundUnits(v);
    SumUnlockedLines(game);
  } else {
    ProbValue(game, a, b) = old;
  }
  for (int r = kTotalRow; r <= kLastCellRow; ++r)
    for (int c = 1; c <= kSecondDieColumn; ++c)
      ProbFlag(game, r, c) = ProbFlag(game, r, c) >= kProbLocked ? kProbLocked : 0;
  if (balanced) s.ProbDirty = true;
}
