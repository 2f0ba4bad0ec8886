// Money in and out: the ATM's limits and notices, the negative-bankroll
// switch, the start rules of a new session, the CheckStacks grid and visible
// spots; the CheckStacks printout; and the settings whose change acts on the
// bets standing.
#include "engine/bankroll.h"

#include <string>

#include "config/payoffs.h"
#include "core/message_dialog.h"
#include "engine/check_stacks_print.h"
#include "engine/place.h"
#include "engine/setting_changes.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Bankroll : public TableFixture {
 protected:
  Bankroll() {
    g.HyperDrive = false;
    platform.fixedDate = CalendarDate{2026, 11, 3};
    for (int p = 1; p <= 3; ++p) g.InvestedBankroll(p) = kStake;
  }
  void AnswerRange(int answer, const std::string& first, const std::string& last) {
    platform.queuedReplies.push_back(MessageReply{answer, first, last, false});
  }
  // The text of every cell of line i, joined by '|'.
  static std::string Cells(const PrintDocument& doc, std::size_t i) {
    std::string joined;
    for (const PrintCell& c : doc.lines.at(i).cells) joined += (joined.empty() ? "" : "|") + c.text;
    return joined;
  }
};

TEST_F(Bankroll, WithdrawalsStopAtTheBankLimit) {
  g.Bet(1, bet::kBankroll) = 9'999'800_usd;
  EXPECT_EQ(Atm(g, 1, false, 500_usd), 199_usd);
  EXPECT_EQ(g.Bet(1, bet::kBankroll), 9'999'999_usd);
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
  EXPECT_EQ(g.Bet(3, bet::kBankroll), -9'999'999_usd);
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
  g.Bet(1, bet::kBankroll) = 250_usd;
  EXPECT_TRUE(ChangeAllowNegBankroll(g, 1, false));
  EXPECT_EQ(LastText(),
            "The amount of P1's current bets exceeds his/her current bankroll.\r\rTherefore, "
            "before you can un-check this box, P1 must either:\r\r -- Reduce the amount of "
            "his/her current bets, or \r -- Make at least a $150 withdrawal from the ATM.");
  g.Bet(1, bet::kBankroll) = -5_usd;
  EXPECT_TRUE(ChangeAllowNegBankroll(g, 1, false));
  g.Bet(1, bet::kBankroll) = 400_usd;
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
  EXPECT_EQ(g.Bet(3, bet::kBankroll), 1200_usd);
  EXPECT_EQ(g.InvestedBankroll(3), kStake);  // the net runs on
  EXPECT_EQ(g.BankrollLow(3), 1200_usd);

  // Carried beyond the bank limit, the bankroll is asked for instead.
  Reply(kAnswerOk, "12000000");
  Reply(kAnswerOk, "2500");
  SetBeginningBankroll(g, 3, 10'000'001_usd);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].text,
            "The maximum player bankroll is $9,999,999\r\rEnter P3's beginning bankroll:");
  EXPECT_EQ(g.Bet(3, bet::kBankroll), 2500_usd);
  EXPECT_EQ(s.StartBankroll(3), 2500_usd);
}

// The grid, the check of the visible stacks and Delete All are the
// CheckStacks form's tests' business; here the rail spots and their amounts.
TEST_F(Bankroll, VisibleCheckStackSpotsAndTheirAmounts) {
  SetCheckStackValue(g, 1, 7, "-12.5");
  const int spots[4] = {7, 0, 99, 20};
  EXPECT_TRUE(SetVisibleCheckStacks(g, 1, spots));
  EXPECT_EQ(CheckStackSpotName(g, 1, 1), "CheckStack #7");
  // A click with the first rail stack selected lays its amount down.
  g.rules.SelectedCheck = 7;
  EXPECT_EQ(SelectedAmount(g, 1), Usd(-12.5));
  EXPECT_EQ(ConvertNonPrinting(std::string("a\tb~\x7f")), std::string("a\0b~\0", 5));
}

using Printouts = Bankroll;

TEST_F(Printouts, CheckStacksPrintTheAskedRangeInItsOrderAndColours) {
  SetCheckStackValue(g, 1, 3, "25");
  SetCheckStackName(g, 1, 3, "press");
  SetCheckStackValue(g, 1, 7, "-10.5");
  SetCheckStackName(g, 1, 50, "later");
  SetCheckStackValue(g, 1, 90, "5");
  SetCheckStackValue(g, 2, 4, "1");   // another player's stack never prints
  AnswerRange(kAnswerOk, "60", "2");  // given backwards
  ASSERT_TRUE(PrintCheckStacks(g, 1, "/home/ann/games/Tuesday.rvg"));
  ASSERT_EQ(platform.messages.back().title, "Print Range");
  EXPECT_EQ(platform.messages.back().input1, "0");
  EXPECT_EQ(platform.messages.back().input2, "99");
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(Cells(doc, 0), "Ravelton CheckStack values and names for P1");
  EXPECT_EQ(Cells(doc, 2), "Game File:  Tuesday.rvg");
  ASSERT_EQ(doc.lines.size(), 8u);  // head, blank, titles, stacks 3, 7 and 50
  EXPECT_EQ(Cells(doc, 5), "3|25|press");
  EXPECT_EQ(Cells(doc, 6), "7|-10.50|");
  EXPECT_EQ(Cells(doc, 7), "50|0|later");
  EXPECT_EQ(doc.lines[5].cells[1].colour, 9);
  EXPECT_EQ(doc.lines[6].cells[1].colour, 12);
  EXPECT_EQ(doc.lines[7].cells[1].colour, kPrintBlack);
}

TEST_F(Printouts, CheckStacksRangeBoundsCancelAndNoPrinter) {
  SetCheckStackValue(g, 1, 0, "1");
  SetCheckStackValue(g, 1, 99, "2");
  AnswerRange(kAnswerOk, "not a number", "400");
  ASSERT_TRUE(PrintCheckStacks(g, 1, ""));
  const PrintDocument& doc = platform.printed.back();
  ASSERT_EQ(doc.lines.size(), 7u);
  EXPECT_EQ(Cells(doc, 5), "0|1|");
  EXPECT_EQ(Cells(doc, 6), "99|2|");
  AnswerRange(kAnswerCancel, "0", "99");
  EXPECT_FALSE(PrintCheckStacks(g, 1, ""));
  platform.printerAvailable = false;
  AnswerRange(kAnswerOk, "0", "99");
  EXPECT_FALSE(PrintCheckStacks(g, 1, ""));
  EXPECT_EQ(platform.printed.size(), 1u);
}

TEST(MediumDate, DayMonthAndTwoDigitYear) {
  EXPECT_EQ(MediumDate({2007, 1, 5}), "05-Jan-07");
  EXPECT_EQ(MediumDate({2000, 13, 1}), "01-Jan-00");  // an impossible month reads as January
}

class SettingChanges : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
    g.platform = &platform;
    g.PlayerName[1] = "Ann";
    g.PlayerCount = 1;
  }
  void TearDown() override { g.platform = nullptr; }
  void Answer(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }
  // Puts an amount straight on a bet, the ledger kept in step.
  void Stake(int p, int b, Currency amount) {
    g.Bet(p, b) += amount;
    g.TotalBets(p) += amount;
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

TEST_F(SettingChanges, FireOffAnsweredNoKeepsEverything) {
  EXPECT_TRUE(ChangeBetSwitch(g, BetSwitch::Midway, false));  // no bets: nothing to ask
  g.Bet(1, bet::kBankroll) = 100_usd;
  Stake(1, bet::kFire, 5_usd);
  Answer(kAnswerNo);
  EXPECT_FALSE(ChangeBetSwitch(g, BetSwitch::Fire, false));
  EXPECT_TRUE(g.rules.UseFireBet && g.Bet(1, bet::kFire) == 5_usd);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "There are presently wagers on the Fire bet which will be removed if you continue with "
            "this operation.  Would you like to continue?");
}

TEST_F(SettingChanges, BigSixEightOffAnsweredYesRemovesEveryonesBets) {
  g.PlayerName[3] = "Bo";
  g.PlayerCount = 2;
  g.Bet(1, bet::kBankroll) = 100_usd;
  g.Bet(3, bet::kBankroll) = 100_usd;
  Stake(1, bet::kBig6, 10_usd);
  Stake(3, bet::kBig8, 6_usd);
  Stake(3, bet::kField, 4_usd);
  Answer(kAnswerYes);
  EXPECT_TRUE(ChangeBetSwitch(g, BetSwitch::Big68, false));
  EXPECT_FALSE(g.rules.UseBig68);
  EXPECT_TRUE(g.Bet(1, bet::kBig6).IsZero() && g.Bet(3, bet::kBig8).IsZero());
  EXPECT_TRUE(g.Bet(3, bet::kField) == 4_usd && g.TotalBets(3) == 4_usd);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_GT(platform.redraws[static_cast<int>(Redraw::Table)], 0);
}

// A Buy 4 of 100 whose vig of 5 is charged on a win only, with 104 in all.
class VigChanges : public SettingChanges {
 protected:
  void SetUp() override {
    SettingChanges::SetUp();
    g.rules.BuyVigUpFront = false;
    g.Bet(1, bet::kBankroll) = 104_usd;
    Stake(1, BuyId(4), 100_usd);
    g.BuyVig(1, 0) = 5_usd;
  }
};

TEST_F(VigChanges, ChargingUpFrontAgainNeedsTheBankroll) {
  EXPECT_FALSE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_TRUE(!g.rules.BuyVigUpFront && g.TotalBets(1) == 100_usd) << "option 1 stands again";
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "You're not allowed to change this setting at this time because you don't have enough "
            "bankroll remaining to pay the added up-front vig that would be required.\r\r"
            "You can remedy this by doing one or more of the following:\r\r"
            " -- Make a withdrawal from the ATM\r"
            " -- Reduce the amount on current bets\r"
            " -- Check \"Allow negative bankroll amounts\"");
  g.betting.AllowNegBankroll(1) = true;
  EXPECT_TRUE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_TRUE(g.rules.BuyVigUpFront && g.TotalBets(1) == 105_usd);
}

TEST_F(VigChanges, RateAndRoundingRefigureTheVig) {
  EXPECT_TRUE(
      ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(1000)));  // charged on a win: no limit
  EXPECT_EQ(g.BuyVig(1, 0), 10_usd);
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(500)));
  g.Bet(1, bet::kBankroll) = 106_usd;
  ASSERT_TRUE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_EQ(g.TotalBets(1), 105_usd);
  // 4.5% of 100 is 4.50: rounded up it is 5, rounded normally 4.
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(450)));
  EXPECT_EQ(g.BuyVig(1, 0), 4_usd);
  EXPECT_TRUE(ChangeVigRounding(g, VigSide::Buy, kVigRoundUp));
  EXPECT_EQ(g.BuyVig(1, 0), 5_usd);
  // 7% would take the rail below zero: refused, the old rate and vig stand.
  EXPECT_FALSE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(700)));
  EXPECT_EQ(g.rules.BuyVigRate, Currency::FromRaw(450));
  EXPECT_TRUE(g.BuyVig(1, 0) == 5_usd && g.TotalBets(1) == 105_usd);
  EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(SettingChanges, LayVigIsTheTwin) {
  g.Bet(1, bet::kBankroll) = 40_usd;
  g.rules.LayVigUpFront = false;
  Stake(1, LayId(4), 40_usd);
  g.LayVig(1, 0) = 1_usd;
  EXPECT_FALSE(ChangeVigUpFront(g, VigSide::Lay, true));
  EXPECT_TRUE(!g.rules.LayVigUpFront && platform.messages.size() == 1u);
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Lay, Currency::FromRaw(1000)));
  EXPECT_EQ(g.LayVig(1, 0), 2_usd);  // 10% of the win of 20
}

}  // namespace
