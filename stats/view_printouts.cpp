#include "stats/view_printouts.h"

#include <string>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/platform.h"

namespace {

// Columns, in character widths; figures are right-aligned at their column.
constexpr int kTotalsEnds[4] = {44, 56, 68, 80};
constexpr int kResultEnds[kResultColumns] = {34, 46, 58, 70, 82};
constexpr int kOnTableEnd = 34;
constexpr int kTrendEnd = 44;

void Heading(PrintDocument& doc, const std::string& title, const CalendarDate& today,
             std::string_view gameFile) {
  doc.AddText(title, true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Game file:  " + PrintedFileName(gameFile), true);
  doc.AddBlank();
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string s;
  for (const std::string& part : parts) s += (s.empty() ? "" : ", ") + part;
  return s;
}

std::string PlayerNames(const Game& game, std::int32_t players) {
  std::vector<std::string> names;
  for (int p : SelectedSlots(game, players))
    names.push_back(game.PlayerName[static_cast<std::size_t>(p)]);
  return Joined(names);
}

}  // namespace

PrintDocument RollTotalsPrintout(const Game& game, const RollTotalsFigures& f, std::int32_t players,
                                 const CalendarDate& today, std::string_view gameFile) {
  PrintDocument doc;
  doc.jobName = "Ravelton Roll Totals";
  Heading(doc, "Ravelton Roll Totals", today, gameFile);
  doc.AddText(std::string(FrameName(f.frame)) + ", " + std::string(KindCaption(f.kind)));
  if (SelectedSlots(game, players).empty()) {
    doc.AddText("Data for all players");
  } else {
    doc.AddText("Data for the following players:");
    doc.AddText(PlayerNames(game, players));
  }
  doc.AddBlank();
  PrintLine heads, under;
  heads.bold = under.bold = true;
  heads.cells = {RightCell("Probable %", kTotalsEnds[0]), RightCell("Actual %", kTotalsEnds[1]),
                 RightCell("# of times", kTotalsEnds[2]), RightCell("# of rolls", kTotalsEnds[3])};
  under.cells = {RightCell(f.skewed ? "(skewed)" : "", kTotalsEnds[0]), RightCell("rolled", kTotalsEnds[2]),
                 RightCell("since last", kTotalsEnds[3])};
  doc.lines.push_back(std::move(heads));
  doc.lines.push_back(std::move(under));
  for (const RollTotalsRow& row : f.rows) {
    PrintLine line;
    line.cells = {{row.text, 0, kPrintBlack, false},
                  RightCell(row.probablePct.text, kTotalsEnds[0]),
                  RightCell(row.actualPct.text, kTotalsEnds[1]),
                  RightCell(row.count.text, kTotalsEnds[2]),
                  RightCell(row.rollsSince.text, kTotalsEnds[3])};
    doc.lines.push_back(std::move(line));
  }
  doc.AddBlank();
  PrintLine total;
  total.cells = {{"Total rolls", 0, kPrintBlack, false}, RightCell(f.totalRolls.text, kTotalsEnds[2])};
  doc.lines.push_back(std::move(total));
  return doc;
}

PrintDocument BetResultsPrintout(const Game& game, const BetResultsFigures& f, std::int32_t players,
                                 const CalendarDate& today, std::string_view gameFile) {
  PrintDocument doc;
  doc.jobName = "Ravelton Bet Results";
  Heading(doc, "Ravelton Bet Results", today, gameFile);
  doc.AddText(std::string(FrameName(f.frame)));
  doc.AddText("Data for the following players:");
  doc.AddText(PlayerNames(game, players));
  std::vector<std::string> bets;
  for (int b : f.bets) bets.emplace_back(BetName(b));
  doc.AddText(bets.size() == 1
                  ? " Data for the following bet:"
                  : " Data for the following " + std::to_string(bets.size()) + " bets:");
  doc.AddText(Joined(bets));
  doc.AddBlank();
  const char* const onTable[4] = {"Current #", "Current $", "Last roll #", "Last roll $"};
  PrintLine tableHead;
  tableHead.bold = true;
  tableHead.cells = {{"On the table", 0, kPrintBlack, false}, RightCell("Wagers", kOnTableEnd)};
  doc.lines.push_back(std::move(tableHead));
  for (std::size_t r = 0; r < 4; ++r) {
    PrintLine line;
    line.cells = {{onTable[r], 2, kPrintBlack, false}, RightCell(f.onTable[r].text, kOnTableEnd)};
    doc.lines.push_back(std::move(line));
  }
  doc.AddBlank();
  PrintLine heads;
  heads.bold = true;
  heads.cells.push_back({"Decisions", 0, kPrintBlack, false});
  for (int k = 0; k < kResultColumns; ++k)
    heads.cells.push_back(RightCell(std::string(ResultColumnTitle(k)), kResultEnds[k]));
  doc.lines.push_back(std::move(heads));
  for (int row = 1; row <= kResultRows; ++row) {
    PrintLine line;
    line.cells.push_back({std::string(ResultRowLabel(row)), 2, kPrintBlack, false});
    for (int k = 0; k < kResultColumns; ++k) {
      const Shown& s = f.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)];
      if (s.none) continue;
      line.cells.push_back(
          RightCell(s.text, kResultEnds[k], k >= kNetCol ? PrintColourOfValue(game.rules.PrintColors, s.value) : kPrintBlack));
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

PrintDocument BetTrendsPrintout(const Game& game, int p, const CalendarDate& today) {
  PrintDocument doc;
  doc.jobName = "Ravelton Bet Trends";
  doc.AddText("Ravelton Bet Trends", true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Player:  " + (SeatTaken(game, p) ? game.PlayerName[static_cast<std::size_t>(p)]
                                                : std::string()),
              true);
  doc.AddBlank();
  doc.AddText("Recent Won / Lost trend for bets actually made (losses shown as negative numbers).");
  doc.AddBlank();
  for (const BetTrendRow& row : FigureBetTrends(game, p)) {
    if (row.trend.value == 0) continue;
    PrintLine line;
    line.cells = {{row.name, 0, kPrintBlack, false},
                  RightCell(row.trend.text, kTrendEnd, PrintColourOfValue(game.rules.PrintColors, row.trend.value))};
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

bool PrintRollTotals(Game& game) {
  if (game.platform == nullptr) return false;
  const ViewsState& v = game.views;
  const RollTotalsFigures f = FigureRollTotals(game, v.RollTotalsKind, v.RollTotalsFrame,
                                               v.RollTotalsPlayers, v.RollTotalsVsSkewed);
  return game.platform->Print(RollTotalsPrintout(
      game, f, v.RollTotalsPlayers, game.platform->Today(), game.gamefile.GameFilePath));
}

bool PrintBetResults(Game& game) {
  if (game.platform == nullptr) return false;
  const ViewsState& v = game.views;
  const std::vector<int> bets = SelectedBets(v.BetResultsSelection);
  if (bets.empty()) {
    ShowNotice(game, "You need to select one or more bets to print.", "Print Bet Results", 0,
               kMsgOk | kMsgPicStop);
    return false;
  }
  const BetResultsFigures f = FigureBetResults(game, v.BetResultsFrame, v.BetResultsPlayers, bets);
  return game.platform->Print(BetResultsPrintout(
      game, f, v.BetResultsPlayers, game.platform->Today(), game.gamefile.GameFilePath));
}

bool PrintBetTrends(Game& game) {
  if (game.platform == nullptr || !SeatTaken(game, game.views.BetTrendsPlayer)) return false;
  return game.platform->Print(
      BetTrendsPrintout(game, game.views.BetTrendsPlayer, game.platform->Today()));
}
