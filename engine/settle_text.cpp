#include "engine/settle_text.h"

#include <cstdint>
#include <cstdlib>

std::string PlainAmount(Currency a) {
  const bool negative = a.raw < 0;
  // The magnitude as unsigned, so the most negative amount has one too.
  const std::uint64_t m =
      negative ? 0 - static_cast<std::uint64_t>(a.raw) : static_cast<std::uint64_t>(a.raw);
  std::string s = negative ? "-" : "";
  s += std::to_string(m / Currency::kScale);
  std::uint64_t frac = m % Currency::kScale;
  if (frac != 0) {
    std::string digits = std::to_string(frac + Currency::kScale).substr(1);  // four digits
    while (digits.back() == '0') digits.pop_back();
    s += '.';
    s += digits;
  }
  return s;
}
