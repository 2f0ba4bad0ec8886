// The tokenizer: line tidying, the phrase table's precedence, strings and
// comments, player names and reserved words; statement marks and the
// messages for unknown words are pinned by the case scripts.
#include "script/tokenizer.h"

#include <gtest/gtest.h>

#include <random>

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

}  // namespace
