// frmHotKeys and the keys on the table under the offscreen platform: a row
// is made in the entry controls and placed by a click on the list, leaving
// the form writes HotKeys.dta, the clipboard carries rows, and Ctrl and the
// letter on the table runs the script for the current player while other
// modifiers leave the key alone.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "core/catalogue.h"
#include "desktop_fixture.h"
#include "script/hot_keys.h"
#include "table/hot_keys_form.h"

class HotKeysTest : public QObject {
  Q_OBJECT
 private slots:
  void aRowIsPlacedByAClickAndWrittenOnLeaving();
  void rowsGoThroughTheClipboard();
  void ctrlAndTheLetterRunTheScriptOnTheTable();
};

namespace {

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

void HotKeysTest::aRowIsPlacedByAClickAndWrittenOnLeaving() {
  DesktopTable t(1);
  std::filesystem::remove(HotKeysPath(*t.game));
  HotKeysForm form(*t.game);
  form.show();
  QTableWidget* list = form.List();
  QCOMPARE(list->horizontalHeaderItem(2)->text(), QString("Auto-Bet File"));

  // No file: the message, and nothing armed.
  AddRow(form, 5, "", "nothing");
  QCOMPARE(t.shown.back().second,
           std::string("Please enter an Auto-Bet filename to define this Hot-Key."));
  QVERIFY(!form.Placing());

  AddRow(form, 5, "field.bet", "Field once");
  QVERIFY(form.Placing());
  QVERIFY(FormChild<QLineEdit>(form, "txtAutoBetFile")->styleSheet().contains("#ff0000"));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, list->viewport()->height() - 4));
  QVERIFY(!form.Placing());
  AddRow(form, 15, "pass.bet", "Pass");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 0));  // goes first
  const auto& rows = t.game->scriptSource.HotKeyTable;
  QCOMPARE(rows.size(), std::size_t{2});
  QCOMPARE(rows[0].key, 'P');
  QCOMPARE(rows[1].file, std::string("field.bet"));
  QCOMPARE(list->item(1, 0)->text(), QString("Ctrl F"));
  QCOMPARE(list->item(1, 1)->text(), QString("Field once"));

  // A double click brings a row back to the entry controls.
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 0));
  QCOMPARE(FormChild<QLineEdit>(form, "txtAutoBetFile")->text(), QString("pass.bet"));

  form.accept();
  std::vector<HotKeyRow> read;
  std::ifstream in(HotKeysPath(*t.game), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(in), {}};
  std::string error;
  QVERIFY(ReadHotKeyFileBytes(bytes, read, error));
  QCOMPARE(read.size(), std::size_t{2});
  QCOMPARE(read[1].description, std::string("Field once"));
}

void HotKeysTest::rowsGoThroughTheClipboard() {
  DesktopTable t(1);
  t.game->scriptSource.HotKeyTable = {{'A', "a.bet", "first", false}, {'B', "b.bet", "second", false}};
  HotKeysForm form(*t.game);
  form.show();
  QTableWidget* list = form.List();
  list->setFocus();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowPoint(list, 1));
  QVERIFY(t.game->scriptSource.HotKeyTable[1].selected);
  form.findChild<QAction*>("mnuCut")->trigger();
  QCOMPARE(QApplication::clipboard()->text(), QString("Ctrl B   b.bet   second\r\n"));
  QCOMPARE(t.game->scriptSource.HotKeyTable.size(), std::size_t{1});
  list->setFocus();
  list->setCurrentCell(0, 0);
  form.findChild<QAction*>("mnuPaste")->trigger();
  QCOMPARE(t.game->scriptSource.HotKeyTable.front().key, 'B');
  QCOMPARE(list->rowCount(), 2);
}

void HotKeysTest::ctrlAndTheLetterRunTheScriptOnTheTable() {
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
  QVERIFY(!t.game->scriptSource.ScriptDirty[2]);

  // A missing file is told, and the table is unchanged.
  std::filesystem::remove(path);
  QTest::keyClick(t.View(), Qt::Key_F, Qt::ControlModifier);
  QCOMPARE(t.shown.back().first, std::string("Hot-Key"));
  QCOMPARE(t.game->Bet(2, bet::kField), Currency::FromWhole(5));
}

QTEST_MAIN(HotKeysTest)
#include "hot_keys_qtest.moc"
