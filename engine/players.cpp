#include "engine/players.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "core/seats.h"
#include "core/text.h"
#include "engine/bankroll.h"
#include "engine/place.h"
#include "engine/roll_internal.h"
#include "engine/settle_text.h"
#include "stats/sessions_log.h"

namespace {

constexpr Currency kBankLimit = Currency::FromWhole(kBankrollLimit);

std::string& Name(Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }
const std::string& Name(const Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }

void Refresh(Game& g, Redraw what = Redraw::Table) {
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(what);
}

int Swapped(int seat, int a, int b) { return seat == a ? b : seat == b ? a : seat; }

// Seated players strictly between a and b, walking from a by step (+1 or -1) with wrap.
int SeatedBetween(const Game& g, int a, int b, int step) {
  int n = 0;
  for (int s = a;;) {
    s += step;
    if (s > 8) s = 1;
    if (s < 1) s = 8;
    if (s == b || s == a) return n;
    if (Seated(g, s)) ++n;
  }
}

void PassNotice(Game& g, bool interactive, std::string_view text) {
  if (interactive) ShowNotice(g, text, "Pass the Dice", kHelpPassDice, kMsgOk);
}

bool HandHasRolled(const Game& g) { return g.RollTally(kTableHand, kEventRolls) != 0; }

}  // namespace

bool Seated(const Game& g, int p) { return p >= 1 && p <= 8 && !Name(g, p).empty(); }

int SeatNamed(const Game& g, std::string_view name, int exceptSeat) {
  const std::string lower = LowerCase(name);
  for (int p = 1; p <= 8; ++p)
    if (p != exceptSeat && Seated(g, p) && LowerCase(Name(g, p)) == lower) return p;
  return 0;
}

void LogPlayerLine(Game& g, std::string_view line) {
  if (g.roll.LogOn) WriteEventLine(g, line);
}

std::string RailPositionName(int p) {
  return p <= 4 ? std::to_string(5 - p) + "-left" : std::to_string(p - 4) + "-right";
}

void SeatPlayer(Game& g, int p, std::string_view name, Currency bankroll) {
  if (p < 1 || p > 8 || Seated(g, p) || name.empty()) return;
  bankroll = std::clamp(bankroll, -kBankLimit, kBankLimit);
  g.PlayerCount += 1;
  Name(g, p) = std::string(name);
  ResetPlayer(g, p);
  g.InvestedBankroll(p) = bankroll;
  g.Bet(p, bet::kBankroll) = g.BetAtRoll(p, bet::kBankroll) = g.BetAfterRoll(p, bet::kBankroll) =
      bankroll;
  g.BankrollHigh(p) = g.BankrollLow(p) = g.BankrollSum(p) = bankroll;
  g.RailAtRoll(p) = bankroll;
  g.betting.StartBankroll(p) = bankroll;
  g.GraphHigh(p) = g.GraphLow(p) = bankroll;
  if (bankroll < Currency{}) g.betting.AllowNegBankroll(p) = true;
  g.roll.SessionLogPath[static_cast<std::size_t>(p)] = g.roll.DataFolder + LowerCase(name) + ".slg";
  if (g.Shooter == 0) {
    g.Shooter = p;
    if (!HandHasRolled(g)) g.HandShooter = p;
  }
  if (g.roll.LogOn)
    LogPlayerLine(g, Cat("    ", name, " joined the game at stick ", RailPositionName(p), " with $",
                         PlainAmount(bankroll)));
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
  Refresh(g);
  if (g.PlayerCount == 1 && g.Point == 0) PlayComeOutCall(g);
}

void MovePlayer(Game& g, int a, int b) {
  if (a < 1 || a > 8 || b < 1 || b > 8 || a == b) return;
  SwapSeatTables(g, a, b);
  g.HandShooter = Swapped(g.HandShooter, a, b);
  g.PrevHandShooter = Swapped(g.PrevHandShooter, a, b);
  if (g.Shooter == a || g.Shooter == b) {
    const int was = g.Shooter;
    if (SeatedBetween(g, a, b, +1) >= 1 && SeatedBetween(g, a, b, -1) >= 1) PassDice(g, false);
    // Nobody could take them: the dice stay with the player who moved.
    if (g.Shooter == was) g.Shooter = Swapped(was, a, b);
  }
  g.betting.CurPlayer = b;
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
  Refresh(g);
  LogPlayerLine(g, Cat("    ", Name(g, b), " moved to stick ", RailPositionName(b)));
}

Currency AbandonedAmount(const Game& g, int p, int* comeBets) {
  Currency total;
  int n = 0;
  if (comeBets) *comeBets = 0;
  if (p < 1 || p > 8) return total;
  for (int b = bet::kComePointFirst; b <= bet::kComePointLast; ++b)
    if (g.Bet(p, b) > Currency{} && g.BetContract(p, b) > Currency{}) {
      total += g.Bet(p, b);
      ++n;
    }
  if (g.Point > 0 && g.Bet(p, bet::kPassLine) > Currency{} &&
      g.BetContract(p, bet::kPassLine) > Currency{})
    total += g.Bet(p, bet::kPassLine);
  if (comeBets) *comeBets = n;
  return total;
}

bool CashOutPlayer(Game& g) {
  const int p = g.betting.CurPlayer;
  if (!Seated(g, p)) {
    ShowNotice(g, "Please select a player to remove\rby clicking on the player's rail position.",
               "Cash out?", kHelpPlayers, kMsgOk);
    return false;
  }
  const std::string name = Name(g, p);
  int n = 0;
  const Currency abandoned = AbandonedAmount(g, p, &n);
  std::string question = Cat("Would you like to remove ", name, "?");
  if (abandoned > Currency{}) {
    const bool pass = g.Point > 0 && g.Bet(p, bet::kPassLine) > Currency{} &&
                      g.BetContract(p, bet::kPassLine) > Currency{};
    question += Cat("\r\r", name, " still has ");
    if (pass) question += n > 0 ? "an active Pass Line bet and " : "an active Pass Line bet ";
    if (n == 1) question += "an active Come bet ";
    if (n > 1) question += Cat(std::to_string(n), " active Come bets ");
    question += Cat("that can't be removed and will be abandoned.\r(Total abandoned: $",
                    FormatMoney(abandoned), ")");
  }
  if (ShowNotice(g, question, "Cash out?", kHelpPlayers, kMsgYes | kMsgNo) != kAnswerYes)
    return false;

  if (g.roll.LogOn) {
    const Currency net = g.Bet(p, bet::kBankroll) - g.InvestedBankroll(p) - abandoned;
    std::string line =
        Cat("    ", name, " cashed out with $", PlainAmount(g.Bet(p, bet::kBankroll) - abandoned));
    if (net > Currency{})
      line += Cat(" (net win: $", PlainAmount(net), ")");
    else if (net < Currency{})
      line += Cat(" (net loss: $", PlainAmount(-net),
                  abandoned > Currency{} ? Cat(" includes $", PlainAmount(abandoned), " abandoned)")
                                         : std::string(")"));
    LogPlayerLine(g, line);
  }
  WriteSessionRecordShown(g, p);
  ResetPlayer(g, p);
  g.roll.ScriptActive[0] = false;
  for (int s = 1; s <= 8; ++s)
    if (s != p && g.roll.ScriptActive[static_cast<std::size_t>(s)]) g.roll.ScriptActive[0] = true;
  g.roll.ScriptsOK = false;
  g.PlayerCount -= 1;
  Name(g, p).clear();

  if (g.Shooter == p) {
    PassDice(g, false);
    if (g.Shooter == p) g.Shooter = 0;
  }
  if (g.HandShooter == p) g.HandShooter = 0;
  if (g.PrevHandShooter == p) g.PrevHandShooter = 0;
  g.autoplay.SelectedPlayers &= ~(1 << p);

  int next = 0;
  for (int i = 1; i <= 8 && next == 0; ++i) {
    const int s = ((p - 1 - i) % 8 + 8) % 8 + 1;
    if (Seated(g, s)) next = s;
  }
  g.betting.CurPlayer = next;
  g.roll.SessionDirty = true;
  Refresh(g);
  if (g.PlayerCount == 1 && g.Point == 0) PlayComeOutCall(g);
  return true;
}

void PassDice(Game& g, bool interactive) {
  if (g.PlayerCount == 0) {
    PassNotice(g, interactive, "Unable to pass the dice.\r\rThere are no players at the table.");
    return;
  }
  // A lone player who holds the dice has nobody to pass to; a lone player
  // without them (the shooter just left) takes them in the walk below.
  if (g.PlayerCount == 1 && Seated(g, g.Shooter)) {
    PassNotice(g, interactive,
               "Unable to pass the dice.\r\rThere are no other players at the table.");
    return;
  }
  const int old = g.Shooter;
  const bool lineRequired =
      g.Point > 0 && g.rules.BetRequirement == kLineBetRequired && !g.rules.AllowPutBets;
  int next = 0, blocked = 0;
  const int seats = old >= 1 && old <= 8 ? 7 : 8;
  for (int i = 1; i <= seats && next == 0; ++i) {
    const int s = ((old - 1 - i) % 8 + 8) % 8 + 1;
    if (!Seated(g, s) || g.autoplay.AutoPassDice(s)) continue;
    if (lineRequired && g.Bet(s, bet::kPassLine) <= Currency{} &&
        g.Bet(s, bet::kDontPass) <= Currency{}) {
      ++blocked;
      continue;
    }
    next = s;
  }
  if (next == 0) {
    if (!interactive) return;
    std::string text = "Unable to pass the dice at this time.\r\r";
    if (blocked == 0) {
      int other = 0;
      for (int s = 1; s <= 8; ++s)
        if (s != old && Seated(g, s)) other = s;
      if (g.PlayerCount == 2 && Seated(g, old) && other != 0)
        text += Cat(Name(g, other), " doesn't want to shoot.");
      else
        text += "None of the other players want to shoot.";
    } else {
      text += blocked == 1
                  ? std::string("There's one other player who wants to shoot ")
                  : Cat("There are ", std::to_string(blocked), " other players who want to shoot ");
      text +=
          "but can't because a line bet is required and Put bets are not allowed.\r\r"
          "Please wait for a come-out roll or check the 'Allow Put bets' option on the 'Bets "
          "tab' of the configuration screen.";
    }
    PassNotice(g, true, text);
    return;
  }
  const std::string& oldName = Name(g, old >= 0 && old <= 8 ? old : 0);
  if (interactive) {
    LogPlayerLine(g, Cat("    ", oldName, " passed the dice to ", Name(g, next)));
    Refresh(g, Redraw::OpenViews);
  }
  g.Shooter = next;
  Refresh(g);
  if (!HandHasRolled(g)) {
    g.HandShooter = next;
    return;
  }
  if (interactive) {
    if (next == g.HandShooter)
      PassNotice(g, true,
                 Cat(oldName, " is passing the dice back to ", Name(g, next),
                     " who originally started this hand."));
    else
      PassNotice(g, true,
                 Cat(oldName, " is passing the dice to ", Name(g, next),
                     " who may finish the current hand and then roll his/her own hand."));
  }
  Refresh(g, Redraw::OpenViews);
}

void ResetPlayer(Game& g, int p) {
  if (p < 1 || p > 8) return;
  // Money, bets, records, stacks and the seat's Auto-Play rules start afresh:
  // a newcomer never inherits the previous occupant's standing rules.
  ClearSeatTables(g, p);
  for (int b = 0; b <= 100; ++b) {
    g.BetWorkingDefault(p, b) = g.BetWorkingDefault(0, b);
    g.BetWorking(p, b) = 1;
    if (g.Point == 0) g.BetWorking(p, b) = g.BetWorkingDefault(p, b);
    g.BetWorkingAfterRoll(p, b) = g.BetWorking(p, b);
  }
}

void PromptAddPlayer(Game& g) {
  ShowNotice(g, "Click an open position on the rail to add a player.", "Add a Player", kHelpPlayers,
             kMsgOk);
}

void StartMovePlayer(Game& g) {
  if (Seated(g, g.betting.CurPlayer))
    g.betting.PendingAction = kPendingMoveBase + g.betting.CurPlayer;
}
