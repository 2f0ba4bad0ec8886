#include "batch/batch_settings.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "core/atomic_file.h"
#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"

namespace {

constexpr char kFieldBreak = '\t';

// A whole decimal number filling `text`, when there is one.
std::optional<std::int64_t> WholeNumber(std::string_view text) {
  std::int64_t n = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
  if (ec != std::errc{} || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return n;
}

// Sets `field` from a number within low..high; anything else leaves it.
template <typename Field>
void TakeWithin(Field& field, std::string_view text, std::int64_t low, std::int64_t high) {
  if (const auto n = WholeNumber(text); n && *n >= low && *n <= high)
    field = static_cast<Field>(*n);
}

// A stop's field: blank for none, else an amount above 0 within the money
// limit; false for anything else.
bool ReadStop(std::string_view text, std::optional<Currency>& stop) {
  if (text.empty()) return true;
  const auto n = WholeNumber(text);
  if (!n || *n <= 0 || *n > kMoneyLimit.raw) return false;
  stop = Currency{*n};
  return true;
}

// A name holds no control character: every seated name passes.
bool PlainName(std::string_view name) {
  return std::none_of(name.begin(), name.end(),
                      [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

// "name<TAB>win<TAB>loss" into `stops`; a name that is not plain or a bad
// amount skips the line.
void ReadStopLine(std::string_view text, std::map<std::string, BatchStops>& stops) {
  const std::size_t first = text.find(kFieldBreak);
  if (first == std::string_view::npos || first == 0) return;
  const std::size_t second = text.find(kFieldBreak, first + 1);
  if (second == std::string_view::npos) return;
  const std::string_view name = text.substr(0, first);
  if (!PlainName(name)) return;
  BatchStops s;
  if (!ReadStop(text.substr(first + 1, second - first - 1), s.win) ||
      !ReadStop(text.substr(second + 1), s.loss) || (!s.win && !s.loss))
    return;
  if (stops.size() < kBatchStopsKept) stops[std::string(name)] = s;
}

void AppendStop(std::string& out, const std::optional<Currency>& stop) {
  if (stop) out += std::to_string(stop->raw);
}

}  // namespace

std::string BatchSettingsPath(const Game& g) { return g.roll.DataFolder + "Batch Run.txt"; }

BatchSettings ReadBatchSettings(const Game& g) {
  BatchSettings s;
  std::string bytes;
  // A file past the limit is read as far as the limit; its last line may be cut.
  if (ReadFileStart(BatchSettingsPath(g), kBatchSettingsReadLimit, bytes) != WholeFileRead::Read)
    return s;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = line.substr(0, equals), value = line.substr(equals + 1);
    if (key == "Sessions") TakeWithin(s.sessions, value, 1, kMostBatchSessions);
    if (key == "Rolls") TakeWithin(s.rolls, value, 0, kMostBatchRollsOrHands);
    if (key == "Hands") TakeWithin(s.hands, value, 0, kMostBatchRollsOrHands);
    if (key == "Seed") TakeWithin(s.seed, value, 1, kMostBatchSeed);
    if (key == "Threads") TakeWithin(s.threads, value, 0, kMostBatchThreads);
    if (key == "Stop") ReadStopLine(value, s.stops);
  }
  return s;
}

bool WriteBatchSettings(const Game& g, const BatchSettings& s, std::string& error) {
  std::string bytes = "Sessions=" + std::to_string(s.sessions) +
                      "\nRolls=" + std::to_string(s.rolls) + "\nHands=" + std::to_string(s.hands) +
                      "\nSeed=" + std::to_string(s.seed) +
                      "\nThreads=" + std::to_string(s.threads) + "\n";
  std::size_t kept = 0;
  for (const auto& [name, stops] : s.stops) {
    if (name.empty() || !PlainName(name) || (!stops.win && !stops.loss)) continue;
    if (kept++ == kBatchStopsKept) break;
    bytes += "Stop=" + name + kFieldBreak;
    AppendStop(bytes, stops.win);
    bytes += kFieldBreak;
    AppendStop(bytes, stops.loss);
    bytes += '\n';
  }
  if (!MakeFolder(g.roll.DataFolder, error)) return false;
  return WriteFileAtomically(BatchSettingsPath(g), bytes, error);
}
