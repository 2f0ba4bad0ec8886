#include "stats/sessions_printouts.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/game.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "stats/number_format.h"
#include "stats/sessions_log.h"

namespace {

constexpr const char* kHistogramTitle = "Print Sessions Log Histogram";
constexpr const char* kRawTitle = "Print Sessions Log Raw Data";
constexpr const char* kNothingSelected = "There are no sessions selected for printing.";
constexpr const char* kValuePattern = "#,##0.0###;-#,##0.0###;0";

// The picture of the histogram: the screen's columns and rows.
constexpr int kPictureRows = kHistogramHeight + 1;
constexpr int kPictureLines = 16;
// Basic colours of the picture (core/print_document.h).
constexpr int kBarColour = 3, kDeviationColour = 8, kRangeColour = 2, kDarkBlue = 1;

// Columns of the figures, in character widths; figures right-aligned.
constexpr int kClassCount = 30, kClassPct = 40;
constexpr int kResultsPerColumn = 8;
constexpr int kResultName[2] = {0, 36}, kResultEnd[2] = {30, 66};
// A raw data column: the session number and the value end here.
constexpr int kRawWidth = 30, kRawNumberEnd = 9, kRawValueEnd = 27;
constexpr int kRawHeadingLines = 6;

void Heading(PrintDocument& doc, std::string_view name, std::string_view logPath,
             const CalendarDate& today) {
  doc.AddText("Ravelton Sessions Log for " + std::string(name), true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Sessions Log File:  " + PrintedFileName(logPath), true);
  doc.AddBlank();
}

std::string PlayerName(const Game& game) {
  const int p = game.views.SessionsPlayer;
  return p >= 1 && p <= 8 ? game.PlayerName[static_cast<std::size_t>(p)] : std::string();
}

PrintGraph HistogramPicture(const Game& game, const SessionsFigures& f) {
  PrintGraph g;
  g.width = kHistogramColumns;
  g.height = kPictureRows;
  g.lines = kPictureLines;
  auto rule = [&](int column, int colour) {
    if (column >= 0 && column < kHistogramColumns) g.rects.push_back({column, 0, 1, kPictureRows, colour});
  };
  for (int column : f.deviationColumns) rule(column, kDeviationColour);
  rule(f.meanColumn, f.mean == 0 ? kDarkBlue : PrintColourOfValue(game.rules.PrintColors, f.mean));
  const int barWidth = std::max(1, game.views.BarWidth);
  for (const auto& [first, height] : f.bars)
    if (height > 0)
      g.rects.push_back({first, kPictureRows - height, std::min(barWidth, kHistogramColumns - first), height,
                         kBarColour});
  for (int column : f.rangeLineColumns) rule(column, kRangeColour);
  return g;
}

}  // namespace

SessionsRequest SessionsRequestOf(const Game& game, std::string path) {
  const ViewsState& v = game.views;
  SessionsRequest rq;
  rq.path = std::move(path);
  rq.value = v.SessionsView;
  rq.filter = v.SessionsFilter;
  rq.breakLow = v.BreakLow;
  rq.breakHigh = v.BreakHigh;
  rq.barWidth = v.BarWidth;
  rq.rawTop = v.RawTop;
  return rq;
}

PrintDocument SessionsHistogramPrintout(const Game& game, const SessionsFigures& f,
                                        std::string_view name, std::string_view logPath,
                                        const CalendarDate& today) {
  PrintDocument doc;
  doc.jobName = "Ravelton Sessions Log";
  Heading(doc, name, logPath, today);
  doc.AddText("Value:  " + f.valueName);
  doc.AddBlank();
  PrintLine heads;
  heads.bold = true;
  heads.cells = {RightCell("Sessions", kClassCount), RightCell("%", kClassPct)};
  doc.lines.push_back(std::move(heads));
  for (std::size_t k = 0; k < 4; ++k) {
    PrintLine line;
    line.cells = {{f.classLabels[k], 2, kPrintBlack, false}, RightCell(f.classCounts[k].text, kClassCount),
                  RightCell(f.classPercents[k].text, kClassPct)};
    doc.lines.push_back(std::move(line));
  }
  doc.AddBlank();
  doc.AddText("Tallest bar:  " + FormatNumber(static_cast<double>(f.tallest), "#,##0") +
              (f.tallest == 1 ? " session" : " sessions"));
  doc.AddGraph(HistogramPicture(game, f));
  doc.AddText("Range from " + FormatNumber(f.rangeValue[0], kValuePattern) + " to " +
              FormatNumber(f.rangeValue[1], kValuePattern) + " (" +
              FormatNumber(f.rangeSd[0], "0.##;-0.##;0") + " to " + FormatNumber(f.rangeSd[1], "0.##;-0.##;0") +
              " std devs):  " + f.rangeCount.text + ", " + f.rangeShare.text);
  doc.AddBlank();
  for (std::size_t row = 0; row < kResultsPerColumn; ++row) {
    PrintLine line;
    for (std::size_t side = 0; side < 2; ++side) {
      const std::size_t i = side * kResultsPerColumn + row;
      if (i >= f.results.size()) continue;
      const auto& [label, shown] = f.results[i];
      line.cells.push_back({label, kResultName[side], kPrintBlack, false});
      line.cells.push_back(RightCell(shown.text, kResultEnd[side], PrintColourOfValue(game.rules.PrintColors, shown.none ? 0 : shown.value)));
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

std::int64_t RawDataPages(std::int64_t sessions) {
  constexpr std::int64_t perPage = static_cast<std::int64_t>(kRawRowsPerPage) * kRawColumns;
  return std::max<std::int64_t>(1, (sessions + perPage - 1) / perPage);
}

PrintDocument SessionsRawDataPrintout(const Game& game, const SessionsRequest& rq,
                                      std::string_view name, const CalendarDate& today,
                                      std::string& error) {
  PrintDocument doc;
  doc.jobName = "Ravelton Sessions Log";
  doc.linesPerPage = kRawHeadingLines + kRawRowsPerPage;
  SessionsLogReader log(rq.path);
  error = log.error();
  const int value = std::clamp(rq.value, 0, kSessionValues - 1);
  const std::string valueName = SessionValueName(value);

  // A page's sessions are gathered first, as its lines run across the columns.
  constexpr std::size_t kPerPage = static_cast<std::size_t>(kRawRowsPerPage) * kRawColumns;
  std::vector<std::pair<std::int32_t, Currency>> page;
  page.reserve(kPerPage);
  auto flush = [&] {
    if (page.empty()) return;
    Heading(doc, name, rq.path, today);
    doc.AddText("Value:  " + valueName);
    PrintLine heads;
    heads.bold = true;
    const int columns = static_cast<int>((page.size() + kRawRowsPerPage - 1) / kRawRowsPerPage);
    for (int c = 0; c < columns; ++c)
      heads.cells.insert(heads.cells.end(), {RightCell("Session", c * kRawWidth + kRawNumberEnd),
                                             RightCell("Value", c * kRawWidth + kRawValueEnd)});
    doc.lines.push_back(std::move(heads));
    const auto rows = std::min<std::size_t>(page.size(), kRawRowsPerPage);
    for (std::size_t r = 0; r < rows; ++r) {
      PrintLine line;
      for (std::size_t i = r, c = 0; i < page.size(); i += kRawRowsPerPage, ++c) {
        const auto& [session, x] = page[i];
        const int left = static_cast<int>(c) * kRawWidth;
        line.cells.push_back(RightCell(FormatNumber(double(session), "#,##0"), left + kRawNumberEnd));
        line.cells.push_back(RightCell(FormatNumber(x.ToDouble(), kValuePattern), left + kRawValueEnd,
                                   PrintColourOfValue(game.rules.PrintColors, x.ToDouble())));
      }
      doc.lines.push_back(std::move(line));
    }
    // A short last page still takes its full height, so every page begins with its heading.
    for (std::size_t r = rows; r < kRawRowsPerPage; ++r) doc.AddBlank();
    page.clear();
  };
  SessionRecord record{};
  for (std::int32_t s = 1; s <= log.count() && log.ok(); ++s) {
    if (!log.Read(s, record)) {
      error = DamagedLogMessage(rq.path);
      break;
    }
    if (!IncludedSession(rq, record[kNetValue])) continue;
    page.emplace_back(s, record[static_cast<std::size_t>(value)]);
    if (page.size() == kPerPage) flush();
  }
  flush();
  // The blank lines that hold the last page's height are not printed.
  while (!doc.lines.empty() && doc.lines.back().cells.empty() && doc.lines.back().graph < 0) doc.lines.pop_back();
  return doc;
}

bool PrintSessionsHistogram(Game& game, const SessionsRequest& rq, const SessionsFigures& f) {
  if (game.platform == nullptr) return false;
  if (f.included <= 0) {
    ShowNotice(game, kNothingSelected, kHistogramTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  return game.platform->Print(
      SessionsHistogramPrintout(game, f, PlayerName(game), rq.path, game.platform->Today()));
}

bool PrintSessionsRawData(Game& game, const SessionsRequest& rq, const SessionsFigures& f) {
  if (game.platform == nullptr) return false;
  if (f.included <= 0) {
    ShowNotice(game, kNothingSelected, kRawTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  const std::int64_t pages = RawDataPages(f.included);
  const std::string text = "Number of sessions to be printed: " + FormatNumber(double(f.included), "#,##0") +
                           "\r\rThis should result in " + FormatNumber(double(pages), "#,##0") +
                           (pages == 1 ? " page." : " pages.") + "\r\rAre you ready to begin printing?";
  if (ShowNotice(game, text, kRawTitle, 0, kMsgYes | kMsgNo | kMsgPicQmark) != kAnswerYes) return false;
  std::string error;
  const PrintDocument doc = SessionsRawDataPrintout(game, rq, PlayerName(game), game.platform->Today(), error);
  if (!error.empty()) {
    ShowNotice(game, error, kRawTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  return game.platform->Print(doc);
}
