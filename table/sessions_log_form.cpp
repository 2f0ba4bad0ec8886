#include "table/sessions_log_form.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/data_folder.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "stats/number_format.h"
#include "stats/sessions_find.h"
#include "stats/sessions_log.h"
#include "stats/sessions_printouts.h"
#include "store/file_chooser.h"
#include "store/sessions_log_files.h"
#include "table/menu_items.h"

namespace {

constexpr int kHistogramRows = 224;
constexpr int kLineReach = 3;  // columns either side of a range line that grab it
constexpr std::int64_t kRawScrollRange = 30000;

// The length of the log at `path`; 0 when there is none yet.
std::uintmax_t LogLength(const std::string& path) {
  std::error_code ec;
  const std::uintmax_t n = path.empty() ? 0 : std::filesystem::file_size(path, ec);
  return ec ? 0 : n;
}
const QColor kBlue(0, 0, 255), kRed(255, 0, 0), kDarkBlue(0, 0, 128), kGrey(160, 160, 160);
const QColor kRangeLine(0, 150, 0);
const char* const kBarCaption[4] = {"&Fine", "&Medium", "&Wide", "&Extra Wide"};
const int kBarWidths[4] = {1, 5, 25, 105};
const char* const kClassDefault[3] = {"Won", "Broke-even", "Lost"};

QColor SignColor(double v) { return v > 0 ? kBlue : v < 0 ? kRed : Qt::black; }

void ShowFigure(QLabel* label, const Shown& s) {
  label->setText(QString::fromStdString(s.text));
  QPalette p = label->palette();
  p.setColor(QPalette::WindowText, SignColor(s.none ? 0 : s.value));
  label->setPalette(p);
}

QString Pattern(double v, const char* pattern) {
  return QString::fromStdString(FormatNumber(v, pattern));
}

}  // namespace

SessionsHistogram::SessionsHistogram(QWidget* parent) : QWidget(parent) {
  setObjectName("picHistogram");
  setFixedSize(kHistogramColumns, kHistogramRows);
  setMouseTracking(true);
}

void SessionsHistogram::Show(const SessionsFigures* figures, int barWidth) {
  figures_ = figures;
  barWidth_ = std::max(1, barWidth);
  update();
}

void SessionsHistogram::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), Qt::white);
  if (!figures_ || figures_->included == 0) return;
  const SessionsFigures& f = *figures_;
  auto vertical = [&](int column, const QColor& c) {
    p.setPen(c);
    p.drawLine(column, 0, column, kHistogramRows - 1);
  };
  for (int column : f.deviationColumns) vertical(column, kGrey);
  vertical(f.meanColumn, f.mean > 0 ? kBlue : f.mean < 0 ? kRed : kDarkBlue);
  for (const auto& [first, height] : f.bars)
    if (height > 0)
      p.fillRect(QRect(first, kHistogramRows - height, std::min(barWidth_, kHistogramColumns - first), height),
                 QColor(0, 128, 128));
  for (int box = 0; box < 2; ++box)
    vertical(box == dragging_ ? dragColumn_ : f.rangeLineColumns[static_cast<std::size_t>(box)], kRangeLine);
}

void SessionsHistogram::mousePressEvent(QMouseEvent* event) {
  if (!figures_ || event->button() != Qt::LeftButton) return;
  const int x = static_cast<int>(event->position().x());
  dragging_ = RangeLineNear(*figures_, x, kLineReach);
  dragColumn_ = std::clamp(x, 0, kHistogramColumns - 1);
  if (dragging_ >= 0) update();
}

void SessionsHistogram::mouseReleaseEvent(QMouseEvent* event) {
  if (dragging_ < 0) return;
  const int box = dragging_;
  dragColumn_ = std::clamp(static_cast<int>(event->position().x()), 0, kHistogramColumns - 1);
  dragging_ = -1;
  emit rangeLineMoved(box, dragColumn_);
}

void SessionsHistogram::mouseMoveEvent(QMouseEvent* event) {
  if (!figures_ || figures_->included == 0) return;
  const int x = std::clamp(static_cast<int>(event->position().x()), 0, kHistogramColumns - 1);
  if (dragging_ >= 0) {
    dragColumn_ = x;
    update();
    return;
  }
  setCursor(RangeLineNear(*figures_, x, kLineReach) >= 0 ? Qt::SizeHorCursor : Qt::ArrowCursor);
  // The bar under the pointer: its values, its sessions and their share.
  const int first = x / barWidth_ * barWidth_;
  std::int64_t n = 0;
  Currency lo, hi;
  for (int c = first; c < std::min(first + barWidth_, kHistogramColumns); ++c) {
    const HistogramColumn& col = figures_->columns[static_cast<std::size_t>(c)];
    if (col.count == 0) continue;
    if (n == 0 || col.low < lo) lo = col.low;
    if (n == 0 || col.high > hi) hi = col.high;
    n += col.count;
  }
  if (n == 0) {
    QToolTip::hideText();
    return;
  }
  const char* const pattern = "#,##0.0###;-#,##0.0###;0";
  const QString values = lo == hi ? Pattern(lo.ToDouble(), pattern)
                                  : Pattern(lo.ToDouble(), pattern) + " to " + Pattern(hi.ToDouble(), pattern);
  const double share = 100.0 * static_cast<double>(n) / static_cast<double>(figures_->included);
  QToolTip::showText(event->globalPosition().toPoint(),
                     QString("%1\n%2%3\n%4%").arg(values, Pattern(double(n), "#,##0"),
                                                  n == 1 ? " session" : " sessions",
                                                  Pattern(share, "#,##0.0#")),
                     this);
}

SessionsLogForm::SessionsLogForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmGames");
  HelpKey(this, game_, kHelpSessionsLog);
  player_ = new QComboBox;
  player_->setObjectName("cmbPlayer");
  connect(player_, &QComboBox::currentIndexChanged, this, [this] {
    if (filling_) return;
    game_.views.SessionsPlayer = player_->currentData().toInt();
    rangeValue_ = rangeSd_ = {};
    Refresh();
  });
  view_ = new QComboBox;
  view_->setObjectName("cmbView");
  for (int i = 0; i < kSessionValues; ++i) view_->addItem(QString::fromStdString(SessionValueName(i)));
  connect(view_, &QComboBox::currentIndexChanged, this, [this](int i) {
    if (filling_) return;
    game_.views.SessionsView = i;
    rangeValue_ = rangeSd_ = {};
    Refresh();
  });

  auto* classes = new QGridLayout;
  for (int k = 0; k < 4; ++k) {
    games_[k] = new QLabel;
    games_[k]->setObjectName(QString("lblGames%1").arg(k));
    games_[k]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    gamesPct_[k] = new QLabel;
    gamesPct_[k]->setObjectName(QString("lblGamesPct%1").arg(k));
    gamesPct_[k]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (k < 3) {
      include_[k] = new QCheckBox(kClassDefault[k]);
      include_[k]->setObjectName(QString("chkInclude%1").arg(k));
      connect(include_[k], &QCheckBox::toggled, this, [this, k](bool on) {
        if (filling_) return;
        std::int32_t& f = game_.views.SessionsFilter;
        f = on ? (f | (1 << k)) : (f & ~(1 << k));
        rangeValue_ = rangeSd_ = {};
        Refresh();
      });
      classes->addWidget(include_[k], k, 0);
    } else {
      classes->addWidget(new QLabel("Total"), k, 0);
    }
    classes->addWidget(games_[k], k, 1);
    classes->addWidget(gamesPct_[k], k, 2);
  }
  classes->addWidget(new QLabel("Sessions"), 4, 1, Qt::AlignRight);
  classes->addWidget(new QLabel("%"), 4, 2, Qt::AlignRight);

  histogramOption_ = new QRadioButton("Histogram");
  histogramOption_->setObjectName("optDisplay0");
  dataOption_ = new QRadioButton("Display Data");
  dataOption_->setObjectName("optDisplay1");
  connect(dataOption_, &QRadioButton::toggled, this, [this](bool on) {
    if (filling_) return;
    std::int32_t& f = game_.views.SessionsFilter;
    f = on ? (f | kShowDataList) : (f & ~kShowDataList);
    Refresh();
  });

  auto* top = new QVBoxLayout;
  top->addWidget(new QLabel("Player:"));
  top->addWidget(player_);
  top->addWidget(new QLabel("Value:"));
  top->addWidget(view_);
  top->addLayout(classes);
  top->addWidget(histogramOption_);
  top->addWidget(dataOption_);
  top->addStretch(1);

  // The histogram with its vertical axis, or the data list.
  histogram_ = new SessionsHistogram;
  connect(histogram_, &SessionsHistogram::rangeLineMoved, this, [this](int box, int column) {
    // The dropped line rewrites its value box; its deviation box follows.
    rangeValue_[static_cast<std::size_t>(box)] = ValueAtColumn(figures_, column);
    rangeSd_[static_cast<std::size_t>(box)].reset();
    Refresh();
  });
  vertAxis_ = new QLabel;
  vertAxis_->setObjectName("lblVertAxis");
  auto* histoPage = new QWidget;
  auto* histoBox = new QVBoxLayout(histoPage);
  histoBox->setContentsMargins(0, 0, 0, 0);
  histoBox->addWidget(vertAxis_);
  histoBox->addWidget(histogram_);
  auto* dataPage = new QWidget;
  auto* dataBox = new QHBoxLayout(dataPage);
  dataBox->setContentsMargins(0, 0, 0, 0);
  auto* rows = new QVBoxLayout;
  rows->setSpacing(0);
  for (int r = 0; r < kDataListRows; ++r) {
    rows_[r] = new QLabel;
    rows_[r]->setObjectName(QString("lblRaw%1").arg(r));
    rows_[r]->setFont(QFont("DejaVu Sans Mono"));
    rows->addWidget(rows_[r]);
  }
  raw_ = new QScrollBar(Qt::Vertical);
  raw_->setObjectName("vscrRaw");
  connect(raw_, &QScrollBar::valueChanged, this, [this](int v) {
    if (filling_) return;
    const std::int64_t n = std::max<std::int64_t>(figures_.sessions, 1);
    game_.views.RawTop = static_cast<std::int32_t>(
        n <= kRawScrollRange ? v : std::clamp<std::int64_t>(v * n / kRawScrollRange, 1, n));
    Refresh();
  });
  dataBox->addLayout(rows, 1);
  dataBox->addWidget(raw_);
  shown_ = new QStackedWidget;
  shown_->addWidget(histoPage);
  shown_->addWidget(dataPage);
  shown_->setFixedWidth(kHistogramColumns + 20);

  // The range boxes: two values and the same two in standard deviations.
  auto* range = new QGridLayout;
  range->addWidget(new QLabel("Range from"), 0, 0);
  range->addWidget(new QLabel("to"), 0, 2);
  range->addWidget(new QLabel("Std devs"), 1, 0);
  for (int j = 0; j < 2; ++j) {
    valueBox_[j] = new QLineEdit;
    valueBox_[j]->setObjectName(QString("txtValueCount%1").arg(j));
    sdBox_[j] = new QLineEdit;
    sdBox_[j]->setObjectName(QString("txtSDCount%1").arg(j));
    connect(valueBox_[j], &QLineEdit::editingFinished, this, [this, j] { RangeEdited(j, false); });
    connect(sdBox_[j], &QLineEdit::editingFinished, this, [this, j] { RangeEdited(j, true); });
    range->addWidget(valueBox_[j], 0, 1 + 2 * j);
    range->addWidget(sdBox_[j], 1, 1 + 2 * j);
  }
  rangeCount_ = new QLabel;
  rangeCount_->setObjectName("lblRangeCount");
  rangeShare_ = new QLabel;
  rangeShare_->setObjectName("lblRangeShare");
  range->addWidget(rangeCount_, 0, 4);
  range->addWidget(rangeShare_, 1, 4);

  auto* middle = new QVBoxLayout;
  middle->addWidget(shown_);
  middle->addLayout(range);
  middle->addStretch(1);

  auto* body = new QHBoxLayout;
  body->addLayout(top);
  body->addLayout(middle);
  body->addWidget(BuildResults());
  auto* outer = new QVBoxLayout(this);
  outer->addLayout(body);
  BuildMenus(outer);
}

QWidget* SessionsLogForm::BuildResults() {
  auto* box = new QWidget;
  auto* grid = new QGridLayout(box);
  grid->setVerticalSpacing(2);
  for (int i = 0; i < 15; ++i) {
    resultNames_[i] = new QLabel;
    resultNames_[i]->setObjectName(QString("lblResultName%1").arg(i));
    results_[i] = new QLabel;
    results_[i]->setObjectName(QString("lblResult%1").arg(i));
    results_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    results_[i]->setMinimumWidth(110);
    grid->addWidget(resultNames_[i], i, 0);
    grid->addWidget(results_[i], i, 1);
  }
  grid->setRowStretch(15, 1);
  return box;
}

void SessionsLogForm::BuildMenus(QLayout* layout) {
  auto* bar = new QMenuBar(this);
  layout->setMenuBar(bar);
  QMenu* file = bar->addMenu("&File");
  file->setToolTipsVisible(true);
  MenuItem(this, file, "mnuNew", "&New", [this] {
    FileCommand([this] { return NewSessionsLog(game_, game_.views.SessionsPlayer); });
  });
  MenuItem(this, file, "mnuNewAll", "New for A&ll Players",
           [this] { FileCommand([this] { return NewSessionsLogs(game_); }); });
  MenuItem(this, file, "mnuOpen", "&Open ...", [this] { OpenLog(); });
  MenuItem(this, file, "mnuSaveAs", "Save &As ...", [this] {
    FileCommand([this] { return SaveSessionsLogAs(game_, game_.views.SessionsPlayer); });
  });
  MenuItem(this, file, "mnuMerge", "&Merge ...", [this] {
    FileCommand([this] { return MergeSessionsLog(game_, game_.views.SessionsPlayer); });
  });
  file->addSeparator();
  MenuItem(this, file, "mnuDelete", "&Delete Sessions ...", [this] { DeleteSomeSessions(); });
  MenuItem(this, file, "mnuDeleteAll", "Delete All Sessi&ons ...", [this] { DeleteAllSessions(); });
  file->addSeparator();
  MenuItem(this, file, "mnuPrintHistogram", "&Print Histogram ...",
           [this] { PrintSessionsHistogram(game_, Request(), figures_); });
  MenuItem(this, file, "mnuPrintRawData", "Print &Raw Data ...",
           [this] { PrintSessionsRawData(game_, Request(), figures_); });
  file->addSeparator();
  MenuItem(this, file, "mnuHide", "&Hide", [this] { close(); });

  QMenu* options = bar->addMenu("&Options");
  options->setToolTipsVisible(true);
  MenuItem(this, options, "mnuSetBreakPoint", "Set &Break-point ...", [this] { SetBreakPoint(); });
  QMenu* widths = options->addMenu("Graph Bar &Width");
  auto* group = new QActionGroup(this);
  for (int i = 0; i < 4; ++i) {
    QAction* a = MenuItem(this, widths, "mnuGraphBarWidth", kBarCaption[i], [this, i] {
      game_.views.BarWidth = kBarWidths[i];
      Refresh();
    });
    a->setCheckable(true);
    a->setData(kBarWidths[i]);
    group->addAction(a);
  }
  MenuItem(this, options, "mnuFind", "&Find ...", [this] { Find(); });
  MenuItem(this, options, "mnuFindNext", "Find &Next", [this] {
    FindAgain(1);
  })->setShortcut(QKeySequence::FindNext);
  MenuItem(this, options, "mnuFindPrevious", "Find Pre&vious", [this] {
    FindAgain(-1);
  })->setShortcut(QKeySequence::FindPrevious);
}

std::string SessionsLogForm::LogPath() const {
  const int p = game_.views.SessionsPlayer;
  if (p < 1 || p > 8 || game_.PlayerName[static_cast<std::size_t>(p)].empty()) return {};
  return SessionLogPathOf(game_, p);
}

void SessionsLogForm::RefreshIfLogChanged() {
  const std::string path = LogPath();
  if (path != readPath_ || LogLength(path) != readSize_) Refresh();
}

void SessionsLogForm::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Refresh();
}

void SessionsLogForm::Refresh() {
  filling_ = true;
  ViewsState& v = game_.views;
  // The player shown must be seated; else the first one who is.
  if (LogPath().empty())
    for (int p = 8; p >= 1; --p)
      if (!game_.PlayerName[static_cast<std::size_t>(p)].empty()) v.SessionsPlayer = p;
  player_->clear();
  for (int p = 1; p <= 8; ++p)
    if (!game_.PlayerName[static_cast<std::size_t>(p)].empty())
      player_->addItem(QString::fromStdString(game_.PlayerName[static_cast<std::size_t>(p)]), p);
  player_->setCurrentIndex(player_->findData(v.SessionsPlayer));
  view_->setCurrentIndex(std::clamp(v.SessionsView, 0, kSessionValues - 1));
  for (int k = 0; k < 3; ++k) include_[k]->setChecked((v.SessionsFilter >> k) & 1);
  const bool data = v.SessionsFilter & kShowDataList;
  dataOption_->setChecked(data);
  histogramOption_->setChecked(!data);
  shown_->setCurrentIndex(data ? 1 : 0);
  for (QAction* a : findChildren<QAction*>("mnuGraphBarWidth")) a->setChecked(a->data().toInt() == v.BarWidth);

  const std::string path = LogPath();
  readPath_ = path;
  readSize_ = LogLength(path);
  figures_ = path.empty() ? SessionsFigures{} : FigureSessionsLog(Request());
  const SessionsFigures& f = figures_;
  setWindowTitle(path.empty() ? QString("Sessions Log")
                              : QString("Sessions Log (%1)").arg(QString::fromStdString(std::string(FileNameOf(path)))));

  for (int k = 0; k < 4; ++k) {
    if (k < 3 && !f.classLabels[k].empty()) include_[k]->setText(QString::fromStdString(f.classLabels[k]));
    ShowFigure(games_[k], f.classCounts[k]);
    ShowFigure(gamesPct_[k], f.classPercents[k]);
  }
  // The results stay blank until some session is included.
  for (int i = 0; i < 15; ++i) {
    const bool has = i < static_cast<int>(f.results.size());
    resultNames_[i]->setText(has ? QString::fromStdString(f.results[i].first) : QString());
    if (has && f.included > 0) ShowFigure(results_[i], f.results[i].second);
    else results_[i]->clear();
  }
  histogram_->Show(&figures_, v.BarWidth);
  vertAxis_->setText(QString::fromStdString(FormatNumber(double(f.tallest), "#,##0")));
  for (int r = 0; r < kDataListRows; ++r) {
    if (r >= static_cast<int>(f.dataList.size())) {
      rows_[r]->clear();
      continue;
    }
    const auto& [session, x] = f.dataList[r];
    rows_[r]->setText(QString("%1   %2").arg(session, 7).arg(Pattern(x.ToDouble(), "#,##0.0###;-#,##0.0###;0"), 16));
    QPalette pal = rows_[r]->palette();
    pal.setColor(QPalette::WindowText, SignColor(x.ToDouble()));
    rows_[r]->setPalette(pal);
  }
  const std::int64_t n = std::max<std::int32_t>(f.sessions, 1);
  raw_->setRange(1, static_cast<int>(std::min(n, kRawScrollRange)));
  raw_->setValue(static_cast<int>(n <= kRawScrollRange ? v.RawTop : std::int64_t(v.RawTop) * kRawScrollRange / n));
  for (int j = 0; j < 2; ++j) {
    if (f.included > 0) {
      valueBox_[j]->setText(Pattern(f.rangeValue[j], "0.####"));
      sdBox_[j]->setText(Pattern(f.rangeSd[j], "0.##;-0.##;0"));
    } else {
      valueBox_[j]->clear();
      sdBox_[j]->clear();
    }
  }
  rangeCount_->setText(QString::fromStdString(f.rangeCount.text));
  rangeShare_->setText(QString::fromStdString(f.rangeShare.text));
  filling_ = false;
  if (!f.error.empty()) ShowNotice(game_, f.error, "Sessions Log", 0, kMsgOk);
}

void SessionsLogForm::RangeEdited(int box, bool deviation) {
  if (filling_) return;
  QLineEdit* edited = deviation ? sdBox_[box] : valueBox_[box];
  std::optional<double> typed;
  if (!edited->text().trimmed().isEmpty()) typed = LeadingValue(edited->text().toStdString());
  if (deviation) {
    rangeSd_[box] = typed;
    rangeValue_[box].reset();
  } else {
    rangeValue_[box] = typed;
    rangeSd_[box].reset();
  }
  Refresh();
}

void SessionsLogForm::SetBreakPoint() {
  ViewsState& v = game_.views;
  MessageState& msg = game_.msg;
  msg.MsgInput1 = FormatMoney(v.BreakLow);
  msg.MsgInput2 = FormatMoney(v.BreakHigh);
  if (ShowNotice(game_,
                 "Enter the break-point or range that you'd \rlike to use to sort this data:",
                 "Set Break-point", 0,
                 kMsgOk | kMsgCancel | kMsgInput1 | kMsgInput2 | kMsgSignedInput | kMsgPicQmark) != kAnswerOk)
    return;
  const Currency a = CurFromDouble(LeadingValue(msg.MsgInput1));
  const Currency b = msg.MsgInput2.empty() ? a : CurFromDouble(LeadingValue(msg.MsgInput2));
  v.BreakLow = std::min(a, b);
  v.BreakHigh = std::max(a, b);
  game_.roll.SessionDirty = true;
  Refresh();
}

void SessionsLogForm::DeleteSomeSessions() {
  const std::string path = LogPath();
  if (path.empty()) return;
  MessageState& msg = game_.msg;
  msg.MsgInput1.clear();
  msg.MsgInput2.clear();
  if (ShowNotice(game_,
                 "Enter the session number or range of session \rnumbers that you'd like to delete:",
                 "Delete Sessions", 0, kMsgOk | kMsgCancel | kMsgInput1 | kMsgInput2 | kMsgPicQmark) != kAnswerOk)
    return;
  const long a = static_cast<long>(std::floor(LeadingValue(msg.MsgInput1)));
  const long b = msg.MsgInput2.empty() ? a : static_cast<long>(std::floor(LeadingValue(msg.MsgInput2)));
  const std::string refusal = DeleteSessions(path, a, b);
  if (!refusal.empty()) ShowNotice(game_, refusal, "Delete Sessions", 0, kMsgOk);
  Refresh();
}

void SessionsLogForm::DeleteAllSessions() {
  const std::string path = LogPath();
  if (path.empty() || figures_.sessions <= 0) return;
  const std::string name = game_.PlayerName[static_cast<std::size_t>(game_.views.SessionsPlayer)];
  const std::string text = "Are you sure you want to delete all of\r" + name +
                           "'s recorded sessions?\r\rThis includes all " + std::to_string(figures_.sessions) +
                           " sessions in the file\r\"" + std::string(FileNameOf(path)) + "\"\rwhich is currently displayed.";
  if (ShowNotice(game_, text, "Delete All Sessions", 0, kMsgYes | kMsgNo | kMsgPicQmark) != kAnswerYes) return;
  if (const auto error = CreateSessionsLog(path)) ShowNotice(game_, *error, "Delete All Sessions", 0, kMsgOk);
  Refresh();
}

void SessionsLogForm::Find() {
  const std::string path = LogPath();
  if (path.empty()) return;
  const ViewsState& v = game_.views;
  MessageState& msg = game_.msg;
  msg.MsgInput1.clear();
  if (ShowNotice(game_,
                 "If found, the line will appear at the top of the data box.\r\r"
                 "Enter the value you'd like to find for:" + SessionValueName(v.SessionsView),
                 "Find", 0, kMsgOk | kMsgCancel | kMsgInput1 | kMsgSignedInput | kMsgPicQmark) != kAnswerOk)
    return;
  findValue_ = CurFromDouble(LeadingValue(msg.MsgInput1));
  FindAgain(1);
}

void SessionsLogForm::FindAgain(int direction) {
  if (!findValue_) return Find();
  if (LogPath().empty()) return;
  const std::int32_t hit = FindSessionValue(Request(), *findValue_, direction);
  if (hit == 0) {
    ShowNotice(game_, "Value not found.", "Search Results", 0, kMsgOk);
    return;
  }
  game_.views.RawTop = hit;
  Refresh();
}

void SessionsLogForm::OpenLog() {
  const int p = game_.views.SessionsPlayer;
  if (LogPath().empty()) return;
  const auto path =
      ChooseFilePath(game_, {"Open Sessions Log", {"Sessions logs (*.slg)", "All files (*.*)"}, ".slg", false});
  if (!path) return;
  SessionsLogReader check(*path);
  if (!check.ok() || !check.exists()) {
    ShowNotice(game_, DamagedLogMessage(*path), std::string(kSessionsLogTitle), 0, kMsgOk);
    return;
  }
  game_.roll.SessionLogPath[static_cast<std::size_t>(p)] = *path;
  game_.roll.SessionDirty = true;
  rangeValue_ = rangeSd_ = {};
  Refresh();
}

SessionsRequest SessionsLogForm::Request() const {
  SessionsRequest rq = SessionsRequestOf(game_, LogPath());
  rq.rangeValue = rangeValue_;
  rq.rangeSd = rangeSd_;
  return rq;
}

template <typename F>
void SessionsLogForm::FileCommand(F command) {
  if (LogPath().empty()) return;
  if (command()) rangeValue_ = rangeSd_ = {};
  Refresh();
}
