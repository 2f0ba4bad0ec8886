// The game keeps its windows' places: a form moved and resized writes its
// place and its open flag into the game's window layout, a form shown in a
// game that holds a place opens there, and a place off the screen is
// pulled back onto it.
#include <QScreen>

#include "desktop_fixture.h"
#include "table/check_stacks_form.h"

class WindowPlacesTest : public QObject {
  Q_OBJECT
 private slots:
  void aFormWritesItsPlaceAndOpensThere();
  void aPlaceOffTheScreenIsPulledBack();
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

QTEST_MAIN(WindowPlacesTest)
#include "window_places_qtest.moc"
