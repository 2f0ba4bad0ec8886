#include "dice/generators.h"

#include <algorithm>

namespace {

constexpr int kMtShift = 397;
constexpr std::uint32_t kMatrixA = 0x9908b0dfu;
constexpr std::uint32_t kUpperMask = 0x80000000u;
constexpr std::uint32_t kLowerMask = 0x7fffffffu;

inline std::uint32_t Twist(std::uint32_t upper, std::uint32_t lower, std::uint32_t far) {
  const std::uint32_t y = (upper & kUpperMask) | (lower & kLowerMask);
  // The low bit chooses kMatrixA by a mask rather than a branch, so that
  // the regeneration loops run four words at a time.
  return far ^ (y >> 1) ^ ((0u - (y & 1u)) & kMatrixA);
}

// Ran1's three sequences.
constexpr std::int64_t kM1 = 259200, kIA1 = 7141, kIC1 = 54773;
constexpr std::int64_t kM2 = 134456, kIA2 = 8121, kIC2 = 28411;
constexpr std::int64_t kM3 = 243000, kIA3 = 4561, kIC3 = 51349;
constexpr double kRM1 = 3.8580247e-6;
constexpr double kRM2 = 7.4373773e-6;

// Ran2's sequence.
constexpr std::int64_t kM = 714025, kIA = 1366, kIC = 150889;
constexpr double kRM = 1.4005112e-6;

// Remainder in 0..m-1 whatever the sign of a.
inline std::int32_t Mod(std::int64_t a, std::int64_t m) {
  const std::int64_t r = a % m;
  return static_cast<std::int32_t>(r < 0 ? r + m : r);
}

inline std::int32_t Step(std::int32_t x, std::int64_t ia, std::int64_t ic, std::int64_t m) {
  return Mod(ia * x + ic, m);
}

// The value Ran1 stores in its table: formed in doubles, kept in single.
inline float Ran1Value(std::int32_t ix1, std::int32_t ix2) {
  return static_cast<float>((ix1 + ix2 * kRM2) * kRM1);
}

}  // namespace

void RegenerateMt(MtState& s) {
  auto& mt = s.mt;
  int k = 0;
  for (; k < kMtWords - kMtShift; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift]);
  for (; k < kMtWords - 1; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift - kMtWords]);
  mt[kMtWords - 1] = Twist(mt[kMtWords - 1], mt[0], mt[kMtShift - 1]);
  s.mti = 0;
}

void init_genrand(MtState& s, std::uint32_t seed) {
  s.mt[0] = seed;
  for (int i = 1; i < kMtWords; ++i) {
    s.mt[i] = 1812433253u * (s.mt[i - 1] ^ (s.mt[i - 1] >> 30)) + static_cast<std::uint32_t>(i);
  }
  s.mti = kMtWords;
}

void init_by_array(MtState& s, const std::uint32_t* key, int keyLength) {
  init_genrand(s, 19650218u);
  if (keyLength < 1) return;
  auto& mt = s.mt;
  int i = 1, j = 0;
  for (int k = std::max(kMtWords, keyLength); k > 0; --k) {
    mt[i] = (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1664525u)) + key[j] +
            static_cast<std::uint32_t>(j);
    ++i;
    ++j;
    if (i >= kMtWords) {
      mt[0] = mt[kMtWords - 1];
      i = 1;
    }
    if (j >= keyLength) j = 0;
  }
  for (int k = kMtWords - 1; k > 0; --k) {
    mt[i] =
        (mt[i] ^ ((mt[i - 1] ^ (mt[i - 1] >> 30)) * 1566083941u)) - static_cast<std::uint32_t>(i);
    ++i;
    if (i >= kMtWords) {
      mt[0] = mt[kMtWords - 1];
      i = 1;
    }
  }
  mt[0] = 0x80000000u;
}

void srandMT(MtState& s, std::uint32_t seed) {
  std::uint32_t x = seed * 2u + 1u;
  for (int i = 0; i < kMtWords; ++i) {
    s.mt[i] = x;
    x *= 69069u;
  }
  s.mti = kMtWords;
}

float Ran1(Ran1State& s, std::int32_t& idum, const char** error) {
  if (idum < 0 || !s.initialised) {
    s.initialised = true;
    s.ix1 = Mod(kIC1 - idum, kM1);
    s.ix1 = Step(s.ix1, kIA1, kIC1, kM1);
    s.ix2 = Mod(s.ix1, kM2);
    s.ix1 = Step(s.ix1, kIA1, kIC1, kM1);
    s.ix3 = Mod(s.ix1, kM3);
    for (int j = 1; j <= 97; ++j) {
      s.ix1 = Step(s.ix1, kIA1, kIC1, kM1);
      s.ix2 = Step(s.ix2, kIA2, kIC2, kM2);
      s.r[j] = Ran1Value(s.ix1, s.ix2);
    }
    idum = 1;
  }
  s.ix1 = Step(s.ix1, kIA1, kIC1, kM1);
  s.ix2 = Step(s.ix2, kIA2, kIC2, kM2);
  s.ix3 = Step(s.ix3, kIA3, kIC3, kM3);
  const std::int64_t j = static_cast<std::int64_t>(s.ix3) * 97 / kM3 + 1;
  if (j < 1 || j > 97) [[unlikely]] {
    if (error) *error = "An error occurred in function Ran1";
    return 0.0f;
  }
  const float result = s.r[j];
  s.r[j] = Ran1Value(s.ix1, s.ix2);
  return result;
}

float Ran2(Ran2State& s, std::int32_t& idum, const char** error) {
  if (idum < 0 || !s.initialised) {
    s.initialised = true;
    s.idum = Mod(kIC - static_cast<std::int64_t>(idum), kM);
    for (int j = 1; j <= 97; ++j) {
      s.idum = Step(s.idum, kIA, kIC, kM);
      s.ir[j] = s.idum;
    }
    s.idum = Step(s.idum, kIA, kIC, kM);
    s.iy = s.idum;
  }
  const std::int64_t j = static_cast<std::int64_t>(s.iy) * 97 / kM + 1;
  if (j < 1 || j > 97) [[unlikely]] {
    if (error) *error = "An error occurred in function Ran2";
    return 0.0f;
  }
  s.iy = s.ir[j];
  const float result = static_cast<float>(s.iy * kRM);
  s.idum = Step(s.idum, kIA, kIC, kM);
  s.ir[j] = s.idum;
  return result;
}
