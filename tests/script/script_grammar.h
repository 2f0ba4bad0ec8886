// A small grammar of well-formed scripts, shared by the compiler's fuzz
// (whatever it builds must compile) and the interpreter's (whatever it
// builds must run): an upper-case letter is expanded by one of its
// alternatives, only the first `leaves` of them once deep enough, so every
// script ends.
#pragma once

#include <cctype>
#include <random>
#include <string>
#include <vector>

namespace script_test {

struct Rule {
  char symbol;
  int leaves;
  std::vector<std::string> alternatives;
};

inline const std::vector<Rule> kGrammar = {
    {'N', 4, {"0", "7", "12", "49"}},
    {'D', 3, {"1", "5", "9"}},
    {'K', 6, {"place6", "passline", "field", "come4", "hard8", "cs(2)"}},
    {'E',
     9,
     {"N", "point", "cs3", "place6 wins", "bankroll", "# of rolls 7", "dice total",
      "sum(come bets total #)", "field wagers last hand", "E + E", "(E) * -N", "sqr(E)",
      "highest(E, > 3, E)"}},
    {'C',
     7,
     {"E = E", "E <> E", "E is greater than E", "E <= E", "E is not E", "E equals E",
      "any(4, 5, N) = point", "C and C", "not (C) or C"}},
    {'S',
     3,
     {"csD = E :", "bet E on K :", "clear all(inside place bets, field) :", "if C then\nB\nendif",
      "if C then\nB\nelse\nB\nendif", "do\nB\nif C then exitdo endif\nloop"}},
    {'B', 3, {"S", "S\nS", "S\nS\nS"}},
};

// The grammar with more alternatives for a symbol, behind its own (so the
// leaves stay the same).
inline std::vector<Rule> Extended(std::vector<Rule> grammar, char symbol,
                                  const std::vector<std::string>& more) {
  for (Rule& rule : grammar)
    if (rule.symbol == symbol) rule.alternatives.insert(rule.alternatives.end(), more.begin(), more.end());
  return grammar;
}

inline std::string Expand(const std::vector<Rule>& grammar, char symbol, int depth,
                          std::mt19937& rng) {
  for (const Rule& rule : grammar) {
    if (rule.symbol != symbol) continue;
    const std::size_t n = depth > 6 ? rule.leaves : rule.alternatives.size();
    std::string out;
    for (const char c : rule.alternatives[rng() % n])
      out += std::isupper(static_cast<unsigned char>(c)) ? Expand(grammar, c, depth + 1, rng)
                                                         : std::string(1, c);
    return out;
  }
  return std::string(1, symbol);
}

}  // namespace script_test
