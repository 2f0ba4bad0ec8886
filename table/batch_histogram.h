// picNets of frmBatch: one player's session nets of the last batch as a
// histogram, bars above their edges in dollars, the line of a net of 0 and
// the fullest bin's count; a bar's tool tip gives its range, its count and
// its share of the sessions.
#pragma once

#include <QString>
#include <QWidget>

#include "batch/batch_stats.h"

class BatchHistogram : public QWidget {
  Q_OBJECT
 public:
  explicit BatchHistogram(QWidget* parent = nullptr);
  // Shows `nets` (of the player `name`); no bins shows the empty frame.
  void Show(const NetHistogram& nets, const QString& name);
  const NetHistogram& Shown() const { return nets_; }
  // The tool tip of the bar at x (in the widget), empty off the bars.
  QString BarTip(int x) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // Where the bars are drawn, inside the labels.
  QRect Plot() const;
  // The bin under x, or -1.
  int BinAt(int x) const;

  NetHistogram nets_;
  QString name_;
};
