#include "table/configure_form.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "analysis/advantage_print.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/bankroll.h"
#include "table/configure_advantage_tab.h"
#include "table/configure_probability_tab.h"
#include "table/configure_tabs.h"
#include "table/menu_items.h"
#include "table/numeric_box.h"

namespace {

using configure_tabs::kAmountDecimals;
using configure_tabs::Money;

const char* const kTabCaption[10] = {"Checks/&Dice", "&Colors",   "Co&mps", "&Sound",
                                     "M&isc.",       "Ba&nkroll", "&Bets",  "P&ayoffs",
                                     "P&robability", "Ad&vantage"};

// Blue above 0, black at 0, red below.
void ColourByValue(QLineEdit* box) {
  const Currency v = ParseAmount(box->text().toStdString());
  const char* colour = v > Currency{} ? "blue" : v < Currency{} ? "red" : "black";
  box->setStyleSheet(QString("color: %1").arg(colour));
}

// The help page of a tab: the settings of limits and bankrolls, the
// payoffs, the dice's probabilities and the advantage have pages of their
// own; the other tabs open the contents.
int TabHelpTopic(int tab) {
  switch (tab) {
    case kTabBankroll:
    case kTabBets:
      return kHelpLimits;
    case kTabPayoffs:
      return kHelpPayoffs;
    case kTabProbability:
      return kHelpProbabilities;
    case kTabAdvantage:
      return kHelpAdvantage;
    default:
      return kHelpNone;
  }
}

}  // namespace

ConfigureForm::ConfigureForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmConfigure");
  setWindowTitle("Configure");
  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("tabConfigure");
  tabs_->setUsesScrollButtons(false);  // all ten tabs in sight
  QWidget* pages[10] = {BuildChecksDice(),
                        BuildColors(),
                        BuildComps(),
                        BuildSound(),
                        BuildMisc(),
                        BuildBankroll(),
                        BuildBets(),
                        BuildPayoffs(),
                        new ProbabilityTab(game_),
                        new AdvantageTab(game_)};
  for (int i = 0; i < 10; ++i) tabs_->addTab(pages[i], kTabCaption[i]);
  connect(tabs_, &QTabWidget::currentChanged, this, &ConfigureForm::TabClicked);
  HelpKey(this, game_, [this] { return TabHelpTopic(tabs_->currentIndex()); });
  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("cmdOK");
  connect(ok, &QPushButton::clicked, this, [this] { TryClose(); });
  // One print command: the payoffs on the Payoffs tab, the advantage table
  // on the Advantage tab; elsewhere there is nothing to print.
  printAdvPay_ = new QPushButton("&Print ...", this);
  printAdvPay_->setObjectName("mnuPrintAdvPay");
  printAdvPay_->setAutoDefault(false);
  connect(printAdvPay_, &QPushButton::clicked, this, [this] { PrintShownTab(); });
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
    printAdvPay_->setEnabled(index == kTabPayoffs || index == kTabAdvantage);
  });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
  auto* row = new QHBoxLayout;
  row->addWidget(printAdvPay_);
  row->addStretch();
  row->addWidget(ok);
  layout->addLayout(row);
  Fill();
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
  FillGenerator();
  findChild<QComboBox*>("cmbOddsCalcMethod")->setCurrentIndex(static_cast<int>(r.OddsCalcMethod));
  findChild<QComboBox*>("cmbBetNeededToShoot")->setCurrentIndex(static_cast<int>(r.BetRequirement));
  bar_[r.BarNumber == 2 ? 0 : 1]->setChecked(true);
  FillVig();
  FillWorkingList();
  FillColors();
  FillComps();
  FillBankroll();
  if (payoffs_->currentRow() < 0) payoffs_->setCurrentRow(0);
  if (fieldList_->currentRow() < 0) fieldList_->setCurrentRow(0);
  editingField_ = false;  // the form opens on the bet list
  fieldList_->clearSelection();
  payoffs_->currentItem()->setSelected(true);
  FillPayoffRow();
  payoffs_->verticalScrollBar()->setValue(game_.gamefile.PayoffsScroll);
  FillSound();
  const int tab = static_cast<int>(r.ConfigureTab);
  // The bankroll tab has nothing to show with nobody at the table.
  const bool shown = tabs_->isTabEnabled(tab) && (tab != kTabBankroll || game_.PlayerCount > 0);
  shownTab_ = shown ? tab : kTabChecksDice;
  tabs_->setCurrentIndex(shownTab_);
  printAdvPay_->setEnabled(shownTab_ == kTabPayoffs || shownTab_ == kTabAdvantage);
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
  if (fault->tab == kTabPayoffs && fault->fieldRow > 0) {
    fieldList_->setCurrentRow(fault->fieldRow - 1);
    editingField_ = true;
    FillPayoffRow();
  } else if (fault->tab == kTabPayoffs && fault->row > 0) {
    for (int i = 0; i < payoffs_->count(); ++i)
      if (payoffs_->item(i)->data(Qt::UserRole).toInt() == fault->row) payoffs_->setCurrentRow(i);
    editingField_ = false;
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
  if (index == kTabBankroll && !OpenBankrollTab(game_)) {
    FormLoading = true;  // nobody to show: the tab said so, the form stays
    tabs_->setCurrentIndex(shownTab_);
    FormLoading = false;
    return;
  }
  shownTab_ = index;
  game_.rules.ConfigureTab = index;
}

void ConfigureForm::PrintShownTab() {
  if (game_.platform == nullptr || !CheckValues()) return;
  const CalendarDate today = game_.platform->Today();
  const std::string& file = game_.gamefile.GameFilePath;
  if (tabs_->currentIndex() == kTabAdvantage)
    game_.platform->Print(AdvantagePrintout(game_, today, file));
  else if (tabs_->currentIndex() == kTabPayoffs)
    game_.platform->Print(PayoffsPrintout(game_, today, file));
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
