// frmConfigure, the Bets tab: limits, odds, the barred number, optional
// bets, vigorish and which bets work on the come-out roll.

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/setting_changes.h"
#include "table/configure_form.h"
#include "table/configure_tabs.h"
#include "table/numeric_box.h"
#include "table/yes_no_list.h"

namespace {

using configure_tabs::kAmountDecimals;
using configure_tabs::Money;

constexpr int kFirstWorkingBet = 1, kLastWorkingBet = 84;

// Rows of the working list: bets 1..84 but the Come and Don't Come bets on
// numbers and the line and box bets.
bool InWorkingList(int b) {
  return !((b >= 7 && b <= 12) || (b >= 19 && b <= 24) || (b >= 43 && b <= 48));
}

}  // namespace

QWidget* ConfigureForm::BuildBets() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  auto* left = new QVBoxLayout;
  auto* limits = new QFormLayout;
  TableSettings& r = game_.rules;
  limits->addRow("Minimum bet", AmountBox("txtMinPlacardBet", &r.MinPlacardBet));
  limits->addRow("Maximum bet", AmountBox("txtMaxPlacardBet", &r.MaxPlacardBet));
  limits->addRow("Max prop bet payoff", AmountBox("txtMaxPropBetPayoff", &r.MaxPropBetPayoff));
  limits->addRow("Max odds bet", AmountBox("txtMaxOddsBet", &r.MaxOddsBet));
  QLineEdit* fire = AmountBox("txtMaxFireBet", &r.MaxFireBet);
  auto* fireLabel = new QLabel("Max Fire bet");
  limits->addRow(fireLabel, fire);
  limits->addRow("4 and 10", AmountBox("txtOddsAllowed410", &r.OddsAllowed410));
  limits->addRow("5 and 9", AmountBox("txtOddsAllowed59", &r.OddsAllowed59));
  limits->addRow("6 and 8", AmountBox("txtOddsAllowed68", &r.OddsAllowed68));
  left->addLayout(limits);
  auto* method = new QComboBox;
  method->setObjectName("cmbOddsCalcMethod");
  for (std::string_view c : kOddsMethodCaption)
    method->addItem(QString::fromUtf8(c));
  connect(method, &QComboBox::currentIndexChanged, this, [this](int i) {
    if (!FormLoading && i >= 0) game_.rules.OddsCalcMethod = i;
  });
  left->addWidget(new QLabel("Odds calculation method:"));
  left->addWidget(method);
  auto* need = new QComboBox;
  need->setObjectName("cmbBetNeededToShoot");
  for (std::string_view c : kBetRequirementCaption)
    need->addItem(QString::fromUtf8(c));
  connect(need, &QComboBox::currentIndexChanged, this, [this](int i) {
    if (!FormLoading && i >= 0) game_.rules.BetRequirement = i;
  });
  left->addWidget(need);
  auto* bar = new QGroupBox("Don't Pass / Don't Come");
  auto* bl = new QHBoxLayout(bar);
  for (int i = 0; i < 2; ++i) {
    bar_[i] = new QRadioButton(i == 0 ? " Bar 2" : " Bar 12");
    bar_[i]->setObjectName(QString("optBarDont%1").arg(i));
    connect(bar_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (!on || FormLoading) return;
      game_.rules.BarNumber = i == 0 ? 2 : 12;
      if (game_.platform != nullptr) game_.platform->RequestRedraw(Redraw::Table);
    });
    bl->addWidget(bar_[i]);
  }
  left->addWidget(bar);
  auto* put = new QCheckBox(" Allow Put bets");
  put->setObjectName("chkAllowPutBets");
  connect(put, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.AllowPutBets = on;
  });
  left->addWidget(put);
  struct Switch {
    const char* name;
    const char* caption;
    BetSwitch which;
  };
  for (const Switch& s : {Switch{"chkUseBig68", " Use &Big 6 && 8 bets", BetSwitch::Big68},
                          Switch{"chkUseMidwayBet", " Use &Midway bet", BetSwitch::Midway},
                          Switch{"chkUseFireBet", " Use &Fire bet", BetSwitch::Fire}}) {
    auto* box = new QCheckBox(s.caption);
    box->setObjectName(s.name);
    const BetSwitch which = s.which;
    connect(box, &QCheckBox::toggled, this, [this, box, which, fire, fireLabel](bool on) {
      if (!FormLoading && !ChangeBetSwitch(game_, which, on)) {
        FormLoading = true;  // No: the check goes back, nothing changes
        box->setChecked(!on);
        FormLoading = false;
      }
      if (which == BetSwitch::Fire) {
        fire->setEnabled(game_.rules.UseFireBet);
        fireLabel->setEnabled(game_.rules.UseFireBet);
      }
    });
    left->addWidget(box);
  }
  left->addStretch();
  layout->addLayout(left);

  auto* right = new QVBoxLayout;
  auto* vig = new QGroupBox("Vigorish");
  auto* vl = new QHBoxLayout(vig);
  for (int s = 0; s < 2; ++s) {
    const VigSide side = s == 0 ? VigSide::Buy : VigSide::Lay;
    const QString name = s == 0 ? "Buy" : "Lay";
    auto* half = new QVBoxLayout;
    // The two charge options of a side exclude each other, not the other side's.
    auto* charge = new QButtonGroup(vig);
    vigPct_[s] = new QLineEdit;
    vigPct_[s]->setObjectName(QString("txt%1VigPct").arg(name));
    new NumericKeyFilter(vigPct_[s], kAmountDecimals, false);
    connect(vigPct_[s], &QLineEdit::textChanged, this, [this, s, side] {
      if (FormLoading) return;
      const Currency pct = ParseAmount(vigPct_[s]->text().toStdString());
      if (!ChangeVigRate(game_, side, VigRateFromPercent(pct))) FillVig();
    });
    half->addWidget(new QLabel(name + " vig %"));
    half->addWidget(vigPct_[s]);
    for (int o = 0; o < 2; ++o) {
      QRadioButton*& opt = vigCharge_[static_cast<std::size_t>(2 * s + o)];
      opt = new QRadioButton(o == 0 ? QString(" Charge all %1 bets").arg(name)
                                    : QString(" Charge winning %1 bets only").arg(name));
      opt->setObjectName(QString("opt%1Vig%2").arg(name).arg(o));
      charge->addButton(opt);
      connect(opt, &QRadioButton::toggled, this, [this, side, o](bool on) {
        if (!on || FormLoading) return;
        if (!ChangeVigUpFront(game_, side, o == 0)) FillVig();
      });
      half->addWidget(opt);
    }
    vigRound_[s] = new QComboBox;
    vigRound_[s]->setObjectName(QString("cmbRound%1Vig").arg(name));
    for (std::string_view c : kVigRoundCaption)
      vigRound_[s]->addItem(QString::fromUtf8(c));
    connect(vigRound_[s], &QComboBox::currentIndexChanged, this, [this, side](int i) {
      if (FormLoading || i < 0) return;
      if (!ChangeVigRounding(game_, side, i)) FillVig();
    });
    half->addWidget(vigRound_[s]);
    vl->addLayout(half);
  }
  right->addWidget(vig);

  QGroupBox* work = BuildYesNoList(
      "Working on the come-out roll",
      {"lstWorkOnComeOut", "cmdWorkingYes", "cmdWorkingNo", "cmdWorkingSelectAll",
       "cmdWorkingDefault"},
      [this](int b, YesNoChange what) {
        if (what == YesNoChange::Default)
          RestoreTableWorkingDefault(game_, b);
        else if (what == YesNoChange::Flip)
          SetTableWorkingDefault(game_, b, game_.BetWorkingDefault(0, b) != 0 ? 0 : 1);
        else
          SetTableWorkingDefault(game_, b, what == YesNoChange::Yes ? 1 : 0);
      },
      [this] { FillWorkingList(); }, &working_);
  right->addWidget(work);
  layout->addLayout(right);
  return page;
}

void ConfigureForm::FillVig() {
  const bool was = FormLoading;
  FormLoading = true;
  const TableSettings& r = game_.rules;
  vigPct_[0]->setText(Money(VigPercentFromRate(r.BuyVigRate)));
  vigPct_[1]->setText(Money(VigPercentFromRate(r.LayVigRate)));
  vigCharge_[r.BuyVigUpFront ? 0 : 1]->setChecked(true);
  vigCharge_[r.LayVigUpFront ? 2 : 3]->setChecked(true);
  vigRound_[0]->setCurrentIndex(static_cast<int>(r.BuyVigRound));
  vigRound_[1]->setCurrentIndex(static_cast<int>(r.LayVigRound));
  FormLoading = was;
}

void ConfigureForm::FillWorkingList() {
  std::vector<int> bets;
  for (int b = kFirstWorkingBet; b <= kLastWorkingBet; ++b)
    if (InWorkingList(b)) bets.push_back(b);
  FillYesNoList(working_, bets, [this](int b) { return game_.BetWorkingDefault(0, b) == 1; });
}
