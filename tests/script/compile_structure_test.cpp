// The structure passes: brackets, function groups, label clashes and the
// indent that blocks give. Each structure error's text and span, and the
// links of blocks, loops and labels, are scripts under cases/.
#include <gtest/gtest.h>

#include "script/compile_logic.h"
#include "script_test_util.h"

using script_test::Compile;

namespace {

struct StructureTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
};

TEST_F(StructureTest, BracketsFunctionsAndLists) {
  const char* const paren = "Missing or improperly placed parenthesis.";
  EXPECT_EQ(Compile(*game, "cs1 = 5) + (3").msg, paren);
  EXPECT_TRUE(Compile(*game, "cs1 = ((5 + 3) * [2 - {1}])").ok);
  // The phrase row for "dontcome(" turns the bracket into the function with
  // the word (unlike "come(", which keeps it), so the closing one is alone.
  EXPECT_EQ(Compile(*game, "cs1 = dontcome(4)").msg, paren);
  EXPECT_TRUE(Compile(*game, "cs1 = come(4)").ok);
  EXPECT_EQ(Compile(*game, "cs1 = sqr 5").msg, "Missing or inappropriate reference to \"Sqr\"\r");
  EXPECT_EQ(Compile(*game, "bet 5 on place").msg,
            "Missing or inappropriate reference to \"Place\" bet.\r");
}

// The links of labels, blocks and loops are pinned by the case dumps.
TEST_F(StructureTest, LabelClashesAndMissingLabels) {
  // The pool holds the string label before the number label that the
  // bracket pass adds, so the string's line is the first one named.
  EXPECT_EQ(Compile(*game, ":100:\n:\"100\":").msg, "A duplicate line number exists in line 2");
  EXPECT_EQ(Compile(*game, "goto \"nowhere\"").msg, "Label \"nowhere\" not found.");
}

TEST_F(StructureTest, IndentFollowsTheNesting) {
  const char* text = "if point = 4 then\ncs1 = 1\ndo\ncs2 = 2\nloop\nelse\ncs1 = 0\nendif\ncs3 = 3";
  ASSERT_TRUE(Compile(*game, text, 2).ok);
  EXPECT_TRUE(game->scriptCode.SlotCompiled[2]);
  auto lines = script_test::Lines(text);
  IndentScriptLines(lines, game->scriptCode.LineIndent);
  const std::pair<int, const char*> want[] = {{1, "if point = 4 then"}, {2, "   cs1 = 1"},
                                              {4, "      cs2 = 2"},     {5, "   loop"},
                                              {6, "else"},              {7, "   cs1 = 0"},
                                              {8, "endif"},             {9, "cs3 = 3"}};
  for (const auto& [l, text] : want) EXPECT_EQ(lines[l], text) << l;
}

}  // namespace
