// ravelton-cli check and dump: compile an Auto-Bet script without a table.
//
// Both seat the named players in order (so that a script may refer to them
// by name) and compile the file as the script of one slot. check reports
// success or the first error with its span (as text, or with --json as one
// object for an editor); dump prints the compiled element stream and string
// pool.
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "app/cli/commands.h"
#include "app/cli/json_text.h"
#include "app/cli/script_options.h"
#include "core/game.h"
#include "core/text.h"
#include "script/compile_script.h"
#include "script/files.h"
#include "script/script_dump.h"

namespace {

// The options of check and dump: the file, its slot, the players named.
struct CheckOptions {
  std::string file;
  int slot = 1;
  std::vector<std::string> players;
  bool json = false;  // check only
};

// check --json: {"file", "ok"} and, for an error, its span and message.
nlohmann::json CheckJson(const std::string& file, const std::optional<CompileError>& error) {
  nlohmann::json j{{"file", file}, {"ok", !error}};
  if (error) {
    j["line"] = error->line;
    j["column"] = error->column;
    j["end_line"] = error->endLine;
    j["end_column"] = error->endColumn;
    j["message"] = MessageLine(error->message);
  }
  return j;
}

// Compiles the file; on failure prints FILE:LINE:COL: message and the span,
// or the JSON object of check --json.
bool CompileFile(const CheckOptions& opt, Game& game) {
  // The file loads as the table loads it: older record formats are translated.
  if (!OpenAutoBets(game, opt.slot, opt.file)) {
    std::cerr << opt.file << ": cannot read the script file" << ScriptReadReason(game) << '\n';
    throw CLI::RuntimeError(1);
  }
  for (std::size_t i = 0; i < opt.players.size() && i < 8; ++i)
    game.PlayerName[i + 1] = opt.players[i];
  const auto error = CompileScript(game, opt.slot);
  if (opt.json)
    std::cout << JsonText(CheckJson(opt.file, error)) << '\n';
  else if (error)
    std::cout << FormatCompileFailure(opt.file, *error);
  return !error;
}

void AddOptions(CLI::App* cmd, CheckOptions& opt) {
  cmd->add_option("file", opt.file, "Auto-Bet script (.bet)")->required();
  cmd->add_option("--slot", opt.slot, "player slot whose script it is")->check(CLI::Range(0, 8));
  cmd->add_option("--player", opt.players, "names of the seated players, in order");
}

}  // namespace

void AddScriptCommands(CLI::App& app) {
  auto check = std::make_shared<CheckOptions>();
  CLI::App* checkCmd = app.add_subcommand("check", "Compile a script and report its first error");
  AddOptions(checkCmd, *check);
  checkCmd->add_flag("--json", check->json, "Print the result as one JSON object");
  checkCmd->callback([check] {
    auto game = std::make_unique<Game>();
    if (!CompileFile(*check, *game)) throw CLI::RuntimeError(1);
    if (!check->json) std::cout << "Your script is properly structured.\n";
  });

  auto dump = std::make_shared<CheckOptions>();
  CLI::App* dumpCmd = app.add_subcommand("dump", "Print a script's compiled element stream");
  AddOptions(dumpCmd, *dump);
  dumpCmd->callback([dump] {
    auto game = std::make_unique<Game>();
    if (!CompileFile(*dump, *game)) throw CLI::RuntimeError(1);
    std::cout << DumpScriptCode(game->scriptCode);
  });
}
