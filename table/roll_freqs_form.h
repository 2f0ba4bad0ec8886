// frmRollFreqs ("Roll Frequencies"): for one roll category of the session,
// how often it came up, how many rolls since, the average number of rolls
// it took, and the table of gap lengths with how many times each occurred.
// The figures come from FigureRollFreqs.
#pragma once

#include "table/stats_form.h"

class QPushButton;
class QTableWidget;

class RollFreqsForm : public StatsForm {
  Q_OBJECT
 public:
  explicit RollFreqsForm(Game& game, QWidget* parent = nullptr);
  QTableWidget* Gaps() const { return gaps_; }

 protected:
  void ShowFigures() override;

 private:
  QComboBox* category_;
  QLabel* sessionRolls_;
  QLabel* selectionRolls_;
  QLabel* actualPct_;
  QLabel* rollsSince_;
  QLabel* average_;
  QPushButton* probable_;
  QLabel* idealPct_;
  QTableWidget* gaps_;
};
