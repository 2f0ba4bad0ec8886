// frmRYON under the offscreen platform: F12 and the menu open the pad, a
// click on a drawn cell rolls those dice through the game, single faces
// wait for both dice, the counter strip and the cells of no pair do
// nothing, the right button opens the display menu whose choices reach the
// game's options, and a click during Hyper-Drive asks instead of rolling.
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "config/settings_state.h"
#include "core/frames.h"
#include "desktop_fixture.h"
#include "dice/roll_pad.h"
#include "table/roll_pad_form.h"

class RollPadTest : public QObject {
  Q_OBJECT
 private slots:
  void aClickOnABoxCellRollsThoseDice();
  void facesWaitForBothDiceAndCellsOutsideDoNothing();
  void theRightButtonOpensTheMenuWhoseChoicesReachTheGame();
  void aClickDuringHyperDriveAsksInsteadOfRolling();
};

namespace {

long Rolls(DesktopTable& t) { return t.game->RollTally(kTableSession, kEventRolls); }

RollPadForm& OpenPad(DesktopTable& t, std::int32_t options, QSize size) {
  t.game->pad.PadOptions = options;
  t.game->rules.BetRequirement = kNoBetRequired;
  QTest::keyClick(t.View(), Qt::Key_F12);
  RollPadForm* form = t.window->RollPad();
  if (!form->isVisible()) qFatal("F12 did not open the pad");
  form->resize(size);
  QApplication::processEvents();
  return *form;
}

// The centre of cell (r, c) of a rows x columns pad below a strip `top` high.
QPoint Centre(PadWidget* pad, int rows, int columns, int r, int c, int top) {
  const double cw = double(pad->width()) / columns, ch = double(pad->height() - top) / rows;
  return QPoint(static_cast<int>(cw * (c - 0.5)), top + static_cast<int>(ch * (r - 0.5)));
}

}  // namespace

void RollPadTest::aClickOnABoxCellRollsThoseDice() {
  DesktopTable t(1);
  const std::int32_t box = 1 << static_cast<int>(PadKind::BoxCombos);
  RollPadForm& form = OpenPad(t, box | kPadRollCounter, QSize(330, 330));
  QCOMPARE(form.windowTitle(), QString("Dice Rolls"));
  const long before = Rolls(t);
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, Centre(form.Pad(), 6, 6, 3, 5, kPadCounterHeight));
  QCOMPARE(Rolls(t), before + 1);
  QCOMPARE(t.game->Die1, 3);
  QCOMPARE(t.game->Die2, 5);
  QVERIFY(!t.game->pad.PadRollPending);
  // The counter strip above the cells rolls nothing.
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, QPoint(40, kPadCounterHeight / 2));
  QCOMPARE(Rolls(t), before + 1);
  // The menu item opens the same pad.
  form.close();
  t.window->findChild<QAction*>("mnuRollYourOwnNumbers")->trigger();
  QVERIFY(form.isVisible());
}

void RollPadTest::facesWaitForBothDiceAndCellsOutsideDoNothing() {
  DesktopTable t(1);
  // A wide pad: the faces in two rows, die 1 above die 2.
  RollPadForm& form = OpenPad(t, 1 << static_cast<int>(PadKind::DiceFaces), QSize(480, 200));
  PadWidget* pad = form.Pad();
  const long before = Rolls(t);
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 1, 2, 0));
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 1, 5, 0));
  QCOMPARE(Rolls(t), before);
  QCOMPARE(t.game->pad.PadFacePick1, 5);
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 2, 6, 0));
  QCOMPARE(Rolls(t), before + 1);
  QCOMPARE(t.game->Die1, 5);
  QCOMPARE(t.game->Die2, 6);
  QCOMPARE(t.game->pad.PadFacePick1, 0);

  // A pick is forgotten when the pad closes.
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 2, 1, 0));
  form.close();
  QCOMPARE(t.game->pad.PadFacePick2, 0);

  // The triangle's empty corner (line 1 has one cell) gives no roll.
  OpenPad(t, 1 << static_cast<int>(PadKind::TriangleCombos), QSize(300, 500));
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 11, 6, 1, 4, 0));
  QCOMPARE(Rolls(t), before + 1);
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 11, 6, 11, 1, 0));
  QCOMPARE(Rolls(t), before + 2);
  QCOMPARE(t.game->Die1 + t.game->Die2, 12);
}

void RollPadTest::theRightButtonOpensTheMenuWhoseChoicesReachTheGame() {
  DesktopTable t(1);
  RollPadForm& form = OpenPad(t, 1 << static_cast<int>(PadKind::BoxCombos), QSize(330, 330));
  t.game->roll.SessionDirty = false;
  const long before = Rolls(t);
  QTest::mouseClick(form.Pad(), Qt::RightButton, {}, Centre(form.Pad(), 6, 6, 1, 1, 0));
  QVERIFY(form.DisplayMenu()->isVisible());
  QCOMPARE(Rolls(t), before);
  form.DisplayMenu()->close();

  auto* random = FormChild<QPushButton>(form, "cmdRandomRoll");
  QVERIFY(!random->isVisible());
  form.DisplayMenu()->findChild<QAction*>("mnuRandomButton")->trigger();
  QVERIFY(random->isVisible());
  QTest::mouseClick(random, Qt::LeftButton);
  QCOMPARE(Rolls(t), before + 1);

  QAction* basic = nullptr;
  for (QAction* a : form.DisplayMenu()->findChildren<QAction*>("mnuDisplayRYON"))
    if (a->text() == "&11 Basic Numbers") basic = a;
  QVERIFY(basic);
  basic->trigger();
  QCOMPARE(PadKindOf(t.game->pad.PadOptions), PadKind::BasicNumbers);
  QVERIFY(t.game->pad.PadOptions & kPadRandomButton);
  // A square pad lays the totals out in a block: any click in the middle row is 7.
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, Centre(form.Pad(), 3, 5, 2, 5, 0));
  QCOMPARE(t.game->Die1 + t.game->Die2, 7);
  // Changed options mark the session unsaved when the pad closes; unchanged ones do not.
  t.game->roll.SessionDirty = false;
  form.close();
  QVERIFY(t.game->roll.SessionDirty);
  t.game->roll.SessionDirty = false;
  form.show();
  form.close();
  QVERIFY(!t.game->roll.SessionDirty);
}

void RollPadTest::aClickDuringHyperDriveAsksInsteadOfRolling() {
  DesktopTable t(1);
  RollPadForm& form = OpenPad(t, 1 << static_cast<int>(PadKind::BoxCombos), QSize(330, 330));
  t.game->HyperDrive = true;
  t.game->KeepRolling = true;
  const long before = Rolls(t);
  // The right button still only opens the menu.
  QTest::mouseClick(form.Pad(), Qt::RightButton, {}, Centre(form.Pad(), 6, 6, 2, 2, 0));
  QVERIFY(t.shown.empty());
  form.DisplayMenu()->close();
  t.AnswerMessage(1);  // Yes
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, Centre(form.Pad(), 6, 6, 2, 2, 0));
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].first, std::string("Hyper-Drive Active"));
  QCOMPARE(t.shown[0].second, std::string("Do you want to stop Hyper-Drive?"));
  QVERIFY(!t.game->KeepRolling);
  QCOMPARE(Rolls(t), before);
  t.game->HyperDrive = false;
}

QTEST_MAIN(RollPadTest)
#include "roll_pad_qtest.moc"
