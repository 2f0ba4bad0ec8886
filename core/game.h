// Game: the whole state of one game of craps, one plain aggregate of fixed
// tables addressed by small integers (a player slot, a bet id, a frame, a
// tally category). Procedures everywhere take it by reference and read and
// write its tables directly; nothing in the engine is global, so a test can
// build as many games as it likes and a batch run gives each thread its own.
//
// What must stay true:
// - Slot 0 is the House: it never has money or bets; Bet(0, ...) stays 0.
// - Bet(p, 0) is the bankroll including the money on bets; the rail is
//   Bet(p, 0) - TotalBets(p) and is never stored (but for RailAtRoll).
// - TotalBets(p) is the sum of Bet(p, 1..85) plus vig already paid; only
//   SetBetChecked changes a bet, so the two never disagree.
// - Frame index i = slot + 9 * t (t: 0 current hand, 1 last hand,
//   2 current session, 3 last session, 4 all sessions). Live updates touch
//   frames 0, 2 and 4 only.
//
// The tables of each subsystem that are not part of this core model live in
// their own member structs, declared in their own folders.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>

#include "analysis/advantage_state.h"
#include "automation/autoplay_state.h"
#include "automation/hyperdrive_state.h"
#include "config/settings_state.h"
#include "config/sound_state.h"
#include "core/catalogue.h"
#include "core/currency.h"
#include "core/message.h"
#include "core/print_document.h"
#include "core/roll_tally.h"
#include "core/rolls_at_table.h"
#include "core/rolls_since.h"
#include "core/tables.h"
#include "dice/dice_file_state.h"
#include "dice/dice_state.h"
#include "dice/probability_state.h"
#include "dice/roll_pad_state.h"
#include "engine/betting_state.h"
#include "core/frames.h"
#include "engine/roll_state.h"
#include "logs/events_log_state.h"
#include "script/code_state.h"
#include "script/run_state.h"
#include "script/source_state.h"
#include "stats/views_state.h"
#include "store/game_file_state.h"
#include "stats/graph_state.h"
#include "table/table_state.h"

class Platform;

// Small named bounds of the tables.
constexpr int kLastBetId = 200;                     // Bet has ids 0..200 (CheckStacks 100..199)
constexpr int kLongGap = 200;                       // GapTally's last column: the long gaps' count
constexpr int kLongGapRolls = 0;                    // GapTally's column 0: the long gaps' rolls
constexpr int kGraphColumns = 525;                  // columns of one page of the bankroll graph
constexpr std::int64_t kBankrollLimit = 9'999'999;  // either sign
constexpr std::int32_t kSessionRollLimit = 100'000'000;
// The most rolls all sessions together may count: a Long less one session's
// limit. Every count of the tables (tallies, gaps, hands, streaks) grows at
// most by one a roll, so none can overflow, and a game saved at the limit
// still opens (the game file takes counts up to it).
constexpr std::int32_t kAllSessionsRollLimit =
    std::numeric_limits<std::int32_t>::max() - kSessionRollLimit;

// The scrolling page's window (engine/roll_graph.cpp): for each seat, the
// stored columns that can still be the page's highest (lowest) bankroll,
// oldest first, each's value above (below) every later one's. Kept only
// while `known`; anything that writes the page other than a scroll clears it.
struct GraphScrollWindow {
  struct Queue {
    std::array<std::int16_t, kGraphColumns> slot{};  // a ring of stored columns
    int head = 0, size = 0;
  };
  std::array<Queue, 9> high, low;
  bool known = false;
  // Derived from the page, so it takes no part in comparing two games: a
  // loaded game equals the one saved whatever either had worked out.
  friend bool operator==(const GraphScrollWindow&, const GraphScrollWindow&) { return true; }
};

// Every bet id's statistics row, for each slot: the safe starting state of
// the hand-end row sets.
constexpr std::array<std::array<std::uint64_t, 2>, kPlayerSlots> AllStatRows() {
  std::array<std::array<std::uint64_t, 2>, kPlayerSlots> all{};
  for (auto& set : all) set = {~std::uint64_t{0}, ~std::uint64_t{0}};
  return all;
}

struct Game {
  Platform* platform = nullptr;

  // Players.
  std::array<std::string, kPlayerSlots> PlayerName{};
  Long PlayerCount = 0;

  // Bets, by (slot, bet id).
  Table2<Currency, 0, 8, 0, 200> Bet;
  Table2<Currency, 0, 8, 0, 200> BetAtRoll;
  Table2<Currency, 0, 8, 0, 200> BetAfterRoll;
  Table2<Currency, 0, 8, 0, 85> BetContract;
  Table2<Long, 0, 8, 0, 100> BetWorking;
  Table2<Long, 0, 8, 0, 100> BetWorkingDefault;
  Table2<Long, 0, 8, 0, 100> BetWorkingAfterRoll;
  Table3<Long, 0, 8, 0, 100, 0, 1> BetTrend;
  Table1<Currency, 0, 8> TotalBets;
  Table2<Currency, 0, 8, 0, 5> LayVig;
  Table2<Currency, 0, 8, 0, 5> BuyVig;
  Table2<Currency, 0, 8, 0, 5> ComeFlatAtSet;
  Table2<std::string, 0, 8, 0, 99> CheckStackName;
  Currency BetRequest;  // the change asked of SetBetChecked

  // Dice and the game in hand.
  Long Die1 = 3, Die2 = 4, DiceTotal = 7;
  Long Point = 0, PointAtRoll = 0, PointBeforeLast = 0, LastPoint = 0;
  Long PointsMadeMask = 0, PointsMade = 0;
  Long Shooter = 0, HandShooter = 0, PrevHandShooter = 0;
  Long ComeoutsThisHand = 0, PassesThisHand = 0, MissesThisHand = 0;
  Long CurBet = 0;
  Currency NetPayoff, GrossPayoff;
  bool BetComesDown = false;
  bool RollBusy = false;
  bool KeepRolling = false;
  bool HyperDrive = false;
  std::string StopMessage;

  // Statistics by frame index (slot + 9 * t).
  Table3<Currency, 0, kLastFrameIndex, 0, 100, 0, kStatColumnCount - 1> StatAction;
  Table3<Currency, 0, kLastFrameIndex, 0, 100, 0, kStatColumnCount - 1> StatWins;
  Table3<Currency, 0, kLastFrameIndex, 0, 100, 0, kStatColumnCount - 1> StatLosses;
  // Per slot, the bet ids (bit id of word id / 64) whose current-hand and
  // last-hand rows of StatAction, StatWins and StatLosses may be non-zero:
  // always a superset, so that a hand's end moves only those rows. The
  // decision tally adds to the first; anything else that fills those frames
  // (a loaded game) must set every bit, which is also the starting state.
  using StatRowSet = std::array<std::uint64_t, 2>;
  std::array<StatRowSet, kPlayerSlots> StatRowsThisHand = AllStatRows();
  std::array<StatRowSet, kPlayerSlots> StatRowsLastHand = AllStatRows();
  Table2<Currency, 0, kLastFrameIndex, 0, 5> ComeTravelTotal;
  RollTallyTable RollTally;  // by (frame index, roll event); see core/roll_tally.h
  Table3<Long, 0, kLastFrameIndex, 2, 12, 1, 3> TotalsTally;
  Table1<Long, 0, kLastFrameIndex> HandsTally;
  RollsAtTableTable RollsAtTable;  // by frame index; see core/rolls_at_table.h
  Table1<Long, 0, kLastFrameIndex> MostRollsHand;
  Table1<Long, 0, kLastFrameIndex> MostComeoutHand;
  Table1<Long, 0, kLastFrameIndex> MostPassesHand;
  Table1<Long, 0, kLastFrameIndex> MostMissesHand;

  // Gap analysis, whole game.
  RollsSinceTable RollsSince;
  Table2<Long, 0, kLastEvent, 0, kLongGap> GapTally;

  // Bankroll records by slot.
  Table1<Currency, 0, 8> InvestedBankroll;
  Table1<Currency, 0, 8> BankrollHigh;
  Table1<Currency, 0, 8> BankrollLow;
  Table1<Currency, 0, 8> BankrollSum;
  Table1<Currency, 0, 8> RailAtRoll;

  // Bankroll graph history.
  Table2<Currency, 0, 8, 0, 1050> GraphBankroll;
  Table2<Currency, 0, 8, 0, 525> GraphTrend;
  Table1<Currency, 0, 8> GraphHigh;
  Table1<Currency, 0, 8> GraphLow;
  Long GraphRollCount = 0;

  // Payoffs: for bet id b, column 0 the full-pay unit, 1 the numerator a,
  // 2 the "for" flag, 3 the denominator d. Row 0 is the bet under settlement.
  Table2<Currency, 0, 3, 0, 100> PayoffTbl;
  Table2<Currency, 0, 3, 0, 21> FieldPayoff;
  Table2<Currency, 0, 3, 0, 5> MidwayPayoff;
  Table2<Currency, 0, 3, 0, 6> FirePayoff;
  Table1<Currency, 1, 5> CheckValue;  // chip denominations, smallest first

  // The subsystems' own state.
  TableSettings rules;
  SoundState sound;
  MessageState msg;
  DiceState dice;
  ProbabilityState probability;
  AdvantageState advantage;
  DiceFileState diceFile;
  RollPadState pad;
  RollState roll;
  EventsLogState eventsLog;
  HyperDriveState hyper;
  AutoPlayState autoplay;
  BettingState betting;
  ScriptSource scriptSource;
  ScriptCode scriptCode;
  ViewsState views;
  GameFileState gamefile;
  ScriptRunState scriptRun;
  TableState table;
  GraphViewState graph;
  // The bankroll graph's page, previous page and trend of seats 1..8 (above)
  // are rings that share this start: logical column k is stored at column
  // 1 + (k - 1 + GraphStart) % kGraphColumns (plus kGraphColumns for the
  // previous page), so that a scroll moves no column. Read and write them
  // through core/graph_rows.h. Not 0 only while the page is full. Kept at
  // the end with the window, so that the tables the roll reads keep their
  // places in the game.
  Long GraphStart = 0;
  GraphScrollWindow GraphWindow;  // the scroll's window of the graph's page (engine/roll_graph.cpp)
  PrintDocument GraphSheet;  // bankroll graphs waiting for a full sheet (stats/bankroll_printout.h)

  friend bool operator==(const Game&, const Game&) = default;
};
