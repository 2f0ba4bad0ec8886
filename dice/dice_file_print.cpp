#include "dice/dice_file_print.h"

#include <algorithm>
#include <vector>

#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "dice/dice_file.h"
#include "dice/dice_file_edit.h"
#include "dice/dice_file_text.h"

namespace {

constexpr const char* kRefusalTitle = "Print Dice Rolls";
constexpr const char* kPrintTitle = "Print Dice Roll File";
constexpr const char* kHighlightMark = "*";
constexpr int kMarkWidth = 2;  // the mark and a blank before the roll's text
constexpr int kColumnGap = 3;
// Digits are wider than the average character the columns are counted in.
constexpr double kTextAllowance = 1.2;

bool AnyHighlighted(const Game& g) {
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2)
      if (g.diceFile.HighlightCombo(d1, d2)) return true;
  return false;
}

void PageHeading(PrintDocument& doc, const std::string& name, const CalendarDate& today,
                 bool legend) {
  doc.AddText("Ravelton Dice Roll File:  " + name, true, true);
  doc.AddText(MediumDate(today), true);
  if (legend)
    doc.AddText(std::string(kHighlightMark) + " highlighted pair", true);
  else
    doc.AddBlank();
  doc.AddBlank();
}

}  // namespace

DicePrintLayout DicePrintLayoutFor(std::string_view format, std::int64_t lastNumber) {
  const std::string prepared = PrepareDiceOutputFormat(format);
  std::string widest;
  // Double digits for the total and the largest number: the widest line.
  AppendDiceRollText(widest, prepared, std::max<std::int64_t>(lastNumber, 1), DiceRollByte(6, 6));
  DicePrintLayout layout;
  layout.width = kMarkWidth +
                 static_cast<int>(static_cast<double>(widest.size()) * kTextAllowance + 0.999) +
                 kColumnGap;
  layout.columns = std::max(1, kDicePageWidth / layout.width);
  return layout;
}

std::int64_t DicePrintPages(std::int64_t rolls, const DicePrintLayout& layout) {
  if (rolls <= 0) return 0;
  return (rolls + layout.PerPage() - 1) / layout.PerPage();
}

PrintDocument DiceRollsPrintout(Game& g, std::int64_t first, std::int64_t last,
                                std::int64_t firstNumber, const CalendarDate& today,
                                std::string& error) {
  PrintDocument doc;
  doc.jobName = "Ravelton Dice Roll File";
  doc.linesPerPage = kDicePageHeading + kDiceRowsPerPage;
  FinishDiceFileCall(g);
  const std::string& path = g.diceFile.DiceFilePath;
  const std::string name = PrintedFileName(path);
  const std::string prepared = PrepareDiceOutputFormat(g.diceFile.DiceOutputFormat);
  const DicePrintLayout layout =
      DicePrintLayoutFor(g.diceFile.DiceOutputFormat, firstNumber + last - first);
  const bool legend = AnyHighlighted(g);
  const int marked = g.rules.PrintColors[0];
  FileHandle file = OpenForReading(path);
  if (!file.IsOpen()) {
    error = "Cannot read " + path + ": " + SystemErrorText();
    return doc;
  }
  std::vector<unsigned char> page(static_cast<std::size_t>(layout.PerPage()));
  for (std::int64_t at = first; at <= last;) {
    const auto want =
        static_cast<std::size_t>(std::min<std::int64_t>(last - at + 1, layout.PerPage()));
    const std::int64_t got = ReadAt(file, at - 1, page.data(), want);
    if (got < 0) {
      error = "Cannot read " + path + ": " + SystemErrorText();
      return doc;
    }
    if (got == 0) break;  // a file cut short: what is there prints
    PageHeading(doc, name, today, legend);
    const std::int64_t rows = std::min<std::int64_t>(got, kDiceRowsPerPage);
    for (std::int64_t r = 0; r < rows; ++r) {
      PrintLine line;
      for (std::int64_t i = r, c = 0; i < got; i += kDiceRowsPerPage, ++c) {
        const unsigned char roll = page[static_cast<std::size_t>(i)];
        const int left = static_cast<int>(c) * layout.width;
        std::string text;
        AppendDiceRollText(text, prepared, firstNumber + (at - first) + i, roll);
        const bool highlighted =
            DiceWithinLimits(roll) && g.diceFile.HighlightCombo(DieOneOf(roll), DieTwoOf(roll));
        if (highlighted) line.cells.push_back({kHighlightMark, left, marked, false});
        line.cells.push_back(
            {std::move(text), left + kMarkWidth, highlighted ? marked : kPrintBlack, false});
      }
      doc.lines.push_back(std::move(line));
    }
    at += got;
    // A short page keeps its height so that the next begins with its heading.
    if (at <= last)
      for (std::int64_t r = rows; r < kDiceRowsPerPage; ++r) doc.AddBlank();
  }
  return doc;
}

bool PrintDiceRolls(Game& g) {
  if (g.platform == nullptr) return false;
  if (g.diceFile.DiceFilePath.empty() || DiceRollTotal(g) == 0) {
    ShowNotice(g, "There are no dice rolls to print.", kRefusalTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  const DiceSelection s = SelectedDiceRolls(g);
  if (s.Count() == 0) {
    ShowNotice(g, "You haven't selected any dice rolls to print.", kRefusalTitle, 0,
               kMsgOk | kMsgPicStop);
    return false;
  }
  std::int64_t firstNumber = s.first;
  if (HasRollNumber(g.diceFile.DiceOutputFormat) && s.first != 1) {
    const int answer = ShowNotice(g,
                                  "The rolls you've selected do not begin with roll #1.  Would "
                                  "you like to renumber them in the output starting with #1?",
                                  kPrintTitle, 0, kMsgYes | kMsgNo | kMsgCancel | kMsgPicQmark);
    if (answer == kAnswerCancel) return false;
    if (answer == kAnswerYes) firstNumber = 1;
  }
  const std::int64_t pages = DicePrintPages(
      s.Count(), DicePrintLayoutFor(g.diceFile.DiceOutputFormat, firstNumber + s.Count() - 1));
  const std::string text = "Number of rolls to be printed: " + FormatCount(s.Count()) +
                           "\r\rBased on the options you've selected,\rthis should result in " +
                           FormatCount(pages) + (pages == 1 ? " page." : " pages.") +
                           "\r\rAre you ready to begin printing?";
  if (ShowNotice(g, text, kPrintTitle, 0, kMsgYes | kMsgNo | kMsgPicQmark) != kAnswerYes)
    return false;
  std::string error;
  const PrintDocument doc =
      DiceRollsPrintout(g, s.first, s.last, firstNumber, g.platform->Today(), error);
  if (!error.empty()) {
    ShowNotice(g, error, kPrintTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  return g.platform->Print(doc);
}
