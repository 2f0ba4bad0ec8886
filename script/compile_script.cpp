#include "script/compile_script.h"

#include <exception>

#include "core/game.h"
#include "script/compile_brackets.h"
#include "script/compile_check.h"
#include "script/compile_common.h"
#include "script/compile_groups.h"
#include "script/compile_logic.h"
#include "script/compile_organize.h"
#include "script/compile_targets.h"
#include "script/tokenizer.h"

namespace {

// A pass that breaks (out of memory, say) fails the compile with a fixed
// message instead of taking the program down.
template <typename Pass>
bool Guarded(Game& game, const char* message, Pass pass) {
  try {
    return pass();
  } catch (const std::exception&) {
    SetCompileMessage(game, message);
    ScriptCode& code = game.scriptCode;
    code.errLine = code.errEndLine = 1;
    code.errCol = code.errEndCol = 0;
    return false;
  }
}

}  // namespace

std::optional<CompileError> CompileScript(Game& game, int p,
                                          const std::vector<std::string>& lines) {
  ScriptCode& code = game.scriptCode;
  code.CompiledScript.assign(1, ScriptElement{});
  code.StringPool.assign(1, PoolString{});
  code.WorkStatement.assign(kWorkStatementLast + 1, ScriptElement{});
  code.WorkCount = 0;
  code.GosubStack.assign(kGosubStackLast + 1, 0);
  code.errLine = code.errCol = code.errEndLine = code.errEndCol = 0;
  const int lineCount = lines.empty() ? 0 : static_cast<int>(lines.size()) - 1;

  const bool ok = Guarded(game, "A compile error occurred.", [&] {
    if (TokenizeScript(game, p, lines)) return false;
    if (!CompileBrackets(game)) return false;
    if (!Guarded(game, "A compile error occurred (organize variables).",
                 [&] { return CompileVariablesOrganize(game, p); }))
      return false;
    ExpandGroups(game);
    if (!MarkTargets(game)) return false;
    if (!Guarded(game, "A compile error occurred (logic).",
                 [&] { return CompileLogic(game, lineCount); }))
      return false;
    return Guarded(game, "A compile error occurred (final check).",
                   [&] { return CompileCheck(game); });
  });
  if (!ok) {
    if (code.errLine <= 0) code.errLine = code.errEndLine = 1;
    return CompileError{code.errLine, code.errCol, code.errEndLine, code.errEndCol,
                        game.msg.MsgText};
  }
  code.errLine = code.errCol = code.errEndLine = code.errEndCol = 0;
  if (p >= 0 && p <= 8) {
    const auto slot = static_cast<std::size_t>(p);
    code.SlotScript[slot] = code.CompiledScript;
    code.SlotStrings[slot] = code.StringPool;
    code.SlotCompiled[slot] = true;
  }
  return std::nullopt;
}

std::optional<CompileError> CompileScript(Game& game, int p) {
  return CompileScript(game, p, game.scriptSource.ScriptLines[static_cast<std::size_t>(p)]);
}
