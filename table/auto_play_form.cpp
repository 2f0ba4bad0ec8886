#include "table/auto_play_form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "automation/autoplay.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/money.h"
#include "engine/settle_text.h"
#include "table/menu_items.h"
#include "table/numeric_box.h"

namespace {

// Colour value 192: a setting on which the selected players differ, and an
// amount taken off under "-"; colour 9, light blue, any other amount.
const QColor kDisagree(192, 0, 0);
const QColor kAmountBlue(0, 0, 255);
const char* const kGreyBackground = "background-color: #c0c0c0;";

// The style of an operator or units button: its own text colour, so that a
// red group around it does not colour it, on grey when the players differ.
QString ButtonStyle(bool agree) {
  return QString("color: %1; %2")
      .arg(QApplication::palette().color(QPalette::ButtonText).name(),
           agree ? "" : kGreyBackground);
}

// An empty palette gives the widget back its inherited colours.
void PaintCaption(QWidget* w, bool agree) {
  QPalette pal;
  if (!agree)
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
      pal.setColor(role, kDisagree);
  w->setPalette(pal);
}

}  // namespace

AutoPlayForm::AutoPlayForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmAutoPlay");
  HelpKey(this, game_, kHelpAutoPlay);
  setWindowTitle("Auto-Play");
  setWindowFlag(Qt::Tool);
  players_ = new QListWidget;
  players_->setObjectName("lstPlayer");
  players_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  connect(players_, &QListWidget::itemSelectionChanged, this, &AutoPlayForm::PlayersClicked);
  heading_ = new QLabel;
  heading_->setObjectName("lblSettingsFor");
  heading_->setAlignment(Qt::AlignCenter);
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);

  settings_ = new QWidget;
  auto* columns = new QHBoxLayout(settings_);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->addWidget(BuildOptions());
  auto* handling = new QVBoxLayout;
  handling->addWidget(BuildHandling(true));
  handling->addWidget(BuildHandling(false));
  handling->addStretch();
  columns->addLayout(handling);
  columns->addWidget(BuildWorkingList(), 1);

  auto* left = new QVBoxLayout;
  left->addWidget(heading_);
  left->addWidget(players_, 1);
  auto* ok = new QPushButton("OK");
  ok->setObjectName("cmdOK");
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  left->addWidget(ok);
  players_->setMaximumWidth(ok->sizeHint().width() * 2);

  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left);
  layout->addWidget(settings_, 1);
  Refresh();
}

std::int32_t AutoPlayForm::Selection() const { return EffectiveAutoPlaySelection(game_); }

void AutoPlayForm::Refresh() {
  FormLoading = true;
  players_->clear();
  const std::int32_t selected = Selection();
  for (int p = 1; p <= 8; ++p) {
    const std::string& name = game_.PlayerName[static_cast<std::size_t>(p)];
    if (name.empty()) continue;
    auto* item = new QListWidgetItem(QString::fromStdString(name), players_);
    item->setData(Qt::UserRole, p);
    item->setSelected((selected >> p) & 1);
  }
  FormLoading = false;
  ShowSettings();
}

void AutoPlayForm::PlayersClicked() {
  if (FormLoading) return;
  std::int32_t bits = 0;
  for (QListWidgetItem* item : players_->selectedItems())
    bits |= std::int32_t{1} << item->data(Qt::UserRole).toInt();
  SetAutoPlaySelection(game_, bits);
  ShowSettings();
}

void AutoPlayForm::ShowSettings() {
  FormLoading = true;
  const std::int32_t selected = Selection();
  heading_->setText(GameText(AutoPlayHeading(game_, selected)));
  const int first = FirstSelectedPlayer(game_, selected);
  settings_->setEnabled(first > 0);
  const int from = first > 0 ? first : 0;  // nobody selected: the defaults of slot 0
  for (const OptionControl& c : options_) {
    const bool agree = AutoPlayAgrees(game_, selected, c.option);
    const int value = AutoPlayValue(game_, from, c.option);
    PaintCaption(c.caption, agree);
    if (c.check) c.check->setChecked(agree && value != 0);
    if (c.combo) c.combo->setCurrentIndex(agree ? value : -1);
    if (c.group) {
      // No option of the group is set when the players differ.
      c.group->setExclusive(false);
      for (QAbstractButton* b : c.group->buttons()) b->setChecked(agree && c.group->id(b) == value);
      c.group->setExclusive(true);
    }
  }
  for (int i = 0; i < rowCount_; ++i) ShowAdjustRow(rows_[static_cast<std::size_t>(i)], true);
  FillWorkingList();
  FormLoading = false;
}

void AutoPlayForm::Write(AutoPlayOption option, int value) {
  if (FormLoading) return;
  SetAutoPlayOption(game_, Selection(), option, value);
  ShowSettings();
  emit changed();
}

void AutoPlayForm::ShowAdjustRow(const AdjustRow& row, bool refillAmount) {
  const std::int32_t selected = Selection();
  const int p = FirstSelectedPlayer(game_, selected);
  const AutoPlayState& a = game_.autoplay;
  const int op = row.op ? a.AdjustOperator(p, row.slot) : 0;
  const Currency amount = a.AdjustAmount(p, row.slot);
  if (row.op) {
    row.op->setText(OperatorCaption(op));
    const bool agree = AdjustAgrees(game_, selected, row.slot, AdjustPart::kOperator);
    row.op->setStyleSheet(ButtonStyle(agree));
  }
  if (row.units) {
    const bool agree = AdjustAgrees(game_, selected, row.slot, AdjustPart::kUnits);
    row.units->setText(AutoPlayUnitsCaption(
        agree ? static_cast<int>(a.AdjustUnits(p, row.slot).raw / Currency::kScale) : 0));
    row.units->setStyleSheet(ButtonStyle(agree));
  }
  const bool agree = AdjustAgrees(game_, selected, row.slot, AdjustPart::kAmount);
  const QString text = QString::fromStdString(PlainAmount(amount));
  // While the user types, the box keeps the typed text.
  if (refillAmount) row.amount->setText(text);
  const QColor colour = AutoPlayAmountColor(amount.ToDouble(), op) == 9 ? kAmountBlue : kDisagree;
  row.amount->setStyleSheet(
      QString("color: %1; %2").arg(colour.name(), agree ? "" : kGreyBackground));
}
