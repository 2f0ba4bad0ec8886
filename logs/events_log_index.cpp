#include "logs/events_log_index.h"

#include <algorithm>
#include <vector>

#include "core/file_io.h"

namespace {

constexpr std::size_t kBlock = 64 * 1024;
constexpr std::int64_t kRecord = 4;
// The last line is read whole by the check; a longer one is not believed.
constexpr std::int64_t kMaxLastLine = 1 << 20;

bool ReadRecord(const FileHandle& index, std::int64_t n, std::int64_t& position) {
  unsigned char bytes[kRecord];
  if (ReadAt(index, (n - 1) * kRecord, bytes, kRecord) != kRecord) return false;
  position = GetLong32(bytes);
  return true;
}

// True when `position` (1-based) is the first byte of a line of the log.
bool AtLineStart(const FileHandle& log, std::int64_t logLength, std::int64_t position) {
  if (position < 1 || position > logLength) return false;
  if (position == 1) return true;
  char before = 0;
  return ReadAt(log, position - 2, &before, 1) == 1 && before == '\n';
}

}  // namespace

bool BuildEventsLogRef(const std::string& logPath, const std::string& indexPath,
                       std::string& error) {
  TempFileBeside temp(indexPath);
  if (!temp.IsOpen()) return temp.Commit(error);
  FileHandle log = OpenForReading(logPath);
  if (log.IsOpen()) {
    std::vector<char> block(kBlock);
    std::vector<unsigned char> records;
    records.reserve(kBlock);
    std::int64_t offset = 0;
    bool lineStarts = true;  // the next byte begins a line
    for (;;) {
      const std::int64_t got = ReadAt(log, offset, block.data(), block.size());
      if (got < 0) {
        error = "Cannot read " + logPath + ": " + SystemErrorText();
        return false;
      }
      if (got == 0) break;
      for (std::int64_t i = 0; i < got; ++i) {
        if (lineStarts) {
          const std::int64_t position = offset + i + 1;
          if (position > kEventsLogMaxIndexed) {
            error = logPath + " is too large to index.";
            return false;
          }
          records.resize(records.size() + kRecord);
          PutLong32(records.data() + records.size() - kRecord,
                    static_cast<std::uint32_t>(position));
        }
        lineStarts = block[static_cast<std::size_t>(i)] == '\n';
      }
      if (records.size() >= kBlock) {
        if (!WriteAll(temp.File(), records.data(), records.size())) {
          error = "Cannot write " + indexPath + ": " + SystemErrorText();
          return false;
        }
        records.clear();
      }
      offset += got;
    }
    if (!WriteAll(temp.File(), records.data(), records.size())) {
      error = "Cannot write " + indexPath + ": " + SystemErrorText();
      return false;
    }
  }
  if (!temp.Commit(error)) return false;
  if (log.IsOpen()) CopyModificationTime(logPath, indexPath);
  return true;
}

bool EventsLogIndexMatches(const std::string& logPath, const std::string& indexPath) {
  const std::int64_t logLength = FileLength(logPath);
  const std::int64_t indexLength = FileLength(indexPath);
  if (logLength < 0 || indexLength < 0 || indexLength % kRecord != 0) return false;
  if (!SameModificationTime(logPath, indexPath)) return false;
  const std::int64_t lines = indexLength / kRecord;
  if (lines == 0 || logLength == 0) return lines == 0 && logLength == 0;

  FileHandle log = OpenForReading(logPath), index = OpenForReading(indexPath);
  if (!log.IsOpen() || !index.IsOpen()) return false;
  std::int64_t first = 0, middle = 0, last = 0;
  if (!ReadRecord(index, 1, first) || !ReadRecord(index, (lines + 1) / 2, middle) ||
      !ReadRecord(index, lines, last))
    return false;
  if (first != 1 || middle < first || last < middle) return false;
  if (lines >= 3 && (middle == first || middle == last)) return false;
  if (!AtLineStart(log, logLength, middle) || !AtLineStart(log, logLength, last)) return false;
  // The last record starts the last line: nothing after it but that line.
  const std::int64_t tail = logLength - last + 1;
  if (tail > kMaxLastLine) return false;
  std::vector<char> bytes(static_cast<std::size_t>(tail));
  if (ReadAt(log, last - 1, bytes.data(), bytes.size()) != tail) return false;
  const auto newline = std::find(bytes.begin(), bytes.end(), '\n');
  return newline == bytes.end() || newline == bytes.end() - 1;
}
