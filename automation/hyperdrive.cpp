#include "automation/hyperdrive.h"

#include <cmath>

#include "config/message_dialog.h"
#include "engine/game.h"
#include "engine/platform.h"
#include "engine/roll.h"

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

void NoteHyperDriveRoll(Game& g) {
  HyperDriveState& h = g.hyper;
  ++h.RollsThisRun;
  if (h.RollObserver) h.RollObserver(h.RollObserverContext, g);
  if (h.RunRollLimit > 0 && h.RollsThisRun >= h.RunRollLimit) g.KeepRolling = false;
}

void PaceHyperDrive(Game& g) {
  HyperDriveState& h = g.hyper;
  const std::int32_t throttle = h.HyperThrottle;
  if (throttle > 0 || --h.PaceCountdown <= 0) {
    h.PaceCountdown = HyperDriveState::kPaceEvery;
    g.platform->DoEvents();
  }
  if (h.AutoStopRolls.raw > 0) {
    const std::int64_t every = WholeRolls(h.AutoStopRolls);
    const std::int64_t rolls = g.RollTally(18, 0);
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
    g.msg.MsgHelpId = 540;
    g.msg.MsgStyle = 513;
    ShowMessage(g, true);
  }
  // The buttons read "Start Hyper-&Drive" again; the graph offers its print.
  g.platform->RequestRedraw(Redraw::StatusBoxes);
  g.platform->RequestRedraw(Redraw::Table);
}

void StopHyperDrive(Game& g) { g.KeepRolling = false; }
