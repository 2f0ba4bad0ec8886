#include "table/table_painter.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "engine/settle_text.h"
#include "table/layout.h"
#include "table/paint_util.h"
#include "table/table_colors.h"

namespace {

const QColor kRed(214, 40, 40);

// A colour of the layout, see-through by `alpha` (0..255).
QColor Faded(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

const char* const kNumberWord[6] = {"4", "5", "SIX", "8", "NINE", "10"};

// The two dice of a pair as the die-face glyphs.
QString DiceGlyphs(int a, int b) {
  return QString(QChar(0x2680 + a - 1)) + QString(QChar(0x2680 + b - 1));
}

void PaintRail(QPainter& p, const LayoutColors& c) {
  const QRectF outer = TableRect();
  QLinearGradient wood(0, 0, 0, kLayoutHeight);
  wood.setColorAt(0, c.rail);
  wood.setColorAt(0.5, c.rail.darker(140));
  wood.setColorAt(1, c.railDark);
  p.setPen(QPen(c.railDark.darker(160), 3));
  p.setBrush(wood);
  p.drawRoundedRect(outer.adjusted(1.5, 1.5, -1.5, -1.5), 60, 60);
  // The padded inner rail round the felt.
  p.setPen(Qt::NoPen);
  p.setBrush(c.railDark.darker(120));
  p.drawRoundedRect(FeltRect().adjusted(-12, -12, 12, 12), 20, 20);
  // The grooves for the players' checks along the front rail.
  for (int s = 0; s < 8; ++s) {
    const QRectF block = RailBlock(s + 1);
    p.setBrush(c.railDark.darker(140));
    p.setPen(QPen(c.rail.lighter(150), 1));
    p.drawRoundedRect(block.adjusted(2, 2, -2, -22), 8, 8);
  }
}

void PaintFelt(QPainter& p, const LayoutColors& c) {
  // With the spotlight the felt is lit from the centre; without, it is flat.
  QRadialGradient felt(kLayoutWidth / 2, 330, 700);
  felt.setColorAt(0, c.felt);
  felt.setColorAt(1, c.spotlight ? c.feltEdge : c.felt);
  p.setBrush(felt);
  p.setPen(QPen(c.line, 3));
  p.drawRoundedRect(FeltRect(), 8, 8);
}

void PaintBox(QPainter& p, const QRectF& r, const LayoutColors& c) {
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(c.line, 2));
  p.drawRect(r);
}

// Labels of one end's regions.
void PaintEndRegion(QPainter& p, const Game& g, const Region& r, const LayoutColors& c) {
  const QRectF& x = r.rect;
  const int b = r.id;
  if (!RegionShown(g, b)) return;
  if (b == bet::kBig6 || b == bet::kBig8) {
    PaintBox(p, x, c);
    DrawLabel(p, x.adjusted(0, 4, 0, 0), "BIG", 14, Qt::AlignHCenter | Qt::AlignTop, c.line);
    DrawLabel(p, x, b == bet::kBig6 ? "6" : "8", 54, Qt::AlignCenter, kRed);
    DrawLabel(p, x.adjusted(0, 0, 0, -4), PayoffText(g, b), 10, Qt::AlignHCenter | Qt::AlignBottom,
              c.line);
    return;
  }
  PaintBox(p, x, c);
  if (b == bet::kPassLine) {
    if (r.primary) {
      DrawLabel(p, x, "PASS LINE", 40, Qt::AlignCenter, c.line);
    } else {
      p.save();
      p.translate(x.center());
      p.rotate(-90);
      DrawLabel(p, QRectF(-x.height() / 2, -x.width() / 2, x.height(), x.width()), "PASS LINE", 34,
                Qt::AlignCenter, c.line);
      p.restore();
    }
  } else if (b == bet::kPassLineOdds || b == bet::kDontPassOdds) {
    DrawLabel(p, x, "ODDS", 14, Qt::AlignCenter, c.accent);
  } else if (b == bet::kDontPass) {
    const QString bar = g.rules.BarNumber == 2 ? DiceGlyphs(1, 1) : DiceGlyphs(6, 6);
    DrawLabel(p, x, QString("DON'T PASS BAR  ") + bar, 22, Qt::AlignCenter, c.line);
  } else if (b == bet::kDontCome) {
    p.save();
    p.translate(x.center());
    p.rotate(-90);
    const QString bar = g.rules.BarNumber == 2 ? DiceGlyphs(1, 1) : DiceGlyphs(6, 6);
    DrawLabel(p, QRectF(-x.height() / 2, -x.width() / 2, x.height(), x.width()),
              QString("DON'T COME BAR ") + bar, 17, Qt::AlignCenter, c.line);
    p.restore();
  } else if (b == bet::kCome) {
    DrawLabel(p, x, "COME", 64, Qt::AlignCenter, kRed);
  } else if (b == bet::kField) {
    PaintField(p, g, x, c);
  } else if (IsLay(b)) {
    DrawLabel(p, x.adjusted(0, 1, 0, 0), "LAY", 11, Qt::AlignHCenter | Qt::AlignTop, c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -1), PayoffText(g, b), 9, Qt::AlignHCenter | Qt::AlignBottom,
              c.line);
  } else if (IsDontComePoint(b)) {
    DrawLabel(p, x, "DON'T\nCOME", 8, Qt::AlignCenter, Faded(c.line, 170));
  } else if (IsDontComeOdds(b) || IsComeOdds(b)) {
    DrawLabel(p, x, "odds " + PayoffText(g, b), 8, Qt::AlignCenter, Faded(c.line, 150));
  } else if (IsPlace(b)) {
    const int i = b - bet::kPlaceFirst;
    const bool red = i == 2 || i == 3;
    DrawLabel(p, x.adjusted(0, -6, 0, 0), kNumberWord[i], i == 2 || i == 4 ? 22 : 36,
              Qt::AlignCenter, red ? kRed : c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -2), PayoffText(g, b), 9, Qt::AlignHCenter | Qt::AlignBottom,
              c.line);
  } else if (IsComePoint(b)) {
    DrawLabel(p, x, "COME", 8, Qt::AlignCenter, Faded(c.line, 170));
  } else if (IsBuy(b)) {
    DrawLabel(p, x.adjusted(0, 1, 0, 0), "BUY", 11, Qt::AlignHCenter | Qt::AlignTop, c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -1), PayoffText(g, b), 9, Qt::AlignHCenter | Qt::AlignBottom,
              c.line);
  }
}

void PaintCentreRegion(QPainter& p, const Game& g, const Region& r, const LayoutColors& c) {
  const QRectF& x = r.rect;
  const int b = r.id;
  if (!RegionShown(g, b)) return;
  if (b == hot::kHopSwitch) {
    p.setPen(QPen(c.accent, 1.5));
    p.setBrush(QColor(0, 0, 0, 60));
    p.drawRoundedRect(x, 8, 8);
    DrawLabel(p, x, g.table.HopBetsShown ? "SHOW PROPS" : "SHOW HOPS", 11, Qt::AlignCenter,
              c.accent);
    return;
  }
  PaintBox(p, x, c);
  const int top = Qt::AlignHCenter | Qt::AlignTop, bottom = Qt::AlignHCenter | Qt::AlignBottom;
  const QString pay = QString::fromStdString(PayoffText(g, b));
  if (b == bet::kSeven) {
    DrawLabel(p, x.adjusted(0, 2, 0, 0), "SEVEN", 20, top, kRed);
    DrawLabel(p, x.adjusted(0, 0, 0, -2), pay, 10, bottom, c.line);
  } else if (IsHard(b)) {
    const int n = 4 + 2 * (b - bet::kHard4);
    DrawLabel(p, x.adjusted(0, 2, 0, 0), QString("HARD %1").arg(n), 11, top, c.accent);
    DrawLabel(p, x, DiceGlyphs(n / 2, n / 2), 28, Qt::AlignCenter, c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -1), pay, 10, bottom, c.line);
  } else if (b == bet::kTwo || b == bet::kThree || b == bet::kTwelve || b == bet::kEleven) {
    const int a = b == bet::kTwo ? 1 : b == bet::kThree ? 1 : b == bet::kTwelve ? 6 : 5;
    const int second = b == bet::kTwo ? 1 : b == bet::kThree ? 2 : 6;
    DrawLabel(p, x.adjusted(0, -4, 0, 0), DiceGlyphs(a, second), 26, Qt::AlignCenter, c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -1), pay, 10, bottom, c.line);
  } else if (b == bet::kHorn || b == bet::kCraps || b == bet::kCandE || b == bet::kWorld ||
             b == bet::kOver7 || b == bet::kUnder7) {
    const char* name = b == bet::kHorn    ? "HORN"
                       : b == bet::kCraps ? "ANY CRAPS"
                       : b == bet::kCandE ? "C  &  E"
                       : b == bet::kWorld ? "WORLD"
                       : b == bet::kOver7 ? "OVER\n7"
                                          : "UNDER\n7";
    // World, Over 7 and Under 7 share the narrow cells of the Hop side.
    const bool narrow = x.width() < 50;
    DrawLabel(p, x.adjusted(0, narrow ? 8 : 2, 0, 0), name, narrow ? 9 : 16, top,
              b == bet::kCandE ? c.accent : kRed);
    DrawLabel(p, x.adjusted(0, 0, 0, -2), pay, 10, bottom, c.line);
  } else if (IsHop(b)) {
    const int i = b - bet::kHopFirst;
    DrawLabel(p, x.adjusted(0, 3, 0, 0), "HOP", 9, top, c.accent);
    DrawLabel(p, x, DiceGlyphs(kHopDice[i][0], kHopDice[i][1]), 17, Qt::AlignCenter, c.line);
    DrawLabel(p, x.adjusted(0, 0, 0, -2), pay, 8, bottom, c.line);
  } else if (b == bet::kMidway) {
    DrawLabel(p, x, "MIDWAY  6 \u00b7 7 \u00b7 8", 16, Qt::AlignCenter, c.accent);
  } else if (b == bet::kFire) {
    DrawLabel(p, x.adjusted(0, 2, 0, 0), "FIRE BET", 14, top, QColor(255, 140, 40));
  }
}

}  // namespace

std::string PayoffText(const Game& g, int b) {
  const Currency a = g.PayoffTbl(1, b), flag = g.PayoffTbl(2, b), d = g.PayoffTbl(3, b);
  if (!flag.IsZero()) return PlainAmount(a) + " to " + PlainAmount(d);
  return PlainAmount(a + d) + " for " + PlainAmount(d);
}

void PaintTable(QPainter& p, const Game& g) {
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  const LayoutColors c = ColorsOf(g.table);
  PaintRail(p, c);
  PaintFelt(p, c);
  for (const Region& r : LayoutRegions()) {
    if (r.id >= 1 && r.id <= bet::kBig8)
      PaintEndRegion(p, g, r, c);
    else if ((r.id > bet::kBig8 && r.id <= bet::kFire) || r.id == hot::kHopSwitch)
      PaintCentreRegion(p, g, r, c);
  }
  PaintRailFixtures(p, g);
}
