#include "core/print_document.h"

#include <cstdio>
#include <utility>

#include "core/data_folder.h"

namespace {

constexpr const char* kMonthAbbrev[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int kCentury = 100;
constexpr int kPositiveSlot = 0, kNegativeSlot = 1;  // blue and red of PrintColors

}  // namespace

void PrintDocument::AddText(std::string text, bool centred, bool bold) {
  PrintLine line;
  line.cells.push_back({std::move(text), 0, kPrintBlack, false});
  line.centred = centred;
  line.bold = bold;
  lines.push_back(std::move(line));
}

void PrintDocument::AddBlank() { lines.emplace_back(); }

int PrintDocument::HeightOf(const PrintLine& line) const {
  if (line.graph < 0 || line.graph >= static_cast<int>(graphs.size())) return 1;
  return graphs[static_cast<std::size_t>(line.graph)].lines > 1
             ? graphs[static_cast<std::size_t>(line.graph)].lines
             : 1;
}

void PrintDocument::AddGraph(PrintGraph graph) {
  PrintLine line;
  line.graph = static_cast<int>(graphs.size());
  graphs.push_back(std::move(graph));
  lines.push_back(std::move(line));
}

int PrintColourOfSign(const std::array<Long, 3>& printColors, int sign) {
  if (sign > 0) return static_cast<int>(printColors[kPositiveSlot]);
  if (sign < 0) return static_cast<int>(printColors[kNegativeSlot]);
  return kPrintBlack;
}

int PrintColourOfValue(const std::array<Long, 3>& printColors, double value) {
  return PrintColourOfSign(printColors, value > 0 ? 1 : value < 0 ? -1 : 0);
}

PrintCell RightCell(std::string text, int column, int colour) {
  return {std::move(text), column, colour, true};
}

std::string MediumDate(const CalendarDate& date) {
  const int month = date.month >= 1 && date.month <= 12 ? date.month : 1;
  const int year = ((date.year % kCentury) + kCentury) % kCentury;
  char text[16];
  std::snprintf(text, sizeof text, "%02d-%s-%02d", date.day, kMonthAbbrev[month - 1], year);
  return text;
}

std::string PrintedFileName(std::string_view path) {
  const std::string_view name = FileNameOf(path);
  return name.empty() ? std::string("untitled") : std::string(name);
}
