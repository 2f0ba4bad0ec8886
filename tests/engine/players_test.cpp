// Players at the rail: the name checks, joining through the dialogs, moving
// seats with the dice, cashing out with abandoned bets, and the pass of the
// dice with its notices.
#include "cycle/player_names.h"
#include "engine/players.h"

#include <string>

#include "core/message_dialog.h"
#include "engine/place.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Players : public TableFixture {
 protected:
  Players() {
    g.HyperDrive = false;
    g.roll.LogOn = true;
  }

  // The last line of the events log, without its newline.
  std::string LastLog() {
    const std::string t = EventsLogText(g);
    if (t.size() < 2) return {};
    const auto nl = t.rfind('\n', t.size() - 2);
    const size_t start = nl == std::string::npos ? 0 : nl + 1;
    return t.substr(start, t.size() - 1 - start);
  }
};

TEST_F(Players, NamesMustDifferFromOthersAndHoldNoScriptWord) {
  EXPECT_NE(PlayerNameProblem(g, "p2", 0), "");
  EXPECT_EQ(PlayerNameProblem(g, "p2", 2), "");  // a player may change the case of the own name
  EXPECT_NE(PlayerNameProblem(g, "Bet Smith", 0).find("contains a word, phrase, or symbol"),
            std::string::npos);

  EXPECT_EQ(RenamePlayerTo(g, 2, "p2"), "");
  EXPECT_EQ(LastLog(), "    P2's name changed to p2");
  EXPECT_NE(RenamePlayerTo(g, 2, "P1"), "");
  EXPECT_EQ(g.PlayerName[2], "p2");

  // Through the dialog: a change of case alone doesn't touch the sessions log.
  bool chooseFile = true;
  Reply(kAnswerOk, "P2");
  ASSERT_TRUE(RenamePlayer(g, 2, &chooseFile));
  EXPECT_FALSE(chooseFile);
  Reply(kAnswerOk, " Tess ");
  Reply(kAnswerYes);
  ASSERT_TRUE(RenamePlayer(g, 2, &chooseFile));
  EXPECT_TRUE(chooseFile);
  EXPECT_EQ(g.PlayerName[2], "Tess");
}

TEST_F(Players, JoiningAsksUntilTheAnswersAreGood) {
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
  EXPECT_EQ(g.betting.CheckStackSlot(8, 4), 104);
  EXPECT_EQ(LastLog(), "    Zed joined the game at stick 4-right with $750.5");

  // A cancelled prompt adds nobody; a taken seat is not offered.
  Reply(kAnswerYes);
  Reply(kAnswerCancel);
  EXPECT_FALSE(AddPlayer(g, 7));
  EXPECT_TRUE(g.PlayerName[7].empty());
  EXPECT_FALSE(AddPlayer(g, 8));
}

TEST_F(Players, AMoveTradesEverythingAndCarriesTheDiceOnlyToANeighbour) {
  Put(1, kPassLine, 10);
  g.StatAction(1 + 18, kPassLine, 1) = 3_usd;
  g.autoplay.AutoPassDice(1) = true;
  g.Shooter = g.HandShooter = 1;
  MovePlayer(g, 1, 4);  // seats 2 and 3 lie between, upward only: the dice follow
  EXPECT_TRUE(g.PlayerName[1].empty());
  EXPECT_EQ(g.TotalBets(4), 10_usd);
  EXPECT_EQ(g.StatAction(4 + 18, kPassLine, 1), 3_usd);
  EXPECT_TRUE(g.autoplay.AutoPassDice(4));
  EXPECT_EQ(g.Shooter, 4);
  EXPECT_EQ(g.betting.CurPlayer, 4);
  EXPECT_EQ(LastLog(), "    P1 moved to stick 1-left");

  // Across players both ways: the dice pass on, below the old seat.
  SeatPlayer(g, 7, "Gus", 100_usd);
  MovePlayer(g, 4, 6);  // nobody between upward (5 is open): the dice follow
  EXPECT_EQ(g.Shooter, 6);
  g.Shooter = 3;
  MovePlayer(g, 3, 5);  // 4 open between upward, 2 ... downward: the dice follow
  EXPECT_EQ(g.Shooter, 5);
  g.RollTally(kTableHand, kEventRolls) = 3;  // mid-hand
  MovePlayer(g, 5, 8);    // 6 and 7 upward, 4..1 downward: a pass from seat 5 down
  EXPECT_EQ(g.Shooter, 2);
  // When nobody can take the dice, they stay with the player who moved.
  for (int p = 1; p <= 8; ++p) g.autoplay.AutoPassDice(p) = true;
  MovePlayer(g, 2, 4);  // 3 is open: the dice follow
  MovePlayer(g, 4, 1);  // players upward only (6, 7, 8): the dice follow
  MovePlayer(g, 1, 7);  // 6 one way, 8 the other: a pass that finds nobody
  EXPECT_EQ(g.Shooter, 7);
  EXPECT_EQ(g.PlayerName[7], "P2");
}

TEST_F(Players, RailClicksSelectAddAndMove) {
  ClickOnRail(g, 2);
  EXPECT_EQ(g.betting.CurPlayer, 2);
  StartMovePlayer(g);
  ClickOnRail(g, 7);
  EXPECT_EQ(g.PlayerName[7], "P2");
  EXPECT_EQ(g.betting.CurPlayer, 7);
  Reply(kAnswerNo);
  ClickOnRail(g, 5);  // an open seat offers a new player
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_TRUE(g.PlayerName[5].empty());
}

TEST_F(Players, CashingOutAbandonsTheBetsThatCantComeDown) {
  Put(1, kPassLine, 10);
  Put(1, ComeId(6), 15);
  Put(1, ComeId(9), 5);
  Put(1, kField, 5);
  g.Point = 4;
  for (int p = 1; p <= 3; ++p) g.InvestedBankroll(p) = kStake;
  g.Bet(1, 0) = 900_usd;  // lost 100 so far
  g.betting.CurPlayer = 1;
  g.Shooter = g.HandShooter = 1;
  ASSERT_TRUE(CashOutPlayer(g));
  EXPECT_EQ(platform.messages.back().text,
            "Would you like to remove P1?\r\rP1 still has an active Pass Line bet and 2 active "
            "Come bets that can't be removed and will be abandoned.\r(Total abandoned: $30)");
  EXPECT_EQ(LastLog(), "    P1 cashed out with $870 (net loss: $130 includes $30 abandoned)");
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
  EXPECT_EQ(LastLog(), "    P1 passed the dice to Fay");

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
}

TEST_F(Players, NoticesWhenNobodyElseShoots) {
  g.Shooter = 1;
  g.PlayerName[3].clear();
  --g.PlayerCount;
  g.autoplay.AutoPassDice(2) = true;
  PassDice(g, true);
  EXPECT_EQ(g.Shooter, 1);
  EXPECT_EQ(LastText(), "Unable to pass the dice at this time.\r\rP2 doesn't want to shoot.");
  PassDice(g, false);
  EXPECT_EQ(platform.messages.size(), 1u);  // from the roll: nothing is said
}

}  // namespace
