// The matrix of the Probability tab: the eleven totals over their cells in
// columns, the faces of both dice beside them, and the one edit box
// (txtPercent) that stands over the selected entry. It paints what the
// game's probability table holds and hands every edit to the engine
// (dice/probability_edit.h); the selection lives in the table's flag row.
//
// What must stay true:
// - The box always stands over the game's selected entry and shows its text.
// - Enter, or leaving the box with a changed text, sets the entry once; "L"
//   or a right click in the box flips its lock without rebalancing.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

#include "dice/probability.h"

class QLineEdit;
struct Game;

class ProbabilityMatrix : public QWidget {
  Q_OBJECT
 public:
  explicit ProbabilityMatrix(Game& game, QWidget* parent = nullptr);
  // Shows the table again and puts the box on the selected entry.
  void Refresh();
  // The screen rectangle of entry (a, b) in this widget.
  QRect EntryRect(ProbEntry e) const;
  QLineEdit* Box() const { return box_; }
  QSize sizeHint() const override;

 signals:
  // The table changed (a set, a lock): captions and other views follow.
  void tableChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Sets the entry from the box when its text changed; true when it did.
  bool Commit();
  void Select(ProbEntry e);
  void FlipLock();
  void PlaceBox();

  Game& game_;
  QLineEdit* box_;
  QString shownText_;  // the box's text when placed: a change is a set
};
