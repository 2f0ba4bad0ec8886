// The drawn table under the mouse and the keyboard: every bet's hot-spot
// places that bet for every player and lies well inside it at any angle and
// zoom, Ctrl, Shift and Alt change what a click does, the rail chooses the
// bettor and the check, the keys and tools act, the hover rules, the
// players' menu, and the status boxes and stacks drawn on the felt.
#include <QDir>
#include <QFile>
#include <QTest>
#include <tuple>

#include "core/catalogue.h"
#include "core/money.h"
#include "cycle/roll.h"
#include "desktop_fixture.h"
#include "engine/place.h"
#include "table/check_images.h"
#include "table/status_box.h"

namespace {

// The bets the centre set of HopBetsShown hides.
bool HiddenBy(bool hops, int b) {
  if (hops) return (b >= bet::kHard4 && b <= bet::kCraps) || b == bet::kHorn;
  return b >= bet::kWorld && b <= bet::kHopLast;
}

// The game made ready for plain play by `bettor`: no notices, no bet needed
// to shoot.
Game& Ready(DesktopTable& t, int bettor) {
  t.game->rules.NoticeFlags = 0;
  t.game->rules.BetRequirement = kNoBetRequired;
  t.game->betting.CurPlayer = bettor;
  return *t.game;
}

// Player p's bet b of `amount`, made as the game makes it.
void Place(Game& g, int p, int b, Currency amount) {
  g.BetRequest = amount;
  PlaceBet(g, p, b);
}

}  // namespace

class TableViewTest : public QObject {
  Q_OBJECT
 private slots:
  void everyBaseLiesWellInsideItsBet();
  void clickOnEveryBetPlacesItForEveryPlayer();
  void switchedOffBetsAnswerNoHotSpot();
  void modifiersChangeWhatAClickDoes();
  void theRailChoosesTheBettorAndTheCheck();
  void keysAct_data();
  void keysAct();
  void pendingActionsAndToolsActOnTheNextClick();
  void keysMoveTheBettorFlashAndRecallViews();
  void hotSpotsFollowZoomAndRotation_data();
  void hotSpotsFollowZoomAndRotation();
  void hoverRulesAndAmounts();
  void theRailAndThePlayersMenuSeatMoveAndRemove();
  void saveWritesTheGameAndTheCaptionNamesIt();
  void statusBoxesAndStacksOnTheFelt();
};

void TableViewTest::everyBaseLiesWellInsideItsBet() {
  for (int p = 1; p <= 8; ++p)
    for (int b = 1; b <= kLastRealBet; ++b) {
      const QRectF r = BetRect(p, b);
      const QPointF c = BasePosition(p, b);
      QVERIFY2(r.adjusted(kBaseMargin, kBaseMargin, -kBaseMargin, -kBaseMargin).contains(c),
               qPrintable(QString("player %1 bet %2").arg(p).arg(b)));
      QVERIFY(OnPlayersHalf(p, c.x()));
    }
  // No two players share a base on the same bet.
  for (int b = 1; b <= kLastRealBet; ++b)
    for (int p = 1; p <= 8; ++p)
      for (int q = p + 1; q <= 8; ++q) QVERIFY(BasePosition(p, b) != BasePosition(q, b));
}

void TableViewTest::clickOnEveryBetPlacesItForEveryPlayer() {
  DesktopTable t(8);
  Game& g = Ready(t, 1);
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

void TableViewTest::switchedOffBetsAnswerNoHotSpot() {
  DesktopTable t;
  Game& g = *t.game;
  const struct {
    bool TableSettings::*rule;
    int bet;
  } cases[] = {{&TableSettings::UseBig68, bet::kBig6},
               {&TableSettings::UseMidwayBet, bet::kMidway},
               {&TableSettings::UseFireBet, bet::kFire}};
  for (const auto& c : cases) {
    const QPointF at = BasePosition(2, c.bet);
    g.rules.*c.rule = true;
    QCOMPARE(HotSpotAt(g, at), c.bet);
    g.rules.*c.rule = false;
    QVERIFY(HotSpotAt(g, at) != c.bet);
    g.rules.*c.rule = true;
  }
}

// Ctrl takes a check off, Shift the whole bet, and Alt drags a bet to
// another. With key-in amounts a click opens a box for the amount, whose
// arrow keys carry it to the neighbouring bet.
void TableViewTest::modifiersChangeWhatAClickDoes() {
  DesktopTable t(1);
  Game& g = Ready(t, 1);
  g.rules.SelectedCheck = 2;  // 5
  const QPointF field = BasePosition(1, bet::kField);
  for (int i = 0; i < 3; ++i) t.Click(field);
  QCOMPARE(g.Bet(1, bet::kField), 15_usd);
  t.Click(field, Qt::LeftButton, Qt::ControlModifier);
  QCOMPARE(g.Bet(1, bet::kField), 10_usd);
  t.Click(field, Qt::LeftButton, Qt::ShiftModifier);
  QCOMPARE(g.Bet(1, bet::kField), Currency{});
  Place(g, 1, bet::kField, 30_usd);
  const QPoint from = t.Pixel(field), to = t.Pixel(BasePosition(1, bet::kBig6));
  QTest::mousePress(t.View(), Qt::LeftButton, Qt::AltModifier, from);
  QTest::mouseMove(t.View(), to);
  QTest::mouseRelease(t.View(), Qt::LeftButton, Qt::AltModifier, to);
  QCOMPARE(g.Bet(1, bet::kField), Currency{});
  QCOMPARE(g.Bet(1, bet::kBig6), 30_usd);

  QTest::keyClick(t.View(), Qt::Key_F9);
  QVERIFY(g.betting.KeyInBetAmounts);
  t.Click(field);
  QLineEdit* box = t.View()->EnterBetBox();
  box->clear();
  QTest::keyClicks(box, "25");
  QTest::keyClick(box, Qt::Key_Return);
  QCOMPARE(g.Bet(1, bet::kField), 25_usd);
  // The arrow keys carry the box to the neighbouring bet: Come lies above the Field.
  t.Click(field);
  QTest::keyClick(t.View()->EnterBetBox(), Qt::Key_Up);
  const QPoint come = t.Pixel(BasePosition(1, bet::kCome));
  QVERIFY((t.View()->EnterBetBox()->geometry().center() - come).manhattanLength() < 20);
  QCOMPARE(g.gamefile.EnterBetId, int(bet::kCome));  // the game's, which the file keeps
  // Turned by 180 degrees, Up on the screen points the other way on the table.
  g.table.TableRotation = 180;
  t.View()->AutoSize();
  QTest::keyClick(t.View()->EnterBetBox(), Qt::Key_Down);
  QVERIFY((t.View()->EnterBetBox()->geometry().center() - t.Pixel(field)).manhattanLength() > 20);
}

void TableViewTest::theRailChoosesTheBettorAndTheCheck() {
  DesktopTable t(3);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  t.Click(RailCheckRect(3, 4).center());
  QCOMPARE(g.betting.CurPlayer, 3);
  QCOMPARE(g.rules.SelectedCheck, 4);
  // A stack spot as the source of amounts, then as the target of a bet.
  g.Bet(3, 101) = 40_usd;
  t.Click(RailStackLabelRect(3, 1).center());
  QCOMPARE(g.rules.SelectedCheck, 7);
  t.Click(BasePosition(3, bet::kField));
  QCOMPARE(g.Bet(3, bet::kField), 40_usd);
  // Another player's stack as a target is ignored, and so is a bet on the
  // other half of the table; the centre belongs to both halves.
  t.Click(RailStackRect(2, 2).center());
  QCOMPARE(g.Bet(2, 102), Currency{});
  t.Click(BasePosition(8, bet::kPassLine));
  QCOMPARE(g.Bet(3, bet::kPassLine), Currency{});
  t.Click(BasePosition(8, bet::kSeven));
  QVERIFY(g.Bet(3, bet::kSeven) > Currency{});
  QCOMPARE(g.betting.CurPlayer, 3);
}

void TableViewTest::keysAct_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("mods");
  QTest::addColumn<QString>("what");
  QTest::newRow("F6 call on") << int(Qt::Key_F6) << 0 << "pending 1";
  QTest::newRow("F7 call off") << int(Qt::Key_F7) << 0 << "pending 2";
  QTest::newRow("F11 numbers") << int(Qt::Key_F11) << 0 << "numbers";
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
  Game& g = Ready(t, 1);
  g.Shooter = 1;
  Place(g, 1, bet::kPassLine, 10_usd);
  Place(g, 1, bet::kField, 10_usd);
  QueueDice(g, 2, 2);
  t.View()->setFocus();
  QTest::keyClick(t.View(), static_cast<Qt::Key>(key), Qt::KeyboardModifiers(mods));
  if (what.startsWith("pending")) QCOMPARE(g.betting.PendingAction, what.mid(8).toInt());
  if (what == "numbers") QVERIFY(g.table.DisplayBetAmounts);
  if (what == "hops") QVERIFY(g.table.HopBetsShown);
  if (what == "roll") QCOMPARE(g.Point, 4);
  if (what == "pass") QCOMPARE(g.Shooter, 2);
  if (what == "all off") QCOMPARE(g.TotalBets(1), Currency{});
  if (what == "calls off") QCOMPARE(g.BetWorking(1, bet::kField), -1);
}

// A pending action or a tool acts on the next click; the right button
// cancels it and rolls.
void TableViewTest::pendingActionsAndToolsActOnTheNextClick() {
  DesktopTable t(1);
  Game& g = Ready(t, 1);
  QueueDice(g, 4, 4);
  t.View()->Roll();
  Place(g, 1, PlaceId(6), 30_usd);
  Place(g, 1, bet::kField, 10_usd);
  QTest::keyClick(t.View(), Qt::Key_F5);
  QCOMPARE(t.View()->StatusLineText(), std::string("Click the bet to buy"));
  t.Click(BasePosition(1, PlaceId(6)));
  QCOMPARE(g.Bet(1, PlaceId(6)), Currency{});
  QCOMPARE(g.Bet(1, BuyId(6)), 30_usd);
  QCOMPARE(g.betting.PendingAction, static_cast<int>(kPendingNone));
  // The call-off tool on the back rail, then a click on the Buy bet.
  t.Click(ToolRect(hot::kToolCallOff).center());
  QCOMPARE(g.rules.SelectedCheck, int(hot::kToolCallOff));
  t.Click(BasePosition(1, BuyId(6)));
  QCOMPARE(g.BetWorking(1, BuyId(6)), -1);
  g.betting.PendingAction = kPendingCallOn;
  QueueDice(g, 2, 5);
  t.Click(FeltRect().center(), Qt::RightButton);
  QCOMPARE(g.betting.PendingAction, static_cast<int>(kPendingNone));
  QCOMPARE(g.RollTally(kTableSession, kEventRolls), 2);
}

// Tab moves the bettor round the seats taken, Shift+Tab back; Space flashes
// the bettor's checks; Shift and a digit save the view, Ctrl and the digit
// bring it back (a view never saved does nothing).
void TableViewTest::keysMoveTheBettorFlashAndRecallViews() {
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
  QTest::keyClick(t.View(), Qt::Key_Space);
  QVERIFY(QTest::qWaitFor([&t] { return t.View()->paint.flashOff; }, 3000));
  QTest::keyClick(t.View(), Qt::Key_Space);
  QVERIFY(!t.View()->paint.flashOff);

  TableState& s = g.table;
  s.TableZoom = 900;
  s.TableRotation = 30;
  QTest::keyClick(t.View(), Qt::Key_3, Qt::ShiftModifier);
  s.TableZoom = 1500;
  s.TableRotation = 0;
  QTest::keyClick(t.View(), Qt::Key_4, Qt::ControlModifier);  // never saved: nothing
  QCOMPARE(s.TableZoom, 1500);
  QTest::keyClick(t.View(), Qt::Key_3, Qt::ControlModifier);
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

void TableViewTest::hoverRulesAndAmounts() {
  DesktopTable t(1);
  Game& g = Ready(t, 1);
  TableView* v = t.View();
  QCOMPARE(v->MapHotSpot(13), 7);  // empty Don't Come odds: the flat bet
  Place(g, 1, bet::kDontPass, 10_usd);
  QCOMPARE(v->MapHotSpot(bet::kDontPass), int(bet::kDontPass));  // no point yet
  QueueDice(g, 5, 5);
  v->Roll();
  QCOMPARE(v->MapHotSpot(bet::kDontPass), int(bet::kDontPassOdds));
  LayFullOdds(g, 1);
  QCOMPARE(v->HoverText(bet::kDontPass), QString("Flat 10   Odds 40"));
  Place(g, 1, LayId(4), 40_usd);
  QCOMPARE(v->HoverText(LayId(4)), QString("40   vig 1"));
}

// A click on a bet with nobody to bet says who is missing; a click on an
// open seat offers a player, and No keeps the bettor. The players' menu
// moves and removes a player.
void TableViewTest::theRailAndThePlayersMenuSeatMoveAndRemove() {
  DesktopTable t;
  Game& g = *t.game;
  t.Click(BasePosition(1, bet::kField));
  QCOMPARE(t.shown.back().second, std::string("If you'd like to make a bet, please click an\r"
                                              "open position on the rail to add a player."));
  SeatPlayer(g, 2, "Bo", 100_usd);
  g.betting.CurPlayer = 0;
  t.Click(BasePosition(1, bet::kField));
  QCOMPARE(t.shown.back().first, std::string("Bettor Not Selected"));
  g.betting.CurPlayer = 2;
  t.shown.clear();
  t.AnswerMessage(2);  // No
  t.Click(NamePlateRect(6).center());
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].second, std::string("Would you like to add a player here?"));
  QVERIFY(g.PlayerName[6].empty());
  // Yes, a name and a buy-in seat the player.
  t.AnswerMessage(1);
  t.AnswerMessage(0, "Zed");
  t.AnswerMessage(0, "750");
  t.Click(RailCheckRect(6, 2).center());
  QCOMPARE(g.PlayerName[6], std::string("Zed"));
  QCOMPARE(g.Bet(6, bet::kBankroll), 750_usd);

  // The players' menu moves Bo and cashes him out; Zed alone can't pass the dice.
  g.betting.CurPlayer = 2;
  t.window->findChild<QAction*>("mnuPlayerMove")->trigger();
  QCOMPARE(t.View()->StatusLineText(), std::string("Click the rail where you want Bo to move"));
  t.Click(NamePlateRect(7).center());
  QCOMPARE(g.PlayerName[7], std::string("Bo"));
  QCOMPARE(g.betting.CurPlayer, 7);
  t.AnswerMessage(1);  // Yes
  t.window->findChild<QAction*>("mnuPlayerDelete")->trigger();
  QCOMPARE(t.shown.back().second, std::string("Would you like to remove Bo?"));
  QCOMPARE(g.PlayerCount, 1);
  t.window->findChild<QAction*>("mnuPassDice")->trigger();
  QCOMPARE(t.shown.back().second,
           std::string("Unable to pass the dice.\r\rThere are no other players at the table."));
}

// Game > Save with a file in play writes it without a chooser, and the
// caption then names the file.
void TableViewTest::saveWritesTheGameAndTheCaptionNamesIt() {
  DesktopTable t(2);
  Game& g = *t.game;
  const QString path =
      QDir::temp().filePath(QString("ravelton-qtest-%1.rvg").arg(QCoreApplication::applicationPid()));
  g.gamefile.GameFilePath = path.toStdString();
  g.roll.SessionDirty = true;
  t.window->findChild<QAction*>("mnuSave")->trigger();
  QVERIFY(QFile::exists(path));
  QVERIFY(!g.roll.SessionDirty);
  QVERIFY(t.window->windowTitle().endsWith(".rvg)"));
  QFile::remove(path);
}

// The boxes show amounts whole until any shows cents. In a narrow window the
// seats crowd together; the boxes in front of them narrow with them and
// still hold their lines.
void TableViewTest::statusBoxesAndStacksOnTheFelt() {
  DesktopTable t(8);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  Place(g, 1, bet::kField, 25_usd);
  StatusBoxText box = StatusBoxLines(g, 1, StatusBoxesUseFractions(g));
  QCOMPARE(box.lines[0], std::string("Rail:  4,975"));
  QCOMPARE(box.lines[3], std::string("Even:  0"));
  g.Bet(2, bet::kBankroll) = Currency::FromRaw(49'987'500);  // 4,998.75: every box shows cents
  QVERIFY(StatusBoxesUseFractions(g));
  QCOMPARE(StatusBoxLines(g, 2, true).lines[3], std::string("Lost:  1.25"));
  QCOMPARE(StatusBoxLines(g, 1, true).lines[1], std::string("1 Bet:  25.00"));

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
  // A stack stops at thirteen checks; what is left over shows as one more.
  // {amount, checks, one for what is left over}; 6,205 is 12 of 500, one of
  // 100, and 105 left over.
  const std::tuple<long, int, bool> cases[] = {{0, 0, false},   {131, 4, false},   {13, 5, false},
                                               {4, 4, false},   {6500, 13, false}, {6501, 13, true},
                                               {6205, 13, true}};
  for (const auto& [amount, checks, overflowed] : cases) {
    std::vector<DrawnCheck> rows;
    AppendStack(rows, g, 1, bet::kField, Currency::FromWhole(amount));
    const auto overflow = std::count_if(
        rows.begin(), rows.end(), [](const DrawnCheck& r) { return r.kind == kOverflowKind; });
    QCOMPARE(int(rows.size() - overflow), checks);
    QCOMPARE(overflow == 1, overflowed);
  }
}

QTEST_MAIN(TableViewTest)
#include "table_view_qtest.moc"
