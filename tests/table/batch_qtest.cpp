// frmBatch under the offscreen platform: the menu opens it on the seated
// players' stops, Run refuses a batch without an end, with a bad stop or in
// the middle of a roll,
// and otherwise shows the figures the batch engine gives for the same seed
// while the table stays as it was; the next window starts as that batch was set.
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <filesystem>
#include <numeric>

#include "automation/autoplay_state.h"
#include "batch/batch.h"
#include "batch/batch_csv.h"
#include "batch/batch_settings.h"
#include "core/catalogue.h"
#include "core/number_text.h"
#include "desktop_fixture.h"
#include "engine/place.h"
#include "engine/settle_text.h"
#include "table/batch_form.h"
#include "table/batch_histogram.h"

class BatchFormTest : public QObject {
  Q_OBJECT
 private slots:
  void aRunShowsTheEnginesFiguresAndLeavesTheTable();
};

void BatchFormTest::aRunShowsTheEnginesFiguresAndLeavesTheTable() {
  DesktopTable t(2);
  std::filesystem::remove(BatchSettingsPath(*t.game));  // the last run of this test kept its own
  for (int p = 1; p <= 2; ++p) {
    t.game->autoplay.HandleWinningBets(p) = kWinSameBet;
    t.game->autoplay.HandleLosingBets(p) = kLoseSameBet;
    t.game->BetRequest = 10_usd;
    PlaceBet(*t.game, p, p == 1 ? bet::kPassLine : bet::kDontPass);
  }
  t.window->findChild<QAction*>("mnuBatch")->trigger();
  BatchForm* form = t.window->Batch();
  QVERIFY(form->isVisible());
  auto* stops = FormChild<QTableWidget>(*form, "grdStops");
  QCOMPARE(stops->rowCount(), 2);
  QCOMPARE(stops->item(1, 0)->text(), QString("Bo"));
  auto* run = FormChild<QPushButton>(*form, "cmdRun");

  run->click();
  QCOMPARE(
      t.shown.back().second,
      std::string("A session needs an end: a roll or hand limit, or a stop-win or stop-loss."));
  stops->item(0, 1)->setText("-5");
  run->click();
  QCOMPARE(t.shown.back().second,
           std::string("Ann's stop-win must be an amount above 0, or blank for none."));
  QVERIFY(form->Summaries().empty());

  stops->item(0, 1)->setText("50");
  t.game->scriptRun.ScriptRunning = true;  // as while a script waits in a dialog
  run->click();
  QVERIFY(t.shown.back().second.find("stop the Hyper-Drive or the running script first") !=
          std::string::npos);
  t.game->scriptRun.ScriptRunning = false;
  FormChild<QSpinBox>(*form, "txtSessions")->setValue(300);
  FormChild<QSpinBox>(*form, "txtRolls")->setValue(60);
  FormChild<QSpinBox>(*form, "txtSeed")->setValue(9);
  FormChild<QSpinBox>(*form, "txtThreads")->setValue(2);
  const auto before = std::make_unique<Game>(*t.game);
  run->click();
  QVERIFY(*before == *t.game);

  // The engine, one thread, the same seed: the same figures.
  BatchConfig config;
  config.sessions = 300;
  config.rolls = 60;
  config.seed = 9;
  config.stopWin[1] = 50_usd;
  std::vector<std::int64_t> indices(300);
  std::iota(indices.begin(), indices.end(), 0);
  const std::vector<SessionResult> played = PlaySessions(*t.game, config, indices, 1);
  const std::vector<PlayerSummary> expected = SummarizePlayers(*t.game, played);
  const std::vector<PlayerSummary>& shown = form->Summaries();
  QCOMPARE(shown.size(), std::size_t{2});
  for (std::size_t i = 0; i < shown.size(); ++i) {
    QCOMPARE(shown[i].meanNet, expected[i].meanNet);
    QCOMPARE(shown[i].percentiles, expected[i].percentiles);
    QCOMPARE(shown[i].stopWinShare, expected[i].stopWinShare);
  }
  QVERIFY(shown[0].stopWinShare > 0);
  QVERIFY(shown[1].exactEdge.has_value());  // Bo made one kind of bet
  auto* results = FormChild<QTableWidget>(*form, "grdResults");
  QCOMPARE(results->rowCount(), 2);
  QCOMPARE(results->item(1, 0)->text(), QString("Bo"));
  QVERIFY(FormChild<QLabel>(*form, "lblBatchStatus")->text().startsWith("300 sessions in "));
  // Copy puts the table on the clipboard as tab-separated lines.
  FormChild<QPushButton>(*form, "cmdCopy")->click();
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
  QCOMPARE(lines.size(), 3);
  QVERIFY(lines[0].startsWith("Player\tMean net\tStd dev\t"));
  QCOMPARE(lines[2].split('\t').value(1), results->item(1, 1)->text());
  // The histogram shows the current line's player: Ann, then Bo.
  const BatchHistogram& histogram = form->Histogram();
  QCOMPARE(histogram.Shown().counts, BinNets(played, 1).counts);
  results->setCurrentCell(1, 0);
  QCOMPARE(histogram.Shown().counts, BinNets(played, 2).counts);
  QCOMPARE(histogram.Shown().width, BinNets(played, 2).width);
  QVERIFY(histogram.BarTip(histogram.width() / 2).contains(" sessions ("));
  // Bo, the current line, against Ann: the other player, with the engine's
  // mean difference; Ann against Bo when her line is chosen again.
  auto* against = FormChild<QComboBox>(*form, "cboAgainst");
  QCOMPARE(against->count(), 1);
  QCOMPARE(against->currentText(), QString("Ann"));
  const QString boAnn = FormChild<QLabel>(*form, "lblAgainst")->text();
  const PairedNets expectedBoAnn = ComparePlayers(played, 2, 1);
  QVERIFY2(boAnn.startsWith(QString("Bo less Ann: %1 a session")
                                .arg(QString::fromStdString(
                                    FormatNumber(expectedBoAnn.meanDifference, {2, true, false})))),
           qPrintable(boAnn));
  results->setCurrentCell(0, 0);
  QCOMPARE(against->currentText(), QString("Bo"));
  QVERIFY(FormChild<QLabel>(*form, "lblAgainst")->text().startsWith("Ann less Bo: "));
  // Save Sessions writes the sessions the figures came from, a line each.
  QVERIFY(FormChild<QPushButton>(*form, "cmdSaveSessions")->isEnabled());
  const std::string csv = t.game->roll.DataFolder + "batch.csv";
  QVERIFY(form->SaveSessionsTo(csv));
  QFile file(QString::fromStdString(csv));
  QVERIFY(file.open(QIODevice::ReadOnly));
  const QStringList csvLines = QString(file.readAll()).split('\n', Qt::SkipEmptyParts);
  QCOMPARE(csvLines.size(), 301);
  QCOMPARE(csvLines[0], QString("session,seed,rolls,hands,end,Ann net,Ann end,Bo net,Bo end,stop"));
  QCOMPARE(csvLines[300].split(',').value(7),
           QString::fromStdString(PlainAmount(played[299].net[2])));
  QVERIFY(!form->SaveSessionsTo(t.game->roll.DataFolder + "missing/batch.csv"));
  QVERIFY(t.shown.back().second.find("missing/batch.csv") != std::string::npos);

  // The next window, after Ann and Bo have changed seats, starts as this
  // batch was set, her stop under her name.
  MovePlayer(*t.game, 1, 5);
  BatchForm next(*t.game);
  QCOMPARE(FormChild<QSpinBox>(next, "txtSessions")->value(), 300);
  QCOMPARE(FormChild<QSpinBox>(next, "txtRolls")->value(), 60);
  QCOMPARE(FormChild<QSpinBox>(next, "txtSeed")->value(), 9);
  QCOMPARE(FormChild<QSpinBox>(next, "txtThreads")->value(), 2);
  auto* nextStops = FormChild<QTableWidget>(next, "grdStops");
  QCOMPARE(nextStops->item(1, 0)->text(), QString("Ann"));
  QCOMPARE(nextStops->item(1, 1)->text(), QString("50"));
  QCOMPARE(nextStops->item(0, 1)->text(), QString());
}

QTEST_MAIN(BatchFormTest)
#include "batch_qtest.moc"
