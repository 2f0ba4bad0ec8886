// Sessions logs: each player's long-term record, one fixed record of 32
// amounts per finished session, in a file of 256-byte records whose first
// record is a header with the format's name and the count of sessions.
//
// Records are written when a new session starts and when a player leaves,
// never at exit (a session in progress stays in the game). A file is only
// ever rewritten whole: the new content goes to a temporary file beside it
// and is renamed into place, so a crash leaves either the old file or the
// new one, never a header that counts a record that is not there.
//
// Reading streams the file record by record: a log may hold more sessions
// than memory should, and nothing is read past the end of a short file.
//
// What must stay true:
// - Little-endian throughout: the header's count is a 32-bit signed integer
//   at byte 92; a session's value n is a 64-bit count of ten-thousandths at
//   byte 8 n of its record. Session s (from 1) is record s + 1.
// - The header count rules: records beyond it (left by a deletion) are
//   never read, and the file keeps its length when sessions are deleted.
// - A file whose header lacks "Data Format 5.0", or that is shorter than its
//   count says, is refused with the message naming it; so is a record with
//   an amount beyond kMoneyLimit (damage: the statistics never see it, so
//   their sums and ranges stay inside 64 bits), when it is read.
#pragma once

#include <array>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "core/currency.h"

struct Game;

constexpr int kSessionRecordBytes = 256;
constexpr int kSessionValues = 32;
constexpr std::string_view kSessionsLogHeader = "Ravelton Sessions Log, Data Format 5.0";
constexpr std::string_view kSessionsLogFormat = "Data Format 5.0";
constexpr std::string_view kSessionsLogTitle = "Unable to Open Ravelton Sessions Log";

using SessionRecord = std::array<Currency, kSessionValues>;

// Index of the values that the classing and the totals read.
constexpr int kHandleValue = 5;  // "$ Bets Decided (Handle)"
constexpr int kNetValue = 8;     // "$ Bets Won/Lost (Net)"
// The record's last values: the player's first CheckStacks.
constexpr int kFirstStackValue = 12;
constexpr int kStackValues = kSessionValues - kFirstStackValue;

// The cmbView text of value 0..31: "# Rolls" ... "CheckStack #19".
std::string SessionValueName(int index);

// The player's log: SessionLogPath(p), or the default when the player has none.
std::string SessionLogPathOf(const Game& game, int p);
// The player's default log: the data folder, the lower-cased name and ".slg".
std::string DefaultSessionLogPath(const Game& game, int p);
// The record of player p's current session (FigureBetTotals fills bet slot 0),
// each value within kMoneyLimit as the log takes it.
SessionRecord SessionRecordOf(Game& game, int p);
// The message for a file that is not a readable sessions log.
std::string DamagedLogMessage(const std::string& path);

// WriteSessionRecord(p): appends the record of the ending session; nothing
// when the session had no rolls or the game keeps no sessions logs.
// Returns the message when the log could not be written (a damaged file is
// left as it was).
std::optional<std::string> WriteSessionRecord(Game& game, int p);
// Writes every named player's record, showing any failure as a notice.
void WriteSessionRecords(Game& game);
void WriteSessionRecordShown(Game& game, int p);

// Appends one record to the log at `path` (created by its first record).
std::optional<std::string> AppendSessionRecord(const std::string& path, const SessionRecord& record);
// A new log with a header and no sessions (mnuNew, mnuDeleteAll).
std::optional<std::string> CreateSessionsLog(const std::string& path);
// mnuSaveAs: the log at `from`, byte for byte, to `to` (through a temporary
// file beside it); a log not yet written gives a log of no sessions. A
// damaged `from` is refused with its message.
std::optional<std::string> CopySessionsLog(const std::string& from, const std::string& to);
// mnuMerge: the sessions of the log at `from` appended, in their order,
// after the sessions of the log at `into` (created when missing). A damaged
// `from` or `into` is refused with its message and `into` stays as it was.
std::optional<std::string> MergeSessionsLogs(const std::string& into, const std::string& from);
// mnuDelete: sessions a..b (in either order). Returns the message: empty on
// success, "No sessions deleted.  Entry out of range." or the damaged text.
std::string DeleteSessions(const std::string& path, long a, long b);

// Reads a log one record at a time.
class SessionsLogReader {
 public:
  // Opens and checks the header. A missing file reads as a log of no sessions.
  explicit SessionsLogReader(const std::string& path);
  bool ok() const { return error_.empty(); }
  const std::string& error() const { return error_; }
  std::int32_t count() const { return count_; }
  bool exists() const { return exists_; }
  // Session s (1..count) into `record`; false on a read failure. A record
  // with a value beyond kMoneyLimit is false too, and from then on
  // the log is not ok() and error() tells the damage.
  bool Read(std::int32_t s, SessionRecord& record);

 private:
  std::ifstream in_;
  std::string path_, error_;
  std::int32_t count_ = 0;
  bool exists_ = false;
};
