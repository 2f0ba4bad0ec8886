// frmEventsLog: the read-only view of the events log, its switches and its
// file commands. A paint reads one screenful of lines through the log's
// index (logs/events_log_view.h), whatever the log's size; the top line is
// the game's LogTopLine, and the scroll bar keeps to its range of 30,000
// for longer logs by the rules of that unit. The font size is the game's
// LogFontSize, in steps from normal, so the game file keeps it.
#pragma once

#include <QDialog>

class QScrollBar;
struct Game;

// picEventsLog: the lines from LogTopLine down, coloured by their kind.
class EventsLogView : public QWidget {
  Q_OBJECT
 public:
  explicit EventsLogView(Game& game, QWidget* parent = nullptr);
  int RowHeight() const;
  int VisibleRows() const;
  // Ctrl -, Ctrl 0, Ctrl +: the font one step smaller, normal, one larger,
  // as the game's LogFontSize (held to the steps offered).
  void SetFontStep(int step);
  int FontStep() const;

 signals:
  void scrolled(int lines);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  Game& game_;
};

class EventsLogForm : public QDialog {
  Q_OBJECT
 public:
  explicit EventsLogForm(Game& game, QWidget* parent = nullptr);
  // The title, the switches' checks, the scroll bar and the lines.
  void Refresh();
  EventsLogView* View() const { return view_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildMenus();
  // A change event of the bar: one line per click, or the thumb dragged.
  void Scrolled(int value);
  void ScrollBy(int lines);

  Game& game_;
  EventsLogView* view_;
  QScrollBar* scroll_;
  int lastValue_ = 1;
  bool filling_ = false;
};
