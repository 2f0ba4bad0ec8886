// frmSettleBet: the settle dialog, laid out from the SettleDialog data the
// engine built (caption, up to five lines, seven buttons, the two
// adjustment rows). The rows' operator and units buttons step through the
// engine's own procedures; the amounts typed are written back into the
// data, and the index of the pressed button is the dialog's result.
#pragma once

#include <QDialog>
#include <array>

#include "core/settle_dialog.h"

class QLineEdit;
class QPushButton;
struct Game;

class SettleForm : public QDialog {
  Q_OBJECT
 public:
  SettleForm(Game* game, SettleDialog& dialog, QWidget* parent = nullptr);

  // The button pressed, 0..6 (the default one if the dialog was closed otherwise).
  int Pressed() const { return pressed_; }
  QPushButton* Handle(int i) const { return handle_[static_cast<std::size_t>(i)]; }
  QLineEdit* Amount(int row) const { return amount_[static_cast<std::size_t>(row)]; }
  QPushButton* OperatorButton() const { return operator_; }
  QPushButton* UnitsButton(int row) const { return units_[static_cast<std::size_t>(row)]; }

 protected:
  void reject() override;
  void showEvent(QShowEvent* event) override;

 private:
  void Press(int i);
  void ShowRow(int row);

  Game* game_;
  SettleDialog& dialog_;
  int pressed_ = 0;
  std::array<QPushButton*, 7> handle_{};
  std::array<QLineEdit*, 2> amount_{};
  std::array<QPushButton*, 2> units_{};
  QPushButton* operator_ = nullptr;
};
