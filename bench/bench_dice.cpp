// DrawDice per generator: the cost of the dice in one Hyper-Drive roll.
#include <benchmark/benchmark.h>

#include <memory>

#include "dice/rng.h"
#include "core/headless_platform.h"

namespace {

void BM_DrawDice(benchmark::State& state) {
  HeadlessPlatform platform;
  auto game = std::make_unique<Game>();
  game->platform = &platform;
  game->dice.RngIndex = static_cast<Long>(state.range(0));
  SeedRngWith(*game, 4357);
  Long count = 0;
  for (auto _ : state) {
    game->RollTally(kTableSession, kEventRolls) = count++;
    DrawDice(*game);
    benchmark::DoNotOptimize(game->Die1);
    benchmark::DoNotOptimize(game->Die2);
  }
  state.SetLabel("RNG #" + std::to_string(state.range(0) + 1));
}
BENCHMARK(BM_DrawDice)->DenseRange(0, kRngCount - 1);

void BM_DrawProbabilityNumber(benchmark::State& state) {
  HeadlessPlatform platform;
  auto game = std::make_unique<Game>();
  game->platform = &platform;
  game->dice.RngIndex = static_cast<Long>(state.range(0));
  SeedRngWith(*game, 4357);
  Long count = 0;
  for (auto _ : state) {
    game->RollTally(kTableSession, kEventRolls) = count++;
    benchmark::DoNotOptimize(DrawProbabilityNumber(*game));
  }
}
BENCHMARK(BM_DrawProbabilityNumber)->DenseRange(0, kRngCount - 1);

}  // namespace
