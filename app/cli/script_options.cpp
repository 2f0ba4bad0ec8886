#include "app/cli/script_options.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <filesystem>
#include <iostream>

#include "core/catalogue.h"
#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "cycle/hyperdrive.h"
#include "cycle/roll.h"
#include "script/activation.h"
#include "script/files.h"
#include "script/interpreter.h"
#include "script/script_dump.h"

namespace fs = std::filesystem;

namespace {

// Statements after which one run of the scripts ends as if the user had
// interrupted it: the command line has no user to stop an endless loop.
constexpr std::int64_t kRunStatementLimit = 10'000'000;

int SeatOf(const Game& game, std::string_view name) {
  const std::string lower = LowerCase(name);
  for (int p = 1; p <= 8; ++p)
    if (!game.PlayerName[p].empty() && LowerCase(game.PlayerName[p]) == lower) return p;
  return 0;
}

// A message's CR pieces joined by line ends.
std::string Joined(std::string text) {
  for (char& c : text)
    if (c == '\r') c = '\n';
  return text;
}
// The same without the line ends the message closes with, for stderr.
std::string Lines(std::string text) {
  while (!text.empty() && text.back() == '\r') text.pop_back();
  return Joined(std::move(text));
}

bool SetScripts(Game& game, ScriptOptions& o, std::string& error) {
  for (const std::string& arg : o.scripts) {
    const auto eq = arg.find('=');
    if (eq == std::string::npos || eq == 0 || eq + 1 == arg.size()) {
      error = "--script expects NAME=FILE.bet, got '" + arg + "'";
      return false;
    }
    const int p = SeatOf(game, arg.substr(0, eq));
    if (p == 0) {
      error = "--script: no player named '" + arg.substr(0, eq) + "' (seat players with --player)";
      return false;
    }
    std::string file = arg.substr(eq + 1);
    // Scripts are shared through the data folder: a relative name that is
    // not in the current folder is looked for there.
    if (const std::filesystem::path named(file);
        named.is_relative() && !FileExists(file) && FileExists(game.roll.DataFolder + file))
      file = game.roll.DataFolder + file;
    if (!OpenAutoBets(game, p, file)) {
      error = "--script: cannot read the script file " + file + ScriptReadReason(game);
      return false;
    }
    o.files[static_cast<std::size_t>(p)] = file;
    SetScriptActive(game, p, true);
  }
  return true;
}

bool SetPermissions(Game& game, const ScriptOptions& o, std::string& error) {
  for (const std::string& arg : o.allows) {
    const auto colon = arg.find(':');
    const int p = colon == std::string::npos ? 0 : SeatOf(game, arg.substr(0, colon));
    if (p == 0) {
      error = "--allow expects NAME:PERMS with a seated player, got '" + arg + "'";
      return false;
    }
    std::stringstream list(arg.substr(colon + 1));
    for (std::string perm; std::getline(list, perm, ',');) {
      const bool on = !perm.starts_with("no-");
      const std::string word = on ? perm : perm.substr(3);
      ScriptRunState& r = game.scriptRun;
      Table1<bool, 0, 8>* flag = word == "files"       ? &r.AllowDiceFiles
                                 : word == "others"    ? &r.AllowActForOthers
                                 : word == "reset"     ? &r.AllowReset
                                 : word == "anyfolder" ? &r.AllowAnyFolder
                                                       : nullptr;
      if (flag == nullptr) {
        error = "--allow " + arg + ": '" + perm +
                "' is none of files, others, reset, anyfolder (each may have a leading no-)";
        return false;
      }
      (*flag)(p) = on;
    }
  }
  return true;
}

bool ParseDice(const std::string& list, std::deque<std::pair<int, int>>& out, std::string& error) {
  if (list.empty()) return true;
  std::stringstream in(list);
  for (std::string pair; std::getline(in, pair, ',');) {
    if (pair.size() != 2 || pair[0] < '1' || pair[0] > '6' || pair[1] < '1' || pair[1] > '6') {
      error = "--dice: '" + pair + "' is not a pair of faces 1 to 6 (die 1 then die 2, as in 34,61)";
      return false;
    }
    out.emplace_back(pair[0] - '0', pair[1] - '0');
  }
  if (!list.empty() && list.back() == ',') {
    error = "--dice: the list ends in a comma";
    return false;
  }
  return true;
}

void QueueAnswers(RunPlatform& platform, const std::vector<std::string>& answers) {
  for (const std::string& a : answers) {
    MessageReply reply;
    const std::string word = LowerCase(a);
    if (word == "yes")
      reply.answer = kAnswerYes;
    else if (word == "no")
      reply.answer = kAnswerNo;
    else if (word == "cancel")
      reply.answer = kAnswerCancel;
    else
      reply.input1 = a;  // typed into an input box, then OK
    platform.queuedReplies.push_back(reply);
  }
}

}  // namespace

std::string ScriptReadReason(const Game& game) {
  const std::string& why = game.scriptSource.ErrorText;
  return why.empty() ? std::string() : ": " + MessageLine(why);
}

MessageReply RunPlatform::ShowMessage(const MessageRequest& request) {
  const int buttons = (request.style & kMsgOk ? 1 : 0) + (request.style & kMsgYes ? 1 : 0) +
                      (request.style & kMsgNo ? 1 : 0) + (request.style & kMsgCancel ? 1 : 0);
  const bool asks = buttons > 1 || (request.style & (kMsgInput1 | kMsgInput2));
  if (asks) return HeadlessPlatform::ShowMessage(request);
  // An OK-only message takes no answer from the queue.
  messages.push_back(request);
  MessageReply reply;
  reply.answer = DefaultAnswer(request.style);
  reply.input1 = request.input1;
  reply.input2 = request.input2;
  return reply;
}

void AddScriptOptions(CLI::App& cmd, ScriptOptions& o) {
  cmd.add_option("--script", o.scripts,
                 "Load FILE.bet as player NAME's script and switch it on: NAME=FILE.bet");
  cmd.add_option("--dice", o.dice,
                 "Known rolls first, die 1 then die 2, comma-separated (34,61,66); then the RNG");
  cmd.add_option("--answer", o.answers,
                 "Answers for the run's dialogs that ask, in order: yes, no, cancel or typed text");
  cmd.add_option("--allow", o.allows,
                 "A player's script permissions: NAME:PERMS, PERMS from files, others, reset, "
                 "anyfolder, each with an optional leading no-");
}

bool SetUpScriptOptions(Game& game, RunPlatform& platform, ScriptOptions& o, std::string& error) {
  // Scripts' files live in the game's data folder (--data, else the
  // environment's), made when missing.
  if (!MakeFolder(game.roll.DataFolder, error)) return false;
  if (!SetScripts(game, o, error) || !SetPermissions(game, o, error) ||
      !ParseDice(o.dice, o.pendingDice, error))
    return false;
  QueueAnswers(platform, o.answers);
  game.scriptRun.RunStatementLimit = kRunStatementLimit;
  FeedDice(game, o);
  return true;
}

void FeedDice(Game& game, ScriptOptions& o) {
  while (!o.pendingDice.empty() && game.roll.QueuedCount < RollState::kDiceQueue) {
    QueueDice(game, o.pendingDice.front().first, o.pendingDice.front().second);
    o.pendingDice.pop_front();
  }
}

int StartScripts(Game& game, const ScriptOptions& o) {
  game.HyperDrive = true;
  game.KeepRolling = true;
  if (!game.roll.ScriptActive[0]) return 0;
  if (!InitializeScripts(game)) {
    const int p = game.scriptRun.FailedPlayer;
    std::cerr << Lines(game.msg.MsgText) << '\n';
    std::cerr << FormatCompileFailure(o.files[static_cast<std::size_t>(p)], LastJoinFault(game));
    game.HyperDrive = false;
    game.KeepRolling = false;
    return 1;
  }
  return 0;
}

void AddScriptJson(nlohmann::json& summary, const Game& game, const RunPlatform& platform) {
  if (summary.contains("players")) {
    for (auto& player : summary["players"]) {
      const int p = player["seat"].get<int>();
      nlohmann::json onTable = nlohmann::json::object(), stacks = nlohmann::json::object(),
                     names = nlohmann::json::object();
      for (int b = 1; b <= kLastRealBet; ++b)
        if (!game.Bet(p, b).IsZero()) onTable[std::to_string(b)] = game.Bet(p, b).ToDouble();
      for (int n = 0; n <= bet::kCheckStackLast - bet::kCheckStackFirst; ++n) {
        const Currency stack = game.Bet(p, bet::kCheckStackFirst + n);
        if (!stack.IsZero()) stacks[std::to_string(n)] = stack.ToDouble();
        if (!game.CheckStackName(p, n).empty())
          names[std::to_string(n)] = game.CheckStackName(p, n);
      }
      player["rail"] = (game.Bet(p, bet::kBankroll) - game.TotalBets(p)).ToDouble();
      player["on_table"] = onTable;
      player["checkstacks"] = stacks;
      player["checkstack_names"] = names;
      player["win_rule"] = game.autoplay.HandleWinningBets(p);
      player["lose_rule"] = game.autoplay.HandleLosingBets(p);
      player["take_odds"] = game.autoplay.AutoTakeFullOdds(p);
      player["lay_odds"] = game.autoplay.AutoLayFullOdds(p);
      player["script_active"] = game.roll.ScriptActive[static_cast<std::size_t>(p)];
    }
  }
  nlohmann::json messages = nlohmann::json::array();
  for (const MessageRequest& m : platform.messages)
    messages.push_back({{"title", m.title}, {"text", Joined(m.text)}});
  summary["messages"] = messages;
}
