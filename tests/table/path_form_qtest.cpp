// frmPath under the offscreen platform: Game > Show Path lists the paths the
// game has in use, each under its caption.
#include <QTimer>

#include "desktop_fixture.h"
#include "table/path_form.h"
#include "tests/support/temp_folder.h"

class PathFormTest : public QObject {
  Q_OBJECT
  TempFolder data_;

 private slots:
  void initTestCase() { qputenv("RAVELTON_DATA", QByteArray::fromStdString(data_.Path() + "/")); }
  void showsThePathsInUse();
};

void PathFormTest::showsThePathsInUse() {
  DesktopTable t(2);
  t.game->gamefile.GameFilePath = "/games/friday.rvg";
  t.game->diceFile.DiceFilePath = "/games/friday.rll";
  t.game->roll.SessionLogPath[2] = "/logs/bo.slg";
  QStringList lines;
  QTimer::singleShot(0, [&] {
    auto* form = t.window->findChild<PathForm*>("frmPath");
    QVERIFY(form);
    lines = form->Text().split('\n');
    form->accept();
  });
  t.window->findChild<QAction*>("mnuShowPath")->trigger();
  const auto after = [&lines](const QString& caption) {
    const qsizetype i = lines.indexOf(caption);
    return i >= 0 && i + 1 < lines.size() ? lines[i + 1].trimmed() : QString("(missing)");
  };
  // Which groups there are and what each holds is the store's, tested there.
  QCOMPARE(after("Game File:"), QString("/games/friday.rvg"));
  QCOMPARE(after("Dice Roll File:"), QString("/games/friday.rll"));
  QVERIFY(lines.contains("    Bo: /logs/bo.slg"));
}

QTEST_MAIN(PathFormTest)
#include "path_form_qtest.moc"
