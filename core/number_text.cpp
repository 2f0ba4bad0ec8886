#include "core/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kMaxDecimals = 12;

// x to `decimals` places as digits without sign: "1234.500".
int FixedDigits(double magnitude, int decimals, char* buf, int size) {
  return std::snprintf(buf, static_cast<std::size_t>(size), "%.*f", decimals, magnitude);
}

}  // namespace

std::string FormatNumber(double x, NumberFormat format) {
  const int decimals = format.decimals < 0 ? 0 : std::min(format.decimals, kMaxDecimals);
  if (!std::isfinite(x)) x = 0;
  char digits[400];
  const int n = FixedDigits(std::fabs(x), decimals, digits, sizeof digits);
  if (n <= 0 || n >= static_cast<int>(sizeof digits)) return "0";
  // The sign follows the value as shown: all digits zero is the zero section.
  bool zero = true;
  for (int i = 0; i < n; ++i)
    if (digits[i] >= '1' && digits[i] <= '9') zero = false;
  std::string out;
  if (!zero && x < 0)
    out += '-';
  else if (!zero && format.plusSign)
    out += '+';
  int whole = 0;
  while (whole < n && digits[whole] != '.') ++whole;
  for (int i = 0; i < whole; ++i) {
    if (format.grouped && i > 0 && (whole - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  out.append(digits + whole, static_cast<std::size_t>(n - whole));
  return out;
}

double RoundThroughText(double x, int decimals) {
  if (!std::isfinite(x)) return 0;
  char buf[400];
  const int n = std::snprintf(buf, sizeof buf, "%.*f", decimals, x);
  if (n <= 0 || n >= static_cast<int>(sizeof buf)) return x;
  const double y = std::strtod(buf, nullptr);
  return y == 0 ? 0.0 : y;  // no negative zero
}
