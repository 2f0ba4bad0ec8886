// frmAutoPlay under the offscreen platform: it opens on the selected
// player's values, every kind of control writes to each selected player and
// to no other, a selection that disagrees shows no option and the red
// group, and switching full odds on takes the odds at once.
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>

#include "automation/autoplay_state.h"
#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "table/auto_play_form.h"

class AutoPlayTest : public QObject {
  Q_OBJECT
 private slots:
  void opensOnTheSelectedPlayersValues();
  void everyControlWritesToTheSelectionOnly();
  void aDisagreeingSelectionSetsNoOption();
  void fullOddsSwitchedOnTakesTheOddsAtOnce();
  void theKeyAndTheMenuOpenTheForm();
};

namespace {

constexpr std::int32_t kAnnAndCy = (1 << 1) | (1 << 3);
const QColor kRed(192, 0, 0);

// Selects the players of `bits` in lstPlayer as a user would.
void SelectPlayers(AutoPlayForm& form, std::int32_t bits) {
  auto* list = FormChild<QListWidget>(form, "lstPlayer");
  list->clearSelection();
  for (int i = 0; i < list->count(); ++i)
    if ((bits >> list->item(i)->data(Qt::UserRole).toInt()) & 1) list->item(i)->setSelected(true);
}

// Clicks a check box or option on its indicator, where a user clicks.
void Press(QAbstractButton* button) {
  QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

QListWidgetItem* WorkingRow(AutoPlayForm& form, int bet) {
  auto* list = FormChild<QListWidget>(form, "lstWorkOnComeOut");
  for (int i = 0; i < list->count(); ++i)
    if (list->item(i)->data(Qt::UserRole).toInt() == bet) return list->item(i);
  qFatal("no row for bet %d", bet);
}

}  // namespace

void AutoPlayTest::opensOnTheSelectedPlayersValues() {
  DesktopTable t(3);
  AutoPlayState& a = t.game->autoplay;
  a.AutoLayFullOdds(2) = true;
  a.AutoAdjustMode(2) = 1;
  a.PlaceBias(2) = 2;
  a.HandleWinningBets(2) = kWinAdjust;
  a.AdjustOperator(2, kAdjustAutoWinSame) = 1;
  a.AdjustAmount(2, kAdjustAutoWinSame) = Currency::FromWhole(5);
  a.AdjustUnits(2, kAdjustAutoWinSame) = Currency::FromWhole(1);
  a.AdjustAmount(2, kAdjustAutoLoseBet) = Currency::FromRaw(125000);
  t.game->BetWorkingDefault(2, PlaceId(6)) = 1;
  a.SelectedPlayers = 1 << 2;
  t.game->roll.SessionDirty = false;
  const AutoPlayState before = a;

  AutoPlayForm& form = *t.window->AutoPlay();
  QCOMPARE(FormChild<QLabel>(form, "lblSettingsFor")->text(), QString("Settings for\nBo"));
  QVERIFY(FormChild<QListWidget>(form, "lstPlayer")->item(1)->isSelected());
  QVERIFY(FormChild<QCheckBox>(form, "chkAutoLayFullOdds")->isChecked());
  QVERIFY(!FormChild<QCheckBox>(form, "chkAutoTakeFullOdds")->isChecked());
  QVERIFY(FormChild<QRadioButton>(form, "optAutoAdjustBetAmounts1")->isChecked());
  QCOMPARE(FormChild<QComboBox>(form, "cmbPlaceBias")->currentText(),
           QString("Place bets bias: decrease"));
  QCOMPARE(FormChild<QComboBox>(form, "cmbDoBias")->currentText(),
           QString("Do odds bias: nearest"));
  QVERIFY(FormChild<QRadioButton>(form, "optHandleWinningBets6")->isChecked());
  QVERIFY(FormChild<QRadioButton>(form, "optHandleLosingBets1")->isChecked());
  QCOMPARE(FormChild<QPushButton>(form, "cmdMathOperator9")->text(), QString("-"));
  QCOMPARE(FormChild<QPushButton>(form, "cmdUnits9")->text(), QString("%"));
  // An amount taken off under "-" shows in red, any other in blue.
  QVERIFY(FormChild<QLineEdit>(form, "txtModifyAmount9")->styleSheet().contains(kRed.name()));
  QCOMPARE(FormChild<QLineEdit>(form, "txtModifyAmount12")->text(), QString("12.5"));
  QVERIFY(!FormChild<QLineEdit>(form, "txtModifyAmount12")->styleSheet().contains(kRed.name()));
  QCOMPARE(WorkingRow(form, PlaceId(6))->text(), QString("Place 6 - Yes"));
  QCOMPARE(WorkingRow(form, PlaceId(8))->text(), QString("Place 8 - No"));
  // Filling wrote nothing.
  QVERIFY(t.game->autoplay == before);
  QVERIFY(!t.game->roll.SessionDirty);
}

void AutoPlayTest::everyControlWritesToTheSelectionOnly() {
  DesktopTable t(3);
  AutoPlayForm& form = *t.window->AutoPlay();
  form.show();
  SelectPlayers(form, kAnnAndCy);
  QCOMPARE(t.game->autoplay.SelectedPlayers, kAnnAndCy);
  QCOMPARE(FormChild<QLabel>(form, "lblSettingsFor")->text(),
           QString("Settings for these 2\nselected players:"));

  Press(FormChild<QCheckBox>(form, "chkAutoPassDice"));
  Press(FormChild<QRadioButton>(form, "optAutoAdjustBetAmounts0"));
  Press(FormChild<QRadioButton>(form, "optHandleLosingBets6"));
  QTest::keyClick(FormChild<QComboBox>(form, "cmbDontBias"), Qt::Key_Down);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdMathOperator10"), Qt::LeftButton);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdMathOperator10"), Qt::LeftButton);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdUnits10"), Qt::LeftButton);
  TypeInto(FormChild<QLineEdit>(form, "txtModifyAmount10"), "7.5");
  TypeInto(FormChild<QLineEdit>(form, "txtModifyAmount11"), "40");
  WorkingRow(form, PlaceId(6))->setSelected(true);
  WorkingRow(form, bet::kField)->setSelected(true);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdYes"), Qt::LeftButton);

  const AutoPlayState& a = t.game->autoplay;
  for (int p : {1, 3}) {
    QVERIFY(a.AutoPassDice(p));
    QCOMPARE(a.AutoAdjustMode(p), 0);
    QCOMPARE(a.HandleLosingBets(p), int{kLoseAdjust});
    QCOMPARE(a.DontBias(p), 1);
    QCOMPARE(a.AdjustOperator(p, kAdjustAutoLoseSame), 2);  // "+" -> "-" -> "x"
    QCOMPARE(a.AdjustUnits(p, kAdjustAutoLoseSame), Currency::FromWhole(1));
    QCOMPARE(a.AdjustAmount(p, kAdjustAutoLoseSame), Currency::FromRaw(75000));
    QCOMPARE(a.AdjustAmount(p, kAdjustAutoWinBet), Currency::FromWhole(40));
    QCOMPARE(t.game->BetWorkingDefault(p, PlaceId(6)), 1);
    QCOMPARE(t.game->BetWorkingDefault(p, bet::kField), 1);
  }
  // Bo, not selected, keeps every default.
  QVERIFY(!a.AutoPassDice(2));
  QCOMPARE(a.AutoAdjustMode(2), 2);
  QCOMPARE(a.HandleLosingBets(2), int{kLoseTakeDown});
  QCOMPARE(a.DontBias(2), 0);
  QCOMPARE(a.AdjustOperator(2, kAdjustAutoLoseSame), 0);
  QCOMPARE(a.AdjustAmount(2, kAdjustAutoLoseSame), Currency{});
  QCOMPARE(a.AdjustAmount(2, kAdjustAutoWinBet), Currency{});
  QCOMPARE(t.game->BetWorkingDefault(2, PlaceId(6)), 0);
  QVERIFY(t.game->roll.SessionDirty);

  // A double click turns the row over; Default brings back the table's row.
  QListWidgetItem* row = WorkingRow(form, bet::kField);
  auto* list = FormChild<QListWidget>(form, "lstWorkOnComeOut");
  list->scrollToItem(row);
  const QPoint at = list->visualItemRect(row).center();
  // The view takes a double click after the press that picks the row.
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
  QCOMPARE(t.game->BetWorkingDefault(3, bet::kField), 0);
  QCOMPARE(row->text(), QString("Field - No"));
  list->clearSelection();
  WorkingRow(form, PlaceId(6))->setSelected(true);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdDefault"), Qt::LeftButton);
  QCOMPARE(t.game->BetWorkingDefault(1, PlaceId(6)), t.game->BetWorkingDefault(0, PlaceId(6)));
}

void AutoPlayTest::aDisagreeingSelectionSetsNoOption() {
  DesktopTable t(3);
  t.game->autoplay.HandleWinningBets(1) = kWinParlay;
  t.game->autoplay.AdjustOperator(3, kAdjustAutoWinSame) = 2;
  t.game->autoplay.SelectedPlayers = kAnnAndCy;
  AutoPlayForm& form = *t.window->AutoPlay();
  form.show();
  auto* winning = FormChild<QGroupBox>(form, "fraHandleWinningBets");
  for (QRadioButton* opt : winning->findChildren<QRadioButton*>()) QVERIFY(!opt->isChecked());
  QCOMPARE(winning->palette().color(QPalette::WindowText), kRed);
  QVERIFY(FormChild<QPushButton>(form, "cmdMathOperator9")->styleSheet().contains("background"));
  // The groups they agree on show plainly.
  QVERIFY(FormChild<QRadioButton>(form, "optHandleLosingBets1")->isChecked());
  QVERIFY(
      FormChild<QGroupBox>(form, "fraHandleLosingBets")->palette().color(QPalette::WindowText) !=
      kRed);
  QVERIFY(!FormChild<QPushButton>(form, "cmdMathOperator10")->styleSheet().contains("background"));
  // A choice settles the difference for both.
  Press(FormChild<QRadioButton>(form, "optHandleWinningBets3"));
  QCOMPARE(t.game->autoplay.HandleWinningBets(1), int{kWinPressUnit});
  QCOMPARE(t.game->autoplay.HandleWinningBets(3), int{kWinPressUnit});
  QVERIFY(winning->palette().color(QPalette::WindowText) != kRed);
}

void AutoPlayTest::fullOddsSwitchedOnTakesTheOddsAtOnce() {
  DesktopTable t(2);
  t.game->Point = 6;
  for (int p : {1, 2}) t.game->Bet(p, bet::kPassLine) = Currency::FromWhole(10);
  t.game->autoplay.SelectedPlayers = 1 << 2;
  AutoPlayForm& form = *t.window->AutoPlay();
  form.show();
  Press(FormChild<QCheckBox>(form, "chkAutoTakeFullOdds"));
  QVERIFY(t.game->autoplay.AutoTakeFullOdds(2));
  QVERIFY(t.game->Bet(2, bet::kPassLineOdds) > Currency{});
  QCOMPARE(t.game->Bet(1, bet::kPassLineOdds), Currency{});
}

void AutoPlayTest::theKeyAndTheMenuOpenTheForm() {
  DesktopTable t(1);
  QAction* item = t.window->findChild<QAction*>("mnuAutoPlay");
  QVERIFY(item && item->isEnabled());
  QTest::keyClick(t.View(), Qt::Key_F3);
  AutoPlayForm* form = t.window->findChild<AutoPlayForm*>("frmAutoPlay");
  QVERIFY(form && form->isVisible());
  // A player alone at the table is the selection.
  QCOMPARE(FormChild<QLabel>(*form, "lblSettingsFor")->text(), QString("Settings for\nAnn"));
  form->close();
  item->trigger();
  QVERIFY(form->isVisible());
}

QTEST_MAIN(AutoPlayTest)
#include "auto_play_qtest.moc"
