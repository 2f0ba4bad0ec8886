// The reference every roll-cost ratio is taken against: a come-out/point
// state machine on two std::mt19937 dice, with nothing else at the table.
#pragma once

#include <cstdint>
#include <random>

// Rolls `rolls` times and returns the passes counted.
inline std::int64_t BareLoop(std::mt19937& rng, std::int64_t rolls) {
  std::uniform_int_distribution<int> die(1, 6);
  std::int64_t passes = 0;
  int point = 0;
  for (std::int64_t i = 0; i < rolls; ++i) {
    const int total = die(rng) + die(rng);
    if (point == 0) {
      if (total == 7 || total == 11)
        ++passes;
      else if (total != 2 && total != 3 && total != 12)
        point = total;
    } else if (total == point) {
      ++passes;
      point = 0;
    } else if (total == 7) {
      point = 0;
    }
  }
  return passes;
}
