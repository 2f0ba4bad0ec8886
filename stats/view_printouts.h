// The printouts of the statistics views (mnuPrint): the figures a view
// shows, laid out as lines of a PrintDocument under the view's heading, the
// date and the game file's name. The views print what they figured for the
// screen, so a printout never disagrees with the window it came from.
//
// What must stay true:
// - Gains print in the printer's gain colour and losses in its loss colour
//   (PrintColourOfSign), so a printer without colour prints all black.
// - A bet results printout needs at least one bet; PrintBetResults refuses
//   with the view's message otherwise.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/print_document.h"
#include "stats/bet_results.h"
#include "stats/roll_totals.h"

struct Game;

// "Ravelton Roll Totals": the rows of the view with probable and actual
// percents, the counts, the rolls since last, and the total.
PrintDocument RollTotalsPrintout(const Game& game, const RollTotalsFigures& f, std::int32_t players,
                                 const CalendarDate& today, std::string_view gameFile);
// "Ravelton Bet Results": the players, the bets joined by ", ", what is on
// the table and the decisions block.
PrintDocument BetResultsPrintout(const Game& game, const BetResultsFigures& f, std::int32_t players,
                                 const CalendarDate& today, std::string_view gameFile);
// "Ravelton Bet Trends": player p's bets with a streak other than 0.
PrintDocument BetTrendsPrintout(const Game& game, int p, const CalendarDate& today);

// mnuPrint of the views: figures afresh from the view's state and hands the
// printout to the platform. False when nothing was printed; the bet results
// answer "You need to select one or more bets to print." with no bet.
bool PrintRollTotals(Game& game);
bool PrintBetResults(Game& game);
bool PrintBetTrends(Game& game);
