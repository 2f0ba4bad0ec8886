// Compile speed of the Auto-Bet compiler: a script of 1,000 lines made of
// real strategy blocks (conditions, nested If/Do, bets, lists, strings,
// functions and labels), compiled from text to the checked stream.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "core/game.h"
#include "script/compile_script.h"

namespace {

std::vector<std::string> ThousandLines() {
  const char* block[] = {
      "' A block of a larger strategy",
      "If next roll is a comeout roll and passline = 0 Then",
      "   bet 10 on passline",
      "ElseIf point is established Then",
      "   If place6 wins last roll $ > 0 or place8 wins last roll $ > 0 Then",
      "      cs1 = cs1 + 1 :",
      "      bet 12 on place6 : bet 12 on place8",
      "   ElseIf count(> 0, come bets) < 2 and come = 0 Then",
      "      bet 10 on come",
      "   EndIf",
      "EndIf",
      "Do",
      "   add 1 to cs2 : If cs2 > 3 Then ExitDo EndIf",
      "Loop",
      "If any(4, 5, 6, 8, 9, 10) = point and # of rolls 7 > 3 Then",
      "   csn1 = left$(\"Point is \" & point, 12) & str$(sqr(16))",
      "EndIf",
      "If all(inside place bets) > 0 Then clear all(inside place bets) EndIf",
      "cs3 = highest(place bets) + field wagers current hand :",
      "",
  };
  std::vector<std::string> lines(1);
  const std::size_t blockSize = std::size(block) + 1;
  for (int labels = 1; lines.size() + blockSize <= 1000; ++labels) {
    lines.push_back(":\"block " + std::to_string(labels) + "\":");
    for (const char* line : block) lines.push_back(line);
  }
  while (lines.size() < 1000) lines.push_back("' padding to a round number of lines");
  lines.push_back("GoTo \"block 1\"");
  return lines;
}

void BM_CompileThousandLines(benchmark::State& state) {
  const auto lines = ThousandLines();
  auto game = std::make_unique<Game>();
  for (auto _ : state) {
    if (const auto error = CompileScript(*game, 1, lines))
      state.SkipWithError(error->message.c_str());
    benchmark::DoNotOptimize(game->scriptCode.CompiledScript.data());
  }
  state.counters["lines"] = static_cast<double>(lines.size() - 1);
  state.counters["elements"] = static_cast<double>(game->scriptCode.CompiledScript.size());
}
BENCHMARK(BM_CompileThousandLines)->Unit(benchmark::kMillisecond);

}  // namespace
