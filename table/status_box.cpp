#include "table/status_box.h"

#include <QPainter>
#include <cmath>
#include <cstdlib>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "table/paint_util.h"

namespace {

bool HasFraction(Currency a) { return a.raw % Currency::kScale != 0; }

}  // namespace

std::string StatusAmount(Currency amount, bool fraction) {
  const bool negative = amount.raw < 0;
  const std::int64_t magnitude = negative ? -amount.raw : amount.raw;
  if (!fraction) {
    // "#,#;-#,#;0": whole units, rounded half away from zero.
    const std::int64_t whole = (magnitude + Currency::kScale / 2) / Currency::kScale;
    if (whole == 0) return "0";
    return (negative ? "-" : "") + FormatCount(whole);
  }
  // "#,0.00;-#,0.00;0.00": cents, rounded half away from zero.
  const std::int64_t cents = (magnitude + 50) / 100;
  if (cents == 0) return "0.00";
  const std::int64_t c = cents % 100;
  return (negative ? "-" : "") + FormatCount(cents / 100) + "." + (c < 10 ? "0" : "") +
         std::to_string(c);
}

bool StatusBoxesUseFractions(const Game& g) {
  for (int p = 1; p <= 8; ++p) {
    if (g.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    if (HasFraction(g.Bet(p, bet::kBankroll)) || HasFraction(g.TotalBets(p)) ||
        HasFraction(g.InvestedBankroll(p)))
      return true;
  }
  return false;
}

StatusBoxText StatusBoxLines(const Game& g, int p, bool fraction) {
  StatusBoxText t;
  t.name = g.PlayerName[static_cast<std::size_t>(p)];
  const Currency bankroll = g.Bet(p, bet::kBankroll);
  t.lines[0] = "Rail:  " + StatusAmount(bankroll - g.TotalBets(p), fraction);
  int bets = 0;
  for (int b = 1; b <= kLastRealBet; ++b) bets += g.Bet(p, b) > Currency{} ? 1 : 0;
  t.lines[1] = (bets == 1 ? std::string("1 Bet:  ") : std::to_string(bets) + " Bets:  ") +
               StatusAmount(g.TotalBets(p), fraction);
  t.lines[2] = "Bankroll:  " + StatusAmount(bankroll, fraction);
  const Currency net = bankroll - g.InvestedBankroll(p);
  const char* word = net.IsZero() ? "Even:  " : net > Currency{} ? "Won:  " : "Lost:  ";
  t.lines[3] = word + StatusAmount(net < Currency{} ? -net : net, fraction);
  return t;
}

void PaintStatusBox(QPainter& p, const QRectF& r, const StatusBoxText& t, bool bettor,
                    bool shooter) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(bettor ? QColor(255, 210, 60) : QColor(110, 110, 100), bettor ? 2.5 : 1));
  p.setBrush(QColor(250, 248, 238));
  p.drawRoundedRect(r.adjusted(1, 1, -1, -1), 6, 6);
  const QRectF head(r.left() + 6, r.top() + 3, r.width() - 12, 17);
  QString name = QString::fromStdString(t.name);
  DrawLabel(p, head.adjusted(0, 0, shooter ? -24 : 0, 0), name, 12,
            Qt::AlignLeft | Qt::AlignVCenter, bettor ? QColor(150, 90, 0) : QColor(30, 30, 30));
  if (shooter) {
    DrawDie(p, QPointF(head.right() - 17, head.center().y()), 5, 11, -10);
    DrawDie(p, QPointF(head.right() - 5, head.center().y()), 2, 11, 8);
  }
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(10);
  p.setFont(font);
  for (std::size_t i = 0; i < t.lines.size(); ++i) {
    const QRectF line(r.left() + 6, r.top() + 20 + 13 * static_cast<double>(i), r.width() - 12, 13);
    const bool lost = i == 3 && t.lines[3].rfind("Lost", 0) == 0;
    const bool won = i == 3 && t.lines[3].rfind("Won", 0) == 0;
    p.setPen(lost ? QColor(200, 0, 0) : won ? QColor(0, 0, 200) : QColor(30, 30, 30));
    p.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(t.lines[i]));
  }
  p.restore();
}
