// Seeded random scripts from table words, numbers and junk: the compiler must
// neither crash nor leave a broken stream, and every failure has a message
// and a span. Run it in the sanitizer build too.
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <random>

#include "script/tokenizer.h"
#include "script_grammar.h"
#include "script_test_util.h"

namespace {

// Every link of a compiled stream points at an element of the right kind.
void ExpectLinksSound(const ScriptCode& code) {
  const auto& s = code.CompiledScript;
  ASSERT_GE(s.size(), 3u);
  EXPECT_EQ(s[1].Kind, kHead);
  EXPECT_TRUE(IsMark(s.back()));
  auto kindAt = [&](double v) {
    return v >= 0 && v < static_cast<double>(s.size()) ? s[static_cast<std::size_t>(v)].Kind : 999;
  };
  for (std::size_t i = 0; i < s.size(); ++i) {
    const auto k = s[i].Kind, to = kindAt(s[i].Value);
    if (k == kThen) {
      EXPECT_TRUE(to == kElse || to == kElseIf || to == kEndIf);
    } else if (k == kElse || k == kElseIf) {
      EXPECT_EQ(to, kEndIf);
    } else if (k == kDo || k == kExitDo) {
      EXPECT_EQ(to, kLoop);
    } else if (k == kLoop) {
      EXPECT_EQ(to, kDo);
    } else if (k == kGoTo || k == kGoSub) {
      EXPECT_TRUE(i + 1 < s.size() && kindAt(s[i + 1].Value) == kLabel);
    }
  }
}

struct Outcome {
  int passed = 0, pastTokenizer = 0;
};

// Compiles `count` scripts of `make` into random slots (0..8, the empty
// slot 0 included) and checks each outcome; with `tidyTwice`, also that a
// second tidying of each line changes nothing (the editor tidies tidied
// lines). Stops at the first bad script.
Outcome CompileMany(int count, std::mt19937& rng, const std::function<std::string()>& make,
                    bool mustPass, bool tidyTwice) {
  Outcome out;
  auto game = std::make_unique<Game>();
  game->PlayerName[2] = "Pat";
  for (int n = 0; n < count && !::testing::Test::HasFailure(); ++n) {
    const std::string text = make();
    const std::vector<std::string> lines = script_test::Lines(text);
    const auto error = CompileScript(*game, static_cast<int>(rng() % 9), lines);
    if (!error) {
      ++out.passed;
      ExpectLinksSound(game->scriptCode);
    } else {
      out.pastTokenizer += error->message.rfind("Unknown", 0) != 0;
      EXPECT_FALSE(mustPass) << error->message;
      EXPECT_FALSE(error->message.empty());
      EXPECT_EQ(error->message, game->msg.MsgText);
      EXPECT_LE(error->line, error->endLine);
      EXPECT_LT(error->line, static_cast<int>(lines.size()) + 1);
    }
    for (std::string once : tidyTwice ? lines : std::vector<std::string>{}) {
      TidyScriptLine(once);
      std::string twice = once;
      TidyScriptLine(twice);
      EXPECT_EQ(twice, once);
    }
    if (::testing::Test::HasFailure()) ADD_FAILURE() << "script #" << n << ":\n" << text;
  }
  return out;
}

TEST(CompileFuzz, RandomTextNeverBreaksTheCompiler) {
  auto words = script_test::VocabularyWords();
  std::istringstream extra(
      "if|then|else|elseif|endif|do|loop|exitdo|goto|gosub|return|:|(|)|[|]|,|\"|'|\"x\"|5|1.3|-|"
      "+|=|cs1|csn2|any(|all(|Pat|0|100|\t");
  for (std::string w; std::getline(extra, w, '|');) words.insert(words.end(), 6, w);
  std::mt19937 rng(20261122);
  const Outcome out = CompileMany(
      3000, rng,
      [&] {
        std::string line;
        for (int l = static_cast<int>(rng() % 12); l > 0; --l, line += '\n') {
          for (int w = static_cast<int>(rng() % 10); w > 0; --w) {
            const unsigned pick = rng() % 10;
            if (pick == 0)
              line += std::to_string(static_cast<int>(rng() % 200) - 50);
            else if (pick == 1)
              line += static_cast<char>(rng() % 256);
            else
              line += words[rng() % words.size()];
            if (rng() % 4) line += ' ';
          }
        }
        return line;
      },
      false, true);
  EXPECT_GT(out.passed, 0);  // empty scripts at least
}

// Fragments of real statements, so that most scripts get past the tokenizer
// and reach the later passes.
TEST(CompileFuzz, RandomStatementShapesNeverBreakTheCompiler) {
  std::vector<std::string> fragments;
  std::istringstream table(
      "if|then|else|elseif|endif|do|loop|exitdo|goto 10|gosub \"x\"|return|:|:10:|:\"x\":|(|)|,|"
      "cs1|cs2|csn1|cs(3)|place6|place(8)|1e300|123456789012345|:1e300:|passline|point|"
      "# of rolls|# of rolls 7|bankroll|wins|wagers|last hand|current session|player2|shooter|"
      "bettor|=|<>|>|is not|+|-|*|/|&|and|or|not|xor|5|1.3|-2|\"text\"|any(|all(|place bets|"
      "bets|checkstacks|highest(|sum(|left$(|mid$(|instr(|len(|sqr(|bet 10 on|clear|swap|"
      "show message|play sound|pass the dice|atm deposit|playback dice roll file|from roll|"
      "round to the nearest|add|to|autotake full odds|seed|minimum bet|dice total|total $|net|"
      "current $");
  for (std::string f; std::getline(table, f, '|');) fragments.push_back(f);
  std::mt19937 rng(77);
  const Outcome out = CompileMany(
      4000, rng,
      [&] {
        std::string text;
        for (int l = 1 + static_cast<int>(rng() % 8); l > 0; --l, text += '\n')
          for (int w = 1 + static_cast<int>(rng() % 9); w > 0; --w)
            text += fragments[rng() % fragments.size()] + " ";
        return text;
      },
      false, false);
  EXPECT_GT(out.passed, 0);
  EXPECT_GT(out.pastTokenizer, 2000);
}

TEST(CompileFuzz, WellFormedScriptsAlwaysCompile) {
  std::mt19937 rng(31);
  CompileMany(
      500, rng, [&] { return script_test::Expand(script_test::kGrammar, 'B', 0, rng); }, true,
      true);
}

// A hostile file may hold one enormous line: it must compile in reasonable
// time (each statement is 7 elements and a mark).
TEST(CompileFuzz, VeryLongLinesCompile) {
  std::string line;
  for (int i = 0; i < 20000; ++i) line += "cs1 = cs1+1 : ";
  auto game = std::make_unique<Game>();
  const auto error =
      CompileScript(*game, 1, {"", line, std::string(100000, ' ') + std::string(50000, '(')});
  ASSERT_TRUE(error);
  EXPECT_EQ(error->message, "Missing or improperly placed parenthesis.");
  EXPECT_EQ(error->line, 2);
  EXPECT_FALSE(CompileScript(*game, 1, {"", line}));
  EXPECT_EQ(game->scriptCode.CompiledScript.size(), 3u + 20000 * 8);
}

}  // namespace
