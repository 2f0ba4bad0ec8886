#include "table/permissions_form.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/game.h"

namespace {

struct Column {
  const char* name;
  const char* caption;
  Table1<bool, 0, 8> ScriptRunState::*flag;
};
const Column kColumns[] = {
    {"chkAllowActProb", "Allowed to activate probability and roll files",
     &ScriptRunState::AllowDiceFiles},
    {"chkAllowAct4Others", "Allowed to perform actions for other players",
     &ScriptRunState::AllowActForOthers},
    {"chkAllowReset", "Allowed to start new sessions", &ScriptRunState::AllowReset},
    {"chkAllowAnyFolder", "Allowed to use files outside the data folder",
     &ScriptRunState::AllowAnyFolder},
};
constexpr int kHeadWidth = 130;  // a column head wraps within this width

}  // namespace

PermissionsForm::PermissionsForm(Game& game, QWidget* parent) : QDialog(parent) {
  setObjectName("frmPermissions");
  setWindowTitle("Auto-Bet Permissions");
  auto* grid = new QGridLayout;
  auto* head = new QLabel("Player");
  QFont bold = head->font();
  bold.setBold(true);
  head->setFont(bold);
  grid->addWidget(head, 0, 0, Qt::AlignBottom);
  for (int c = 0; c < static_cast<int>(std::size(kColumns)); ++c) {
    auto* label = new QLabel(kColumns[c].caption);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setFixedWidth(kHeadWidth);
    label->setFont(bold);
    grid->addWidget(label, 0, c + 1, Qt::AlignBottom);
  }
  int row = 1;
  for (int p = 1; p <= 8; ++p) {
    const std::string& name = game.PlayerName[static_cast<std::size_t>(p)];
    if (name.empty()) continue;
    auto* label = new QLabel(QString::fromStdString(name));
    label->setObjectName("lblPlayer");
    grid->addWidget(label, row, 0);
    for (int c = 0; c < static_cast<int>(std::size(kColumns)); ++c) {
      auto* box = new QCheckBox;
      box->setObjectName(kColumns[c].name);
      box->setProperty("player", p);
      box->setChecked((game.scriptRun.*kColumns[c].flag)(p));
      connect(box, &QCheckBox::toggled, this, [&game, c, p](bool on) {
        (game.scriptRun.*kColumns[c].flag)(p) = on;
        game.roll.SessionDirty = true;
      });
      grid->addWidget(box, row, c + 1, Qt::AlignCenter);
    }
    ++row;
  }
  if (row == 1) grid->addWidget(new QLabel("No players present"), 1, 0, 1, 5);
  auto* ok = new QDialogButtonBox(QDialogButtonBox::Ok);
  ok->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  connect(ok, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(ok);
}
