// State of a Hyper-Drive run: its limits, throttle, Auto-Stop and the
// counters of the pacing step.
//
// What must stay true: at HyperThrottle 0 the pacing step reads the clock
// and pumps events only once every kPaceEvery rolls, so a run at full speed
// costs nothing measurable beyond the roll itself.
#pragma once

#include <cstdint>
#include <string>

#include "core/currency.h"

struct Game;

struct HyperDriveState {
  std::int32_t HyperThrottle = 0;  // 0 fastest .. 10 slowest
  Currency HyperDelaySeconds;      // extra delay at throttle 10, 0..300 seconds
  Currency AutoStopRolls;          // stop every so many session rolls; 0 never

  // Rolls between two event pumps at full speed.
  static constexpr std::int32_t kPaceEvery = 4096;
  std::int32_t PaceCountdown = 0;
  std::int64_t RollsThisRun = 0;   // rolls of the run in progress or last run
  std::uint32_t RunStartTime = 0;  // clock at the start of the run
  std::uint32_t RunEndTime = 0;    // clock at its end
  // Rolls after which a run ends as if the user stopped it; 0 for none.
  std::int64_t RunRollLimit = 0;
  // Called after every roll of a run when set (a front end's trace or live
  // view); null on the fast path. It seats and cashes out no one: the
  // roll keeps the seats it read at the start of its call.
  void (*RollObserver)(void* context, const Game& game) = nullptr;
  void* RollObserverContext = nullptr;
  // Why the last run ended, kept after the window has cleared StopMessage.
  std::string LastStopMessage;

  friend bool operator==(const HyperDriveState&, const HyperDriveState&) = default;
};
