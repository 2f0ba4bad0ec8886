// The drawn table under the mouse and the keyboard: every bet's hot-spot
// places that bet for every player, the right button rolls, the keys act,
// and the hot-spots stay where the bets are at any angle and zoom.
#include <QTest>

#include "core/catalogue.h"
#include "engine/place.h"
#include "cycle/roll.h"
#include "table/check_images.h"
#include "table/status_box.h"
#include "desktop_fixture.h"

namespace {

// The bets the centre set of HopBetsShown hides.
bool HiddenBy(bool hops, int b) {
  if (hops) return (b >= bet::kHard4 && b <= bet::kCraps) || b == bet::kHorn;
  return b >= bet::kWorld && b <= bet::kHopLast;
}

}  // namespace

class TableViewTest : public QObject {
  Q_OBJECT
 private slots:
  void clickOnEveryBetPlacesItForEveryPlayer();
  void clickOnTheOtherHalfDoesNothing();
  void rightClickCancelsAPendingActionAndRolls();
  void keysAct_data();
  void keysAct();
  void tabMovesTheBettorAndWraps();
  void savedViewsRestoreOnlyWhenSaved();
  void hotSpotsFollowZoomAndRotation_data();
  void hotSpotsFollowZoomAndRotation();
  void openSeatOffersAPlayerAndNoKeepsTheBettor();
  void altDragMovesABet();
  void stacksStopAtThirteenChecks();
  void statusBoxesFormatAmounts();
  void statusBoxesNearPlayersNeverOverlap();
};

void TableViewTest::clickOnEveryBetPlacesItForEveryPlayer() {
  DesktopTable t(8);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  g.rules.BetRequirement = kNoBetRequired;
  QueueDice(g, 3, 3);
  t.View()->Roll();  // a point, so that odds and Come bets can be made
  QCOMPARE(g.Point, 6);
  for (int p = 1; p <= 8; ++p) {
    g.betting.CurPlayer = p;
    g.rules.SelectedCheck = 2;
    int placed = 0;
    for (bool hops : {false, true}) {
      g.table.HopBetsShown = hops;
      for (int b = 1; b <= kLastRealBet; ++b) {
        if (HiddenBy(hops, b) || (hops && b == bet::kCandE)) continue;
        const QPointF base = BasePosition(p, b);
        QCOMPARE(t.View()->HotSpotAtScreen(t.Pixel(base)), b);
        // What the game does for a click on this bet, worked out on a copy.
        Game expected = g;
        ClickOnBet(expected, t.View()->MapHotSpot(b), BetClick::Plain);
        t.Click(base);
        for (int id = 0; id <= kLastRealBet; ++id)
          QVERIFY2(g.Bet(p, id) == expected.Bet(p, id),
                   qPrintable(QString("player %1 bet %2 id %3").arg(p).arg(b).arg(id)));
        if (g.Bet(p, b) > Currency{}) ++placed;
      }
    }
    // Everything but the bets that travel or hang on another (Come and
    // Don't Come points and their odds) takes a check from a click.
    QVERIFY2(placed >= 60, qPrintable(QString("player %1 placed %2").arg(p).arg(placed)));
    QVERIFY(CheckBetLedger(g, p));
  }
}

void TableViewTest::clickOnTheOtherHalfDoesNothing() {
  DesktopTable t(8);
  Game& g = *t.game;
  for (int p : {1, 8}) {
    g.betting.CurPlayer = p;
    const int other = p == 1 ? 8 : 1;
    t.Click(BasePosition(other, bet::kField));
    t.Click(BasePosition(other, bet::kPassLine));
    QCOMPARE(g.Bet(p, bet::kField), Currency{});
    QCOMPARE(g.Bet(p, bet::kPassLine), Currency{});
    // The centre belongs to both halves.
    t.Click(BasePosition(other, bet::kSeven));
    QVERIFY(g.Bet(p, bet::kSeven) > Currency{});
  }
}

void TableViewTest::rightClickCancelsAPendingActionAndRolls() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  g.rules.BetRequirement = kNoBetRequired;
  g.betting.PendingAction = kPendingCallOn;
  QueueDice(g, 2, 5);
  t.Click(FeltRect().center(), Qt::RightButton);
  QCOMPARE(g.betting.PendingAction, static_cast<int>(kPendingNone));
  QCOMPARE(g.RollTally(18, 0), 1);
  QCOMPARE(g.Die1 + g.Die2, 7);
  QVERIFY(t.View()->paint.diceOnTable);
}

void TableViewTest::keysAct_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("mods");
  QTest::addColumn<QString>("what");
  QTest::newRow("F5 buy") << int(Qt::Key_F5) << 0 << "pending 3";
  QTest::newRow("F6 call on") << int(Qt::Key_F6) << 0 << "pending 1";
  QTest::newRow("F7 call off") << int(Qt::Key_F7) << 0 << "pending 2";
  QTest::newRow("Del remove") << int(Qt::Key_Delete) << 0 << "pending 4";
  QTest::newRow("F9 key-in") << int(Qt::Key_F9) << 0 << "keyin";
  QTest::newRow("F11 numbers") << int(Qt::Key_F11) << 0 << "numbers";
  QTest::newRow("Space flash") << int(Qt::Key_Space) << 0 << "flash";
  QTest::newRow("H hops") << int(Qt::Key_H) << 0 << "hops";
  QTest::newRow("F2 roll") << int(Qt::Key_F2) << 0 << "roll";
  QTest::newRow("P pass") << int(Qt::Key_P) << 0 << "pass";
  QTest::newRow("Shift+Del all") << int(Qt::Key_Delete) << int(Qt::ShiftModifier) << "all off";
  QTest::newRow("Shift+F7 all off") << int(Qt::Key_F7) << int(Qt::ShiftModifier) << "calls off";
}

void TableViewTest::keysAct() {
  QFETCH(int, key);
  QFETCH(int, mods);
  QFETCH(QString, what);
  DesktopTable t(2);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  g.Shooter = 1;
  g.rules.NoticeFlags = 0;
  g.BetRequest = 10_usd;
  PlaceBet(g, 1, bet::kPassLine);
  g.BetRequest = 10_usd;
  PlaceBet(g, 1, bet::kField);
  QueueDice(g, 2, 2);
  t.View()->setFocus();
  QTest::keyClick(t.View(), static_cast<Qt::Key>(key), Qt::KeyboardModifiers(mods));
  if (what.startsWith("pending")) QCOMPARE(g.betting.PendingAction, what.mid(8).toInt());
  if (what == "keyin") QVERIFY(g.betting.KeyInBetAmounts);
  if (what == "numbers") QVERIFY(g.table.DisplayBetAmounts);
  if (what == "flash") QVERIFY(g.table.FlashBets);
  if (what == "hops") QVERIFY(g.table.HopBetsShown);
  if (what == "roll") QCOMPARE(g.Point, 4);
  if (what == "pass") QCOMPARE(g.Shooter, 2);
  if (what == "all off") QCOMPARE(g.TotalBets(1), Currency{});
  if (what == "calls off") QCOMPARE(g.BetWorking(1, bet::kField), -1);
}

void TableViewTest::tabMovesTheBettorAndWraps() {
  DesktopTable t(0);
  Game& g = *t.game;
  for (int p : {2, 5, 8}) SeatPlayer(g, p, std::string(1, char('a' + p)), 100_usd);
  g.betting.CurPlayer = 2;
  const std::pair<Qt::KeyboardModifiers, int> steps[] = {
      {Qt::NoModifier, 8}, {Qt::NoModifier, 5}, {Qt::ShiftModifier, 8}, {Qt::ShiftModifier, 2}};
  for (const auto& [mods, want] : steps) {
    QTest::keyClick(t.View(), Qt::Key_Tab, mods);
    QCOMPARE(g.betting.CurPlayer, want);
  }
}

void TableViewTest::savedViewsRestoreOnlyWhenSaved() {
  DesktopTable t(0);
  TableState& s = t.game->table;
  s.TableZoom = 900;
  s.TableRotation = 30;
  QTest::keyClick(t.View(), Qt::Key_3, Qt::ShiftModifier);
  s.TableZoom = 1500;
  s.TableRotation = 0;
  QTest::keyClick(t.View(), Qt::Key_4, Qt::ControlModifier);  // never saved: nothing
  QCOMPARE(s.TableZoom, 1500);
  QTest::keyClick(t.View(), Qt::Key_3, Qt::ControlModifier);
  QCOMPARE(s.TableZoom, 900);
  QCOMPARE(s.TableRotation, 30);
}

void TableViewTest::hotSpotsFollowZoomAndRotation_data() {
  QTest::addColumn<int>("zoom");
  QTest::addColumn<int>("rotation");
  for (int zoom : {kTableZoomMin, 1248, kTableZoomMax})
    for (int rotation : {0, 90, 180, 270})
      QTest::addRow("zoom %d at %d", zoom, rotation) << zoom << rotation;
  QTest::addRow("odd angle") << 1700 << 37;
}

void TableViewTest::hotSpotsFollowZoomAndRotation() {
  QFETCH(int, zoom);
  QFETCH(int, rotation);
  DesktopTable t(0);
  Game& g = *t.game;
  g.table.TableZoom = zoom;
  g.table.TableRotation = rotation;
  g.table.TableOffsetA = 311;
  g.table.TableOffsetB = -97;
  TableView* v = t.View();
  for (bool hops : {false, true}) {
    g.table.HopBetsShown = hops;
    for (int p = 1; p <= 8; ++p)
      for (int b = 1; b <= kLastRealBet; ++b)
        if (!HiddenBy(hops, b))
          QCOMPARE(v->HotSpotAtScreen(t.Pixel(BasePosition(p, b))), b);
  }
  for (int p = 1; p <= 8; ++p) {
    for (int k = 1; k <= 5; ++k)
      QCOMPARE(v->HotSpotAtScreen(t.Pixel(RailCheckRect(p, k).center())), p * 1000 + k);
    for (int i = 1; i <= 4; ++i) {
      QCOMPARE(v->HotSpotAtScreen(t.Pixel(RailStackRect(p, i).center())), p * 1000 + 10 + i);
      QCOMPARE(v->HotSpotAtScreen(t.Pixel(RailStackLabelRect(p, i).center())), p * 1000 + 6 + i);
    }
  }
  for (int tool = hot::kToolBuy; tool <= hot::kToolCallOn; ++tool)
    QCOMPARE(v->HotSpotAtScreen(t.Pixel(ToolRect(tool).center())), tool);
  QCOMPARE(v->HotSpotAtScreen(t.Pixel(StickRect().center())), int(hot::kStick));
  QCOMPARE(v->HotSpotAtScreen(t.Pixel(HopSwitchRect().center())), int(hot::kHopSwitch));
  QCOMPARE(v->HotSpotAtScreen(t.Pixel(QPointF(20, 300))), int(hot::kEdge));
  // A point of the felt outside every bet is no hot-spot.
  QCOMPARE(v->HotSpotAtScreen(t.Pixel(QPointF(kStickX, 600))), int(hot::kNone));
}

void TableViewTest::openSeatOffersAPlayerAndNoKeepsTheBettor() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  t.AnswerMessage(2);  // No
  t.Click(NamePlateRect(6).center());
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].first, std::string("Add New Player?"));
  QCOMPARE(t.shown[0].second, std::string("Would you like to add a player here?"));
  QCOMPARE(g.betting.CurPlayer, 1);
  QVERIFY(g.PlayerName[6].empty());
  // Yes, a name and a buy-in seat the player.
  t.AnswerMessage(1);
  t.AnswerMessage(0, "Zed");
  t.AnswerMessage(0, "750");
  t.Click(RailCheckRect(6, 2).center());
  QCOMPARE(g.PlayerName[6], std::string("Zed"));
  QCOMPARE(g.Bet(6, 0), 750_usd);
}

void TableViewTest::altDragMovesABet() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  g.rules.NoticeFlags = 0;
  g.BetRequest = 30_usd;
  PlaceBet(g, 1, bet::kField);
  const QPoint from = t.Pixel(BasePosition(1, bet::kField));
  const QPoint to = t.Pixel(BasePosition(1, bet::kBig6));
  QTest::mousePress(t.View(), Qt::LeftButton, Qt::AltModifier, from);
  QTest::mouseMove(t.View(), to);
  QTest::mouseRelease(t.View(), Qt::LeftButton, Qt::AltModifier, to);
  QCOMPARE(g.Bet(1, bet::kField), Currency{});
  QCOMPARE(g.Bet(1, bet::kBig6), 30_usd);
}

void TableViewTest::stacksStopAtThirteenChecks() {
  DesktopTable t(1);
  Game& g = *t.game;
  struct Case {
    long amount;
    int checks;
    bool overflow;
  } cases[] = {{0, 0, false},  {1, 1, false},  {131, 4, false},        {13, 5, false},
               {12, 4, false}, {4, 4, false},  {13 * 500, 13, false},  {13 * 500 + 1, 13, true},
               {12 * 500 + 205, 13, true}};  // 12 of 500, one of 100, 105 left over
  for (const Case& c : cases) {
    std::vector<DrawnCheck> rows;
    AppendStack(rows, g, 1, bet::kField, Currency::FromWhole(c.amount));
    int checks = 0;
    bool overflow = false;
    for (const DrawnCheck& r : rows) {
      if (r.kind == kOverflowKind)
        overflow = true;
      else
        ++checks;
    }
    QCOMPARE(checks, c.checks);
    QCOMPARE(overflow, c.overflow);
  }
}

void TableViewTest::statusBoxesFormatAmounts() {
  DesktopTable t(2);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  g.BetRequest = 25_usd;
  PlaceBet(g, 1, bet::kField);
  StatusBoxText box = StatusBoxLines(g, 1, StatusBoxesUseFractions(g));
  QCOMPARE(box.lines[0], std::string("Rail:  4,975"));
  QCOMPARE(box.lines[1], std::string("1 Bet:  25"));
  QCOMPARE(box.lines[2], std::string("Bankroll:  5,000"));
  QCOMPARE(box.lines[3], std::string("Even:  0"));
  g.Bet(2, 0) = Currency::FromRaw(49'987'500);  // 4,998.75: every box shows cents
  QVERIFY(StatusBoxesUseFractions(g));
  box = StatusBoxLines(g, 2, true);
  QCOMPARE(box.lines[2], std::string("Bankroll:  4,998.75"));
  QCOMPARE(box.lines[3], std::string("Lost:  1.25"));
  QCOMPARE(StatusBoxLines(g, 1, true).lines[1], std::string("1 Bet:  25.00"));
}

// In a narrow window the seats crowd together; the boxes in front of them
// narrow with them and still hold their lines.
void TableViewTest::statusBoxesNearPlayersNeverOverlap() {
  DesktopTable t(8);
  for (const QSize size : {QSize(1280, 900), QSize(1000, 760)}) {
    t.window->resize(size);
    QApplication::processEvents();
    t.View()->AutoSize();
    for (int a = 1; a <= 8; ++a) {
      const QRectF box = t.View()->StatusBoxRect(a);
      QVERIFY(box.width() >= kStatusBoxMinWidth);
      for (int b = a + 1; b <= 8; ++b)
        QVERIFY2(!box.intersects(t.View()->StatusBoxRect(b)),
                 qPrintable(QString("seats %1 and %2 at %3 wide").arg(a).arg(b).arg(size.width())));
    }
  }
}

QTEST_MAIN(TableViewTest)
#include "table_view_qtest.moc"
