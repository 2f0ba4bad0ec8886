#include "script/variables.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "analysis/advantage.h"
#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "dice/dice_file.h"
#include "script/compile_common.h"
#include "script/script_text.h"
#include "stats/summary.h"

namespace {

constexpr double kTrue = -1;
constexpr int kFieldAmount = 33;  // the statistic field of a bet's present amount

double Truth(bool b) { return b ? kTrue : 0; }
double Div(double a, double b) { return b == 0 ? 0 : a / b; }
// A double rounded to money (four places), as a double again.
double ToMoney(double x) { return CurFromDouble(x).ToDouble(); }

struct Reading {
  int p = 0;  // resolved player
  int i = 0;  // frame index p + 9 * (H - 1)
};

Reading FrameOf(const Game& g, const ScriptElement& player, const ScriptElement& frame) {
  Reading f;
  f.p = ResolvePlayer(g, player.Value);
  const int h = std::clamp(Code(frame.Value), 1, static_cast<int>(kFrameCount));
  f.i = FrameIndex(f.p, h - 1);
  return f;
}

// The statistics row of one class: wagers (A), wins (W) or losses (L).
struct Row {
  const Game& g;
  const decltype(Game::StatAction)& t;
  int i, b;
  double operator()(int k) const { return t(i, b, k).ToDouble(); }
};

// Fields 32 to 36 of a bet: its present state, read from the table rather
// than the statistics (only class 1 and a seated slot give anything).
double BetState(Game& g, int p, int b, int x, int y) {
  if (x != 1 || p < 1) return 0;
  switch (y) {
    case 32:
      return g.Bet(p, b) > Currency{} ? 1 : 0;
    case 33:
      return g.Bet(p, b).ToDouble();
    case 34:
      return Truth(g.BetWorking(p, b) > 0);
    case 35:
      return Truth(g.BetWorking(p, b) > 1);
    case 36:
      return Truth(g.BetWorking(p, b) < 0);
    default:
      return 0;
  }
}

// Variables 1..85: a bet's statistics or its present state.
double BetVariable(Game& g, int b, const ScriptElement* q) {
  const int x = Code(q[2].Value), y = Code(q[3].Value);
  // The fields of the present state need no time frame.
  if (y < 21 || y > 31) {
    const int p = ResolvePlayer(g, q[0].Value);
    return p < 0 || p > 8 ? 0 : BetState(g, p, b, x, y);
  }
  const Reading f = FrameOf(g, q[0], q[1]);
  if (f.p < 0 || f.p > 8) return 0;
  const Row A{g, g.StatAction, f.i, b}, W{g, g.StatWins, f.i, b}, L{g, g.StatLosses, f.i, b};
  const Row& WL = x == 3 ? L : W;
  const double R = g.RollTally(kTableSession, kEventRolls);
  const double rph = g.rules.RollsPerHour.ToDouble();
  const double T = g.RollsAtTable(f.i);
  auto netOf = [&](int k) { return W(k) - L(k); };
  auto byClass = [&](int k) {
    switch (x) {
      case 1:
        return A(k);
      case 2:
      case 3:
        return WL(k);
      case 4:
        return netOf(k);
      case 5:
        return Div(100 * netOf(k), A(k));
      default:
        return 0.0;
    }
  };
  auto atLastRoll = [&](const Row& row) { return R > 0 && row(kStatRollOfLast) == R; };
  auto perHour = [&](double count) { return Div(count * rph, T); };
  switch (y) {
    case 21:  // the fields 21 to 24 read the columns count, total, largest, smallest
    case 22:
    case 23:
    case 24:
      return byClass(y - 21 + kStatCount);
    case 26:
      return byClass(kStatAmountOfLast);
    case 25: {
      const double wins = Div(W(kStatTotal), W(kStatCount)), losses = Div(L(kStatTotal), L(kStatCount));
      switch (x) {
        case 1:
          return Div(A(kStatTotal), A(kStatCount));
        case 2:
        case 3:
          return Div(WL(kStatTotal), WL(kStatCount));
        case 4:
          return wins - losses;
        case 5:
          return Div((wins - losses) * 100 * A(kStatCount), A(kStatTotal));
        default:
          return 0;
      }
    }
    case 27:
      switch (x) {
        case 1:
          return atLastRoll(A) ? 1 : 0;
        case 2:
        case 3:
          return atLastRoll(WL) ? 1 : 0;
        case 4:
          return (atLastRoll(W) ? 1 : 0) - (atLastRoll(L) ? 1 : 0);
        case 5:
          return (atLastRoll(W) ? 100 : 0) - (atLastRoll(L) ? 100 : 0);
        default:
          return 0;
      }
    case 28:
      switch (x) {
        case 1:
          return A(kStatRollOfLast) == R ? A(kStatAmountOfLast) : 0;
        case 2:
        case 3:
          return WL(kStatRollOfLast) == R ? WL(kStatAmountOfLast) : 0;
        case 4:
          return (atLastRoll(W) ? W(kStatAmountOfLast) : 0) - (atLastRoll(L) ? L(kStatAmountOfLast) : 0);
        case 5:
          return Div((atLastRoll(W) ? 100 * W(kStatAmountOfLast) : 0) - (atLastRoll(L) ? 100 * L(kStatAmountOfLast) : 0), A(kStatAmountOfLast));
        default:
          return 0;
      }
    case 29:
    case 30: {
      const int k = y == 29 ? kStatCount : kStatTotal;
      switch (x) {
        case 1:
          return perHour(A(k));
        case 2:
        case 3:
          return perHour(WL(k));
        case 4:
          return ToMoney(perHour(W(k))) - ToMoney(perHour(L(k)));
        case 5:
          return Div((ToMoney(perHour(W(k))) - ToMoney(perHour(L(k)))) * 100,
                     ToMoney(perHour(A(k))));
        default:
          return 0;
      }
    }
    case 31:
      if (x == 4) return A(kStatTotal) * ExpectedValuePerDecision(g, b);
      if (x == 5) return 100 * ExpectedValuePerDecision(g, b);
      return 0;
    default:
      return 0;
  }
}

// The RollTally subscript of a dice field: a total, a die's face, or a
// combination d.e of the two dice.
int RollsSubscript(double field) {
  const double d = std::floor(field);
  if (d == field) return std::clamp(Code(field), 0, static_cast<int>(kLastEvent));
  const int e = static_cast<int>(std::lround((field - d) * 10));
  const int di = Code(d);
  if (di < 1 || di > 6 || e < 1 || e > 6) return 0;
  return PairEvent(di, e);
}

// Sum of TotalsTally over the totals a field selects, for a phase (0
// come-out rolls, 1 passes, 2 misses).
double TotalsSum(const Game& g, int i, int field, int phase) {
  auto at = [&](int total) {
    return static_cast<double>(g.TotalsTally(i, total, kTotalsComeOut + phase));
  };
  double sum = 0;
  switch (field) {
    case 0:
      for (int t = 2; t <= 12; ++t) sum += at(t);
      return sum;
    case 14:
      return at(2) + at(3) + at(7) + at(11) + at(12);
    case 15:
      return at(4) + at(5) + at(6) + at(8) + at(9) + at(10);
    default:
      return field >= 2 && field <= 12 ? at(field) : 0;
  }
}

double ComeOutRolls(const Game& g, int i) { return TotalsSum(g, i, 0, 0); }

double PointsVariable(Game& g, int v, const ScriptElement* q) {
  const Reading f = FrameOf(g, q[0], q[1]);
  const int phase = Code(q[2].Value) - 6;
  const int field = Code(q[3].Value);
  if (phase < 0 || phase > 2 || f.p < 0 || f.p > 8 ||
      !(field == 0 || (field >= 4 && field <= 10 && field != 7))) {
    AddStepNote(g, "Reference to # of points out of limits.");
    return 0;
  }
  const double count = TotalsSum(g, f.i, field == 0 ? 15 : field, phase);
  return v == 4606 ? count : Div(100 * count, ComeOutRolls(g, f.i));
}

double NextRnd(ScriptRunState& r) {
  // A 64-bit linear congruential step; the top 53 bits make the fraction.
  r.RndState = r.RndState * 6364136223846793005ULL + 1442695040888963407ULL;
  return static_cast<double>(r.RndState >> 11) * 0x1.0p-53;
}

double TableVariable(Game& g, int v) {
  const double R = g.RollTally(kTableSession, kEventRolls);
  const int total = g.DiceTotal;
  const int atRoll = g.PointAtRoll;
  switch (v) {
    case 3000:
      return Truth(g.scriptSource.HotKeyRunning || g.scriptRun.FirstCycle);
    case 3001:
      return Truth(R == 0);
    case 3002:
      return Truth(g.RollTally(kTableHand, kEventRolls) == 0);
    case 3005:
    case 3006:
    case 3007: {
      if (g.diceFile.DiceFilePath.empty()) {
        AddStepNote(g, "Dice roll file not open.");
        return 0;
      }
      const std::int64_t length = DiceRollTotal(g);
      if (v == 3005) return Truth(g.diceFile.DiceFilePos > length);
      return v == 3006 ? g.diceFile.DiceFilePos : static_cast<double>(length);
    }
    case 3200:
      return g.Shooter;
    case 3201:
      return g.PrevHandShooter;
    case 3202:
      return g.HandShooter;
    case 3203:
      return g.betting.CurPlayer;
    case 3204:
      return g.scriptRun.ScriptBettor;
    case 3300:
      return Truth(R > 0 && ((atRoll == 0 && (total == 7 || total == 11)) || total == atRoll));
    case 3301:
      return Truth(R > 0 && ((atRoll == 0 && (total == 2 || total == 3 || total == 12)) ||
                             (total == 7 && atRoll > 0)));
    case 3500:
      return g.Point;
    case 3501:
      return g.LastPoint;
    case 3502:
      return atRoll;
    case 3510:
      return total;
    case 3511:
      return g.Die1 + 0.1 * g.Die2;
    case 3512:
      return g.Die1;
    case 3513:
      return g.Die2;
    case 3603:
      return g.rules.RollsPerHour.ToDouble();
    case 3610:
      return g.rules.MinPlacardBet.ToDouble();
    case 3611:
      return g.rules.MaxPlacardBet.ToDouble();
    case 3655:
      return g.dice.LastSeed;
    case 3672:
      return g.dice.RngIndex + 1;
    case 3691:
      return g.rules.CompRate.ToDouble() / 100;
    case 3693:
    case 3696:
      return g.platform ? g.platform->TimeGetTime() : 0;
    case 3697:
      return g.msg.MsgAnswer;
    case 3698:
      return NextRnd(g.scriptRun);
    case 3704:
      return Truth(g.Point == 0);
    case 3705:
      return Truth(g.Point > 0);
    case 3706:
      return Truth(R > 0 && atRoll == 0);
    case 3707:
      return Truth(atRoll > 0);
    case 3708:
      return Truth(total == 7 && atRoll > 0);
    case 3709:
      return Truth(g.Point == 0 && atRoll > 0);
    case 3710:
      return Truth(g.Point > 0);
    case 3711:
      return Truth(g.Point == 0);
    default:
      return 0;
  }
}

double PlayerVariable(Game& g, int v, int p) {
  if (p < 0 || p > 8) return 0;
  if (v >= 100 && v <= 199) return g.Bet(p, v).ToDouble();
  switch (v) {
    case 651:
      return (g.Bet(p, bet::kBankroll) - g.TotalBets(p)).ToDouble();
    case 652:
      return g.BankrollHigh(p).ToDouble();
    case 653:
      return g.BankrollLow(p).ToDouble();
    case 654:
      return g.Bet(p, bet::kBankroll).ToDouble();
    case 655:
      return g.RailAtRoll(p).ToDouble();
    case 670:
      return g.autoplay.HandleWinningBets(p) + 1;
    case 671:
      return g.autoplay.HandleLosingBets(p) + 1;
    case 700:
      return Truth(g.autoplay.AutoTakeFullOdds(p));
    case 701:
      return Truth(g.autoplay.AutoLayFullOdds(p));
    case 702:
      return Truth(g.autoplay.AutoDownPlaceBets(p));
    case 703:
      return Truth(g.autoplay.AutoPassDice(p));
    default:
      return 0;
  }
}

double RollsVariable(Game& g, int v, const ScriptElement* q) {
  const Reading f = FrameOf(g, q[0], q[1]);
  if (f.p < 0 || f.p > 8) return 0;
  switch (v) {
    case 2500:
      return g.RollTally(f.i, RollsSubscript(q[2].Value));
    case 2501:
      return g.RollsSince(RollsSubscript(q[2].Value));
    case 2502:
      return Div(100.0 * g.RollTally(f.i, RollsSubscript(q[2].Value)), g.RollTally(f.i, kEventRolls));
    case 2600:
    case 2601:
    case 2602:
    case 2603:
    case 2604:
    case 2605: {
      const double sum = TotalsSum(g, f.i, Code(q[2].Value), (v - 2600) / 2);
      return (v % 2 == 0) ? sum : Div(100 * sum, ComeOutRolls(g, f.i));
    }
    default:
      return 0;
  }
}

}  // namespace

int ResolvePlayer(const Game& g, double code) {
  const int c = Code(code);
  switch (c) {
    case 10:
      return g.Shooter;
    case 11:
      return g.PrevHandShooter;
    case 12:
      return g.HandShooter;
    case 13:
      return g.betting.CurPlayer;
    case 14:
      return g.scriptRun.ScriptBettor;
    default:
      return c >= 0 && c <= 8 ? c : 0;
  }
}

ScriptElement VariableValue(Game& g, int v, const ScriptElement* q) {
  if (v >= 1 && v <= kLastRealBet) return {kNumber, BetVariable(g, v, q)};
  if (v == 4606 || v == 4607) return {kNumber, PointsVariable(g, v, q)};
  if (v >= 800 && v <= 899) return {kString, static_cast<double>(-v)};
  if (v >= 3000 && v <= 3999) return {kNumber, TableVariable(g, v)};
  if (v >= 2000 && v <= 2999) return {kNumber, RollsVariable(g, v, q)};
  if (v == 1100) {
    const Reading f = FrameOf(g, q[0], q[1]);
    if (f.p < 0 || f.p > 8) return {kNumber, 0};
    CompFigures comps;
    FigureComps(g, comps, f.i);
    return {kNumber, comps.value};
  }
  if (v == 1200) {
    const int h = std::clamp(Code(q[1].Value), 1, static_cast<int>(kFrameCount));
    return {kNumber, Div(g.RollTally(FrameIndex(kHouse, h - 1), kEventRolls), g.rules.RollsPerHour.ToDouble())};
  }
  if (v >= 86 && v <= 999) return {kNumber, PlayerVariable(g, v, ResolvePlayer(g, q[0].Value))};
  return {kNumber, 0};
}

ScriptElement VariableAt(Game& g, const ScriptElement* e, int& qualifiers) {
  const int v = Code(e[0].Value);
  // A bet with its four qualifiers, as the compiler writes them: the
  // common case, read without the general search.
  if (v >= 1 && v <= kLastRealBet) {
    auto qualifier = [](const ScriptElement& x) { return x.Kind <= kPlayerRef && x.Kind >= kStatField; };
    if (qualifier(e[1]) && qualifier(e[2]) && qualifier(e[3]) && qualifier(e[4])) {
      qualifiers = 4;
      if (Code(e[4].Value) == kFieldAmount && Code(e[3].Value) == 1) {
        // The amount on the bet, the field scripts read most.
        const int p = ResolvePlayer(g, e[1].Value);
        return {kNumber, p >= 1 && p <= 8 ? AmountValue(g.Bet(p, v)) : 0};
      }
      return {kNumber, BetVariable(g, v, e + 1)};
    }
  }
  const int cls = VariableClass(v);
  // The qualifiers the compiler put behind the variable; fewer only if a
  // qualifier function failed and left a number in its place.
  int q = 0;
  while (q < cls && e[1 + q].Kind <= kPlayerRef && e[1 + q].Kind >= kStatField) ++q;
  qualifiers = q;
  if (q == cls) return VariableValue(g, v, e + 1);
  ScriptElement defaults[4];
  defaults[0] = {kPlayerRef, 0};
  defaults[1] = {kFrame, 3};
  defaults[2] = cls == 3 ? ScriptElement{kStatField, 0} : ScriptElement{kStatClass, 1};
  defaults[3] = {kStatField, 33};
  for (int k = 0; k < q; ++k) defaults[k] = e[1 + k];
  return VariableValue(g, v, defaults);
}

int ReadVariable(Game& g, int position) {
  ScriptElement* e = &g.scriptRun.WorkStatement[static_cast<std::size_t>(position)];
  int q = 0;
  const ScriptElement value = VariableAt(g, e, q);
  e[0] = value;
  return q;
}
