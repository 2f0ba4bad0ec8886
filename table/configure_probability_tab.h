// frmConfigure, the Probability tab: the switch that puts the skewed dice in
// play, the four ways of showing the table, the matrix of totals, pairs and
// faces, the kind of dice and the file in use, the file commands and the
// axis panel. The tab holds no copy of the table: it fills from the game and
// every control acts through the engine (dice/, cycle/probability_commands.h).
//
// What must stay true:
// - Nothing is written to the game while the tab fills itself.
// - Every control shows the game again after a change, so a refused or
//   undone set reads as the game holds it.
#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class ProbabilityMatrix;
struct Game;

class ProbabilityTab : public QWidget {
  Q_OBJECT
 public:
  explicit ProbabilityTab(Game& game, QWidget* parent = nullptr);
  // Fills every control from the game.
  void Fill();

 protected:
  void showEvent(QShowEvent* event) override;
  // Enter in the tab's boxes acts on the tab and leaves the form open.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildAxisPanel();
  // cmdAxisOK: the skew about the chosen axes, then the panel goes.
  void AcceptAxes();
  // Enter or leaving txtRollsOutOf: N stored (a value not above 0 refused).
  void StoreRollsOutOf();
  // Runs a file command, then shows the table it left.
  void RunFileCommand(bool (*command)(Game&));

  Game& game_;
  bool loading_ = false;
  QCheckBox* useSkewed_ = nullptr;
  std::array<QRadioButton*, 4> mode_{};
  QLineEdit* rollsOutOf_ = nullptr;
  QLabel* kind_ = nullptr;
  QLabel* fileName_ = nullptr;
  ProbabilityMatrix* matrix_ = nullptr;
  QGroupBox* axisPanel_ = nullptr;
  std::array<std::array<QRadioButton*, 3>, 2> axis_{};
  std::array<QLineEdit*, 2> effect_{};
};
