// Printing a player's CheckStacks: the range prompt and the printout of the
// rows the CheckStacks grid shows, values in the printer's colours.
#pragma once

#include <string_view>

#include "core/game.h"
#include "core/print_document.h"

constexpr int kCheckStackCount = 100;  // stacks 0..99

// The printout of p's CheckStacks numbered first..last (rows as the grid
// shows them: named, with a value, or all with DisplayZeroStacks), headed
// by the player, the date and "Game File:  " with `gameFile`'s name.
PrintDocument CheckStacksPrintout(const Game& game, int p, int first, int last,
                                  const CalendarDate& today, std::string_view gameFile);

// mnuPrint of frmCheckStacks: asks "Enter the beginning and ending
// checkstacks that you'd like to print" ("Print Range", 0 and 99 offered),
// puts the answers within 0..99 in order, and prints. False on Cancel or
// when the platform printed nothing.
bool PrintCheckStacks(Game& game, int p, std::string_view gameFile);
