// The vocabulary translation: rows whose order matters, the protected
// words, the quote rules, the side-effect rows and the whole-script passes
// (golden cases in translate_cases.txt), and the rules of record kinds.
#include "script/translate.h"

#include <gtest/gtest.h>

#include <fstream>
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

// The golden cases of translate_cases.txt: lines through the replacement
// table, and groups of lines through the whole-script passes.
TEST(TranslateTable, TheGoldenCasesGiveTheirLines) {
  std::ifstream in(std::string(RAVELTON_SOURCE_DIR) + "/tests/script/translate_cases.txt");
  std::vector<std::pair<std::string, Lines>> groups;  // kind, then the lines of text
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('|') && !groups.empty())
      groups.back().second.push_back(line.substr(0, line.size() - 1));
    else if (!line.empty() && line[0] != '#')
      groups.push_back({line, {}});
  }
  int table = 0, passes = 0;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const auto& [kind, lines] = groups[i];
    if (kind == "table") {
      for (std::size_t k = 0; k + 1 < lines.size(); k += 2, ++table) {
        std::string line = lines[k];
        ApplyReplacementTable(line);
        EXPECT_EQ(line, lines[k + 1]) << lines[k];
      }
    } else if (kind == "passes" && i + 1 < groups.size() && groups[i + 1].first == "->") {
      EXPECT_EQ(Passes(lines), groups[i + 1].second) << lines.front();
      ++passes;
    }
  }
  EXPECT_GE(table, 18);
  EXPECT_EQ(passes, 3);
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

TEST(TranslatePasses, OldWordsThroughTableAndPasses) {
  // From the old words through table and passes.
  EXPECT_EQ(TranslateLegacyScript(std::vector<LegacyRecord>{
                Rec("if a 7 has rolled each", 0), Rec(" a 6 has rolled more than each", 0)}),
            (Lines{"dice total = if 7 ", " # of rolls 6 >  0"}));
}

}  // namespace
