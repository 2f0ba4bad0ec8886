// The table options that ravelton-cli run and batch share: the generator,
// its seed, the bet required to shoot and Auto-Stop. Options not given leave
// a loaded game's own settings; a fresh table takes the defaults.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace CLI {
class App;
}
struct Game;

struct TableOptions {
  std::optional<int> rng;                // as users number them, 1..8 (1)
  std::optional<double> seed;            // none: seeded from the clock (a fresh table)
  std::optional<std::string> require;    // none | line | any (none)
  std::optional<std::int64_t> autoStop;  // (0)
  std::string prb;                       // a probability file whose dice are used
};

// Adds --rng, --require, --auto-stop and --prb; --seed too when `withSeed`
// (batch has a seed of its own, for its sessions).
void AddTableOptions(CLI::App& cmd, TableOptions& options, bool withSeed);
// Applies the options to a started game; false with `error` on bad input.
bool ApplyTableOptions(Game& game, const TableOptions& options, bool loaded, std::string& error);
