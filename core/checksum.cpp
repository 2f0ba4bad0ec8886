#include "core/checksum.h"

#include <bit>
#include <string>
#include <type_traits>
#include <vector>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/seats.h"

namespace {

struct Fnv1a {
  std::uint64_t h = 14695981039346656037ull;
  void Bytes(const void* data, std::size_t n) {
    const auto* p = static_cast<const unsigned char*>(data);
    for (std::size_t i = 0; i < n; ++i) {
      h ^= p[i];
      h *= 1099511628211ull;
    }
  }
  // Integers by value, little-endian, so the number does not depend on padding.
  void Int(std::uint64_t v) {
    unsigned char b[8];
    for (int i = 0; i < 8; ++i) b[i] = static_cast<unsigned char>(v >> (8 * i));
    Bytes(b, 8);
  }

  template <class T>
  void Cell(const T& c) {
    if constexpr (std::is_same_v<T, std::string>) {
      // Text is no figure of play (see the header).
    } else if constexpr (std::is_same_v<T, Currency>) {
      Int(static_cast<std::uint64_t>(c.raw));
    } else if constexpr (std::is_same_v<T, double>) {
      Int(std::bit_cast<std::uint64_t>(c));
    } else if constexpr (std::is_integral_v<T>) {
      Int(static_cast<std::uint64_t>(static_cast<std::int64_t>(c)));
    } else if constexpr (std::is_same_v<T, ScriptElement>) {
      Cell(c.Kind);
      Cell(c.Value);
    } else if constexpr (std::is_same_v<T, PoolString>) {
      Cell(c.Value);
    } else {
      All(c);
    }
  }
  template <class T, std::size_t N>
  void All(const std::array<T, N>& a) {
    for (const T& c : a) Cell(c);
  }
  template <class T>
  void All(const std::vector<T>& v) {
    Int(v.size());
    for (const T& c : v) Cell(c);
  }
  template <class T>
  void All(const T& table) {
    ForEachCellFirstFastest(table, [this](const auto& c) { Cell(c); });
  }
  // A table of the graph's rings (core/graph_rows.h) as All takes it with
  // the rings stored in logical order: seats 1..8 through their history
  // columns, the House's row as it is.
  template <class T, int Hi2>
  void Ring(const Game& g, const Table2<T, 0, 8, 0, Hi2>& table) {
    if (g.GraphStart == 0) return All(table);
    for (int n = 0; n <= Hi2; ++n)
      for (int p = 0; p <= 8; ++p) Cell(table(p, p == 0 ? n : GraphHistorySlot(g, n)));
  }
};

}  // namespace

std::uint64_t TablesChecksum(const Game& g) {
  Fnv1a f;
  ForEachSeatTable(
      [&f, &g](const char*, auto, SeatReset, const auto& table) {
        using Table = std::remove_cvref_t<decltype(table)>;
        if constexpr (std::is_same_v<Table, decltype(g.GraphBankroll)> ||
                      std::is_same_v<Table, decltype(g.GraphTrend)>) {
          if (static_cast<const void*>(&table) == &g.GraphBankroll ||
              static_cast<const void*>(&table) == &g.GraphTrend)
            return f.Ring(g, table);
        }
        f.All(table);
      },
      g);
  f.All(g.RollsSince);
  f.All(g.GapTally);
  f.All(g.PayoffTbl);
  f.All(g.FieldPayoff);
  f.All(g.MidwayPayoff);
  f.All(g.FirePayoff);
  f.All(g.CheckValue);
  for (std::int64_t v :
       {g.PlayerCount, g.Die1, g.Die2, g.DiceTotal, g.Point, g.PointAtRoll, g.PointBeforeLast,
        g.LastPoint, g.PointsMadeMask, g.PointsMade, g.Shooter, g.HandShooter, g.PrevHandShooter,
        g.ComeoutsThisHand, g.PassesThisHand, g.MissesThisHand, g.GraphRollCount})
    f.Int(static_cast<std::uint64_t>(v));
  return f.h;
}
