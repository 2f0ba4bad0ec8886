// The script options of ravelton-cli run: players' scripts, their
// permissions, answers for the dialogs of the run, known dice, the data
// folder, and the script part of the JSON summary.
//
// The whole run, the scripts' initializing cycle included, is Hyper-Drive:
// messages, questions and input boxes behave as they do there. Dialogs that
// ask something take the answers of --answer in order; OK-only messages
// take none; a dialog with no answer left gets its default button.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "core/headless_platform.h"

namespace CLI {
class App;
}
struct Game;

struct ScriptOptions {
  std::vector<std::string> scripts;  // NAME=FILE.bet
  std::string dice;                  // "34,61,66": die 1 then die 2
  std::vector<std::string> answers;  // yes, no, cancel or a typed text
  std::vector<std::string> allows;   // NAME:PERMS
  // Filled by the set-up: each seat's script file, and the dice not yet queued.
  std::vector<std::string> files = std::vector<std::string>(9);
  std::deque<std::pair<int, int>> pendingDice;
};

// The platform of a run: answers only the dialogs that ask something from
// the queue, and keeps everything it showed.
class RunPlatform : public HeadlessPlatform {
 public:
  MessageReply ShowMessage(const MessageRequest& request) override;
};

// Why the last script file could not be read, as ": " and the game's
// message on one line, or "" when it gave none.
std::string ScriptReadReason(const Game& game);

// Adds --script, --dice, --answer, --allow and --data to the run command.
void AddScriptOptions(CLI::App& cmd, ScriptOptions& options);

// After the players are seated and their bets placed: the data folder, the
// scripts (loaded as the editor's Open does and switched on), permissions,
// answers and dice. False with `error` on bad usage.
bool SetUpScriptOptions(Game& game, RunPlatform& platform, ScriptOptions& options,
                        std::string& error);

// What Game > New does for scripts, inside the run's Hyper-Drive: compile
// the active scripts and give them one initializing cycle. Returns 1 (with
// the messages on stderr) when a script does not compile. Leaves HyperDrive
// and KeepRolling on when the run is to go on.
int StartScripts(Game& game, const ScriptOptions& options);

// Queues the next known dice; called after every roll of the run.
void FeedDice(Game& game, ScriptOptions& options);

// Adds each player's rail, bets on the table, CheckStacks and names, rules,
// odds flags and script switch to the players of the summary, and every
// message of the run at the top.
void AddScriptJson(nlohmann::json& summary, const Game& game, const RunPlatform& platform);
