#include "cycle/auto_bet_commands.h"

#include <string>

#include "core/atomic_file.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "script/auto_bet_editor.h"
#include "script/files.h"

namespace {

constexpr int kSaveQuestionHelpId = kHelpSaveFiles;
constexpr int kSaveQuestionStyle = kMsgYes | kMsgNo | kMsgCancel | kMsgPicQmark | kMsgFocusYes;
constexpr int kFailureStyle = kMsgOk | kMsgPicStop;

void ShowFailure(Game& g, const std::string& text) {
  ShowNotice(g, text, "Auto-Bet", 0, kFailureStyle);
}

bool EditorScriptHasText(const Game& g) {
  for (const std::string& line : EditorText(g))
    if (!line.empty()) return true;
  return false;
}

}  // namespace

FileChoice AutoBetFileChoice(const char* caption, bool writing) {
  return {caption,
          {"Auto-bet files (*.bet)", "Auto-bet & text files (*.bet;*.txt)", "Text files (*.txt)",
           "All files (*.*)"},
          ".bet",
          writing};
}

bool AskSaveEditorScript(Game& g) {
  const int p = g.scriptSource.EdPlayer;
  if (p < 1 || p > 8 || !g.scriptSource.ScriptDirty[static_cast<std::size_t>(p)]) return true;
  const int answer = ShowNotice(g,
                                "Your current logged bets have not been saved.\r\r"
                                "Do you want to save them now?",
                                "Save Auto-Bets?", kSaveQuestionHelpId, kSaveQuestionStyle);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  return SaveAutoBetCommand(g);
}

bool NewAutoBetCommand(Game& g) {
  if (!AskSaveEditorScript(g)) return false;
  if (EditorScriptHasText(g)) {
    g.roll.SessionDirty = true;
    g.roll.ScriptsOK = false;
  }
  ClearScript(g, g.scriptSource.EdPlayer);
  return true;
}

bool OpenAutoBetCommand(Game& g) {
  if (!AskSaveEditorScript(g)) return false;
  const auto path = ChooseFilePath(g, AutoBetFileChoice("Open Auto-Bet File", false));
  if (!path) return false;
  g.scriptSource.ErrorText.clear();
  if (!OpenAutoBets(g, g.scriptSource.EdPlayer, *path)) {
    ShowFailure(g, g.scriptSource.ErrorText.empty() ? *path + "\r\rwas not found."
                                                    : g.scriptSource.ErrorText);
    return false;
  }
  g.roll.ScriptsOK = false;
  g.scriptSource.EditorCaption = AutoBetCaption(g, g.scriptSource.EdPlayer);
  return true;
}

bool SaveAutoBetCommand(Game& g) {
  ScriptSource& ss = g.scriptSource;
  const int p = ss.EdPlayer;
  if (p < 1 || p > 8) return false;
  if (ss.ScriptFile[static_cast<std::size_t>(p)].empty()) return SaveAutoBetAsCommand(g);
  StoreEdLines(g);
  if (!SaveAutoBets(g, p)) {
    ShowFailure(g, ss.ErrorText);
    return false;
  }
  ss.ScriptDirty[static_cast<std::size_t>(p)] = false;
  return true;
}

bool SaveAutoBetAsCommand(Game& g) {
  ScriptSource& ss = g.scriptSource;
  const int p = ss.EdPlayer;
  if (p < 1 || p > 8) return false;
  const auto path = ChooseFilePath(g, AutoBetFileChoice("Save Auto-Bet File As", true));
  if (!path) return false;
  std::string& file = ss.ScriptFile[static_cast<std::size_t>(p)];
  const std::string before = file;
  file = DoubleAmpersands(*path);
  StoreEdLines(g);
  if (!SaveAutoBets(g, p)) {
    file = before;
    ShowFailure(g, ss.ErrorText);
    return false;
  }
  ss.ScriptDirty[static_cast<std::size_t>(p)] = false;
  ss.EditorCaption = AutoBetCaption(g, p);
  return true;
}

bool PasteFromAutoBetCommand(Game& g) {
  const auto path = ChooseFilePath(g, AutoBetFileChoice("Paste From Auto-Bet File", false));
  if (!path) return false;
  ScriptSource& ss = g.scriptSource;
  const int p = ss.EdPlayer;
  StoreEdLines(g);
  ss.ErrorText.clear();
  ss.PastingScript = true;
  const bool read = OpenAutoBets(g, p, *path);
  ss.PastingScript = false;
  if (!read) {
    ShowFailure(g, ss.ErrorText.empty() ? *path + "\r\rwas not found." : ss.ErrorText);
    return false;
  }
  // A paste keeps the script's file; OpenAutoBets has shown the lines in the editor.
  ss.ScriptDirty[static_cast<std::size_t>(p)] = true;
  g.roll.ScriptsOK = false;
  return true;
}

bool CopyToFileCommand(Game& g) {
  const std::vector<std::string> lines = SelectedEditorLines(g);
  if (lines.empty()) return false;
  const auto path = ChooseFilePath(g, AutoBetFileChoice("Copy Auto-Bets To File", true));
  if (!path) return false;
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  std::string error;
  if (!WriteFileAtomically(*path, bytes, error)) {
    ShowFailure(g, error);
    return false;
  }
  return true;
}
