#include "dice/generators.h"

#include <algorithm>
#include <cstddef>
#if defined(__SSE2__) && defined(__x86_64__)
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define RAVELTON_WIDE_MT 1  // the regeneration has an AVX2 form
#endif

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

#if defined(__SSE2__) && defined(__x86_64__)
// The dice of the four words at w, one in each 32-bit lane: the tempering
// lane by lane, then the high halves of the products with 6 of lanes 0 and
// 2 and of lanes 1 and 3, plus 1.
inline __m128i DiceOfFourWords(const std::uint32_t* w) {
  const __m128i b = _mm_set1_epi32(static_cast<int>(kMtTemperB));
  const __m128i c = _mm_set1_epi32(static_cast<int>(kMtTemperC));
  const __m128i six = _mm_set1_epi32(6), one = _mm_set1_epi32(1);
  const __m128i oddLanes = _mm_set_epi32(-1, 0, -1, 0);
  __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(w));
  y = _mm_xor_si128(y, _mm_srli_epi32(y, 11));
  y = _mm_xor_si128(y, _mm_and_si128(_mm_slli_epi32(y, 7), b));
  y = _mm_xor_si128(y, _mm_and_si128(_mm_slli_epi32(y, 15), c));
  y = _mm_xor_si128(y, _mm_srli_epi32(y, 18));
  const __m128i even = _mm_mul_epu32(y, six);
  const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(y, 32), six);
  return _mm_add_epi32(_mm_or_si128(_mm_srli_epi64(even, 32), _mm_and_si128(odd, oddLanes)), one);
}
#endif

// The die of every word (MtState::die): Int(6t / 2^32) + 1 of its tempered
// output t, which is Int(u x 6) + 1 of u = t / 2^32 exactly (see
// DieFromWord in draw.cpp). With SSE2 sixteen words at a time, their dice
// packed into one store of sixteen bytes. From word `from` (a multiple of
// sixteen) on.
void MakeDice(MtState& s, std::size_t from = 0) {
  std::size_t k = from;
#if defined(__SSE2__) && defined(__x86_64__)
  constexpr std::size_t kPerStore = 16;
  static_assert(kMtWords % kPerStore == 0);
  for (; k < kMtWords; k += kPerStore) {
    const std::uint32_t* w = &s.mt[k];
    const __m128i low = _mm_packs_epi32(DiceOfFourWords(w), DiceOfFourWords(w + 4));
    const __m128i high = _mm_packs_epi32(DiceOfFourWords(w + 8), DiceOfFourWords(w + 12));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(&s.die[k]), _mm_packus_epi16(low, high));
  }
#endif
  for (; k < kMtWords; ++k) {
    const std::uint64_t t = TemperMt(s.mt[k]);
    s.die[k] = static_cast<std::uint8_t>(((t * 6) >> 32) + 1);
  }
}

#if defined(RAVELTON_WIDE_MT)
// The AVX2 form of the regeneration: the same words and dice, eight words
// a vector. Each vector reads words k + 1..k + 8, which no store has reached
// yet, and the far words, which lie either all ahead of k (first loop) or
// all at least 227 behind it (second loop) and so are as the scalar loop
// reads them.
constexpr int kWideWords = 8;

[[gnu::target("avx2")]] inline __m256i TwistEight(const std::uint32_t* at,
                                                  const std::uint32_t* far) {
  const __m256i upper = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
  const __m256i lower = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at + 1));
  const __m256i y =
      _mm256_or_si256(_mm256_and_si256(upper, _mm256_set1_epi32(static_cast<int>(kUpperMask))),
                      _mm256_and_si256(lower, _mm256_set1_epi32(static_cast<int>(kLowerMask))));
  const __m256i odd = _mm256_sub_epi32(_mm256_setzero_si256(),
                                       _mm256_and_si256(y, _mm256_set1_epi32(1)));
  const __m256i f = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(far));
  return _mm256_xor_si256(
      _mm256_xor_si256(f, _mm256_srli_epi32(y, 1)),
      _mm256_and_si256(odd, _mm256_set1_epi32(static_cast<int>(kMatrixA))));
}

// The dice of the eight words at w, as DiceOfFourWords does for four.
[[gnu::target("avx2")]] inline __m256i DiceOfEightWords(const std::uint32_t* w) {
  const __m256i b = _mm256_set1_epi32(static_cast<int>(kMtTemperB));
  const __m256i c = _mm256_set1_epi32(static_cast<int>(kMtTemperC));
  const __m256i six = _mm256_set1_epi32(6), one = _mm256_set1_epi32(1);
  const __m256i oddLanes = _mm256_set_epi32(-1, 0, -1, 0, -1, 0, -1, 0);
  __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(w));
  y = _mm256_xor_si256(y, _mm256_srli_epi32(y, 11));
  y = _mm256_xor_si256(y, _mm256_and_si256(_mm256_slli_epi32(y, 7), b));
  y = _mm256_xor_si256(y, _mm256_and_si256(_mm256_slli_epi32(y, 15), c));
  y = _mm256_xor_si256(y, _mm256_srli_epi32(y, 18));
  const __m256i even = _mm256_mul_epu32(y, six);
  const __m256i odd = _mm256_mul_epu32(_mm256_srli_epi64(y, 32), six);
  return _mm256_add_epi32(
      _mm256_or_si256(_mm256_srli_epi64(even, 32), _mm256_and_si256(odd, oddLanes)), one);
}

[[gnu::target("avx2")]] void RegenerateMtWide(MtState& s) {
  std::uint32_t* mt = s.mt.data();
  int k = 0;
  for (; k + kWideWords <= kMtWords - kMtShift; k += kWideWords)
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(mt + k), TwistEight(mt + k, mt + k + kMtShift));
  for (; k < kMtWords - kMtShift; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift]);
  for (; k + kWideWords <= kMtWords - 1; k += kWideWords)
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(mt + k),
                        TwistEight(mt + k, mt + k + kMtShift - kMtWords));
  for (; k < kMtWords - 1; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift - kMtWords]);
  mt[kMtWords - 1] = Twist(mt[kMtWords - 1], mt[0], mt[kMtShift - 1]);
  // Thirty-two dice a store: the packs work within each half, so the four
  // groups of four come out as a0 b0 c0 d0 a1 b1 c1 d1 and one permutation
  // puts them in order.
  constexpr int kPerStore = 32;
  const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
  k = 0;
  for (; k + kPerStore <= kMtWords; k += kPerStore) {
    const std::uint32_t* w = mt + k;
    const __m256i ab = _mm256_packs_epi32(DiceOfEightWords(w), DiceOfEightWords(w + 8));
    const __m256i cd = _mm256_packs_epi32(DiceOfEightWords(w + 16), DiceOfEightWords(w + 24));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(&s.die[static_cast<std::size_t>(k)]),
                        _mm256_permutevar8x32_epi32(_mm256_packus_epi16(ab, cd), order));
  }
  static_assert(kMtWords % kPerStore % 16 == 0);
  MakeDice(s, static_cast<std::size_t>(k));  // the last sixteen
  s.mti = 0;
}
#endif

}  // namespace

void RegenerateMt(MtState& s) {
#if defined(RAVELTON_WIDE_MT)
  // The same words and dice either way; the processor decides the width.
  if (__builtin_cpu_supports("avx2")) {
    RegenerateMtWide(s);
    return;
  }
#endif
  auto& mt = s.mt;
  int k = 0;
  for (; k < kMtWords - kMtShift; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift]);
  for (; k < kMtWords - 1; ++k) mt[k] = Twist(mt[k], mt[k + 1], mt[k + kMtShift - kMtWords]);
  mt[kMtWords - 1] = Twist(mt[kMtWords - 1], mt[0], mt[kMtShift - 1]);
  MakeDice(s);
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
