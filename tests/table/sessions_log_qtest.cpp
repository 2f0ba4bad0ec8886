// frmGames under the offscreen platform: the menu opens the player's log
// with its classes and results, the include boxes and the break-point
// re-class the sessions, the data list shows the values, deletions reach
// the file or are refused with their message, the file commands save and
// start logs, a merge asks before it adds another log, printing asks and prints, and a dragged
// range line rewrites its box.
#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "config/settings_state.h"
#include "cycle/roll.h"
#include "cycle/session.h"
#include "desktop_fixture.h"
#include "stats/sessions_log.h"
#include "table/sessions_log_form.h"

class SessionsLogTest : public QObject {
  Q_OBJECT
 private slots:
  void theLogShowsItsClassesAndResults();
  void deletionsReachTheFileOrAreRefused();
  void theOpenLogReloadsWhenASessionEnds();
  void theLogIsSavedAsAndStartedAnew();
  void anotherLogIsMergedOnlyAfterAYes();
  void printingAsksAndPrints();
  void draggingARangeLineRewritesItsBox();
};

namespace {

struct SessionsLogTable : DesktopTable {
  QTemporaryDir dir;
  std::string path;
  SessionsLogForm* form = nullptr;

  // Ann's log: three sessions with a net of +50, 0 and -20 on a handle of 100 each.
  SessionsLogTable() : DesktopTable(1) {
    game->roll.DataFolder = dir.path().toStdString() + "/";
    path = game->roll.DataFolder + "ann.slg";
    game->roll.SessionLogPath[1] = path;
    for (int net : {50, 0, -20}) {
      SessionRecord r{};
      r[kHandleValue] = Currency::FromWhole(100);
      r[kNetValue] = Currency::FromWhole(net);
      if (const auto error = AppendSessionRecord(path, r)) qFatal("%s", error->c_str());
    }
    window->findChild<QAction*>("mnuSessionsLog")->trigger();
    form = window->SessionsLog();
    if (!form->isVisible()) qFatal("the menu did not open the sessions log");
  }
  QString Text(const char* name) { return FormChild<QLabel>(*form, name)->text(); }
  // The value shown beside the result named `name`.
  QString Result(const QString& name) {
    for (int i = 0; i < 15; ++i)
      if (Text(qPrintable(QString("lblResultName%1").arg(i))) == name)
        return Text(qPrintable(QString("lblResult%1").arg(i)));
    qFatal("no result %s", qPrintable(name));
  }
  void Trigger(const char* name) { FormChild<QAction>(*form, name)->trigger(); }
  // Answers the next two-box prompt with OK.
  void AnswerTwo(const QString& first, const QString& second) {
    answers.push_back([first, second](QDialog& d) {
      auto* m = dynamic_cast<MessageForm*>(&d);
      QVERIFY(m && m->Input(0) && m->Input(1));
      m->Input(0)->setText(first);
      m->Input(1)->setText(second);
      QTest::mouseClick(m->Button(0), Qt::LeftButton);
    });
  }
};

}  // namespace

void SessionsLogTest::theLogShowsItsClassesAndResults() {
  SessionsLogTable t;
  QCOMPARE(t.Text("lblGames0"), QString("1"));
  QCOMPARE(t.Text("lblGames3"), QString("3"));
  QCOMPARE(t.Result("Mean"), QString("10.0"));

  // The lost session left out: the class still counts, the sample does not.
  QTest::mouseClick(FormChild<QCheckBox>(*t.form, "chkInclude2"), Qt::LeftButton, {}, QPoint(8, 8));
  QCOMPARE(t.Text("lblGames2"), QString("1"));
  QCOMPARE(t.Result("Mean"), QString("25.0"));

  // The data list shows the included sessions' values.
  QTest::mouseClick(FormChild<QRadioButton>(*t.form, "optDisplay1"), Qt::LeftButton, {}, QPoint(8, 8));
  QCOMPARE(t.Text("lblRaw0").simplified(), QString("1 50.0"));
  QVERIFY(t.Text("lblRaw2").isEmpty());

  // Find moves the list's top to the session with the value.
  t.AnswerMessage(0, "0");
  t.Trigger("mnuFind");
  QCOMPARE(t.Text("lblRaw0").simplified(), QString("2 0"));
  t.AnswerMessage(0, "-20");  // the lost session is left out
  t.Trigger("mnuFind");
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Search Results"), std::string("Value not found.")));
  // Find Next and Find Previous go on with the last value, round the log.
  SessionRecord again{};
  again[kNetValue] = Currency::FromWhole(50);
  if (AppendSessionRecord(t.path, again)) qFatal("cannot write the log");
  t.form->Refresh();
  t.AnswerMessage(0, "50");
  t.Trigger("mnuFind");
  QCOMPARE(t.Text("lblRaw0").simplified(), QString("4 50.0"));
  t.Trigger("mnuFindNext");
  QCOMPARE(t.Text("lblRaw0").simplified(), QString("1 50.0"));
  t.Trigger("mnuFindPrevious");
  QCOMPARE(t.Text("lblRaw0").simplified(), QString("4 50.0"));

  // A new break-point re-classes the sessions.
  t.AnswerTwo("10", "-30");
  t.Trigger("mnuSetBreakPoint");
  QCOMPARE(FormChild<QCheckBox>(*t.form, "chkInclude1")->text(), QString("-30 - 10"));
  QCOMPARE(t.Text("lblGames1"), QString("2"));
}

void SessionsLogTest::deletionsReachTheFileOrAreRefused() {
  SessionsLogTable t;
  t.AnswerTwo("9", "");
  t.Trigger("mnuDelete");
  QCOMPARE(t.shown.back().second, std::string("No sessions deleted.  Entry out of range."));
  QCOMPARE(SessionsLogReader(t.path).count(), 3);

  // A range given backwards is read in order.
  t.AnswerTwo("3", "2");
  t.Trigger("mnuDelete");
  QCOMPARE(SessionsLogReader(t.path).count(), 1);

  t.AnswerMessage(1);
  t.Trigger("mnuDeleteAll");
  QCOMPARE(SessionsLogReader(t.path).count(), 0);
  QCOMPARE(t.Text("lblGames3"), QString("0"));
}

void SessionsLogTest::theOpenLogReloadsWhenASessionEnds() {
  SessionsLogTable t;
  t.game->rules.BetRequirement = kNoBetRequired;
  RollDice(*t.game);  // a session with a roll, so ending it writes a record
  NewSession(*t.game, true, false, true, 2);
  QCOMPARE(t.Text("lblGames3"), QString("4"));
  QCOMPARE(t.Text("lblGames1"), QString("2"));  // the new record broke even
}

void SessionsLogTest::theLogIsSavedAsAndStartedAnew() {
  SessionsLogTable t;
  const std::string copy = t.dir.filePath("ann-saved.slg").toStdString();
  t.platform.onChooseFile = [&](const FileChooserRequest& rq) -> std::optional<std::string> {
    if (rq.caption != "Save Sessions Log As") qFatal("asked %s", rq.caption.c_str());
    return copy;
  };
  t.Trigger("mnuSaveAs");
  QCOMPARE(t.form->windowTitle(), QString("Sessions Log (ann-saved.slg)"));

  // New: the saved log is not the default, so nobody is asked; the
  // player is back on the default file, which is gone.
  t.Trigger("mnuNew");
  QCOMPARE(t.form->windowTitle(), QString("Sessions Log (ann.slg)"));
  QVERIFY(!QFileInfo::exists(QString::fromStdString(t.path)));
  QCOMPARE(SessionsLogReader(copy).count(), 3);

  // The default log with sessions is offered for saving first; No loses them.
  t.game->roll.SessionLogPath[1] = t.path;
  SessionRecord r{};
  if (AppendSessionRecord(t.path, r)) qFatal("cannot write the log");
  t.form->Refresh();
  t.AnswerMessage(2);
  t.Trigger("mnuNewAll");
  QCOMPARE(t.shown.back().first, std::string("Save Sessions Log"));
  QCOMPARE(SessionsLogReader(t.path).count(), 0);
  QCOMPARE(t.Text("lblGames3"), QString("0"));
}

void SessionsLogTest::anotherLogIsMergedOnlyAfterAYes() {
  SessionsLogTable t;
  const std::string other = t.dir.filePath("bo.slg").toStdString();
  SessionRecord r{};
  r[kHandleValue] = Currency::FromWhole(100);
  r[kNetValue] = Currency::FromWhole(90);
  if (AppendSessionRecord(other, r)) qFatal("cannot write the other log");
  std::string chosen = other;
  t.platform.onChooseFile = [&](const FileChooserRequest& rq) -> std::optional<std::string> {
    if (rq.caption != "Merge Sessions Log") qFatal("asked %s", rq.caption.c_str());
    return chosen;
  };
  t.AnswerMessage(2);  // No
  t.Trigger("mnuMerge");
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Merge Sessions Log"),
                                          std::string("Add the 1 session in the file\r\"bo.slg\"\r"
                                                      "to the end of Ann's Sessions Log?")));
  QCOMPARE(SessionsLogReader(t.path).count(), 3);
  t.AnswerMessage(1);  // Yes
  t.Trigger("mnuMerge");
  QCOMPARE(t.Text("lblGames3"), QString("4"));
  QCOMPARE(t.Text("lblGames0"), QString("2"));
  QCOMPARE(SessionsLogReader(other).count(), 1);

  chosen = t.path;
  t.Trigger("mnuMerge");
  QCOMPARE(t.shown.back().second, std::string("A sessions log can't be merged into itself."));
  QCOMPARE(SessionsLogReader(t.path).count(), 4);
}

void SessionsLogTest::printingAsksAndPrints() {
  SessionsLogTable t;
  t.platform.printToFile = t.dir.filePath("log.pdf");
  t.Trigger("mnuPrintHistogram");
  QVERIFY(QFileInfo(t.platform.printToFile).size() > 0);

  t.AnswerMessage(2);  // No to the confirmation
  t.Trigger("mnuPrintRawData");
  QVERIFY(t.shown.back().second.find("Number of sessions to be printed: 3") == 0);
  QCOMPARE(t.platform.documentsPrinted, 1);
  t.AnswerMessage(1);
  t.Trigger("mnuPrintRawData");
  QCOMPARE(t.platform.documentsPrinted, 2);

  // Nothing included: nothing to print.
  for (const char* box : {"chkInclude0", "chkInclude1", "chkInclude2"})
    QTest::mouseClick(FormChild<QCheckBox>(*t.form, box), Qt::LeftButton, {}, QPoint(8, 8));
  t.Trigger("mnuPrintHistogram");
  QCOMPARE(t.shown.back().second, std::string("There are no sessions selected for printing."));
  QCOMPARE(t.platform.documentsPrinted, 2);
}

void SessionsLogTest::draggingARangeLineRewritesItsBox() {
  SessionsLogTable t;
  // Nets -20, 0 and 50: the range lines stand at columns 0 and 524.
  auto* histogram = FormChild<QWidget>(*t.form, "picHistogram");
  // Line 0 dropped halfway: -20 + 70 x 262 / 524 = 15.
  QTest::mousePress(histogram, Qt::LeftButton, {}, QPoint(1, 100));
  QTest::mouseRelease(histogram, Qt::LeftButton, {}, QPoint(262, 100));
  QCOMPARE(FormChild<QLineEdit>(*t.form, "txtValueCount0")->text(), QString("15"));
  QCOMPARE(t.Text("lblRangeCount"), QString("1 session"));
  // A press away from both lines moves nothing.
  QTest::mousePress(histogram, Qt::LeftButton, {}, QPoint(400, 100));
  QTest::mouseRelease(histogram, Qt::LeftButton, {}, QPoint(100, 100));
  QCOMPARE(FormChild<QLineEdit>(*t.form, "txtValueCount0")->text(), QString("15"));
}

QTEST_MAIN(SessionsLogTest)
#include "sessions_log_qtest.moc"
