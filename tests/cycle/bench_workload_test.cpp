// The bench workloads carry what they claim: every base bet of the eight
// players is decided again and again, the Auto-Play rules move the amounts,
// the ledgers stay whole, and the checksum sees every per-seat table.
#include "cycle/bench_workload.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <type_traits>

#include "core/catalogue.h"
#include "core/checksum.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/seats.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "engine/place.h"

namespace {

constexpr std::int64_t kRolls = 20'000;

struct BenchGame {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  explicit BenchGame(BenchWorkload w, std::int64_t rolls) {
    platform.minimized = true;
    platform.fixedTime = 0;
    platform.clockStep = 1000;
    StartUp(*game, "/tmp/ravelton-tests");
    SetUpBenchWorkload(*game, w);
    game->hyper.RunRollLimit = rolls;
    RunHyperDrive(*game);
  }
};

TEST(BenchWorkload, EveryPlayerDecidesEveryKindOfBetAndKeepsAWholeLedger) {
  BenchGame b(BenchWorkload::EightPlayers, kRolls);
  const Game& g = *b.game;
  ASSERT_EQ(g.hyper.RollsThisRun, kRolls) << g.hyper.LastStopMessage;
  ASSERT_EQ(g.PlayerCount, 8);
  std::set<int> decided;
  for (int p = 1; p <= 8; ++p) {
    EXPECT_TRUE(CheckBetLedger(g, p)) << p;
    int kinds = 0;
    for (int id = 1; id <= kLastRealBet; ++id) {
      const Currency n = g.StatAction(FrameIndex(p, kFrameCurrentSession), id, kStatCount);
      if (n > Currency{}) decided.insert(id), ++kinds;
    }
    EXPECT_GE(kinds, 3) << g.PlayerName[p];
    EXPECT_NE(g.Bet(p, 0), g.InvestedBankroll(p)) << g.PlayerName[p];
  }
  using namespace bet;
  for (int id : {kPassLine,  kPassLineOdds, kDontPass,     kDontPassOdds, kCome,
                 kDontCome,  ComeId(6),     ComeId(6) + 6, DontComeId(8), DontComeId(8) + 6,
                 PlaceId(6), BuyId(4),      LayId(4),      kField,        kBig6,
                 kHard8,     kSeven,        kCraps,        kHorn,         kWorld,
                 kCandE,     HopId(3, 6),   kMidway,       kFire})
    EXPECT_TRUE(decided.contains(id)) << BetName(id);
  // The rules moved amounts away from the base bets: a press, a parlay, a double.
  const int i = FrameIndex(1, kFrameCurrentSession);
  EXPECT_GT(g.StatAction(i, kPassLine, kStatLargest), 10_usd);
  EXPECT_GT(g.StatAction(FrameIndex(4, kFrameCurrentSession), kField, kStatLargest), 5_usd);
}

// A figure changed in any per-seat table of the visitor changes the checksum.
TEST(BenchWorkload, TheChecksumCoversEveryPerSeatFigure) {
  BenchGame b(BenchWorkload::PassLine, 100);
  Game& g = *b.game;
  const std::uint64_t before = TablesChecksum(g);
  int tables = 0;
  ForEachSeatTable(
      [&](const char* name, auto axis, SeatReset, auto& table) {
        auto row = SeatRow(table, 5, SeatFrames(axis) - 1);
        using Cell = std::remove_reference_t<decltype(row[0])>;
        const Cell kept = row[0];
        if constexpr (std::is_same_v<Cell, Currency>)
          row[0].raw += 1;
        else if constexpr (std::is_same_v<Cell, bool>)
          row[0] = !row[0];
        else if constexpr (std::is_integral_v<Cell>)
          row[0] = static_cast<Cell>(row[0] + 1);
        else
          return;
        EXPECT_NE(TablesChecksum(g), before) << name;
        row[0] = kept;
        ++tables;
      },
      g);
  EXPECT_EQ(TablesChecksum(g), before);
  EXPECT_GT(tables, 40);
}

}  // namespace
