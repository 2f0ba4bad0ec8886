// A signature of a game's state of play: FNV-1a over every per-seat table
// (through the seat visitor, so a table added there is covered at once),
// the whole-game tallies and gap tables, the payoff tables and the hand in
// play. Two runs that behave the same give the same number; the bench
// command prints it and a test pins it, so any change of behaviour shows.
//
// What must stay true:
// - The number depends only on the figures: cells are hashed by value in a
//   fixed subscript order, never by memory layout or padding.
// - Text (names, file paths, script source) is left out: a path depends on
//   the machine, and no figure of play is text.
#pragma once

#include <cstdint>

struct Game;

// FNV-1a (64-bit) of the game's per-seat and whole-game tables.
std::uint64_t TablesChecksum(const Game& game);
