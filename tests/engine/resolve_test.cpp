// The money of every group of bets on fixed dice, the order of decisions,
// the Bar, the working rules and the decision statistics; then the payoff
// arithmetic under them: odds maxima, proper units, vig and the proper-odds
// adjustment with its messages.
#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "config/payoffs.h"
#include "config/settings.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "engine/settle.h"
#include "table_fixture.h"

namespace {

using namespace bet;

using Resolve = TableFixture;

TEST_F(Resolve, SingleBetsOnFixedDice) {
  struct Case {
    int bet;
    long amount;
    int d1, d2, point;
    long won;
  };
  const Case cases[] = {
      // Hard 6 the easy way; Hard 10 on a seven; the Field's doubled 2.
      {kHard6, 5, 4, 2, 8, -5},   {kHard10, 5, 4, 3, 8, -5},   {kField, 5, 1, 1, 0, 10},
      {HopId(1, 4), 2, 4, 1, 6, 30},  // either order
      {HopId(2, 3), 2, 1, 4, 6, -2},  // missed
      {HopId(3, 3), 1, 3, 3, 6, 30},
      {kMidway, 10, 3, 3, 0, 20}, {kMidway, 10, 2, 4, 0, 10},  {kCraps, 5, 6, 6, 0, 35},
      {kUnder7, 10, 1, 2, 0, 10}, {kUnder7, 10, 6, 6, 0, -10},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << BetName(c.bet) << " on " << c.d1 << c.d2);
    Put(1, c.bet, c.amount);
    const Currency bank = g.Bet(1, bet::kBankroll);
    Decide(c.d1, c.d2, c.point);
    EXPECT_EQ(g.Bet(1, bet::kBankroll) - bank, Currency::FromWhole(c.won));
    g.TotalBets(1) -= g.Bet(1, c.bet);
    g.Bet(1, c.bet) = Currency{};
  }
  // A million to one over a ten-thousandth pays at most the money limit,
  // and two such wins on one roll leave the bankroll at that limit.
  for (int b : {kCraps, kTwelve}) {
    g.PayoffTbl(1, b) = 1'000'000_usd;
    g.PayoffTbl(3, b) = Currency::FromRaw(1);
    Put(1, b, 1'000'000);
  }
  Decide(6, 6, 0);
  EXPECT_EQ(g.Bet(1, bet::kBankroll), kMoneyLimit);
}

TEST_F(Resolve, LineBetsAndOddsArePaidAtTheirRows) {
  g.PayoffTbl(1, kCome) = 2_usd;  // the come-out row of Pass Line and Come
  PointOn(6);
  Put({{1, kPassLine, 10}, {1, kPassLineOdds, 25}, {2, kDontPass, 10}, {2, kDontPassOdds, 12}});
  Decide(4, 2, 6);
  EXPECT_EQ(Won(1), 40_usd);  // 10 even money + 25 at 6 to 5
  EXPECT_EQ(Won(2), -22_usd);

  // The Pass Line is paid from the Come row of the point.
  g.PayoffTbl(1, ComeId(6)) = 2_usd;
  Put(3, kPassLine, 10);
  Decide(5, 1, 6);
  EXPECT_EQ(Won(3), 20_usd);

  // A seven-out: Don't Pass and its odds win 10 + 12 x 5/6.
  Seat(4, "P4");
  Put({{4, kDontPass, 10}, {4, kDontPassOdds, 12}});
  Decide(3, 4, 6);
  EXPECT_EQ(Won(4), 20_usd);

  // On the come-out, from the come-out row.
  Decide(5, 6, 0);
  EXPECT_EQ(Won(3), 30_usd);  // 10 lost to the seven-out, 20 won
  EXPECT_EQ(Won(4), 10_usd);
  Decide(1, 2, 0);
  EXPECT_EQ(Won(3), 20_usd);
  EXPECT_EQ(Won(4), 20_usd);
}

TEST_F(Resolve, TheBarPushesTheDontBetsByOmission) {
  ASSERT_EQ(g.rules.BarNumber, 12);
  Put(1, kDontPass, 10);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(1), 0_usd);
  EXPECT_EQ(g.Bet(1, kDontPass), 10_usd);
  EXPECT_EQ(g.StatAction(1, kDontPass, kStatCount), 0_usd);  // a push is no decision
  Decide(1, 1, 0);
  EXPECT_EQ(Won(1), 10_usd);

  // A Don't Come bet follows the same bar on any roll.
  g.rules.BarNumber = 2;
  PointOn(8);
  Put(2, kDontCome, 10);
  Decide(1, 1, 8);
  EXPECT_EQ(Won(2), 0_usd);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(2), 10_usd);
  EXPECT_EQ(Won(1), 20_usd);
}

TEST_F(Resolve, PlaceBuyAndLayWithVigUpFrontOrOnWinsOnly) {
  PointOn(4);
  g.autoplay.HandleWinningBets(2) = 1;  // the Buy and the Lay come down
  g.autoplay.HandleLosingBets(3) = 1;
  // 5 x 7/6 = 5.8333 is cut to 5; the Buy's vig of 1 is paid up front, the
  // Lay wins 20 less a vig of 1.
  Put({{1, PlaceId(6), 12}, {1, PlaceId(5), 5}, {1, PlaceId(8), 5}});
  Put({{2, BuyId(4), 20}, {3, LayId(4), 40}});
  EXPECT_EQ(g.TotalBets(2), 21_usd);
  for (auto [d1, d2, won] : {std::tuple{3, 3, 14}, {2, 3, 21}, {4, 4, 26}}) {
    Decide(d1, d2, 4);
    EXPECT_EQ(Won(1), Currency::FromWhole(won)) << d1 + d2;
  }
  Decide(2, 2, 4);
  EXPECT_EQ(Won(2), 39_usd);   // 40 less the vig
  EXPECT_EQ(Won(3), -41_usd);  // the bet and the vig paid up front
  // The vig has left TotalBets with the settled bets.
  EXPECT_EQ(g.TotalBets(2) - g.Bet(2, BuyId(4)), 0_usd);
  EXPECT_EQ(g.TotalBets(3) - g.Bet(3, LayId(4)), 0_usd);

  // Vig charged on wins only: a loss costs the bet only, a win pays less the vig.
  g.rules.BuyVigUpFront = g.rules.LayVigUpFront = false;
  Seat(4, "P4");
  Seat(5, "P5");
  Put({{4, BuyId(10), 20}, {5, LayId(10), 40}});
  Decide(3, 4, 5);
  EXPECT_EQ(Won(4), -20_usd);
  EXPECT_EQ(Won(5), 19_usd);
}

TEST_F(Resolve, FieldPresetsHalfLossesAndSplitBets) {
  // The Field as a Place 6: a 6 pays 7 to 6, a 7 loses, all else pushes and
  // the bet stands untouched.
  SetFieldPreset(g, kSFPlace6);
  Put(2, kField, 6);
  Decide(5, 1, 4);
  Decide(2, 3, 4);
  EXPECT_EQ(Won(2), 7_usd);
  EXPECT_EQ(g.Bet(2, kField), 6_usd);
  EXPECT_EQ(g.StatAction(2, kField, kStatCount), Currency::FromWhole(1));

  // Half the bet lost: a loss is cut up to the next whole check.
  g.FieldPayoff(1, 10) = Currency::FromWhole(-1);
  g.FieldPayoff(3, 10) = 2_usd;
  Put(3, kField, 5);
  Decide(1, 6, 4);
  EXPECT_EQ(g.GrossPayoff, Usd(-2.5));
  EXPECT_EQ(Won(3), -3_usd);

  // A Horn of 6 on twelve: 1.5 x 30 - 4.5 = 40.5, paid 40 in whole checks.
  g.Die1 = g.Die2 = 6;
  g.DiceTotal = 12;
  FigurePayoff(g, 1, kHorn, 1, 6_usd);
  EXPECT_EQ(g.GrossPayoff, Usd(40.5));
  EXPECT_EQ(g.NetPayoff, 40_usd);
  g.CheckValue(1) = Usd(0.25);
  FigurePayoff(g, 1, kHorn, 1, 6_usd);
  EXPECT_EQ(g.NetPayoff, Usd(40.5));
}

TEST_F(Resolve, FireIsPaidByPointsMadeAtTheSevenOut) {
  Put(1, kFire, 5);
  const int points[4][3] = {{4, 2, 2}, {5, 1, 4}, {6, 3, 3}, {8, 2, 6}};
  for (auto [n, d1, d2] : points) Decide(d1, d2, n);
  Decide(4, 4, 8);  // the same point again counts once
  EXPECT_EQ(g.PointsMade, 4);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(1), 120_usd);  // 24 to 1
  EXPECT_EQ(g.PointsMade, 0);

  // Three points lose; a row of 0 leaves the bet up for the next hand.
  Put(3, kFire, 5);
  for (int i = 0; i < 3; ++i) Decide(points[i][1], points[i][2], points[i][0]);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(3), -5_usd);
  g.FirePayoff(1, 0) = Currency{};
  Put(3, kFire, 5);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(3), -5_usd);
  EXPECT_EQ(g.Bet(3, kFire), 10_usd);
}

TEST_F(Resolve, WorkingFlagsDecideWhatActs) {
  // At the come-out Place bets and Come odds are off by default.
  Put({{1, PlaceId(6), 12}, {1, ComeId(5), 10}, {1, ComeId(5) + 6, 20}, {2, kHard8, 5}});
  Decide(3, 4, 0);
  EXPECT_EQ(Won(1), -10_usd);  // the Come flat only
  EXPECT_EQ(g.Bet(1, PlaceId(6)), 12_usd);
  EXPECT_EQ(Won(2), -5_usd);  // hardways work
  EXPECT_EQ(g.StatAction(1, ComeId(5) + 6, kStatCount), 0_usd);

  // Called OFF with a point on: a seven changes nothing.
  g.BetWorking(2, kHard8) = -1;
  Decide(3, 4, 6);
  EXPECT_EQ(Won(2), -5_usd);

  // A reset follows the phase but keeps the calls a player made.
  g.BetWorking(3, PlaceId(8)) = 2;
  g.BetWorking(3, PlaceId(9)) = -1;
  PointOn(8);
  EXPECT_EQ(g.BetWorking(3, PlaceId(6)), 1);
  PointOn(0);
  EXPECT_EQ(g.BetWorking(3, PlaceId(6)), 0);
  EXPECT_EQ(g.BetWorking(3, PlaceId(8)), 2);
  EXPECT_EQ(g.BetWorking(3, PlaceId(9)), -1);
}

TEST_F(Resolve, AResetTreatsEveryFlagOfTheRowAlike) {
  // The resets work on whole vectors of flags, the last one overlapping the
  // one before: every flag, the row's ends too, follows the same rule.
  std::mt19937 rng(85);
  auto flag = [&rng] { return static_cast<Long>(rng() % 5) - 1; };  // -1 .. 3
  for (const int point : {6, 0, 4, 0}) {
    for (int p = 1; p <= 3; ++p)
      for (int b = 1; b <= kLastRealBet; ++b) {
        g.BetWorking(p, b) = flag();
        g.BetWorkingDefault(p, b) = flag();
      }
    const auto before = g.BetWorking;
    PointOn(point);
    for (int p = 1; p <= 3; ++p)
      for (int b = 1; b <= kLastRealBet; ++b) {
        const Long w = before(p, b), called = w == 2 || w == -1;
        const Long want = point > 0 ? (w == 0 ? 1 : w) : (called ? w : g.BetWorkingDefault(p, b));
        ASSERT_EQ(g.BetWorking(p, b), want) << "point " << point << " player " << p << " bet " << b;
      }
  }
}

TEST_F(Resolve, DecisionsAreCountedInTheLiveFramesOnly) {
  g.RollTally(kTableSession, kEventRolls) = 77;
  Put(1, kField, 5);
  Decide(1, 1, 0);  // +10
  Put(1, kField, 2);
  Decide(3, 4, 0);  // -7: the bet of 7 loses
  for (int t = 0; t < 5; ++t) {
    const int i = FrameIndex(1, t);
    const int live = t % 2 == 0;
    EXPECT_EQ(g.StatAction(i, kField, kStatCount), Currency::FromWhole(2 * live)) << t;
    EXPECT_EQ(g.StatAction(i, kField, kStatTotal), Currency::FromWhole(12 * live)) << t;
    EXPECT_EQ(g.StatAction(i, kField, kStatRollOfLast), Currency::FromWhole(77 * live)) << t;
    EXPECT_EQ(g.StatWins(i, kField, kStatTotal), Currency::FromWhole(10 * live)) << t;
    EXPECT_EQ(g.StatLosses(i, kField, kStatTotal), Currency::FromWhole(7 * live)) << t;
  }

  // Up-front vig counts in the amount wagered.
  PointOn(6);
  Put(2, LayId(4), 40);
  Decide(3, 4, 6);
  EXPECT_EQ(g.StatAction(2 + 18, LayId(4), kStatTotal), 41_usd);
  EXPECT_EQ(g.StatWins(2 + 18, LayId(4), kStatTotal), 19_usd);

  // Wins and losses in a row make a trend.
  Put(2, kField, 1);
  const int dice[5][2] = {{1, 1}, {1, 1}, {3, 4}, {3, 4}, {1, 1}};
  const int trend[5] = {1, 2, -1, -2, 1};
  for (int i = 0; i < 5; ++i) {
    Decide(dice[i][0], dice[i][1], 6);
    EXPECT_EQ(g.BetTrend(2, kField, 1), trend[i]) << i;
  }
}

// A hand's end moves each decided row to the last-hand frame and clears the
// rows of the hand before, including rows with no decision this hand.
TEST_F(Resolve, HandEndMovesDecidedRowsAndClearsOlderOnes) {
  Put({{1, kField, 5}, {1, kPassLine, 10}});
  Decide(3, 4, 6);  // seven-out: both lose
  const int now = FrameIndex(1, kFrameCurrentHand), last = FrameIndex(1, kFrameLastHand);
  EXPECT_EQ(g.StatAction(last, kField, kStatCount), 1_usd);
  EXPECT_EQ(g.StatLosses(last, kPassLine, kStatTotal), 10_usd);
  EXPECT_EQ(g.StatAction(now, kField, kStatCount), 0_usd);

  g.TotalBets(1) -= g.Bet(1, kField);  // the Field comes down before the next hand
  g.Bet(1, kField) = Currency{};
  Decide(4, 3, 8);  // another seven-out: only the Pass Line is decided
  EXPECT_EQ(g.StatAction(last, kField, kStatCount), 0_usd);
  EXPECT_EQ(g.StatAction(last, kField, kStatTotal), 0_usd);
  EXPECT_EQ(g.StatAction(last, kPassLine, kStatCount), 1_usd);
  EXPECT_EQ(g.StatAction(FrameIndex(1, kFrameCurrentSession), kField, kStatCount),
            1_usd);  // the session keeps it
}

TEST_F(Resolve, DecisionsFollowThePassesAndTheStickOrder) {
  Seat(7, "P7");
  Seat(8, "P8");
  g.roll.LogOn = true;
  PointOn(4);
  Put({{1, kPassLine, 10}, {2, kPassLine, 10}, {3, kPassLine, 10}, {8, kPassLine, 10}});
  Put({{8, kPassLineOdds, 20}, {7, kDontPass, 10}, {2, kSeven, 1}, {2, kField, 1}});
  Put(3, LayId(4), 40);
  Decide(3, 4, 4);
  // Seats from the stick's ends inward: 1, 8, 2, 7, 3 ...
  const std::string want =
      "    Wins/losses:\n"
      "      P1 lost $10 on Pass Line\n"
      "      P8 lost $10 on Pass Line\n"
      "      P8 lost $20 on Pass Line Odds\n"
      "      P2 lost $10 on Pass Line\n"
      "      P3 lost $10 on Pass Line\n"
      "      P2 lost $1 on Field\n"
      "      P7 won $10 on Don't Pass\n"
      "      P3 won $19 on Lay 4\n"
      "      P2 won $4 on Seven\n";
  EXPECT_EQ(EventsLogText(g).substr(0, want.size()), want);
}

// The decisions look only at the seats holding each bet and at the bets a
// roll can decide, and a table whose bets the roll can decide are only the
// Pass Line and its odds is decided without gathering the holders. Held
// against the plain visit of every seat for every bet id over many seeded
// rolls, first with every kind of bet on every seat, working flags called on
// and off, every settling rule and both bars and vig rules, then with line
// bets on every seat (now and then another bet beside them) and their odds
// called on and off, the game must come out the same to the last figure.
TEST_F(Resolve, ShortcutsDecideAsTheVisitOfEverySeatAndBet) {
  for (int p = 4; p <= 8; ++p) Seat(p, "P" + std::to_string(p));
  auto plainOwner = std::make_unique<Game>();
  Game& plain = *plainOwner;
  std::mt19937 rng(20261124);
  auto pick = [&rng](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
  constexpr int kRolls = 3000, kRollsPerRuleSet = 250, kNewBetsPerSeat = 3, kLastRule = 7;
  constexpr int kLineRolls = 1500, kOtherBetEvery = 6;
  constexpr int kPoints[] = {0, 4, 5, 6, 8, 9, 10};
  constexpr unsigned kSeated = 0x1FEu;  // players 1..8
  // Rolls seeded dice, then `decide` works them on the game and on its copy.
  auto rollBoth = [&](int roll, auto&& decide) {
    const int d1 = 1 + pick(6), d2 = 1 + pick(6), point = kPoints[pick(7)];
    SCOPED_TRACE(testing::Message() << "roll " << roll << ": " << d1 << "-" << d2 << ", point "
                                    << point);
    SetRoll(g, d1, d2, point);
    plain = g;
    decide();
    ASSERT_TRUE(g.Bet == plain.Bet && g.StatAction == plain.StatAction);
    ASSERT_TRUE(g == plain);
  };
  for (int roll = 0; roll < kRolls && !HasFatalFailure(); ++roll) {
    if (roll % kRollsPerRuleSet == 0) {
      g.rules.BarNumber = pick(2) == 0 ? 2 : 12;
      g.rules.LayVigUpFront = pick(2) == 0;
      g.rules.BuyVigUpFront = pick(2) == 0;
      g.rules.AllowPutBets = pick(2) == 0;
    }
    for (int p = 1; p <= 8; ++p) {
      g.autoplay.HandleWinningBets(p) = pick(kLastRule + 1);
      g.autoplay.HandleLosingBets(p) = pick(kLastRule + 1);
      g.autoplay.AutoDownPlaceBets(p) = pick(2) == 0;
      for (int k = 0; k < kNewBetsPerSeat; ++k)
        if (const int b = 1 + pick(kLastRealBet); g.Bet(p, b).IsZero()) Put(p, b, 1 + pick(30));
      g.BetWorking(p, 1 + pick(kLastRealBet)) = pick(4) - 1;  // -1 called off .. 2 called on
      g.Bet(p, bet::kBankroll) = kStake;                      // nobody runs out of money
    }
    rollBoth(roll, [&] {
      DecideBets(g);
      DecideBetsVisitingAll(plain);
    });
  }
  for (int roll = 0; roll < kLineRolls && !HasFatalFailure(); ++roll) {
    for (int p = 1; p <= 8; ++p) {
      for (int b = 1; b <= kLastRealBet; ++b) g.Bet(p, b) = Currency{};
      g.TotalBets(p) = Currency{};
      g.autoplay.HandleWinningBets(p) = pick(kLastRule + 1);
      g.autoplay.HandleLosingBets(p) = pick(kLastRule + 1);
      if (pick(3) != 0) Put(p, kPassLine, 1 + pick(30));
      if (pick(2) != 0) Put(p, kPassLineOdds, 1 + pick(60));
      g.BetWorking(p, kPassLineOdds) = pick(4) - 1;
      g.Bet(p, bet::kBankroll) = kStake;
      // Every seat read whole as the roll begins.
      g.roll.BetIdsTakenAtRoll[static_cast<std::size_t>(p)] = {};
      g.roll.BetIdsChanged[static_cast<std::size_t>(p)] = {};
    }
    if (pick(kOtherBetEvery) == 0) Put(1 + pick(8), 1 + pick(kLastRealBet), 1 + pick(30));
    g.roll.HeldBetIdsUnknown = ~0u;
    rollBoth(roll, [&] {
      DecideRolledBets(g, kSeated);
      DecideBetsVisitingAll(plain);
      // What the roll learnt of the held bets is its own.
      plain.roll.HeldBetIds = g.roll.HeldBetIds;
      plain.roll.HeldBetIdsUnknown = g.roll.HeldBetIdsUnknown;
    });
  }
}

Currency Raw(std::int64_t r) { return Currency::FromRaw(r); }

class PayoffMath : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
  }
  // Highest odds on a Come bet on `number` with flat `base`, as taken on a win.
  Currency ComeOddsMax(int number, Currency base) {
    const int odds = ComeId(number) + 6;
    return FigureOddsMaximum(g, odds, base, g.PayoffTbl(1, odds), g.PayoffTbl(3, odds));
  }
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

TEST_F(PayoffMath, AutoSelectedOddsMaximum) {
  // Odds allowed on 4/10, 5/9 and 6/8 (0: the default), the number, the flat
  // and the highest odds. 2.5 x 5 = 12.50 is cut to the check; single odds: 6
  // at 3 to 2 pays 9; triple: 3 x RoundUp(5, 2).
  // Color push: 25 on a 6 pays 30 in red; a flat 9 leaves red for white; a
  // flat 3 is not held under (X + 1) x base; a 4 pays whole already. Green
  // rises to 250 (wins 300); 104 is no multiple of 5, so red: 225.
  const long cases[][6] = {{0, 0, 0, 6, 10, 25},   {0, 0, 0, 8, 5, 12},   {0, 1, 0, 5, 5, 6},
                           {0, 3, 0, 5, 5, 18},    {3, 0, 0, 4, 5, 15},   {0, 0, 2, 6, 10, 25},
                           {0, 0, 2, 6, 9, 20},    {0, 0, 2, 6, 3, 10},   {0, 0, 2, 4, 10, 20},
                           {0, 0, 2, 6, 100, 250}, {0, 0, 2, 6, 104, 225}};
  for (const auto& c : cases) {
    SetDefaultSettings(g);
    if (c[0]) g.rules.OddsAllowed410 = Currency::FromWhole(c[0]);
    if (c[1]) g.rules.OddsAllowed59 = Currency::FromWhole(c[1]);
    if (c[2]) g.rules.OddsAllowed68 = Currency::FromWhole(c[2]);
    EXPECT_EQ(ComeOddsMax(static_cast<int>(c[3]), Currency::FromWhole(c[4])),
              Currency::FromWhole(c[5]))
        << c[0] << c[1] << c[2] << " on " << c[3] << " flat " << c[4];
  }
}

TEST(OddsMaximum, EachMethodByItself) {
  const Currency checks[6] = {{}, 1_usd, 5_usd, 25_usd, 100_usd, 500_usd};
  struct Case {
    long x;
    int method;
    long flat, pays, to, want;
  };
  const Case cases[] = {
      {2, kOddsFlatNoPush, 6, 6, 5, 12},  {2, kOddsMinorPush, 6, 6, 5, 15},
      {2, kOddsMinorPush, 10, 6, 5, 20},  {2, kOddsMinorPush, 7, 6, 5, 15},  // 15 < 21
      {1, kOddsMinorPush, 2, 3, 2, 2},                                       // nothing to push
      {2, kOddsSingleOdds, 7, 3, 2, 14},  {1, kOddsSingleOdds, 7, 3, 2, 8},
      {3, kOddsFlatSingleX, 5, 3, 2, 18}, {2, kOddsFlatSingleX, 5, 3, 2, 12},
  };
  for (const Case& c : cases)
    EXPECT_EQ(
        OddsMaximumFor(Currency::FromWhole(c.x), c.method, Currency::FromWhole(c.flat),
                       Currency::FromWhole(c.pays), Currency::FromWhole(c.to), checks, 2000_usd),
        Currency::FromWhole(c.want))
        << "method " << c.method << " flat " << c.flat;
}

TEST(OddsMaximum, EveryMethodGivesWholeChecksWithinTheCap) {
  // Quarter checks and odd payoffs too: the result is always a multiple of the
  // smallest check, never negative, never above the cap, and the pushes but
  // the minor one never give less than the plain limit cut to the check.
  const Currency quarter[6] = {{}, Currency::FromRaw(2500), 1_usd, 5_usd, 25_usd, 100_usd};
  const Currency whole[6] = {{}, 1_usd, 5_usd, 25_usd, 100_usd, 500_usd};
  const std::pair<long, long> pays[] = {{2, 1}, {3, 2}, {6, 5}, {1, 2}, {5, 6}, {7, 3}, {9, 5}};
  const long multiples[] = {10000, 15000, 20000, 25000, 30000, 50000, 100000};
  for (const auto* checks : {&quarter, &whole})
    for (auto [p, s] : pays)
      for (long x : multiples)
        for (long base = 1; base <= 260; base += 7)
          for (int method = 0; method < kOddsMethodCount; ++method) {
            const Currency cap = 700_usd;
            const Currency flat = Currency::FromWhole(base);
            const Currency xx = Currency::FromRaw(x);
            const Currency r = OddsMaximumFor(xx, method, flat, Currency::FromWhole(p),
                                              Currency::FromWhole(s), *checks, cap);
            const Currency unit = (*checks)[1];
            SCOPED_TRACE(::testing::Message() << "method " << method << " x " << x << " base "
                                              << base << " pays " << p << "/" << s);
            ASSERT_GE(r.raw, 0);
            ASSERT_EQ(r.raw % unit.raw, 0);
            ASSERT_LE(r, cap);
            // The minor push may settle below the plain limit, on a whole-paying step.
            if (method == kOddsMinorPush) continue;
            const Currency plain = RoundDownToMultiple(CurMul(xx, flat), unit);
            ASSERT_GE(r, std::min(plain, cap));
          }
}

TEST_F(PayoffMath, CapsWinOverEveryPushAndLineOddsNeedAPoint) {
  g.rules.MaxOddsBet = 15_usd;
  for (int method = 0; method < kOddsMethodCount; ++method) {
    g.rules.OddsCalcMethod = method;
    EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd) << "method " << method;
  }
  g.rules.MaxOddsBet = Raw(157500);  // 15.75 is cut to the smallest check
  EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd);

  EXPECT_EQ(FigureOddsMaximum(g, bet::kPassLineOdds, 10_usd, 2_usd, 1_usd), 0_usd)
      << "no point, no odds";
}

// A payoff whose quotient is a whole count of ten-thousandths is worked in
// integers; it must be to the last ten-thousandth what the doubles give,
// up to the largest amounts that path takes and for rows with fractions.
// So must the net cut to whole smallest checks, of a win or of a loss, with
// a one-unit check (worked in integers) or another.
TEST_F(PayoffMath, WholeQuotientsAreWhatTheDoublesGive) {
  auto cutToChecks = [this](Currency gross) {
    const Currency unit = g.CheckValue(1);
    const Currency q = CurFromDouble(gross.ToDouble() / unit.ToDouble());
    return CurMulInt(unit, static_cast<std::int64_t>(std::floor(q.ToDouble())));
  };
  const int b = PlaceId(6);
  g.Die1 = g.Die2 = 3;
  g.DiceTotal = 6;
  const Currency rows[][2] = {{7_usd, 6_usd},  {7_usd, 5_usd},       {3_usd, 2_usd},
                              {39_usd, 21_usd}, {1_usd, 3_usd},      {Raw(12345), Raw(7)},
                              {9_usd, Usd(2.5)}, {Usd(1.5), Usd(0.25)}, {-1_usd, Usd(0.0003)}};
  std::mt19937_64 rng(99);
  constexpr std::int64_t kLargest = std::int64_t{1} << 49;
  for (const auto& [a, d] : rows) {
    g.PayoffTbl(1, b) = a;
    g.PayoffTbl(3, b) = d;
    for (int i = 0; i < 20000; ++i) {
      // Amounts whose quotient is whole (some near the largest), and any amounts.
      const std::int64_t limit = i % 4 == 0 ? kLargest : std::int64_t{1} << (10 + i % 30);
      std::int64_t raw = static_cast<std::int64_t>(rng() % static_cast<std::uint64_t>(limit));
      if (i % 2 == 0) raw -= raw % d.raw;
      if (i % 8 == 1) raw = -raw;
      const Currency amount = Raw(raw);
      g.CheckValue(1) = i % 3 == 0 ? Raw(2500) : 1_usd;
      FigurePayoff(g, 1, b, kWins, amount);
      const Currency want = CurFromDouble(CurMul(amount, a).ToDouble() / d.ToDouble());
      ASSERT_EQ(g.GrossPayoff, want) << raw << " at " << a.raw << "/" << d.raw;
      if (want.raw < kLargest && want.raw > -kLargest) {  // where the doubles' floor is exact
        ASSERT_EQ(g.NetPayoff, cutToChecks(want)) << raw << " at " << a.raw << "/" << d.raw;
      }
      FigurePayoff(g, 1, b, kLoses, amount);
      ASSERT_EQ(g.NetPayoff, cutToChecks(-amount)) << raw << " lost";
    }
  }
}

TEST_F(PayoffMath, ProperUnitsPayInWholeSmallestChecks) {
  EXPECT_EQ(g.PayoffTbl(0, LayId(9)), 3_usd);
  EXPECT_EQ(g.PayoffTbl(0, bet::kHorn), 4_usd);
  g.Point = 6;
  SetLineOddsPayoffs(g);
  EXPECT_EQ(ProperOddsUnit(g, bet::kPassLineOdds), 5_usd);
  EXPECT_EQ(ProperOddsUnit(g, bet::kDontPassOdds), 6_usd);
  g.CheckValue(1) = Raw(2500);
  FigureProperUnits(g);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(6)), Raw(15000));
  EXPECT_EQ(g.PayoffTbl(0, bet::kField), Raw(2500));
  // A fractional payoff: 7.5 to 5 needs 2 units.
  EXPECT_EQ(ProperUnit(Raw(75000), 5_usd, 1_usd), 2_usd);
  EXPECT_EQ(ProperUnit(0_usd, 5_usd, 1_usd), 1_usd);
}

TEST_F(PayoffMath, VigRoundsToTheSmallestCheckWithAFloor) {
  const int buy4 = BuyId(4), lay4 = LayId(4), lay6 = LayId(6);
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), 1_usd);  // 0.50 rounds to 0, the floor gives 1
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 1_usd);  // 1.50: an exact half goes down
  EXPECT_EQ(FigureBuyVig(g, buy4, 72_usd), 4_usd);  // 3.60 goes up
  EXPECT_EQ(FigureLayVig(g, lay4, 40_usd), 1_usd);  // figured on the win of 20
  EXPECT_EQ(FigureLayVig(g, lay6, 60_usd), 2_usd);  // win 50, 2.50 down
  EXPECT_EQ(FigureLayVig(g, buy4, 100_usd), 0_usd);
  EXPECT_EQ(FigureLayVig(g, lay4, -40_usd), 0_usd);
  g.rules.BuyVigRound = kVigRoundUp;
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 2_usd);
  g.rules.BuyVigRound = kVigRoundDown;
  EXPECT_EQ(FigureBuyVig(g, buy4, 78_usd), 3_usd);
  g.CheckValue(1) = Raw(2500);
  g.rules.BuyVigRound = kVigRoundNormal;
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), Raw(5000));
  EXPECT_EQ(FigureBuyVig(g, buy4, 1_usd), Raw(2500));
}

// The adjustment rule itself.
ProperOddsInput Place6(Currency b, Currency a, int mode = 1, int bias = 0) {
  ProperOddsInput in;
  in.bet = PlaceId(6);
  in.current = b;
  in.change = a;
  in.unit = 6_usd;
  in.maximum = 1000_usd;
  in.minimum = 1_usd;
  in.mode = mode;
  in.bias = bias;
  const long c[6] = {0, 1, 5, 25, 100, 500};
  for (int i = 1; i <= 5; ++i) in.checks[i] = Currency::FromWhole(c[i]);
  return in;
}

TEST(ProperOdds, NearestBiasesAndColorCorrection) {
  // Bet standing, change asked, mode, bias, and the change made.
  const long cases[][5] = {
      {0, 7, 1, 0, 6},      {0, 10, 1, 0, 12},    // nearest
      {6, 1, 1, 1, 6},      {12, -1, 1, 1, -6},   // bias up, also downward
      {0, 13, 1, 2, 12},    {6, 5, 1, 2, 6},      // bias down, never to nothing
      {12, -12, 1, 0, -12},                       // taken down
      {6, 4, 1, 0, 6},                            // 12 = 3 x the clicked 4 wins
      {0, 175, 2, 0, 150},  {0, 175, 1, 0, 174},  // color correction: green x 6
      {0, 25, 2, 0, 24},                          // green too small to carry the unit
      {3, 150, 2, 0, 297},                        // a change of just the green unit takes it
      {160, 0, 2, 0, -10},                        // a zero change looks at the bet
      {8, 0, 1, 1, 4}};                           // ... and a bias up lifts it
  for (const auto& c : cases) {
    std::string text;
    EXPECT_EQ(AdjustProperOdds(Place6(Currency::FromWhole(c[0]), Currency::FromWhole(c[1]),
                                      static_cast<int>(c[2]), static_cast<int>(c[3])),
                               &text),
              Currency::FromWhole(c[4]))
        << c[0] << " + " << c[1] << " mode " << c[2] << " bias " << c[3];
    EXPECT_TRUE(text.empty());
  }
  // A decrease between whole totals goes down even when the total above,
  // the bet as it stands, is nearer; a total at the maximum is kept.
  ProperOddsInput in = Place6(10_usd, -2_usd);
  in.unit = 5_usd;
  EXPECT_EQ(AdjustProperOdds(in, nullptr), -5_usd);
  in = Place6(0_usd, 10_usd);
  in.maximum = 12_usd;
  EXPECT_EQ(AdjustProperOdds(in, nullptr), 12_usd);
}

TEST(ProperOdds, TotalsStayProperAndWithinLimits) {
  // Requests already held to the limits, as the bet gate hands them over: the
  // adjusted total is 0, a multiple of the unit within the limits, or the
  // maximum when no proper total fits.
  for (long unit : {2, 5, 6})
    for (int mode = 1; mode <= 2; ++mode)
      for (int bias = 0; bias <= 2; ++bias)
        for (long b = 0; b <= 60; b += 3)
          for (long a = -b; b + a <= 50; ++a) {
            ProperOddsInput in = Place6(Currency::FromWhole(b), Currency::FromWhole(a), mode, bias);
            in.unit = Currency::FromWhole(unit);
            in.maximum = 50_usd;
            in.minimum = 5_usd;
            if (b + a > 0 && b + a < 5) continue;  // the gate has lifted these to the minimum
            std::string text;
            const Currency total = in.current + AdjustProperOdds(in, &text);
            SCOPED_TRACE(::testing::Message() << "unit " << unit << " mode " << mode << " bias "
                                              << bias << " B " << b << " A " << a);
            ASSERT_GE(total, 0_usd);
            ASSERT_LE(total, 50_usd);
            if (total.IsZero() || total == 50_usd) continue;
            ASSERT_GE(total, 5_usd);
            ASSERT_EQ(total.raw % in.unit.raw, 0);
          }
}

TEST(ProperOdds, LimitsContractsAndTheirMessages) {
  std::string text = "The maximum Place 6 bet is $1,000";
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 1000_usd), &text), 996_usd);
  EXPECT_EQ(text,
            "The maximum Place 6 bet is $1,000\r\rMaximum bet for proper odds payoff is: $996");

  ProperOddsInput in = Place6(0_usd, 8_usd, 2);
  in.maximum = 10_usd;
  in.minimum = 7_usd;
  text.clear();
  EXPECT_EQ(AdjustProperOdds(in, &text), 10_usd);
  EXPECT_EQ(text, "Unable to auto-adjust bet for proper odds payoff.");
  EXPECT_EQ(AdjustProperOdds(in, nullptr), 10_usd);  // Hyper-Drive: no text, same result
  text.assign("leftover");
  in.current = 8_usd;
  in.change = -1_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), -8_usd);
  EXPECT_TRUE(text.empty());

  // The contract bounds the line bets.
  in = Place6(10_usd, -3_usd);
  in.bet = bet::kPassLine;
  in.unit = 5_usd;
  in.contract = 10_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
  EXPECT_EQ(text, "Minimum bet for proper odds payoff is: $10");
  in.bet = bet::kDontPass;
  in.current = 5_usd;
  in.change = 2_usd;  // 7 -> Hi 10 would pass the contract of 8
  in.contract = 8_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
}

TEST_F(PayoffMath, AdjustForProperOddsReadsThePlayersRules) {
  BettingState& s = g.betting;
  auto adjust = [&](int b, Currency change, Currency maximum = 1000_usd) {
    s.BetChange = change;
    s.BetMaximum = maximum;
    s.BetMinimum = 1_usd;
    AdjustForProperOdds(g, 1, b);
    return s.BetChange;
  };
  g.autoplay.AutoAdjustMode(1) = 0;
  EXPECT_EQ(adjust(PlaceId(6), 7_usd), 7_usd) << "manual: no adjustment";
  g.autoplay.AutoAdjustMode(1) = 1;
  g.autoplay.LayBias(1) = 2;
  EXPECT_EQ(adjust(LayId(4), 5_usd), 4_usd);
  // Pass Line takes the unit of the Come bet on the point.
  g.PayoffTbl(1, ComeId(6)) = 3_usd;
  g.PayoffTbl(3, ComeId(6)) = 2_usd;
  FigureProperUnits(g);
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 3_usd) << "no point: the Come box's unit of 1";
  g.Point = 6;
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 4_usd);
  // The limit text grows outside Hyper-Drive only.
  s.LimitText.clear();
  EXPECT_EQ(adjust(PlaceId(6), 11_usd, 10_usd), 6_usd);
  EXPECT_FALSE(s.LimitText.empty());
  s.LimitText.clear();
  g.HyperDrive = true;
  adjust(PlaceId(6), 11_usd, 10_usd);
  EXPECT_TRUE(s.LimitText.empty());
}

}  // namespace
