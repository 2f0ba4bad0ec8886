// Small helpers shared by the script tests: compile a text, look at elements.
#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/game.h"
#include "script/compile_script.h"

namespace script_test {

// Script lines from a text, 1-based as the compiler wants them.
inline std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines(1);
  std::string line;
  std::istringstream in{std::string(text)};
  while (std::getline(in, line)) lines.push_back(line);
  return lines;
}

struct Result {
  bool ok = false;
  std::string msg;
  int line = 0, col = 0, endLine = 0, endCol = 0;
};

inline Result Compile(Game& game, std::string_view text, int p = 1) {
  Result r;
  CompileScript(game, p, Lines(text), r.line, r.col, r.endLine, r.endCol);
  r.ok = r.line == 0;
  r.msg = r.ok ? std::string() : game.msg.MsgText;
  return r;
}

// The elements of the compiled stream without marks, head and element 0.
inline std::vector<ScriptElement> Body(const Game& game) {
  std::vector<ScriptElement> out;
  for (const auto& e : game.scriptCode.CompiledScript)
    if (!IsMark(e) && e.Kind != kHead &&
        !(e.Kind == kEmpty && &e == &game.scriptCode.CompiledScript[0]))
      out.push_back(e);
  return out;
}

// "Kind:Value" words of the body, for compact comparisons.
inline std::string BodyText(const Game& game) {
  std::string out;
  for (const auto& e : Body(game)) {
    if (!out.empty()) out += ' ';
    out += std::string(KindName(e.Kind)) + ":" + std::to_string(static_cast<long long>(e.Value));
    if (e.Value != static_cast<double>(static_cast<long long>(e.Value))) out += "~";
  }
  return out;
}

}  // namespace script_test
