// The automation forms under the offscreen platform. frmAutoBet shows the
// player's script from the game and every keystroke reaches the game; a
// change of player keeps each script; Check Script selects the error's
// span; the switch, the file commands, a picklist pick, the permissions,
// the steps and Find/Replace reach the game. frmAutoPlay opens on the
// selected players' values, every kind of control writes to each selected
// player and no other, and a selection that disagrees shows no option.
// frmHotKeys places a row by a click and writes HotKeys.dta on leaving, and
// Ctrl and the letter on the table run the script for the current player.
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "automation/autoplay_state.h"
#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "script/activation.h"
#include "script/auto_bet_editor.h"
#include "script/hot_keys.h"
#include "table/auto_bet_form.h"
#include "table/auto_bet_text.h"
#include "table/auto_play_form.h"
#include "table/find_replace_form.h"
#include "table/hot_keys_form.h"
#include "table/permissions_form.h"
#include "table/steps_form.h"

class AutomationTest : public QObject {
  Q_OBJECT
 private slots:
  void showsTheScriptAndTypingReachesTheGame();
  void checkScriptSelectsTheErrorsSpan();
  void theSwitchAndTheFileCommandsReachTheGame();
  void aPickIsInsertedAtTheCaret();
  void permissionsAreSetAtOnce();
  void aRunShowsEachStepAndWaitsForNext();
  void findAndReplaceWorkOnTheGamesText();
  void opensOnTheSelectedPlayersValues();
  void everyControlWritesToTheSelectionOnly();
  void theKeyAndTheMenuOpenTheForm();
  void aRowIsPlacedByAClickAndWrittenOnLeaving();
  void ctrlAndTheLetterRunTheScriptOnTheTable();
};

namespace {

AutoBetForm& OpenEditor(DesktopTable& t) {
  QTest::keyClick(t.View(), Qt::Key_F4);
  AutoBetForm* form = t.window->findChild<AutoBetForm*>("frmAutoBet");
  if (form == nullptr || !form->isVisible()) qFatal("F4 did not open the editor");
  return *form;
}

QString Shown(AutoBetForm& form) { return form.Text()->toPlainText(); }

void TriggerMenu(QWidget& form, const char* name) {
  QAction* a = form.findChild<QAction*>(name);
  if (a == nullptr) qFatal("no menu item %s", name);
  a->trigger();
}

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

QPoint RowPoint(QTableWidget* list, int row) {
  return QPoint(20, list->rowViewportPosition(row) + list->rowHeight(row) / 2);
}

void AddRow(HotKeysForm& form, int letter, const QString& file, const QString& description) {
  FormChild<QComboBox>(form, "cmbKey")->setCurrentIndex(letter);
  TypeInto(FormChild<QLineEdit>(form, "txtAutoBetFile"), file);
  TypeInto(FormChild<QLineEdit>(form, "txtDescription"), description);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdAddHotKey"), Qt::LeftButton);
}

}  // namespace

void AutomationTest::showsTheScriptAndTypingReachesTheGame() {
  DesktopTable t(2);
  ScriptSource& ss = t.game->scriptSource;
  ss.ScriptLines[1] = {"", "bet 5 on field"};
  ss.ScriptLines[2] = {"", "bet 10 on passline"};
  AutoBetForm& form = OpenEditor(t);
  QCOMPARE(Shown(form), QString("bet 5 on field"));
  QVERIFY(!ss.ScriptDirty[1]);

  // Typing a new line: the game holds it at once, structure words capitalized
  // when the caret leaves the line.
  form.Text()->moveCursor(QTextCursor::End);
  QTest::keyClick(form.Text(), Qt::Key_Return);
  QTest::keyClicks(form.Text(), "if point = 0 then bet 1 on big6 endif");
  QTest::keyClick(form.Text(), Qt::Key_Up);
  QCOMPARE(ss.ScriptLines[1],
           (std::vector<std::string>{"", "bet 5 on field",
                                     "If point = 0 Then bet 1 on big6 EndIf"}));
  QVERIFY(ss.ScriptDirty[1]);

  // Bo's script, then Ann's again as she left it.
  auto* player = FormChild<QComboBox>(form, "cmbPlayer");
  QTest::keyClick(player, Qt::Key_Down);
  QCOMPARE(Shown(form), QString("bet 10 on passline"));
  QTest::keyClick(player, Qt::Key_Up);
  QCOMPARE(Shown(form), QString("bet 5 on field\nIf point = 0 Then bet 1 on big6 EndIf"));
}

void AutomationTest::checkScriptSelectsTheErrorsSpan() {
  DesktopTable t(1);
  t.game->scriptSource.ScriptLines[1] = {"", "bet 5 on field", "  bet 5 on nowhere  ", "' end"};
  AutoBetForm& form = OpenEditor(t);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdCheckScript"), Qt::LeftButton);
  QCOMPARE(t.shown.at(0).first, std::string("Auto-bet script error in line 2"));
  const QTextCursor c = form.Text()->textCursor();
  QVERIFY(c.hasSelection());
  QCOMPARE(form.Text()->document()->findBlock(c.selectionStart()).blockNumber(), 1);
  // The span starts past the blanks before it and ends before those behind.
  QVERIFY(!c.selectedText().startsWith(' '));
  QVERIFY(!c.selectedText().endsWith(' '));

  // A sound script is told so; Auto-Indent then indents its block.
  t.game->gamefile.EditorAutoIndent = -1;
  form.Text()->setPlainText("If point = 0 Then\nbet 5 on passline\nEndIf");
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdCheckScript"), Qt::LeftButton);
  QCOMPARE(t.shown.back().second, std::string("Your script is properly structured."));
  QCOMPARE(Shown(form), QString("If point = 0 Then\n   bet 5 on passline\nEndIf"));
}

void AutomationTest::theSwitchAndTheFileCommandsReachTheGame() {
  DesktopTable t(1);
  AutoBetForm& form = OpenEditor(t);
  t.AnswerMessage(2);  // not now: no initializing cycle
  QTest::mouseClick(FormChild<QCheckBox>(form, "chkAutoBetsActive"), Qt::LeftButton);
  QVERIFY(t.game->roll.ScriptActive[1]);
  QCOMPARE(t.shown.back().first, std::string("Auto-Bet"));

  const std::string molly = std::string(RAVELTON_SOURCE_DIR) + "/examples/three_point_molly.bet";
  const std::string copy = (std::filesystem::temp_directory_path() / "ravelton-molly.bet").string();
  const std::string names[] = {molly, copy};
  int asked = 0;
  t.platform.onChooseFile = [&](const FileChooserRequest&) { return std::optional(names[asked++]); };
  TriggerMenu(form, "mnuOpen");
  QVERIFY(Shown(form).startsWith("' Three-point Molly"));
  QTest::keyClicks(form.Text(), "' mine");
  QTest::keyClick(form.Text(), Qt::Key_Return);
  TriggerMenu(form, "mnuSaveAs");
  std::ifstream in(copy, std::ios::binary);
  std::string first;
  std::getline(in, first);
  QCOMPARE(first, std::string("' mine\r"));
  QVERIFY(!t.game->scriptSource.ScriptDirty[1]);
  QCOMPARE(form.windowTitle(), QString("Auto-Bet (ravelton-molly.bet)"));
  std::filesystem::remove(copy);
}

void AutomationTest::aPickIsInsertedAtTheCaret() {
  DesktopTable t(1);
  t.game->gamefile.EditorSyntaxLists = -1;
  AutoBetForm& form = OpenEditor(t);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdLogic"), Qt::LeftButton);
  QListWidget* list = form.PicklistView();
  QVERIFY(list->isVisible());
  // A separator can't be picked; "EndIf" can.
  QVERIFY(!(list->findItems("─", Qt::MatchStartsWith).at(0)->flags() & Qt::ItemIsEnabled));
  QListWidgetItem* endIf = list->findItems("EndIf", Qt::MatchExactly).front();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(endIf).center());
  QVERIFY(!list->isVisible());
  QCOMPARE(t.game->scriptSource.ScriptLines[1][1], std::string("EndIf "));
}

void AutomationTest::permissionsAreSetAtOnce() {
  DesktopTable t(2);
  PermissionsForm form(*t.game);
  form.show();
  const auto boxes = form.findChildren<QCheckBox*>("chkAllowAnyFolder");
  QCOMPARE(boxes.size(), 2);
  QVERIFY(!t.game->scriptRun.AllowAnyFolder(2));
  t.game->roll.SessionDirty = false;
  QTest::mouseClick(boxes[1], Qt::LeftButton, {}, QPoint(6, boxes[1]->height() / 2));
  QVERIFY(t.game->scriptRun.AllowAnyFolder(2));
  QVERIFY(!t.game->scriptRun.AllowAnyFolder(1));
  QVERIFY(t.game->roll.SessionDirty);
}

void AutomationTest::aRunShowsEachStepAndWaitsForNext() {
  DesktopTable t(1);
  t.game->scriptSource.ScriptLines[1] = {"", "bet 5 on field :", "bet 5 on big6 :"};
  t.game->scriptRun.ShowSteps = true;
  t.game->rules.BetRequirement = kNoBetRequired;
  SetScriptActive(*t.game, 1, true);
  AutoBetForm& form = OpenEditor(t);
  QStringList selected, notes;
  QTimer next;
  next.setInterval(5);
  connect(&next, &QTimer::timeout, &form, [&] {
    StepsForm* steps = form.Steps();
    if (steps == nullptr || !steps->isVisible() || !t.game->scriptRun.StepWaiting) return;
    selected << form.Text()->textCursor().selectedText();
    notes << FormChild<QLabel>(*steps, "lblStatus")->text();
    QTest::mouseClick(FormChild<QPushButton>(*steps, "cmdNextAutoBet"), Qt::LeftButton);
  });
  next.start();
  QTest::keyClick(t.View(), Qt::Key_F2);
  next.stop();
  // The script's head is a step of its own, with nothing to select.
  QCOMPARE(selected, QStringList({"", "bet 5 on field", "bet 5 on big6"}));
  QCOMPARE(notes.back(), QString("Action taken."));
  QCOMPARE(t.game->Bet(1, bet::kBig6), Currency::FromWhole(5));
}

void AutomationTest::findAndReplaceWorkOnTheGamesText() {
  DesktopTable t(1);
  t.game->scriptSource.ScriptLines[1] = {"", "bet 5 on field", "bet 5 on Field"};
  AutoBetForm& form = OpenEditor(t);
  TriggerMenu(form, "mnuFind");
  FindReplaceForm* find = form.FindReplace();
  QVERIFY(find->isVisible());
  FormChild<QComboBox>(*find, "cmbFind")->setEditText("field");
  FormChild<QComboBox>(*find, "cmbReplace")->setEditText("big6");
  QTest::mouseClick(FormChild<QPushButton>(*find, "cmdFindNext"), Qt::LeftButton);
  QCOMPARE(form.Text()->textCursor().selectedText(), QString("field"));
  TriggerMenu(form, "mnuFindNext");
  QCOMPARE(form.Text()->textCursor().selectedText(), QString("Field"));
  // Replace changes the selected match and goes on to the next.
  QTest::mouseClick(FormChild<QPushButton>(*find, "cmdReplace"), Qt::LeftButton);
  QCOMPARE(t.game->scriptSource.ScriptLines[1][2], std::string("bet 5 on big6"));
  QCOMPARE(form.Text()->textCursor().selectedText(), QString("field"));
  // The one match left, found again: the search is over.
  TriggerMenu(form, "mnuFindNext");
  QCOMPARE(t.shown.back().second, std::string("All text has been searched."));
  QTest::mouseClick(FormChild<QPushButton>(*find, "cmdReplaceAll"), Qt::LeftButton);
  QCOMPARE(t.shown.back().second, std::string("1 replacement was made."));
  QCOMPARE(Shown(form), QString("bet 5 on big6\nbet 5 on big6"));
}

void AutomationTest::opensOnTheSelectedPlayersValues() {
  DesktopTable t(3);
  AutoPlayState& a = t.game->autoplay;
  a.AutoLayFullOdds(2) = true;
  a.AutoAdjustMode(2) = 1;
  a.HandleWinningBets(2) = kWinAdjust;
  a.AdjustOperator(2, kAdjustAutoWinSame) = 1;
  a.AdjustAmount(2, kAdjustAutoWinSame) = Currency::FromWhole(5);
  a.AdjustAmount(2, kAdjustAutoLoseBet) = Currency::FromRaw(125000);
  t.game->BetWorkingDefault(2, PlaceId(6)) = 1;
  a.SelectedPlayers = 1 << 2;
  t.game->Point = 6;
  for (int p : {1, 2}) t.game->Bet(p, bet::kPassLine) = Currency::FromWhole(10);
  const AutoPlayState before = a;

  AutoPlayForm& form = *t.window->AutoPlay();
  QCOMPARE(FormChild<QLabel>(form, "lblSettingsFor")->text(), QString("Settings for\nBo"));
  for (const char* on : {"chkAutoLayFullOdds", "optAutoAdjustBetAmounts1", "optHandleWinningBets6"})
    QVERIFY2(FormChild<QAbstractButton>(form, on)->isChecked(), on);
  QCOMPARE(FormChild<QComboBox>(form, "cmbDoBias")->currentText(),
           QString("Do odds bias: nearest"));
  QCOMPARE(FormChild<QPushButton>(form, "cmdMathOperator9")->text(), QString("-"));
  // An amount taken off under "-" shows in red, any other in blue.
  QVERIFY(FormChild<QLineEdit>(form, "txtModifyAmount9")->styleSheet().contains(kRed.name()));
  QVERIFY(!FormChild<QLineEdit>(form, "txtModifyAmount12")->styleSheet().contains(kRed.name()));
  QCOMPARE(WorkingRow(form, PlaceId(6))->text(), QString("Place 6 - Yes"));
  // Filling wrote nothing.
  QVERIFY(t.game->autoplay == before);
  // Full odds switched on takes the selected player's odds at once.
  form.show();
  Press(FormChild<QCheckBox>(form, "chkAutoTakeFullOdds"));
  QVERIFY(t.game->Bet(2, bet::kPassLineOdds) > Currency{});
  QCOMPARE(t.game->Bet(1, bet::kPassLineOdds), Currency{});
}

// A selection that disagrees shows no option in the group; a choice settles
// it. Then every kind of control writes to each selected player and no other.
void AutomationTest::everyControlWritesToTheSelectionOnly() {
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
  QVERIFY(!FormChild<QPushButton>(form, "cmdMathOperator10")->styleSheet().contains("background"));
  // A choice settles the difference for both.
  Press(FormChild<QRadioButton>(form, "optHandleWinningBets3"));
  QCOMPARE(t.game->autoplay.HandleWinningBets(1), int{kWinPressUnit});
  QVERIFY(winning->palette().color(QPalette::WindowText) != kRed);

  SelectPlayers(form, kAnnAndCy);
  QCOMPARE(FormChild<QLabel>(form, "lblSettingsFor")->text(),
           QString("Settings for these 2\nselected players:"));
  // Each player's values as one row: Ann and Cy take every change, Bo, not
  // selected, keeps his defaults.
  const AutoPlayState& a = t.game->autoplay;
  const auto values = [&](int p) {
    return std::tuple(a.AutoPassDice(p), a.AutoAdjustMode(p), a.HandleLosingBets(p), a.DontBias(p),
                      a.AdjustOperator(p, kAdjustAutoLoseSame),
                      a.AdjustUnits(p, kAdjustAutoLoseSame), a.AdjustAmount(p, kAdjustAutoLoseSame),
                      a.AdjustAmount(p, kAdjustAutoWinBet),
                      t.game->BetWorkingDefault(p, PlaceId(6)),
                      t.game->BetWorkingDefault(p, bet::kField));
  };
  const auto bo = values(2);

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

  // "+" -> "-" -> "x" is operator 2.
  const auto changed = std::tuple(true, 0, int{kLoseAdjust}, 1, 2, Currency::FromWhole(1),
                                  Currency::FromRaw(75000), Currency::FromWhole(40), 1, 1);
  QVERIFY(values(1) == changed);
  QVERIFY(values(3) == changed);
  QVERIFY(values(2) == bo);

  // A double click turns the row over.
  QListWidgetItem* row = WorkingRow(form, bet::kField);
  auto* list = FormChild<QListWidget>(form, "lstWorkOnComeOut");
  list->scrollToItem(row);
  const QPoint at = list->visualItemRect(row).center();
  // The view takes a double click after the press that picks the row.
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
  QCOMPARE(t.game->BetWorkingDefault(3, bet::kField), 0);
}

void AutomationTest::theKeyAndTheMenuOpenTheForm() {
  DesktopTable t(1);
  QAction* item = t.window->findChild<QAction*>("mnuAutoPlay");
  QTest::keyClick(t.View(), Qt::Key_F3);
  AutoPlayForm* form = t.window->findChild<AutoPlayForm*>("frmAutoPlay");
  QVERIFY(form && form->isVisible());
  // A player alone at the table is the selection.
  QCOMPARE(FormChild<QLabel>(*form, "lblSettingsFor")->text(), QString("Settings for\nAnn"));
  form->close();
  item->trigger();
  QVERIFY(form->isVisible());
}

void AutomationTest::aRowIsPlacedByAClickAndWrittenOnLeaving() {
  DesktopTable t(1);
  std::filesystem::remove(HotKeysPath(*t.game));
  HotKeysForm form(*t.game);
  form.show();
  QTableWidget* list = form.List();

  // No file: the message, and nothing armed.
  AddRow(form, 5, "", "nothing");
  QCOMPARE(t.shown.back().second,
           std::string("Please enter an Auto-Bet filename to define this Hot-Key."));
  QVERIFY(!form.Placing());

  AddRow(form, 5, "field.bet", "Field once");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, list->viewport()->height() - 4));
  QVERIFY(!form.Placing());
  AddRow(form, 15, "pass.bet", "Pass");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 0));  // goes first
  const auto& rows = t.game->scriptSource.HotKeyTable;
  QCOMPARE(rows.at(0).key, 'P');
  QCOMPARE(rows[1].file, std::string("field.bet"));
  QCOMPARE(list->item(1, 0)->text(), QString("Ctrl F"));

  // A double click brings a row back to the entry controls.
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 0));
  QCOMPARE(FormChild<QLineEdit>(form, "txtAutoBetFile")->text(), QString("pass.bet"));
  // Cut takes the selected row to the clipboard; Paste puts it back above the current one.
  list->setFocus();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 1));
  form.findChild<QAction*>("mnuCut")->trigger();
  QCOMPARE(QApplication::clipboard()->text(), QString("Ctrl F   field.bet   Field once\r\n"));
  QCOMPARE(rows.size(), std::size_t{1});
  list->setCurrentCell(0, 0);
  form.findChild<QAction*>("mnuPaste")->trigger();
  QCOMPARE(rows.front().key, 'F');

  form.accept();
  std::vector<HotKeyRow> read;
  std::ifstream in(HotKeysPath(*t.game), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::string error;
  QVERIFY(ReadHotKeyFileBytes(bytes, read, error));
  QCOMPARE(read.at(0).description, std::string("Field once"));
}

void AutomationTest::ctrlAndTheLetterRunTheScriptOnTheTable() {
  DesktopTable t(2);
  t.game->betting.CurPlayer = 2;
  const std::string path = (std::filesystem::temp_directory_path() / "ravelton-hotkey.bet").string();
  std::ofstream(path) << "bet 5 on field\n";
  t.game->scriptSource.HotKeyTable = {{'F', path, "", false}};

  QTest::keyClick(t.View(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(t.View(), Qt::Key_F, Qt::ControlModifier | Qt::AltModifier);
  QCOMPARE(t.game->Bet(2, bet::kField), Currency());
  QTest::keyClick(t.View(), Qt::Key_F, Qt::ControlModifier);
  QCOMPARE(t.game->Bet(2, bet::kField), Currency::FromWhole(5));
  QCOMPARE(t.game->Bet(1, bet::kField), Currency());
  std::filesystem::remove(path);
}

QTEST_MAIN(AutomationTest)
#include "automation_qtest.moc"
