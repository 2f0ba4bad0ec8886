#include "script/compile_logic.h"

#include "core/game.h"
#include "core/help_topics.h"
#include "script/compile_common.h"

namespace {

using Stack = std::vector<std::size_t>;

std::size_t Top(const Stack& s) { return s.empty() ? 0 : s.back(); }

// The label text that a GoTo/GoSub reference names.
std::string ReferenceText(const ScriptCode& code, const ScriptElement& e) {
  if (e.Kind == kNumber) return FormatGeneral(e.Value);
  const auto k = static_cast<std::size_t>(Code(e.Value));
  if (e.Value > 0 && k < code.StringPool.size()) return code.StringPool[k].Text;
  return {};
}

bool LinkJump(Game& game, std::size_t i, bool inCondition) {
  ScriptCode& code = game.scriptCode;
  auto& s = code.CompiledScript;
  if (inCondition) return FailAt(game, i, "GOTO or GOSUB out of position.");
  if (i + 1 >= s.size() || IsMark(s[i + 1]))
    return FailAt(game, i, "GOTO or GOSUB missing reference.");
  ScriptElement& ref = s[i + 1];
  if (ref.Kind != kNumber && ref.Kind != kString)
    return FailAt(game, i, "Improper reference after GOTO or GOSUB.");
  // The tokenizer puts a mark before every GoTo, so this holds by
  // construction; it guards streams built any other way.
  if (i > 1 && !IsMark(s[i - 1]) && !(s[i - 1].Kind >= 1 && s[i - 1].Kind < 12) &&
      s[i - 1].Kind != kHead)
    return FailAt(game, i, "GOTO or GOSUB here should be preceded with a colon :");
  const std::string name = ReferenceText(code, ref);
  const std::string wanted = LowerCase(Trim(name));
  for (std::size_t k = 1; k < code.StringPool.size(); ++k) {
    const PoolString& entry = code.StringPool[k];
    if (entry.Value > 0 && LowerCase(Trim(entry.Text)) == wanted) {
      ref.Value = entry.Value;
      return true;
    }
  }
  std::string text = "Label ";
  text += Quote(name);
  text += " not found.";
  return FailAt(game, i, std::move(text));
}

}  // namespace

bool CompileLogic(Game& game, int lineCount) {
  ScriptCode& code = game.scriptCode;
  auto& s = code.CompiledScript;
  game.msg.MsgHelpId = kHelpNone;
  for (std::size_t i = 1; i < s.size(); ++i)
    if (s[i].Kind == kLabel && s[i].Value > 0 &&
        s[i].Value < static_cast<double>(code.StringPool.size()))
      code.StringPool[static_cast<std::size_t>(Code(s[i].Value))].Value = static_cast<double>(i);

  code.LineIndent.assign(static_cast<std::size_t>(std::max(lineCount, 0)) + 2, -1);
  Stack ifStack, thenStack, elseStack, doStack, exitStack;
  bool inCondition = false, closing = false;
  std::size_t conditionAt = 0;
  int level = 0, prevLine = 1;
  for (std::size_t i = 1; i < s.size(); ++i) {
    ScriptElement& e = s[i];
    if (IsMark(e)) {
      const int line = MarkLine(e);
      if (line > 0) {
        for (int l = prevLine; l <= line && l < static_cast<int>(code.LineIndent.size()); ++l) {
          auto& slot = code.LineIndent[static_cast<std::size_t>(l)];
          if (slot < 0 || level < slot) slot = level;
        }
        prevLine = line;
      }
      if (closing) {
        --level;
        closing = false;
      }
      continue;
    }
    switch (e.Kind) {
      case kIf:
        ++level;
        if (inCondition) return FailAt(game, i, "IF statement out of position.");
        inCondition = true;
        conditionAt = i;
        ifStack.push_back(i);
        break;
      case kThen:
        if (!inCondition) return FailAt(game, i, "THEN statement out of position.");
        inCondition = false;
        thenStack.push_back(i);
        break;
      case kElse:
      case kElseIf: {
        const bool isElse = e.Kind == kElse;
        if (thenStack.empty() || inCondition)
          return FailAt(game, i, isElse ? "Expected THEN before ELSE." : "ELSEIF out of position.");
        if (Top(thenStack) < Top(ifStack))
          return FailAt(game, i,
                        isElse ? "Expected THEN before ELSE."
                               : "ELSEIF out of position.\rCannot be placed after ELSE within the "
                                 "same IF/THEN statement.");
        s[thenStack.back()].Value = static_cast<double>(i);
        thenStack.pop_back();
        elseStack.push_back(i);
        if (!isElse) {
          inCondition = true;
          conditionAt = i;
        }
        break;
      }
      case kEndIf: {
        closing = true;
        if (inCondition) return FailAt(game, i, "Missing THEN between IF and ENDIF.");
        const std::size_t open = Top(ifStack);
        if (!doStack.empty() && doStack.back() > open) {
          FailAt(game, doStack.back(), "Missing or out of position LOOP statement.");
          return false;
        }
        const bool thenNewer = !thenStack.empty() && thenStack.back() > open;
        const bool elseNewer = !elseStack.empty() && elseStack.back() > open;
        if (open == 0 || (!thenNewer && !elseNewer)) return FailAt(game, i, "Unassociated ENDIF.");
        if (thenNewer) {
          s[thenStack.back()].Value = static_cast<double>(i);
          thenStack.pop_back();
        }
        while (!elseStack.empty() && elseStack.back() > open) {
          s[elseStack.back()].Value = static_cast<double>(i);
          elseStack.pop_back();
        }
        ifStack.pop_back();
        break;
      }
      case kDo:
        ++level;
        if (inCondition) return FailAt(game, i, "DO statement out of position.");
        doStack.push_back(i);
        break;
      case kLoop: {
        closing = true;
        if (doStack.empty() || inCondition)
          return FailAt(game, i, "Missing DO statement or LOOP statement out of position.");
        const std::size_t d = doStack.back();
        e.Value = static_cast<double>(d);
        s[d].Value = static_cast<double>(i);
        while (!exitStack.empty() && exitStack.back() > d) {
          s[exitStack.back()].Value = static_cast<double>(i);
          exitStack.pop_back();
        }
        if (Top(ifStack) > d)
          return FailAt(game, i,
                        "ENDIF missing or out of position, or \rLOOP statement out of position.");
        doStack.pop_back();
        break;
      }
      case kExitDo:
        if (doStack.empty()) return FailAt(game, i, "EXIT DO statement outside of DO/LOOP.");
        if (inCondition) return FailAt(game, i, "EXIT DO statement out of position.");
        exitStack.push_back(i);
        break;
      case kGoTo:
      case kGoSub:
        if (!LinkJump(game, i, inCondition)) return false;
        break;
      default:
        break;
    }
  }
  if (inCondition) return FailAt(game, conditionAt, "Missing THEN statement.");
  if (!ifStack.empty() || !thenStack.empty())
    return FailAt(game, !ifStack.empty() ? ifStack.back() : thenStack.back(),
                  "Missing ENDIF statement.");
  if (!doStack.empty()) return FailAt(game, doStack.back(), "Missing LOOP statement.");
  return true;
}

void IndentScriptLines(std::vector<std::string>& lines, const std::vector<std::int32_t>& indent) {
  for (std::size_t l = 1; l < lines.size() && l < indent.size(); ++l) {
    if (indent[l] < 0) continue;
    std::string text(Trim(lines[l]));
    int level = indent[l];
    const std::string lower = LowerCase(text) + " ";
    for (const char* word : {"then ", "if ", "endif ", "else ", "elseif ", "do ", "loop "})
      if (lower.starts_with(word)) {
        --level;
        break;
      }
    lines[l] = level < 1 ? text : std::string(static_cast<std::size_t>(level) * 3, ' ') + text;
  }
}
