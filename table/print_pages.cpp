#include "table/print_pages.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

namespace {

constexpr int kBasicColours = 16;
constexpr QRgb kBasicRgb[kBasicColours] = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
constexpr double kPointSize = 9.5;
constexpr double kLineSpacing = 1.25;  // line height as a multiple of the font's height
constexpr int kFooterLines = 2;

QString Text(const std::string& s) { return QString::fromStdString(s); }

}  // namespace

QColor BasicColour(int number) {
  return QColor::fromRgb(kBasicRgb[number >= 0 && number < kBasicColours ? number : 0]);
}

PrintPages::PrintPages(const PrintDocument& document, QRect page, int dpi)
    : document_(document), page_(page) {
  // Sized in the device's pixels, so the columns measured here land where
  // they print; a document wider than the page, or with more lines to a
  // page than the page holds, gets a smaller font.
  double pixels = kPointSize * dpi / 72.0;
  for (int fit = 0; fit < 3; ++fit) {
    font_ = QFont("DejaVu Sans");
    font_.setPixelSize(std::max(1, static_cast<int>(pixels)));
    bold_ = font_;
    bold_.setBold(true);
    charWidth_ = QFontMetricsF(font_).averageCharWidth();
    const double height = QFontMetricsF(font_).height() * kLineSpacing;
    double scale = std::min(1.0, page_.width() / std::max(1.0, WidestLine()));
    if (document_.linesPerPage > 0)
      scale = std::min(scale, page_.height() / ((document_.linesPerPage + kFooterLines) * height + 1));
    if (scale >= 1.0) break;
    pixels *= scale;
  }
  const QFontMetricsF metrics(font_);
  lineHeight_ = std::max(1, static_cast<int>(metrics.height() * kLineSpacing));
  footerHeight_ = kFooterLines * lineHeight_;
  const int perPage = LinesPerPage();
  const int lines = static_cast<int>(document_.lines.size());
  firstLine_.push_back(0);
  int used = 0;
  for (int i = 0; i < lines; ++i) {
    const int height = document_.HeightOf(document_.lines[static_cast<std::size_t>(i)]);
    if (used > 0 && used + height > perPage) {
      firstLine_.push_back(i);
      used = 0;
    }
    used += height;
  }
  firstLine_.push_back(lines);
}

int PrintPages::LinesPerPage() const {
  const int fits = std::max(1, (page_.height() - footerHeight_) / lineHeight_);
  return document_.linesPerPage > 0 ? std::min(fits, document_.linesPerPage) : fits;
}

double PrintPages::WidestLine() const {
  const QFontMetricsF plain(font_), bold(bold_);
  double widest = 0;
  for (const PrintLine& line : document_.lines) {
    if (line.centred) continue;  // headings are centred on whatever width there is
    const QFontMetricsF& metrics = line.bold ? bold : plain;
    for (const PrintCell& cell : line.cells) {
      const double start = cell.column * charWidth_;
      widest = std::max(widest, cell.alignRight ? start
                                                : start + metrics.horizontalAdvance(Text(cell.text)));
    }
  }
  return widest;
}

void PrintPages::Paint(QPainter& painter, int index) const {
  if (index < 0 || index >= PageCount()) return;
  const int first = firstLine_[static_cast<std::size_t>(index)];
  const int last = firstLine_[static_cast<std::size_t>(index) + 1];
  int y = page_.top();
  for (int i = first; i < last; ++i) {
    const PrintLine& line = document_.lines[static_cast<std::size_t>(i)];
    const int height = document_.HeightOf(line) * lineHeight_;
    if (line.graph >= 0 && line.graph < static_cast<int>(document_.graphs.size()))
      PaintGraph(painter, document_.graphs[static_cast<std::size_t>(line.graph)],
                 QRect(page_.left(), y, page_.width(), height));
    painter.setFont(line.bold ? bold_ : font_);
    const QFontMetricsF metrics(painter.font());
    for (const PrintCell& cell : line.cells) {
      painter.setPen(BasicColour(cell.colour));
      const QString text = Text(cell.text);
      const double width = metrics.horizontalAdvance(text);
      double x = page_.left() + cell.column * charWidth_;
      if (line.centred) x = page_.left() + (page_.width() - width) / 2;
      else if (cell.alignRight) x -= width;
      painter.drawText(QPointF(x, y + metrics.ascent()), text);
    }
    y += height;
  }
  painter.setFont(font_);
  painter.setPen(Qt::black);
  const QString number = QString("Page %1").arg(index + 1);
  const QFontMetricsF metrics(font_);
  painter.drawText(QPointF(page_.left() + (page_.width() - metrics.horizontalAdvance(number)) / 2,
                           page_.bottom() - lineHeight_ + metrics.ascent()),
                   number);
}

void PrintPages::PaintGraph(QPainter& painter, const PrintGraph& graph, QRect area) const {
  // The picture keeps its shape: as wide as the page allows at the height
  // it was given, centred, with a line height's gap below it (where the
  // labels under it stand). Labels at its left take room of their own.
  painter.setFont(font_);
  const QFontMetricsF metrics(font_);
  double labelRoom = 0;
  for (const PrintLabel& label : graph.labels)
    if (label.place == LabelPlace::Left)
      labelRoom = std::max(labelRoom, metrics.horizontalAdvance(Text(label.text)) + charWidth_);
  const double height = std::max(1, area.height() - lineHeight_);
  const double scale = std::min((area.width() - labelRoom) / double(std::max(1, graph.width)),
                                height / double(std::max(1, graph.height)));
  const double width = graph.width * scale;
  const QPointF origin(area.left() + labelRoom + (area.width() - labelRoom - width) / 2, area.top());
  painter.save();
  // The frame first, so that a rule on the picture's edge shows over it.
  painter.setPen(QPen(Qt::black, 0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(origin, QSizeF(width, graph.height * scale)));
  for (const PrintRect& r : graph.rects) {
    // A rule stays visible however small the scale.
    const QRectF box(origin.x() + r.left * scale, origin.y() + r.top * scale,
                     std::max(1.0, r.width * scale), std::max(1.0, r.height * scale));
    painter.fillRect(box, BasicColour(r.colour));
  }
  const double under = origin.y() + graph.height * scale + metrics.ascent();
  for (const PrintLabel& label : graph.labels) {
    const QString text = Text(label.text);
    const double w = metrics.horizontalAdvance(text);
    const double x = origin.x() + label.at * scale;
    painter.setPen(BasicColour(label.colour));
    switch (label.place) {
      case LabelPlace::Left:
        painter.drawText(QPointF(origin.x() - charWidth_ / 2 - w,
                                 origin.y() + label.at * scale + (metrics.ascent() - metrics.descent()) / 2),
                         text);
        break;
      case LabelPlace::UnderStart: painter.drawText(QPointF(x, under), text); break;
      case LabelPlace::UnderCentre: painter.drawText(QPointF(x - w / 2, under), text); break;
      case LabelPlace::UnderEnd: painter.drawText(QPointF(x - w, under), text); break;
    }
  }
  painter.restore();
}

bool PaintDocument(const PrintDocument& document, QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QRect page(0, 0, device.width(), device.height());
  const PrintPages pages(document, page, device.logicalDpiY());
  for (int i = 0; i < pages.PageCount(); ++i) {
    if (i > 0) device.newPage();
    pages.Paint(painter, i);
  }
  painter.end();
  return true;
}
