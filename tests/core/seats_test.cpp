// The seat visitor: every cell of every per-seat table tagged with its seat,
// a player moved, and the whole game compared with one tagged the other way
// round. A per-seat table missing from the visitor's list keeps its tags in
// place and makes the games differ.
#include "core/seats.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "core/checksum.h"
#include "engine/players.h"

namespace {

// A value for cell n of seat p's row in frame t, different for every seat.
template <class T>
void Tag(T& cell, int p, int t, int n) {
  const int tag = 1000 * p + 100 * t + n % 100 + 1;
  if constexpr (std::is_same_v<T, bool>)
    cell = p % 2 == 0;
  else if constexpr (std::is_arithmetic_v<T>)
    cell = static_cast<T>(tag);
  else if constexpr (std::is_same_v<T, Currency>)
    cell = Currency::FromRaw(tag);
  else if constexpr (std::is_same_v<T, std::string>)
    cell = "seat " + std::to_string(tag);
  else if constexpr (std::is_same_v<T, Game::StatRowSet>)
    cell = {static_cast<std::uint64_t>(tag), static_cast<std::uint64_t>(tag) << 1};
  else if constexpr (std::is_same_v<T, ScriptElement>)
    cell = {tag, tag / 2.0};
  else if constexpr (std::is_same_v<T, PoolString>)
    cell = {"pooled " + std::to_string(tag), static_cast<double>(tag)};
  else {
    cell.resize(2);  // the scripts' vectors
    Tag(cell[0], p, t, n);
    Tag(cell[1], p, t, n + 1);
  }
}

// Tags every per-seat cell of seats 1..8; seat p's cells carry the tag of seat as(p).
template <class As>
void TagSeats(Game& g, As as) {
  ForEachSeatTable(
      [&](const char*, auto axis, SeatReset, auto& table) {
        for (int p = 1; p <= 8; ++p)
          for (int t = 0; t < SeatFrames(axis); ++t) {
            int n = 0;
            for (auto& cell : SeatRow(table, p, t)) Tag(cell, as(p), t, n++);
          }
      },
      g);
}

TEST(SeatVisitor, MovingAPlayerMovesEveryPerSeatTable) {
  constexpr int kFrom = 2, kTo = 5;
  auto moved = std::make_unique<Game>();
  auto expected = std::make_unique<Game>();
  TagSeats(*moved, [](int p) { return p; });
  TagSeats(*expected, [](int p) { return p == kFrom ? kTo : p == kTo ? kFrom : p; });

  MovePlayer(*moved, kFrom, kTo);

  // What a move does besides the seats: the mover becomes the bettor, and
  // the scripts must be compiled again for their new seat numbers.
  expected->betting.CurPlayer = kTo;
  expected->roll.ScriptsOK = false;
  expected->roll.SessionDirty = true;
  EXPECT_TRUE(*moved == *expected);

  // Where they differ, name the table.
  ForEachSeatTable(
      [](const char* name, auto, SeatReset, const auto& a, const auto& b) {
        EXPECT_TRUE(a == b) << name << " did not move with the player";
      },
      *moved, *expected);
}

TEST(SeatVisitor, ResettingASeatClearsItsMoneyAndRulesButKeepsItsHistory) {
  auto g = std::make_unique<Game>();
  TagSeats(*g, [](int p) { return p; });
  const auto before = std::make_unique<Game>(*g);
  ResetPlayer(*g, 3);

  const auto fresh = std::make_unique<Game>();
  EXPECT_EQ(g->Bet(3, bet::kBankroll), fresh->Bet(3, bet::kBankroll));
  EXPECT_EQ(g->autoplay.HandleLosingBets(3), fresh->autoplay.HandleLosingBets(3));
  EXPECT_EQ(g->betting.CheckStackSlot(3, 1), fresh->betting.CheckStackSlot(3, 1));
  EXPECT_EQ(g->RollTally(FrameIndex(3, kFrameAllSessions), 5),
            before->RollTally(FrameIndex(3, kFrameAllSessions), 5));
  EXPECT_EQ(g->PlayerName[3], before->PlayerName[3]);
  // Other seats are untouched.
  ForEachSeatTable(
      [](const char* name, auto axis, SeatReset, const auto& a, const auto& b) {
        for (int p : {1, 2, 4, 8})
          for (int t = 0; t < SeatFrames(axis); ++t) {
            const auto rowA = SeatRow(a, p, t), rowB = SeatRow(b, p, t);
            EXPECT_TRUE(std::equal(rowA.begin(), rowA.end(), rowB.begin()))
                << name << " seat " << p;
          }
      },
      *g, *before);
}

}  // namespace
