// The printouts of the script editor and of the Hot-Keys form, as data for
// the platform's printer (core/print_document.h).
#pragma once

#include <string_view>

#include "core/print_document.h"

struct Game;

// "Ravelton Auto-Bets", the date and time, the script's file, then the
// editor's lines, numbered in a column as wide as "6666" when `numbered`;
// with `bands` a line of 43 underscores where the highlight's band changes.
PrintDocument AutoBetPrintout(const Game& game, std::string_view dateTime, bool numbered,
                              bool bands);
// "Ravelton Hot-Keys" and the date and time, then a row for each Hot-Key:
// "Ctrl " + key, and the file and the description in a column behind it.
PrintDocument HotKeysPrintout(const Game& game, std::string_view dateTime);
