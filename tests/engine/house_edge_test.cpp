// Correct in the large: a long Hyper-Drive run with eight players who keep
// the main bets up, then each bet's net result per amount wagered (from the
// session's decision statistics) against the advantage analysis's expected
// value per decision, which must itself be the bet's known house edge. The
// tolerance is six standard errors of the bet's own spread per decision, so
// a wrong payoff, a wrong decision or a wrong cut shows, while chance does not.
#include <cmath>
#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

#include "analysis/advantage.h"
#include "core/money.h"
#include "cycle/hyperdrive.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "stats/bet_results.h"
#include "table_fixture.h"

namespace {

using namespace bet;

#ifdef NDEBUG
constexpr std::int64_t kRolls = 2'000'000;
#else
constexpr std::int64_t kRolls = 50'000;  // a smoke run; the check proper needs Release
#endif

class HouseEdge : public TableFixture {
 protected:
  HouseEdge() {
    for (int p = 4; p <= 8; ++p) Seat(p, "P" + std::to_string(p));
    g.rules.BetRequirement = 0;
    g.rules.NoticeFlags = 0;
  }

  // Tops bet b of player p up to `amount` (bets that came down, the Come
  // boxes) as a player at the table would, through the placing gate.
  void Keep(int p, int b, long amount) {
    const Currency want = Currency::FromWhole(amount);
    if (g.Bet(p, b) >= want) return;
    g.BetRequest = want - g.Bet(p, b);
    PlaceBet(g, p, b);
  }

  void KeepBets() {
    // The line players' odds are Auto-Play's full odds; the Come and Don't
    // Come players' odds follow their bets as they travel.
    const std::tuple<int, int, long> kept[] = {
        {1, kPassLine, 10}, {2, kDontPass, 10}, {3, PlaceId(6), 12},  {3, PlaceId(5), 10},
        {3, BuyId(4), 20},  {3, LayId(10), 40}, {4, kField, 10},      {4, kSeven, 10},
        {4, kCraps, 10},    {4, kMidway, 10},   {5, kHard6, 10},      {5, kHard4, 10},
        {5, kBig6, 10},     {5, kOver7, 10},    {8, HopId(1, 4), 10}, {8, HopId(2, 2), 10},
        {8, kHorn, 4},      {8, kCandE, 2},     {8, kWorld, 5}};
    for (auto [p, b, amount] : kept) Keep(p, b, amount);
    if (g.Point > 0) {
      Keep(6, kCome, 10);
      Keep(7, kDontCome, 10);
    }
    for (int p = 1; p <= 8; ++p)
      if (g.Bet(p, bet::kBankroll) < 1'000'000_usd) g.Bet(p, bet::kBankroll) += 1'000'000_usd;
  }

  static void AfterRoll(void* self, const Game&) { static_cast<HouseEdge*>(self)->KeepBets(); }

  struct Result {
    double wagered = 0, net = 0, decisions = 0;
  };
  Result Session(int p, std::vector<int> ids) const {
    Result r;
    for (int b : ids) {
      const int i = p + 18;
      r.wagered += g.StatAction(i, b, kStatTotal).ToDouble();
      r.decisions += g.StatAction(i, b, kStatCount).ToDouble();
      r.net += g.StatWins(i, b, kStatTotal).ToDouble() - g.StatLosses(i, b, kStatTotal).ToDouble();
    }
    return r;
  }

  // The player's result on `ids` per amount wagered is the evPerDec of bet
  // `figure`, within six standard errors of its spread per decision; that
  // evPerDec is the known edge.
  void ExpectEdge(const char* name, int p, std::vector<int> ids, int figure, double edge) {
    const Advantage a = FigureAdvantage(g, figure);
    EXPECT_NEAR(a.evPerDec, -edge, 1e-9) << name;
    const Result r = Session(p, ids);
    ASSERT_GT(r.decisions, 1000) << name;
    const double perUnit = r.net / r.wagered;
    const double tolerance = 6 * a.stDevPerDec / std::sqrt(r.decisions);
    EXPECT_NEAR(perUnit, a.evPerDec, tolerance) << name << ": " << r.decisions << " decisions";
    // The bet results view's expected value agrees with the actual net within the same bound.
    const BetResultsFigures view = FigureBetResults(g, kFrameCurrentSession, 1 << p, ids);
    EXPECT_NEAR(perUnit, view.expected.ToDouble() / r.wagered, tolerance) << name;
    std::printf("%-16s edge %7.3f%%  expected %7.3f%%  (+/- %.3f%%, %.0f decisions)\n", name,
                -100 * perUnit, -100 * a.evPerDec, 100 * tolerance, r.decisions);
  }
};

TEST_F(HouseEdge, EachMainBetLosesItsKnownShareOfTheAction) {
  for (int p = 1; p <= 8; ++p) {
    g.autoplay.HandleWinningBets(p) = 2;  // Same Bet
    g.autoplay.HandleLosingBets(p) = 2;
  }
  // A Come bet left up after its decision would be a Put bet, with an edge
  // of its own: the Come player takes winners and losers down.
  g.autoplay.HandleWinningBets(6) = g.autoplay.HandleLosingBets(6) = 1;
  g.autoplay.AutoTakeFullOdds(1) = g.autoplay.AutoTakeFullOdds(6) = true;
  g.autoplay.AutoLayFullOdds(2) = g.autoplay.AutoLayFullOdds(7) = true;
  SeedRngWith(g, 20261122);
  KeepBets();
  g.hyper.RunRollLimit = kRolls;
  g.hyper.RollObserver = &HouseEdge::AfterRoll;
  g.hyper.RollObserverContext = this;
  RunHyperDrive(g);
  ASSERT_EQ(g.hyper.RollsThisRun, kRolls) << g.StopMessage;

  ExpectEdge("Pass Line", 1, {kPassLine}, kPassLine, 7.0 / 495);
  ExpectEdge("Pass Line Odds", 1, {kPassLineOdds}, kPassLineOdds, 0);
  ExpectEdge("Don't Pass", 2, {kDontPass}, kDontPass, 27.0 / 1925);
  ExpectEdge("Don't Pass Odds", 2, {kDontPassOdds}, kDontPassOdds, 0);
  ExpectEdge("Place 6", 3, {PlaceId(6)}, PlaceId(6), 1.0 / 66);
  ExpectEdge("Place 5", 3, {PlaceId(5)}, PlaceId(5), 0.04);
  ExpectEdge("Buy 4 (vig 1)", 3, {BuyId(4)}, BuyId(4), 1.0 / 21);
  ExpectEdge("Lay 10 (vig 1)", 3, {LayId(10)}, LayId(10), 1.0 / 41);
  ExpectEdge("Field", 4, {kField}, kField, 1.0 / 18);
  ExpectEdge("Any 7", 4, {kSeven}, kSeven, 1.0 / 6);
  ExpectEdge("Any craps", 4, {kCraps}, kCraps, 1.0 / 9);
  ExpectEdge("Midway", 4, {kMidway}, kMidway, 1.0 / 18);
  ExpectEdge("Hard 6", 5, {kHard6}, kHard6, 1.0 / 11);
  ExpectEdge("Hard 4", 5, {kHard4}, kHard4, 1.0 / 9);
  ExpectEdge("Big 6", 5, {kBig6}, kBig6, 1.0 / 11);
  ExpectEdge("Over 7", 5, {kOver7}, kOver7, 1.0 / 6);
  // A Come bet is a Pass Line bet of its own, and its odds are the line odds.
  ExpectEdge("Come", 6, {kCome, 19, 20, 21, 22, 23, 24}, kPassLine, 7.0 / 495);
  ExpectEdge("Come Odds", 6, {25, 26, 27, 28, 29, 30}, kPassLineOdds, 0);
  ExpectEdge("Don't Come", 7, {kDontCome, 7, 8, 9, 10, 11, 12}, kDontPass, 27.0 / 1925);
  ExpectEdge("Don't Come Odds", 7, {13, 14, 15, 16, 17, 18}, kDontPassOdds, 0);
  ExpectEdge("Hop 14", 8, {HopId(1, 4)}, HopId(1, 4), 1.0 / 9);
  ExpectEdge("Hop 22", 8, {HopId(2, 2)}, HopId(2, 2), 5.0 / 36);
  ExpectEdge("Horn", 8, {kHorn}, kHorn, 0.125);
  ExpectEdge("C and E", 8, {kCandE}, kCandE, 1.0 / 9);
  // World's seven is a push, which is no decision.
  ExpectEdge("World", 8, {kWorld}, kWorld, 0.16);
}

}  // namespace
