#include "table/bet_trends_form.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/game.h"
#include "stats/bet_results.h"
#include "stats/view_printouts.h"
#include "table/player_list.h"

namespace {

constexpr int kNameWidth = 200, kTrendWidth = 70, kVisibleRows = 24, kRowHeight = 20;
const QColor kLosing(255, 0, 0), kWinning(0, 0, 255);

}  // namespace

BetTrendsForm::BetTrendsForm(Game& game, QWidget* parent)
    : StatsForm(game, "frmBetTrends", "Bet Trends ", parent) {
  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  connect(player_, &QComboBox::currentIndexChanged, this, [this] {
    if (filling_) return;
    game_.views.BetTrendsPlayer = player_->currentData().toInt();
    game_.roll.SessionDirty = true;
    Refresh();
  });
  trends_ = new QTableWidget(0, 2);
  trends_->setObjectName("picBetTrends");
  trends_->verticalScrollBar()->setObjectName("vsbBetTrends");
  trends_->horizontalHeader()->hide();
  trends_->verticalHeader()->hide();
  trends_->verticalHeader()->setDefaultSectionSize(kRowHeight);
  trends_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  trends_->setSelectionMode(QAbstractItemView::NoSelection);
  trends_->setFocusPolicy(Qt::NoFocus);
  trends_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  trends_->setColumnWidth(0, kNameWidth);
  trends_->setColumnWidth(1, kTrendWidth);
  trends_->setMinimumSize(kNameWidth + kTrendWidth +
                              trends_->verticalScrollBar()->sizeHint().width() +
                              2 * trends_->frameWidth(),
                          kVisibleRows * kRowHeight + 2 * trends_->frameWidth());

  auto* top = new QHBoxLayout;
  top->addWidget(new QLabel("Player:"));
  top->addWidget(player_, 1);
  auto* outer = new QVBoxLayout(this);
  outer->setMenuBar(MakeMenuBar(PrintBetTrends));
  outer->addLayout(top);
  outer->addWidget(new QLabel("Wins in a row (losses shown as negative numbers):"));
  outer->addWidget(trends_, 1);
}

void BetTrendsForm::ShowFigures() {
  filling_ = true;
  const int p = ::FillPlayerList(player_, game_, game_.views.BetTrendsPlayer);
  filling_ = false;
  // With nobody at the table the picture is blank.
  const std::vector<BetTrendRow> rows = FigureBetTrends(game_, p);
  trends_->setRowCount(static_cast<int>(rows.size()));
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    const BetTrendRow& row = rows[static_cast<std::size_t>(r)];
    auto cell = [this, r](int col) {
      QTableWidgetItem* item = trends_->item(r, col);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        item->setTextAlignment(col == 0 ? Qt::AlignLeft | Qt::AlignVCenter
                                        : Qt::AlignRight | Qt::AlignVCenter);
        trends_->setItem(r, col, item);
      }
      return item;
    };
    cell(0)->setText(QString::fromStdString(row.name));
    QTableWidgetItem* trend = cell(1);
    trend->setText(QString::fromStdString(row.trend.text));
    trend->setForeground(row.trend.negative ? kLosing : kWinning);
  }
}
