// The Probability and Advantage tabs of frmConfigure under the offscreen
// platform: the advantage table of the defaults, its answer to a change of
// vig and of dice made on other tabs, edits of the matrix reaching the
// game's table, refused entries, the axis panel, and a .prb file saved,
// renewed and opened again through the file chooser.
#include <QDir>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <optional>

#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "dice/probability.h"
#include "dice/probability_file.h"
#include "table/configure_form.h"
#include "table/probability_matrix.h"

class ConfigureProbabilityTest : public QObject {
  Q_OBJECT
 private slots:
  void advantageOfTheDefaults();
  void advantageAnswersToVigAndDice();
  void matrixEditsReachTheGame();
  void invalidEntriesAreRefused();
  void axisPanelSkewsTheDice();
  void prbSaveNewOpenRoundTrip();
};

namespace {

// The text of bet b's column c (1 EV/Roll .. 5 EV/Hour) on the Advantage tab.
QString Figure(ConfigureForm& form, int b, int c) {
  return FormChild<QTableWidget>(form, "picAdvantage")->item(b - 1, c)->text();
}

void ClickEntry(ConfigureForm& form, ProbEntry e) {
  auto* matrix = FormChild<ProbabilityMatrix>(form, "picProbability");
  QTest::mouseClick(matrix, Qt::LeftButton, Qt::NoModifier, matrix->EntryRect(e).center());
}

std::string TempPath(const char* name) {
  return QDir::temp()
      .filePath(QString("ravelton-qtest-%1-%2").arg(QCoreApplication::applicationPid()).arg(name))
      .toStdString();
}

}  // namespace

void ConfigureProbabilityTest::advantageOfTheDefaults() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabAdvantage);
  auto* table = FormChild<QTableWidget>(*form, "picAdvantage");
  QCOMPARE(table->rowCount(), kLastRealBet);
  QCOMPARE(table->item(bet::kPassLine - 1, 0)->text(), QString("Passline/Come"));
  QCOMPARE(table->horizontalHeaderItem(3)->text(), QString("EV/Dec"));
  // -1.414% shown to the tab's two decimals, the full figure behind it.
  QCOMPARE(Figure(*form, bet::kPassLine, 3), QString("-1.41"));
  QCOMPARE(table->item(bet::kPassLine - 1, 3)->toolTip(), QString("-1.4141%"));
  QCOMPARE(table->item(bet::kPassLine - 1, 3)->foreground().color(), QColor(Qt::red));
  QCOMPARE(FormChild<QLabel>(*form, "lblAdvantageDice")->text(),
           QString("Figured using true probabilities"));
  // Fire: no point made in 0.593939 of hands, a hand lasts 8.5255 rolls.
  QCOMPARE(FormChild<QTableWidget>(*form, "tblFireOdds")->item(0, 1)->text(), QString("0.593939"));
  QCOMPARE(FormChild<QLabel>(*form, "lblFireRolls")->text(), QString("Rolls per hand: 8.5255"));

  // The options: zero outcomes make a Place bet's EV/Dec its EV/Roll; the
  // misc. view shows rolls per decision.
  FormChild<QCheckBox>(*form, "mnuIncludeZeroOutcomes")->setChecked(true);
  QVERIFY(t.game->advantage.CountZeroOutcomes);
  QCOMPARE(Figure(*form, 34, 3), Figure(*form, 34, 1));  // Place 6
  QCOMPARE(Figure(*form, bet::kDontPass, 3), QString("-1.36"));
  FormChild<QCheckBox>(*form, "mnuShowMiscData")->setChecked(true);
  QVERIFY(t.game->advantage.ShowMiscData);
  QCOMPARE(table->horizontalHeaderItem(1)->text(), QString("Rolls/Dec"));
  QCOMPARE(Figure(*form, 34, 1), QString("1.00"));
  form->close();
}

void ConfigureProbabilityTest::advantageAnswersToVigAndDice() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabAdvantage);
  const int buy4 = 37;
  const QString buyBefore = Figure(*form, buy4, 3);
  const QString passBefore = Figure(*form, bet::kPassLine, 3);

  // The Buy vig changed on the Bets tab.
  form->Tabs()->setCurrentIndex(kTabBets);
  TypeInto(FormChild<QLineEdit>(*form, "txtBuyVigPct"), "2");
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(Figure(*form, buy4, 3) != buyBefore);
  QCOMPARE(Figure(*form, bet::kPassLine, 3), passBefore);

  // Skewed dice put in play on the Probability tab: seven at 20 percent.
  form->Tabs()->setCurrentIndex(kTabProbability);
  FormChild<QCheckBox>(*form, "chkUseSkewedProbability")->setChecked(true);
  QVERIFY(t.game->dice.ProbabilityDiceOn);
  ClickEntry(*form, TotalEntry(7));
  TypeInto(FormChild<QLineEdit>(*form, "txtPercent"), "20");
  QTest::keyClick(FormChild<QLineEdit>(*form, "txtPercent"), Qt::Key_Return);
  // Enter set the entry and left the form open.
  QVERIFY(form->isVisible());
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(Figure(*form, bet::kPassLine, 3) != passBefore);
  QCOMPARE(FormChild<QLabel>(*form, "lblAdvantageDice")->text(),
           QString("Probability File:  untitled"));
  form->close();
}

void ConfigureProbabilityTest::matrixEditsReachTheGame() {
  DesktopTable t;
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabProbability);
  auto* box = FormChild<QLineEdit>(*form, "txtPercent");
  QCOMPARE(FormChild<QLabel>(*form, "lblPercentageDice")->text(), QString("Percentage Dice"));
  QCOMPARE(FormChild<QLabel>(*form, "lblPrbFileName")->text(), QString("untitled"));

  ClickEntry(*form, TotalEntry(7));
  QCOMPARE(box->text(), QString("16.667"));
  TypeInto(box, "20");
  QTest::keyClick(box, Qt::Key_Return);
  QCOMPARE(ProbValue(g, kTotalRow, 6), 20000);
  const ProbEntry pair34 = CellOfDice(3, 4);
  QCOMPARE(ProbValue(g, pair34.a, pair34.b), 3333);
  QVERIFY(g.probability.ProbDirty);
  QCOMPARE(FormChild<QLabel>(*form, "lblPercentageDice")->text(), QString("Free Form Dice"));

  // L flips the lock of the entry at once; the arrows move the box.
  QCOMPARE(ProbFlag(g, kTotalRow, 6), kProbLocked);
  QTest::keyClick(box, Qt::Key_L);
  QCOMPARE(ProbFlag(g, kTotalRow, 6), 0);
  QTest::keyClick(box, Qt::Key_Right);
  QCOMPARE(box->text(), QString("13.335"));  // total 8: five cells of 2667
  QTest::keyClick(box, Qt::Key_Down);
  QCOMPARE(ProbFlag(g, 0, 1), 2);
  QCOMPARE(ProbFlag(g, 0, 2), 7);

  // Leaving the box with a changed text sets the entry too.
  TypeInto(box, "10");
  ClickEntry(*form, FaceEntry(1, 6));
  QCOMPARE(ProbValue(g, 2, 7), 10000);

  // The display modes: out of 100 rolls a pair shows its percentage.
  FormChild<QRadioButton>(*form, "optProbability2")->setChecked(true);
  QCOMPARE(g.probability.ProbDisplayMode, kShowRollsOutOf);
  auto* n = FormChild<QLineEdit>(*form, "txtRollsOutOf");
  TypeInto(n, "100");
  emit n->editingFinished();
  QCOMPARE(g.probability.RollsOutOf, 100.0);
  ClickEntry(*form, pair34);
  QCOMPARE(box->text(), QString::number(ProbValue(g, pair34.a, pair34.b) / 1000.0, 'f', 3));
  TypeInto(n, "36");
  emit n->editingFinished();
  ClickEntry(*form, TotalEntry(12));
  QCOMPARE(box->text(), QString::number(ProbValue(g, kTotalRow, 11) * 36 / 100000.0, 'f', 3));
  form->close();
}

void ConfigureProbabilityTest::invalidEntriesAreRefused() {
  DesktopTable t;
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabProbability);
  auto* box = FormChild<QLineEdit>(*form, "txtPercent");
  ClickEntry(*form, TotalEntry(7));
  // Letters and a fourth decimal never reach the box.
  TypeInto(box, "1x2.3456");
  QCOMPARE(box->text(), QString("12.345"));
  // A lone minus is no number: Enter leaves the table as it was.
  const ProbabilityState before = g.probability;
  TypeInto(box, "-");
  QTest::keyClick(box, Qt::Key_Return);
  QCOMPARE(g.probability.ProbabilityTable, before.ProbabilityTable);
  QVERIFY(!g.probability.ProbDirty);
  QCOMPARE(box->text(), QString("16.667"));
  // N of the "rolls out of" modes must be above 0.
  auto* n = FormChild<QLineEdit>(*form, "txtRollsOutOf");
  TypeInto(n, "0");
  emit n->editingFinished();
  QCOMPARE(g.probability.RollsOutOf, 36.0);
  QCOMPARE(n->text(), QString("36"));
  // Five faces of the first die locked: setting the sixth is undone, locked.
  for (int face = 1; face <= 5; ++face) {
    ClickEntry(*form, FaceEntry(1, face));
    QTest::keyClick(box, Qt::Key_L);
  }
  ClickEntry(*form, FaceEntry(1, 6));
  TypeInto(box, "30");
  QTest::keyClick(box, Qt::Key_Return);
  const ProbEntry six = FaceEntry(1, 6);
  QCOMPARE(ProbValue(g, six.a, six.b), 16667);
  QCOMPARE(ProbFlag(g, six.a, six.b), kProbLocked);
  QCOMPARE(box->text(), QString("16.667"));
  form->close();
}

void ConfigureProbabilityTest::axisPanelSkewsTheDice() {
  DesktopTable t;
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabProbability);
  QTest::mouseClick(FormChild<QPushButton>(*form, "mnuAxes"), Qt::LeftButton);
  QVERIFY(FormChild<QWidget>(*form, "picAxis")->isVisible());
  TypeInto(FormChild<QLineEdit>(*form, "txtDie1SE"), "150");
  TypeInto(FormChild<QLineEdit>(*form, "txtDie2SE"), "100");
  QTest::mouseClick(FormChild<QPushButton>(*form, "cmdAxisOK"), Qt::LeftButton);
  QVERIFY(!FormChild<QWidget>(*form, "picAxis")->isVisible());
  QCOMPARE(FormChild<QLineEdit>(*form, "txtDie1SE")->text(), QString("100"));
  for (int die = 1; die <= 2; ++die)
    for (int face = 2; face <= 5; ++face) {
      const ProbEntry e = FaceEntry(die, face);
      QCOMPARE(ProbValue(g, e.a, e.b), 25000);
    }
  const ProbEntry snake = CellOfDice(1, 1);
  QCOMPARE(ProbValue(g, snake.a, snake.b), 0);
  QCOMPARE(FormChild<QLabel>(*form, "lblPercentageDice")->text(), QString("Percentage Dice"));
  form->close();
}

void ConfigureProbabilityTest::prbSaveNewOpenRoundTrip() {
  DesktopTable t;
  Game& g = *t.game;
  const std::string path = TempPath("sevens.prb"), bad = TempPath("bad.prb");
  QFile::remove(QString::fromStdString(path));
  std::deque<std::optional<std::string>> names;
  t.platform.onChooseFile = [&names](const FileChooserRequest&) {
    auto name = names.front();
    names.pop_front();
    return name;
  };
  ConfigureForm* form = t.OpenConfigure(kTabProbability);
  auto* box = FormChild<QLineEdit>(*form, "txtPercent");
  ClickEntry(*form, TotalEntry(7));
  TypeInto(box, "20");
  QTest::keyClick(box, Qt::Key_Return);
  const auto edited = g.probability.ProbabilityTable;

  names.push_back(path);
  QTest::mouseClick(FormChild<QPushButton>(*form, "mnuSave"), Qt::LeftButton);  // no file: Save As
  QVERIFY(QFile::exists(QString::fromStdString(path)));
  QVERIFY(!g.probability.ProbDirty);
  QVERIFY(FormChild<QLabel>(*form, "lblPrbFileName")->text().endsWith("sevens.prb"));

  QTest::mouseClick(FormChild<QPushButton>(*form, "mnuNew"), Qt::LeftButton);
  QCOMPARE(ProbValue(g, kTotalRow, 6), 16667);
  QCOMPARE(FormChild<QLabel>(*form, "lblPrbFileName")->text(), QString("untitled"));

  names.push_back(path);
  QTest::mouseClick(FormChild<QPushButton>(*form, "mnuOpen"), Qt::LeftButton);
  QCOMPARE(g.probability.ProbabilityTable, edited);
  QCOMPARE(FormChild<QLabel>(*form, "lblPercentageDice")->text(), QString("Free Form Dice"));
  QCOMPARE(box->text(), QString("20.000"));  // the box is back on the selected entry

  // A file that is not a probability file is told and changes nothing.
  {
    QFile f(QString::fromStdString(bad));
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(1280, 'x'));
  }
  t.shown.clear();
  names.push_back(bad);
  QTest::mouseClick(FormChild<QPushButton>(*form, "mnuOpen"), Qt::LeftButton);
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].first, std::string("Unable to Open Probability File"));
  QCOMPARE(g.probability.ProbabilityTable, edited);
  QCOMPARE(g.probability.ProbFilePath, path);
  QFile::remove(QString::fromStdString(path));
  QFile::remove(QString::fromStdString(bad));
  form->close();
}

QTEST_MAIN(ConfigureProbabilityTest)
#include "configure_probability_qtest.moc"
