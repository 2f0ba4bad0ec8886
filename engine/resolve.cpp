#include "engine/resolve.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <span>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define RAVELTON_WIDE_FLAGS 1  // the working-flag resets have an AVX2 form
#endif

#include "core/bet_id_set.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/seat_set.h"
#include "core/money.h"
#include "engine/hand.h"
#include "engine/settle.h"
#include "engine/settle_text.h"
#include "logs/events_log.h"

namespace {

// The bet ids looked at, 0..87 (the real bets and a few empty ids above
// them), in eleven blocks of eight cells: a block with no money is skipped
// with one test, so a player with a few bets costs a few blocks.
constexpr int kBlock = 8;
constexpr int kIdSpan = 88;
constexpr int kBlocks = kIdSpan / kBlock;
static_assert(kIdSpan > kLastRealBet && kIdSpan - 1 <= kLastBetId);
// From the Don't Come box up (the Field, Big 6 and 8, the hardways, the
// one-roll bets, Midway and Fire) the blocks are looked at on every roll;
// below it only the ids the roll can decide.
constexpr int kFirstEveryRollBlock = bet::kDontCome / kBlock;
static_assert(kFirstEveryRollBlock * kBlock == bet::kDontCome);

// Hop id of the dice in either order, 0 for the pairs without a hop bet.
constexpr auto kHopOfDice = [] {
  std::array<std::array<std::uint8_t, 7>, 7> hop{};
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) hop[d1][d2] = static_cast<std::uint8_t>(HopId(d1, d2));
  return hop;
}();

// Groups of bets that a pass skips whole when nobody holds one of them.
constexpr BetIdSet kLays = BetIdRange(bet::kLayFirst, bet::kLayLast);
constexpr BetIdSet kDontComePoints = BetIdRange(bet::kDontComePointFirst, bet::kDontComeOddsLast);
constexpr BetIdSet kComePoints = BetIdRange(bet::kComePointFirst, bet::kComeOddsLast);
constexpr BetIdSet kPlaceAndBuy = BetIdRange(bet::kPlaceFirst, bet::kBuyLast);
constexpr BetIdSet kHardways = BetIdRange(bet::kHard4, bet::kHard10);
// The bets decided on every roll: the Field, the propositions, the hops, Midway.
constexpr BetIdSet kOneRollBets = [] {
  BetIdSet s = BetIdRange(bet::kTwo, bet::kHopLast);
  s.Add(bet::kField);
  s.Add(bet::kMidway);
  return s;
}();

// Per block, the ids that are real bets (not the bankroll, not above 85),
// bit id % 8.
constexpr auto kRealIds = [] {
  std::array<std::uint8_t, kBlocks> bits{};
  for (int b = 1; b <= kLastRealBet; ++b) bits[b / kBlock] |= std::uint8_t(1u << (b % kBlock));
  return bits;
}();
static_assert(64 % kBlock == 0, "a block never straddles two words of a BetIdSet");

// The bets of box number n that only a roll of n (or a seven) decides: the
// Lay, the Don't Come point and its odds, the Come point and its odds, the
// Place and the Buy.
constexpr int kBoxBetCount = 7;
constexpr auto kBoxBets = [] {
  std::array<std::array<std::uint8_t, kBoxBetCount>, 13> ids{};
  for (int n = 4; n <= 10; ++n)
    if (IsBoxNumber(n))
      ids[n] = {std::uint8_t(LayId(n)),          std::uint8_t(DontComeId(n)),
                std::uint8_t(DontComeId(n) + 6), std::uint8_t(ComeId(n)),
                std::uint8_t(ComeId(n) + 6),     std::uint8_t(PlaceId(n)),
                std::uint8_t(BuyId(n))};
  return ids;
}();

int HopOfDice(const Game& g) {
  return kHopOfDice[static_cast<std::size_t>(g.Die1)][static_cast<std::size_t>(g.Die2)];
}

// The seats and bets of one roll's decisions, taken as they begin. Nobody
// gains a bet during the decisions: a bet only ever changes on its own id
// (settling) or travels to a number whose decisions are already over (a
// Come or Don't Come bet and its odds). So the seats holding an id at the
// start are the only ones that can hold it when its turn comes; each is
// still asked whether its bet stands then.
struct Deciding {
  // The holders in whole 16-byte words, so that clearing them is a few stores.
  static constexpr std::size_t kHolderBytes = 96;
  static_assert(kHolderBytes >= kIdSpan && kHolderBytes % 16 == 0);
  explicit Deciding(Game& game) : g(game) {
#if defined(__SSE2__)
    for (std::size_t i = 0; i < kHolderBytes; i += 16)
      _mm_store_si128(reinterpret_cast<__m128i*>(&holders[i]), _mm_setzero_si128());
#else
    holders.fill(0);
#endif
  }
  Game& g;
  // True for the plain computation (DecideBetsVisitingAll), which looks at
  // every hop in turn rather than at the hops held.
  bool plain = false;
  // Per id, the seats with money on it (bit seat - 1).
  alignas(16) std::array<std::uint8_t, kHolderBytes> holders;
  BetIdSet held;  // the ids somebody holds
};

// Bit i set for each of the eight cells from `cell` that is not 0. With
// SSE2 the cells are tested two at a time: a 64-bit cell is 0 when both of
// its 32-bit halves are.
unsigned NonZeroCells8(const Currency* cell) {
#if defined(__SSE2__)
  static_assert(sizeof(Currency) == 8 && kBlock == 8);
  const __m128i zero = _mm_setzero_si128();
  unsigned zeroCells = 0;
  for (int i = 0; i < 8; i += 2) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cell + i));
    const __m128i halves = _mm_cmpeq_epi32(v, zero);
    const __m128i both = _mm_and_si128(halves, _mm_shuffle_epi32(halves, _MM_SHUFFLE(2, 3, 0, 1)));
    zeroCells |= static_cast<unsigned>(_mm_movemask_pd(_mm_castsi128_pd(both))) << i;
  }
  return ~zeroCells & 0xFFu;
#else
  unsigned mask = 0;
  for (int i = 0; i < 8; ++i) mask |= unsigned{cell[i].raw != 0} << i;
  return mask;
#endif
}

// Bit i set for each of the eight cells from `cell` below 0. With SSE2 the
// sign bits are read two cells at a time (a cell's sign is its top bit).
unsigned NegativeCells8(const Currency* cell) {
#if defined(__SSE2__)
  unsigned negative = 0;
  for (int i = 0; i < 8; i += 2) {
    const __m128d v = _mm_castsi128_pd(_mm_loadu_si128(reinterpret_cast<const __m128i*>(cell + i)));
    negative |= static_cast<unsigned>(_mm_movemask_pd(v)) << i;
  }
  return negative;
#else
  unsigned mask = 0;
  for (int i = 0; i < 8; ++i) mask |= unsigned{cell[i].raw < 0} << i;
  return mask;
#endif
}

// The players (bit p) with money on the table (TotalBets above 0): those
// whose bets the decisions look at, the eight totals tested together.
unsigned PlayersWithBets(const Game& g) {
  if (g.PlayerCount == 0) return 0;  // open seats hold no bets
  static_assert(decltype(g.TotalBets)::kLow == 0 && decltype(g.TotalBets)::kHigh == 8);
  const Currency* totals = &g.TotalBets(1);
  return (NonZeroCells8(totals) & ~NegativeCells8(totals)) << 1;
}

// Adds `seat` (a bit) to the holders of the real bets of one block of its bets.
[[gnu::always_inline]] inline void NoteBlock(Deciding& d, const Currency* bets, int block,
                                             unsigned seat) {
  const Currency* cell = bets + block * kBlock;
  std::int64_t any = 0;
  for (int i = 0; i < kBlock; ++i) any |= cell[i].raw;
  if (any == 0) return;
  const unsigned found = NonZeroCells8(cell) & kRealIds[static_cast<std::size_t>(block)];
  d.held.AddBlock(block * kBlock, found);
  for (unsigned mask = found; mask != 0; mask &= mask - 1)
    d.holders[static_cast<std::size_t>(block * kBlock + std::countr_zero(mask))] |= seat;
}

// Adds `seat` (a bit) to the holders of bet b if it has money on it.
[[gnu::always_inline]] inline void NoteBet(Deciding& d, const Currency* bets, int b,
                                           unsigned seat) {
  if (bets[b].IsZero()) return;
  d.holders[static_cast<std::size_t>(b)] |= seat;
  d.held.Add(b);
}

// What the roll can decide beside the bets from the Don't Come box up: a
// seven decides every bet; another roll the Come box, the line bets on a
// come-out that decides them or at the point, and the bets of the box
// number rolled.
struct RollReach {
  explicit RollReach(const Game& g) : RollReach(g.DiceTotal, g.PointAtRoll) {}
  constexpr RollReach(int total, int pointAtRoll)
      : t(total),
        seven(t == 7),
        box(IsBoxNumber(t)),
        lineBets(t == pointAtRoll || (pointAtRoll == 0 && !box)) {}
  int t;
  bool seven, box, lineBets;
};

// Adds `bit` (a seat) to the holders of each bet of `bets` the roll can decide.
void NoteSeatBets(Deciding& d, const RollReach& roll, const Currency* bets, unsigned bit) {
  if (roll.seven) {
    for (int block = 0; block < kBlocks; ++block) NoteBlock(d, bets, block, bit);
    return;
  }
  for (int block = kFirstEveryRollBlock; block < kBlocks; ++block) NoteBlock(d, bets, block, bit);
  NoteBet(d, bets, bet::kCome, bit);
  if (roll.lineBets)
    for (int b : {bet::kPassLine, bet::kPassLineOdds, bet::kDontPass, bet::kDontPassOdds})
      NoteBet(d, bets, b, bit);
  if (roll.box)
    for (int b : kBoxBets[static_cast<std::size_t>(roll.t)]) NoteBet(d, bets, b, bit);
}

// The real bets 1..85.
constexpr BetIdSet kRealBets = BetIdRange(1, kLastRealBet);

// The ids NoteSeatBets looks at, as a set: by total 2..12 and whether the
// roll decides the line bets.
constexpr auto kReachOfRoll = [] {
  std::array<std::array<BetIdSet, 2>, 13> reach{};
  for (int t = 2; t <= 12; ++t)
    for (int line = 0; line <= 1; ++line) {
      BetIdSet& s = reach[static_cast<std::size_t>(t)][static_cast<std::size_t>(line)];
      if (t == 7) {
        s = kRealBets;
        continue;
      }
      s = BetIdRange(bet::kDontCome, kLastRealBet);
      s.Add(bet::kCome);
      if (line != 0)
        for (int b : {bet::kPassLine, bet::kPassLineOdds, bet::kDontPass, bet::kDontPassOdds})
          s.Add(b);
      if (IsBoxNumber(t))
        for (int b : kBoxBets[static_cast<std::size_t>(t)]) s.Add(b);
    }
  return reach;
}();

// The held bets of player p read cell by cell, now known. Out of line: the
// seats of a roll are read so only after every id was marked.
[[gnu::noinline]] void ReadHeldBetsWhole(Game& g, int p) {
  RollState& r = g.roll;
  r.HeldBetIdsUnknown &= ~(1u << p);
  const Currency* bets = &g.Bet(p, bet::kBankroll);
  BetIdSet& held = r.HeldBetIds[static_cast<std::size_t>(p)];
  held = {};
  for (int block = 0; block < kBlocks; ++block)
    held.AddBlock(block * kBlock,
                  NonZeroCells8(bets + block * kBlock) & kRealIds[static_cast<std::size_t>(block)]);
}

// Brings the held bets of player p up to date from `look`, the ids the
// at-roll snapshots took since the last look and those marked since; false when
// they are not known this roll. When every id was marked (a new call, a
// script run, the events) the seat is read cell by cell this once, as
// cheaply as before, and its held bets are read whole at the next roll that
// marks fewer: a script that runs after every roll costs no more than that.
[[gnu::always_inline]] inline bool RefreshChangedHeldBets(Game& g, int p, const BetIdSet& look) {
  RollState& r = g.roll;
  const auto slot = static_cast<std::size_t>(p);
  const std::uint32_t bit = 1u << p;
  // Word by word: the generated comparison of the sets calls memcmp.
  if (look.words[0] == kRealBets.words[0] && look.words[1] == kRealBets.words[1]) {
    r.HeldBetIdsUnknown |= bit;
    return false;
  }
  const Currency* bets = &g.Bet(p, bet::kBankroll);
  BetIdSet& held = r.HeldBetIds[slot];
  if ((r.HeldBetIdsUnknown & bit) != 0) {
    ReadHeldBetsWhole(g, p);
    return true;
  }
  BetIdSet found;
  // Added by its truth rather than by a jump: a marked bet is as often
  // gone as still there.
  look.ForEach([&found, bets](int b) {
    found.words[static_cast<std::size_t>(b >> 6)] |= std::uint64_t{!bets[b].IsZero()} << (b & 63);
  });
  for (std::size_t w = 0; w < held.words.size(); ++w)
    held.words[w] = (held.words[w] & ~look.words[w]) | found.words[w];
  return true;
}

// The roll's look at player p: most rolls change none of his bets, which
// costs a test before RefreshChangedHeldBets.
[[gnu::always_inline]] inline bool RefreshHeldBets(Game& g, int p) {
  RollState& r = g.roll;
  const auto slot = static_cast<std::size_t>(p);
  const BetIdSet look = (r.BetIdsTakenAtRoll[slot] | r.BetIdsChanged[slot]) & kRealBets;
  r.BetIdsTakenAtRoll[slot] = {};
  if (look.Empty() && ((r.HeldBetIdsUnknown >> p) & 1u) == 0) return true;
  return RefreshChangedHeldBets(g, p, look);
}

// The ids of the bets that roll `roll` can decide (NoteSeatBets's reach).
const BetIdSet& ReachOf(const RollReach& roll) {
  return kReachOfRoll[static_cast<std::size_t>(roll.t)][static_cast<std::size_t>(roll.lineBets)];
}

// The same by the point at the roll (0 or a box number) and the total, looked
// up at once: ReachOf's reach for each of them.
constexpr int kReachPoints = 11;
constexpr auto kReachAtPoint = [] {
  std::array<std::array<BetIdSet, 13>, kReachPoints> reach{};
  for (int point = 0; point < kReachPoints; ++point)
    for (int t = 2; t <= 12; ++t) {
      const RollReach roll(t, point);
      reach[static_cast<std::size_t>(point)][static_cast<std::size_t>(t)] =
          kReachOfRoll[static_cast<std::size_t>(t)][static_cast<std::size_t>(roll.lineBets)];
    }
  return reach;
}();

const BetIdSet& ReachOfRoll(const Game& g) {
  const auto point = static_cast<unsigned>(g.PointAtRoll);
  if (point >= kReachPoints) return ReachOf(RollReach(g));  // never a point in play
  return kReachAtPoint[point][static_cast<std::size_t>(g.DiceTotal)];
}

// Each set of players 1..8 (bit p - 1) with each player's bit doubled (bits
// 2(p - 1) and 2(p - 1) + 1): the two halves of his total in OthersHaveMoney.
constexpr auto kHalvesOfPlayers = [] {
  std::array<std::uint16_t, 256> halves{};
  for (unsigned m = 0; m < 256; ++m)
    for (unsigned i = 0; i < 8; ++i)
      if ((m >> i) & 1u) halves[m] = std::uint16_t(halves[m] | (3u << (2 * i)));
  return halves;
}();

// True when a player outside `known` (bit p) has a TotalBets that is not 0,
// so that his bets must be looked at. With SSE2 the eight totals are
// compared with 0 at once as 32-bit halves, packed to a byte each.
bool OthersHaveMoney(const Game& g, unsigned known) {
  static_assert(decltype(g.TotalBets)::kLow == 0 && decltype(g.TotalBets)::kHigh == 8);
  const Currency* totals = &g.TotalBets(1);
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  auto zeroHalves = [&](int i) {
    return _mm_cmpeq_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(totals + i)), zero);
  };
  const __m128i words = _mm_packs_epi32(zeroHalves(0), zeroHalves(2));
  const __m128i words2 = _mm_packs_epi32(zeroHalves(4), zeroHalves(6));
  const auto zero16 = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(words, words2)));
  return (~zero16 & kHalvesOfPlayers[(~known >> 1) & 0xFFu]) != 0;
#else
  for (int p = 1; p <= 8; ++p)
    if (((known >> p) & 1u) == 0 && !totals[p - 1].IsZero()) return true;
  return false;
#endif
}

// The seat bit (seat - 1) of each player 1..8.
constexpr auto kSeatBitOfPlayer = [] {
  std::array<std::uint8_t, 9> bits{};
  for (int seat = 1; seat <= 8; ++seat)
    bits[static_cast<std::size_t>(PlayerOfSeat(seat))] = std::uint8_t(1u << (seat - 1));
  return bits;
}();

// Who holds each bet the roll can decide: the held bets of the players
// `known` (bit p), the bets of the players `read` looked at cell by cell.
// Holders are a seat's bit per id, so the players may come in any order.
void NoteHeldBets(Deciding& d, unsigned known, unsigned read) {
  const BetIdSet& reach = ReachOfRoll(d.g);
  ForEachSeatIn(known, [&d, &reach](int p) {
    const unsigned bit = kSeatBitOfPlayer[static_cast<std::size_t>(p)];
    const BetIdSet held = d.g.roll.HeldBetIds[static_cast<std::size_t>(p)] & reach;
    d.held = d.held | held;
    held.ForEach([&d, bit](int b) { d.holders[static_cast<std::size_t>(b)] |= bit; });
  });
  if (read == 0) return;
  const RollReach roll(d.g);
  ForEachSeatIn(read, [&d, &roll](int p) {
    NoteSeatBets(d, roll, &d.g.Bet(p, bet::kBankroll),
                 kSeatBitOfPlayer[static_cast<std::size_t>(p)]);
  });
}

// The streak of a decided bet: a win after losses starts at 1, a loss after
// wins at -1.
void ExtendTrend(Long& trend, bool won) {
  if (won)
    trend = trend < 0 ? 1 : trend + 1;
  else
    trend = trend > 0 ? -1 : trend - 1;
}

// The decision's line in the events log (its head first). Kept out of line:
// the roll path calls it only with the log on.
[[gnu::noinline, gnu::cold]] void LogDecision(Game& g, int p, int b) {
  RollState& r = g.roll;
  if (!(r.LogWins || r.LogLosses)) return;
  if (!g.autoplay.WinLossHeadWritten) {
    g.autoplay.WinLossHeadWritten = true;
    WriteEventLine(g, r.LogWins && r.LogLosses ? "    Wins/losses:"
                      : r.LogWins              ? "    Wins:"
                                               : "    Losses:");
  }
  const Currency net = g.NetPayoff;
  const bool won = r.LogWins && net > Currency{};
  if (!won && !(r.LogLosses && net < Currency{})) return;
  std::string& l = StartEventLine(g);
  l += "      ";
  l += g.PlayerName[p];
  l += won ? " won $" : " lost $";
  AppendPlainAmount(l, won ? net : -net);
  l += " on ";
  l += BetName(b);
  WriteEventLine(g, l);
}

// What a decision does beside the money, by bet id, looked up once: a Come
// point clears its flat at set and comes down unless put bets are allowed;
// the line odds and the Don't Come points and odds always come down; the
// Come and Don't Come boxes come down on a seven; a Come odds bet comes down
// when its flat is gone.
constexpr unsigned kComePointBet = 1, kDownAlways = 2, kDownOnSeven = 4, kDownWithoutFlat = 8;
constexpr auto kAfterDecision = [] {
  std::array<std::uint8_t, kLastBetId + 1> after{};
  for (int b = 1; b <= kLastRealBet; ++b) {
    unsigned a = 0;
    if (IsComePoint(b)) a |= kComePointBet;
    if (IsLineOdds(b) || IsDontComePoint(b) || IsDontComeOdds(b)) a |= kDownAlways;
    if (IsContract(b)) a |= kDownOnSeven;
    if (IsComeOdds(b)) a |= kDownWithoutFlat;
    after[static_cast<std::size_t>(b)] = static_cast<std::uint8_t>(a);
  }
  return after;
}();

// ResolveBet of the player p whose bet b holds `amount` (not 0): money,
// tallies, log, settling. Inline in each seat loop, which has read the
// amount already.
[[gnu::always_inline]] inline void DecideOne(Game& g, int p, int sign, int b, Currency amount) {
  g.CurBet = b;
  if (g.BetWorking(p, b) < 1) {
    if (std::abs(sign) >= 2) SettleNotWorking(g, p);
    return;
  }
  FigurePayoff(g, p, b, sign, amount);
  TallyBetResult(g, p, b, amount, g.NetPayoff);
  const unsigned after = kAfterDecision[static_cast<std::size_t>(b)];
  if ((after & kComePointBet) != 0) g.ComeFlatAtSet(p, b - bet::kComePointFirst) = Currency{};
  if (g.roll.LogOn) LogDecision(g, p, b);

  if (g.PayoffTbl(1, 0).IsZero() && g.NetPayoff.IsZero()) return;  // stands untouched

  // The one place a roll changes a bankroll. Wins at million-to-one payoffs
  // can carry it past the money limit on one roll (the bank limit then
  // refuses the next); it is held there, so that the game still saves to a
  // file that opens.
  Currency& bank = g.Bet(p, bet::kBankroll);
  bank = HeldWithin(bank + g.NetPayoff, kMoneyLimit);
  g.BetContract(p, b) = Currency{};
  g.roll.MarkBetChanged(p, b);  // the contract and, below, the streak

  if (after != 0 &&
      ((after & kDownAlways) != 0 || ((after & kDownOnSeven) != 0 && g.DiceTotal == 7) ||
       ((after & kComePointBet) != 0 && !g.rules.AllowPutBets) ||
       ((after & kDownWithoutFlat) != 0 && g.Bet(p, b - 6).IsZero())))
    g.BetComesDown = true;

  Long& trend = g.BetTrend(p, b, 1);
  if (g.NetPayoff < Currency{}) {
    ExtendTrend(trend, false);
    SettleLoser(g, p);
    return;
  }
  if (g.NetPayoff > Currency{}) ExtendTrend(trend, true);
  if (!g.HyperDrive && g.Bet(p, b) > Currency{} && g.autoplay.HandleWinningBets(p) == kWinManual)
    FillSettleLines(g, p, SettleKind::Winner);
  SettleWinner(g, p);
}

// ResolveBet for each of `seats` (bit seat - 1) whose bet b stands, in stick order.
[[gnu::noinline]] void ResolveSeats(Game& g, unsigned seats, int sign, int b) {
  // Most bets are held by one seat: that seat alone, without the loop.
  if ((seats & (seats - 1)) == 0) {
    const int p = PlayerOfSeat(std::countr_zero(seats) + 1);
    if (const Currency amount = g.Bet(p, b); !amount.IsZero()) DecideOne(g, p, sign, b, amount);
    return;
  }
  for (; seats != 0; seats &= seats - 1) {
    const int p = PlayerOfSeat(std::countr_zero(seats) + 1);
    if (const Currency amount = g.Bet(p, b); !amount.IsZero()) DecideOne(g, p, sign, b, amount);
  }
}

// ResolveBet for every seat holding bet b. Most bets are held by nobody,
// so the test stays in the passes and the seats loop out of them.
[[gnu::always_inline]] inline void AllSeats(Deciding& d, int sign, int b) {
  if (const unsigned seats = d.holders[static_cast<std::size_t>(b)]; seats != 0)
    ResolveSeats(d.g, seats, sign, b);
}

// A flat bet and the odds behind it, seat by seat, the odds right after the flat.
[[gnu::noinline]] void ResolveSeatsWithOdds(Game& g, unsigned seats, int flatSign, int flat,
                                            int oddsSign, int odds) {
  for (; seats != 0; seats &= seats - 1) {
    const int p = PlayerOfSeat(std::countr_zero(seats) + 1);
    if (const Currency amount = g.Bet(p, flat); !amount.IsZero())
      DecideOne(g, p, flatSign, flat, amount);
    if (const Currency amount = g.Bet(p, odds); !amount.IsZero())
      DecideOne(g, p, oddsSign, odds, amount);
  }
}

[[gnu::always_inline]] inline void FlatWithOdds(Deciding& d, int flatSign, int flat, int oddsSign,
                                                int odds) {
  const unsigned seats =
      d.holders[static_cast<std::size_t>(flat)] | d.holders[static_cast<std::size_t>(odds)];
  if (seats != 0) ResolveSeatsWithOdds(d.g, seats, flatSign, flat, oddsSign, odds);
}

// Losers of the box number n: the Don't Come point with its odds, the Lay,
// and the hardway unless the dice are a pair.
void LoseBoxNumber(Deciding& d, int n, int hard, bool pair) {
  FlatWithOdds(d, kLoses, DontComeId(n), kOddsLoses, DontComeId(n) + 6);
  AllSeats(d, kLoses, LayId(n));
  if (hard && !pair) AllSeats(d, kLoses, hard);
}

// The Field and the one-roll bets the dice miss (a hop bet missed is taken by
// total, then by the lower die).
void OneRollLosers(Deciding& d) {
  const Game& g = d.g;
  const int t = g.DiceTotal;
  // The Field is decided on every roll; its row says win, push or lose.
  AllSeats(d, kWins, bet::kField);
  if (t < 6 || t > 8) AllSeats(d, kLoses, bet::kMidway);

  if (t != 2) AllSeats(d, kLoses, bet::kTwo);
  if (t != 3) AllSeats(d, kLoses, bet::kThree);
  if (t != 7) AllSeats(d, kLoses, bet::kSeven);
  if (t != 11) AllSeats(d, kLoses, bet::kEleven);
  if (t != 12) AllSeats(d, kLoses, bet::kTwelve);
  if (t >= 4 && t <= 11) AllSeats(d, kLoses, bet::kCraps);
  if (t >= 4 && t <= 10) AllSeats(d, kLoses, bet::kCandE);
  if (t >= 4 && t <= 10) AllSeats(d, kLoses, bet::kHorn);
  if (IsBoxNumber(t)) AllSeats(d, kLoses, bet::kWorld);

  if (t <= 7) AllSeats(d, kLoses, bet::kOver7);
  if (t >= 8) AllSeats(d, kWins, bet::kOver7);
  if (t >= 7) AllSeats(d, kLoses, bet::kUnder7);
  if (t <= 6) AllSeats(d, kWins, bet::kUnder7);

  // The hops held are put each at its place in the order (by total, then
  // by the lower die) and walked, so that only they are looked at.
  static constexpr auto kHopOrder = [] {
    std::array<int, kHopCount> order{};
    std::size_t n = 0;
    for (int total = 2; total <= 12; ++total)
      for (int low = 1; low <= 6 && low <= total - low; ++low)
        if (const int id = total - low <= 6 ? HopId(low, total - low) : 0) order[n++] = id;
    return order;
  }();
  static constexpr auto kHopRank = [] {
    std::array<std::uint8_t, kHopCount> rank{};
    for (std::size_t i = 0; i < kHopOrder.size(); ++i)
      rank[static_cast<std::size_t>(kHopOrder[i] - bet::kHopFirst)] = std::uint8_t(i);
    return rank;
  }();
  static_assert(bet::kHopFirst >= 64 && bet::kHopLast < 128);
  unsigned held =
      static_cast<unsigned>(d.held.words[1] >> (bet::kHopFirst - 64)) & ((1u << kHopCount) - 1);
  if (held == 0) return;
  const int hit = HopOfDice(g);
  if (d.plain) {  // every hop in turn, as the rule reads
    for (int b : kHopOrder)
      if (b != hit) AllSeats(d, kLoses, b);
    return;
  }
  if (hit != 0) held &= ~(1u << (hit - bet::kHopFirst));
  unsigned ranks = 0;
  for (; held != 0; held &= held - 1)
    ranks |= 1u << kHopRank[static_cast<std::size_t>(std::countr_zero(held))];
  for (; ranks != 0; ranks &= ranks - 1)
    AllSeats(d, kLoses, kHopOrder[static_cast<std::size_t>(std::countr_zero(ranks))]);
}

void LosersPass(Deciding& d) {
  const Game& g = d.g;
  const int t = g.DiceTotal;
  const bool co = g.PointAtRoll == 0;
  const bool pair = g.Die1 == g.Die2;

  if (t == g.PointAtRoll) FlatWithOdds(d, kLoses, bet::kDontPass, kOddsLoses, bet::kDontPassOdds);

  switch (t) {
    case 2:
    case 3:
    case 12:
      if (co) AllSeats(d, kLoses, bet::kPassLine);
      AllSeats(d, kLoses, bet::kCome);
      break;
    case 4:
      LoseBoxNumber(d, 4, bet::kHard4, pair);
      break;
    case 5:
      LoseBoxNumber(d, 5, 0, pair);
      break;
    case 6:
      LoseBoxNumber(d, 6, bet::kHard6, pair);
      break;
    case 8:
      LoseBoxNumber(d, 8, bet::kHard8, pair);
      break;
    case 9:
      LoseBoxNumber(d, 9, 0, pair);
      break;
    case 10:
      LoseBoxNumber(d, 10, bet::kHard10, pair);
      break;
    case 7:
      if (co) {
        AllSeats(d, kLoses, bet::kDontPass);
      } else {
        FlatWithOdds(d, kLoses, bet::kPassLine, kOddsLoses, bet::kPassLineOdds);
        if (g.FirePayoff(1, FireRow(g)) < Currency{}) AllSeats(d, kLoses, bet::kFire);
      }
      if (d.held.Meets(kComePoints))
        for (int b = bet::kComePointFirst; b <= bet::kComePointLast; ++b)
          FlatWithOdds(d, kLoses, b, kOddsLoses, b + 6);
      AllSeats(d, kLoses, bet::kDontCome);
      AllSeats(d, kLoses, bet::kBig6);
      AllSeats(d, kLoses, bet::kBig8);
      if (d.held.Meets(kHardways))
        for (int b = bet::kHard4; b <= bet::kHard10; ++b) AllSeats(d, kLoses, b);
      if (d.held.Meets(kPlaceAndBuy))
        for (int b = bet::kPlaceFirst; b <= bet::kBuyLast; ++b) AllSeats(d, kLoses, b);
      break;
    case 11:
      if (co) AllSeats(d, kLoses, bet::kDontPass);
      AllSeats(d, kLoses, bet::kDontCome);
      break;
    default:
      break;
  }

  if (d.held.Meets(kOneRollBets)) OneRollLosers(d);
}

bool IsPointMade(const Game& g) {
  return g.DiceTotal == g.PointAtRoll && IsBoxNumber(g.DiceTotal);
}

// Counts the point just made among the hand's points made.
void CountPointMade(Game& g) {
  const int bit = 1 << BoxIndex(g.DiceTotal);
  if ((g.PointsMadeMask & bit) == 0) {
    g.PointsMadeMask |= bit;
    ++g.PointsMade;
  }
}

void PointMade(Deciding& d) {
  if (!IsPointMade(d.g)) return;
  FlatWithOdds(d, kWins, bet::kPassLine, kOddsWins, bet::kPassLineOdds);
  CountPointMade(d.g);
}

// Winners of box number n: the Come point with its odds, Place, Buy.
void WinBoxNumber(Deciding& d, int n) {
  FlatWithOdds(d, kWins, ComeId(n), kOddsWins, ComeId(n) + 6);
  AllSeats(d, kWins, PlaceId(n));
  AllSeats(d, kWins, BuyId(n));
}

// The Come and Don't Come boxes travel to the number, in player order
// (MoveBet leaves a box without money alone).
void Travel(Deciding& d, int n) {
  Game& g = d.g;
  if (d.holders[bet::kCome] != 0)
    for (int p = 1; p <= 8; ++p)
      if (g.Bet(p, bet::kCome) > Currency{}) MoveBet(g, p, bet::kCome, ComeId(n));
  if (d.holders[bet::kDontCome] != 0)
    for (int p = 1; p <= 8; ++p)
      if (g.Bet(p, bet::kDontCome) > Currency{}) MoveBet(g, p, bet::kDontCome, DontComeId(n));
}

// The one-roll bets that a 2, 3 or 12 pays, in their order.
void WinCrapsProps(Deciding& d, int single) {
  AllSeats(d, kWins, single);
  AllSeats(d, kWins, bet::kCraps);
  AllSeats(d, kWins, bet::kCandE);
  AllSeats(d, kWins, bet::kHorn);
  AllSeats(d, kWins, bet::kWorld);
}

// The hop bet of the dice on the table, in either order.
void WinHop(Deciding& d) { AllSeats(d, kWins, HopOfDice(d.g)); }

// Winners of a six or an eight: the box number, its Big bet, the Midway, the
// hardway on a pair, the hop, and the Come bets that travel to it.
void WinSixOrEight(Deciding& d, int n, int big, int hard, bool pair) {
  WinBoxNumber(d, n);
  AllSeats(d, kWins, big);
  AllSeats(d, kWins, bet::kMidway);
  if (pair) AllSeats(d, kWins, hard);
  WinHop(d);
  Travel(d, n);
}

void WinnersPass(Deciding& d) {
  Game& g = d.g;
  const int t = g.DiceTotal;
  const bool co = g.PointAtRoll == 0;
  const bool pair = g.Die1 == g.Die2;
  const int bar = g.rules.BarNumber;

  switch (t) {
    case 2:
      if (co && bar == 12) AllSeats(d, kWins, bet::kDontPass);
      WinCrapsProps(d, bet::kTwo);
      if (bar == 12) AllSeats(d, kWins, bet::kDontCome);
      break;
    case 3:
      if (co) AllSeats(d, kWins, bet::kDontPass);
      WinCrapsProps(d, bet::kThree);
      AllSeats(d, kWins, bet::kDontCome);
      break;
    case 12:
      if (co && bar == 2) AllSeats(d, kWins, bet::kDontPass);
      WinCrapsProps(d, bet::kTwelve);
      if (bar == 2) AllSeats(d, kWins, bet::kDontCome);
      break;
    case 4:
      WinBoxNumber(d, 4);
      if (pair) AllSeats(d, kWins, bet::kHard4);
      WinHop(d);
      Travel(d, 4);
      break;
    case 5:
      WinBoxNumber(d, 5);
      WinHop(d);
      Travel(d, 5);
      break;
    case 6:
      WinSixOrEight(d, 6, bet::kBig6, bet::kHard6, pair);
      break;
    case 7:
      AllSeats(d, kWins, bet::kCome);
      if (co) {
        AllSeats(d, kWins, bet::kPassLine);
      } else {
        FlatWithOdds(d, kWins, bet::kDontPass, kOddsWins, bet::kDontPassOdds);
      }
      // Don't Come points and Lay bets work on a come-out too: the seven
      // pays them on either phase (an off bet simply stands).
      if (d.held.Meets(kDontComePoints))
        for (int b = bet::kDontComePointFirst; b <= bet::kDontComePointLast; ++b)
          FlatWithOdds(d, kWins, b, kOddsWins, b + 6);
      if (d.held.Meets(kLays))
        for (int b = bet::kLayFirst; b <= bet::kLayLast; ++b) AllSeats(d, kWins, b);
      AllSeats(d, kWins, bet::kMidway);
      AllSeats(d, kWins, bet::kSeven);
      AllSeats(d, kWins, bet::kWorld);
      WinHop(d);
      if (!co) EndHand(g);
      break;
    case 8:
      WinSixOrEight(d, 8, bet::kBig8, bet::kHard8, pair);
      break;
    case 9:
      WinBoxNumber(d, 9);
      WinHop(d);
      Travel(d, 9);
      break;
    case 10:
      WinBoxNumber(d, 10);
      if (pair) AllSeats(d, kWins, bet::kHard10);
      WinHop(d);
      Travel(d, 10);
      break;
    case 11:
      if (co) AllSeats(d, kWins, bet::kPassLine);
      AllSeats(d, kWins, bet::kEleven);
      AllSeats(d, kWins, bet::kCandE);
      AllSeats(d, kWins, bet::kCome);
      AllSeats(d, kWins, bet::kHorn);
      AllSeats(d, kWins, bet::kWorld);
      break;
    default:
      break;
  }
}

}  // namespace

namespace {

// With nothing the roll can decide on the table, only the points made and
// the hand's end at a seven-out have anything to do.
void DecideNothingHeld(Game& g) {
  if (IsPointMade(g)) CountPointMade(g);
  if (g.DiceTotal == 7 && g.PointAtRoll > 0) EndHand(g);
}

// The passes over the bets of `d`.
void RunPasses(Deciding& d) {
  if (d.held.Empty()) {
    DecideNothingHeld(d.g);
    return;
  }
  LosersPass(d);
  PointMade(d);
  WinnersPass(d);
}

}  // namespace

namespace {

// The Pass Line and its odds, both in the first word of a BetIdSet.
constexpr std::uint64_t kPassLineWord =
    (std::uint64_t{1} << bet::kPassLine) | (std::uint64_t{1} << bet::kPassLineOdds);
static_assert(bet::kPassLine < 64 && bet::kPassLineOdds < 64);

// True when `s` holds a bet other than the Pass Line and its odds.
constexpr bool MeetsAllButPassLine(const BetIdSet& s) {
  return ((s.words[0] & ~kPassLineWord) | s.words[1]) != 0;
}

// The decisions of a roll whose bets of the players `known` (bit p) it can
// decide are only the Pass Line and its odds, when nobody else has money:
// the passes would visit just these two ids (each once) and nothing else,
// so they are decided here seat by seat in stick order, the odds right after
// the flat, as the passes do, without gathering the holders. A come-out 7
// or 11 wins the flat and a 2, 3 or 12 loses it; with a point on, the point
// wins both and a seven loses both and ends the hand. False, having done
// nothing, for any other roll (a point outside the box numbers) or when
// somebody else has money, which the passes then take.
[[gnu::noinline]] bool DecidePassLineOnly(Game& g, unsigned known) {
  if (g.PlayerCount == 0 || OthersHaveMoney(g, known)) return false;
  const int t = g.DiceTotal, point = g.PointAtRoll;
  int sign = kWins;
  const bool withOdds = point != 0;
  if (point == 0) {
    if (t == 2 || t == 3 || t == 12)
      sign = kLoses;
    else if (t != 7 && t != 11)
      return false;
  } else if (!IsBoxNumber(point) || (t != point && t != 7)) {
    return false;
  } else if (t == 7) {
    sign = kLoses;
  }
  // The seats of the players with money on the table, as DecideHeld takes them
  // (PlayersWithBets, whose test of all eight totals at once a table of one
  // line bettor does not need).
  unsigned seats = 0;
  ForEachSeatIn(known, [&g, &seats](int p) {
    if (g.TotalBets(p) > Currency{}) seats |= kSeatBitOfPlayer[static_cast<std::size_t>(p)];
  });
  for (; seats != 0; seats &= seats - 1) {
    const int p = PlayerOfSeat(std::countr_zero(seats) + 1);
    if (const Currency flat = g.Bet(p, bet::kPassLine); !flat.IsZero())
      DecideOne(g, p, sign, bet::kPassLine, flat);
    if (const Currency odds = g.Bet(p, bet::kPassLineOdds); withOdds && !odds.IsZero())
      DecideOne(g, p, 2 * sign, bet::kPassLineOdds, odds);  // kOddsWins or kOddsLoses
  }
  if (point != 0) {
    if (t == point)
      CountPointMade(g);
    else
      EndHand(g);
  }
  return true;
}

// The decisions of a roll that can meet a bet on the table: the holders of
// each id gathered, then the passes. Out of line, so that a roll deciding
// nothing never sets up its frame.
[[gnu::noinline]] void DecideHeld(Game& g, unsigned known) {
  Deciding d{g};
  const unsigned withBets = PlayersWithBets(g);
  NoteHeldBets(d, withBets & known, withBets & ~known);
  RunPasses(d);
}

}  // namespace

void DecideBets(Game& g) {
  g.autoplay.WinLossHeadWritten = false;
  DecideHeld(g, 0);
}

// The held bets of the players `known` are taken from RollState, every
// other seat's read cell by cell. When none of the known players' held bets
// is in the roll's reach and nobody else has money, the roll decides
// nothing, which is most rolls of a table of line bets: the holders are not
// gathered.
void DecideRolledBets(Game& g, unsigned seated) {
  unsigned known = 0;
  BetIdSet reached;  // the known players' held bets in the reach
  if (seated != 0) {
    const BetIdSet& reach = ReachOfRoll(g);
    ForEachSeatIn(seated, [&g, &known, &reached, &reach](int p) {
      if (!RefreshHeldBets(g, p)) return;
      known |= 1u << p;
      reached = reached | (g.roll.HeldBetIds[static_cast<std::size_t>(p)] & reach);
    });
  }
  g.autoplay.WinLossHeadWritten = false;
  // Open seats hold no bets: an empty table asks nothing more.
  if (reached.Empty() && (g.PlayerCount == 0 || !OthersHaveMoney(g, known)))
    DecideNothingHeld(g);
  else if (MeetsAllButPassLine(reached) || !DecidePassLineOnly(g, known))
    DecideHeld(g, known);
}

void DecideBetsVisitingAll(Game& g) {
  g.autoplay.WinLossHeadWritten = false;
  Deciding d{g};
  d.plain = true;
  constexpr std::uint8_t kEveryHolder = 0xFF;  // bit seat - 1 for seats 1..8
  for (int b = 1; b <= kLastRealBet; ++b) d.holders[static_cast<std::size_t>(b)] = kEveryHolder;
  d.held = BetIdRange(1, kLastRealBet);
  RunPasses(d);
}

void ResolveBet(Game& g, int seat, int sign, int b) {
  assert(seat >= 1 && seat <= 8 && IsRealBet(b));
  const int p = PlayerOfSeat(seat);
  if (const Currency amount = g.Bet(p, b); !amount.IsZero()) DecideOne(g, p, sign, b, amount);
}

void ResetWorkingFlags(Game& g) {
  // An open seat is skipped: a player who sits down gets the working flags
  // of the phase in play.
  ResetWorkingFlags(g, SeatedPlayers(g));
}

namespace {

// The working flags of ids 1..85 as whole vectors of four and a tail.
constexpr std::size_t kFlagsPerVector = 4;
constexpr std::size_t kFlagVectors = kLastRealBet / kFlagsPerVector;
static_assert(sizeof(Long) * kFlagsPerVector == 16);

// Each reset below stores the flags it sets also at `copy` (the row's
// after-roll copy, or the row itself when there is none to keep).

// A flag that is off (0) comes on (1); the others stay.
void TurnOffFlagsOn(std::span<Long, kLastRealBet> working, Long* copy) {
  std::size_t i = 0;
#if defined(__SSE2__)
  // w - (w == 0 ? -1 : 0), four flags a vector; unrolled so that the loop's
  // own count and jump are shared by a few vectors.
  const __m128i zero = _mm_setzero_si128();
#pragma GCC unroll 7
  for (std::size_t v = 0; v < kFlagVectors; ++v, i += kFlagsPerVector) {
    auto* at = reinterpret_cast<__m128i*>(&working[i]);
    const __m128i w = _mm_loadu_si128(at);
    const __m128i set = _mm_sub_epi32(w, _mm_cmpeq_epi32(w, zero));
    _mm_storeu_si128(at, set);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(copy + i), set);
  }
#endif
  for (; i < working.size(); ++i) copy[i] = working[i] += Long{working[i] == 0};
}

// A flag the player called (on: 2, off: -1) stays; the others go back to their defaults.
void RestoreFlagDefaults(std::span<Long, kLastRealBet> working,
                         std::span<const Long, kLastRealBet> defaults, Long* copy) {
  constexpr Long kCalledOn = 2, kCalledOff = -1;
  std::size_t i = 0;
#if defined(__SSE2__)
  const __m128i on = _mm_set1_epi32(kCalledOn), off = _mm_set1_epi32(kCalledOff);
#pragma GCC unroll 7
  for (std::size_t v = 0; v < kFlagVectors; ++v, i += kFlagsPerVector) {
    auto* at = reinterpret_cast<__m128i*>(&working[i]);
    const __m128i w = _mm_loadu_si128(at);
    const __m128i d = _mm_loadu_si128(reinterpret_cast<const __m128i*>(&defaults[i]));
    const __m128i called = _mm_or_si128(_mm_cmpeq_epi32(w, on), _mm_cmpeq_epi32(w, off));
    const __m128i set = _mm_or_si128(_mm_and_si128(called, w), _mm_andnot_si128(called, d));
    _mm_storeu_si128(at, set);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(copy + i), set);
  }
#endif
  for (; i < working.size(); ++i) {
    const Long w = working[i];
    copy[i] = working[i] = (w == kCalledOn || w == kCalledOff) ? w : defaults[i];
  }
}

#if defined(RAVELTON_WIDE_FLAGS)
// With AVX2 eight flags a vector: ten vectors and one more over the last
// eight flags, whose first three the tenth has done already. Both resets
// may do a flag twice: a flag one has set is a flag it leaves as it is.
constexpr std::size_t kWideFlags = 8;
constexpr std::size_t kWideVectors = (kLastRealBet + kWideFlags - 1) / kWideFlags;
constexpr std::size_t kLastWideStart = kLastRealBet - kWideFlags;
static_assert(sizeof(Long) * kWideFlags == 32);

// The first flag of wide vector v.
constexpr std::size_t WideStart(std::size_t v) {
  return std::min(v * kWideFlags, kLastWideStart);
}

[[gnu::target("avx2")]] void TurnOffFlagsOnWide(std::span<Long, kLastRealBet> working,
                                                Long* copy) {
  const __m256i zero = _mm256_setzero_si256();
#pragma GCC unroll 11
  for (std::size_t v = 0; v < kWideVectors; ++v) {
    auto* at = reinterpret_cast<__m256i*>(&working[WideStart(v)]);
    const __m256i w = _mm256_loadu_si256(at);
    const __m256i set = _mm256_sub_epi32(w, _mm256_cmpeq_epi32(w, zero));
    _mm256_storeu_si256(at, set);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(copy + WideStart(v)), set);
  }
}

[[gnu::target("avx2")]] void RestoreFlagDefaultsWide(std::span<Long, kLastRealBet> working,
                                                     std::span<const Long, kLastRealBet> defaults,
                                                     Long* copy) {
  constexpr Long kCalledOn = 2, kCalledOff = -1;
  const __m256i on = _mm256_set1_epi32(kCalledOn), off = _mm256_set1_epi32(kCalledOff);
#pragma GCC unroll 11
  for (std::size_t v = 0; v < kWideVectors; ++v) {
    const std::size_t i = WideStart(v);
    auto* at = reinterpret_cast<__m256i*>(&working[i]);
    const __m256i w = _mm256_loadu_si256(at);
    const __m256i d = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(&defaults[i]));
    const __m256i called = _mm256_or_si256(_mm256_cmpeq_epi32(w, on), _mm256_cmpeq_epi32(w, off));
    const __m256i set = _mm256_blendv_epi8(d, w, called);
    _mm256_storeu_si256(at, set);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(copy + i), set);
  }
}
#endif

}  // namespace

void ResetWorkingFlags(Game& g, unsigned seated, bool alsoAfterRoll) {
  const bool pointOn = g.Point > 0;
#if defined(RAVELTON_WIDE_FLAGS)
  // The same integer results either way; the processor decides the width.
  const bool wide = __builtin_cpu_supports("avx2");
#else
  constexpr bool wide = false;
#endif
  ForEachSeatIn(seated, [&](int p) {
    // The flags of ids 1..85, a count known here so that the loops compile
    // to straight runs of vectors.
    const std::span<Long, kLastRealBet> working{&g.BetWorking(p, 1), kLastRealBet};
    const std::span<const Long, kLastRealBet> defaults{&g.BetWorkingDefault(p, 1), kLastRealBet};
    // Storing into the row itself a second time is cheaper than a branch per vector.
    Long* const copy = alsoAfterRoll ? &g.BetWorkingAfterRoll(p, 1) : working.data();
#if defined(RAVELTON_WIDE_FLAGS)
    if (wide) {
      if (pointOn)
        TurnOffFlagsOnWide(working, copy);
      else
        RestoreFlagDefaultsWide(working, defaults, copy);
      return;
    }
#endif
    if (pointOn)
      TurnOffFlagsOn(working, copy);
    else
      RestoreFlagDefaults(working, defaults, copy);
  });
}
