// The tool windows under the offscreen platform. Each keeps its place in
// the game's window layout (moved and resized, it writes its place and open
// flag; shown in a game that holds a place, it opens there; a place off the
// screen is pulled back; an opened game opens and closes them as it had
// them). frmRYON: a click on a drawn cell rolls those dice, single faces
// wait for both dice, the right button opens the display menu, and a click
// during Hyper-Drive asks instead. frmEventsLog: an opened log shows its
// lines, Find moves the top line, a roll brings its line to the top, the
// switches reach the game, and a log longer than the scroll bar's range
// still scrolls to its last line.
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <fstream>
#include <functional>

#include "config/settings_state.h"
#include "core/catalogue.h"
#include "core/data_folder.h"
#include "core/frames.h"
#include "desktop_fixture.h"
#include "dice/roll_pad.h"
#include "store/game_file.h"
#include "table/auto_bet_form.h"
#include "table/check_stacks_form.h"
#include "table/dice_files_form.h"
#include "table/events_log_form.h"
#include "table/roll_pad_form.h"
#include "table/sessions_log_form.h"
#include "table/stats_form.h"
#include "table/stats_views.h"
#include "table/summary_form.h"
#include "table/table_view.h"

class ToolWindowsTest : public QObject {
  Q_OBJECT
 private slots:
  void theWindowsKeepTheirPlaces();
  void anOpenedGameOpensAndClosesItsWindows();
  void aClickOnABoxCellRollsThoseDice();
  void facesWaitForBothDice();
  void hyperDriveAndTheRightButtonRollNothing();
  void anOpenedLogShowsItsLinesAndFindMovesTheTop();
  void aLogLongerThanTheBarScrollsToItsLastLine();
};

namespace {

// A window's slot in the layout and how the main window opens it; the check
// runs while the window is open (inside the dialog's loop for a modal one).
struct ToolSlot {
  const char* name;
  bool recordTwo;
  int first;  // the shown flag; Top, Left, Height, Width follow
  bool sized;
  std::function<void(DesktopTable&, const std::function<void(QWidget&)>&)> open;
};

void HotKeysShown(DesktopTable& t, const std::function<void(QWidget&)>& check) {
  QTimer::singleShot(0, [&] {
    QWidget* form = QApplication::activeModalWidget();
    if (form == nullptr || form->objectName() != "frmHotKeys") qFatal("Hot-Keys did not open");
    check(*form);
    form->close();
  });
  t.window->findChild<QAction*>("mnuHotKeys")->trigger();
}

template <typename Make>
auto OpenedBy(Make make) {
  return [make](DesktopTable& t, const std::function<void(QWidget&)>& check) {
    QWidget* form = make(*t.window);
    form->show();
    QApplication::processEvents();
    check(*form);
    form->close();
  };
}

long Rolls(DesktopTable& t) { return t.game->RollTally(kTableSession, kEventRolls); }

RollPadForm& OpenPad(DesktopTable& t, std::int32_t options, QSize size) {
  t.game->pad.PadOptions = options;
  t.game->rules.BetRequirement = kNoBetRequired;
  QTest::keyClick(t.View(), Qt::Key_F12);
  RollPadForm* form = t.window->RollPad();
  if (!form->isVisible()) qFatal("F12 did not open the pad");
  form->hide();  // and so does its menu item
  t.window->findChild<QAction*>("mnuRollYourOwnNumbers")->trigger();
  if (!form->isVisible()) qFatal("Roll your own numbers did not open the pad");
  form->resize(size);
  QApplication::processEvents();
  return *form;
}

// The centre of cell (r, c) of a rows x columns pad below a strip `top` high.
QPoint Centre(PadWidget* pad, int rows, int columns, int r, int c, int top) {
  const double cw = double(pad->width()) / columns, ch = double(pad->height() - top) / rows;
  return QPoint(static_cast<int>(cw * (c - 0.5)), top + static_cast<int>(ch * (r - 0.5)));
}

struct EventsLogTable : DesktopTable {
  QTemporaryDir dir;
  std::string path;
  EventsLogForm* form = nullptr;

  EventsLogTable() : DesktopTable(1) {
    game->roll.DataFolder = dir.path().toStdString() + "/";
    game->eventsLog.IndexPath = game->roll.DataFolder + "Events Log.ref";
    game->roll.EventsLogPath = game->roll.DataFolder + "Events Log.txt";
    game->rules.BetRequirement = kNoBetRequired;
    path = dir.filePath("mine.txt").toStdString();
    platform.onChooseFile = [this](const FileChooserRequest&) -> std::optional<std::string> { return path; };
    window->findChild<QAction*>("mnuEventsLog")->trigger();
    form = window->EventsLog();
    if (!form->isVisible()) qFatal("the menu did not open the events log");
  }
  void WriteLog(int lines) {
    std::ofstream out(path, std::ios::binary);
    for (int n = 1; n <= lines; ++n) out << " Roll #" << n << ":  7 (3.4) from RNG #1\r\n";
  }
  void Trigger(const char* name) { FormChild<QAction>(*form, name)->trigger(); }
  QScrollBar* Bar() { return FormChild<QScrollBar>(*form, "vscrEventsLog"); }
};

}  // namespace

void ToolWindowsTest::theWindowsKeepTheirPlaces() {
  using W = CrapTableWindow;
  const ToolSlot tools[] = {
      {"frmDiceRollFiles", true, 5, true, OpenedBy([](W& w) -> QWidget* { return w.DiceFiles(); })},
      {"frmAutoBet", true, 15, true, OpenedBy([](W& w) -> QWidget* { return w.AutoBet(); })},
      {"frmRYON", true, 20, true, OpenedBy([](W& w) -> QWidget* { return w.RollPad(); })},
      {"frmGames", false, 0, false, OpenedBy([](W& w) -> QWidget* { return w.SessionsLog(); })},
      {"frmEventsLog", false, 5, true, OpenedBy([](W& w) -> QWidget* { return w.EventsLog(); })},
      {"frmRollTotals", false, 20, true,
       OpenedBy([](W& w) -> QWidget* { return w.Views().Open(StatsView::RollTotals); })},
      {"frmCheckStacks", false, 40, true, OpenedBy([](W& w) -> QWidget* { return w.CheckStacks(); })},
      {"frmHands", false, 45, false,
       OpenedBy([](W& w) -> QWidget* { return w.Views().Open(StatsView::Hands); })},
      {"frmHotKeys", false, 50, false, HotKeysShown},
  };
  const QPoint place(120, 70);
  for (const ToolSlot& slot : tools) {
    QSize size(600, 460);
    const QByteArray why = QByteArray(slot.name) + " keeps its place";
    DesktopTable t(1);
    const auto& v = slot.recordTwo ? t.game->gamefile.LayoutA : t.game->gamefile.LayoutB;
    const auto at = [&](int k) { return v[static_cast<std::size_t>(slot.first + k)]; };
    slot.open(t, [&](QWidget& form) {
      // Not below what the form's controls need.
      size = size.expandedTo(form.minimumSizeHint());
      if (slot.sized) form.resize(size);
      form.move(place);
      QApplication::processEvents();
      QVERIFY2(at(0) == 1.0f, why.constData());
      QVERIFY2(at(1) == 70.0f && at(2) == 120.0f, why.constData());
      if (slot.sized)
        QVERIFY2(at(3) == float(size.height()) && at(4) == float(size.width()), why.constData());
    });
    QVERIFY2(at(0) == 0.0f, why.constData());  // closed; the place stays for the reopening

    DesktopTable other(1);
    other.game->gamefile.LayoutA = t.game->gamefile.LayoutA;  // as a saved game brings them
    other.game->gamefile.LayoutB = t.game->gamefile.LayoutB;
    slot.open(other, [&](QWidget& again) {
      QVERIFY2(again.pos() == place, why.constData());
      if (slot.sized) QVERIFY2(again.size() == size, why.constData());
    });
  }
}

void ToolWindowsTest::aClickOnABoxCellRollsThoseDice() {
  DesktopTable t(1);
  const std::int32_t box = 1 << static_cast<int>(PadKind::BoxCombos);
  RollPadForm& form = OpenPad(t, box | kPadRollCounter, QSize(330, 330));
  const long before = Rolls(t);
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, Centre(form.Pad(), 6, 6, 3, 5, kPadCounterHeight));
  QCOMPARE(Rolls(t), before + 1);
  QCOMPARE(t.game->Die1, 3);
  QCOMPARE(t.game->Die2, 5);
  // The counter strip above the cells rolls nothing.
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, QPoint(40, kPadCounterHeight / 2));
  QCOMPARE(Rolls(t), before + 1);
}

void ToolWindowsTest::facesWaitForBothDice() {
  DesktopTable t(1);
  // A wide pad: the faces in two rows, die 1 above die 2.
  RollPadForm& form = OpenPad(t, 1 << static_cast<int>(PadKind::DiceFaces), QSize(480, 200));
  PadWidget* pad = form.Pad();
  const long before = Rolls(t);
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 1, 2, 0));
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 1, 5, 0));
  QCOMPARE(Rolls(t), before);
  QTest::mouseClick(pad, Qt::LeftButton, {}, Centre(pad, 2, 6, 2, 6, 0));
  QCOMPARE(Rolls(t), before + 1);
  QCOMPARE(t.game->Die1, 5);
  QCOMPARE(t.game->Die2, 6);
}

// A click during Hyper-Drive asks to stop it instead of rolling; the right
// button opens the display menu, whose choices reach the game.
void ToolWindowsTest::hyperDriveAndTheRightButtonRollNothing() {
  DesktopTable t(1);
  RollPadForm& form = OpenPad(t, 1 << static_cast<int>(PadKind::BoxCombos), QSize(330, 330));
  t.game->HyperDrive = true;
  t.game->KeepRolling = true;
  const long before = Rolls(t);
  t.AnswerMessage(1);  // Yes
  QTest::mouseClick(form.Pad(), Qt::LeftButton, {}, Centre(form.Pad(), 6, 6, 2, 2, 0));
  QCOMPARE(t.shown.at(0).second, std::string("Do you want to stop Hyper-Drive?"));
  QVERIFY(!t.game->KeepRolling);
  QCOMPARE(Rolls(t), before);
  t.game->HyperDrive = false;

  t.game->roll.SessionDirty = false;
  QTest::mouseClick(form.Pad(), Qt::RightButton, {}, Centre(form.Pad(), 6, 6, 1, 1, 0));
  QVERIFY(form.DisplayMenu()->isVisible());
  QCOMPARE(Rolls(t), before);
  form.DisplayMenu()->close();

  QAction* basic = nullptr;
  for (QAction* a : form.DisplayMenu()->findChildren<QAction*>("mnuDisplayRYON"))
    if (a->text() == "&11 Basic Numbers") basic = a;
  QVERIFY(basic);
  basic->trigger();
  QCOMPARE(PadKindOf(t.game->pad.PadOptions), PadKind::BasicNumbers);
  // Changed options mark the session unsaved when the pad closes.
  form.close();
  QVERIFY(t.game->roll.SessionDirty);
}

void ToolWindowsTest::anOpenedLogShowsItsLinesAndFindMovesTheTop() {
  EventsLogTable t;
  t.WriteLog(50);
  t.Trigger("mnuOpen");
  QCOMPARE(t.Bar()->maximum(), 50);
  t.Bar()->setValue(10);
  QCOMPARE(t.game->eventsLog.LogTopLine, 10);

  t.AnswerMessage(0, "ROLL #37:");
  t.Trigger("mnuFind");
  QCOMPARE(t.Bar()->value(), 37);
  t.AnswerMessage(0, "seven-out");
  t.Trigger("mnuFind");
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Search Results"), std::string("Text not found.")));
  QCOMPARE(t.game->eventsLog.LogTopLine, 37);

  // The font size is the game's, which the file keeps: a view opened later
  // over the same game takes it, held to the steps offered.
  QAction* larger = nullptr;
  for (QAction* a : t.form->findChildren<QAction*>())
    if (a->text() == "&Larger") larger = a;
  QVERIFY(larger);
  for (int i = 0; i < 6; ++i) larger->trigger();
  QCOMPARE(t.game->gamefile.LogFontSize, 4);
  QCOMPARE(EventsLogView(*t.game).font().pointSize(), t.form->View()->font().pointSize());

  // File > Print sends the opened log to the printer.
  t.platform.printToFile = t.dir.filePath("log.pdf");
  t.Trigger("mnuPrint");
  QCOMPARE(t.platform.documentsPrinted, 1);
  QVERIFY(QFileInfo(t.platform.printToFile).size() > 0);

  // The switches reach the game; with "Scroll New Rolls To Top" a roll brings
  // its line to the top of the open view.
  const RollState& r = t.game->roll;
  t.game->roll.SessionDirty = false;
  t.Trigger("mnuDeselectAllEvents");
  QVERIFY(!r.LogRolls && !r.LogBets && !r.LogBankroll);
  QVERIFY(r.SessionDirty);
  t.Trigger("mnuRecordRolls");
  t.Trigger("mnuRecordEventsActive");
  t.Trigger("mnuKeepLatestRollOnTop");
  QVERIFY(r.LogOn && r.LogRolls && r.LogRollOnTop);
  QTest::keyClick(t.View(), Qt::Key_F2);
  QApplication::processEvents();
  // The new roll line follows the fifty written: its number is the top line.
  QVERIFY(t.game->eventsLog.LogTopLine > 50);
  QCOMPARE(t.Bar()->value(), t.game->eventsLog.LogTopLine);
  std::ifstream in(t.path);
  std::string line;
  for (int n = 0; n < t.game->eventsLog.LogTopLine; ++n) std::getline(in, line);
  QVERIFY(line.starts_with(" Roll #1:"));
}

void ToolWindowsTest::aLogLongerThanTheBarScrollsToItsLastLine() {
  EventsLogTable t;
  t.WriteLog(30001);
  t.Trigger("mnuOpen");
  QCOMPARE(t.Bar()->maximum(), 30000);
  t.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
  t.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
  QCOMPARE(t.game->eventsLog.LogTopLine, 30001);
  QCOMPARE(t.Bar()->value(), 30000);
}

// A game saved with Check Stacks and the Summary open and the Events Log
// closed brings them back so when opened, whatever is open at the time.
void ToolWindowsTest::anOpenedGameOpensAndClosesItsWindows() {
  DesktopTable t(1);
  // A place off the screen is pulled back.
  auto& layout = t.game->gamefile.LayoutB;
  layout[41] = layout[42] = 40000;  // frmCheckStacks: Top, Left, Height, Width
  layout[43] = 400;
  layout[44] = 500;
  CheckStacksForm* stacks = t.window->CheckStacks();
  stacks->show();
  QApplication::processEvents();
  QVERIFY(stacks->screen()->availableGeometry().contains(stacks->pos()));
  stacks->move(140, 90);
  t.game->betting.KeyInBetAmounts = true, t.game->betting.CurPlayer = 1;
  t.game->gamefile.EnterBetId = bet::kField;
  t.window->findChild<QAction*>("mnuSummary")->trigger();
  QApplication::processEvents();
  const std::string path =
      QDir::temp()
          .filePath(QString("ravelton-places-%1.rvg").arg(QCoreApplication::applicationPid()))
          .toStdString();
  QVERIFY(SaveGame(*t.game, path));

  stacks->hide();
  stacks->move(300, 200);
  t.window->findChild<SummaryForm*>()->hide();
  EventsLogForm* log = t.window->EventsLog();
  log->show();
  QApplication::processEvents();
  t.platform.onChooseFile = [&](const FileChooserRequest&) { return std::optional(path); };
  t.window->findChild<QAction*>("mnuOpen")->trigger();
  QApplication::processEvents();
  std::remove(path.c_str());

  QVERIFY(stacks->isVisible());
  QCOMPARE(stacks->pos(), QPoint(140, 90));
  QVERIFY(t.window->findChild<SummaryForm*>()->isVisible());
  QVERIFY(!log->isVisible());
  // With key-in amounts on, the amount box stands again over its bet.
  QVERIFY(t.window->View()->EnterBetBox() && !t.window->View()->EnterBetBox()->isHidden());
  QCOMPARE(t.game->gamefile.EnterBetId, int(bet::kField));

  // The opened game heads Game > Recent Games; its file gone, the entry is
  // told and leaves the menu.
  QMenu* gameMenu = t.window->menuBar()->actions().at(0)->menu();
  auto recentGames = [&] {
    emit gameMenu->aboutToShow();
    return t.window->findChild<QMenu*>("mnuRecentGames")->actions();
  };
  const QString name = QString::fromStdString(std::string(FileNameOf(path)));
  QList<QAction*> entries = recentGames();
  QVERIFY(!entries.empty());
  QCOMPARE(entries.front()->text(), "&1 " + name + "  (" + QDir::tempPath() + ")");
  entries.front()->trigger();
  QApplication::processEvents();
  QCOMPARE(t.shown.back().first, std::string("Game File Not Found"));
  for (QAction* entry : recentGames()) QVERIFY(!entry->text().contains(name));

  // Game > Sample Games lists the games of the share folder's examples/ and
  // opens one as a new untitled game, which Save will ask a name for.
  t.game->roll.AppPath = RAVELTON_SOURCE_DIR "/";
  t.game->roll.SessionDirty = false;
  emit gameMenu->aboutToShow();
  const QList<QAction*> samples = t.window->findChild<QMenu*>("mnuSampleGames")->actions();
  QVERIFY(samples.size() >= 3);
  QCOMPARE(samples.front()->text(), QString("Pass line full odds"));
  samples.front()->trigger();
  QCOMPARE(t.game->PlayerName[1], std::string("Alice"));
  QVERIFY(t.game->gamefile.GameFilePath.empty());
  QCOMPARE(t.window->windowTitle(), QString("Ravelton"));
  for (QAction* entry : recentGames()) QVERIFY(!entry->text().contains("pass_line_full_odds"));
}

QTEST_MAIN(ToolWindowsTest)
#include "tool_windows_qtest.moc"
