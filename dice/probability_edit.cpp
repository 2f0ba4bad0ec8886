#include "dice/probability_edit.h"

#include <cmath>
#include <cstdlib>

#include "core/data_folder.h"
#include "core/game.h"
#include "core/number_text.h"

namespace {

constexpr double kTypedScale = 1000;              // the entry box's value, times 1000
constexpr int kMatrixColumns = kSecondDieColumn;  // columns 1..13 of rows 1..7
constexpr std::size_t kMaxDigits = 13;            // as the key filter allows

bool IsEntry(ProbEntry e) { return ProbabilityEntryKind(e.a, e.b) != ProbEntryKind::None; }

}  // namespace

ProbEntry SelectedProbabilityEntry(const Game& game) {
  const ProbEntry e{ProbFlag(game, 0, 1), ProbFlag(game, 0, 2)};
  return IsEntry(e) ? e : TotalEntry(2);
}

void SelectProbabilityEntry(Game& game, ProbEntry entry) {
  if (!IsEntry(entry)) return;
  ProbFlag(game, 0, 1) = entry.a;
  ProbFlag(game, 0, 2) = entry.b;
}

ProbEntry MoveProbabilityEntry(ProbEntry from, int rows, int columns) {
  if (rows != 0) {
    const ProbEntry to{from.a + rows, from.b};
    return IsEntry(to) ? to : from;
  }
  // Sideways the move skips columns that have no entry in this row (the
  // short columns of the rare totals), and stops at the matrix's edge.
  const int step = columns > 0 ? 1 : -1;
  for (int b = from.b + step; columns != 0 && b >= 1 && b <= kMatrixColumns; b += step)
    if (IsEntry({from.a, b})) return {from.a, b};
  return from;
}

std::optional<double> ParseProbabilityText(std::string_view text) {
  std::size_t i = 0, digits = 0, points = 0;
  if (!text.empty() && text[0] == '-') i = 1;
  for (std::size_t j = i; j < text.size(); ++j) {
    if (text[j] == '.') {
      ++points;
    } else if (text[j] >= '0' && text[j] <= '9') {
      ++digits;
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0 || points > 1 || digits > kMaxDigits + kProbEntryDecimals + 1)
    return std::nullopt;
  const std::string copy(text);
  return std::strtod(copy.c_str(), nullptr);
}

bool EnterProbabilityText(Game& game, ProbEntry entry, std::string_view text) {
  const auto value = ParseProbabilityText(text);
  if (!value || !IsEntry(entry)) return false;
  SetProbabilityCell(game, entry.a, entry.b, *value * kTypedScale, false);
  return true;
}

bool EnterRollsOutOf(Game& game, std::string_view text) {
  const auto n = ParseProbabilityText(text);
  if (!n || !(*n > 0) || !std::isfinite(*n)) return false;
  game.probability.RollsOutOf = *n;
  return true;
}

std::string RollsOutOfText(const Game& game) {
  std::string n = FormatNumber(game.probability.RollsOutOf, {kRollsOutOfDecimals, false, false});
  if (n.find('.') != std::string::npos) {
    while (n.back() == '0') n.pop_back();
    if (n.back() == '.') n.pop_back();
  }
  return n;
}

std::string ProbabilityFileCaption(const Game& game) {
  const std::string& path = game.probability.ProbFilePath;
  return path.empty() ? "untitled" : std::string(FileNameOf(path));
}
