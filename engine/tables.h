// Fixed tables addressed by small integers with the bounds the game's data
// model gives them, e.g. Bet (0-8, 0-200). The first subscript is the
// fastest in storage, as in the game file. Every table is a plain array of
// fixed size: no heap, copyable, comparable, and cleared with Fill.
// Subscripts are checked by assert in debug and sanitizer builds.
#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>

template <class T, int Lo, int Hi>
struct Table1 {
  static_assert(Hi >= Lo);
  static constexpr int kLow = Lo, kHigh = Hi;
  static constexpr std::size_t kSize = Hi - Lo + 1;
  std::array<T, kSize> cells{};

  constexpr T& operator()(int i) { assert(i >= Lo && i <= Hi); return cells[i - Lo]; }
  constexpr const T& operator()(int i) const { assert(i >= Lo && i <= Hi); return cells[i - Lo]; }
  void Fill(const T& v) { cells.fill(v); }
  friend bool operator==(const Table1&, const Table1&) = default;
};

template <class T, int Lo1, int Hi1, int Lo2, int Hi2>
struct Table2 {
  static_assert(Hi1 >= Lo1 && Hi2 >= Lo2);
  static constexpr int kLow1 = Lo1, kHigh1 = Hi1, kLow2 = Lo2, kHigh2 = Hi2;
  static constexpr std::size_t kRows = Hi1 - Lo1 + 1;
  static constexpr std::size_t kSize = kRows * (Hi2 - Lo2 + 1);
  std::array<T, kSize> cells{};

  static constexpr std::size_t Index(int i, int j) {
    assert(i >= Lo1 && i <= Hi1 && j >= Lo2 && j <= Hi2);
    return static_cast<std::size_t>(i - Lo1) + kRows * static_cast<std::size_t>(j - Lo2);
  }
  constexpr T& operator()(int i, int j) { return cells[Index(i, j)]; }
  constexpr const T& operator()(int i, int j) const { return cells[Index(i, j)]; }
  void Fill(const T& v) { cells.fill(v); }
  friend bool operator==(const Table2&, const Table2&) = default;
};

template <class T, int Lo1, int Hi1, int Lo2, int Hi2, int Lo3, int Hi3>
struct Table3 {
  static_assert(Hi1 >= Lo1 && Hi2 >= Lo2 && Hi3 >= Lo3);
  static constexpr int kLow1 = Lo1, kHigh1 = Hi1, kLow2 = Lo2, kHigh2 = Hi2, kLow3 = Lo3, kHigh3 = Hi3;
  static constexpr std::size_t kRows = Hi1 - Lo1 + 1;
  static constexpr std::size_t kCols = Hi2 - Lo2 + 1;
  static constexpr std::size_t kSize = kRows * kCols * (Hi3 - Lo3 + 1);
  std::array<T, kSize> cells{};

  static constexpr std::size_t Index(int i, int j, int k) {
    assert(i >= Lo1 && i <= Hi1 && j >= Lo2 && j <= Hi2 && k >= Lo3 && k <= Hi3);
    return static_cast<std::size_t>(i - Lo1) +
           kRows * (static_cast<std::size_t>(j - Lo2) + kCols * static_cast<std::size_t>(k - Lo3));
  }
  constexpr T& operator()(int i, int j, int k) { return cells[Index(i, j, k)]; }
  constexpr const T& operator()(int i, int j, int k) const { return cells[Index(i, j, k)]; }
  void Fill(const T& v) { cells.fill(v); }
  friend bool operator==(const Table3&, const Table3&) = default;
};
