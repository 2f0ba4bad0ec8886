// The --prb option that the run and advantage commands share: a probability
// file whose dice are switched on for the command.
#pragma once

#include <string>

namespace CLI {
class App;
}
struct Game;

// Adds --prb FILE.prb to a command, stored in `path`.
void AddProbabilityFileOption(CLI::App& cmd, std::string& path, const std::string& help);
// Reads the file named on the command line (relative to the current folder)
// into the game's table; false with `error` naming the file.
bool ReadProbabilityFileOption(Game& game, const std::string& path, std::string& error);
// With a path given: reads it and switches ProbabilityDiceOn on. No path: nothing.
bool UseProbabilityFileOption(Game& game, const std::string& path, std::string& error);
