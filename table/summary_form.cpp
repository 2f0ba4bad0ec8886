#include "table/summary_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QVBoxLayout>

#include "core/game.h"
#include "stats/summary_printouts.h"
#include "stats/summary.h"

namespace {

// The decision figures' names, by row (Total #, Total $) and column.
const char* const kDecisionNames[2][5] = {
    {"lblNumBetsDecided", "lblNumBetsWon", "lblNumBetsLost", "lblNumBetsNet",
     "lblNumBetsNetPercentage"},
    {"lblAmountBetsMade", "lblAmountBetsWon", "lblAmountBetsLost", "lblAmountBetsNet",
     "lblAmountBetsNetPercentage"}};
const char* const kDecisionColumns[5] = {"Wagers", "Wins", "Losses", "Net $", "Net %"};
const char* const kDecisionRows[2] = {"Total #", "Total $"};
constexpr int kNetColumn = 3;
// The comps drawn in the loss colour below 0: the vig and the comp value.
constexpr int kCompVig = 4, kCompValue = 6;

}  // namespace

SummaryForm::SummaryForm(Game& game, QWidget* parent)
    : StatsForm(game, "frmSummary", "Session Summary", parent) {
  ViewsState& v = game.views;
  QComboBox* frames = MakeFrameList(v.SummaryFrame);
  QListWidget* players = MakePlayerList(v.SummaryPlayers);

  QVBoxLayout* selection = SelectionColumn(frames, players);
  selection->addStretch(1);

  auto* totalsBox = new QGroupBox("Totals");
  auto* totals = new QGridLayout(totalsBox);
  AddRow(totals, 0, "Total rolls", totalRolls_ = MakeFigure("lblTotalRolls"));
  AddRow(totals, 1, "Total hands", totalHands_ = MakeFigure("lblTotalHands"));
  AddRow(totals, 2, "Total rolls shooting", rollsShooting_ = MakeFigure("lblTotalRollsShooting"));
  AddRow(totals, 3, "Rolls / hour", rollsPerHour_ = MakeFigure("lblRollsPerHour"));
  AddRow(totals, 4, "Sim hours", simHours_ = MakeFigure("lblSimHours"));
  AddRow(totals, 5, "Sim hours shooting", simHoursShooting_ = MakeFigure("lblSimHoursShooting"));

  auto* bankrollBox = new QGroupBox("Bankroll");
  auto* bankroll = new QGridLayout(bankrollBox);
  bankrollCaption_ = new QLabel;
  bankrollCaption_->setObjectName("lblSummary6");
  bankroll->addWidget(bankrollCaption_, 0, 0);
  bankroll->addWidget(bankrollCurrent_ = MakeFigure("lblBankrollCurrent"), 0, 1);
  AddRow(bankroll, 1, "High", bankrollHigh_ = MakeFigure("lblBankrollHigh"));
  AddRow(bankroll, 2, "Low", bankrollLow_ = MakeFigure("lblBankrollLow"));
  AddRow(bankroll, 3, "Average bankroll", bankrollAverage_ = MakeFigure("lblBankrollAverage"));

  auto* compsBox = new QGroupBox("Comps");
  auto* compsGrid = new QGridLayout(compsBox);
  for (int k = 0; k < 7; ++k) {
    const auto i = static_cast<std::size_t>(k);
    compCaptions_[i] = new QLabel;
    compCaptions_[i]->setObjectName(QStringLiteral("lblCompCaption%1").arg(k));
    comps_[i] = MakeFigure(QStringLiteral("lblCompdata%1").arg(k));
    compsGrid->addWidget(compCaptions_[i], k, 0);
    compsGrid->addWidget(comps_[i], k, 1);
  }

  auto* decisionsBox = new QGroupBox("Decisions");
  auto* decisions = new QGridLayout(decisionsBox);
  for (int k = 0; k < 5; ++k) {
    auto* head = new QLabel(kDecisionColumns[k]);
    head->setAlignment(Qt::AlignCenter);
    decisions->addWidget(head, 0, k + 1);
  }
  for (int row = 0; row < 2; ++row) {
    decisions->addWidget(new QLabel(kDecisionRows[row]), row + 1, 0);
    for (int k = 0; k < 5; ++k) {
      QLabel* l = MakeFigure(kDecisionNames[row][k], 80);
      decisions_[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)] = l;
      decisions->addWidget(l, row + 1, k + 1);
    }
  }

  auto* left = new QVBoxLayout;
  left->addWidget(totalsBox);
  left->addWidget(bankrollBox);
  left->addStretch(1);
  auto* right = new QVBoxLayout;
  right->addWidget(compsBox);
  right->addStretch(1);
  auto* figures = new QHBoxLayout;
  figures->addLayout(left);
  figures->addLayout(right);
  auto* body = new QVBoxLayout;
  body->addLayout(figures);
  body->addWidget(decisionsBox);
  auto* outer = new QHBoxLayout(this);
  outer->setMenuBar(MakeMenuBar(PrintSummary));
  outer->addLayout(selection);
  outer->addLayout(body, 1);
}

void SummaryForm::ShowFigures() {
  const ViewsState& v = game_.views;
  const SummaryFigures f = FigureSummary(game_, v.SummaryFrame, v.SummaryPlayers);
  SetShown(totalRolls_, f.totalRolls);
  SetShown(totalHands_, f.totalHands);
  SetShown(rollsShooting_, f.rollsShooting);
  SetShown(rollsPerHour_, f.rollsPerHour);
  SetShown(simHours_, f.simHours);
  SetShown(simHoursShooting_, f.simHoursShooting);
  bankrollCaption_->setText(QString::fromStdString(f.bankrollCaption));
  SetShown(bankrollCurrent_, f.bankrollCurrent, true);
  SetShown(bankrollHigh_, f.bankrollHigh, true);
  SetShown(bankrollLow_, f.bankrollLow, true);
  SetShown(bankrollAverage_, f.bankrollAverage, true);
  for (std::size_t k = 0; k < comps_.size(); ++k) {
    compCaptions_[k]->setText(QString::fromStdString(f.compLabels[k]));
    SetShown(comps_[k], f.comps[k], k == kCompVig || k == kCompValue);
  }
  for (std::size_t row = 0; row < 2; ++row)
    for (std::size_t k = 0; k < 5; ++k)
      SetShown(decisions_[row][k], f.decisions[row][k], k == kNetColumn);
}
