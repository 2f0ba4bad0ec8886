// frmConfigure, the Misc. tab: mouse, printer and the notices shown.

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "core/game.h"
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
  auto* rng = new QLabel("Random Number Generator: not built on this form yet.");
  rng->setEnabled(false);
  layout->addWidget(rng);
  layout->addStretch();
  return page;
}
