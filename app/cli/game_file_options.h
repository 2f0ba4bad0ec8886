// The game file options of ravelton-cli: a run that starts from a saved game
// (--load) and saves the game it ends with (--save), and the data folder of
// any command that touches it (--data). Messages the game shows while
// opening or saving go to stderr on one line each.
#pragma once

#include <string>

namespace CLI {
class App;
}
class HeadlessPlatform;
struct Game;

struct GameFileOptions {
  std::string load;  // GAME.rvg to start from
  std::string save;  // GAME.rvg to save after the run
  std::string data;  // the data folder, instead of the environment's
};

// Adds --load, --save and --data to the run command.
void AddGameFileOptions(CLI::App& cmd, GameFileOptions& options);
// Adds --data alone (commands that only read).
void AddDataOption(CLI::App& cmd, GameFileOptions& options);
// Makes --data the data folder of this process, before start-up.
void ApplyDataOption(const GameFileOptions& options);
// Opens --load into the started game; false after its message on stderr.
bool LoadGameOption(Game& game, HeadlessPlatform& platform, const GameFileOptions& options);
// Saves to --save; false after its message on stderr.
bool SaveGameOption(Game& game, HeadlessPlatform& platform, const GameFileOptions& options);
// Prints the messages shown since `from` to stderr, one a line.
void PrintMessages(const HeadlessPlatform& platform, std::size_t from);
