// A printout as data: the lines a form prints, each made of cells set at a
// column, in one of the sixteen basic colours. The engine composes a
// document; the platform lays it on pages (the desktop through the
// printer, the headless platform by keeping it for the tests).
//
// What must stay true:
// - Columns are counted in average character widths from the left margin;
//   a right-aligned cell ends at its column.
// - Colours are numbers of the sixteen basic colours (0 black, 9 blue, 12
//   red, 13 magenta); PrintColors of the rules chooses them, so a printer
//   without colour gets all black.
// - A document that sets linesPerPage gets exactly that many line heights
//   on every page (the font shrinks until they fit), so the page count it
//   promises before printing is the count that prints.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/frames.h"

constexpr int kPrintBlack = 0;

struct PrintCell {
  std::string text;
  int column = 0;
  int colour = kPrintBlack;
  bool alignRight = false;
  friend bool operator==(const PrintCell&, const PrintCell&) = default;
};

// A picture across the page: filled rectangles in the picture's own units
// (x from the left, y from the top of a width x height area), scaled to the
// page's width and drawn in a frame. A rectangle one unit wide is a rule.
struct PrintRect {
  int left = 0, top = 0, width = 1, height = 1;
  int colour = kPrintBlack;
  friend bool operator==(const PrintRect&, const PrintRect&) = default;
};
// A text set beside the picture: right-aligned against its left edge and
// centred on a row (a scale), or in the line under it, starting at, centred
// on or ending at a column of the picture.
enum class LabelPlace { Left, UnderStart, UnderCentre, UnderEnd };
struct PrintLabel {
  std::string text;
  LabelPlace place = LabelPlace::Left;
  int at = 0;  // the row (Left) or the column (Under*), in picture units
  int colour = kPrintBlack;
  friend bool operator==(const PrintLabel&, const PrintLabel&) = default;
};
struct PrintGraph {
  int width = 1, height = 1;
  int lines = 1;  // the line heights it takes on the page, the line under it included
  std::vector<PrintRect> rects;
  std::vector<PrintLabel> labels;
  friend bool operator==(const PrintGraph&, const PrintGraph&) = default;
};

struct PrintLine {
  std::vector<PrintCell> cells;
  bool centred = false;  // one cell centred across the page (headings)
  bool bold = false;
  int graph = -1;  // index in PrintDocument::graphs: the line is that picture
  friend bool operator==(const PrintLine&, const PrintLine&) = default;
};

struct PrintDocument {
  std::string jobName;  // the print job's name, e.g. "Ravelton CheckStacks"
  bool landscape = false;  // wide tables print across the long side
  std::vector<PrintLine> lines;
  std::vector<PrintGraph> graphs;
  int linesPerPage = 0;  // 0: as many as the page holds
  // Sent by itself (the bankroll graph's auto-print): the platform prints
  // it on the printer last chosen, asking only when none was chosen yet.
  bool unattended = false;
  // Shown while the pages go to the printer, once it is chosen; empty: none.
  std::string sendingNotice;

  // The line heights a line takes: a picture's, else 1.
  int HeightOf(const PrintLine& line) const;
  // Appends a picture as a line of its own.
  void AddGraph(PrintGraph graph);

  // Appends a line of one cell at column 0, or centred.
  void AddText(std::string text, bool centred = false, bool bold = false);
  // Appends an empty line.
  void AddBlank();
  friend bool operator==(const PrintDocument&, const PrintDocument&) = default;
};

// The colour a figure prints in by its sign, from the rules' PrintColors
// (blue, red, magenta): blue above 0, red below, black at 0.
int PrintColourOfSign(const std::array<Long, 3>& printColors, int sign);
// The same by the sign of a figure's value.
int PrintColourOfValue(const std::array<Long, 3>& printColors, double value);
// A right-aligned cell that ends at `column`.
PrintCell RightCell(std::string text, int column, int colour = kPrintBlack);

// A calendar day.
struct CalendarDate {
  int year = 0;
  int month = 1;  // 1..12
  int day = 1;
};

// The date as the medium form shows it: "23-Nov-26".
std::string MediumDate(const CalendarDate& date);

// The file name a printout's heading shows: the name of `path`, or
// "untitled" when there is none.
std::string PrintedFileName(std::string_view path);
