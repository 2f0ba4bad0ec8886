#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "dice/generators.h"
#include "dice/rng.h"
#include "logs/events_log.h"

namespace {

// The seed prompt: OK, Cancel, the question picture, one numeric box.
constexpr int kSeedPromptStyle = kMsgOk | kMsgCancel | kMsgSignedInput | kMsgInput1 | kMsgPicQmark;
constexpr int kSeedHelpId = kHelpLimits;

constexpr const char* kRngCaptions[kRngCount] = {
    "RNG #1", "RNG #2", "RNG #3", "RNG #4", "RNG #5",
    "RNG #6 (#1 and #5)", "RNG #7 (#2 and #4)", "RNG #8 (#1 single call)"};
// A prompt that keeps getting a bad answer (a platform that answers by rule
// with the rejected text) gives up after this many asks rather than hang.
constexpr int kMaxSeedPrompts = 20;

// Text of a whole number with thousands separators ("#,#").
std::string GroupThousands(std::int64_t v) {
  std::string digits = std::to_string(v < 0 ? -v : v);
  std::string out;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return v < 0 ? "-" + out : out;
}

// The number a typed seed begins with: blanks and thousands separators are
// skipped; text that does not begin with a number reads as 0.
double TypedNumber(std::string_view text) {
  std::string clean;
  for (char c : text) {
    if (c != ',' && c != ' ') clean += c;
  }
  std::string_view v = clean;
  if (!v.empty() && v.front() == '+') v.remove_prefix(1);
  double value = 0;
  const auto [end, ec] =
      std::from_chars(v.data(), v.data() + v.size(), value, std::chars_format::fixed);
  (void)end;
  return ec == std::errc() ? value : 0.0;
}

// Asks the user for a seed until one lies within 1..limit; none on Cancel.
std::optional<double> AskUserSeed(Game& game, Long limit) {
  if (!game.platform) return std::nullopt;
  const std::string limitText = GroupThousands(limit);
  MessageRequest request;
  request.title = "RNG Seed";
  request.helpId = kSeedHelpId;
  request.style = kSeedPromptStyle;
  request.input1 = std::to_string(game.dice.LastSeed);
  request.text = "Please enter a whole number between 1 and " + limitText +
                 " to seed the random number generator:\r";
  for (int ask = 0; ask < kMaxSeedPrompts; ++ask) {
    const MessageReply reply = game.platform->ShowMessage(request);
    if (reply.answer == 2) return std::nullopt;
    const double value = TypedNumber(reply.input1);
    if (value >= 1 && value <= limit) return value;
    request.text = "Your seed value is out of limits.\r\rPlease enter a value between 1 and " +
                   limitText + " to seed the random number generator:\r";
    request.input1 = reply.input1;
  }
  return std::nullopt;
}

// A seed from the millisecond clock (for generator 3 in tenths of seconds,
// fraction kept). A reading beyond the limit wraps into it, so that a clock
// that has run for weeks still seeds. A seed equal to the last one grows by
// 1, so two seedings within one clock tick differ.
double ClockSeed(Game& game, Long limit) {
  double x = game.platform ? static_cast<double>(game.platform->TimeGetTime()) : 0.0;
  if (game.dice.RngIndex == 2) x /= 100.0;
  if (x > limit) x = std::fmod(x, static_cast<double>(limit));
  if (x == game.dice.LastSeed && x < limit) x += 1.0;
  return x;
}

void SeedSelected(DiceState& s, Long seed) {
  std::int32_t idum = -seed;
  const auto u = static_cast<std::uint32_t>(seed);
  switch (s.RngIndex) {
    case 0:
    case 7:
      init_genrand(s.mt19937, u);
      break;
    case 1:
      srandMT(s.mtSecond, u);
      break;
    case 2:
      Rng3(s.Rng3State, 6);
      break;
    case 3:
      Ran2(s.ran2, idum, &s.RngError);
      break;
    case 4:
      Ran1(s.ran1, idum, &s.RngError);
      break;
    case 5:
      init_genrand(s.mt19937, u);
      Ran1(s.ran1, idum, &s.RngError);
      break;
    case 6:
      srandMT(s.mtSecond, u);
      Ran2(s.ran2, idum, &s.RngError);
      break;
  }
}

// Seeds the selected generator: the given seed when useGiven and at least
// 1, else the user's or the clock's. False when the seed is refused.
bool SeedRngFrom(Game& game, bool useGiven, double given) {
  DiceState& s = game.dice;
  if (s.RngIndex < 0 || s.RngIndex >= kRngCount) return false;
  const Long limit = SeedLimit(s.RngIndex);
  double seed;
  if (!useGiven && s.UserSeedMode) {
    const std::optional<double> typed = AskUserSeed(game, limit);
    if (!typed) return false;
    seed = *typed;
  } else if (!useGiven || !(given >= 1)) {
    seed = ClockSeed(game, limit);
  } else {
    seed = given;
  }
  if (!(seed >= 1 && seed <= limit)) return false;
  const auto whole = static_cast<Long>(std::nearbyint(seed));
  s.Rng3State = whole;
  s.LastSeed = whole;
  if (game.roll.LogOn) {
    std::string& line = StartEventLine(game);
    line += "    RNG #";
    AppendWhole(line, s.RngIndex + 1);
    line += " seeded: ";
    AppendWhole(line, whole);
    WriteEventLine(game, line);
  }
  SeedSelected(s, whole);
  return true;
}

}  // namespace

bool SeedRng(Game& game) { return SeedRngFrom(game, false, 0.0); }

bool SeedRngWith(Game& game, double seed) { return SeedRngFrom(game, true, seed); }

const char* RngCaption(Long rngIndex) {
  return rngIndex >= 0 && rngIndex < kRngCount ? kRngCaptions[rngIndex] : "";
}

void SelectGenerator(Game& game, Long rngIndex) {
  if (rngIndex < 0 || rngIndex >= kRngCount) return;
  game.dice.RngIndex = rngIndex;
  ApplyGeneratorFallback(game);
}

bool SeedRngNow(Game& game) {
  if (!SeedRng(game)) return false;
  ShowNotice(game, "The random number generator has now been seeded.", "RNG Seeded", kSeedHelpId,
             kMsgOk | kMsgPicOk);
  return true;
}

void SeedGeneratorsAtStartUp(Game& game) {
  DiceState& s = game.dice;
  for (const Long index : {2, 4, 3}) {
    s.RngIndex = index;
    SeedRng(game);
  }
  if (!(s.MissingDllMask & kMissingSecondMt)) {
    s.RngIndex = 1;
    SeedRng(game);
  }
  if (!(s.MissingDllMask & kMissingFirstMt)) {
    s.RngIndex = 0;
    SeedRng(game);
  }
}
