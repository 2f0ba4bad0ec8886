// frmRollTotals ("Roll Totals"): actual against probable percentages of the
// roll categories of one display kind, in a time frame for a set of players,
// as a table with a bar graph beside each row. The figures come from
// FigureRollTotals; the form keeps only the controls and the last graph
// scale it was given to paint with.
#pragma once

#include <array>

#include "table/stats_form.h"

class QButtonGroup;
class QTableWidget;
class TotalsHeader;

class RollTotalsForm : public StatsForm {
  Q_OBJECT
 public:
  explicit RollTotalsForm(Game& game, QWidget* parent = nullptr);
  QTableWidget* Grid() const { return grid_; }

 protected:
  void ShowFigures() override;

 private:
  // The menus: the display kinds and the two colour choices.
  void MakeMenus(QMenuBar* bar);

  QTableWidget* grid_;
  TotalsHeader* header_;
  QLabel* totalRolls_;
  QLabel* explain_;
  QLabel* probableKey_;
  QLabel* actualKey_;
  QButtonGroup* showProb_;
};
