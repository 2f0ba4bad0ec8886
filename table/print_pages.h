// Lays a PrintDocument (core/print_document.h) on pages: one font, cells
// at their columns in average character widths, pictures scaled to the
// page's width, the page number under each page. A document that fixes
// its lines per page gets that many on each page, in a smaller font when
// the page would not hold them. The same layout paints a printer's pages
// and the preview images of `make screenshots`.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <vector>

#include "core/print_document.h"

class QPainter;
class QPagedPaintDevice;

class PrintPages {
 public:
  // Lays the document out for pages whose printable area is `page` (in the
  // painter's units at `dpi`).
  PrintPages(const PrintDocument& document, QRect page, int dpi);
  int PageCount() const { return static_cast<int>(firstLine_.size()) - 1; }
  // Paints page `index` (0-based) into the area given at construction.
  void Paint(QPainter& painter, int index) const;

 private:
  // The width the lines need at the present font, in device pixels.
  double WidestLine() const;
  // The line heights a page holds, its footer kept apart.
  int LinesPerPage() const;
  void PaintGraph(QPainter& painter, const PrintGraph& graph, QRect area) const;

  const PrintDocument& document_;
  QRect page_;
  QFont font_, bold_;
  int lineHeight_ = 0;
  double charWidth_ = 0;
  int footerHeight_ = 0;
  std::vector<int> firstLine_;  // the first line of each page, and the end behind the last
};

// One of the sixteen basic colours by number (0 black .. 15 white).
QColor BasicColour(int number);

// Prints every page of the document on a paged device (a QPrinter); false
// when the painter could not begin.
bool PaintDocument(const PrintDocument& document, QPagedPaintDevice& device);
