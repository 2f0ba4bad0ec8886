// A signature of a game's counted results: FNV-1a over the tally tables,
// the records, the gap tables, the bankrolls and the hand in play. Two runs
// that behave the same give the same number; the bench command prints it
// and a test pins it, so any change of behaviour shows at once.
#pragma once

#include <cstdint>

struct Game;

// FNV-1a (64-bit) of the game's tallies, records, gap tables and bankrolls.
std::uint64_t TablesChecksum(const Game& game);
