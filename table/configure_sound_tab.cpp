// frmConfigure, the Sound tab: the dice, check, win and stick-call sounds
// chosen from the families found beside the program, the two switches that
// silence them, the output volume and a button to hear each choice.

#include <algorithm>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "config/sound.h"
#include "core/game.h"
#include "core/platform.h"
#include "table/configure_form.h"
#include "table/qt_platform.h"

namespace {

constexpr int kVolumeSteps = 100;

// The selection a family's combo shows: its row, "< random >" past the files.
int RowOfSelection(const QComboBox* box, Long selection) {
  return static_cast<int>(std::clamp<Long>(selection, 0, box->count() - 1));
}

// Rows "< none >", each file, and "< random >" with more than one file.
void FillFamily(QComboBox* box, const std::vector<std::string>& files, bool random) {
  box->clear();
  box->addItem("< none >");
  for (const std::string& f : files) box->addItem(QString::fromStdString(f));
  if (random && files.size() > 1) box->addItem("< random >");
}

}  // namespace

QWidget* ConfigureForm::BuildSound() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* sets = new QGroupBox("Sounds");
  auto* grid = new QGridLayout(sets);
  struct Row {
    const char* caption;
    const char* combo;
    const char* test;
    Long TableSettings::*selection;
  };
  const Row rows[] = {{"Dice:", "cmbDiceSound", "cmdTestDice", &TableSettings::DiceSoundSet},
                      {"Checks:", "cmbCheckSound", "cmdTestChecks", &TableSettings::ChipSoundSet},
                      {"Wins:", "cmbWinSound", "cmdTestWin", &TableSettings::WinSoundSet},
                      {"Stick person:", "cmbStickPerson", "cmdTestStickPerson", &TableSettings::StickCallSet}};
  int r = 0;
  for (const Row& row : rows) {
    auto* box = new QComboBox;
    box->setObjectName(row.combo);
    box->setMinimumContentsLength(18);
    auto* test = new QPushButton("Test");
    test->setObjectName(row.test);
    grid->addWidget(new QLabel(row.caption), r, 0);
    grid->addWidget(box, r, 1);
    grid->addWidget(test, r, 2);
    ++r;
    const bool stick = row.selection == &TableSettings::StickCallSet;
    connect(box, &QComboBox::currentIndexChanged, this, [this, stick, selection = row.selection](int index) {
      if (FormLoading || index < 0) return;
      game_.rules.*selection = index;
      if (stick) LoadStickCallSet(game_);
    });
    connect(test, &QPushButton::clicked, this, [this, row] { TestSound(row.selection); });
  }
  grid->setColumnStretch(3, 1);
  layout->addWidget(sets);

  auto* mute = new QCheckBox(" Disable all game sounds");
  mute->setObjectName("chkDisableAllSound");
  connect(mute, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.SoundMuted = on;
  });
  auto* scripts = new QCheckBox(" Disable Auto-Bet sounds");
  scripts->setObjectName("chkAutoBetSounds");
  connect(scripts, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.AutoBetSoundsOff = on;
  });
  layout->addWidget(mute);
  layout->addWidget(scripts);

  auto* volume = new QGroupBox("Volume");
  auto* vl = new QGridLayout(volume);
  volume_ = new QSlider(Qt::Horizontal);
  volume_->setObjectName("vsbVolume");
  volume_->setRange(0, kVolumeSteps);
  vl->addWidget(new QLabel("min"), 0, 0);
  vl->addWidget(volume_, 0, 1);
  vl->addWidget(new QLabel("max"), 0, 2);
  auto* qt = dynamic_cast<QtPlatform*>(game_.platform);
  if (qt == nullptr || !qt->Sounds().Available()) {
    volume_->setEnabled(false);
    volume->setToolTip("No audio output was found: the table plays no sound.");
  } else {
    connect(volume_, &QSlider::valueChanged, this, [qt](int v) {
      qt->Sounds().SetVolume(static_cast<double>(v) / kVolumeSteps);
    });
  }
  layout->addWidget(volume);
  layout->addStretch();
  return page;
}

void ConfigureForm::FillSound() {
  const SoundState& s = game_.sound;
  const TableSettings& r = game_.rules;
  auto fill = [this](const char* name, const char* test, const std::vector<std::string>& files,
                     bool random, Long selection) {
    auto* box = findChild<QComboBox*>(name);
    FillFamily(box, files, random);
    box->setCurrentIndex(RowOfSelection(box, selection));
    findChild<QPushButton*>(test)->setEnabled(!files.empty());
  };
  fill("cmbDiceSound", "cmdTestDice", s.DiceSoundSets, true, r.DiceSoundSet);
  fill("cmbCheckSound", "cmdTestChecks", s.ChipSoundSets, true, r.ChipSoundSet);
  fill("cmbWinSound", "cmdTestWin", s.WinSoundSets, true, r.WinSoundSet);
  fill("cmbStickPerson", "cmdTestStickPerson", s.StickCallSets, false, r.StickCallSet);
  findChild<QCheckBox*>("chkDisableAllSound")->setChecked(r.SoundMuted);
  findChild<QCheckBox*>("chkAutoBetSounds")->setChecked(r.AutoBetSoundsOff);
  if (auto* qt = dynamic_cast<QtPlatform*>(game_.platform))
    volume_->setValue(static_cast<int>(qt->Sounds().Volume() * kVolumeSteps + 0.5));
}

void ConfigureForm::TestSound(Long TableSettings::*selection) {
  if (game_.platform == nullptr) return;
  const Long chosen = game_.rules.*selection;
  std::string path;
  if (selection == &TableSettings::StickCallSet) {
    path = game_.roll.StickCallFile[kCallComeOut];
  } else {
    const SoundState& s = game_.sound;
    const auto& files = selection == &TableSettings::DiceSoundSet   ? s.DiceSoundSets
                        : selection == &TableSettings::ChipSoundSet ? s.ChipSoundSets
                                                                    : s.WinSoundSets;
    path = PickSoundFile(game_.roll.AppPath, files, chosen, NextSoundUniform(game_));
  }
  if (path.empty()) return;
  game_.platform->PlaySound("", kSoundStop);
  game_.platform->PlaySound(path, kSoundAsync);
}
