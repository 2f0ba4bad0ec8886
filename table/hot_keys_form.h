// frmHotKeys: the editor of the Hot-Keys table. The list picHotKeys shows
// the game's table (scriptSource.HotKeyTable) row by row; the entry
// controls below it make a new row, which the next click on the list puts
// in place. The Edit menu works on the selected rows while the list has
// the focus and on the entry control's text otherwise. Closing the form
// writes the whole table to HotKeys.dta (script/hot_keys.h).
// What must stay true: the list shows the game's rows in their order and
// the game's selection marks follow the list's selection.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
struct Game;

class HotKeysForm : public QDialog {
  Q_OBJECT
 public:
  explicit HotKeysForm(Game& game, QWidget* parent = nullptr);
  // The list from the game's table.
  void ShowRows();
  // cmdAddHotKey: checks the entry and arms the list for the row's place.
  void AddClicked();
  // The armed row goes in at list row `at` (behind the last when beyond it).
  void PlaceRow(int at);
  bool Placing() const { return placing_; }
  QTableWidget* List() const { return list_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void done(int result) override;

 private:
  enum class RowEdit { Cut, Copy, Paste, Delete, SelectAll };
  void EditRows(RowEdit what);
  void EditText(RowEdit what);
  void SelectFile();
  void SelectionChanged();
  void RowDoubleClicked(int row);
  void PaintEntry(bool armed);

  Game& game_;
  QTableWidget* list_;
  QComboBox* key_;
  QLineEdit* description_;
  QLineEdit* file_;
  QPushButton* select_;
  QPushButton* add_;
  bool placing_ = false;
  bool listActive_ = false;  // the list, not an entry control, was used last
  bool filling_ = false;
};
