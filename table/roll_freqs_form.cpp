#include "table/roll_freqs_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/game.h"
#include "stats/summary_printouts.h"
#include "stats/roll_totals.h"

namespace {

constexpr int kGapColumns = 8, kGapRows = 25;  // 200 entries: gap and count side by side
constexpr int kGapWidth = 40, kCountWidth = 52, kGapRowHeight = 18;
const QColor kGapInk(255, 255, 255), kGapBox(0, 0, 192);

}  // namespace

RollFreqsForm::RollFreqsForm(Game& game, QWidget* parent)
    : StatsForm(game, "frmRollFreqs", "Roll Frequencies", parent) {
  category_ = new QComboBox;
  category_->setObjectName("cmbFreqNum");
  for (int c = kFirstCategory; c <= kLastCategory; ++c) {
    const std::string text = CategoryText(c);
    if (!text.empty()) category_->addItem(QString::fromStdString(text), c);
  }
  connect(category_, &QComboBox::currentIndexChanged, this, [this] {
    if (filling_) return;
    game_.views.RollFreqCategory = category_->currentData().toInt();
    game_.roll.SessionDirty = true;
    Refresh();
  });

  auto* figures = new QGridLayout;
  AddRow(figures, 0, "Total session rolls:", sessionRolls_ = MakeFigure("lblTotalRollsAll"));
  AddRow(figures, 1, "Total rolls this selection:", selectionRolls_ = MakeFigure("lblTotalRolls"));
  AddRow(figures, 2, "Actual % rolled:", actualPct_ = MakeFigure("lblActualPercent"));
  AddRow(figures, 3, "# rolls since last rolled:", rollsSince_ = MakeFigure("lblLastRolled"));
  AddRow(figures, 4, "Average # of rolls to achieve:", average_ = MakeFigure("lblAverage"));
  probable_ = new QPushButton;
  probable_->setObjectName("cmdProbable");
  probable_->setToolTip("Switches between the true and the skewed probability");
  connect(probable_, &QPushButton::clicked, this, [this] {
    game_.views.RollFreqsSkewed = !game_.views.RollFreqsSkewed;
    game_.roll.SessionDirty = true;
    Refresh();
  });
  figures->addWidget(probable_, 5, 0);
  figures->addWidget(idealPct_ = MakeFigure("lblIdealPercent"), 5, 1);

  auto* side = new QVBoxLayout;
  side->addWidget(new QLabel("Roll:"));
  side->addWidget(category_);
  side->addSpacing(8);
  side->addLayout(figures);
  side->addStretch(1);

  gaps_ = new QTableWidget(kGapRows, 2 * kGapColumns);
  gaps_->setObjectName("grdFreqs");
  gaps_->horizontalHeader()->hide();
  gaps_->verticalHeader()->hide();
  gaps_->verticalHeader()->setDefaultSectionSize(kGapRowHeight);
  gaps_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  gaps_->setSelectionMode(QAbstractItemView::NoSelection);
  gaps_->setFocusPolicy(Qt::NoFocus);
  gaps_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  gaps_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  int width = 0;
  for (int k = 0; k < kGapColumns; ++k) {
    gaps_->setColumnWidth(2 * k, kGapWidth);
    gaps_->setColumnWidth(2 * k + 1, kCountWidth);
    width += kGapWidth + kCountWidth;
  }
  for (int r = 0; r < kGapRows; ++r)
    for (int col = 0; col < 2 * kGapColumns; ++col) {
      auto* item = new QTableWidgetItem;
      item->setTextAlignment(col % 2 == 0 ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
      gaps_->setItem(r, col, item);
    }
  gaps_->setFixedSize(width + 2 * gaps_->frameWidth(),
                      kGapRows * kGapRowHeight + 2 * gaps_->frameWidth());

  auto* right = new QVBoxLayout;
  right->addWidget(new QLabel("Number of rolls it took (blue) and how many times:"));
  right->addWidget(gaps_);
  auto* outer = new QHBoxLayout(this);
  outer->setMenuBar(MakeMenuBar(PrintRollFreqs));
  outer->addLayout(side);
  outer->addLayout(right);
}

void RollFreqsForm::ShowFigures() {
  ViewsState& v = game_.views;
  filling_ = true;
  int at = category_->findData(v.RollFreqCategory);
  if (at < 0) at = category_->findData(7);  // a category no list shows: the 7
  category_->setCurrentIndex(at);
  v.RollFreqCategory = category_->currentData().toInt();
  filling_ = false;

  const RollFreqFigures f = FigureRollFreqs(game_, v.RollFreqCategory, v.RollFreqsSkewed);
  SetShown(sessionRolls_, f.sessionRolls);
  SetShown(selectionRolls_, f.selectionRolls);
  SetShown(actualPct_, f.actualPct);
  SetShown(rollsSince_, f.rollsSince);
  SetShown(average_, f.average);
  probable_->setText(QString::fromStdString(f.probableCaption));
  SetShown(idealPct_, f.probablePct);
  // The gaps that occurred, in order, down each column in turn.
  const auto shown = std::min<std::size_t>(f.gaps.size(), kGapRows * kGapColumns);
  for (int k = 0; k < kGapRows * kGapColumns; ++k) {
    QTableWidgetItem* gap = gaps_->item(k % kGapRows, 2 * (k / kGapRows));
    QTableWidgetItem* count = gaps_->item(k % kGapRows, 2 * (k / kGapRows) + 1);
    if (static_cast<std::size_t>(k) < shown) {
      const RollFreqGap& g = f.gaps[static_cast<std::size_t>(k)];
      gap->setText(QString::fromStdString(g.gapText));
      gap->setBackground(kGapBox);
      gap->setForeground(kGapInk);
      count->setText(QString::number(g.count));
    } else {
      gap->setText({});
      gap->setBackground(Qt::NoBrush);
      count->setText({});
    }
  }
}
