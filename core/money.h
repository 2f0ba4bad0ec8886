// Money arithmetic on Currency: products, conversions from and to doubles,
// the floor, the text of an amount and the reading of typed amounts.
//
// Why here and not in Currency: these are the game's rules of rounding, and
// every rule of the table (odds, vig, proper units) must use the same ones.
// What must stay true:
// - Sums and differences are exact (Currency's own operators).
// - A product of two amounts is the exact product of the counts, scaled back
//   by 10,000 and rounded to the nearest ten-thousandth (ties to even).
// - A double becomes an amount by x 10,000 rounded to nearest, ties to even;
//   out-of-range values saturate and NaN is 0, so hostile input never traps.
// - Int is the floor, toward minus infinity also for negative values.
// - Quotients are never taken on amounts: both sides become doubles.
// Everything but FormatMoney is allocation-free and safe on the roll path.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/currency.h"

constexpr Currency kCurrencyMax = Currency::FromRaw(INT64_MAX);
constexpr Currency kCurrencyMin = Currency::FromRaw(INT64_MIN);

// A count of ten-thousandths wider than 64 bits (a sum of many amounts).
__extension__ typedef __int128 WideRaw;
// A wide count as an amount: the bound of its sign when it does not fit.
Currency CurFromWide(WideRaw raw);

// Product of two amounts, rounded to the nearest ten-thousandth (ties to even).
Currency CurMul(Currency a, Currency b);
// An amount times a whole count whose product overflows: the bound of its sign.
Currency CurMulIntSaturated(Currency a, std::int64_t n);
// An amount times a whole count, exact (saturating at the type's bounds).
// Inline: the payoffs multiply by whole odds on every decision.
inline Currency CurMulInt(Currency a, std::int64_t n) {
  std::int64_t product;
  if (__builtin_mul_overflow(a.raw, n, &product)) [[unlikely]]
    return CurMulIntSaturated(a, n);
  return Currency::FromRaw(product);
}
// Quotient of two amounts as doubles; b of 0 gives 0 rather than a fault.
double CurDiv(Currency a, Currency b);
// A double as an amount: x 10,000 rounded to nearest, ties to even.
Currency CurFromDouble(double x);
// The amount as a double.
inline double CurToDouble(Currency a) { return a.ToDouble(); }
// Int of an amount: the floor to a whole unit.
Currency CurInt(Currency a);
// Int of a double: the floor.
double CurInt(double x);
// Whole test on doubles: Int(x) equal to x.
bool IsWhole(double x);
// Whole test on an amount: no ten-thousandths beyond whole units.
inline bool IsWhole(Currency a) { return a.raw % Currency::kScale == 0; }
// Int(a / m) x m: a rounded down to a multiple of m (m above 0).
Currency RoundDownToMultiple(Currency a, Currency m);
// q = a / m: 0 when q is at most 0.5, (Int(q) + 1) x m when q is not whole,
// q x m when it is.
Currency RoundUpToMultiple(Currency a, Currency m);

// Text of an amount: "#,#;-#,#;0" for a whole amount, else
// "#,#.00##;-#,#.00##;0.00" (no leading zero before the point: ".50").
std::string FormatMoney(Currency a);
// Appends FormatMoney(a) to out (one growth at most).
void AppendMoney(std::string& out, Currency a);
// Text of a whole count with thousands separators: "1,234,567", "-12", "0".
std::string FormatCount(std::int64_t n);
// Appends FormatCount(n) to out.
void AppendCount(std::string& out, std::int64_t n);

// The leading numeric value of a text, as Val reads it: leading blanks,
// a sign, digits with one point, an exponent; blanks inside are skipped.
double LeadingValue(std::string_view text);
// A typed amount: 0 when the text's leading numeric value is 0, else the
// text read as an amount (thousands separators and a leading "$" allowed;
// text that is not wholly an amount gives its leading numeric value).
Currency ParseAmount(std::string_view text);
