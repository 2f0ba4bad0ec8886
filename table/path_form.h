// frmPath: Game > Show Path. Lists, under their captions, every file and
// folder the game has in use (store/paths_in_use.h), in a read-only view with
// scroll bars. It shows the game as it is when opened or refreshed and
// writes nothing.
#pragma once

#include <QDialog>

class QPlainTextEdit;
struct Game;

class PathForm : public QDialog {
  Q_OBJECT
 public:
  explicit PathForm(const Game& game, QWidget* parent = nullptr);
  // Shows the paths in use now.
  void Refresh();
  // The text shown, one caption or path a line.
  QString Text() const;

 private:
  const Game& game_;
  QPlainTextEdit* paths_ = nullptr;
};
