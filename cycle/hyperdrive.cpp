#include "cycle/hyperdrive.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "cycle/roll.h"

namespace {

std::int64_t WholeRolls(Currency c) { return c.raw / Currency::kScale; }

// The empty counted loop of the throttle; volatile keeps it from being removed.
void SpinRounds(std::int64_t rounds) {
  volatile std::int64_t sink = 0;
  for (std::int64_t i = 0; i < rounds; ++i) sink = sink + 1;
}

void WaitForDelay(Game& g) {
  // Seconds in ten-thousandths, so milliseconds are raw / 10.
  const std::int64_t waitMs = g.hyper.HyperDelaySeconds.raw / 10;
  const std::uint32_t start = g.platform->TimeGetTime();
  while (g.KeepRolling) {
    g.platform->DoEvents();
    MarkSeatRowsChanged(g);
    if (static_cast<std::int64_t>(g.platform->TimeGetTime() - start) >= waitMs) break;
  }
}

}  // namespace

void RunHyperDrive(Game& g) {
  if (g.KeepRolling) {
    g.KeepRolling = false;
    return;
  }
  if (g.RollBusy) return;
  for (int p = 1; p <= 8; ++p) {
    if (BankrollBeyondLimit(g, p)) {
      LimitExceeded(g, p);
      return;
    }
  }
  g.HyperDrive = true;
  g.KeepRolling = true;
  HyperDriveState& h = g.hyper;
  h.PaceCountdown = HyperDriveState::kPaceEvery;
  h.RollsThisRun = 0;
  h.LastStopMessage.clear();
  h.RunStartTime = g.platform->TimeGetTime();
  // The window shows the table's present picture and "Hyper-Drive Active"
  // on its status line, and the start buttons read "Stop Hyper-&Drive".
  RollDice(g);
}

void PaceAndCheckHyperDrive(Game& g, bool pump) {
  HyperDriveState& h = g.hyper;
  const std::int32_t throttle = h.HyperThrottle;
  if (pump) {
    h.PaceCountdown = HyperDriveState::kPaceEvery;
    g.platform->DoEvents();
    // The window may have changed bets and CheckStacks while it had the events.
    MarkSeatRowsChanged(g);
  }
  if (h.AutoStopRolls.raw > 0) {
    const std::int64_t every = WholeRolls(h.AutoStopRolls);
    const std::int64_t rolls = g.RollTally(kTableSession, kEventRolls);
    if (every > 0 && rolls > 0 && rolls % every == 0) {
      g.KeepRolling = false;
      if (g.StopMessage.empty()) g.StopMessage = "Stopped by Auto-Stop.";
    }
  }
  if (throttle > 0) {
    SpinRounds(std::llround(static_cast<double>(throttle) * throttle * g.roll.LoopsPerTick));
    if (throttle >= 10) WaitForDelay(g);
  }
}

void EndHyperDrive(Game& g) {
  HyperDriveState& h = g.hyper;
  g.HyperDrive = false;
  h.RunEndTime = g.platform->TimeGetTime();
  h.LastStopMessage = g.StopMessage;
  // Minimised, the window's caption reads "Ravelton Hyper-Drive Stopped" and
  // the message waits until the window is restored.
  if (!g.StopMessage.empty() && !g.platform->MainWindowMinimized()) {
    g.msg.MsgText = g.StopMessage;
    g.msg.MsgTitle = "Hyper-Drive Stopped";
    g.msg.MsgHelpId = kHelpHyperDrive;
    g.msg.MsgStyle = kMsgOk | kMsgPicStop;
    ShowMessage(g, true);
  }
  // The buttons read "Start Hyper-&Drive" again; the graph offers its print.
  g.platform->RequestRedraw(Redraw::StatusBoxes);
  g.platform->RequestRedraw(Redraw::Table);
}

void StopHyperDrive(Game& g) { g.KeepRolling = false; }

bool AskStopHyperDrive(Game& g, bool shortForm) {
  g.msg.MsgText =
      shortForm ? "Do you want to stop Hyper-Drive?" : "Do you want to stop the Hyper-Drive?";
  g.msg.MsgTitle = "Hyper-Drive Active";
  g.msg.MsgHelpId = kHelpHyperDrive;
  g.msg.MsgStyle = kMsgYes | kMsgNo | kMsgPicQmark;
  ShowMessage(g, true);
  if (g.msg.MsgAnswer != kAnswerYes) return false;
  StopHyperDrive(g);
  return true;
}

namespace {

// Asks with one answer box prefilled with `current`; false on Cancel.
bool AskForValue(Game& g, std::string text, std::string_view title, Currency current,
                 double& value) {
  g.msg.MsgText = std::move(text);
  g.msg.MsgTitle = title;
  g.msg.MsgHelpId = kHelpHyperDrive;
  g.msg.MsgStyle = kMsgOk | kMsgCancel | kMsgInput1;
  g.msg.MsgInput1 = FormatMoney(current);
  ShowMessage(g, true);
  if (g.msg.MsgAnswer == kAnswerCancel) return false;
  value = LeadingValue(g.msg.MsgInput1);
  return true;
}

}  // namespace

void SetAutoStop(Game& g) {
  double v = 0;
  if (!AskForValue(
          g,
          "How often (number of rolls) would you like Hyper-Drive to automatically stop?  \r"
          "(enter 0 for no automatic stopping)",
          "Set Hyper-Drive Auto-Stop", g.hyper.AutoStopRolls, v))
    return;
  // Whole rolls; more than the session can ever roll is as good as never.
  constexpr double kMost = 1e12;
  g.hyper.AutoStopRolls = v > 0 ? CurFromDouble(std::floor(std::min(v, kMost))) : Currency{};
}

void SetTimeDelay(Game& g) {
  double v = 0;
  if (!AskForValue(g,
                   "Enter any additional time delay (in seconds, 300 max) desired between rolls \r"
                   "(only applies to hyper-drive's slowest setting):",
                   "Set Hyper-Drive Time Delay", g.hyper.HyperDelaySeconds, v))
    return;
  g.hyper.HyperDelaySeconds = CurFromDouble(std::clamp(std::isnan(v) ? 0.0 : v, 0.0, 300.0));
}
