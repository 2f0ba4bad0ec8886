// The dice roll file printout (mnuPrint of frmDiceRollFiles): the selected
// rolls written by the output template, as many columns to a page as the
// template's widest line allows, down each column first, every page headed
// "Ravelton Dice Roll File:  " + the file's name and the date, with its
// number below. Rolls of a highlighted pair carry a mark.
//
// The file is read a page of rolls at a time, never whole.
//
// What must stay true:
// - Every page holds kDiceRowsPerPage rows under a heading of
//   kDicePageHeading lines (the document fixes its lines per page), so the
//   page count the confirmation promises is the count that prints.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/print_document.h"

struct Game;

constexpr int kDiceRowsPerPage = 50;
constexpr int kDicePageHeading = 4;
constexpr int kDicePageWidth = 80;  // character widths across a page

// How the rolls lie on a page.
struct DicePrintLayout {
  int columns = 1;  // rolls across
  int width = 0;    // character widths of a column, its mark included
  std::int64_t PerPage() const { return static_cast<std::int64_t>(columns) * kDiceRowsPerPage; }
};

// The layout for a template when the numbers run up to lastNumber.
DicePrintLayout DicePrintLayoutFor(std::string_view format, std::int64_t lastNumber);
// The pages `rolls` rolls take.
std::int64_t DicePrintPages(std::int64_t rolls, const DicePrintLayout& layout);

// Rolls first..last of the open file, numbered from firstNumber. `error` is
// set (and the document cut there) when the file cannot be read.
PrintDocument DiceRollsPrintout(Game& game, std::int64_t first, std::int64_t last,
                                std::int64_t firstNumber, const CalendarDate& today,
                                std::string& error);

// mnuPrint: "There are no dice rolls to print." without rolls, "You haven't
// selected any dice rolls to print." without a selection; offers to number
// from 1 a selection that begins later; confirms the count of rolls and
// pages; then prints. False when nothing was printed.
bool PrintDiceRolls(Game& game);
