// frmNew under the offscreen platform: its choices reach the new session
// (statistics, CheckStacks, scripts, the dice roll file), Cancel changes
// nothing, and Game > New asks about unsaved work before the form.
#include <QRadioButton>
#include <QTimer>

#include "core/catalogue.h"
#include "core/frames.h"
#include "desktop_fixture.h"
#include "dice/dice_file.h"
#include "table/new_form.h"
#include "tests/support/temp_folder.h"

class NewFormTest : public QObject {
  Q_OBJECT
  TempFolder data_;  // sessions logs a new session writes land here

 private slots:
  void initTestCase() { qputenv("RAVELTON_DATA", QByteArray::fromStdString(data_.Path() + "/")); }
  void theChoicesReachTheNewSession();
  void cancelChangesNothing();
  void theDiceOptionsFollowTheFileInUse();
  void theMenuAsksFirstThenShowsTheForm();
};

namespace {

constexpr int kEvent = 7;  // a total of 7 in the roll tallies
const Currency kStart = Currency::FromWhole(5000);

// A session that has been played: a bankroll moved, bets and a CheckStack
// standing, tallies in every frame, a script switched on.
void PlaySome(Game& g) {
  g.Bet(1, 0) = Currency::FromWhole(4200);
  g.Bet(1, bet::kField) = Currency::FromWhole(25);
  g.Bet(1, 101) = Currency::FromWhole(300);
  for (int t = 0; t < kFrameCount; ++t) g.RollTally(FrameIndex(kHouse, t), kEvent) = 10 + t;
  g.RollTally(kTableSession, 0) = 40;  // the session has rolls
  g.roll.ScriptActive[1] = true;
}

void Press(QAbstractButton* button) {
  QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

}  // namespace

void NewFormTest::theChoicesReachTheNewSession() {
  struct Case {
    bool keepStats, keepStacks, keepScripts;
  };
  for (const Case c : {Case{true, true, true}, Case{false, false, false}}) {
    DesktopTable t(2);
    PlaySome(*t.game);
    NewForm form(*t.game, t.window.get());
    form.show();
    if (!c.keepStats) Press(FormChild<QCheckBox>(form, "chkPreserveGames"));
    if (!c.keepStacks) Press(FormChild<QCheckBox>(form, "chkPreserveCheckstacks"));
    if (!c.keepScripts) Press(FormChild<QCheckBox>(form, "chkRetainAutoBets"));
    QCOMPARE(FormChild<QCheckBox>(form, "chkInitialize")->isEnabled(), c.keepScripts);
    QTest::mouseClick(FormChild<QPushButton>(form, "cmdOK"), Qt::LeftButton);

    const Game& g = *t.game;
    QCOMPARE(g.Bet(1, 0), kStart);  // the start rule's bankroll
    QCOMPARE(g.Bet(1, bet::kField), Currency{});
    QCOMPARE(g.RollTally(kTableSession, kEvent), Long{0});
    // Kept: this session becomes the last one and all sessions keep adding up.
    QCOMPARE(g.RollTally(kTableLastSession, kEvent), Long{c.keepStats ? 12 : 0});
    QCOMPARE(g.RollTally(kTableAllSessions, kEvent), Long{c.keepStats ? 14 : 0});
    QCOMPARE(g.Bet(1, 101), c.keepStacks ? Currency::FromWhole(300) : Currency{});
    QCOMPARE(g.roll.ScriptActive[1], c.keepScripts);
    QVERIFY(!g.roll.SessionDirty);
  }
}

void NewFormTest::cancelChangesNothing() {
  DesktopTable t(2);
  PlaySome(*t.game);
  t.game->roll.SessionDirty = true;
  const auto before = std::make_unique<Game>(*t.game);
  NewForm form(*t.game, t.window.get());
  form.show();
  Press(FormChild<QCheckBox>(form, "chkPreserveGames"));
  Press(FormChild<QCheckBox>(form, "chkRetainAutoBets"));
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdCancel"), Qt::LeftButton);
  QVERIFY(!form.isVisible());
  QVERIFY(*t.game == *before);
}

void NewFormTest::theDiceOptionsFollowTheFileInUse() {
  DesktopTable t(1);
  {
    NewForm form(*t.game, t.window.get());
    QVERIFY(!FormChild<QCheckBox>(form, "chkRetainDiceRollFile")->isEnabled());
    QVERIFY(!FormChild<QCheckBox>(form, "chkRetainDiceRollFile")->isChecked());
    QVERIFY(!FormChild<QRadioButton>(form, "optRewind0")->isEnabled());
    QVERIFY(!FormChild<QRadioButton>(form, "optRewind1")->isChecked());
    QCOMPARE(form.Choice().diceMode, 0);
  }
  TempFolder folder;
  QVERIFY(OpenDiceRollFile(*t.game, folder.Path() + "/rolls.rll"));
  QVERIFY(SetDiceFileMode(*t.game, kDiceFileRecording));
  t.game->diceFile.DiceFilePos = 9;
  NewForm form(*t.game, t.window.get());
  form.show();
  QCOMPARE(FormChild<QRadioButton>(form, "optRewind1")->text(),
           QString(" Continue recording as is"));
  QVERIFY(FormChild<QRadioButton>(form, "optRewind1")->isChecked());
  QCOMPARE(form.Choice().diceMode, 2);
  // Rewind: the file plays back from its first roll.
  Press(FormChild<QRadioButton>(form, "optRewind0"));
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdOK"), Qt::LeftButton);
  QCOMPARE(t.game->diceFile.DiceFileMode, kDiceFilePlayback);
  QCOMPARE(t.game->diceFile.DiceFilePos, 1);
}

void NewFormTest::theMenuAsksFirstThenShowsTheForm() {
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
  QCOMPARE(t.game->Bet(1, 0), kStart);
  QCOMPARE(t.game->gamefile.GameFilePath, std::string());
  QVERIFY(!t.game->roll.SessionDirty);
  QCOMPARE(t.shown.size(), std::size_t{1});  // nothing asked after the form
}

QTEST_MAIN(NewFormTest)
#include "new_form_qtest.moc"
