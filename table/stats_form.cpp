#include "table/stats_form.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <algorithm>

#include "core/game.h"
#include "core/help_topics.h"
#include "engine/players.h"
#include "stats/selection.h"
#include "table/menu_items.h"

namespace {
constexpr int kMinPlayerRows = 2;  // an empty table still shows a list
constexpr int kListPadding = 4;
constexpr int kSelectionGap = 8;   // between the time period and the players
}  // namespace

StatsForm::StatsForm(Game& game, const char* name, const QString& caption, QWidget* parent)
    : QDialog(parent), game_(game) {
  setObjectName(name);
  HelpKey(this, game_, kHelpStatistics);
  setWindowTitle(caption);
  setModal(false);
}

void StatsForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
}

void StatsForm::Refresh() {
  filling_ = true;
  if (frameList_) frameList_->setCurrentIndex(std::clamp(*frame_, 0, kFrameCount - 1));
  if (playerList_) FillPlayerList();
  filling_ = false;
  ShowFigures();
}

bool StatsForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonDblClick) {
    const auto it = clearers_.find(watched);
    if (it != clearers_.end()) {
      it->second();
      game_.roll.SessionDirty = true;
      Refresh();
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

QComboBox* StatsForm::MakeFrameList(std::int32_t& frame) {
  frame_ = &frame;
  frameList_ = new QComboBox;
  frameList_->setObjectName("cmbHand");
  for (int t = 0; t < kFrameCount; ++t)
    frameList_->addItem(
        QString::fromUtf8(FrameName(t)));
  connect(frameList_, &QComboBox::currentIndexChanged, this, [this](int t) {
    if (filling_ || t < 0) return;
    *frame_ = t;
    game_.roll.SessionDirty = true;
    Refresh();
  });
  return frameList_;
}

QListWidget* StatsForm::MakePlayerList(std::int32_t& players) {
  players_ = &players;
  playerList_ = new QListWidget;
  playerList_->setObjectName("lstPlayer");
  playerList_->setSelectionMode(QAbstractItemView::MultiSelection);
  playerList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  playerList_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(playerList_, &QListWidget::itemSelectionChanged, this, [this] {
    if (filling_) return;
    ReadPlayerSelection();
    Refresh();
  });
  playerLabel_ = new QLabel;
  playerLabel_->setObjectName("lblPlayer");
  playerLabel_->setToolTip("Double-click to clear the selection");
  ClearOnDoubleClick(playerLabel_, [this] { *players_ = 0; });
  return playerList_;
}

void StatsForm::FillPlayerList() {
  QStringList names;
  std::vector<int> seats;
  for (int p = 1; p <= kPlayerSlots - 1; ++p) {
    if (!Seated(game_, p)) continue;
    names << QString::fromStdString(game_.PlayerName[static_cast<std::size_t>(p)]);
    seats.push_back(p);
  }
  bool same = playerList_->count() == names.size();
  for (int r = 0; same && r < names.size(); ++r)
    same = playerList_->item(r)->text() == names[r] &&
           playerList_->item(r)->data(Qt::UserRole).toInt() == seats[static_cast<std::size_t>(r)];
  if (!same) {
    playerList_->clear();
    for (int r = 0; r < names.size(); ++r) {
      auto* item = new QListWidgetItem(names[r], playerList_);
      item->setData(Qt::UserRole, seats[static_cast<std::size_t>(r)]);
    }
    // The list is as tall as its entries.
    const int rowHeight = playerList_->sizeHintForRow(0) > 0 ? playerList_->sizeHintForRow(0)
                                                             : fontMetrics().height() + 2;
    playerList_->setFixedHeight(std::max<int>(kMinPlayerRows, static_cast<int>(names.size())) *
                                    rowHeight +
                                2 * playerList_->frameWidth() + kListPadding);
  }
  for (int r = 0; r < playerList_->count(); ++r) {
    QListWidgetItem* item = playerList_->item(r);
    const bool want = (*players_ >> item->data(Qt::UserRole).toInt()) & 1;
    if (item->isSelected() != want) item->setSelected(want);
  }
  playerLabel_->setText(QString::fromStdString(SelectedPlayersLabel(game_, *players_)));
}

void StatsForm::ReadPlayerSelection() {
  std::int32_t bits = 0;
  for (QListWidgetItem* item : playerList_->selectedItems())
    bits |= 1 << item->data(Qt::UserRole).toInt();
  *players_ = bits;
  game_.roll.SessionDirty = true;
}

void StatsForm::ClearOnDoubleClick(QLabel* label, std::function<void()> clear) {
  clearers_[label] = std::move(clear);
  label->installEventFilter(this);
}

QMenuBar* StatsForm::MakeMenuBar(bool (*print)(Game&)) {
  auto* bar = new QMenuBar(this);
  QMenu* file = bar->addMenu("&File");
  QAction* item = file->addAction("&Print ...");
  item->setObjectName("mnuPrint");
  connect(item, &QAction::triggered, this, [this, print] { print(game_); });
  return bar;
}

QVBoxLayout* StatsForm::SelectionColumn(QComboBox* frames, QListWidget* players) {
  auto* column = new QVBoxLayout;
  column->addWidget(new QLabel("Time period:"));
  column->addWidget(frames);
  column->addSpacing(kSelectionGap);
  column->addWidget(new QLabel("Players:"));
  column->addWidget(players);
  column->addWidget(playerLabel_);
  return column;
}

QLabel* StatsForm::MakeFigure(const char* name, int minWidth) {
  return MakeFigure(QString::fromLatin1(name), minWidth);
}

QLabel* StatsForm::MakeFigure(const QString& name, int minWidth) {
  auto* l = new QLabel;
  l->setObjectName(name);
  l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  l->setMinimumWidth(minWidth);
  l->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return l;
}

void StatsForm::SetLossColor(QLabel* label, bool loss) {
  const int* rgb = loss ? kLossRgb : kGainRgb;
  QPalette pal = label->palette();
  pal.setColor(QPalette::WindowText, QColor(rgb[0], rgb[1], rgb[2]));
  label->setPalette(pal);
}

void StatsForm::SetShown(QLabel* label, const Shown& s, bool colored) {
  label->setText(QString::fromStdString(s.text));
  if (colored) SetLossColor(label, s.negative);
}

void StatsForm::AddRow(QGridLayout* grid, int row, const QString& caption, QLabel* figure) {
  grid->addWidget(new QLabel(caption), row, 0);
  grid->addWidget(figure, row, 1);
}
