#include "core/money.h"

#include <cassert>
#include <cmath>
#include <cstdlib>

namespace {

using i128 = WideRaw;

Currency Saturate(i128 v) { return CurFromWide(v); }

// n / d rounded to nearest, ties to even (d above 0).
i128 DivRoundEven(i128 n, i128 d) {
  i128 q = n / d;
  i128 r = n % d;
  if (r < 0) {  // make the remainder non-negative: floor division
    r += d;
    q -= 1;
  }
  if (2 * r > d || (2 * r == d && (q & 1) != 0)) q += 1;
  return q;
}

// n / kScale rounded to nearest, ties to even: the 64-bit path of CurMul,
// where the constant divisor compiles to a multiplication.
std::int64_t DivScaleRoundEven(std::int64_t n) {
  constexpr std::int64_t d = Currency::kScale;
  std::int64_t q = n / d;
  std::int64_t r = n % d;
  if (r < 0) {
    r += d;
    q -= 1;
  }
  if (2 * r > d || (2 * r == d && (q & 1) != 0)) q += 1;
  return q;
}

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  std::int64_t q = a / b;
  if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
  return q;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

Currency CurMul(Currency a, Currency b) {
  std::int64_t product;
  if (!__builtin_mul_overflow(a.raw, b.raw, &product))
    return Currency::FromRaw(DivScaleRoundEven(product));
  return Saturate(DivRoundEven(static_cast<i128>(a.raw) * b.raw, Currency::kScale));
}

Currency CurFromWide(WideRaw raw) {
  if (raw > INT64_MAX) return kCurrencyMax;
  if (raw < INT64_MIN) return kCurrencyMin;
  return Currency::FromRaw(static_cast<std::int64_t>(raw));
}

Currency CurMulIntSaturated(Currency a, std::int64_t n) {
  return Saturate(static_cast<i128>(a.raw) * n);
}

double CurDiv(Currency a, Currency b) {
  if (b.raw == 0) return 0.0;
  return a.ToDouble() / b.ToDouble();
}

Currency CurFromDouble(double x) {
  if (std::isnan(x)) return Currency{};
  double y = x * static_cast<double>(Currency::kScale);
  // 2^63 is exactly representable; anything at or beyond it saturates.
  if (y >= 9223372036854775808.0) return kCurrencyMax;
  if (y < -9223372036854775808.0) return kCurrencyMin;
  // The default floating-point rounding is to nearest, ties to even.
  const double f = std::nearbyint(y);
  if (f >= 9223372036854775808.0) return kCurrencyMax;
  return Currency::FromRaw(static_cast<std::int64_t>(f));
}

Currency CurInt(Currency a) {
  return Currency::FromRaw(FloorDiv(a.raw, Currency::kScale) * Currency::kScale);
}

double CurInt(double x) { return std::floor(x); }

bool IsWhole(double x) { return std::floor(x) == x; }

Currency RoundDownToMultiple(Currency a, Currency m) {
  assert(m.raw > 0);
  if (m.raw <= 0) return a;
  // Int(a / m) x m lies between a - m and a: for a at least 0 it is a less
  // the remainder, with no product that could overflow.
  if (a.raw >= 0) return Currency::FromRaw(a.raw - a.raw % m.raw);
  return Saturate(static_cast<i128>(FloorDiv(a.raw, m.raw)) * m.raw);
}

Currency RoundUpToMultiple(Currency a, Currency m) {
  assert(m.raw > 0);
  if (m.raw <= 0) return Currency{};
  // q = a / m at most one half: nothing.
  if (2 * static_cast<i128>(a.raw) <= m.raw) return Currency{};
  if (a.raw % m.raw == 0) return a;
  return Saturate((static_cast<i128>(a.raw / m.raw) + 1) * m.raw);
}

namespace {

// Writes the digits of `whole` with a comma between groups of three, right
// to left ending just before `p`; returns the first character written (p
// itself when whole is 0).
char* PutGroupedDigits(char* p, std::uint64_t whole) {
  for (int count = 0; whole != 0; ++count) {
    if (count != 0 && count % 3 == 0) *--p = ',';
    *--p = static_cast<char>('0' + whole % 10);
    whole /= 10;
  }
  return p;
}

}  // namespace

void AppendMoney(std::string& out, Currency a) {
  // Digits are built right to left in a small buffer: sign, 19 digits,
  // 6 separators, point and 4 decimals fit in 32.
  char buf[40];
  char* end = buf + sizeof buf;
  char* p = end;
  bool negative = a.raw < 0;
  std::uint64_t mag =
      negative ? 0 - static_cast<std::uint64_t>(a.raw) : static_cast<std::uint64_t>(a.raw);
  std::uint64_t whole = mag / Currency::kScale;
  unsigned frac = static_cast<unsigned>(mag % Currency::kScale);
  if (mag == 0) {
    out += '0';
    return;
  }
  if (frac != 0) {
    char d[4];
    for (int i = 3; i >= 0; --i) {
      d[i] = static_cast<char>('0' + frac % 10);
      frac /= 10;
    }
    int keep = 4;
    while (keep > 2 && d[keep - 1] == '0') --keep;
    for (int i = keep - 1; i >= 0; --i) *--p = d[i];
    *--p = '.';
  }
  // "#,#" shows no digit for a whole part of 0: 0.5 reads ".50".
  p = PutGroupedDigits(p, whole);
  if (negative) *--p = '-';
  out.append(p, static_cast<std::size_t>(end - p));
}

void AppendCount(std::string& out, std::int64_t n) {
  if (n == 0) {
    out += '0';
    return;
  }
  char buf[32];  // sign, 19 digits and 6 separators
  char* end = buf + sizeof buf;
  const bool negative = n < 0;
  char* p = PutGroupedDigits(
      end, negative ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n));
  if (negative) *--p = '-';
  out.append(p, static_cast<std::size_t>(end - p));
}

std::string FormatCount(std::int64_t n) {
  std::string s;
  AppendCount(s, n);
  return s;
}

std::string FormatMoney(Currency a) {
  std::string s;
  AppendMoney(s, a);
  return s;
}

double LeadingValue(std::string_view text) {
  // A cleaned copy on the stack: blanks dropped, at most one point, then
  // an exponent. Digits that don't fit are counted, not kept.
  constexpr std::size_t kRoom = 80;
  char buf[kRoom + 16];
  std::size_t n = 0;
  std::size_t i = 0;
  auto skipBlanks = [&] {
    while (i < text.size() && IsBlank(text[i])) ++i;
  };
  skipBlanks();
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) buf[n++] = text[i++];
  bool point = false, anyDigit = false;
  long droppedWhole = 0;  // whole digits beyond the room: a power of ten each
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (IsBlank(c)) continue;
    if (IsDigit(c)) {
      anyDigit = true;
      if (n < kRoom)
        buf[n++] = c;
      else if (!point)
        ++droppedWhole;
    } else if (c == '.' && !point) {
      point = true;
      if (n < kRoom)
        buf[n++] = c;
      else
        break;  // further decimals are far below the kept digits
    } else {
      break;
    }
  }
  if (!anyDigit) return 0.0;
  long exponent = 0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    std::size_t j = i + 1;
    while (j < text.size() && IsBlank(text[j])) ++j;
    bool negExp = false;
    if (j < text.size() && (text[j] == '-' || text[j] == '+')) negExp = text[j++] == '-';
    bool expDigits = false;
    for (; j < text.size(); ++j) {
      if (IsBlank(text[j])) continue;
      if (!IsDigit(text[j])) break;
      expDigits = true;
      if (exponent < 100000) exponent = exponent * 10 + (text[j] - '0');
    }
    if (expDigits && negExp) exponent = -exponent;
  }
  exponent += droppedWhole;
  if (exponent > 100000) exponent = 100000;
  if (exponent < -100000) exponent = -100000;
  buf[n++] = 'e';
  // Write the exponent by hand: no formatting library on this path.
  long e = exponent;
  if (e < 0) {
    buf[n++] = '-';
    e = -e;
  }
  char digits[8];
  int nd = 0;
  do {
    digits[nd++] = static_cast<char>('0' + e % 10);
    e /= 10;
  } while (e != 0);
  while (nd > 0) buf[n++] = digits[--nd];
  buf[n] = '\0';
  return std::strtod(buf, nullptr);
}

namespace {

// The whole text as a plain decimal amount: blanks around, a sign, digits
// with thousands separators, one point. Beyond four decimals it rounds to
// nearest, ties to even. False when anything else is in the text.
bool ReadExactAmount(std::string_view text, Currency& out) {
  std::size_t i = 0, n = text.size();
  while (i < n && IsBlank(text[i])) ++i;
  while (n > i && IsBlank(text[n - 1])) --n;
  bool negative = false;
  if (i < n && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
  i128 value = 0;  // in ten-thousandths
  bool overflow = false, anyDigit = false, point = false;
  int decimals = 0;
  int roundDigit = -1;  // the fifth decimal
  bool stickyBelow = false;
  for (; i < n; ++i) {
    char c = text[i];
    if (IsDigit(c)) {
      anyDigit = true;
      int d = c - '0';
      if (!point) {
        if (value > static_cast<i128>(INT64_MAX) * 10)
          overflow = true;
        else
          value = value * 10 + d;
      } else if (decimals < 4) {
        value = value * 10 + d;
        ++decimals;
      } else if (roundDigit < 0) {
        roundDigit = d;
      } else if (d != 0) {
        stickyBelow = true;
      }
    } else if (c == ',' && !point && anyDigit) {
      continue;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  if (!anyDigit) return false;
  for (; decimals < 4; ++decimals) value *= 10;
  if (roundDigit > 5 || (roundDigit == 5 && (stickyBelow || (value & 1) != 0))) value += 1;
  if (overflow) value = static_cast<i128>(INT64_MAX) * 10;
  out = Saturate(negative ? -value : value);
  return true;
}

}  // namespace

Currency ParseAmount(std::string_view text) {
  double lead = LeadingValue(text);
  if (lead == 0.0) return Currency{};
  Currency exact;
  if (ReadExactAmount(text, exact)) return exact;
  return CurFromDouble(lead);
}
