#include "stats/summary_printouts.h"

#include <string>
#include <utility>

#include "core/game.h"
#include "core/platform.h"

namespace {

// Columns, in character widths; figures are right-aligned at their column.
constexpr int kFigureEnd = 44;
constexpr int kDecisionEnds[5] = {26, 40, 54, 68, 80};
constexpr int kHandEnds[3] = {32, 46, 60};
constexpr int kGapPairs = 3;       // gap/count pairs across the page
constexpr int kGapPairWidth = 32;  // a pair's width
constexpr int kGapEnd = 11, kCountEnd = 26;  // within a pair, the heads clear of each other
// Summary figures drawn in the loss colour below 0: the vig and the comp value.
constexpr std::size_t kCompVig = 4, kCompValue = 6;
constexpr std::size_t kNetColumn = 3;
constexpr int kFirstSessionFrame = 2;  // the frames that count hands
constexpr int kFirstHandRow = 2, kHandTotalRow = 13;

const char* const kDecisionColumns[5] = {"Wagers", "Wins", "Losses", "Net $", "Net %"};
const char* const kDecisionRows[2] = {"Total #", "Total $"};
const char* const kHandHeads[3] = {"Come-out rolls", "Passes", "Misses"};

void Heading(PrintDocument& doc, const std::string& title, const CalendarDate& today,
             std::string_view gameFile) {
  doc.jobName = title;
  doc.AddText(title, true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Game file:  " + PrintedFileName(gameFile), true);
  doc.AddBlank();
}

PrintCell Left(std::string text, int column = 0) { return {std::move(text), column, kPrintBlack, false}; }

// A caption and a figure at kFigureEnd.
void Figure(PrintDocument& doc, std::string caption, const Shown& s, int colour = kPrintBlack) {
  PrintLine line;
  line.cells = {Left(std::move(caption), 2), RightCell(s.none ? std::string() : s.text, kFigureEnd, colour)};
  doc.lines.push_back(std::move(line));
}

void Bold(PrintDocument& doc, std::string text) { doc.AddText(std::move(text), false, true); }

void Selection(PrintDocument& doc, int frame, const std::string& selectionLabel) {
  doc.AddText(std::string(FrameName(frame)));
  doc.AddText(selectionLabel);
  doc.AddBlank();
}

}  // namespace

PrintDocument SummaryPrintout(const Game& game, const SummaryFigures& f,
                              const CalendarDate& today, std::string_view gameFile) {
  PrintDocument doc;
  Heading(doc, "Ravelton Session Summary", today, gameFile);
  Selection(doc, f.frame, f.selectionLabel);
  Bold(doc, "Totals");
  Figure(doc, "Total rolls", f.totalRolls);
  Figure(doc, "Total hands", f.totalHands);
  Figure(doc, "Total rolls shooting", f.rollsShooting);
  Figure(doc, "Rolls / hour", f.rollsPerHour);
  Figure(doc, "Sim hours", f.simHours);
  Figure(doc, "Sim hours shooting", f.simHoursShooting);
  doc.AddBlank();
  Bold(doc, "Bankroll");
  Figure(doc, f.bankrollCaption, f.bankrollCurrent, PrintColourOfValue(game.rules.PrintColors, f.bankrollCurrent.value));
  Figure(doc, "High", f.bankrollHigh, PrintColourOfValue(game.rules.PrintColors, f.bankrollHigh.value));
  Figure(doc, "Low", f.bankrollLow, PrintColourOfValue(game.rules.PrintColors, f.bankrollLow.value));
  Figure(doc, "Average bankroll", f.bankrollAverage, PrintColourOfValue(game.rules.PrintColors, f.bankrollAverage.value));
  doc.AddBlank();
  Bold(doc, "Comps");
  for (std::size_t k = 0; k < f.comps.size(); ++k) {
    const bool signed_ = k == kCompVig || k == kCompValue;
    Figure(doc, f.compLabels[k], f.comps[k], signed_ ? PrintColourOfValue(game.rules.PrintColors, f.comps[k].value) : kPrintBlack);
  }
  doc.AddBlank();
  PrintLine heads;
  heads.bold = true;
  heads.cells.push_back(Left("Decisions"));
  for (int k = 0; k < 5; ++k) heads.cells.push_back(RightCell(kDecisionColumns[k], kDecisionEnds[k]));
  doc.lines.push_back(std::move(heads));
  for (std::size_t row = 0; row < 2; ++row) {
    PrintLine line;
    line.cells.push_back(Left(kDecisionRows[row], 2));
    for (std::size_t k = 0; k < 5; ++k) {
      const Shown& s = f.decisions[row][k];
      line.cells.push_back(RightCell(s.text, kDecisionEnds[k],
                                 k >= kNetColumn ? PrintColourOfValue(game.rules.PrintColors, s.value) : kPrintBlack));
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

PrintDocument HandsPrintout(const HandsFigures& f, const CalendarDate& today,
                            std::string_view gameFile) {
  PrintDocument doc;
  Heading(doc, "Ravelton Hands", today, gameFile);
  Selection(doc, f.frame, f.selectionLabel);
  if (!f.explanation.empty()) {
    doc.AddText(f.explanation);
    doc.AddBlank();
  }
  PrintLine heads;
  heads.bold = true;
  for (int k = 0; k < 3; ++k) heads.cells.push_back(RightCell(kHandHeads[k], kHandEnds[k]));
  doc.lines.push_back(std::move(heads));
  for (int row = kFirstHandRow; row <= kHandRows; ++row) {
    if (row == kHandTotalRow) doc.AddBlank();
    PrintLine line;
    line.bold = row >= kHandTotalRow;
    line.cells.push_back(Left(HandRowLabel(row), 2));
    for (std::size_t k = 0; k < 3; ++k) {
      const Shown& s = f.cells[static_cast<std::size_t>(row)][k];
      line.cells.push_back(RightCell(s.none ? std::string() : s.text, kHandEnds[k]));
    }
    doc.lines.push_back(std::move(line));
  }
  doc.AddBlank();
  Bold(doc, "Records");
  Figure(doc, f.frame >= kFirstSessionFrame ? "Total hands" : "Rolls in the hand", f.handTotal);
  Figure(doc, "Total rolls", f.totalRolls);
  Figure(doc, "Most rolls in a hand", f.mostRolls);
  Figure(doc, "Most c/o rolls in a hand", f.mostComeouts);
  Figure(doc, "Most passes in a hand", f.mostPasses);
  Figure(doc, "Most misses in a hand", f.mostMisses);
  doc.AddBlank();
  Bold(doc, "Average # of rolls:");
  Figure(doc, "Avg rolls / hand", f.avgRolls);
  Figure(doc, "Avg c/o rolls/hand", f.avgComeouts);
  Figure(doc, "Avg passes / hand", f.avgPasses);
  Figure(doc, "Avg misses / hand", f.avgMisses);
  return doc;
}

PrintDocument RollFreqsPrintout(const RollFreqFigures& f, const CalendarDate& today,
                                std::string_view gameFile) {
  PrintDocument doc;
  Heading(doc, "Ravelton Roll Totals", today, gameFile);
  Bold(doc, f.text);
  doc.AddBlank();
  Figure(doc, "Total session rolls:", f.sessionRolls);
  Figure(doc, "Total rolls this selection:", f.selectionRolls);
  Figure(doc, "Actual % rolled:", f.actualPct);
  Figure(doc, "# rolls since last rolled:", f.rollsSince);
  Figure(doc, "Average # of Rolls to achieve:    ", f.average);
  Figure(doc, f.probableCaption, f.probablePct);
  doc.AddBlank();
  // The gaps in rows of kGapPairs pairs: the length it took and how often.
  PrintLine heads, under;
  heads.bold = under.bold = true;
  for (int k = 0; k < kGapPairs; ++k) {
    heads.cells.push_back(RightCell("# of rolls", k * kGapPairWidth + kGapEnd));
    heads.cells.push_back(RightCell("# of times", k * kGapPairWidth + kCountEnd));
    under.cells.push_back(RightCell("appeared", k * kGapPairWidth + kCountEnd));
  }
  doc.lines.push_back(std::move(heads));
  doc.lines.push_back(std::move(under));
  for (std::size_t at = 0; at < f.gaps.size(); at += kGapPairs) {
    PrintLine line;
    for (std::size_t k = 0; k < kGapPairs && at + k < f.gaps.size(); ++k) {
      const RollFreqGap& g = f.gaps[at + k];
      const int left = static_cast<int>(k) * kGapPairWidth;
      line.cells.push_back(RightCell(g.gapText, left + kGapEnd));
      line.cells.push_back(RightCell(std::to_string(g.count), left + kCountEnd));
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

bool PrintSummary(Game& game) {
  if (game.platform == nullptr) return false;
  const ViewsState& v = game.views;
  const SummaryFigures f = FigureSummary(game, v.SummaryFrame, v.SummaryPlayers);
  return game.platform->Print(
      SummaryPrintout(game, f, game.platform->Today(), game.gamefile.GameFilePath));
}

bool PrintHands(Game& game) {
  if (game.platform == nullptr) return false;
  const ViewsState& v = game.views;
  const HandsFigures f = FigureHands(game, v.HandsFrame, v.HandsPlayers, v.HandsShowPercent);
  return game.platform->Print(
      HandsPrintout(f, game.platform->Today(), game.gamefile.GameFilePath));
}

bool PrintRollFreqs(Game& game) {
  if (game.platform == nullptr) return false;
  const ViewsState& v = game.views;
  const RollFreqFigures f = FigureRollFreqs(game, v.RollFreqCategory, v.RollFreqsSkewed);
  return game.platform->Print(
      RollFreqsPrintout(f, game.platform->Today(), game.gamefile.GameFilePath));
}
