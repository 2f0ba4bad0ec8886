#include "script/script_dump.h"

#include "script/code_state.h"
#include "script/compile_common.h"

std::string DumpScriptCode(const ScriptCode& code) {
  std::string out;
  const auto& s = code.CompiledScript;
  for (std::size_t i = 0; i < s.size(); ++i) {
    out += std::to_string(i);
    out += ' ';
    out += KindName(s[i].Kind);
    if (IsMark(s[i]) && MarkLine(s[i]) > 0) out += std::to_string(MarkLine(s[i]));
    out += ' ';
    out += FormatGeneral(s[i].Value);
    out += '\n';
  }
  for (std::size_t k = 1; k < code.StringPool.size(); ++k) {
    out += 'S';
    out += std::to_string(k);
    out += ' ';
    out += FormatGeneral(code.StringPool[k].Value);
    out += " \"";
    out += code.StringPool[k].Text;
    out += "\"\n";
  }
  return out;
}

std::string FormatCompileFailure(const std::string& file, const CompileError& error) {
  const int line = error.line, col = error.column, endLine = error.endLine,
            endCol = error.endColumn;
  std::string text = error.message;
  while (!text.empty() && text.back() == '\r') text.pop_back();
  for (char& c : text)
    if (c == '\r') c = '\n';
  return file + ':' + std::to_string(line) + ':' + std::to_string(col) + ": " + text + "\n(lines " +
         std::to_string(line) + ':' + std::to_string(col) + " to " + std::to_string(endLine) + ':' +
         std::to_string(endCol) + ")\n";
}
