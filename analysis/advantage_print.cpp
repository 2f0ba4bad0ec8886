#include "analysis/advantage_print.h"

#include <algorithm>
#include <string>

#include "analysis/advantage_table.h"
#include "config/payoffs.h"
#include "dice/probability_edit.h"

namespace {

constexpr int kFigureWidth = 13;   // each figure column, right-aligned
constexpr int kLabelGap = 2;       // between the longest label and the first figure
constexpr int kPayoffWidth = 20;   // the Payoff and Field columns
int PrintedColour(const Game& game, FigureColour colour) {
  const int sign = colour == FigureColour::Blue ? 1 : colour == FigureColour::Red ? -1 : 0;
  return PrintColourOfSign(game.rules.PrintColors, sign);
}

// The printout's own column titles: the normal view, then the misc. view.
constexpr const char* kPrintedTitles[2][kAdvantageColumns] = {
    {"EV/Roll", "StDev/Roll", "EV/Dec", "StDev/Dec", "EV/Hour"},
    {"Rolls/Dec", "Dec/Roll", "Dec/Hour", "Dec/Min", "Time/Dec"}};

void AddHead(PrintDocument& doc, const CalendarDate& today, std::string_view gameFile) {
  doc.AddText("Game File:  " + PrintedFileName(gameFile), true);
  doc.AddText(MediumDate(today), true);
}

}  // namespace

PrintDocument AdvantagePrintout(const Game& game, const CalendarDate& today,
                                std::string_view gameFile) {
  PrintDocument doc;
  doc.jobName = "Ravelton Advantage";
  doc.landscape = true;  // eleven columns
  AddHead(doc, today, gameFile);
  doc.AddText(game.dice.ProbabilityDiceOn ? "Probability File:  " + ProbabilityFileCaption(game)
                                          : std::string("Figured using true probabilities"),
              true);
  doc.AddBlank();
  std::size_t labelWidth = 3;  // "Bet"
  for (int b = 1; b <= kLastRealBet; ++b)
    labelWidth = std::max(labelWidth, AdvantageRowLabel(b).size());
  const int firstEnd = static_cast<int>(labelWidth) + kLabelGap + kFigureWidth;
  auto figureEnd = [firstEnd](int column) { return firstEnd + column * kFigureWidth; };

  PrintLine titles;
  titles.bold = true;
  titles.cells.push_back({"Bet", 0, kPrintBlack, false});
  for (int view = 0; view < 2; ++view)
    for (int c = 0; c < kAdvantageColumns; ++c)
      titles.cells.push_back(
          {kPrintedTitles[view][c], figureEnd(view * kAdvantageColumns + c), kPrintBlack, true});
  doc.lines.push_back(std::move(titles));
  for (int b = 1; b <= kLastRealBet; ++b) {
    const AdvantageRow row = FigureAdvantageRow(game, b);
    PrintLine line;
    line.cells.push_back({row.label, 0, kPrintBlack, false});
    for (int view = 0; view < 2; ++view)
      for (int c = 0; c < kAdvantageColumns; ++c) {
        const AdvantageCell& cell = view == 0 ? row.normal[c] : row.misc[c];
        line.cells.push_back({cell.text, figureEnd(view * kAdvantageColumns + c),
                              PrintedColour(game, cell.colour), true});
      }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

PrintDocument PayoffsPrintout(Game& game, const CalendarDate& today, std::string_view gameFile) {
  PrintDocument doc;
  doc.jobName = "Ravelton Payoffs";
  AddHead(doc, today, gameFile);
  doc.AddBlank();
  std::size_t labelWidth = 3, fieldLabelWidth = 0;
  for (int i = 0; i < kPayoffListRows; ++i)
    labelWidth = std::max(labelWidth, PayoffRowLabel(PayoffRowCode(i)).size());
  for (int r = 1; r <= kFieldRows; ++r) fieldLabelWidth = std::max(fieldLabelWidth, kFieldRowLabel[r].size());
  const int payoffColumn = static_cast<int>(labelWidth) + kLabelGap;
  const int fieldColumn = payoffColumn + kPayoffWidth;
  const int fieldPayoffColumn = fieldColumn + static_cast<int>(fieldLabelWidth) + kLabelGap;
  PrintLine titles;
  titles.bold = true;
  titles.cells = {{"Bet", 0, kPrintBlack, false},
                  {"Payoff", payoffColumn, kPrintBlack, false},
                  {"Field", fieldColumn, kPrintBlack, false}};
  doc.lines.push_back(std::move(titles));
  // The payoff list down the left, the Field's rows beside its first lines.
  for (int i = 0; i < kPayoffListRows; ++i) {
    const int code = PayoffRowCode(i);
    PrintLine line;
    line.cells.push_back({PayoffRowLabel(code), 0, kPrintBlack, false});
    if (const auto cell = PayoffCellOf(code))
      line.cells.push_back({PayoffText(game, *cell), payoffColumn, kPrintBlack, false});
    const int fieldRow = i + 1;
    if (fieldRow <= kFieldRows) {
      line.cells.push_back({std::string(kFieldRowLabel[fieldRow]), fieldColumn, kPrintBlack, false});
      line.cells.push_back({PayoffText(game, {PayoffTable::Field, fieldRow}), fieldPayoffColumn,
                            kPrintBlack, false});
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}
