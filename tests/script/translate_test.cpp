// The vocabulary translation: rows whose order matters, the protected
// words, the quote rules, the side-effect rows, the rules of record kinds
// and the whole-script passes.
#include "script/translate.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

LegacyRecord Rec(const char* text, std::int16_t kind, bool nul = false) {
  return {text, kind, nul};
}

Lines Passes(Lines lines) {
  TranslatePasses(lines);
  return lines;
}

TEST(TranslateTable, OldWordsBecomeNewOnes) {
  const char* const cases[][2] = {
      // Longer phrases must win over the shorter ones they hold.
      {"if a hard 4 rolls ", "if 2.2 "},
      {"if hard 4 ", "if Hard4 "},
      {"if number 4 (1.3) or (3.1) ", "if any(1.3, 3.1) "},
      // "stack #" runs before "chip stack", so both end as one word.
      {"bet 5 on chip stack #4 ", "bet 5 on CheckStack4 "},
      // "pass line" is taken before "don't" becomes "dont", and "dont pass"
      // then matches the start of "PassLine".
      {"bet 5 on don't pass line ", "bet 5 on DontPassLine "},
      // Colons go first of all; case is ignored when matching.
      {"Bet 5 On PASS LINE: ", "Bet 5 On PassLine "},
      // Marked words hide from later rows until they are turned back.
      {"if game rolls > 5 ", "if # of rolls > 5 "},
      {"x and when y ", "x and 'and when y "},
      {"x when y ", "x If 'When y "},
      // Quoted text is left alone, inner quotes become apostrophes, and rows
      // whose keys hold quotes take the quotes off.
      {"display message \"reset table: don't pass\" ", "Show Message \"reset table: don't pass\" "},
      {"display message \"a \"b\" c\" ", "Show Message \"a 'b' c\" "},
      {"bet \"for\" ", "bet FOR "},
      {"x is \"for' or 'against\" ", "x is FOR or AGAINST "},
      {"invoke \"show steps\" ", "Show steps "},
      // A list is closed before " on ", " to " or " from ", if there is one.
      {"bet highest of 5, 10 on place 6 ", "bet Highest(5, 10) on Place6 "},
      {"x average of a, b from c ", "x Average(a, b) from c "},
      {"x average of a, b ", "x Average(a, b "},
      // " ref #" and " ref " close their CheckStack, each match on its own;
      // " ref#" does not.
      {"bet 5 on ref #3 now ", "bet 5 on(CheckStack3) now "},
      {"a ref 1 b ref 2 ", "a(CheckStack1) b(CheckStack2) "},
      {"bet 5 on ref#3 now ", "bet 5 on(CheckStack3 now "},
      // "is named" names the first CheckStack and blanks what stood before it.
      {"if chip-stack ref #3 is named \"Joe\" ", "   CheckStackName(CheckStack3) = \"Joe\" "},
  };
  for (const auto& [old, now] : cases) {
    std::string line = old;
    ApplyReplacementTable(line);
    EXPECT_EQ(line, now) << old;
  }
}

// Whatever old words stand before a quote, the quoted text comes out as it
// went in. Rows with a side effect or quotes in their keys are left out:
// they may reach behind the quote by their own rules.
TEST(TranslateTable, RandomLinesKeepTheirQuotedText) {
  std::vector<std::string_view> keys;
  for (const Replacement& r : ReplacementTable()) {
    EXPECT_EQ(LowerCase(r.key), r.key) << "a key with capitals never matches";
    if (r.effect == ReplaceEffect::kNone && r.key.find('"') == std::string_view::npos)
      keys.push_back(r.key);
  }
  std::mt19937 rng(7);
  auto words = [&](std::string s) {
    for (int n = static_cast<int>(rng() % 6); n > 0; --n) s += keys[rng() % keys.size()];
    return s;
  };
  for (int iter = 0; iter < 2000; ++iter) {
    const std::string quoted = words("\"") + "\" ";
    std::string line = words("") + " " + quoted;
    ApplyReplacementTable(line);
    ASSERT_GE(line.size(), quoted.size());
    EXPECT_EQ(line.substr(line.size() - quoted.size()), quoted) << line;
    EXPECT_EQ(line.find('"'), line.size() - quoted.size()) << line;
  }
}

TEST(TranslateRecords, KindsShapeTheLines) {
  const Lines lines = TranslateRecords(std::vector<LegacyRecord>{
      Rec("bet 5 on pass line   ", 0), Rec("bet 9 on pass line", 0, true), Rec("a = 1", 20),
      Rec("b = 2", 0), Rec("c = 3", 20), Rec("whatever", 13), Rec("d = 4", 0),
      Rec("  a\"b\"c  ", 90), Rec("  keep: \"as\" is   ", 99), Rec("x = 1", 1), Rec("y = 2", 30),
      Rec("y = 3", 30), Rec("z = 4", 0), Rec("w = 1", 2), Rec("v = 2", 30), Rec("else", 12),
      Rec("u = 3", 30)});
  const Lines want = {"bet 5 on PassLine",  // the record starting with a NUL is skipped
                      "a = 1 ",             // " and" appended, then "and" cut by the next record
                      "b = 2",
                      "c =",  // the kind 13 record is dropped, and the one after it cuts again
                      "d = 4", " :\"a'b'c\":", "  keep: \"as\" is",
                      // A conditional's run of kind 30 ends in EndIf, unless an Else follows.
                      "x = 1", "y = 2 :", "y = 3 :", " EndIf", "z = 4", "w = 1", "v = 2 :", "else",
                      "u = 3 :", " EndIf"};
  EXPECT_EQ(lines, want);
}

TEST(TranslatePasses, MarksAndNeighboursBecomeStatements) {
  // Line by line: dice-total and roll-count marks, output and rounding.
  EXPECT_EQ(Passes({"  Die1 Face3 = dice total x", "  6.1 = dice total", "  7 = dice total",
                    "  any(2, 3) <> dice total", "  'a 7 = dice total", " 7 *1 5",
                    " any(4, 10) *2 3", " 6 *3 0", " any(2, 3, 12) *4 2", " 8 *5 1", " 9 *6 4"}),
            (Lines{"  Die1 = 3 x", "  dice combo = 6.1 ", "  dice total = 7 ",
                   "  dice total <> all(2, 3) ", "  'a 7 = dice total", " # of rolls since 7 <= 5",
                   " all(# of rolls since 4,# of rolls since  10) >  3", " # of rolls 6 >  0",
                   " sum(# of rolls 2,# of rolls  3,# of rolls  12) <  2", " # of rolls 8 <> 1",
                   " # of rolls 9 =  4"}));
  EXPECT_EQ(Passes({"Output to file x", "output to file y :", "Output to file new line",
                    "Output to file z new line :", "  round bet down to the nearest 5 :",
                    "round x to the nearest 1", "round y"}),
            (Lines{"Output to file x & tab", "output to file y & tab :", "Output to file new line",
                   "Output to file z new line :", "  Round down to the nearest 5 on bet :",
                   "Round to the nearest 1 on x", "round y"}));
  // Across lines: prompts and messages joined, lists merged, colons dropped.
  EXPECT_EQ(
      Passes({"Show Message \"How much\" :", "Bet input()", "Show Message \"a\";", "Bet input(5)",
              "Show Message \"one\"", "Show Message \"two\";", "Show Message \"three\"",
              "Yes/No question \"q\"", "Yes/No question \"r\"", "bet Highest(1) on Place6",
              "bet Highest(2) on place6 ", "bet Highest(3) on Place8", "set Lowest(4) to x",
              "bet Lowest(5) to x", "If x :", "  y :", "EndIf", "z :", "  else"}),
      (Lines{"Bet input( \"How much\" & cr", "          )", "Bet input( \"a\" &", "          5)",
             "Show Message \"one\" & cr &", "             \"two\" &", "             \"three\"",
             "Yes/No question \"q\" & cr &", "                \"r\"", "bet Highest(1,2) on Place6",
             "bet Highest(3) on Place8", "set Lowest(4) to x", "bet Lowest(5) to x",
             "If x :", "  y ", "EndIf", "z ", "  else"}));
  // From the old words through table and passes.
  EXPECT_EQ(TranslateLegacyScript(std::vector<LegacyRecord>{
                Rec("if a 7 has rolled each", 0), Rec(" a 6 has rolled more than each", 0)}),
            (Lines{"dice total = if 7 ", " # of rolls 6 >  0"}));
}

}  // namespace
