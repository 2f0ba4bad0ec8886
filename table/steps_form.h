// frmSteps: "Auto-Bet Steps", the view of a script run step by step. After
// each statement of a run the editor selects the statement and this view
// shows its step note and waits for Next (cmdNextAutoBet) or Stop
// (mnuStopAutobetting). Closing it by hand ends the step mode (ShowSteps).
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
struct Game;

class StepsForm : public QWidget {
  Q_OBJECT
 public:
  explicit StepsForm(Game& game, QWidget* parent = nullptr);
  // Shows the caption and the note of a step.
  void ShowStep(const QString& caption, const QString& note);

 signals:
  // The step mode was switched off by closing the view.
  void stepsEnded();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // The wait of the run is over: StepWaiting cleared, the run's floor ended.
  void EndWait();

  Game& game_;
  QLabel* status_;
  QPushButton* next_;
};
