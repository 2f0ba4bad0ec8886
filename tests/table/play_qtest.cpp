// Playing at the desktop table: the click rules with Ctrl and Shift, the
// rail, the tools, pending menu actions, typed amounts, the hover rules,
// the players' menu, the ATM, the bankroll form's scale, and the layout's
// own promises.
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QDir>
#include <QFile>
#include <QTest>

#include "core/catalogue.h"
#include "core/money.h"
#include "cycle/roll.h"
#include "engine/place.h"
#include "stats/graph_view.h"
#include "table/bankroll_form.h"
#include "table/check_images.h"
#include "desktop_fixture.h"
#include "store/game_file.h"

class PlayTest : public QObject {
  Q_OBJECT
 private slots:
  void everyBaseLiesWellInsideItsBet();
  void switchedOffBetsAnswerNoHotSpot();
  void ctrlTakesACheckOffAndShiftTheWholeBet();
  void theRailChoosesTheBettorAndTheCheck();
  void pendingActionsAndToolsActOnTheNextClick();
  void keyedAmountsAndTheirArrowKeys();
  void hoverRulesAndAmounts();
  void clickWithoutABettorSaysWho();
  void moveAndCashOutFromThePlayersMenu();
  void bankrollScaleButtonsClimbTheLadder();
  void flashingHidesTheBettorsChecksEveryOtherRound();
  void saveWritesTheGameAndTheCaptionNamesIt();
};

void PlayTest::everyBaseLiesWellInsideItsBet() {
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

void PlayTest::switchedOffBetsAnswerNoHotSpot() {
  DesktopTable t;
  Game& g = *t.game;
  const struct {
    bool TableSettings::*rule;
    int bet;
  } cases[] = {{&TableSettings::UseBig68, bet::kBig6},
               {&TableSettings::UseBig68, bet::kBig8},
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

void PlayTest::ctrlTakesACheckOffAndShiftTheWholeBet() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  g.rules.SelectedCheck = 2;  // 5
  const QPointF field = BasePosition(1, bet::kField);
  for (int i = 0; i < 3; ++i) t.Click(field);
  QCOMPARE(g.Bet(1, bet::kField), 15_usd);
  t.Click(field, Qt::LeftButton, Qt::ControlModifier);
  QCOMPARE(g.Bet(1, bet::kField), 10_usd);
  t.Click(field, Qt::LeftButton, Qt::ShiftModifier);
  QCOMPARE(g.Bet(1, bet::kField), Currency{});
  QCOMPARE(g.TotalBets(1), Currency{});
}

void PlayTest::theRailChoosesTheBettorAndTheCheck() {
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
  g.rules.SelectedCheck = 1;
  t.Click(RailStackRect(3, 2).center());
  QCOMPARE(g.Bet(3, 102), 1_usd);
  // Another player's stack as a target is ignored.
  t.Click(RailStackRect(2, 2).center());
  QCOMPARE(g.Bet(2, 102), Currency{});
  QCOMPARE(g.betting.CurPlayer, 3);
}

void PlayTest::pendingActionsAndToolsActOnTheNextClick() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  g.rules.BetRequirement = kNoBetRequired;
  g.betting.CurPlayer = 1;
  QueueDice(g, 4, 4);
  t.View()->Roll();
  g.BetRequest = 30_usd;
  PlaceBet(g, 1, PlaceId(6));
  g.BetRequest = 10_usd;
  PlaceBet(g, 1, bet::kField);
  QTest::keyClick(t.View(), Qt::Key_F5);
  QCOMPARE(t.View()->StatusLineText(), std::string("Click the bet to buy"));
  t.Click(BasePosition(1, PlaceId(6)));
  QCOMPARE(g.Bet(1, PlaceId(6)), Currency{});
  QCOMPARE(g.Bet(1, BuyId(6)), 30_usd);
  QCOMPARE(g.betting.PendingAction, static_cast<int>(kPendingNone));
  QTest::keyClick(t.View(), Qt::Key_Delete);
  QCOMPARE(t.View()->StatusLineText(), std::string("Click the bet to remove"));
  t.Click(BasePosition(1, bet::kField));
  QCOMPARE(g.Bet(1, bet::kField), Currency{});
  // The call-off tool on the back rail, then a click on the Buy bet.
  t.Click(ToolRect(hot::kToolCallOff).center());
  QCOMPARE(g.rules.SelectedCheck, int(hot::kToolCallOff));
  t.Click(BasePosition(1, BuyId(6)));
  QCOMPARE(g.BetWorking(1, BuyId(6)), -1);
}

void PlayTest::keyedAmountsAndTheirArrowKeys() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  g.betting.CurPlayer = 1;
  QTest::keyClick(t.View(), Qt::Key_F9);
  QVERIFY(g.betting.KeyInBetAmounts);
  t.Click(BasePosition(1, bet::kField));
  QLineEdit* box = t.View()->EnterBetBox();
  QVERIFY(box && box->isVisible());
  box->clear();
  QTest::keyClicks(box, "25");
  QTest::keyClick(box, Qt::Key_Return);
  QCOMPARE(g.Bet(1, bet::kField), 25_usd);
  // The arrow keys carry the box to the neighbouring bet: Come lies above the Field.
  t.Click(BasePosition(1, bet::kField));
  QTest::keyClick(t.View()->EnterBetBox(), Qt::Key_Up);
  const QPoint come = t.Pixel(BasePosition(1, bet::kCome));
  QVERIFY((t.View()->EnterBetBox()->geometry().center() - come).manhattanLength() < 20);
  // Turned by 180 degrees, Up on the screen points the other way on the table.
  g.table.TableRotation = 180;
  t.View()->AutoSize();
  QTest::keyClick(t.View()->EnterBetBox(), Qt::Key_Down);
  const QPoint field = t.Pixel(BasePosition(1, bet::kField));
  QVERIFY((t.View()->EnterBetBox()->geometry().center() - field).manhattanLength() > 20);
}

void PlayTest::hoverRulesAndAmounts() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.rules.NoticeFlags = 0;
  g.rules.BetRequirement = kNoBetRequired;
  g.betting.CurPlayer = 1;
  TableView* v = t.View();
  QCOMPARE(v->MapHotSpot(13), 7);  // empty Don't Come odds: the flat bet
  QCOMPARE(v->MapHotSpot(1011), 101);  // own rail stack spot 1 as a target
  g.BetRequest = 10_usd;
  PlaceBet(g, 1, bet::kDontPass);
  QCOMPARE(v->MapHotSpot(bet::kDontPass), int(bet::kDontPass));  // no point yet
  QueueDice(g, 5, 5);
  v->Roll();
  QCOMPARE(v->MapHotSpot(bet::kDontPass), int(bet::kDontPassOdds));
  LayFullOdds(g, 1);
  QCOMPARE(v->HoverText(bet::kDontPass), QString("Flat 10   Odds 40"));
  g.BetRequest = 40_usd;
  PlaceBet(g, 1, LayId(4));
  QCOMPARE(v->HoverText(LayId(4)), QString("40   vig 1"));
  g.BetRequest = 30_usd;
  PlaceBet(g, 1, PlaceId(9));
  BuyPlaceBet(g, 1, PlaceId(9));
  QCOMPARE(v->MapHotSpot(PlaceId(9)), BuyId(9));
  QCOMPARE(v->HoverText(bet::kField), QString());
}

void PlayTest::clickWithoutABettorSaysWho() {
  DesktopTable t;
  t.Click(BasePosition(1, bet::kField));
  QCOMPARE(t.shown.back().first, std::string("No Players Present"));
  QCOMPARE(t.shown.back().second, std::string("If you'd like to make a bet, please click an\r"
                                              "open position on the rail to add a player."));
  SeatPlayer(*t.game, 2, "Bo", 100_usd);
  t.game->betting.CurPlayer = 0;
  t.Click(BasePosition(1, bet::kField));
  QCOMPARE(t.shown.back().first, std::string("Bettor Not Selected"));
}

void PlayTest::moveAndCashOutFromThePlayersMenu() {
  DesktopTable t(2);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  t.window->findChild<QAction*>("mnuPlayerMove")->trigger();
  QCOMPARE(t.View()->StatusLineText(), std::string("Click the rail where you want Ann to move"));
  t.Click(NamePlateRect(7).center());
  QCOMPARE(g.PlayerName[7], std::string("Ann"));
  QVERIFY(g.PlayerName[1].empty());
  QCOMPARE(g.betting.CurPlayer, 7);
  t.AnswerMessage(1);  // Yes
  t.window->findChild<QAction*>("mnuPlayerDelete")->trigger();
  QCOMPARE(t.shown.back().second, std::string("Would you like to remove Ann?"));
  QVERIFY(g.PlayerName[7].empty());
  QCOMPARE(g.PlayerCount, 1);
  t.window->findChild<QAction*>("mnuPassDice")->trigger();
  QCOMPARE(t.shown.back().second,
           std::string("Unable to pass the dice.\r\rThere are no other players at the table."));
}

void PlayTest::bankrollScaleButtonsClimbTheLadder() {
  DesktopTable t(1);
  Game& g = *t.game;
  BankrollForm* form = t.window->Bankroll();
  form->show();
  QCOMPARE(g.graph.GraphPlayer, 1);
  const Currency before = g.roll.GraphScale;
  QTest::mouseClick(form->findChild<QPushButton*>("lblLarger"), Qt::LeftButton);
  QCOMPARE(g.roll.GraphScale, NextGraphScale(before, 1));
  QCOMPARE(g.roll.GraphBaseScale, g.roll.GraphScale);
  QTest::mouseClick(form->findChild<QPushButton*>("lblSmaller"), Qt::LeftButton);
  QCOMPARE(g.roll.GraphScale, before);
  // The scale labels read the top less 50 rows a step.
  const Currency top = g.roll.GraphTop;
  QCOMPARE(form->findChild<QLabel*>("lblScale0")->text(),
           QString::fromStdString(FormatMoney(top)));
  // The moving average's span is held to 0..525; Cancel keeps it.
  const std::pair<QString, int> spans[] = {{"600", 525}, {"", 525}, {"-3", 0}, {"50", 50}};
  for (const auto& [typed, want] : spans) {
    if (typed.isEmpty())
      t.AnswerMessage(3);
    else
      t.AnswerMessage(0, typed);
    form->findChild<QAction*>("mnuSetAverage")->trigger();
    QCOMPARE(g.graph.GraphAverageSpan, want);
  }
  auto* throttle = form->findChild<QScrollBar*>("hsbThrottle");
  throttle->setValue(7);
  QCOMPARE(g.hyper.HyperThrottle, 7);
}

void PlayTest::flashingHidesTheBettorsChecksEveryOtherRound() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.CurPlayer = 1;
  QTest::keyClick(t.View(), Qt::Key_Space);
  QVERIFY(g.table.FlashBets);
  QVERIFY(QTest::qWaitFor([&t] { return t.View()->paint.flashOff; }, 3000));
  QTest::keyClick(t.View(), Qt::Key_Space);
  QVERIFY(!t.View()->paint.flashOff);
}

// Game > Save with a file in play writes it without a chooser; the
// caption then names the file, and the file opens to the same players.
void PlayTest::saveWritesTheGameAndTheCaptionNamesIt() {
  DesktopTable t(2);
  Game& g = *t.game;
  QVERIFY(t.window->findChild<QAction*>("mnuOpen")->isEnabled());
  QVERIFY(t.window->findChild<QAction*>("mnuSaveAs")->isEnabled());
  const std::string path =
      QDir::temp().filePath(QString("ravelton-qtest-%1.rvg").arg(QCoreApplication::applicationPid()))
          .toStdString();
  g.gamefile.GameFilePath = path;
  g.roll.SessionDirty = true;
  t.window->findChild<QAction*>("mnuSave")->trigger();
  QVERIFY(QFile::exists(QString::fromStdString(path)));
  QVERIFY(!g.roll.SessionDirty);
  QCOMPARE(t.window->windowTitle(), QString::fromStdString(g.gamefile.WindowTitle));
  QVERIFY(t.window->windowTitle().endsWith(".rvg)"));

  QtPlatform other;
  auto opened = MakeGame(other);
  StartUp(*opened);
  QVERIFY(OpenGame(*opened, path));
  QCOMPARE(opened->PlayerName[2], std::string("Bo"));
  QCOMPARE(opened->Bet(1, 0), g.Bet(1, 0));
  QFile::remove(QString::fromStdString(path));
}

QTEST_MAIN(PlayTest)
#include "play_qtest.moc"

