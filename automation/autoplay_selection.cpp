// The Auto-Play form's writes to a selection of players.
#include "automation/autoplay_selection.h"

#include "automation/autoplay.h"
#include "core/game.h"

namespace {

constexpr int kUnitsDollars = 0, kUnitsPercent = 1;

bool Seated(const Game& g, int p) { return !g.PlayerName[static_cast<std::size_t>(p)].empty(); }

std::int32_t SeatedBits(const Game& g, std::int32_t players) {
  std::int32_t bits = 0;
  for (int p = 1; p <= 8; ++p)
    if (((players >> p) & 1) && Seated(g, p)) bits |= std::int32_t{1} << p;
  return bits;
}

template <typename Visit>
void ForSelected(const Game& g, std::int32_t players, Visit visit) {
  for (int p = 1; p <= 8; ++p)
    if (((players >> p) & 1) && Seated(g, p)) visit(p);
}

int Clamp(int v, int high) { return v < 0 || v > high ? 0 : v; }

Currency AdjustValue(const Game& g, int p, int k, AdjustPart part) {
  const AutoPlayState& a = g.autoplay;
  switch (part) {
    case AdjustPart::kOperator:
      return Currency::FromWhole(a.AdjustOperator(p, k));
    case AdjustPart::kAmount:
      return a.AdjustAmount(p, k);
    case AdjustPart::kUnits:
      return a.AdjustUnits(p, k);
  }
  return Currency{};
}

}  // namespace

std::int32_t EffectiveAutoPlaySelection(const Game& g) {
  if (g.PlayerCount == 1)
    for (int p = 1; p <= 8; ++p)
      if (Seated(g, p)) return std::int32_t{1} << p;
  return SeatedBits(g, g.autoplay.SelectedPlayers);
}

void SetAutoPlaySelection(Game& g, std::int32_t players) {
  g.autoplay.SelectedPlayers = SeatedBits(g, players);
  g.roll.SessionDirty = true;
}

int FirstSelectedPlayer(const Game& g, std::int32_t players) {
  for (int p = 1; p <= 8; ++p)
    if (((players >> p) & 1) && Seated(g, p)) return p;
  return 0;
}

int AutoPlayValue(const Game& g, int p, AutoPlayOption option) {
  const AutoPlayState& a = g.autoplay;
  switch (option) {
    case AutoPlayOption::kTakeFullOdds:
      return a.AutoTakeFullOdds(p);
    case AutoPlayOption::kLayFullOdds:
      return a.AutoLayFullOdds(p);
    case AutoPlayOption::kDownPlaceBets:
      return a.AutoDownPlaceBets(p);
    case AutoPlayOption::kPassDice:
      return a.AutoPassDice(p);
    case AutoPlayOption::kAdjustMode:
      return a.AutoAdjustMode(p);
    case AutoPlayOption::kLayBias:
      return a.LayBias(p);
    case AutoPlayOption::kPlaceBias:
      return a.PlaceBias(p);
    case AutoPlayOption::kDoBias:
      return a.DoBias(p);
    case AutoPlayOption::kDontBias:
      return a.DontBias(p);
    case AutoPlayOption::kHandleWinning:
      return a.HandleWinningBets(p);
    case AutoPlayOption::kHandleLosing:
      return a.HandleLosingBets(p);
  }
  return 0;
}

void SetAutoPlayOption(Game& g, std::int32_t players, AutoPlayOption option, int value) {
  AutoPlayState& a = g.autoplay;
  constexpr int kLastBias = 2, kLastRule = 7;
  ForSelected(g, players, [&](int p) {
    switch (option) {
      case AutoPlayOption::kTakeFullOdds:
        return ChangeAutoTakeFullOdds(g, p, value != 0);
      case AutoPlayOption::kLayFullOdds:
        return ChangeAutoLayFullOdds(g, p, value != 0);
      case AutoPlayOption::kDownPlaceBets:
        return ChangeAutoDownPlaceBets(g, p, value != 0);
      case AutoPlayOption::kPassDice:
        a.AutoPassDice(p) = value != 0;
        return;
      case AutoPlayOption::kAdjustMode:
        return ChangeAutoAdjustMode(g, p, value);
      case AutoPlayOption::kLayBias:
        a.LayBias(p) = Clamp(value, kLastBias);
        return;
      case AutoPlayOption::kPlaceBias:
        a.PlaceBias(p) = Clamp(value, kLastBias);
        return;
      case AutoPlayOption::kDoBias:
        a.DoBias(p) = Clamp(value, kLastBias);
        return;
      case AutoPlayOption::kDontBias:
        a.DontBias(p) = Clamp(value, kLastBias);
        return;
      case AutoPlayOption::kHandleWinning:
        a.HandleWinningBets(p) = Clamp(value, kLastRule);
        return;
      case AutoPlayOption::kHandleLosing:
        a.HandleLosingBets(p) = Clamp(value, kLastRule);
        return;
    }
  });
  g.roll.SessionDirty = true;
}

bool AutoPlayAgrees(const Game& g, std::int32_t players, AutoPlayOption option) {
  const int first = FirstSelectedPlayer(g, players);
  if (first == 0) return true;
  bool same = true;
  const int value = AutoPlayValue(g, first, option);
  ForSelected(g, players, [&](int p) { same &= AutoPlayValue(g, p, option) == value; });
  return same;
}

bool AdjustAgrees(const Game& g, std::int32_t players, int k, AdjustPart part) {
  const int first = FirstSelectedPlayer(g, players);
  if (first == 0) return true;
  bool same = true;
  const Currency value = AdjustValue(g, first, k, part);
  ForSelected(g, players, [&](int p) { same &= AdjustValue(g, p, k, part) == value; });
  return same;
}

int StepAdjustOperator(Game& g, std::int32_t players, int k) {
  const int first = FirstSelectedPlayer(g, players);
  if (first == 0) return 0;
  const int op = NextOperator(g.autoplay.AdjustOperator(first, k));
  ForSelected(g, players, [&](int p) { g.autoplay.AdjustOperator(p, k) = op; });
  g.roll.SessionDirty = true;
  return op;
}

int StepAdjustUnits(Game& g, std::int32_t players, int k) {
  const int first = FirstSelectedPlayer(g, players);
  if (first == 0) return kUnitsDollars;
  const int units = g.autoplay.AdjustUnits(first, k) == Currency::FromWhole(kUnitsDollars)
                        ? kUnitsPercent
                        : kUnitsDollars;
  ForSelected(g, players,
              [&](int p) { g.autoplay.AdjustUnits(p, k) = Currency::FromWhole(units); });
  g.roll.SessionDirty = true;
  return units;
}

void SetAdjustAmount(Game& g, std::int32_t players, int k, Currency amount) {
  if (amount < Currency{}) amount = Currency{};
  ForSelected(g, players, [&](int p) { g.autoplay.AdjustAmount(p, k) = amount; });
  g.roll.SessionDirty = true;
}

const char* AutoPlayUnitsCaption(int units) { return units == kUnitsPercent ? "%" : "$"; }
