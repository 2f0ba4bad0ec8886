// The bankroll graph printout (frmBankroll's mnuPrintNow and the auto-print
// of a full page): one graph of a player under "Bankroll Graph", the date,
// the game file, the player and the window's figures, the graph as a
// picture with its scale, and the reference line differences. Several
// graphs share a sheet: they wait in Game::GraphSheet, whose graphs are
// GraphPagesPending, until the sheet is full or the user asks to finish it.
//
// What must stay true:
// - Every figure and text is FigureBankrollGraph's, so a printout never
//   disagrees with the window.
// - A sheet holds GraphsPerSheet(kLetterPrintableTwips) graphs, each in
//   the same number of lines, and is sent to the platform the moment the
//   last of them is added; GraphPagesPending is 0 after every send.
// - Nothing is built unless a graph is printed: the roll tests
//   GraphPrintDue alone.
#pragma once

#include <string_view>

#include "core/print_document.h"
#include "stats/bankroll_graph.h"

struct Game;

// The sheet's height: a letter page less a quarter inch at top and bottom,
// in twips (1440 an inch); the platform tells no printer's own height.
constexpr int kLetterPrintableTwips = 15120;
// A sheet's heading room and each graph's height, in twips.
constexpr int kGraphSheetHeadTwips = 660;
constexpr int kGraphTwips = 4700;
// The line heights one graph takes on the sheet.
constexpr int kGraphPrintLines = 19;

// The graphs a sheet `printableTwips` high holds, at least one.
int GraphsPerSheet(int printableTwips);
// An empty sheet laid out for `graphs` graphs.
PrintDocument BankrollGraphSheet(int graphs);
// Adds the graph of figures `f` (FigureBankrollGraph) to a sheet.
void AddBankrollGraph(PrintDocument& sheet, const Game& game, const BankrollGraphFigures& f,
                      const CalendarDate& today, std::string_view gameFile);

// GraphPagesPending: the graphs already sent to the sheet being printed.
int GraphPagesPending(const Game& game);
// PrintBankrollGraph: player p's graph joins the waiting sheet, which is
// sent when full (unattended: by the auto-print, which asks for no
// printer once one was chosen). False when p has no seat.
bool PrintBankrollGraph(Game& game, int p, bool unattended = false);
// Sends the waiting sheet as it stands; false when none waits or nothing printed.
bool SendGraphSheet(Game& game);
// The auto-print of a full page the roll marked with GraphPrintDue.
void PrintDueGraph(Game& game);
// PromptGraphPrint: offers to print the last graph when it was not, then
// to finish a sheet that waits ("Bankroll Graph Auto-Print Active").
void PromptGraphPrint(Game& game);
// mnuAutoPrint: turning it off first asks PromptGraphPrint.
void SetGraphAutoPrint(Game& game, bool on);
