#include "batch/batch_csv.h"

#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <system_error>

#include "core/file_io.h"
#include "logs/events_log.h"

namespace {

// Lines are written out in blocks of about this many bytes.
constexpr std::size_t kWriteBlock = 1 << 20;

}  // namespace

std::string CsvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (char c : text) {
    if (c == '"')
      field += "\"\"";
    else
      field += (c == '\r' || c == '\n') ? ' ' : c;
  }
  return field + '"';
}

std::string ShortestText(double value) {
  char text[32];  // the longest shortest form of a double is 24 characters
  const auto [end, ec] = std::to_chars(text, text + sizeof text, value);
  return ec == std::errc{} ? std::string(text, end) : std::string();
}

const char* SessionEndName(SessionEnd end) {
  switch (end) {
    case SessionEnd::kRolls:
      return "rolls";
    case SessionEnd::kHands:
      return "hands";
    case SessionEnd::kNoPlayerLeft:
      return "no player left";
    case SessionEnd::kGameStop:
      return "game stop";
  }
  return "";
}

const char* PlayerOutcomeName(PlayerOutcome outcome) {
  switch (outcome) {
    case PlayerOutcome::kInPlay:
      return "in play";
    case PlayerOutcome::kBroke:
      return "broke";
    case PlayerOutcome::kStopWin:
      return "stop-win";
    case PlayerOutcome::kStopLoss:
      return "stop-loss";
  }
  return "";
}

std::string SessionsCsvHeading(const std::vector<PlayerSummary>& players) {
  std::string line = "session,seed,rolls,hands,end";
  for (const PlayerSummary& s : players)
    line += ',' + CsvField(s.name + " net") + ',' + CsvField(s.name + " end");
  return line + ",stop\n";
}

void AppendSessionCsvLine(std::string& out, const SessionResult& r,
                          const std::vector<PlayerSummary>& players) {
  for (const std::int64_t n :
       std::initializer_list<std::int64_t>{r.index, r.seed, r.rolls, r.hands}) {
    AppendWhole(out, n);
    out += ',';
  }
  out += SessionEndName(r.end);
  // Nets exactly, as plain numbers: every ten-thousandth, no separators.
  for (const PlayerSummary& s : players) {
    const auto seat = static_cast<std::size_t>(s.seat);
    out += ',';
    AppendPlainAmount(out, r.net[seat]);
    out += ',';
    out += PlayerOutcomeName(r.outcome[seat]);
  }
  out += ',';
  out += CsvField(r.stop);
  out += '\n';
}

bool WriteSessionsCsv(const std::string& path, const std::vector<SessionResult>& sessions,
                      const std::vector<PlayerSummary>& players, std::string& error) {
  TempFileBeside out(path);
  const auto failed = [&] {
    error = "Cannot write " + path + ": " + SystemErrorText();
    return false;
  };
  if (!out.IsOpen()) return out.Commit(error);  // which names the file and the reason
  std::string block = SessionsCsvHeading(players);
  for (const SessionResult& r : sessions) {
    AppendSessionCsvLine(block, r, players);
    if (block.size() < kWriteBlock) continue;
    if (!WriteAll(out.File(), block.data(), block.size())) return failed();
    block.clear();
  }
  if (!WriteAll(out.File(), block.data(), block.size())) return failed();
  return out.Commit(error);
}
