// frmDiceRollFiles: the open dice roll file, its recorder and its editor.
// The form is a window that can stay open beside the table: the recorder's
// three buttons set the game's mode, the 36 roll buttons key rolls in at
// the caret, the list shows the file's rolls from DiceSelStart with the
// selection, and the menus copy, paste, delete and convert through
// dice/dice_file_edit.h. Every figure shown is read from the game and the
// file on disk; the form keeps nothing of its own.
#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QScrollBar;
struct Game;

// picDiceRolls: the visible rows of the file, read from disk as painted.
class DiceRollList : public QWidget {
  Q_OBJECT
 public:
  explicit DiceRollList(Game& game, QWidget* parent = nullptr);
  // How many rows fit.
  int VisibleRows() const;
  // The height of one row.
  int RowHeight() const;
  // Sets the list's fixed-pitch font at the game's DiceFilesFontSize step.
  void ApplyFontSize();

 signals:
  // A click on row `row` (from 0); keepOtherEnd with Shift or the right button.
  void rowClicked(int row, bool keepOtherEnd);
  void scrolled(int rows);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  Game& game_;
};

class DiceFilesForm : public QDialog {
  Q_OBJECT
 public:
  explicit DiceFilesForm(Game& game, QWidget* parent = nullptr);
  // Shows path, title, total, positions, the recorder and the list.
  void Refresh();
  DiceRollList* List() const { return list_; }

 signals:
  // The recorder or the file changed what the table shows.
  void changed();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QMenu* BuildFileMenu(QMenu* menu);
  QMenu* BuildEditMenu(QMenu* menu);
  QMenu* BuildHighlightMenu(QMenu* menu);
  // Smaller, Normal and Larger for the list's font, kept in the game.
  void BuildFontMenu(QMenu* menu);
  QWidget* BuildRecorder();
  QWidget* BuildRollButtons();
  // mnuCut, mnuCopy, mnuPaste, mnuDelete, mnuSelectAll: on the text box
  // when it has the focus, else on the rolls.
  void Edit(int command);
  // Runs an operation on the file, then shows its outcome.
  template <typename F>
  void Act(F f);
  // Keeps the caret's row in the list's view.
  void ShowCaret();
  void RefreshHighlightChecks();

  Game& game_;
  DiceRollList* list_;
  QScrollBar* scroll_;
  QLabel* path_;
  QLabel* total_;
  QLabel* selected_;
  QLabel* last_;
  QLineEdit* next_;
  QRadioButton* typeOver_;
  QRadioButton* insert_;
  std::array<QPushButton*, 3> recorder_{};
  QLabel* state_ = nullptr;
  QMenu* highlight_ = nullptr;
  bool filling_ = false;
};
