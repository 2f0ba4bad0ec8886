// What stands on the clean table: marks, the puck, the checks, the rail's
// checks and stacks, the ring round the selected check, and the dice.
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "engine/settle_text.h"
#include "table/check_images.h"
#include "table/layout.h"
#include "table/paint_util.h"
#include "table/table_painter.h"

namespace {

bool Seated(const Game& g, int p) { return !g.PlayerName[static_cast<std::size_t>(p)].empty(); }

// The number boxes of an end are marked while one of its players has a Don't Come point.
void PaintDontComeMarks(QPainter& p, const Game& g) {
  for (End end : {End::Left, End::Right}) {
    bool any = false;
    for (int pl = end == End::Left ? 1 : 5; pl <= (end == End::Left ? 4 : 8); ++pl)
      for (int b = bet::kDontComePointFirst; b <= bet::kDontComePointLast; ++b)
        any = any || g.Bet(pl, b) > Currency{};
    if (!any) continue;
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 55));
    p.drawRect(DontComeStripRect(end));
  }
}

void PaintFireMarks(QPainter& p, const Game& g) {
  if (!g.rules.UseFireBet) return;
  const QRectF r = FireRect();
  for (int i = 0; i < 6; ++i) {
    const QPointF c(r.left() + 18 + 25 * i, r.bottom() - 11);
    const bool made = g.PointsMadeMask & (1 << i);
    p.setPen(QPen(QColor(255, 150, 40), 1.2));
    p.setBrush(made ? QColor(255, 110, 20) : Qt::NoBrush);
    p.drawEllipse(c, 9, 9);
    DrawLabel(p, QRectF(c.x() - 10, c.y() - 9, 20, 18), std::to_string(BoxNumber(i)), 9,
              Qt::AlignCenter, made ? QColor(40, 10, 0) : QColor(255, 170, 80));
  }
}

void PaintPuck(QPainter& p, QPointF c, bool on) {
  p.setPen(QPen(QColor(0, 0, 0, 170), 1.5));
  p.setBrush(on ? QColor(252, 252, 250) : QColor(18, 18, 18));
  p.drawEllipse(c, 15, 15);
  DrawLabel(p, QRectF(c.x() - 15, c.y() - 15, 30, 30), on ? "ON" : "OFF", 10, Qt::AlignCenter,
            on ? QColor(10, 10, 10) : QColor(250, 250, 250));
}

void PaintPucks(QPainter& p, const Game& g) {
  for (End end : {End::Left, End::Right}) {
    if (IsBoxNumber(g.Point)) {
      const QRectF box = PlaceBoxRect(g.Point, end);
      PaintPuck(p, QPointF(box.center().x(), box.top() + 15), true);
    } else {
      const Region* dc = nullptr;
      for (const Region& r : LayoutRegions())
        if (r.id == bet::kDontCome && r.end == end) dc = &r;
      if (dc) PaintPuck(p, QPointF(dc->rect.center().x(), dc->rect.top() + 22), false);
    }
  }
}

// A bet shown as its amount, the font smaller for larger amounts.
void PaintAmount(QPainter& p, QPointF c, Currency amount) {
  const double whole = amount.ToDouble();
  const double size = whole > 99999 ? 7 : whole > 9999 ? 8 : whole > 999 ? 9 : 11;
  const QString text = QString::fromStdString(FormatMoney(amount));
  // As wide as the text, so that neighbouring amounts overlap as little as they can.
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setBold(true);
  font.setPixelSize(static_cast<int>(size));
  const double half = QFontMetricsF(font).horizontalAdvance(text) / 2 + 3;
  const QRectF r(c.x() - half, c.y() - 8, 2 * half, 16);
  p.setPen(QPen(QColor(0, 0, 0, 160), 1));
  p.setBrush(QColor(255, 250, 220, 230));
  p.drawRoundedRect(r, 5, 5);
  DrawLabel(p, r, text, size, Qt::AlignCenter, QColor(20, 20, 20));
}

void PaintChecks(QPainter& p, const Game& g, const PaintState& s) {
  const int bettor = g.betting.CurPlayer;
  if (g.table.DisplayBetAmounts) {
    for (int pl = 1; pl <= 8; ++pl) {
      if (!Seated(g, pl) || (s.flashOff && pl == bettor)) continue;
      for (int b = 1; b <= kLastRealBet; ++b) {
        if (g.Bet(pl, b) <= Currency{}) continue;
        DrawnCheck probe{pl, b, 1, {}};
        if (CheckImageHidden(g, probe)) continue;
        PaintAmount(p, BasePosition(pl, b), g.Bet(pl, b));
      }
      for (int i = 1; i <= 4; ++i) {
        const Currency stack = g.Bet(pl, g.betting.CheckStackSlot(pl, i));
        if (!stack.IsZero()) PaintAmount(p, BasePosition(pl, 100 + i), stack);
      }
    }
    return;
  }
  for (const DrawnCheck& row : BuildCheckImages(g)) {
    if (CheckImageHidden(g, row)) continue;
    if (s.flashOff && row.player == bettor && IsRealBet(row.bet)) continue;
    DrawCheck(p, row.pos, row.kind, kCheckRadius);
  }
}

void PaintRing(QPainter& p, QPointF c, double radius, int phase) {
  QPen pen(QColor(255, 230, 60), 2.6, Qt::CustomDashLine, Qt::FlatCap);
  pen.setDashPattern({3, 2});
  pen.setDashOffset(phase * 1.25);
  p.setPen(pen);
  p.setBrush(Qt::NoBrush);
  p.drawEllipse(c, radius, radius);
}

void PaintSeat(QPainter& p, const Game& g, int pl, const PaintState& s) {
  const QRectF plate = NamePlateRect(pl);
  const bool seated = Seated(g, pl);
  const bool bettor = seated && g.betting.CurPlayer == pl;
  p.setPen(QPen(bettor ? QColor(255, 220, 80) : QColor(150, 110, 60), bettor ? 2.2 : 1));
  p.setBrush(bettor ? QColor(90, 60, 20) : QColor(52, 30, 14));
  p.drawRoundedRect(plate, 6, 6);
  if (!seated) {
    DrawLabel(p, plate, "open seat", 10, Qt::AlignCenter, QColor(190, 160, 120));
    return;
  }
  QString name = QString::fromStdString(g.PlayerName[static_cast<std::size_t>(pl)]);
  DrawLabel(p, plate.adjusted(4, 0, -26, 0), name, 12, Qt::AlignVCenter | Qt::AlignLeft,
            bettor ? QColor(255, 236, 150) : QColor(240, 225, 200));
  if (g.Shooter == pl) {
    DrawDie(p, QPointF(plate.right() - 19, plate.center().y()), g.Die1, 11, -12);
    DrawDie(p, QPointF(plate.right() - 8, plate.center().y()), g.Die2, 11, 10);
  }
  for (int k = 1; k <= 5; ++k) DrawCheck(p, RailCheckRect(pl, k).center(), k, kCheckRadius);
  for (int i = 1; i <= 4; ++i) {
    const QRectF spot = RailStackRect(pl, i);
    p.setPen(QPen(QColor(200, 170, 120, 160), 1, Qt::DashLine));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(spot.center(), 12.5, 12.5);
    const int id = g.betting.CheckStackSlot(pl, i);
    DrawLabel(p, RailStackLabelRect(pl, i), "#" + std::to_string(id - bet::kCheckStackFirst), 9,
              Qt::AlignCenter, QColor(220, 200, 160));
  }
  if (!bettor) return;
  const int sel = g.rules.SelectedCheck;
  if (sel >= 1 && sel <= 5) PaintRing(p, RailCheckRect(pl, sel).center(), 13.5, s.ringPhase);
  if (sel >= 7 && sel <= 10) PaintRing(p, RailStackRect(pl, sel - 6).center(), 14.5, s.ringPhase);
  if (sel >= hot::kToolBuy && sel <= hot::kToolCallOn)
    PaintRing(p, ToolRect(sel).center(), 17, s.ringPhase);
}

void PaintDice(QPainter& p, const Game& g, const PaintState& s) {
  if (!s.diceOnTable) return;
  DrawDie(p, s.die1, g.Die1, 26, -14);
  DrawDie(p, s.die2, g.Die2, 26, 17);
}

}  // namespace

void PaintPlay(QPainter& p, const Game& g, const PaintState& s) {
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  PaintDontComeMarks(p, g);
  PaintFireMarks(p, g);
  PaintPucks(p, g);
  for (int pl = 1; pl <= 8; ++pl) PaintSeat(p, g, pl, s);
  PaintChecks(p, g, s);
  PaintDice(p, g, s);
  if (!s.statusLine.empty()) {
    const QRectF line(40, 4, 520, 32);  // the back rail, left of the tools
    DrawLabel(p, line, s.statusLine, 15, Qt::AlignCenter, QColor(255, 236, 120));
  }
}
