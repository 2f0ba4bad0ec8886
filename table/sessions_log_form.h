// frmGames, the Sessions Log: one player's log read as a sample of any one
// of its 32 values, the classes of sessions by the break-point, the fifteen
// results, the histogram of 525 columns with the mean, the deviations and
// the range lines marked, or the list of the sessions' values. The figures
// come whole from FigureSessionsLog (stats/sessions_stats.h), which streams
// the file; the printouts from stats/sessions_printouts.h and the file
// commands from store/sessions_log_files.h. The form keeps only what its
// range boxes hold.
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>
#include <optional>

#include "stats/sessions_stats.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QScrollBar;
class QStackedWidget;
struct Game;

// picHistogram: 525 columns by 224 rows. Either range line can be dragged
// along the columns; letting it go tells the form where it now stands.
class SessionsHistogram : public QWidget {
  Q_OBJECT
 public:
  explicit SessionsHistogram(QWidget* parent = nullptr);
  void Show(const SessionsFigures* figures, int barWidth);

 signals:
  // Range line `box` (0 or 1) was dropped on `column`.
  void rangeLineMoved(int box, int column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  const SessionsFigures* figures_ = nullptr;
  int barWidth_ = 5;
  int dragging_ = -1;  // the range line being dragged, -1 for none
  int dragColumn_ = 0;
};

class SessionsLogForm : public QDialog {
  Q_OBJECT
 public:
  explicit SessionsLogForm(Game& game, QWidget* parent = nullptr);
  // UpdateSessionsLog: reads the player's log and shows every figure.
  void Refresh();
  // Reloads when the log shown is another file or another length than at
  // the last reading: a session's end appends its records, a player leaving
  // changes whose log is shown.
  void RefreshIfLogChanged();
  const SessionsFigures& Figures() const { return figures_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildMenus(QLayout* layout);
  QWidget* BuildResults();
  // The log of the player shown ("" when nobody is seated).
  std::string LogPath() const;
  void SetBreakPoint();
  void DeleteSomeSessions();
  void DeleteAllSessions();
  void OpenLog();
  // mnuNew, mnuNewAll, mnuSaveAs: the file commands, then a fresh reading.
  template <typename F>
  void FileCommand(F command);
  // The view's request for the log shown, range boxes included.
  SessionsRequest Request() const;
  // mnuFind: the data list's top moves to the next session with the typed value.
  void Find();
  // Find Next (+1) and Find Previous (-1): the last value found for, again,
  // from the top of the list; asks for one first when there is none.
  void FindAgain(int direction);
  // The range boxes: a typed value clears its deviation box and the reverse.
  void RangeEdited(int box, bool deviation);

  Game& game_;
  SessionsFigures figures_;
  QComboBox* player_;
  QComboBox* view_;
  std::array<QCheckBox*, 3> include_{};
  std::array<QLabel*, 4> games_{}, gamesPct_{};
  std::array<QLabel*, 15> resultNames_{}, results_{};
  QRadioButton* histogramOption_;
  QRadioButton* dataOption_;
  QStackedWidget* shown_;
  SessionsHistogram* histogram_;
  QLabel* vertAxis_;
  std::array<QLabel*, kDataListRows> rows_{};
  QScrollBar* raw_;
  std::array<QLineEdit*, 2> valueBox_{}, sdBox_{};
  std::optional<Currency> findValue_;  // the value of the last Find
  QLabel* rangeCount_;
  QLabel* rangeShare_;
  std::array<std::optional<double>, 2> rangeValue_, rangeSd_;
  bool filling_ = false;
  // The log's path and length at the last reading.
  std::string readPath_;
  std::uintmax_t readSize_ = 0;
};
