#include "stats/bankroll_printout.h"

#include <algorithm>
#include <string>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "stats/number_format.h"
#include "stats/selection.h"

namespace {

constexpr const char* kPromptTitle = "Bankroll Graph Auto-Print Active";
constexpr const char* kPreparingNotice = "Preparing output for printer.";
constexpr const char* kSendingNotice = "Sending output to printer.";
constexpr int kYesNo = kMsgYes | kMsgNo | kMsgPicQmark;

// The picture: the window's grid of columns and rows, framed, with the
// scale labels at its left and the rolls under it. Its line heights are
// what the graph's block leaves after its texts.
constexpr int kBlockTextLines = 9;  // heading 3, player, figures 2, a gap above and below, references
constexpr int kPictureLines = kGraphPrintLines - kBlockTextLines;
constexpr int kLastRow = kGraphRows - 1;
// Basic colours (core/print_document.h) where the printer's own do not apply.
constexpr int kGridColour = 7;    // light gray
constexpr int kRefColours[2] = {2, 13};  // dark green, magenta
constexpr int kLineColour = kPrintBlack;

// A band's colour: the printer's gain or loss colour, gray where it prints
// black, so that the bankroll line stands out of it.
int BandColour(const Game& game, int sign) {
  const int c = PrintColourOfSign(game.rules.PrintColors, sign);
  return c == kPrintBlack ? kGridColour : c;
}

// A vertical rule at column `left` from row a to row b, cut to the picture.
void AddRule(PrintGraph& pic, int left, std::int64_t a, std::int64_t b, int colour) {
  const std::int64_t top = std::max<std::int64_t>(0, std::min(a, b));
  const std::int64_t bottom = std::min<std::int64_t>(kLastRow, std::max(a, b));
  if (top > bottom) return;
  pic.rects.push_back({left, static_cast<int>(top), 1, static_cast<int>(bottom - top + 1), colour});
}

PrintGraph GraphPicture(const Game& game, const BankrollGraphFigures& f) {
  const GraphViewState& v = game.graph;
  PrintGraph pic;
  pic.width = kGraphColumns;
  pic.height = kGraphRows;
  pic.lines = kPictureLines;
  if (v.GraphShowGrid)
    for (int row = kGraphBlockRows; row < kLastRow; row += kGraphBlockRows)
      pic.rects.push_back({0, row, kGraphColumns, 1, kGridColour});
  // As the window draws a column: the band from the line to the bankroll by
  // the graph's style (plain: the line's dot alone; striped: even columns),
  // then the bankroll line from the column before.
  std::int64_t lastRow = f.columns.empty() ? f.currentRow : f.columns.front().row;
  for (const GraphColumn& c : f.columns) {
    const bool striped = v.GraphStyle == 1 && c.x % 2 == 1;
    if (v.GraphStyle == 0)
      AddRule(pic, c.x - 1, c.lineRow, c.lineRow, BandColour(game, c.bandBelow ? -1 : 1));
    else if (!striped)
      AddRule(pic, c.x - 1, c.lineRow, c.row, BandColour(game, c.bandBelow ? -1 : 1));
    AddRule(pic, c.x - 1, lastRow, c.row, kLineColour);
    lastRow = c.row;
  }
  if (v.GraphShowRefLines) {
    const int lines[2] = {v.RefLine1, v.RefLine2};
    for (int i = 0; i < 2; ++i)
      AddRule(pic, std::clamp(lines[i], 0, kGraphColumns - 1), 0, kLastRow, kRefColours[i]);
  }
  for (std::size_t n = 0; n < f.scaleLabels.size(); ++n)
    pic.labels.push_back({f.scaleLabels[n].text, LabelPlace::Left, static_cast<int>(n) * kGraphBlockRows});
  pic.labels.push_back({f.rollsLeft.text, LabelPlace::UnderStart, 0});
  pic.labels.push_back({"ROLLS", LabelPlace::UnderCentre, kGraphColumns / 2});
  pic.labels.push_back({f.rollsRight.text, LabelPlace::UnderEnd, kGraphColumns});
  return pic;
}

// The line of "High:", "Low:" and "Current:": each figure right-aligned at
// its column, in the printer's colour of its sign.
constexpr int kFigureEnds[3] = {16, 32, 52};
PrintLine FiguresLine(const Game& game, const BankrollGraphFigures& f) {
  const char* const labels[3] = {"High:  ", "  Low:  ", "  Current:  "};
  const Shown* figures[3] = {&f.high, &f.low, &f.current};
  PrintLine line;
  for (int i = 0; i < 3; ++i) {
    line.cells.push_back({labels[i], i == 0 ? 0 : kFigureEnds[i - 1], kPrintBlack, false});
    line.cells.push_back(RightCell(figures[i]->text, kFigureEnds[i],
                                   PrintColourOfValue(game.rules.PrintColors, figures[i]->value)));
  }
  return line;
}

}  // namespace

int GraphsPerSheet(int printableTwips) {
  return std::max(1, (printableTwips - kGraphSheetHeadTwips) / kGraphTwips);
}

PrintDocument BankrollGraphSheet(int graphs) {
  PrintDocument sheet;
  sheet.jobName = "Ravelton Bankroll Graph";
  sheet.sendingNotice = kSendingNotice;
  sheet.linesPerPage = std::max(1, graphs) * kGraphPrintLines;
  return sheet;
}

void AddBankrollGraph(PrintDocument& sheet, const Game& game, const BankrollGraphFigures& f,
                      const CalendarDate& today, std::string_view gameFile) {
  sheet.AddText("Bankroll Graph", true, true);
  sheet.AddText(MediumDate(today), true);
  sheet.AddText("Game file:  " + PrintedFileName(gameFile), true);
  sheet.AddText("Player:  " + f.playerName);
  sheet.lines.push_back(FiguresLine(game, f));
  sheet.AddText(f.totalRolls.text + " rolls @ " + f.rollsPerHour.text + " rolls/hr = " + f.simHours.text +
                " sim hrs");
  sheet.AddBlank();  // room for the top scale label, which stands over the picture's edge
  sheet.AddGraph(GraphPicture(game, f));
  std::string refs;
  if (!f.refRolls.empty()) refs = "Reference line differences:  " + f.refRolls;
  if (!f.refBankroll.empty()) refs += "   " + f.refBankroll;
  if (refs.empty()) sheet.AddBlank();
  else sheet.AddText(std::move(refs));
  sheet.AddBlank();
}

int GraphPagesPending(const Game& game) { return static_cast<int>(game.GraphSheet.graphs.size()); }

bool PrintBankrollGraph(Game& game, int p, bool unattended) {
  if (game.platform == nullptr || !SeatTaken(game, p)) return false;
  const int perSheet = GraphsPerSheet(kLetterPrintableTwips);
  game.platform->ShowProgressNotice(kPreparingNotice);
  if (GraphPagesPending(game) == 0) game.GraphSheet = BankrollGraphSheet(perSheet);
  AddBankrollGraph(game.GraphSheet, game, FigureBankrollGraph(game, p), game.platform->Today(),
                   game.gamefile.GameFilePath);
  game.platform->ShowProgressNotice({});  // down before a printer dialog may open
  game.graph.GraphPrintedRoll = game.RollTally(kTableSession, kEventRolls);
  if (GraphPagesPending(game) >= perSheet) {
    game.GraphSheet.unattended = unattended;  // filled by the auto-print: no printer asked
    SendGraphSheet(game);
  }
  return true;
}

bool SendGraphSheet(Game& game) {
  if (game.platform == nullptr || GraphPagesPending(game) == 0) return false;
  const bool printed = game.platform->Print(game.GraphSheet);
  // A sheet the printer refused is not kept: the next graph starts a new one.
  game.GraphSheet = PrintDocument();
  return printed;
}

void PrintDueGraph(Game& game) {
  RollState& r = game.roll;
  r.GraphPrintDue = false;
  // A scrolling graph stays full from roll to roll: it prints again when a
  // whole page of rolls has passed since the last graph printed.
  if (r.GraphPlotType == 1 &&
      game.RollTally(kTableSession, kEventRolls) - game.graph.GraphPrintedRoll < kGraphColumns)
    return;
  PrintBankrollGraph(game, game.graph.GraphPlayer, true);
}

void PromptGraphPrint(Game& game) {
  GraphViewState& v = game.graph;
  const std::int64_t rolls = game.RollTally(kTableSession, kEventRolls);
  if (SeatTaken(game, v.GraphPlayer) && rolls > 0 && rolls != v.GraphPrintedRoll &&
      ShowNotice(game, "Would you like to print the last graph now?", kPromptTitle, kHelpNone, kYesNo) == kAnswerYes)
    PrintBankrollGraph(game, v.GraphPlayer);
  const int pending = GraphPagesPending(game);
  if (pending == 0) return;
  const std::string text = "So far you've sent " + FormatNumber(pending, fmt_pattern::kWhole) +
                           " to the current page.\r" +
                           FormatNumber(GraphsPerSheet(kLetterPrintableTwips), fmt_pattern::kWhole) +
                           " graphs will fit on a page.\r\rWould you like to finish printing now?";
  if (ShowNotice(game, text, kPromptTitle, kHelpNone, kYesNo) == kAnswerYes) SendGraphSheet(game);
}

void SetGraphAutoPrint(Game& game, bool on) {
  if (game.roll.GraphAutoPrint == on) return;
  if (!on) PromptGraphPrint(game);
  game.roll.GraphAutoPrint = on;
  game.roll.SessionDirty = true;
}
