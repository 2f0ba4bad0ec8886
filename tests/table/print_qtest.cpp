// Printing under the offscreen platform: the CheckStacks form's Print and
// Configure's print command reach a real printer (a PDF file here), only
// the Payoffs and Advantage tabs offer printing, and long printouts break
// into pages that each carry their own lines.
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

QTEST_MAIN(PrintTest)
#include "print_qtest.moc"
