#include "table/table_view.h"

#include <QLabel>
#include <QPainter>
#include <QRandomGenerator>
#include <algorithm>
#include <cmath>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "cycle/roll.h"
#include "table/layout.h"
#include "table/paint_util.h"
#include "table/qt_platform.h"
#include "table/status_box.h"
#include "table/table_colors.h"

namespace {
constexpr int kAmtDelayMs = 700;    // tmrAmt: the hover amount after a pause
constexpr int kRingStepMs = 200;    // tmrCheckRing: one of four phases
constexpr int kTumbleFrames = 9;    // the dice's throw, frame by frame
constexpr int kTumbleStepMs = 40;
constexpr int kKeepVisible = 60;    // pixels of the table that always stay in the window
}  // namespace

TableView::TableView(Game& game, QtPlatform& platform, QWidget* parent)
    : QWidget(parent), game_(game), platform_(platform) {
  setObjectName("picLayout");
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  amt_ = new QLabel(this);
  amt_->setObjectName("lblAmt");
  amt_->setStyleSheet(
      "QLabel { background: rgb(255,250,220); color: black; border: 1px solid rgb(80,60,20);"
      " padding: 2px 5px; font-weight: bold; }");
  amt_->hide();
  tmrAmt_.setSingleShot(true);
  tmrAmt_.setInterval(kAmtDelayMs);
  connect(&tmrAmt_, &QTimer::timeout, this, &TableView::ShowHoverAmount);
  tmrCheckRing_.setInterval(kRingStepMs);
  connect(&tmrCheckRing_, &QTimer::timeout, this, &TableView::StepRing);
  tmrCheckRing_.start();
  tumble_.setInterval(kTumbleStepMs);
  connect(&tumble_, &QTimer::timeout, this, [this] {
    if (++tumbleStep_ >= kTumbleFrames) tumble_.stop();
    update();
  });
}

QTransform TableView::LayoutToScreen() const {
  const TableState& t = game_.table;
  const double s = t.TableZoom / kLayoutWidth;
  QTransform m;
  m.translate(t.TableOffsetA, t.TableOffsetB);
  m.rotate(t.TableRotation);
  m.scale(s, s);
  return m;
}

QPointF TableView::ToScreen(QPointF layout) const { return LayoutToScreen().map(layout); }

int TableView::HotSpotAtScreen(QPointF screen) const {
  bool invertible = false;
  const QTransform inverse = LayoutToScreen().inverted(&invertible);
  if (!invertible) return hot::kNone;
  return HotSpotAt(game_, inverse.map(screen));
}

int TableView::MapHotSpot(int h) const {
  const int p = game_.betting.CurPlayer;
  if (p < 1 || p > 8) return h;
  if (IsDontComeOdds(h) && game_.Bet(p, h).IsZero() && game_.Bet(p, h - 6).IsZero())
    return h - 6;
  if (h == bet::kDontPass && game_.Bet(p, h) > Currency{} && game_.Point > 0)
    return bet::kDontPassOdds;
  if (IsPlace(h) && game_.Bet(p, h + 6) > Currency{}) return h + 6;
  const int k = h - p * hot::kRailFactor;
  if (k >= hot::kRailStackTarget + 1 && k <= hot::kRailStackTarget + 4) return k + 90;
  return h;
}

QString TableView::HoverText(int h) const {
  const int p = game_.betting.CurPlayer;
  if (p < 1 || p > 8 || game_.PlayerName[static_cast<std::size_t>(p)].empty()) return {};
  int b = h;
  if (b >= 101 && b <= 104) b = game_.betting.CheckStackSlot(p, b - 100);
  if (!(IsRealBet(b) || IsCheckStack(b))) return {};
  const auto money = [](Currency a) { return QString::fromStdString(FormatMoney(a)); };
  const Currency amount = game_.Bet(p, b);
  const int odds = OddsOf(b), flat = FlatOf(b);
  if (odds && game_.Bet(p, odds) > Currency{})
    return QString("Flat %1   Odds %2").arg(money(amount), money(game_.Bet(p, odds)));
  if (flat && game_.Bet(p, flat) > Currency{})
    return QString("Flat %1   Odds %2").arg(money(game_.Bet(p, flat)), money(amount));
  if (amount.IsZero()) return {};
  if (IsLay(b)) return QString("%1   vig %2").arg(money(amount), money(game_.LayVig(p, b - 1)));
  if (IsBuy(b))
    return QString("%1   vig %2").arg(money(amount), money(game_.BuyVig(p, b - bet::kBuyFirst)));
  return money(amount);
}

void TableView::ShowHoverAmount() {
  if (game_.HyperDrive) return;
  const QString text = HoverText(hoverHot_);
  if (text.isEmpty()) return;
  amt_->setText(text);
  amt_->adjustSize();
  QPoint at = hoverPos_ + QPoint(14, -amt_->height() - 6);
  at.setX(std::clamp(at.x(), 0, std::max(0, width() - amt_->width())));
  at.setY(std::clamp(at.y(), 0, std::max(0, height() - amt_->height())));
  amt_->move(at);
  amt_->show();
  amt_->raise();
}

void TableView::StepRing() {
  if (game_.HyperDrive) return;
  paint.ringPhase = (paint.ringPhase + 1) % 4;
  if (paint.ringPhase == 0 && game_.table.FlashBets) paint.flashOff = !paint.flashOff;
  if (!game_.table.FlashBets) paint.flashOff = false;
  update();
}

QRectF TableView::TableArea() const {
  QRectF area(rect());
  if (!game_.table.StatusBoxesShown) return area;
  switch (game_.table.StatusView) {
    case kStatusTop:
      return area.adjusted(0, kStatusBoxHeight + 8, 0, 0);
    case kStatusLeft:
      return area.adjusted(kStatusBoxWidth + 8, 0, 0, 0);
    case kStatusRight:
      return area.adjusted(0, 0, -kStatusBoxWidth - 8, 0);
    default:
      return area.adjusted(0, 0, 0, -kStatusBoxHeight - 8);
  }
}

void TableView::AutoSize() {
  const QRectF area = TableArea().adjusted(6, 6, -6, -6);
  if (area.width() < 10 || area.height() < 10) return;
  TableState& t = game_.table;
  QTransform turn;
  turn.rotate(t.TableRotation);
  const QRectF bounds = turn.mapRect(TableRect());
  const double s = std::min(area.width() / bounds.width(), area.height() / bounds.height());
  t.TableZoom = std::clamp(static_cast<int>(std::floor(kLayoutWidth * s)), kTableZoomMin,
                           kTableZoomMax);
  const double real = t.TableZoom / kLayoutWidth;
  const QPointF centre = turn.map(TableRect().center()) * real;
  t.TableOffsetA = static_cast<int>(std::lround(area.center().x() - centre.x()));
  t.TableOffsetB = static_cast<int>(std::lround(area.center().y() - centre.y()));
  t.AutoSize = true;
  update();
}

void TableView::MoveTable(int dx, int dy) {
  TableState& t = game_.table;
  t.TableOffsetA += dx;
  t.TableOffsetB += dy;
  // The table cannot leave the window wholly: a strip of it stays in sight.
  const QRectF bounds = LayoutToScreen().mapRect(TableRect());
  if (bounds.right() < kKeepVisible) t.TableOffsetA += static_cast<int>(kKeepVisible - bounds.right());
  if (bounds.left() > width() - kKeepVisible)
    t.TableOffsetA -= static_cast<int>(bounds.left() - (width() - kKeepVisible));
  if (bounds.bottom() < kKeepVisible) t.TableOffsetB += static_cast<int>(kKeepVisible - bounds.bottom());
  if (bounds.top() > height() - kKeepVisible)
    t.TableOffsetB -= static_cast<int>(bounds.top() - (height() - kKeepVisible));
  t.AutoSize = false;
  game_.roll.SessionDirty = true;
  update();
}

void TableView::resizeEvent(QResizeEvent*) {
  if (game_.table.AutoSize) AutoSize();
}

std::string TableView::StatusLineText() const {
  if (game_.HyperDrive) return "Hyper-Drive Active";
  const int pending = game_.betting.PendingAction;
  switch (pending) {
    case 1: return "Click the bet to call ON";
    case 2: return "Click the bet to call OFF";
    case 3: return "Click the bet to buy";
    case 4: return "Click the bet to remove";
    default: break;
  }
  if (pending > 10) {
    const int p = pending - 10;
    if (p >= 1 && p <= 8)
      return "Click the rail where you want " + game_.PlayerName[static_cast<std::size_t>(p)] +
             " to move";
  }
  return {};
}

void TableView::Roll() {
  if (game_.RollBusy) return;
  const long before = game_.RollTally(kTableSession, kEventRolls);
  RollDice(game_);
  if (game_.RollTally(kTableSession, kEventRolls) != before) PlaceDice();
  emit gameChanged();
  update();
}

void TableView::PlaceDice() {
  // Where the dice come to rest: thrown to the far end (normal), or at a
  // fixed place in front of the stick, or at the centre (stationary).
  const int action = game_.rules.DiceAction;
  QRandomGenerator* r = QRandomGenerator::global();
  QPointF at;
  if (action == 1) {
    at = QPointF(kStickX, 590);
  } else if (action == 2) {
    at = DiceCentreRect().center();
  } else {
    const bool farRight = game_.Shooter >= 1 && game_.Shooter <= 4;
    const double x = farRight ? 760 + r->bounded(400) : 90 + r->bounded(400);
    at = QPointF(x, 330 + r->bounded(170));
  }
  paint.die1 = at + QPointF(-17, -4);
  paint.die2 = at + QPointF(17, 5);
  paint.diceOnTable = true;
  tumbleStep_ = action == 0 ? 0 : kTumbleFrames;
  if (action == 0) tumble_.start();
}

void TableView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), ColorsOf(game_.table).background);
  p.setRenderHint(QPainter::Antialiasing);
  p.save();
  p.setTransform(LayoutToScreen());
  PaintTable(p, game_);
  PaintState s = paint;
  s.statusLine = StatusLineText();
  if (tumble_.isActive() && tumbleStep_ < kTumbleFrames) {
    // The throw: from the stick toward where the dice come to rest.
    const double f = (tumbleStep_ + 1.0) / kTumbleFrames;
    const QPointF from(kStickX, 600);
    s.die1 = from + (paint.die1 - from) * f;
    s.die2 = from + (paint.die2 - from) * f;
  }
  PaintPlay(p, game_, s);
  if (lifting_ && !lifted_.IsZero()) {
    DrawCheck(p, liftPos_, 6, kCheckRadius);
  }
  p.restore();
  PaintStatusBoxes(p);
}

QRectF TableView::StatusBoxRect(int pl) const {
  const TableState& t = game_.table;
  if (!t.StatusBoxesShown || game_.PlayerName[static_cast<std::size_t>(pl)].empty()) return {};
  double w = kStatusBoxWidth, h = kStatusBoxHeight;
  const int i = pl - 1;
  switch (t.StatusView) {
    case kStatusTop:
    case kStatusBottom: {
      const double step = std::max(w + 4, (width() - 8.0) / 8);
      const double x = 4 + step * i;
      return QRectF(x, t.StatusView == kStatusTop ? 4 : height() - h - 4, w, h);
    }
    case kStatusLeft:
    case kStatusRight: {
      const double step = std::max(h + 4, (height() - 8.0) / 8);
      return QRectF(t.StatusView == kStatusLeft ? 4 : width() - w - 4, 4 + step * i, w, h);
    }
    default: {
      // Near the player: just outside the rail, in front of the seat.
      const QRectF block = RailBlock(pl);
      const QPointF at = ToScreen(QPointF(block.center().x(), kLayoutHeight));
      QPointF out = ToScreen(QPointF(block.center().x(), kLayoutHeight + 1)) - at;
      const double len = std::hypot(out.x(), out.y());
      if (len > 0) out /= len;
      // Far enough along the outward direction that the box clears the rail at any angle.
      // Where neighbouring seats lie closer on the screen than a box is wide,
      // the box narrows to the seat's share (its lines still fit), so none
      // covers the next.
      const QPointF next = ToScreen(QPointF(RailBlock(2).center().x(), kLayoutHeight)) -
                           ToScreen(QPointF(RailBlock(1).center().x(), kLayoutHeight));
      const double seatSpacing = std::hypot(next.x(), next.y());
      const double share = std::max(kStatusBoxMinWidth, seatSpacing - kStatusBoxGap);
      if (std::abs(out.y()) >= std::abs(out.x())) w = std::min(w, share);
      else h = std::min(h, share);
      const double reach = std::abs(out.x()) * (w / 2) + std::abs(out.y()) * (h / 2) + 4;
      QPointF c = at + out * reach;
      c.setX(std::clamp(c.x(), w / 2 + 2, width() - w / 2 - 2));
      c.setY(std::clamp(c.y(), h / 2 + 2, height() - h / 2 - 2));
      return QRectF(c.x() - w / 2, c.y() - h / 2, w, h);
    }
  }
}

void TableView::PaintStatusBoxes(QPainter& p) {
  const bool fraction = StatusBoxesUseFractions(game_);
  for (int pl = 1; pl <= 8; ++pl) {
    const QRectF r = StatusBoxRect(pl);
    if (r.isEmpty()) continue;
    PaintStatusBox(p, r, StatusBoxLines(game_, pl, fraction), game_.betting.CurPlayer == pl,
                   game_.Shooter == pl);
  }
}
