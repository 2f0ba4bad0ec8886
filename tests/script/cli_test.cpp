// End-to-end tests of ravelton-cli check and dump: exit codes, the success
// line, the failure report with its span, players by name, unreadable files.
#include <gtest/gtest.h>

#include <string>

#include "../cli/cli_util.h"

using cli_test::Cli;
using cli_test::Result;

namespace {

const std::string kCases = std::string(RAVELTON_SOURCE_DIR) + "/tests/script/cases/";
const std::string kExamples = std::string(RAVELTON_SOURCE_DIR) + "/examples/";

TEST(CliScript, CheckReportsSuccessOrTheFirstError) {
  Result r = Cli("check " + kExamples + "iron_cross.bet");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "Your script is properly structured.\n");
  r = Cli("check " + kCases + "rolls_limit.bet");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, kCases +
                       "rolls_limit.bet:1:2: Ambiguous variable references\nReference to rolls out "
                       "of limits.\n(lines 1:2 to 1:21)\n");
}

TEST(CliScript, PlayersAreSeatedInOrderAndSlotsChosen) {
  const std::string file = kCases + "links_and_names.bet";
  EXPECT_EQ(Cli("check " + file).exitCode, 1);  // "lee" is nobody without the seats
  const Result r = Cli("dump " + file + " --slot 4 --player Pat --player Lee");
  EXPECT_EQ(r.exitCode, 0);
  for (const char* part : {"1 Head 4\n", "20 Var 654\n21 Player 2\n", "S2 0 \"Point \"\n"})
    EXPECT_NE(r.out.find(part), std::string::npos) << part;
}

TEST(CliScript, BadFilesAndOptionsExitOne) {
  EXPECT_EQ(Cli("check " + kCases + "no_such_script.bet").out, "");
  for (const std::string& args :
       {"check " + kCases + "no_such_script.bet", "dump " + kCases,
        "check " + kExamples + "iron_cross.bet --slot 9", std::string("dump")})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
}

}  // namespace
