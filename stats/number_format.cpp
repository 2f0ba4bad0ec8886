#include "stats/number_format.h"

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

struct Section {
  std::string_view prefix, suffix;
  int minWhole = 0;   // '0's before the point
  int minFrac = 0;    // '0's after it
  int maxFrac = 0;    // '0's and '#'s after it
  bool grouped = false;
  bool percent = false;
};

bool IsDigitMark(char c) { return c == '#' || c == '0'; }

Section ParseSection(std::string_view s) {
  Section sec;
  std::size_t first = s.find_first_of("#0");
  if (first == std::string_view::npos) {
    sec.prefix = s;
    sec.percent = s.find('%') != std::string_view::npos;
    return sec;
  }
  // A ',' or '.' just before the first digit mark belongs to the number.
  while (first > 0 && (s[first - 1] == ',' || s[first - 1] == '.')) --first;
  std::size_t last = first;
  for (std::size_t i = first; i < s.size(); ++i)
    if (IsDigitMark(s[i]) || s[i] == ',' || s[i] == '.') last = i;
  sec.prefix = s.substr(0, first);
  sec.suffix = s.substr(last + 1);
  bool afterPoint = false;
  for (std::size_t i = first; i <= last; ++i) {
    const char c = s[i];
    if (c == '.') {
      afterPoint = true;
    } else if (c == ',') {
      if (!afterPoint) sec.grouped = true;
    } else if (afterPoint) {
      ++sec.maxFrac;
      if (c == '0') sec.minFrac = sec.maxFrac;
    } else if (c == '0') {
      ++sec.minWhole;
    }
  }
  sec.percent = sec.prefix.find('%') != std::string_view::npos ||
                sec.suffix.find('%') != std::string_view::npos;
  return sec;
}

// The digits of |x| rounded to the section's decimals: whole and fraction.
void Digits(double magnitude, const Section& sec, std::string& whole, std::string& frac) {
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.*f", sec.maxFrac, magnitude);
  std::string_view all(buf);
  const std::size_t point = all.find('.');
  whole = std::string(all.substr(0, point));
  frac = point == std::string_view::npos ? std::string() : std::string(all.substr(point + 1));
  while (static_cast<int>(frac.size()) > sec.minFrac && !frac.empty() && frac.back() == '0')
    frac.pop_back();
}

bool AllZero(const std::string& whole, const std::string& frac) {
  return whole.find_first_not_of('0') == std::string::npos &&
         frac.find_first_not_of('0') == std::string::npos;
}

std::string Render(const Section& sec, std::string whole, const std::string& frac) {
  // Leading zeros down to the '0' marks; none at all for '#' alone.
  std::size_t keep = whole.find_first_not_of('0');
  whole = keep == std::string::npos ? std::string() : whole.substr(keep);
  while (static_cast<int>(whole.size()) < sec.minWhole) whole.insert(whole.begin(), '0');
  if (sec.grouped)
    for (int i = static_cast<int>(whole.size()) - 3; i > 0; i -= 3)
      whole.insert(static_cast<std::size_t>(i), 1, ',');
  std::string out(sec.prefix);
  out += whole;
  if (!frac.empty()) out += "." + frac;
  out += sec.suffix;
  return out;
}

}  // namespace

std::string FormatNumber(double x, std::string_view pattern) {
  if (pattern == fmt_pattern::kStandard) pattern = "#,##0.00";
  if (!std::isfinite(x)) x = 0;
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t semi = pattern.find(';', start);
    parts.push_back(pattern.substr(start, semi - start));
    if (semi == std::string_view::npos) break;
    start = semi + 1;
  }
  const bool negative = x < 0;
  const bool ownNegative = negative && parts.size() >= 2;
  Section sec = ParseSection(ownNegative ? parts[1] : parts[0]);
  double magnitude = std::fabs(x) * (sec.percent ? 100 : 1);
  std::string whole, frac;
  Digits(magnitude, sec, whole, frac);
  if ((x == 0 || AllZero(whole, frac)) && parts.size() >= 3) {
    sec = ParseSection(parts[2]);
    Digits(0, sec, whole, frac);
    return Render(sec, whole, frac);
  }
  std::string text = Render(sec, whole, frac);
  if (negative && !ownNegative && !AllZero(whole, frac)) text.insert(text.begin(), '-');
  return text;
}

std::string FormatWholeOr(double x, std::string_view whole, std::string_view other) {
  return FormatNumber(x, std::floor(x) == x ? whole : other);
}
