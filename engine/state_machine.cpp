// The come-out/point state machine of a roll, with the hand's counters,
// the totals tally and the records of a hand.
#include <string_view>

#include "core/game.h"
#include "engine/roll_internal.h"
#include "engine/roll_steps.h"

namespace {

// The live frames of the House and, when a player is credited with the
// hand, of that player.
template <class F>
void ForHandFrames(const Game& g, F&& f) {
  for (Frame t : kLiveFrames) f(FrameIndex(kHouse, t));
  if (g.HandShooter > 0)
    for (Frame t : kLiveFrames) f(FrameIndex(g.HandShooter, t));
}

void RaiseHandRecord(Game& g, Table1<Long, 0, kLastFrameIndex>& record, Long value) {
  ForHandFrames(g, [&](int i) {
    if (value > record(i)) record(i) = value;
  });
}

// x is the point when one stands, else the total: the Pass and Miss
// routines run before Point is cleared.
int DecidedNumber(const Game& g) { return g.Point > 0 ? g.Point : g.DiceTotal; }

void Pass(Game& g) {
  g.PassesThisHand += 1;
  RaiseHandRecord(g, g.MostPassesHand, g.PassesThisHand);
  const int x = DecidedNumber(g);
  ForHandFrames(g, [&](int i) { g.TotalsTally(i, x, kTotalsPass) += 1; });
  PlayStickCall(g, kCallPass);
}

void MissWithCall(Game& g, int call) {
  g.MissesThisHand += 1;
  RaiseHandRecord(g, g.MostMissesHand, g.MissesThisHand);
  const int x = DecidedNumber(g);
  ForHandFrames(g, [&](int i) { g.TotalsTally(i, x, kTotalsMiss) += 1; });
  PlayStickCall(g, call);
}

void Miss(Game& g) { MissWithCall(g, kCallMiss); }
void MissAtBar(Game& g) { MissWithCall(g, kCallMissAtBar); }

void LogPass(Game& g, std::string_view line) {
  if (g.roll.LogOn && g.roll.LogPasses) WriteEventLine(g, line);
}

// The state machine on a come-out roll, a point made or a seven-out.
[[gnu::noinline]] void AdvanceOnComeoutOrDecision(Game& g) {
  const int total = g.DiceTotal;
  const bool comeout = g.Point == 0;
  if (total == g.Point) {
    Pass(g);
    g.LastPoint = g.Point;
    g.Point = 0;
    LogPass(g, "    Pass (point rolled)");
  } else if (comeout) {
    switch (total) {
      case 7:
      case 11:
        Pass(g);
        LogPass(g, "    Pass (natural)");
        break;
      case 4:
      case 5:
      case 6:
      case 8:
      case 9:
      case 10:
        g.Point = total;
        LogPass(g, "    Point established");
        break;
      case 3:
        Miss(g);
        LogPass(g, "    Miss (craps natural)");
        break;
      case 2:
        if (g.rules.BarNumber == 12)
          Miss(g);
        else
          MissAtBar(g);
        LogPass(g, "    Miss (craps natural)");
        break;
      case 12:
        if (g.rules.BarNumber == 2)
          Miss(g);
        else
          MissAtBar(g);
        LogPass(g, "    Miss (craps natural)");
        break;
      default:
        break;
    }
  } else if (total == 7) {
    Miss(g);
    g.LastPoint = g.Point;
    g.Point = 0;
    LogPass(g, "    Miss (seven-out)");
  }
  if (comeout) {
    g.ComeoutsThisHand += 1;
    ForHandFrames(g, [&](int i) { g.TotalsTally(i, total, kTotalsComeOut) += 1; });
    RaiseHandRecord(g, g.MostComeoutHand, g.ComeoutsThisHand);
  }
}

}  // namespace

void AdvanceStateMachine(Game& g) {
  // With a point on, a roll that is neither the point nor a seven changes
  // nothing; most such rolls leave here, before any frame.
  if (g.Point != 0 && g.DiceTotal != g.Point && g.DiceTotal != 7) return;
  AdvanceOnComeoutOrDecision(g);
}
