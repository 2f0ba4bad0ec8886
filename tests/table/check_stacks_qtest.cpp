// frmCheckStacks under the offscreen platform: the grid shows the game's
// stacks by the display rule, typing in a cell reaches the game at once,
// the clipboard items and Delete All work on the game, the rail's four
// stacks are chosen or refused, and the stacks print to a real printer (a
// PDF file here) in pages that each carry their own lines; a printout that
// fixes its lines per page gets that many a sheet, and a picture lands
// scaled in its place.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTableWidget>
#include <QTest>

#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "table/check_stacks_form.h"
#include "table/print_pages.h"
#include "tests/support/temp_folder.h"

class CheckStacksTest : public QObject {
  Q_OBJECT
  TempFolder folder_;

 private slots:
  void gridShowsStacksByTheDisplayRule();
  void typingTheClipboardAndDeleteAllWorkOnTheGame();
  void visibleStacksMustDifferAndPrint();
  void printoutsBreakIntoPagesAndPlacePictures();
};

namespace {
constexpr int kValue = 1, kName = 2;
Currency& Stack(Game& g, int p, int n) { return g.Bet(p, bet::kCheckStackFirst + n); }
CheckStacksForm* Open(DesktopTable& t) {
  CheckStacksForm* form = t.window->CheckStacks();
  form->Refresh();
  form->show();
  return form;
}
QString Cell(CheckStacksForm* form, int row, int column) {
  return form->Grid()->item(row, column)->text();
}
// The cell's open edit box (the one of a cell just left is deleted first).
QLineEdit* Editor(QTableWidget* grid) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  auto* box = grid->findChild<QLineEdit*>("txtCheckStack");
  if (box == nullptr) qFatal("no open cell");
  return box;
}
void Trigger(CheckStacksForm* form, const char* name) {
  QAction* a = form->findChild<QAction*>(name);
  if (a == nullptr) qFatal("no menu item %s", name);
  a->trigger();
}
// Non-white pixels of page `index` painted on a white image.
int InkOn(const PrintPages& pages, int index, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  pages.Paint(painter, index);
  painter.end();
  int ink = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) ink += image.pixel(x, y) != qRgb(255, 255, 255);
  return ink;
}

}  // namespace

void CheckStacksTest::gridShowsStacksByTheDisplayRule() {
  DesktopTable t(2);
  Game& g = *t.game;
  Stack(g, 2, 0) = Currency::FromWhole(1200);
  Stack(g, 2, 3) = Currency::FromWhole(-40);
  g.CheckStackName(2, 7) = "Budget";  // named, value 0
  g.betting.CheckStacksPlayer = 2;
  CheckStacksForm* form = Open(t);
  QCOMPARE(Cell(form, 0, kValue), QString("1,200"));
  QCOMPARE(form->Grid()->item(0, kValue)->foreground().color(), QColor(0, 0, 255));
  QCOMPARE(form->Grid()->item(3, kValue)->foreground().color(), QColor(255, 0, 0));
  QCOMPARE(Cell(form, 7, kValue), QString("0"));  // a named stack shows its 0
  QCOMPARE(Cell(form, 7, kName), QString("Budget"));
  QCOMPARE(Cell(form, 8, kValue), QString());  // neither named nor valued
  Trigger(form, "mnuDisplayZero");
  QCOMPARE(Cell(form, 8, kValue), QString("0"));
  // Another player's stacks.
  auto* player = form->findChild<QComboBox*>("cmbPlayer");
  player->setCurrentIndex(player->findData(1));
  QCOMPARE(Cell(form, 7, kName), QString());
}

// Typing in a cell reaches the game at once; the clipboard items and Delete
// All work on the game too.
void CheckStacksTest::typingTheClipboardAndDeleteAllWorkOnTheGame() {
  DesktopTable t(1);
  Game& g = *t.game;
  CheckStacksForm* form = Open(t);
  QTableWidget* grid = form->Grid();
  grid->setCurrentCell(5, kValue);  // a cell opens as it becomes current
  QLineEdit* box = Editor(grid);
  QTest::keyClicks(box, "-12.3456x7");  // the filter drops the letter and a fifth decimal
  QCOMPARE(Stack(g, 1, 5), Currency::FromRaw(-123456));
  // A refresh from the table leaves the open cell alone.
  form->Refresh();
  QCOMPARE(box->text(), QString("-12.3456"));
  grid->setCurrentCell(5, kName);
  box = Editor(grid);
  box->clear();
  QTest::keyClicks(box, "Odds pot");
  QCOMPARE(g.CheckStackName(1, 5), std::string("Odds pot"));
  // The arrow keys and Page Down move the edit box, within rows 0 to 99.
  QTest::keyClick(box, Qt::Key_Down);
  QCOMPARE(grid->currentRow(), 6);
  for (int i = 0; i < 12; ++i) QTest::keyClick(Editor(grid), Qt::Key_PageDown);
  QCOMPARE(grid->currentRow(), 99);

  Stack(g, 1, 2) = Currency::FromRaw(255000);  // 25.5
  g.CheckStackName(1, 2) = "Pressed";
  form = Open(t);
  grid->setCurrentCell(2, kValue);
  Trigger(form, "mnuCut");
  QCOMPARE(QApplication::clipboard()->text(), QString("25.5"));
  QVERIFY(Stack(g, 1, 2).IsZero());
  QCOMPARE(Cell(form, 2, kValue), QString("0"));  // still named, so shown
  grid->setCurrentCell(9, kValue);
  Trigger(form, "mnuPaste");
  QCOMPARE(Stack(g, 1, 9), Currency::FromRaw(255000));
  // Delete All Values asks first, and keeps the names.
  Stack(g, 1, 0) = Currency::FromWhole(5);
  g.CheckStackName(1, 0) = "Keep";
  t.AnswerMessage(1);  // Yes
  Trigger(form, "mnuDeleteAllValues");
  QCOMPARE(t.shown.back().second,
           std::string("Are you sure you want to delete all the CheckStack values for Ann?"));
  QVERIFY(Stack(g, 1, 9).IsZero());
  QCOMPARE(Cell(form, 0, kValue), QString("0"));  // the name stays
}

// Opened from its menu item on the bettor's stacks; the rail's four stacks
// are chosen, and must differ; the stacks print.
void CheckStacksTest::visibleStacksMustDifferAndPrint() {
  DesktopTable t(1);
  Game& g = *t.game;
  t.window->findChild<QAction*>("mnuCheckStacks")->trigger();
  CheckStacksForm* form = t.window->CheckStacks();
  QCOMPARE(g.betting.CheckStacksPlayer, 1);
  Trigger(form, "mnuSetStacks");
  const char* numbers[4] = {"7", "12", "7", "40"};
  for (int i = 0; i < 4; ++i) {
    auto* box = form->findChild<QLineEdit*>(QString("txtStackNum%1").arg(i));
    box->clear();
    QTest::keyClicks(box, numbers[i]);
  }
  QTest::mouseClick(form->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  QCOMPARE(t.shown.back().second,
           std::string("Each CheckStack entry should be a different number."));
  QCOMPARE(g.betting.CheckStackSlot(1, 3), 103);
  auto* third = form->findChild<QLineEdit*>("txtStackNum2");
  third->clear();
  QTest::keyClicks(third, "99");
  QTest::mouseClick(form->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  QCOMPARE(g.betting.CheckStackSlot(1, 1), 107);
  QCOMPARE(g.betting.CheckStackSlot(1, 3), 199);
  QVERIFY(!form->findChild<QFrame*>("picSetStacks")->isVisible());

  // File > Print goes to the printer.
  Stack(g, 1, 4) = Currency::FromWhole(75);
  const QString pdf = QString::fromStdString(folder_ / "stacks.pdf");
  t.platform.printToFile = pdf;
  t.shown.clear();
  t.AnswerMessage(0);  // the range as offered: 0 to 99
  Trigger(form, "mnuPrint");
  QCOMPARE(t.shown.at(0).first, std::string("Print Range"));
  QCOMPARE(t.platform.documentsPrinted, 1);
  QFile file(pdf);
  QVERIFY(file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-" && file.size() > 1000);
}

void CheckStacksTest::printoutsBreakIntoPagesAndPlacePictures() {
  PrintDocument doc;
  for (int i = 0; i < 300; ++i) doc.AddText("line " + std::to_string(i));
  const QSize size(600, 800);
  const PrintPages pages(doc, QRect(QPoint(0, 0), size), 96);
  QVERIFY(pages.PageCount() >= 3);
  for (int i = 0; i < pages.PageCount(); ++i) QVERIFY(InkOn(pages, i, size) > 0);
  QCOMPARE(InkOn(pages, pages.PageCount(), size), 0);  // no page beyond the last
  const QRect sheet(QPoint(0, 0), size);
  QCOMPARE(PrintPages(PrintDocument{}, sheet, 96).PageCount(), 1);

  // 80 lines to a page on a sheet that holds about 40 at the usual size:
  // the font shrinks, and the pages are exactly the lines over 80.
  doc = PrintDocument{};
  doc.linesPerPage = 80;
  for (int i = 0; i < 240; ++i) doc.AddText("row " + std::to_string(i));
  QCOMPARE(PrintPages(doc, sheet, 96).PageCount(), 3);
  doc.AddText("row 240");
  const PrintPages four(doc, sheet, 96);
  QCOMPARE(four.PageCount(), 4);
  QVERIFY(InkOn(four, 3, size) > 0);

  // A picture 100 x 50 with its right half red, in 10 line heights under a
  // line of text: it keeps its shape, centred, so the red lies right of
  // the sheet's middle.
  PrintDocument pic;
  PrintGraph graph;
  graph.width = 100;
  graph.height = 50;
  graph.lines = 10;
  graph.rects.push_back({50, 0, 50, 50, 12});
  pic.AddText("above");
  pic.AddGraph(graph);
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PrintPages(pic, sheet, 96).Paint(painter, 0);
  painter.end();
  int red = 0, leftmost = size.width(), lowest = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) == qRgb(255, 0, 0)) {
        ++red;
        leftmost = std::min(leftmost, x);
        lowest = std::max(lowest, y);
      }
  QVERIFY(red > 1000);
  QVERIFY(leftmost >= size.width() / 2 - 1);
  QVERIFY(lowest < size.height() / 2);  // 10 lines, not the page
}

QTEST_MAIN(CheckStacksTest)
#include "check_stacks_qtest.moc"
