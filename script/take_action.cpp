// TakeAction: the script commands that are no assignment (actions 100 to 399).
#include <string>

#include "config/settings.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "core/text.h"
#include "dice/dice_file.h"
#include "dice/probability_file.h"
#include "engine/bankroll.h"
#include "engine/players.h"
#include "script/actions.h"
#include "script/compile_common.h"
#include "script/script_files.h"
#include "script/script_text.h"

namespace {

constexpr int kScriptHelpId = kHelpScriptMessages;
constexpr int kMessageStyle = kMsgOk | kMsgHideScript;          // 0x80001
constexpr int kQuestionStyle = kMsgYes | kMsgNo | kMsgPicQmark;  // 0x406
constexpr int kWaitSound = 2;  // synchronous, no default sound
constexpr const char* kPermissions = "See Options - Permissions.";

struct Action {
  Game& g;
  ScriptRunState& r;

  ScriptElement& Arg(int k) { return r.WorkStatement[static_cast<std::size_t>(1 + k)]; }
  int Args() const { return r.WorkCount - 1; }
  const std::string& Name() const {
    const int p = r.ScriptBettor >= 0 && r.ScriptBettor <= 8 ? r.ScriptBettor : 0;
    return g.PlayerName[static_cast<std::size_t>(p)];
  }
  bool Allowed(const Table1<bool, 0, 8>& permission) const {
    return r.ScriptBettor >= 1 && r.ScriptBettor <= 8 && permission(r.ScriptBettor);
  }
  // A refusal says why, when steps are shown; nothing is done.
  void Refuse(const std::string& reason) {
    if (!StepNotesWanted(g)) return;
    r.CurStepNote = "Unable to take action.\r" + reason;
  }
  void RefusePermission(const char* what) { Refuse(Name() + what + "\r" + kPermissions); }
  // The argument's text, trimmed of blanks.
  std::string TrimmedText(int k) {
    ElementText(g, Arg(k), r.TextC);
    return std::string(Trim(r.TextC));
  }
  // A run-time failure of an action ends the statement; in Hyper-Drive it
  // stops the run with the error as its reason.
  void Failure(const std::string& description) {
    r.ErrorText = description + ", Error #75 occurred, at: Auto-bet TakeAction";
    if (g.HyperDrive) {
      g.KeepRolling = false;
      g.StopMessage = r.ErrorText;
    } else if (StepNotesWanted(g)) {
      r.CurStepNote = "Unable to take action.\r" + description;
    }
  }
  void Dialog(int style) {
    g.msg.MsgTitle = "Auto-Bet (" + Name() + ")";
    g.msg.MsgHelpId = kScriptHelpId;
    g.msg.MsgStyle = style;
    ShowMessage(g, true);
    // The run's 0.3 second floor is over once a dialog has been answered.
    if (!g.HyperDrive && g.platform)
      r.RunStartSeconds = g.platform->TimeGetTime() / 1000.0 - 0.6;
  }

  void NewSession(bool preserveStacks, int diceMode);
  void ProbabilityFile();
  void PlaybackDiceRollFile();
  void OutputFile(int action);
  void Swap();
};

void Action::NewSession(bool preserveStacks, int diceMode) {
  if (!Allowed(r.AllowReset)) return RefusePermission(" is not allowed to start new sessions.");
  if (r.NewSession == nullptr) return Refuse("A new session can't be started here.");
  r.NewSession(g, true, preserveStacks, true, diceMode);
  r.RunPos = 0;  // the scripts run again from the first one's head
}

void Action::OutputFile(int action) {
  std::filesystem::path path;
  std::string error;
  const int p = r.ScriptBettor;
  std::string& file = g.scriptSource.ScriptOutputFile[static_cast<std::size_t>(p)];
  if (action == 223) {
    if (file.empty()) return Refuse("Output file not open.");
    if (!ScriptFilePath(g, p, file, path)) return Refuse(std::string(kOutsideDataFolder));
    ElementText(g, Arg(1), r.TextC);
    if (r.TextC == "\t") r.TextC = " \t";
    if (!AppendOutputFile(path, r.TextC, error)) Failure(error);
    return;
  }
  const std::string name = TrimmedText(1);
  if (!ScriptFilePath(g, p, name, path)) return Refuse(std::string(kOutsideDataFolder));
  file = name;
  if (!OpenOutputFile(path, action == 221, error)) Failure(error);
}

// The probability dice on, with the table in use or one read from a file.
void Action::ProbabilityFile() {
  const std::string name = r.WorkCount >= 2 ? TrimmedText(1) : std::string();
  if (!name.empty()) {
    std::filesystem::path path;
    if (!ScriptFilePath(g, r.ScriptBettor, name, path))
      return Refuse(std::string(kOutsideDataFolder));
    if (ReadProbabilityFile(g, path.string()) != ProbFileStatus::Ok)
      return Refuse("File not found or file is not a valid probability file.");
  }
  g.dice.ProbabilityDiceOn = true;
}

// The four forms: no argument, a name, "from roll" n, a name and "from
// roll" n. A name other than the open file's replaces it; the roll to start
// from is the first when n lies outside the file.
void Action::PlaybackDiceRollFile() {
  DiceFileState& f = g.diceFile;
  const bool named = Args() == 1 || Args() == 3;
  const bool fromRoll = Args() >= 2;
  std::filesystem::path path;
  if (named) {
    const std::string name = TrimmedText(1);
    if (!name.empty()) {
      if (!ScriptFilePath(g, r.ScriptBettor, name, path))
        return Refuse(std::string(kOutsideDataFolder));
      if (path.string() == f.DiceFilePath) path.clear();
    }
  }
  if (!path.empty()) {
    if (!FileExists(path.string())) return Refuse("File not found.");
    CloseDiceRollFile(g);
    if (!IsDiceRollFile(path.string())) return Refuse("File is not a valid dice roll file.");
    f.DiceFilePath = path.string();
    f.DiceFilePos = f.DiceSelEnd = f.DiceSelStart = 1;
    f.DiceFileLast = 0;
    f.Error.clear();
  } else if (f.DiceFilePath.empty()) {
    return Refuse("Dice roll file not open.");
  } else if (named) {
    f.DiceSelEnd = f.DiceFilePos;
  }
  if (fromRoll) {
    const double n = Arg(Args()).Value;
    const double length = static_cast<double>(DiceRollTotal(g));
    f.DiceFilePos = n >= 1 && n <= length ? static_cast<std::int32_t>(n) : 1;
    f.DiceSelEnd = f.DiceFilePos;
  }
  SetDiceFileMode(g, kDiceFilePlayback);
}

void Action::Swap() {
  int first = 0, second = 0;
  for (int k = 2; k <= r.WorkCount; ++k) {
    if (r.WorkStatement[static_cast<std::size_t>(k)].Kind != kVariableTarget) continue;
    (first == 0 ? first : second) = k;
    if (second) break;
  }
  if (second == 0) return;
  // The first value is kept apart (a name as its own string) before the
  // second overwrites it.
  const ScriptElement kept = ReadTargetValue(g, first);
  const ScriptElement other = ReadTargetValue(g, second);
  SetTarget(g, first, other, true);
  SetTarget(g, second, kept, true);
}

}  // namespace

void TakeAction(Game& g, int action) {
  Action a{g, g.scriptRun};
  ScriptRunState& r = g.scriptRun;
  const bool hyper = g.HyperDrive;
  switch (action) {
    case 100:
    case 101:
    case 102:
    case 103:
      a.NewSession(action == 101 || action == 103, action >= 102 ? 2 : 0);
      break;
    case 114:
      if (!a.Allowed(r.AllowDiceFiles))
        a.RefusePermission(" is not allowed to deactivate probability files.");
      else
        g.dice.ProbabilityDiceOn = false;
      break;
    case 115:
      g.KeepRolling = false;
      if (hyper) g.StopMessage = "Stopped by Auto-Bet command.";
      break;
    case 116:
      r.ShowSteps = true;
      break;
    case 118:
      if (r.ScriptBettor != g.Shooter && !a.Allowed(r.AllowActForOthers))
        a.RefusePermission(" is not the shooter.");
      else
        PassDice(g, !hyper);
      break;
    case 119:
      if (!a.Allowed(r.AllowDiceFiles))
        a.RefusePermission(" is not allowed to deactivate roll files.");
      else if (g.diceFile.DiceFilePath.empty())
        a.Refuse("Dice roll file is not open.");
      else if (g.diceFile.DiceFileMode > kDiceFileInactive)
        SetDiceFileMode(g, kDiceFileInactive);
      break;
    case 210: {
      const Long wanted = hyper ? kNoticeScriptHyper : kNoticeScriptNormal;
      if (!(g.rules.NoticeFlags & wanted)) break;
      if (hyper) g.KeepRolling = false;
      ElementText(g, a.Arg(1), g.msg.MsgText);
      a.Dialog(kMessageStyle);
      break;
    }
    case 211:
      if (hyper) g.KeepRolling = false;
      ElementText(g, a.Arg(1), g.msg.MsgText);
      a.Dialog(kQuestionStyle);
      break;
    case 212:
      if (!hyper && !g.rules.SoundMuted && !g.rules.AutoBetSoundsOff && g.platform) {
        g.platform->PlaySound("", 0);
        g.platform->PlaySound(a.TrimmedText(1), kWaitSound);
      }
      break;
    case 213:
      if (!a.Allowed(r.AllowDiceFiles))
        a.RefusePermission(" is not allowed to activate probability files.");
      else
        a.ProbabilityFile();
      break;
    case 220:
    case 221:
    case 223:
      a.OutputFile(action);
      break;
    case 225:
    case 226: {
      const ScriptElement& amount = a.Arg(1);
      double v = amount.Value;
      if (amount.Kind == kString) {
        ElementText(g, amount, r.TextC);
        v = TextValue(r.TextC);
      }
      if (r.ScriptBettor >= 1 && r.ScriptBettor <= 8)
        Atm(g, r.ScriptBettor, action == 225, CurFromDouble(v));
      break;
    }
    case 300:
      a.Swap();
      break;
    case 310:
      if (!a.Allowed(r.AllowDiceFiles))
        a.RefusePermission(" is not allowed to activate roll files.");
      else
        a.PlaybackDiceRollFile();
      break;
    default:
      break;
  }
}
