// The events log printout: an empty log is refused with the viewer's
// message; otherwise every line of the file prints in order under the
// heading, session and roll lines in the printer's blue.
#include "logs/events_log_print.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/file_io.h"
#include "cycle/session.h"
#include "logs/events_log.h"
#include "tests/engine/roll_fixture.h"

namespace {

// The lines of the log file as written: split at CR LF.
std::vector<std::string> FileLines(const std::string& log) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < log.size()) {
    const auto end = log.find("\r\n", start);
    lines.push_back(log.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 2;
  }
  return lines;
}

class EventsLogPrint : public RollFixture {
 protected:
  EventsLogPrint() {
    g.roll.LogOn = true;
    platform.fixedDate = CalendarDate{2026, 11, 23};
    g.rules.PrintColors = {9, 12, 13};
  }
};

constexpr std::size_t kHeadingLines = 4;  // title, date, file, blank

TEST_F(EventsLogPrint, AnEmptyLogIsRefused) {
  ASSERT_TRUE(ReadWholeFile(g.roll.EventsLogPath).empty());
  EXPECT_FALSE(PrintEventsLog(g));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "There are no logged events to print.");
  EXPECT_EQ(platform.messages[0].title, "Print Events Log");
  EXPECT_TRUE(platform.printed.empty());
}

TEST_F(EventsLogPrint, EveryLinePrintsInTheViewersColours) {
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(100);
  for (auto [a, b] : {std::pair{3, 4}, {2, 2}, {5, 6}}) Roll(a, b);
  NewSession(g, false, false, true, 0);
  WriteEventLine(g, "a note of the player's");
  ASSERT_TRUE(PrintEventsLog(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Events Log");
  EXPECT_EQ(doc.lines[1].cells[0].text, "23-Nov-26");
  EXPECT_EQ(doc.lines[2].cells[0].text, "Events Log File:  Events Log.txt");

  const std::vector<std::string> expected = FileLines(ReadWholeFile(g.roll.EventsLogPath));
  ASSERT_EQ(doc.lines.size(), kHeadingLines + expected.size());
  bool sawSession = false;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const PrintCell& cell = doc.lines[kHeadingLines + i].cells.at(0);
    EXPECT_EQ(cell.text, expected[i]);
    if (cell.text.find(" New session started ") != std::string::npos) {
      sawSession = true;
      EXPECT_EQ(cell.colour, 9);
    }
  }
  EXPECT_TRUE(sawSession);
  EXPECT_EQ(doc.lines.back().cells[0].text, "a note of the player's");
  EXPECT_EQ(doc.lines.back().cells[0].colour, kPrintBlack);
}

}  // namespace
