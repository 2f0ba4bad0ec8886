// frmConfigure: the rules of the house. The form holds no game state: each
// control is filled from the game with FormLoading set (its change events
// then do nothing) and every change goes straight to the game through the
// settings procedures (config/settings.h, engine/setting_changes.h,
// config/payoffs.h). Before any change of tab and at close the whole set is
// checked (CheckConfigValues); a fault brings its tab back and keeps the form
// open. Each tab is built and filled in a file of its own (see
// table/configure_tabs.h).
// What must stay true:
// - Nothing is written to the game while FormLoading is set, but the
//   Bankroll tab's chosen seat, which moves to a seated player as the tab
//   shows one.
// - A change the engine refused puts the control back from the game.
#pragma once

#include <QDialog>
#include <array>

#include <optional>

#include "config/payoffs.h"
#include "config/settings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSlider;
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
  // The Checks/Dice tab: denominations, check and dice options, the roll
  // rate (configure_checks_tab.cpp).
  QWidget* BuildChecksDice();
  // The Misc. tab: mouse, printer and the notices (configure_misc_tab.cpp).
  QWidget* BuildMisc();
  // The Misc. tab's generator box: the list, seeding mode, re-seeding and
  // "Seed RNG now" with the last seed.
  QWidget* BuildGeneratorBox();
  // Shows the selected generator, the seeding options and the last seed.
  void FillGenerator();
  // The Bets tab: limits, odds, bar, optional bets, vigorish and the
  // working-on-come-out list (configure_bets_tab.cpp).
  QWidget* BuildBets();
  // The Payoffs tab: the payoff list and its row editor (configure_payoffs_tab.cpp).
  QWidget* BuildPayoffs();
  // The Colors tab: the parts of the layout, the spotlight, the skins
  // (configure_colors_tab.cpp).
  QWidget* BuildColors();
  // Shows the colours of the chosen part, the palette and the skin.
  void FillColors();
  // After any colour changed: the table is drawn again and the tab refilled.
  void ColorsChanged();
  // The Comps tab: rate, base, true dice and the bets figured in comps
  // (configure_comps_tab.cpp).
  QWidget* BuildComps();
  // The Bankroll tab: the chosen player's ATM, negative bankroll rule and
  // start-of-session bankroll (configure_bankroll_tab.cpp).
  QWidget* BuildBankroll();
  // Shows the comp settings and the comp list from the game.
  void FillComps();
  // Shows the bankroll tab's player, amounts and options from the game.
  void FillBankroll();
  // The Sound tab: the sound families, mute switches, volume and tests
  // (configure_sound_tab.cpp).
  QWidget* BuildSound();
  void FillSound();
  // Plays the sound a selection of the Sound tab names, muted or not.
  void TestSound(Long TableSettings::*selection);
  // CheckConfigValues: shows the first fault and brings up its tab.
  bool CheckValues();
  // mnuPrintAdvPay: prints the Payoffs or the Advantage tab, whichever shows.
  void PrintShownTab();
  // A change of tab: checks the whole set first and stays on a fault.
  void TabClicked(int index);
  // Shows the payoff of the chosen row (bet list or Field list) in the edit boxes.
  void FillPayoffRow();
  // Shows each row's payoff at the right of both payoff lists.
  void FillPayoffTexts();
  // The payoff the edit boxes work on: the Field list's row or the bet list's.
  std::optional<PayoffCell> EditedPayoffCell() const;
  // Shows the Buy and Lay vigorish from the game.
  void FillVig();
  // Rebuilds the working list from the game, keeping current row and selection.
  void FillWorkingList();
  // An amount box that writes ParseAmount of its text to `field` at once.
  QLineEdit* AmountBox(const char* name, Currency* field);

  Game& game_;
  bool FormLoading = false;
  bool closing_ = false;
  int shownTab_ = 0;
  RollRateBox rateBox_;
  QTabWidget* tabs_;
  QPushButton* printAdvPay_ = nullptr;
  std::array<QLineEdit*, 5> denomination_{};
  QLineEdit* rollsPerHour_ = nullptr;
  QComboBox* rollsPerTime_ = nullptr;
  std::array<QCheckBox*, 5> notify_{};
  QComboBox* rng_ = nullptr;
  std::array<QRadioButton*, 2> seedMode_{};  // Seed normally, User seed
  QLabel* lastSeed_ = nullptr;
  std::array<QRadioButton*, 2> bar_{};
  std::array<QRadioButton*, 4> vigCharge_{};  // Buy all, Buy winning, Lay all, Lay winning
  std::array<QLineEdit*, 2> vigPct_{};
  std::array<QComboBox*, 2> vigRound_{};
  QListWidget* working_ = nullptr;
  QListWidget* payoffs_ = nullptr;
  QListWidget* fieldList_ = nullptr;
  bool editingField_ = false;  // the edit boxes work on the Field list's row
  QLineEdit* payoffFirst_ = nullptr;
  QLineEdit* payoffFlag_ = nullptr;
  QLineEdit* payoffDen_ = nullptr;
  QLabel* payoffShown_ = nullptr;
  QList<QWidget*> amountBoxes_;  // refilled by Fill
  std::array<QRadioButton*, 3> compBase_{};
  QListWidget* compBets_ = nullptr;
  QComboBox* bankrollPlayer_ = nullptr;
  std::array<QLabel*, 3> bankrollShown_{};  // invested, current, net
  std::array<QRadioButton*, 4> startMode_{};
  QLineEdit* startAmount_ = nullptr;
  int colorPart_ = 0;  // the part of the layout the Colors tab is colouring
  std::array<QSlider*, 3> rgb_{};
  QSlider* volume_ = nullptr;
};
