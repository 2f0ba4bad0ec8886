// frmMove ("Table"): moves the table by 50 pixels each way, turns it,
// zooms it between 500 and 5000 and centres it. Each press redraws and
// marks the game as changed.
#pragma once

#include <QDialog>

class TableView;
struct Game;

class MoveForm : public QDialog {
  Q_OBJECT
 public:
  MoveForm(Game& game, TableView& view, QWidget* parent = nullptr);
  // The presses, also for the tests.
  void Shift(int dx, int dy);
  void Turn(int degrees);
  void Zoom(double factor);

 private:
  Game& game_;
  TableView& view_;
};
