// Seeded random scripts from table words, numbers and junk: the compiler must
// neither crash nor leave a broken stream, and every failure has a message
// and a span. Run it in the sanitizer build too.
#include <gtest/gtest.h>

#include <random>

#include "script/compile_common.h"
#include "script/tokenizer.h"
#include "script/vocabulary.h"
#include "script_test_util.h"

namespace {

std::vector<std::string> Words() {
  std::vector<std::string> words;
  for (const auto& row : StaticVocabulary()) {
    std::string k(TrimBlanks(row.Key));
    if (!k.empty() && !row.keyHasCode) words.push_back(k);
  }
  for (const char* w :
       {"if",    "then",   "else", "elseif", "endif", "do", "loop", "exitdo", "goto",
        "gosub", "return", ":",    "(",      ")",     "[",  "]",    ",",      "\"",
        "'",     "\"x\"",  "5",    "1.3",    "-",     "+",  "=",    "cs1",    "csn2",
        "any(",  "all(",   "Pat",  "0",      "100",   "\t"})
    for (int k = 0; k < 6; ++k) words.push_back(w);
  return words;
}

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
    const auto k = s[i].Kind;
    if (k == kThen) {
      const auto t = kindAt(s[i].Value);
      EXPECT_TRUE(t == kElse || t == kElseIf || t == kEndIf);
    } else if (k == kElse || k == kElseIf) {
      EXPECT_EQ(kindAt(s[i].Value), kEndIf);
    } else if (k == kDo || k == kExitDo) {
      EXPECT_EQ(kindAt(s[i].Value), kLoop);
    } else if (k == kLoop) {
      EXPECT_EQ(kindAt(s[i].Value), kDo);
    } else if (k == kGoTo || k == kGoSub) {
      ASSERT_LT(i + 1, s.size());
      EXPECT_EQ(kindAt(s[i + 1].Value), kLabel);
    }
  }
}

TEST(CompileFuzz, RandomTextNeverBreaksTheCompiler) {
  const auto words = Words();
  std::mt19937 rng(20261122);
  auto game = std::make_unique<Game>();
  game->PlayerName[2] = "Pat";
  int passed = 0;
  for (int n = 0; n < 3000; ++n) {
    std::vector<std::string> lines(1);
    const int lineCount = static_cast<int>(rng() % 12);
    for (int l = 0; l < lineCount; ++l) {
      std::string line;
      const int count = static_cast<int>(rng() % 10);
      for (int w = 0; w < count; ++w) {
        switch (rng() % 10) {
          case 0:
            line += std::to_string(static_cast<int>(rng() % 200) - 50);
            break;
          case 1:
            line += static_cast<char>(rng() % 256);
            break;
          default:
            line += words[rng() % words.size()];
        }
        if (rng() % 4) line += ' ';
      }
      lines.push_back(line);
    }
    int line = 0, col = 0, endLine = 0, endCol = 0;
    const int slot = static_cast<int>(rng() % 9);
    CompileScript(*game, slot, lines, line, col, endLine, endCol);
    if (line == 0) {
      ++passed;
      ExpectLinksSound(game->scriptCode);
    } else {
      EXPECT_FALSE(game->msg.MsgText.empty());
      EXPECT_GE(endLine, 1);
      EXPECT_LE(line, lineCount + 1);
    }
    if (HasFailure()) {
      std::string text;
      for (std::size_t l = 1; l < lines.size(); ++l) text += lines[l] + "\n";
      FAIL() << "script #" << n << ":\n" << text;
    }
  }
  // Some random scripts (empty ones at least) must compile.
  EXPECT_GT(passed, 0);
}

// Fragments of real statements, so that most scripts get past the tokenizer
// and reach the later passes.
const char* const kFragments[] = {"if",
                                  "then",
                                  "else",
                                  "elseif",
                                  "endif",
                                  "do",
                                  "loop",
                                  "exitdo",
                                  "goto 10",
                                  "gosub \"x\"",
                                  "return",
                                  ":",
                                  ":10:",
                                  ":\"x\":",
                                  "(",
                                  ")",
                                  ",",
                                  "cs1",
                                  "cs2",
                                  "csn1",
                                  "cs(3)",
                                  "place6",
                                  "place(8)",
                                  "1e300",
                                  "123456789012345",
                                  ":1e300:",
                                  "passline",
                                  "point",
                                  "# of rolls",
                                  "# of rolls 7",
                                  "bankroll",
                                  "wins",
                                  "wagers",
                                  "last hand",
                                  "current session",
                                  "player2",
                                  "shooter",
                                  "bettor",
                                  "=",
                                  "<>",
                                  ">",
                                  "is not",
                                  "+",
                                  "-",
                                  "*",
                                  "/",
                                  "&",
                                  "and",
                                  "or",
                                  "not",
                                  "xor",
                                  "5",
                                  "1.3",
                                  "-2",
                                  "\"text\"",
                                  "any(",
                                  "all(",
                                  "place bets",
                                  "bets",
                                  "checkstacks",
                                  "highest(",
                                  "sum(",
                                  "left$(",
                                  "mid$(",
                                  "instr(",
                                  "len(",
                                  "sqr(",
                                  "bet 10 on",
                                  "clear",
                                  "swap",
                                  "show message",
                                  "play sound",
                                  "pass the dice",
                                  "atm deposit",
                                  "playback dice roll file",
                                  "from roll",
                                  "round to the nearest",
                                  "add",
                                  "to",
                                  "autotake full odds",
                                  "seed",
                                  "minimum bet",
                                  "dice total",
                                  "total $",
                                  "net",
                                  "current $"};

TEST(CompileFuzz, RandomStatementShapesNeverBreakTheCompiler) {
  std::mt19937 rng(77);
  auto game = std::make_unique<Game>();
  int passed = 0, tokenized = 0;
  for (int n = 0; n < 4000; ++n) {
    std::vector<std::string> lines(1);
    const int lineCount = 1 + static_cast<int>(rng() % 8);
    for (int l = 0; l < lineCount; ++l) {
      std::string line;
      const int count = 1 + static_cast<int>(rng() % 9);
      for (int w = 0; w < count; ++w)
        line += std::string(kFragments[rng() % std::size(kFragments)]) + " ";
      lines.push_back(line);
    }
    int line = 0, col = 0, endLine = 0, endCol = 0;
    CompileScript(*game, 1 + static_cast<int>(rng() % 8), lines, line, col, endLine, endCol);
    if (line == 0) {
      ++passed;
      ExpectLinksSound(game->scriptCode);
    } else {
      tokenized += game->msg.MsgText.rfind("Unknown", 0) != 0;
      EXPECT_FALSE(game->msg.MsgText.empty());
      EXPECT_LE(line, endLine);
    }
    if (HasFailure()) {
      std::string text;
      for (std::size_t l = 1; l < lines.size(); ++l) text += lines[l] + "\n";
      FAIL() << "script #" << n << ":\n" << text;
    }
  }
  EXPECT_GT(passed, 0);
  EXPECT_GT(tokenized, 2000);
}

// A small generator of well-formed scripts: whatever it builds must compile.
struct ValidScript {
  std::mt19937& rng;
  std::vector<std::string> lines{""};
  int Pick(int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); }
  std::string Number() { return std::to_string(Pick(50)); }
  std::string Operand() {
    static const char* const kOperands[] = {"point",        "cs3",
                                            "place6 wins",  "bankroll",
                                            "# of rolls 7", "field wagers last hand",
                                            "dice total",   "sum(come bets total #)"};
    return Pick(3) ? kOperands[Pick(std::size(kOperands))] : Number();
  }
  std::string Expr(int depth = 0) {
    switch (depth > 2 ? 0 : Pick(6)) {
      case 0:
      case 1:
        return Operand();
      case 2:
        return Expr(depth + 1) + " + " + Expr(depth + 1);
      case 3:
        return "(" + Expr(depth + 1) + ") * -" + Number();
      case 4:
        return "sqr(" + Expr(depth + 1) + ")";
      default:
        return "highest(" + Expr(depth + 1) + ", > 3, " + Expr(depth + 1) + ")";
    }
  }
  std::string Condition(int depth = 0) {
    static const char* const kCompare[] = {"=", "<>", "is greater than", "<=", "is not", "equals"};
    switch (depth > 1 ? 0 : Pick(4)) {
      case 0:
        return Expr() + " " + kCompare[Pick(std::size(kCompare))] + " " + Expr();
      case 1:
        return Condition(depth + 1) + " and " + Condition(depth + 1);
      case 2:
        return "not (" + Condition(depth + 1) + ") or " + Condition(depth + 1);
      default:
        return "any(4, 5, " + Number() + ") = point";
    }
  }
  void Statements(int depth) {
    static const char* const kBets[] = {"place6", "passline", "field", "come4", "hard8", "cs(2)"};
    const int count = 1 + Pick(3);
    for (int k = 0; k < count; ++k) {
      switch (depth > 2 ? Pick(2) : Pick(5)) {
        case 0:
          lines.push_back("cs" + std::to_string(1 + Pick(9)) + " = " + Expr() + " :");
          break;
        case 1:
          lines.push_back(std::string("bet ") + Expr() + " on " + kBets[Pick(std::size(kBets))] +
                          " :");
          break;
        case 2:
          lines.push_back("If " + Condition() + " Then");
          Statements(depth + 1);
          if (Pick(2)) {
            lines.push_back("Else");
            Statements(depth + 1);
          }
          lines.push_back("EndIf");
          break;
        case 3:
          lines.push_back("Do");
          Statements(depth + 1);
          lines.push_back("If " + Condition() + " Then ExitDo EndIf");
          lines.push_back("Loop");
          break;
        default:
          lines.push_back("clear all(inside place bets, field) :");
          break;
      }
    }
  }
};

TEST(CompileFuzz, WellFormedScriptsAlwaysCompile) {
  std::mt19937 rng(31);
  auto game = std::make_unique<Game>();
  for (int n = 0; n < 500; ++n) {
    ValidScript script{rng};
    script.Statements(0);
    int line = 0, col = 0, endLine = 0, endCol = 0;
    CompileScript(*game, 1 + n % 8, script.lines, line, col, endLine, endCol);
    std::string text;
    for (std::size_t l = 1; l < script.lines.size(); ++l) text += script.lines[l] + "\n";
    ASSERT_EQ(line, 0) << game->msg.MsgText << "\n" << text;
    ExpectLinksSound(game->scriptCode);
  }
}

// A hostile file may hold one enormous line: it must compile in reasonable
// time (each statement is 7 elements and a mark).
TEST(CompileFuzz, VeryLongLinesCompile) {
  std::string line;
  for (int i = 0; i < 20000; ++i) line += "cs1 = cs1+1 : ";
  auto game = std::make_unique<Game>();
  int errLine = 0, col = 0, endLine = 0, endCol = 0;
  CompileScript(*game, 1, {"", line, std::string(100000, ' ') + "(((" + std::string(50000, '(')},
                errLine, col, endLine, endCol);
  EXPECT_EQ(game->msg.MsgText, "Missing or improperly placed parenthesis.");
  EXPECT_EQ(errLine, 2);
  CompileScript(*game, 1, {"", line}, errLine, col, endLine, endCol);
  EXPECT_EQ(errLine, 0);
  EXPECT_EQ(game->scriptCode.CompiledScript.size(), 3u + 20000 * 8);
}

// Tidying is idempotent: the editor tidies lines that were tidied before.
TEST(CompileFuzz, TidyingTwiceChangesNothing) {
  const auto words = Words();
  std::mt19937 rng(5);
  for (int n = 0; n < 3000; ++n) {
    std::string line;
    const int count = static_cast<int>(rng() % 8);
    for (int w = 0; w < count; ++w) {
      line += rng() % 5 ? words[rng() % words.size()] : std::to_string(rng() % 1000);
      if (rng() % 3) line += ' ';
    }
    std::string once = line;
    TidyScriptLine(once);
    std::string twice = once;
    TidyScriptLine(twice);
    ASSERT_EQ(twice, once) << "from [" << line << "]";
  }
}

}  // namespace
