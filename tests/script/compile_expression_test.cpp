// Variable references in canonical form and group expansion. Ambiguous
// references and the type check of statements, each message with its span,
// are checked by scripts under cases/.
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
};

// Phrases in any order give one canonical run. References that could mean
// two things are case scripts with their reasons.
TEST_F(ExpressionTest, ReferencesResolveToOneCanonicalRun) {
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

}  // namespace
