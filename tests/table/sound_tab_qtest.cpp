// The Sound tab of frmConfigure: each family's list shows its files with
// "< random >" only when there is a choice, a row picked is the selection
// the game plays, a stick-call set picked loads its 18 calls, and the two
// switches reach the game.
#include <QComboBox>
#include <QTabWidget>
#include <QTest>

#include "config/settings.h"
#include "config/sound.h"
#include "desktop_fixture.h"
#include "table/configure_form.h"

class SoundTabTest : public QObject {
  Q_OBJECT
 private slots:
  void listsFollowTheFamiliesAndWriteTheSelection();
};

void SoundTabTest::listsFollowTheFamiliesAndWriteTheSelection() {
  DesktopTable t;
  Game& g = *t.game;
  g.sound.DiceSoundSets = {"hard.dce", "soft.dce"};
  g.sound.WinSoundSets = {"bell.win"};
  g.sound.StickCallSets = {"Blue", "Red"};
  g.rules.DiceSoundSet = 7;  // beyond the list: a random file
  g.rules.WinSoundSet = 1;
  g.rules.StickCallSet = 0;
  ConfigureForm* form = t.OpenConfigure(kTabSound);
  auto* dice = form->findChild<QComboBox*>("cmbDiceSound");
  auto* wins = form->findChild<QComboBox*>("cmbWinSound");
  auto* stick = form->findChild<QComboBox*>("cmbStickPerson");
  QVERIFY(dice && wins && stick);
  QCOMPARE(dice->count(), 4);
  QCOMPARE(dice->currentText(), QString("< random >"));
  QCOMPARE(wins->count(), 2);  // one file: no random row
  QCOMPARE(stick->currentText(), QString("< none >"));
  QCOMPARE(g.rules.DiceSoundSet, 7);  // filling writes nothing back

  dice->setCurrentIndex(1);
  QCOMPARE(g.rules.DiceSoundSet, 1);
  stick->setCurrentIndex(2);
  QCOMPARE(g.rules.StickCallSet, 2);
  QCOMPARE(g.roll.StickCallFile[kCallComeOut], g.roll.AppPath + "Red17.stk");
  stick->setCurrentIndex(0);
  QVERIFY(g.roll.StickCallFile[kCallComeOut].empty());

  form->findChild<QCheckBox*>("chkDisableAllSound")->click();
  form->findChild<QCheckBox*>("chkAutoBetSounds")->click();
  QVERIFY(g.rules.SoundMuted);
  QVERIFY(g.rules.AutoBetSoundsOff);
}

QTEST_MAIN(SoundTabTest)
#include "sound_tab_qtest.moc"
