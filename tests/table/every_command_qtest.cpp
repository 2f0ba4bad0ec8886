// Every command of the table's menus and of the tool windows they open, then
// every button those windows show, chosen in turn on an empty table and on a
// table with a played session: each runs to its end with every question
// answered by its default (a window that waits is closed), and the game
// still plays.
#include <QAbstractButton>
#include <QApplication>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "core/catalogue.h"
#include "cycle/roll.h"
#include "desktop_fixture.h"
#include "engine/place.h"

class EveryCommandTest : public QObject {
  Q_OBJECT
 private slots:
  void everyCommandRunsOnAnEmptyAndAPlayedTable_data();
  void everyCommandRunsOnAnEmptyAndAPlayedTable();
};

namespace {

// Commands that end the program or close a window, wait on the system
// rather than the game, make every later roll wait for a click at each
// statement of a script, or start Hyper-Drive on a table that might play on.
bool Skipped(const QString& name) {
  static const QStringList kSkipped = {
      "mnuExit",       "mnuAboutCraps",      "mnuShowSteps", "cmdClose", "mnuHyperDriveButton",
      "cmdHyperDrive", "cmdHyperDriveActive"};
  return kSkipped.contains(name);
}

// The named actions of the main window's menus and of every tool window open now.
QList<QAction*> Commands(QWidget& window) {
  QList<QAction*> all;
  for (QAction* a : window.findChildren<QAction*>())
    if (!a->objectName().isEmpty() && !a->menu() && !Skipped(a->objectName())) all << a;
  return all;
}

}  // namespace

void EveryCommandTest::everyCommandRunsOnAnEmptyAndAPlayedTable_data() {
  QTest::addColumn<int>("players");
  QTest::newRow("empty table") << 0;
  QTest::newRow("two players after 30 rolls") << 2;
}

void EveryCommandTest::everyCommandRunsOnAnEmptyAndAPlayedTable() {
  QFETCH(int, players);
  QTemporaryDir folder;
  DesktopTable t(players);
  t.game->roll.DataFolder = folder.path().toStdString() + "/";
  t.platform.printToFile = folder.filePath("printed.pdf");
  t.platform.onChooseFile = [](const FileChooserRequest&) { return std::optional<std::string>(); };
  for (int p = 1; p <= players; ++p) {
    t.game->BetRequest = 10_usd;
    PlaceBet(*t.game, p, bet::kPassLine);
  }
  for (int roll = 0; roll < 30 && players > 0; ++roll) RollDice(*t.game);
  // A form opened with exec() waits for its own answer: closed as it shows.
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [] {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
  });
  closer.start(20);

  int run = 0;
  for (int pass = 0; pass < 2; ++pass) {  // the second pass reaches the windows the first opened
    for (QAction* command : Commands(*t.window)) {
      if (!command->isEnabled()) continue;
      command->trigger();
      QApplication::processEvents();
      ++run;
    }
  }
  QVERIFY2(run > 100, qPrintable(QString::number(run)));
  // Then every button shown in the windows now open.
  for (int pass = 0; pass < 2; ++pass)
    for (QAbstractButton* button : t.window->findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || !button->isEnabled() || Skipped(button->objectName())) continue;
      button->click();
      QApplication::processEvents();
      ++run;
    }
  QVERIFY(t.window->isVisible());
  RollDice(*t.game);  // the game still plays
}

QTEST_MAIN(EveryCommandTest)
#include "every_command_qtest.moc"
