#include "table/configure_form.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/setting_changes.h"
#include "table/numeric_box.h"

namespace {

constexpr int kAmountDecimals = 2;
constexpr int kRateDecimals = 4;
constexpr int kFirstWorkingBet = 1, kLastWorkingBet = 84;

const char* const kTabCaption[10] = {"Checks/&Dice", "&Colors",   "Co&mps", "&Sound",
                                     "M&isc.",       "Ba&nkroll", "&Bets",  "P&ayoffs",
                                     "P&robability", "Ad&vantage"};
const char* const kNoticeCaption[5] = {" Actions not allowed", " Betting limits reached",
                                       " Charges and/or change", " Auto-Bet messages normal play",
                                       " Auto-Bet messages Hyper-Drive"};

QString Money(Currency a) { return QString::fromStdString(FormatMoney(a)); }

// Blue above 0, black at 0, red below.
void ColourByValue(QLineEdit* box) {
  const Currency v = ParseAmount(box->text().toStdString());
  const char* colour = v > Currency{} ? "blue" : v < Currency{} ? "red" : "black";
  box->setStyleSheet(QString("color: %1").arg(colour));
}

// Rows of the working list: bets 1..84 but the Come and Don't Come bets on
// numbers and the line and box bets.
bool InWorkingList(int b) {
  return !((b >= 7 && b <= 12) || (b >= 19 && b <= 24) || (b >= 43 && b <= 48));
}

}  // namespace

ConfigureForm::ConfigureForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmConfigure");
  setWindowTitle("Configure");
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("tabConfigure");
  tabs_->setUsesScrollButtons(false);  // all ten tabs in sight
  const QString unbuilt = "This tab is not built yet.";
  QWidget* pages[10] = {BuildChecksDice(),
                        BuildUnbuilt("Colors"),
                        BuildUnbuilt("Comps"),
                        BuildUnbuilt("Sound"),
                        BuildMisc(),
                        BuildUnbuilt("Bankroll"),
                        BuildBets(),
                        BuildPayoffs(),
                        BuildUnbuilt("Probability"),
                        BuildUnbuilt("Advantage")};
  for (int i = 0; i < 10; ++i) tabs_->addTab(pages[i], kTabCaption[i]);
  for (int i : {kTabColors, kTabComps, kTabSound, kTabBankroll, kTabProbability, kTabAdvantage}) {
    tabs_->setTabEnabled(i, false);
    tabs_->setTabToolTip(i, unbuilt);
  }
  connect(tabs_, &QTabWidget::currentChanged, this, &ConfigureForm::TabClicked);
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("cmdOK");
  connect(ok, &QPushButton::clicked, this, [this] { TryClose(); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  layout->addLayout(row);
  Fill();
}

QWidget* ConfigureForm::BuildUnbuilt(const QString& what) {
  auto* page = new QLabel(QString("The %1 tab is not built yet.").arg(what));
  page->setAlignment(Qt::AlignCenter);
  return page;
}

QLineEdit* ConfigureForm::AmountBox(const char* name, Currency* field) {
  auto* box = new QLineEdit;
  box->setObjectName(name);
  box->setProperty("amount", QVariant::fromValue<void*>(field));
  new NumericKeyFilter(box, kAmountDecimals, false);
  connect(box, &QLineEdit::textChanged, this, [this, box, field] {
    ColourByValue(box);
    if (FormLoading) return;
    *field = ParseAmount(box->text().toStdString());
  });
  amountBoxes_.push_back(box);
  return box;
}

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
    rollsPerTime_->addItem(QString::fromUtf8(r.caption.data(), static_cast<int>(r.caption.size())),
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

QWidget* ConfigureForm::BuildMisc() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* snap = new QCheckBox(" Snap mouse-pointer");
  snap->setObjectName("chkSnapMouse");
  connect(snap, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.SnapCursorToButton = on;
  });
  auto* colour = new QCheckBox(" Color printer");
  colour->setObjectName("chkColorPrint");
  connect(colour, &QCheckBox::toggled, this, [this](bool on) {
    if (FormLoading) return;
    game_.rules.ColorPrint = on;
    game_.rules.PrintColors = on ? std::array<Long, 3>{9, 12, 13} : std::array<Long, 3>{0, 0, 0};
  });
  layout->addWidget(snap);
  layout->addWidget(colour);
  auto* notices = new QGroupBox("Notices");
  auto* nl = new QVBoxLayout(notices);
  for (int i = 0; i < 5; ++i) {
    notify_[i] = new QCheckBox(kNoticeCaption[i]);
    notify_[i]->setObjectName(QString("chkNotify%1").arg(i));
    connect(notify_[i], &QCheckBox::toggled, this, [this] {
      if (FormLoading) return;
      bool checked[5];
      for (int k = 0; k < 5; ++k) checked[k] = notify_[k]->isChecked();
      game_.rules.NoticeFlags = NoticeFlagsFromChecks(checked);
    });
    nl->addWidget(notify_[i]);
  }
  layout->addWidget(notices);
  auto* rng = new QLabel("Random Number Generator: not built on this form yet.");
  rng->setEnabled(false);
  layout->addWidget(rng);
  layout->addStretch();
  return page;
}

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
    method->addItem(QString::fromUtf8(c.data(), static_cast<int>(c.size())));
  connect(method, &QComboBox::currentIndexChanged, this, [this](int i) {
    if (!FormLoading && i >= 0) game_.rules.OddsCalcMethod = i;
  });
  left->addWidget(new QLabel("Odds calculation method:"));
  left->addWidget(method);
  auto* need = new QComboBox;
  need->setObjectName("cmbBetNeededToShoot");
  for (std::string_view c : kBetRequirementCaption)
    need->addItem(QString::fromUtf8(c.data(), static_cast<int>(c.size())));
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
      vigRound_[s]->addItem(QString::fromUtf8(c.data(), static_cast<int>(c.size())));
    connect(vigRound_[s], &QComboBox::currentIndexChanged, this, [this, side](int i) {
      if (FormLoading || i < 0) return;
      if (!ChangeVigRounding(game_, side, i)) FillVig();
    });
    half->addWidget(vigRound_[s]);
    vl->addLayout(half);
  }
  right->addWidget(vig);

  auto* work = new QGroupBox("Working on the come-out roll");
  auto* wl = new QVBoxLayout(work);
  working_ = new QListWidget;
  working_->setObjectName("lstWorkOnComeOut");
  working_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  wl->addWidget(working_);
  auto setSelected = [this](int mode) {  // 0 No, 1 Yes, 2 flip, 3 default
    for (QListWidgetItem* item : working_->selectedItems()) {
      const int b = item->data(Qt::UserRole).toInt();
      if (mode == 3)
        RestoreTableWorkingDefault(game_, b);
      else
        SetTableWorkingDefault(game_, b,
                               mode == 2 ? (game_.BetWorkingDefault(0, b) != 0 ? 0 : 1) : mode);
    }
    FillWorkingList();
  };
  connect(working_, &QListWidget::itemDoubleClicked, this, [setSelected] { setSelected(2); });
  auto* buttons = new QHBoxLayout;
  struct Button {
    const char* name;
    const char* caption;
    int mode;
  };
  for (const Button& b : {Button{"cmdWorkingYes", "&Yes", 1}, Button{"cmdWorkingNo", "&No", 0},
                          Button{"cmdWorkingSelectAll", "Select &All", -1},
                          Button{"cmdWorkingDefault", "De&fault", 3}}) {
    auto* button = new QPushButton(b.caption);
    button->setObjectName(b.name);
    button->setAutoDefault(false);
    const int mode = b.mode;
    connect(button, &QPushButton::clicked, this, [this, setSelected, mode] {
      if (mode < 0)
        working_->selectAll();
      else
        setSelected(mode);
    });
    buttons->addWidget(button);
  }
  wl->addLayout(buttons);
  right->addWidget(work);
  layout->addLayout(right);
  return page;
}

QWidget* ConfigureForm::BuildPayoffs() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  payoffs_ = new QListWidget;
  payoffs_->setObjectName("lstPayoffs");
  for (int i = 0; i < kPayoffListRows; ++i) {
    const int code = PayoffRowCode(i);
    auto* item = new QListWidgetItem(QString::fromStdString(PayoffRowLabel(code)), payoffs_);
    item->setData(Qt::UserRole, code);
    if (IsPayoffHeading(code)) {
      QFont f = item->font();
      f.setBold(true);
      item->setFont(f);
    }
  }
  layout->addWidget(payoffs_, 1);
  auto* right = new QVBoxLayout;
  payoffShown_ = new QLabel;
  payoffShown_->setObjectName("lblPayoff");
  right->addWidget(payoffShown_);
  auto* edit = new QHBoxLayout;
  payoffFirst_ = new QLineEdit;
  payoffFirst_->setObjectName("txtPayoff0");
  new NumericKeyFilter(payoffFirst_, kAmountDecimals, true);
  payoffFlag_ = new QLineEdit;
  payoffFlag_->setObjectName("txtPayoff1");
  payoffFlag_->setMaximumWidth(40);
  payoffDen_ = new QLineEdit;
  payoffDen_->setObjectName("txtPayoff2");
  new NumericKeyFilter(payoffDen_, kAmountDecimals, false);
  edit->addWidget(payoffFirst_);
  edit->addWidget(payoffFlag_);
  edit->addWidget(payoffDen_);
  right->addLayout(edit);
  auto cell = [this]() -> std::optional<PayoffCell> {
    QListWidgetItem* item = payoffs_->currentItem();
    return item ? PayoffCellOf(item->data(Qt::UserRole).toInt()) : std::nullopt;
  };
  connect(payoffs_, &QListWidget::currentRowChanged, this, [this] { FillPayoffRow(); });
  connect(payoffFirst_, &QLineEdit::textChanged, this, [this, cell] {
    if (auto c = cell(); c && !FormLoading)
      EnterPayoffFirst(game_, *c, ParseAmount(payoffFirst_->text().toStdString()));
  });
  connect(payoffDen_, &QLineEdit::editingFinished, this, [this, cell] {
    auto c = cell();
    if (!c || FormLoading) return;
    // A denominator of 0 is refused: the box shows the game's value again.
    EnterPayoffDenominator(game_, *c, ParseAmount(payoffDen_->text().toStdString()));
    FillPayoffRow();
  });
  connect(payoffFlag_, &QLineEdit::textEdited, this, [this, cell](const QString& text) {
    auto c = cell();
    if (c && !FormLoading && !text.isEmpty()) PayoffFlagKey(game_, *c, text.back().toLatin1());
    FillPayoffRow();
  });
  auto* presets = new QComboBox;
  presets->setObjectName("cmbFieldPreset");
  presets->addItem("Set Field payoffs to");
  for (std::string_view c : kFieldPresetCaption)
    presets->addItem(QString::fromUtf8(c.data(), static_cast<int>(c.size())));
  connect(presets, &QComboBox::activated, this, [this, presets](int i) {
    if (i <= 0) return;
    SetFieldPreset(game_, static_cast<FieldPreset>(i - 1));
    presets->setCurrentIndex(0);
    FillPayoffRow();
  });
  right->addWidget(presets);
  auto* restore = new QPushButton("Restore default payoffs");
  restore->setObjectName("cmdRestorePayoffs");
  restore->setAutoDefault(false);
  connect(restore, &QPushButton::clicked, this, [this] {
    if (RestoreDefaultPayoffs(game_)) Fill();
  });
  right->addWidget(restore);
  right->addStretch();
  layout->addLayout(right, 1);
  return page;
}

void ConfigureForm::FillPayoffRow() {
  const bool was = FormLoading;
  FormLoading = true;
  QListWidgetItem* item = payoffs_->currentItem();
  const auto c = item ? PayoffCellOf(item->data(Qt::UserRole).toInt()) : std::nullopt;
  for (QLineEdit* box : {payoffFirst_, payoffFlag_, payoffDen_}) box->setEnabled(c.has_value());
  if (c) {
    const bool to = PayoffValue(game_, *c, 2) != Currency{};
    payoffFirst_->setText(Money(PayoffShownFirst(game_, *c)));
    payoffFlag_->setText(to ? "to" : "for");
    payoffDen_->setText(Money(PayoffValue(game_, *c, 3)));
    payoffShown_->setText(item->text());
  } else {
    for (QLineEdit* box : {payoffFirst_, payoffFlag_, payoffDen_}) box->clear();
    payoffShown_->setText(item ? item->text() : QString());
  }
  FormLoading = was;
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
  const int keep = working_->currentRow();
  QList<int> selected;
  for (QListWidgetItem* item : working_->selectedItems()) selected.push_back(working_->row(item));
  working_->clear();
  for (int b = kFirstWorkingBet; b <= kLastWorkingBet; ++b) {
    if (!InWorkingList(b)) continue;
    const std::string_view name = BetName(b);
    auto* item = new QListWidgetItem(QString::fromUtf8(name.data(), static_cast<int>(name.size())) +
                                         (game_.BetWorkingDefault(0, b) == 1 ? " - Yes" : " - No"),
                                     working_);
    item->setData(Qt::UserRole, b);
  }
  working_->setCurrentRow(keep);
  for (int row : selected) working_->item(row)->setSelected(true);
  if (keep < 0) working_->scrollToTop();
}

void ConfigureForm::Fill() {
  FormLoading = true;
  for (QWidget* w : amountBoxes_) {
    auto* box = static_cast<QLineEdit*>(w);
    box->setText(Money(*static_cast<Currency*>(box->property("amount").value<void*>())));
  }
  const TableSettings& r = game_.rules;
  auto check = [this](const char* name, bool on) {
    if (auto* box = findChild<QCheckBox*>(name)) box->setChecked(on);
  };
  check("chkAutoArrangeChips", r.AutoArrangeChecks);
  check("chkUseCentsSymbol", r.UseCentsSymbol);
  check("chkSnapMouse", r.SnapCursorToButton);
  check("chkColorPrint", r.ColorPrint);
  check("chkAllowPutBets", r.AllowPutBets);
  check("chkUseBig68", r.UseBig68);
  check("chkUseMidwayBet", r.UseMidwayBet);
  check("chkUseFireBet", r.UseFireBet);
  findChild<QLineEdit*>("txtMaxFireBet")->setEnabled(r.UseFireBet);
  if (auto* opt = findChild<QRadioButton*>(QString("optDiceAction%1").arg(r.DiceAction)))
    opt->setChecked(true);
  rateBox_ = RollRateBox{};
  rateBox_.row = static_cast<int>(r.RollsPerTimeRow);
  rollsPerTime_->setCurrentIndex(rateBox_.row);
  rollsPerHour_->setText(QString::fromStdString(RollRateBoxText(r.RollsPerHour, rateBox_.row)));
  rateBox_.text = rollsPerHour_->text().toStdString();
  for (int i = 0; i < 5; ++i) notify_[i]->setChecked((r.NoticeFlags & (Long{1} << i)) != 0);
  findChild<QComboBox*>("cmbOddsCalcMethod")->setCurrentIndex(static_cast<int>(r.OddsCalcMethod));
  findChild<QComboBox*>("cmbBetNeededToShoot")->setCurrentIndex(static_cast<int>(r.BetRequirement));
  bar_[r.BarNumber == 2 ? 0 : 1]->setChecked(true);
  FillVig();
  FillWorkingList();
  if (payoffs_->currentRow() < 0) payoffs_->setCurrentRow(0);
  FillPayoffRow();
  const int tab = static_cast<int>(r.ConfigureTab);
  shownTab_ = tabs_->isTabEnabled(tab) ? tab : kTabChecksDice;
  tabs_->setCurrentIndex(shownTab_);
  FormLoading = false;
}

bool ConfigureForm::CheckValues() {
  const auto fault = FindConfigFault(game_, &rateBox_);
  if (!fault) return true;
  ShowNotice(game_, fault->text, fault->title, kHelpLimits, fault->style);
  // The form returns to the fault: its tab, and on the Payoffs tab its row.
  const bool was = FormLoading;
  FormLoading = true;
  shownTab_ = fault->tab;
  tabs_->setCurrentIndex(fault->tab);
  if (fault->tab == kTabPayoffs && fault->row > 0) {
    for (int i = 0; i < payoffs_->count(); ++i)
      if (payoffs_->item(i)->data(Qt::UserRole).toInt() == fault->row) payoffs_->setCurrentRow(i);
    FillPayoffRow();
  }
  FormLoading = was;
  return false;
}

void ConfigureForm::TabClicked(int index) {
  if (FormLoading) return;
  // The whole set is checked before the tab changes; on a fault the form
  // stays where the fault is.
  if (!CheckValues()) return;
  shownTab_ = index;
  game_.rules.ConfigureTab = index;
}

bool ConfigureForm::TryClose() {
  if (!CheckValues()) return false;
  ApplyConfigureClose(game_);
  game_.roll.SessionDirty = true;
  closing_ = true;
  QDialog::done(QDialog::Accepted);
  closing_ = false;
  return true;
}

void ConfigureForm::done(int result) {
  if (closing_) {
    QDialog::done(result);
    return;
  }
  TryClose();
}

void ConfigureForm::closeEvent(QCloseEvent* event) {
  if (closing_ || !isVisible()) {
    event->accept();
    return;
  }
  if (TryClose())
    event->accept();
  else
    event->ignore();
}
