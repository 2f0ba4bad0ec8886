// FigureAdvantage and FigureFireOdds against an independent model of the
// bets (craps_model.h): every bet with fair dice under changed payoffs and
// rules, and under the default payoffs with two skewed tables (the defaults
// with fair dice are held end to end by the advantage command's test); the
// figures the tab shows, as numbers and as the texts and colours of its two
// views; dice that can decide nothing.
#include "analysis/advantage.h"

#include <cmath>
#include <string>

#include "analysis/advantage_table.h"
#include "core/catalogue.h"
#include "craps_model.h"
#include "dice/probability.h"
#include "tests/engine/roll_fixture.h"

namespace {

constexpr double kExact = 1e-9;

using Exact = model::Craps<model::Q>;                         // fractions: fair dice
using Skewed = model::Craps<long double>;                     // a 64-bit mantissa: skewed tables
constexpr int kFirePays[7] = {-1, -1, -1, -1, 24, 249, 999};  // default, per unit

bool IsLine(int b) { return b == 43 || b == 44 || b == 46 || b == 47; }

class AdvantageTest : public RollFixture {
 protected:
  Exact::Rules rules;

  // Skewed dice from cells given by pair, in table units; the table's
  // totals and faces follow, and the model reads the same cells.
  Skewed::Dice UseTable(const std::array<std::array<Long, 6>, 6>& cells) {
    Skewed::Dice dice;
    for (int i = 1; i <= 6; ++i)
      for (int j = 1; j <= 6; ++j) {
        const ProbEntry e = CellOfDice(i, j);
        ProbValue(g, e.a, e.b) = cells[i - 1][j - 1];
        dice[i - 1][j - 1] = model::Frac<long double>(cells[i - 1][j - 1], kProbCertain);
      }
    MakeFreeFormDice(g);
    g.dice.ProbabilityDiceOn = true;
    return dice;
  }

  template <class M>
  static model::Figures Model(const typename M::Rules& rules, const typename M::Dice& dice, int b,
                              bool countZero) {
    if (IsLine(b)) return M::LineFigures(rules, dice, b, countZero);
    if (b != bet::kFire) return M::SingleRollFigures(rules, dice, b, countZero);
    const model::FireModel hand = M::FireHand(dice);
    double ev = 0, var = 0;
    for (int k = 0; k <= 6; ++k) ev += kFirePays[k] * hand.made[k];
    for (int k = 0; k <= 6; ++k) var += (kFirePays[k] - ev) * (kFirePays[k] - ev) * hand.made[k];
    model::Figures f{ev / hand.rolls, ev, hand.rolls, std::sqrt(var / hand.rolls), std::sqrt(var)};
    if (countZero) f = {f.evPerRoll, f.evPerRoll, f.rollsPerDec, f.sdPerRoll, f.sdPerRoll};
    return f;
  }

  template <class M>
  void ExpectEveryBetAsTheModel(const std::string& what, const typename M::Rules& rules,
                                const typename M::Dice& dice) {
    for (bool countZero : {false, true}) {
      g.advantage.CountZeroOutcomes = countZero;
      for (int b = 1; b <= kLastRealBet; ++b) {
        const Advantage a = FigureAdvantage(g, b);
        const model::Figures m = Model<M>(rules, dice, b, countZero);
        const std::string where =
            what + ", bet " + std::to_string(b) + (countZero ? ", zero outcomes counted" : "");
        EXPECT_NEAR(a.evPerRoll, m.evPerRoll, kExact) << where;
        EXPECT_NEAR(a.evPerDec, m.evPerDec, kExact) << where;
        EXPECT_NEAR(a.rollsPerDec, m.rollsPerDec, kExact) << where;
        EXPECT_NEAR(a.stDevPerRoll, m.sdPerRoll, kExact) << where;
        EXPECT_NEAR(a.stDevPerDec, m.sdPerDec, kExact) << where;
      }
    }
    g.advantage.CountZeroOutcomes = false;
    const FireOdds fire = FigureFireOdds(g);
    const model::FireModel hand = M::FireHand(dice);
    for (int k = 0; k <= 6; ++k) EXPECT_NEAR(fire.FireProb[k], hand.made[k], kExact) << what << k;
    EXPECT_NEAR(fire.FireRolls, hand.rolls, kExact) << what;
  }
};

TEST_F(AdvantageTest, ChangedPayoffsVigOnWinsOnlyAndBarTwo) {
  g.FieldPayoff(1, 21) = Currency::FromWhole(3);  // the Field pays triple on 12
  rules.field[12] = 3;
  g.rules.BuyVigUpFront = g.rules.LayVigUpFront = false;
  rules.buyVigUpFront = rules.layVigUpFront = false;
  g.rules.BarNumber = rules.bar = 2;
  ExpectEveryBetAsTheModel<Exact>("changed payoffs", rules, Exact::FairDice());
}

TEST_F(AdvantageTest, EveryBetUnderSkewedDice) {
  // Percentage dice: die 1 leans away from 1 and 6, die 2 away from 1 and 2.
  const int die1[6] = {10, 20, 20, 20, 20, 10}, die2[6] = {10, 10, 20, 20, 20, 20};
  std::array<std::array<Long, 6>, 6> cells{};
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 6; ++j) cells[i][j] = die1[i] * die2[j] * 10;
  ExpectEveryBetAsTheModel<Skewed>("percentage dice", Skewed::Rules(), UseTable(cells));

  // Free form: 1-1 never comes, 3-4 and 4-3 twice as often, 6-6 four times;
  // barring 2 instead of 12 now changes what Don't Pass is worth.
  for (auto& row : cells) row.fill(2500);
  cells[0][0] = 0;
  cells[2][3] = cells[3][2] = 5000;
  cells[5][5] = 10000;
  Skewed::Rules barTwo;
  barTwo.bar = g.rules.BarNumber = 2;
  ExpectEveryBetAsTheModel<Skewed>("free form dice", barTwo, UseTable(cells));
}

TEST_F(AdvantageTest, FiguresAsTheTabShowsThemInBothViews) {
  auto shown = [&](int b) { return FigureAdvantage(g, b, AdvantagePrecision::AsShown); };
  // Six decimals read back as the nearest double: exactly the literal.
  const Advantage pass = shown(bet::kPassLine);
  EXPECT_EQ(pass.evPerDec, -0.014141);
  EXPECT_EQ(pass.evPerRoll, -0.004189);
  EXPECT_EQ(shown(PlaceId(6)).rollsPerDec, 3.27);
  EXPECT_EQ(shown(bet::kFire).evPerDec, -0.207628);
  EXPECT_EQ(shown(bet::kFire).rollsPerDec, FigureFireOdds(g).FireRolls);
  // A line bet's rolls per decision is not rounded.
  EXPECT_NEAR(pass.rollsPerDec, 557.0 / 165, 1e-12);
  EXPECT_DOUBLE_EQ(ExpectedValuePerDecision(g, bet::kPassLine), -0.014141);
  // The tab's table as data, in both views.
  const AdvantageRow row = FigureAdvantageRow(g, bet::kPassLine);
  // EV/roll -0.004189, x 120 rolls an hour; rolls per decision 557 / 165; the
  // deviation per roll sqrt((1 - 2 x 0.004189 x 0.014141 + 0.004189^2) / R).
  const char* normal[] = {"-0.42", "54.42", "-1.41", "99.99", "-50.27"};
  const char* misc[] = {"3.38", "0.30", "35.55", "0.59", "0:01:41.3"};
  for (int c = 0; c < kAdvantageColumns; ++c) {
    EXPECT_EQ(row.normal[c].text, normal[c]) << kAdvantageTitles[c];
    EXPECT_EQ(row.misc[c].text, misc[c]) << kAdvantageMiscTitles[c];
  }
  EXPECT_EQ(row.normal[0].colour, FigureColour::Red);
  EXPECT_EQ(row.normal[1].colour, FigureColour::Blue);  // a deviation is never red
  EXPECT_EQ(FigureAdvantageRow(g, bet::kPassLineOdds).normal[2].colour, FigureColour::Black);
  EXPECT_EQ(FigureAdvantageRow(g, PlaceId(6)).misc[0].text, "3.27");

  g.advantage.CountZeroOutcomes = true;
  EXPECT_EQ(shown(bet::kDontPass).evPerDec, -0.013636);
  EXPECT_EQ(shown(PlaceId(6)).evPerDec, shown(PlaceId(6)).evPerRoll);
}

TEST_F(AdvantageTest, DiceThatDecideNothingGiveZerosNotFaults) {
  std::array<std::array<Long, 6>, 6> cells{};  // a dead table
  UseTable(cells);
  const AdvantageRow dead = FigureAdvantageRow(g, PlaceId(6));  // as the tab shows it
  for (int c = 0; c < kAdvantageColumns - 1; ++c) {
    EXPECT_EQ(dead.normal[c].text, "0.00");
    EXPECT_EQ(dead.misc[c].colour, FigureColour::Black);
  }
  EXPECT_EQ(dead.misc[4].text, "0:00:00.0");
  for (bool countZero : {false, true}) {
    g.advantage.CountZeroOutcomes = countZero;
    for (int b = 1; b <= kLastRealBet; ++b) {
      const Advantage a = FigureAdvantage(g, b);
      EXPECT_EQ(a.evPerDec, 0) << b;
      EXPECT_EQ(a.rollsPerDec, countZero && !IsLine(b) && b != bet::kFire ? 1 : 0) << b;
      EXPECT_EQ(a.stDevPerDec, 0) << b;
    }
  }
  // No seven: nobody sevens out, so Fire has nothing to figure; every other
  // figure stays finite.
  g.advantage.CountZeroOutcomes = false;
  for (auto& row : cells) row.fill(2778);
  for (int i = 1; i <= 6; ++i) cells[i - 1][6 - i] = 0;
  UseTable(cells);
  EXPECT_EQ(FigureFireOdds(g).FireRolls, 0);
  EXPECT_EQ(FigureAdvantage(g, bet::kFire).evPerDec, 0);
  for (int b = 1; b <= kLastRealBet; ++b) {
    const Advantage a = FigureAdvantage(g, b);
    EXPECT_TRUE(std::isfinite(a.evPerRoll) && std::isfinite(a.evPerDec) &&
                std::isfinite(a.stDevPerRoll) && std::isfinite(a.stDevPerDec))
        << b;
  }
  EXPECT_NEAR(FigureAdvantage(g, PlaceId(6)).evPerDec, 7.0 / 6, kExact);  // it can only win
  EXPECT_EQ(FigureAdvantage(g, 0).evPerDec, 0);
  EXPECT_EQ(FigureAdvantage(g, 86).evPerDec, 0);
}

}  // namespace
