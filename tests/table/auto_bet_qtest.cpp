// frmAutoBet under the offscreen platform: it shows the player's script from
// the game and every keystroke reaches the game; a change of player keeps
// each script; Check Script selects the error's span; the switch, the file
// commands, a picklist pick and the permissions reach the game.
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <filesystem>
#include <fstream>

#include "desktop_fixture.h"
#include "script/auto_bet_editor.h"
#include "table/auto_bet_form.h"
#include "table/auto_bet_text.h"
#include "table/permissions_form.h"
#include "table/find_replace_form.h"
#include "table/steps_form.h"
#include <QLabel>
#include <QTimer>
#include "core/catalogue.h"
#include "script/activation.h"

class AutoBetTest : public QObject {
  Q_OBJECT
 private slots:
  void showsTheScriptAndTypingReachesTheGame();
  void checkScriptSelectsTheErrorsSpan();
  void theSwitchAndTheFileCommandsReachTheGame();
  void aPickIsInsertedAtTheCaret();
  void permissionsAreSetAtOnce();
  void aRunShowsEachStepAndWaitsForNext();
  void findAndReplaceWorkOnTheGamesText();
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

}  // namespace

void AutoBetTest::showsTheScriptAndTypingReachesTheGame() {
  DesktopTable t(2);
  ScriptSource& ss = t.game->scriptSource;
  ss.ScriptLines[1] = {"", "bet 5 on field"};
  ss.ScriptLines[2] = {"", "bet 10 on passline"};
  AutoBetForm& form = OpenEditor(t);
  QCOMPARE(Shown(form), QString("bet 5 on field"));
  QVERIFY(ss.EditorOpen);
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
  QCOMPARE(ss.EdCaretLine, 1);

  // Bo's script, then Ann's again as she left it.
  auto* player = FormChild<QComboBox>(form, "cmbPlayer");
  QCOMPARE(player->count(), 2);
  QTest::keyClick(player, Qt::Key_Down);
  QCOMPARE(ss.EdPlayer, 2);
  QCOMPARE(Shown(form), QString("bet 10 on passline"));
  QTest::keyClick(player, Qt::Key_Up);
  QCOMPARE(Shown(form), QString("bet 5 on field\nIf point = 0 Then bet 1 on big6 EndIf"));

  form.close();
  QVERIFY(!ss.EditorOpen);
}

void AutoBetTest::checkScriptSelectsTheErrorsSpan() {
  DesktopTable t(1);
  t.game->scriptSource.ScriptLines[1] = {"", "bet 5 on field", "  bet 5 on nowhere  ", "' end"};
  AutoBetForm& form = OpenEditor(t);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdCheckScript"), Qt::LeftButton);
  QVERIFY(!t.shown.empty());
  QVERIFY2(t.shown.back().first == "Auto-bet script error in line 2", t.shown.back().first.c_str());
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
  QCOMPARE(t.game->scriptSource.ScriptLines[1][2], std::string("   bet 5 on passline"));
}

void AutoBetTest::theSwitchAndTheFileCommandsReachTheGame() {
  DesktopTable t(1);
  AutoBetForm& form = OpenEditor(t);
  t.AnswerMessage(2);  // not now: no initializing cycle
  QTest::mouseClick(FormChild<QCheckBox>(form, "chkAutoBetsActive"), Qt::LeftButton);
  QVERIFY(t.game->roll.ScriptActive[1]);
  QVERIFY(t.game->roll.ScriptActive[0]);
  QVERIFY(FormChild<QCheckBox>(form, "chkAutoBetsActive")->isChecked());
  QCOMPARE(t.shown.back().first, std::string("Auto-Bet"));

  const std::string molly = std::string(RAVELTON_SOURCE_DIR) + "/examples/three_point_molly.bet";
  const std::string copy = (std::filesystem::temp_directory_path() / "ravelton-molly.bet").string();
  std::vector<std::string> names = {molly, copy};
  t.platform.onChooseFile = [&names](const FileChooserRequest&) -> std::optional<std::string> {
    if (names.empty()) return std::nullopt;
    std::string name = names.front();
    names.erase(names.begin());
    return name;
  };
  TriggerMenu(form, "mnuOpen");
  QVERIFY(Shown(form).startsWith("' Three-point Molly"));
  QCOMPARE(form.windowTitle(), QString("Auto-Bet (three_point_molly.bet)"));
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

void AutoBetTest::aPickIsInsertedAtTheCaret() {
  DesktopTable t(1);
  t.game->gamefile.EditorSyntaxLists = -1;
  AutoBetForm& form = OpenEditor(t);
  QTest::mouseClick(FormChild<QPushButton>(form, "cmdLogic"), Qt::LeftButton);
  QListWidget* list = form.PicklistView();
  QCOMPARE(list->objectName(), QString("listLogic"));
  QVERIFY(list->isVisible());
  // A separator can't be picked; "EndIf" can.
  const auto separator = list->findItems("─", Qt::MatchStartsWith);
  QVERIFY(!separator.isEmpty());
  QVERIFY(!(separator.front()->flags() & Qt::ItemIsEnabled));
  QListWidgetItem* endIf = list->findItems("EndIf", Qt::MatchExactly).front();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(endIf).center());
  QVERIFY(!list->isVisible());
  QCOMPARE(t.game->scriptSource.ScriptLines[1][1], std::string("EndIf "));
}

void AutoBetTest::permissionsAreSetAtOnce() {
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
  auto* reset = form.findChildren<QCheckBox*>("chkAllowReset")[0];
  QVERIFY(reset->isChecked());  // a new player's default
}

void AutoBetTest::aRunShowsEachStepAndWaitsForNext() {
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
  QCOMPARE(form.Steps()->windowTitle(), QString("Auto-Bet Steps (Ann)"));
  QCOMPARE(t.game->Bet(1, bet::kField), Currency::FromWhole(5));
  QCOMPARE(t.game->Bet(1, bet::kBig6), Currency::FromWhole(5));
}

void AutoBetTest::findAndReplaceWorkOnTheGamesText() {
  DesktopTable t(1);
  t.game->scriptSource.ScriptLines[1] = {"", "bet 5 on field", "bet 5 on Field"};
  AutoBetForm& form = OpenEditor(t);
  TriggerMenu(form, "mnuFind");
  FindReplaceForm* find = form.FindReplace();
  QVERIFY(find->isVisible());
  FormChild<QComboBox>(*find, "cmbFind")->setEditText("field");
  FormChild<QComboBox>(*find, "cmbReplace")->setEditText("big6");
  QTest::mouseClick(FormChild<QPushButton>(*find, "cmdFindNext"), Qt::LeftButton);
  QTextCursor c = form.Text()->textCursor();
  QCOMPARE(c.selectedText(), QString("field"));
  QCOMPARE(t.game->scriptSource.EdSelStartLine, 1);
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
  QVERIFY(t.game->scriptSource.ScriptDirty[1]);
}

QTEST_MAIN(AutoBetTest)
#include "auto_bet_qtest.moc"
