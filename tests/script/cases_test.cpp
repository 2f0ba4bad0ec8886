// Scripts with their expected output beside them: tests/script/cases/X.bet
// with X.dump (the compiled stream, as "ravelton-cli dump" prints it) or
// X.check (what "ravelton-cli check" prints), and optional X.args with
// "--slot P" and "--player NAME" options. Also every example script of
// examples/ must compile.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "script/script_dump.h"
#include "script_test_util.h"

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

// Seats the players of the .args file and returns the slot.
int ApplyArgs(const fs::path& args, Game& game) {
  std::istringstream in(ReadAll(args));
  std::string word;
  int slot = 1, seat = 1;
  while (in >> word) {
    if (word == "--slot")
      in >> slot;
    else if (word == "--player" && in >> word && seat <= 8)
      game.PlayerName[seat++] = word;
  }
  return slot;
}

// What the CLI prints for the script, as dump or check.
std::string Output(const fs::path& bet, bool dump) {
  auto game = std::make_unique<Game>();
  fs::path args = bet;
  args.replace_extension(".args");
  const int slot = fs::exists(args) ? ApplyArgs(args, *game) : 1;
  int line = 0, col = 0, endLine = 0, endCol = 0;
  CompileScript(*game, slot, script_test::Lines(ReadAll(bet)), line, col, endLine, endCol);
  if (line > 0)
    return FormatCompileFailure(bet.filename().string(), game->msg.MsgText, line, col, endLine,
                                endCol);
  return dump ? DumpScriptCode(game->scriptCode) : "Your script is properly structured.\n";
}

TEST(ScriptCases, OutputMatchesTheExpectedFiles) {
  const fs::path dir = fs::path(RAVELTON_SOURCE_DIR) / "tests" / "script" / "cases";
  int checked = 0;
  for (const auto& entry : fs::directory_iterator(dir)) {
    if (entry.path().extension() != ".bet") continue;
    fs::path dump = entry.path(), check = entry.path();
    dump.replace_extension(".dump");
    check.replace_extension(".check");
    if (fs::exists(dump)) {
      EXPECT_EQ(Output(entry.path(), true), ReadAll(dump)) << entry.path();
      ++checked;
    }
    if (fs::exists(check)) {
      EXPECT_EQ(Output(entry.path(), false), ReadAll(check)) << entry.path();
      ++checked;
    }
  }
  EXPECT_GE(checked, 8);
}

TEST(ScriptCases, EveryExampleCompiles) {
  const fs::path dir = fs::path(RAVELTON_SOURCE_DIR) / "examples";
  int count = 0;
  for (const auto& entry : fs::directory_iterator(dir)) {
    if (entry.path().extension() != ".bet") continue;
    ++count;
    const std::string text = ReadAll(entry.path());
    EXPECT_TRUE(text.starts_with("'")) << entry.path() << " needs a comment header";
    EXPECT_EQ(Output(entry.path(), false), "Your script is properly structured.\n") << entry.path();
  }
  EXPECT_GE(count, 8);
}

}  // namespace
