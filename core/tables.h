// Fixed tables addressed by small integers with the bounds the game's data
// model gives them, e.g. Bet (0-8, 0-200). Every table is a plain array of
// fixed size: no heap, copyable, comparable, and cleared with Fill.
// Subscripts are checked by assert in debug and sanitizer builds.
//
// The last subscript is the fastest in memory, so everything of one player
// or one frame (a row) is contiguous: the roll's per-player snapshots and a
// hand's frame moves are block copies. Files and checksums never depend on
// this layout: they walk the subscripts in their own order.
#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <span>

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
  static constexpr std::size_t kCols = Hi2 - Lo2 + 1;
  static constexpr std::size_t kSize = kRows * kCols;
  std::array<T, kSize> cells{};

  static constexpr std::size_t Index(int i, int j) {
    assert(i >= Lo1 && i <= Hi1 && j >= Lo2 && j <= Hi2);
    return static_cast<std::size_t>(i - Lo1) * kCols + static_cast<std::size_t>(j - Lo2);
  }
  constexpr T& operator()(int i, int j) { return cells[Index(i, j)]; }
  constexpr const T& operator()(int i, int j) const { return cells[Index(i, j)]; }
  // Cells (i, j0) to (i, j1) inclusive, contiguous in memory.
  std::span<T> Span(int i, int j0, int j1) { return {&cells[Index(i, j0)], &cells[Index(i, j1)] + 1}; }
  std::span<const T> Span(int i, int j0, int j1) const {
    return {&cells[Index(i, j0)], &cells[Index(i, j1)] + 1};
  }
  void Fill(const T& v) { cells.fill(v); }
  friend bool operator==(const Table2&, const Table2&) = default;
};

template <class T, int Lo1, int Hi1, int Lo2, int Hi2, int Lo3, int Hi3>
struct Table3 {
  static_assert(Hi1 >= Lo1 && Hi2 >= Lo2 && Hi3 >= Lo3);
  static constexpr int kLow1 = Lo1, kHigh1 = Hi1, kLow2 = Lo2, kHigh2 = Hi2, kLow3 = Lo3, kHigh3 = Hi3;
  static constexpr std::size_t kRows = Hi1 - Lo1 + 1;
  static constexpr std::size_t kCols = Hi2 - Lo2 + 1;
  static constexpr std::size_t kDepth = Hi3 - Lo3 + 1;
  static constexpr std::size_t kSize = kRows * kCols * kDepth;
  std::array<T, kSize> cells{};

  static constexpr std::size_t Index(int i, int j, int k) {
    assert(i >= Lo1 && i <= Hi1 && j >= Lo2 && j <= Hi2 && k >= Lo3 && k <= Hi3);
    return (static_cast<std::size_t>(i - Lo1) * kCols + static_cast<std::size_t>(j - Lo2)) *
               kDepth +
           static_cast<std::size_t>(k - Lo3);
  }
  constexpr T& operator()(int i, int j, int k) { return cells[Index(i, j, k)]; }
  constexpr const T& operator()(int i, int j, int k) const { return cells[Index(i, j, k)]; }
  // Every cell of rows (i, j0) to (i, j1), whole depth, contiguous in memory.
  std::span<T> Span(int i, int j0, int j1) {
    return {&cells[Index(i, j0, Lo3)], &cells[Index(i, j1, Hi3)] + 1};
  }
  std::span<const T> Span(int i, int j0, int j1) const {
    return {&cells[Index(i, j0, Lo3)], &cells[Index(i, j1, Hi3)] + 1};
  }
  void Fill(const T& v) { cells.fill(v); }
  friend bool operator==(const Table3&, const Table3&) = default;
};

// Visits every cell with the first subscript fastest and the last slowest:
// the order of the game's files and checksums, whatever the memory layout.
template <class T, int Lo, int Hi, class F>
void ForEachCellFirstFastest(const Table1<T, Lo, Hi>& t, F&& visit) {
  for (const T& c : t.cells) visit(c);
}

template <class T, int Lo1, int Hi1, int Lo2, int Hi2, class F>
void ForEachCellFirstFastest(const Table2<T, Lo1, Hi1, Lo2, Hi2>& t, F&& visit) {
  for (int j = Lo2; j <= Hi2; ++j)
    for (int i = Lo1; i <= Hi1; ++i) visit(t(i, j));
}

template <class T, int Lo1, int Hi1, int Lo2, int Hi2, int Lo3, int Hi3, class F>
void ForEachCellFirstFastest(const Table3<T, Lo1, Hi1, Lo2, Hi2, Lo3, Hi3>& t, F&& visit) {
  for (int k = Lo3; k <= Hi3; ++k)
    for (int j = Lo2; j <= Hi2; ++j)
      for (int i = Lo1; i <= Hi1; ++i) visit(t(i, j, k));
}
