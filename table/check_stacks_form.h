// frmCheckStacks: the hundred CheckStacks of one player as a grid of number,
// value and name. The form keeps no copy of a stack: each cell is written
// from the game, and every key typed into a cell goes straight to the game
// (SetCheckStackValue / SetCheckStackName), so the table's rail shows the
// new value at once. The Edit menu works on the current cell with the
// clipboard; the Delete All items ask first; "Set Visible CheckStacks"
// chooses the four stacks shown on the rail.
// What must stay true:
// - A row shows its value only when it is named, not zero, or zero values
//   are displayed; values are red below zero and blue above.
// - A refresh never closes a cell being typed in.
#pragma once

#include <QDialog>
#include <array>

class QAction;
class QComboBox;
class QFrame;
class QLineEdit;
class QTableWidget;
struct Game;

class CheckStacksForm : public QDialog {
  Q_OBJECT
 public:
  explicit CheckStacksForm(Game& game, QWidget* parent = nullptr);
  // Refills the player list and every row from the game (not while a cell
  // is being typed in).
  void Refresh();
  // Writes row n's cells from the game.
  void RefreshRow(int n);
  // Typing into a cell: column 1 the value, column 2 the name of stack `row`.
  void CellTyped(int row, int column, const QString& text);
  QTableWidget* Grid() const { return grid_; }
  // The cell editor opened or closed.
  void SetTyping(bool on) { typing_ = on; }

 signals:
  // A stack changed: the table redraws its rail.
  void changed();

 private:
  enum class CellEdit { Cut, Copy, Paste, Delete };
  // mnuCut, mnuCopy, mnuPaste, mnuDelete on the current cell.
  void EditCell(CellEdit what);
  // The chosen player, or 0 with nobody at the table.
  int Player() const;
  // The grid's font from the stored size, italic and bold.
  void ApplyFont();
  // mnuSetStacks: shows picSetStacks with the player's four rail stacks.
  void OpenSetStacks();
  // cmdOK of picSetStacks: the four numbers go to the rail, or the notice.
  void AcceptSetStacks();

  Game& game_;
  QComboBox* player_;
  QTableWidget* grid_;
  QFrame* setStacks_;
  std::array<QLineEdit*, 4> stackNum_{};
  QAction* displayZero_;
  QAction* italic_;
  QAction* bold_;
  bool filling_ = false;
  bool typing_ = false;
  bool fontApplied_ = false;
};
