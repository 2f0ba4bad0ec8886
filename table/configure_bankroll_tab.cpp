// frmConfigure, the Bankroll tab: for the player chosen in cmbPlayer, the ATM
// with the invested and current bankroll and the net, the rule of a negative
// bankroll, and how the bankroll is set at a new session.

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/bankroll.h"
#include "engine/players.h"
#include "table/configure_form.h"
#include "table/configure_tabs.h"
#include "table/numeric_box.h"
#include "table/player_list.h"

namespace {

using configure_tabs::kAmountDecimals;
using configure_tabs::Money;

const char* const kStartCaption[4] = {" Start bankroll with:", " Prompt for starting bankroll",
                                      " Carry forward bankroll from previous session",
                                      " Carry forward bankroll and net from previous session"};

}  // namespace

QWidget* ConfigureForm::BuildBankroll() {
  auto* page = new QWidget;
  auto* layout = new QHBoxLayout(page);
  auto* left = new QVBoxLayout;
  bankrollPlayer_ = new QComboBox;
  bankrollPlayer_->setObjectName("cmbPlayer");
  connect(bankrollPlayer_, &QComboBox::currentIndexChanged, this, [this] {
    if (FormLoading) return;
    game_.betting.BankrollTabPlayer = bankrollPlayer_->currentData().toInt();
    FillBankroll();
  });
  auto* who = new QFormLayout;
  who->addRow("Player:", bankrollPlayer_);
  left->addLayout(who);

  auto* atm = new QGroupBox("ATM");
  auto* al = new QFormLayout(atm);
  al->addRow("Amount:", AmountBox("txtAddSub", &game_.betting.AtmAmount));
  auto* buttons = new QHBoxLayout;
  for (int i = 0; i < 2; ++i) {
    auto* button = new QPushButton(i == 0 ? "Withdraw from ATM" : "Deposit to ATM");
    button->setObjectName(QString("cmdAddSub%1").arg(i));
    button->setAutoDefault(false);
    const bool isDeposit = i == 1;
    connect(button, &QPushButton::clicked, this, [this, isDeposit] {
      AtmFromBankrollTab(game_, isDeposit);
      FillBankroll();
    });
    buttons->addWidget(button);
  }
  al->addRow(buttons);
  const char* const shownName[3] = {"lblInvestedBankroll", "lblCurrentBankroll", "lblNet"};
  const char* const shownCaption[3] = {"Amount Invested:", "Current Bankroll:", "Won/Lost:"};
  for (int i = 0; i < 3; ++i) {
    bankrollShown_[i] = new QLabel;
    bankrollShown_[i]->setObjectName(shownName[i]);
    al->addRow(shownCaption[i], bankrollShown_[i]);
  }
  left->addWidget(atm);
  auto* negative = new QCheckBox(" Allow negative bankroll amounts");
  negative->setObjectName("chkAllowNegBankroll");
  connect(negative, &QCheckBox::toggled, this, [this, negative](bool on) {
    if (FormLoading) return;
    const bool now = ChangeAllowNegBankroll(game_, game_.betting.BankrollTabPlayer, on);
    if (now == on) return;
    FormLoading = true;  // refused: the box stays as the game says
    negative->setChecked(now);
    FormLoading = false;
  });
  left->addWidget(negative);
  left->addStretch();
  layout->addLayout(left);

  auto* start = new QGroupBox("At a new session:");
  auto* sl = new QVBoxLayout(start);
  startAmount_ = new QLineEdit;
  startAmount_->setObjectName("txtBankrollInitAmount");
  new NumericKeyFilter(startAmount_, kAmountDecimals, false);
  connect(startAmount_, &QLineEdit::textChanged, this, [this] {
    const int p = game_.betting.BankrollTabPlayer;
    if (FormLoading || !Seated(game_, p)) return;
    game_.betting.StartBankroll(p) = ParseAmount(startAmount_->text().toStdString());
  });
  for (int i = 0; i < 4; ++i) {
    startMode_[i] = new QRadioButton(kStartCaption[i]);
    startMode_[i]->setObjectName(QString("optBankrollInitType%1").arg(i));
    connect(startMode_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      const int p = game_.betting.BankrollTabPlayer;
      if (!on || FormLoading || !Seated(game_, p)) return;
      game_.betting.StartBankrollMode(p) = i;
      startAmount_->setEnabled(i == kStartWithAmount || i == kStartPrompt);
    });
    if (i == 0) {
      auto* row = new QHBoxLayout;
      row->addWidget(startMode_[i]);
      row->addWidget(startAmount_);
      sl->addLayout(row);
    } else {
      sl->addWidget(startMode_[i]);
    }
  }
  sl->addStretch();
  layout->addWidget(start);
  return page;
}

void ConfigureForm::FillBankroll() {
  const bool was = FormLoading;
  FormLoading = true;
  const int p = FillPlayerList(bankrollPlayer_, game_, game_.betting.BankrollTabPlayer);
  const bool any = p != 0;
  for (QWidget* w : tabs_->widget(kTabBankroll)->findChildren<QWidget*>())
    if (w != bankrollPlayer_) w->setEnabled(any);
  if (any) {
    const BettingState& b = game_.betting;
    bankrollShown_[0]->setText(Money(game_.InvestedBankroll(p)));
    bankrollShown_[1]->setText(Money(game_.Bet(p, bet::kBankroll)));
    const Currency net = game_.Bet(p, bet::kBankroll) - game_.InvestedBankroll(p);
    bankrollShown_[2]->setText(Money(net));
    bankrollShown_[2]->setStyleSheet(net < Currency{} ? "color: rgb(255,0,0)"
                                                      : "color: rgb(0,0,255)");
    findChild<QCheckBox*>("chkAllowNegBankroll")->setChecked(b.AllowNegBankroll(p));
    const int mode = std::clamp<int>(b.StartBankrollMode(p), 0, 3);
    startMode_[mode]->setChecked(true);
    startAmount_->setText(Money(b.StartBankroll(p)));
    startAmount_->setEnabled(mode == kStartWithAmount || mode == kStartPrompt);
  } else {
    for (QLabel* label : bankrollShown_) label->clear();
  }
  FormLoading = was;
}
