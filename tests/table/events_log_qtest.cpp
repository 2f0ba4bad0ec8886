// frmEventsLog under the offscreen platform: a log opened through the file
// chooser names the title and shows its lines from the top, Find moves the
// top line or says the text is not there, a roll with "Scroll New Rolls To
// Top" brings its line to the top of the open view, the switches reach the
// game, the log prints, and a log longer than the scroll bar's range still scrolls to its
// last line.
#include <QFileInfo>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "config/settings_state.h"
#include "desktop_fixture.h"
#include "table/events_log_form.h"

class EventsLogTest : public QObject {
  Q_OBJECT
 private slots:
  void anOpenedLogShowsItsLinesAndFindMovesTheTop();
  void aRollBringsItsLineToTheTopOfTheOpenView();
  void theSwitchesReachTheGame();
  void aLogLongerThanTheBarScrollsToItsLastLine();
};

namespace {

struct EventsLogTable : DesktopTable {
  QTemporaryDir dir;
  std::string path;
  EventsLogForm* form = nullptr;

  EventsLogTable() : DesktopTable(1) {
    game->roll.DataFolder = dir.path().toStdString() + "/";
    game->eventsLog.IndexPath = game->roll.DataFolder + "Events Log.ref";
    game->roll.EventsLogPath = game->roll.DataFolder + "Events Log.txt";
    game->rules.BetRequirement = kNoBetRequired;
    path = dir.filePath("mine.txt").toStdString();
    platform.onChooseFile = [this](const FileChooserRequest&) -> std::optional<std::string> { return path; };
    window->findChild<QAction*>("mnuEventsLog")->trigger();
    form = window->EventsLog();
    if (!form->isVisible()) qFatal("the menu did not open the events log");
  }
  void WriteLog(int lines) {
    std::ofstream out(path, std::ios::binary);
    for (int n = 1; n <= lines; ++n) out << " Roll #" << n << ":  7 (3.4) from RNG #1\r\n";
  }
  void Trigger(const char* name) { FormChild<QAction>(*form, name)->trigger(); }
  QScrollBar* Bar() { return FormChild<QScrollBar>(*form, "vscrEventsLog"); }
};

}  // namespace

void EventsLogTest::anOpenedLogShowsItsLinesAndFindMovesTheTop() {
  EventsLogTable t;
  t.WriteLog(50);
  t.Trigger("mnuOpen");
  QCOMPARE(t.form->windowTitle(), QString("Events Log (mine.txt)"));
  QCOMPARE(t.Bar()->maximum(), 50);
  QCOMPARE(t.game->eventsLog.LogTopLine, 1);
  t.Bar()->setValue(10);
  QCOMPARE(t.game->eventsLog.LogTopLine, 10);

  t.AnswerMessage(0, "ROLL #37:");
  t.Trigger("mnuFind");
  QCOMPARE(t.game->eventsLog.LogTopLine, 37);
  QCOMPARE(t.Bar()->value(), 37);
  t.AnswerMessage(0, "seven-out");
  t.Trigger("mnuFind");
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Search Results"), std::string("Text not found.")));
  QCOMPARE(t.game->eventsLog.LogTopLine, 37);

  // File > Print sends the opened log to the printer.
  t.platform.printToFile = t.dir.filePath("log.pdf");
  t.Trigger("mnuPrint");
  QCOMPARE(t.platform.documentsPrinted, 1);
  QVERIFY(QFileInfo(t.platform.printToFile).size() > 0);
}

void EventsLogTest::aRollBringsItsLineToTheTopOfTheOpenView() {
  EventsLogTable t;
  t.WriteLog(5);
  t.Trigger("mnuOpen");
  t.game->roll.LogOn = true;
  t.Trigger("mnuKeepLatestRollOnTop");
  QVERIFY(t.game->roll.LogRollOnTop);
  QTest::keyClick(t.View(), Qt::Key_F2);
  QApplication::processEvents();
  // The new roll line follows the five written: its number is the top line.
  QVERIFY(t.game->eventsLog.LogTopLine > 5);
  QCOMPARE(t.Bar()->value(), t.game->eventsLog.LogTopLine);
  std::ifstream in(t.path);
  std::string line;
  for (int n = 0; n < t.game->eventsLog.LogTopLine; ++n) std::getline(in, line);
  QVERIFY(line.starts_with(" Roll #1:"));
}

void EventsLogTest::theSwitchesReachTheGame() {
  EventsLogTable t;
  t.game->roll.SessionDirty = false;
  t.Trigger("mnuDeselectAllEvents");
  const RollState& r = t.game->roll;
  QVERIFY(!r.LogRolls && !r.LogBets && !r.LogWins && !r.LogLosses && !r.LogStacks && !r.LogPasses &&
          !r.LogNewHand && !r.LogBankroll);
  QVERIFY(r.SessionDirty);
  QVERIFY(!FormChild<QAction>(*t.form, "mnuRecordBetsWon")->isChecked());
  t.Trigger("mnuRecordBetsWon");
  QVERIFY(r.LogWins && !r.LogLosses);
  t.Trigger("mnuRecordEventsActive");
  QVERIFY(r.LogOn);
}

void EventsLogTest::aLogLongerThanTheBarScrollsToItsLastLine() {
  EventsLogTable t;
  t.WriteLog(30001);
  t.Trigger("mnuOpen");
  QCOMPARE(t.Bar()->maximum(), 30000);
  t.Bar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  QCOMPARE(t.game->eventsLog.LogTopLine, 2);
  t.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
  t.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
  QCOMPARE(t.game->eventsLog.LogTopLine, 30001);
  QCOMPARE(t.Bar()->value(), 30000);
}

QTEST_MAIN(EventsLogTest)
#include "events_log_qtest.moc"
