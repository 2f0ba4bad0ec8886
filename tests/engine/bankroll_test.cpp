// Money in and out: the ATM's limits and notices, the negative-bankroll
// switch, the start rules of a new session, and the CheckStacks grid and
// visible spots.
#include "engine/bankroll.h"

#include <string>

#include "core/message_dialog.h"
#include "engine/place.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Bankroll : public TableFixture {
 protected:
  Bankroll() {
    g.HyperDrive = false;
    for (int p = 1; p <= 3; ++p) g.InvestedBankroll(p) = kStake;
  }
};

TEST_F(Bankroll, WithdrawalsStopAtTheBankLimit) {
  g.Bet(1, 0) = 9'999'800_usd;
  EXPECT_EQ(Atm(g, 1, false, 500_usd), 199_usd);
  EXPECT_EQ(g.Bet(1, 0), 9'999'999_usd);
  EXPECT_EQ(g.InvestedBankroll(1), 1199_usd);
  EXPECT_EQ(LastText(),
            "Requested amount:  $500\rAllowed amount:  $199\r\rThe full amount of this transaction "
            "was not allowed since it would have caused the current bankroll to exceed the bank "
            "limit of $9,999,999");
}

TEST_F(Bankroll, DepositsKeepTheBetsCoveredUnlessNegativeAmountsAreAllowed) {
  g.autoplay.AutoAdjustMode(1) = 0;
  g.BetRequest = 300_usd;
  SetBetChecked(g, 1, kField);
  EXPECT_EQ(Atm(g, 1, true, 800_usd), 700_usd);
  EXPECT_EQ(g.InvestedBankroll(1), 300_usd);
  g.betting.AllowNegBankroll(3) = true;
  EXPECT_EQ(Atm(g, 3, true, 11'000'000_usd), 10'000'999_usd);
  EXPECT_EQ(g.Bet(3, 0), -9'999'999_usd);
  EXPECT_NE(LastText().find("exceed the bank limit of $-9,999,999"), std::string::npos);

  // In Hyper-Drive a script's transaction is cut just the same, silently.
  g.HyperDrive = true;
  const size_t shown = platform.messages.size();
  EXPECT_EQ(Atm(g, 2, true, 1010_usd), 1000_usd);
  EXPECT_EQ(platform.messages.size(), shown);
}

TEST_F(Bankroll, TheNegativeBankrollBoxStaysCheckedWhileItIsNeeded) {
  g.betting.AllowNegBankroll(1) = true;
  g.autoplay.AutoAdjustMode(1) = 0;
  g.BetRequest = 400_usd;
  SetBetChecked(g, 1, kField);
  g.Bet(1, 0) = 250_usd;
  EXPECT_TRUE(ChangeAllowNegBankroll(g, 1, false));
  EXPECT_EQ(LastText(),
            "The amount of P1's current bets exceeds his/her current bankroll.\r\rTherefore, "
            "before you can un-check this box, P1 must either:\r\r -- Reduce the amount of "
            "his/her current bets, or \r -- Make at least a $150 withdrawal from the ATM.");
  g.Bet(1, 0) = -5_usd;
  EXPECT_TRUE(ChangeAllowNegBankroll(g, 1, false));
  g.Bet(1, 0) = 400_usd;
  EXPECT_FALSE(ChangeAllowNegBankroll(g, 1, false));
  EXPECT_TRUE(ChangeAllowNegBankroll(g, 2, true));
}

TEST_F(Bankroll, EachStartRuleSetsTheNewSessionsBankroll) {
  BettingState& s = g.betting;
  s.StartBankrollMode(1) = kStartWithAmount;
  s.StartBankroll(1) = 300_usd;
  SetBeginningBankroll(g, 1, 50_usd);
  EXPECT_EQ(g.InvestedBankroll(1), 300_usd);
  EXPECT_EQ(g.BankrollSum(1), 300_usd);

  s.StartBankrollMode(2) = kStartCarry;
  SetBeginningBankroll(g, 2, -40_usd);
  EXPECT_EQ(g.InvestedBankroll(2), -40_usd);
  EXPECT_TRUE(s.AllowNegBankroll(2));

  s.StartBankrollMode(3) = kStartCarryWithNet;
  SetBeginningBankroll(g, 3, 1200_usd);
  EXPECT_EQ(g.Bet(3, 0), 1200_usd);
  EXPECT_EQ(g.InvestedBankroll(3), kStake);  // the net runs on
  EXPECT_EQ(g.BankrollLow(3), 1200_usd);

  // Carried beyond the bank limit, the bankroll is asked for instead.
  Reply(kAnswerOk, "12000000");
  Reply(kAnswerOk, "2500");
  SetBeginningBankroll(g, 3, 10'000'001_usd);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].text,
            "The maximum player bankroll is $9,999,999\r\rEnter P3's beginning bankroll:");
  EXPECT_EQ(g.Bet(3, 0), 2500_usd);
  EXPECT_EQ(s.StartBankroll(3), 2500_usd);
}

TEST_F(Bankroll, CheckStacksGridAndVisibleSpots) {
  SetCheckStackValue(g, 1, 7, "-12.5");
  SetCheckStackName(g, 1, 9, "goal");
  SetCheckStackValue(g, 1, 20, "3");
  auto rows = ShowCheckStacks(g, 1);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[1].name, "goal");  // a name shows with a value of 0
  const int twice[4] = {5, 6, 5, 7};
  EXPECT_FALSE(SetVisibleCheckStacks(g, 1, twice));
  EXPECT_EQ(LastText(), "Each CheckStack entry should be a different number.");
  const int spots[4] = {7, 0, 99, 20};
  EXPECT_TRUE(SetVisibleCheckStacks(g, 1, spots));
  EXPECT_EQ(CheckStackSpotName(g, 1, 1), "CheckStack #7");
  // A click with the first rail stack selected lays its amount down.
  g.rules.SelectedCheck = 7;
  EXPECT_EQ(SelectedAmount(g, 1), Usd(-12.5));

  Reply(kAnswerYes);
  EXPECT_TRUE(DeleteAllCheckStacks(g, 1, StackClear::Values));
  EXPECT_EQ(LastText(), "Are you sure you want to delete all the CheckStack values for P1?");
  EXPECT_TRUE(g.Bet(1, kCheckStackFirst + 7).IsZero());
  EXPECT_EQ(g.CheckStackName(1, 9), "goal");

  EXPECT_EQ(ConvertNonPrinting(std::string("a\tb~\x7f")), std::string("a\0b~\0", 5));
}

}  // namespace
