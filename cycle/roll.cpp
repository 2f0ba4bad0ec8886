// RollDice: the once-per-call checks, the roll loop (which Hyper-Drive
// repeats), and the end of the call. The tallies, the state machine, the
// graph and the log lines live in their own files.
#include "cycle/roll.h"

#include <algorithm>
#include <bit>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "automation/autoplay.h"
#include "config/payoffs.h"
#include "config/sound.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "core/seat_set.h"
#include "cycle/hyperdrive.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/resolve.h"
#include "engine/roll_internal.h"
#include "engine/roll_steps.h"
#include "script/activation.h"
#include "script/interpreter.h"
#include "stats/bankroll_printout.h"

namespace {

constexpr Currency kLimitAmount = Currency::FromWhole(kBankrollLimit);
// The ids whose working flags the after-roll snapshot keeps: the real bets
// (the bankroll has none).
constexpr BetIdSet kBetsWithWorkingFlags = BetIdRange(1, kLastRealBet);

// The roll's own messages: help topic 130, modal.
void ShowRollMessage(Game& g, std::string text, std::string_view title,
                     int style = kMsgOk | kMsgPicStop) {
  g.msg.MsgText = std::move(text);
  g.msg.MsgTitle = title;
  g.msg.MsgHelpId = kHelpLimits;
  g.msg.MsgStyle = style;
  ShowMessage(g, true);
}

const std::string& ShooterName(const Game& g) {
  return g.PlayerName[static_cast<std::size_t>(g.Shooter)];
}

// Step 6: the bet requirement. False stops the roll (and the run). Out of
// line: the roll calls it only when a rule is set.
[[gnu::noinline]] bool MeetsBetRequirement(Game& g) {
  const Long rule = g.rules.BetRequirement;
  if (rule == kNoBetRequired) return true;
  if (g.PlayerCount == 0) {
    g.KeepRolling = false;
    g.RollBusy = false;
    if (g.HyperDrive) {
      g.StopMessage = "No players are available to bet.";
    } else {
      ShowRollMessage(g,
                      "No players are available to bet.\r\r"
                      "Please enter a player or change the requirement to make a bet on the "
                      "'Bets tab' of the configuration screen.",
                      "Bet Required");
    }
    return false;
  }
  const int s = g.Shooter;
  constexpr std::string_view kNote =
      "Note: This requirement can be changed on the 'Bets tab' of the configuration screen.";
  if (rule == kLineBetRequired) {
    if (g.Bet(s, bet::kPassLine).raw > 0 || g.Bet(s, bet::kDontPass).raw > 0) return true;
    g.KeepRolling = false;
    if (g.HyperDrive) {
      g.StopMessage = "Shooter has no line bet.";
    } else {
      std::string t = "A line bet is required to shoot.\r\r" + ShooterName(g);
      if (g.PlayerCount == 1)
        t += " must make a Pass Line bet or a Don't Pass bet.";
      else if (g.Point == 0)
        t += " must make a Pass Line bet, a Don't Pass bet, or pass the dice.";
      else
        t += " must make a Pass Line bet or pass the dice.";
      t += "\r\r";
      t += kNote;
      ShowRollMessage(g, std::move(t), "Line Bet Required");
    }
    return false;
  }
  for (int b = 1; b <= kLastRealBet; ++b)
    if (g.Bet(s, b).raw > 0) return true;
  g.KeepRolling = false;
  if (g.HyperDrive) {
    g.StopMessage = "Shooter has no bet.";
  } else {
    std::string t = "A bet is required to shoot.\r\r" + ShooterName(g) +
                    " must make any bet or pass the dice.\r\r";
    t += kNote;
    ShowRollMessage(g, std::move(t), "Any Bet Required");
  }
  return false;
}

// Step 7: the session's roll limit, and the limit of all sessions together,
// which keeps every count of a game played over many sessions within a
// Long. False stops the roll (and the run).
bool WithinRollLimit(Game& g) {
  const bool sessionFull = g.RollTally(kTableSession, kEventRolls) >= kSessionRollLimit;
  if (!sessionFull && g.RollTally(kTableAllSessions, kEventRolls) < kAllSessionsRollLimit)
      [[likely]]
    return true;
  g.KeepRolling = false;
  std::string rolls =
      FormatMoney(Currency::FromWhole(sessionFull ? kSessionRollLimit : kAllSessionsRollLimit));
  rolls += sessionFull ? " rolls" : " rolls in all sessions";
  if (g.HyperDrive) {
    g.StopMessage = "Stopped due to reaching the maximum limit of " + rolls + ".\r\r";
    g.StopMessage += kResetSentence;
  } else {
    std::string t = "Sorry ... the maximum limit of " + rolls + " has been reached.\r\r";
    t += kResetSentence;
    ShowRollMessage(g, std::move(t), "Reached Maximum Roll Limit");
  }
  return false;
}

// Steps 10 and 27 copy only seated players: an open position holds no bets,
// so its copies have nothing to change, and a run with few players does not
// pay for eight. Of a seated player they copy only the cells marked as
// changed since the same snapshot last copied them (RollState: the real bet
// ids by MarkBetChanged, the ids above them by MarkCheckStacksChanged, and
// everything by MarkSeatRowsChanged), and always the bankroll. Most
// rolls change a few bets, so a roll copies a few cells instead of rows.

// The ids a snapshot of seat p copies: those changed since the seat's last
// snapshot and in the stretch before it (never beyond the real bets, whose
// rows the snapshots are); moves the sets on by one stretch.
BetIdSet TakeChangedIds(RollState& r, int p) {
  BetIdSet& now = r.BetIdsChanged[static_cast<std::size_t>(p)];
  BetIdSet& before = r.BetIdsChangedBefore[static_cast<std::size_t>(p)];
  const BetIdSet ids = (now | before) & RollState::kEveryBetId;
  before = now;
  now = {};
  return ids;
}

// Copies Bet(p, kLastRealBet + 1..kLastBetId) into `to` when bit p of
// `changed` is set.
template <class Snapshot>
void CopyUpperCells(Game& g, int p, std::uint32_t changed, Snapshot& to) {
  if (((changed >> p) & 1) == 0) return;
  const auto upper = g.Bet.Span(p, kLastRealBet + 1, kLastBetId);
  std::copy(upper.begin(), upper.end(), to.Span(p, kLastRealBet + 1, kLastBetId).begin());
}

// The streaks lie in pairs (at roll, now) per bet, bets 0..kLastRealBet;
// each pair becomes (now, now). With SSE2 two bets at a time: one load, one
// shuffle, one store for two bets instead of a load and a store for each.
void CopyStreaksNowToAtRoll(Long* trend) {
  static_assert(decltype(Game::BetTrend)::kDepth == 2);
#if defined(__SSE2__)
  static_assert(sizeof(Long) == 4 && (kLastRealBet + 1) % 2 == 0);
  // Unrolled whole: the loop's count and branch would cost as much again.
#pragma GCC unroll 43
  for (int b = 0; b <= kLastRealBet; b += 2) {
    auto* pairs = reinterpret_cast<__m128i*>(trend + 2 * b);
    const __m128i v = _mm_loadu_si128(pairs);
    _mm_storeu_si128(pairs, _mm_shuffle_epi32(v, _MM_SHUFFLE(3, 3, 1, 1)));
  }
#else
  for (int b = 0; b <= kLastRealBet; ++b) trend[2 * b] = trend[2 * b + 1];
#endif
}

// Copies the working flags of ids 1..kLastRealBet (id 0 has none). With
// SSE2 as whole vector moves and the odd flag: a call to memcpy or a string
// move costs several times as much for a row this short.
void CopyWorkingFlags(const Long* from, Long* to) {
#if defined(__SSE2__)
  static_assert(sizeof(Long) == 4);
  constexpr int kPerVector = 4, kVectors = kLastRealBet / kPerVector;
#pragma GCC unroll 21
  for (int i = 0; i < kVectors; ++i) {
    const int b = 1 + kPerVector * i;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + b),
                     _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + b)));
  }
  for (int b = 1 + kPerVector * kVectors; b <= kLastRealBet; ++b) to[b] = from[b];
#else
  std::copy(from + 1, from + kLastRealBet + 1, to + 1);
#endif
}

// What a seat-wide mark of seat p asks the at-roll snapshot for: the ids
// above the real bets when bit p of `upperChanged` is set, and the real
// bets and streaks whole when bit p of `wholeRows` is. True when the rows
// were copied whole; else the marked ids remain to be copied. Out of line:
// a run marks seats so only at its start and pumps.
[[gnu::noinline]] bool CopyMarkedRowsAtRoll(Game& g, int p, std::uint32_t upperChanged,
                                            std::uint32_t wholeRows) {
  CopyUpperCells(g, p, upperChanged, g.BetAtRoll);
  if (((wholeRows >> p) & 1) == 0) return false;
  const Currency* bets = &g.Bet(p, bet::kBankroll);
  std::copy_n(bets, kLastRealBet + 1, &g.BetAtRoll(p, 0));
  std::copy_n(bets, kLastRealBet + 1, &g.BetContract(p, 0));
  CopyStreaksNowToAtRoll(&g.BetTrend(p, 0, 0));
  return true;
}

// BetAtRoll and BetContract take the real bets, the at-roll streaks their
// present values, RailAtRoll the money off the table. A seat with every id
// marked (a new call, a script, the events: WholeRowsAtRoll) has its rows
// copied whole; any other id by id.
void SnapshotAtRoll(Game& g, unsigned seated) {
  if (seated == 0) return;  // an empty table keeps its marks as they are
  RollState& r = g.roll;
  const std::uint32_t upperChanged = r.UpperCellsChangedAtRoll;
  const std::uint32_t wholeRows = r.WholeRowsAtRoll;
  // One test per seat for both seat-wide marks.
  const std::uint32_t seatMarks = upperChanged | wholeRows;
  ForEachSeatIn(seated, [&g, &r, upperChanged, wholeRows, seatMarks](int p) {
    const Currency* bets = &g.Bet(p, bet::kBankroll);
    g.RailAtRoll(p) = bets[0] - g.TotalBets(p);
    const BetIdSet ids = TakeChangedIds(r, p);
    BetIdSet& taken = r.BetIdsTakenAtRoll[static_cast<std::size_t>(p)];
    taken = taken | ids;
    if (((seatMarks >> p) & 1) != 0) [[unlikely]] {
      if (CopyMarkedRowsAtRoll(g, p, upperChanged, wholeRows)) return;
    }
    Currency* atRoll = &g.BetAtRoll(p, 0);
    Currency* contract = &g.BetContract(p, 0);
    Long* trend = &g.BetTrend(p, 0, 0);
    atRoll[0] = contract[0] = bets[0];
    ids.ForEach([=](int b) {
      atRoll[b] = contract[b] = bets[b];
      trend[2 * b] = trend[2 * b + 1];
    });
  });
  r.UpperCellsChangedAtRoll &= ~seated;
  r.WholeRowsAtRoll &= ~seated;
}

// Step 23 for seat p: the bankroll records.
inline void KeepBankrollRecordsOf(Game& g, int p) {
  const Currency bank = g.Bet(p, bet::kBankroll);
  // The sum of one bankroll a roll passes the money limit within a session
  // at a large bankroll; it is held within a CheckStack's wider limit, which
  // the game file takes and whose average over the rolls cannot overflow.
  g.BankrollSum(p) = HeldWithin(g.BankrollSum(p) + bank, kCheckStackLimit);
  if (BankrollBeyondLimit(g, p)) LimitExceeded(g, p);
  if (bank > g.BankrollHigh(p)) g.BankrollHigh(p) = bank;
  if (bank < g.BankrollLow(p)) g.BankrollLow(p) = bank;
}

// Step 23: bankroll records.
void KeepBankrollRecords(Game& g, unsigned seated) {
  // An open seat's money and records are all 0.
  ForEachSeatIn(seated, [&g](int p) { KeepBankrollRecordsOf(g, p); });
}

// The rows of seat p a seat-wide mark asks the after-roll snapshot for: the
// ids above the real bets (`upperChanged`), the working flags whole
// (`workingChanged` or `wholeRows`), the real bets whole (`wholeRows`);
// otherwise the ids `ids`.
void CopyMarkedRowsAfterRoll(Game& g, int p, std::uint32_t upperChanged,
                             std::uint32_t workingChanged, std::uint32_t wholeRowsMarked,
                             BetIdSet ids) {
  CopyUpperCells(g, p, upperChanged, g.BetAfterRoll);
  const bool wholeRows = ((wholeRowsMarked >> p) & 1) != 0;
  if (wholeRows || ((workingChanged >> p) & 1) != 0)
    CopyWorkingFlags(&g.BetWorking(p, 0), &g.BetWorkingAfterRoll(p, 0));
  const Currency* bets = &g.Bet(p, bet::kBankroll);
  Currency* afterRoll = &g.BetAfterRoll(p, 0);
  if (wholeRows) {
    std::copy_n(bets, kLastRealBet + 1, afterRoll);
  } else {
    ids.ForEach([=](int b) { afterRoll[b] = bets[b]; });
  }
}

// BetAfterRoll takes the bets, BetWorkingAfterRoll the working flags. With
// `keepRecords` each seat's bankroll records are kept in the same visit
// (step 23, for a roll in which nothing between reads or changes them).
template <bool keepRecords>
void SnapshotAfterRoll(Game& g, unsigned seated) {
  RollState& r = g.roll;
  r.ScriptActiveAtRoll = r.ScriptActive;
  if (seated == 0) return;
  const std::uint32_t upperChanged = r.UpperCellsChangedAfterRoll;
  const std::uint32_t workingChanged = r.WorkingChangedAfterRoll;
  const std::uint32_t wholeRows = r.WholeRowsAfterRoll;
  // One test per seat for the seat-wide marks.
  const std::uint32_t seatMarks = upperChanged | workingChanged | wholeRows;
  ForEachSeatIn(seated, [&g, &r, upperChanged, workingChanged, wholeRows, seatMarks](int p) {
    if constexpr (keepRecords) KeepBankrollRecordsOf(g, p);
    const Currency* bets = &g.Bet(p, bet::kBankroll);
    Currency* afterRoll = &g.BetAfterRoll(p, 0);
    afterRoll[0] = bets[0];
    const BetIdSet ids = TakeChangedIds(r, p);
    if (((seatMarks >> p) & 1) != 0) {
      CopyMarkedRowsAfterRoll(g, p, upperChanged, workingChanged, wholeRows, ids);
      return;
    }
    // A bet and its working flag in one pass over the marked ids (the
    // bankroll, id 0, has no flag and is copied above).
    const Long* working = &g.BetWorking(p, 0);
    Long* workingAfterRoll = &g.BetWorkingAfterRoll(p, 0);
    (ids & kBetsWithWorkingFlags).ForEach([=](int b) {
      afterRoll[b] = bets[b];
      workingAfterRoll[b] = working[b];
    });
  });
  r.UpperCellsChangedAfterRoll &= ~seated;
  r.WorkingChangedAfterRoll &= ~seated;
  r.WholeRowsAfterRoll &= ~seated;
}

// Step 12: the dice, from the first source that applies. False when the
// source stopped the run instead of giving dice.
bool TakeDice(Game& g, DiceSource& source) {
  RollState& r = g.roll;
  RollPadState& pad = g.pad;
  if (pad.PadRollPending) {
    pad.PadRollPending = false;
    g.Die1 = pad.PadDie1;
    g.Die2 = pad.PadDie2;
    source = DiceSource::Pad;
    return true;
  }
  if (r.QueuedCount > 0) {
    // Pad rolls given in advance (the command line's dice, tests).
    const auto& d = r.QueuedDice[static_cast<std::size_t>(r.QueuedHead)];
    g.Die1 = d[0];
    g.Die2 = d[1];
    r.QueuedHead = (r.QueuedHead + 1) % RollState::kDiceQueue;
    --r.QueuedCount;
    source = DiceSource::Queued;
    return true;
  }
  if (g.diceFile.DiceFileMode == kDiceFilePlayback) {
    switch (PlaybackRoll(g)) {
      case PlaybackResult::Rolled:
        source = DiceSource::File;
        return true;
      case PlaybackResult::EndOfFile:
        g.KeepRolling = false;
        g.StopMessage = kEndOfDiceFileStop;
        return false;
      case PlaybackResult::OutOfLimits:
        g.KeepRolling = false;
        g.StopMessage = kDiceFileValueStop;
        return false;
    }
  }
  DrawDice(g);
  source = DiceSource::Generator;
  return true;
}

// Steps 6 to 27: one roll. Returns false when a check stopped it before the dice.
bool RollOnce(Game& g) {
  if (g.rules.BetRequirement != kNoBetRequired && !MeetsBetRequirement(g)) return false;
  if (!WithinRollLimit(g)) return false;
  RollState& r = g.roll;
  if (!r.SeatsKnown) {
    r.SeatsAtRoll = SeatedPlayers(g);
    r.SeatsKnown = true;
  }
  const unsigned seated = r.SeatsAtRoll;
  // The log of the changes reads the at-roll copies before the snapshot
  // takes new ones (and reads no RailAtRoll).
  if (g.roll.LogOn) LogChangesSinceLastRoll(g);
  SnapshotAtRoll(g, seated);
  g.PointBeforeLast = g.PointAtRoll;
  g.PointAtRoll = g.Point;

  DiceSource source{};
  if (!TakeDice(g, source)) {
    // No end-of-roll snapshot follows this one: the next snapshots start afresh.
    MarkSeatRowsChanged(g);
    return false;
  }
  if (g.roll.LogOn) LogRollLine(g, source);
  g.DiceTotal = g.Die1 + g.Die2;
  // Outside Hyper-Drive the window animates the dice when it redraws the table.
  if (g.diceFile.DiceFileMode == kDiceFileRecording) RecordRoll(g);
  if (!g.HyperDrive) {
    PlayDiceSound(g);
    PlayStickCall(g, g.DiceTotal);
    if (g.Die1 == g.Die2 && g.DiceTotal != 2 && g.DiceTotal != 12) PlayStickCall(g, kCallPair);
  }

  TallyHandAndRoll(g);
  TallyRollEvents(g);
  AdvanceStateMachine(g);
  DecideRolledBets(g, seated);
  // Counted over all sessions, so that no new session lengthens the gap.
  if (g.RollTally(kTableAllSessions, kEventRolls) % kStatHoldRolls == 0) [[unlikely]]
    HoldStatTotals(g);

  // The scripts read the bankroll records and may change the bets; the log
  // and the graph do neither, so in a run without scripts the records are
  // kept in the after-roll snapshot's visit of each seat (a message of the
  // limits, which only a roll outside Hyper-Drive shows, keeps them here).
  const bool scripted = g.roll.ScriptActive[0] && g.roll.ScriptsOK;
  const bool recordsLater = g.HyperDrive && !scripted;
  if (g.Point != g.PointAtRoll) {
    // In such a run nothing reads the after-roll working flags before this
    // roll's snapshot, so the reset stores its flags there too and the
    // snapshot copies only the flags changed after it (the placing gate
    // marks those); otherwise the snapshot copies the rows whole.
    ResetWorkingFlags(g, seated, recordsLater);
    if (!recordsLater) g.roll.WorkingChangedAfterRoll = ~0u;
    if (g.Point > 0) {
      SetLineOddsPayoffs(g);
      AutoPlayPointActions(g, seated);
    }
  }
  if (!recordsLater) KeepBankrollRecords(g, seated);
  if (g.roll.LogOn) LogRollResults(g);
  ShiftGraphHistory(g, seated);

  // The scripts run last: a script sees the finished roll, and what it bets
  // stands for the next. Only a script seats or cashes out a player during
  // a roll, so without one the seats are those of the roll's start.
  if (scripted) RunAutoBets(g);
  // A script may change CheckStacks; a roll outside Hyper-Drive may show a
  // message, during which the window takes the user's changes.
  if (scripted || !g.HyperDrive) MarkSeatRowsChanged(g);
  // A script may run after every roll: the graph step then visits every
  // seat rather than look over the open seats' pages each time.
  if (scripted) g.roll.ForgetIdleGraphRows(false);
  // A full page of the graph prints by itself with auto-print on; the test
  // is all a roll pays when nothing prints.
  if (g.roll.GraphPrintDue) [[unlikely]]
    PrintDueGraph(g);
  if (recordsLater)
    SnapshotAfterRoll<true>(g, seated);
  else
    SnapshotAfterRoll<false>(g, scripted ? SeatedPlayers(g) : seated);
  g.platform->RequestRedraw(Redraw::OpenViews);
  if (!g.HyperDrive) g.platform->RequestRedraw(Redraw::StatusBoxes);
  return true;
}

}  // namespace

bool BankrollBeyondLimit(const Game& g, int p) {
  const Currency bank = g.Bet(p, bet::kBankroll);
  return bank > kLimitAmount || bank < -kLimitAmount;
}

void LimitExceeded(Game& g, int p) {
  const std::string limit = FormatMoney(kLimitAmount);
  const std::string& name = g.PlayerName[static_cast<std::size_t>(p)];
  const bool loss = g.Bet(p, bet::kBankroll).raw < 0;
  if (g.HyperDrive) {
    g.KeepRolling = false;
    g.StopMessage = loss ? "Stopped by exceeding the max loss limit of $"
                         : "Stopped by breaking the bank limit of $";
    g.StopMessage += limit;
    g.StopMessage += "\r\r";
    g.StopMessage += kResetSentence;
    return;
  }
  std::string text;
  if (loss) {
    text = "Sorry ... \r\r" + name + " has exceeded the max loss limit of $" + limit + "\r\r";
  } else {
    if (g.rules.WinSoundSet > 0 && SoundsOn(g))
      g.platform->PlaySound(g.roll.AppPath + kBigWinSoundFile, kSoundLoop);
    // The window strews a thousand chips over the table here.
    text = "Congratulations!\r\r" + name + " broke the bank limit of $" + limit + "\r\r";
  }
  text += kResetSentence;
  ShowRollMessage(g, std::move(text), "Ravelton", kMsgOk);
  if (!loss && g.rules.WinSoundSet > 0 && SoundsOn(g)) g.platform->PlaySound("", kSoundStop);
}

void MarkSeatRowsChanged(Game& g) {
  RollState& r = g.roll;
  r.UpperCellsChangedAtRoll = ~0u;
  r.UpperCellsChangedAfterRoll = ~0u;
  r.BetIdsChanged = RollState::EveryBetIdOfEverySeat();
  r.WholeRowsAtRoll = ~0u;
  r.WholeRowsAfterRoll = ~0u;
  r.WorkingChangedAfterRoll = ~0u;
  r.ForgetIdleGraphRows(true);
  r.SeatsKnown = false;
}

bool QueueDice(Game& g, int die1, int die2) {
  RollState& r = g.roll;
  if (die1 < 1 || die1 > 6 || die2 < 1 || die2 > 6 || r.QueuedCount >= RollState::kDiceQueue)
    return false;
  auto& slot = r.QueuedDice[static_cast<std::size_t>((r.QueuedHead + r.QueuedCount) %
                                                     RollState::kDiceQueue)];
  slot[0] = static_cast<std::int8_t>(die1);
  slot[1] = static_cast<std::int8_t>(die2);
  ++r.QueuedCount;
  return true;
}

void RollDice(Game& g) {
  if (g.RollBusy) return;
  ApplyGeneratorFallback(g);
  // The bet entry box of the window commits its keyed amount here; the
  // headless game has no such box.
  for (int p = 1; p <= 8; ++p) {
    if (BankrollBeyondLimit(g, p)) {
      LimitExceeded(g, p);
      return;
    }
  }
  if (g.roll.ScriptActive[0] && !g.roll.ScriptsOK) {
    // Active scripts are compiled before the first roll that needs them; a
    // script that does not compile stops the rolling with its message, and
    // a Hyper-Drive run ends there.
    CompileALLAutobets(g);
    if (!g.roll.ScriptsOK) {
      g.KeepRolling = false;
      if (g.HyperDrive) EndHyperDrive(g);
      return;
    }
  }
  g.roll.SessionDirty = true;
  g.StopMessage.clear();
  g.RollBusy = true;
  // Anything may have changed CheckStacks since the last call.
  MarkSeatRowsChanged(g);

  do {
    const bool rolled = RollOnce(g);
    if (g.HyperDrive) {
      if (rolled) NoteHyperDriveRoll(g);
      PaceHyperDrive(g);
    }
  } while (g.HyperDrive && g.KeepRolling);
  if (g.HyperDrive) EndHyperDrive(g);

  // Recorded rolls and the log lines of the call reach the disk together.
  FinishDiceFileCall(g);
  FlushEventsLog(g);
  g.platform->RequestRedraw(Redraw::Table);
  if (!g.platform->MainWindowMinimized()) {
    if (g.StopMessage == kEndOfDiceFileStop) AskRewindDiceFile(g);
    g.StopMessage.clear();
  }
  PlayComeOutCall(g);
  g.RollBusy = false;
}
