// Seat sets: the players 1..8 as bits of an unsigned (bit p for seat p), so
// that the roll's per-player steps visit only the seats that are taken, in
// seat order.
#pragma once

#include <bit>
#include <cstddef>

#include "core/game.h"

// Every seat 1..8 (bits 1..8).
constexpr unsigned kEverySeat = 0x1FEu;

// True when seat (or slot) p has a player's name.
inline bool SeatNamed(const Game& game, int p) {
  return !game.PlayerName[static_cast<std::size_t>(p)].empty();
}

// The seats 1..8 that have a player.
inline unsigned SeatedPlayers(const Game& game) {
  unsigned seated = 0;
  if (game.PlayerCount == 0) return seated;  // the count of named seats
  for (int p = 1; p <= 8; ++p)
    if (SeatNamed(game, p)) seated |= 1u << p;
  return seated;
}

// Calls f(p) for every seat p of `seats`, lowest first.
template <class F>
void ForEachSeatIn(unsigned seats, F&& f) {
  for (; seats != 0; seats &= seats - 1) f(std::countr_zero(seats));
}
