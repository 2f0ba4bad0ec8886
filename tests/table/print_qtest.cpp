// Printing under the offscreen platform: the CheckStacks form's Print and
// Configure's print command reach a real printer (a PDF file here), only
// the Payoffs and Advantage tabs offer printing, and long printouts break
// into pages that each carry their own lines, a document that fixes its
// lines per page gets exactly that many on a sheet, and a picture lands
// scaled in its place.
#include <QAction>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTabWidget>

#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "table/check_stacks_form.h"
#include "table/configure_form.h"
#include "table/print_pages.h"
#include "tests/support/temp_folder.h"

class PrintTest : public QObject {
  Q_OBJECT
  TempFolder folder_;

 private slots:
  void checkStacksPrintToThePrinter();
  void configurePrintsOnlyPayoffsAndAdvantage();
  void longPrintoutsBreakIntoPages();
  void fixedPagesAndPicturesLayOut();
};

namespace {

bool IsPdf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-" && file.size() > 1000;
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

void PrintTest::checkStacksPrintToThePrinter() {
  DesktopTable t(1);
  t.game->Bet(1, bet::kCheckStackFirst + 4) = Currency::FromWhole(75);
  const QString pdf = QString::fromStdString(folder_.Path() + "stacks.pdf");
  t.platform.printToFile = pdf;
  CheckStacksForm* form = t.window->CheckStacks();
  form->Refresh();
  form->show();
  t.AnswerMessage(0);  // the range as offered: 0 to 99
  form->findChild<QAction*>("mnuPrint")->trigger();
  QCOMPARE(t.shown.size(), std::size_t{1});
  QCOMPARE(t.shown[0].first, std::string("Print Range"));
  QCOMPARE(t.platform.documentsPrinted, 1);
  QVERIFY(IsPdf(pdf));
}

void PrintTest::configurePrintsOnlyPayoffsAndAdvantage() {
  DesktopTable t;
  const QString pdf = QString::fromStdString(folder_.Path() + "advantage.pdf");
  t.platform.printToFile = pdf;
  ConfigureForm* form = t.OpenConfigure();
  auto* print = FormChild<QPushButton>(*form, "mnuPrintAdvPay");
  form->Tabs()->setCurrentIndex(kTabBets);
  QVERIFY(!print->isEnabled());
  form->Tabs()->setCurrentIndex(kTabPayoffs);
  QVERIFY(print->isEnabled());
  form->Tabs()->setCurrentIndex(kTabAdvantage);
  QVERIFY(print->isEnabled());
  QTest::mouseClick(print, Qt::LeftButton);
  QCOMPARE(t.platform.documentsPrinted, 1);
  QVERIFY(IsPdf(pdf));
}

void PrintTest::longPrintoutsBreakIntoPages() {
  PrintDocument doc;
  for (int i = 0; i < 300; ++i) doc.AddText("line " + std::to_string(i));
  const QSize size(600, 800);
  const PrintPages pages(doc, QRect(QPoint(0, 0), size), 96);
  QVERIFY(pages.PageCount() >= 3);
  for (int i = 0; i < pages.PageCount(); ++i) QVERIFY(InkOn(pages, i, size) > 0);
  QCOMPARE(InkOn(pages, pages.PageCount(), size), 0);  // no page beyond the last
  // The last page holds fewer lines than a full one.
  QVERIFY(InkOn(pages, pages.PageCount() - 1, size) < InkOn(pages, 0, size));
  const PrintDocument empty;
  QCOMPARE(PrintPages(empty, QRect(QPoint(0, 0), size), 96).PageCount(), 1);
}

void PrintTest::fixedPagesAndPicturesLayOut() {
  // 80 lines to a page on a sheet that holds about 40 at the usual size:
  // the font shrinks, and the pages are exactly the lines over 80.
  const QSize size(600, 800);
  const QRect sheet(QPoint(0, 0), size);
  PrintDocument doc;
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

QTEST_MAIN(PrintTest)
#include "print_qtest.moc"
