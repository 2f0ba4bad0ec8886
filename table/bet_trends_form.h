// frmBetTrends ("Bet Trends "): for one player, the current run of wins
// (positive) or losses (negative) on each bet, from FigureBetTrends.
#pragma once

#include "table/stats_form.h"

class QTableWidget;

class BetTrendsForm : public StatsForm {
  Q_OBJECT
 public:
  explicit BetTrendsForm(Game& game, QWidget* parent = nullptr);
  QTableWidget* Trends() const { return trends_; }

 protected:
  void ShowFigures() override;

 private:
  QComboBox* player_;
  QTableWidget* trends_;
};
