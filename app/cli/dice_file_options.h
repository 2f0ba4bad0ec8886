// The dice roll file and events log options of ravelton-cli run: recording
// every roll of the run into a file, playing a file's rolls back instead of
// the generator, and writing the events log of the run.
#pragma once

#include <cstdint>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI
struct Game;

struct DiceFileOptions {
  std::string record;    // FILE.rol, made afresh
  std::string playback;  // FILE.rol, played from fromRoll
  std::int64_t fromRoll = 1;
  CLI::Option* log = nullptr;  // --log [KINDS]: given at all?
  std::string logKinds;        // rolls,bets,wins,losses,stacks,passes,shooters,bankroll
  std::string logFile;         // the log's path instead of the data folder's
};

// Adds --record, --playback, --from-roll, --log and --log-file to the run command.
void AddDiceFileOptions(CLI::App& cmd, DiceFileOptions& options);
// Opens the file to record or play back and switches the recorder; false
// with `error` (the game's own message for a file that is not a dice roll file).
bool ApplyDiceFileOptions(Game& game, const DiceFileOptions& options, std::string& error);
// Switches the events log on for the kinds asked; false with `error` on an
// unknown kind. The run's log starts with the session's lines.
bool ApplyLogOptions(Game& game, const DiceFileOptions& options, std::string& error);
// After the run: a log or dice roll file that could not be written; "" when all went well.
std::string DiceFileAndLogErrors(const Game& game);
