// Scripts with their expected output beside them: tests/script/cases/X.bet
// with X.dump (the compiled stream, as "ravelton-cli dump" prints it) or
// X.check (what "ravelton-cli check" prints), and optional X.args with
// "--slot P" and "--player NAME" options. Also every example script of
// examples/ must compile, and ravelton-cli check and dump end to end: exit
// codes, players by name, unreadable files.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "../cli/cli_util.h"
#include "script/script_dump.h"
#include "script_test_util.h"
#include "tests/support/file_text.h"

namespace fs = std::filesystem;

namespace {

using cli_test::Cli;

// What the CLI prints for the script, as dump or check, after seating the
// players of the .args file in order.
std::string Output(fs::path bet, bool dump) {
  auto game = std::make_unique<Game>();
  std::istringstream args(ReadWholeFile(fs::path(bet).replace_extension(".args")));
  int slot = 1, seat = 1;
  for (std::string word; args >> word;) {
    if (word == "--slot")
      args >> slot;
    else if (word == "--player" && args >> word && seat <= 8)
      game->PlayerName[seat++] = word;
  }
  if (const auto error = CompileScript(*game, slot, script_test::Lines(ReadWholeFile(bet))))
    return FormatCompileFailure(bet.filename().string(), *error);
  return dump ? DumpScriptCode(game->scriptCode) : "Your script is properly structured.\n";
}

std::vector<fs::path> Scripts(const fs::path& dir) {
  std::vector<fs::path> out;
  for (const auto& entry : fs::directory_iterator(fs::path(RAVELTON_SOURCE_DIR) / dir))
    if (entry.path().extension() == ".bet") out.push_back(entry.path());
  return out;
}

TEST(ScriptCases, OutputMatchesTheExpectedFiles) {
  int checked = 0;
  for (const fs::path& bet : Scripts("tests/script/cases")) {
    for (const bool dump : {true, false}) {
      const fs::path expected = fs::path(bet).replace_extension(dump ? ".dump" : ".check");
      if (!fs::exists(expected)) continue;
      EXPECT_EQ(Output(bet, dump), ReadWholeFile(expected)) << bet;
      ++checked;
    }
  }
  EXPECT_GE(checked, 93);
}

TEST(ScriptCases, EveryExampleCompiles) {
  const auto examples = Scripts("examples");
  for (const fs::path& bet : examples) {
    EXPECT_TRUE(ReadWholeFile(bet).starts_with("'")) << bet << " needs a comment header";
    EXPECT_EQ(Output(bet, false), "Your script is properly structured.\n") << bet;
  }
  EXPECT_GE(examples.size(), 8u);
}

const std::string kCases = std::string(RAVELTON_SOURCE_DIR) + "/tests/script/cases/";

// The outputs themselves are the cases'; here the program's exit codes.
TEST(CliScript, CheckAndDumpExitCodesPlayersAndSlots) {
  const std::string example = std::string(RAVELTON_SOURCE_DIR) + "/examples/iron_cross.bet";
  cli_test::Result r = Cli("check " + example);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "Your script is properly structured.\n");
  r = Cli("check " + kCases + "rolls_limit.bet");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, kCases +
                       "rolls_limit.bet:1:2: Ambiguous variable references: Reference to rolls out "
                       "of limits. (lines 1:2 to 1:21)\n");
  // --json: the same result as one object, for an editor.
  r = Cli("check --json " + kCases + "rolls_limit.bet");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(nlohmann::json::parse(r.out),
            (nlohmann::json{
                {"file", kCases + "rolls_limit.bet"},
                {"ok", false},
                {"line", 1},
                {"column", 2},
                {"end_line", 1},
                {"end_column", 21},
                {"message", "Ambiguous variable references: Reference to rolls out of limits."}}));
  EXPECT_EQ(nlohmann::json::parse(Cli("check --json " + example).out)["ok"], true);
  const std::string file = kCases + "links_and_names.bet";
  EXPECT_EQ(Cli("check " + file).exitCode, 1);  // "lee" is nobody without the seats
  r = Cli("dump " + file + " --slot 4 --player Pat --player Lee");
  EXPECT_EQ(r.exitCode, 0);
  for (const char* part : {"1 Head 4\n", "20 Var 654\n21 Player 2\n"})
    EXPECT_NE(r.out.find(part), std::string::npos) << part;
  EXPECT_EQ(Cli("check " + kCases + "no_such_script.bet").out, "");
  for (const std::string& args : {"check " + kCases + "no_such_script.bet", "dump " + kCases,
                                  "check " + example + " --slot 9", std::string("dump")})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
}

}  // namespace
