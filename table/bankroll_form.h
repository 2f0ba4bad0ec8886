// frmBankroll: one player's bankroll roll by roll on the 525 x 301 grid,
// with the figures, the scale buttons, Hyper-Drive's start/stop button,
// throttle, Auto-Stop and time delay, and the graph's printing (Print Now,
// Auto-Print; the printout is stats/bankroll_printout.h). The graph is drawn from the history
// the roll keeps (GraphBankroll, GraphTrend); the scale and top come from
// FigureGraphScale, so the view itself holds nothing of the game.
#pragma once

#include <QDialog>
#include <QTimer>
#include <array>

class QAction;
class QComboBox;
class QLabel;
class QPushButton;
class QScrollBar;
struct Game;

// The 525 x 301 picture of the graph.
class GraphWidget : public QWidget {
 public:
  explicit GraphWidget(Game& game, QWidget* parent = nullptr);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  Game& game_;
};

class BankrollForm : public QDialog {
  Q_OBJECT
 public:
  explicit BankrollForm(Game& game, QWidget* parent = nullptr);
  // Refreshes the figures, the labels and the graph from the game.
  void Refresh();
  // cmdHyperDriveActive: starts a run, or stops the one in progress.
  void ToggleHyperDrive();
  QPushButton* HyperDriveButton() const { return hyperDrive_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void ChoosePlayer();
  void Redraw(bool recentre);

  Game& game_;
  GraphWidget* graph_;
  QComboBox* player_;
  std::array<QLabel*, 7> scale_{};
  QLabel* rollsLeft_;
  QLabel* rollsRight_;
  QLabel* figures_;
  QLabel* average_;
  QLabel* autoPrintLabel_;  // "Auto-Print ON" while the graph prints its full pages
  QAction* autoPrint_;
  QPushButton* hyperDrive_;
  QScrollBar* throttle_;
  QTimer live_;  // keeps the figures moving during a run
  bool filling_ = false;
};
