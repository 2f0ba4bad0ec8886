#include "table/atm_form.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "engine/bankroll.h"
#include "core/game.h"
#include "core/money.h"
#include "table/numeric_box.h"

namespace {
constexpr int kAmountDecimals = 2;
}

AtmForm::AtmForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmAtm");
  setWindowTitle("ATM");
  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  amount_ = new QLineEdit;
  amount_->setObjectName("txtAddSub");
  new NumericKeyFilter(amount_, kAmountDecimals, false);
  invested_ = new QLabel;
  invested_->setObjectName("lblInvestedBankroll");
  current_ = new QLabel;
  current_->setObjectName("lblCurrentBankroll");
  net_ = new QLabel;
  net_->setObjectName("lblNet");
  auto* form = new QFormLayout;
  form->addRow("Player:", player_);
  form->addRow("Amount:", amount_);
  form->addRow("Amount Invested:", invested_);
  form->addRow("Current Bankroll:", current_);
  form->addRow("Won/Lost:", net_);
  auto* withdraw = new QPushButton("&Withdraw from ATM");
  withdraw->setObjectName("cmdAddSub0");
  auto* deposit = new QPushButton("&Deposit to ATM");
  deposit->setObjectName("cmdAddSub1");
  connect(withdraw, &QPushButton::clicked, this, [this] { Transact(false); });
  connect(deposit, &QPushButton::clicked, this, [this] { Transact(true); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(withdraw);
  buttons->addWidget(deposit);
  auto* outer = new QVBoxLayout(this);
  outer->addLayout(form);
  outer->addLayout(buttons);
  connect(player_, &QComboBox::currentIndexChanged, this, [this] {
    if (filling_) return;
    game_.betting.BankrollTabPlayer = player_->currentData().toInt();
    Refresh();
  });
  connect(amount_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!filling_) game_.betting.AtmAmount = ParseAmount(text.toStdString());
  });
}

void AtmForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
  // With nobody at the table the bankroll tab says so and closes.
  if (game_.PlayerCount == 0) QTimer::singleShot(0, this, [this] {
      OpenBankrollTab(game_);
      close();
    });
}

void AtmForm::Refresh() {
  filling_ = true;
  player_->clear();
  int& chosen = game_.betting.BankrollTabPlayer;
  for (int p = 1; p <= 8; ++p) {
    const std::string& name = game_.PlayerName[static_cast<std::size_t>(p)];
    if (name.empty()) continue;
    player_->addItem(QString::fromStdString(name), p);
    if (chosen < 1 || game_.PlayerName[static_cast<std::size_t>(chosen)].empty()) chosen = p;
  }
  player_->setCurrentIndex(player_->findData(chosen));
  amount_->setText(QString::fromStdString(FormatMoney(game_.betting.AtmAmount)));
  const int p = chosen;
  if (p >= 1 && p <= 8 && !game_.PlayerName[static_cast<std::size_t>(p)].empty()) {
    invested_->setText(QString::fromStdString(FormatMoney(game_.InvestedBankroll(p))));
    current_->setText(QString::fromStdString(FormatMoney(game_.Bet(p, 0))));
    const Currency net = game_.Bet(p, 0) - game_.InvestedBankroll(p);
    net_->setText(QString::fromStdString(FormatMoney(net)));
    net_->setStyleSheet(net < Currency{} ? "color: rgb(255,0,0)" : "color: rgb(0,0,255)");
  }
  filling_ = false;
}

void AtmForm::Transact(bool isDeposit) {
  AtmFromBankrollTab(game_, isDeposit);
  Refresh();
  emit changed();
}
