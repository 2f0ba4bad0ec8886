// State of the roll cycle and start-up that is not one of the game's bet or
// tally tables: the folders, the events-log switches and path (the log's
// writer keeps its own working state, logs/events_log_state.h), the graph's
// view settings that the roll's history shift reads, the script switches,
// and a queue of known dice.
//
// What must stay true:
// - The roll writes log lines only while LogOn is set; with logging off the
//   roll path never builds a line, so a roll allocates nothing.
// - QueuedDice is empty in play. It is the hook through which the roll pad
//   and the tests hand the roll a known pair; RollDice takes from it before
//   any other dice source.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/bet_id_set.h"
#include "core/catalogue.h"
#include "core/currency.h"

struct RollState {
  // Folders, each with a trailing separator; AppPath is lower case.
  std::string AppPath;
  std::string DataFolder;
  std::string EventsLogPath;  // DataFolder & "Events Log.txt"
  std::string HelpFilePath;   // AppPath & "ravelton.chm"

  // Clock calls per millisecond measured at start-up (Hyper-Drive's throttle).
  std::int32_t LoopsPerTick = 0;

  // Events-log switches: LogOn is the master, each class has its own flag.
  bool LogOn = false;
  bool LogRolls = true, LogBets = true, LogStacks = true, LogNewHand = true;
  bool LogWins = true, LogLosses = true, LogPasses = true, LogBankroll = true;
  bool LogClearOnNew = false;  // a new session starts the log afresh
  bool LogRollOnTop = false;   // the viewer's top line follows each new roll line

  // Stick calls 1..18 of the chosen set, by path (empty: not listed).
  std::array<std::string, 19> StickCallFile{};

  // Each player's sessions log file.
  std::array<std::string, 9> SessionLogPath{};
  // Off in a batch's sessions: they are not the user's sessions to record.
  bool SessionLogsOn = true;

  // The game has unsaved changes.
  bool SessionDirty = false;

  // Bankroll graph settings read by the roll's history shift.
  std::int32_t GraphPlotType = 0;  // 0 page, 1 scroll
  bool GraphShowAverage = false;
  bool GraphAutoPrint = false;
  bool GraphOpen = false;      // the graph view is on screen
  bool GraphPrintDue = false;  // a full page is waiting for the auto-print
  Currency GraphScale = Currency::FromWhole(1);
  Currency GraphBaseScale = Currency::FromWhole(1);
  Currency GraphTop = Currency::FromWhole(150);

  // Script switches: slots 1..8 per player, slot 0 true when any is.
  std::array<bool, 9> ScriptActive{};
  std::array<bool, 9> ScriptActiveAtRoll{};  // as last logged
  bool ScriptsOK = false;                    // the active scripts are compiled

  // Seats (bit p) whose ids above the real bets (86..200: the CheckStacks
  // and the cells that are no bet) may differ from their BetAtRoll or
  // BetAfterRoll copy; the roll's snapshots copy those ids just for these
  // seats. The CheckStack writers mark their seat (MarkCheckStacksChanged),
  // and the start of a roll call, a script run and Hyper-Drive's event pumps
  // mark every seat (MarkSeatRowsChanged), since whatever else writes
  // those ids (files, seats, sessions) does so only there.
  std::uint32_t UpperCellsChangedAtRoll = ~0u;
  std::uint32_t UpperCellsChangedAfterRoll = ~0u;

  // Per seat, the real bet ids 0..85 (bit b % 64 of word b / 64) whose
  // cells may have changed, so that the roll's snapshots copy just those
  // (BetAtRoll, BetContract and the at-roll streaks of BetTrend at the
  // roll's start; BetAfterRoll and BetWorkingAfterRoll at its end).
  // BetIdsChanged gathers the ids changed since the seat's last snapshot;
  // a snapshot copies those and the ids of the stretch before
  // (BetIdsChangedBefore), which its own copies last saw, then moves one
  // set down. Within a roll call the writers of those cells mark them
  // (MarkBetChanged): SetBetChecked, ResolveBet (bankroll, contract and
  // streak), MoveBet, the working-flag writers of place_actions; after
  // ResetWorkingFlags the roll marks every working flag
  // (WorkingChangedAfterRoll) or, in a Hyper-Drive roll without scripts,
  // has the reset store its flags in BetWorkingAfterRoll too. What else writes them (files, seats,
  // sessions, dialogs, scripts, tests) does so outside a roll call, in a
  // script run or in an event pump, after each of which every id of every
  // seat is marked (MarkSeatRowsChanged); a roll observer changes bets only
  // through the placing gate. The bankroll (id 0) has many writers and is
  // always copied.
  static constexpr BetIdSet kEveryBetId = BetIdRange(0, kLastRealBet);
  std::array<BetIdSet, 9> BetIdsChanged = EveryBetIdOfEverySeat();
  std::array<BetIdSet, 9> BetIdsChangedBefore = EveryBetIdOfEverySeat();
  // Seats (bit p) whose whole BetWorking row may differ from BetWorkingAfterRoll.
  std::uint32_t WorkingChangedAfterRoll = ~0u;
  // Seats (bit p) whose every real bet id is marked (MarkSeatRowsChanged):
  // the at-roll and the after-roll snapshot copy their rows whole, by a
  // bit test rather than a test of the two-word sets.
  std::uint32_t WholeRowsAtRoll = ~0u;
  std::uint32_t WholeRowsAfterRoll = ~0u;
  // Per seat, the ids the at-roll snapshots have taken (every id that
  // changed since the seat's decisions last looked) and, as those decisions
  // began, the real bets 1..85 with money on them: the roll's decisions
  // (DecideRolledBets) look again only at the ids taken since, not at
  // every cell of every seat. Seats (bit p) whose held bets are not known
  // (every id was marked) are read whole at their next look.
  std::array<BetIdSet, 9> BetIdsTakenAtRoll = EveryBetIdOfEverySeat();
  std::array<BetIdSet, 9> HeldBetIds{};
  std::uint32_t HeldBetIdsUnknown = ~0u;

  // Notes that a cell of real bet b of seat p changed (see above).
  void MarkBetChanged(int p, int b) { BetIdsChanged[static_cast<std::size_t>(p)].Add(b); }
  static constexpr std::array<BetIdSet, 9> EveryBetIdOfEverySeat() {
    std::array<BetIdSet, 9> all{};
    all.fill(kEveryBetId);
    return all;
  }

  // The seats (bit p) the last roll started with, while SeatsKnown: the
  // roll reads the seats once per call rather than once per roll. Only a
  // script run, an event pump or what happens outside a roll call seats or
  // cashes out a player, and each is followed by MarkSeatRowsChanged, which
  // clears SeatsKnown; a roll observer seats no one.
  std::uint32_t SeatsAtRoll = 0;
  bool SeatsKnown = false;

  // The bankroll graph's open seats that a new column within the page may
  // pass over (bit p): no money, every column of the page 0 and the range
  // around 0, so that adding a column of 0 changes nothing. In Hyper-Drive
  // the graph step looks the open seats over when GraphIdleFound is false
  // and keeps the answer while no one is seated there; whatever else writes
  // the graph rows (files, sessions, dialogs, seats, scripts) does so
  // outside a roll call, in a script run or in an event pump, after each of
  // which the roll forgets the idle seats (MarkSeatRowsChanged); a roll
  // observer seats no one.
  std::uint32_t GraphIdleSeats = 0;
  bool GraphIdleFound = false;
  // Forgets the idle seats; `lookAgain` lets the next graph step find them.
  void ForgetIdleGraphRows(bool lookAgain) {
    GraphIdleSeats = 0;
    GraphIdleFound = !lookAgain;
  }

  // Known dice for the next rolls (roll pad and tests), first in first out.
  static constexpr int kDiceQueue = 64;
  std::array<std::array<std::int8_t, 2>, kDiceQueue> QueuedDice{};
  int QueuedHead = 0, QueuedCount = 0;

  friend bool operator==(const RollState&, const RollState&) = default;
};
