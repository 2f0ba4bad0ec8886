// frmBetResults ("Bet Results"): for a chosen set of bets and players in a
// time frame, what stands on the bets, the decisions with their wagers,
// wins and losses, the net, and the result the house edge expects. The
// figures come from FigureBetResults; the bet selection is the game's
// BetResultsSelection, one character per bet id.
#pragma once

#include <array>

#include "stats/bet_results.h"
#include "table/stats_form.h"

class BetResultsForm : public StatsForm {
  Q_OBJECT
 public:
  explicit BetResultsForm(Game& game, QWidget* parent = nullptr);

 protected:
  void ShowFigures() override;

 private:
  // Writes lstBets' selection into BetResultsSelection.
  void ReadBetSelection();

  QListWidget* bets_;
  QLabel* betsLabel_;
  std::array<QLabel*, 4> onTable_{};
  // Rows 1..11 by column (index 0 unused; row 11 only Net and Net %).
  std::array<std::array<QLabel*, kResultColumns>, kResultRows + 1> rows_{};
};
