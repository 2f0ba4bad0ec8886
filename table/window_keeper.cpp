#include "table/window_keeper.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <array>

#include "core/game.h"

namespace {

// Where a window's values sit among the Singles of the layout records: the
// record (2 or 3), the first Single (shown flag or state, then Top, Left,
// and Height, Width where kept).
struct LayoutSlot {
  bool recordTwo;
  int first;
  bool sized;
};

LayoutSlot SlotOf(KeptWindow which) {
  switch (which) {
    case KeptWindow::Main:
      return {true, 0, true};  // bytes 0-19 of record 2: state, Top, Left, Height, Width
    case KeptWindow::AutoPlay:
      return {true, 10, false};  // bytes 40-51 of record 2
    case KeptWindow::Bankroll:
      return {false, 15, false};  // bytes 60-71 of record 3
    case KeptWindow::CheckStacks:
      return {false, 40, true};  // bytes 160-179 of record 3
    case KeptWindow::Move:
      return {false, 59, false};  // bytes 236-247 of record 3
    case KeptWindow::Summary:
      return {false, 10, false};  // bytes 40-51 of record 3
    case KeptWindow::RollTotals:
      return {false, 20, true};  // bytes 80-99 of record 3
    case KeptWindow::RollFreqs:
      return {false, 25, false};  // bytes 100-111 of record 3
    case KeptWindow::BetResults:
      return {false, 30, false};  // bytes 120-131 of record 3
    case KeptWindow::BetTrends:
      return {false, 35, true};  // bytes 140-159 of record 3
    case KeptWindow::Hands:
      return {false, 45, false};  // bytes 180-191 of record 3
    case KeptWindow::DiceFiles:
      return {true, 5, true};  // bytes 20-39 of record 2
    case KeptWindow::AutoBet:
      return {true, 15, true};  // bytes 60-79 of record 2
    case KeptWindow::RollPad:
      return {true, 20, true};  // bytes 80-99 of record 2
    case KeptWindow::SessionsLog:
      return {false, 0, false};  // bytes 0-11 of record 3
    case KeptWindow::EventsLog:
      return {false, 5, true};  // bytes 20-39 of record 3
    case KeptWindow::HotKeys:
      return {false, 50, false};  // bytes 200-211 of record 3
  }
  return {true, 0, true};
}

constexpr int kTop = 1, kLeft = 2, kHeight = 3, kWidth = 4;
// The main window's state word: 0 normal, 1 minimised, 2 maximised.
constexpr float kStateNormal = 0, kStateMinimized = 1, kStateMaximized = 2;

std::array<float, 64>& Singles(Game& game, const LayoutSlot& slot) {
  return slot.recordTwo ? game.gamefile.LayoutA : game.gamefile.LayoutB;
}

}  // namespace

bool KeptWindowShown(const Game& game, KeptWindow which) {
  const LayoutSlot slot = SlotOf(which);
  const auto& v = slot.recordTwo ? game.gamefile.LayoutA : game.gamefile.LayoutB;
  return which != KeptWindow::Main && v[slot.first] != 0.0f;
}

void RestoreKeptWindow(QWidget& window, bool shown) {
  // Placed first, so that a window being closed stores the game's place,
  // not the one it had on the screen.
  if (auto* keeper = window.findChild<WindowKeeper*>(QString(), Qt::FindDirectChildrenOnly))
    keeper->Restore();
  window.setVisible(shown);
}

WindowKeeper::WindowKeeper(Game& game, KeptWindow which, QWidget& window)
    : QObject(&window), game_(game), which_(which), window_(window) {
  window.installEventFilter(this);
}

void WindowKeeper::Restore() {
  const LayoutSlot slot = SlotOf(which_);
  const auto& v = Singles(game_, slot);
  const int top = static_cast<int>(v[slot.first + kTop]);
  const int left = static_cast<int>(v[slot.first + kLeft]);
  const int height = slot.sized ? static_cast<int>(v[slot.first + kHeight]) : 0;
  const int width = slot.sized ? static_cast<int>(v[slot.first + kWidth]) : 0;
  if (top == 0 && left == 0 && height == 0 && width == 0) return;
  QScreen* screen = window_.screen() ? window_.screen() : QGuiApplication::primaryScreen();
  const QRect area = screen ? screen->availableGeometry() : QRect();
  restoring_ = true;
  if (width > 0 && height > 0) {
    const QSize size(std::min(width, area.isValid() ? area.width() : width),
                     std::min(height, area.isValid() ? area.height() : height));
    window_.resize(size.expandedTo(window_.minimumSize()));
  }
  QPoint place(left, top);
  if (area.isValid() && !area.intersects(QRect(place, window_.frameGeometry().size())))
    place = area.topLeft();
  window_.move(place);
  if (which_ == KeptWindow::Main && v[slot.first] == kStateMaximized) window_.showMaximized();
  restoring_ = false;
}

void WindowKeeper::Store(bool shown) {
  const LayoutSlot slot = SlotOf(which_);
  auto& v = Singles(game_, slot);
  if (which_ == KeptWindow::Main) {
    v[slot.first] = window_.isMinimized()   ? kStateMinimized
                    : window_.isMaximized() ? kStateMaximized
                                            : kStateNormal;
    if (window_.isMinimized() || window_.isMaximized()) return;  // keep the normal place
  } else {
    v[slot.first] = shown ? 1.0f : 0.0f;
  }
  v[slot.first + kTop] = static_cast<float>(window_.y());
  v[slot.first + kLeft] = static_cast<float>(window_.x());
  if (slot.sized) {
    v[slot.first + kHeight] = static_cast<float>(window_.height());
    v[slot.first + kWidth] = static_cast<float>(window_.width());
  }
}

bool WindowKeeper::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_ && !restoring_) {
    switch (event->type()) {
      case QEvent::Show:
        // The main window is put in place when a game is opened, not at
        // every show (its first size is the program's own choice).
        if (which_ != KeptWindow::Main) Restore();
        Store(true);
        break;
      case QEvent::Hide:
        Store(false);
        break;
      case QEvent::Move:
      case QEvent::Resize:
      case QEvent::WindowStateChange:
        if (window_.isVisible()) Store(true);
        break;
      default:
        break;
    }
  }
  return QObject::eventFilter(watched, event);
}
