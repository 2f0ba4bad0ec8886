// picLayout: the widget that shows the drawn table and takes the mouse and
// the keyboard. It keeps only presentation (where the dice lie, the ring's
// phase, what hangs on the pointer); every state of play is the game's.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QTransform>
#include <QWidget>
#include <functional>

#include "core/currency.h"
#include "table/table_painter.h"

class QLabel;
class QtPlatform;
struct Game;

class TableView : public QWidget {
  Q_OBJECT
 public:
  TableView(Game& game, QtPlatform& platform, QWidget* parent = nullptr);

  // Layout to screen under TableZoom, TableRotation and the offsets.
  QTransform LayoutToScreen() const;
  // Screen point of a layout point, and the hot-spot under a screen point.
  QPointF ToScreen(QPointF layout) const;
  int HotSpotAtScreen(QPointF screen) const;
  // The hot-spot a pointer over `hot` means for the bettor (the hover rules).
  int MapHotSpot(int hot) const;
  // The amounts that stand on a hot-spot for the bettor, as the hover shows them.
  QString HoverText(int hot) const;
  // Fits and centres the table in the widget (mnuAutoSize).
  void AutoSize();
  // Moves the table by whole pixels, keeping part of it in the window.
  void MoveTable(int dx, int dy);
  // Rolls the dice (right click, F2, mnuRollDice) unless a roll is in progress.
  void Roll();
  // Lays the dice of the last roll on the table (after a roll made elsewhere).
  void PlaceDice();
  // The status line's text by PendingAction and Hyper-Drive.
  std::string StatusLineText() const;
  // Opens txtEnterBet over bet b (key-in amounts); commits an open one.
  void OpenEnterBet(int b);
  bool CommitEnterBet();
  QLineEdit* EnterBetBox() const { return enterBet_; }
  // Handles a key of the table's keyboard table; true when it acted.
  bool HandleTableKey(int key, Qt::KeyboardModifiers mods);
  // The status box of player p in widget coordinates (empty when not shown).
  QRectF StatusBoxRect(int p) const;
  // The area left for the table once the status boxes have theirs.
  QRectF TableArea() const;

  PaintState paint;
  // Called for the menu commands the keys share with the main window
  // (F3, F4, F8, F12, Z, the views): the window acts on them.
  std::function<void(int key, Qt::KeyboardModifiers mods)> onWindowKey;

 signals:
  void gameChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  // Tab and Shift+Tab change the bettor instead of the focus.
  bool focusNextPrevChild(bool) override { return false; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool AskInterrupt();
  void PressOnHotSpot(int hot, QPointF layout, Qt::MouseButton button, Qt::KeyboardModifiers mods);
  void PressOnRail(int hot);
  void PressOnBet(int b, QPointF layout, Qt::KeyboardModifiers mods);
  void PaintStatusBoxes(QPainter& p);
  void ShowHoverAmount();
  void StepRing();
  void MoveEnterBet(int key);

  Game& game_;
  QtPlatform& platform_;
  QTimer tmrAmt_;
  QTimer tmrCheckRing_;
  QTimer tumble_;
  int tumbleStep_ = 0;
  QLabel* amt_ = nullptr;  // picAmt / lblAmt
  QPointer<QLineEdit> enterBet_;
  int hoverHot_ = -1;
  QPoint hoverPos_;
  // Dragging: the table by its edge, or an amount lifted off a bet with Alt.
  bool draggingTable_ = false;
  QPoint dragStart_;
  Currency lifted_;
  bool lifting_ = false;
  QPointF liftPos_;
};
