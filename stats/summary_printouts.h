// The printouts of the Session Summary, Hands and Roll Frequencies views
// (mnuPrint): the figures the view shows, under the view's heading, the date
// and the game file's name. Each printout figures afresh from the view's
// state with the same procedure the view draws from, so paper and screen
// agree.
//
// What must stay true:
// - Gains and losses of the summary print in the printer's colours by sign
//   (PrintColourOfSign): the bankrolls, the vig, the comp value and the nets.
// - A cell the hands view leaves empty (a 2 can't pass, a 7 can't miss)
//   prints empty too.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/print_document.h"
#include "stats/roll_totals.h"
#include "stats/summary.h"

struct Game;

// "Ravelton Session Summary": time frame and players, totals, bankroll,
// comps and the decisions block.
PrintDocument SummaryPrintout(const Game& game, const SummaryFigures& f,
                              const CalendarDate& today, std::string_view gameFile);
// "Ravelton Hands": the come-outs, passes and misses by row, the records
// and the averages per hand.
PrintDocument HandsPrintout(const HandsFigures& f, const CalendarDate& today,
                            std::string_view gameFile);
// "Ravelton Roll Totals", the heading both roll views print under: the
// category's figures and the gaps with how many times each occurred.
PrintDocument RollFreqsPrintout(const RollFreqFigures& f, const CalendarDate& today,
                                std::string_view gameFile);

// mnuPrint of the views: figures from the view's state and hands the
// printout to the platform. False when nothing was printed.
bool PrintSummary(Game& game);
bool PrintHands(Game& game);
bool PrintRollFreqs(Game& game);
