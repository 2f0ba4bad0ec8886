// Hyper-Drive: RollDice looping by itself with all drawing, sound and
// dialogs off. RunHyperDrive starts a run (or stops the one in progress);
// the pacing step runs after every roll; EndHyperDrive switches the run off
// and shows why it ended.
//
// What must stay true: a run stops only between two rolls, by KeepRolling
// falling; an earlier StopMessage is never overwritten by Auto-Stop. At
// throttle 0 pacing reads the clock and pumps events only every
// HyperDriveState::kPaceEvery rolls.
#pragma once

#include "core/game.h"

// Starts a run, or stops the one in progress; returns when the run has ended.
void RunHyperDrive(Game& game);

// Counts a roll of the run: the observer, the run's roll limit. Inline, as
// is the pacing step's countdown: they run after every roll.
inline void NoteHyperDriveRoll(Game& game) {
  HyperDriveState& h = game.hyper;
  ++h.RollsThisRun;
  if (h.RollObserver) h.RollObserver(h.RollObserverContext, game);
  if (h.RunRollLimit > 0 && h.RollsThisRun >= h.RunRollLimit) game.KeepRolling = false;
}

// The pacing step's work beyond the countdown: the event pump when `pump`,
// Auto-Stop, and the throttle's spin and delay.
void PaceAndCheckHyperDrive(Game& game, bool pump);

// The pacing step after each roll of a run: events, Auto-Stop, throttle.
inline void PaceHyperDrive(Game& game) {
  HyperDriveState& h = game.hyper;
  // At full speed without Auto-Stop most rolls only count down to the next pump.
  const bool pump = h.HyperThrottle > 0 || --h.PaceCountdown <= 0;
  if (!pump && h.AutoStopRolls.raw <= 0) return;
  PaceAndCheckHyperDrive(game, pump);
}
// The end of a run: HyperDrive off, the stop message, the redraws.
void EndHyperDrive(Game& game);
// Asks how often Hyper-Drive stops by itself; Cancel keeps the value.
void SetAutoStop(Game& game);
// Asks for the extra delay between rolls at the slowest setting (0..300 s).
void SetTimeDelay(Game& game);
// The question a click or key asks during a run; Yes clears KeepRolling.
// shortForm asks "Do you want to stop Hyper-Drive?" as some places do.
bool AskStopHyperDrive(Game& game, bool shortForm = false);
// Stops a run from outside (the user's stop): KeepRolling off.
void StopHyperDrive(Game& game);
