// frmAutoPlay's controls: each is made here and wired to write its value to
// the selection; auto_play_form.cpp fills them.
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "automation/autoplay.h"
#include "automation/autoplay_state.h"
#include "core/game.h"
#include "core/money.h"
#include "table/auto_play_form.h"
#include "table/numeric_box.h"

namespace {

constexpr int kAmountDecimals = 2;
constexpr int kRuleOptions = 8;
constexpr int kSameBetOption = 6, kBetOption = 7;
constexpr int kColumns = 4;  // option, operator, amount, units

const char* const kAdjustCaption[3] = {" Manual", " Auto w/ minor correction",
                                       " Auto w/ color correction"};
const char* const kWinCaption[kRuleOptions] = {" Manual",
                                               " Take Bet and Winnings",
                                               " Same Bet/Take Winnings",
                                               " Press 1 Unit",
                                               " Press Double",
                                               " Parlay",
                                               " Same Bet:",
                                               " Bet:"};
const char* const kLoseCaption[kRuleOptions] = {" Manual",
                                                " No Bet/Take Remainder (if any)",
                                                " Same Bet",
                                                " Bet Remainder (if any)",
                                                " Same Bet Plus 1 Unit",
                                                " Double Bet:",
                                                " Same Bet:",
                                                " Bet:"};
const char* const kBiasEnd[3] = {" bias: nearest", " bias: increase", " bias: decrease"};

}  // namespace

void AutoPlayForm::AddCheck(QCheckBox* box, AutoPlayOption option) {
  options_.push_back({option, box, nullptr, nullptr, box});
  connect(box, &QCheckBox::toggled, this, [this, option](bool on) { Write(option, on ? 1 : 0); });
}

void AutoPlayForm::AddCombo(QComboBox* combo, AutoPlayOption option) {
  options_.push_back({option, nullptr, nullptr, combo, combo});
  connect(combo, &QComboBox::activated, this, [this, option](int i) { Write(option, i); });
}

QButtonGroup* AutoPlayForm::AddGroup(QGroupBox* box, AutoPlayOption option) {
  auto* group = new QButtonGroup(box);
  options_.push_back({option, nullptr, group, nullptr, box});
  connect(group, &QButtonGroup::idToggled, this, [this, option](int id, bool on) {
    if (on) Write(option, id);
  });
  return group;
}

QWidget* AutoPlayForm::BuildOptions() {
  auto* page = new QWidget;
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(0, 0, 0, 0);
  struct Switch {
    const char* name;
    const char* caption;
    AutoPlayOption option;
  };
  for (const Switch& s :
       {Switch{"chkAutoTakeFullOdds", "Auto-&Take Full Odds", AutoPlayOption::kTakeFullOdds},
        Switch{"chkAutoLayFullOdds", "Auto-&Lay Full Odds", AutoPlayOption::kLayFullOdds},
        Switch{"chkAutoDownPlaceBets", "Auto-&Down Place Bets", AutoPlayOption::kDownPlaceBets},
        Switch{"chkAutoPassDice", "Auto-&Pass the Dice", AutoPlayOption::kPassDice}}) {
    auto* box = new QCheckBox(s.caption);
    box->setObjectName(s.name);
    AddCheck(box, s.option);
    v->addWidget(box);
  }
  auto* adjust = new QGroupBox("Auto-&Adjust Bet Amounts");
  adjust->setObjectName("fraAutoAdjustBetAmounts");
  auto* av = new QVBoxLayout(adjust);
  QButtonGroup* modes = AddGroup(adjust, AutoPlayOption::kAdjustMode);
  for (int i = 0; i < 3; ++i) {
    auto* opt = new QRadioButton(kAdjustCaption[i]);
    opt->setObjectName(QString("optAutoAdjustBetAmounts%1").arg(i));
    modes->addButton(opt, i);
    av->addWidget(opt);
  }
  // The biases round the adjusted amounts; they follow the adjustment group.
  struct Bias {
    const char* name;
    const char* head;
    AutoPlayOption option;
  };
  for (const Bias& b : {Bias{"cmbLayBias", "Lay bets", AutoPlayOption::kLayBias},
                        Bias{"cmbPlaceBias", "Place bets", AutoPlayOption::kPlaceBias},
                        Bias{"cmbDoBias", "Do odds", AutoPlayOption::kDoBias},
                        Bias{"cmbDontBias", "Don't odds", AutoPlayOption::kDontBias}}) {
    auto* combo = new QComboBox;
    combo->setObjectName(b.name);
    for (const char* end : kBiasEnd) combo->addItem(QString(b.head) + end);
    AddCombo(combo, b.option);
    av->addWidget(combo);
  }
  v->addWidget(adjust);
  v->addStretch();
  return page;
}

AutoPlayForm::AdjustRow& AutoPlayForm::AddAdjustRow(int slot, bool withOperator) {
  AdjustRow& row = rows_[static_cast<std::size_t>(rowCount_++)];
  row.slot = slot;
  if (withOperator) {
    row.op = new QPushButton;
    row.op->setObjectName(QString("cmdMathOperator%1").arg(slot));
    row.op->setFixedWidth(row.op->fontMetrics().horizontalAdvance("MM") + 12);
    connect(row.op, &QPushButton::clicked, this, [this, slot] {
      StepAdjustOperator(game_, Selection(), slot);
      ShowSettings();
    });
    row.units = new QPushButton;
    row.units->setObjectName(QString("cmdUnits%1").arg(slot));
    row.units->setFixedWidth(row.op->width());
    connect(row.units, &QPushButton::clicked, this, [this, slot] {
      StepAdjustUnits(game_, Selection(), slot);
      ShowSettings();
    });
  }
  row.amount = new QLineEdit;
  row.amount->setObjectName(QString("txtModifyAmount%1").arg(slot));
  row.amount->setFixedWidth(row.amount->fontMetrics().horizontalAdvance("0000000.00"));
  new NumericKeyFilter(row.amount, kAmountDecimals, false);
  const int index = rowCount_ - 1;
  connect(row.amount, &QLineEdit::textChanged, this, [this, index](const QString& text) {
    if (FormLoading) return;
    const AdjustRow& r = rows_[static_cast<std::size_t>(index)];
    SetAdjustAmount(game_, Selection(), r.slot, ParseAmount(text.toStdString()));
    ShowAdjustRow(r, false);
  });
  return row;
}

QGroupBox* AutoPlayForm::BuildHandling(bool winning) {
  auto* box = new QGroupBox(winning ? "Auto-Handle Winning &Bets" : "Auto-Handle Los&ing Bets");
  box->setObjectName(winning ? "fraHandleWinningBets" : "fraHandleLosingBets");
  QButtonGroup* group =
      AddGroup(box, winning ? AutoPlayOption::kHandleWinning : AutoPlayOption::kHandleLosing);
  // Columns: the option, then the operator, amount and units of the two
  // rows that take them; the other options span the row.
  auto* grid = new QGridLayout(box);
  grid->setColumnStretch(kColumns - 1, 1);
  const char* const* captions = winning ? kWinCaption : kLoseCaption;
  for (int i = 0; i < kRuleOptions; ++i) {
    auto* opt = new QRadioButton(captions[i]);
    opt->setObjectName(
        QString(winning ? "optHandleWinningBets%1" : "optHandleLosingBets%1").arg(i));
    group->addButton(opt, i);
    grid->addWidget(opt, i, 0, 1, i < kSameBetOption ? kColumns : 1);
  }
  // " Same Bet:" takes an operator, an amount and units; " Bet:" an amount.
  const AdjustRow& same = AddAdjustRow(winning ? kAdjustAutoWinSame : kAdjustAutoLoseSame, true);
  grid->addWidget(same.op, kSameBetOption, 1);
  grid->addWidget(same.amount, kSameBetOption, 2);
  grid->addWidget(same.units, kSameBetOption, 3, Qt::AlignLeft);
  const AdjustRow& bet = AddAdjustRow(winning ? kAdjustAutoWinBet : kAdjustAutoLoseBet, false);
  grid->addWidget(bet.amount, kBetOption, 2);
  return box;
}

QWidget* AutoPlayForm::BuildWorkingList() {
  auto* box = new QGroupBox("Working on the come-out roll");
  box->setObjectName("fraWorkOnComeOut");
  auto* v = new QVBoxLayout(box);
  working_ = new QListWidget;
  working_->setObjectName("lstWorkOnComeOut");
  working_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  v->addWidget(working_, 1);
  // A double click turns the row over for the whole selection.
  connect(working_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    const int b = item->data(Qt::UserRole).toInt();
    const int p = FirstSelectedPlayer(game_, Selection());
    SetComeOutWorking(game_, Selection(), {b}, game_.BetWorkingDefault(p, b) == 1 ? 0 : 1);
    FillWorkingList();
    emit changed();
  });
  auto* buttons = new QGridLayout;
  struct Button {
    const char* name;
    const char* caption;
    int row, column;
  };
  for (const Button& b :
       {Button{"cmdYes", "&Yes", 0, 0}, Button{"cmdNo", "&No", 0, 1},
        Button{"cmdDefault", "De&fault", 1, 0}, Button{"cmdSelectAll", "Sele&ct All", 1, 1}}) {
    auto* button = new QPushButton(b.caption);
    button->setObjectName(b.name);
    buttons->addWidget(button, b.row, b.column);
    const QString name = b.name;
    connect(button, &QPushButton::clicked, this, [this, name] {
      if (name == "cmdSelectAll") {
        working_->selectAll();
        return;
      }
      const std::vector<int> ids = SelectedWorkingIds();
      if (name == "cmdDefault")
        CopyComeOutDefaults(game_, Selection(), ids);
      else
        SetComeOutWorking(game_, Selection(), ids, name == "cmdYes" ? 1 : 0);
      FillWorkingList();
      emit changed();
    });
  }
  v->addLayout(buttons);
  return box;
}

std::vector<int> AutoPlayForm::SelectedWorkingIds() const {
  std::vector<int> ids;
  for (QListWidgetItem* item : working_->selectedItems())
    ids.push_back(item->data(Qt::UserRole).toInt());
  return ids;
}

void AutoPlayForm::FillWorkingList() {
  const int p = FirstSelectedPlayer(game_, Selection());
  const std::vector<int> ids = ComeOutListIds();
  if (working_->count() != static_cast<int>(ids.size())) {
    working_->clear();
    for (int b : ids) {
      auto* item = new QListWidgetItem(working_);
      item->setData(Qt::UserRole, b);
    }
    working_->scrollToTop();
  }
  // The rows stay; only their texts follow the game, so the selection holds.
  for (int i = 0; i < working_->count(); ++i) {
    QListWidgetItem* item = working_->item(i);
    item->setText(
        QString::fromStdString(ComeOutRowText(game_, p, item->data(Qt::UserRole).toInt())));
  }
}
