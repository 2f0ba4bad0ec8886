// Scripts with their expected output beside them: tests/script/cases/X.bet
// with X.dump (the compiled stream, as "ravelton-cli dump" prints it) or
// X.check (what "ravelton-cli check" prints), and optional X.args with
// "--slot P" and "--player NAME" options. Also every example script of
// examples/ must compile.
#include <gtest/gtest.h>

#include <filesystem>

#include "script/script_dump.h"
#include "script_test_util.h"
#include "tests/support/file_text.h"

namespace fs = std::filesystem;

namespace {

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

}  // namespace
