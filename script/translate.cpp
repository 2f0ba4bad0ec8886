// Record translation: the quote step, one replacement row with its side
// effect, and the per-record rules of kinds.
#include "script/translate.h"

#include <algorithm>

namespace {

// The row's side effect; `end` is the end of the inserted text and comes back
// moved by whatever the effect inserted before it. Returns true if the line
// changed.
bool ApplyEffect(std::string& line, const std::string& lower, ReplaceEffect effect,
                 std::size_t& end) {
  switch (effect) {
    case ReplaceEffect::kNone:
      return false;
    case ReplaceEffect::kCloseList: {
      std::size_t at = lower.find(" on ");
      if (at == std::string::npos) at = lower.find(" to ");
      if (at == std::string::npos) at = lower.find(" from ");
      if (at == std::string::npos) return false;
      line.insert(at, 1, ')');
      if (at < end) ++end;
      return true;
    }
    case ReplaceEffect::kCloseRef: {
      std::size_t at = line.find(' ', std::min(end, line.size()));
      if (at == std::string::npos) at = line.size();
      line.insert(at, 1, ')');
      return true;
    }
    case ReplaceEffect::kNamed: {
      constexpr std::string_view kName = "CheckStackName";
      std::size_t at = lower.find("checkstack");
      if (at == std::string::npos) return false;
      // Overwriting a word with a longer one lets the line grow; what stood
      // behind the word stays.
      line.replace(at, 10, kName);
      std::fill(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(at), ' ');
      if (at < end) end += kName.size() - 10;
      return true;
    }
  }
  return false;
}

// One row over a line whose quote step is done, with its lower-case shadow.
void ReplaceRow(std::string& line, std::string& lower, const Replacement& row,
                std::string_view lowValue) {
  if (row.key.empty()) return;
  std::size_t pos = 0;
  while (pos <= lower.size()) {
    std::size_t m = lower.find(row.key, pos);
    if (m == std::string::npos) break;
    std::size_t q1 = line.find('"');
    if (q1 != std::string::npos && m > q1) break;
    line.replace(m, row.key.size(), row.value);
    lower.replace(m, row.key.size(), lowValue);
    std::size_t end = m + row.value.size();
    if (ApplyEffect(line, lower, row.effect, end)) lower = LowerCase(line);
    pos = end;
  }
}

}  // namespace

std::size_t FindNoCase(std::string_view s, std::string_view key, std::size_t from) {
  if (key.size() > s.size()) return std::string_view::npos;
  for (std::size_t i = from; i + key.size() <= s.size(); ++i) {
    std::size_t k = 0;
    while (k < key.size() && LowerChar(s[i + k]) == key[k]) ++k;
    if (k == key.size()) return i;
  }
  return std::string_view::npos;
}

void QuoteStep(std::string& line) {
  std::size_t first = line.find('"');
  if (first == std::string::npos || first + 1 >= line.size()) return;
  std::size_t last = line.rfind('"');
  for (std::size_t i = first + 1; i < last; ++i)
    if (line[i] == '"') line[i] = '\'';
}

void ApplyReplacement(std::string& line, const Replacement& row) {
  QuoteStep(line);
  std::string lower = LowerCase(line);
  ReplaceRow(line, lower, row, LowerCase(row.value));
}

void ApplyReplacementTable(std::string& line) {
  // No row inserts a double quote, so after the first quote step every
  // later one would find at most two quotes and change nothing.
  QuoteStep(line);
  // The rows' new texts in lower case, for the shadow, made once.
  static const std::vector<std::string> lowValues = [] {
    std::vector<std::string> v;
    for (const Replacement& row : ReplacementTable()) v.push_back(LowerCase(row.value));
    return v;
  }();
  std::string lower = LowerCase(line);
  const auto rows = ReplacementTable();
  for (std::size_t i = 0; i < rows.size(); ++i) ReplaceRow(line, lower, rows[i], lowValues[i]);
}

std::vector<std::string> TranslateRecords(std::span<const LegacyRecord> records) {
  std::vector<std::string> lines;
  int prev = 0;
  bool inIf = false;
  for (const LegacyRecord& rec : records) {
    if (rec.startsWithNul) continue;
    const int kind = rec.kind;
    std::string text = rec.text;
    TrimRight(text);
    if (prev == 20 && kind != 20) {
      if (!lines.empty()) {
        std::string& last = lines.back();
        last.resize(last.size() - std::min<std::size_t>(3, last.size()));
      }
    } else if (prev == 30 && inIf && kind != 30 && kind != 12) {
      lines.emplace_back(" EndIf");
      inIf = false;
    }
    if (kind == 1 || kind == 2) inIf = true;
    if (kind == 13) continue;

    std::string line;
    if (kind == 90) {
      line = " :\"" + std::string(Trim(text)) + "\":";
      QuoteStep(line);
    } else if (kind == 99) {
      line = std::move(text);
    } else {
      line = std::move(text);
      line += ' ';
      ApplyReplacementTable(line);
    }
    TrimRight(line);
    if (kind == 20) line += " and";
    if (kind == 30) line += " :";
    lines.push_back(std::move(line));
    prev = kind;
  }
  if (inIf) lines.emplace_back(" EndIf");
  return lines;
}

std::vector<std::string> TranslateLegacyScript(std::span<const LegacyRecord> records) {
  std::vector<std::string> lines = TranslateRecords(records);
  TranslatePasses(lines);
  return lines;
}
