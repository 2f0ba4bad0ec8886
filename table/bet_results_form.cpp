#include "table/bet_results_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/catalogue.h"
#include "core/game.h"
#include "stats/view_printouts.h"

namespace {

constexpr int kBetCount = kLastRealBet;  // ids 1..85, entry b - 1 is bet b
constexpr char kSelected = 'S', kNotSelected = '0';
constexpr int kBetListHeight = 260;
// The figure arrays' names, by column.
const char* const kColumnNames[kResultColumns] = {"lblWagers", "lblWins", "lblLosses", "lblNet",
                                                  "lblNetPct"};
const char* const kOnTableNames[4] = {"lblCurrentNum", "lblCurrentDollar", "lblLastRollNum",
                                      "lblLastRollDollar"};
const char* const kOnTableRows[4] = {"Current #", "Current $", "Last roll #", "Last roll $"};

}  // namespace

BetResultsForm::BetResultsForm(Game& game, QWidget* parent)
    : StatsForm(game, "frmBetResults", "Bet Results", parent) {
  ViewsState& v = game.views;
  QComboBox* frames = MakeFrameList(v.BetResultsFrame);
  QListWidget* players = MakePlayerList(v.BetResultsPlayers);

  bets_ = new QListWidget;
  bets_->setObjectName("lstBets");
  bets_->setSelectionMode(QAbstractItemView::MultiSelection);
  for (int b = 1; b <= kBetCount; ++b) new QListWidgetItem(QString::fromUtf8(BetName(b)), bets_);
  bets_->setFixedHeight(kBetListHeight);
  bets_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  bets_->setMinimumWidth(bets_->sizeHintForColumn(0) +
                         bets_->verticalScrollBar()->sizeHint().width() + 2 * bets_->frameWidth() +
                         4);
  connect(bets_, &QListWidget::itemSelectionChanged, this, [this] {
    if (filling_) return;
    ReadBetSelection();
    Refresh();
  });
  betsLabel_ = new QLabel;
  betsLabel_->setObjectName("lblBets");
  betsLabel_->setToolTip("Double-click to clear the selection");
  ClearOnDoubleClick(betsLabel_,
                     [this] { game_.views.BetResultsSelection.assign(kBetCount, kNotSelected); });

  QVBoxLayout* side = SelectionColumn(frames, players);
  side->addSpacing(8);
  side->addWidget(new QLabel("Bets:"));
  side->addWidget(bets_);
  side->addWidget(betsLabel_);
  side->addStretch(1);

  auto* tableBox = new QGroupBox("On the table");
  auto* table = new QGridLayout(tableBox);
  auto* wagersHead = new QLabel("Wagers");
  wagersHead->setAlignment(Qt::AlignCenter);
  table->addWidget(wagersHead, 0, 1);
  for (int r = 0; r < 4; ++r)
    AddRow(table, r + 1, kOnTableRows[r],
           onTable_[static_cast<std::size_t>(r)] = MakeFigure(kOnTableNames[r]));

  auto* decisionsBox = new QGroupBox("Decisions");
  auto* decisions = new QGridLayout(decisionsBox);
  for (int k = 0; k < kResultColumns; ++k) {
    auto* head = new QLabel(QString::fromUtf8(ResultColumnTitle(k)));
    head->setAlignment(Qt::AlignCenter);
    decisions->addWidget(head, 0, k + 1);
  }
  for (int row = 1; row <= kResultRows; ++row) {
    decisions->addWidget(new QLabel(QString::fromUtf8(ResultRowLabel(row))), row, 0);
    for (int k = 0; k < kResultColumns; ++k) {
      // The expected value stands only under Net and Net %.
      if (row == kResultRows && k < kNetCol) continue;
      QLabel* l = MakeFigure(QStringLiteral("%1%2").arg(kColumnNames[k]).arg(row), 84);
      rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)] = l;
      decisions->addWidget(l, row, k + 1);
    }
  }

  auto* top = new QHBoxLayout;
  top->addWidget(tableBox);
  top->addStretch(1);
  auto* body = new QVBoxLayout;
  body->addLayout(top);
  body->addWidget(decisionsBox);
  body->addStretch(1);
  auto* outer = new QHBoxLayout(this);
  outer->setMenuBar(MakeMenuBar(PrintBetResults));
  outer->addLayout(side);
  outer->addLayout(body, 1);
}

void BetResultsForm::ReadBetSelection() {
  std::string& s = game_.views.BetResultsSelection;
  s.resize(kBetCount, kNotSelected);
  for (int r = 0; r < kBetCount; ++r)
    s[static_cast<std::size_t>(r)] = bets_->item(r)->isSelected() ? kSelected : kNotSelected;
  game_.roll.SessionDirty = true;
}

void BetResultsForm::ShowFigures() {
  const ViewsState& v = game_.views;
  const std::vector<int> chosen = SelectedBets(v.BetResultsSelection);
  filling_ = true;
  std::vector<bool> want(kBetCount + 1, false);
  for (int b : chosen) want[static_cast<std::size_t>(b)] = true;
  for (int b = 1; b <= kBetCount; ++b)
    if (bets_->item(b - 1)->isSelected() != want[static_cast<std::size_t>(b)])
      bets_->item(b - 1)->setSelected(want[static_cast<std::size_t>(b)]);
  filling_ = false;

  const BetResultsFigures f =
      FigureBetResults(game_, v.BetResultsFrame, v.BetResultsPlayers, chosen);
  betsLabel_->setText(QString::fromStdString(f.betsLabel));
  for (std::size_t k = 0; k < onTable_.size(); ++k) SetShown(onTable_[k], f.onTable[k]);
  for (std::size_t row = 1; row <= kResultRows; ++row)
    for (std::size_t k = 0; k < kResultColumns; ++k)
      if (QLabel* l = rows_[row][k]) SetShown(l, f.rows[row][k], k >= kNetCol);
}
