// The seat visitor: the one list of every table that holds something of a
// player seat. Moving a player, resetting a seat, the checksum and the game
// file all walk this list, so a per-seat table added to the game is moved,
// reset, checked and saved the moment it is added here, and cannot be
// forgotten by one of them.
//
// ForEachSeatTable(visit, games...) calls
//   visit(name, axis, onReset, table_of_game_1, table_of_game_2, ...)
// once per table, the same table of each game side by side (one game to
// walk, two to compare or copy rows between games).
//
// What must stay true:
// - Every table of Game (and of the state structs it holds) whose first
//   subscript is a slot or a frame index is listed exactly once.
// - Axis Slot: the first subscript is the slot 0..8. Axis Frame: it is the
//   frame index slot + 9 * t for the five frames.
// - SeatReset::Clear tables go back to a fresh game's row when a seat is
//   reset; Keep tables stay (statistics, the graph's history, scripts), or
//   are set by the caller (the working flags follow the table's defaults).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "core/game.h"

enum class SeatAxis { Slot, Frame };
enum class SeatReset { Clear, Keep };

// The axis as a type, so that a visitor can pick tables at compile time:
// if constexpr (decltype(axis)::value == SeatAxis::Frame).
template <SeatAxis A>
struct SeatAxisTag {
  static constexpr SeatAxis value = A;
  constexpr operator SeatAxis() const { return A; }
};

template <class Visit, class... G>
void ForEachSeatTable(Visit&& visit, G&... games) {
  constexpr SeatAxisTag<SeatAxis::Slot> Slot;
  constexpr SeatAxisTag<SeatAxis::Frame> Frame;
  using enum SeatReset;
  visit("PlayerName", Slot, Keep, games.PlayerName...);
  visit("Bet", Slot, Clear, games.Bet...);
  visit("BetAtRoll", Slot, Clear, games.BetAtRoll...);
  visit("BetAfterRoll", Slot, Clear, games.BetAfterRoll...);
  visit("BetContract", Slot, Clear, games.BetContract...);
  visit("BetWorking", Slot, Keep, games.BetWorking...);
  visit("BetWorkingDefault", Slot, Keep, games.BetWorkingDefault...);
  visit("BetWorkingAfterRoll", Slot, Keep, games.BetWorkingAfterRoll...);
  visit("BetTrend", Slot, Clear, games.BetTrend...);
  visit("TotalBets", Slot, Clear, games.TotalBets...);
  visit("LayVig", Slot, Clear, games.LayVig...);
  visit("BuyVig", Slot, Clear, games.BuyVig...);
  visit("ComeFlatAtSet", Slot, Clear, games.ComeFlatAtSet...);
  visit("CheckStackName", Slot, Clear, games.CheckStackName...);

  visit("StatAction", Frame, Keep, games.StatAction...);
  visit("StatWins", Frame, Keep, games.StatWins...);
  visit("StatLosses", Frame, Keep, games.StatLosses...);
  visit("StatRowsThisHand", Slot, Keep, games.StatRowsThisHand...);
  visit("StatRowsLastHand", Slot, Keep, games.StatRowsLastHand...);
  visit("ComeTravelTotal", Frame, Keep, games.ComeTravelTotal...);
  visit("RollTally", Frame, Keep, games.RollTally.Settled()...);
  visit("TotalsTally", Frame, Keep, games.TotalsTally...);
  visit("HandsTally", Frame, Keep, games.HandsTally...);
  visit("RollsAtTable", Frame, Keep, games.RollsAtTable.Settled()...);
  visit("MostRollsHand", Frame, Keep, games.MostRollsHand...);
  visit("MostComeoutHand", Frame, Keep, games.MostComeoutHand...);
  visit("MostPassesHand", Frame, Keep, games.MostPassesHand...);
  visit("MostMissesHand", Frame, Keep, games.MostMissesHand...);

  visit("InvestedBankroll", Slot, Clear, games.InvestedBankroll...);
  visit("BankrollHigh", Slot, Clear, games.BankrollHigh...);
  visit("BankrollLow", Slot, Clear, games.BankrollLow...);
  visit("BankrollSum", Slot, Clear, games.BankrollSum...);
  visit("RailAtRoll", Slot, Clear, games.RailAtRoll...);
  visit("GraphBankroll", Slot, Keep, games.GraphBankroll...);
  visit("GraphTrend", Slot, Keep, games.GraphTrend...);
  visit("GraphHigh", Slot, Clear, games.GraphHigh...);
  visit("GraphLow", Slot, Clear, games.GraphLow...);

  visit("AllowNegBankroll", Slot, Clear, games.betting.AllowNegBankroll...);
  visit("StartBankrollMode", Slot, Clear, games.betting.StartBankrollMode...);
  visit("StartBankroll", Slot, Clear, games.betting.StartBankroll...);
  visit("CheckStackSlot", Slot, Clear, games.betting.CheckStackSlot...);

  visit("AutoTakeFullOdds", Slot, Clear, games.autoplay.AutoTakeFullOdds...);
  visit("AutoLayFullOdds", Slot, Clear, games.autoplay.AutoLayFullOdds...);
  visit("AutoDownPlaceBets", Slot, Clear, games.autoplay.AutoDownPlaceBets...);
  visit("AutoPassDice", Slot, Clear, games.autoplay.AutoPassDice...);
  visit("AutoAdjustMode", Slot, Clear, games.autoplay.AutoAdjustMode...);
  visit("LayBias", Slot, Clear, games.autoplay.LayBias...);
  visit("PlaceBias", Slot, Clear, games.autoplay.PlaceBias...);
  visit("DoBias", Slot, Clear, games.autoplay.DoBias...);
  visit("DontBias", Slot, Clear, games.autoplay.DontBias...);
  visit("HandleWinningBets", Slot, Clear, games.autoplay.HandleWinningBets...);
  visit("HandleLosingBets", Slot, Clear, games.autoplay.HandleLosingBets...);
  visit("AdjustAmount", Slot, Clear, games.autoplay.AdjustAmount...);
  visit("AdjustOperator", Slot, Clear, games.autoplay.AdjustOperator...);
  visit("AdjustUnits", Slot, Clear, games.autoplay.AdjustUnits...);
  visit("LastWinButton", Slot, Clear, games.autoplay.LastWinButton...);
  visit("LastLoseButton", Slot, Clear, games.autoplay.LastLoseButton...);

  visit("SessionLogPath", Slot, Keep, games.roll.SessionLogPath...);
  visit("ScriptActive", Slot, Clear, games.roll.ScriptActive...);
  visit("ScriptActiveAtRoll", Slot, Keep, games.roll.ScriptActiveAtRoll...);
  visit("SlotScript", Slot, Keep, games.scriptCode.SlotScript...);
  visit("SlotStrings", Slot, Keep, games.scriptCode.SlotStrings...);
  visit("SlotCompiled", Slot, Keep, games.scriptCode.SlotCompiled...);
  visit("AllowReset", Slot, Clear, games.scriptRun.AllowReset...);
  visit("AllowActForOthers", Slot, Clear, games.scriptRun.AllowActForOthers...);
  visit("AllowDiceFiles", Slot, Clear, games.scriptRun.AllowDiceFiles...);
  visit("AllowAnyFolder", Slot, Clear, games.scriptRun.AllowAnyFolder...);
  visit("ScriptLines", Slot, Keep, games.scriptSource.ScriptLines...);
  visit("ScriptIndent", Slot, Keep, games.scriptSource.ScriptIndent...);
  visit("ScriptBandMark", Slot, Keep, games.scriptSource.ScriptBandMark...);
  visit("ScriptFile", Slot, Keep, games.scriptSource.ScriptFile...);
  visit("ScriptOutputFile", Slot, Keep, games.scriptSource.ScriptOutputFile...);
  visit("ScriptDirty", Slot, Keep, games.scriptSource.ScriptDirty...);
  visit("ScriptTopLine", Slot, Keep, games.scriptSource.ScriptTopLine...);
  visit("ScriptLeftColumn", Slot, Keep, games.scriptSource.ScriptLeftColumn...);
  visit("ScriptSelStartColumn", Slot, Keep, games.scriptSource.ScriptSelStartColumn...);
  visit("ScriptSelEndColumn", Slot, Keep, games.scriptSource.ScriptSelEndColumn...);
  visit("ScriptSelStartLine", Slot, Keep, games.scriptSource.ScriptSelStartLine...);
  visit("ScriptSelEndLine", Slot, Keep, games.scriptSource.ScriptSelEndLine...);
}

// Frames a table holds per seat: five for a frame table, one otherwise.
constexpr int SeatFrames(SeatAxis axis) { return axis == SeatAxis::Frame ? kFrameCount : 1; }

// Applies f to every table whose first subscript is a frame index.
template <class F>
void ForEachFrameTable(Game& game, F&& f) {
  ForEachSeatTable(
      [&f](const char*, auto axis, SeatReset, auto& table) {
        if constexpr (decltype(axis)::value == SeatAxis::Frame) f(table);
      },
      game);
}

// Seat p's cells in one frame (frame 0 of a slot table), contiguous.
template <class T, std::size_t N>
std::span<T> SeatRow(std::array<T, N>& t, int p, int) {
  return {&t[static_cast<std::size_t>(p)], 1};
}
template <class T, std::size_t N>
std::span<const T> SeatRow(const std::array<T, N>& t, int p, int) {
  return {&t[static_cast<std::size_t>(p)], 1};
}
template <class Table>
auto SeatRow(Table& t, int p, int frame) {
  using Bare = std::remove_const_t<Table>;
  const int row = FrameIndex(p, frame);
  if constexpr (requires { Bare::kHigh2; })
    return t.Span(row, Bare::kLow2, Bare::kHigh2);
  else
    return std::span(&t(row), 1);
}

// Swaps everything of seats a and b.
void SwapSeatTables(Game& game, int a, int b);
// Sets seat p's Clear tables to their rows in a fresh game.
void ClearSeatTables(Game& game, int p);
