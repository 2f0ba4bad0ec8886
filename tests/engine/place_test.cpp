// The bet gate: steps of a check, the contract rules of craps, the table's
// limits, the bankroll and the vig, with the exact notices they show, and
// the operations round it; after every change the ledger must still agree.
// Then the players at the rail: names, joining, moving seats with the dice,
// cashing out with abandoned bets and the pass of the dice; and the gate on
// the roll path, which allocates nothing in Hyper-Drive.
#include "engine/place.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "cycle/player_names.h"
#include "dice/rng.h"
#include "engine/players.h"
#include "roll_fixture.h"
#include "table_fixture.h"
#include "tests/support/count_allocations.h"

namespace {

using namespace bet;

class Place : public TableFixture {
 protected:
  Place() {
    g.HyperDrive = false;  // notices are recorded
    g.roll.LogOn = true;
  }

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

TEST_F(Place, ChangesAreSteppedInTheSmallestCheckWithinTheTablesMinimumAndMaximum) {
  EXPECT_EQ(Ask(1, kField, Usd(7.5)), 8_usd);
  EXPECT_EQ(Ask(1, kField, Usd(-7.5)), -8_usd);
  Ask(1, kField, 6);
  EXPECT_EQ(Ask(1, kField, -20), -6_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  g.CheckValue(1) = Usd(0.25);
  EXPECT_EQ(Ask(1, kHard4, Usd(1.1)), Usd(1.25));
  EXPECT_EQ(Ask(1, kHard4, Usd(-0.3)), Usd(-0.5));

  // The table's minimum and maximum.
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

TEST_F(Place, LineBetsFollowThePointAndOddsNeedWhatTheyHangOn) {
  EXPECT_TRUE(Ask(1, kDontCome, 5).IsZero());
  EXPECT_TRUE(Ask(1, kPassLineOdds, 5).IsZero());
  Ask(1, kPassLine, 10);
  EXPECT_EQ(Ask(1, kPassLine, -4), -4_usd);  // free on the come-out
  PointOn(5);
  FixContracts();
  EXPECT_TRUE(Ask(1, kPassLine, -6).IsZero());
  EXPECT_EQ(Ask(1, kPassLine, 4), 4_usd);        // a Put bet
  EXPECT_EQ(Ask(1, kPassLine, -10), -4_usd);     // only what stands above the contract
  EXPECT_EQ(Ask(1, kPassLineOdds, 15), 12_usd);  // twice the flat on the five

  g.rules.AllowPutBets = false;
  EXPECT_TRUE(Ask(2, ComeId(9), 5).IsZero());
}

TEST_F(Place, RestoredBetsTheBankrollTheVigAndCheckStacks) {
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

  // The bankroll limits a bet unless negative amounts are allowed.
  g.Bet(1, bet::kBankroll) = 100_usd;
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
  g.Bet(1, bet::kBankroll) = 103_usd;
  EXPECT_EQ(Ask(1, PlaceId(8), 0), -2_usd);
  g.Bet(1, bet::kBankroll) = -50_usd;
  const size_t shown = Shown();
  EXPECT_EQ(Ask(1, kField, -5), -5_usd);
  EXPECT_EQ(Shown(), shown + 1) << "a bet taken down whole tells of the money too";
  EXPECT_EQ(Ask(1, PlaceId(8), 10), -98_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  // Up-front vig must fit too and is refunded when the bet comes down.
  g.Bet(1, bet::kBankroll) = 100_usd;
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

  // Check stacks take any amount within their limit.
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

  // Full odds behind a Don't Come point.
  g.betting.MovingBet = true;
  Ask(2, DontComeId(10), 10);
  g.betting.MovingBet = false;
  LayFullOdds(g, 2);
  EXPECT_EQ(g.Bet(2, DontComeId(10) + 6), 40_usd);
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

  // Calling on a bet that stands called off undoes the call.
  CallBetOnOff(g, 1, BuyId(6), kToolCallOn);
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), 1);
  CallBetOnOff(g, 1, BuyId(6), kToolCallOn, true);  // a script sets it outright
  EXPECT_EQ(g.BetWorking(1, BuyId(6)), 2);
  Ask(1, kPassLine, 10);
  CallBetOnOff(g, 1, kPassLine, kToolCallOff);
  EXPECT_EQ(g.BetWorking(1, kPassLine), 1);

  // A keyed amount replaces the bet, within the bankroll.
  g.Bet(2, bet::kBankroll) = 40_usd;
  EXPECT_EQ(CommitKeyedAmount(g, 2, PlaceId(9), "100"), "40");
  EXPECT_EQ(CommitKeyedAmount(g, 2, PlaceId(9), "25"), "25");
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
  g.Bet(1, bet::kBankroll) = 300_usd;
  g.roll.LogOn = false;
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
    ASSERT_LE(g.TotalBets(1), g.Bet(1, bet::kBankroll));
    FigureBetMaximum(g, 1, b);
    if (g.Bet(1, b) > g.betting.BetMaximum && !IsComePoint(b) && b != kPassLine) {
      ASSERT_LT(g.betting.BetChange, 1_usd) << "a bet above its maximum never grows";
    }
  }
  EXPECT_GT(g.TotalBets(1), 0_usd);
}

// The settling, MoveBet and TakeBetToMaximum take a bet down through
// TakeBetDownChecked; the settling leaves a bet as it stands through
// KeepBetChecked or sets it afresh through ReplaceBetChecked;
// TakeBetToMaximum sets a bet at 0 in one step; and MoveBet carries a bet
// with its odds to its number in one step (CarryBet). Each skips the steps such
// requests cannot reach: over a random walk of bets, points, contracts,
// limits, proper-odds adjustment, bankroll, vig, working flags and notice
// rules each must leave the game and the notices exactly as the whole gate.
TEST_F(Place, TheGatesShortcutsDoWhatTheWholeGateDoes) {
  std::mt19937 rng(20261124);
  auto draw = [&](int n) { return static_cast<int>(rng() % static_cast<std::uint32_t>(n)); };
  const int points[] = {0, 4, 5, 6, 8, 9, 10};
  // Bets whose proper unit is above the smallest check: a change of a few
  // dollars needs the adjustment, which a short path may figure itself
  // (but for the bets with a bias list, the last two).
  const int units[] = {kHorn, kWorld, kCandE, BuyId(5), BuyId(6), kHard4, PlaceId(6), LayId(10)};
  g.roll.LogOn = false;
  for (int i = 0; i < 8000; ++i) {
    const int r = static_cast<int>(rng() % 40);
    if (r == 0) PointOn(points[rng() % 7]);
    if (r == 1) FixContracts();
    if (r == 2) g.betting.AllowNegBankroll(1) = !g.betting.AllowNegBankroll(1);
    if (r == 3) g.rules.LayVigUpFront = !g.rules.LayVigUpFront;
    if (r == 4) g.rules.BuyVigUpFront = !g.rules.BuyVigUpFront;
    if (r == 5) g.rules.NoticeFlags = static_cast<Long>(rng() % 8);
    if (r == 6) g.HyperDrive = !g.HyperDrive;
    if (r == 7)
      g.Bet(1, bet::kBankroll) = Currency::FromWhole(static_cast<std::int64_t>(rng() % 400));
    if (r == 8) g.autoplay.AutoAdjustMode(1) = draw(3);
    if (r == 9) g.rules.MaxPlacardBet = Currency::FromWhole(2 + draw(68));
    if (r == 10) g.rules.MinPlacardBet = Currency::FromWhole(1 + draw(12));
    if (r == 11) g.rules.BuyVigRate = Currency::FromRaw(draw(3) * 250);
    if (r == 12) g.BetWorking(1, 1 + draw(kLastRealBet)) = draw(4) - 1;
    if (r == 13) g.roll.BetIdsChanged[1] = BetIdSet{};  // as a roll's snapshot leaves them
    if (r == 14) g.RollTally(kTableHand, kEventRolls) = draw(2);  // the hand's first roll made
    // Where most short paths run.
    if (r == 15) g.HyperDrive = g.betting.AllowNegBankroll(1) = true;
    if (r == 16) g.autoplay.AutoTakeFullOdds(1) = g.autoplay.AutoLayFullOdds(1) = draw(2) == 0;
    int b = 1 + static_cast<int>(rng() % kLastRealBet);
    if (rng() % 3 != 0) {  // build the table up
      g.BetRequest = Currency::FromWhole(static_cast<std::int64_t>(rng() % 60));
      PlaceBet(g, 1, b);
      continue;
    }
    g.betting.MovingBet = draw(4) == 0;  // a Come or Don't Come bet carried to its number
    const auto gate = std::make_unique<Game>(g);
    const std::size_t shown = Shown();
    auto newNotices = [&] {
      std::vector<std::string> texts;
      for (std::size_t k = shown; k < Shown(); ++k)
        texts.push_back(platform.messages[k].title + "|" + platform.messages[k].text);
      platform.messages.resize(shown);
      return texts;
    };
    // 0 takes the bet down, 1 keeps it, 2 takes it down and sets it afresh,
    // 3 takes it to its maximum (without notices), 4 takes it down and
    // opens it again, 5 changes it as a settling rule does (either sign;
    // drawn twice as often as the others), 6 carries a Come or Don't Come
    // bet to its number b, laid on the box here, its odds following.
    const int kind = draw(8);
    const int how = kind == 7 ? 6 : std::min(kind, 5);
    if (how == 3 && draw(2) == 0)
      b = IsOddsBet(b) ? b : draw(2) == 0 ? kPassLineOdds : kDontPassOdds;
    const int contracts[] = {kPassLine, kDontPass, kCome, kDontCome, kFire, ComeId(6), DontComeId(4)};
    if (how == 4 && draw(2) == 0) b = contracts[draw(7)];
    if (how == 5 && draw(2) == 0) b = units[draw(8)];
    const int box = draw(2) == 0 ? kCome : kDontCome;
    if (how == 6) {
      b = (box == kCome ? ComeId(4) : DontComeId(4)) + draw(6);
      const Currency laid = draw(4) != 0 ? Currency::FromWhole(draw(60)) : Currency::FromRaw(draw(240) * 2500);
      const Long working = draw(4) - 1;  // called off, default, on
      for (Game* x : {&g, gate.get()}) {
        x->TotalBets(1) += laid - x->Bet(1, box);
        x->Bet(1, box) = laid;
        x->BetWorking(1, box) = working;
      }
    }
    // A bet opened again mostly in whole dollars, the steps of a check.
    const Currency amount = how == 3 ? Currency::FromWhole(9999999)
                            : (how == 4 || how == 5) && draw(4) != 0
                                ? Currency::FromWhole(draw(60))
                                : Currency::FromRaw(draw(240) * 2500);
    const Long flags = gate->rules.NoticeFlags;
    if (how == 3) gate->rules.NoticeFlags = 0;
    const Currency change = how == 5 && draw(2) == 0 ? Currency::FromWhole(draw(13) - 6)
                                                     : amount - Currency::FromWhole(30);
    gate->BetRequest = how == 1 ? Currency{} : how == 5 ? change : -gate->Bet(1, b);
    if (how == 6) {  // MoveBet's steps one by one
      const Currency carried = gate->Bet(1, box);
      gate->BetRequest = -carried;
      SetBetChecked(*gate, 1, box);
      gate->BetRequest = carried;
      gate->betting.MovingBet = true;
      PlaceBet(*gate, 1, b);
      gate->betting.MovingBet = false;
    } else {
      SetBetChecked(*gate, 1, b);
    }
    if (how >= 2 && how <= 4) {
      gate->BetRequest = amount;
      SetBetChecked(*gate, 1, b);
    }
    gate->rules.NoticeFlags = flags;
    const std::vector<std::string> gateNotices = newNotices();
    if (how == 0 || how == 4) TakeBetDownChecked(g, 1, b);
    if (how == 4) {
      g.BetRequest = amount;
      OpenBetChecked(g, 1, b);
    }
    if (how == 1) KeepBetChecked(g, 1, b);
    if (how == 2) ReplaceBetChecked(g, 1, b, amount);
    if (how == 6) CarryBet(g, 1, box, b);
    if (how == 3) TakeBetToMaximum(g, 1, b);
    if (how == 5) {
      g.BetRequest = change;
      ChangeBetChecked(g, 1, b);
    }
    const std::vector<std::string> notices = newNotices();
    SCOPED_TRACE(testing::Message() << "step " << i << " (" << how << ") on " << BetName(b));
    ASSERT_EQ(notices, gateNotices);
    ASSERT_TRUE(g == *gate);
    ASSERT_EQ(g.betting.LimitText, gate->betting.LimitText);
    g.betting.MovingBet = false;
  }
  // A settling rule's change of such a bet in Hyper-Drive, under both
  // correction modes and limits that refuse one side of it or both.
  g.HyperDrive = g.betting.AllowNegBankroll(1) = true;
  for (int i = 0; i < 3000; ++i) {
    const int b = units[draw(8)];
    g.autoplay.AutoAdjustMode(1) = 1 + draw(2);
    g.autoplay.PlaceBias(1) = g.autoplay.LayBias(1) = draw(3);
    g.rules.MinPlacardBet = Currency::FromWhole(1 + draw(12));
    g.rules.MaxPlacardBet = Currency::FromWhole(2 + draw(40));
    g.Bet(1, b) = Currency::FromWhole(draw(4) == 0 ? 0 : draw(30));
    g.TotalBets(1) = TotalUpBets(g, 1);
    const auto gate = std::make_unique<Game>(g);
    gate->BetRequest = g.BetRequest = Currency::FromWhole(draw(41) - 20);
    SetBetChecked(*gate, 1, b);
    ChangeBetChecked(g, 1, b);
    SCOPED_TRACE(testing::Message() << "change " << i << " on " << BetName(b));
    ASSERT_TRUE(g == *gate);
  }
}

TEST_F(Place, ClicksOnTheTableAndTheRail) {
  ClickOnBet(g, kField, BetClick::Plain);
  EXPECT_EQ(Shown(), 1u);  // nobody selected: a notice, no bet
  EXPECT_TRUE(g.TotalBets(1).IsZero());

  ClickOnRail(g, 2);
  EXPECT_EQ(g.betting.CurPlayer, 2);
  g.rules.SelectedCheck = 3;  // the 25 check
  ClickOnBet(g, kDontPass, BetClick::Plain);
  ClickOnBet(g, kDontPass, BetClick::Plain);
  EXPECT_EQ(g.Bet(2, kDontPass), 50_usd);
  g.rules.SelectedCheck = 2;
  ClickOnBet(g, kDontPassOdds, BetClick::Ctrl);  // empty odds: the flat bet is meant
  EXPECT_EQ(g.Bet(2, kDontPass), 45_usd);
  ClickOnBet(g, kDontPassOdds, BetClick::Shift);
  EXPECT_TRUE(g.Bet(2, kDontPass).IsZero());
}

using Players = Place;

TEST_F(Players, NamesMustDifferAndJoiningAsksUntilTheAnswersAreGood) {
  EXPECT_NE(PlayerNameProblem(g, "p2", 0), "");
  EXPECT_EQ(PlayerNameProblem(g, "p2", 2), "");  // a player may change the case of the own name
  EXPECT_NE(PlayerNameProblem(g, "Bet Smith", 0).find("contains a word, phrase, or symbol"),
            std::string::npos);

  EXPECT_EQ(RenamePlayerTo(g, 2, "p2"), "");
  EXPECT_NE(RenamePlayerTo(g, 2, "P1"), "");
  EXPECT_EQ(g.PlayerName[2], "p2");

  // Joining asks until the answers are good.
  Reply(kAnswerYes);
  Reply(kAnswerOk, " p1 ");
  Reply(kAnswerOk, "Zed");
  Reply(kAnswerOk, "20000000");
  Reply(kAnswerOk, "750.5");
  ASSERT_TRUE(AddPlayer(g, 8));
  ASSERT_EQ(platform.messages.size(), 5u);
  EXPECT_EQ(platform.messages[2].text,
            "A player named p1 is already at the table.\r\rPlease enter a different name.\r\r"
            "What's the new player's name?\r");
  EXPECT_EQ(g.PlayerCount, 4);
  EXPECT_EQ(g.InvestedBankroll(8), Usd(750.5));
  EXPECT_EQ(g.Shooter, 8);  // nobody held the dice
  EXPECT_NE(EventsLogText(g).find("    Zed joined the game at stick 4-right with $750.5\n"),
            std::string::npos);
  EXPECT_FALSE(AddPlayer(g, 8));  // a taken seat is not offered
}

// What a move trades is the seats tests' business; here, where the dice go.
TEST_F(Players, AMoveCarriesTheDiceOnlyToANeighbour) {
  g.autoplay.AutoPassDice(1) = true;
  g.Shooter = g.HandShooter = 1;
  MovePlayer(g, 1, 4);  // seats 2 and 3 lie between, upward only: the dice follow
  EXPECT_EQ(g.Shooter, 4);
  // Players between both ways: the dice pass on, below the old seat.
  SeatPlayer(g, 7, "Gus", 100_usd);
  g.RollTally(kTableHand, kEventRolls) = 3;  // mid-hand
  MovePlayer(g, 4, 8);                       // 7 upward, 3 and 2 downward
  EXPECT_EQ(g.Shooter, 3);
  // When nobody can take the dice, they stay with the player who moved.
  for (int p = 1; p <= 8; ++p) g.autoplay.AutoPassDice(p) = true;
  MovePlayer(g, 3, 8);  // 7 one way, 2 the other: a pass that finds nobody
  EXPECT_EQ(g.Shooter, 8);
  EXPECT_EQ(g.PlayerName[8], "P3");
}

TEST_F(Players, CashingOutAbandonsTheBetsThatCantComeDown) {
  Put(1, kPassLine, 10);
  Put(1, ComeId(6), 15);
  Put(1, ComeId(9), 5);
  Put(1, kField, 5);
  g.Point = 4;
  for (int p = 1; p <= 3; ++p) g.InvestedBankroll(p) = kStake;
  g.Bet(1, bet::kBankroll) = 900_usd;  // lost 100 so far
  g.betting.CurPlayer = 1;
  g.Shooter = g.HandShooter = 1;
  ASSERT_TRUE(CashOutPlayer(g));
  EXPECT_EQ(platform.messages.back().text,
            "Would you like to remove P1?\r\rP1 still has an active Pass Line bet and 2 active "
            "Come bets that can't be removed and will be abandoned.\r(Total abandoned: $30)");
  EXPECT_NE(EventsLogText(g).find(
                "    P1 cashed out with $870 (net loss: $130 includes $30 abandoned)\n"),
            std::string::npos);
  EXPECT_TRUE(g.Bet(1, kPassLine).IsZero());
  EXPECT_EQ(g.PlayerCount, 2);
  EXPECT_EQ(g.Shooter, 3);      // the walk below seat 1 wraps to 8 and finds 3
  EXPECT_EQ(g.HandShooter, 3);  // no roll yet: the hand goes with the dice
  EXPECT_EQ(g.betting.CurPlayer, 3);
  // No answer Yes, no change.
  g.betting.CurPlayer = 2;
  Reply(kAnswerNo);
  EXPECT_FALSE(CashOutPlayer(g));
  EXPECT_EQ(g.PlayerName[2], "P2");
}

TEST_F(Players, PassingTheDiceWalksDownwardAndSaysWhyItCant) {
  g.Shooter = g.HandShooter = 1;
  SeatPlayer(g, 6, "Fay", 100_usd);
  PassDice(g, true);  // before the hand's first roll: the hand goes along, silently
  EXPECT_EQ(g.Shooter, 6);
  EXPECT_EQ(g.HandShooter, 6);
  EXPECT_TRUE(platform.messages.empty());

  g.RollTally(kTableHand, kEventRolls) = 5;  // mid-hand
  PassDice(g, true);
  EXPECT_EQ(g.Shooter, 3);
  EXPECT_EQ(LastText(),
            "Fay is passing the dice to P3 who may finish the current hand and then roll his/her "
            "own hand.");
  // Put bets off with a point on: players without a line bet are counted as blocked.
  g.Shooter = 6;
  g.Point = 6;
  g.rules.AllowPutBets = false;
  PassDice(g, true);
  EXPECT_NE(LastText().find("There are 3 other players who want to shoot but can't"),
            std::string::npos);
  EXPECT_EQ(g.Shooter, 6);
  Put(2, kDontPass, 5);
  PassDice(g, false);
  EXPECT_EQ(g.Shooter, 2);

  // Nobody else shoots: told when asked, silent from the roll.
  platform.messages.clear();
  g.Point = 0;
  g.RollTally(kTableHand, kEventRolls) = 0;
  g.PlayerName[3].clear();
  g.PlayerName[6].clear();
  g.PlayerCount -= 2;
  g.autoplay.AutoPassDice(1) = true;
  PassDice(g, true);
  EXPECT_EQ(g.Shooter, 2);
  EXPECT_EQ(LastText(), "Unable to pass the dice at this time.\r\rP1 doesn't want to shoot.");
  PassDice(g, false);
  EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(RollFixture, PlayersBettingInHyperDriveAllocateNothing) {
  g.dice.RngIndex = 0;
  SeedRngWith(g, 4711);
  const char* names[] = {"Ann", "Bob", "Cy", "Dee"};
  for (int p = 1; p <= 4; ++p) {
    SeatPlayer(g, p, names[p - 1], Currency::FromWhole(p == 4 ? 40 : 5000));
    g.autoplay.HandleWinningBets(p) = 4;  // press double: the maximum and the bankroll cut it
    g.autoplay.HandleLosingBets(p) = 2;   // same bet: a broke player's bets come down
  }
  g.autoplay.AutoTakeFullOdds(1) = true;
  g.autoplay.AutoLayFullOdds(2) = true;
  for (auto [p, b, amount] : {std::tuple{1, kPassLine, 10},
                              {2, kDontPass, 10},
                              {3, BuyId(4), 20},
                              {3, LayId(10), 40},
                              {4, kField, 20},
                              {4, kHard8, 5}}) {
    g.BetRequest = Currency::FromWhole(amount);
    PlaceBet(g, p, b);
  }
  RenamePlayerTo(g, 2, std::string(40, 'x'));  // beyond any short-string buffer

  g.hyper.RunRollLimit = 500;
  RunHyperDrive(g);  // warm up
  const long before = gAllocations.load();
  g.hyper.RunRollLimit = 20'000;
  RunHyperDrive(g);
  EXPECT_EQ(gAllocations.load() - before, 0);
  for (int p = 1; p <= 4; ++p) {
    EXPECT_TRUE(CheckBetLedger(g, p)) << p;
    EXPECT_LE(g.TotalBets(p), g.Bet(p, bet::kBankroll)) << p;
  }
  // The run did what it claims: odds were taken and laid, vig was charged.
  for (auto [p, b] : {std::pair{1, kPassLineOdds}, {2, kDontPassOdds}, {3, BuyId(4)}})
    EXPECT_GT(g.StatAction(FrameIndex(p, kFrameCurrentSession), b, kStatCount), Currency{}) << p;
}

}  // namespace
