// Small helpers shared by the script tests: compile a text, look at elements.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"
#include "script/compile_common.h"
#include "script/compile_script.h"
#include "script/vocabulary.h"

namespace script_test {

// Script lines from a text, 1-based as the compiler wants them.
inline std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines(1);
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

struct Result {
  bool ok = false;
  std::string msg;
  int line = 0, col = 0, endLine = 0, endCol = 0;
};

inline Result Compile(Game& game, std::string_view text, int p = 1) {
  Result r;
  const auto error = CompileScript(game, p, Lines(text));
  r.ok = !error;
  if (error) {
    r.msg = error->message;
    r.line = error->line;
    r.col = error->column;
    r.endLine = error->endLine;
    r.endCol = error->endColumn;
  }
  return r;
}

// "Kind:Value" words of the compiled stream without marks, head and element
// 0; a value with a fraction gets a "~".
inline std::string BodyText(const Game& game) {
  std::string out;
  const auto& s = game.scriptCode.CompiledScript;
  for (std::size_t i = 1; i < s.size(); ++i) {
    if (IsMark(s[i]) || s[i].Kind == kHead) continue;
    if (!out.empty()) out += ' ';
    const auto whole = static_cast<long long>(s[i].Value);
    out += std::string(KindName(s[i].Kind)) + ":" + std::to_string(whole);
    if (s[i].Value != static_cast<double>(whole)) out += "~";
  }
  return out;
}

// The plain words of the phrase table: the raw material of random scripts.
inline std::vector<std::string> VocabularyWords() {
  std::vector<std::string> words;
  for (const auto& row : StaticVocabulary()) {
    std::string k(Trim(row.Key));
    if (!k.empty() && !row.keyHasCode) words.push_back(k);
  }
  return words;
}

}  // namespace script_test
