// frmConfigure under the offscreen platform, all its tabs: it opens on the
// game's values and writes nothing back, a change in each kind of control
// reaches the game, faults and refusals keep the form where they are with
// their notice, the probability matrix edits the game's table and its .prb
// file, and the print command and the Alt keys belong to their tabs.
#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <optional>

#include "config/payoffs.h"
#include "config/settings.h"
#include "config/sound.h"
#include "core/catalogue.h"
#include "core/money.h"
#include "desktop_fixture.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "table/configure_form.h"
#include "table/layout.h"
#include "table/probability_matrix.h"
#include "table/table_colors.h"
#include "tests/support/temp_folder.h"

class ConfigureTest : public QObject {
  Q_OBJECT
  TempFolder folder_;

 private slots:
  void opensOnTheGamesValuesAndEachKindOfControlReachesTheGame();
  void aLimitFaultKeepsTheTabAndTheGeneratorBoxSeeds();
  void clearingFireWithAFireBetAnsweredNoKeepsIt();
  void payoffListAndFieldRowsAreEditedBesideTheBets();
  void compListButtonsSetTheBitWords();
  void bankrollTabWithNobodySaysSoAndStays();
  void bankrollTabWorksOnTheChosenPlayer();
  void colorControlsSetTheTablesColoursAndTheTableIsDrawnInThem();
  void advantageAnswersToItsOptionsVigAndDice();
  void matrixEditsReachTheGameAndItsFile();
  void printAndAltKeysBelongToTheirTabs();
};

namespace {

template <typename T = QLineEdit>
T* Get(ConfigureForm* form, const char* name) {
  return FormChild<T>(*form, name);
}
void Type(ConfigureForm* form, const char* box, const QString& text) {
  TypeInto(Get(form, box), text);
}
void Choose(ConfigureForm* form, const char* option) {
  Get<QRadioButton>(form, option)->setChecked(true);
}
void Press(ConfigureForm* form, const char* button) {
  QTest::mouseClick(Get<QPushButton>(form, button), Qt::LeftButton);
}
QString Label(ConfigureForm* form, const char* name) { return Get<QLabel>(form, name)->text(); }
std::uint32_t Word(const Game& g, int w) { return static_cast<std::uint32_t>(g.rules.CompBets[w]); }

// The text of bet b's column c (1 EV/Roll .. 5 EV/Hour) on the Advantage tab.
QString Figure(ConfigureForm* form, int b, int c) {
  return Get<QTableWidget>(form, "picAdvantage")->item(b - 1, c)->text();
}

void ClickEntry(ConfigureForm* form, ProbEntry e) {
  auto* matrix = Get<ProbabilityMatrix>(form, "picProbability");
  QTest::mouseClick(matrix, Qt::LeftButton, Qt::NoModifier, matrix->EntryRect(e).center());
}
// Selects entry e, types `percent` and presses Enter.
void SetEntry(ConfigureForm* form, ProbEntry e, const QString& percent) {
  ClickEntry(form, e);
  Type(form, "txtPercent", percent);
  QTest::keyClick(Get(form, "txtPercent"), Qt::Key_Return);
}

}  // namespace

void ConfigureTest::opensOnTheGamesValuesAndEachKindOfControlReachesTheGame() {
  DesktopTable t;
  Game& g = *t.game;
  g.rules.MaxOddsBet = Currency::FromWhole(750);
  g.rules.BarNumber = 2;
  g.rules.CompBase = kCompAverageAction;
  SetCompBet(g.rules, bet::kField, false);
  g.sound.DiceSoundSets = {"hard.dce", "soft.dce"};
  g.sound.StickCallSets = {"Blue", "Red"};
  g.rules.DiceSoundSet = 7;  // beyond the list: a random file
  g.rules.ConfigureTab = kTabBets;
  const auto before = std::make_unique<Game>(g);
  ConfigureForm* form = t.OpenConfigure();
  QCOMPARE(form->Tabs()->currentIndex(), kTabBets);
  QCOMPARE(Get(form, "txtMaxOddsBet")->text(), QString("750"));
  for (const char* option : {"optBarDont0", "optBaseComps2"})
    QVERIFY2(Get<QRadioButton>(form, option)->isChecked(), option);
  // Comps: bets 1 to 85 in id order.
  auto* comps = Get<QListWidget>(form, "lstCompBets");
  QCOMPARE(comps->count(), 85);
  QCOMPARE(comps->item(bet::kField - 1)->text(), QString("Field - No"));
  // Sound: "< random >" only where there is a choice.
  QCOMPARE(Get<QComboBox>(form, "cmbDiceSound")->currentText(), QString("< random >"));
  QVERIFY(g == *before);  // filling wrote nothing back

  Type(form, "txtMaxPlacardBet", "2500");
  QCOMPARE(g.rules.MaxPlacardBet, Currency::FromWhole(2500));
  Get<QComboBox>(form, "cmbOddsCalcMethod")->setCurrentIndex(3);
  QCOMPARE(g.rules.OddsCalcMethod, 3);
  Get<QCheckBox>(form, "chkNotify4")->setChecked(true);
  QCOMPARE(g.rules.NoticeFlags, 31);
  // The working list edits slot 0 of BetWorkingDefault.
  auto* list = Get<QListWidget>(form, "lstWorkOnComeOut");
  list->item(0)->setSelected(true);
  const int bet = list->item(0)->data(Qt::UserRole).toInt();
  Press(form, "cmdWorkingNo");
  QCOMPARE(g.BetWorkingDefault(0, bet), 0);
  // The roll rate on "Secs / roll": 30 is 120 rolls an hour; "Rolls / min" shows 2.
  auto* rows = Get<QComboBox>(form, "cmbRollsPerTime");
  rows->setCurrentIndex(5);
  Type(form, "txtRollsPerHour", "60");
  rows->setCurrentIndex(1);
  QCOMPARE(g.rules.RollsPerHour, Currency::FromWhole(60));
  QCOMPARE(Get(form, "txtRollsPerHour")->text(), QString("1"));
  // Sound: a stick-call set picked loads its calls.
  auto* stick = Get<QComboBox>(form, "cmbStickPerson");
  stick->setCurrentIndex(2);
  QCOMPARE(g.rules.StickCallSet, 2);
  QCOMPARE(g.roll.StickCallFile[kCallComeOut], g.roll.AppPath + "Red17.stk");
  // The tab in view is the one the form opens on next time.
  form->Tabs()->setCurrentIndex(kTabComps);
  QCOMPARE(g.rules.ConfigureTab, kTabComps);
}

void ConfigureTest::aLimitFaultKeepsTheTabAndTheGeneratorBoxSeeds() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabBets);
  Type(form, "txtMaxPlacardBet", "0");  // below the minimum bet
  t.shown.clear();
  form->Tabs()->setCurrentIndex(kTabMisc);
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(form->Tabs()->currentIndex(), kTabBets);
  QVERIFY(!form->TryClose());
  Type(form, "txtMaxPlacardBet", "500");
  QVERIFY(form->TryClose());
  QVERIFY(!form->isVisible());

  // The Misc. tab's generator box: the list selects the generator (one whose
  // library is missing falls back to RNG #4), the options reach the game, and
  // "Seed RNG now" seeds the selected generator with the typed seed, reports
  // it and shows it; Cancel at the prompt seeds nothing.
  form = t.OpenConfigure(kTabMisc);
  auto* list = Get<QComboBox>(form, "cmbRNG");
  t.game->dice.MissingDllMask = kMissingFirstMt;
  list->setCurrentIndex(5);
  QCOMPARE(t.game->dice.RngIndex, 3);
  QCOMPARE(list->currentIndex(), 3);
  t.game->dice.MissingDllMask = 0;
  list->setCurrentIndex(4);
  QCOMPARE(t.game->dice.RngIndex, 4);
  Choose(form, "optSeedRNG1");  // the user's own seed: the button asks for it
  t.shown.clear();
  t.AnswerMessage(0, "4242");
  Press(form, "cmdSeedRNG");
  QCOMPARE(t.shown.at(0).first, std::string("RNG Seed"));
  QCOMPARE(t.shown.at(1).second, std::string("The random number generator has now been seeded."));
  QCOMPARE(t.game->dice.LastSeed, 4242);
  QCOMPARE(Label(form, "lblLastSeed"), QString("4242"));
  // The seeded generator is the one the list selected.
  auto fresh = std::make_unique<Game>();
  fresh->dice.RngIndex = 4;
  SeedRngWith(*fresh, 4242);
  for (int roll = 0; roll < 8; ++roll) {
    DrawDice(*t.game);
    DrawDice(*fresh);
    QCOMPARE(t.game->Die1 * 10 + t.game->Die2, fresh->Die1 * 10 + fresh->Die2);
  }

  t.shown.clear();
  t.AnswerMessage(3);  // Cancel at the prompt
  Press(form, "cmdSeedRNG");
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.game->dice.LastSeed, 4242);
}

void ConfigureTest::clearingFireWithAFireBetAnsweredNoKeepsIt() {
  DesktopTable t(1);
  t.game->Bet(1, bet::kFire) = Currency::FromWhole(1);
  ConfigureForm* form = t.OpenConfigure();
  t.AnswerMessage(2);  // No
  Get<QCheckBox>(form, "chkUseFireBet")->setChecked(false);
  QVERIFY(t.game->rules.UseFireBet);
  QVERIFY(Get<QCheckBox>(form, "chkUseFireBet")->isChecked());
}

// The payoff list's scroll position is the game's (the file keeps it): a
// form filled again stands where the game says. The Field list beside the
// bet list: the editor works on the row chosen last in either list, a
// denominator of 0 is refused, and a Field fault brings its row back.
void ConfigureTest::payoffListAndFieldRowsAreEditedBesideTheBets() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabPayoffs);
  QScrollBar* scroll = Get<QListWidget>(form, "lstPayoffs")->verticalScrollBar();
  QVERIFY(scroll->maximum() >= 20);
  scroll->setValue(20);
  QCOMPARE(t.game->gamefile.PayoffsScroll, 20);
  t.game->gamefile.PayoffsScroll = 7;  // as a game opened later leaves it
  form = t.OpenConfigure(kTabPayoffs);
  QCOMPARE(Get<QListWidget>(form, "lstPayoffs")->verticalScrollBar()->value(), 7);

  auto* field = Get<QListWidget>(form, "lstField");
  auto* bets = Get<QListWidget>(form, "lstPayoffs");
  const auto betCell = PayoffCellOf(bets->item(0)->data(Qt::UserRole).toInt());
  const Currency betBefore = PayoffValue(*t.game, *betCell, 1);

  constexpr int kFive = 5;  // "5    (1.4) (4.1)", a loser by default
  field->setCurrentRow(kFive - 1);
  QVERIFY(Label(form, "lblPayoff").startsWith("Field 5"));
  constexpr int kPayoffText = Qt::UserRole + 1;  // what each row shows at its right
  Type(form, "txtPayoff0", "3");
  QCOMPARE(t.game->FieldPayoff(1, kFive), Currency::FromWhole(3));
  QCOMPARE(field->item(kFive - 1)->data(kPayoffText).toString(), QString("3 to 1"));
  QCOMPARE(PayoffValue(*t.game, *betCell, 1), betBefore);

  QTest::mouseClick(bets->viewport(), Qt::LeftButton, {}, bets->visualItemRect(bets->item(0)).center());
  const Currency denominator = PayoffValue(*t.game, *betCell, 3);
  auto* den = Get(form, "txtPayoff2");
  TypeInto(den, "0");
  emit den->editingFinished();
  QCOMPARE(PayoffValue(*t.game, *betCell, 3), denominator);
  QCOMPARE(den->text(), QString::fromStdString(FormatMoney(denominator)));

  constexpr int kSix = 7;  // "6    (1.5) (5.1)"
  t.game->FieldPayoff(1, kSix) = Currency::FromWhole(-2);  // loses more than the bet
  t.shown.clear();
  QVERIFY(!form->TryClose());
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(field->currentRow(), kSix - 1);
  QVERIFY(Label(form, "lblPayoff").startsWith("Field 6"));
}

void ConfigureTest::compListButtonsSetTheBitWords() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabComps);
  auto* list = Get<QListWidget>(form, "lstCompBets");
  // Fire is bet 85: bit 22 of word 3.
  list->clearSelection();
  list->item(bet::kFire - 1)->setSelected(true);
  Press(form, "cmdNo");
  QCOMPARE(Word(*t.game, 3), 0xFFFFFFFFu & ~(1u << 22));
  QCOMPARE(list->item(bet::kFire - 1)->text(), QString("Fire - No"));
  // Everything off clears the bits of real bets only; Default restores the
  // built-in words exactly.
  Press(form, "cmdSelectAll");
  Press(form, "cmdNo");
  QCOMPARE(Word(*t.game, 1), 0x80000000u);
  QCOMPARE(Word(*t.game, 3), 0xFF800000u);
  Press(form, "cmdDefault");
  QCOMPARE(Word(*t.game, 1), 0xC0FC0FFFu);
  QCOMPARE(Word(*t.game, 2), 0xFFFF6FFFu);
}

void ConfigureTest::bankrollTabWithNobodySaysSoAndStays() {
  DesktopTable t;
  // Asked to open on it, the form opens on the first tab instead.
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  QCOMPARE(form->Tabs()->currentIndex(), kTabChecksDice);
  t.shown.clear();
  form->Tabs()->setCurrentIndex(kTabBankroll);
  QCOMPARE(t.shown.at(0).first, std::string("No Players"));
  QCOMPARE(form->Tabs()->currentIndex(), kTabChecksDice);
  // The ATM item of the Players menu says the same and opens nothing.
  form->hide();
  t.window->findChild<QAction*>("mnuAtm")->trigger();
  QCOMPARE(t.shown.at(1).first, std::string("No Players"));
  QVERIFY(!form->isVisible());
}

// The Bankroll tab works on the player chosen in it: the ATM moves money
// and says what it cut, the start rules are each player's own, and the
// negative bankroll switch can't be cleared under standing bets.
void ConfigureTest::bankrollTabWorksOnTheChosenPlayer() {
  DesktopTable t(2);
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  Type(form, "txtAddSub", "700");
  Press(form, "cmdAddSub0");
  QCOMPARE(g.Bet(1, bet::kBankroll), Currency::FromWhole(5700));
  QCOMPARE(Label(form, "lblInvestedBankroll"), QString("5,700"));
  g.Bet(1, bet::kBankroll) += Currency::FromWhole(-200);  // lost at the table
  form->Fill();
  QCOMPARE(Label(form, "lblNet"), QString("-200"));
  QVERIFY(Get<QLabel>(form, "lblNet")->styleSheet().contains("255,0,0"));
  Type(form, "txtAddSub", "9000");
  Press(form, "cmdAddSub1");
  QCOMPARE(g.Bet(1, bet::kBankroll), Currency{});  // only the free money goes
  QCOMPARE(t.shown.back().first, std::string("ATM Deposit"));
  // Said from this form, the notice does not send the user to it.
  QVERIFY(t.shown.back().second.find("on the Configuration screen") == std::string::npos);

  auto* player = Get<QComboBox>(form, "cmbPlayer");
  player->setCurrentIndex(player->findData(2));
  QCOMPARE(g.betting.BankrollTabPlayer, 2);
  Choose(form, "optBankrollInitType0");
  Type(form, "txtBankrollInitAmount", "1234.5");
  QCOMPARE(g.betting.StartBankroll(2), Currency::FromRaw(12345000));
  Choose(form, "optBankrollInitType2");
  // The other player's rules were not touched, and the tab shows them.
  g.betting.AllowNegBankroll(1) = true;
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(10);
  g.TotalBets(1) = Currency::FromWhole(25);
  player->setCurrentIndex(player->findData(1));
  QVERIFY(Get<QRadioButton>(form, "optBankrollInitType0")->isChecked());
  QCOMPARE(g.betting.StartBankrollMode(2), static_cast<std::int32_t>(kStartCarry));

  auto* box = Get<QCheckBox>(form, "chkAllowNegBankroll");
  box->setChecked(false);
  QVERIFY(box->isChecked());
  QVERIFY(g.betting.AllowNegBankroll(1));
  QCOMPARE(t.shown.back().first, std::string("Bankroll"));
  QVERIFY(t.shown.back().second.find("Make at least a $15 withdrawal") != std::string::npos);
  g.Bet(1, bet::kBankroll) = Currency::FromWhole(100);
  box->setChecked(false);
  QVERIFY(!box->isChecked());
  QVERIFY(!g.betting.AllowNegBankroll(1));
}

void ConfigureTest::colorControlsSetTheTablesColoursAndTheTableIsDrawnInThem() {
  DesktopTable t;
  TableState& table = t.game->table;
  ConfigureForm* form = t.OpenConfigure(kTabColors);
  // A bar changes one channel of the chosen part; the table is now a custom one.
  Get<QSlider>(form, "hsbColor2")->setValue(200);
  QCOMPARE(table.LayoutColor[kPartFelt], 0xC88012);
  QVERIFY(!Get<QAction>(form, "mnuSetTableTraditionalGreen")->isChecked());
  // Another part: the bars show its colour, a swatch colours it.
  Choose(form, "optTableColors4");
  QCOMPARE(Get<QSlider>(form, "hsbColor0")->value(), 232);  // the gold highlights
  QTest::mouseClick(Get<QToolButton>(form, "picColorpal5"), Qt::LeftButton);
  QCOMPARE(table.LayoutColor[kPartHighlights], table.PaletteColor[5]);
  // A right-click keeps the colour shown in the swatch.
  Choose(form, "optTableColors0");
  emit Get<QToolButton>(form, "picColorpal0")->customContextMenuRequested({});
  QCOMPARE(table.PaletteColor[0], 0xC88012);
  // A skin sets every part and the spotlight, and is checked in the menu.
  Get<QAction>(form, "mnuSetTableBlackLight")->trigger();
  QCOMPARE(table.LayoutColor, kTableSkin[7].colors);
  QCOMPARE(table.Spotlight, kTableSkin[7].spotlight);
  QVERIFY(Get<QAction>(form, "mnuSetTableBlackLight")->isChecked());

  // The table is drawn in its colours.
  ApplyTableSkin(table, 6);         // Blue Velvet
  SetTableSpotlight(table, false);  // a flat felt has one colour everywhere
  QRectF come;
  for (const Region& r : LayoutRegions())
    if (r.id == bet::kCome) come = r.rect;
  const QPoint felt = t.Pixel(come.topLeft() + QPointF(12, 12));
  SetTablePartColor(table, kPartFelt, 0x204060);
  SetTablePartColor(table, kPartBackground, 0x102030);
  const QImage drawn = t.View()->grab().toImage();
  QCOMPARE(drawn.pixelColor(felt), QColor(0x60, 0x40, 0x20));
  QCOMPARE(drawn.pixelColor(1, 1), QColor(0x30, 0x20, 0x10));
}

// The Advantage tab shows the game's figures to two decimals (the full
// figure behind), follows its own options, and answers a vig changed on the
// Bets tab and dice skewed on the Probability tab.
void ConfigureTest::advantageAnswersToItsOptionsVigAndDice() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabAdvantage);
  auto* table = Get<QTableWidget>(form, "picAdvantage");
  QCOMPARE(Figure(form, bet::kPassLine, 3), QString("-1.41"));
  QCOMPARE(table->item(bet::kPassLine - 1, 3)->toolTip(), QString("-1.4141%"));
  QCOMPARE(table->item(bet::kPassLine - 1, 3)->foreground().color(), QColor(Qt::red));
  QCOMPARE(Label(form, "lblAdvantageDice"), QString("Figured using true probabilities"));
  // Zero outcomes make a Place bet's EV/Dec its EV/Roll.
  Get<QCheckBox>(form, "mnuIncludeZeroOutcomes")->setChecked(true);
  QCOMPARE(Figure(form, 34, 3), Figure(form, 34, 1));  // Place 6
  Get<QCheckBox>(form, "mnuIncludeZeroOutcomes")->setChecked(false);

  const int buy4 = 37;
  const QString buyBefore = Figure(form, buy4, 3), passBefore = Figure(form, bet::kPassLine, 3);
  form->Tabs()->setCurrentIndex(kTabBets);
  Type(form, "txtBuyVigPct", "2");
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(Figure(form, buy4, 3) != buyBefore);
  QCOMPARE(Figure(form, bet::kPassLine, 3), passBefore);
  // Skewed dice in play: seven at 20 percent. Enter sets the entry and
  // leaves the form open.
  form->Tabs()->setCurrentIndex(kTabProbability);
  Get<QCheckBox>(form, "chkUseSkewedProbability")->setChecked(true);
  QVERIFY(t.game->dice.ProbabilityDiceOn);
  SetEntry(form, TotalEntry(7), "20");
  QVERIFY(form->isVisible());
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(Figure(form, bet::kPassLine, 3) != passBefore);
  QCOMPARE(Label(form, "lblAdvantageDice"), QString("Probability File:  untitled"));
  form->close();
}

void ConfigureTest::matrixEditsReachTheGameAndItsFile() {
  DesktopTable t;
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabProbability);
  auto* box = Get(form, "txtPercent");
  ClickEntry(form, TotalEntry(7));
  QCOMPARE(box->text(), QString("16.667"));
  // Letters and a fourth decimal never reach the box; a lone minus is no
  // number, and Enter leaves the table as it was.
  TypeInto(box, "1x2.3456");
  QCOMPARE(box->text(), QString("12.345"));
  const ProbabilityState before = g.probability;
  TypeInto(box, "-");
  QTest::keyClick(box, Qt::Key_Return);
  QCOMPARE(g.probability.ProbabilityTable, before.ProbabilityTable);
  QVERIFY(!g.probability.ProbDirty);
  QCOMPARE(box->text(), QString("16.667"));
  SetEntry(form, TotalEntry(7), "20");
  QCOMPARE(ProbValue(g, kTotalRow, 6), 20000);
  QVERIFY(g.probability.ProbDirty);
  QCOMPARE(Label(form, "lblPercentageDice"), QString("Free Form Dice"));

  // L flips the lock of the entry at once; the arrows move the box.
  QCOMPARE(ProbFlag(g, kTotalRow, 6), kProbLocked);
  QTest::keyClick(box, Qt::Key_L);
  QCOMPARE(ProbFlag(g, kTotalRow, 6), 0);
  QTest::keyClick(box, Qt::Key_Right);
  QCOMPARE(box->text(), QString("13.335"));  // total 8: five cells of 2667
  QTest::keyClick(box, Qt::Key_Down);
  QCOMPARE(ProbFlag(g, 0, 2), 7);

  // Leaving the box with a changed text sets the entry too.
  TypeInto(box, "10");
  ClickEntry(form, FaceEntry(1, 6));
  QCOMPARE(ProbValue(g, 2, 7), 10000);

  // N of the "rolls out of" modes must be above 0.
  auto* n = Get(form, "txtRollsOutOf");
  TypeInto(n, "0");
  emit n->editingFinished();
  QCOMPARE(g.probability.RollsOutOf, 36.0);
  // The axis panel makes both dice percentage dice about the axis.
  QTest::mouseClick(Get<QPushButton>(form, "mnuAxes"), Qt::LeftButton);
  Type(form, "txtDie1SE", "150");
  Type(form, "txtDie2SE", "100");
  Press(form, "cmdAxisOK");
  QCOMPARE(Get(form, "txtDie1SE")->text(), QString("100"));
  const ProbEntry die1 = FaceEntry(1, 3), snake = CellOfDice(1, 1);
  QCOMPARE(ProbValue(g, die1.a, die1.b), 25000);
  QCOMPARE(ProbValue(g, snake.a, snake.b), 0);
  QCOMPARE(Label(form, "lblPercentageDice"), QString("Percentage Dice"));

  // Save (no file yet: Save As), New and Open round the table through its file.
  const std::string path = folder_ / "sevens.prb";
  t.platform.onChooseFile = [&](const FileChooserRequest&) { return std::optional(path); };
  SetEntry(form, TotalEntry(7), "20");
  const auto edited = g.probability.ProbabilityTable;
  Press(form, "mnuSave");
  QVERIFY(QFile::exists(QString::fromStdString(path)));
  QVERIFY(!g.probability.ProbDirty);

  Press(form, "mnuNew");
  QCOMPARE(ProbValue(g, kTotalRow, 6), 16667);
  QCOMPARE(Label(form, "lblPrbFileName"), QString("untitled"));

  Press(form, "mnuOpen");
  QCOMPARE(g.probability.ProbabilityTable, edited);
  QCOMPARE(Get(form, "txtPercent")->text(), QString("20.000"));  // back on the selected entry
  form->close();
}

// Only the Payoffs and Advantage tabs print, to a real printer (a PDF file
// here); the Alt keys of the Colors, Comps and Bankroll tabs take none of
// the tabs' own keys and none twice.
void ConfigureTest::printAndAltKeysBelongToTheirTabs() {
  DesktopTable t(1);
  const QString pdf = QString::fromStdString(folder_ / "advantage.pdf");
  t.platform.printToFile = pdf;
  ConfigureForm* form = t.OpenConfigure(kTabBets);
  auto* print = Get<QPushButton>(form, "mnuPrintAdvPay");
  QVERIFY(!print->isEnabled());
  form->Tabs()->setCurrentIndex(kTabPayoffs);
  QVERIFY(print->isEnabled());
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(print->isEnabled());
  QTest::mouseClick(print, Qt::LeftButton);
  QCOMPARE(t.platform.documentsPrinted, 1);
  QFile file(pdf);
  QVERIFY(file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-" && file.size() > 1000);

  QString tabKeys;
  for (int i = 0; i < form->Tabs()->count(); ++i) {
    const QString caption = form->Tabs()->tabText(i);
    tabKeys += caption.at(caption.indexOf('&') + 1).toUpper();
  }
  QCOMPARE(tabKeys, QString("DCMSINBARV"));
  for (int tab : {kTabColors, kTabComps, kTabBankroll}) {
    QString seen;
    for (QAbstractButton* b : form->Tabs()->widget(tab)->findChildren<QAbstractButton*>()) {
      const QString text = QString(b->text()).remove("&&");
      const int amp = text.indexOf('&');
      if (amp < 0) continue;
      const QChar key = text.at(amp + 1).toUpper();
      QVERIFY2(!tabKeys.contains(key) && !seen.contains(key), qPrintable(b->text()));
      seen += key;
    }
  }
}

QTEST_MAIN(ConfigureTest)
#include "configure_qtest.moc"
