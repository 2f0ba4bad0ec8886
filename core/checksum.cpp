#include "core/checksum.h"

#include <type_traits>

#include "core/game.h"

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
  void Int(std::int64_t v) {
    unsigned char b[8];
    for (int i = 0; i < 8; ++i)
      b[i] = static_cast<unsigned char>(static_cast<std::uint64_t>(v) >> (8 * i));
    Bytes(b, 8);
  }
  template <class T>
  void Table(const T& t) {
    ForEachCellFirstFastest(t, [this](const auto& c) {
      if constexpr (std::is_same_v<std::decay_t<decltype(c)>, Currency>)
        Int(c.raw);
      else
        Int(c);
    });
  }
};

}  // namespace

std::uint64_t TablesChecksum(const Game& g) {
  Fnv1a f;
  f.Table(g.RollTally);
  f.Table(g.TotalsTally);
  f.Table(g.HandsTally);
  f.Table(g.RollsAtTable);
  f.Table(g.MostRollsHand);
  f.Table(g.MostComeoutHand);
  f.Table(g.MostPassesHand);
  f.Table(g.MostMissesHand);
  f.Table(g.RollsSince);
  f.Table(g.GapTally);
  f.Table(g.StatAction);
  f.Table(g.StatWins);
  f.Table(g.StatLosses);
  for (int p = 0; p < kPlayerSlots; ++p) {
    f.Int(g.Bet(p, 0).raw);
    f.Int(g.BankrollHigh(p).raw);
    f.Int(g.BankrollLow(p).raw);
    f.Int(g.BankrollSum(p).raw);
  }
  for (std::int64_t v : {g.Die1, g.Die2, g.Point, g.LastPoint, g.PointsMade, g.GraphRollCount})
    f.Int(v);
  return f.h;
}
