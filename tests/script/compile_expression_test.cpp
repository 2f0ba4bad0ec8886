// Variable references in canonical form, group expansion, assignment
// targets, and the type check of every statement with its messages.
#include <gtest/gtest.h>

#include "script_test_util.h"

using script_test::BodyText;
using script_test::Compile;

namespace {

struct ExpressionTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  // The body of "cs1 = <expr>" behind the assignment, for slot 3.
  std::string Value(std::string_view expr) {
    const auto r = Compile(*game, "cs1 = " + std::string(expr), 3);
    if (!r.ok) return "error: " + r.msg;
    const std::string body = BodyText(*game);
    const std::string head = "VarTarget:101 Player:3 Eq:0 ";
    return body.starts_with(head) ? body.substr(head.size()) : body;
  }
  std::string Message(std::string_view text) { return Compile(*game, text, 3).msg; }
  int CountKind(std::int32_t kind) const {
    int n = 0;
    for (const auto& e : game->scriptCode.CompiledScript) n += e.Kind == kind;
    return n;
  }
};

TEST_F(ExpressionTest, PhrasesInAnyOrderGiveOneCanonicalRun) {
  const std::string wager = "Var:33 Player:3 Frame:3 Class:1 Field:33";
  EXPECT_EQ(Value("Place6"), wager);
  EXPECT_EQ(Value("Place6 wagers"), wager);
  EXPECT_EQ(Value("wagers Place6"), wager);
  EXPECT_EQ(Value("the Place6 wagers current session current $"), wager);
  EXPECT_EQ(Value("Place6 wagers bettor"), "Var:33 Player:13 Frame:3 Class:1 Field:33");
  EXPECT_EQ(Value("place6 wins"), "Var:33 Player:3 Frame:3 Class:2 Field:28");
  EXPECT_EQ(Value("place6 last hand losses total $"), "Var:33 Player:3 Frame:2 Class:3 Field:22");
  EXPECT_EQ(Value("place(6) shooter"),
            "Func:6 Open:0 Num:6 Close:0 Player:10 Frame:3 Class:1 Field:33");
}

TEST_F(ExpressionTest, TableFiguresPlayersAndClasses) {
  EXPECT_EQ(Value("# of rolls"), "Var:2500 Player:0 Frame:3 Field:0");
  EXPECT_EQ(Value("# of rolls 7"), "Var:2500 Player:0 Frame:3 Field:7");
  EXPECT_EQ(Value("# of rolls 1.3"), "Var:2500 Player:0 Frame:3 Field:1~");
  EXPECT_EQ(Value("# of points 6 passed"), "Var:4606 Player:0 Frame:3 Class:7 Field:6");
  EXPECT_EQ(Value("shooter"), "Var:3200");
  EXPECT_EQ(Value("player3"), "Num:3");
  EXPECT_EQ(Value("bankroll player2"), "Var:654 Player:2");
  EXPECT_EQ(Value("comps"), "Var:1100 Player:3 Frame:3");
  EXPECT_EQ(Value("point"), "Var:3500");
  EXPECT_EQ(Value("cs7 & csn2"), "Var:107 Player:3 Concat:0 Var:802 Player:3");
  EXPECT_EQ(Value("cs7 + csn2"), "error: Math error. Use of non-mathematical terms.\r");
}

TEST_F(ExpressionTest, AmbiguousReferences) {
  const std::string amb = "error: Ambiguous variable references\r";
  EXPECT_EQ(Value("# of rolls 13"),
            "error: Ambiguous variable references\rReference to rolls out of limits.\r");
  EXPECT_EQ(Value("# of rolls 7.7"),
            "error: Ambiguous variable references\rReference to rolls out of limits.\r");
  EXPECT_EQ(Value("# of rolls since 7 last session"),
            "error: Ambiguous variable references\r\"# of rolls since\" applies to current session "
            "only\r");
  EXPECT_EQ(Value("# of points 7"), amb);
  EXPECT_EQ(Value("cs2 current hand"), amb);
  EXPECT_EQ(Value("point player2"), amb);
  EXPECT_EQ(Value("simulated hrs player2"), amb);
  EXPECT_EQ(Value("place6 place8"), amb);
  EXPECT_EQ(Value("current hand"), amb);
  EXPECT_EQ(Value("place6 player1 player2"), "error: Ambiguous player references\r");
  EXPECT_EQ(Value("place6 current hand last hand"), "error: Ambiguous hand references\r");
  EXPECT_EQ(Value("place6 total"),
            "error: Ambiguous variable references.\rPlease designate either total # or total $.\r");
  EXPECT_EQ(Value("place6 expected value"),
            "error: Ambiguous variable references\rPlease designate either net or net %\r");
  EXPECT_EQ(
      Value("place6 wins current $"),
      "error: Ambiguous variable references\rCurrent # and current $ only apply to wagers.\r");
  EXPECT_EQ(Value("place6 last session current #"),
            "error: Ambiguous variable references\rCurrent # and current $ only apply to current "
            "hand or session.\r");
  EXPECT_EQ(Value("place6 last hand called off"),
            "error: Ambiguous variable references.\r'Called off' only applies to current hand or "
            "session.\r");
  EXPECT_EQ(Value("place6 naturals"), "error: Ambiguous variable references.\r");
  // Wins "on" a bet: "on" is an equal sign, so the class stands alone.
  EXPECT_EQ(Value("wins on place6"), amb);
}

TEST_F(ExpressionTest, GroupsExpandToTheirMembers) {
  ASSERT_TRUE(Compile(*game, "clear all(bets)").ok);
  EXPECT_EQ(CountKind(kVariableTarget), 85);
  ASSERT_TRUE(Compile(*game, "clear all(checkstacks)").ok);
  EXPECT_EQ(CountKind(kVariableTarget), 100);
  // A player given as Player(n) travels with each member as one qualifier.
  ASSERT_TRUE(Compile(*game, "clear outside place bets player(2) : bet 5 on place6 player(2)").ok)
      << game->msg.MsgText;
  EXPECT_EQ(CountKind(kVariableTarget), 5);
  EXPECT_EQ(CountKind(kFunction), 5);
  ASSERT_TRUE(Compile(*game, "clear inside place bets last hand", 3).ok == false);
  ASSERT_TRUE(Compile(*game, "clear inside place bets", 3).ok);
  EXPECT_EQ(
      BodyText(*game),
      "Action:460 VarTarget:32 Player:3 Frame:3 Class:1 Field:33 Comma:0 VarTarget:33 Player:3 "
      "Frame:3 Class:1 Field:33 Comma:0 VarTarget:34 Player:3 Frame:3 Class:1 Field:33 Comma:0 "
      "VarTarget:35 Player:3 Frame:3 Class:1 Field:33");
}

TEST_F(ExpressionTest, OnlyWritableThingsBecomeTargets) {
  EXPECT_EQ(Message("point = 5"),
            "\"Point\" is a read-only variable and cannot be assigned a value.");
  EXPECT_EQ(Message("sqr(4) = 5"),
            "\"Sqr\" is a read-only function and cannot be assigned a value.");
  EXPECT_EQ(Message("swap cs1, cs2, cs3"),
            "The swap command only works with two variables at a time.");
  EXPECT_EQ(Message("bet 5 on place6 last hand"),
            "Unable to set the value of a bet that is not in the current hand or session.");
  EXPECT_EQ(Message("bet 5 on place6 wins"), "Only able to set the 'wager' value of a bet.");
  EXPECT_EQ(Message("bet 5 on place6 total $"), "Only able to set the current $ value of a bet.");
  EXPECT_EQ(Message("bet 5 on any(place bets)"),
            "Improper use of list.\r\rLists defined by the keyword \"Any\"\rcannot be used with "
            "action commands.");
  EXPECT_EQ(Message("if\n:\"x\":\nthen\nendif"),
            "Improper placement of label.\rLabels cannot appear with condition lines.");
  for (const char* ok : {"autotake full odds = -1", "seed = 5", "rolls per hr = 100",
                         "csn4 = \"x\"", "bet 5 on place(6)", "swap cs1, cs2", "cs(3) = 1",
                         "add 5 to cs1", "bet 10 on passline : bet 10 on passlineodds"})
    EXPECT_TRUE(Compile(*game, ok).ok) << ok << ": " << game->msg.MsgText;
}

TEST_F(ExpressionTest, StatementsMustReduceToTheirForm) {
  struct Case {
    const char* text;
    const char* message;
  } cases[] = {
      {"if then\nendif", "Missing expression between IF and THEN.\r"},
      {"if (5) (6) then\nendif", "Unable to resolve expression.\r"},
      {"if \"a\" & \"b\" then\nendif", "Result not true or false.\r"},
      // A string alone between two marks is a label, even after If.
      {"if \"a\" then\nendif",
       "Improper placement of label.\rLabels cannot appear with condition lines."},
      {"pass the dice 5", "Unable to resolve elements.\r"},
      {"show message", "Missing argument.\r"},
      {"show message 1, 2", "Unable to resolve elements.\r"},
      {"play sound 5", "Improper argument.\r"},
      {"swap cs1", "Missing or improper arguments.\r"},
      {"playback dice roll file 5", "Improper argument.\r"},
      {":\"a\":\ngoto \"a\" 6",
       "Unable to resolve elements.\rGoTo command should be followed by name of a label\r"},
      {"clear 5", "Improper assignment or expression.\r"},
      {"bet 5 on 6", "Improper assignment or expression.\r"},
      {"cs1 = 5 > 3", "Improper assignment or expression.\r"},
      {"cs1 = 5 +", "Improper use of math operators.\r"},
      {"cs1 = 5 + * 3", "Improper use of math operators.\r"},
      {"cs1 = \"a\" + 1", "Math error. Use of non-mathematical terms.\r"},
      {"cs1 + 1 = 5", "Cannot do math with a variable that's being assigned.\r"},
      {"cs1 = & 5", "Unable to concatenate elements.\r"},
      {"if 5 = \"a\" then\nendif", "Relational error. Terms not comparable.\r"},
      {"if = 5 then\nendif", "Improper use of comparison operator.\r"},
      {"if not \"a\" then\nendif", "Improper argument for NOT operation.\r"},
      {"if and 5 = 5 then\nendif", "Missing expression before logical \"AND\"\r"},
      {"if 5 = 5 and then\nendif", "Missing expression after logical \"AND\"\r"},
      {"if \"a\" or 5 = 5 then\nendif",
       "Missing or inappropriate expression before logical \"OR\"\r"},
      {"if 5 = 5 xor \"a\" then\nendif",
       "Missing or inappropriate expression after logical \"XOR\"\r"},
  };
  for (const auto& c : cases) EXPECT_EQ(Message(c.text), c.message) << c.text;
}

TEST_F(ExpressionTest, FunctionArguments) {
  struct Case {
    const char* text;
    const char* message;
  } cases[] = {
      {"cs1 = instr(1, \"a\")",
       "Missing expression in \"Instr\" function.\r\rExpected format:  Instr(number, string, "
       "string)\r"},
      {"cs1 = instr(1, \"a\", \"b\", \"c\")",
       "Too many expressions in \"Instr\" function.\r\rExpected format:  Instr(number, string, "
       "string)\r"},
      {"cs1 = instr(\"a\", \"b\", \"c\")",
       "Inappropriate expression in \"Instr\" function.\r\rExpected format:  Instr(number, string, "
       "string)\r"},
      {"csn1 = left$(\"a\")",
       "Missing expression in \"Left\" function.\r\rExpected format:  Left$(string, number)\r"},
      {"csn1 = removeright$(\"a\", \"b\")",
       "Inappropriate expression in \"RemoveRight\" function.\r\rExpected format:  "
       "RemoveRight$(string, number)\r"},
      {"csn1 = mid$(\"abc\", 2)",
       "Missing or inappropriate expression in function.\r\rExpected format:  Mid$(string, number, "
       "number)"},
      {"csn1 = insert$(\"a\", 1)",
       "Missing expression in Insert$ function.\r\rExpected format:  Insert$(string, number, "
       "string)"},
      {"csn1 = insert$(\"a\", \"b\", \"c\")",
       "Missing or inappropriate expression in function.\r\rExpected format:  Insert$(string, "
       "number, string)"},
      {"cs1 = len(5)", "Inappropriate expression in \"Len\" function.\r"},
      {"cs1 = asc()", "Missing expression in \"Asc\" function.\r"},
      {"cs1 = sqr(\"a\")", "Inappropriate expression in \"Sqr\" function.\r"},
      {"cs1 = input(1, 2)", "Inappropriate expression in Input function.\r"},
      {"cs1 = highest(> \"a\", 5)",
       "Missing or improper qualifier in \"Highest\" function.\r\rExpected qualifier format:\r>, "
       "<, or = "
       "followed by number or non-string variable\r"},
      {"cs1 = sum(\"a\")", "Improper expression in \"Sum\" function.\r"},
  };
  for (const auto& c : cases) EXPECT_EQ(Message(c.text), c.message) << c.text;
  for (const char* ok : {"cs1 = instr(1, \"abc\", \"b\") + len(\"x\") + sqr(4)",
                         "csn1 = mid$(\"abc\", 1, 2) & left$(5, 1) & str$(3)",
                         "cs1 = highest(> 5, place bets) + count(bets) + avg(1, 2, 3)",
                         "csn1 = input$(\"name?\") & input()"})
    EXPECT_TRUE(Compile(*game, ok).ok) << ok << ": " << game->msg.MsgText;
}

TEST_F(ExpressionTest, ListsInConditions) {
  struct Case {
    const char* text;
    const char* message;
  } cases[] = {
      {"if any(4, 5) = \"a\" then\nendif", "Improper comparison with item in list.\r"},
      {"if any(\"a\", 5) then\nendif", "Missing list comparison.\r"},
      {"if any(4 (5)) = 5 then\nendif", "Missing separation character (, or ;) in list.\r"},
      {"if any(> \"a\", 4) = 5 then\nendif", "List item not comparable with qualifier.\r"},
      {"if any(4, >) = 5 then\nendif", "Improper or missing comparison element in list.\r"},
      {"if any(4 > 5) = 5 then\nendif", "Improper placement of comparison operator in list.\r"},
      {"if any(4, player(2)) = 5 then\nendif", "Inappropriate element in list.\r"},
      {"if any(4) = player(2) then\nendif", "Improper or missing list comparison.\r"},
      {"if any(4) = then\nendif", "Missing list comparison.\r"},
  };
  for (const auto& c : cases) EXPECT_EQ(Message(c.text), c.message) << c.text;
  for (const char* ok :
       {"if any(4,5,6,8,9,10) = point then\nendif", "if point = any(4, 5) then\nendif",
        "if all(place bets) > 0 and not any(< 5, come bets) then\nendif",
        "if all(passline, field) then\nendif", "if any(\"a\", \"b\") = csn1 then\nendif"})
    EXPECT_TRUE(Compile(*game, ok).ok) << ok << ": " << game->msg.MsgText;
}

TEST_F(ExpressionTest, FailureSpanIsTheStatement) {
  const auto r = Compile(*game, "cs1 = 1 : cs2 = \"a\" + 1 : cs3 = 2");
  EXPECT_EQ(r.line, 1);
  EXPECT_EQ(r.col, 8);
  EXPECT_EQ(r.endLine, 1);
  EXPECT_EQ(r.endCol, 24);
}

}  // namespace
