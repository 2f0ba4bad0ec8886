// A started-up table with three seated players and a headless platform, for
// the tests of resolution, settling and Auto-Play. Bets are laid straight
// into the tables (with their vig), so a test states exactly what stands;
// dice are set directly and decided with DecideBets, or rolled through
// RollDice with queued dice.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <tuple>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/currency.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/payoff_math.h"
#include "cycle/roll.h"
#include "cycle/startup.h"
#include "engine/resolve.h"
#include "engine/roll_steps.h"
#include "tests/support/events_log_text.h"
#include "tests/support/temp_folder.h"

class TableFixture : public ::testing::Test {
 protected:
  static constexpr Currency kStake = Currency::FromWhole(1000);

  TableFixture() : owner_(MakeGame(platform)), g(*owner_) {
    platform.fixedTime = 0;
    platform.clockStep = 1000;  // start-up's clock measure ends at once
    StartUp(g, folder.Path());
    g.HyperDrive = true;  // no dialogs unless a test asks for them
    for (int p = 1; p <= 3; ++p) Seat(p, "P" + std::to_string(p));
  }

  // A point is set: working flags and the line odds rows follow it.
  void PointOn(int n) {
    g.Point = n;
    ResetWorkingFlags(g);
    SetLineOddsPayoffs(g);
  }

  void Seat(int p, const std::string& name) {
    g.PlayerName[p] = name;
    ++g.PlayerCount;
    // A player who sits down takes the working flags of the phase in play.
    for (int b = 1; b <= kLastRealBet; ++b)
      g.BetWorking(p, b) = g.Point == 0 ? g.BetWorkingDefault(p, b) : 1;
    g.Bet(p, bet::kBankroll) = kStake;
    g.BetAtRoll(p, bet::kBankroll) = kStake;
    // Bets stay up after a decision unless a test says otherwise.
    g.autoplay.HandleWinningBets(p) = 2;
    g.autoplay.HandleLosingBets(p) = 2;
    g.autoplay.AutoAdjustMode(p) = 0;  // amounts stay as laid
  }

  // Lays `amount` on bet b of player p, with the vig it costs.
  void Put(int p, int b, Currency amount) {
    g.Bet(p, b) += amount;
    g.TotalBets(p) += amount;
    g.BetContract(p, b) = g.Bet(p, b);
    g.BetAtRoll(p, b) = g.Bet(p, b);
    if (IsLay(b)) {
      g.LayVig(p, b - 1) = FigureLayVig(g, b, g.Bet(p, b));
      if (g.rules.LayVigUpFront) g.TotalBets(p) += g.LayVig(p, b - 1);
    }
    if (IsBuy(b)) {
      g.BuyVig(p, b - 37) = FigureBuyVig(g, b, g.Bet(p, b));
      if (g.rules.BuyVigUpFront) g.TotalBets(p) += g.BuyVig(p, b - 37);
    }
  }
  void Put(int p, int b, long whole) { Put(p, b, Currency::FromWhole(whole)); }
  // Lays each {player, bet, whole amount} in turn.
  void Put(std::initializer_list<std::tuple<int, int, long>> bets) {
    for (auto [p, b, whole] : bets) Put(p, b, whole);
  }

  // Decides the dice (d1, d2) with `point` standing when they fell.
  void Decide(int d1, int d2, int point) {
    SetRoll(g, d1, d2, point);
    DecideBets(g);
  }

  // The dice (d1, d2) fall with `point` standing, ready to be decided.
  static void SetRoll(Game& game, int d1, int d2, int point) {
    for (int p = 1; p <= 8; ++p) {  // the snapshots a roll takes before the dice fall
      for (int b = 0; b <= kLastBetId; ++b) game.BetAtRoll(p, b) = game.Bet(p, b);
      for (int b = 0; b <= kLastRealBet; ++b) game.BetContract(p, b) = game.Bet(p, b);
    }
    game.Point = point;
    game.PointAtRoll = point;
    game.Die1 = d1;
    game.Die2 = d2;
    game.DiceTotal = d1 + d2;
  }

  // What player p won (+) or lost (-) since being seated.
  Currency Won(int p) const { return g.Bet(p, bet::kBankroll) - kStake; }

  // The text of the last notice shown, and an answer queued for the next prompt.
  std::string LastText() const {
    return platform.messages.empty() ? std::string() : platform.messages.back().text;
  }
  void Reply(int answer, const std::string& text = "") {
    MessageReply r;
    r.answer = answer;
    r.input1 = text;
    platform.queuedReplies.push_back(r);
  }

  TempFolder folder;  // program and data folder: the events log goes here
  HeadlessPlatform platform;

 private:
  std::unique_ptr<Game> owner_;

 protected:
  Game& g;
};

inline Currency Usd(double x) {
  return Currency::FromRaw(static_cast<std::int64_t>(x * 10000 + (x < 0 ? -0.5 : 0.5)));
}

// Amounts print as money in failure messages.
inline void PrintTo(Currency a, std::ostream* os) { *os << "$" << a.ToDouble(); }
