// frmAutoPlay: each player's standing orders, set for a selection of
// players. The form holds no game state: ShowSettings fills every control
// from the first selected player with FormLoading set, showing a group in
// red with no option set when the selection disagrees on it, and every
// control writes through automation/autoplay_selection.h to all selected
// players. The form is a tool window that can stay open beside the table;
// the controls are built in auto_play_controls.cpp.
// What must stay true:
// - Nothing is written to the game while FormLoading is set.
// - A write goes to every selected seated player and to no one else.
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>
#include <vector>

#include "automation/autoplay_selection.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QWidget;
struct Game;

class AutoPlayForm : public QDialog {
  Q_OBJECT
 public:
  explicit AutoPlayForm(Game& game, QWidget* parent = nullptr);
  // The player list from the seats, then ShowSettings.
  void Refresh();
  // Fills every control from the selected players under FormLoading.
  void ShowSettings();

 signals:
  // A change that may have moved bets on the table.
  void changed();

 private:
  // One control of a single-valued option: its widget and where it shows
  // disagreement.
  struct OptionControl {
    AutoPlayOption option;
    QCheckBox* check = nullptr;     // a switch
    QButtonGroup* group = nullptr;  // or a set of options
    QComboBox* combo = nullptr;     // or a list
    QWidget* caption = nullptr;     // painted red when the selection disagrees
  };
  // A " Same Bet:" or " Bet:" row: slot k of the adjustment tables.
  struct AdjustRow {
    int slot = 0;
    QPushButton* op = nullptr;  // none on the " Bet:" rows
    QLineEdit* amount = nullptr;
    QPushButton* units = nullptr;
  };

  // The switches, the adjustment mode and the four bias lists (auto_play_controls.cpp).
  QWidget* BuildOptions();
  // "Auto-Handle Winning &Bets" or "Auto-Handle Los&ing Bets" with its two adjustment rows.
  QGroupBox* BuildHandling(bool winning);
  // The working-on-the-come-out list and its buttons.
  QWidget* BuildWorkingList();
  void AddCheck(QCheckBox* box, AutoPlayOption option);
  void AddCombo(QComboBox* combo, AutoPlayOption option);
  QButtonGroup* AddGroup(QGroupBox* box, AutoPlayOption option);
  AdjustRow& AddAdjustRow(int slot, bool withOperator);
  // The selection as the form writes to it.
  std::int32_t Selection() const;
  // A control was changed by the user: written to the selection, then shown again.
  void Write(AutoPlayOption option, int value);
  // Shows one adjustment row (captions, colours, grey when the selection
  // disagrees); refillAmount: the amount box is written from the game too.
  void ShowAdjustRow(const AdjustRow& row, bool refillAmount);
  // The working list for the first selected player, keeping selected rows.
  void FillWorkingList();
  // The ids of the selected rows of the working list.
  std::vector<int> SelectedWorkingIds() const;
  // The player list's selection was changed by the user.
  void PlayersClicked();

  Game& game_;
  bool FormLoading = false;
  QListWidget* players_ = nullptr;
  QLabel* heading_ = nullptr;
  QWidget* settings_ = nullptr;  // everything that writes, disabled with nobody selected
  std::vector<OptionControl> options_;
  std::array<AdjustRow, 4> rows_{};  // slots 9..12
  int rowCount_ = 0;
  QListWidget* working_ = nullptr;
};
