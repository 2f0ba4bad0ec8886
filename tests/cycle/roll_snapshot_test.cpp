// The roll's snapshots copy the CheckStacks and the other ids above the real
// bets only for seats marked as changed. These runs change CheckStacks by
// each of their writers from the roll observer and from the event pumps of
// a Hyper-Drive run, and between calls, and hold each snapshot against the
// whole Bet row it must equal: BetAtRoll the row at the roll's start,
// BetAfterRoll the row at its end.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/bench_workload.h"
#include "cycle/hyperdrive.h"
#include "cycle/roll.h"
#include "cycle/startup.h"
#include "engine/bankroll.h"
#include "engine/betting_state.h"
#include "engine/place.h"
#include "engine/players.h"

namespace {

using BetRows = decltype(Game::Bet);

// Empties seat p as a player leaving does.
void Unseat(Game& g, int p) {
  ResetPlayer(g, p);
  g.PlayerName[static_cast<std::size_t>(p)].clear();
  --g.PlayerCount;
}

// A window that changes a CheckStack whenever it gets the events.
class StackingPlatform : public HeadlessPlatform {
 public:
  void DoEvents() override {
    HeadlessPlatform::DoEvents();
    if (onEvents) onEvents();
  }
  std::function<void()> onEvents;
};

class RollSnapshots : public ::testing::Test {
 protected:
  RollSnapshots() : owner_(MakeGame(platform)), g(*owner_) {
    platform.minimized = true;
    platform.fixedTime = 0;
    platform.clockStep = 1000;
    StartUp(g, "/tmp/ravelton-tests");
    SetUpBenchWorkload(g, BenchWorkload::EightPlayers);
    for (int p = 1; p <= 8; ++p) g.Bet(p, bet::kCheckStackFirst + p) = Currency::FromWhole(p);
  }

  // Checks and changes from the roll observer.
  void Observe() {
    g.hyper.RollObserver = [](void* self, const Game&) {
      static_cast<RollSnapshots*>(self)->AfterRoll();
    };
    g.hyper.RollObserverContext = this;
  }

  // Checks and changes from the event pumps, which a throttled run makes
  // after every roll.
  void PumpEveryRoll() {
    g.hyper.HyperThrottle = 1;
    platform.onEvents = [this] { AfterRoll(); };
  }

  bool Seated(int p) const { return !g.PlayerName[static_cast<std::size_t>(p)].empty(); }

  // Changes one CheckStack of a seated player, chosen by the roll count.
  void ChangeStack(int salt) {
    const long roll = g.RollTally(kTableSession, kEventRolls);
    const int p = static_cast<int>((roll + salt) % 8) + 1;
    const int n = static_cast<int>((roll * 7 + salt) % 100);
    if (!Seated(p)) return;
    SetCheckStackValue(g, p, n, std::to_string(roll % 97 + salt));
  }

  // Holds both snapshots of every seated player against the rows they copy.
  void ExpectSnapshots() {
    for (int p = 1; p <= 8; ++p) {
      if (!Seated(p)) continue;
      for (int b = 0; b <= kLastBetId; ++b) {
        ASSERT_EQ(g.BetAfterRoll(p, b), g.Bet(p, b)) << "after roll, player " << p << " id " << b;
        ASSERT_EQ(g.BetAtRoll(p, b), expectedAtRoll(p, b))
            << "at roll, player " << p << " id " << b;
      }
    }
    ++checkedRolls;
  }

  // Checks the roll just made, then changes a stack now and then.
  void AfterRoll() {
    ExpectSnapshots();
    const long roll = g.RollTally(kTableSession, kEventRolls);
    if (roll % 5 == 0) {
      ChangeStack(3);
      // A bet placed on a CheckStack goes the way a click or a script takes.
      const int p = static_cast<int>(roll / 5 % 8) + 1;
      if (Seated(p)) {
        g.BetRequest = Currency::FromWhole(2);
        PlaceBet(g, p, bet::kCheckStackFirst + static_cast<int>(roll % 100));
      }
    }
    expectedAtRoll = g.Bet;
  }

  void Run(int rolls) {
    expectedAtRoll = g.Bet;
    g.hyper.RunRollLimit = rolls;
    RunHyperDrive(g);
  }

  StackingPlatform platform;
  std::unique_ptr<Game> owner_;
  Game& g;
  BetRows expectedAtRoll{};
  int checkedRolls = 0;
};

TEST_F(RollSnapshots, HyperDriveCopiesEveryStackChangedDuringTheRun) {
  Observe();
  Run(600);
  EXPECT_EQ(checkedRolls, 600);
  g.hyper.RollObserver = nullptr;
  PumpEveryRoll();
  Run(600);
  EXPECT_EQ(checkedRolls, 1200);
}

// Changes between calls (a dialog, a file, a script's start, a test writing
// the table) reach the next call's snapshots, in Hyper-Drive and out of it.
TEST_F(RollSnapshots, ChangesBetweenCallsReachTheNextSnapshots) {
  Observe();
  for (int call = 0; call < 6; ++call) {
    for (int p = 1; p <= 8; ++p)
      if (Seated(p))
        g.Bet(p, bet::kCheckStackFirst + call * 9 + p) += Currency::FromWhole(call + 1);
    g.Bet(1, kLastBetId) = Currency::FromWhole(call);
    Run(20);
    expectedAtRoll = g.Bet;
    g.Bet(2, bet::kCheckStackLast) = Currency::FromWhole(call);
    expectedAtRoll(2, bet::kCheckStackLast) = Currency::FromWhole(call);
    ASSERT_TRUE(QueueDice(g, call % 6 + 1, 6 - call % 6));
    RollDice(g);
    ExpectSnapshots();
  }
  EXPECT_EQ(checkedRolls, 6 * 21);
}

// The roll reads the seats once per call and again after each event pump:
// a player seated in the events bets, is decided and has snapshots from the
// next roll on; a seat left in the events is not visited again.
TEST_F(RollSnapshots, SeatsTakenOrLeftInTheEventsCountFromTheNextRoll) {
  Unseat(g, 8);
  g.hyper.RollObserver = nullptr;
  PumpEveryRoll();
  platform.onEvents = [this] {
    AfterRoll();
    const long roll = g.RollTally(kTableSession, kEventRolls);
    if (roll == 40) SeatPlayer(g, 8, "Ivy", Currency::FromWhole(500));
    if (roll >= 40 && Seated(8) && g.Bet(8, bet::kField).IsZero()) {
      g.BetRequest = Currency::FromWhole(5);
      PlaceBet(g, 8, bet::kField);
    }
    if (roll == 120) Unseat(g, 3);
    expectedAtRoll = g.Bet;
  };
  Run(200);
  EXPECT_EQ(checkedRolls, 200);
  EXPECT_NE(g.BankrollSum(8), Currency{});
}


// Of the real bets the snapshots copy only the ids marked as changed, and
// the graph step passes over open seats whose rows a new column leaves as
// they are. A run that marks every seat's rows after every roll, so that
// its snapshots copy whole rows and its graph step visits every seat, must
// hold the same tables roll by roll: a writer that leaves its cell unmarked,
// or a seat passed over too soon, shows as a difference.
struct SnapshotRecorder {
  Game* game = nullptr;
  bool keepBenchBets = false;
  bool markEverything = false;
  std::vector<std::uint64_t> digests;
};

template <class T>
void Digest(std::uint64_t& h, const T& table) {
  for (const auto& cell : table.cells) {
    std::uint64_t v = 0;
    static_assert(sizeof(cell) <= sizeof(v));
    std::memcpy(&v, &cell, sizeof(cell));
    h = (h ^ v) * 1099511628211u;
  }
}

void RecordSnapshots(void* self, const Game&) {
  auto& r = *static_cast<SnapshotRecorder*>(self);
  Game& g = *r.game;
  std::uint64_t h = 14695981039346656037u;
  const auto digest = [&h](const auto&... tables) { (Digest(h, tables), ...); };
  digest(g.BetAtRoll, g.BetAfterRoll, g.BetContract, g.BetWorkingAfterRoll, g.BetTrend,
         g.GraphBankroll, g.GraphHigh, g.GraphLow);
  r.digests.push_back(h);
  // A player calls a Place bet on or off now and then, between rolls.
  const long roll = g.RollTally(kTableSession, kEventRolls);
  if (roll % 7 == 0) CallBetOnOff(g, 1, PlaceId(6), roll % 2 ? kToolCallOn : kToolCallOff);
  if (r.keepBenchBets) KeepBenchBets(g);
  if (r.markEverything) MarkSeatRowsChanged(g);
}

std::vector<std::uint64_t> SnapshotDigests(BenchWorkload workload, bool markEverything) {
  HeadlessPlatform platform;
  platform.minimized = true;
  const auto owner = MakeGame(platform);
  Game& g = *owner;
  StartUp(g, "/tmp/ravelton-tests");
  SetUpBenchWorkload(g, workload);
  if (workload == BenchWorkload::PassLine) {
    // A player leaves after a few hundred rolls: an open seat with a graph
    // history, which the graph step must fill with 0 for a whole page.
    SeatPlayer(g, 3, "Zed", Currency::FromWhole(500));
    g.hyper.RunRollLimit = 300;
    RunHyperDrive(g);
    Unseat(g, 3);
  }
  SnapshotRecorder recorder{&g, g.hyper.RollObserver != nullptr, markEverything, {}};
  g.hyper.RollObserver = &RecordSnapshots;
  g.hyper.RollObserverContext = &recorder;
  g.hyper.RunRollLimit = 3000;
  RunHyperDrive(g);
  return recorder.digests;
}

TEST(RollSnapshotMarks, MarkedIdsKeepTheSameSnapshotsAsWholeRows) {
  for (const BenchWorkload workload : {BenchWorkload::PassLine, BenchWorkload::EightPlayers}) {
    const std::vector<std::uint64_t> marked = SnapshotDigests(workload, false);
    const std::vector<std::uint64_t> whole = SnapshotDigests(workload, true);
    ASSERT_EQ(marked.size(), 3000u);
    ASSERT_EQ(whole.size(), marked.size());
    const auto differ = std::mismatch(marked.begin(), marked.end(), whole.begin());
    EXPECT_TRUE(differ.first == marked.end())
        << "workload " << static_cast<int>(workload) << ", first differing roll "
        << differ.first - marked.begin() + 1;
  }
}

}  // namespace
