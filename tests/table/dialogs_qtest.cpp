// The dialogs the game opens through QtPlatform: the message dialog by
// style, the settle dialog answered by its real buttons, and Hyper-Drive
// started from frmBankroll, stopped by Auto-Stop or by a click.
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "cycle/hyperdrive.h"
#include "core/message_dialog.h"
#include "core/catalogue.h"
#include "core/money.h"
#include "engine/place.h"
#include "cycle/roll.h"
#include "table/bankroll_form.h"
#include "desktop_fixture.h"

class DialogsTest : public QObject {
  Q_OBJECT
 private slots:
  void messageStylesShowTheirControls_data();
  void messageStylesShowTheirControls();
  void hideBoxClearsItsNoticeClass();
  void numericBoxesFilterKeys_data();
  void numericBoxesFilterKeys();
  void settleDialogPaysByTheButtonPressed_data();
  void settleDialogPaysByTheButtonPressed();
  void hyperDriveStopsOnAutoStopWithItsMessage();
  void aClickDuringHyperDriveOffersToStopIt();
};

void DialogsTest::messageStylesShowTheirControls_data() {
  QTest::addColumn<int>("style");
  QTest::addColumn<QString>("buttons");  // which of OK, Yes, No, Cancel, Help show
  QTest::addColumn<bool>("picture");
  QTest::addColumn<int>("inputs");
  QTest::addColumn<bool>("hide");
  QTest::addColumn<int>("answer");  // what Enter answers
  QTest::newRow("OK") << 1 << "10000" << false << 0 << false << 1;
  QTest::newRow("OK stop") << 0x201 << "10000" << true << 0 << false << 1;
  QTest::newRow("Yes No") << 0x406 << "01100" << true << 0 << false << 6;
  QTest::newRow("focus No") << 0x2406 << "01100" << true << 0 << false << 7;
  QTest::newRow("Yes No Cancel") << 0x140e << "01110" << true << 0 << false << 6;
  QTest::newRow("OK Help") << 0x211 << "10001" << true << 0 << false << 1;
  QTest::newRow("hide") << 0x80001 << "10000" << false << 0 << true << 1;
  QTest::newRow("number box") << 0x461 << "10000" << true << 1 << false << 1;
  QTest::newRow("two boxes") << (kMsgOk | kMsgCancel | kMsgInput1 | kMsgInput2) << "10010" << false
                             << 2 << false << 1;
}

void DialogsTest::messageStylesShowTheirControls() {
  QFETCH(int, style);
  QFETCH(QString, buttons);
  QFETCH(bool, picture);
  QFETCH(int, inputs);
  QFETCH(bool, hide);
  QFETCH(int, answer);
  MessageRequest request;
  request.text = "line one\rline two";
  request.title = "Title";
  request.style = style;
  MessageForm form(request);
  for (int i = 0; i < 5; ++i) QCOMPARE(form.Button(i) != nullptr, buttons[i] == '1');
  QCOMPARE(form.findChild<QLabel*>("picture") != nullptr, picture);
  QCOMPARE(form.findChild<QLabel*>("lblMessage")->text(), QString("line one\nline two"));
  QCOMPARE((form.Input(0) != nullptr) + (form.Input(1) != nullptr), inputs);
  QCOMPARE(form.HideBox() != nullptr, hide);
  form.show();
  QTimer::singleShot(0, &form, [&form] { QTest::keyClick(&form, Qt::Key_Return); });
  form.exec();
  QCOMPARE(form.Reply().answer, answer);
}

void DialogsTest::hideBoxClearsItsNoticeClass() {
  DesktopTable t;
  Game& g = *t.game;
  const Long before = g.rules.NoticeFlags;
  t.AnswerMessage(0, {}, true);
  ShowNotice(g, "Requested amount", "ATM Deposit", 130, kMsgOk | kMsgHideNotAllowed);
  QCOMPARE(g.rules.NoticeFlags, before & ~kNoticeNotAllowed);
  t.AnswerMessage(0);
  ShowNotice(g, "Script says", "Auto-Bet (Ann)", 550, kMsgOk | kMsgHideScript);
  QCOMPARE(g.rules.NoticeFlags, before & ~kNoticeNotAllowed);  // unchecked: nothing cleared
}

void DialogsTest::numericBoxesFilterKeys_data() {
  QTest::addColumn<int>("style");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("kept");
  QTest::addColumn<QString>("amount");  // BetRequest after OK
  QTest::newRow("amount, two decimals") << (kMsgOk | kMsgInput1 | kMsgAmountInput) << "-12.345x"
                                        << "12.34" << "12.34";
  QTest::newRow("signed, four decimals") << (kMsgOk | kMsgInput1 | kMsgSignedInput) << "-1.23456"
                                         << "-1.2345" << "-1.2345";
  QTest::newRow("free text") << (kMsgOk | kMsgInput1) << "Bo 7" << "Bo 7" << "0";
}

void DialogsTest::numericBoxesFilterKeys() {
  QFETCH(int, style);
  QFETCH(QString, typed);
  QFETCH(QString, kept);
  QFETCH(QString, amount);
  DesktopTable t;
  Game& g = *t.game;
  QString seen;
  t.answers.push_back([&](QDialog& d) {
    auto* form = dynamic_cast<MessageForm*>(&d);
    QTest::keyClicks(form->Input(0), typed);
    seen = form->Input(0)->text();
    QTest::mouseClick(form->Button(0), Qt::LeftButton);
  });
  g.msg.MsgInput1.clear();
  ShowNotice(g, "Enter", "Input", 0, style);
  QCOMPARE(seen, kept);
  QCOMPARE(QString::fromStdString(g.msg.MsgInput1), kept);
  QCOMPARE(g.BetRequest, ParseAmount(amount.toStdString()));
}

void DialogsTest::settleDialogPaysByTheButtonPressed_data() {
  QTest::addColumn<int>("button");
  QTest::addColumn<int>("operatorClicks");
  QTest::addColumn<QString>("row");
  QTest::addColumn<int>("bet");  // Pass Line after the point is made
  QTest::newRow("take down") << 0 << 0 << "" << 0;
  QTest::newRow("same bet") << 1 << 0 << "" << 10;
  QTest::newRow("press double") << 3 << 0 << "" << 20;
  QTest::newRow("parlay") << 4 << 0 << "" << 20;
  QTest::newRow("same bet minus 4") << 5 << 1 << "4" << 6;
  QTest::newRow("same bet plus 15") << 5 << 0 << "15" << 25;
  QTest::newRow("bet 40") << 6 << 0 << "40" << 40;
}

void DialogsTest::settleDialogPaysByTheButtonPressed() {
  QFETCH(int, button);
  QFETCH(int, operatorClicks);
  QFETCH(QString, row);
  QFETCH(int, bet);
  DesktopTable t;
  Game& g = *t.game;
  SeatPlayer(g, 1, "Ann", 1000_usd);
  g.betting.CurPlayer = 1;
  g.rules.NoticeFlags = 0;
  g.BetRequest = 10_usd;
  PlaceBet(g, 1, bet::kPassLine);
  QueueDice(g, 2, 2);
  t.View()->Roll();
  QCOMPARE(g.Point, 4);
  t.AnswerSettle(button, [&](SettleForm& form) {
    for (int i = 0; i < operatorClicks; ++i) QTest::mouseClick(form.OperatorButton(), Qt::LeftButton);
    if (!row.isEmpty()) {
      QLineEdit* box = form.Amount(button - 5);
      box->clear();
      QTest::keyClicks(box, row);
    }
  });
  QueueDice(g, 1, 3);
  QTest::mouseClick(t.View(), Qt::RightButton, Qt::NoModifier,
                    t.Pixel(FeltRect().center()));
  QCOMPARE(t.platform.settleDialogsShown, 1);
  QCOMPARE(g.autoplay.Dialog.caption, std::string("Ann wins!"));
  QCOMPARE(g.Bet(1, bet::kPassLine), Currency::FromWhole(bet));
  // Pass Line 10 wins 10 on the point: the bankroll is 1,010 whatever stays up.
  QCOMPARE(g.Bet(1, 0), 1010_usd);
  QCOMPARE(g.autoplay.LastWinButton(1), button);
  QVERIFY(CheckBetLedger(g, 1));
}

void DialogsTest::hyperDriveStopsOnAutoStopWithItsMessage() {
  DesktopTable t;
  Game& g = *t.game;
  g.rules.BetRequirement = kNoBetRequired;
  SeatPlayer(g, 1, "Ann", 1000_usd);
  BankrollForm* form = t.window->Bankroll();
  form->show();
  // Set Hyper-Drive Auto-Stop ... typed into its real prompt.
  t.AnswerMessage(0, "250");
  form->findChild<QAction*>("mnuSetAutoStop")->trigger();
  QCOMPARE(g.hyper.AutoStopRolls, 250_usd);
  g.hyper.RunRollLimit = 100000;  // a safety net: the test never runs away
  QTest::mouseClick(form->HyperDriveButton(), Qt::LeftButton);
  QCOMPARE(g.RollTally(18, 0), 250);
  QVERIFY(!g.HyperDrive);
  QCOMPARE(t.shown.back().first, std::string("Hyper-Drive Stopped"));
  QCOMPARE(t.shown.back().second, std::string("Stopped by Auto-Stop."));
  QCOMPARE(form->HyperDriveButton()->text(), QString("Start Hyper-&Drive"));
  QCOMPARE(g.GraphRollCount, 250);
}

void DialogsTest::aClickDuringHyperDriveOffersToStopIt() {
  DesktopTable t;
  Game& g = *t.game;
  g.rules.BetRequirement = kNoBetRequired;
  g.hyper.HyperThrottle = 1;  // events are pumped after every roll
  g.hyper.RunRollLimit = 50'000'000;
  SeatPlayer(g, 1, "Ann", 1000_usd);
  t.AnswerMessage(1);  // Yes, stop
  QTimer::singleShot(30, t.View(), [&t] {
    QTest::mouseClick(t.View(), Qt::LeftButton, Qt::NoModifier, t.Pixel(FeltRect().center()));
  });
  RunHyperDrive(g);
  QVERIFY(!g.HyperDrive);
  QCOMPARE(t.shown.front().first, std::string("Hyper-Drive Active"));
  QCOMPARE(t.shown.front().second, std::string("Do you want to stop the Hyper-Drive?"));
  QVERIFY(g.hyper.RollsThisRun > 0);
  QVERIFY(g.hyper.RollsThisRun < 50'000'000);
  QVERIFY(g.StopMessage.empty());  // the user's stop has no message
}

QTEST_MAIN(DialogsTest)
#include "dialogs_qtest.moc"
