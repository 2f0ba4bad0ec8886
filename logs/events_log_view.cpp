#include "logs/events_log_view.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <functional>
#include <system_error>

#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "logs/events_log.h"
#include "logs/events_log_index.h"

namespace {

constexpr std::int64_t kRecord = 4;
// Lines visited per chunk by Find, and the largest span of the log read at once.
constexpr std::int64_t kFindChunk = 4096;
constexpr std::int64_t kFindSpan = 4 << 20;

// A line as shown: without its CR (a line ends in CR LF), cut at
// kEventsLogShownLine.
void CutShownLine(std::string& line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.size() > kEventsLogShownLine) line.resize(kEventsLogShownLine);
}

// True when the 1-based position `at` is where a line of the log starts:
// its first byte, or a byte just after a line's end.
bool AtLineStart(const FileHandle& log, std::int64_t at, std::int64_t logLength) {
  if (at < 1 || at > logLength) return false;
  char before = 0;
  return at == 1 || (ReadAt(log, at - 2, &before, 1) == 1 && before == '\n');
}

// Lines a..b of the log, visited in `direction` order until visit returns
// true; false, before any visit, when the files cannot be read as the index
// says or the index does not fit the log there. Records a..b+1 and the span
// between them come in one read each; a span too long for one read is read
// line by line, each line cut.
template <class Visit>
bool VisitLines(const FileHandle& log, const FileHandle& index, std::int64_t lines,
                std::int64_t logLength, std::int64_t a, std::int64_t b, int direction,
                Visit&& visit) {
  std::vector<unsigned char> records(static_cast<std::size_t>((b - a + 2) * kRecord));
  const std::int64_t wanted = (std::min(b + 1, lines) - a + 1) * kRecord;
  if (ReadAt(index, (a - 1) * kRecord, records.data(), static_cast<std::size_t>(wanted)) != wanted)
    return false;
  auto start = [&](std::int64_t n) -> std::int64_t {
    if (n > lines) return logLength + 1;
    return GetLong32(records.data() + (n - a) * kRecord);
  };
  const std::int64_t from = start(a), to = start(b + 1);
  if (from < 1 || to < from || to > logLength + 1) return false;
  std::vector<char> span;
  const bool whole = to - from <= kFindSpan;
  if (whole) {
    span.resize(static_cast<std::size_t>(to - from));
    if (ReadAt(log, from - 1, span.data(), span.size()) != to - from) return false;
  }
  // Every record on a line's start: the first at the log's start or after a
  // line end, and each line at least a byte long and closed by a line end
  // just before the next record (the log's last line may have none), with
  // no line end before that: a record over two lines means the index skips
  // a line, and every later record then shows the line after its own.
  if (!AtLineStart(log, from, logLength)) return false;
  for (std::int64_t n = a; n <= b; ++n) {
    const std::int64_t s = start(n), e = start(n + 1);
    if (s < from || e <= s || e > to) return false;
    if (!whole) continue;
    const char* line = span.data() + (s - from);
    const std::size_t body = static_cast<std::size_t>(e - s - 1);
    if (e <= logLength && line[body] != '\n') return false;
    if (std::memchr(line, '\n', body) != nullptr) return false;
  }
  std::string line;
  for (std::int64_t k = 0; k <= b - a; ++k) {
    const std::int64_t n = direction > 0 ? a + k : b - k;
    const std::int64_t s = start(n), e = start(n + 1);
    const std::size_t len =
        static_cast<std::size_t>(std::min<std::int64_t>(e - s, kEventsLogShownLine + 2));
    if (whole) {
      line.assign(span.data() + (s - from), len);
    } else {
      line.resize(len);
      line.resize(static_cast<std::size_t>(
          std::max<std::int64_t>(ReadAt(log, s - 1, line.data(), len), 0)));
    }
    if (!line.empty() && line.back() == '\n') line.pop_back();
    CutShownLine(line);
    if (visit(n, line)) return true;
  }
  return true;
}

// The log and its index for a pass over many lines: VisitLines through
// the index, which is built afresh once when a chunk shows it does not fit
// the log (its few checked records can look right while others are wrong).
// The new index may have another number of lines. The chunks a pass has
// visited from the first line on were checked record by record, so they
// are the log's first lines under either index and a forward pass from the
// first line goes on; any other pass starts again over Lines().
class IndexedLog {
 public:
  IndexedLog(Game& g, std::int64_t lines)
      : g_(g),
        log_(OpenForReading(g.roll.EventsLogPath)),
        index_(OpenForReading(g.eventsLog.IndexPath)),
        lines_(lines),
        logLength_(FileLength(g.roll.EventsLogPath)) {}

  // The lines of the index in use.
  std::int64_t Lines() const { return lines_; }

  // Lines a..b as VisitLines visits them, b held to Lines() after an index
  // built afresh; false with `error` set when they cannot be read.
  template <class Visitor>
  bool Visit(std::int64_t a, std::int64_t b, int direction, Visitor&& visit, std::string& error) {
    if (!log_.IsOpen() || !index_.IsOpen()) {
      error = "Cannot read " + g_.roll.EventsLogPath + ": " + SystemErrorText();
      return false;
    }
    if (VisitLines(log_, index_, lines_, logLength_, a, b, direction, visit)) return true;
    if (!rebuilt_ && BuildEventsLogRef(g_.roll.EventsLogPath, g_.eventsLog.IndexPath, error)) {
      rebuilt_ = true;
      index_ = OpenForReading(g_.eventsLog.IndexPath);
      lines_ = std::max<std::int64_t>(FileLength(g_.eventsLog.IndexPath), 0) / kRecord;
      if (index_.IsOpen() && a > lines_) return true;  // the lines asked for are gone
      if (index_.IsOpen() &&
          VisitLines(log_, index_, lines_, logLength_, a, std::min(b, lines_), direction, visit))
        return true;
    }
    if (error.empty()) error = "The index of " + g_.roll.EventsLogPath + " does not fit the log.";
    return false;
  }

 private:
  Game& g_;
  FileHandle log_, index_;
  std::int64_t lines_, logLength_;
  bool rebuilt_ = false;
};

}  // namespace

std::int64_t PrepareEventsLogIndex(Game& g, std::string& error) {
  FlushEventsLog(g);
  const std::string& logPath = g.roll.EventsLogPath;
  const std::string& indexPath = g.eventsLog.IndexPath;
  if (!FileExists(logPath)) return 0;
  if (!EventsLogIndexMatches(logPath, indexPath) && !BuildEventsLogRef(logPath, indexPath, error))
    return 0;
  return std::max<std::int64_t>(FileLength(indexPath), 0) / kRecord;
}

EventsLogPage ReadEventLines(Game& g, std::int64_t first, int count) {
  EventsLogPage page;
  page.lineCount = PrepareEventsLogIndex(g, page.error);
  if (page.lineCount == 0 || count <= 0) return page;
  // The index passed a check of a few of its records; every record of the
  // page is checked as it is read. An index built afresh on the way may
  // have another number of lines, and the page is then read again by it.
  IndexedLog log(g, page.lineCount);
  auto keep = [&page](std::int64_t, const std::string& line) {
    page.lines.push_back(line);
    return false;
  };
  for (;;) {
    page.first = std::clamp<std::int64_t>(first, 1, page.lineCount);
    const std::int64_t last = std::min<std::int64_t>(page.first + count - 1, page.lineCount);
    page.lines.clear();
    // A failed visit has visited nothing.
    if (!log.Visit(page.first, last, 1, keep, page.error)) return page;
    if (log.Lines() == page.lineCount) return page;
    page.lineCount = log.Lines();
    if (page.lineCount == 0) return page;
  }
}

void ForEachEventLine(Game& g, const std::function<void(std::string&)>& visit, std::string& error) {
  const std::int64_t lines = PrepareEventsLogIndex(g, error);
  if (lines == 0) return;
  IndexedLog log(g, lines);
  std::string text;
  auto each = [&](std::int64_t, const std::string& line) {
    text = line;
    visit(text);
    return false;
  };
  for (std::int64_t a = 1, b = 0; a <= log.Lines(); a = b + 1) {
    b = std::min(a + kFindChunk - 1, log.Lines());
    if (!log.Visit(a, b, 1, each, error)) return;
  }
}

EventsLogPage PaintEventsLog(Game& g, int rows) {
  std::string error;
  const std::int64_t lines = PrepareEventsLogIndex(g, error);
  auto& top = g.eventsLog.LogTopLine;
  top =
      static_cast<std::int32_t>(std::clamp<std::int64_t>(top, 1, std::max<std::int64_t>(lines, 1)));
  EventsLogPage page = ReadEventLines(g, top, rows);
  if (page.error.empty()) page.error = error;
  return page;
}

std::int64_t EventsLogScrollMax(std::int64_t lines) {
  return std::clamp<std::int64_t>(lines, 1, kEventsLogScrollRange);
}

std::int64_t TopLineAfterScroll(std::int64_t top, std::int64_t lines, std::int64_t oldValue,
                                std::int64_t newValue) {
  const std::int64_t last = std::max<std::int64_t>(lines, 1);
  if (lines <= kEventsLogScrollRange) return std::clamp<std::int64_t>(newValue, 1, last);
  return std::clamp<std::int64_t>(top + newValue - oldValue, 1, last);
}

std::int64_t ScrollValueOfTopLine(std::int64_t top, std::int64_t lines) {
  if (lines <= kEventsLogScrollRange)
    return std::clamp<std::int64_t>(top, 1, std::max<std::int64_t>(lines, 1));
  if (top <= 1) return 1;
  if (top >= lines) return kEventsLogScrollRange;
  return std::clamp<std::int64_t>(top * kEventsLogScrollRange / lines, 1, kEventsLogScrollRange);
}

std::int64_t TopLineOfThumb(std::int64_t value, std::int64_t lines) {
  if (lines <= kEventsLogScrollRange)
    return std::clamp<std::int64_t>(value, 1, std::max<std::int64_t>(lines, 1));
  return std::clamp<std::int64_t>(value * lines / kEventsLogScrollRange, 1, lines);
}

EventLineLook LookOfEventLine(std::string_view line) {
  EventLineLook look;
  const auto first = line.find_first_not_of(' ');
  if (first == std::string_view::npos) return look;
  const std::string_view text = line.substr(first);
  if (text.starts_with("New session started")) {
    look.kind = EventLineKind::Session;
  } else if (text.starts_with("Roll #")) {
    look.kind = EventLineKind::Roll;
    const auto colon = line.find(':');
    if (colon != std::string_view::npos) {
      std::size_t s = colon + 1;
      while (s < line.size() && line[s] == ' ') ++s;
      std::size_t e = s;
      while (e < line.size() && std::isdigit(static_cast<unsigned char>(line[e]))) ++e;
      look.numberStart = s;
      look.numberLength = e - s;
    }
  }
  return look;
}

bool AskFindText(Game& g) {
  g.msg.MsgInput1 = g.eventsLog.FindText;
  const int answer = ShowNotice(g,
                                "If found, the line will scroll to the top of the events log.\r\r"
                                "Enter the text you'd like to find:",
                                "Find", 0, kMsgOk | kMsgCancel | kMsgInput1);
  if (answer != kAnswerOk) return false;
  g.eventsLog.FindText = LowerCase(g.msg.MsgInput1);
  return true;
}

bool FindInEventsLog(Game& g, int direction) {
  direction = direction < 0 ? -1 : 1;
  std::string error;
  const std::int64_t lines = PrepareEventsLogIndex(g, error);
  const std::string& wanted = g.eventsLog.FindText;
  std::int64_t hit = 0;
  if (lines > 0 && !wanted.empty()) {
    IndexedLog log(g, lines);
    std::string lower;
    auto visit = [&](std::int64_t n, const std::string& line) {
      lower = LowerCase(line);
      if (lower.find(wanted) == std::string::npos) return false;
      hit = n;
      return true;
    };
    // Once round: the lines after the top one in the direction, wrapping,
    // and the top line itself last. An index built afresh with another
    // number of lines renumbers them, and the search starts again.
    auto search = [&](std::int64_t count) {
      std::int64_t n = std::clamp<std::int64_t>(g.eventsLog.LogTopLine, 1, count);
      for (std::int64_t left = count; left > 0 && hit == 0;) {
        n += direction;
        if (n > count) n = 1;
        if (n < 1) n = count;
        const std::int64_t room = direction > 0 ? count - n + 1 : n;
        const std::int64_t take = std::min({kFindChunk, left, room});
        const std::int64_t a = direction > 0 ? n : n - take + 1, b = a + take - 1;
        if (!log.Visit(a, b, direction, visit, error)) return;
        if (log.Lines() != count) return;
        n = direction > 0 ? b : a;
        left -= take;
      }
    };
    search(lines);
    if (error.empty() && log.Lines() != lines && log.Lines() > 0) {
      hit = 0;
      search(log.Lines());
    }
  }
  if (hit > 0) {
    g.eventsLog.LogTopLine = static_cast<std::int32_t>(hit);
    return true;
  }
  // A log that could not be read says so rather than that the text is not in it.
  ShowNotice(g, error.empty() ? "Text not found." : error, "Search Results", 0, kMsgOk);
  return false;
}

std::string EventsLogTitle(const Game& g) {
  const std::string name(FileNameOf(g.roll.EventsLogPath));
  if (LowerCase(name) == "events log.txt") return "Events Log";
  return "Events Log (" + name + ")";
}

int AskSaveEventsLog(Game& g) {
  if (LowerCase(FileNameOf(g.roll.EventsLogPath)) != "events log.txt") return kAnswerOk;
  return ShowNotice(g,
                    "This log needs to be re-named if you want to save it.\r\r"
                    "Do you want to re-name it now?",
                    "Save Events Log?", 0, kMsgYes | kMsgNo | kMsgCancel);
}

void StartNewEventsLog(Game& g) {
  FlushEventsLog(g);
  g.roll.EventsLogPath = DefaultEventsLogPath(g);
  ClearEventsLog(g);
  g.roll.SessionDirty = true;
}

void OpenEventsLog(Game& g, const std::string& path) {
  FlushEventsLog(g);
  // The one index belongs to the one current log: it is rebuilt for the new one.
  RemoveFileIfPresent(g.eventsLog.IndexPath);
  g.roll.EventsLogPath = path;
  g.eventsLog.LogTopLine = 1;
  g.roll.SessionDirty = true;
}

bool SaveEventsLogAs(Game& g, const std::string& target) {
  FlushEventsLog(g);
  std::error_code ec;
  std::filesystem::rename(g.roll.EventsLogPath, target, ec);
  if (ec) {
    ShowNotice(g, "Cannot save the events log as " + target + ": " + ec.message(),
               "Save Events Log As", 0, kMsgOk);
    return false;
  }
  g.roll.EventsLogPath = target;
  g.roll.SessionDirty = true;
  return true;
}
