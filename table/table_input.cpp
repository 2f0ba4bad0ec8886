// The table's mouse and keyboard: every press ends in an operation of the
// game (PlaceBet through ClickOnBet, LiftBet/DropLiftedAmount, ClickOnRail,
// RollDice, PassDice, the calls on and off), then the view repaints.
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include "cycle/hyperdrive.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/place.h"
#include "cycle/player_names.h"
#include "engine/players.h"
#include "table/layout.h"
#include "table/qt_platform.h"
#include "table/table_view.h"

bool TableView::AskInterrupt() {
  // During a run the only thing a click or key does is offer to stop it.
  if (!game_.HyperDrive) return false;
  AskStopHyperDrive(game_);
  return true;
}

void TableView::mousePressEvent(QMouseEvent* event) {
  amt_->hide();
  if (AskInterrupt()) return;
  const int messagesBefore = platform_.messagesShown;
  if (enterBet_ && enterBet_->isVisible()) {
    CommitEnterBet();
    if (platform_.messagesShown != messagesBefore) return;
  }
  const QPointF screen = event->position();
  if (event->button() == Qt::RightButton) {
    game_.betting.PendingAction = kPendingNone;
    Roll();
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  bool invertible = false;
  const QPointF layout = LayoutToScreen().inverted(&invertible).map(screen);
  const int raw = HotSpotAt(game_, layout);
  PressOnHotSpot(MapHotSpot(raw), layout, event->button(), event->modifiers());
  if (raw == hot::kEdge) {
    draggingTable_ = true;
    dragStart_ = event->position().toPoint();
  }
  emit gameChanged();
  update();
}

void TableView::PressOnHotSpot(int h, QPointF layout, Qt::MouseButton, Qt::KeyboardModifiers mods) {
  BettingState& s = game_.betting;
  if (h >= hot::kRailFactor) return PressOnRail(h);
  if (s.PendingAction > kPendingMoveBase) return;  // a move waits for a rail position
  switch (h) {
    case hot::kNone:
    case hot::kEdge:
    case hot::kDiceFile:
    case hot::kStick:  // the stick call plays only with a sound set loaded
      return;
    case hot::kHopSwitch:
      game_.table.HopBetsShown = !game_.table.HopBetsShown;
      return;
    case hot::kToolBuy:
    case hot::kToolCallOff:
    case hot::kToolCallOn:
      if (Seated(game_, s.CurPlayer)) game_.rules.SelectedCheck = h;
      return;
    default:
      break;
  }
  if (IsRealBet(h) || (h >= 101 && h <= 104)) PressOnBet(h, layout, mods);
}

void TableView::PressOnRail(int h) {
  BettingState& s = game_.betting;
  const int p = h / hot::kRailFactor, k = h % hot::kRailFactor;
  if (s.PendingAction > kPendingMoveBase || !Seated(game_, p)) {
    // A pending move goes there; an open seat offers a new player (No keeps the bettor).
    const int bettor = s.CurPlayer;
    ClickOnRail(game_, p);
    if (!Seated(game_, s.CurPlayer)) s.CurPlayer = bettor;
    return;
  }
  if (k > hot::kRailStackTarget) {
    // The stack spots as a target: only the bettor's own rail.
    if (p == s.CurPlayer) PressOnBet(100 + k - hot::kRailStackTarget, {}, {});
    return;
  }
  ClickOnRail(game_, p);
  if ((k >= 1 && k <= 5) || (k > hot::kRailStackSource && k <= hot::kRailStackSource + 4))
    game_.rules.SelectedCheck = k;
}

void TableView::PressOnBet(int b, QPointF layout, Qt::KeyboardModifiers mods) {
  BettingState& s = game_.betting;
  const int p = s.CurPlayer;
  const bool stack = b >= 101 && b <= 104;
  if (!Seated(game_, p)) {
    ClickOnBet(game_, b, BetClick::Plain);  // tells who may bet
    return;
  }
  const int id = stack ? s.CheckStackSlot(p, b - 100) : b;
  if (s.KeyInBetAmounts && s.PendingAction == kPendingNone) return OpenEnterBet(id);
  if (!stack && !OnPlayersHalf(p, layout.x())) return;  // the other half of the table
  if (mods & Qt::AltModifier) {
    lifted_ = LiftBet(game_, id);
    lifting_ = !lifted_.IsZero();
    liftPos_ = layout;
    return;
  }
  const BetClick click = (mods & Qt::ShiftModifier)     ? BetClick::Shift
                         : (mods & Qt::ControlModifier) ? BetClick::Ctrl
                                                        : BetClick::Plain;
  ClickOnBet(game_, id, click);
}

void TableView::mouseMoveEvent(QMouseEvent* event) {
  if (game_.HyperDrive) return;
  const QPoint at = event->position().toPoint();
  if (draggingTable_) {
    MoveTable(at.x() - dragStart_.x(), at.y() - dragStart_.y());
    dragStart_ = at;
    return;
  }
  bool invertible = false;
  const QPointF layout = LayoutToScreen().inverted(&invertible).map(event->position());
  if (lifting_) {
    liftPos_ = layout;
    update();
  }
  const int h = MapHotSpot(HotSpotAt(game_, layout));
  hoverPos_ = at;
  if (h != hoverHot_) {
    hoverHot_ = h;
    amt_->hide();
    tmrAmt_.start();
  }
}

void TableView::mouseReleaseEvent(QMouseEvent* event) {
  if (draggingTable_) {
    draggingTable_ = false;
    game_.roll.SessionDirty = true;
    return;
  }
  if (!lifting_) return;
  lifting_ = false;
  bool invertible = false;
  const QPointF layout = LayoutToScreen().inverted(&invertible).map(event->position());
  const int h = MapHotSpot(HotSpotAt(game_, layout));
  const int p = game_.betting.CurPlayer;
  int target = 0;
  if (IsRealBet(h) && OnPlayersHalf(p, layout.x())) target = h;
  if (h >= 101 && h <= 104) target = game_.betting.CheckStackSlot(p, h - 100);
  // Dropped off any bet, the lifted amount simply stays on the rail.
  if (target) DropLiftedAmount(game_, target, lifted_);
  lifted_ = {};
  emit gameChanged();
  update();
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (!HandleTableKey(event->key(), event->modifiers())) QWidget::keyPressEvent(event);
}

bool TableView::HandleTableKey(int key, Qt::KeyboardModifiers mods) {
  if (key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt) return false;
  if (AskInterrupt()) return true;
  if (enterBet_ && enterBet_->isVisible()) {
    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
      MoveEnterBet(key);
      return true;
    }
    CommitEnterBet();
  }
  BettingState& s = game_.betting;
  s.PendingAction = kPendingNone;
  const int p = s.CurPlayer;
  const bool shift = mods & Qt::ShiftModifier;
  bool acted = true;
  switch (key) {
    case Qt::Key_F2:
      Roll();
      return true;
    case Qt::Key_F5:
      s.PendingAction = kPendingBuy;
      break;
    case Qt::Key_F6:
      if (shift) {
        if (Seated(game_, p)) CallAllBetsOnOff(game_, p, kToolCallOn);
      } else {
        s.PendingAction = kPendingCallOn;
      }
      break;
    case Qt::Key_F7:
      if (shift) {
        if (Seated(game_, p)) CallAllBetsOnOff(game_, p, kToolCallOff);
      } else {
        s.PendingAction = kPendingCallOff;
      }
      break;
    case Qt::Key_F9:
      s.KeyInBetAmounts = !s.KeyInBetAmounts;
      break;
    case Qt::Key_F11:
      game_.table.DisplayBetAmounts = !game_.table.DisplayBetAmounts;
      break;
    case Qt::Key_Delete:
      if (shift) {
        if (Seated(game_, p)) RemoveAllBets(game_, p);
      } else {
        s.PendingAction = kPendingRemove;
      }
      break;
    case Qt::Key_P:
      PassDice(game_, true);
      break;
    case Qt::Key_Space:
      game_.table.FlashBets = !game_.table.FlashBets;
      if (!game_.table.FlashBets) paint.flashOff = false;
      break;
    case Qt::Key_H:
      game_.table.HopBetsShown = !game_.table.HopBetsShown;
      break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
      if (game_.PlayerCount < 2) break;
      // Tab goes down the seats, Shift+Tab up, wrapping between 1 and 8.
      const int dir = (key == Qt::Key_Backtab || shift) ? 1 : -1;
      int q = p < 1 ? 1 : p;
      for (int i = 0; i < 8; ++i) {
        q = (q - 1 + dir + 8) % 8 + 1;
        if (Seated(game_, q)) break;
      }
      s.CurPlayer = q;
      break;
    }
    default:
      acted = false;
      break;
  }
  if (!acted && onWindowKey) {
    onWindowKey(key, mods);
    acted = true;
  }
  emit gameChanged();
  update();
  return acted;
}
