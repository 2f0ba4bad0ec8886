#include "table/configure_advantage_tab.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "analysis/advantage.h"
#include "analysis/advantage_table.h"
#include "core/game.h"
#include "core/number_text.h"
#include "dice/probability_edit.h"

namespace {

constexpr int kFirePoints = 7;  // 0..6 different points made
constexpr int kRowHeight = 20;
constexpr double kPercent = 100;
constexpr NumberFormat kFireFormat{6, false, false};
constexpr NumberFormat kTipFormat{4, false, false};  // the six decimals of a fraction, in percent

QColor Colour(FigureColour c) {
  switch (c) {
    case FigureColour::Blue:
      return Qt::blue;
    case FigureColour::Red:
      return Qt::red;
    default:
      return Qt::black;
  }
}

QTableWidgetItem* Item(const QString& text,
                       Qt::Alignment align = Qt::AlignRight | Qt::AlignVCenter) {
  auto* item = new QTableWidgetItem(text);
  item->setTextAlignment(align);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

QTableWidget* Table(const char* name, int rows, const QStringList& titles) {
  auto* t = new QTableWidget(rows, static_cast<int>(titles.size()));
  t->setObjectName(name);
  t->setHorizontalHeaderLabels(titles);
  t->verticalHeader()->hide();
  t->verticalHeader()->setDefaultSectionSize(kRowHeight);
  t->setEditTriggers(QAbstractItemView::NoEditTriggers);
  t->setSelectionBehavior(QAbstractItemView::SelectRows);
  return t;
}

}  // namespace

AdvantageTab::AdvantageTab(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  auto* head = new QHBoxLayout;
  dice_ = new QLabel;
  dice_->setObjectName("lblAdvantageDice");
  head->addWidget(dice_);
  head->addStretch();
  head->addWidget(new QLabel("All figures shown in percentage"));
  left->addLayout(head);

  table_ = Table("picAdvantage", kLastRealBet, {"Bet", "", "", "", "", ""});
  table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  for (int c = 1; c <= kAdvantageColumns; ++c)
    table_->horizontalHeader()->setSectionResizeMode(c, QHeaderView::ResizeToContents);
  table_->setMinimumWidth(560);
  // 21 rows in sight, as the tab always showed.
  table_->setMinimumHeight(kAdvantageVisibleRows * kRowHeight +
                           table_->horizontalHeader()->sizeHint().height() + 4);
  for (int b = 1; b <= kLastRealBet; ++b)
    table_->setItem(
        b - 1, 0,
        Item(QString::fromStdString(AdvantageRowLabel(b)), Qt::AlignLeft | Qt::AlignVCenter));
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) {
    if (!loading_) game_.advantage.AdvantageTopRow = top + 1;
  });
  left->addWidget(table_);

  zeroOutcomes_ = new QCheckBox("Count &zero outcomes as decisions");
  zeroOutcomes_->setObjectName("mnuIncludeZeroOutcomes");
  miscData_ = new QCheckBox("Show misc. roll, dec, and time data");
  miscData_->setObjectName("mnuShowMiscData");
  connect(zeroOutcomes_, &QCheckBox::toggled, this, [this](bool on) {
    if (loading_) return;
    game_.advantage.CountZeroOutcomes = on;
    Fill();
  });
  connect(miscData_, &QCheckBox::toggled, this, [this](bool on) {
    if (loading_) return;
    game_.advantage.ShowMiscData = on;
    Fill();
  });
  auto* options = new QHBoxLayout;
  options->addWidget(zeroOutcomes_);
  options->addWidget(miscData_);
  options->addStretch();
  left->addLayout(options);
  layout->addLayout(left, 1);

  auto* fireBox = new QGroupBox("Fire bet");
  auto* right = new QVBoxLayout(fireBox);
  right->addWidget(new QLabel("Chance of the points\nmade in a hand"));
  fire_ = Table("tblFireOdds", kFirePoints, {"Points", "Chance"});
  fire_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  fire_->horizontalHeader()->setStretchLastSection(true);
  fire_->setFixedHeight(kFirePoints * kRowHeight + fire_->horizontalHeader()->sizeHint().height() +
                        4);
  for (int k = 0; k < kFirePoints; ++k)
    fire_->setItem(k, 0, Item(QString::number(k), Qt::AlignCenter));
  right->addWidget(fire_);
  fireRolls_ = new QLabel;
  fireRolls_->setObjectName("lblFireRolls");
  right->addWidget(fireRolls_);
  right->addStretch();
  layout->addWidget(fireBox);
}

void AdvantageTab::showEvent(QShowEvent* event) {
  Fill();
  QWidget::showEvent(event);
  loading_ = true;
  const int top = std::clamp<int>(game_.advantage.AdvantageTopRow, 1, kLastRealBet);
  table_->scrollToItem(table_->item(top - 1, 0), QAbstractItemView::PositionAtTop);
  loading_ = false;
}

void AdvantageTab::Fill() {
  loading_ = true;
  const AdvantageState& s = game_.advantage;
  zeroOutcomes_->setChecked(s.CountZeroOutcomes);
  miscData_->setChecked(s.ShowMiscData);
  dice_->setText(game_.dice.ProbabilityDiceOn
                     ? QString("Probability File:  %1")
                           .arg(QString::fromStdString(ProbabilityFileCaption(game_)))
                     : QString("Figured using true probabilities"));
  const auto& titles = s.ShowMiscData ? kAdvantageMiscTitles : kAdvantageTitles;
  for (int c = 0; c < kAdvantageColumns; ++c)
    table_->horizontalHeaderItem(c + 1)->setText(
        QString::fromUtf8(titles[c]));
  for (int b = 1; b <= kLastRealBet; ++b) {
    const AdvantageRow row = FigureAdvantageRow(game_, b);
    const auto& cells = s.ShowMiscData ? row.misc : row.normal;
    const double full[kAdvantageColumns] = {row.figures.evPerRoll, row.figures.stDevPerRoll,
                                            row.figures.evPerDec, row.figures.stDevPerDec, 0};
    for (int c = 0; c < kAdvantageColumns; ++c) {
      QTableWidgetItem* item = Item(QString::fromStdString(cells[c].text));
      item->setForeground(Colour(cells[c].colour));
      // The figure behind a value column, to the analysis's six decimals.
      if (!s.ShowMiscData && c < kAdvantageColumns - 1)
        item->setToolTip(QString::fromStdString(FormatNumber(full[c] * kPercent, kTipFormat)) +
                         "%");
      table_->setItem(b - 1, c + 1, item);
    }
  }
  FillFire();
  loading_ = false;
}

void AdvantageTab::FillFire() {
  const FireOdds odds = FigureFireOdds(game_);
  for (int k = 0; k < kFirePoints; ++k)
    fire_->setItem(k, 1, Item(QString::fromStdString(FormatNumber(odds.FireProb[k], kFireFormat))));
  fireRolls_->setText(
      QString("Rolls per hand: %1")
          .arg(QString::fromStdString(FormatNumber(odds.FireRolls, {4, false, false}))));
}
