#include "table/settle_form.h"

#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "core/money.h"
#include "engine/settle.h"
#include "engine/settle_text.h"
#include "table/numeric_box.h"

namespace {
constexpr int kAmountDecimals = 2;
constexpr int kAmountWidth = 80;

const char* ColorOf(AmountColor c) {
  switch (c) {
    case AmountColor::Red:
      return "color: rgb(255,0,0)";
    case AmountColor::Blue:
      return "color: rgb(0,0,255)";
    default:
      return "color: rgb(0,0,0)";
  }
}
}  // namespace

SettleForm::SettleForm(Game* game, SettleDialog& dialog, QWidget* parent)
    : QDialog(parent), game_(game), dialog_(dialog) {
  setObjectName("frmSettleBet");
  setWindowTitle(QString::fromStdString(dialog.caption));
  pressed_ = dialog.defaultButton;

  auto* outer = new QVBoxLayout(this);
  auto* lines = new QGridLayout;
  for (int i = 0; i < dialog.lineCount && i < static_cast<int>(dialog.lines.size()); ++i) {
    auto* label = new QLabel(QString::fromStdString(dialog.lines[static_cast<std::size_t>(i)].label));
    label->setObjectName(QStringLiteral("lblWonBetType%1").arg(i));
    auto* amount =
        new QLabel(QString::fromStdString(dialog.lines[static_cast<std::size_t>(i)].amount));
    amount->setObjectName(QStringLiteral("lblWonBet%1").arg(i));
    amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lines->addWidget(label, i, 0);
    lines->addWidget(amount, i, 1);
  }
  outer->addLayout(lines);

  auto* buttons = new QGridLayout;
  for (int i = 0; i < 7; ++i) {
    const SettleDialogButton& button = dialog.buttons[static_cast<std::size_t>(i)];
    auto* b = new QPushButton(QString::fromStdString(button.caption));
    b->setObjectName(QStringLiteral("cmdHandle%1").arg(i));
    b->setEnabled(button.enabled);
    connect(b, &QPushButton::clicked, this, [this, i] { Press(i); });
    handle_[static_cast<std::size_t>(i)] = b;
    if (i < 5) {
      buttons->addWidget(b, i, 0, 1, 4);
      continue;
    }
    const int row = i - 5;
    SettleDialogRow& r = dialog.rows[static_cast<std::size_t>(row)];
    buttons->addWidget(b, i, 0);
    if (row == 0) {
      operator_ = new QPushButton(QString::fromStdString(r.operatorCaption));
      operator_->setObjectName("cmdMathOperator");
      operator_->setEnabled(r.enabled);
      connect(operator_, &QPushButton::clicked, this, [this] {
        if (game_) StepSettleOperator(*game_, 0);
        ShowRow(0);
      });
      buttons->addWidget(operator_, i, 1);
    }
    auto* box = new QLineEdit(QString::fromStdString(PlainAmount(r.amount1)));
    box->setObjectName(QStringLiteral("txtModifyAmount%1").arg(i));
    box->setFixedWidth(kAmountWidth);
    box->setEnabled(r.enabled);
    new NumericKeyFilter(box, kAmountDecimals, false);
    connect(box, &QLineEdit::textChanged, this, [this, row](const QString& text) {
      dialog_.rows[static_cast<std::size_t>(row)].amount1 = ParseAmount(text.toStdString());
      ShowRow(row);
    });
    amount_[static_cast<std::size_t>(row)] = box;
    buttons->addWidget(box, i, 2);
    auto* units = new QPushButton(QString::fromStdString(r.unitsCaption));
    units->setObjectName(QStringLiteral("cmdUnits%1").arg(i));
    units->setEnabled(r.enabled);
    connect(units, &QPushButton::clicked, this, [this, row] {
      if (game_) StepSettleUnits(*game_, row);
      ShowRow(row);
    });
    units_[static_cast<std::size_t>(row)] = units;
    buttons->addWidget(units, i, 3);
    ShowRow(row);
  }
  outer->addLayout(buttons);

  QPushButton* def = handle_[static_cast<std::size_t>(dialog.defaultButton)];
  def->setDefault(true);
  def->setFocus();
}

void SettleForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // "Snap mouse-pointer": the pointer jumps to the default button.
  QPushButton* def = handle_[static_cast<std::size_t>(dialog_.defaultButton)];
  if (dialog_.snapCursor && def) QCursor::setPos(def->mapToGlobal(def->rect().center()));
}

void SettleForm::ShowRow(int row) {
  const SettleDialogRow& r = dialog_.rows[static_cast<std::size_t>(row)];
  if (row == 0 && operator_) operator_->setText(QString::fromStdString(r.operatorCaption));
  if (QPushButton* u = units_[static_cast<std::size_t>(row)])
    u->setText(QString::fromStdString(r.unitsCaption));
  if (QLineEdit* box = amount_[static_cast<std::size_t>(row)])
    box->setStyleSheet(QString::fromLatin1(ColorOf(SettleAmountColor(r, row))));
}

void SettleForm::Press(int i) {
  pressed_ = i;
  done(i);
}

void SettleForm::reject() {
  // The roll waits in the dialog: Esc and the close box answer nothing.
}
