// frmHands ("Hands"): the hands of a time frame for a set of players: the
// come-out rolls, passes and misses by number with their totals, the hand
// records and the averages per hand, as counts or as percents of the
// come-outs (cmdUnits). Every figure comes from FigureHands.
#pragma once

#include <array>

#include "stats/summary.h"
#include "table/stats_form.h"

class QPushButton;

class HandsForm : public StatsForm {
  Q_OBJECT
 public:
  explicit HandsForm(Game& game, QWidget* parent = nullptr);

 protected:
  void ShowFigures() override;

 private:
  QPushButton* units_;
  QLabel* explain_;
  // Rows 2..15 by come-outs, passes, misses.
  std::array<std::array<QLabel*, 3>, kHandRows + 1> cells_{};
  QLabel* handTotalCaption_;
  QLabel* handTotal_;
  QLabel* totalRolls_;
  QLabel* mostRolls_;
  QLabel* mostComeouts_;
  QLabel* mostPasses_;
  QLabel* mostMisses_;
  QLabel* avgRolls_;
  QLabel* avgComeouts_;
  QLabel* avgPasses_;
  QLabel* avgMisses_;
};
