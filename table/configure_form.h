// frmConfigure: the rules of the house. The form holds no game state: each
// control is filled from the game with FormLoading set (its change events
// then do nothing) and every change goes straight to the game through the
// settings procedures (config/settings.h, engine/setting_changes.h,
// config/payoffs.h). Before any change of tab and at close the whole set is
// checked (CheckConfigValues); a fault brings its tab back and keeps the form
// open.
// What must stay true:
// - Nothing is written to the game while FormLoading is set.
// - A change the engine refused puts the control back from the game.
#pragma once

#include <QDialog>
#include <array>

#include "config/settings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QTabWidget;
struct Game;

class ConfigureForm : public QDialog {
  Q_OBJECT
 public:
  explicit ConfigureForm(Game& game, QWidget* parent = nullptr);
  // Fills every control from the game under FormLoading.
  void Fill();
  QTabWidget* Tabs() const { return tabs_; }
  // The checks and the closing steps; false (form stays) on a fault.
  bool TryClose();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void done(int result) override;

 private:
  QWidget* BuildChecksDice();
  QWidget* BuildMisc();
  QWidget* BuildBets();
  QWidget* BuildPayoffs();
  QWidget* BuildUnbuilt(const QString& what);
  // CheckConfigValues: shows the first fault and brings up its tab.
  bool CheckValues();
  void TabClicked(int index);
  void FillPayoffRow();
  void FillVig();
  void FillWorkingList();
  // An amount box that writes ParseAmount of its text to `field` at once.
  QLineEdit* AmountBox(const char* name, Currency* field);

  Game& game_;
  bool FormLoading = false;
  bool closing_ = false;
  int shownTab_ = 0;
  RollRateBox rateBox_;
  QTabWidget* tabs_;
  std::array<QLineEdit*, 5> denomination_{};
  QLineEdit* rollsPerHour_ = nullptr;
  QComboBox* rollsPerTime_ = nullptr;
  std::array<QCheckBox*, 5> notify_{};
  std::array<QRadioButton*, 2> bar_{};
  std::array<QRadioButton*, 4> vigCharge_{};  // Buy all, Buy winning, Lay all, Lay winning
  std::array<QLineEdit*, 2> vigPct_{};
  std::array<QComboBox*, 2> vigRound_{};
  QListWidget* working_ = nullptr;
  QListWidget* payoffs_ = nullptr;
  QLineEdit* payoffFirst_ = nullptr;
  QLineEdit* payoffFlag_ = nullptr;
  QLineEdit* payoffDen_ = nullptr;
  QLabel* payoffShown_ = nullptr;
  QList<QWidget*> amountBoxes_;  // refilled by Fill
};
