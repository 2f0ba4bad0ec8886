#include "logs/events_log_print.h"

#include <cstdint>
#include <string>

#include "core/game.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "logs/events_log_view.h"

namespace {

constexpr const char* kTitle = "Print Events Log";

}  // namespace

PrintDocument EventsLogPrintout(Game& game, const CalendarDate& today, std::string& error) {
  PrintDocument doc;
  doc.jobName = "Ravelton Events Log";
  doc.AddText("Ravelton Events Log", true, true);
  doc.AddText(MediumDate(today), true);
  doc.AddText("Events Log File:  " + PrintedFileName(game.roll.EventsLogPath), true);
  doc.AddBlank();
  const int blue = game.rules.PrintColors[0];
  ForEachEventLine(
      game,
      [&](std::string& text) {
        const bool plain = LookOfEventLine(text).kind == EventLineKind::Plain;
        PrintLine line;
        line.cells.push_back({std::move(text), 0, plain ? kPrintBlack : blue, false});
        doc.lines.push_back(std::move(line));
      },
      error);
  return doc;
}

bool PrintEventsLog(Game& game) {
  if (game.platform == nullptr) return false;
  std::string error;
  if (PrepareEventsLogIndex(game, error) == 0 && error.empty()) {
    ShowNotice(game, "There are no logged events to print.", kTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  const PrintDocument doc = EventsLogPrintout(game, game.platform->Today(), error);
  if (!error.empty()) {
    ShowNotice(game, error, kTitle, 0, kMsgOk | kMsgPicStop);
    return false;
  }
  return game.platform->Print(doc);
}
