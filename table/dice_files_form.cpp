#include "table/dice_files_form.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/money.h"
#include "dice/dice_file.h"
#include "dice/dice_file_edit.h"
#include "dice/dice_file_print.h"
#include "dice/dice_file_text.h"
#include "store/file_chooser.h"
#include "table/menu_items.h"

namespace {

constexpr int kListWidth = 230;
constexpr int kWheelRows = 3;
// The list's font in point steps around the application's size, and the
// smallest size it is drawn at.
constexpr int kFontStepMin = -4, kFontStepMax = 8;
constexpr double kSmallestPoints = 6.0;
enum EditCommand { kCut, kCopy, kPaste, kDelete, kSelectAll };

QString Grouped(std::int64_t n) { return QString::fromStdString(FormatCount(n)); }

}  // namespace

DiceRollList::DiceRollList(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  setObjectName("picDiceRolls");
  setMinimumSize(kListWidth, 200);
  ApplyFontSize();
}

void DiceRollList::ApplyFontSize() {
  QFont fixed("DejaVu Sans Mono");
  fixed.setStyleHint(QFont::Monospace);
  const int step = std::clamp(game_.gamefile.DiceFilesFontSize, kFontStepMin, kFontStepMax);
  fixed.setPointSizeF(std::max(kSmallestPoints, QApplication::font().pointSizeF() + step));
  if (fixed == font()) return;  // the form refreshes after every roll
  setFont(fixed);
  update();
}

int DiceRollList::RowHeight() const { return fontMetrics().height() + 2; }

int DiceRollList::VisibleRows() const { return std::max(1, height() / RowHeight()); }

void DiceRollList::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), Qt::white);
  const DiceFileState& f = game_.diceFile;
  if (f.DiceFilePath.empty()) return;
  const std::int64_t total = DiceRollTotal(game_);
  const DiceSelection sel = SelectedDiceRolls(game_);
  const int rows = VisibleRows(), h = RowHeight();
  const std::int64_t first = std::max<std::int32_t>(f.DiceSelStart, 1);
  const int count = static_cast<int>(std::clamp<std::int64_t>(total - first + 1, 0, rows));
  const std::vector<unsigned char> rolls = ReadDiceRolls(game_, first, count);
  for (int r = 0; r < rows; ++r) {
    const std::int64_t n = first + r;
    if (n > total + 1) break;
    const QRect line(0, r * h, width(), h);
    const bool inSelection = n >= sel.first && n <= sel.last;
    if (n == f.DiceFilePos) p.fillRect(line, QColor(255, 235, 150));
    if (inSelection) p.fillRect(line, QColor(0, 90, 200));
    p.setPen(inSelection ? Qt::white : Qt::black);
    if (n == total + 1) {
      // The place after the last roll, where keyed rolls are added.
      p.drawText(line.adjusted(6, 0, 0, 0), Qt::AlignVCenter,
                 QString("%1   -end-").arg(Grouped(n), 9));
      continue;
    }
    if (static_cast<std::size_t>(r) >= rolls.size()) break;
    const unsigned char b = rolls[static_cast<std::size_t>(r)];
    const int d1 = DieOneOf(b), d2 = DieTwoOf(b);
    const bool valid = DiceWithinLimits(b);
    if (valid && game_.diceFile.HighlightCombo(d1, d2)) {
      const QRect mark = line.adjusted(width() - 44, 2, -4, -2);
      p.fillRect(mark, QColor(255, 220, 0));
    }
    const QString text =
        valid ? QString("%1   %2-%3   %4").arg(Grouped(n), 9).arg(d1).arg(d2).arg(d1 + d2, 2)
              : QString("%1   bad value %2").arg(Grouped(n), 9).arg(b);
    p.setPen(inSelection ? Qt::white : Qt::black);
    p.drawText(line.adjusted(6, 0, 0, 0), Qt::AlignVCenter, text);
  }
}

void DiceRollList::mousePressEvent(QMouseEvent* event) {
  const bool keep = (event->modifiers() & Qt::ShiftModifier) || event->button() == Qt::RightButton;
  emit rowClicked(static_cast<int>(event->position().y()) / RowHeight(), keep);
}

void DiceRollList::wheelEvent(QWheelEvent* event) {
  emit scrolled(event->angleDelta().y() > 0 ? -kWheelRows : kWheelRows);
}

DiceFilesForm::DiceFilesForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmDiceRollFiles");
  HelpKey(this, game_, kHelpDiceRollFiles);
  auto* menu = new QMenuBar(this);
  BuildFileMenu(menu->addMenu("&File"));
  BuildEditMenu(menu->addMenu("&Edit"));
  highlight_ = BuildHighlightMenu(menu->addMenu("&Highlight"));
  BuildFontMenu(menu->addMenu("F&ont Size"));

  list_ = new DiceRollList(game, this);
  connect(list_, &DiceRollList::rowClicked, this, [this](int row, bool keep) {
    ClickDiceRow(game_, row, keep);
    Refresh();
  });
  scroll_ = new QScrollBar(Qt::Vertical);
  scroll_->setObjectName("vsbDiceRolls");
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int v) {
    if (filling_) return;
    game_.diceFile.DiceSelStart = v;
    list_->update();
  });
  connect(list_, &DiceRollList::scrolled, this,
          [this](int rows) { scroll_->setValue(scroll_->value() + rows); });
  auto* listBox = new QHBoxLayout;
  listBox->setSpacing(0);
  listBox->addWidget(list_, 1);
  listBox->addWidget(scroll_);

  path_ = new QLabel;
  path_->setObjectName("lblPath");
  path_->setWordWrap(true);
  total_ = new QLabel;
  total_->setObjectName("lblTotalNumRolls");
  selected_ = new QLabel;
  selected_->setObjectName("lblNumRollsSelected");
  last_ = new QLabel;
  last_->setObjectName("lblLastRollNum");
  next_ = new QLineEdit;
  next_->setObjectName("txtNextRollNum");
  next_->setValidator(new QIntValidator(0, INT32_MAX, next_));
  next_->setMaximumWidth(110);
  connect(next_, &QLineEdit::returnPressed, this, [this] {
    SetNextRollNumber(game_, next_->text().toLongLong());
    ShowCaret();
    Refresh();
  });
  auto* figures = new QGridLayout;
  figures->addWidget(new QLabel("Total number of rolls:"), 0, 0);
  figures->addWidget(total_, 0, 1);
  figures->addWidget(new QLabel("Rolls selected:"), 1, 0);
  figures->addWidget(selected_, 1, 1);
  figures->addWidget(new QLabel("Last roll was roll #"), 2, 0);
  figures->addWidget(last_, 2, 1);
  figures->addWidget(new QLabel("Next roll is roll #"), 3, 0);
  figures->addWidget(next_, 3, 1);

  typeOver_ = new QRadioButton(" Type over");
  typeOver_->setObjectName("optInsertRolls0");
  insert_ = new QRadioButton(" Insert");
  insert_->setObjectName("optInsertRolls1");
  connect(insert_, &QRadioButton::toggled, this, [this](bool on) {
    if (!filling_) game_.diceFile.optInsertRolls = on;
  });
  auto* mode = new QHBoxLayout;
  mode->addWidget(typeOver_);
  mode->addWidget(insert_);
  mode->addStretch(1);

  auto* side = new QVBoxLayout;
  side->addWidget(path_);
  side->addWidget(BuildRecorder());
  side->addLayout(figures);
  side->addLayout(mode);
  side->addWidget(BuildRollButtons());
  side->addStretch(1);

  auto* body = new QHBoxLayout(this);
  body->setMenuBar(menu);
  body->addLayout(listBox, 1);
  body->addLayout(side);
  // Enter in the roll number box must not press a button of the form.
  for (QPushButton* b : findChildren<QPushButton*>()) b->setAutoDefault(false);
}

QMenu* DiceFilesForm::BuildFileMenu(QMenu* m) {
  MenuItem(this, m, "mnuNewOpen", "&New/Open ...", [this] {
    const auto path = ChooseFilePath(
        game_, RollFileChoice("Open Dice Roll File  or  Enter Name For A New File", false));
    if (path) Act([&] { return OpenDiceRollFile(game_, *path); });
  });
  MenuItem(this, m, "mnuClose", "&Close", [this] {
    Act([&] {
      CloseDiceRollFile(game_);
      return true;
    });
  });
  m->addSeparator();
  MenuItem(this, m, "mnuCopyToRollFile", "Copy &To Dice Roll File ...", [this] {
    if (game_.diceFile.DiceFilePath.empty()) return;
    // The command itself asks before copying over an existing file.
    const auto path = ChooseFilePath(game_, RollFileChoice("Copy To Dice Roll File", false));
    if (path) Act([&] { return CopyToRollFile(game_, *path); });
  });
  MenuItem(this, m, "mnuPasteFromRollFile", "Paste &From Dice Roll File ...", [this] {
    if (game_.diceFile.DiceFilePath.empty()) return;
    const auto path = ChooseFilePath(game_, RollFileChoice("Paste From Dice Roll File", false));
    if (path) Act([&] { return PasteFromRollFile(game_, *path); });
  });
  MenuItem(this, m, "mnuCopyToTextFile", "Copy To Te&xt File ...", [this] {
    if (game_.diceFile.DiceFilePath.empty()) return;
    // A template without dice is refused, with its message, before a file is asked for.
    if (!HasDiceInformation(game_.diceFile.DiceOutputFormat)) {
      CopyToTextFile(game_, std::string());
      return;
    }
    const auto path = ChooseFilePath(game_, TextFileChoice("Copy Dice Rolls To Text File", true));
    if (path) Act([&] { return CopyToTextFile(game_, *path); });
  });
  MenuItem(this, m, "mnuPasteFromTextFile", "Paste From &Ascii/Text File ...", [this] {
    if (game_.diceFile.DiceFilePath.empty()) return;
    const auto path = ChooseFilePath(game_, TextFileChoice("Paste From Ascii/Text File", false));
    if (path) Act([&] { return PasteFromTextFile(game_, *path); });
  });
  m->addSeparator();
  MenuItem(this, m, "mnuFormatOutput", "F&ormat Output ...",
           [this] { AskDiceOutputFormat(game_); });
  MenuItem(this, m, "mnuPrint", "&Print ...", [this] { PrintDiceRolls(game_); });
  m->addSeparator();
  MenuItem(this, m, "mnuHide", "&Hide", [this] { close(); });
  return m;
}

QMenu* DiceFilesForm::BuildEditMenu(QMenu* m) {
  struct Command {
    const char* name;
    const char* text;
    QKeySequence key;
    int command;
  };
  for (const Command& c :
       {Command{"mnuCut", "Cu&t", QKeySequence::Cut, kCut},
        Command{"mnuCopy", "&Copy", QKeySequence::Copy, kCopy},
        Command{"mnuPaste", "&Paste", QKeySequence::Paste, kPaste},
        Command{"mnuDelete", "&Delete", QKeySequence::Delete, kDelete},
        Command{"mnuSelectAll", "Select &All", QKeySequence::SelectAll, kSelectAll}}) {
    QAction* a = m->addAction(c.text);
    a->setObjectName(c.name);
    a->setShortcut(c.key);
    a->setShortcutContext(Qt::WindowShortcut);
    addAction(a);
    const int command = c.command;
    connect(a, &QAction::triggered, this, [this, command] { Edit(command); });
  }
  return m;
}

void DiceFilesForm::BuildFontMenu(QMenu* m) {
  m->setObjectName("mnuFontSize");
  FontSizeItems(this, m, "mnuFontSize", [this](int step) {
    Long& size = game_.gamefile.DiceFilesFontSize;
    size = NextFontStep(size, step, kFontStepMin, kFontStepMax);
    Refresh();
  });
}

QMenu* DiceFilesForm::BuildHighlightMenu(QMenu* m) {
  m->setObjectName("mnuHighlight");
  connect(m, &QMenu::aboutToShow, this, &DiceFilesForm::RefreshHighlightChecks);
  for (int d1 = 1; d1 <= 6; ++d1) {
    QMenu* pips = m->addMenu(QString("Die 1 = &%1").arg(d1));
    for (int d2 = 1; d2 <= 6; ++d2) {
      QAction* a = pips->addAction(QString("%1-%2").arg(d1).arg(d2));
      a->setObjectName(QString("mnuPip%1").arg(d1));
      a->setCheckable(true);
      a->setData(d1 * 10 + d2);
      connect(a, &QAction::triggered, this, [this, d1, d2] {
        ToggleHighlightPair(game_, d1, d2);
        Refresh();
      });
    }
  }
  m->addSeparator();
  for (int total = 2; total <= 12; ++total) {
    QAction* a = m->addAction(QString("All &%1's").arg(total));
    a->setObjectName(QString("mnuAll%1").arg(total));
    a->setCheckable(true);
    connect(a, &QAction::triggered, this, [this, total] {
      ToggleHighlightTotal(game_, total);
      Refresh();
    });
  }
  m->addSeparator();
  QAction* clear = m->addAction("C&lear All");
  clear->setObjectName("mnuClearAll");
  connect(clear, &QAction::triggered, this, [this] {
    ClearHighlights(game_);
    Refresh();
  });
  return m;
}

QWidget* DiceFilesForm::BuildRecorder() {
  auto* box = new QGroupBox("Recorder");
  box->setObjectName("picRecorder");
  auto* outer = new QVBoxLayout(box);
  auto* row = new QHBoxLayout;
  outer->addLayout(row);
  state_ = new QLabel;
  state_->setObjectName("lblRecorderState");
  state_->setAlignment(Qt::AlignCenter);
  outer->addWidget(state_);
  const char* const captions[3] = {QT_TR_NOOP("&Stop"), QT_TR_NOOP("&Record"),
                                   QT_TR_NOOP("&Playback")};
  for (int mode = 0; mode < 3; ++mode) {
    auto* b = new QPushButton(captions[mode]);
    b->setObjectName(QString("cmdRecorder%1").arg(mode));
    b->setCheckable(true);
    connect(b, &QPushButton::clicked, this, [this, mode] {
      SetDiceFileMode(game_, mode);
      Refresh();
      emit changed();
    });
    recorder_[static_cast<std::size_t>(mode)] = b;
    row->addWidget(b);
  }
  return box;
}

QWidget* DiceFilesForm::BuildRollButtons() {
  auto* box = new QGroupBox("Key in rolls");
  auto* grid = new QGridLayout(box);
  grid->setSpacing(2);
  for (int k = 0; k < 36; ++k) {
    auto* b = new QPushButton(QString("%1-%2").arg(k / 6 + 1).arg(k % 6 + 1));
    b->setObjectName(QString("cmdRollNumbers%1").arg(k));
    b->setFixedWidth(44);
    connect(b, &QPushButton::clicked, this,
            [this, k] { Act([&] { return KeyDiceRoll(game_, k); }); });
    grid->addWidget(b, k / 6, k % 6);
  }
  auto* random = new QPushButton("Ran&dom");
  random->setObjectName("cmdRandomNum");
  connect(random, &QPushButton::clicked, this,
          [this] { Act([&] { return KeyRandomDiceRoll(game_); }); });
  grid->addWidget(random, 6, 0, 1, 6);
  return box;
}

template <typename F>
void DiceFilesForm::Act(F f) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  f();
  QApplication::restoreOverrideCursor();
  ShowCaret();
  Refresh();
  emit changed();
}

void DiceFilesForm::Edit(int command) {
  if (next_->hasFocus()) {
    switch (command) {
      case kCut:
        next_->cut();
        break;
      case kCopy:
        next_->copy();
        break;
      case kPaste:
        next_->paste();
        break;
      case kDelete:
        next_->del();
        break;
      case kSelectAll:
        next_->selectAll();
        break;
    }
    return;
  }
  switch (command) {
    case kCut:
      Act([&] { return CutDiceRolls(game_); });
      break;
    case kCopy:
      Act([&] { return CopyDiceRolls(game_); });
      break;
    case kPaste:
      Act([&] { return PasteDiceRolls(game_); });
      break;
    case kDelete:
      Act([&] { return DeleteDiceRolls(game_); });
      break;
    case kSelectAll:
      Act([&] {
        SelectAllDiceRolls(game_);
        return true;
      });
      break;
  }
}

void DiceFilesForm::ShowCaret() {
  DiceFileState& f = game_.diceFile;
  const int rows = list_->VisibleRows();
  if (f.DiceFilePos < f.DiceSelStart) f.DiceSelStart = std::max(1, f.DiceFilePos);
  if (f.DiceFilePos >= f.DiceSelStart + rows) f.DiceSelStart = f.DiceFilePos - rows + 1;
}

void DiceFilesForm::RefreshHighlightChecks() {
  for (QAction* a : highlight_->findChildren<QAction*>()) {
    const QString name = a->objectName();
    if (name.startsWith("mnuPip")) {
      const int v = a->data().toInt();
      a->setChecked(game_.diceFile.HighlightCombo(v / 10, v % 10));
    } else if (name.startsWith("mnuAll")) {
      a->setChecked(TotalHighlighted(game_, name.mid(6).toInt()));
    }
  }
}

void DiceFilesForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
}

void DiceFilesForm::Refresh() {
  filling_ = true;
  DiceFileState& f = game_.diceFile;
  const bool open = !f.DiceFilePath.empty();
  // A file just opened empty has its caret on roll 1, where the first roll goes.
  if (open && f.DiceFilePos < 1) f.DiceFilePos = 1;
  setWindowTitle(QString::fromStdString(DiceRollFilesTitle(game_)));
  path_->setText(open ? QString::fromStdString(f.DiceFilePath)
                      : QString("No dice roll file open."));
  const std::int64_t total = open ? DiceRollTotal(game_) : 0;
  total_->setText(Grouped(total));
  selected_->setText(Grouped(open ? CountSelectedDiceRolls(game_) : 0));
  last_->setText(Grouped(f.DiceFileLast));
  if (!next_->hasFocus()) next_->setText(QString::number(f.DiceFilePos));
  typeOver_->setChecked(!f.optInsertRolls);
  insert_->setChecked(f.optInsertRolls);
  for (std::size_t m = 0; m < recorder_.size(); ++m)
    recorder_[m]->setChecked(static_cast<std::int32_t>(m) == f.DiceFileMode);
  static const char* const kState[3] = {"Not recording or playing back",
                                        "<b style='color:#c00000'>Recording every roll</b>",
                                        "<b style='color:#007000'>Playing back the file</b>"};
  state_->setText(kState[std::clamp(f.DiceFileMode, 0, 2)]);
  list_->ApplyFontSize();  // a game opened since may hold another size
  scroll_->setRange(1, static_cast<int>(std::clamp<std::int64_t>(total + 1, 1, INT32_MAX)));
  scroll_->setPageStep(list_->VisibleRows());
  scroll_->setValue(std::max(1, f.DiceSelStart));
  RefreshHighlightChecks();
  filling_ = false;
  list_->update();
}
