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
  // they print; a document wider than the page gets a smaller font.
  double pixels = kPointSize * dpi / 72.0;
  for (int fit = 0; fit < 2; ++fit) {
    font_ = QFont("DejaVu Sans");
    font_.setPixelSize(std::max(1, static_cast<int>(pixels)));
    bold_ = font_;
    bold_.setBold(true);
    charWidth_ = QFontMetricsF(font_).averageCharWidth();
    const double wanted = WidestLine();
    if (wanted <= page_.width()) break;
    pixels *= page_.width() / wanted;
  }
  const QFontMetricsF metrics(font_);
  lineHeight_ = std::max(1, static_cast<int>(metrics.height() * kLineSpacing));
  footerHeight_ = kFooterLines * lineHeight_;
  const int perPage = std::max(1, (page_.height() - footerHeight_) / lineHeight_);
  const int lines = static_cast<int>(document_.lines.size());
  for (int first = 0; first < std::max(lines, 1); first += perPage) firstLine_.push_back(first);
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
  const int perPage = std::max(1, (page_.height() - footerHeight_) / lineHeight_);
  const int first = firstLine_[index];
  const int last = std::min<int>(first + perPage, static_cast<int>(document_.lines.size()));
  int y = page_.top();
  for (int i = first; i < last; ++i, y += lineHeight_) {
    const PrintLine& line = document_.lines[i];
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
  }
  painter.setFont(font_);
  painter.setPen(Qt::black);
  const QString number = QString("Page %1").arg(index + 1);
  const QFontMetricsF metrics(font_);
  painter.drawText(QPointF(page_.left() + (page_.width() - metrics.horizontalAdvance(number)) / 2,
                           page_.bottom() - lineHeight_ + metrics.ascent()),
                   number);
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
