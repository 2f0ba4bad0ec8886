#include "table/new_form.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/game.h"

namespace {

constexpr int kOptionIndent = 20;  // the dice options sit under their check box

QCheckBox* Check(const char* name, const char* caption, bool on, const char* tip) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(name);
  box->setChecked(on);
  box->setToolTip(tip);
  return box;
}

}  // namespace

NewForm::NewForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmNew");
  setWindowTitle("New Session");
  const NewSessionChoice defaults;
  retainAutoBets_ = Check("chkRetainAutoBets", " Retain Auto-Bet scripts", defaults.retainAutoBets,
                          "Off: every player's script is cleared and switched off.");
  initialize_ = Check("chkInitialize", " Initialize active scripts", true,
                      "Active scripts run their first cycle at the start of every session.");
  preserveGames_ =
      Check("chkPreserveGames", " Preserve statistics of past sessions", defaults.preserveGames,
            "On: this session's figures become the last session's, and the "
            "all-sessions figures keep adding up. Off: every figure starts at zero.");
  preserveCheckstacks_ =
      Check("chkPreserveCheckstacks", " Preserve CheckStacks", defaults.preserveCheckstacks,
            "Off: every player's CheckStacks are emptied.");
  preserveSessionsLogs_ =
      Check("chkPreserveSessionsLogs", " Preserve Sessions Logs", defaults.preserveSessionsLogs,
            "Off: each player's sessions log is deleted and started again.");
  retainDiceRollFile_ = Check("chkRetainDiceRollFile", " Retain Dice Roll file", true,
                              "Off: the dice roll file is closed.");
  rewind_[0] = new QRadioButton(" Rewind and playback");
  rewind_[1] = new QRadioButton(ContinueDiceCaption(game));
  for (int i = 0; i < 2; ++i)
    rewind_[static_cast<std::size_t>(i)]->setObjectName(QString("optRewind%1").arg(i));
  if (game.diceFile.DiceFilePath.empty()) {
    // No file to keep: the dice options stay off.
    retainDiceRollFile_->setChecked(false);
    retainDiceRollFile_->setEnabled(false);
  } else {
    rewind_[1]->setChecked(true);
  }
  connect(retainAutoBets_, &QCheckBox::toggled, this, &NewForm::FollowChecks);
  connect(retainDiceRollFile_, &QCheckBox::toggled, this, &NewForm::FollowChecks);

  auto* layout = new QVBoxLayout(this);
  auto* scripts = new QGroupBox("Auto-Bet");
  auto* sv = new QVBoxLayout(scripts);
  sv->addWidget(retainAutoBets_);
  auto* indented = new QHBoxLayout;
  indented->addSpacing(kOptionIndent);
  indented->addWidget(initialize_);
  sv->addLayout(indented);
  layout->addWidget(scripts);
  auto* keep = new QGroupBox("Statistics and logs");
  auto* kv = new QVBoxLayout(keep);
  for (QCheckBox* box : {preserveGames_, preserveCheckstacks_, preserveSessionsLogs_})
    kv->addWidget(box);
  layout->addWidget(keep);
  auto* dice = new QGroupBox("Dice");
  auto* dv = new QVBoxLayout(dice);
  dv->addWidget(retainDiceRollFile_);
  for (QRadioButton* opt : rewind_) {
    auto* row = new QHBoxLayout;
    row->addSpacing(kOptionIndent);
    row->addWidget(opt);
    dv->addLayout(row);
  }
  layout->addWidget(dice);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
  connect(buttons, &QDialogButtonBox::accepted, this, &NewForm::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &NewForm::reject);
  layout->addWidget(buttons);
  FollowChecks();
}

void NewForm::FollowChecks() {
  initialize_->setEnabled(retainAutoBets_->isChecked());
  const bool dice = retainDiceRollFile_->isChecked();
  for (QRadioButton* opt : rewind_) opt->setEnabled(dice);
}

NewSessionChoice NewForm::Choice() const {
  NewSessionChoice c;
  c.retainAutoBets = retainAutoBets_->isChecked();
  c.preserveGames = preserveGames_->isChecked();
  c.preserveCheckstacks = preserveCheckstacks_->isChecked();
  c.preserveSessionsLogs = preserveSessionsLogs_->isChecked();
  c.diceMode = !retainDiceRollFile_->isChecked() ? 0 : rewind_[0]->isChecked() ? 1 : 2;
  return c;
}

void NewForm::accept() {
  StartNewGame(game_, Choice());
  QDialog::accept();
}
