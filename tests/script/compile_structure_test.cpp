// The structure passes: brackets, function and list groups, labels, the
// links of If/Else/EndIf, Do/Loop/ExitDo and GoTo, their errors and spans.
#include <gtest/gtest.h>

#include "script/compile_logic.h"
#include "script/script_dump.h"
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

TEST_F(StructureTest, BracketsMustBalanceWithinAStatement) {
  // A line end does not end a statement; the colon does.
  auto r = Compile(*game, "cs1 = 2 :\ncs2 = (5 +\n 3\n: cs3 = 1");
  EXPECT_EQ(r.msg, "Missing or improperly placed parenthesis.");
  EXPECT_EQ(r.line, 2);
  EXPECT_EQ(r.endLine, 4);
  EXPECT_EQ(r.endCol, 0);
  r = Compile(*game, "cs1 = 5) + (3");
  EXPECT_EQ(r.msg, "Missing or improperly placed parenthesis.");
  EXPECT_TRUE(Compile(*game, "cs1 = ((5 + 3) * [2 - {1}])").ok);
  // The phrase row for "dontcome(" turns the bracket into the function with
  // the word (unlike "come(", which keeps it), so the closing one is alone.
  EXPECT_EQ(Compile(*game, "cs1 = dontcome(4)").msg, "Missing or improperly placed parenthesis.");
  EXPECT_TRUE(Compile(*game, "cs1 = come(4)").ok);
}

TEST_F(StructureTest, FunctionsAndListsNeedTheirBrackets) {
  EXPECT_EQ(Compile(*game, "cs1 = sqr 5").msg, "Missing or inappropriate reference to \"Sqr\"\r");
  EXPECT_EQ(Compile(*game, "bet 5 on place").msg,
            "Missing or inappropriate reference to \"Place\" bet.\r");
  EXPECT_EQ(Compile(*game, "clear all place bets").msg,
            "Lists defined by \"All\" must be enclosed in brackets.\r\rFor example:\r      "
            "All(inside place bets)\r      All[Field, PassLine, Hard4]\r      Any(Big6, Field, "
            "Checkstacks)\r      Any(4,5,6,8,9,10)");
  EXPECT_EQ(Compile(*game, "if any 4 = point then\nendif").msg.substr(0, 23),
            "Lists defined by \"Any\" ");
}

TEST_F(StructureTest, AggregatesAndListsGetAnEmptyTerminator) {
  ASSERT_TRUE(Compile(*game, "cs1 = sum(1, max(2))").ok == false);
  ASSERT_TRUE(Compile(*game, "cs1 = sum(1, (2))").ok);
  EXPECT_EQ(BodyText(*game),
            "VarTarget:101 Player:1 Eq:0 Func:130 Open:0 Num:1 Comma:0 Open:0 Num:2 Close:0 "
            "Empty:0 Close:0");
  ASSERT_TRUE(Compile(*game, "if any(4, 5) = point then\nendif").ok);
  EXPECT_EQ(BodyText(*game).substr(0, 69),
            "If:0 List:2 Open:0 Num:4 Comma:0 Num:5 Empty:0 Close:0 Eq:0 Var:3500 ");
}

TEST_F(StructureTest, LabelsAndTheirDuplicates) {
  ASSERT_TRUE(Compile(*game, ":\"Start Here\":\ncs1 = 1\n:5:\ngoto \"start here\"\ngosub 5").ok);
  const auto& pool = game->scriptCode.StringPool;
  const std::size_t first = Find(kLabel, 0), second = Find(kLabel, 1);
  EXPECT_EQ(pool[static_cast<std::size_t>(S()[first].Value)].Value, first);
  EXPECT_EQ(pool[static_cast<std::size_t>(S()[second].Value)].Text, "5");
  EXPECT_EQ(S()[Find(kGoTo) + 1].Value, first);
  EXPECT_EQ(S()[Find(kGoSub) + 1].Value, second);

  auto r = Compile(*game, "cs1 = 1\n:\"x\":\ncs2 = 1\n:\"X \":");
  EXPECT_EQ(r.msg, "A duplicate label exists in line 2");
  EXPECT_EQ(r.line, 2);
  EXPECT_EQ(r.endLine, 5);
  // The pool holds the string label before the number label that the
  // bracket pass adds, so the string's line is the first one named.
  EXPECT_EQ(Compile(*game, ":100:\n:\"100\":").msg, "A duplicate line number exists in line 2");
  // GoTo 100 finds a string label of the same text.
  EXPECT_TRUE(Compile(*game, ":\"100\":\ngoto 100").ok);
  EXPECT_EQ(Compile(*game, "goto \"nowhere\"").msg, "Label \"nowhere\" not found.");
}

TEST_F(StructureTest, IfThenElseLinks) {
  ASSERT_TRUE(Compile(*game, "if point = 4 then\ncs1 = 1\nendif").ok);
  EXPECT_EQ(ValueOf(kThen), Find(kEndIf));
  ASSERT_TRUE(Compile(*game, "if point = 4 then\ncs1 = 1\nelse\ncs1 = 2\nendif").ok);
  EXPECT_EQ(ValueOf(kThen), Find(kElse));
  EXPECT_EQ(ValueOf(kElse), Find(kEndIf));
  ASSERT_TRUE(Compile(*game,
                      "if point = 4 then\ncs1 = 1\nelseif point = 5 then\ncs1 = 2\nelse\ncs1 = 3\n"
                      "endif")
                  .ok);
  EXPECT_EQ(ValueOf(kThen, 0), Find(kElseIf));
  EXPECT_EQ(ValueOf(kThen, 1), Find(kElse));
  EXPECT_EQ(ValueOf(kElseIf), Find(kEndIf));
  EXPECT_EQ(ValueOf(kElse), Find(kEndIf));
}

TEST_F(StructureTest, LoopsAndExitDoLinks) {
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

TEST_F(StructureTest, StructureErrorsAndTheirLines) {
  struct Case {
    const char* text;
    const char* message;
    int line;
  } cases[] = {
      {"cs1 = 1\nthen", "THEN statement out of position.", 2},
      {"if point = 4 then\nelse\nelse\nendif", "Expected THEN before ELSE.", 3},
      {"if point = 4 then\nelse\nelseif point = 5 then\nendif", "ELSEIF out of position.", 3},
      {"if point = 4 then\nif point = 5 then\nelse\nelseif point = 6 then\nendif\nendif",
       "ELSEIF out of position.\rCannot be placed after ELSE within the same IF/THEN statement.",
       4},
      {"endif", "Unassociated ENDIF.", 1},
      {"cs1 = 1\ndo\nendif\nloop", "Missing or out of position LOOP statement.", 2},
      {"if point = 4 endif", "Missing THEN between IF and ENDIF.", 1},
      {"do\nif point = 4 then\nloop\nendif",
       "ENDIF missing or out of position, or \rLOOP statement out of position.", 3},
      {"if point = 4 then\ndo\nendif\nloop", "Missing or out of position LOOP statement.", 2},
      {"loop", "Missing DO statement or LOOP statement out of position.", 1},
      {"exitdo", "EXIT DO statement outside of DO/LOOP.", 1},
      {"do\nif point = 4 exitdo\nloop", "EXIT DO statement out of position.", 2},
      {"goto", "GOTO or GOSUB missing reference.", 1},
      {"goto cs1", "Improper reference after GOTO or GOSUB.", 1},
      {":5:\nif goto 5", "GOTO or GOSUB out of position.", 2},
      {"cs1 = 1\nif point = 4 then\ncs1 = 2", "Missing ENDIF statement.", 2},
      {"cs1 = 1\n\ndo\ncs1 = 2", "Missing LOOP statement.", 3},
      {"if point = 4", "Missing THEN statement.", 1},
      {"if if", "IF statement out of position.", 1},
      {"if point = 4 do", "DO statement out of position.", 1},
  };
  for (const auto& c : cases) {
    const auto r = Compile(*game, c.text);
    EXPECT_EQ(r.msg, c.message) << c.text;
    EXPECT_EQ(r.line, c.line) << c.text;
    EXPECT_LE(r.line, r.endLine) << c.text;
  }
}

TEST_F(StructureTest, EmptyScriptIsValid) {
  ASSERT_TRUE(Compile(*game, "\n   \n' only a comment\n").ok);
  EXPECT_EQ(DumpScriptCode(game->scriptCode), "0 Empty 0\n1 Head 1\n2 Mark4 0\n");
  EXPECT_TRUE(game->scriptCode.SlotCompiled[1]);
}

TEST_F(StructureTest, IndentFollowsTheNesting) {
  const char* text = "if point = 4 then\ncs1 = 1\ndo\ncs2 = 2\nloop\nelse\ncs1 = 0\nendif\ncs3 = 3";
  ASSERT_TRUE(Compile(*game, text).ok);
  const auto& indent = game->scriptCode.LineIndent;
  EXPECT_EQ(std::vector<std::int32_t>(indent.begin() + 1, indent.begin() + 10),
            (std::vector<std::int32_t>{0, 1, 1, 2, 2, 1, 1, 1, 0}));
  auto lines = script_test::Lines(text);
  IndentScriptLines(lines, indent);
  EXPECT_EQ(lines[1], "if point = 4 then");
  EXPECT_EQ(lines[2], "   cs1 = 1");
  EXPECT_EQ(lines[4], "      cs2 = 2");
  EXPECT_EQ(lines[5], "   loop");
  EXPECT_EQ(lines[6], "else");
  EXPECT_EQ(lines[8], "endif");
}

}  // namespace
