#include "table/batch_form.h"

#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <new>
#include <numeric>
#include <optional>
#include <thread>

#include "batch/batch.h"
#include "batch/batch_csv.h"
#include "batch/batch_settings.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/number_text.h"
#include "core/seat_set.h"
#include "engine/players.h"
#include "store/file_chooser.h"
#include "table/batch_histogram.h"
#include "table/menu_items.h"

namespace {

constexpr const char* kTitle = "Batch Run";
// A slice gives each thread this many sessions, or a hundredth of the batch.
constexpr std::int64_t kSliceSessionsPerThread = 256;
constexpr std::int64_t kSlicesPerBatch = 100;
constexpr int kStopColumns = 3;  // player, stop-win, stop-loss
constexpr int kResultsWidth = 1060;
constexpr int kResultsRowsInSight = 4;  // at least, before the table scrolls

enum ResultColumn {
  kColPlayer,
  kColMean,
  kColDeviation,
  kColLow,
  kColMedian,
  kColHigh,
  kColMin,
  kColMax,
  kColWon,
  kColBroke,
  kColStopWin,
  kColStopLoss,
  kColRolls,
  kColEdge,
  kColInterval,
  kColExact,
  kResultColumns
};
constexpr const char* kResultHeadings[kResultColumns] = {
    "Player",     "Mean net", "Std dev",      "5%",        "Median",   "95%",
    "Min",        "Max",      "Won",          "Broke",     "Stop-win", "Stop-loss",
    "Mean rolls", "Edge",     "95% interval", "Exact edge"};
constexpr int kLowPercentile = 1, kMedianPercentile = 3,
              kHighPercentile = 5;  // of kBatchPercentiles
static_assert(kBatchPercentiles[kLowPercentile] == 5 &&
              kBatchPercentiles[kMedianPercentile] == 50 &&
              kBatchPercentiles[kHighPercentile] == 95);

QString Money(double x) { return QString::fromStdString(FormatNumber(x, {2, true, false})); }
QString Percent(double share, int decimals) {
  return QString::fromStdString(FormatNumber(100 * share, {decimals, false, false})) + " %";
}

QSpinBox* CountBox(const char* name, std::int64_t low, std::int64_t high, std::int64_t value,
                   const QString& zeroText = {}) {
  auto* box = new QSpinBox;
  box->setObjectName(name);
  box->setRange(static_cast<int>(low), static_cast<int>(high));
  box->setValue(static_cast<int>(std::clamp(value, low, high)));
  box->setGroupSeparatorShown(true);
  if (!zeroText.isEmpty()) box->setSpecialValueText(zeroText);
  return box;
}

// The progress window at `done` of `total` sessions: the bar, the pace and
// the time left at that pace.
void ShowProgress(QProgressDialog& progress, std::int64_t done, std::int64_t total,
                  std::chrono::steady_clock::time_point began) {
  progress.setValue(static_cast<int>(done));
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  if (done <= 0 || seconds <= 0) return;
  const double pace = static_cast<double>(done) / seconds;
  progress.setLabelText(
      QString("Playing sessions ...\n%1 of %2, %3 a second, about %4 s left")
          .arg(QString::fromStdString(FormatCount(done)),
               QString::fromStdString(FormatCount(total)),
               QString::fromStdString(FormatCount(static_cast<std::int64_t>(pace))),
               QString::number(static_cast<double>(total - done) / pace, 'f', 0)));
}

QString StopText(const std::optional<Currency>& stop) {
  return stop ? QString::fromStdString(FormatMoney(*stop)) : QString();
}

QTableWidgetItem* Cell(const QString& text, bool number = true) {
  auto* item = new QTableWidgetItem(text);
  item->setFlags(item->flags() & ~Qt::ItemIsEditable);
  if (number) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return item;
}

}  // namespace

BatchForm::BatchForm(Game& game, QWidget* parent) : QDialog(parent), game_(game) {
  setObjectName("frmBatch");
  setWindowTitle(kTitle);
  HelpKey(this, game_, kHelpBatch);

  // The boxes start as the last batch was set (Run keeps its settings).
  const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  saved_ = ReadBatchSettings(game_);
  sessions_ = CountBox("txtSessions", 1, kMostBatchSessions, saved_.sessions);
  rolls_ = CountBox("txtRolls", 0, kMostBatchRollsOrHands, saved_.rolls, "no limit");
  hands_ = CountBox("txtHands", 0, kMostBatchRollsOrHands, saved_.hands, "no limit");
  seed_ = CountBox("txtSeed", 1, kMostBatchSeed, saved_.seed);
  threads_ = CountBox("txtThreads", 1, std::max(cores, kMostBatchThreads),
                      saved_.threads > 0 ? saved_.threads : cores);
  auto* settings = new QFormLayout;
  settings->addRow("Sessions:", sessions_);
  settings->addRow("End a session after rolls:", rolls_);
  settings->addRow("or after hands:", hands_);
  settings->addRow("Seed:", seed_);
  settings->addRow("Threads:", threads_);

  stops_ = new QTableWidget(0, kStopColumns);
  stops_->setObjectName("grdStops");
  stops_->setHorizontalHeaderLabels({"Player", "Stop-win $", "Stop-loss $"});
  stops_->verticalHeader()->hide();
  stops_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  stops_->setToolTip(
      "A player stops at a session net of at least the stop-win, or a loss of "
      "the stop-loss or more; blank for none.");

  auto* top = new QHBoxLayout;
  top->addLayout(settings);
  top->addWidget(stops_, 1);

  results_ = new QTableWidget(0, kResultColumns);
  results_->setObjectName("grdResults");
  QStringList headings;
  for (const char* h : kResultHeadings) headings << h;
  results_->setHorizontalHeaderLabels(headings);
  results_->horizontalHeaderItem(kColWon)->setToolTip(
      "The share of sessions the player ended ahead: a net above 0.");
  results_->verticalHeader()->hide();
  results_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  results_->setMinimumWidth(kResultsWidth);  // every column in sight at first
  results_->setMinimumHeight(results_->horizontalHeader()->sizeHint().height() +
                             kResultsRowsInSight *
                                 results_->verticalHeader()->defaultSectionSize() +
                             2 * results_->frameWidth());
  results_->setSelectionBehavior(QAbstractItemView::SelectRows);
  results_->setSelectionMode(QAbstractItemView::SingleSelection);
  results_->setToolTip("Choose a player's line to see the spread of that player's nets below.");
  histogram_ = new BatchHistogram;
  connect(results_, &QTableWidget::currentCellChanged, this,
          [this](int row, int, int, int) { ShowHistogram(row); });
  against_ = new QComboBox;
  against_->setObjectName("cboAgainst");
  against_->setToolTip(
      "Another player of the batch: both met the same dice, so the difference of their nets "
      "shows a better strategy after fewer sessions than their own intervals.");
  against_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  against_->setEnabled(false);
  connect(against_, &QComboBox::currentIndexChanged, this, [this] { ShowComparison(); });
  comparison_ = new QLabel;
  comparison_->setObjectName("lblAgainst");
  auto* compare = new QHBoxLayout;
  auto* compareCaption = new QLabel("Compared &with:");
  compareCaption->setBuddy(against_);
  compare->addWidget(compareCaption);
  compare->addWidget(against_);
  compare->addWidget(comparison_, 1);

  status_ =
      new QLabel("Sessions play on a copy of the table as it stands; the table is not changed.");
  status_->setObjectName("lblBatchStatus");
  status_->setWordWrap(true);
  auto* note = new QLabel(
      "Nets are in dollars per session. The edge is the net over the amount "
      "wagered; the exact edge, where a player made one kind of bet, comes "
      "from the advantage analysis.");
  note->setWordWrap(true);

  run_ = new QPushButton("&Run");
  run_->setObjectName("cmdRun");
  run_->setDefault(true);
  connect(run_, &QPushButton::clicked, this, [this] { Run(); });
  auto* copy = new QPushButton("C&opy");
  copy->setObjectName("cmdCopy");
  copy->setToolTip("Copies the results for a spreadsheet, one line a player.");
  connect(copy, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(ResultsText()); });
  saveSessions_ = new QPushButton("&Save Sessions ...");
  saveSessions_->setObjectName("cmdSaveSessions");
  saveSessions_->setToolTip(
      "Saves every session of the last batch as CSV: its seed, length, how it ended and each "
      "player's net.");
  saveSessions_->setEnabled(false);
  connect(saveSessions_, &QPushButton::clicked, this, [this] {
    const FileChoice choice{
        "Save Batch Sessions As", {"CSV files (*.csv)", "All files (*.*)"}, ".csv", true};
    if (const auto path = ChooseFilePath(game_, choice)) SaveSessionsTo(*path);
  });
  auto* close = new QPushButton("&Close");
  close->setObjectName("cmdClose");
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(status_, 1);
  buttons->addWidget(run_);
  buttons->addWidget(copy);
  buttons->addWidget(saveSessions_);
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(results_, 1);
  layout->addWidget(histogram_);
  layout->addLayout(compare);
  layout->addWidget(note);
  layout->addLayout(buttons);
  Refresh();
}

void BatchForm::Refresh() {
  std::map<int, std::pair<QString, QString>> typed;  // by seat
  for (int row = 0; row < stops_->rowCount(); ++row)
    typed[stops_->item(row, 0)->data(Qt::UserRole).toInt()] = {stops_->item(row, 1)->text(),
                                                               stops_->item(row, 2)->text()};
  stops_->setRowCount(0);
  for (int p = 1; p <= kBatchSeats; ++p) {
    if (!SeatNamed(game_, p)) continue;
    const int row = stops_->rowCount();
    stops_->insertRow(row);
    QTableWidgetItem* name =
        Cell(QString::fromStdString(game_.PlayerName[static_cast<std::size_t>(p)]), false);
    name->setData(Qt::UserRole, p);
    stops_->setItem(row, 0, name);
    // What was typed for the seat stays; a newly listed player finds the
    // stops last run under the name.
    std::pair<QString, QString> texts;
    if (const auto kept = typed.find(p); kept != typed.end()) {
      texts = kept->second;
    } else if (const auto last = saved_.stops.find(game_.PlayerName[static_cast<std::size_t>(p)]);
               last != saved_.stops.end()) {
      texts = {StopText(last->second.win), StopText(last->second.loss)};
    }
    stops_->setItem(row, 1, new QTableWidgetItem(texts.first));
    stops_->setItem(row, 2, new QTableWidgetItem(texts.second));
  }
}

bool BatchForm::ReadConfig(BatchConfig& config) {
  const auto refuse = [this](const std::string& text) {
    ShowNotice(game_, text, kTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  };
  if (stops_->rowCount() == 0) return refuse("Click an open position on the rail to add a player.");
  // A copy taken in the middle of a roll would start every session there.
  if (game_.HyperDrive || game_.scriptRun.ScriptRunning)
    return refuse(
        "A batch starts from the table between two rolls: stop the Hyper-Drive or the "
        "running script first.");
  bool anyStop = false;
  BatchSettings kept = saved_;
  for (int row = 0; row < stops_->rowCount(); ++row) {
    const int p = stops_->item(row, 0)->data(Qt::UserRole).toInt();
    const std::string name = stops_->item(row, 0)->text().toStdString();
    kept.stops.erase(name);
    for (int column : {1, 2}) {
      const std::string text = stops_->item(row, column)->text().trimmed().toStdString();
      if (text.empty()) continue;
      const Currency amount = ParseAmount(text);
      if (amount <= Currency{})
        return refuse(name + "'s " + (column == 1 ? "stop-win" : "stop-loss") +
                      " must be an amount above 0, or blank for none.");
      (column == 1 ? config.stopWin : config.stopLoss)[static_cast<std::size_t>(p)] = amount;
      (column == 1 ? kept.stops[name].win : kept.stops[name].loss) = amount;
      anyStop = true;
    }
  }
  config.sessions = sessions_->value();
  config.rolls = rolls_->value();
  config.hands = hands_->value();
  config.seed = static_cast<std::uint64_t>(seed_->value());
  if (config.rolls == 0 && config.hands == 0 && !anyStop)
    return refuse("A session needs an end: a roll or hand limit, or a stop-win or stop-loss.");
  kept.sessions = config.sessions;
  kept.rolls = config.rolls;
  kept.hands = config.hands;
  kept.seed = seed_->value();
  kept.threads = threads_->value();
  // A full list makes room by forgetting players who are not seated.
  for (auto it = kept.stops.begin(); kept.stops.size() > kBatchStopsKept && it != kept.stops.end();)
    it = SeatNamed(game_, it->first) != 0 ? std::next(it) : kept.stops.erase(it);
  // Settings that cannot be kept still run: the file is a convenience.
  std::string error;
  if (kept != saved_ && WriteBatchSettings(game_, kept, error)) saved_ = std::move(kept);
  return true;
}

bool BatchForm::Run() {
  Refresh();
  BatchConfig config;
  if (!ReadConfig(config)) return false;
  // The sessions play on a copy of the table as it stands. Auto-Stop would
  // end every session as a stop of the game, so the copy has none.
  const auto start = std::make_unique<Game>(game_);
  start->hyper.AutoStopRolls = Currency{};
  start->HyperDrive = start->KeepRolling = false;

  const int threads = threads_->value();
  const std::int64_t total = config.sessions;
  const std::int64_t slice = std::max(kSliceSessionsPerThread * threads, total / kSlicesPerBatch);
  QProgressDialog progress("Playing sessions ...", "&Stop", 0, static_cast<int>(total), this);
  progress.setObjectName("frmBatchProgress");
  progress.setWindowTitle(kTitle);
  progress.setWindowModality(Qt::ApplicationModal);
  progress.setMinimumDuration(0);
  progress.setValue(0);

  const auto began = std::chrono::steady_clock::now();
  // The last batch's sessions give way to this one's before its memory is
  // asked for, so that the two are never held at once.
  played_ = {};
  summaries_.clear();
  saveSessions_->setEnabled(false);
  std::vector<SessionResult> results;
  try {
    results.reserve(static_cast<std::size_t>(total));
    for (std::int64_t next = 0; next < total && !progress.wasCanceled();) {
      const std::int64_t end = std::min(total, next + slice);
      std::vector<std::int64_t> indices(static_cast<std::size_t>(end - next));
      std::iota(indices.begin(), indices.end(), next);
      std::vector<SessionResult> part =
          PlaySessions(*start, config, indices, threads, [&](std::int64_t done) {
            ShowProgress(progress, next + done, total, began);
            QCoreApplication::processEvents();
          });
      results.insert(results.end(), std::make_move_iterator(part.begin()),
                     std::make_move_iterator(part.end()));
      next = end;
      ShowProgress(progress, next, total, began);
    }
  } catch (const std::bad_alloc&) {
    progress.reset();
    results = {};
    status_->setText("Not played: not enough memory.");
    results_->setRowCount(0);
    ShowHistogram(-1);
    ShowNotice(game_,
               "There is not enough memory to play " + FormatCount(total) +
                   " sessions. Run fewer sessions.",
               kTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  const bool stopped = static_cast<std::int64_t>(results.size()) < total;
  progress.reset();
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  summaries_ = SummarizePlayers(*start, results);
  played_ = std::move(results);
  saveSessions_->setEnabled(!played_.empty());
  ShowResults(static_cast<std::int64_t>(played_.size()), seconds, stopped);
  return true;
}

bool BatchForm::SaveSessionsTo(const std::string& path) {
  std::string error;
  if (WriteSessionsCsv(path, played_, summaries_, error)) return true;
  ShowNotice(game_, error, kTitle, 0, kMsgOk | kMsgPicStop);
  return false;
}

void BatchForm::ShowResults(std::int64_t played, double seconds, bool stopped) {
  const QString count =
      QString::fromStdString(FormatNumber(static_cast<double>(played), {0, true, false}));
  const QString time = QString::number(seconds, 'f', 2);
  status_->setText(stopped ? QString("Stopped after %1 sessions (%2 s).").arg(count, time)
                           : QString("%1 sessions in %2 s.").arg(count, time));
  results_->setRowCount(0);
  for (const PlayerSummary& s : summaries_) {
    const int row = results_->rowCount();
    results_->insertRow(row);
    const QString cells[kResultColumns] = {
        QString::fromStdString(s.name),
        Money(s.meanNet),
        Money(s.sdNet),
        Money(s.percentiles[kLowPercentile]),
        Money(s.percentiles[kMedianPercentile]),
        Money(s.percentiles[kHighPercentile]),
        Money(s.min),
        Money(s.max),
        Percent(s.wonShare, 1),
        Percent(s.brokeShare, 1),
        Percent(s.stopWinShare, 1),
        Percent(s.stopLossShare, 1),
        QString::number(s.meanRolls, 'f', 1),
        Percent(s.edge, 3),
        Percent(s.edgeCi95[0], 3) + " to " + Percent(s.edgeCi95[1], 3),
        s.exactEdge ? Percent(*s.exactEdge, 3) : QString("---")};
    for (int c = 0; c < kResultColumns; ++c)
      results_->setItem(row, c, Cell(cells[c], c != kColPlayer));
  }
  results_->setCurrentCell(0, 0);
  ShowHistogram(0);
}

void BatchForm::ShowHistogram(int row) {
  if (row < 0 || row >= static_cast<int>(summaries_.size())) {
    histogram_->Show({}, {});
    const QSignalBlocker quiet(against_);
    against_->clear();
    against_->setEnabled(false);
    comparison_->clear();
    return;
  }
  const PlayerSummary& s = summaries_[static_cast<std::size_t>(row)];
  histogram_->Show(BinNets(played_, s.seat), QString::fromStdString(s.name));
  // The other player stays chosen; else the next in seat order (the last
  // player's, the one before).
  const int chosen = against_->currentData().toInt();
  const QSignalBlocker quiet(against_);
  against_->clear();
  for (const PlayerSummary& other : summaries_)
    if (other.seat != s.seat) against_->addItem(QString::fromStdString(other.name), other.seat);
  const int keep = against_->findData(chosen);
  against_->setCurrentIndex(keep >= 0 ? keep : std::min(row, against_->count() - 1));
  against_->setEnabled(against_->count() > 0);
  ShowComparison();
}

void BatchForm::ShowComparison() {
  const int row = results_->currentRow();
  const int other = against_->currentData().toInt();
  if (row < 0 || row >= static_cast<int>(summaries_.size()) || other == 0) {
    comparison_->setText(summaries_.size() == 1 ? "One player: no other to compare with."
                                                : QString());
    return;
  }
  const PlayerSummary& s = summaries_[static_cast<std::size_t>(row)];
  const PairedNets n = ComparePlayers(played_, s.seat, other);
  const QString name = QString::fromStdString(s.name);
  comparison_->setText(
      QString("%1 less %2: %3 a session (95% interval %4 to %5); %1 ahead in %6, level in %7 "
              "of sessions.")
          .arg(name, against_->currentText(), Money(n.meanDifference), Money(n.ci95[0]),
               Money(n.ci95[1]), Percent(n.aheadShare, 1), Percent(n.levelShare, 1)));
}

QString BatchForm::ResultsText() const {
  QStringList lines;
  QStringList cells;
  for (int c = 0; c < results_->columnCount(); ++c)
    cells << results_->horizontalHeaderItem(c)->text();
  lines << cells.join('\t');
  for (int row = 0; row < results_->rowCount(); ++row) {
    cells.clear();
    for (int c = 0; c < results_->columnCount(); ++c) cells << results_->item(row, c)->text();
    lines << cells.join('\t');
  }
  return lines.join('\n') + '\n';
}
