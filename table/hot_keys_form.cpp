#include "table/hot_keys_form.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "cycle/auto_bet_commands.h"
#include "script/hot_keys.h"
#include "script/script_printouts.h"
#include "table/auto_bet_form.h"
#include "table/menu_items.h"

namespace {

constexpr int kRowsShown = 20;
constexpr int kLetters = 26;
const char* const kArmedStyle = "background-color: #ff0000; color: #ffffff;";

QString KeyText(char key) { return QString("Ctrl ") + QChar(key); }

}  // namespace

HotKeysForm::HotKeysForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmHotKeys");
  HelpKey(this, game_, kHelpHotKeys);
  setWindowTitle("Hot-Keys");
  auto* bar = new QMenuBar(this);
  QMenu* file = bar->addMenu("&File");
  file->setToolTipsVisible(true);
  QAction* print = file->addAction("&Print ...");
  print->setObjectName("mnuPrint");
  connect(print, &QAction::triggered, this, [this] {
    game_.platform->Print(HotKeysPrintout(game_, PrintDateTime(*game_.platform)));
  });
  QMenu* edit = bar->addMenu("&Edit");
  struct Item {
    const char* name;
    const char* caption;
    RowEdit what;
  };
  for (const Item& i : {Item{"mnuCut", "Cu&t", RowEdit::Cut}, Item{"mnuCopy", "&Copy", RowEdit::Copy},
                        Item{"mnuPaste", "&Paste", RowEdit::Paste},
                        Item{"mnuDelete", "&Delete", RowEdit::Delete},
                        Item{"mnuSelectAll", "Select &All", RowEdit::SelectAll}}) {
    QAction* a = edit->addAction(i.caption);
    a->setObjectName(i.name);
    const RowEdit what = i.what;
    connect(a, &QAction::triggered, this, [this, what] {
      if (list_->hasFocus() || listActive_)
        EditRows(what);
      else
        EditText(what);
    });
  }

  list_ = new QTableWidget(0, 3);
  list_->setObjectName("picHotKeys");
  list_->setHorizontalHeaderLabels({"Hot-Key", "Short Description", "Auto-Bet File"});
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->verticalHeader()->hide();
  list_->horizontalHeader()->setStretchLastSection(true);
  list_->setColumnWidth(0, 80);
  list_->setColumnWidth(1, 240);
  list_->setMinimumWidth(720);
  const int rowHeight = list_->verticalHeader()->defaultSectionSize();
  list_->setMinimumHeight(kRowsShown * rowHeight + list_->horizontalHeader()->sizeHint().height() +
                          2 * list_->frameWidth());
  list_->viewport()->installEventFilter(this);
  connect(list_, &QTableWidget::itemSelectionChanged, this, &HotKeysForm::SelectionChanged);
  connect(list_, &QTableWidget::cellDoubleClicked, this,
          [this](int row, int) { RowDoubleClicked(row); });

  key_ = new QComboBox;
  key_->setObjectName("cmbKey");
  for (int i = 0; i < kLetters; ++i) key_->addItem(" " + KeyText(static_cast<char>('A' + i)));
  description_ = new QLineEdit;
  description_->setObjectName("txtDescription");
  description_->setMaxLength(static_cast<int>(kHotKeyTextSize));
  file_ = new QLineEdit;
  file_->setObjectName("txtAutoBetFile");
  file_->setMaxLength(static_cast<int>(kHotKeyTextSize));
  file_->installEventFilter(this);
  description_->installEventFilter(this);
  key_->installEventFilter(this);
  list_->installEventFilter(this);
  select_ = new QPushButton("&Select Auto-Bet File");
  select_->setObjectName("cmdSelectAutoBetFile");
  connect(select_, &QPushButton::clicked, this, &HotKeysForm::SelectFile);
  add_ = new QPushButton("&Add");
  add_->setObjectName("cmdAddHotKey");
  connect(add_, &QPushButton::clicked, this, &HotKeysForm::AddClicked);

  auto* entry = new QGridLayout;
  entry->addWidget(new QLabel("Hot-Key"), 0, 0);
  entry->addWidget(new QLabel("Short Description"), 0, 1);
  entry->addWidget(new QLabel("Auto-Bet File"), 0, 2);
  entry->addWidget(key_, 1, 0);
  entry->addWidget(description_, 1, 1);
  entry->addWidget(file_, 1, 2);
  entry->setColumnStretch(1, 1);
  entry->setColumnStretch(2, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(select_);
  buttons->addWidget(add_);

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addWidget(list_, 1);
  layout->addLayout(entry);
  layout->addLayout(buttons);
  ShowRows();
}

void HotKeysForm::ShowRows() {
  const auto& rows = game_.scriptSource.HotKeyTable;
  filling_ = true;
  list_->clearSelection();
  list_->setRowCount(static_cast<int>(rows.size()));
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    const HotKeyRow& row = rows[static_cast<std::size_t>(r)];
    const QString cells[3] = {KeyText(row.key), QString::fromStdString(row.description),
                              QString::fromStdString(row.file)};
    for (int c = 0; c < 3; ++c) list_->setItem(r, c, new QTableWidgetItem(cells[c]));
    if (row.selected) list_->selectRow(r);
  }
  filling_ = false;
}

void HotKeysForm::SelectionChanged() {
  if (filling_) return;
  auto& rows = game_.scriptSource.HotKeyTable;
  for (int r = 0; r < static_cast<int>(rows.size()); ++r)
    rows[static_cast<std::size_t>(r)].selected =
        list_->item(r, 0) != nullptr && list_->item(r, 0)->isSelected();
}

void HotKeysForm::PaintEntry(bool armed) {
  for (QWidget* w : {static_cast<QWidget*>(key_), static_cast<QWidget*>(description_),
                     static_cast<QWidget*>(file_)})
    w->setStyleSheet(armed ? kArmedStyle : "");
  list_->viewport()->setCursor(armed ? Qt::UpArrowCursor : Qt::ArrowCursor);
}

void HotKeysForm::AddClicked() {
  HotKeyRow row;
  row.key = key_->currentText().back().toLatin1();
  row.file = file_->text().toStdString();
  row.description = description_->text().toStdString();
  const std::string problem = HotKeyRowProblem(row);
  if (!problem.empty()) {
    ShowNotice(game_, problem, "Hot-Key", kHelpHotKeys, kMsgOk);
    file_->setFocus();
    return;
  }
  placing_ = true;
  PaintEntry(true);
  list_->setFocus();
}

void HotKeysForm::PlaceRow(int at) {
  if (!placing_) return;
  placing_ = false;
  PaintEntry(false);
  auto& rows = game_.scriptSource.HotKeyTable;
  HotKeyRow row;
  row.key = key_->currentText().back().toLatin1();
  row.file = file_->text().toStdString();
  row.description = description_->text().toStdString();
  const int place = at < 0 ? static_cast<int>(rows.size())
                           : std::min(at, static_cast<int>(rows.size()));
  rows.insert(rows.begin() + place, row);
  ShowRows();
}

void HotKeysForm::RowDoubleClicked(int r) {
  const auto& rows = game_.scriptSource.HotKeyTable;
  if (r < 0 || r >= static_cast<int>(rows.size())) return;
  const HotKeyRow& row = rows[static_cast<std::size_t>(r)];
  key_->setCurrentIndex(row.key - 'A');
  description_->setText(QString::fromStdString(row.description));
  file_->setText(QString::fromStdString(row.file));
}

void HotKeysForm::SelectFile() {
  const auto path = ChooseFilePath(game_, AutoBetFileChoice("Select Auto-Bet File for Hot-Key", false));
  if (path) file_->setText(QString::fromStdString(*path));
}

bool HotKeysForm::eventFilter(QObject* watched, QEvent* event) {
  // The Edit menu works on what was used last: the list or an entry control.
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
    listActive_ = watched == list_ || watched == list_->viewport();
  if (watched == list_->viewport() && placing_ && event->type() == QEvent::MouseButtonPress &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
    PlaceRow(list_->rowAt(static_cast<int>(static_cast<QMouseEvent*>(event)->position().y())));
    return true;
  }
  if (watched == file_ && event->type() == QEvent::MouseButtonDblClick) {
    SelectFile();
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void HotKeysForm::EditRows(RowEdit what) {
  auto& rows = game_.scriptSource.HotKeyTable;
  if (what == RowEdit::SelectAll) {
    list_->selectAll();
    return;
  }
  if (what == RowEdit::Paste) {
    const auto pasted = ParseHotKeyClipboard(QApplication::clipboard()->text().toStdString());
    const int at = list_->currentRow() < 0 ? static_cast<int>(rows.size()) : list_->currentRow();
    rows.insert(rows.begin() + std::min(at, static_cast<int>(rows.size())), pasted.begin(),
                pasted.end());
    ShowRows();
    return;
  }
  if (what == RowEdit::Cut || what == RowEdit::Copy) {
    QString text;
    for (const HotKeyRow& row : rows)
      if (row.selected) text += QString::fromStdString(HotKeyClipboardText(row)) + "\r\n";
    QApplication::clipboard()->setText(text);
  }
  if (what == RowEdit::Cut || what == RowEdit::Delete) {
    std::erase_if(rows, [](const HotKeyRow& row) { return row.selected; });
    ShowRows();
  }
}

void HotKeysForm::EditText(RowEdit what) {
  auto* box = qobject_cast<QLineEdit*>(focusWidget());
  if (box == nullptr) return;
  switch (what) {
    case RowEdit::Cut: box->cut(); break;
    case RowEdit::Copy: box->copy(); break;
    case RowEdit::Paste: box->paste(); break;
    case RowEdit::Delete: box->del(); break;
    case RowEdit::SelectAll: box->selectAll(); break;
  }
}

void HotKeysForm::done(int result) {
  // Leaving the form writes the table back; a failure has told why.
  SaveHotKeys(game_);
  game_.roll.SessionDirty = true;
  QDialog::done(result);
}
