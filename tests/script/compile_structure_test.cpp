// The structure passes: brackets, function and list groups, labels, the
// links of If/Else/EndIf, Do/Loop/ExitDo and GoTo, and the indent they give.
// Each structure error's text and span is a script under cases/.
#include <gtest/gtest.h>

#include "script/compile_logic.h"
#include "script_test_util.h"

using script_test::BodyText;
using script_test::Compile;

namespace {

struct StructureTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  const std::vector<ScriptElement>& S() const { return game->scriptCode.CompiledScript; }
  // Index of the n-th element of a kind (0-based n).
  std::size_t Find(std::int32_t kind, int n = 0) const {
    for (std::size_t i = 0; i < S().size(); ++i)
      if (S()[i].Kind == kind && n-- == 0) return i;
    ADD_FAILURE() << "no element of kind " << kind;
    return 0;
  }
  double ValueOf(std::int32_t kind, int n = 0) const { return S()[Find(kind, n)].Value; }
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
  EXPECT_TRUE(Compile(*game, "if any 4 = point then\nendif")
                  .msg.starts_with("Lists defined by \"Any\" must be enclosed in brackets."));
}

TEST_F(StructureTest, AggregatesAndListsGetAnEmptyTerminator) {
  EXPECT_FALSE(Compile(*game, "cs1 = sum(1, max(2))").ok);
  ASSERT_TRUE(Compile(*game, "cs1 = sum(1, (2))").ok);
  EXPECT_EQ(BodyText(*game),
            "VarTarget:101 Player:1 Eq:0 Func:130 Open:0 Num:1 Comma:0 Open:0 Num:2 Close:0 "
            "Empty:0 Close:0");
  ASSERT_TRUE(Compile(*game, "if any(4, 5) = point then\nendif").ok);
  EXPECT_TRUE(BodyText(*game).starts_with(
      "If:0 List:2 Open:0 Num:4 Comma:0 Num:5 Empty:0 Close:0 Eq:0 Var:3500 "));
}

TEST_F(StructureTest, LabelsLinkAndClash) {
  ASSERT_TRUE(Compile(*game, ":\"Start Here\":\ncs1 = 1\n:5:\ngoto \"start here\"\ngosub 5").ok);
  const auto& pool = game->scriptCode.StringPool;
  const std::size_t first = Find(kLabel, 0), second = Find(kLabel, 1);
  EXPECT_EQ(pool[static_cast<std::size_t>(S()[first].Value)].Value, first);
  EXPECT_EQ(pool[static_cast<std::size_t>(S()[second].Value)].Text, "5");
  EXPECT_EQ(S()[Find(kGoTo) + 1].Value, first);
  EXPECT_EQ(S()[Find(kGoSub) + 1].Value, second);
  // The pool holds the string label before the number label that the
  // bracket pass adds, so the string's line is the first one named.
  EXPECT_EQ(Compile(*game, ":100:\n:\"100\":").msg, "A duplicate line number exists in line 2");
  // GoTo 100 finds a string label of the same text.
  EXPECT_TRUE(Compile(*game, ":\"100\":\ngoto 100").ok);
  EXPECT_EQ(Compile(*game, "goto \"nowhere\"").msg, "Label \"nowhere\" not found.");
}

TEST_F(StructureTest, BlocksLinkToTheirPartners) {
  ASSERT_TRUE(Compile(*game,
                      "if point = 4 then\ncs1 = 1\nelseif point = 5 then\ncs1 = 2\nelse\ncs1 = 3\n"
                      "endif")
                  .ok);
  EXPECT_EQ(ValueOf(kThen, 0), Find(kElseIf));
  EXPECT_EQ(ValueOf(kThen, 1), Find(kElse));
  EXPECT_EQ(ValueOf(kElseIf), Find(kEndIf));
  EXPECT_EQ(ValueOf(kElse), Find(kEndIf));

  ASSERT_TRUE(
      Compile(*game, "do\n  do\n    if cs1 > 3 then exitdo\n    endif\n  loop\n  exitdo\nloop").ok);
  const std::size_t outerDo = Find(kDo, 0), innerDo = Find(kDo, 1);
  const std::size_t innerLoop = Find(kLoop, 0), outerLoop = Find(kLoop, 1);
  EXPECT_EQ(S()[innerDo].Value, innerLoop);
  EXPECT_EQ(S()[innerLoop].Value, innerDo);
  EXPECT_EQ(S()[outerDo].Value, outerLoop);
  EXPECT_EQ(ValueOf(kExitDo, 0), innerLoop);
  EXPECT_EQ(ValueOf(kExitDo, 1), outerLoop);
}

TEST_F(StructureTest, IndentFollowsTheNesting) {
  const char* text = "if point = 4 then\ncs1 = 1\ndo\ncs2 = 2\nloop\nelse\ncs1 = 0\nendif\ncs3 = 3";
  ASSERT_TRUE(Compile(*game, text, 2).ok);
  EXPECT_TRUE(game->scriptCode.SlotCompiled[2]);
  const auto& indent = game->scriptCode.LineIndent;
  EXPECT_EQ(std::vector<std::int32_t>(indent.begin() + 1, indent.begin() + 10),
            (std::vector<std::int32_t>{0, 1, 1, 2, 2, 1, 1, 1, 0}));
  auto lines = script_test::Lines(text);
  IndentScriptLines(lines, indent);
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
