// The figures of the Bet Results and Bet Trends views: for a set of bets and
// players in a frame, what stands on the table, the decisions with their
// wagers, wins and losses, the net, and what the house edge says the result
// should have been; for one player, each bet's current run of wins or
// losses.
//
// What must stay true:
// - Only the decision statistics (StatAction, StatWins, StatLosses, the Come
//   travel totals) and the bets on the table are read; nothing changes.
// - "Last roll #" and "Last roll $" count a decision only when its roll
//   number (the session's count) equals the selection's own roll count.
// - The expected value adds each bet's product taken to Currency; a Come
//   point splits its action between the Come edge (what travelled) and its
//   own (what was put there).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/currency.h"
#include "stats/selection.h"

struct Game;

constexpr int kResultRows = 11;
enum ResultColumn { kWagersCol, kWinsCol, kLossesCol, kNetCol, kNetPctCol, kResultColumns };

struct BetResultsFigures {
  int frame = 0;
  std::string selectionLabel, betsLabel;
  std::vector<int> bets;  // the selected bet ids
  // "On the table": Current #, Current $, Last roll #, Last roll $.
  std::array<Shown, 4> onTable;
  // Rows 1..11 (index 0 unused) by column; row 11 only in Net and Net %.
  std::array<std::array<Shown, kResultColumns>, kResultRows + 1> rows;
  Currency expected;  // E
  double hours = 0;
};

// Row labels 1..11: "Total #" ... "Expctd value $".
std::string_view ResultRowLabel(int row);
// Column titles: "Wagers", "Wins", "Losses", "Net", "Net %".
std::string_view ResultColumnTitle(int column);
// SetSelectedBetsLabel: "No bets selected", "1 bet selected", "All bets
// selected" or n & " bets selected".
std::string SelectedBetsLabel(int count);

// RefreshBetResults for frame 0..4, a player bit set and the bet ids chosen.
BetResultsFigures FigureBetResults(const Game& game, int frame, std::int32_t players,
                                   const std::vector<int>& bets);
// The bets of BetResultsSelection ("S" per selected id).
std::vector<int> SelectedBets(const std::string& selection);
// The bets with a decision in the frame for the selected players.
std::vector<int> BetsWithDecisions(const Game& game, int frame, std::int32_t players);

struct BetTrendRow {
  int bet = 0;
  std::string name;
  Shown trend;  // wins in a row (positive) or losses (negative)
};
// RefreshBetTrends for player p: every bet id 1..85 in order.
std::vector<BetTrendRow> FigureBetTrends(const Game& game, int p);
