// frmDiceRollFiles under the offscreen platform: F8 opens it, a file is
// chosen through the game's file chooser, the roll buttons write the
// file's bytes (typed over or inserted), a selection made in the list is
// copied and pasted, the recorder plays the file back into the next roll
// and the open form shows where playback stands, and refusals come with
// their messages; printing refuses without rolls or a selection, confirms
// its count of pages and prints.
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>
#include <iterator>

#include "config/settings_state.h"
#include "core/frames.h"
#include "desktop_fixture.h"
#include "dice/dice_file.h"
#include "table/dice_files_form.h"

class DiceFilesTest : public QObject {
  Q_OBJECT
 private slots:
  void keyedRollsReachTheFileTypedOverOrInserted();
  void aSelectionIsCopiedAndPastedAtTheCaret();
  void playbackFeedsTheNextRollAndTheFormFollows();
  void refusalsComeWithTheirMessages();
  void printingRefusesConfirmsAndPrints();
};

namespace {

std::vector<unsigned char> Bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

struct DiceFilesTable : DesktopTable {
  QTemporaryDir dir;
  std::string path;
  int chooserAsked = 0;
  DiceFilesForm* form = nullptr;

  DiceFilesTable() : DesktopTable(1) {
    game->roll.DataFolder = dir.path().toStdString() + "/";
    game->rules.BetRequirement = kNoBetRequired;
    path = dir.filePath("rolls.rol").toStdString();
    platform.onChooseFile = [this](const FileChooserRequest&) -> std::optional<std::string> {
      ++chooserAsked;
      return path;
    };
    QTest::keyClick(View(), Qt::Key_F8);
    form = window->DiceFiles();
    if (!form->isVisible()) qFatal("F8 did not open the form");
  }
  void Trigger(const char* name) { FormChild<QAction>(*form, name)->trigger(); }
  void Key(int die1, int die2) {
    QTest::mouseClick(FormChild<QPushButton>(*form, qPrintable(QString("cmdRollNumbers%1").arg((die1 - 1) * 6 + die2 - 1))),
                      Qt::LeftButton);
  }
  // A new file opened through the chooser, with these rolls keyed into it.
  void NewFile(std::initializer_list<std::pair<int, int>> rolls) {
    Trigger("mnuNewOpen");
    for (auto [die1, die2] : rolls) Key(die1, die2);
  }
  QString Label(const char* name) { return FormChild<QLabel>(*form, name)->text(); }
  void ClickRow(int row, Qt::KeyboardModifiers mods = {}) {
    DiceRollList* list = form->List();
    QTest::mouseClick(list, Qt::LeftButton, mods, QPoint(20, row * list->RowHeight() + 3));
  }
};

}  // namespace

void DiceFilesTest::keyedRollsReachTheFileTypedOverOrInserted() {
  DiceFilesTable t;
  t.NewFile({{1, 3}, {6, 6}});
  QCOMPARE(Bytes(t.path), (std::vector<unsigned char>{DiceRollByte(1, 3), DiceRollByte(6, 6)}));
  QCOMPARE(FormChild<QLineEdit>(*t.form, "txtNextRollNum")->text(), QString("3"));

  // Back to roll 1: typed over, then inserted. Enter in the box moves the
  // caret and presses no button of the form (the recorder stays as it is).
  QTest::mouseClick(FormChild<QPushButton>(*t.form, "cmdRecorder1"), Qt::LeftButton);
  auto* next = FormChild<QLineEdit>(*t.form, "txtNextRollNum");
  TypeInto(next, "1");
  QTest::keyClick(next, Qt::Key_Return);
  QCOMPARE(t.game->diceFile.DiceFileMode, kDiceFileRecording);
  t.Key(2, 1);
  QCOMPARE(Bytes(t.path), (std::vector<unsigned char>{DiceRollByte(2, 1), DiceRollByte(6, 6)}));
  QTest::mouseClick(FormChild<QRadioButton>(*t.form, "optInsertRolls1"), Qt::LeftButton, {}, QPoint(8, 8));
  t.Key(4, 5);
  QCOMPARE(Bytes(t.path), (std::vector<unsigned char>{DiceRollByte(2, 1), DiceRollByte(4, 5),
                                                      DiceRollByte(6, 6)}));
  QCOMPARE(t.Label("lblTotalNumRolls"), QString("3"));

  // Larger and Smaller move the list's font a point, held to the steps
  // offered; the game keeps the step, so its file does too.
  auto size = [&t](const char* caption) {
    for (QAction* a : FormChild<QMenu>(*t.form, "mnuFontSize")->actions())
      if (a->text() == caption) a->trigger();
  };
  DiceRollList* list = t.form->List();
  const qreal normal = list->font().pointSizeF();
  size("&Larger");
  QCOMPARE(t.game->gamefile.DiceFilesFontSize, 1);
  QCOMPARE(list->font().pointSizeF(), normal + 1);
  for (int i = 0; i < 20; ++i) size("&Smaller");
  QCOMPARE(t.game->gamefile.DiceFilesFontSize, -4);
  QVERIFY(list->font().pointSizeF() < normal);
  size("&Normal");
  QCOMPARE(t.game->gamefile.DiceFilesFontSize, 0);
  QCOMPARE(list->font().pointSizeF(), normal);
}

void DiceFilesTest::aSelectionIsCopiedAndPastedAtTheCaret() {
  DiceFilesTable t;
  t.NewFile({{1, 1}, {2, 2}, {3, 3}});
  // Rows 0 and 1 of the list, the second with Shift: rolls 1 and 2.
  t.ClickRow(0);
  t.ClickRow(1, Qt::ShiftModifier);
  QCOMPARE(t.Label("lblNumRollsSelected"), QString("2"));
  t.Trigger("mnuCopy");
  t.ClickRow(3);  // the place after the last roll
  t.Trigger("mnuPaste");
  QCOMPARE(Bytes(t.path),
           (std::vector<unsigned char>{DiceRollByte(1, 1), DiceRollByte(2, 2), DiceRollByte(3, 3),
                                       DiceRollByte(1, 1), DiceRollByte(2, 2)}));
  // What came in is selected; deleting it gives the file back.
  QCOMPARE(t.Label("lblNumRollsSelected"), QString("2"));
  t.Trigger("mnuDelete");
  QCOMPARE(t.Label("lblTotalNumRolls"), QString("3"));
}

void DiceFilesTest::playbackFeedsTheNextRollAndTheFormFollows() {
  DiceFilesTable t;
  t.NewFile({{5, 2}, {1, 6}});
  QTest::mouseClick(FormChild<QPushButton>(*t.form, "cmdRecorder2"), Qt::LeftButton);
  QCOMPARE(t.game->diceFile.DiceFileMode, kDiceFilePlayback);
  // Playback starts where the caret stands: put it on roll 1.
  t.ClickRow(0);
  QTest::keyClick(t.View(), Qt::Key_F2);
  QCOMPARE(t.game->Die1, 5);
  QApplication::processEvents();
  QCOMPARE(FormChild<QLineEdit>(*t.form, "txtNextRollNum")->text(), QString("2"));
}

void DiceFilesTest::refusalsComeWithTheirMessages() {
  DiceFilesTable t;
  // No file open: the roll buttons and the recorder say so.
  t.Key(1, 1);
  QTest::mouseClick(FormChild<QPushButton>(*t.form, "cmdRecorder1"), Qt::LeftButton);
  QCOMPARE(t.shown.at(0), std::make_pair(std::string("Record Dice Rolls"),
                                      std::string("You need to open a file first.")));
  QCOMPARE(t.shown[1].first, std::string("Record Dice Rolls During Game Play"));

  // A file whose bytes are not rolls is not opened.
  std::ofstream(t.path, std::ios::binary) << '\x03';
  t.Trigger("mnuNewOpen");
  QCOMPARE(t.shown.back().first, std::string("Unable to Open Dice Roll File"));
  QVERIFY(t.game->diceFile.DiceFilePath.empty());

  // An output template without dice is refused before a file is asked for.
  t.path = t.dir.filePath("good.rol").toStdString();
  t.Trigger("mnuNewOpen");
  t.game->diceFile.DiceOutputFormat = "Roll# only";
  const int asked = t.chooserAsked;
  t.Trigger("mnuCopyToTextFile");
  QCOMPARE(t.chooserAsked, asked);
  QCOMPARE(t.shown.back().first, std::string("Copy Dice Rolls To Text File"));
}

void DiceFilesTest::printingRefusesConfirmsAndPrints() {
  DiceFilesTable t;
  t.platform.printToFile = t.dir.filePath("rolls.pdf");
  t.Trigger("mnuPrint");
  QCOMPARE(t.shown.back(), std::make_pair(std::string("Print Dice Rolls"), std::string("There are no dice rolls to print.")));
  t.NewFile({{2, 5}, {6, 1}, {3, 3}});
  t.Trigger("mnuPrint");  // the caret stands after the last roll
  QCOMPARE(t.shown.back().second, std::string("You haven't selected any dice rolls to print."));

  t.Trigger("mnuSelectAll");
  t.AnswerMessage(2);  // No
  t.Trigger("mnuPrint");
  QCOMPARE(t.shown.back().second,
           std::string("Number of rolls to be printed: 3\r\rBased on the options you've selected,\r"
                       "this should result in 1 page.\r\rAre you ready to begin printing?"));
  QCOMPARE(t.platform.documentsPrinted, 0);
  t.AnswerMessage(1);
  t.Trigger("mnuPrint");
  QCOMPARE(t.platform.documentsPrinted, 1);
  QVERIFY(QFileInfo(t.platform.printToFile).size() > 0);
}

QTEST_MAIN(DiceFilesTest)
#include "dice_files_qtest.moc"
