#include "cycle/roll_pad_click.h"

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "cycle/roll.h"
#include "dice/roll_pad.h"
#include "script/activation.h"

namespace {

// Yes, No, the question mark, the focus on No.
constexpr int kPadQuestionStyle = kMsgYes | kMsgNo | kMsgPicQmark | kMsgFocusNo;
constexpr int kHyperDriveHelp = kHelpHyperDrive;

// During Hyper-Drive a click asks to stop the run, and during a script run
// to interrupt auto-betting; either way, whatever the answer, it never rolls.
bool BusyWithARun(Game& g) {
  if (g.HyperDrive) {
    if (ShowNotice(g, "Do you want to stop Hyper-Drive?", "Hyper-Drive Active", kHyperDriveHelp,
                   kPadQuestionStyle) == kAnswerYes)
      g.KeepRolling = false;
    return true;
  }
  if (g.scriptRun.ScriptRunning) {
    AskInterruptAutoBetting(g);
    return true;
  }
  return false;
}

}  // namespace

PadClickOutcome PadClick(Game& g, bool rightButton, int x, int y, int width, int height,
                         double rnd) {
  if (rightButton) return PadClickOutcome::ShowMenu;
  if (BusyWithARun(g) || g.RollBusy) return PadClickOutcome::Nothing;
  RollPadState& pad = g.pad;
  const PadLayout layout = PadLayoutFor(PadKindOf(pad.PadOptions), width, height);
  const PadCell cell =
      PadCellOfClick(layout, x, y, width, height, (pad.PadOptions & kPadRollCounter) != 0);
  if (cell.what == PadCell::Empty) return PadClickOutcome::Nothing;
  if (!ChoosePadDice(pad, cell, rnd)) return PadClickOutcome::Picked;
  RollDice(g);
  return PadClickOutcome::Rolled;
}

bool PadRandomRoll(Game& g) {
  if (BusyWithARun(g) || g.RollBusy) return false;
  RollDice(g);
  return true;
}
