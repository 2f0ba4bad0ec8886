#include "engine/check_stacks_print.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/bankroll.h"

namespace {

// Columns of the printout, in character widths.
constexpr int kNumberEnd = 4;    // stack numbers end here
constexpr int kValueEnd = 28;    // values end here
constexpr int kNameStart = 31;
constexpr int kRangePromptStyle =
    kMsgOk | kMsgCancel | kMsgInput1 | kMsgInput2 | kMsgAmountInput | kMsgPicQmark;

// A typed stack number: the whole part of the number, within 0..99 (text
// that is no number reads as 0).
int StackNumber(const std::string& text) {
  const double typed = ParseAmount(text).ToDouble();
  if (!std::isfinite(typed)) return 0;
  return static_cast<int>(std::clamp(std::floor(typed), 0.0, double{kCheckStackCount - 1}));
}

}  // namespace

PrintDocument CheckStacksPrintout(const Game& game, int p, int first, int last,
                                  const CalendarDate& today, std::string_view gameFile) {
  PrintDocument doc;
  doc.jobName = "Ravelton CheckStacks";
  const std::string name = p >= 1 && p <= 8 ? game.PlayerName[p] : std::string();
  doc.AddText("Ravelton CheckStack values and names for " + name, true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Game File:  " + PrintedFileName(gameFile), true);
  doc.AddBlank();
  PrintLine titles;
  titles.bold = true;
  titles.cells = {{"#", kNumberEnd, kPrintBlack, true},
                  {"Value", kValueEnd, kPrintBlack, true},
                  {"Name", kNameStart, kPrintBlack, false}};
  doc.lines.push_back(std::move(titles));
  for (const CheckStackRow& row : ShowCheckStacks(game, p)) {
    if (row.number < first || row.number > last) continue;
    const int sign = row.value > Currency{} ? 1 : row.value < Currency{} ? -1 : 0;
    const int colour = PrintColourOfSign(game.rules.PrintColors, sign);
    PrintLine line;
    line.cells = {{std::to_string(row.number), kNumberEnd, kPrintBlack, true},
                  {FormatMoney(row.value), kValueEnd, colour, true},
                  {row.name, kNameStart, kPrintBlack, false}};
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

bool PrintCheckStacks(Game& game, int p, std::string_view gameFile) {
  if (game.platform == nullptr || p < 1 || p > 8) return false;
  MessageRequest ask;
  ask.text = "Enter the beginning and ending checkstacks that you'd like to print";
  ask.title = "Print Range";
  ask.helpId = kHelpCheckStacks;
  ask.style = kRangePromptStyle;
  ask.input1 = "0";
  ask.input2 = std::to_string(kCheckStackCount - 1);
  const MessageReply reply = game.platform->ShowMessage(ask);
  if (reply.answer != kAnswerOk) return false;
  int first = StackNumber(reply.input1), last = StackNumber(reply.input2);
  if (first > last) std::swap(first, last);
  return game.platform->Print(
      CheckStacksPrintout(game, p, first, last, game.platform->Today(), gameFile));
}
