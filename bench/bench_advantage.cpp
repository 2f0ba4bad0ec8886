// The advantage analysis and the probability dice: FigureAdvantage for all
// 85 bets (the whole Advantage tab, redrawn on every change), under true and
// under skewed dice, and the pick of a pair from a skewed table.
#include <benchmark/benchmark.h>

#include <memory>

#include "analysis/advantage.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"

namespace {

std::unique_ptr<Game> StartedGame(HeadlessPlatform& platform) {
  platform.fixedTime = 0;
  platform.clockStep = 1000;
  auto game = MakeGame(platform);
  StartUp(*game, "/tmp/ravelton-bench");
  return game;
}

// A skewed Free Form table.
void Skew(Game& game) {
  SetProbabilityCell(game, kTotalRow, 6, 20000, true);
  const ProbEntry cell = CellOfDice(3, 3);
  SetProbabilityCell(game, cell.a, cell.b, 5000, true);
  game.dice.ProbabilityDiceOn = true;
}

void BM_AllBetsFigured(benchmark::State& state) {
  HeadlessPlatform platform;
  auto game = StartedGame(platform);
  if (state.range(0) != 0) Skew(*game);
  for (auto _ : state) {
    for (int b = 1; b <= kLastRealBet; ++b) {
      const Advantage a = FigureAdvantage(*game, b, AdvantagePrecision::AsShown);
      benchmark::DoNotOptimize(a);
    }
  }
  state.SetLabel(state.range(0) != 0 ? "skewed dice, 85 bets" : "true dice, 85 bets");
}
BENCHMARK(BM_AllBetsFigured)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_DrawSkewedDice(benchmark::State& state) {
  HeadlessPlatform platform;
  auto game = StartedGame(platform);
  Skew(*game);
  SeedRngWith(*game, 4357);
  for (auto _ : state) {
    DrawDice(*game);
    benchmark::DoNotOptimize(game->Die1);
    benchmark::DoNotOptimize(game->Die2);
  }
}
BENCHMARK(BM_DrawSkewedDice);

}  // namespace
