// ravelton-cli translate: prints a script file as it loads, the older record
// formats translated into the present vocabulary, one line a line.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "app/cli/commands.h"
#include "app/cli/script_options.h"
#include "core/game.h"
#include "script/files.h"

void AddTranslateCommand(CLI::App& app) {
  auto file = std::make_shared<std::string>();
  CLI::App* cmd =
      app.add_subcommand("translate", "Print a script file as it loads, translated if old");
  cmd->add_option("file", *file, "Auto-Bet script (.bet)")->required();
  cmd->callback([file] {
    auto game = std::make_unique<Game>();
    std::error_code ec;
    if (!std::filesystem::is_regular_file(*file, ec)) {
      std::cerr << *file << ": no such script file\n";
      throw CLI::RuntimeError(1);
    }
    if (!OpenAutoBets(*game, 1, *file)) {
      std::cerr << *file << ": cannot read the script file" << ScriptReadReason(*game) << '\n';
      throw CLI::RuntimeError(1);
    }
    const auto& lines = game->scriptSource.ScriptLines[1];
    for (std::size_t i = 1; i < lines.size(); ++i) std::cout << lines[i] << '\n';
  });
}
