#include "engine/resolve.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "engine/hand.h"
#include "engine/settle.h"
#include "engine/settle_text.h"
#include "logs/events_log.h"

namespace {

// Seats whose player has money on the table when the decisions begin, bit
// seat - 1. Nobody can gain a bet during the decisions, so seats outside the
// set are skipped: an empty table decides in a few nanoseconds.
unsigned SeatsWithBets(const Game& g) {
  unsigned seats = 0;
  if (g.PlayerCount == 0) return seats;  // open seats hold no bets
  std::int64_t any = 0;  // one test for a table where nobody has a bet
  for (int p = 1; p <= 8; ++p) any |= g.TotalBets(p).raw;
  if (any == 0) return seats;
  for (int seat = 1; seat <= 8; ++seat)
    if (g.TotalBets(PlayerOfSeat(seat)) > Currency{}) seats |= 1u << (seat - 1);
  return seats;
}

// Bit i set for each of the eight cells from `cell` that is not 0. With
// SSE2 the cells are tested two at a time: a 64-bit cell is 0 when both of
// its 32-bit halves are.
unsigned NonZeroCells8(const Currency* cell) {
#if defined(__SSE2__)
  static_assert(sizeof(Currency) == 8);
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

// The bet ids that some deciding seat has money on, one bit per id. During
// the passes a bet only ever changes on its own id (settling) or travels to
// a number whose decisions are already over (a Come or Don't Come bet and
// its odds), so the set taken at the start holds every id still to decide.
void NoteBetsOnTable(Game& g) {
  // Ids 0..87 (the real bets and a few ids above them) in eleven blocks of
  // eight; a block with no money is skipped whole, so a player with a few
  // bets costs a few blocks.
  constexpr int kBlock = 8, kBlocks = 11;
  static_assert(kBlock * kBlocks > kLastRealBet && kBlock * kBlocks - 1 <= kLastBetId);
  std::uint64_t bits[2] = {0, 0};
  for (unsigned seats = g.autoplay.DecidingSeats; seats != 0; seats &= seats - 1) {
    const auto bets = g.Bet.Span(PlayerOfSeat(std::countr_zero(seats) + 1), 0, kLastBetId);
    for (int block = 0; block < kBlocks; ++block) {
      const Currency* cell = &bets[static_cast<std::size_t>(block * kBlock)];
      std::int64_t any = 0;
      for (int i = 0; i < kBlock; ++i) any |= cell[i].raw;
      if (any == 0) continue;
      static_assert(kBlock == 8);
      const unsigned mask = NonZeroCells8(cell);
      const int first = block * kBlock;  // blocks never straddle a word
      bits[first >> 6] |= std::uint64_t{mask} << (first & 63);
    }
  }
  // Bit 0 (the bankroll) and the ids above the real bets hold no bet.
  constexpr std::uint64_t kRealBetsHigh = (std::uint64_t{1} << (kLastRealBet - 63)) - 1;
  g.autoplay.BetsOnTable[0] = bits[0] & ~std::uint64_t{1};
  g.autoplay.BetsOnTable[1] = bits[1] & kRealBetsHigh;
}

bool OnTable(const Game& g, int b) { return (g.autoplay.BetsOnTable[b >> 6] >> (b & 63)) & 1; }

// ResolveBet for every seat with bets, in stick order.
void AllSeats(Game& g, int sign, int b) {
  if (!OnTable(g, b)) return;
  for (unsigned seats = g.autoplay.DecidingSeats; seats != 0; seats &= seats - 1) {
    const int seat = std::countr_zero(seats) + 1;
    if (!g.Bet(PlayerOfSeat(seat), b).IsZero()) ResolveBet(g, seat, sign, b);
  }
}

// A flat bet and the odds behind it, seat by seat, the odds right after the flat.
void FlatWithOdds(Game& g, int flatSign, int flat, int oddsSign, int odds) {
  if (!OnTable(g, flat) && !OnTable(g, odds)) return;
  for (unsigned seats = g.autoplay.DecidingSeats; seats != 0; seats &= seats - 1) {
    const int seat = std::countr_zero(seats) + 1;
    ResolveBet(g, seat, flatSign, flat);
    ResolveBet(g, seat, oddsSign, odds);
  }
}


// Losers of the box number n: the Don't Come point with its odds, the Lay,
// and the hardway unless the dice are a pair.
void LoseBoxNumber(Game& g, int n, int hard, bool pair) {
  FlatWithOdds(g, kLoses, DontComeId(n), kOddsLoses, DontComeId(n) + 6);
  AllSeats(g, kLoses, LayId(n));
  if (hard && !pair) AllSeats(g, kLoses, hard);
}

void LosersPass(Game& g) {
  const int t = g.DiceTotal;
  const bool co = g.PointAtRoll == 0;
  const bool pair = g.Die1 == g.Die2;

  if (t == g.PointAtRoll) FlatWithOdds(g, kLoses, bet::kDontPass, kOddsLoses, bet::kDontPassOdds);

  switch (t) {
    case 2:
    case 3:
    case 12:
      if (co) AllSeats(g, kLoses, bet::kPassLine);
      AllSeats(g, kLoses, bet::kCome);
      break;
    case 4:
      LoseBoxNumber(g, 4, bet::kHard4, pair);
      break;
    case 5:
      LoseBoxNumber(g, 5, 0, pair);
      break;
    case 6:
      LoseBoxNumber(g, 6, bet::kHard6, pair);
      break;
    case 8:
      LoseBoxNumber(g, 8, bet::kHard8, pair);
      break;
    case 9:
      LoseBoxNumber(g, 9, 0, pair);
      break;
    case 10:
      LoseBoxNumber(g, 10, bet::kHard10, pair);
      break;
    case 7:
      if (co) {
        AllSeats(g, kLoses, bet::kDontPass);
      } else {
        FlatWithOdds(g, kLoses, bet::kPassLine, kOddsLoses, bet::kPassLineOdds);
        if (g.FirePayoff(1, FireRow(g)) < Currency{}) AllSeats(g, kLoses, bet::kFire);
      }
      for (int b = bet::kComePointFirst; b <= bet::kComePointLast; ++b)
        FlatWithOdds(g, kLoses, b, kOddsLoses, b + 6);
      AllSeats(g, kLoses, bet::kDontCome);
      AllSeats(g, kLoses, bet::kBig6);
      AllSeats(g, kLoses, bet::kBig8);
      for (int b = bet::kHard4; b <= bet::kHard10; ++b) AllSeats(g, kLoses, b);
      for (int b = bet::kPlaceFirst; b <= bet::kBuyLast; ++b) AllSeats(g, kLoses, b);
      break;
    case 11:
      if (co) AllSeats(g, kLoses, bet::kDontPass);
      AllSeats(g, kLoses, bet::kDontCome);
      break;
    default:
      break;
  }

  // The Field is decided on every roll; its row says win, push or lose.
  AllSeats(g, kWins, bet::kField);
  if (t < 6 || t > 8) AllSeats(g, kLoses, bet::kMidway);

  if (t != 2) AllSeats(g, kLoses, bet::kTwo);
  if (t != 3) AllSeats(g, kLoses, bet::kThree);
  if (t != 7) AllSeats(g, kLoses, bet::kSeven);
  if (t != 11) AllSeats(g, kLoses, bet::kEleven);
  if (t != 12) AllSeats(g, kLoses, bet::kTwelve);
  if (t >= 4 && t <= 11) AllSeats(g, kLoses, bet::kCraps);
  if (t >= 4 && t <= 10) AllSeats(g, kLoses, bet::kCandE);
  if (t >= 4 && t <= 10) AllSeats(g, kLoses, bet::kHorn);
  if (IsBoxNumber(t)) AllSeats(g, kLoses, bet::kWorld);

  if (t <= 7) AllSeats(g, kLoses, bet::kOver7);
  if (t >= 8) AllSeats(g, kWins, bet::kOver7);
  if (t >= 7) AllSeats(g, kLoses, bet::kUnder7);
  if (t <= 6) AllSeats(g, kWins, bet::kUnder7);

  // Losing hop bets are taken by total, then by the lower die.
  static constexpr auto kHopOrder = [] {
    std::array<int, kHopCount> order{};
    std::size_t n = 0;
    for (int total = 2; total <= 12; ++total)
      for (int low = 1; low <= 6 && low <= total - low; ++low)
        if (const int id = total - low <= 6 ? HopId(low, total - low) : 0) order[n++] = id;
    return order;
  }();
  // The hop ids are bits of the second word of the on-table set.
  constexpr std::uint64_t kHopBits = ((std::uint64_t{1} << kHopCount) - 1) << (bet::kHopFirst - 64);
  if ((g.autoplay.BetsOnTable[1] & kHopBits) == 0) return;
  const int hit = HopId(g.Die1, g.Die2);
  for (int b : kHopOrder)
    if (b != hit) AllSeats(g, kLoses, b);
}

void PointMade(Game& g) {
  if (g.DiceTotal != g.PointAtRoll || !IsBoxNumber(g.DiceTotal)) return;
  FlatWithOdds(g, kWins, bet::kPassLine, kOddsWins, bet::kPassLineOdds);
  const int bit = 1 << BoxIndex(g.DiceTotal);
  if ((g.PointsMadeMask & bit) == 0) {
    g.PointsMadeMask |= bit;
    ++g.PointsMade;
  }
}

// Winners of box number n: the Come point with its odds, Place, Buy.
void WinBoxNumber(Game& g, int n) {
  FlatWithOdds(g, kWins, ComeId(n), kOddsWins, ComeId(n) + 6);
  AllSeats(g, kWins, PlaceId(n));
  AllSeats(g, kWins, BuyId(n));
}

// The Come and Don't Come boxes travel to the number, in player order.
void Travel(Game& g, int n) {
  if (OnTable(g, bet::kCome))
    for (int p = 1; p <= 8; ++p) MoveBet(g, p, bet::kCome, ComeId(n));
  if (OnTable(g, bet::kDontCome))
    for (int p = 1; p <= 8; ++p) MoveBet(g, p, bet::kDontCome, DontComeId(n));
}

// The one-roll bets that a 2, 3 or 12 pays, in their order.
void WinCrapsProps(Game& g, int single) {
  AllSeats(g, kWins, single);
  AllSeats(g, kWins, bet::kCraps);
  AllSeats(g, kWins, bet::kCandE);
  AllSeats(g, kWins, bet::kHorn);
  AllSeats(g, kWins, bet::kWorld);
}

// The hop bet of the dice on the table, in either order.
void WinHop(Game& g) { AllSeats(g, kWins, HopId(g.Die1, g.Die2)); }

void WinnersPass(Game& g) {
  const int t = g.DiceTotal;
  const bool co = g.PointAtRoll == 0;
  const bool pair = g.Die1 == g.Die2;
  const int bar = g.rules.BarNumber;

  switch (t) {
    case 2:
      if (co && bar == 12) AllSeats(g, kWins, bet::kDontPass);
      WinCrapsProps(g, bet::kTwo);
      if (bar == 12) AllSeats(g, kWins, bet::kDontCome);
      break;
    case 3:
      if (co) AllSeats(g, kWins, bet::kDontPass);
      WinCrapsProps(g, bet::kThree);
      AllSeats(g, kWins, bet::kDontCome);
      break;
    case 12:
      if (co && bar == 2) AllSeats(g, kWins, bet::kDontPass);
      WinCrapsProps(g, bet::kTwelve);
      if (bar == 2) AllSeats(g, kWins, bet::kDontCome);
      break;
    case 4:
      WinBoxNumber(g, 4);
      if (pair) AllSeats(g, kWins, bet::kHard4);
      WinHop(g);
      Travel(g, 4);
      break;
    case 5:
      WinBoxNumber(g, 5);
      WinHop(g);
      Travel(g, 5);
      break;
    case 6:
      WinBoxNumber(g, 6);
      AllSeats(g, kWins, bet::kBig6);
      AllSeats(g, kWins, bet::kMidway);
      if (pair) AllSeats(g, kWins, bet::kHard6);
      WinHop(g);
      Travel(g, 6);
      break;
    case 7:
      AllSeats(g, kWins, bet::kCome);
      if (co) {
        AllSeats(g, kWins, bet::kPassLine);
      } else {
        FlatWithOdds(g, kWins, bet::kDontPass, kOddsWins, bet::kDontPassOdds);
      }
      // Don't Come points and Lay bets work on a come-out too: the seven
      // pays them on either phase (an off bet simply stands).
      for (int b = bet::kDontComePointFirst; b <= bet::kDontComePointLast; ++b)
        FlatWithOdds(g, kWins, b, kOddsWins, b + 6);
      for (int b = bet::kLayFirst; b <= bet::kLayLast; ++b) AllSeats(g, kWins, b);
      AllSeats(g, kWins, bet::kMidway);
      AllSeats(g, kWins, bet::kSeven);
      AllSeats(g, kWins, bet::kWorld);
      WinHop(g);
      if (!co) EndHand(g);
      break;
    case 8:
      WinBoxNumber(g, 8);
      AllSeats(g, kWins, bet::kBig8);
      AllSeats(g, kWins, bet::kMidway);
      if (pair) AllSeats(g, kWins, bet::kHard8);
      WinHop(g);
      Travel(g, 8);
      break;
    case 9:
      WinBoxNumber(g, 9);
      WinHop(g);
      Travel(g, 9);
      break;
    case 10:
      WinBoxNumber(g, 10);
      if (pair) AllSeats(g, kWins, bet::kHard10);
      WinHop(g);
      Travel(g, 10);
      break;
    case 11:
      if (co) AllSeats(g, kWins, bet::kPassLine);
      AllSeats(g, kWins, bet::kEleven);
      AllSeats(g, kWins, bet::kCandE);
      AllSeats(g, kWins, bet::kCome);
      AllSeats(g, kWins, bet::kHorn);
      AllSeats(g, kWins, bet::kWorld);
      break;
    default:
      break;
  }
}

// The streak of a decided bet: a win after losses starts at 1, a loss after
// wins at -1.
void ExtendTrend(Long& trend, bool won) {
  if (won)
    trend = trend < 0 ? 1 : trend + 1;
  else
    trend = trend > 0 ? -1 : trend - 1;
}

void LogDecision(Game& g, int p, int b) {
  RollState& r = g.roll;
  if (!r.LogOn || !(r.LogWins || r.LogLosses)) return;
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

}  // namespace

void DecideBets(Game& g) {
  g.autoplay.WinLossHeadWritten = false;
  g.autoplay.DecidingSeats = SeatsWithBets(g);
  if (g.autoplay.DecidingSeats == 0) {
    // Nobody has money on the table: of the passes only the points made
    // and the hand's end at a seven-out have anything to do.
    g.autoplay.BetsOnTable[0] = g.autoplay.BetsOnTable[1] = 0;
    PointMade(g);
    if (g.DiceTotal == 7 && g.PointAtRoll > 0) EndHand(g);
    return;
  }
  NoteBetsOnTable(g);
  LosersPass(g);
  PointMade(g);
  WinnersPass(g);
}

void ResolveBet(Game& g, int seat, int sign, int b) {
  assert(seat >= 1 && seat <= 8 && IsRealBet(b));
  const int p = PlayerOfSeat(seat);
  if (g.Bet(p, b).IsZero()) return;
  g.CurBet = b;
  if (g.BetWorking(p, b) < 1) {
    if (std::abs(sign) >= 2) SettleNotWorking(g, p);
    return;
  }
  FigurePayoff(g, p, b, sign, g.Bet(p, b));
  TallyBetResult(g, p, b, g.Bet(p, b), g.NetPayoff);
  if (IsComePoint(b)) g.ComeFlatAtSet(p, b - bet::kComePointFirst) = Currency{};
  LogDecision(g, p, b);

  if (g.PayoffTbl(1, 0).IsZero() && g.NetPayoff.IsZero()) return;  // stands untouched

  g.Bet(p, 0) += g.NetPayoff;
  g.BetContract(p, b) = Currency{};

  if ((IsContract(b) && g.DiceTotal == 7) || IsLineOdds(b) || (b >= 7 && b <= 18) ||
      (IsComePoint(b) && !g.rules.AllowPutBets) || (IsComeOdds(b) && g.Bet(p, b - 6).IsZero()))
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

void ResetWorkingFlags(Game& g) {
  // An open seat is skipped: a player who sits down gets the working flags
  // of the phase in play.
  if (g.PlayerCount == 0) return;  // the count of named seats
  const bool pointOn = g.Point > 0;
  for (int p = 1; p <= 8; ++p) {
    if (g.PlayerName[p].empty()) continue;
    const auto working = g.BetWorking.Span(p, 1, kLastRealBet);
    const auto defaults = g.BetWorkingDefault.Span(p, 1, kLastRealBet);
    // Selects rather than branches, so that the loops run on whole vectors.
    if (pointOn) {
      for (Long& w : working) w = w == 0 ? 1 : w;
    } else {
      for (std::size_t i = 0; i < working.size(); ++i) {
        const Long w = working[i], d = defaults[i];
        const bool called = (w == 2) | (w == -1);
        working[i] = called ? w : d;
      }
    }
  }
}
