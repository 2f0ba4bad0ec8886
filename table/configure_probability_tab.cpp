#include "table/configure_probability_tab.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "cycle/probability_commands.h"
#include "dice/probability.h"
#include "dice/probability_edit.h"
#include "table/numeric_box.h"
#include "table/probability_matrix.h"

namespace {

const char* const kModeCaption[kProbDisplayCount] = {
    " Show as percentage", " Show as +/- from true %",
    " Show as # rolls out of:", " Show as +/- from true rolls out of:"};
const char* const kAxisCaption[3] = {" About the 1-6 axis", " About the 2-5 axis",
                                     " About the 3-4 axis"};
constexpr int kEffectDecimals = 2;
constexpr double kMostEffect = 100;

QPushButton* Button(const char* name, const char* caption) {
  auto* b = new QPushButton(caption);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}

}  // namespace

ProbabilityTab::ProbabilityTab(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  auto* layout = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  useSkewed_ = new QCheckBox(" Use the probabilities depicted here.");
  useSkewed_->setObjectName("chkUseSkewedProbability");
  connect(useSkewed_, &QCheckBox::toggled, this, [this](bool on) {
    if (!loading_) game_.dice.ProbabilityDiceOn = on;
  });
  top->addWidget(useSkewed_);
  auto* note = new QLabel("Note:  If this box is UNchecked the\ntrue probabilities will be used.");
  note->setObjectName("lblSkewNote");
  top->addWidget(note);
  top->addStretch();
  layout->addLayout(top);

  auto* shown = new QGroupBox;
  auto* modes = new QGridLayout(shown);
  auto* group = new QButtonGroup(this);
  for (int i = 0; i < kProbDisplayCount; ++i) {
    mode_[i] = new QRadioButton(kModeCaption[i]);
    mode_[i]->setObjectName(QString("optProbability%1").arg(i));
    group->addButton(mode_[i], i);
    modes->addWidget(mode_[i], i % 2, i / 2);
  }
  connect(group, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    if (loading_ || !on) return;
    game_.probability.ProbDisplayMode = id;
    Fill();
  });
  rollsOutOf_ = new QLineEdit;
  rollsOutOf_->setObjectName("txtRollsOutOf");
  rollsOutOf_->setMaximumWidth(90);
  rollsOutOf_->setToolTip("N of the \"rolls out of\" modes; above 0.");
  new NumericKeyFilter(rollsOutOf_, kRollsOutOfDecimals, false);
  rollsOutOf_->installEventFilter(this);
  // N is stored on Enter or on leaving the box; a value not above 0 is refused.
  connect(rollsOutOf_, &QLineEdit::editingFinished, this, &ProbabilityTab::StoreRollsOutOf);
  modes->addWidget(rollsOutOf_, 0, 2, 2, 1, Qt::AlignVCenter);
  modes->setColumnStretch(3, 1);
  layout->addWidget(shown);

  auto* captions = new QHBoxLayout;
  kind_ = new QLabel;
  kind_->setObjectName("lblPercentageDice");
  QFont bold = kind_->font();
  bold.setBold(true);
  kind_->setFont(bold);
  captions->addWidget(kind_);
  captions->addStretch();
  captions->addWidget(new QLabel("Probability File:"));
  fileName_ = new QLabel;
  fileName_->setObjectName("lblPrbFileName");
  captions->addWidget(fileName_);
  layout->addLayout(captions);

  matrix_ = new ProbabilityMatrix(game_);
  connect(matrix_, &ProbabilityMatrix::tableChanged, this, [this] { Fill(); });
  layout->addWidget(matrix_, 0, Qt::AlignHCenter);

  auto* buttons = new QHBoxLayout;
  // No Alt keys on the file buttons: N, S and A switch tabs.
  const std::pair<const char*, const char*> files[] = {{"mnuNew", "New"},
                                                       {"mnuOpen", "Open ..."},
                                                       {"mnuSave", "Save"},
                                                       {"mnuSaveAs", "Save As ..."}};
  bool (*const commands[])(Game&) = {NewProbabilityCommand, OpenProbabilityCommand,
                                     SaveProbabilityCommand, SaveProbabilityAsCommand};
  for (int i = 0; i < 4; ++i) {
    QPushButton* b = Button(files[i].first, files[i].second);
    connect(b, &QPushButton::clicked, this, [this, c = commands[i]] { RunFileCommand(c); });
    buttons->addWidget(b);
  }
  buttons->addStretch();
  QPushButton* unlock = Button("cmdUnLock", "Unlock All Cells");
  connect(unlock, &QPushButton::clicked, this, [this] {
    UnlockAllProbabilities(game_);
    Fill();
  });
  buttons->addWidget(unlock);
  QPushButton* axes = Button("mnuAxes", "Compute percentage dice about an a&xis ...");
  connect(axes, &QPushButton::clicked, this, [this] { axisPanel_->show(); });
  buttons->addWidget(axes);
  layout->addLayout(buttons);
  layout->addWidget(BuildAxisPanel());
  layout->addStretch();
}

QWidget* ProbabilityTab::BuildAxisPanel() {
  axisPanel_ = new QGroupBox("Compute percentage dice about an axis");
  axisPanel_->setObjectName("picAxis");
  auto* grid = new QGridLayout(axisPanel_);
  for (int die = 0; die < 2; ++die) {
    const QString name = QString("optDie%1Axis").arg(die + 1);
    auto* half = new QGroupBox(die == 0 ? "1st Die" : "2nd Die");
    auto* column = new QVBoxLayout(half);
    auto* group = new QButtonGroup(half);
    for (int i = 0; i < 3; ++i) {
      axis_[die][i] = new QRadioButton(kAxisCaption[i]);
      axis_[die][i]->setObjectName(name + QString::number(i));
      group->addButton(axis_[die][i], i);
      column->addWidget(axis_[die][i]);
    }
    axis_[die][0]->setChecked(true);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel("Shooter's effectiveness:"));
    effect_[die] = new QLineEdit("0");
    effect_[die]->setObjectName(QString("txtDie%1SE").arg(die + 1));
    effect_[die]->setMaximumWidth(70);
    new NumericKeyFilter(effect_[die], kEffectDecimals, false);
    effect_[die]->installEventFilter(this);
    row->addWidget(effect_[die]);
    row->addWidget(new QLabel("%"));
    column->addLayout(row);
    grid->addWidget(half, 0, die);
  }
  auto* row = new QHBoxLayout;
  row->addStretch();
  QPushButton* accept = Button("cmdAxisOK", "Accept");
  connect(accept, &QPushButton::clicked, this, [this] { AcceptAxes(); });
  QPushButton* cancel = Button("cmdAxisCancel", "Cancel");
  connect(cancel, &QPushButton::clicked, axisPanel_, &QWidget::hide);
  row->addWidget(accept);
  row->addWidget(cancel);
  grid->addLayout(row, 1, 0, 1, 2);
  axisPanel_->hide();
  return axisPanel_;
}

void ProbabilityTab::AcceptAxes() {
  std::array<int, 2> axis{};
  std::array<double, 2> effect{};
  for (int die = 0; die < 2; ++die) {
    for (int i = 0; i < 3; ++i)
      if (axis_[die][i]->isChecked()) axis[die] = i;
    const auto typed = ParseProbabilityText(effect_[die]->text().toStdString());
    effect[die] = typed ? *typed : 0;
    // An effectiveness above 100 is put back to 100 in its box.
    if (effect[die] > kMostEffect) {
      effect[die] = kMostEffect;
      effect_[die]->setText("100");
    }
  }
  SetAxisProbabilities(game_, axis[0], effect[0], axis[1], effect[1]);
  axisPanel_->hide();
  Fill();
}

void ProbabilityTab::StoreRollsOutOf() {
  if (loading_) return;
  EnterRollsOutOf(game_, rollsOutOf_->text().toStdString());
  Fill();
}

void ProbabilityTab::RunFileCommand(bool (*command)(Game&)) {
  command(game_);
  // Whatever the command did, the tab shows the table the game holds now.
  Fill();
}

bool ProbabilityTab::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  if (watched == rollsOutOf_) {
    StoreRollsOutOf();
  } else if (watched == effect_[0] || watched == effect_[1]) {
    AcceptAxes();
  }
  return true;
}

void ProbabilityTab::showEvent(QShowEvent* event) {
  Fill();
  QWidget::showEvent(event);
}

void ProbabilityTab::Fill() {
  loading_ = true;
  const ProbabilityState& s = game_.probability;
  useSkewed_->setChecked(game_.dice.ProbabilityDiceOn);
  const int mode = s.ProbDisplayMode >= 0 && s.ProbDisplayMode < kProbDisplayCount
                       ? static_cast<int>(s.ProbDisplayMode)
                       : kShowPercentage;
  mode_[mode]->setChecked(true);
  rollsOutOf_->setText(QString::fromStdString(RollsOutOfText(game_)));
  kind_->setText(ProbabilityKindCaption(game_));
  fileName_->setText(QString::fromStdString(ProbabilityFileCaption(game_)));
  fileName_->setToolTip(QString::fromStdString(s.ProbFilePath));
  matrix_->Refresh();
  loading_ = false;
}
