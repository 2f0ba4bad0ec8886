// The compiler's passes: line tidying, the phrase table's precedence,
// strings and comments, player names and reserved words; variable
// references in canonical form, group expansion and the indent of the
// structure passes. Statement marks, the messages for unknown words,
// ambiguous references, type checks and structure errors with their spans
// are pinned by the case scripts.
#include "script/tokenizer.h"

#include <gtest/gtest.h>

#include <random>

#include "script/compile_logic.h"
#include "script_test_util.h"

using script_test::BodyText;
using script_test::Compile;

namespace {

struct TokenizerTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  std::string Tokens(std::string_view text) {
    std::vector<std::string> lines = script_test::Lines(text);
    game->scriptCode.StringPool.assign(1, {});
    const auto error = TokenizeScript(*game, 1, lines);
    EXPECT_FALSE(error) << game->msg.MsgText;
    return BodyText(*game);
  }
  std::string Pooled(std::size_t i) const { return game->scriptCode.StringPool.at(i).Text; }
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

TEST(TidyScriptLine, SpacesOperatorsSignsNumbersButNotQuotesOrComments) {
  // Several lines' worth in one: each piece is tidied as if alone.
  const std::pair<const char*, const char*> cases[] = {
      {"if a<=b then : x = a=>b : a><b : a::b", "if a <= b then : x = a => b : a < b : a : b "},
      {"   indented  x go to 10 End If $ 5", "   indented x goto 10 EndIf $5 "},
      {"x=-5 : 5--3 : 5+-3 : x = +5", "x = -5 : 5 + 3 : 5 - 3 : x = 5 "},
      {"cs1=(-5) + place(6) + any( 4 ,5 )", "cs1 = (-5) + place(6) + any(4, 5) "},
      // After a keyword the bracket keeps its blank.
      {"if (a) and(b)", "if (a) and (b) "},
      // Numbers take the format of a double.
      {"007 : cs1 = 1.50,2 : cs1 = .5", "7 : cs1 = 1.5, 2 : cs1 = 0.5 "},
      // Exponents keep their signs, so a tidied line tidies to itself.
      {"x=1e300-1E-7 : x=1e+300 : e-5", "x = 1e+300 - 1e-07 : x = 1e+300 : e - 5 "},
      {"show message \"a=b  c\" : x=1 ' a=b  007", "show message \"a=b  c\" : x = 1 ' a=b  007 "},
      {"show message \"abc", "show message \"abc\" "},
      {"show message \"it's\"  'x", "show message \"it's\" 'x "},
  };
  for (const auto& [in, out] : cases) {
    std::string s = in;
    TidyScriptLine(s);
    EXPECT_EQ(s, out) << in;
  }
}

TEST_F(TokenizerTest, LongerPhrasesWinOverTheirParts) {
  const std::pair<const char*, const char*> cases[] = {
      {"if point is not greater than 6 then", "If:0 Var:3500 Le:0 Num:6 Then:0"},
      {"if point is not 6 then", "If:0 Var:3500 Ne:0 Num:6 Then:0"},
      // "bet" inside "minimum bet" is never the action.
      {"cs1 = minimum bet", "Var:101 Eq:0 Var:3610"},
      // "two" is the Two bet; the number row for it is never reached.
      {"bet 5 on two", "Action:481 Num:5 Eq:0 Var:56"},
      {"stop autoroll/hyperdrive : cs1 = one + twice * 10%",
       "Action:115 Var:101 Eq:0 Num:1 Add:0 Num:2 Mul:0 Num:10 Mul:0 Num:0~"},
      {"cs1 = checkstack12 + csname3 + checkstack 12",
       "Var:101 Eq:0 Var:112 Add:0 Var:803 Add:0 Func:21 Num:12"},
      {"csn1 = cs99 & csn0", "Var:801 Eq:0 Var:199 Concat:0 Var:800"},
      {"playback dice roll file \"a.rol\" from roll 5", "Action:310 Str:1 Str:-15 Num:5"},
      {"cs1 = date$ & time$", "Var:101 Eq:0 Str:-1 Concat:0 Str:-2"},
      // A number in exponent form is one number, its sign no operator.
      {"cs1 = 1e+15 - 2.5E-7 * 1e3",
       "Var:101 Eq:0 Num:1000000000000000 Sub:0 Num:0~ Mul:0 Num:1000"},
  };
  for (const auto& [text, tokens] : cases) EXPECT_EQ(Tokens(text), tokens) << text;
}

TEST_F(TokenizerTest, StringsGoToThePoolUntouched) {
  EXPECT_EQ(Tokens("show message \"Bet IF Point\" & \"\""), "Action:210 Str:1 Concat:0 Str:0");
  EXPECT_EQ(game->scriptCode.StringPool.size(), 2u);
  EXPECT_EQ(Pooled(1), "Bet IF Point");
  EXPECT_EQ(Tokens("show message \"it's\" ' bet 5"), "Action:210 Str:1");
  EXPECT_EQ(Pooled(1), "it's");
  // Tabs indent and separate, but stay inside strings.
  EXPECT_EQ(Tokens("\tbet\t5 on field\t: show message \"a\tb\""),
            "Action:481 Num:5 Eq:0 Var:49 Action:210 Str:1");
  EXPECT_EQ(Pooled(1), "a\tb");
}

TEST_F(TokenizerTest, PlayerNamesAreWordsOfEveryScript) {
  game->PlayerName[3] = "Pat";
  game->PlayerName[5] = "Big Al";
  EXPECT_EQ(Tokens("if PAT bankroll > 0 then"), "If:0 Player:3 Var:654 Gt:0 Num:0 Then:0");
  // The static rows come first: "big" is already a code when the name row
  // runs, so the name can't be found and "al" is left over.
  EXPECT_EQ(Compile(*game, "if big al bankroll > 0 then cs1 = 1 endif").msg,
            "Unknown or misplaced element:\r\ral\r");
}

TEST(ReservedWords, NamesThatHoldAWordOrSymbolAreRefused) {
  for (const char* name : {"Pat", "Bethany"}) EXPECT_FALSE(IsReservedWord(name)) << name;
  for (const char* name : {"Bet Smith", "Big Al", "Jean-Luc", "IF"})
    EXPECT_TRUE(IsReservedWord(name)) << name;
  auto game = std::make_unique<Game>();
  std::string name = "Lucky Point";
  EXPECT_TRUE(RefuseReservedName(*game, name));
  EXPECT_EQ(name, kReservedNameMarker);
  EXPECT_EQ(
      game->msg.MsgText,
      "Unfortunately, \"Lucky Point\" contains a word, phrase, or symbol used in auto-betting "
      "and therefore can't be used as a player's name.\r\rPlease enter a different name.\r\r");
  name = "Lucky";
  EXPECT_FALSE(RefuseReservedName(*game, name));
  EXPECT_EQ(name, "Lucky");
}

// The signature filter must never skip a row that a plain search would apply.
TEST(Vocabulary, FilteredApplicationEqualsTryingEveryRow) {
  const auto& rows = StaticVocabulary();
  std::vector<std::string> words = script_test::VocabularyWords();
  for (const char* w : {"5", "1.3", "x", "the", "a", "of", "is", "not", "+", "-", "(", ")", ","})
    words.push_back(w);
  std::mt19937 rng(7);
  for (int n = 0; n < 2000; ++n) {
    std::string work = " ";
    for (int k = 1 + static_cast<int>(rng() % 8); k > 0; --k)
      work += words[rng() % words.size()] + " ";
    std::string expect = work;
    for (const auto& row : rows) {
      bool any = false;
      std::size_t from = 0;
      for (std::size_t pos; (pos = expect.find(row.Key, from)) != std::string::npos;) {
        expect.replace(pos, row.Key.size(), row.Code);
        any = true;
        from = row.codeHoldsKey ? pos + row.Code.size() : 0;
      }
      if (any) SqueezeBlanks(expect);
    }
    std::string shadow = work;
    ApplyVocabulary(work, shadow, {});
    ASSERT_EQ(work, expect);
  }
}

// The generated check stack rows: the spaced forms come before " cs " and the
// dotted ones after " cs.", so that the numbered form wins.
TEST(Vocabulary, GeneratedCheckStackRowsComeInPrecedenceOrder) {
  const auto& rows = StaticVocabulary();
  auto find = [&](std::string_view key) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].Key == key) return i;
    ADD_FAILURE() << "no row [" << key << "]";
    return std::size_t{0};
  };
  EXPECT_EQ(rows[find(" cs7.")].Code, " V107.");
  EXPECT_LT(find(" cs5 "), find(" cs "));
  EXPECT_GT(find(" cs5."), find(" cs."));
}

// Phrases in any order give one canonical run.
TEST_F(TokenizerTest, ReferencesResolveToOneCanonicalRun) {
  const std::pair<const char*, const char*> cases[] = {
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
  for (const auto& [text, want] : cases) EXPECT_EQ(Value(text), want) << text;
}

TEST_F(TokenizerTest, GroupsExpandToTheirMembers) {
  for (const auto& [text, n] :
       {std::pair{"clear all(bets)", 85}, {"clear all(checkstacks)", 100}}) {
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

TEST_F(TokenizerTest, IndentFollowsTheNesting) {
  const char* text = "if point = 4 then\ncs1 = 1\ndo\ncs2 = 2\nloop\nelse\ncs1 = 0\nendif\ncs3 = 3";
  ASSERT_TRUE(Compile(*game, text, 2).ok);
  EXPECT_TRUE(game->scriptCode.SlotCompiled[2]);
  auto lines = script_test::Lines(text);
  IndentScriptLines(lines, game->scriptCode.LineIndent);
  const std::pair<int, const char*> want[] = {
      {1, "if point = 4 then"}, {2, "   cs1 = 1"}, {4, "      cs2 = 2"}, {5, "   loop"},
      {6, "else"},              {7, "   cs1 = 0"}, {8, "endif"},         {9, "cs3 = 3"}};
  for (const auto& [l, indented] : want) EXPECT_EQ(lines[l], indented) << l;
}

}  // namespace
