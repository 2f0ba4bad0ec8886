// The game keeps its windows' places: a form moved and resized writes its
// place and its open flag into the game's window layout, a form shown in a
// game that holds a place opens there, and a place off the screen is
// pulled back onto it.
#include <QCoreApplication>
#include <QDir>
#include <QScreen>
#include <QTimer>
#include <functional>

#include "desktop_fixture.h"
#include "table/auto_bet_form.h"
#include "table/check_stacks_form.h"
#include "table/dice_files_form.h"
#include "table/events_log_form.h"
#include "table/roll_pad_form.h"
#include "table/sessions_log_form.h"
#include "table/summary_form.h"
#include "store/game_file.h"

class WindowPlacesTest : public QObject {
  Q_OBJECT
 private slots:
  void aFormWritesItsPlaceAndOpensThere();
  void aPlaceOffTheScreenIsPulledBack();
  void theToolWindowsKeepTheirSlots();
  void anOpenedGameOpensAndClosesItsWindows();
};

namespace {
// Singles of record 3 that hold frmCheckStacks: shown, Top, Left, Height, Width.
constexpr int kStacksShown = 40, kStacksTop = 41, kStacksLeft = 42, kStacksHeight = 43,
              kStacksWidth = 44;
}  // namespace

void WindowPlacesTest::aFormWritesItsPlaceAndOpensThere() {
  DesktopTable t(1);
  CheckStacksForm* form = t.window->CheckStacks();
  form->show();
  form->resize(520, 410);
  form->move(140, 90);
  QApplication::processEvents();
  const auto& layout = t.game->gamefile.LayoutB;
  QCOMPARE(layout[kStacksShown], 1.0f);
  QCOMPARE(layout[kStacksTop], 90.0f);
  QCOMPARE(layout[kStacksLeft], 140.0f);
  QCOMPARE(layout[kStacksHeight], 410.0f);
  QCOMPARE(layout[kStacksWidth], 520.0f);
  form->hide();
  QCOMPARE(layout[kStacksShown], 0.0f);
  QCOMPARE(layout[kStacksLeft], 140.0f);  // the place stays for the next opening

  DesktopTable other(1);
  other.game->gamefile.LayoutB = layout;  // as a saved game brings it
  CheckStacksForm* again = other.window->CheckStacks();
  again->show();
  QApplication::processEvents();
  QCOMPARE(again->pos(), QPoint(140, 90));
  QCOMPARE(again->size(), QSize(520, 410));
}

void WindowPlacesTest::aPlaceOffTheScreenIsPulledBack() {
  DesktopTable t(1);
  auto& layout = t.game->gamefile.LayoutB;
  layout[kStacksTop] = 40000;
  layout[kStacksLeft] = 40000;
  layout[kStacksHeight] = 400;
  layout[kStacksWidth] = 500;
  CheckStacksForm* form = t.window->CheckStacks();
  form->show();
  QApplication::processEvents();
  QVERIFY(form->screen()->availableGeometry().contains(form->pos()));
}

namespace {

// A tool window's slot in the layout and how the main window opens it; the
// check runs while the window is open (inside the dialog's loop for a modal one).
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

}  // namespace

void WindowPlacesTest::theToolWindowsKeepTheirSlots() {
  auto open = [](auto make) {
    return [make](DesktopTable& t, const std::function<void(QWidget&)>& check) {
      QWidget* form = make(*t.window);
      form->show();
      QApplication::processEvents();
      check(*form);
      form->close();
    };
  };
  const ToolSlot tools[] = {
      {"frmDiceRollFiles", true, 5, true,
       open([](CrapTableWindow& w) -> QWidget* { return w.DiceFiles(); })},
      {"frmAutoBet", true, 15, true,
       open([](CrapTableWindow& w) -> QWidget* { return w.AutoBet(); })},
      {"frmRYON", true, 20, true, open([](CrapTableWindow& w) -> QWidget* { return w.RollPad(); })},
      {"frmGames", false, 0, false,
       open([](CrapTableWindow& w) -> QWidget* { return w.SessionsLog(); })},
      {"frmEventsLog", false, 5, true,
       open([](CrapTableWindow& w) -> QWidget* { return w.EventsLog(); })},
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

// A game saved with Check Stacks and the Summary open and the Events Log
// closed brings them back so when opened, whatever is open at the time.
void WindowPlacesTest::anOpenedGameOpensAndClosesItsWindows() {
  DesktopTable t(1);
  CheckStacksForm* stacks = t.window->CheckStacks();
  stacks->show();
  stacks->move(140, 90);
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
}

QTEST_MAIN(WindowPlacesTest)
#include "window_places_qtest.moc"
