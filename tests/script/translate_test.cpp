// The vocabulary translation: rows whose order matters, the protected
// words, the quote rules, the five side-effect rows, the rules of record
// kinds and the whole-script passes.
#include "script/translate.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

std::string Table(std::string line) {
  ApplyReplacementTable(line);
  return line;
}

LegacyRecord Rec(std::string text, std::int16_t kind = 0) {
  LegacyRecord r;
  r.text = std::move(text);
  r.kind = kind;
  return r;
}

std::vector<std::string> Passes(std::vector<std::string> lines) {
  TranslatePasses(lines);
  return lines;
}

TEST(TranslateTable, RowsAreLowerCaseAndLongerPhrasesComeFirst) {
  auto rows = ReplacementTable();
  ASSERT_FALSE(rows.empty());
  for (const Replacement& r : rows) {
    EXPECT_FALSE(r.key.empty());
    EXPECT_EQ(LowerAscii(r.key), r.key) << r.key;
  }
  // A phrase that holds an earlier phrase would never be seen: check that
  // the table has no such shadowed row among the number phrases.
  auto index = [&](std::string_view key) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].key == key) return static_cast<int>(i);
    return -1;
  };
  EXPECT_LT(index("number 4 (1.3) or (3.1)"), index("number 4 (1.3)"));
  EXPECT_LT(index("has rolled more than each"), index("has rolled more than"));
  EXPECT_LT(index("total place bets number more than"), index("total place bets"));
  EXPECT_LT(index("go to"), index("\"for\""));
  EXPECT_LT(index("invoke \"show steps\""), index("shooter's point"));
}

TEST(TranslateTable, OrderDependentRows) {
  // "a hard 4 " must win over "hard 4", and "hard 4 (2.2)" over "hard 4".
  EXPECT_EQ(Table("if a hard 4 rolls "), "if 2.2 ");
  EXPECT_EQ(Table("if hard 4 (2.2) "), "if 2.2 ");
  EXPECT_EQ(Table("if hard 4 "), "if Hard4 ");
  EXPECT_EQ(Table("if number 4 (1.3) or (3.1) "), "if any(1.3, 3.1) ");
  // "stack #" runs before "chip stack", so both end as one word.
  EXPECT_EQ(Table("bet 5 on chip stack #4 "), "bet 5 on CheckStack4 ");
  // "pass line" is taken before "don't" becomes "dont", and "dont pass"
  // then matches the start of "PassLine".
  EXPECT_EQ(Table("bet 5 on don't pass line "), "bet 5 on DontPassLine ");
  // Colons go first of all; case is ignored when matching.
  EXPECT_EQ(Table("Bet 5 On PASS LINE: "), "Bet 5 On PassLine ");
}

TEST(TranslateTable, ProtectedWordsSurviveLaterRows) {
  // "r*lls" hides the word from " rolls " until "r*ll" turns it back.
  EXPECT_EQ(Table("if game rolls > 5 "), "if # of rolls > 5 ");
  EXPECT_EQ(Table("x rolls y "), "x y ");
  // " and when " is not taken by " when ": the w**n mark hides it.
  EXPECT_EQ(Table("x and when y "), "x and 'and when y ");
  EXPECT_EQ(Table("x when y "), "x If 'When y ");
}

TEST(TranslateTable, QuotedTextIsLeftAloneAndQuotesAreReduced) {
  EXPECT_EQ(Table("display message \"reset table: don't pass\" "),
            "Show Message \"reset table: don't pass\" ");
  EXPECT_EQ(Table("display message \"a \"b\" c\" "), "Show Message \"a 'b' c\" ");
  std::string one = "x \"";
  QuoteStep(one);
  EXPECT_EQ(one, "x \"");
  // The rows whose keys hold quotes take the quotes off.
  EXPECT_EQ(Table("bet \"for\" "), "bet FOR ");
  EXPECT_EQ(Table("if answer is \"yes\" "), "if answer is YES ");
  EXPECT_EQ(Table("invoke \"show steps\" "), "Show steps ");
  EXPECT_EQ(Table("x is \"for' or 'against\" "), "x is FOR or AGAINST ");
}

// Whatever old words stand before a quote, the quoted text comes out as it
// went in. Rows with a side effect or quotes in their keys are left out:
// they may reach behind the quote by their own rules.
TEST(TranslateTable, RandomLinesKeepTheirQuotedText) {
  std::vector<std::string_view> keys;
  for (const Replacement& r : ReplacementTable())
    if (r.effect == ReplaceEffect::kNone && r.key.find('"') == std::string_view::npos)
      keys.push_back(r.key);
  std::mt19937 rng(7);
  for (int iter = 0; iter < 2000; ++iter) {
    auto words = [&] {
      std::string s;
      for (int n = static_cast<int>(rng() % 6); n > 0; --n) s += keys[rng() % keys.size()];
      return s;
    };
    std::string quoted = "\"" + words() + "\" ";
    std::string line = words() + " " + quoted;
    ApplyReplacementTable(line);
    ASSERT_GE(line.size(), quoted.size());
    EXPECT_EQ(line.substr(line.size() - quoted.size()), quoted) << line;
    EXPECT_EQ(line.find('"'), line.size() - quoted.size()) << line;
  }
}

TEST(TranslateTable, SideEffectRows) {
  // The word list of highest/lowest/average is closed before " on ", " to ", " from ".
  EXPECT_EQ(Table("bet highest of 5, 10 on place 6 "), "bet Highest(5, 10) on Place6 ");
  EXPECT_EQ(Table("x lowest of a, b to c "), "x Lowest(a, b) to c ");
  EXPECT_EQ(Table("x average of a, b from c "), "x Average(a, b) from c ");
  EXPECT_EQ(Table("x average of a, b "), "x Average(a, b ");
  // " ref #" and " ref " close their CheckStack; " ref#" does not.
  EXPECT_EQ(Table("bet 5 on ref #3 now "), "bet 5 on(CheckStack3) now ");
  EXPECT_EQ(Table("bet 5 on ref 3 now "), "bet 5 on(CheckStack3) now ");
  EXPECT_EQ(Table("bet 5 on ref#3 now "), "bet 5 on(CheckStack3 now ");
  // "is named" names the first CheckStack and blanks what stood before it.
  EXPECT_EQ(Table("if chip-stack ref #3 is named \"Joe\" "),
            "   CheckStackName(CheckStack3) = \"Joe\" ");
  EXPECT_EQ(Table("if chip-stack ref #3 is not named \"Joe\" "),
            "   CheckStackName(CheckStack3) <> \"Joe\" ");
  // One row, several matches: the search goes on behind each insertion.
  Replacement ref{" ref ", "(CheckStack", ReplaceEffect::kCloseRef};
  std::string two = "a ref 1 b ref 2";
  ApplyReplacement(two, ref);
  EXPECT_EQ(two, "a(CheckStack1) b(CheckStack2)");
}

TEST(TranslateRecords, KindsShapeTheLines) {
  std::vector<LegacyRecord> recs = {
      Rec("bet 5 on pass line   ", 0),
      Rec("a = 1", 20),
      Rec("b = 2", 0),
      Rec("c = 3", 20),
      Rec("whatever", 13),  // dropped, and not the previous record
      Rec("d = 4", 0),
      Rec("  Loop Start  ", 90),
      Rec("  keep: \"as\" is   ", 99),
  };
  LegacyRecord nul = Rec("bet 9 on pass line", 0);
  nul.startsWithNul = true;
  recs.insert(recs.begin() + 1, nul);
  auto lines = TranslateRecords(recs);
  std::vector<std::string> want = {
      "bet 5 on PassLine",
      "a = 1 ",  // " and" appended, then "and" cut by the next record
      "b = 2",
      "c =",  // the kind 13 record and the one after it both cut
      "d = 4",
      " :\"Loop Start\":",
      "  keep: \"as\" is",
  };
  EXPECT_EQ(lines, want);
  // A label's text is quoted and then reduced to two quotes.
  auto label = TranslateRecords(std::vector<LegacyRecord>{Rec("a\"b\"c", 90)});
  EXPECT_EQ(label, std::vector<std::string>{" :\"a'b'c\":"});
}

TEST(TranslateRecords, ConditionalRunsGetTheirEndIf) {
  auto lines = TranslateRecords(std::vector<LegacyRecord>{
      Rec("x = 1", 1), Rec("y = 2", 30), Rec("y = 3", 30), Rec("z = 4", 0), Rec("w = 1", 2),
      Rec("v = 2", 30), Rec("else", 12), Rec("u = 3", 30)});
  std::vector<std::string> want = {"x = 1", "y = 2 :", "y = 3 :", " EndIf",  "z = 4",
                                   "w = 1", "v = 2 :", "else",    "u = 3 :", " EndIf"};
  EXPECT_EQ(lines, want);
  EXPECT_TRUE(TranslateRecords({}).empty());
}

TEST(TranslatePasses, DiceTotalMarks) {
  auto lines = Passes({"  Die1 Face3 = dice total x", "  6.1 = dice total", "  7 = dice total",
                       "  any(2, 3) <> dice total", "  'a 7 = dice total"});
  EXPECT_EQ(lines[0], "  Die1 = 3 x");
  EXPECT_EQ(lines[1], "  dice combo = 6.1 ");
  EXPECT_EQ(lines[2], "  dice total = 7 ");
  EXPECT_EQ(lines[3], "  dice total <> all(2, 3) ");
  EXPECT_EQ(lines[4], "  'a 7 = dice total");
  // Straight from the old words through table and passes.
  std::string line = "if a 7 has rolled each ";
  ApplyReplacementTable(line);
  EXPECT_EQ(Passes({line}), std::vector<std::string>{"dice total = if 7  "});
}

TEST(TranslatePasses, RollCountMarks) {
  auto lines = Passes(
      {" 7 *1 5", " any(4, 10) *2 3", " 6 *3 0", " any(2, 3, 12) *4 2", " 8 *5 1", " 9 *6 4"});
  EXPECT_EQ(lines[0], " # of rolls since 7 <= 5");
  EXPECT_EQ(lines[1], " all(# of rolls since 4,# of rolls since  10) >  3");
  EXPECT_EQ(lines[2], " # of rolls 6 >  0");
  EXPECT_EQ(lines[3], " sum(# of rolls 2,# of rolls  3,# of rolls  12) <  2");
  EXPECT_EQ(lines[4], " # of rolls 8 <> 1");
  EXPECT_EQ(lines[5], " # of rolls 9 =  4");
  // "has rolled more than each" is a comparison with zero.
  std::string line = " a 6 has rolled more than each ";
  ApplyReplacementTable(line);
  EXPECT_EQ(line, " 6 *3 0 ");
  EXPECT_EQ(Passes({line}), std::vector<std::string>{" # of rolls 6 >  0 "});
}

TEST(TranslatePasses, OutputAndRound) {
  auto lines = Passes({"Output to file x", "output to file y :", "Output to file new line",
                       "Output to file z new line :", "  round bet down to the nearest 5 :",
                       "round x to the nearest 1", "round y"});
  EXPECT_EQ(lines[0], "Output to file x & tab");
  EXPECT_EQ(lines[1], "output to file y & tab :");
  EXPECT_EQ(lines[2], "Output to file new line");
  EXPECT_EQ(lines[3], "Output to file z new line :");
  EXPECT_EQ(lines[4], "  Round down to the nearest 5 on bet :");
  EXPECT_EQ(lines[5], "Round to the nearest 1 on x");
  EXPECT_EQ(lines[6], "round y");
}

TEST(TranslatePasses, MessagesJoinTheirNeighbours) {
  auto lines = Passes({"Show Message \"How much\" :", "Bet input()", "Show Message \"a\";",
                       "Bet input(5)", "Show Message \"one\"", "Show Message \"two\";",
                       "Show Message \"three\"", "Yes/No question \"q\"", "Yes/No question \"r\""});
  std::vector<std::string> want = {"Bet input( \"How much\" & cr", "          )",
                                   "Bet input( \"a\" &",           "          5)",
                                   "Show Message \"one\" & cr &",  "             \"two\" &",
                                   "             \"three\"",       "Yes/No question \"q\" & cr &",
                                   "                \"r\""};
  EXPECT_EQ(lines, want);
}

TEST(TranslatePasses, MergesAndColons) {
  auto lines = Passes({"bet Highest(1) on Place6", "bet Highest(2) on place6 ",
                       "bet Highest(3) on Place8", "set Lowest(4) to x", "bet Lowest(5) to x",
                       "If x :", "  y :", "EndIf", "z :", "  else"});
  std::vector<std::string> want = {"bet Highest(1,2) on Place6",
                                   "bet Highest(3) on Place8",
                                   "set Lowest(4) to x",
                                   "bet Lowest(5) to x",
                                   "If x :",
                                   "  y ",
                                   "EndIf",
                                   "z ",
                                   "  else"};
  EXPECT_EQ(lines, want);
}

}  // namespace
