#include "script/script_dump.h"

#include "core/text.h"
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
  const std::string at = std::to_string(error.line) + ':' + std::to_string(error.column);
  return file + ':' + at + ": " + MessageLine(error.message) + " (lines " + at + " to " +
         std::to_string(error.endLine) + ':' + std::to_string(error.endColumn) + ")\n";
}
