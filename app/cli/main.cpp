// ravelton-cli: the headless front door of Ravelton.
#include <CLI/CLI.hpp>
#include <iostream>
#include <new>

#include "app/cli/commands.h"

int main(int argc, char** argv) {
  CLI::App app{"Ravelton craps simulator, headless"};
  app.require_subcommand(0, 1);
  AddRunCommand(app);
  AddBatchCommand(app);
  AddBenchCommand(app);
  AddScriptCommands(app);
  AddTranslateCommand(app);
  AddAdvantageCommand(app);
  AddProbabilityCommand(app);
  AddReportCommand(app);
  AddInfoCommand(app);
  AddRollsCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    // Help and version exit 0; every usage or input error exits 1.
    return app.exit(e) == 0 ? 0 : 1;
  } catch (const std::bad_alloc&) {
    // A request past the machine's memory ends with a message, not an abort.
    std::cerr << "ravelton-cli: out of memory\n";
    return 1;
  }
  return 0;
}
