#include "cycle/game_commands.h"

#include <filesystem>
#include <system_error>

#include "core/data_folder.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "cycle/probability_commands.h"
#include "cycle/recent_games.h"
#include "cycle/session.h"
#include "engine/roll_internal.h"
#include "script/activation.h"
#include "script/files.h"
#include "stats/bankroll_printout.h"
#include "store/file_chooser.h"
#include "store/file_stamp.h"
#include "store/game_file.h"

namespace {

constexpr int kYesNoCancel = kMsgYes | kMsgNo | kMsgCancel;

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// Script prompt: each player's unsaved script, saved on Yes.
bool PromptUnsavedScripts(Game& g) {
  ScriptSource& ss = g.scriptSource;
  for (int p = 1; p <= 8; ++p) {
    if (!ss.ScriptDirty[p] || g.PlayerName[p].empty()) continue;
    const int answer = ShowNotice(g,
                                  g.PlayerName[p] + "'s Auto-Bet script has not been saved.\r\r"
                                                    "Do you want to save it now?",
                                  "Save Auto-Bets?", 0, kYesNoCancel);
    if (answer == kAnswerCancel) return false;
    if (answer != kAnswerYes) continue;
    if (ss.ScriptFile[p].empty()) {
      const auto path = ChooseFilePath(
          g, {"Save Auto-Bet File As", {"Auto-Bet files (*.bet)", "All files (*.*)"}, ".bet", true});
      if (!path) return false;
      ss.ScriptFile[p] = DoubleAmpersands(*path);
    }
    if (!SaveAutoBets(g, p)) return false;
  }
  return true;
}

// Probability prompt: the table saved over its file, or through the chooser
// when it has none or its file is default.prb.
bool PromptUnsavedProbabilities(Game& g) {
  if (!g.probability.ProbDirty) return true;
  const int answer = ShowNotice(g,
                                "Your current probabilities (listed on the configuration screen) "
                                "have not been saved.\r\rDo you want to save them now?",
                                "Save Probabilities?", 0, kYesNoCancel);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  return SaveProbabilityCommand(g);
}

// Session prompt: the game saved to its file, or through the chooser.
bool PromptUnsavedSession(Game& g) {
  if (!g.roll.SessionDirty) return true;
  const int answer = ShowNotice(
      g, "Your current session has not been saved.\r\rDo you want to save it now?", "Save Session",
      0, kYesNoCancel);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  return SaveGameCommand(g);
}

}  // namespace

std::string DefaultGamePath(const Game& g) { return g.roll.DataFolder + "default.rvg"; }

bool OpenStartupGame(Game& g, const std::string& commandLine) {
  std::string line(Trim(commandLine));
  if (line.size() >= 2 && line.front() == '"' && line.back() == '"')
    line = std::string(Trim(std::string_view(line).substr(1, line.size() - 2)));
  const std::string fallback = DefaultGamePath(g);
  if (!line.empty()) {
    const std::string lower = LowerCase(line);
    if (LowerCase(FileNameOf(line)).find(".rvg") != std::string::npos && EndsWith(lower, ".rvg")) {
      if (OpenGame(g, line)) {
        NoteRecentGame(g, line);
        return true;
      }
    } else {
      std::string text = line + "\r\rThis is not recognized as a Ravelton game filename.";
      if (FileExists(fallback)) text += "\rThe last default game file will be opened instead.";
      ShowNotice(g, text, "Unable to Open Ravelton Game File", 0, kMsgOk);
    }
  }
  if (FileExists(fallback) && OpenGame(g, fallback)) return true;
  // The defaults set at start-up stand.
  return false;
}

bool PromptUnsavedWork(Game& g) {
  return PromptUnsavedScripts(g) && PromptUnsavedProbabilities(g) && PromptUnsavedSession(g);
}

bool NewGameCommand(Game& g, const NewSessionChoice& c) {
  if (!PromptUnsavedWork(g)) return false;
  StartNewGame(g, c);
  return true;
}

const char* ContinueDiceCaption(const Game& g) {
  switch (g.diceFile.DiceFileMode) {
    case kDiceFilePlayback:
      return " Continue playback as is";
    case kDiceFileRecording:
      return " Continue recording as is";
    default:
      return " Continue inactive";
  }
}

void StartNewGame(Game& g, const NewSessionChoice& c) {
  if (!c.retainAutoBets) {
    for (int p = 1; p <= 8; ++p) ClearScript(g, p);
    g.roll.ScriptActive.fill(false);
  }
  NewSession(g, c.preserveGames, c.preserveCheckstacks, c.preserveSessionsLogs, c.diceMode);
  if (g.roll.ScriptActive[0]) StartScriptsAfterNewSession(g);
  g.gamefile.WindowTitle = "Ravelton";
  g.gamefile.GameFilePath.clear();
  g.roll.SessionDirty = false;
  if (g.Shooter > 0 && g.Point == 0) PlayComeOutCall(g);
}

void StartScriptsAfterNewSession(Game& g) {
  // A script that does not compile has shown its fault; the session stays
  // new and the next roll stops on the same fault.
  InitializeScripts(g);
}

bool OpenGameCommand(Game& g) {
  if (!PromptUnsavedWork(g)) return false;
  const auto path = ChooseFilePath(g, SessionFileChoice("Open Session File", false));
  if (!path || !OpenGame(g, *path)) return false;
  NoteRecentGame(g, *path);
  return true;
}

bool SaveGameCommand(Game& g) {
  if (g.gamefile.GameFilePath.empty()) return SaveGameAsCommand(g);
  if (!PromptUnsavedScripts(g) || !PromptUnsavedProbabilities(g)) return false;
  if (!SaveGame(g, g.gamefile.GameFilePath)) return false;
  NoteRecentGame(g, g.gamefile.GameFilePath);
  return true;
}

bool SaveGameAsCommand(Game& g) {
  if (!PromptUnsavedScripts(g) || !PromptUnsavedProbabilities(g)) return false;
  const auto path = ChooseFilePath(g, SessionFileChoice("Save Session File As", true));
  if (!path || !SaveGame(g, *path)) return false;
  NoteRecentGame(g, *path);
  return true;
}

bool CloseProgram(Game& g, bool windowMoved) {
  // Auto-betting in progress: No keeps the program open.
  if (g.scriptRun.ScriptRunning && !AskInterruptAutoBetting(g)) return false;
  if (g.HyperDrive && g.KeepRolling) {
    if (ShowNotice(g, "Do you want to stop Hyper-Drive?", "Hyper-Drive Active", 0,
                   kMsgYes | kMsgNo) != kAnswerYes)
      return false;
    g.KeepRolling = false;
  }
  // With auto-print on, the last graph and a part-filled sheet are offered first.
  if (g.roll.GraphAutoPrint) PromptGraphPrint(g);
  if (windowMoved) g.roll.SessionDirty = true;
  if (!PromptUnsavedWork(g)) return false;
  std::string error;
  if (MakeFolder(g.roll.DataFolder, error)) SaveGame(g, DefaultGamePath(g));
  else ShowNotice(g, error, "Unable to Save Ravelton Game File", 0, kMsgOk);
  std::error_code ec;
  std::filesystem::remove(g.roll.DataFolder + "copyfile.rll", ec);
  return true;
}
