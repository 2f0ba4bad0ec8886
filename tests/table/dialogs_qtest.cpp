// The dialogs of the game under the offscreen platform: the message dialog
// by style, the settle dialog answered by its real buttons, frmBankroll's
// scale, average and Hyper-Drive (stopped by Auto-Stop or by a click), the
// help window, Game > Show Path, and frmNew, whose choices reach the new
// session.
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/frames.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "cycle/hyperdrive.h"
#include "cycle/roll.h"
#include "desktop_fixture.h"
#include "dice/dice_file.h"
#include "engine/place.h"
#include "stats/bankroll_printout.h"
#include "stats/graph_view.h"
#include "table/bankroll_form.h"
#include "table/configure_form.h"
#include "table/events_log_form.h"
#include "table/help_window.h"
#include "table/new_form.h"
#include "table/path_form.h"
#include "tests/support/temp_folder.h"

class DialogsTest : public QObject {
  Q_OBJECT
  TempFolder data_;  // sessions logs a new session writes land here

 private slots:
  void initTestCase() { qputenv("RAVELTON_DATA", QByteArray::fromStdString(data_.Path() + "/")); }
  void messageStylesShowTheirControls_data();
  void messageStylesShowTheirControls();
  void hideBoxClearsItsNoticeClass();
  void numericBoxesFilterKeys_data();
  void numericBoxesFilterKeys();
  void settleDialogPaysByTheButtonPressed_data();
  void settleDialogPaysByTheButtonPressed();
  void bankrollFormScalesAndRunsHyperDrive();
  void helpOpensOnTheContentsTheMessagesOrTheWindowsTopic();
  void showPathListsThePathsInUse();
  void theChoicesReachTheNewSession();
  void theDiceOptionsFollowTheFileInUse();
  void theMenuAsksFirstThenShowsTheForm();
};

namespace {

constexpr int kEvent = 7;  // a total of 7 in the roll tallies
const Currency kStart = Currency::FromWhole(5000);

// A session that has been played: a bankroll moved, bets and a CheckStack
// standing, tallies in every frame, a script switched on.
void PlaySome(Game& g) {
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(4200);
  g.Bet(1, bet::kField) = Currency::FromWhole(25);
  g.Bet(1, 101) = Currency::FromWhole(300);
  for (int t = 0; t < kFrameCount; ++t) g.RollTally(FrameIndex(kHouse, t), kEvent) = 10 + t;
  g.RollTally(kTableSession, kEventRolls) = 40;  // the session has rolls
  g.roll.ScriptActive[1] = true;
}

void Press(QAbstractButton* button) {
  QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

// The help pages of the source tree, so the test does not depend on the copy.
void UseSourcePages(DesktopTable& t) { t.game->roll.AppPath = RAVELTON_SOURCE_DIR "/"; }

}  // namespace

void DialogsTest::helpOpensOnTheContentsTheMessagesOrTheWindowsTopic() {
  DesktopTable t;
  UseSourcePages(t);
  QTest::keyClick(t.View(), Qt::Key_F1);
  auto* help = t.window->findChild<HelpWindow*>("frmHelp");
  QVERIFY(help && help->isVisible());
  QVERIFY(help->Browser()->toPlainText().contains("Hyper-Drive"));
  // A click on a link resolves it against the page shown.
  help->Browser()->setSource(help->Browser()->source().resolved(QUrl("hyper-drive.html")));
  QCOMPARE(help->windowTitle(), QString("Hyper-Drive"));
  // Help > Contents shows the contents again in the one window.
  help->ShowPage("players.html");
  t.window->findChild<QAction*>("mnuContents")->trigger();
  QCOMPARE(help->CurrentPage(), QString("index.html"));
  QCOMPARE(t.window->findChildren<HelpWindow*>().size(), 1);
  // A message's Help button opens the help on the message's topic.
  QString page;
  t.answers.push_back([&](QDialog& d) {
    auto* form = dynamic_cast<MessageForm*>(&d);
    QVERIFY(form && form->Button(4));
    QTest::mouseClick(form->Button(4), Qt::LeftButton);
    if (auto* help = form->findChild<HelpWindow*>("frmHelp"); help && help->isVisible())
      page = help->CurrentPage();
    d.done(0);
  });
  MessageRequest request;
  request.text = "You may only buy Place bets.";
  request.title = "Action not allowed";
  request.helpId = kHelpBuyBets;
  request.style = kMsgOk | kMsgHelp;
  t.platform.ShowMessage(request);
  QCOMPARE(page, QString("buy-bets.html"));

  // F1 in a tool window opens its own page; in Configure, the page of the tab shown.
  const auto pressF1 = [&](QWidget* form) {
    form->activateWindow();
    if (!QTest::qWaitForWindowActive(form)) qFatal("the window did not become active");
    QTest::keyClick(form, Qt::Key_F1);
    return help->CurrentPage();
  };
  t.window->findChild<QAction*>("mnuEventsLog")->trigger();
  QCOMPARE(pressF1(t.window->EventsLog()), QString("events-log.html"));
  ConfigureForm* configure = t.OpenConfigure(kTabAdvantage);
  QCOMPARE(pressF1(configure), QString("advantage.html"));
  configure->Tabs()->setCurrentIndex(kTabColors);
  QCOMPARE(pressF1(configure), QString("index.html"));
}

void DialogsTest::messageStylesShowTheirControls_data() {
  QTest::addColumn<int>("style");
  QTest::addColumn<QString>("buttons");  // which of OK, Yes, No, Cancel, Help show
  QTest::addColumn<bool>("picture");
  QTest::addColumn<int>("inputs");
  QTest::addColumn<bool>("hide");
  QTest::addColumn<int>("answer");  // what Enter answers
  QTest::newRow("OK") << 1 << "10000" << false << 0 << false << 1;
  QTest::newRow("Yes No") << 0x406 << "01100" << true << 0 << false << 6;
  QTest::newRow("focus No") << 0x2406 << "01100" << true << 0 << false << 7;
  QTest::newRow("Yes No Cancel") << 0x140e << "01110" << true << 0 << false << 6;
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
  QCOMPARE(g.Bet(1, bet::kBankroll), 1010_usd);
  QCOMPARE(g.autoplay.LastWinButton(1), button);
  QVERIFY(CheckBetLedger(g, 1));
}

// frmBankroll: the scale buttons climb the ladder, the moving average's
// span, the auto-print and the throttle reach the game, and Hyper-Drive started from the
// form stops on Auto-Stop with its message, or on a click at the table.
void DialogsTest::bankrollFormScalesAndRunsHyperDrive() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.rules.BetRequirement = kNoBetRequired;
  BankrollForm* form = t.window->Bankroll();
  form->show();
  const Currency before = g.roll.GraphScale;
  QTest::mouseClick(form->findChild<QPushButton*>("lblLarger"), Qt::LeftButton);
  QCOMPARE(g.roll.GraphScale, NextGraphScale(before, 1));
  QTest::mouseClick(form->findChild<QPushButton*>("lblSmaller"), Qt::LeftButton);
  QCOMPARE(g.roll.GraphScale, before);
  QCOMPARE(form->findChild<QLabel*>("lblScale0")->text(),
           QString::fromStdString(FormatMoney(g.roll.GraphTop)));
  // The moving average's span is held to 0..525.
  for (const auto& [typed, want] : {std::pair{"600", 525}, {"-3", 0}}) {
    t.AnswerMessage(0, typed);
    form->findChild<QAction*>("mnuSetAverage")->trigger();
    QCOMPARE(g.graph.GraphAverageSpan, want);
  }
  // mnuAutoPrint holds GraphAutoPrint and lblAutoPrint says so.
  QAction* autoPrint = form->findChild<QAction*>("mnuAutoPrint");
  autoPrint->trigger();
  QVERIFY(g.roll.GraphAutoPrint && autoPrint->isChecked());
  QCOMPARE(form->findChild<QLabel*>("lblAutoPrint")->text(), QString("Auto-Print ON"));
  autoPrint->trigger();
  QVERIFY(!g.roll.GraphAutoPrint);
  QCOMPARE(form->findChild<QLabel*>("lblAutoPrint")->text(), QString());
  // Print Now during a script run asks first: No keeps the run and prints nothing.
  g.scriptRun.ScriptRunning = true;
  t.AnswerMessage(2);  // No
  form->findChild<QAction*>("mnuPrintNow")->trigger();
  QCOMPARE(t.shown.back().first, std::string("Auto-Bet Active"));
  QVERIFY(g.scriptRun.ScriptRunning && GraphPagesPending(g) == 0);
  g.scriptRun.ScriptRunning = false;
  // A sheet the auto-print sends goes to the printer chosen before without
  // the print dialog; with none chosen yet the dialog asks.
  PrintDocument sheet;
  sheet.AddText("Bankroll Graph");
  sheet.unattended = true;
  const std::size_t dialogs = t.shown.size();
  // Its notice stands while the pages go out, and only once a printer is
  // chosen.
  sheet.sendingNotice = "Sending output to printer.";
  t.platform.chosenPrinter = "Ravelton test printer";
  t.platform.Print(sheet);
  QCOMPARE(t.shown.size(), dialogs);
  QCOMPARE(t.platform.progressNoticesShown, QStringList{"Sending output to printer."});
  auto* notice = t.window->findChild<QLabel*>("lblProgressNotice");
  QVERIFY(notice && !notice->isVisible());
  t.platform.chosenPrinter.clear();
  QVERIFY(!t.platform.Print(sheet));  // the dialog, closed by its default answer
  QCOMPARE(t.shown.size(), dialogs + 1);
  QCOMPARE(t.platform.progressNoticesShown.size(), 1);
  form->findChild<QScrollBar*>("hsbThrottle")->setValue(7);
  QCOMPARE(g.hyper.HyperThrottle, 7);
  // Set Hyper-Drive Auto-Stop ... typed into its real prompt.
  t.AnswerMessage(0, "250");
  form->findChild<QAction*>("mnuSetAutoStop")->trigger();
  QCOMPARE(g.hyper.AutoStopRolls, 250_usd);
  g.hyper.RunRollLimit = 100000;  // a safety net: the test never runs away
  QTest::mouseClick(form->HyperDriveButton(), Qt::LeftButton);
  QCOMPARE(g.RollTally(kTableSession, kEventRolls), 250);
  QVERIFY(!g.HyperDrive);
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Hyper-Drive Stopped"),
                                          std::string("Stopped by Auto-Stop.")));
  QCOMPARE(form->HyperDriveButton()->text(), QString("Start Hyper-&Drive"));

  // A click on the table during Hyper-Drive offers to stop it.
  g.hyper.HyperThrottle = 1;  // events are pumped after every roll
  g.hyper.RunRollLimit = 50'000'000;
  g.hyper.AutoStopRolls = Currency{};
  t.shown.clear();
  t.AnswerMessage(1);  // Yes, stop
  QTimer::singleShot(30, t.View(), [&t] {
    QTest::mouseClick(t.View(), Qt::LeftButton, Qt::NoModifier, t.Pixel(FeltRect().center()));
  });
  RunHyperDrive(g);
  QVERIFY(!g.HyperDrive);
  QCOMPARE(t.shown.front(), std::make_pair(std::string("Hyper-Drive Active"),
                                           std::string("Do you want to stop the Hyper-Drive?")));
  QVERIFY(g.hyper.RollsThisRun < 50'000'000);
}

void DialogsTest::showPathListsThePathsInUse() {
  DesktopTable t(2);
  t.game->roll.SessionLogPath[2] = "/logs/bo.slg";
  QStringList lines;
  QTimer::singleShot(0, [&] {
    auto* form = t.window->findChild<PathForm*>("frmPath");
    QVERIFY(form);
    lines = form->Text().split('\n');
    form->accept();
  });
  t.window->findChild<QAction*>("mnuShowPath")->trigger();
  // Which groups there are and what each holds is the store's, tested there.
  QVERIFY(lines.contains("    Bo: /logs/bo.slg"));
}

// The form's choices reach the new session; Cancel (a box changed first)
// changes nothing.
void DialogsTest::theChoicesReachTheNewSession() {
  struct Case {
    bool keepStats, keepStacks, keepScripts, cancel;
  };
  for (const Case c : {Case{true, true, true, false}, Case{false, false, false, false},
                       Case{false, true, true, true}}) {
    DesktopTable t(2);
    PlaySome(*t.game);
    if (c.cancel) t.game->roll.SessionDirty = true;
    const auto before = std::make_unique<Game>(*t.game);
    NewForm form(*t.game, t.window.get());
    form.show();
    if (!c.keepStats) Press(FormChild<QCheckBox>(form, "chkPreserveGames"));
    if (!c.keepStacks) Press(FormChild<QCheckBox>(form, "chkPreserveCheckstacks"));
    if (!c.keepScripts) Press(FormChild<QCheckBox>(form, "chkRetainAutoBets"));
    QCOMPARE(FormChild<QCheckBox>(form, "chkInitialize")->isEnabled(), c.keepScripts);
    QTest::mouseClick(FormChild<QPushButton>(form, c.cancel ? "cmdCancel" : "cmdOK"),
                      Qt::LeftButton);
    if (c.cancel) {
      QVERIFY(*t.game == *before);
      continue;
    }

    const Game& g = *t.game;
    QCOMPARE(g.Bet(1, bet::kBankroll), kStart);  // the start rule's bankroll
    // Kept: this session becomes the last one and all sessions keep adding up.
    QCOMPARE(g.RollTally(kTableLastSession, kEvent), Long{c.keepStats ? 12 : 0});
    QCOMPARE(g.RollTally(kTableAllSessions, kEvent), Long{c.keepStats ? 14 : 0});
    QCOMPARE(g.Bet(1, 101), c.keepStacks ? Currency::FromWhole(300) : Currency{});
    QCOMPARE(g.roll.ScriptActive[1], c.keepScripts);
  }
}

void DialogsTest::theDiceOptionsFollowTheFileInUse() {
  DesktopTable t(1);
  TempFolder folder;
  QVERIFY(OpenDiceRollFile(*t.game, folder.Path() + "/rolls.rll"));
  QVERIFY(SetDiceFileMode(*t.game, kDiceFileRecording));
  t.game->diceFile.DiceFilePos = 9;
  NewForm form(*t.game, t.window.get());
  form.show();
  QCOMPARE(FormChild<QRadioButton>(form, "optRewind1")->text(),
           QString(" Continue recording as is"));
  QCOMPARE(form.Choice().diceMode, 2);
  // Rewind: the file plays back from its first roll.
  Press(FormChild<QRadioButton>(form, "optRewind0"));
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdOK"), Qt::LeftButton);
  QCOMPARE(t.game->diceFile.DiceFileMode, kDiceFilePlayback);
  QCOMPARE(t.game->diceFile.DiceFilePos, 1);
}

void DialogsTest::theMenuAsksFirstThenShowsTheForm() {
  DesktopTable t(1);
  PlaySome(*t.game);
  t.game->roll.SessionDirty = true;
  t.game->gamefile.GameFilePath = "/games/old.rvg";
  t.AnswerMessage(2);  // "Save Session": No
  bool formSeen = false;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* form = t.window->findChild<NewForm*>("frmNew");
    if (!form || !form->isVisible()) return;
    formSeen = true;
    poll.stop();
    // The question came before the form.
    QCOMPARE(t.shown.size(), std::size_t{1});
    QCOMPARE(t.shown[0].first, std::string("Save Session"));
    QTest::mouseClick(FormChild<QPushButton>(*form, "cmdOK"), Qt::LeftButton);
  });
  poll.start(5);
  t.window->findChild<QAction*>("mnuNew")->trigger();
  QVERIFY(formSeen);
  QCOMPARE(t.game->gamefile.GameFilePath, std::string());
  QCOMPARE(t.shown.size(), std::size_t{1});  // nothing asked after the form
}

QTEST_MAIN(DialogsTest)
#include "dialogs_qtest.moc"
