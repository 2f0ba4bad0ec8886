// frmSummary ("Session Summary"): the session at a glance for a time frame
// and a set of players: rolls, hands, simulated hours, the bankrolls, the
// comps a casino would give, and the decisions won and lost. Every figure
// comes from FigureSummary; the form only places and colours them.
#pragma once

#include <array>

#include "table/stats_form.h"

class SummaryForm : public StatsForm {
  Q_OBJECT
 public:
  explicit SummaryForm(Game& game, QWidget* parent = nullptr);

 protected:
  void ShowFigures() override;

 private:
  QLabel* totalRolls_;
  QLabel* totalHands_;
  QLabel* rollsShooting_;
  QLabel* rollsPerHour_;
  QLabel* simHours_;
  QLabel* simHoursShooting_;
  QLabel* bankrollCaption_;
  QLabel* bankrollCurrent_;
  QLabel* bankrollHigh_;
  QLabel* bankrollLow_;
  QLabel* bankrollAverage_;
  std::array<QLabel*, 7> compCaptions_{};
  std::array<QLabel*, 7> comps_{};
  // Total # and Total $ by Wagers, Wins, Losses, Net $, Net %.
  std::array<std::array<QLabel*, 5>, 2> decisions_{};
};
