#include "table/paint_util.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <map>

#include "config/payoffs.h"
#include "core/game.h"
#include "engine/settle_text.h"
#include "table/layout.h"
#include "table/table_colors.h"

namespace {

// The check colours by denomination, smallest first, and their inserts.
const QColor kCheckColor[7] = {QColor(),           QColor(240, 240, 232), QColor(196, 30, 40),
                               QColor(24, 132, 60), QColor(26, 26, 30),   QColor(106, 44, 145),
                               QColor(232, 190, 60)};
const QColor kInsertColor[7] = {QColor(),          QColor(40, 90, 200),   QColor(250, 250, 250),
                                QColor(250, 250, 250), QColor(230, 230, 230), QColor(250, 220, 90),
                                QColor(120, 80, 10)};

std::string FieldPayText(const Game& g, int row) {
  const Currency a = g.FieldPayoff(1, row), flag = g.FieldPayoff(2, row),
                 d = g.FieldPayoff(3, row);
  if (!flag.IsZero()) return PlainAmount(a) + " to " + PlainAmount(d);
  return PlainAmount(a + d) + " for " + PlainAmount(d);
}

}  // namespace

void DrawLabel(QPainter& p, const QRectF& r, const QString& text, double size, int align,
               const QColor& color) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setBold(true);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
  font.setHintingPreference(QFont::PreferNoHinting);
  p.setFont(font);
  p.setPen(color);
  p.drawText(r, align, text);
}
void DrawLabel(QPainter& p, const QRectF& r, const char* text, double size, int align,
               const QColor& color) {
  DrawLabel(p, r, QString::fromUtf8(text), size, align, color);
}
void DrawLabel(QPainter& p, const QRectF& r, const std::string& text, double size, int align,
               const QColor& color) {
  DrawLabel(p, r, QString::fromStdString(text), size, align, color);
}

void DrawCheck(QPainter& p, QPointF c, int kind, double radius) {
  kind = std::clamp(kind, 1, 6);
  p.setPen(QPen(QColor(0, 0, 0, 150), radius * 0.09));
  p.setBrush(kCheckColor[kind]);
  p.drawEllipse(c, radius, radius);
  // Six edge inserts and the inner ring, as on a casino check.
  QPen insert(kInsertColor[kind], radius * 0.22, Qt::SolidLine, Qt::FlatCap);
  p.setPen(insert);
  p.setBrush(Qt::NoBrush);
  const QRectF ring(c.x() - radius * 0.86, c.y() - radius * 0.86, radius * 1.72, radius * 1.72);
  for (int i = 0; i < 6; ++i) p.drawArc(ring, i * 60 * 16, 22 * 16);
  p.setPen(QPen(kInsertColor[kind], radius * 0.07));
  p.drawEllipse(c, radius * 0.6, radius * 0.6);
  if (kind == 6) {
    p.setPen(QPen(QColor(60, 30, 0), radius * 0.22, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(c + QPointF(-radius * 0.35, 0), c + QPointF(radius * 0.35, 0));
    p.drawLine(c + QPointF(0, -radius * 0.35), c + QPointF(0, radius * 0.35));
  }
}

void DrawDie(QPainter& p, QPointF c, int face, double size, double angle) {
  p.save();
  p.translate(c);
  p.rotate(angle);
  const QRectF r(-size / 2, -size / 2, size, size);
  p.setPen(QPen(QColor(120, 0, 0), size * 0.04));
  p.setBrush(QColor(200, 20, 30, 235));
  p.drawRoundedRect(r, size * 0.18, size * 0.18);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(252, 252, 250));
  const double q = size * 0.26, dot = size * 0.09;
  const bool pip[7][9] = {{}, {0, 0, 0, 0, 1, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 0, 0, 0, 1},
                          {1, 0, 0, 0, 1, 0, 0, 0, 1}, {1, 0, 1, 0, 0, 0, 1, 0, 1},
                          {1, 0, 1, 0, 1, 0, 1, 0, 1}, {1, 0, 1, 1, 0, 1, 1, 0, 1}};
  face = std::clamp(face, 1, 6);
  for (int i = 0; i < 9; ++i)
    if (pip[face][i]) p.drawEllipse(QPointF((i % 3 - 1) * q, (i / 3 - 1) * q), dot, dot);
  p.restore();
}

void PaintField(QPainter& p, const Game& g, const QRectF& r, const LayoutColors& c) {
  DrawLabel(p, r.adjusted(0, 4, 0, 0), "FIELD", 30, Qt::AlignHCenter | Qt::AlignTop,
            c.accent);
  // The totals the Field pays on, and the payoff each pays at.
  std::map<std::string, int> seen;
  int totals[12] = {}, rows[12] = {}, n = 0;
  for (int t = 2; t <= 12; ++t) {
    for (int row = 1; row <= kFieldRows; ++row) {
      if (kFieldRowTotal[row] != t || g.FieldPayoff(1, row) <= Currency{}) continue;
      totals[n] = t;
      rows[n] = row;
      ++seen[FieldPayText(g, row)];
      ++n;
      break;
    }
  }
  std::string common;
  int most = 0;
  for (const auto& [text, count] : seen)
    if (count > most) most = count, common = text;
  if (n == 0) return;
  const double w = (r.width() - 20) / n;
  for (int i = 0; i < n; ++i) {
    const QRectF cell(r.left() + 10 + w * i, r.top() + 40, w, 36);
    const std::string pay = FieldPayText(g, rows[i]);
    if (pay != common) {
      p.setPen(QPen(c.line, 1.6));
      p.setBrush(Qt::NoBrush);
      p.drawEllipse(QPointF(cell.center().x(), cell.top() + 15), 15, 15);
      DrawLabel(p, QRectF(cell.left() - 10, cell.bottom() - 4, cell.width() + 20, 16), pay, 9,
                Qt::AlignHCenter | Qt::AlignTop, c.accent);
    }
    DrawLabel(p, QRectF(cell.left(), cell.top(), cell.width(), 30), std::to_string(totals[i]), 20,
              Qt::AlignCenter, c.line);
  }
  DrawLabel(p, r.adjusted(0, 0, 0, -3), "pays " + common, 9, Qt::AlignHCenter | Qt::AlignBottom, c.line);
}

void PaintRailFixtures(QPainter& p, const Game& g) {
  // The tools on the back rail: buy, call off, call on.
  const char* const caption[3] = {"BUY", "OFF", "ON"};
  const QColor face[3] = {QColor(232, 190, 60), QColor(20, 20, 20), QColor(250, 250, 250)};
  const QColor ink[3] = {QColor(60, 30, 0), QColor(250, 250, 250), QColor(20, 20, 20)};
  for (int t = hot::kToolBuy; t <= hot::kToolCallOn; ++t) {
    const int i = t - hot::kToolBuy;
    const QRectF r = ToolRect(t);
    p.setPen(QPen(QColor(0, 0, 0, 160), 1.5));
    p.setBrush(face[i]);
    p.drawEllipse(r.center(), 14, 14);
    DrawLabel(p, r, caption[i], 9, Qt::AlignCenter, ink[i]);
  }
  // The stick person at the centre of the front rail.
  const QRectF s = StickRect();
  p.setPen(QPen(QColor(20, 20, 20), 2));
  p.setBrush(QColor(250, 250, 250));
  p.drawEllipse(QPointF(s.center().x(), s.top() + 14), 11, 11);
  p.setBrush(QColor(20, 20, 20));
  p.drawRoundedRect(QRectF(s.left() + 6, s.top() + 28, s.width() - 12, 46), 8, 8);
  p.setPen(QPen(QColor(200, 160, 100), 3, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(s.center().x() + 8, s.top() + 40), QPointF(s.center().x() + 34, s.top() - 30));
  DrawLabel(p, QRectF(s.left() - 10, s.bottom() - 16, s.width() + 20, 14), "STICK", 9,
            Qt::AlignCenter, QColor(250, 230, 180));
  (void)g;
}
