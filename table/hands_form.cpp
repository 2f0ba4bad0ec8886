#include "table/hands_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "stats/summary_printouts.h"

namespace {

const char* const kCellNames[3] = {"lblNumComeoutRolls", "lblNumPasses", "lblNumMisses"};
const char* const kCellHeads[3] = {"Come-out rolls", "Passes", "Misses"};
constexpr int kFirstRow = 2;
constexpr int kTotalRow = 13;          // "Total", then "Naturals" and "Points"
constexpr int kFirstSessionFrame = 2;  // the frames that count hands, not one hand's rolls

}  // namespace

HandsForm::HandsForm(Game& game, QWidget* parent) : StatsForm(game, "frmHands", "Hands", parent) {
  ViewsState& v = game.views;
  QComboBox* frames = MakeFrameList(v.HandsFrame);
  QListWidget* players = MakePlayerList(v.HandsPlayers);
  units_ = new QPushButton;
  units_->setObjectName("cmdUnits");
  connect(units_, &QPushButton::clicked, this, [this] {
    game_.views.HandsShowPercent = !game_.views.HandsShowPercent;
    game_.roll.SessionDirty = true;
    Refresh();
  });
  explain_ = new QLabel;
  explain_->setObjectName("lblExplain");
  explain_->setWordWrap(true);
  explain_->setFixedWidth(180);
  explain_->setAlignment(Qt::AlignTop | Qt::AlignLeft);

  QVBoxLayout* side = SelectionColumn(frames, players);
  side->addSpacing(8);
  side->addWidget(units_);
  side->addWidget(explain_);
  side->addStretch(1);

  auto* tallyBox = new QGroupBox("Come-out rolls, passes and misses");
  auto* tally = new QGridLayout(tallyBox);
  for (int k = 0; k < 3; ++k) {
    auto* head = new QLabel(kCellHeads[k]);
    head->setAlignment(Qt::AlignCenter);
    tally->addWidget(head, 0, k + 1);
  }
  for (int row = kFirstRow; row <= kHandRows; ++row) {
    // The totals stand apart from the numbers.
    const int line = row - kFirstRow + 1 + (row >= kTotalRow ? 1 : 0);
    auto* caption = new QLabel(QString::fromStdString(HandRowLabel(row)));
    if (row >= kTotalRow) caption->setStyleSheet("font-weight: bold");
    tally->addWidget(caption, line, 0);
    for (int k = 0; k < 3; ++k) {
      QLabel* l = MakeFigure(QStringLiteral("%1%2").arg(kCellNames[k]).arg(row), 80);
      cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)] = l;
      tally->addWidget(l, line, k + 1);
    }
  }
  tally->setRowMinimumHeight(kTotalRow - kFirstRow + 1, 8);

  auto* recordsBox = new QGroupBox("Records");
  auto* records = new QGridLayout(recordsBox);
  handTotalCaption_ = new QLabel;
  handTotalCaption_->setObjectName("lblHandTotalCaption");
  records->addWidget(handTotalCaption_, 0, 0);
  records->addWidget(handTotal_ = MakeFigure("lblHandTotal"), 0, 1);
  AddRow(records, 1, "Total rolls", totalRolls_ = MakeFigure("lblTotalRolls"));
  AddRow(records, 2, "Most rolls in a hand", mostRolls_ = MakeFigure("lblHandMostRolls"));
  AddRow(records, 3, "Most c/o rolls in a hand", mostComeouts_ = MakeFigure("lblMostComeoutRolls"));
  AddRow(records, 4, "Most passes in a hand", mostPasses_ = MakeFigure("lblHandMostPasses"));
  AddRow(records, 5, "Most misses in a hand", mostMisses_ = MakeFigure("lblHandMostMisses"));

  auto* averagesBox = new QGroupBox("Average # of rolls:");
  auto* averages = new QGridLayout(averagesBox);
  AddRow(averages, 0, "Avg rolls / hand", avgRolls_ = MakeFigure("lblHandAverageRolls"));
  AddRow(averages, 1, "Avg c/o rolls/hand", avgComeouts_ = MakeFigure("lblAvgComeoutRolls"));
  AddRow(averages, 2, "Avg passes / hand", avgPasses_ = MakeFigure("lblHandAveragePasses"));
  AddRow(averages, 3, "Avg misses / hand", avgMisses_ = MakeFigure("lblHandAverageMisses"));

  auto* right = new QVBoxLayout;
  right->addWidget(recordsBox);
  right->addWidget(averagesBox);
  right->addStretch(1);
  auto* outer = new QHBoxLayout(this);
  outer->setMenuBar(MakeMenuBar(PrintHands));
  outer->addLayout(side);
  outer->addWidget(tallyBox, 1, Qt::AlignTop);
  outer->addLayout(right);
}

void HandsForm::ShowFigures() {
  const ViewsState& v = game_.views;
  const HandsFigures f = FigureHands(game_, v.HandsFrame, v.HandsPlayers, v.HandsShowPercent);
  units_->setText(v.HandsShowPercent ? "Show &Counts" : "Show &Percent");
  explain_->setText(QString::fromStdString(f.explanation));
  for (int row = kFirstRow; row <= kHandRows; ++row)
    for (std::size_t k = 0; k < 3; ++k) {
      QLabel* l = cells_[static_cast<std::size_t>(row)][k];
      const Shown& s = f.cells[static_cast<std::size_t>(row)][k];
      // A 2, 3 or 12 can't pass on a come-out, a 7 or 11 can't miss.
      l->setVisible(!s.none);
      SetShown(l, s);
    }
  handTotalCaption_->setText(f.frame >= kFirstSessionFrame ? "Total hands" : "Rolls in the hand");
  SetShown(handTotal_, f.handTotal);
  SetShown(totalRolls_, f.totalRolls);
  SetShown(mostRolls_, f.mostRolls);
  SetShown(mostComeouts_, f.mostComeouts);
  SetShown(mostPasses_, f.mostPasses);
  SetShown(mostMisses_, f.mostMisses);
  SetShown(avgRolls_, f.avgRolls);
  SetShown(avgComeouts_, f.avgComeouts);
  SetShown(avgPasses_, f.avgPasses);
  SetShown(avgMisses_, f.avgMisses);
}
