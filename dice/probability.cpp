#include "dice/probability.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "dice/probability_edit.h"
#include "dice/probability_internal.h"

namespace {

constexpr double kUnitsPerPercent = 1000;  // table units in one percent
constexpr int kAxisCount = 3;              // 1-6, 2-5, 3-4

// The plain generator of the redraw: a 32-bit linear congruential step and a
// value in [0, 1).
double NextRedraw(ProbabilityState& s) {
  s.RedrawState = s.RedrawState * 1664525u + 1013904223u;
  return static_cast<double>(s.RedrawState) / 4294967296.0;
}

// t' of the signed display modes: the true value in the shown unit, for
// one unit of `scale` (100 for percent, N for rolls out of N).
double TrueShown(int a, int b, double scale) {
  switch (ProbabilityEntryKind(a, b)) {
    case ProbEntryKind::Total:
      return CellCount(b) * scale / 36;
    case ProbEntryKind::Face:
      return scale / 6;
    default:
      return scale / 36;
  }
}

// The value of an entry as the tab shows it in the current mode.
double ShownValue(const Game& game, int a, int b) {
  const ProbabilityState& s = game.probability;
  const double value = ProbValue(game, a, b);
  switch (s.ProbDisplayMode) {
    case kShowPercentFromTrue:
      return value / kUnitsPerPercent - TrueShown(a, b, 100);
    case kShowRollsOutOf:
      return value * s.RollsOutOf / kProbCertain;
    case kShowRollsFromTrue:
      return value * s.RollsOutOf / kProbCertain - TrueShown(a, b, s.RollsOutOf);
    default:
      return value / kUnitsPerPercent;
  }
}

bool SignedMode(const Game& game) {
  const Long m = game.probability.ProbDisplayMode;
  return m == kShowPercentFromTrue || m == kShowRollsFromTrue;
}

}  // namespace

ProbEntryKind ProbabilityEntryKind(int a, int b) {
  if (a == kTotalRow && b >= 1 && b <= kLastTotalColumn) return ProbEntryKind::Total;
  if (a >= kFirstCellRow && a <= kLastCellRow && (b == kFirstDieColumn || b == kSecondDieColumn))
    return ProbEntryKind::Face;
  if (IsProbabilityCell(a, b)) return ProbEntryKind::Cell;
  return ProbEntryKind::None;
}

double TrueProbability(int a, int b) {
  switch (ProbabilityEntryKind(a, b)) {
    case ProbEntryKind::Total:
      return CellCount(b) * 100000.0 / 36;
    case ProbEntryKind::Face:
      return 600000.0 / 36;
    case ProbEntryKind::Cell:
      return 100000.0 / 36;
    default:
      return 0;
  }
}

void SetTrueProbabilities(Game& game) {
  ForEachProbabilityCell(
      [&](int a, int b) { ProbValue(game, a, b) = RoundUnits(TrueProbability(a, b)); });
  for (int b = 1; b <= kLastTotalColumn; ++b)
    ProbValue(game, kTotalRow, b) = RoundUnits(TrueProbability(kTotalRow, b));
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a) {
    ProbValue(game, a, kFirstDieColumn) = RoundUnits(TrueProbability(a, kFirstDieColumn));
    ProbValue(game, a, kSecondDieColumn) = RoundUnits(TrueProbability(a, kSecondDieColumn));
  }
}

bool NoCellLocked(const Game& game) {
  for (int b = 1; b <= kLastTotalColumn; ++b)
    if (ProbFlag(game, kTotalRow, b) & kProbLocked) return false;
  bool none = true;
  ForEachProbabilityCell([&](int a, int b) {
    if (ProbFlag(game, a, b) & kProbLocked) none = false;
  });
  return none;
}

void FlipProbabilityLock(Game& game, int a, int b) {
  if (ProbabilityEntryKind(a, b) == ProbEntryKind::None) return;
  Long& flag = ProbFlag(game, a, b);
  flag = flag == 0 ? kProbLocked : 0;
}

void UnlockAllProbabilities(Game& game) {
  for (int a = kTotalRow; a <= kLastCellRow; ++a)
    for (int b = 1; b <= kSecondDieColumn; ++b) ProbFlag(game, a, b) = 0;
}

void NewProbabilities(Game& game) {
  for (int a = 0; a <= kLastCellRow; ++a)
    for (int b = 0; b <= kSecondDieColumn; ++b) ProbFlag(game, a, b) = 0;
  SetTrueProbabilities(game);
  ProbFlag(game, 0, 0) = kPercentageDice;
  game.probability.ProbFilePath.clear();
  game.probability.ProbDirty = false;
}

void MakePercentageDice(Game& game) {
  ProbFlag(game, 0, 0) = kPercentageDice;
  SetCellsFromFaces(game);
  SumUnlockedLines(game);
  game.probability.ProbDirty = true;
}

void MakeFreeFormDice(Game& game) {
  ProbFlag(game, 0, 0) = kFreeFormDice;
  SumUnlockedLines(game);
  game.probability.ProbDirty = true;
}

void SetAxisProbabilities(Game& game, int axis1, double effect1, int axis2, double effect2) {
  UnlockAllProbabilities(game);
  const int axes[2] = {axis1, axis2};
  const double effects[2] = {effect1, effect2};
  for (int die = 1; die <= 2; ++die) {
    const int axis = std::clamp(axes[die - 1], 0, kAxisCount - 1);
    const double percent =
        std::isnan(effects[die - 1]) ? 0 : std::clamp(effects[die - 1], 0.0, 100.0);
    // The effectiveness is held in single precision, and so is the share.
    const float e = static_cast<float>(percent / 100);
    const float share = (1.0f - e) / 6.0f;
    const Long x = RoundUnits(static_cast<double>(share) * kProbCertain);
    const int lower = axis + 1, opposite = 7 - lower;
    const ProbEntry low = FaceEntry(die, lower), high = FaceEntry(die, opposite);
    ProbValue(game, low.a, low.b) = x;
    ProbFlag(game, low.a, low.b) = kProbLocked;
    SetProbabilityCell(game, high.a, high.b, x, true);
  }
}

std::string ProbabilityCellText(const Game& game, int a, int b) {
  if (ProbabilityEntryKind(a, b) == ProbEntryKind::None) return {};
  return FormatNumber(ShownValue(game, a, b), {3, true, SignedMode(game)});
}

int ProbabilityCellSign(const Game& game, int a, int b) {
  if (!SignedMode(game) || ProbabilityEntryKind(a, b) == ProbEntryKind::None) return 0;
  const std::string text = ProbabilityCellText(game, a, b);
  return text[0] == '+' ? 1 : text[0] == '-' ? -1 : 0;
}

std::string ProbabilityModeCaption(const Game& game) {
  const std::string n = RollsOutOfText(game);
  switch (game.probability.ProbDisplayMode) {
    case kShowPercentFromTrue:
      return "Shown as +/- from true percentages";
    case kShowRollsOutOf:
      return "Shown as number of rolls out of " + n;
    case kShowRollsFromTrue:
      return "Shown as +/- from true number of rolls out of " + n;
    default:
      return "Shown as percentages";
  }
}

const char* ProbabilityKindCaption(const Game& game) {
  return IsFreeFormDice(game) ? "Free Form Dice" : "Percentage Dice";
}

void PickProbabilityDice(Game& game, Long k) {
  ProbabilityState& s = game.probability;
  for (;;) {
    std::int64_t sum = 0, previous = 0, highest = 0;
    for (int a = kFirstCellRow; a <= kLastCellRow; ++a) {
      for (int b = a - 1; b <= 13 - a; ++b) {
        sum += ProbValue(game, a, b);
        if (previous < k && k <= sum) {
          const DicePair d = CellDice(a, b);
          game.Die1 = d.die1;
          game.Die2 = d.die2;
          return;
        }
        previous = sum;
        highest = std::max(highest, sum);
      }
    }
    if (highest < 1) {
      // No number can reach a cell: the dice fall back to true odds.
      game.Die1 = static_cast<Long>(NextRedraw(s) * 6) + 1;
      game.Die2 = static_cast<Long>(NextRedraw(s) * 6) + 1;
      return;
    }
    k = static_cast<Long>(NextRedraw(s) * kProbCertain) + 1;
  }
}
