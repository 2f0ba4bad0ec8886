// The remembered maxima: FigureBetMaximum keeps each figure with the inputs
// it came from and takes most bets straight to the table maximum, so a run
// that changes the rules, payoffs, checks, point and flat bets between calls
// must get exactly what a figure made in full gives, for every bet of every
// seat.
#include <random>

#include "engine/place.h"
#include "table_fixture.h"

namespace {

using namespace bet;

using BetMaximum = TableFixture;

// Amounts in steps that hit the interesting cases: 0, whole and broken
// checks, and now and then a negative amount.
Currency Pick(std::mt19937& rng, int top, int scale = Currency::kScale) {
  const auto n = static_cast<std::int64_t>(rng() % static_cast<unsigned>(top)) - top / 20;
  return Currency::FromRaw(n * scale / (rng() % 4 == 0 ? 4 : 1));
}

TEST_F(BetMaximum, RememberedAndShortcutFiguresMatchFiguresMadeInFull) {
  std::mt19937 rng(20261124);
  constexpr int kSteps = 1000;
  constexpr int kPoints[] = {0, 4, 5, 6, 8, 9, 10};
  // The walk starts again from the house rules now and then, so that it
  // does not settle in a corner where every maximum is 0.
  constexpr int kRestartEvery = 25;
  const TableSettings rules = g.rules;
  const auto payoffs = g.PayoffTbl;
  const auto checks = g.CheckValue;
  for (int step = 0; step < kSteps; ++step) {
    if (step % kRestartEvery == 0) {
      g.rules = rules;
      g.PayoffTbl = payoffs;
      g.CheckValue = checks;
    }
    // One input changes, then every bet of two seats is held against a
    // fresh figure; the second seat often has the same flat bets.
    switch (rng() % 13) {
      case 0: g.rules.MaxPlacardBet = Pick(rng, 3000); break;
      case 1: g.CheckValue(1 + static_cast<int>(rng() % 5)) = Pick(rng, 30); break;
      case 2: g.rules.MaxPropBetPayoff = Pick(rng, 6000); break;
      case 3: g.rules.MaxFireBet = Pick(rng, 40); break;
      case 4: g.rules.MaxOddsBet = Pick(rng, 3000); break;
      case 5: g.rules.OddsCalcMethod = static_cast<Long>(rng() % kOddsMethodCount); break;
      case 6: g.rules.OddsAllowed68 = Pick(rng, 12, Currency::kScale / 2); break;
      case 7: PointOn(kPoints[rng() % 7]); break;
      case 8:
      case 9: {
        // Half the time a row that the bounds of C and E, Horn and World read.
        constexpr int kShared[] = {kTwo, kThree, kSeven, kEleven, kTwelve, kCraps};
        const int b = rng() % 2 == 0 ? kShared[rng() % 6] : 1 + static_cast<int>(rng() % kLastRealBet);
        if (rng() % 2 == 0)
          g.PayoffTbl(1, b) = Pick(rng, 1000);  // now and then above every other row
        else
          g.PayoffTbl(3, b) = Pick(rng, 10);
        break;
      }
      default: {
        constexpr int kFlats[] = {kPassLine, kDontPass, ComeId(6), DontComeId(4)};
        const int flat = kFlats[rng() % 4];
        g.Bet(1 + static_cast<int>(rng() % 2), flat) = Pick(rng, 200);
        break;
      }
    }
    for (int p = 1; p <= 2; ++p)
      for (int b = 0; b <= kLastRealBet; ++b) {
        FigureBetMaximum(g, p, b);
        const Currency kept = g.betting.BetMaximum;
        ASSERT_EQ(kept, BetMaximumInFull(g, p, b)) << "step " << step << ", seat " << p << ", " << BetName(b);
      }
  }
}

}  // namespace
