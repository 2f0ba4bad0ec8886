// The tokenizer: line tidying, the phrase table's precedence, strings and
// comments, player names, reserved words, statement marks and word errors.
#include "script/tokenizer.h"

#include <gtest/gtest.h>

#include <random>

#include "script/compile_common.h"
#include "script/vocabulary.h"
#include "script_test_util.h"

using script_test::BodyText;
using script_test::Compile;

namespace {

std::string Tidy(std::string s) {
  TidyScriptLine(s);
  return s;
}

struct TokenizerTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  std::string Tokens(std::string_view text) {
    std::vector<std::string> lines = script_test::Lines(text);
    int line = 0, col = 0;
    std::string name;
    game->scriptCode.StringPool.assign(1, {});
    TokenizeScript(*game, 1, lines, line, col, name);
    EXPECT_EQ(line, 0) << game->msg.MsgText;
    return BodyText(*game);
  }
};

TEST(TidyScriptLine, SpacesOperatorsAndJoinsWhatBelongsTogether) {
  EXPECT_EQ(Tidy("x=5"), "x = 5 ");
  EXPECT_EQ(Tidy("if a<=b then"), "if a <= b then ");
  EXPECT_EQ(Tidy("x = a=>b"), "x = a => b ");
  EXPECT_EQ(Tidy("a><b"), "a < b ");
  EXPECT_EQ(Tidy("a:b"), "a : b ");
  EXPECT_EQ(Tidy("a::b"), "a : b ");
  EXPECT_EQ(Tidy("   indented  x"), "   indented x ");
  EXPECT_EQ(Tidy("go to 10"), "goto 10 ");
  EXPECT_EQ(Tidy("End If"), "EndIf ");
  EXPECT_EQ(Tidy("$ 5"), "$5 ");
}

TEST(TidyScriptLine, SignsAndBrackets) {
  EXPECT_EQ(Tidy("x=-5"), "x = -5 ");
  EXPECT_EQ(Tidy("5--3"), "5 + 3 ");
  EXPECT_EQ(Tidy("5+-3"), "5 - 3 ");
  EXPECT_EQ(Tidy("x = +5"), "x = 5 ");
  EXPECT_EQ(Tidy("cs1=(-5)"), "cs1 = (-5) ");
  EXPECT_EQ(Tidy("place(6)"), "place(6) ");
  EXPECT_EQ(Tidy("any( 4 ,5 )"), "any(4, 5) ");
  // After a keyword the bracket keeps its blank.
  EXPECT_EQ(Tidy("if (a)"), "if (a) ");
  EXPECT_EQ(Tidy("a and(b)"), "a and (b) ");
}

TEST(TidyScriptLine, NumbersTakeTheFormatOfADouble) {
  EXPECT_EQ(Tidy("007"), "7 ");
  EXPECT_EQ(Tidy("cs1 = 1.50,2"), "cs1 = 1.5, 2 ");
  EXPECT_EQ(Tidy("cs1 = .5"), "cs1 = 0.5 ");
}

TEST(TidyScriptLine, QuotesAndCommentsAreLeftAlone) {
  EXPECT_EQ(Tidy("show message \"a=b  c\""), "show message \"a=b  c\" ");
  EXPECT_EQ(Tidy("x=1 ' a=b  007"), "x = 1 ' a=b  007 ");
  EXPECT_EQ(Tidy("show message \"abc"), "show message \"abc\" ");
  EXPECT_EQ(Tidy("show message \"it's\"  'x"), "show message \"it's\" 'x ");
}

TEST_F(TokenizerTest, LongerPhrasesWinOverTheirParts) {
  EXPECT_EQ(Tokens("if point is not greater than 6 then"), "If:0 Var:3500 Le:0 Num:6 Then:0");
  EXPECT_EQ(Tokens("if point is not 6 then"), "If:0 Var:3500 Ne:0 Num:6 Then:0");
  EXPECT_EQ(Tokens("if point is 6 then"), "If:0 Var:3500 Eq:0 Num:6 Then:0");
  // "bet" inside "minimum bet" is never the action.
  EXPECT_EQ(Tokens("cs1 = minimum bet"), "Var:101 Eq:0 Var:3610");
  // "two" is the Two bet; the number row for it is never reached.
  EXPECT_EQ(Tokens("bet 5 on two"), "Action:481 Num:5 Eq:0 Var:56");
  EXPECT_EQ(Tokens("cs1 = one + twice"), "Var:101 Eq:0 Num:1 Add:0 Num:2");
  EXPECT_EQ(Tokens("cs1 = 10%"), "Var:101 Eq:0 Num:10 Mul:0 Num:0~");
  EXPECT_EQ(Tokens("stop autoroll/hyperdrive"), "Action:115");
  EXPECT_EQ(Tokens("cs1 = checkstack12 + csname3"), "Var:101 Eq:0 Var:112 Add:0 Var:803");
  EXPECT_EQ(Tokens("cs1 = checkstack 12"), "Var:101 Eq:0 Func:21 Num:12");
}

TEST_F(TokenizerTest, StringsGoToThePoolUntouched) {
  EXPECT_EQ(Tokens("show message \"Bet IF Point\" & \"\""), "Action:210 Str:1 Concat:0 Str:0");
  ASSERT_EQ(game->scriptCode.StringPool.size(), 2u);
  EXPECT_EQ(game->scriptCode.StringPool[1].Text, "Bet IF Point");
  EXPECT_EQ(Tokens("show message \"it's\" ' bet 5"), "Action:210 Str:1");
  EXPECT_EQ(game->scriptCode.StringPool[1].Text, "it's");
  EXPECT_EQ(Tokens("playback dice roll file \"a.rol\" from roll 5"),
            "Action:310 Str:1 Str:-15 Num:5");
  EXPECT_EQ(Tokens("cs1 = date$ & time$"), "Var:101 Eq:0 Str:-1 Concat:0 Str:-2");
}

TEST_F(TokenizerTest, TabsIndentButStayInsideStrings) {
  EXPECT_EQ(Tokens("\tbet\t5 on field\t: show message \"a\tb\""),
            "Action:481 Num:5 Eq:0 Var:49 Action:210 Str:1");
  EXPECT_EQ(game->scriptCode.StringPool[1].Text, "a\tb");
}

TEST_F(TokenizerTest, PlayerNamesAreWordsOfEveryScript) {
  game->PlayerName[3] = "Pat";
  game->PlayerName[5] = "Big Al";
  EXPECT_EQ(Tokens("if PAT bankroll > 0 then"), "If:0 Player:3 Var:654 Gt:0 Num:0 Then:0");
  // The static rows come first: "big" is already a code when the name row
  // runs, so the name can't be found and "al" is left over.
  const auto r = Compile(*game, "if big al bankroll > 0 then cs1 = 1 endif");
  EXPECT_EQ(r.msg, "Unknown or misplaced element:\r\ral\r");
}

TEST(ReservedWords, NamesThatHoldAWordOrSymbolAreRefused) {
  EXPECT_FALSE(IsReservedWord("Pat"));
  EXPECT_FALSE(IsReservedWord("Bethany"));
  EXPECT_TRUE(IsReservedWord("Bet Smith"));
  EXPECT_TRUE(IsReservedWord("Big Al"));
  EXPECT_TRUE(IsReservedWord("Jean-Luc"));
  EXPECT_TRUE(IsReservedWord("IF"));
  auto game = std::make_unique<Game>();
  std::string name = "Lucky Point";
  int line = 0, col = 0;
  TokenizeScript(*game, 1, {}, line, col, name);
  EXPECT_EQ(name, kReservedNameMarker);
  EXPECT_EQ(
      game->msg.MsgText,
      "Unfortunately, \"Lucky Point\" contains a word, phrase, or symbol used in auto-betting "
      "and therefore can't be used as a player's name.\r\rPlease enter a different name.\r\r");
  name = "Lucky";
  TokenizeScript(*game, 1, {}, line, col, name);
  EXPECT_EQ(name, "Lucky");
}

TEST_F(TokenizerTest, UnknownWordsNameTheWord) {
  struct Case {
    const char* text;
    const char* message;
  } cases[] = {
      {"cs1 = playername",
       "Unknown player\r\rPlease enter actual name of player or refer to "
       "player's position such as player1, player2, etc."},
      {"cs1 = place6 wins session",
       "Please specify:\r\rcurrent session, last session, or all sessions."},
      {"cs1 = place6 wins hand", "Please specify:\r\rcurrent hand, last hand, or all hands."},
      {"\n\ncs1 = zork", "Unknown or misplaced element:\r\rzork\r"},
  };
  for (const auto& c : cases) {
    const auto r = Compile(*game, c.text);
    EXPECT_FALSE(r.ok) << c.text;
    EXPECT_EQ(r.msg, c.message);
    EXPECT_EQ(game->msg.MsgHelpId, 0);
    EXPECT_EQ(game->msg.MsgStyle, 1);
  }
  const auto r = Compile(*game, "\n\ncs1 = zork");
  EXPECT_EQ(r.line, 3);
  EXPECT_EQ(r.col, 6);
}

TEST_F(TokenizerTest, MarksCarryLineAndColumn) {
  Tokens("cs1 = 1 : cs2 = 2\n\n  if point = 4 then cs1 = 0 else cs2 = 0 : endif");
  std::vector<std::pair<int, int>> marks;
  for (const auto& e : game->scriptCode.CompiledScript)
    if (IsMark(e)) marks.emplace_back(MarkLine(e), static_cast<int>(e.Value));
  const std::vector<std::pair<int, int>> want = {{1, 0},  {1, 8},  {3, 2},  {3, 4},  {3, 15},
                                                 {3, 19}, {3, 28}, {3, 32}, {3, 41}, {4, 0}};
  EXPECT_EQ(marks, want);
}

// The signature filter must never skip a row that a plain search would apply.
TEST(Vocabulary, FilteredApplicationEqualsTryingEveryRow) {
  const auto& rows = StaticVocabulary();
  std::mt19937 rng(7);
  std::vector<std::string> words;
  for (const auto& row : rows) {
    std::string k(TrimBlanks(row.Key));
    if (!k.empty() && !row.keyHasCode) words.push_back(k);
  }
  for (const char* w : {"5", "1.3", "x", "the", "a", "of", "is", "not", "+", "-", "(", ")", ","})
    words.push_back(w);
  for (int n = 0; n < 2000; ++n) {
    std::string work = " ";
    const int count = 1 + static_cast<int>(rng() % 8);
    for (int k = 0; k < count; ++k) work += words[rng() % words.size()] + " ";
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

TEST(Vocabulary, TableHoldsTheGeneratedCheckStackRows) {
  const auto& rows = StaticVocabulary();
  auto find = [&](std::string_view key) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].Key == key) return static_cast<long>(i);
    return -1L;
  };
  EXPECT_EQ(rows[find(" cs99 ")].Code, " V199 ");
  EXPECT_EQ(rows[find(" csn0 ")].Code, " V800 ");
  EXPECT_EQ(rows[find(" cs7.")].Code, " V107.");
  // Order is precedence: the spaced forms come before " cs " and the dotted after.
  EXPECT_LT(find(" cs5 "), find(" cs "));
  EXPECT_GT(find(" cs5."), find(" cs."));
  EXPECT_LT(find(" is not "), find(" is "));
  EXPECT_LT(find(" minimum bet "), find(" bet "));
  EXPECT_GT(rows.size(), 800u);
  EXPECT_LT(rows.size(), 1000u);
}

}  // namespace
