#include "table/check_stacks_form.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/money.h"
#include "engine/bankroll.h"
#include "engine/check_stacks_print.h"
#include "engine/players.h"
#include "engine/settle_text.h"
#include "table/menu_items.h"
#include "table/numeric_box.h"
#include "table/player_list.h"

namespace {

constexpr int kStacks = 100;
constexpr int kColNumber = 0, kColValue = 1, kColName = 2;
constexpr int kValueDecimals = 4;
constexpr int kFontStepMin = -4, kFontStepMax = 8;
const char* const kOrdinal[4] = {"1st", "2nd", "3rd", "4th"};

// The cell editor: every key goes to the form at once; the value column
// takes amounts with four decimals and a minus.
class StackDelegate : public QStyledItemDelegate {
 public:
  explicit StackDelegate(CheckStacksForm* form) : QStyledItemDelegate(form), form_(form) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    auto* box = new QLineEdit(parent);
    box->setObjectName("txtCheckStack");
    form_->SetTyping(true);
    if (index.column() == kColValue) new NumericKeyFilter(box, kValueDecimals, true);
    const int row = index.row(), column = index.column();
    // textChanged, not textEdited: the key filter writes the box with setText.
    connect(box, &QLineEdit::textChanged, form_,
            [this, row, column](const QString& text) { form_->CellTyped(row, column, text); });
    return box;
  }
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override {
    form_->SetTyping(false);
    QStyledItemDelegate::destroyEditor(editor, index);
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    auto* box = static_cast<QLineEdit*>(editor);
    const QSignalBlocker quiet(box);
    box->setText(index.data(Qt::EditRole).toString());
  }
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex& index) const override {
    form_->RefreshRow(index.row());  // the game holds what was typed
  }

 private:
  CheckStacksForm* form_;
};

}  // namespace

CheckStacksForm::CheckStacksForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmCheckStacks");
  HelpKey(this, game_, kHelpCheckStacks);
  setWindowTitle("CheckStacks");
  auto* menus = new QMenuBar(this);
  QMenu* file = menus->addMenu("&File");
  QAction* print = file->addAction("&Print ...");
  print->setObjectName("mnuPrint");
  connect(print, &QAction::triggered, this, [this] {
    if (Player() != 0) PrintCheckStacks(game_, Player(), game_.gamefile.GameFilePath);
  });

  QMenu* edit = menus->addMenu("&Edit");
  struct Item {
    const char* name;
    const char* caption;
    QKeySequence key;
    CellEdit what;
  };
  for (const Item& i : {Item{"mnuCut", "Cu&t", QKeySequence::Cut, CellEdit::Cut},
                        Item{"mnuCopy", "&Copy", QKeySequence::Copy, CellEdit::Copy},
                        Item{"mnuPaste", "&Paste", QKeySequence::Paste, CellEdit::Paste},
                        Item{"mnuDelete", "&Delete", QKeySequence::Delete, CellEdit::Delete}}) {
    QAction* a = edit->addAction(i.caption);
    a->setObjectName(i.name);
    a->setShortcut(i.key);
    const CellEdit what = i.what;
    connect(a, &QAction::triggered, this, [this, what] { EditCell(what); });
  }
  edit->addSeparator();
  struct Clear {
    const char* name;
    const char* caption;
    StackClear what;
  };
  for (const Clear& c : {Clear{"mnuDeleteAll", "Delete &All", StackClear::All},
                         Clear{"mnuDeleteAllValues", "Delete All &Values", StackClear::Values},
                         Clear{"mnuDeleteAllNames", "Delete All &Names", StackClear::Names}}) {
    QAction* a = edit->addAction(c.caption);
    a->setObjectName(c.name);
    const StackClear what = c.what;
    connect(a, &QAction::triggered, this, [this, what] {
      if (Player() == 0 || !DeleteAllCheckStacks(game_, Player(), what)) return;
      Refresh();
      emit changed();
    });
  }
  edit->addSeparator();
  QAction* visible = edit->addAction("&Set Visible CheckStacks");
  visible->setObjectName("mnuSetStacks");
  connect(visible, &QAction::triggered, this, &CheckStacksForm::OpenSetStacks);

  QMenu* display = menus->addMenu("&Display");
  displayZero_ = CheckItem(display, "mnuDisplayZero", "Display &Zero Values");
  connect(displayZero_, &QAction::toggled, this, [this](bool on) {
    if (filling_) return;
    game_.betting.DisplayZeroStacks = on;
    Refresh();
  });
  display->addSeparator();
  italic_ = display->addAction("&Italic");
  italic_->setObjectName("mnuFontItalic");
  bold_ = display->addAction("&Bold");
  bold_->setObjectName("mnuFontBold");
  for (QAction* a : {italic_, bold_}) {
    a->setCheckable(true);
    connect(a, &QAction::toggled, this, [this] {
      if (filling_) return;
      game_.gamefile.CheckStacksItalic = italic_->isChecked();
      game_.gamefile.CheckStacksBold = bold_->isChecked();
      ApplyFont();
    });
  }
  QMenu* size = display->addMenu("Font &Size");
  size->setObjectName("mnuFontSize");
  FontSizeItems(this, size, "mnuFontSize", [this](int step) {
    auto& font = game_.gamefile.CheckStacksFontSize;
    font = NextFontStep(font, step, kFontStepMin, kFontStepMax);
    ApplyFont();
  });

  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  connect(player_, &QComboBox::currentIndexChanged, this, [this] {
    if (filling_) return;
    game_.betting.CheckStacksPlayer = player_->currentData().toInt();
    Refresh();
  });
  grid_ = new QTableWidget(kStacks, 3);
  grid_->setObjectName("picCheckStacks");
  grid_->setHorizontalHeaderLabels({"#", "Value", "Name"});
  grid_->verticalHeader()->hide();
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::CurrentChanged | QAbstractItemView::SelectedClicked |
                         QAbstractItemView::AnyKeyPressed);
  grid_->setItemDelegate(new StackDelegate(this));
  grid_->horizontalHeader()->setSectionResizeMode(kColName, QHeaderView::Stretch);
  grid_->verticalScrollBar()->setObjectName("VScroll1");
  for (int n = 0; n < kStacks; ++n) {
    auto* number = new QTableWidgetItem(QString::number(n));
    number->setFlags(Qt::ItemIsEnabled);
    number->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid_->setItem(n, kColNumber, number);
    auto* value = new QTableWidgetItem;
    value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid_->setItem(n, kColValue, value);
    grid_->setItem(n, kColName, new QTableWidgetItem);
  }
  connect(grid_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int v) {
    if (!filling_) game_.gamefile.CheckStacksScroll = v;
  });

  setStacks_ = new QFrame;
  setStacks_->setObjectName("picSetStacks");
  setStacks_->setFrameShape(QFrame::StyledPanel);
  auto* sl = new QVBoxLayout(setStacks_);
  auto* numbers = new QFormLayout;
  for (int i = 0; i < 4; ++i) {
    stackNum_[i] = new QLineEdit;
    stackNum_[i]->setObjectName(QString("txtStackNum%1").arg(i));
    stackNum_[i]->setMaxLength(2);
    new NumericKeyFilter(stackNum_[i], 0, false);
    numbers->addRow(QString("Set %1 CheckStack to #").arg(kOrdinal[i]), stackNum_[i]);
  }
  sl->addLayout(numbers);
  auto* note = new QLabel(
      "The CheckStack #'s entered here will appear on the main game table in clockwise order.");
  note->setWordWrap(true);
  sl->addWidget(note);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* accept = new QPushButton("&Accept");
  accept->setObjectName("cmdOK");
  connect(accept, &QPushButton::clicked, this, &CheckStacksForm::AcceptSetStacks);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName("cmdCancel");
  connect(cancel, &QPushButton::clicked, setStacks_, &QWidget::hide);
  buttons->addWidget(accept);
  buttons->addWidget(cancel);
  sl->addLayout(buttons);
  setStacks_->hide();

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(menus);
  auto* top = new QHBoxLayout;
  top->addWidget(new QLabel("Player:"));
  top->addWidget(player_, 1);
  layout->addLayout(top);
  layout->addWidget(grid_, 1);
  layout->addWidget(setStacks_);
  resize(420, 520);
  Refresh();
}

int CheckStacksForm::Player() const {
  const int p = game_.betting.CheckStacksPlayer;
  return Seated(game_, p) ? p : 0;
}

void CheckStacksForm::Refresh() {
  if (typing_) return;
  filling_ = true;
  const int chosen = FillPlayerList(player_, game_, game_.betting.CheckStacksPlayer);
  grid_->setEnabled(chosen != 0);
  displayZero_->setChecked(game_.betting.DisplayZeroStacks);
  italic_->setChecked(game_.gamefile.CheckStacksItalic);
  bold_->setChecked(game_.gamefile.CheckStacksBold);
  ApplyFont();
  for (int n = 0; n < kStacks; ++n) RefreshRow(n);
  grid_->verticalScrollBar()->setValue(game_.gamefile.CheckStacksScroll);
  filling_ = false;
}

void CheckStacksForm::RefreshRow(int n) {
  if (n < 0 || n >= kStacks) return;
  const int p = Player();
  QTableWidgetItem* value = grid_->item(n, kColValue);
  QTableWidgetItem* name = grid_->item(n, kColName);
  const QSignalBlocker quiet(grid_);
  if (p == 0) {
    value->setText({});
    name->setText({});
    return;
  }
  const Currency v = game_.Bet(p, bet::kCheckStackFirst + n);
  const std::string& label = game_.CheckStackName(p, n);
  const bool named = label.find_first_not_of(' ') != std::string::npos;
  const bool drawn = named || !v.IsZero() || game_.betting.DisplayZeroStacks;
  value->setText(drawn ? QString::fromStdString(FormatMoney(v)) : QString());
  value->setForeground(v < Currency{}   ? QColor(255, 0, 0)
                       : v > Currency{} ? QColor(0, 0, 255)
                                        : palette().color(QPalette::Text));
  name->setText(QString::fromStdString(label));
}

void CheckStacksForm::CellTyped(int row, int column, const QString& text) {
  const int p = Player();
  if (p == 0 || row < 0 || row >= kStacks) return;
  if (column == kColValue)
    SetCheckStackValue(game_, p, row, text.toStdString());
  else if (column == kColName)
    SetCheckStackName(game_, p, row, text.toStdString());
  emit changed();
}

void CheckStacksForm::EditCell(CellEdit what) {
  const int p = Player();
  const int row = grid_->currentRow(), column = grid_->currentColumn();
  if (p == 0 || row < 0 || (column != kColValue && column != kColName)) return;
  QClipboard* clip = QApplication::clipboard();
  const Currency v = game_.Bet(p, bet::kCheckStackFirst + row);
  const QString shown = column == kColValue
                            ? (v.IsZero() ? QString() : QString::fromStdString(PlainAmount(v)))
                            : QString::fromStdString(game_.CheckStackName(p, row));
  if (what == CellEdit::Cut || what == CellEdit::Copy) clip->setText(shown);
  if (what == CellEdit::Copy) return;
  const QString put = what == CellEdit::Paste ? clip->text() : QString();
  CellTyped(row, column, column == kColValue && put.isEmpty() ? QString("0") : put);
  RefreshRow(row);
}

void CheckStacksForm::ApplyFont() {
  QFont font = QApplication::font();
  const int step = std::clamp(game_.gamefile.CheckStacksFontSize, kFontStepMin, kFontStepMax);
  font.setPointSizeF(std::max(4.0, font.pointSizeF() + step));
  font.setItalic(game_.gamefile.CheckStacksItalic);
  font.setBold(game_.gamefile.CheckStacksBold);
  // Unchanged, nothing is measured again: the form refreshes after each roll.
  if (fontApplied_ && font == grid_->font()) return;
  fontApplied_ = true;
  grid_->setFont(font);
  grid_->resizeRowsToContents();
  grid_->resizeColumnToContents(kColNumber);
  grid_->setColumnWidth(kColValue,
                        std::max(grid_->columnWidth(kColValue),
                                 QFontMetrics(font).horizontalAdvance("-99,999,999.9999")));
}

void CheckStacksForm::OpenSetStacks() {
  const int p = Player();
  if (p == 0) return;
  for (int i = 0; i < 4; ++i)
    stackNum_[i]->setText(
        QString::number(game_.betting.CheckStackSlot(p, i + 1) - bet::kCheckStackFirst));
  setStacks_->show();
  stackNum_[0]->setFocus();
}

void CheckStacksForm::AcceptSetStacks() {
  const int p = Player();
  if (p == 0) return;
  int numbers[4];
  for (int i = 0; i < 4; ++i) numbers[i] = stackNum_[i]->text().toInt();
  if (!SetVisibleCheckStacks(game_, p, numbers)) return;
  setStacks_->hide();
  emit changed();
}
