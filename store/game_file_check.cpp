#include "store/game_file_check.h"

#include <cmath>
#include <initializer_list>

#include "core/catalogue.h"
#include "core/game.h"
#include "dice/roll_pad.h"

namespace {

// A payoff's numbers: at most a million to one.
constexpr std::int64_t kPayoffLimit = Currency::FromWhole(1'000'000).raw;
constexpr Long kGraphSlots = kGraphColumns;

// A count (rolls, hands, tallies, gaps) is never negative and at most what
// the roll limit of all sessions lets the rolls reach; a streak the same
// either way.
constexpr Long kCountLimit = kAllSessionsRollLimit;

bool Within(Long v, Long lo, Long hi) { return v >= lo && v <= hi; }
bool Count(Long v) { return Within(v, 0, kCountLimit); }
template <class Cells>
bool AllCounts(const Cells& t) {
  for (Long c : t.cells)
    if (!Count(c)) return false;
  return true;
}
bool WithinLimit(Currency c, Currency limit) { return c >= -limit && c <= limit; }
// Money read from a file stays within kMoneyLimit (core/currency.h).
bool Money(Currency c) { return WithinLimit(c, kMoneyLimit); }
bool PointOrNone(Long v) {
  for (Long n : {0, 4, 5, 6, 8, 9, 10})
    if (v == n) return true;
  return false;
}

template <class Table>
bool AllMoney(const Table& t) {
  for (const Currency& c : t.cells)
    if (!Money(c)) return false;
  return true;
}

bool Total(Currency c) { return WithinLimit(c, kStatTotalLimit); }

// TotalBets adds a seat's real bets and the vig paid up front on its six
// Lay and six Buy bets, each within the money limit: at a table whose
// maximum is near that limit, a seat that may bet below zero holds more.
constexpr int kVigEntries = 12;
constexpr Currency kTotalBetsLimit =
    Currency::FromRaw((kLastRealBet + kVigEntries) * kMoneyLimit.raw);

// A statistics table: its totals hold up to their own, larger limit (long
// play sums them beyond the money limit), every other figure is money.
template <class Table>
bool StatRowsSound(const Table& t) {
  // A row's columns are its innermost, contiguous cells.
  static_assert(Table::kLow3 == 0 && Table::kHigh3 == kStatColumnCount - 1);
  for (std::size_t n = 0; n < t.cells.size(); ++n)
    if (!(n % kStatColumnCount == kStatTotal ? Total(t.cells[n]) : Money(t.cells[n]))) return false;
  return true;
}

// A table of every seat's bets (and bankroll, id 0): its CheckStacks may
// hold up to their own, larger limit, every other amount is money.
template <class Table>
bool BetRowsSound(const Table& t) {
  for (int p = 0; p <= 8; ++p)
    for (int b = 0; b <= kLastBetId; ++b) {
      if (!WithinLimit(t(p, b), IsCheckStack(b) ? kCheckStackLimit : kMoneyLimit)) return false;
    }
  return true;
}

template <class Table>
bool PayoffsSound(const Table& t, int rows) {
  for (int i = 1; i <= rows; ++i) {
    const std::int64_t a = t(1, i).raw, flag = t(2, i).raw, d = t(3, i).raw;
    // Compared both ways, not by its magnitude: the lowest 64-bit value has none.
    if (a < -kPayoffLimit || a > kPayoffLimit || d <= 0 || d > kPayoffLimit) return false;
    if (flag != 0 && flag != -Currency::kScale) return false;
  }
  return true;
}

void RepairGraphAndDelay(Game& g) {
  RollState& r = g.roll;
  if (r.GraphScale <= Currency{}) r.GraphScale = Currency::FromRaw(2000);  // 0.2
  if (r.GraphBaseScale <= Currency{}) r.GraphBaseScale = r.GraphScale;
  Currency& delay = g.hyper.HyperDelaySeconds;
  if (delay < Currency{}) delay = Currency{};
  if (delay > Currency::FromWhole(300)) delay = Currency::FromWhole(300);
}

void RepairEnterBet(GameFileState& f) {
  const Long b = f.EnterBetId;
  if (!Within(b, 1, 83) && !Within(b, 101, 104)) f.EnterBetId = 1;
}

void RepairAdjustments(AutoPlayState& a, int p) {
  // An amount beyond the money limit is refused by SeatSound, not repaired:
  // the lowest 64-bit amount has no opposite to take.
  for (int k = 5; k <= 12; ++k)
    if (!Money(a.AdjustAmount(p, k))) return;
  a.AdjustAmount(p, 5) = a.AdjustAmount(p, 5) < Currency{} ? -a.AdjustAmount(p, 5) : a.AdjustAmount(p, 5);
  for (int k = 5; k <= 12; ++k) {
    if (!Within(a.AdjustOperator(p, k), 0, 3)) a.AdjustOperator(p, k) = 0;
    if (a.AdjustAmount(p, k) < Currency{}) a.AdjustAmount(p, k) = Currency{};
    const Currency u = a.AdjustUnits(p, k);
    if (u < Currency{} || u > Currency::FromWhole(6)) a.AdjustUnits(p, k) = Currency{};
  }
}

bool SeatSound(const Game& g, int p) {
  const AutoPlayState& a = g.autoplay;
  const BettingState& b = g.betting;
  if (!Within(b.StartBankrollMode(p), kStartWithAmount, kStartCarryWithNet)) return false;
  if (!Within(a.AutoAdjustMode(p), 0, 2) || !Within(a.HandleWinningBets(p), 0, 7) ||
      !Within(a.HandleLosingBets(p), 0, 7))
    return false;
  for (Long bias : {a.LayBias(p), a.PlaceBias(p), a.DoBias(p), a.DontBias(p)})
    if (!Within(bias, 0, 2)) return false;
  for (int k = 1; k <= 4; ++k)
    if (!IsCheckStack(b.CheckStackSlot(p, k))) return false;
  for (int bet = 1; bet <= 100; ++bet)
    for (int k = 0; k <= 1; ++k)
      if (!Within(g.BetTrend(p, bet, k), -kCountLimit, kCountLimit)) return false;
  if (!WithinLimit(g.TotalBets(p), kTotalBetsLimit)) return false;
  for (Currency c :
       {g.BankrollHigh(p), g.BankrollLow(p), g.InvestedBankroll(p), b.StartBankroll(p)})
    if (!Money(c)) return false;
  // The sum of the bankroll at every roll outgrows the money limit in play;
  // the roll holds it within a CheckStack's limit.
  if (!WithinLimit(g.BankrollSum(p), kCheckStackLimit)) return false;
  for (int k = 5; k <= 12; ++k)
    if (!Money(a.AdjustAmount(p, k))) return false;
  return true;
}

bool GameSound(const Game& g) {
  for (Long p : {g.Shooter, g.betting.CurPlayer, g.HandShooter, g.PrevHandShooter, g.betting.CheckStacksPlayer,
                 g.betting.BankrollTabPlayer, g.scriptSource.EdPlayer, g.graph.GraphPlayer,
                 g.views.SessionsPlayer})
    if (!Within(p, 0, 8)) return false;
  if (!Within(g.Die1, 1, 6) || !Within(g.Die2, 1, 6)) return false;
  if (!PointOrNone(g.Point) || !PointOrNone(g.PointAtRoll) || !PointOrNone(g.PointBeforeLast))
    return false;
  if (!Within(g.PointsMadeMask, 0, 63) || g.dice.Rng3State < 0) return false;
  if (!Within(g.dice.RngIndex, 0, kRngCount - 1)) return false;
  const TableSettings& t = g.rules;
  if (!Within(t.OddsCalcMethod, 0, kOddsMethodCount - 1) ||
      !Within(t.BetRequirement, kNoBetRequired, kAnyBetRequired) ||
      !Within(t.LayVigRound, 0, 2) || !Within(t.BuyVigRound, 0, 2) || !Within(t.CompBase, 0, 2) ||
      !Within(t.DiceAction, 0, 2))
    return false;
  for (Long s : {t.StickCallSet, t.DiceSoundSet, t.ChipSoundSet, t.WinSoundSet})
    if (s < 0) return false;
  if (t.RollsPerHour <= Currency{} || !Money(t.RollsPerHour)) return false;
  if (!Within(g.hyper.HyperThrottle, 0, 10) || !Within(g.GraphRollCount, 0, kGraphSlots)) return false;
  if (!Within(g.roll.GraphPlotType, 0, 1)) return false;
  // The statistics views index their tables by the frame they show.
  const ViewsState& v = g.views;
  for (Long frame : {v.RollTotalsFrame, v.BetResultsFrame, v.HandsFrame, v.SummaryFrame})
    if (!Within(frame, 0, kFrameCount - 1)) return false;
  const GraphViewState& graph = g.graph;
  if (!Within(graph.GraphAdjustType, 0, kGraphAdjustTypes - 1) ||
      !Within(graph.GraphStyle, 0, kGraphStyles - 1) ||
      !Within(graph.GraphColor, 0, kGraphColorSchemes - 1) ||
      !Within(graph.GraphAverageSpan, 0, kGraphColumns))
    return false;
  if (!Count(g.ComeoutsThisHand) || !Count(g.PassesThisHand) || !Count(g.MissesThisHand)) return false;
  if (!AllCounts(g.RollTally.Settled()) || !AllCounts(g.GapTally) || !AllCounts(g.TotalsTally) ||
      !AllCounts(g.HandsTally) || !AllCounts(g.RollsAtTable.Settled()) ||
      !AllCounts(g.MostRollsHand) || !AllCounts(g.MostComeoutHand) ||
      !AllCounts(g.MostPassesHand) || !AllCounts(g.MostMissesHand))
    return false;
  for (int k = 0; k <= kLastEvent; ++k)
    if (!Count(g.RollsSince(k))) return false;
  if (!PayoffsSound(g.PayoffTbl, 100) || !PayoffsSound(g.FieldPayoff, 21) ||
      !PayoffsSound(g.MidwayPayoff, 5) || !PayoffsSound(g.FirePayoff, 6))
    return false;
  for (Long w : g.BetWorking.cells)
    if (!Within(w, -1, 2)) return false;
  for (Long w : g.BetWorkingDefault.cells)
    if (!Within(w, -1, 2)) return false;
  for (Currency c : {t.MinPlacardBet, t.MaxPlacardBet, t.MaxPropBetPayoff, t.MaxOddsBet, t.MaxFireBet,
                     t.OddsAllowed410, t.OddsAllowed59, t.OddsAllowed68, t.LayVigRate, t.BuyVigRate,
                     t.CompRate, g.betting.AtmAmount, g.hyper.AutoStopRolls, g.roll.GraphScale,
                     g.roll.GraphBaseScale, g.roll.GraphTop})
    if (!Money(c)) return false;
  if (!BetRowsSound(g.Bet) || !BetRowsSound(g.BetAtRoll) || !BetRowsSound(g.BetAfterRoll) ||
      !AllMoney(g.BetContract) || !AllMoney(g.LayVig) || !AllMoney(g.BuyVig) ||
      !AllMoney(g.ComeFlatAtSet) || !AllMoney(g.GraphBankroll) || !StatRowsSound(g.StatAction) ||
      !StatRowsSound(g.StatWins) || !StatRowsSound(g.StatLosses))
    return false;
  for (Currency travel : g.ComeTravelTotal.cells)
    if (!Total(travel)) return false;
  const DiceFileState& d = g.diceFile;
  if (!Within(d.DiceFileMode, kDiceFileInactive, kDiceFilePlayback) || d.DiceFilePos < 0 ||
      d.DiceFileLast < 0)
    return false;
  if (!(std::fabs(g.probability.RollsOutOf) < 1e12) ||
      !Within(g.probability.ProbDisplayMode, 0, 3))
    return false;
  for (const CheckImage& c : g.gamefile.CheckImages)
    if (!Within(c.player, 0, 8) || !Within(c.bet, 0, kLastBetId)) return false;
  for (int p = 1; p <= 8; ++p)
    if (!g.PlayerName[static_cast<std::size_t>(p)].empty() && !SeatSound(g, p)) return false;
  return true;
}

}  // namespace

bool CheckLoadedGame(Game& g) {
  RepairGraphAndDelay(g);
  RepairEnterBet(g.gamefile);
  CheckPadOptions(g.pad);  // a colour past the last reads as the first, no kind as kind 1
  for (int p = 1; p <= 8; ++p) RepairAdjustments(g.autoplay, p);
  if (static_cast<int>(g.gamefile.CheckImages.size()) > kManyCheckImages)
    g.rules.AutoArrangeChecks = true;
  return GameSound(g);
}

bool WindowPlacesSound(const GameFileState& f) {
  // Not a number, an infinity or a place ten million pixels away is damage.
  constexpr float kLimit = 1e7f;
  for (const auto* singles : {&f.LayoutA, &f.LayoutB})
    for (float v : *singles)
      if (!(std::fabs(v) <= kLimit)) return false;
  return true;
}
