// Currency: every amount of money in the game, a signed 64-bit count of
// ten-thousandths. Sums and differences are exact; the rounding rules of
// products, quotients and conversions from double live in engine/money.h.
// The type is a thin wrapper so that a count of dollars and a count of
// ten-thousandths can never be mixed up by accident.
#pragma once

#include <compare>
#include <cstdint>

struct Currency {
  static constexpr std::int64_t kScale = 10000;  // ten-thousandths per unit

  std::int64_t raw = 0;

  // An amount from its count of ten-thousandths.
  static constexpr Currency FromRaw(std::int64_t r) { return Currency{r}; }
  // An amount of whole money units (dollars).
  static constexpr Currency FromWhole(std::int64_t units) { return Currency{units * kScale}; }

  constexpr Currency& operator+=(Currency o) { raw += o.raw; return *this; }
  constexpr Currency& operator-=(Currency o) { raw -= o.raw; return *this; }
  friend constexpr Currency operator+(Currency a, Currency b) { return Currency{a.raw + b.raw}; }
  friend constexpr Currency operator-(Currency a, Currency b) { return Currency{a.raw - b.raw}; }
  friend constexpr Currency operator-(Currency a) { return Currency{-a.raw}; }
  friend constexpr auto operator<=>(Currency a, Currency b) = default;
  friend constexpr bool operator==(Currency a, Currency b) = default;

  // The amount as a double, exact for every amount below 2^53 ten-thousandths.
  constexpr double ToDouble() const { return static_cast<double>(raw) / kScale; }
  constexpr bool IsZero() const { return raw == 0; }
};

// The largest amount a CheckStack may hold, either sign.
constexpr Currency kCheckStackLimit = Currency::FromRaw(999'999'999'999'999'999);
// The largest amount, either sign, any other money figure of the game holds
// (a setting, a bet, a statistic): far inside 64 bits, so that the sums and
// products figured from such amounts cannot overflow.
constexpr Currency kMoneyLimit = Currency::FromWhole(100'000'000'000);

// The largest total a statistic sums (wagered, won or lost; a come bet's
// travel), either sign: long play at a high table sums the longer frames
// beyond kMoneyLimit, so a total has a CheckStack's bound, and the figures
// that add totals together add them in 128 bits.
constexpr Currency kStatTotalLimit = kCheckStackLimit;

// `x` held within ±`limit` (not negative): one unsigned test on the way of
// an amount already inside, as nearly every amount of a roll is.
constexpr Currency HeldWithin(Currency x, Currency limit) {
  const auto span = 2 * static_cast<std::uint64_t>(limit.raw);
  if (static_cast<std::uint64_t>(x.raw) + static_cast<std::uint64_t>(limit.raw) > span)
      [[unlikely]]
    return x.raw < 0 ? -limit : limit;
  return x;
}

// Whole-unit literal: 25_usd is Currency::FromWhole(25).
constexpr Currency operator""_usd(unsigned long long units) {
  return Currency::FromWhole(static_cast<std::int64_t>(units));
}
