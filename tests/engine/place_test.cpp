// The bet gate: steps of a check, the contract rules of craps, the table's
// limits, the bankroll and the vig, with the exact notices they show; and
// the operations round it. After every change the ledger must still agree.
#include "engine/place.h"

#include <random>
#include <string>

#include "table_fixture.h"

namespace {

using namespace bet;

class Place : public TableFixture {
 protected:
  Place() { g.HyperDrive = false; }  // notices are recorded

  // Asks for a change of bet b of player p; returns what was applied.
  Currency Ask(int p, int b, Currency amount) {
    g.BetRequest = amount;
    SetBetChecked(g, p, b);
    EXPECT_TRUE(CheckBetLedger(g, p)) << "after a change of " << BetName(b);
    return g.betting.BetChange;
  }
  Currency Ask(int p, int b, long whole) { return Ask(p, b, Currency::FromWhole(whole)); }

  // The roll fixes what stands as the contract of every bet.
  void FixContracts() {
    for (int p = 1; p <= 3; ++p)
      for (int b = 1; b <= kLastRealBet; ++b) g.BetContract(p, b) = g.Bet(p, b);
  }

  size_t Shown() const { return platform.messages.size(); }
};

TEST_F(Place, ChangesAreSteppedInTheSmallestCheckAndNeverGoBelowZero) {
  EXPECT_EQ(Ask(1, kField, Usd(7.5)), 8_usd);
  EXPECT_EQ(Ask(1, kField, Usd(-7.5)), -8_usd);
  Ask(1, kField, 6);
  EXPECT_EQ(Ask(1, kField, -20), -6_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  g.CheckValue(1) = Usd(0.25);
  EXPECT_EQ(Ask(1, kHard4, Usd(1.1)), Usd(1.25));
  EXPECT_EQ(Ask(1, kHard4, Usd(-0.3)), Usd(-0.5));
}

TEST_F(Place, TableMinimumAndMaximum) {
  g.rules.MinPlacardBet = 5_usd;
  EXPECT_EQ(Ask(1, kPassLine, 2), 5_usd);
  EXPECT_EQ(LastText(), "P1,\r\rThe minimum Pass Line bet is $5\rwhich is being bet.");
  EXPECT_EQ(Ask(1, kPassLine, -3), -5_usd);  // 2 would remain: all of it comes down
  EXPECT_EQ(Ask(1, kHard4, 1), 1_usd);       // propositions: one smallest check

  EXPECT_EQ(Ask(2, PlaceId(6), 1500), 1000_usd);
  EXPECT_TRUE(Ask(2, PlaceId(6), 5).IsZero());
  // A lowered maximum takes a free bet down to it on its next look, silently
  // without the notice class bit.
  g.rules.MaxPlacardBet = 500_usd;
  g.rules.NoticeFlags = 0;
  const size_t before = Shown();
  EXPECT_EQ(Ask(2, PlaceId(6), 0), -500_usd);
  EXPECT_EQ(Shown(), before);
}

TEST_F(Place, AContractBetAboveALoweredMaximumStaysWhereItWasEstablished) {
  Ask(1, kPassLine, 100);
  PointOn(6);
  FixContracts();
  g.rules.MaxPlacardBet = 50_usd;
  EXPECT_TRUE(Ask(1, kPassLine, 10).IsZero());
  EXPECT_EQ(g.Bet(1, kPassLine), 100_usd);
  EXPECT_EQ(LastText(),
            "P1,\r\rThe maximum Pass Line bet is $50\r\rHowever, because the Pass Line is a "
            "contract bet and you established it at $100 before you recently lowered the maximum "
            "allowed on the Configuration screen, it must remain unchanged until it resolves.");
}

TEST_F(Place, LineBetsFollowThePoint) {
  Ask(1, kPassLine, 10);
  EXPECT_EQ(Ask(1, kPassLine, -4), -4_usd);  // free on the come-out
  PointOn(5);
  FixContracts();
  EXPECT_TRUE(Ask(1, kPassLine, -6).IsZero());
  EXPECT_EQ(Ask(1, kPassLine, 4), 4_usd);     // a Put bet
  EXPECT_EQ(Ask(1, kPassLine, -10), -4_usd);  // only what stands above the contract

  g.rules.AllowPutBets = false;
  EXPECT_TRUE(Ask(2, ComeId(9), 5).IsZero());
}

TEST_F(Place, ComeBoxesAndOddsNeedWhatTheyHangOn) {
  EXPECT_TRUE(Ask(1, kDontCome, 5).IsZero());
  EXPECT_TRUE(Ask(1, kPassLineOdds, 5).IsZero());
  EXPECT_TRUE(Ask(1, ComeId(4) + 6, 5).IsZero());
  PointOn(8);
  Ask(1, kPassLine, 10);
  EXPECT_EQ(Ask(1, kPassLineOdds, 20), 20_usd);
}

TEST_F(Place, RemovedDontAndFireBetsMayBeRestoredUpToTheirContractOnly) {
  Ask(1, kDontPass, 10);
  PointOn(4);
  FixContracts();
  EXPECT_EQ(Ask(1, kDontPass, -6), -6_usd);
  EXPECT_EQ(Ask(1, kDontPass, 4), 4_usd);
  EXPECT_EQ(Ask(1, kDontPass, 5), 2_usd);
  EXPECT_EQ(LastText(),
            "P1,\r\rYou may not make or increase a Don't Pass bet \rwhile a point is established."
            "\r\rHowever, you're allowed to restore up to $10 here because it was previously "
            "established and the dice have not rolled since you partially removed it.");
  // After the next roll the contract is what stands.
  Ask(1, kDontPass, -10);
  FixContracts();
  EXPECT_TRUE(Ask(1, kDontPass, 5).IsZero());

  // Fire: made before the hand's first roll only.
  EXPECT_EQ(Ask(2, kFire, 5), 5_usd);
  FixContracts();
  g.RollTally(kTableHand, kEventRolls) = 1;
  EXPECT_EQ(Ask(2, kFire, -5), -5_usd);
  EXPECT_EQ(Ask(2, kFire, 6), 5_usd);
  EXPECT_TRUE(Ask(3, kFire, 1).IsZero());
}

TEST_F(Place, TheBankrollLimitsABetUnlessNegativeAmountsAreAllowed) {
  g.Bet(1, 0) = 100_usd;
  EXPECT_EQ(Ask(1, PlaceId(8), 150), 100_usd);
  EXPECT_TRUE(Ask(1, kField, 5).IsZero());
  EXPECT_EQ(LastText(),
            "P1,\r\rYou don't have enough bankroll remaining to bet the full amount requested."
            "\r\rYour options are: \r      - Bet less on other bets.\r      - Make a withdrawal "
            "from the ATM.\r      - Allow negative bankroll amounts.");
  g.betting.AllowNegBankroll(1) = true;
  EXPECT_EQ(Ask(1, kField, 5), 5_usd);
  EXPECT_EQ(g.TotalBets(1), 105_usd);

  // Bets above a bankroll that lost come down to what it covers when next
  // looked at, and no further than to nothing.
  g.betting.AllowNegBankroll(1) = false;
  g.Bet(1, 0) = 103_usd;
  EXPECT_EQ(Ask(1, PlaceId(8), 0), -2_usd);
  g.Bet(1, 0) = -50_usd;
  EXPECT_EQ(Ask(1, kField, -3), -5_usd);
  EXPECT_EQ(Ask(1, PlaceId(8), 10), -98_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());
}

TEST_F(Place, UpFrontVigMustFitTooAndIsRefundedWhenTheBetComesDown) {
  g.Bet(1, 0) = 100_usd;
  EXPECT_EQ(Ask(1, BuyId(4), 100), 95_usd);  // 95 with a vig of 5 is all 100 can carry
  EXPECT_EQ(g.TotalBets(1), 100_usd);
  Ask(1, BuyId(4), -95);
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  Ask(2, BuyId(10), 20);
  Ask(2, BuyId(10), 40);
  EXPECT_EQ(LastText(), "Total vig charge $3\r\rVig increased by $2");

  // Vig charged on a win only is told, held in the table, kept out of TotalBets.
  g.rules.LayVigUpFront = false;
  Ask(3, LayId(4), 40);
  EXPECT_EQ(g.LayVig(3, 0), 1_usd);
  EXPECT_EQ(g.TotalBets(3), 40_usd);
}

TEST_F(Place, CheckStacksTakeAnyAmountWithinTheirLimit) {
  const int stack = kCheckStackFirst + 5;
  EXPECT_EQ(Ask(1, stack, Usd(7.25)), Usd(7.25));
  EXPECT_EQ(Ask(1, stack, -20), -20_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());  // stacks are no bets

  Ask(1, stack, kCheckStackLimit);
  EXPECT_EQ(Ask(1, stack, 20), Usd(12.75));
  g.BetRequest = Currency::FromRaw(INT64_MIN);
  SetBetChecked(g, 1, stack);
  EXPECT_EQ(g.Bet(1, stack), -kCheckStackLimit);
}

TEST_F(Place, BetMaximaByGroup) {
  auto max = [&](int p, int b) {
    FigureBetMaximum(g, p, b);
    return g.betting.BetMaximum;
  };
  EXPECT_EQ(max(1, kHard4), 428_usd);     // 3000 / 7
  EXPECT_EQ(max(1, kWorld), 576_usd);     // 3000 / (30 / 5 - 0.8)
  EXPECT_EQ(max(1, LayId(4)), 2000_usd);  // wins at most the table maximum

  Ask(1, kDontPass, 10);
  PointOn(6);
  Ask(1, kPassLine, 10);
  g.betting.MovingBet = true;  // as when a Don't Come bet travels
  Ask(1, DontComeId(4), 10);
  g.betting.MovingBet = false;
  EXPECT_EQ(max(1, kPassLineOdds), 25_usd);  // 2.5 x on the six
  EXPECT_EQ(max(1, DontComeId(4) + 6), 40_usd);
  EXPECT_TRUE(max(2, kPassLineOdds).IsZero());  // no flat bet, no odds

  g.rules.MaxPlacardBet = Usd(1003.5);
  g.CheckValue(1) = 5_usd;
  EXPECT_EQ(max(1, kField), 1000_usd);
}

TEST_F(Place, OddsFollowTheirFlatBet) {
  Ask(2, kDontPass, 12);
  PointOn(6);
  Ask(1, kPassLine, 20);
  FixContracts();
  Ask(1, kPassLine, 10);  // a Put of 10 above the contract
  EXPECT_EQ(Ask(1, kPassLineOdds, 75), 75_usd);
  g.BetRequest = -10_usd;
  PlaceBet(g, 1, kPassLine);
  EXPECT_EQ(g.betting.BetChange, -10_usd);  // the flat bet's change, not the odds'
  EXPECT_EQ(g.Bet(1, kPassLineOdds), 50_usd);
  EXPECT_TRUE(CheckBetLedger(g, 1));

  // Full odds everywhere, without a notice.
  g.betting.MovingBet = true;
  Ask(2, DontComeId(10), 10);
  g.betting.MovingBet = false;
  Ask(2, ComeId(5), 10);
  const size_t before = Shown();
  TakeFullOdds(g, 2);
  LayFullOdds(g, 2);
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(g.Bet(2, ComeId(5) + 6), 20_usd);
  EXPECT_EQ(g.Bet(2, kDontPassOdds), 36_usd);
  EXPECT_EQ(g.Bet(2, DontComeId(10) + 6), 40_usd);
  EXPECT_TRUE(CheckBetLedger(g, 2));
}

TEST_F(Place, BuyingCallingKeyingAndRemoving) {
  PointOn(4);
  Ask(1, PlaceId(6), 12);
  CallBetOnOff(g, 1, PlaceId(6), kToolCallOff);
  BuyPlaceBet(g, 1, PlaceId(6));
  EXPECT_TRUE(g.Bet(1, PlaceId(6)).IsZero());
  EXPECT_EQ(g.Bet(1, BuyId(6)), 12_usd);
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), -1);  // the call goes along
  EXPECT_TRUE(CheckBetLedger(g, 1));
  BuyPlaceBet(g, 1, BuyId(6));
  EXPECT_EQ(g.Bet(1, BuyId(6)), 12_usd);

  // Calling on a bet that stands called off undoes the call.
  CallBetOnOff(g, 1, BuyId(6), kToolCallOn);
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), 1);
  CallBetOnOff(g, 1, BuyId(6), kToolCallOn, true);  // a script sets it outright
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), 2);
  Ask(1, kPassLine, 10);
  CallBetOnOff(g, 1, kPassLine, kToolCallOff);
  EXPECT_EQ(g.BetWorking(1, kPassLine), 1);

  // A keyed amount replaces the bet, within the bankroll.
  EXPECT_EQ(CommitKeyedAmount(g, 2, PlaceId(9), "many"), "0");
  g.Bet(2, 0) = 40_usd;
  EXPECT_EQ(CommitKeyedAmount(g, 2, PlaceId(9), "100"), "40");
  EXPECT_TRUE(CheckBetLedger(g, 2));

  // Removing all bets leaves contract bets and shows nothing.
  FixContracts();
  Ask(1, kHard8, 2);
  g.BetWorking(1, BuyId(6)) = -1;
  const size_t before = Shown();
  RemoveAllBets(g, 1);
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(g.TotalBets(1), 10_usd);
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), 1);  // reset with a point on
}

TEST_F(Place, RandomRequestsKeepTheLedgerAndTheRail) {
  std::mt19937 rng(20261123);
  const int points[] = {0, 4, 5, 6, 8, 9, 10};
  g.Bet(1, 0) = 300_usd;
  for (int i = 0; i < 20000; ++i) {
    const int r = static_cast<int>(rng() % 100);
    if (r == 0) PointOn(points[rng() % 7]);
    if (r == 1) FixContracts();
    if (r == 2) g.autoplay.AutoAdjustMode(1) = static_cast<int>(rng() % 3);
    if (r == 3) g.rules.NoticeFlags = static_cast<Long>(rng() % 8);
    const int b = 1 + static_cast<int>(rng() % kLastRealBet);
    const Currency before = g.Bet(1, b);
    g.BetRequest = Currency::FromRaw((static_cast<std::int64_t>(rng() % 1600) - 600) * 500);
    if (r < 50)
      SetBetChecked(g, 1, b);
    else
      PlaceBet(g, 1, b);
    SCOPED_TRACE(testing::Message() << "step " << i << " on " << BetName(b));
    ASSERT_TRUE(CheckBetLedger(g, 1));
    ASSERT_EQ(g.Bet(1, b), before + g.betting.BetChange);
    ASSERT_LE(g.TotalBets(1), g.Bet(1, 0));
    FigureBetMaximum(g, 1, b);
    if (g.Bet(1, b) > g.betting.BetMaximum && !IsComePoint(b) && b != kPassLine) {
      ASSERT_LT(g.betting.BetChange, 1_usd) << "a bet above its maximum never grows";
    }
  }
  EXPECT_GT(g.TotalBets(1), 0_usd);
}

TEST_F(Place, ClicksOnTheTable) {
  ClickOnBet(g, kField, BetClick::Plain);
  EXPECT_EQ(Shown(), 1u);  // nobody selected: a notice, no bet
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  g.betting.CurPlayer = 2;
  g.rules.SelectedCheck = 3;  // the 25 check
  ClickOnBet(g, kDontPass, BetClick::Plain);
  ClickOnBet(g, kDontPass, BetClick::Plain);
  EXPECT_EQ(g.Bet(2, kDontPass), 50_usd);
  g.rules.SelectedCheck = 2;
  ClickOnBet(g, kDontPassOdds, BetClick::Ctrl);  // empty odds: the flat bet is meant
  EXPECT_EQ(g.Bet(2, kDontPass), 45_usd);
  ClickOnBet(g, kDontPassOdds, BetClick::Shift);
  EXPECT_TRUE(g.Bet(2, kDontPass).IsZero());

  // Alt: lifted off one bet, dropped on a rail stack.
  Ask(2, kField, 15);
  DropLiftedAmount(g, kCheckStackFirst + 2, LiftBet(g, kField));
  EXPECT_EQ(g.Bet(2, kCheckStackFirst + 2), 15_usd);
  EXPECT_TRUE(g.TotalBets(2).IsZero());

  Ask(2, PlaceId(5), 10);
  g.betting.PendingAction = kPendingBuy;
  ClickOnBet(g, PlaceId(5), BetClick::Plain);
  EXPECT_EQ(g.Bet(2, BuyId(5)), 10_usd);
  EXPECT_EQ(g.betting.PendingAction, kPendingNone);
  EXPECT_TRUE(CheckBetLedger(g, 2));
}

}  // namespace
