// frmRYON, the roll pad ("Dice Rolls"): the user clicks a cell to fix the
// next roll's dice and roll at once. The cells, what each stands for and
// what a click picks come from dice/roll_pad.h; the click itself (the
// questions during a run, the roll) is cycle/roll_pad_click.h. The form
// only draws the cells of the game's display kind, shows the roll counter
// and the buttons the options ask for, and keeps its options in the game.
//
// What must stay true: a cell is drawn where PadCellAt says and clicked
// through PadClick with the same size, so what the user sees is what rolls.
#pragma once

#include <QDialog>
#include <cstdint>

class QMenu;
class QPushButton;
class QScrollBar;
struct Game;

// The area of the cells with the counter strip above them.
class PadWidget : public QWidget {
  Q_OBJECT
 public:
  explicit PadWidget(Game& game, QWidget* parent = nullptr);

 signals:
  void pressed(Qt::MouseButton button, QPoint at, QPoint global);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  Game& game_;
};

class RollPadForm : public QDialog {
  Q_OBJECT
 public:
  explicit RollPadForm(Game& game, QWidget* parent = nullptr);
  // Repaints the cells and shows the counter and buttons by the options.
  void Refresh();
  // mnuDisplay: the menu a right click opens.
  QMenu* DisplayMenu() const { return display_; }
  PadWidget* Pad() const { return pad_; }

 signals:
  // A roll went off from the pad: the table shows the new dice.
  void rolled();
  // A key pressed on the pad, for the table's own key handler.
  void tableKey(int key, Qt::KeyboardModifiers mods);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildMenu();
  void Click(Qt::MouseButton button, QPoint at, QPoint global);
  void RandomRoll();
  void ToggleHyperDrive();
  // Sets or clears an option bit of PadOptions.
  void SetOption(std::int32_t bit, bool on);

  Game& game_;
  PadWidget* pad_;
  QMenu* display_ = nullptr;
  QPushButton* random_;
  QPushButton* hyperDrive_;
  QScrollBar* throttle_;
  std::int32_t optionsAtShow_ = 0;
};
