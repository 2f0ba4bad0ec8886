// frmConfigure, the Advantage tab: what every bet is worth under the
// payoffs, vig, bar number and dice now in force, as the advantage analysis
// figures it (analysis/advantage_table.h), with its two options and the
// odds of the Fire bet. Nothing is kept between fills: the tab figures the
// whole table afresh each time it is shown or an option changes, so it
// answers at once to a change made on any other tab.
//
// What must stay true:
// - The texts and colours are the analysis's own; the tab only lays them out.
// - Nothing is written to the game while the tab fills itself.
#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QTableWidget;
struct Game;

class AdvantageTab : public QWidget {
  Q_OBJECT
 public:
  explicit AdvantageTab(Game& game, QWidget* parent = nullptr);
  // Figures every bet and the Fire odds and shows them.
  void Fill();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void FillFire();

  Game& game_;
  bool loading_ = false;
  QLabel* dice_ = nullptr;
  QCheckBox* zeroOutcomes_ = nullptr;
  QCheckBox* miscData_ = nullptr;
  QTableWidget* table_ = nullptr;
  QTableWidget* fire_ = nullptr;
  QLabel* fireRolls_ = nullptr;
};
