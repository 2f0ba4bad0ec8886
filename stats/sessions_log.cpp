#include "stats/sessions_log.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <vector>

#include "core/catalogue.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/text.h"
#include "stats/summary.h"

namespace {

constexpr int kHeaderTextBytes = 92;
constexpr int kCountOffset = 92;
constexpr int kCopyChunk = 64 * 1024;
constexpr int kSessionFrameBase = 18;

using Buffer = std::array<unsigned char, kSessionRecordBytes>;

void PutInt64(unsigned char* at, std::int64_t v) {
  for (int k = 0; k < 8; ++k) at[k] = static_cast<unsigned char>(static_cast<std::uint64_t>(v) >> (8 * k));
}
std::int64_t GetInt64(const unsigned char* at) {
  std::uint64_t v = 0;
  for (int k = 0; k < 8; ++k) v |= static_cast<std::uint64_t>(at[k]) << (8 * k);
  return static_cast<std::int64_t>(v);
}
void PutInt32(unsigned char* at, std::int32_t v) {
  for (int k = 0; k < 4; ++k) at[k] = static_cast<unsigned char>(static_cast<std::uint32_t>(v) >> (8 * k));
}
std::int32_t GetInt32(const unsigned char* at) {
  std::uint32_t v = 0;
  for (int k = 0; k < 4; ++k) v |= static_cast<std::uint32_t>(at[k]) << (8 * k);
  return static_cast<std::int32_t>(v);
}

Buffer HeaderRecord(std::int32_t count) {
  Buffer h;
  h.fill(' ');
  std::memcpy(h.data(), kSessionsLogHeader.data(), kSessionsLogHeader.size());
  PutInt32(h.data() + kCountOffset, count);
  return h;
}

Buffer EncodeRecord(const SessionRecord& r) {
  Buffer b{};
  for (int n = 0; n < kSessionValues; ++n) PutInt64(b.data() + 8 * n, r[static_cast<std::size_t>(n)].raw);
  return b;
}

// The checked state of an existing log: its count and its length.
struct LogShape {
  bool exists = false;
  std::int32_t count = 0;
  std::uintmax_t bytes = 0;
};

std::optional<LogShape> ReadShape(const std::string& path, std::string& error) {
  LogShape shape;
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return shape;
  shape.exists = true;
  shape.bytes = std::filesystem::file_size(path, ec);
  std::ifstream in(path, std::ios::binary);
  Buffer h{};
  if (ec || !in || shape.bytes < kSessionRecordBytes ||
      !in.read(reinterpret_cast<char*>(h.data()), kSessionRecordBytes)) {
    error = DamagedLogMessage(path);
    return std::nullopt;
  }
  const std::string_view text(reinterpret_cast<const char*>(h.data()), kHeaderTextBytes);
  shape.count = GetInt32(h.data() + kCountOffset);
  const std::uintmax_t records = shape.bytes / kSessionRecordBytes - 1;
  if (text.find(kSessionsLogFormat) == std::string_view::npos || shape.count < 0 ||
      static_cast<std::uintmax_t>(shape.count) > records) {
    error = DamagedLogMessage(path);
    return std::nullopt;
  }
  return shape;
}

// The first `bytes` of `in` written to `out` a chunk at a time; false on a
// failure or a file shorter than that.
bool CopyBytes(const FileHandle& in, const FileHandle& out, std::uintmax_t bytes) {
  std::vector<char> chunk(kCopyChunk);
  for (std::uintmax_t at = 0; at < bytes;) {
    const auto want = static_cast<std::size_t>(std::min<std::uintmax_t>(bytes - at, kCopyChunk));
    const std::int64_t got = ReadAt(in, static_cast<std::int64_t>(at), chunk.data(), want);
    if (got <= 0 || !WriteAll(out, chunk.data(), static_cast<std::size_t>(got))) return false;
    at += static_cast<std::uintmax_t>(got);
  }
  return true;
}

// Writes a new log to a temporary file of its own beside `path`: a copy of
// the old file's bytes, then `edit` (which may read the old file and returns
// false on a failure), then `header`; renames it into place. On any failure
// the old file stays and the temporary one goes. The temporary file's name
// is unique, so two programs writing the same log never share it.
template <class Edit>
std::optional<std::string> Rewrite(const std::string& path, const LogShape& shape,
                                   const Buffer& header, Edit&& edit) {
  const std::filesystem::path target(path);
  std::error_code ec;
  if (target.has_parent_path()) std::filesystem::create_directories(target.parent_path(), ec);
  const std::string failure = "The sessions log could not be written:\r\r" + path;
  TempFileBeside out(path);
  if (!out.IsOpen()) return failure;
  FileHandle in;
  if (shape.exists) {
    in = OpenForReading(path);
    if (!in.IsOpen() || !CopyBytes(in, out.File(), shape.bytes)) return failure;
  }
  if (!edit(out.File(), in) || !WriteAt(out.File(), 0, header.data(), kSessionRecordBytes))
    return failure;
  std::string error;
  if (!out.Commit(error)) return failure;
  return std::nullopt;
}

// Session s's record (from 1) at its place in the file.
bool WriteRecord(const FileHandle& out, std::int32_t session, const Buffer& record) {
  return WriteAt(out, static_cast<std::int64_t>(session) * kSessionRecordBytes, record.data(),
                 kSessionRecordBytes);
}

}  // namespace

std::string SessionValueName(int index) {
  static constexpr std::string_view kNames[12] = {
      "# Rolls",          "# Bets Decided",          "# Bets Won",   "# Bets Lost",
      "# Bets Won/Lost (Net)", "$ Bets Decided (Handle)", "$ Bets Won", "$ Bets Lost",
      "$ Bets Won/Lost (Net)", "% Won or Lost (HA)",     "Invested bankroll", "Ending bankroll"};
  if (index >= 0 && index < 12) return std::string(kNames[index]);
  if (index >= 12 && index < kSessionValues) return "CheckStack #" + std::to_string(index - 12);
  return {};
}

std::string SessionLogPathOf(const Game& game, int p) {
  const std::string& path = game.roll.SessionLogPath[static_cast<std::size_t>(p)];
  return path.empty() ? DefaultSessionLogPath(game, p) : path;
}

std::string DefaultSessionLogPath(const Game& game, int p) {
  return game.roll.DataFolder + LowerCase(game.PlayerName[static_cast<std::size_t>(p)]) + ".slg";
}

std::string DamagedLogMessage(const std::string& path) {
  return path + "\ris either from an older version, has been corrupted, or is not a true "
                "Ravelton Sessions Log.";
}

SessionRecord SessionRecordOf(Game& g, int p) {
  SessionRecord r{};
  FigureBetTotals(g, p, 2, 1, kLastRealBet, true);
  const int i = p + kSessionFrameBase;
  r[0] = Currency::FromWhole(g.RollsAtTable(i));
  r[1] = g.StatAction(i, 0, kStatCount);
  r[2] = g.StatWins(i, 0, kStatCount);
  r[3] = g.StatLosses(i, 0, kStatCount);
  r[4] = r[2] - r[3];
  r[5] = g.StatAction(i, 0, kStatTotal);
  r[6] = g.StatWins(i, 0, kStatTotal);
  r[7] = g.StatLosses(i, 0, kStatTotal);
  r[8] = r[6] - r[7];
  r[9] = r[5].IsZero() ? Currency{} : CurFromDouble(100 * r[8].ToDouble() / r[5].ToDouble());
  r[10] = g.InvestedBankroll(p);
  r[11] = g.Bet(p, bet::kBankroll);
  for (int n = 0; n < kStackValues; ++n)
    r[static_cast<std::size_t>(kFirstStackValue + n)] = g.Bet(p, bet::kCheckStackFirst + n);
  // The log takes no amount beyond the money limit (a reader calls such a
  // record damage), but a game may reach past it: a CheckStack holds up to
  // its own limit, a session's totals add up every bet's. Such a value is
  // written at the limit of its sign.
  for (Currency& v : r) v = HeldWithin(v, kMoneyLimit);
  return r;
}

std::optional<std::string> WriteSessionRecord(Game& g, int p) {
  if (!g.roll.SessionLogsOn || g.RollTally(kTableSession, kEventRolls) == 0 || p < 1 || p > 8 ||
      g.PlayerName[static_cast<std::size_t>(p)].empty())
    return std::nullopt;
  std::string& stored = g.roll.SessionLogPath[static_cast<std::size_t>(p)];
  if (stored.empty()) stored = SessionLogPathOf(g, p);
  return AppendSessionRecord(stored, SessionRecordOf(g, p));
}

std::optional<std::string> AppendSessionRecord(const std::string& path, const SessionRecord& r) {
  std::string error;
  const std::optional<LogShape> shape = ReadShape(path, error);
  if (!shape) return error;
  const Buffer record = EncodeRecord(r);
  return Rewrite(path, *shape, HeaderRecord(shape->count + 1),
                 [&](const FileHandle& out, const FileHandle&) {
                   return WriteRecord(out, shape->count + 1, record);
                 });
}

void WriteSessionRecordShown(Game& g, int p) {
  if (const std::optional<std::string> error = WriteSessionRecord(g, p))
    ShowNotice(g, *error, kSessionsLogTitle, 0, kMsgOk);
}

void WriteSessionRecords(Game& g) {
  for (int p = 1; p <= 8; ++p) WriteSessionRecordShown(g, p);
}

std::optional<std::string> CreateSessionsLog(const std::string& path) {
  return Rewrite(path, LogShape{}, HeaderRecord(0),
                 [](const FileHandle&, const FileHandle&) { return true; });
}

std::optional<std::string> CopySessionsLog(const std::string& from, const std::string& to) {
  std::string error;
  const std::optional<LogShape> shape = ReadShape(from, error);
  if (!shape) return error;
  if (!shape->exists) return CreateSessionsLog(to);
  const std::string failure = "The sessions log could not be written:\r\r" + to;
  FileHandle in = OpenForReading(from);
  TempFileBeside out(to);
  if (!in.IsOpen() || !out.IsOpen() || !CopyBytes(in, out.File(), shape->bytes) ||
      !out.Commit(error))
    return failure;
  return std::nullopt;
}

std::optional<std::string> MergeSessionsLogs(const std::string& into, const std::string& from) {
  std::string error;
  const std::optional<LogShape> shape = ReadShape(into, error);
  if (!shape) return error;
  SessionsLogReader source(from);
  if (!source.ok()) return source.error();
  if (source.count() > std::numeric_limits<std::int32_t>::max() - shape->count)
    return "The sessions of\r\r" + from + "\r\rare more than one sessions log can count.";
  // Each record is checked as it is read, so a damaged one stops the merge
  // before the new file is renamed into place.
  const std::optional<std::string> failed = Rewrite(
      into, *shape, HeaderRecord(shape->count + source.count()),
      [&](const FileHandle& out, const FileHandle&) {
        SessionRecord record{};
        for (std::int32_t s = 1; s <= source.count(); ++s)
          if (!source.Read(s, record) || !WriteRecord(out, shape->count + s, EncodeRecord(record)))
            return false;
        return true;
      });
  if (failed && !source.ok()) return source.error();
  return failed;
}

std::string DeleteSessions(const std::string& path, long a, long b) {
  if (a > b) std::swap(a, b);
  std::string error;
  const std::optional<LogShape> shape = ReadShape(path, error);
  if (!shape) return error;
  if (a < 1 || b > shape->count) return "No sessions deleted.  Entry out of range.";
  const auto first = static_cast<std::int32_t>(a), last = static_cast<std::int32_t>(b);
  const std::int32_t gap = last - first + 1;
  // Later sessions move down one by one; the records past the new count
  // keep their old bytes, and the file its length.
  const std::optional<std::string> failed = Rewrite(
      path, *shape, HeaderRecord(shape->count - gap),
      [&](const FileHandle& out, const FileHandle& in) {
        Buffer record{};
        for (std::int32_t s = first; s + gap <= shape->count; ++s) {
          const std::int64_t from = static_cast<std::int64_t>(s + gap) * kSessionRecordBytes;
          if (ReadAt(in, from, record.data(), kSessionRecordBytes) != kSessionRecordBytes ||
              !WriteRecord(out, s, record))
            return false;
        }
        return true;
      });
  return failed ? *failed : std::string();
}

SessionsLogReader::SessionsLogReader(const std::string& path) : path_(path) {
  const std::optional<LogShape> shape = ReadShape(path, error_);
  if (!shape) return;
  exists_ = shape->exists;
  count_ = shape->count;
  if (exists_) in_.open(path, std::ios::binary);
  if (exists_ && !in_) error_ = DamagedLogMessage(path);
}

bool SessionsLogReader::Read(std::int32_t s, SessionRecord& record) {
  if (!ok() || s < 1 || s > count_) return false;
  Buffer b{};
  in_.clear();
  in_.seekg(static_cast<std::streamoff>(s) * kSessionRecordBytes);
  if (!in_.read(reinterpret_cast<char*>(b.data()), kSessionRecordBytes)) return false;
  for (int n = 0; n < kSessionValues; ++n) {
    const std::int64_t raw = GetInt64(b.data() + 8 * n);
    if (raw < -kMoneyLimit.raw || raw > kMoneyLimit.raw) {
      error_ = DamagedLogMessage(path_);
      return false;
    }
    record[static_cast<std::size_t>(n)] = Currency::FromRaw(raw);
  }
  return true;
}
