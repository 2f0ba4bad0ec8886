#include "table/steps_form.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/platform.h"
#include "script/activation.h"

namespace {

// Seconds by which a closing view moves a run's start back, so that the
// run's 0.3 second floor is over at once.
constexpr double kFloorOver = 0.6;
constexpr int kNoteWidth = 360;

}  // namespace

StepsForm::StepsForm(Game& game, QWidget* parent) : QWidget(parent, Qt::Tool), game_(game) {
  setObjectName("frmSteps");
  setWindowTitle("Auto-Bet Steps");
  auto* bar = new QMenuBar(this);
  QAction* stop = bar->addAction("&Stop Auto-Betting");
  stop->setObjectName("mnuStopAutobetting");
  connect(stop, &QAction::triggered, this, [this] {
    ScriptRunState& r = game_.scriptRun;
    // Only No to the question leaves the run going.
    if (r.ScriptRunning && !AskInterruptAutoBetting(game_)) return;
    r.ScriptRunning = false;
    game_.KeepRolling = false;
    EndWait();
  });
  QAction* help = bar->addAction("&Help");
  help->setObjectName("mnuHelp");
  connect(help, &QAction::triggered, this,
          [this] { game_.platform->ShowHelp(kHelpScriptSteps); });

  status_ = new QLabel;
  status_->setObjectName("lblStatus");
  status_->setWordWrap(true);
  status_->setMinimumWidth(kNoteWidth);
  status_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  next_ = new QPushButton("&Next");
  next_->setObjectName("cmdNextAutoBet");
  next_->setDefault(true);
  connect(next_, &QPushButton::clicked, this, [this] { EndWait(); });
  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addWidget(status_, 1);
  layout->addWidget(next_, 0, Qt::AlignRight);
}

void StepsForm::ShowStep(const QString& caption, const QString& note) {
  setWindowTitle(caption);
  QString text = note;
  text.replace('\r', '\n');
  status_->setText(text);
  show();
  raise();
  next_->setFocus();
}

void StepsForm::EndWait() {
  game_.scriptRun.StepWaiting = false;
  game_.scriptRun.RunStartSeconds = game_.platform->TimeGetTime() / 1000.0 - kFloorOver;
}

void StepsForm::closeEvent(QCloseEvent* event) {
  if (event->spontaneous()) {
    game_.scriptRun.ShowSteps = false;
    emit stepsEnded();
  }
  EndWait();
  QWidget::closeEvent(event);
}
