#include "script/activation.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "script/compile_common.h"
#include "script/compile_script.h"
#include "script/files.h"
#include "script/interpreter.h"
#include "script/script_text.h"

namespace {

constexpr int kActivationHelpId = kHelpScriptActivation;
constexpr int kEmptyScriptHelpId = kHelpScriptEmpty;
constexpr int kErrorStyle = kMsgOk | kMsgPicStop;                               // 0x201
constexpr int kActivateStyle = kMsgYes | kMsgNo | kMsgPicQmark | kMsgFocusYes;  // 0x1406
constexpr int kInterruptStyle = kMsgYes | kMsgNo | kMsgPicQmark | kMsgFocusNo;  // 0x2406
constexpr int kStructuredStyle = kMsgOk | kMsgPicOk;                            // 0x101

const std::string& Name(const Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }

void RecountActive(Game& g) {
  auto& active = g.roll.ScriptActive;
  active[0] = std::any_of(active.begin() + 1, active.end(), [](bool on) { return on; });
}

// Appends one compiled script behind the ones already joined, its jump links
// and label entries moved by e (the elements before it) and its string
// references by s (the pool entries before it).
void Join(Game& g) {
  ScriptRunState& r = g.scriptRun;
  const ScriptCode& code = g.scriptCode;
  const auto& stream = code.CompiledScript;
  if (stream.size() < 2) return;
  const double e = static_cast<double>(r.AllCompiled.size() - 1);
  const double s = r.AllStringsCount;
  for (std::size_t k = 1; k < code.StringPool.size(); ++k) {
    PoolString entry = code.StringPool[k];
    if (entry.Value > 0) entry.Value += e;
    const int at = NewRunString(g);
    r.AllStrings[static_cast<std::size_t>(at)] = std::move(entry);
  }
  const std::size_t first = r.AllCompiled.size();
  r.AllCompiled.insert(r.AllCompiled.end(), stream.begin() + 1, stream.end());
  if (e <= 0) return;
  for (std::size_t k = first; k < r.AllCompiled.size(); ++k) {
    ScriptElement& x = r.AllCompiled[k];
    if (x.Kind == kGoTo || x.Kind == kGoSub) {
      if (k + 1 < r.AllCompiled.size() && r.AllCompiled[k + 1].Value > 0)
        r.AllCompiled[k + 1].Value += e;
      ++k;  // the reference gets nothing else, string or not
    } else if (x.Kind >= 1 && x.Kind <= 19 && x.Value > 0) {
      x.Value += e;
    } else if ((x.Kind == kString || x.Kind == kLabel) && x.Value > 0) {
      x.Value += s;
    }
  }
}

void ShowScriptError(Game& g, int p) {
  const std::string& name = Name(g, p);
  ShowNotice(g,
             name +
                 "'s auto-bet script contains an error which must be corrected before you can run "
                 "it.\r\rSelect " +
                 name +
                 " on the auto-bet screen and click the \"Check Script\" button to see the "
                 "error.",
             "Auto-bet script error", 0, kErrorStyle);
}

// Empties the joined run: element 0 and no strings.
void ClearJoinedRun(ScriptRunState& r) {
  r.AllCompiled.assign(1, ScriptElement{});
  r.AllStringsCount = 0;
}

}  // namespace

void CompileALLAutobets(Game& g) {
  ScriptRunState& r = g.scriptRun;
  g.roll.ScriptsOK = false;
  if (g.scriptSource.EditorOpen) StoreEdLines(g);
  ClearJoinedRun(r);
  r.FailedPlayer = 0;
  for (int p = 1; p <= 8; ++p) {
    if (!g.roll.ScriptActive[static_cast<std::size_t>(p)]) continue;
    if (auto fault = CompileScript(g, p)) {
      r.FailedPlayer = p;
      r.FailedMessage = fault->message;
      r.FailedLine = fault->line;
      r.FailedColumn = fault->column;
      r.FailedEndLine = fault->endLine;
      r.FailedEndColumn = fault->endColumn;
      g.KeepRolling = false;
      ShowScriptError(g, p);
      return;
    }
    Join(g);
  }
  IndexStatements(r);
  g.roll.ScriptsOK = true;
}

void JoinCompiledScriptAlone(Game& g) {
  ClearJoinedRun(g.scriptRun);
  Join(g);
  IndexStatements(g.scriptRun);
  g.roll.ScriptsOK = true;
}

void ActivateScripts(Game& g, int p) {
  std::string text;
  if (p > 0) {
    text = Name(g, p) +
           "'s auto-bet script has been activated.\r\rYou have an opportunity now to run " +
           Name(g, p) + "'s script for one cycle BEFORE ";
  } else {
    text =
        "All players' auto-bet scripts have been activated.\r\rYou have an opportunity now to run "
        "each script for one cycle BEFORE ";
  }
  text +=
      "the dice roll in order to check and set any initial conditions.  This is called "
      "initializing. \r\rIf you're not ready yet, then just recheck the active checkbox later or "
      "note that all players' active auto-bets are automatically initialized whenever NEW is "
      "selected from the GAME menu.\r\r";
  text += p > 0 ? "Would you like to initialize " + Name(g, p) + "'s auto-bet script now?"
                : std::string("Would you like to initialize all auto-bet scripts now?");
  if (ShowNotice(g, text, "Auto-Bet", kActivationHelpId, kActivateStyle) != kAnswerYes) return;

  const auto saved = g.roll.ScriptActive;
  if (p > 0) {
    // Only p's script is compiled and initialized.
    g.roll.ScriptActive.fill(false);
    g.roll.ScriptActive[static_cast<std::size_t>(p)] = true;
    g.roll.ScriptActive[0] = true;
  }
  CompileALLAutobets(g);
  if (g.roll.ScriptsOK) {
    g.scriptRun.FirstCycle = true;
    RunAutoBets(g);
    g.scriptRun.FirstCycle = false;
  }
  if (p > 0) {
    g.roll.ScriptActive = saved;
    // The joined stream holds one script only.
    g.roll.ScriptsOK = false;
  }
}

void SetScriptActive(Game& g, int p, bool on) {
  if (p < 1 || p > 8) return;
  g.roll.ScriptActive[static_cast<std::size_t>(p)] = on;
  RecountActive(g);
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
}

void ToggleScriptActive(Game& g, int p) {
  if (p < 1 || p > 8) return;
  const bool on = !g.roll.ScriptActive[static_cast<std::size_t>(p)];
  SetScriptActive(g, p, on);
  if (on && g.scriptSource.EditorOpen) ActivateScripts(g, p);
  g.roll.ScriptsOK = false;
}

namespace {

// Asks `text` about a running script; on Yes the run stops and true.
bool InterruptOnYes(Game& g, const std::string& text) {
  if (ShowNotice(g, text, "Auto-Bet Active", kActivationHelpId, kInterruptStyle) != kAnswerYes)
    return false;
  g.scriptRun.ScriptRunning = false;
  g.KeepRolling = false;
  if (g.HyperDrive) g.StopMessage = "Auto-betting interrupted.";
  return true;
}

// The question of Activate All and Deactivate All during a run; false when
// the command ends there.
bool MayChangeSwitches(Game& g, const char* what) {
  if (!g.scriptRun.ScriptRunning) return true;
  const std::string text = std::string("You can't ") + what +
                           " scripts while auto-betting is active.\r\rDo you want to interrupt "
                           "auto-betting?";
  return InterruptOnYes(g, text);
}

}  // namespace

bool AskInterruptAutoBetting(Game& g, bool editing) {
  if (!g.scriptRun.ScriptRunning) return false;
  std::string text = editing ? "You can't edit a script while auto-betting is active.\r\r" : "";
  text += "Do you want to interrupt auto-betting?";
  return InterruptOnYes(g, text);
}

void ActivateAllScripts(Game& g) {
  if (!MayChangeSwitches(g, "activate")) return;
  for (int p = 1; p <= 8; ++p)
    if (!Name(g, p).empty()) g.roll.ScriptActive[static_cast<std::size_t>(p)] = true;
  RecountActive(g);
  g.roll.ScriptsOK = false;
  if (g.roll.ScriptActive[0]) ActivateScripts(g, 0);
  g.roll.SessionDirty = true;
}

void DeactivateAllScripts(Game& g) {
  if (!MayChangeSwitches(g, "deactivate")) return;
  g.roll.ScriptActive.fill(false);
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
}

CompileError LastJoinFault(const Game& g) {
  const ScriptRunState& r = g.scriptRun;
  return {r.FailedLine, r.FailedColumn, r.FailedEndLine, r.FailedEndColumn, r.FailedMessage};
}

bool InitializeScripts(Game& g) {
  if (!g.roll.ScriptActive[0]) return true;
  if (!g.roll.ScriptsOK) CompileALLAutobets(g);
  if (!g.roll.ScriptsOK) return false;
  g.scriptRun.FirstCycle = true;
  RunAutoBets(g);
  g.scriptRun.FirstCycle = false;
  return true;
}

CheckScriptResult CheckScript(Game& g) {
  ScriptSource& src = g.scriptSource;
  CheckScriptResult result;
  const bool empty = std::all_of(src.EdLines.begin() + 1, src.EdLines.end(),
                                 [](const std::string& l) { return Trim(l).empty(); });
  if (empty) {
    ShowNotice(g,
               "This feature checks to see that your Auto-Bet script is properly structured, but "
               "presently your script is empty.",
               "Auto-Bet", kEmptyScriptHelpId, kMsgOk);
    return result;
  }
  StoreEdLines(g);
  const auto fault = CompileScript(g, src.EdPlayer);
  if (!fault) {
    ShowNotice(g, "Your script is properly structured.", "Auto-Bet", kActivationHelpId,
               kStructuredStyle);
    g.roll.ScriptsOK = false;
    result.ok = true;
    return result;
  }
  // The span, held to the editor's lines, without the blanks before it and
  // the blanks and colons behind it.
  const int last = std::max(1, src.EdLineCount);
  const int line = std::clamp(fault->line, 1, last);
  const int endLine = std::clamp(fault->endLine, line, last);
  const std::string& first = src.EdLines[static_cast<std::size_t>(line)];
  int col = std::clamp(fault->column, 0, static_cast<int>(first.size()));
  while (col < static_cast<int>(first.size()) && first[static_cast<std::size_t>(col)] == ' ') ++col;
  const std::string& tail = src.EdLines[static_cast<std::size_t>(endLine)];
  int endCol = std::clamp(fault->endColumn, 0, static_cast<int>(tail.size()));
  while (endCol > 0 && (tail[static_cast<std::size_t>(endCol - 1)] == ' ' ||
                        tail[static_cast<std::size_t>(endCol - 1)] == ':'))
    --endCol;
  result = {false, line, col, endLine, endCol};
  const std::string title = endLine > line
                                ? "Auto-bet script error in lines " + std::to_string(line) +
                                      " thru " + std::to_string(endLine)
                                : "Auto-bet script error in line " + std::to_string(line);
  g.msg.MsgTitle = title;
  g.msg.MsgHelpId = kHelpNone;
  g.msg.MsgStyle = kErrorStyle;
  ShowMessage(g, true);
  return result;
}

void SetScriptPermissionDefaults(Game& g, int p) {
  if (p < 0 || p > 8) return;
  ScriptRunState& r = g.scriptRun;
  r.AllowDiceFiles(p) = true;
  r.AllowActForOthers(p) = false;
  r.AllowReset(p) = true;
  r.AllowAnyFolder(p) = false;
}
