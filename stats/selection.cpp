#include "stats/selection.h"

#include <array>

#include "core/game.h"
#include "stats/number_format.h"

namespace {

constexpr std::array<std::string_view, kFrameCount> kFrameNames = {
    "Current hand", "Last hand", "Current session", "Last session", "All sessions"};
constexpr std::array<std::string_view, kFrameCount> kFrameWords = {
    "current-hand", "last-hand", "current-session", "last-session", "all-sessions"};

const std::string& Name(const Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }

}  // namespace

std::string_view FrameName(int frame) {
  return frame >= 0 && frame < kFrameCount ? kFrameNames[static_cast<std::size_t>(frame)] : "";
}

std::string_view FrameWord(int frame) {
  return frame >= 0 && frame < kFrameCount ? kFrameWords[static_cast<std::size_t>(frame)] : "";
}

int FrameOfWord(std::string_view word) {
  for (int t = 0; t < kFrameCount; ++t)
    if (kFrameWords[static_cast<std::size_t>(t)] == word) return t;
  return -1;
}

Shown ShowCount(double value, std::string_view pattern) {
  Shown s;
  s.value = value;
  s.text = FormatNumber(value, pattern);
  s.integer = true;
  s.negative = value < 0;
  return s;
}

Shown ShowValue(double value, std::string text) {
  Shown s;
  s.value = value;
  s.text = std::move(text);
  s.negative = value < 0;
  return s;
}

Shown ShowNone(std::string text) {
  Shown s;
  s.none = true;
  s.text = std::move(text);
  return s;
}

bool SeatTaken(const Game& game, int p) { return p >= 1 && p <= 8 && !Name(game, p).empty(); }

std::vector<int> SelectedSlots(const Game& game, std::int32_t bits) {
  std::vector<int> slots;
  for (int p = 1; p <= 8; ++p)
    if ((bits >> p) & 1 && SeatTaken(game, p)) slots.push_back(p);
  return slots;
}

std::string SelectedPlayersLabel(const Game& game, std::int32_t bits) {
  int present = 0;
  for (int p = 1; p <= 8; ++p) present += SeatTaken(game, p) ? 1 : 0;
  if (present == 0) return "No players present";
  const int n = static_cast<int>(SelectedSlots(game, bits).size());
  if (n == 0) return "No players selected";
  if (n == 1) return "1 Player selected";
  if (n == present) return n == 2 ? "Both players selected" : "All players selected";
  return std::to_string(n) + " players selected";
}

std::string HandCreditExplanation(const Game& game, int frame) {
  if (frame == kFrameCurrentHand && game.Shooter != game.HandShooter) {
    std::string text = "The dice were passed during the current hand.\r\rAlthough " +
                       Name(game, game.Shooter) +
                       " is presently shooting the dice, the current hand is being credited to ";
    if (SeatTaken(game, game.HandShooter))
      text += Name(game, game.HandShooter) + " who started the hand.";
    else
      text += "another player who started the hand but is no longer at the table.";
    return text;
  }
  if (frame == kFrameLastHand && game.RollsAtTable(kTableLastHand) > 0 && game.PrevHandShooter == 0)
    return "The last hand was shot by a player who is no longer at the table.";
  return {};
}
