// frmConfigure under the offscreen platform: it opens on the game's values,
// a change in each kind of control reaches the game, a fault found by the
// checks is refused with its notice and the form returns to its tab, and a
// bet switch cleared with bets standing asks first.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include "config/payoffs.h"
#include "config/settings.h"
#include "core/catalogue.h"
#include "core/money.h"
#include "dice/rng.h"
#include "desktop_fixture.h"
#include "table/configure_form.h"

class ConfigureTest : public QObject {
  Q_OBJECT
 private slots:
  void opensOnTheGamesValues();
  void eachKindOfControlReachesTheGame();
  void aLimitFaultKeepsTheTabAndTheForm();
  void clearingFireWithAFireBetAnsweredNoKeepsIt();
  void payoffDenominatorOfZeroIsRefused();
  void generatorBoxSelectsAndSeeds();
  void fieldRowsAreEditedBesideTheBets();
};

void ConfigureTest::opensOnTheGamesValues() {
  DesktopTable t;
  t.game->rules.MaxOddsBet = Currency::FromWhole(750);
  t.game->rules.BarNumber = 2;
  ConfigureForm* form = t.OpenConfigure(kTabBets);
  QCOMPARE(FormChild<QLineEdit>(*form, "txtMaxOddsBet")->text(), QString("750"));
  QVERIFY(FormChild<QRadioButton>(*form, "optBarDont0")->isChecked());
  QVERIFY(FormChild<QRadioButton>(*form, "optBuyVig0")->isChecked());
  QVERIFY(FormChild<QRadioButton>(*form, "optLayVig0")->isChecked());
  QCOMPARE(FormChild<QLineEdit>(*form, "txtBuyVigPct")->text(), QString("5"));
  QCOMPARE(FormChild<QLineEdit>(*form, "txtRollsPerHour")->text(), QString("120"));
  QCOMPARE(form->Tabs()->currentIndex(), kTabBets);
  // Filling writes nothing back.
  QCOMPARE(t.game->rules.MaxOddsBet, Currency::FromWhole(750));
}

void ConfigureTest::eachKindOfControlReachesTheGame() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure();
  TypeInto(FormChild<QLineEdit>(*form, "txtMaxPlacardBet"), "2500");
  QCOMPARE(t.game->rules.MaxPlacardBet, Currency::FromWhole(2500));
  FormChild<QRadioButton>(*form, "optBarDont0")->setChecked(true);
  QCOMPARE(t.game->rules.BarNumber, 2);
  FormChild<QComboBox>(*form, "cmbOddsCalcMethod")->setCurrentIndex(3);
  QCOMPARE(t.game->rules.OddsCalcMethod, 3);
  FormChild<QCheckBox>(*form, "chkNotify4")->setChecked(true);
  QCOMPARE(t.game->rules.NoticeFlags, 31);
  TypeInto(FormChild<QLineEdit>(*form, "txtLayVigPct"), "4");
  QCOMPARE(t.game->rules.LayVigRate, Currency::FromRaw(400));
  // The working list edits slot 0 of BetWorkingDefault.
  auto* list = FormChild<QListWidget>(*form, "lstWorkOnComeOut");
  list->item(0)->setSelected(true);
  const int bet = list->item(0)->data(Qt::UserRole).toInt();
  QTest::mouseClick(FormChild<QPushButton>(*form, "cmdWorkingNo"), Qt::LeftButton);
  QCOMPARE(t.game->BetWorkingDefault(0, bet), 0);
  QVERIFY(list->item(0)->text().endsWith(" - No"));
  // The roll rate on "Secs / roll": 30 is 120 rolls an hour; "Rolls / min" shows 2.
  auto* rows = FormChild<QComboBox>(*form, "cmbRollsPerTime");
  rows->setCurrentIndex(5);
  TypeInto(FormChild<QLineEdit>(*form, "txtRollsPerHour"), "60");
  rows->setCurrentIndex(1);
  QCOMPARE(t.game->rules.RollsPerHour, Currency::FromWhole(60));
  QCOMPARE(FormChild<QLineEdit>(*form, "txtRollsPerHour")->text(), QString("1"));
}

void ConfigureTest::aLimitFaultKeepsTheTabAndTheForm() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabBets);
  TypeInto(FormChild<QLineEdit>(*form, "txtMaxPlacardBet"), "0");  // below the minimum bet
  t.shown.clear();
  form->Tabs()->setCurrentIndex(kTabMisc);
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(form->Tabs()->currentIndex(), kTabBets);
  QVERIFY(!form->TryClose());
  QVERIFY(form->isVisible());
  TypeInto(FormChild<QLineEdit>(*form, "txtMaxPlacardBet"), "500");
  QVERIFY(form->TryClose());
  QVERIFY(!form->isVisible());
}

void ConfigureTest::clearingFireWithAFireBetAnsweredNoKeepsIt() {
  DesktopTable t(1);
  t.game->Bet(1, bet::kFire) = Currency::FromWhole(1);
  ConfigureForm* form = t.OpenConfigure();
  t.AnswerMessage(2);  // No
  FormChild<QCheckBox>(*form, "chkUseFireBet")->setChecked(false);
  QVERIFY(t.game->rules.UseFireBet);
  QVERIFY(FormChild<QCheckBox>(*form, "chkUseFireBet")->isChecked());
  QCOMPARE(t.game->Bet(1, bet::kFire), Currency::FromWhole(1));
}

void ConfigureTest::payoffDenominatorOfZeroIsRefused() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure();
  auto* list = FormChild<QListWidget>(*form, "lstPayoffs");
  list->setCurrentRow(0);
  const auto cell = PayoffCellOf(list->item(0)->data(Qt::UserRole).toInt());
  QVERIFY(cell.has_value());
  const Currency before = PayoffValue(*t.game, *cell, 3);
  auto* den = FormChild<QLineEdit>(*form, "txtPayoff2");
  TypeInto(den, "0");
  emit den->editingFinished();
  QCOMPARE(PayoffValue(*t.game, *cell, 3), before);
  QCOMPARE(den->text(), QString::fromStdString(FormatMoney(before)));
}

// The Misc. tab's generator box: the list selects the generator (one whose
// library is missing falls back to RNG #4), the options reach the game, and
// "Seed RNG now" seeds the selected generator with the typed seed, reports
// it and shows it; Cancel at the prompt seeds nothing.
void ConfigureTest::generatorBoxSelectsAndSeeds() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure();
  auto* list = FormChild<QComboBox>(*form, "cmbRNG");
  QCOMPARE(list->count(), kRngCount);
  QCOMPARE(list->currentIndex(), static_cast<int>(t.game->dice.RngIndex));
  list->setCurrentIndex(4);
  QCOMPARE(t.game->dice.RngIndex, 4);
  t.game->dice.MissingDllMask = kMissingFirstMt;
  list->setCurrentIndex(5);
  QCOMPARE(t.game->dice.RngIndex, 3);
  QCOMPARE(list->currentIndex(), 3);
  t.game->dice.MissingDllMask = 0;
  list->setCurrentIndex(4);

  FormChild<QCheckBox>(*form, "chkReSeed")->setChecked(false);
  QVERIFY(!t.game->dice.ReseedEachSession);
  FormChild<QRadioButton>(*form, "optSeedRNG1")->setChecked(true);
  QVERIFY(t.game->dice.UserSeedMode);

  t.shown.clear();
  t.AnswerMessage(0, "4242");
  QTest::mouseClick(FormChild<QPushButton>(*form, "cmdSeedRNG"), Qt::LeftButton);
  QCOMPARE(t.shown.size(), std::size_t{2});
  QCOMPARE(t.shown[0].first, std::string("RNG Seed"));
  QCOMPARE(t.shown[1].second, std::string("The random number generator has now been seeded."));
  QCOMPARE(t.game->dice.LastSeed, 4242);
  QCOMPARE(FormChild<QLabel>(*form, "lblLastSeed")->text(), QString("4242"));
  // The seeded generator is the one the list selected.
  auto fresh = std::make_unique<Game>();
  fresh->dice.RngIndex = 4;
  SeedRngWith(*fresh, 4242);
  for (int roll = 0; roll < 20; ++roll) {
    DrawDice(*t.game);
    DrawDice(*fresh);
    QCOMPARE(t.game->Die1 * 10 + t.game->Die2, fresh->Die1 * 10 + fresh->Die2);
  }

  t.shown.clear();
  t.AnswerMessage(3);  // Cancel at the prompt
  QTest::mouseClick(FormChild<QPushButton>(*form, "cmdSeedRNG"), Qt::LeftButton);
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.game->dice.LastSeed, 4242);
}

// The Field list beside the bet list: the editor works on the row chosen
// last in either list, and a Field fault brings its row back.
void ConfigureTest::fieldRowsAreEditedBesideTheBets() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabPayoffs);
  auto* field = FormChild<QListWidget>(*form, "lstField");
  QCOMPARE(field->count(), kFieldRows);
  auto* bets = FormChild<QListWidget>(*form, "lstPayoffs");
  const auto betCell = PayoffCellOf(bets->item(0)->data(Qt::UserRole).toInt());
  const Currency betBefore = PayoffValue(*t.game, *betCell, 1);

  constexpr int kFive = 5;  // "5    (1.4) (4.1)", a loser by default
  field->setCurrentRow(kFive - 1);
  QVERIFY(FormChild<QLabel>(*form, "lblPayoff")->text().startsWith("Field 5"));
  constexpr int kPayoffText = Qt::UserRole + 1;  // what each row shows at its right
  QCOMPARE(field->item(kFive - 1)->data(kPayoffText).toString(), QString("loses"));
  QCOMPARE(bets->item(0)->data(kPayoffText).toString(), QString("1 to 2"));  // Lay 4
  TypeInto(FormChild<QLineEdit>(*form, "txtPayoff0"), "3");
  QCOMPARE(t.game->FieldPayoff(1, kFive), Currency::FromWhole(3));
  QCOMPARE(field->item(kFive - 1)->data(kPayoffText).toString(), QString("3 to 1"));
  QCOMPARE(PayoffValue(*t.game, *betCell, 1), betBefore);

  QTest::mouseClick(bets->viewport(), Qt::LeftButton, {}, bets->visualItemRect(bets->item(0)).center());
  QCOMPARE(FormChild<QLineEdit>(*form, "txtPayoff0")->text(),
           QString::fromStdString(FormatMoney(PayoffShownFirst(*t.game, *betCell))));

  constexpr int kSix = 7;  // "6    (1.5) (5.1)"
  t.game->FieldPayoff(1, kSix) = Currency::FromWhole(-2);  // loses more than the bet
  t.shown.clear();
  QVERIFY(!form->TryClose());
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(field->currentRow(), kSix - 1);
  QVERIFY(FormChild<QLabel>(*form, "lblPayoff")->text().startsWith("Field 6"));
}

QTEST_MAIN(ConfigureTest)
#include "configure_qtest.moc"
