// frmConfigure, the Checks/Dice tab: check denominations, check and dice
// options and the sim roll rate.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "core/platform.h"
#include "table/configure_form.h"
#include "table/numeric_box.h"

namespace {

constexpr int kRateDecimals = 4;

}  // namespace

QWidget* ConfigureForm::BuildChecksDice() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  auto* denoms = new QGroupBox("Check Denominations");
  auto* dl = new QVBoxLayout(denoms);
  for (int i = 0; i < 5; ++i) {
    denomination_[i] = AmountBox("txtDenomination", &game_.CheckValue(i + 1));
    dl->addWidget(denomination_[i]);
  }
  dl->addStretch();  // the boxes sit together at the top
  denoms->setMaximumWidth(200);
  layout->addWidget(denoms);
  auto* right = new QVBoxLayout;
  auto* arrange = new QCheckBox(" Auto-arrange checks");
  arrange->setObjectName("chkAutoArrangeChips");
  connect(arrange, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.AutoArrangeChecks = on;
  });
  auto* cents = new QCheckBox(QString(" Use %1 symbol for checks < 1").arg(QChar(0x00A2)));
  cents->setObjectName("chkUseCentsSymbol");
  connect(cents, &QCheckBox::toggled, this, [this](bool on) {
    if (FormLoading) return;
    game_.rules.UseCentsSymbol = on;
    if (game_.platform != nullptr) game_.platform->RequestRedraw(Redraw::Table);
  });
  right->addWidget(arrange);
  right->addWidget(cents);
  auto* dice = new QGroupBox(" Dice Action: ");
  auto* dal = new QHBoxLayout(dice);
  const char* const action[3] = {" Normal", " Stationary", " Stationary Ctr"};
  for (int i = 0; i < 3; ++i) {
    auto* opt = new QRadioButton(action[i]);
    opt->setObjectName(QString("optDiceAction%1").arg(i));
    connect(opt, &QRadioButton::toggled, this, [this, i](bool on) {
      if (on && !FormLoading) game_.rules.DiceAction = i;
    });
    dal->addWidget(opt);
  }
  right->addWidget(dice);
  auto* rate = new QGroupBox(" Sim roll rate: ");
  auto* rl = new QHBoxLayout(rate);
  rollsPerHour_ = new QLineEdit;
  rollsPerHour_->setObjectName("txtRollsPerHour");
  new NumericKeyFilter(rollsPerHour_, kRateDecimals, false);
  // The key filter writes the box with setText, so the mark follows textChanged.
  connect(rollsPerHour_, &QLineEdit::textChanged, this, [this] {
    if (FormLoading) return;
    rateBox_.text = rollsPerHour_->text().toStdString();
    rateBox_.changed = true;
  });
  rollsPerTime_ = new QComboBox;
  rollsPerTime_->setObjectName("cmbRollsPerTime");
  for (const RollRateRow& r : kRollRateRow)
    rollsPerTime_->addItem(QString::fromUtf8(r.caption),
                           r.factor);
  connect(rollsPerTime_, &QComboBox::currentIndexChanged, this, [this](int row) {
    if (FormLoading || row < 0) return;
    // The box is read in its old row first; a refused value keeps the old row.
    if (rateBox_.changed && !CheckValues()) {
      FormLoading = true;
      rollsPerTime_->setCurrentIndex(rateBox_.row);
      FormLoading = false;
      return;
    }
    game_.rules.RollsPerTimeRow = row;
    rateBox_.row = row;
    FormLoading = true;
    rollsPerHour_->setText(QString::fromStdString(RollRateBoxText(game_.rules.RollsPerHour, row)));
    FormLoading = false;
    rateBox_.text = rollsPerHour_->text().toStdString();
  });
  rl->addWidget(rollsPerHour_);
  rl->addWidget(rollsPerTime_);
  right->addWidget(rate);
  right->addStretch();
  layout->addLayout(right);
  return page;
}
