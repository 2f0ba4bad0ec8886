// The printouts of the Advantage and Payoffs tabs (mnuPrintAdvPay): every
// bet with both views of the advantage table side by side, or every payoff
// of the payoff list.
#pragma once

#include <string_view>

#include "core/game.h"
#include "core/print_document.h"

// All bets with "Bet", "EV/Roll" .. "EV/Hour" and "Rolls/Dec" .. "Time/Dec",
// headed by "Game File:  ", the date, and "Probability File:  " with the
// probability file's name or "Figured using true probabilities". Figures
// print in PrintColors: blue above 0, red below.
PrintDocument AdvantagePrintout(const Game& game, const CalendarDate& today,
                                std::string_view gameFile);

// Every row of the payoff list under "Bet" with its payoff ("a to d" or
// "a for d") under "Payoff", headings alone; beside the first rows, under
// "Field", each dice row of the Field with its payoff.
PrintDocument PayoffsPrintout(Game& game, const CalendarDate& today, std::string_view gameFile);
