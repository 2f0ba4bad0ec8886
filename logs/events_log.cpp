#include "logs/events_log.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "logs/events_log_index.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kIndexRecord = 4;
constexpr std::size_t kLineReserve = 1024;
// Index records hold unsigned 32-bit positions.
constexpr std::int64_t kLastIndexablePosition = std::numeric_limits<std::uint32_t>::max();

std::string FolderOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

bool StartsWithRoll(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first != std::string_view::npos && text.substr(first).starts_with("Roll");
}

// Reads where the log and its index end, before the first line of a batch.
// An index that cannot belong to the log (a part record, or one of the two
// empty while the other is not) is rebuilt first, so appending to it keeps
// one record per line.
bool StartBatch(Game& g) {
  EventsLogState& s = g.eventsLog;
  const std::string& logPath = g.roll.EventsLogPath;
  std::int64_t logLength = std::max<std::int64_t>(FileLength(logPath), 0);
  std::int64_t indexLength = std::max<std::int64_t>(FileLength(s.IndexPath), 0);
  if (indexLength % kIndexRecord != 0 || (indexLength == 0) != (logLength == 0)) {
    std::string error;
    if (!BuildEventsLogRef(logPath, s.IndexPath, error)) {
      s.WriteError = error;
      return false;
    }
    indexLength = std::max<std::int64_t>(FileLength(s.IndexPath), 0);
  }
  s.BaseLength = logLength;
  s.BaseLines = indexLength / static_cast<std::int64_t>(kIndexRecord);
  if (s.PendingText.capacity() < kEventsLogBatch + kLineReserve)
    s.PendingText.reserve(kEventsLogBatch + kLineReserve);
  if (s.PendingIndex.capacity() < kEventsLogBatch) s.PendingIndex.reserve(kEventsLogBatch);
  return true;
}

void DropBatch(EventsLogState& s) {
  s.PendingText.clear();
  s.PendingIndex.clear();
  s.BaseLength = -1;
}

bool AppendToFile(const std::string& path, const std::string& bytes, std::string& error) {
  FileHandle f = OpenForAppend(path);
  if (!f.IsOpen()) {
    std::string folderError;
    if (!MakeFolder(FolderOf(path), folderError)) {
      error = folderError;
      return false;
    }
    f = OpenForAppend(path);
  }
  if (!f.IsOpen() || !WriteAll(f, bytes.data(), bytes.size()) || !f.Close()) {
    error = "Cannot write " + path + ": " + SystemErrorText();
    return false;
  }
  return true;
}

}  // namespace

std::string DefaultEventsLogPath(const Game& g) { return g.roll.DataFolder + "Events Log.txt"; }

void InitEventsLog(Game& g) {
  EventsLogState& s = g.eventsLog;
  s.IndexPath = g.roll.DataFolder + "Events Log.ref";
  if (g.roll.EventsLogPath.empty()) g.roll.EventsLogPath = DefaultEventsLogPath(g);
  s.LogLine.reserve(kLineReserve);
  DropBatch(s);
}

std::string& StartEventLine(Game& g) {
  g.eventsLog.LogLine.clear();
  return g.eventsLog.LogLine;
}

void WriteEventLine(Game& g, std::string_view text) {
  EventsLogState& s = g.eventsLog;
  if (s.BaseLength < 0 && !StartBatch(g)) return;
  const std::int64_t position = s.BaseLength + static_cast<std::int64_t>(s.PendingText.size()) + 1;
  if (position > kLastIndexablePosition) {
    s.WriteError =
        g.roll.EventsLogPath + " is too large to index; no more lines are written to it.";
    DropBatch(s);
    return;
  }
  const std::int64_t record =
      s.BaseLines + static_cast<std::int64_t>(s.PendingIndex.size() / kIndexRecord) + 1;
  s.PendingText.append(text);
  s.PendingText.append(kLineEnd);
  unsigned char bytes[kIndexRecord];
  PutLong32(bytes, static_cast<std::uint32_t>(position));
  s.PendingIndex.append(reinterpret_cast<const char*>(bytes), kIndexRecord);
  if (g.roll.LogRollOnTop && StartsWithRoll(text))
    s.LogTopLine = static_cast<std::int32_t>(std::min<std::int64_t>(record, INT32_MAX));
  if (!g.RollBusy || s.PendingText.size() >= kEventsLogBatch) FlushEventsLog(g);
}

bool FlushEventsLog(Game& g) {
  EventsLogState& s = g.eventsLog;
  if (s.PendingText.empty()) {
    s.BaseLength = -1;
    return true;
  }
  const std::string& logPath = g.roll.EventsLogPath;
  std::string error;
  const bool written = AppendToFile(logPath, s.PendingText, error) &&
                       AppendToFile(s.IndexPath, s.PendingIndex, error);
  DropBatch(s);
  if (!written) {
    s.WriteError = error;
    return false;
  }
  // The index carries the log's time stamp: a later change of the log by
  // anything else shows as a difference, and the reader rebuilds.
  CopyModificationTime(logPath, s.IndexPath);
  return true;
}

void ClearEventsLog(Game& g) {
  EventsLogState& s = g.eventsLog;
  DropBatch(s);
  RemoveFileIfPresent(s.IndexPath);
  RemoveFileIfPresent(g.roll.EventsLogPath);
  s.LogTopLine = 1;
}

void AppendWhole(std::string& out, std::int64_t n) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, n).ptr;
  out.append(digits, static_cast<std::size_t>(end - digits));
}

void AppendPlainAmount(std::string& out, Currency amount) {
  const std::int64_t raw = amount.raw;
  if (raw < 0) out.push_back('-');
  // The magnitude as unsigned, so the most negative amount has one too.
  const std::uint64_t mag =
      raw < 0 ? 0 - static_cast<std::uint64_t>(raw) : static_cast<std::uint64_t>(raw);
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, mag / Currency::kScale).ptr;
  out.append(digits, static_cast<std::size_t>(end - digits));
  std::uint64_t frac = mag % Currency::kScale;
  if (frac == 0) return;
  char decimals[4];
  for (int i = 3; i >= 0; --i) {
    decimals[i] = static_cast<char>('0' + frac % 10);
    frac /= 10;
  }
  std::size_t len = 4;
  while (len > 0 && decimals[len - 1] == '0') --len;
  out.push_back('.');
  out.append(decimals, len);
}
