// The Comps and Bankroll tabs of frmConfigure under the offscreen platform:
// they open on the game's values, each kind of control reaches the game and
// changes what the game works out, refusals keep the control as the game
// says, and what the tabs set survives a game file.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/money.h"
#include "desktop_fixture.h"
#include "stats/summary.h"
#include "store/game_file.h"
#include "table/configure_form.h"
#include "table/layout.h"
#include "table/table_colors.h"

class ConfigureTabsTest : public QObject {
  Q_OBJECT
 private slots:
  void compsTabShowsTheGame();
  void compListButtonsSetTheBitWords();
  void compSettingsChangeTheComps();
  void bankrollTabWithNobodySaysSoAndStays();
  void atmMovesMoneyAndSaysWhatItCut();
  void negativeBankrollCannotBeUncheckedUnderTheBets();
  void startRulesBelongToTheChosenPlayer();
  void whatTheTabsSetSurvivesTheGameFile();
  void colorControlsSetTheTablesColours();
  void theTableIsDrawnInItsColours();
  void altKeysOfTheseTabsLeaveTheTabKeysAlone();
};

namespace {
void Press(QWidget& form, const char* button) {
  QTest::mouseClick(FormChild<QPushButton>(form, button), Qt::LeftButton);
}
std::uint32_t Word(const Game& g, int w) { return static_cast<std::uint32_t>(g.rules.CompBets[w]); }
}  // namespace

void ConfigureTabsTest::compsTabShowsTheGame() {
  DesktopTable t;
  t.game->rules.CompRate = Currency::FromWhole(45);
  t.game->rules.CompBase = kCompAverageAction;
  t.game->rules.CompsUseTrueProbs = false;
  SetCompBet(t.game->rules, bet::kField, false);
  ConfigureForm* form = t.OpenConfigure(kTabComps);
  QCOMPARE(form->Tabs()->currentIndex(), kTabComps);
  QCOMPARE(FormChild<QLineEdit>(*form, "txtCompRate")->text(), QString("45"));
  QVERIFY(FormChild<QRadioButton>(*form, "optBaseComps2")->isChecked());
  QVERIFY(!FormChild<QCheckBox>(*form, "chkCompsUseTrueProbs")->isChecked());
  auto* list = FormChild<QListWidget>(*form, "lstCompBets");
  QCOMPARE(list->count(), 85);  // bets 1 to 85, in id order
  QCOMPARE(list->item(bet::kDontComeOddsFirst - 1)->text(), QString("Don't Come 4 Odds - No"));
  QCOMPARE(list->item(bet::kField - 1)->text(), QString("Field - No"));
  QCOMPARE(list->item(bet::kFire - 1)->text(), QString("Fire - Yes"));
  // Filling wrote nothing back.
  QCOMPARE(t.game->rules.CompRate, Currency::FromWhole(45));
  QCOMPARE(t.game->rules.CompBase, kCompAverageAction);
}

void ConfigureTabsTest::compListButtonsSetTheBitWords() {
  DesktopTable t;
  ConfigureForm* form = t.OpenConfigure(kTabComps);
  auto* list = FormChild<QListWidget>(*form, "lstCompBets");
  // Fire is bet 85: bit 22 of word 3.
  list->clearSelection();
  list->item(bet::kFire - 1)->setSelected(true);
  Press(*form, "cmdNo");
  QCOMPARE(Word(*t.game, 3), 0xFFFFFFFFu & ~(1u << 22));
  QCOMPARE(list->item(bet::kFire - 1)->text(), QString("Fire - No"));
  QVERIFY(list->item(bet::kFire - 1)->isSelected());  // the selection stays
  // A double click flips the selected rows back.
  emit list->itemDoubleClicked(list->item(bet::kFire - 1));
  QCOMPARE(Word(*t.game, 3), 0xFFFFFFFFu);
  // Everything off clears the bits of real bets only; Default restores the
  // built-in words exactly.
  Press(*form, "cmdSelectAll");
  QCOMPARE(list->selectedItems().size(), 85);
  Press(*form, "cmdNo");
  QCOMPARE(Word(*t.game, 1), 0x80000000u);
  QCOMPARE(Word(*t.game, 2), 0x80000000u);
  QCOMPARE(Word(*t.game, 3), 0xFF800000u);
  Press(*form, "cmdDefault");
  QCOMPARE(Word(*t.game, 1), 0xC0FC0FFFu);
  QCOMPARE(Word(*t.game, 2), 0xFFFF6FFFu);
  QCOMPARE(Word(*t.game, 3), 0xFFFFFFFFu);
  // Yes on an odds bet sets its bit: Pass Line Odds is bet 44, bit 12 of word 2.
  list->clearSelection();
  list->item(bet::kPassLineOdds - 1)->setSelected(true);
  Press(*form, "cmdYes");
  QCOMPARE(Word(*t.game, 2), 0xFFFF7FFFu);
}

void ConfigureTabsTest::compSettingsChangeTheComps() {
  DesktopTable t;
  Game& g = *t.game;
  const int slot = FrameIndex(0, kFrameCount - 1);                   // the table, all sessions
  g.StatAction(slot, bet::kPassLine, 1) = Currency::FromWhole(10);   // decisions
  g.StatAction(slot, bet::kPassLine, 2) = Currency::FromWhole(200);  // wagered
  ConfigureForm* form = t.OpenConfigure(kTabComps);
  TypeInto(FormChild<QLineEdit>(*form, "txtCompRate"), "12.5");
  QCOMPARE(g.rules.CompRate, Currency::FromRaw(125000));
  FormChild<QRadioButton>(*form, "optBaseComps1")->setChecked(true);
  QCOMPARE(g.rules.CompBase, kCompTotalAction);
  CompFigures on;
  FigureComps(g, on, slot);
  QCOMPARE(on.value, 25.0);  // 12.5% of the 200 wagered
  FormChild<QCheckBox>(*form, "chkCompsUseTrueProbs")->setChecked(false);
  QVERIFY(!g.rules.CompsUseTrueProbs);
  // Taking the Pass Line out of the comps leaves nothing to figure.
  auto* list = FormChild<QListWidget>(*form, "lstCompBets");
  list->clearSelection();
  list->item(bet::kPassLine - 1)->setSelected(true);
  Press(*form, "cmdNo");
  CompFigures off;
  FigureComps(g, off, slot);
  QCOMPARE(off.value, 0.0);
  QCOMPARE(off.decisions, 0);
}

void ConfigureTabsTest::bankrollTabWithNobodySaysSoAndStays() {
  DesktopTable t;
  // Asked to open on it, the form opens on the first tab instead.
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  QCOMPARE(form->Tabs()->currentIndex(), kTabChecksDice);
  t.shown.clear();
  form->Tabs()->setCurrentIndex(kTabBankroll);
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].first, std::string("No Players"));
  QCOMPARE(form->Tabs()->currentIndex(), kTabChecksDice);
  // The ATM item of the Players menu says the same and opens nothing.
  form->hide();
  t.window->findChild<QAction*>("mnuAtm")->trigger();
  QCOMPARE(t.shown.size(), std::size_t{2});
  QCOMPARE(t.shown[1].first, std::string("No Players"));
  QVERIFY(!form->isVisible());
}

void ConfigureTabsTest::atmMovesMoneyAndSaysWhatItCut() {
  DesktopTable t(1);
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  QCOMPARE(form->Tabs()->currentIndex(), kTabBankroll);
  QCOMPARE(g.betting.BankrollTabPlayer, 1);
  TypeInto(FormChild<QLineEdit>(*form, "txtAddSub"), "700");
  QCOMPARE(g.betting.AtmAmount, Currency::FromWhole(700));
  Press(*form, "cmdAddSub0");
  QCOMPARE(g.Bet(1, 0), Currency::FromWhole(5700));
  QCOMPARE(g.InvestedBankroll(1), Currency::FromWhole(5700));
  QCOMPARE(FormChild<QLabel>(*form, "lblCurrentBankroll")->text(), QString("5,700"));
  QCOMPARE(FormChild<QLabel>(*form, "lblInvestedBankroll")->text(), QString("5,700"));
  g.Bet(1, 0) += Currency::FromWhole(-200);  // lost at the table
  form->Fill();
  QCOMPARE(FormChild<QLabel>(*form, "lblNet")->text(), QString("-200"));
  QVERIFY(FormChild<QLabel>(*form, "lblNet")->styleSheet().contains("255,0,0"));
  TypeInto(FormChild<QLineEdit>(*form, "txtAddSub"), "9000");
  Press(*form, "cmdAddSub1");
  QCOMPARE(g.Bet(1, 0), Currency{});  // only the free money goes
  QCOMPARE(t.shown.back().first, std::string("ATM Deposit"));
  // Said from this form, the notice does not send the user to it.
  QVERIFY(t.shown.back().second.find("on the Configuration screen") == std::string::npos);
}

void ConfigureTabsTest::negativeBankrollCannotBeUncheckedUnderTheBets() {
  DesktopTable t(1);
  Game& g = *t.game;
  g.betting.AllowNegBankroll(1) = true;
  g.Bet(1, 0) = Currency::FromWhole(10);
  g.TotalBets(1) = Currency::FromWhole(25);
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  auto* box = FormChild<QCheckBox>(*form, "chkAllowNegBankroll");
  QVERIFY(box->isChecked());
  box->setChecked(false);
  QVERIFY(box->isChecked());
  QVERIFY(g.betting.AllowNegBankroll(1));
  QCOMPARE(t.shown.back().first, std::string("Bankroll"));
  QVERIFY(t.shown.back().second.find("Make at least a $15 withdrawal") != std::string::npos);
  g.Bet(1, 0) = Currency::FromWhole(100);
  box->setChecked(false);
  QVERIFY(!box->isChecked());
  QVERIFY(!g.betting.AllowNegBankroll(1));
}

void ConfigureTabsTest::startRulesBelongToTheChosenPlayer() {
  DesktopTable t(2);
  Game& g = *t.game;
  ConfigureForm* form = t.OpenConfigure(kTabBankroll);
  auto* player = FormChild<QComboBox>(*form, "cmbPlayer");
  QCOMPARE(player->count(), 2);
  player->setCurrentIndex(player->findData(2));
  QCOMPARE(g.betting.BankrollTabPlayer, 2);
  FormChild<QRadioButton>(*form, "optBankrollInitType3")->setChecked(true);
  QCOMPARE(g.betting.StartBankrollMode(2), static_cast<std::int32_t>(kStartCarryWithNet));
  QVERIFY(!FormChild<QLineEdit>(*form, "txtBankrollInitAmount")->isEnabled());
  FormChild<QRadioButton>(*form, "optBankrollInitType0")->setChecked(true);
  TypeInto(FormChild<QLineEdit>(*form, "txtBankrollInitAmount"), "750");
  QCOMPARE(g.betting.StartBankroll(2), Currency::FromWhole(750));
  FormChild<QRadioButton>(*form, "optBankrollInitType2")->setChecked(true);
  // The other player's rules were not touched, and the tab shows them.
  player->setCurrentIndex(player->findData(1));
  QCOMPARE(g.betting.StartBankrollMode(1), static_cast<std::int32_t>(kStartWithAmount));
  QVERIFY(FormChild<QRadioButton>(*form, "optBankrollInitType0")->isChecked());
  QCOMPARE(FormChild<QLineEdit>(*form, "txtBankrollInitAmount")->text(),
           QString::fromStdString(FormatMoney(g.betting.StartBankroll(1))));
  QCOMPARE(g.betting.StartBankrollMode(2), static_cast<std::int32_t>(kStartCarry));
}

void ConfigureTabsTest::whatTheTabsSetSurvivesTheGameFile() {
  DesktopTable t(2);
  ConfigureForm* form = t.OpenConfigure(kTabComps);
  TypeInto(FormChild<QLineEdit>(*form, "txtCompRate"), "17");
  FormChild<QRadioButton>(*form, "optBaseComps2")->setChecked(true);
  auto* list = FormChild<QListWidget>(*form, "lstCompBets");
  list->clearSelection();
  list->item(bet::kHorn - 1)->setSelected(true);
  Press(*form, "cmdNo");
  form->Tabs()->setCurrentIndex(kTabBankroll);
  auto* player = FormChild<QComboBox>(*form, "cmbPlayer");
  player->setCurrentIndex(player->findData(2));
  FormChild<QRadioButton>(*form, "optBankrollInitType1")->setChecked(true);
  TypeInto(FormChild<QLineEdit>(*form, "txtBankrollInitAmount"), "1234.5");
  FormChild<QCheckBox>(*form, "chkAllowNegBankroll")->setChecked(true);
  TypeInto(FormChild<QLineEdit>(*form, "txtAddSub"), "250");
  QVERIFY(form->TryClose());

  const std::string bytes = GameFileBytes(*t.game);
  DesktopTable other;
  QVERIFY(OpenGameBytes(*other.game, "memory.rvg", bytes));
  const Game& g = *other.game;
  QCOMPARE(g.rules.CompRate, Currency::FromWhole(17));
  QCOMPARE(g.rules.CompBase, kCompAverageAction);
  QVERIFY(!CompBetCounted(g.rules, bet::kHorn));
  QCOMPARE(g.rules.CompBets, t.game->rules.CompBets);
  QCOMPARE(g.betting.BankrollTabPlayer, 2);
  QCOMPARE(g.betting.StartBankrollMode(2), static_cast<std::int32_t>(kStartPrompt));
  QCOMPARE(g.betting.StartBankroll(2), Currency::FromRaw(12345000));
  QVERIFY(g.betting.AllowNegBankroll(2));
  QCOMPARE(g.betting.AtmAmount, Currency::FromWhole(250));
  QCOMPARE(g.rules.ConfigureTab, kTabBankroll);
}

void ConfigureTabsTest::colorControlsSetTheTablesColours() {
  DesktopTable t;
  TableState& table = t.game->table;
  ConfigureForm* form = t.OpenConfigure(kTabColors);
  QCOMPARE(form->Tabs()->currentIndex(), kTabColors);
  QVERIFY(FormChild<QRadioButton>(*form, "optTableColors0")->isChecked());
  QCOMPARE(FormChild<QSlider>(*form, "hsbColor0")->value(), 18);  // the felt: 18, 128, 74
  QCOMPARE(FormChild<QSlider>(*form, "hsbColor2")->value(), 74);
  QVERIFY(FormChild<QAction>(*form, "mnuSetTableTraditionalGreen")->isChecked());
  // A bar changes one channel of the chosen part; the table is now a custom one.
  FormChild<QSlider>(*form, "hsbColor2")->setValue(200);
  QCOMPARE(table.LayoutColor[kPartFelt], 0xC88012);
  QCOMPARE(table.TablePreset, 0);
  QVERIFY(!FormChild<QAction>(*form, "mnuSetTableTraditionalGreen")->isChecked());
  // Another part: the bars show its colour, a swatch colours it.
  FormChild<QRadioButton>(*form, "optTableColors4")->setChecked(true);
  QCOMPARE(FormChild<QSlider>(*form, "hsbColor0")->value(), 232);  // the gold highlights
  QTest::mouseClick(FormChild<QToolButton>(*form, "picColorpal5"), Qt::LeftButton);
  QCOMPARE(table.LayoutColor[kPartHighlights], table.PaletteColor[5]);
  QCOMPARE(table.LayoutColor[kPartFelt], 0xC88012);  // the felt kept its own
  // A right-click keeps the colour shown in the swatch.
  FormChild<QRadioButton>(*form, "optTableColors0")->setChecked(true);
  emit FormChild<QToolButton>(*form, "picColorpal0")->customContextMenuRequested({});
  QCOMPARE(table.PaletteColor[0], 0xC88012);
  FormChild<QRadioButton>(*form, "optSpotlight1")->setChecked(true);
  QVERIFY(!table.Spotlight);
  // A skin sets every part and the spotlight, and is checked in the menu.
  FormChild<QAction>(*form, "mnuSetTableBlackLight")->trigger();
  QCOMPARE(table.LayoutColor, kTableSkin[7].colors);
  QCOMPARE(table.Spotlight, kTableSkin[7].spotlight);
  QCOMPARE(table.TablePreset, 8);
  QVERIFY(FormChild<QAction>(*form, "mnuSetTableBlackLight")->isChecked());
  QCOMPARE(FormChild<QSlider>(*form, "hsbColor1")->value(),
           ColorFromValue(kTableSkin[7].colors[0]).green());
  QVERIFY(t.game->roll.SessionDirty);
}

void ConfigureTabsTest::theTableIsDrawnInItsColours() {
  DesktopTable t;
  TableState& table = t.game->table;
  ApplyTableSkin(table, 6);         // Blue Velvet
  SetTableSpotlight(table, false);  // a flat felt has one colour everywhere
  QRectF come;
  for (const Region& r : LayoutRegions())
    if (r.id == bet::kCome) come = r.rect;
  const QPoint felt = t.Pixel(come.topLeft() + QPointF(12, 12));
  QImage drawn = t.View()->grab().toImage();
  QCOMPARE(drawn.pixelColor(felt), ColorFromValue(table.LayoutColor[kPartFelt]));
  QCOMPARE(drawn.pixelColor(1, 1), ColorFromValue(table.LayoutColor[kPartBackground]));
  SetTablePartColor(table, kPartFelt, 0x204060);
  SetTablePartColor(table, kPartBackground, 0x102030);
  drawn = t.View()->grab().toImage();
  QCOMPARE(drawn.pixelColor(felt), QColor(0x60, 0x40, 0x20));
  QCOMPARE(drawn.pixelColor(1, 1), QColor(0x30, 0x20, 0x10));
}

void ConfigureTabsTest::altKeysOfTheseTabsLeaveTheTabKeysAlone() {
  DesktopTable t(1);
  ConfigureForm* form = t.OpenConfigure(kTabComps);
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
      QVERIFY2(!tabKeys.contains(key), qPrintable(b->text()));
      QVERIFY2(!seen.contains(key), qPrintable(b->text()));
      seen += key;
    }
  }
}

QTEST_MAIN(ConfigureTabsTest)
#include "configure_tabs_qtest.moc"
