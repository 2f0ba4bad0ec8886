// The ATM of the bankroll tab: a player, the amount of a transaction, the
// withdraw and deposit buttons (cmdAddSub), and the player's invested and
// current bankroll with the net won or lost.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct Game;

class AtmForm : public QDialog {
  Q_OBJECT
 public:
  explicit AtmForm(Game& game, QWidget* parent = nullptr);
  // Refills the player list and the labels from the game.
  void Refresh();
  // A press of cmdAddSub: a withdrawal from the ATM, or a deposit to it.
  void Transact(bool isDeposit);

 signals:
  void changed();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  Game& game_;
  QComboBox* player_;
  QLineEdit* amount_;
  QLabel* invested_;
  QLabel* current_;
  QLabel* net_;
  bool filling_ = false;
};
