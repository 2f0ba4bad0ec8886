// ravelton-cli rolls: a dice roll file as text, and text as a dice roll file.
//   rolls FILE.rol [--from N] [--count K] [--format TEMPLATE]
//     prints rolls N to N + K - 1 (all from N by default) through the output
//     template, each numbered as it stands in the file;
//   rolls --import TEXT.txt --output FILE.rol
//     converts a text (the digits 1 to 6 in pairs) into a dice roll file.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>

#include "app/cli/commands.h"
#include "core/file_io.h"
#include "core/text.h"
#include "dice/dice_file.h"
#include "dice/dice_file_text.h"

namespace {

struct RollsOptions {
  std::string file;
  std::int64_t from = 1;
  std::int64_t count = -1;  // all
  std::string format{kDefaultDiceOutputFormat};
  std::string import;
  std::string output;
};

int Fail(const std::string& error) {
  std::cerr << "ravelton-cli rolls: " << error << '\n';
  return 1;
}

int PrintRolls(const RollsOptions& o) {
  if (!FileExists(o.file)) return Fail("no dice roll file " + o.file);
  if (!IsDiceRollFile(o.file)) return Fail(MessageLine(NotADiceRollFileText(o.file)));
  if (!HasDiceInformation(o.format))
    return Fail(
        "You must include one or more pieces of dice roll information in your output format, "
        "such as Die1, Die2, or Total.");
  if (o.from < 1) return Fail("--from must be a roll number from 1");
  if (o.count < -1) return Fail("--count must not be negative");
  const std::int64_t total = FileLength(o.file);
  const std::int64_t last = o.count < 0 ? total : std::min(total, o.from + o.count - 1);
  std::string error;
  const bool ok = WriteDiceRollsAsText(
      o.file, o.from, last, o.format, o.from, "\n",
      [](std::string_view text) {
        return static_cast<bool>(std::cout.write(text.data(), text.size()));
      },
      error);
  return ok ? 0 : Fail(error);
}

int ImportText(const RollsOptions& o) {
  if (o.output.empty()) return Fail("--import needs --output FILE.rol");
  std::string error;
  const std::int64_t rolls = ConvertTextToDiceRolls(o.import, o.output, error);
  if (rolls < 0) return Fail(error);
  std::cout << rolls << (rolls == 1 ? " roll" : " rolls") << " written to " << o.output << '\n';
  return 0;
}

}  // namespace

void AddRollsCommand(CLI::App& app) {
  auto o = std::make_shared<RollsOptions>();
  CLI::App* cmd =
      app.add_subcommand("rolls", "Print a dice roll file as text, or make one from a text");
  CLI::Option* file = cmd->add_option("file", o->file, "The dice roll file (.rol) to print");
  CLI::Option* from = cmd->add_option("--from", o->from, "First roll to print (default 1)");
  CLI::Option* count =
      cmd->add_option("--count", o->count, "Number of rolls to print (default all)");
  CLI::Option* format = cmd->add_option(
      "--format", o->format, "Output template: Roll#, Die1, Die2, Total and any other text");
  CLI::Option* import =
      cmd->add_option("--import", o->import, "A text file whose digits 1-6, in pairs, are rolls");
  CLI::Option* output = cmd->add_option("--output", o->output, "The dice roll file --import makes");
  import->excludes(file)->excludes(from)->excludes(count)->excludes(format);
  output->needs(import);
  cmd->callback([o, file, import] {
    if (file->count() == 0 && import->count() == 0)
      throw CLI::ValidationError("rolls", "give a dice roll file to print, or --import");
    const int rc = import->count() > 0 ? ImportText(*o) : PrintRolls(*o);
    if (rc != 0) throw CLI::RuntimeError(rc);
  });
}
