#include "cycle/bench_workload.h"

#include <array>
#include <cstdint>
#include <iterator>

#include "automation/autoplay_state.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"

namespace {

using namespace bet;

// Every player starts with this much and may go below zero, so that no
// seat stops betting for want of money within the runs the bench makes.
constexpr Currency kStartBankroll = 100'000_usd;

// One player's standing orders: settling rules and the odds switches.
struct BenchPlayer {
  const char* name;
  WinRule win;
  LoseRule lose;
  bool takeOdds, layOdds, downPlace;
  // The "Same Bet:" (operator, amount) and " Bet:" amounts of the rules
  // that need them, in dollars: win same, lose same, win bet, lose bet.
  int winSameOp, winSame, loseSameOp, loseSame, winBet, loseBet;
};

constexpr int kPlus = 0, kMinus = 1;

constexpr std::array<BenchPlayer, 8> kPlayers = {{
    // Presses a winner by a unit; a loser starts again at $10.
    {"Ann", kWinPressUnit, kLoseSetAmount, true, false, false, 0, 0, 0, 0, 0, 10},
    {"Bo", kWinSameBet, kLoseSameBet, false, true, false, 0, 0, 0, 0, 0, 0},
    // Takes winners down (and bets again); bets what is left of a loser.
    {"Cy", kWinTakeDown, kLoseRemainder, true, false, false, 0, 0, 0, 0, 0, 0},
    // Doubles after a loss, back to $5 after a win.
    {"Di", kWinSetAmount, kLosePressDouble, false, true, false, 0, 0, 0, 0, 5, 0},
    // Lets winnings ride; a loser goes back to $2.
    {"Ed", kWinParlay, kLoseSetAmount, false, false, false, 0, 0, 0, 0, 0, 2},
    // A dollar more after a win, a dollar less after a loss.
    {"Fay", kWinAdjust, kLoseAdjust, false, false, false, kPlus, 1, kMinus, 1, 0, 0},
    {"Gus", kWinTakeDown, kLoseSameBet, false, false, false, 0, 0, 0, 0, 0, 0},
    // Doubles a winner, takes a loser down; full odds and Place bets down on the point.
    {"Hal", kWinPressDouble, kLoseTakeDown, true, true, true, 0, 0, 0, 0, 0, 0},
}};

// The base bets: what each player lays down and puts back when it is down.
struct BaseBet {
  int seat, id, dollars;
};

constexpr BaseBet kBaseBets[] = {
    {1, kPassLine, 10},  {1, PlaceId(6), 12},  {1, PlaceId(8), 12},
    {2, kDontPass, 10},  {2, LayId(4), 40},
    {3, kCome, 10},      {3, BuyId(4), 20},    {3, BuyId(10), 20},
    {4, kDontCome, 10},  {4, kField, 5},       {4, kBig6, 6},       {4, kBig8, 6},
    {5, kHard4, 2},      {5, kHard6, 2},       {5, kHard8, 2},      {5, kHard10, 2},
    {5, kSeven, 2},      {5, kCraps, 2},
    {6, kHorn, 4},       {6, kWorld, 5},       {6, kCandE, 2},
    {7, HopId(1, 4), 2}, {7, HopId(2, 2), 1},  {7, HopId(3, 6), 2}, {7, kMidway, 5},
    {7, kFire, 1},
    {8, kPassLine, 15},  {8, kCome, 5},        {8, PlaceId(9), 10}, {8, kField, 5},
};

// When the contract rules let a player make a base bet: the line bets on a
// come-out, the Come bets with a point on, Fire before the hand's first
// roll, any other bet always.
enum class When : std::uint8_t { Always, ComeOut, PointOn, FirstRoll };

constexpr When WhenOf(int b) {
  switch (b) {
    case kPassLine:
    case kDontPass:
      return When::ComeOut;
    case kCome:
    case kDontCome:
      return When::PointOn;
    case kFire:
      return When::FirstRoll;
    default:
      return When::Always;
  }
}

// A base bet as the loop reads it: its cell among the bets, its seat and id,
// and when it may be made, looked up once rather than at every roll.
struct BaseCell {
  std::size_t cell;
  int seat, id;
  When when;
};

constexpr auto kBaseCells = [] {
  std::array<BaseCell, std::size(kBaseBets)> cells{};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const BaseBet& base = kBaseBets[i];
    cells[i] = {decltype(Game::Bet)::Index(base.seat, base.id), base.seat, base.id,
                WhenOf(base.id)};
  }
  return cells;
}();

void SeatBenchPlayers(Game& g) {
  AutoPlayState& a = g.autoplay;
  for (int p = 1; p <= 8; ++p) {
    const BenchPlayer& x = kPlayers[static_cast<std::size_t>(p - 1)];
    SeatPlayer(g, p, x.name, kStartBankroll);
    g.betting.AllowNegBankroll(p) = true;
    a.HandleWinningBets(p) = x.win;
    a.HandleLosingBets(p) = x.lose;
    a.AutoTakeFullOdds(p) = x.takeOdds;
    a.AutoLayFullOdds(p) = x.layOdds;
    a.AutoDownPlaceBets(p) = x.downPlace;
    a.AdjustOperator(p, kAdjustAutoWinSame) = x.winSameOp;
    a.AdjustAmount(p, kAdjustAutoWinSame) = Currency::FromWhole(x.winSame);
    a.AdjustOperator(p, kAdjustAutoLoseSame) = x.loseSameOp;
    a.AdjustAmount(p, kAdjustAutoLoseSame) = Currency::FromWhole(x.loseSame);
    a.AdjustAmount(p, kAdjustAutoWinBet) = Currency::FromWhole(x.winBet);
    a.AdjustAmount(p, kAdjustAutoLoseBet) = Currency::FromWhole(x.loseBet);
  }
}

void KeepBetsAfterRoll(void* game, const Game&) { KeepBenchBets(*static_cast<Game*>(game)); }

}  // namespace

void SetUpBenchWorkload(Game& g, BenchWorkload workload) {
  g.rules.BetRequirement = kNoBetRequired;
  g.rules.NoticeFlags = 0;
  g.dice.RngIndex = 0;
  SeedRngWith(g, kBenchSeed);
  switch (workload) {
    case BenchWorkload::EmptyTable:
      break;
    case BenchWorkload::PassLine:
      SeatPlayer(g, 1, "Ann", kStartBankroll);
      g.betting.AllowNegBankroll(1) = true;
      g.autoplay.HandleWinningBets(1) = kWinSameBet;
      g.autoplay.HandleLosingBets(1) = kLoseSameBet;
      g.autoplay.AutoTakeFullOdds(1) = true;
      g.BetRequest = 10_usd;
      PlaceBet(g, 1, kPassLine);
      break;
    case BenchWorkload::EightPlayers:
      g.rules.UseBig68 = g.rules.UseMidwayBet = g.rules.UseFireBet = true;
      SeatBenchPlayers(g);
      KeepBenchBets(g);
      g.hyper.RollObserver = &KeepBetsAfterRoll;
      g.hyper.RollObserverContext = &g;
      break;
  }
}

void KeepBenchBets(Game& g) {
  for (std::size_t i = 0; i < kBaseCells.size(); ++i) {
    const BaseCell& base = kBaseCells[i];
    if (!g.Bet.cells[base.cell].IsZero()) continue;  // most stand: one read each
    const bool may = base.when == When::Always    ? true
                     : base.when == When::ComeOut ? g.Point == 0
                     : base.when == When::PointOn ? g.Point > 0
                                                  : g.RollTally(kTableHand, kEventRolls) == 0;
    if (!may) continue;
    g.BetRequest = Currency::FromWhole(kBaseBets[i].dollars);
    PlaceBet(g, base.seat, base.id);
  }
}
