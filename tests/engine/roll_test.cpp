// The roll: the tallies and gaps each roll counts, the hand's state
// machine and its frames, the graph's history, the checks before a roll with
// their exact texts, the events-log lines of a roll, the start-up and what a
// new session keeps and clears.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <set>

#include "core/catalogue.h"
#include "core/checksum.h"
#include "core/graph_rows.h"
#include "core/money.h"
#include "cycle/session.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/players.h"
#include "engine/resolve.h"
#include "store/game_file.h"
#include "tests/engine/roll_fixture.h"

namespace {

using RollTallies = RollFixture;

TEST_F(RollTallies, FourOneCountsItsTenEventsInEveryLiveFrame) {
  Roll(4, 1);
  const std::set<int> expected = {81, 84, 28, 5, 31, 17, 18, 19, 67, 72};
  for (int k = 1; k <= 90; ++k)
    for (int frame : {0, 18, 36}) EXPECT_EQ(g.RollTally(frame, k), expected.count(k)) << k;
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
}

// RollsSince keeps the roll of each event's last showing, not a count
// stepped every roll: its counts must be those of the plain table, through a
// new session and a game saved and opened again.
TEST_F(RollTallies, RollsSinceIsTheCountOfATableSteppedEveryRoll) {
  SeedRngWith(g, 20261124);
  std::array<Long, kLastEvent + 1> plain{};
  auto rollAndCompare = [&plain](Game& game, int rolls) {
    for (int r = 0; r < rolls; ++r) {
      const auto before = game.RollTally;
      RollDice(game);
      for (int k = 0; k <= kLastEvent; ++k) {
        const bool shown = game.RollTally(kTableSession, k) != before(kTableSession, k);
        plain[k] = shown && k != kEventRolls ? 0 : plain[k] + 1;
        ASSERT_EQ(game.RollsSince(k), plain[k]) << "event " << k << ", roll " << r;
      }
    }
  };
  rollAndCompare(g, 2000);
  NewSession(g, true, true, true, 0);
  plain.fill(0);
  rollAndCompare(g, 700);

  auto owner = MakeGame(platform);
  Game& loaded = *owner;
  StartUp(loaded, folder.Path());
  loaded.rules.BetRequirement = kNoBetRequired;
  for (int r = 0; r < 5; ++r) RollDice(loaded);  // a clock of its own, behind the first game's
  ASSERT_TRUE(OpenGameBytes(loaded, "saved.rvg", GameFileBytes(g)));
  for (int k = 0; k <= kLastEvent; ++k) ASSERT_EQ(loaded.RollsSince(k), plain[k]) << k;
  rollAndCompare(loaded, 700);
}

// RollTally counts a roll's pair and works the categories out when read:
// whenever it is read, through a cell, a walk of the seat tables or a file,
// it must hold what a table settled after every roll holds, with and
// without a shooter, across hands' ends, player moves, new sessions and a
// game saved and opened, each done while pairs are pending. RollsAtTable,
// which adds the rolls it owes when read, is held to the same.
TEST_F(RollTallies, PendingPairsReadAsATableSettledAfterEveryRoll) {
  SeedRngWith(g, 20261125);
  auto owner = MakeGame(platform);
  Game& plain = *owner;
  plain = g;
  std::mt19937 pick(5);
  auto chance = [&pick](int n) { return static_cast<int>(pick() % static_cast<unsigned>(n)); };
  // Both games do the same; an opened game or a new session may draw a
  // fresh seed from the clock, so both draw from the same seed again.
  auto both = [&](auto&& act) {
    act(g);
    act(plain);
    const double seed = pick() % 1000;
    for (Game* game : {&g, &plain}) SeedRngWith(*game, seed);
  };
  auto compare = [&](int step) {
    for (int i = 0; i <= kLastFrameIndex; ++i)
      for (int k = 0; k <= kLastEvent; ++k)
        ASSERT_EQ(g.RollTally(i, k), plain.RollTally(i, k)) << "step " << step << ", cell " << i << "," << k;
    const Game& reader = g;  // a const read adds what is owed without settling
    for (int i = 0; i <= kLastFrameIndex; ++i)
      ASSERT_EQ(reader.RollsAtTable(i), plain.RollsAtTable(i)) << "step " << step << ", index " << i;
  };
  int shooterRolls = 0;
  for (int step = 0; step < 400; ++step) {
    switch (chance(10)) {
      case 0:
        compare(step);
        break;
      case 1:
        ASSERT_EQ(TablesChecksum(g), TablesChecksum(plain)) << step;
        break;
      case 2:
        both([&](Game& game) {
          ASSERT_TRUE(OpenGameBytes(game, "saved.rvg", GameFileBytes(game)));
        });
        break;
      case 3:
        if (chance(4) == 0) {
          const bool keepGames = chance(4) != 0;
          both([=](Game& game) { NewSession(game, keepGames, true, true, 0); });
        }
        break;
      case 4:
        if (g.PlayerCount < 3) {
          const int p = 1 + chance(8);
          if (!Seated(g, p))
            both([p](Game& game) { SeatPlayer(game, p, "P" + std::to_string(p), Currency::FromWhole(100)); });
        } else {
          int from = 1 + chance(8), to = 1 + chance(8);
          while (!Seated(g, from)) from = from % 8 + 1;
          if (to != from) both([=](Game& game) { MovePlayer(game, from, to); });
        }
        break;
      default:
        for (int r = 1 + chance(30); r > 0; --r) {
          shooterRolls += g.HandShooter > 0;
          RollDice(g);
          RollDice(plain);
          (void)plain.RollTally(kTableHand, kEventField);  // settles every roll
          (void)plain.RollsAtTable.Settled();
        }
    }
  }
  compare(-1);
  EXPECT_GT(shooterRolls, 1000);
}

using StateMachine = RollFixture;

TEST_F(StateMachine, PointMadeAndSevenOutMoveTheHandToTheLastHandFrame) {
  Roll(2, 2);  // point 4
  Roll(1, 3);  // point made
  EXPECT_EQ(g.TotalsTally(kTableSession, 4, kTotalsPass), 1);
  Roll(6, 5);  // come-out eleven: pass
  Roll(5, 1);  // point 6
  Roll(2, 3);
  Roll(4, 3);  // seven-out
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.LastPoint, 6);

  // The hand is over: frame 0 empty, frame 9 the hand, frames 18 and 36 kept.
  EXPECT_EQ(g.RollTally(kTableHand, kEventRolls), 0);
  EXPECT_EQ(g.RollTally(kTableLastHand, kEventRolls), 6);
  EXPECT_EQ(g.TotalsTally(kTableLastHand, 6, kTotalsMiss), 1);  // the miss counts at the point
  EXPECT_EQ(g.HandsTally(kTableHand), 0);
  EXPECT_EQ(g.ComeoutsThisHand + g.PassesThisHand + g.MissesThisHand, 0);
  EXPECT_EQ(g.MostComeoutHand(kTableSession), 3);
  EXPECT_EQ(g.MostPassesHand(kTableAllSessions), 2);

  Roll(1, 2);  // first roll of the next hand: the hand count rises now
  EXPECT_EQ(g.HandsTally(kTableHand), 1);
  EXPECT_EQ(g.HandsTally(kTableSession), 2);
  EXPECT_EQ(g.MostRollsHand(kTableSession), 6);
}

TEST_F(StateMachine, BarNumberDecidesWhichComeOutCrapsIsMissedAtTheBar) {
  g.rules.StickCallSet = 1;
  for (int n = 1; n <= 18; ++n)
    g.roll.StickCallFile[static_cast<std::size_t>(n)] = "call" + std::to_string(n);
  auto lastCall = [&] {
    for (auto it = platform.sounds.rbegin(); it != platform.sounds.rend(); ++it)
      if (it->path == "call13" || it->path == "call14" || it->path == "call15") return it->path;
    return std::string();
  };
  // The bar, the come-out craps and the stick's call.
  for (auto [bar, die, call] : {std::tuple{12, 6, "call15"}, {12, 1, "call14"}, {2, 1, "call15"}}) {
    g.rules.BarNumber = bar;
    Roll(die, die);
    EXPECT_EQ(lastCall(), call) << bar << " " << die;
  }
  EXPECT_EQ(g.MissesThisHand, 3);
  EXPECT_EQ(g.TotalsTally(kTableHand, 12, kTotalsMiss), 1);
}

TEST_F(StateMachine, TheShooterIsCreditedAndTheDicePassAtTheHandsEnd) {
  Seat(1, "Ann");
  Seat(3, "Cleo");
  g.Shooter = g.HandShooter = 3;
  Roll(4, 4);     // point 8
  g.Shooter = 1;  // dice passed during the hand: the hand stays Cleo's
  Roll(4, 3);     // seven-out
  EXPECT_EQ(g.HandsTally(FrameIndex(3, kFrameLastHand)), 1);
  EXPECT_EQ(g.RollsAtTable(FrameIndex(5, kFrameCurrentSession)),
            2);  // every slot saw the rolls, the House's too
  EXPECT_EQ(g.PrevHandShooter, 3);
  EXPECT_EQ(g.HandShooter, 1);

  Roll(3, 1);
  Roll(3, 4);  // at a seven-out the dice pass on
  EXPECT_EQ(g.Shooter, 3);
  EXPECT_EQ(g.HandShooter, 3);
  Roll(2, 1);
  EXPECT_EQ(g.HandsTally(FrameIndex(3, kFrameCurrentHand)), 1);
  EXPECT_EQ(g.HandsTally(FrameIndex(1, kFrameLastHand)), 1);
}

using GraphRows = RollFixture;

// The graph's rows kept the plain way, every column moved by a scroll: the
// reference for the rings, which move nothing.
struct PlainGraph {
  std::array<std::array<Currency, 2 * kGraphColumns + 1>, 9> bank{};
  std::array<std::array<Currency, kGraphColumns + 1>, 9> trend{};
  std::array<Currency, 9> high{}, low{};
  int count = 0;

  void Widen(int p, Currency v) {
    high[p] = std::max(high[p], v);
    low[p] = std::min(low[p], v);
  }
  // The roll's step with every seat seated.
  void Step(const Game& g) {
    const Long rolls = g.RollTally(kTableSession, kEventRolls);
    const bool full = count >= kGraphColumns, scroll = g.roll.GraphPlotType == 1;
    count = full ? (scroll ? kGraphColumns : 1) : count + 1;
    for (int p = 1; p <= 8; ++p) {
      const Currency now = g.Bet(p, bet::kBankroll);
      auto& b = bank[p];
      if (full) high[p] = low[p] = now;
      if (full && !scroll) {
        b[0] = Currency::FromWhole(rolls);
        std::copy(&b[1], &b[kGraphColumns + 1], &b[kGraphColumns + 1]);
      } else if (full) {
        const Currency leaving = b[1];
        std::copy(&b[2], &b[kGraphColumns + 1], &b[1]);
        std::copy(&trend[p][2], &trend[p][kGraphColumns + 1], &trend[p][1]);
        std::copy(&b[kGraphColumns + 2], &b[2 * kGraphColumns + 1], &b[kGraphColumns + 1]);
        b[2 * kGraphColumns] = leaving;
        b[0] = Currency::FromWhole(rolls - (kGraphColumns - 1));
        for (int k = 1; k < kGraphColumns; ++k) Widen(p, b[k]);
      }
      if (!full) Widen(p, now);
      b[count] = now;
    }
  }
  void Swap(int a, int b) {
    std::swap(bank[a], bank[b]), std::swap(trend[a], trend[b]);
    std::swap(high[a], high[b]), std::swap(low[a], low[b]);
  }
};

// Every logical column, the range and the count, as the plain rows have them.
void ExpectSameRows(const Game& g, const PlainGraph& ref, int step) {
  ASSERT_EQ(g.GraphRollCount, ref.count) << step;
  for (int p = 1; p <= 8; ++p) {
    ASSERT_EQ(GraphHistory(g, p, 0), ref.bank[p][0]) << step;
    for (int k = 1; k <= kGraphColumns; ++k) {
      ASSERT_EQ(GraphPage(g, p, k), ref.bank[p][k]) << step << " " << p << " " << k;
      ASSERT_EQ(GraphPrevious(g, p, k), ref.bank[p][kGraphColumns + k]) << step << " " << p << " " << k;
      ASSERT_EQ(GraphTrendAt(g, p, k), ref.trend[p][k]) << step << " " << p << " " << k;
    }
    ASSERT_EQ(g.GraphHigh(p), ref.high[p]) << step << " " << p;
    ASSERT_EQ(g.GraphLow(p), ref.low[p]) << step << " " << p;
  }
}

// Thousands of rolls of bankrolls walking (often standing still, so that
// ranges tie), with the plot type switched, the range widened and reset by
// other writers, trends drawn, players moved, the game saved and opened
// again and new sessions, all in the middle of a scroll: the rings give
// every column and range the plain shift gives, and the game file's bytes
// and the checksum are those of the rows stored in order.
TEST_F(GraphRows, TheRingsShowWhatAPlainShiftShows) {
  for (int p = 1; p <= 7; ++p) SeatPlayer(g, p, "P" + std::to_string(p), Currency::FromWhole(100 * p));
  g.roll.GraphAutoPrint = true;
  g.roll.GraphPlotType = 1;
  const auto plain = std::make_unique<PlainGraph>();
  PlainGraph& ref = *plain;
  for (int p = 1; p <= 8; ++p)
    ref.bank[p][0] = GraphHistory(g, p, 0), ref.high[p] = ref.low[p] = g.Bet(p, bet::kBankroll);
  std::mt19937 rng(20261124);
  auto chance = [&rng](int in) { return std::uniform_int_distribution<int>(1, in)(rng) == 1; };
  auto pick = [&rng](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
  const std::string path = folder.Path() + "ring.rvg";
  int scrolls = 0, loads = 0, moves = 0;
  for (int step = 0; step < 8000; ++step) {
    for (int p = 1; p <= 7; ++p) g.Bet(p, bet::kBankroll) += Currency::FromWhole(5 * pick(-2, 2));
    if (chance(1200)) g.roll.GraphPlotType = 1 - g.roll.GraphPlotType;
    if (chance(60)) {  // another writer widens or restarts a range
      const int p = pick(1, 8);
      const Currency v = g.Bet(p, bet::kBankroll) + Currency::FromWhole(pick(-50, 50));
      if (chance(2)) {
        g.GraphHigh(p) = std::max(g.GraphHigh(p), v), g.GraphLow(p) = std::min(g.GraphLow(p), v);
        ref.Widen(p, v);
      } else {
        g.GraphHigh(p) = g.GraphLow(p) = ref.high[p] = ref.low[p] = v;
      }
    }
    if (chance(40) && g.GraphRollCount > 0) {  // the view draws a trend
      const int p = pick(1, 8), k = pick(1, g.GraphRollCount);
      GraphTrendAt(g, p, k) = ref.trend[p][k] = Currency::FromWhole(step);
    }
    if (chance(500)) {
      const int a = pick(1, 8), b = pick(1, 8);
      MovePlayer(g, a, b);
      if (a != b) ref.Swap(a, b), ++moves;
    }
    if (chance(700)) {
      const std::string bytes = GameFileBytes(g);
      const auto straight = std::make_unique<Game>(g);
      StraightenGraphRows(*straight);
      ASSERT_EQ(GameFileBytes(*straight), bytes) << step;
      ASSERT_EQ(TablesChecksum(*straight), TablesChecksum(g)) << step;
      ASSERT_TRUE(OpenGameBytes(g, path, bytes));
      for (int p = 1; p <= 8; ++p) {  // nor an open seat's rows, the trend or the range
        ref.trend[p].fill({});
        if (g.PlayerName[static_cast<std::size_t>(p)].empty()) ref.bank[p].fill({});
        ref.high[p] = g.GraphHigh(p), ref.low[p] = g.GraphLow(p);
      }
      ++loads;
    }
    if (chance(2500)) {
      NewSession(g, true, true, true, 0);
      ref.count = 0;
      for (int p = 1; p <= 8; ++p) {
        ref.bank[p].fill({});
        ref.bank[p][0] = Currency::FromWhole(1);
        ref.high[p] = ref.low[p] = g.Bet(p, bet::kBankroll);
      }
    }
    ++g.RollTally(kTableSession, kEventRolls);
    g.roll.GraphPrintDue = false;
    scrolls += g.GraphRollCount == kGraphColumns && g.roll.GraphPlotType == 1;
    ShiftGraphHistory(g);
    ref.Step(g);
    ASSERT_EQ(g.roll.GraphPrintDue, ref.count == kGraphColumns) << step;  // a full page is printed when asked
    ASSERT_NO_FATAL_FAILURE(ExpectSameRows(g, ref, step));
  }
  EXPECT_GT(scrolls, 1000);
  EXPECT_GT(loads, 2);
  EXPECT_GT(moves, 2);
}

class RollChecks : public RollFixture {
 protected:
  const MessageRequest& LastMessage() {
    EXPECT_FALSE(platform.messages.empty());
    return platform.messages.back();
  }
  // A roll that a check stops: the session's rolls stay at `rolls`, and the
  // last message is `text`.
  void ExpectStopped(Long rolls, const std::string& text) {
    RollDice(g);
    EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), rolls);
    EXPECT_EQ(LastMessage().text, text);
  }
  const std::string kReset = "Select \"New\" from the \"Game\" menu to reset the table.";
};

TEST_F(RollChecks, ABetRequirementWithoutPlayersStopsBeforeTheDice) {
  g.rules.BetRequirement = kLineBetRequired;
  ASSERT_TRUE(QueueDice(g, 5, 5));
  ExpectStopped(0,
                "No players are available to bet.\r\rPlease enter a player or change the "
                "requirement to make a bet on the 'Bets tab' of the configuration screen.");
  EXPECT_EQ(g.roll.QueuedCount, 1);
  EXPECT_FALSE(g.RollBusy);
}

TEST_F(RollChecks, ALineBetRequirementNamesTheShooter) {
  g.rules.BetRequirement = kLineBetRequired;
  Seat(1, "Ann");
  Seat(2, "Bob");
  g.Shooter = g.HandShooter = 1;
  RollDice(g);
  EXPECT_NE(LastMessage().text.find("Ann must make a Pass Line bet"), std::string::npos);

  // A Don't Pass bet is enough; a Place bet is not.
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(6);
  RollDice(g);
  g.Bet(1, bet::kDontPass) = Currency::FromWhole(5);
  const auto shown = platform.messages.size();
  Roll(2, 3);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
  EXPECT_EQ(platform.messages.size(), shown);

  // Any bet: a CheckStack is no bet.
  g.rules.BetRequirement = kAnyBetRequired;
  g.Bet(1, bet::kDontPass) = g.Bet(1, PlaceId(6)) = Currency{};
  g.Bet(1, 120) = Currency::FromWhole(50);
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
}

TEST_F(RollChecks, TheRollAndBankrollLimitsStopTheNextRoll) {
  g.RollTally(kTableSession, kEventRolls) = 99'999'999;
  Roll(2, 3);
  EXPECT_TRUE(platform.messages.empty());
  ExpectStopped(100'000'000,
                "Sorry ... the maximum limit of 100,000,000 rolls has been reached.\r\r" + kReset);

  // All sessions together stop where their counts still fit a Long.
  g.RollTally(kTableSession, kEventRolls) = 5;
  g.RollTally(kTableAllSessions, kEventRolls) = kAllSessionsRollLimit - 1;
  Roll(2, 3);
  EXPECT_EQ(g.RollTally(kTableAllSessions, kEventRolls), kAllSessionsRollLimit);
  ExpectStopped(6,
                "Sorry ... the maximum limit of 2,047,483,647 rolls in all sessions has been "
                "reached.\r\r" + kReset);

  g.RollTally(kTableSession, kEventRolls) = g.RollTally(kTableAllSessions, kEventRolls) = 0;
  Seat(1, "Ann");
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(9'999'999);
  Roll(1, 2);  // exactly the limit still rolls
  const auto shown = platform.messages.size();
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(9'999'999) + Currency::FromRaw(1);
  ExpectStopped(1, "Congratulations!\r\rAnn broke the bank limit of $9,999,999\r\r" + kReset);
  EXPECT_EQ(platform.messages.size(), shown + 1);
  g.Bet(1, bet::kBankroll) = -(Currency::FromWhole(9'999'999) + Currency::FromRaw(1));
  ExpectStopped(1, "Sorry ... \r\rAnn has exceeded the max loss limit of $9,999,999\r\r" + kReset);
}

TEST_F(RollChecks, BankrollRecordsFollowEveryRoll) {
  Seat(2, "Bob");
  g.Bet(2, bet::kBankroll) = Currency::FromWhole(100);
  g.BankrollHigh(2) = g.BankrollLow(2) = g.BankrollSum(2) = Currency::FromWhole(100);
  for (long bank : {100, 40, 140}) {
    g.Bet(2, bet::kBankroll) = Currency::FromWhole(bank);
    Roll(1, 2);
  }
  EXPECT_EQ(g.BankrollSum(2), Currency::FromWhole(380));
  // The sum stops at its limit rather than wrapping.
  g.BankrollSum(2) = kCheckStackLimit - 1_usd;
  Roll(1, 2);
  EXPECT_EQ(g.BankrollSum(2), kCheckStackLimit);
  EXPECT_EQ(g.BankrollHigh(2), Currency::FromWhole(140));
  EXPECT_EQ(g.BankrollLow(2), Currency::FromWhole(40));
  EXPECT_EQ(g.RailAtRoll(2), Currency::FromWhole(140));
}

// Years of play at a high table could carry a total of the longer frames
// past 64 bits; every kStatHoldRolls rolls of all sessions the roll holds
// each seat's totals within their limit, and leaves the other columns be.
TEST_F(RollChecks, TheLongerFramesTotalsAreHeldEveryFewRolls) {
  Seat(2, "Bob");
  const int session = FrameIndex(2, kFrameCurrentSession), all = FrameIndex(2, kFrameAllSessions);
  const Currency beyond = kStatTotalLimit + 5_usd;  // grown past since the last hold
  g.StatAction(all, bet::kField, kStatTotal) = beyond;
  g.StatLosses(session, bet::kPassLine, kStatTotal) = beyond;
  g.StatWins(all, bet::kPassLine, kStatLargest) = beyond;
  g.ComeTravelTotal(session, 5) = beyond;
  g.RollTally(kTableAllSessions, kEventRolls) = kStatHoldRolls - 2;
  Roll(1, 2);
  EXPECT_EQ(g.StatAction(all, bet::kField, kStatTotal), beyond);
  Roll(1, 2);
  EXPECT_EQ(g.StatAction(all, bet::kField, kStatTotal), kStatTotalLimit);
  EXPECT_EQ(g.StatLosses(session, bet::kPassLine, kStatTotal), kStatTotalLimit);
  EXPECT_EQ(g.ComeTravelTotal(session, 5), kStatTotalLimit);
  EXPECT_EQ(g.StatWins(all, bet::kPassLine, kStatLargest), beyond);
}

using RollLog = RollFixture;

// Each line's format is the events log tests' business; here, a roll with
// the kinds of lines switched off, and a bet lost and laid again.
TEST_F(RollLog, ALostBetIsNotReportedAsRemovedAndItsReturnIsANewBet) {
  Seat(1, "Ann");
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(100);
  g.HyperDrive = true;  // settle by rule, no dialog
  g.roll.LogOn = true;
  g.roll.LogRolls = g.roll.LogPasses = g.roll.LogWins = g.roll.LogLosses = false;
  g.roll.LogBankroll = false;
  Roll(1, 2);
  EXPECT_TRUE(EventsLogText(g).empty());
  auto betField = [&] { g.Bet(1, bet::kField) = g.TotalBets(1) = Currency::FromWhole(5); };
  betField();
  Roll(2, 3);  // the Field loses on 5 and comes down
  ASSERT_EQ(g.Bet(1, bet::kField), Currency());
  ClearEventsLogText(g);
  Roll(2, 2);
  EXPECT_EQ(EventsLogText(g), "");
  betField();
  Roll(1, 2);
  EXPECT_EQ(EventsLogText(g), "    Bets:\n      Ann bet $5 on Field\n");
}

using StartedGame = RollFixture;

TEST_F(StartedGame, FoldersTheClockMeasureAndAMissingGeneratorsFallback) {
  EXPECT_EQ(g.roll.DataFolder, folder.Path());
  // The clock advances 1 ms per read: 99 calls fit in 100 ms.
  EXPECT_EQ(g.roll.LoopsPerTick, 9);
  EXPECT_EQ(g.dice.RngIndex, 0);  // the last generator seeded stays selected
  // A missing generator falls back, and the game still rolls.
  g.dice.MissingDllMask = 3;
  g.dice.RngIndex = 0;
  RollDice(g);
  EXPECT_EQ(g.dice.RngIndex, 3);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
  EXPECT_GE(g.Die1, 1);
  EXPECT_LE(g.Die2, 6);
}

class Session : public RollFixture {
 protected:
  // A few hands of rolls: the session frame and the all-sessions frame fill.
  void PlaySomeRolls() {
    for (auto [a, b] : {std::pair{2, 2}, {1, 3}, {3, 3}, {6, 1}, {5, 6}, {1, 1}, {4, 4}, {2, 3}})
      Roll(a, b);
  }
};

TEST_F(Session, PreservedGamesMoveTheSessionToTheLastSessionFrame) {
  PlaySomeRolls();
  auto before = std::make_unique<Game>(g);
  ASSERT_GT(before->RollTally(kTableSession, kEventRolls), 0);
  NewSession(g, true, false, true, 0);
  for (int k = 0; k <= 90; ++k) {
    EXPECT_EQ(g.RollTally(kTableLastSession, k), before->RollTally(kTableSession, k)) << k;
    EXPECT_EQ(g.RollTally(kTableAllSessions, k), before->RollTally(kTableAllSessions, k)) << k;
    for (int i = 0; i <= 26; ++i) ASSERT_EQ(g.RollTally(i, k), 0) << i << ' ' << k;
  }
  for (int t = 2; t <= 12; ++t)
    for (int c = kTotalsComeOut; c <= kTotalsMiss; ++c)
      EXPECT_EQ(g.TotalsTally(kTableLastSession, t, c), before->TotalsTally(kTableSession, t, c));
  EXPECT_EQ(g.HandsTally(kTableLastSession), before->HandsTally(kTableSession));

  // A second new session with no roll in between leaves the last session alone.
  NewSession(g, true, false, true, 0);
  EXPECT_EQ(g.RollTally(kTableLastSession, kEventRolls), 8);
  EXPECT_EQ(g.RollTally(kTableAllSessions, kEventRolls), 8);

  // Without preserving, every frame starts again.
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.RollTally(kTableLastSession, kEventRolls), 0);
  EXPECT_EQ(g.RollTally(kTableAllSessions, kEventRolls), 0);
}

TEST_F(Session, TheGameInHandAndTheGapTablesStartAgain) {
  Seat(2, "Bob");
  g.Shooter = 2;
  PlaySomeRolls();
  Roll(5, 5);  // a point stands
  ASSERT_GT(g.Point, 0);
  g.Bet(2, PlaceId(8)) = Currency::FromWhole(12);
  g.TotalBets(2) = Currency::FromWhole(12);
  g.BuyVig(2, 1) = Currency::FromWhole(1);
  g.Bet(2, 107) = Currency::FromWhole(9);
  g.CheckStackName(2, 7) = "rent";
  g.BetWorking(2, PlaceId(8)) = -1;
  g.PointsMade = 2;
  NewSession(g, true, true, true, 0);
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.PointsMade, 0);
  EXPECT_EQ(g.RollsSince, decltype(g.RollsSince){});
  EXPECT_EQ(g.GapTally, decltype(g.GapTally){});
  EXPECT_EQ(g.BuyVig(2, 1), Currency());
  EXPECT_EQ(g.BetWorking(2, PlaceId(8)), 0);  // back to the come-out default
  // Kept CheckStacks keep their amounts and names.
  EXPECT_EQ(g.Bet(2, 107), Currency::FromWhole(9));
  EXPECT_EQ(g.CheckStackName(2, 7), "rent");
  NewSession(g, true, false, true, 0);
  EXPECT_EQ(g.Bet(2, 107), Currency());
  EXPECT_EQ(g.CheckStackName(2, 7), "");
}

// Each start rule itself is the bankroll tests' business; here a new session
// applies it after the session's bets are settled, and skips open seats.
TEST_F(Session, BankrollsComeFromEachPlayersStartRule) {
  Seat(5, "Eve");
  g.betting.StartBankrollMode(5) = kStartCarry;
  g.Bet(5, bet::kBankroll) = Currency::FromWhole(250);
  g.Bet(5, bet::kPassLine) = Currency::FromWhole(10);
  g.TotalBets(5) = Currency::FromWhole(10);
  g.HyperDrive = true;  // winners settle by rule
  PlaySomeRolls();
  const Currency carried =
      g.Bet(5, bet::kBankroll);  // the session's end, the Pass Line's results in it
  ASSERT_NE(carried, Currency::FromWhole(250));
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.Bet(5, bet::kBankroll), carried);
  EXPECT_EQ(g.Bet(5, bet::kPassLine), Currency());
  EXPECT_EQ(g.GraphLow(5), carried);
  EXPECT_EQ(g.Bet(3, bet::kBankroll), Currency());  // an open seat stays empty
}

}  // namespace
