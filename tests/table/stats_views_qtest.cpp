// The statistics views under the offscreen platform: each opens from its
// menu item on the game's figures, follows the rolls while open, keeps its
// frame, selection and options in the game, and prints. The figures and
// their captions are the stats library's, tested there; here the views show
// them and pass the user's choices on. (Their places: tool_windows_qtest.)
#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include "core/catalogue.h"
#include "cycle/hyperdrive.h"
#include "desktop_fixture.h"
#include "engine/place.h"
#include "stats/roll_categories.h"
#include "table/stats_form.h"
#include "table/stats_views.h"

class StatsViewsTest : public QObject {
  Q_OBJECT
 private slots:
  void summaryAndBetResultsFollowRollsFramesAndTheSelection();
  void totalsHandsAndFreqsAddUpToTheirTallies();
  void betTrendsShowOnePlayersStreaks();
};

namespace {

constexpr int kRolls = 120;

// A table of two players, Ann with a Field bet, after kRolls rolls.
std::unique_ptr<DesktopTable> PlayedTable() {
  auto t = std::make_unique<DesktopTable>(2);
  Game& g = *t->game;
  g.rules.BetRequirement = kNoBetRequired;
  g.rules.NoticeFlags = 0;
  g.betting.CurPlayer = 1;
  g.BetRequest = Currency::FromWhole(10);
  PlaceBet(g, 1, bet::kField);
  if (g.Bet(1, bet::kField) <= Currency{}) qFatal("the Field bet was not made");
  g.hyper.RunRollLimit = kRolls;
  RunHyperDrive(g);
  return t;
}

StatsForm* OpenByMenu(DesktopTable& t, const char* item, const char* form) {
  QAction* a = t.window->findChild<QAction*>(item);
  if (a == nullptr || !a->isEnabled()) qFatal("menu item %s missing or disabled", item);
  a->trigger();
  auto* f = t.window->findChild<StatsForm*>(form);
  if (f == nullptr) qFatal("no form %s", form);
  return f;
}

QString Text(QWidget& form, const char* label) { return FormChild<QLabel>(form, label)->text(); }
QColor Ink(QWidget& form, const char* label) {
  return FormChild<QLabel>(form, label)->palette().color(QPalette::WindowText);
}
void Pick(QWidget& form, int slot) {
  auto* list = FormChild<QListWidget>(form, "lstPlayer");
  for (int r = 0; r < list->count(); ++r)
    if (list->item(r)->data(Qt::UserRole).toInt() == slot) {
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                        list->visualItemRect(list->item(r)).center());
      return;
    }
  qFatal("no player in slot %d", slot);
}
void DoubleClick(QWidget& form, const char* label) {
  QTest::mouseDClick(FormChild<QLabel>(form, label), Qt::LeftButton);
}

}  // namespace

void StatsViewsTest::summaryAndBetResultsFollowRollsFramesAndTheSelection() {
  const auto t = PlayedTable();
  Game& g = *t->game;
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(1234);
  g.Bet(2, bet::kBankroll) = Currency::FromWhole(-40);  // Bo owes the house
  StatsForm* form = OpenByMenu(*t, "mnuSummary", "frmSummary");
  QVERIFY(form->isVisible() && !form->isModal());
  QCOMPARE(Text(*form, "lblTotalRolls"), QString::number(kRolls));
  QCOMPARE(Text(*form, "lblPlayer"), QString("No players selected"));
  // A roll at the table reaches the open view.
  t->View()->Roll();
  QCOMPARE(Text(*form, "lblTotalRolls"), QString::number(kRolls + 1));

  Pick(*form, 2);
  QCOMPARE(g.views.SummaryPlayers, 1 << 2);
  QCOMPARE(Text(*form, "lblBankrollCurrent"), QString("-40"));
  QCOMPARE(Ink(*form, "lblBankrollCurrent"), QColor(192, 0, 0));
  Pick(*form, 1);  // Ann too: the bankrolls are summed
  QCOMPARE(Text(*form, "lblBankrollCurrent"), QString("1,194"));
  QCOMPARE(Ink(*form, "lblBankrollCurrent"), QColor(0, 0, 192));
  DoubleClick(*form, "lblPlayer");
  QCOMPARE(g.views.SummaryPlayers, 0);
  QCOMPARE(FormChild<QListWidget>(*form, "lstPlayer")->selectedItems().size(), 0);
  // Another frame is kept in the game; the table's roll count stays.
  FormChild<QComboBox>(*form, "cmbHand")->setCurrentIndex(4);
  QCOMPARE(g.views.SummaryFrame, 4);
  QCOMPARE(Text(*form, "lblTotalRolls"), QString::number(g.RollsAtTable(kTableAllSessions)));

  // Bet results follow the bet selection.
  g.views.BetResultsPlayers = 1 << 1;
  form = OpenByMenu(*t, "mnuBetResults", "frmBetResults");
  auto* bets = FormChild<QListWidget>(*form, "lstBets");
  QCOMPARE(bets->selectedItems().size(), 85);
  // Ann's only bet was the Field, so all bets and the Field alone agree.
  const QString decided = Text(*form, "lblWagers1");
  QVERIFY(decided.toInt() > 0);
  const bool lost = Text(*form, "lblNet2").startsWith('-');
  QCOMPARE(Ink(*form, "lblNet2"), lost ? QColor(192, 0, 0) : QColor(0, 0, 192));

  DoubleClick(*form, "lblBets");
  QCOMPARE(g.views.BetResultsSelection, std::string(85, '0'));
  QCOMPARE(Text(*form, "lblWagers1"), QString("0"));

  QListWidgetItem* field = bets->item(bet::kField - 1);
  QTest::mouseClick(bets->viewport(), Qt::LeftButton, {}, bets->visualItemRect(field).center());
  QCOMPARE(Text(*form, "lblBets"), QString("1 bet selected"));
  QCOMPARE(Text(*form, "lblWagers1"), decided);
}

void StatsViewsTest::totalsHandsAndFreqsAddUpToTheirTallies() {
  const auto t = PlayedTable();
  Game& g = *t->game;
  StatsForm* form = OpenByMenu(*t, "mnuRollTotals", "frmRollTotals");
  auto* grid = FormChild<QTableWidget>(*form, "grdTotals");
  auto countSum = [grid] {
    long n = 0;
    for (int r = 0; r < grid->rowCount(); ++r) n += grid->item(r, 3)->text().remove(',').toLong();
    return n;
  };
  auto kind = [form](int k) {
    for (QAction* a : form->findChildren<QAction*>("mnuDisplayTotals"))
      if (a->data().toInt() == k) a->trigger();
  };
  // Every roll has one total and one face on each die.
  QCOMPARE(countSum(), long{kRolls});
  kind(3);
  QCOMPARE(grid->rowCount(), 12);
  QCOMPARE(countSum(), long{2 * kRolls});
  kind(2);
  QCOMPARE(grid->item(1, 0)->text(), QString::fromStdString(CategoryText(22)));
  // The list's scroll position is the game's, both ways.
  QApplication::processEvents();
  grid->verticalScrollBar()->setValue(4);
  QCOMPARE(g.gamefile.RollTotalsScrollY, 4);
  g.gamefile.RollTotalsScrollY = 2;  // as an opened game brings it
  form->Refresh();
  QApplication::processEvents();
  QCOMPARE(grid->verticalScrollBar()->value(), 2);
  // Rolls since last exist only for the session-wide frames.
  FormChild<QComboBox>(*form, "cmbHand")->setCurrentIndex(1);
  QCOMPARE(g.views.RollTotalsFrame, 1);
  QCOMPARE(grid->item(0, 4)->text(), QString("---"));

  // Hands show counts or percents; roll frequencies the gaps of the chosen
  // category.
  form = OpenByMenu(*t, "mnuHands", "frmHands");
  // Every come-out roll is one of the eleven totals.
  long comeouts = 0;
  for (int n = 2; n <= 12; ++n)
    comeouts += Text(*form, qPrintable(QString("lblNumComeoutRolls%1").arg(n))).toLong();
  QVERIFY(comeouts > 0);
  QCOMPARE(Text(*form, "lblNumComeoutRolls13"), QString::number(comeouts));
  // A come-out 7 can't miss and a 2 can't pass.
  QVERIFY(!FormChild<QLabel>(*form, "lblNumMisses7")->isVisible());
  QVERIFY(FormChild<QLabel>(*form, "lblNumPasses7")->isVisible());

  auto* units = FormChild<QPushButton>(*form, "cmdUnits");
  units->click();
  QVERIFY(g.views.HandsShowPercent);
  QCOMPARE(Text(*form, "lblNumComeoutRolls13"), QString("100.00"));

  form = OpenByMenu(*t, "mnuRollFreqs", "frmRollFreqs");
  auto* category = FormChild<QComboBox>(*form, "cmbFreqNum");
  category->setCurrentIndex(category->findData(6));
  QCOMPARE(Text(*form, "lblLastRolled"), QString::number(g.RollsSince(6)));
  // Every showing of the 6 closes one gap: the gap counts add up to its count.
  auto* gaps = FormChild<QTableWidget>(*form, "grdFreqs");
  long closed = 0;
  for (int r = 0; r < gaps->rowCount(); ++r)
    for (int c = 1; c < gaps->columnCount(); c += 2) closed += gaps->item(r, c)->text().toLong();
  QCOMPARE(closed, long{g.RollTally(kTableSession, kEventAny6)});
}

void StatsViewsTest::betTrendsShowOnePlayersStreaks() {
  DesktopTable t(2);
  Game& g = *t.game;
  g.BetTrend(2, bet::kField, 1) = -3;
  g.BetTrend(2, bet::kPassLine, 1) = 2;
  g.views.BetTrendsPlayer = 7;  // an empty seat moves to the first player
  StatsForm* form = OpenByMenu(t, "mnuBetTrends", "frmBetTrends");
  QCOMPARE(g.views.BetTrendsPlayer, 1);
  auto* trends = FormChild<QTableWidget>(*form, "picBetTrends");
  auto* player = FormChild<QComboBox>(*form, "cmbPlayer");
  player->setCurrentIndex(player->findData(2));
  QCOMPARE(g.views.BetTrendsPlayer, 2);
  QTableWidgetItem* field = trends->item(bet::kField - 1, 1);
  QCOMPARE(field->text().trimmed(), QString("-3"));
  QCOMPARE(field->foreground().color(), QColor(255, 0, 0));
  QCOMPARE(trends->item(bet::kPassLine - 1, 1)->foreground().color(), QColor(0, 0, 255));
  // File > Print hands the printout to the printer.
  QTemporaryDir dir;
  t.platform.printToFile = dir.filePath("trends.pdf");
  form->findChild<QAction*>("mnuPrint")->trigger();
  QVERIFY(QFileInfo(t.platform.printToFile).size() > 0);
  // The summary, hands and frequency views print through the same item.
  int printed = 1;
  for (auto [menu, name] : {std::pair{"mnuSummary", "frmSummary"}, {"mnuHands", "frmHands"},
                            {"mnuRollFreqs", "frmRollFreqs"}}) {
    StatsForm* view = OpenByMenu(t, menu, name);
    view->findChild<QAction*>("mnuPrint")->trigger();
    QCOMPARE(t.platform.documentsPrinted, ++printed);
  }
}

QTEST_MAIN(StatsViewsTest)
#include "stats_views_qtest.moc"
