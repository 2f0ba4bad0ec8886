// The indent that the structure passes give. Each structure error's text
// and span, and the links of blocks, loops and labels, are checked by
// scripts under cases/.
#include <gtest/gtest.h>

#include "script/compile_logic.h"
#include "script_test_util.h"

using script_test::Compile;

namespace {

struct StructureTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
};

TEST_F(StructureTest, IndentFollowsTheNesting) {
  const char* text = "if point = 4 then\ncs1 = 1\ndo\ncs2 = 2\nloop\nelse\ncs1 = 0\nendif\ncs3 = 3";
  ASSERT_TRUE(Compile(*game, text, 2).ok);
  EXPECT_TRUE(game->scriptCode.SlotCompiled[2]);
  auto lines = script_test::Lines(text);
  IndentScriptLines(lines, game->scriptCode.LineIndent);
  const std::pair<int, const char*> want[] = {{1, "if point = 4 then"},
                                              {2, "   cs1 = 1"},
                                              {4, "      cs2 = 2"},
                                              {5, "   loop"},
                                              {6, "else"},
                                              {7, "   cs1 = 0"},
                                              {8, "endif"},
                                              {9, "cs3 = 3"}};
  for (const auto& [l, text] : want) EXPECT_EQ(lines[l], text) << l;
}

}  // namespace
