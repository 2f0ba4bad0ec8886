// frmBatch, Statistics > Batch Run: many independent sessions played from a
// copy of the game as it stands, on every core, and the spread of each
// player's session results: mean and deviation of the net, percentiles,
// how often each player went broke or reached a stop, the measured edge
// beside the exact one, and one player's nets against another's. The
// sessions and their figures come from batch/
// (the same engine as ravelton-cli batch, so the same seed gives the same
// figures); the form holds only its boxes, the last results and the
// settings of the last batch (kept in the data folder for the next one).
//
// What must stay true:
// - The game on the table is never changed by a batch: the sessions play
//   on a copy taken when Run is pressed, and write no file.
// - A batch runs in slices under a modal progress window: Stop ends it
//   after the slice in play, and the figures then cover the sessions played.
#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/batch_settings.h"
#include "batch/batch_stats.h"

class BatchHistogram;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableWidget;
struct Game;

class BatchForm : public QDialog {
  Q_OBJECT
 public:
  explicit BatchForm(Game& game, QWidget* parent = nullptr);

  // Lists the seated players for their stops, keeping the stops typed.
  void Refresh();
  // cmdRun: checks the boxes, then plays the batch; false when a box was
  // refused (with its message) or nobody is seated.
  bool Run();
  // The figures of the last batch, one per seated player.
  const std::vector<PlayerSummary>& Summaries() const { return summaries_; }
  // The histogram shown: the nets of the player whose row is current.
  const BatchHistogram& Histogram() const { return *histogram_; }
  // cmdSaveSessions: every session of the last batch as CSV, to `path`;
  // false after the message when it cannot be written.
  bool SaveSessionsTo(const std::string& path);
  // The results as shown, a line of tab-separated cells for the headings and
  // for each player, as cmdCopy puts them on the clipboard for a spreadsheet.
  QString ResultsText() const;

 private:
  // The batch's settings from the boxes, kept in the data folder for the
  // next batch; false after the message of a bad one.
  bool ReadConfig(BatchConfig& config);
  void ShowResults(std::int64_t played, double seconds, bool stopped);
  // The histogram of the player of results row `row`, and the other
  // players that player can be compared with.
  void ShowHistogram(int row);
  // The chosen player's nets against those of the player chosen in cboAgainst.
  void ShowComparison();

  Game& game_;
  QSpinBox* sessions_ = nullptr;
  QSpinBox* rolls_ = nullptr;
  QSpinBox* hands_ = nullptr;
  QSpinBox* seed_ = nullptr;
  QSpinBox* threads_ = nullptr;
  QTableWidget* stops_ = nullptr;
  QTableWidget* results_ = nullptr;
  BatchHistogram* histogram_ = nullptr;
  QComboBox* against_ = nullptr;
  QLabel* comparison_ = nullptr;
  QLabel* status_ = nullptr;
  QPushButton* run_ = nullptr;
  QPushButton* saveSessions_ = nullptr;
  std::vector<PlayerSummary> summaries_;
  std::vector<SessionResult> played_;  // of the last batch: the histogram, cmdSaveSessions
  BatchSettings saved_;  // as last read or written
};
