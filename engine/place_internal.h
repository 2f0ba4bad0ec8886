// Small helpers shared by the placing files: when a notice may be shown, the
// title it carries, and the working state a bet takes back.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"

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
// ResetWorkingOf for a cell its caller has just marked.
inline void ResetWorkingOfMarked(Game& game, int p, int b) {
  game.BetWorking(p, b) = game.Point == 0 ? game.BetWorkingDefault(p, b) : 1;
}

// Which branch figures the maximum of a bet, looked up once by its id: the
// table maximum alone (most bets), the odds (by their flat bet), or one of the
// bounds that hang on the rules and payoffs only.
enum class MaxKind : std::uint8_t { Table, Odds, Lay, Fire, CandE, Horn, World, Payoff };

constexpr MaxKind KindOf(int b) {
  if (IsOddsBet(b)) return MaxKind::Odds;
  if (IsLay(b)) return MaxKind::Lay;
  if (b == bet::kFire) return MaxKind::Fire;
  if (b == bet::kCandE) return MaxKind::CandE;
  if (b == bet::kHorn) return MaxKind::Horn;
  if (b == bet::kWorld) return MaxKind::World;
  if (b >= bet::kHard4 && b <= bet::kHopLast) return MaxKind::Payoff;
  return MaxKind::Table;
}

inline constexpr auto kMaxKind = [] {
  std::array<MaxKind, kLastBetId + 1> kind{};
  for (int b = 0; b <= kLastBetId; ++b) kind[static_cast<std::size_t>(b)] = KindOf(b);
  return kind;
}();

// The table maximum, a multiple of the unit when there is one.
inline Currency TableMaximum(const Game& game, Currency unit) {
  return unit.raw > 0 ? RoundDownToMultiple(game.rules.MaxPlacardBet, unit)
                      : game.rules.MaxPlacardBet;
}

// FigureBetMaximum for a bet of each kind other than MaxKind::Table (seat p
// 1..8 or, for a bet whose maximum hangs on no flat bet, any), by kind: the
// gate calls the kind's own function straight (the entry of Table is null).
using SpecialMaximumFn = void (*)(Game& game, int p, int b);
extern const std::array<SpecialMaximumFn, 8> kSpecialMaximum;

// FigureBetMaximum for a bet of MaxKind::Table: the table maximum,
// remembered with the placard maximum and the unit it comes from. Inline so
// the gate, which asks it for most bets, makes no call.
inline void FigureTableMaximum(Game& game) {
  RememberedFigure& t = game.betting.maxima.table;
  const Currency placard = game.rules.MaxPlacardBet, unit = game.CheckValue(1);
  if (!t.valid || t.key[0] != placard.raw || t.key[1] != unit.raw) [[unlikely]] {
    t.key[0] = placard.raw;
    t.key[1] = unit.raw;
    t.value = TableMaximum(game, unit);
    t.valid = true;
  }
  // As for every bet: a negative maximum is 0, a multiple of any unit.
  game.betting.BetMaximum = t.value < Currency{} ? Currency{} : t.value;
}

// FigureBetMaximum for a bet id 0..kLastBetId: most bets end at the table
// maximum and skip the search of the rest. Inline for the gate.
inline void FigureMaximumOfId(Game& game, int p, int b) {
  const MaxKind kind = kMaxKind[static_cast<std::size_t>(b)];
  if (kind == MaxKind::Table)
    FigureTableMaximum(game);
  else
    kSpecialMaximum[static_cast<std::size_t>(kind)](game, p, b);
}
