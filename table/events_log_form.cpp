#include "table/events_log_form.h"

#include <QHBoxLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "logs/events_log_print.h"
#include "logs/events_log_view.h"
#include "store/file_chooser.h"
#include "table/menu_items.h"

namespace {

constexpr int kNormalPointSize = 10;
constexpr int kFontSteps = 4;  // steps each way from normal
constexpr int kWheelLines = 3;
constexpr int kMargin = 4;
const QColor kBlue(0, 0, 200);
const QColor kCyanBox(200, 255, 255);

// The record switches of the Options menu, in their order.
struct Switch {
  const char* name;
  const char* caption;
  bool RollState::*field;
  bool eventKind;  // one of the eight kinds that Select/Deselect All set
};
const Switch kSwitches[] = {
    {"mnuRecordRolls", "&Rolls", &RollState::LogRolls, true},
    {"mnuRecordBetChanges", "&Bets Made/Changed", &RollState::LogBets, true},
    {"mnuRecordBetsWon", "Bets &Won", &RollState::LogWins, true},
    {"mnuRecordBetsLost", "Bets &Lost", &RollState::LogLosses, true},
    {"mnuRecordCheckStackChanges", "&Check-Stacks Changed", &RollState::LogStacks, true},
    {"mnuRecordPassesMisses", "&Passes/Misses/Points", &RollState::LogPasses, true},
    {"mnuRecordShooterChanges", "&Shooter Changes", &RollState::LogNewHand, true},
    {"mnuRecordBankrollChanges", "B&ankroll Changes", &RollState::LogBankroll, true},
    {"mnuClearLog", "&Clear Log for New Sessions", &RollState::LogClearOnNew, false},
    {"mnuKeepLatestRollOnTop", "&Scroll New Rolls To Top", &RollState::LogRollOnTop, false},
};

}  // namespace

EventsLogView::EventsLogView(Game& game, QWidget* parent) : QWidget(parent), game_(game) {
  setObjectName("picEventsLog");
  setMinimumSize(300, 150);
  SetFontStep(game_.gamefile.LogFontSize);  // as the game (or its file) left it
}

void EventsLogView::SetFontStep(int step) {
  game_.gamefile.LogFontSize = std::clamp(step, -kFontSteps, kFontSteps);
  QFont fixed("DejaVu Sans Mono");
  fixed.setStyleHint(QFont::Monospace);
  fixed.setPointSize(kNormalPointSize + 2 * FontStep());
  fixed.setBold(game_.gamefile.LogBold);
  fixed.setItalic(game_.gamefile.LogItalic);
  setFont(fixed);
  update();
}

int EventsLogView::FontStep() const {
  return std::clamp(game_.gamefile.LogFontSize, -kFontSteps, kFontSteps);
}

int EventsLogView::RowHeight() const { return fontMetrics().height(); }

int EventsLogView::VisibleRows() const { return std::max(1, (height() - kMargin) / RowHeight()); }

void EventsLogView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), Qt::white);
  const EventsLogPage page = PaintEventsLog(game_, VisibleRows());
  const QFontMetrics fm = fontMetrics();
  int y = kMargin;
  for (const std::string& line : page.lines) {
    const EventLineLook look = LookOfEventLine(line);
    const QString text = QString::fromLatin1(line.data(), static_cast<int>(line.size()));
    if (look.kind == EventLineKind::Roll && look.numberLength > 0) {
      const int x = kMargin + fm.horizontalAdvance(text.left(static_cast<int>(look.numberStart)));
      const int w = fm.horizontalAdvance(text.mid(static_cast<int>(look.numberStart),
                                                  static_cast<int>(look.numberLength)));
      p.fillRect(QRect(x - 2, y, w + 4, fm.height()), kCyanBox);
    }
    p.setPen(look.kind == EventLineKind::Plain ? Qt::black : kBlue);
    p.drawText(kMargin, y + fm.ascent(), text);
    y += fm.height();
  }
  if (!page.error.empty()) {
    p.setPen(Qt::red);
    p.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin), Qt::AlignBottom | Qt::TextWordWrap,
               QString::fromStdString(page.error));
  }
}

void EventsLogView::wheelEvent(QWheelEvent* event) {
  emit scrolled(event->angleDelta().y() > 0 ? -kWheelLines : kWheelLines);
}

EventsLogForm::EventsLogForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmEventsLog");
  HelpKey(this, game_, kHelpEventsLog);
  view_ = new EventsLogView(game, this);
  connect(view_, &EventsLogView::scrolled, this, &EventsLogForm::ScrollBy);
  scroll_ = new QScrollBar(Qt::Vertical);
  scroll_->setObjectName("vscrEventsLog");
  connect(scroll_, &QScrollBar::valueChanged, this, &EventsLogForm::Scrolled);
  auto* body = new QHBoxLayout(this);
  body->setContentsMargins(0, 0, 0, 0);
  body->setSpacing(0);
  body->addWidget(view_, 1);
  body->addWidget(scroll_);
  BuildMenus();
  resize(640, 480);
}

void EventsLogForm::BuildMenus() {
  auto* bar = new QMenuBar(this);
  layout()->setMenuBar(bar);
  QMenu* file = bar->addMenu("&File");
  file->setToolTipsVisible(true);
  MenuItem(this, file, "mnuNew", "&New", [this] {
    const int answer = AskSaveEventsLog(game_);
    if (answer == kAnswerCancel) return;
    if (answer == kAnswerYes) {
      const auto target = ChooseFilePath(game_, TextFileChoice("Save Events Log As", true));
      if (!target || !SaveEventsLogAs(game_, *target)) return;
    }
    StartNewEventsLog(game_);
    Refresh();
  });
  MenuItem(this, file, "mnuOpen", "&Open ...", [this] {
    const auto path = ChooseFilePath(game_, TextFileChoice("Open Events Log", false));
    if (!path) return;
    OpenEventsLog(game_, *path);
    Refresh();
  });
  MenuItem(this, file, "mnuSaveAs", "Save &As ...", [this] {
    const auto target = ChooseFilePath(game_, TextFileChoice("Save Events Log As", true));
    if (target && SaveEventsLogAs(game_, *target)) Refresh();
  });
  file->addSeparator();
  MenuItem(this, file, "mnuPrint", "&Print ...", [this] { PrintEventsLog(game_); });
  file->addSeparator();
  MenuItem(this, file, "mnuHide", "&Hide", [this] { close(); });

  QMenu* edit = bar->addMenu("&Edit");
  edit->setToolTipsVisible(true);
  // The log is written only by the game: these commands are there and do nothing.
  const QString readOnly = "The events log is written by the game and cannot be edited here.";
  UnbuiltItem(edit, "mnuCut", "Cu&t", readOnly);
  UnbuiltItem(edit, "mnuCopy", "&Copy", readOnly);
  UnbuiltItem(edit, "mnuPaste", "&Paste", readOnly);
  UnbuiltItem(edit, "mnuDelete", "&Delete", readOnly);
  edit->addSeparator();
  QAction* find = MenuItem(this, edit, "mnuFind", "&Find ...", [this] {
    if (AskFindText(game_) && FindInEventsLog(game_, 1)) Refresh();
  });
  find->setShortcut(QKeySequence::Find);
  QAction* next = MenuItem(this, edit, "mnuFindNext", "Find &Next", [this] {
    if (FindInEventsLog(game_, 1)) Refresh();
  });
  next->setShortcut(QKeySequence::FindNext);
  QAction* previous = MenuItem(this, edit, "mnuFindPrevious", "Find Pre&vious", [this] {
    if (FindInEventsLog(game_, -1)) Refresh();
  });
  previous->setShortcut(QKeySequence::FindPrevious);

  QMenu* options = bar->addMenu("&Options");
  QAction* on =
      MenuItem(this, options, "mnuRecordEventsActive", "&Record Events", [this](bool checked) {
        game_.roll.LogOn = checked;
        game_.roll.SessionDirty = true;
      });
  on->setCheckable(true);
  options->addSeparator();
  for (const Switch& s : kSwitches) {
    if (!s.eventKind && s.field == &RollState::LogClearOnNew) options->addSeparator();
    QAction* a = MenuItem(this, options, s.name, s.caption, [this, field = s.field](bool checked) {
      game_.roll.*field = checked;
      game_.roll.SessionDirty = true;
      Refresh();
    });
    a->setCheckable(true);
    if (s.field == &RollState::LogBankroll) {
      options->addSeparator();
      auto all = [this](bool set) {
        for (const Switch& k : kSwitches)
          if (k.eventKind) game_.roll.*k.field = set;
        game_.roll.SessionDirty = true;
        Refresh();
      };
      MenuItem(this, options, "mnuRecordAll", "Select &All Events", [all] { all(true); });
      MenuItem(this, options, "mnuDeselectAllEvents", "&Deselect All Events",
               [all] { all(false); });
    }
  }

  QMenu* font = bar->addMenu("F&ont Size");
  font->setObjectName("mnuFontSize");
  FontSizeItems(this, font, "mnuFontSize", [this](int step) {
    view_->SetFontStep(NextFontStep(view_->FontStep(), step, -kFontSteps, kFontSteps));
    Refresh();
  });
}

void EventsLogForm::Refresh() {
  filling_ = true;
  setWindowTitle(QString::fromStdString(EventsLogTitle(game_)));
  auto check = [this](const char* name, bool value) {
    if (QAction* a = findChild<QAction*>(name)) a->setChecked(value);
  };
  check("mnuRecordEventsActive", game_.roll.LogOn);
  for (const Switch& s : kSwitches) check(s.name, game_.roll.*s.field);
  std::string error;
  const std::int64_t lines = PrepareEventsLogIndex(game_, error);
  std::int32_t& top = game_.eventsLog.LogTopLine;
  top = static_cast<std::int32_t>(std::clamp<std::int64_t>(top, 1, std::max<std::int64_t>(lines, 1)));
  scroll_->setRange(1, static_cast<int>(EventsLogScrollMax(lines)));
  scroll_->setPageStep(view_->VisibleRows());
  lastValue_ = static_cast<int>(ScrollValueOfTopLine(game_.eventsLog.LogTopLine, lines));
  scroll_->setValue(lastValue_);
  filling_ = false;
  view_->update();
}

void EventsLogForm::Scrolled(int value) {
  if (filling_) return;
  std::string error;
  const std::int64_t lines = PrepareEventsLogIndex(game_, error);
  std::int32_t& top = game_.eventsLog.LogTopLine;
  top = static_cast<std::int32_t>(scroll_->isSliderDown() ? TopLineOfThumb(value, lines)
                                                          : TopLineAfterScroll(top, lines, lastValue_, value));
  lastValue_ = value;
  // Beyond the bar's range a click moves one line and the thumb is set to
  // where that line stands.
  if (!scroll_->isSliderDown()) {
    filling_ = true;
    lastValue_ = static_cast<int>(ScrollValueOfTopLine(top, lines));
    scroll_->setValue(lastValue_);
    filling_ = false;
  }
  view_->update();
}

void EventsLogForm::ScrollBy(int lines) {
  std::string error;
  const std::int64_t count = PrepareEventsLogIndex(game_, error);
  std::int32_t& top = game_.eventsLog.LogTopLine;
  top = static_cast<std::int32_t>(std::clamp<std::int64_t>(top + lines, 1, std::max<std::int64_t>(count, 1)));
  Refresh();
}

void EventsLogForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
}

void EventsLogForm::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  scroll_->setPageStep(view_->VisibleRows());
}
