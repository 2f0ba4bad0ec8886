// frmConfigure, the Misc. tab: mouse, printer, the notices shown and the
// random number generator with its seeding.

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/game.h"
#include "dice/rng.h"
#include "table/configure_form.h"

namespace {

const char* const kNoticeCaption[5] = {" Actions not allowed", " Betting limits reached",
                                       " Charges and/or change", " Auto-Bet messages normal play",
                                       " Auto-Bet messages Hyper-Drive"};

}  // namespace

QWidget* ConfigureForm::BuildMisc() {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  auto* snap = new QCheckBox(" Snap mouse-pointer");
  snap->setObjectName("chkSnapMouse");
  connect(snap, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.rules.SnapCursorToButton = on;
  });
  auto* colour = new QCheckBox(" Color printer");
  colour->setObjectName("chkColorPrint");
  connect(colour, &QCheckBox::toggled, this, [this](bool on) {
    if (FormLoading) return;
    game_.rules.ColorPrint = on;
    game_.rules.PrintColors = on ? std::array<Long, 3>{9, 12, 13} : std::array<Long, 3>{0, 0, 0};
  });
  layout->addWidget(snap);
  layout->addWidget(colour);
  auto* notices = new QGroupBox("Notices");
  auto* nl = new QVBoxLayout(notices);
  for (int i = 0; i < 5; ++i) {
    notify_[i] = new QCheckBox(kNoticeCaption[i]);
    notify_[i]->setObjectName(QString("chkNotify%1").arg(i));
    connect(notify_[i], &QCheckBox::toggled, this, [this] {
      if (FormLoading) return;
      bool checked[5];
      for (int k = 0; k < 5; ++k) checked[k] = notify_[k]->isChecked();
      game_.rules.NoticeFlags = NoticeFlagsFromChecks(checked);
    });
    nl->addWidget(notify_[i]);
  }
  layout->addWidget(notices);
  layout->addWidget(BuildGeneratorBox());
  layout->addStretch();
  return page;
}

QWidget* ConfigureForm::BuildGeneratorBox() {
  auto* box = new QGroupBox("Random Number Generator");
  auto* grid = new QGridLayout(box);
  rng_ = new QComboBox;
  rng_->setObjectName("cmbRNG");
  for (Long i = 0; i < kRngCount; ++i) rng_->addItem(RngCaption(i));
  connect(rng_, &QComboBox::currentIndexChanged, this, [this](int row) {
    if (FormLoading || row < 0) return;
    SelectGenerator(game_, row);
    FillGenerator();  // a generator without its library jumps to "RNG #4"
  });
  const char* const seedCaptions[2] = {" Seed normally", " User seed"};
  for (int i = 0; i < 2; ++i) {
    seedMode_[i] = new QRadioButton(seedCaptions[i]);
    seedMode_[i]->setObjectName(QString("optSeedRNG%1").arg(i));
    connect(seedMode_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (!FormLoading && on) game_.dice.UserSeedMode = i == 1;
    });
  }
  auto* reseed = new QCheckBox(" Re-seed new sessions");
  reseed->setObjectName("chkReSeed");
  connect(reseed, &QCheckBox::toggled, this, [this](bool on) {
    if (!FormLoading) game_.dice.ReseedEachSession = on;
  });
  auto* seedNow = new QPushButton("Seed RNG now");
  seedNow->setObjectName("cmdSeedRNG");
  connect(seedNow, &QPushButton::clicked, this, [this] {
    SeedRngNow(game_);
    FillGenerator();
  });
  lastSeed_ = new QLabel;
  lastSeed_->setObjectName("lblLastSeed");
  lastSeed_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  grid->addWidget(rng_, 0, 0);
  grid->addWidget(seedNow, 0, 1);
  grid->addWidget(seedMode_[0], 1, 0);
  grid->addWidget(seedMode_[1], 2, 0);
  grid->addWidget(reseed, 3, 0);
  grid->addWidget(new QLabel("Last seed:"), 1, 1, Qt::AlignBottom);
  grid->addWidget(lastSeed_, 2, 1, Qt::AlignTop);
  grid->setColumnStretch(2, 1);  // the list and the button keep their own width
  return box;
}

void ConfigureForm::FillGenerator() {
  const bool was = FormLoading;
  FormLoading = true;
  const DiceState& d = game_.dice;
  rng_->setCurrentIndex(static_cast<int>(d.RngIndex));
  seedMode_[d.UserSeedMode ? 1 : 0]->setChecked(true);
  findChild<QCheckBox*>("chkReSeed")->setChecked(d.ReseedEachSession);
  lastSeed_->setText(QString::number(d.LastSeed));
  FormLoading = was;
}
