// Variable references in canonical form, group expansion, assignment
// targets, and the type check of every statement with its messages.
#include <gtest/gtest.h>

#include "script_test_util.h"

using script_test::BodyText;
using script_test::Compile;

namespace {

struct Case {
  const char* text;
  const char* want;
};

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
  int CountKind(std::int32_t kind) const {
    int n = 0;
    for (const auto& e : game->scriptCode.CompiledScript) n += e.Kind == kind;
    return n;
  }
  // Each text fails with its message; each of `good` compiles.
  void ExpectMessages(const std::vector<Case>& cases, std::initializer_list<const char*> good) {
    for (const auto& c : cases) EXPECT_EQ(Compile(*game, c.text, 3).msg, c.want) << c.text;
    for (const char* ok : good)
      EXPECT_TRUE(Compile(*game, ok, 3).ok) << ok << ": " << game->msg.MsgText;
  }
};

// Phrases in any order give one canonical run; a reference that could mean
// two things is refused with the reason.
TEST_F(ExpressionTest, ReferencesResolveToOneCanonicalRunOrAreAmbiguous) {
  const std::string amb = "error: Ambiguous variable references\r";
  const Case cases[] = {
      {"wagers Place6 current session current $", "Var:33 Player:3 Frame:3 Class:1 Field:33"},
      {"Place6 wagers bettor", "Var:33 Player:13 Frame:3 Class:1 Field:33"},
      {"place6 last hand losses total $", "Var:33 Player:3 Frame:2 Class:3 Field:22"},
      {"place(6) shooter", "Func:6 Open:0 Num:6 Close:0 Player:10 Frame:3 Class:1 Field:33"},
      {"# of rolls", "Var:2500 Player:0 Frame:3 Field:0"},
      {"# of points 6 passed", "Var:4606 Player:0 Frame:3 Class:7 Field:6"},
      {"player3", "Num:3"},
      {"bankroll player2", "Var:654 Player:2"},
      {"comps", "Var:1100 Player:3 Frame:3"},
      {"cs7 & csn2", "Var:107 Player:3 Concat:0 Var:802 Player:3"},
      {"cs7 + csn2", "error: Math error. Use of non-mathematical terms.\r"},
      {"# of rolls since 7 last session",
       "error: Ambiguous variable references\r\"# of rolls since\" applies to current session "
       "only\r"},
      {"# of points 7", amb.c_str()},
      {"point player2", amb.c_str()},
      // Wins "on" a bet: "on" is an equal sign, so the class stands alone.
      {"wins on place6", amb.c_str()},
      {"place6 player1 player2", "error: Ambiguous player references\r"},
      {"place6 current hand last hand", "error: Ambiguous hand references\r"},
      {"place6 total",
       "error: Ambiguous variable references.\rPlease designate either total # or total $.\r"},
      {"place6 wins current $",
       "error: Ambiguous variable references\rCurrent # and current $ only apply to wagers.\r"},
      {"place6 last hand called off",
       "error: Ambiguous variable references.\r'Called off' only applies to current hand or "
       "session.\r"},
  };
  for (const auto& c : cases) EXPECT_EQ(Value(c.text), c.want) << c.text;
}

TEST_F(ExpressionTest, GroupsExpandToTheirMembers) {
  const std::pair<const char*, int> counts[] = {{"clear all(bets)", 85},
                                                {"clear all(checkstacks)", 100}};
  for (const auto& [text, n] : counts) {
    ASSERT_TRUE(Compile(*game, text).ok) << text;
    EXPECT_EQ(CountKind(kVariableTarget), n) << text;
  }
  // A player given as Player(n) travels with each member as one qualifier.
  ASSERT_TRUE(Compile(*game, "clear outside place bets player(2) : bet 5 on place6 player(2)").ok)
      << game->msg.MsgText;
  EXPECT_EQ(CountKind(kVariableTarget), 5);
  EXPECT_EQ(CountKind(kFunction), 5);
  EXPECT_FALSE(Compile(*game, "clear inside place bets last hand", 3).ok);
}

TEST_F(ExpressionTest, OnlyWritableThingsBecomeTargets) {
  ExpectMessages(
      {
          {"sqr(4) = 5", "\"Sqr\" is a read-only function and cannot be assigned a value."},
          {"swap cs1, cs2, cs3", "The swap command only works with two variables at a time."},
          {"bet 5 on place6 last hand",
           "Unable to set the value of a bet that is not in the current hand or session."},
          {"bet 5 on place6 wins", "Only able to set the 'wager' value of a bet."},
          {"bet 5 on place6 total $", "Only able to set the current $ value of a bet."},
          // A string alone between two marks is a label, even after If.
          {"if \"a\" then\nendif",
           "Improper placement of label.\rLabels cannot appear with condition lines."},
      },
      {"autotake full odds = -1", "seed = 5", "rolls per hr = 100", "csn4 = \"x\"",
       "bet 5 on place(6)", "swap cs1, cs2", "cs(3) = 1", "add 5 to cs1",
       "bet 10 on passline : bet 10 on passlineodds"});
}

TEST_F(ExpressionTest, StatementsAndFunctionsMustReduceToTheirForm) {
  ExpectMessages(
      {
          {"if then\nendif", "Missing expression between IF and THEN.\r"},
          {"if (5) (6) then\nendif", "Unable to resolve expression.\r"},
          {"if \"a\" & \"b\" then\nendif", "Result not true or false.\r"},
          {"show message 1, 2", "Unable to resolve elements.\r"},
          {"show message", "Missing argument.\r"},
          {"play sound 5", "Improper argument.\r"},
          {"swap cs1", "Missing or improper arguments.\r"},
          {":\"a\":\ngoto \"a\" 6",
           "Unable to resolve elements.\rGoTo command should be followed by name of a label\r"},
          {"bet 5 on 6", "Improper assignment or expression.\r"},
          {"cs1 = 5 + * 3", "Improper use of math operators.\r"},
          {"cs1 = \"a\" + 1", "Math error. Use of non-mathematical terms.\r"},
          {"cs1 + 1 = 5", "Cannot do math with a variable that's being assigned.\r"},
          {"cs1 = & 5", "Unable to concatenate elements.\r"},
          {"if 5 = \"a\" then\nendif", "Relational error. Terms not comparable.\r"},
          {"if = 5 then\nendif", "Improper use of comparison operator.\r"},
          {"if not \"a\" then\nendif", "Improper argument for NOT operation.\r"},
          {"if and 5 = 5 then\nendif", "Missing expression before logical \"AND\"\r"},
          {"if 5 = 5 xor \"a\" then\nendif",
           "Missing or inappropriate expression after logical \"XOR\"\r"},
          {"cs1 = len(5)", "Inappropriate expression in \"Len\" function.\r"},
          {"cs1 = input(1, 2)", "Inappropriate expression in Input function.\r"},
          {"cs1 = sum(\"a\")", "Improper expression in \"Sum\" function.\r"},
      },
      {"cs1 = instr(1, \"abc\", \"b\") + len(\"x\") + sqr(4)",
       "csn1 = mid$(\"abc\", 1, 2) & left$(5, 1) & str$(3)",
       "cs1 = highest(> 5, place bets) + count(bets) + avg(1, 2, 3)",
       "csn1 = input$(\"name?\") & input()"});
}

TEST_F(ExpressionTest, ListsInConditions) {
  ExpectMessages(
      {
          {"if any(4, 5) = \"a\" then\nendif", "Improper comparison with item in list.\r"},
          {"if any(\"a\", 5) then\nendif", "Missing list comparison.\r"},
          {"if any(4 (5)) = 5 then\nendif", "Missing separation character (, or ;) in list.\r"},
          {"if any(> \"a\", 4) = 5 then\nendif", "List item not comparable with qualifier.\r"},
          {"if any(4, >) = 5 then\nendif", "Improper or missing comparison element in list.\r"},
          {"if any(4 > 5) = 5 then\nendif", "Improper placement of comparison operator in list.\r"},
          {"if any(4, player(2)) = 5 then\nendif", "Inappropriate element in list.\r"},
          {"if any(4) = player(2) then\nendif", "Improper or missing list comparison.\r"},
      },
      {"if any(4,5,6,8,9,10) = point then\nendif", "if point = any(4, 5) then\nendif",
       "if all(place bets) > 0 and not any(< 5, come bets) then\nendif",
       "if all(passline, field) then\nendif", "if any(\"a\", \"b\") = csn1 then\nendif"});
}

}  // namespace
