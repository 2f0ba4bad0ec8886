// The checksum of a bench workload's run sees every per-seat table.
#include "cycle/bench_workload.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "core/checksum.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/seats.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"

namespace {

// A figure changed in any per-seat table of the visitor changes the checksum.
TEST(BenchWorkload, TheChecksumCoversEveryPerSeatFigure) {
  HeadlessPlatform platform;
  auto game = MakeGame(platform);
  Game& g = *game;
  platform.minimized = true;
  platform.fixedTime = 0;
  platform.clockStep = 1000;
  StartUp(g, "/tmp/ravelton-tests");
  SetUpBenchWorkload(g, BenchWorkload::PassLine);
  g.hyper.RunRollLimit = 100;
  RunHyperDrive(g);
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
