// Every line format of the events log, on a scripted game with fixed dice:
// players join, bet, change and call bets, move, rename, pass the dice and
// cash out; the dice come from the pad and from a dice roll file; sessions
// start over. The whole log is compared line for line.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "automation/autoplay_state.h"
#include "core/catalogue.h"
#include "cycle/player_names.h"
#include "cycle/session.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"
#include "tests/engine/roll_fixture.h"

namespace {

using namespace bet;

class EventLines : public RollFixture {
 protected:
  EventLines() {
    g.rules.NoticeFlags = 0;
    g.roll.LogOn = true;
    g.dice.ReseedEachSession = false;
  }
  void Lay(int p, int b, long amount) {
    g.BetRequest = Currency::FromWhole(amount);
    PlaceBet(g, p, b);
  }
  // The log without the date and time of the session lines.
  std::string Log() {
    std::string log = EventsLogText(g);
    for (auto at = log.find(" New session started "); at != std::string::npos;
         at = log.find(" New session started ", at + 1)) {
      const auto end = log.find('\n', at);
      log.replace(at, end - at, " New session started <when>");
    }
    for (auto at = log.find(folder.Path()); at != std::string::npos; at = log.find(folder.Path()))
      log.replace(at, folder.Path().size(), "<folder>/");
    return log;
  }
};

TEST_F(EventLines, AScriptedGameWritesEveryFormat) {
  NewSession(g, false, false, true, 0);
  SeatPlayer(g, 1, "Ann", Currency::FromWhole(500));
  SeatPlayer(g, 6, "Bob", Currency::FromWhole(300));
  SeedRngWith(g, 4321);
  for (int p : {1, 6}) {
    g.autoplay.HandleWinningBets(p) = kWinSameBet;
    g.autoplay.HandleLosingBets(p) = kLoseSameBet;
  }
  Lay(1, kPassLine, 10);
  Lay(6, kDontPass, 10);
  Lay(6, kField, 5);
  g.roll.ScriptActive[1] = g.roll.ScriptActive[0] = true;
  g.scriptSource.ScriptFile[1] = "/s/R&&D.bet";
  g.roll.ScriptsOK = true;
  Roll(2, 2);  // point 4; the Field wins
  g.roll.ScriptActive[1] = g.roll.ScriptActive[0] = false;
  Lay(1, kPassLineOdds, 20);
  Lay(1, PlaceId(6), 12);
  g.BetWorking(1, PlaceId(6)) = -1;        // called off
  g.Bet(6, 0) += Currency::FromWhole(50);  // an ATM withdrawal
  g.Bet(6, 101) = Currency::FromRaw(25000);
  Roll(1, 2);  // the Field wins again
  Lay(1, PlaceId(6), 6);
  g.BetWorking(1, PlaceId(6)) = 1;  // working normally again
  Lay(1, kCome, 5);
  Roll(5, 3);  // the Come bet travels to 8
  Roll(3, 1);  // the point: Pass
  Roll(6, 1);  // natural
  Lay(1, kPassLine, -10);
  Roll(3, 3);  // point 6
  Roll(4, 3);  // seven-out
  MovePlayer(g, 6, 7);
  RenamePlayerTo(g, 1, "Anne");
  PassDice(g, true);
  g.betting.CurPlayer = 1;
  CashOutPlayer(g);

  std::ofstream(folder / "f.rol", std::ios::binary) << '\x84';  // 1-4
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "f.rol"));
  SetDiceFileMode(g, kDiceFilePlayback);
  RollDice(g);
  NewSession(g, false, false, true, 1);

  EXPECT_EQ(Log(),
            " New session started <when>\n"
            "----New hand, come-out roll----------\n"
            "    Ann joined the game at stick 4-left with $500\n"
            "    Bob joined the game at stick 2-right with $300\n"
            "    RNG #1 seeded: 4321\n"
            "    AutoBets:\n"
            "      Ann activated (/s/R&D.bet)\n"
            "    Bets:\n"
            "      Ann bet $10 on Pass Line\n"
            "      Bob bet $10 on Don't Pass\n"
            "      Bob bet $5 on Field\n"
            " Roll #1:  4 (2.2) from manual roll pad\n"
            "    Point established\n"
            "    Wins/losses:\n"
            "      Bob won $5 on Field\n"
            "    Bankroll:\n"
            "      Bob increased to $305 ($5 gain)\n"
            "    AutoBets:\n"
            "      Ann deactivated auto-bets\n"
            "    Bankroll:\n"
            "      Bob's bankroll increased to $355 ($50 ATM withdrawal)\n"
            "    Bets:\n"
            "      Ann bet $12 on Place 6\n"
            "      Ann called OFF Place 6 bet\n"
            "      Ann bet $20 on Pass Line Odds\n"
            "    CheckStacks:\n"
            "      Bob increased CheckStack #1 to $2.5\n"
            " Roll #2:  3 (1.2) from manual roll pad\n"
            "    Wins/losses:\n"
            "      Bob won $5 on Field\n"
            "    Bankroll:\n"
            "      Bob increased to $360 ($5 gain)\n"
            "    Bets:\n"
            "      Ann increased Place 6 to $18\n"
            "      Ann called Place 6 bet working normally again\n"
            "      Ann bet $5 on Come\n"
            " Roll #3:  8 (5.3) from manual roll pad\n"
            "    Wins/losses:\n"
            "      Bob lost $5 on Field\n"
            "    Ann's Come bet moved to Come 8\n"
            "    Bankroll:\n"
            "      Bob decreased to $355 ($5 loss)\n"
            "    Bets:\n"
            "      Bob bet $5 on Field\n"
            " Roll #4:  4 (3.1) from manual roll pad\n"
            "    Pass (point rolled)\n"
            "    Wins/losses:\n"
            "      Bob lost $10 on Don't Pass\n"
            "      Bob won $5 on Field\n"
            "      Ann won $10 on Pass Line\n"
            "      Ann won $40 on Pass Line Odds\n"
            "    Bankroll:\n"
            "      Ann increased to $550 ($50 gain)\n"
            "      Bob decreased to $350 ($5 loss)\n"
            "    Bets:\n"
            "      Bob bet $10 on Don't Pass\n"
            " Roll #5:  7 (6.1) from manual roll pad\n"
            "    Pass (natural)\n"
            "    Wins/losses:\n"
            "      Bob lost $10 on Don't Pass\n"
            "      Ann lost $5 on Come 8\n"
            "      Bob lost $5 on Field\n"
            "      Ann won $10 on Pass Line\n"
            "    Bankroll:\n"
            "      Ann increased to $555 ($5 gain)\n"
            "      Bob decreased to $335 ($15 loss)\n"
            "    Bets:\n"
            "      Ann bet $5 on Come 8\n"
            "      Bob bet $10 on Don't Pass\n"
            "      Bob bet $5 on Field\n"
            " Roll #6:  6 (3.3) from manual roll pad\n"
            "    Point established\n"
            "    Wins/losses:\n"
            "      Bob lost $5 on Field\n"
            "    Bankroll:\n"
            "      Bob decreased to $330 ($5 loss)\n"
            "    Bets:\n"
            "      Bob bet $5 on Field\n"
            " Roll #7:  7 (4.3) from manual roll pad\n"
            "    Miss (seven-out)\n"
            "    Wins/losses:\n"
            "      Ann lost $5 on Come 8\n"
            "      Ann lost $18 on Place 6\n"
            "      Bob lost $5 on Field\n"
            "      Bob won $10 on Don't Pass\n"
            "    Bankroll:\n"
            "      Ann decreased to $532 ($23 loss)\n"
            "      Bob increased to $335 ($5 gain)\n"
            "----New shooter (Bob) coming out----------\n"
            "    Bob moved to stick 3-right\n"
            "    Ann's name changed to Anne\n"
            "    Bob passed the dice to Anne\n"
            "    Anne cashed out with $532 (net win: $32)\n"
            "    Dice roll file playback activated (<folder>/f.rol)\n"
            "    Bets:\n"
            "      Bob bet $5 on Field\n"
            " Roll #8:  5 (1.4) from roll file\n"
            "    Point established\n"
            "    Wins/losses:\n"
            "      Bob lost $5 on Field\n"
            "    Bankroll:\n"
            "      Bob decreased to $330 ($5 loss)\n"
            "============================================\n"
            " New session started <when>\n"
            "    Players:\n"
            "      Bob at stick 3-right with $300\n"
            "    Dice roll file playback active (<folder>/f.rol)\n"
            "----New shooter (Bob) coming out----------\n");
}

TEST_F(EventLines, TheOtherFormsOfEachLine) {
  SeatPlayer(g, 4, "Cy", Currency::FromWhole(200));
  g.autoplay.HandleWinningBets(4) = kWinSameBet;
  g.autoplay.HandleLosingBets(4) = kLoseSameBet;
  g.roll.LogWins = false;  // the heading of losses alone
  g.dice.RngIndex = 2;
  g.dice.ProbabilityDiceOn = false;
  Lay(4, kPassLine, 10);
  Lay(4, PlaceId(8), 12);
  g.BetWorking(4, PlaceId(8)) = 2;  // called on for the come-out
  Lay(4, kHard6, 1);
  g.Bet(4, 110) = Currency::FromWhole(3);
  g.roll.ScriptActive[4] = g.roll.ScriptActive[0] = true;
  g.roll.ScriptsOK = true;
  Roll(1, 2);  // craps: the Pass Line loses
  g.roll.ScriptActive[4] = g.roll.ScriptActive[0] = false;
  g.roll.LogWins = true;
  g.roll.LogLosses = false;  // the heading of wins alone
  Lay(4, PlaceId(8), -6);
  Lay(4, kHard6, -1);
  g.Bet(4, 0) -= Currency::FromWhole(20);  // an ATM deposit
  g.Bet(4, 110) = Currency::FromWhole(1);
  Roll(4, 4);  // the Place 8, called on, wins on the come-out
  g.roll.LogLosses = true;
  for (auto [a, b] : {std::pair{2, 2}, {3, 4}}) Roll(a, b);  // point, seven-out: the same shooter
  Lay(4, kPassLine, 10);
  Roll(5, 5);  // point 10: the Pass Line stays behind at a cash-out
  g.betting.CurPlayer = 4;
  CashOutPlayer(g);
  ASSERT_TRUE(SeedRngWith(g, 777));
  RollDice(g);  // from the generator

  EXPECT_EQ(Log(),
            "    Cy joined the game at stick 1-left with $200\n"
            "    AutoBets:\n"
            "      Cy activated untitled auto-bets\n"
            "    Bets:\n"
            "      Cy bet $12 on Place 8\n"
            "      Cy called ON Place 8 bet\n"
            "      Cy bet $10 on Pass Line\n"
            "      Cy bet $1 on Hard 6\n"
            "    CheckStacks:\n"
            "      Cy increased CheckStack #10 to $3\n"
            " Roll #1:  3 (1.2) from manual roll pad\n"
            "    Miss (craps natural)\n"
            "    Losses:\n"
            "      Cy lost $10 on Pass Line\n"
            "    Bankroll:\n"
            "      Cy decreased to $190 ($10 loss)\n"
            "    AutoBets:\n"
            "      Cy deactivated auto-bets\n"
            "    Bankroll:\n"
            "      Cy's bankroll decreased to $170 ($20 ATM deposit)\n"
            "    Bets:\n"
            "      Cy decreased Place 8 to $6\n"
            "      Cy bet $10 on Pass Line\n"
            "      Cy removed $1 bet on Hard 6\n"
            "    CheckStacks:\n"
            "      Cy decreased CheckStack #10 to $1\n"
            " Roll #2:  8 (4.4) from manual roll pad\n"
            "    Point established\n"
            "    Wins:\n"
            "      Cy won $7 on Place 8\n"
            "    Bankroll:\n"
            "      Cy increased to $177 ($7 gain)\n"
            " Roll #3:  4 (2.2) from manual roll pad\n"
            " Roll #4:  7 (3.4) from manual roll pad\n"
            "    Miss (seven-out)\n"
            "    Wins/losses:\n"
            "      Cy lost $10 on Pass Line\n"
            "      Cy lost $6 on Place 8\n"
            "    Bankroll:\n"
            "      Cy decreased to $161 ($16 loss)\n"
            "----Same shooter (Cy) coming out----------\n"
            "    Bets:\n"
            "      Cy bet $6 on Place 8\n"
            "      Cy bet $20 on Pass Line\n"
            " Roll #5:  10 (5.5) from manual roll pad\n"
            "    Point established\n"
            "    Cy cashed out with $141 (net loss: $59 includes $20 abandoned)\n"
            "    RNG #3 seeded: 777\n"
            " Roll #6:  5 (3.2) from RNG #3\n");
}

}  // namespace
