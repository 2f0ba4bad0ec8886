// Moves a fixed number of cells from one place to another and clears them,
// as a hand's end does with a current-hand row.
#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

// Moves `Bytes` bytes from `from` to `to` and clears them, in blocks of at
// most kMoveBlock bytes: the compiler expands a block that short as a few
// vector moves, where a longer one becomes a rep movs / rep stos whose start
// costs more than the whole move of a row here.
constexpr std::size_t kMoveBlock = 64;

template <std::size_t Bytes>
void MoveBytes(unsigned char* from, unsigned char* to) {
  constexpr std::size_t n = Bytes < kMoveBlock ? Bytes : kMoveBlock;
  std::memcpy(to, from, n);
  std::memset(from, 0, n);
  if constexpr (Bytes > n) MoveBytes<Bytes - n>(from + n, to + n);
}

// Moves `Count` cells from `from` to `to` (another frame: never the same
// cells) and clears them. The counts are the tables' own constants, so each
// move is a fixed block copy and clear.
template <std::size_t Count, class T>
void MoveCells(T* from, T* to) {
  static_assert(std::is_trivially_copyable_v<T>);  // and all-zero bytes are T{}
  MoveBytes<Count * sizeof(T)>(reinterpret_cast<unsigned char*>(from),
                               reinterpret_cast<unsigned char*>(to));
}
