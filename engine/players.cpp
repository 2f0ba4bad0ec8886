#include "engine/players.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

#include "automation/autoplay.h"
#include "config/message_dialog.h"
#include "engine/bankroll.h"
#include "engine/catalogue.h"
#include "engine/game.h"
#include "engine/money.h"
#include "engine/place.h"
#include "engine/platform.h"
#include "engine/roll_internal.h"
#include "engine/settle_text.h"
#include "script/tokenizer.h"

namespace {

constexpr Currency kBankLimit = Currency::FromWhole(kBankrollLimit);
// A dialog that keeps coming back (a scripted answer repeated) gives up after this many tries.
constexpr int kMaxAsks = 50;

std::string& Name(Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }
const std::string& Name(const Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }
bool Seated(const Game& g, int p) { return p >= 1 && p <= 8 && !Name(g, p).empty(); }

std::string Lower(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string Trim(std::string_view s) {
  const auto first = s.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  const auto last = s.find_last_not_of(" \t\r\n");
  return std::string(s.substr(first, last - first + 1));
}

void Refresh(Game& g, Redraw what = Redraw::Table) {
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(what);
}

// A line of the events log, when the log is on.
void Log(Game& g, std::string_view line) {
  if (g.roll.LogOn) LogLine(g, line);
}

// An input dialog: text above, an answer box; false on Cancel.
bool AskText(Game& g, const std::string& text, std::string_view title, int help, int style,
             std::string& answer) {
  g.msg.MsgText = text;
  g.msg.MsgTitle = title;
  g.msg.MsgHelpId = help;
  g.msg.MsgStyle = kMsgOk | kMsgCancel | kMsgInput1 | style;
  g.msg.MsgInput1 = answer;
  ShowMessage(g, true);
  if (g.msg.MsgAnswer == kAnswerCancel) return false;
  answer = g.msg.MsgInput1;
  return true;
}

// Asks for a name until it passes the checks; "" when cancelled or empty.
std::string AskName(Game& g, const std::string& question, std::string_view title, int ownSeat) {
  std::string lead;
  for (int tries = 0; tries < kMaxAsks; ++tries) {
    std::string answer;
    if (!AskText(g, lead + question, title, 180, 0, answer)) return {};
    answer = Trim(answer);
    if (answer.empty()) return {};
    lead = PlayerNameProblem(g, answer, ownSeat);
    if (lead.empty()) return answer;
  }
  return {};
}

// Swaps the rows of two seats in a table whose first subscript is the seat.
template <class T, int L2, int H2>
void SwapSeat(Table2<T, 0, 8, L2, H2>& t, int a, int b) {
  for (int j = L2; j <= H2; ++j) std::swap(t(a, j), t(b, j));
}
template <class T, int L2, int H2, int L3, int H3>
void SwapSeat(Table3<T, 0, 8, L2, H2, L3, H3>& t, int a, int b) {
  for (int k = L3; k <= H3; ++k)
    for (int j = L2; j <= H2; ++j) std::swap(t(a, j, k), t(b, j, k));
}
template <class T>
void SwapSeat(Table1<T, 0, 8>& t, int a, int b) {
  std::swap(t(a), t(b));
}
template <class T, std::size_t N>
void SwapSeat(std::array<T, N>& t, int a, int b) {
  std::swap(t[static_cast<std::size_t>(a)], t[static_cast<std::size_t>(b)]);
}
// The same for the statistics, whose first subscript is seat + 9 x frame.
template <class T, int L2, int H2, int L3, int H3>
void SwapFrames(Table3<T, 0, 44, L2, H2, L3, H3>& t, int a, int b) {
  for (int f = 0; f < kFrames; ++f)
    for (int k = L3; k <= H3; ++k)
      for (int j = L2; j <= H2; ++j) std::swap(t(a + 9 * f, j, k), t(b + 9 * f, j, k));
}
template <class T, int L2, int H2>
void SwapFrames(Table2<T, 0, 44, L2, H2>& t, int a, int b) {
  for (int f = 0; f < kFrames; ++f)
    for (int j = L2; j <= H2; ++j) std::swap(t(a + 9 * f, j), t(b + 9 * f, j));
}
template <class T>
void SwapFrames(Table1<T, 0, 44>& t, int a, int b) {
  for (int f = 0; f < kFrames; ++f) std::swap(t(a + 9 * f), t(b + 9 * f));
}

void SwapSeats(Game& g, int a, int b) {
  SwapSeat(g.PlayerName, a, b);
  SwapSeat(g.Bet, a, b);
  SwapSeat(g.BetAtRoll, a, b);
  SwapSeat(g.BetAfterRoll, a, b);
  SwapSeat(g.BetContract, a, b);
  SwapSeat(g.BetWorking, a, b);
  SwapSeat(g.BetWorkingDefault, a, b);
  SwapSeat(g.BetWorkingAfterRoll, a, b);
  SwapSeat(g.BetTrend, a, b);
  SwapSeat(g.TotalBets, a, b);
  SwapSeat(g.LayVig, a, b);
  SwapSeat(g.BuyVig, a, b);
  SwapSeat(g.ComeFlatAtSet, a, b);
  SwapSeat(g.CheckStackName, a, b);
  SwapSeat(g.InvestedBankroll, a, b);
  SwapSeat(g.BankrollHigh, a, b);
  SwapSeat(g.BankrollLow, a, b);
  SwapSeat(g.BankrollSum, a, b);
  SwapSeat(g.RailAtRoll, a, b);
  SwapSeat(g.GraphBankroll, a, b);
  SwapSeat(g.GraphTrend, a, b);
  SwapSeat(g.GraphHigh, a, b);
  SwapSeat(g.GraphLow, a, b);

  SwapFrames(g.StatAction, a, b);
  SwapFrames(g.StatWins, a, b);
  SwapFrames(g.StatLosses, a, b);
  std::swap(g.StatRowsThisHand[static_cast<std::size_t>(a)],
            g.StatRowsThisHand[static_cast<std::size_t>(b)]);
  std::swap(g.StatRowsLastHand[static_cast<std::size_t>(a)],
            g.StatRowsLastHand[static_cast<std::size_t>(b)]);
  SwapFrames(g.ComeTravelTotal, a, b);
  SwapFrames(g.RollTally, a, b);
  SwapFrames(g.TotalsTally, a, b);
  SwapFrames(g.HandsTally, a, b);
  SwapFrames(g.RollsAtTable, a, b);
  SwapFrames(g.MostRollsHand, a, b);
  SwapFrames(g.MostComeoutHand, a, b);
  SwapFrames(g.MostPassesHand, a, b);
  SwapFrames(g.MostMissesHand, a, b);

  AutoPlayState& ap = g.autoplay;
  SwapSeat(ap.AutoTakeFullOdds, a, b);
  SwapSeat(ap.AutoLayFullOdds, a, b);
  SwapSeat(ap.AutoDownPlaceBets, a, b);
  SwapSeat(ap.AutoPassDice, a, b);
  SwapSeat(ap.AutoAdjustMode, a, b);
  SwapSeat(ap.LayBias, a, b);
  SwapSeat(ap.PlaceBias, a, b);
  SwapSeat(ap.DoBias, a, b);
  SwapSeat(ap.DontBias, a, b);
  SwapSeat(ap.HandleWinningBets, a, b);
  SwapSeat(ap.HandleLosingBets, a, b);
  SwapSeat(ap.AdjustAmount, a, b);
  SwapSeat(ap.AdjustOperator, a, b);
  SwapSeat(ap.AdjustUnits, a, b);
  SwapSeat(ap.LastWinButton, a, b);
  SwapSeat(ap.LastLoseButton, a, b);

  BettingState& s = g.betting;
  SwapSeat(s.AllowNegBankroll, a, b);
  SwapSeat(s.StartBankrollMode, a, b);
  SwapSeat(s.StartBankroll, a, b);
  SwapSeat(s.CheckStackSlot, a, b);

  SwapSeat(g.roll.SessionLogPath, a, b);
  SwapSeat(g.roll.ScriptActive, a, b);
  SwapSeat(g.roll.ScriptActiveAtRoll, a, b);
  SwapSeat(g.scriptCode.SlotScript, a, b);
  SwapSeat(g.scriptCode.SlotStrings, a, b);
  SwapSeat(g.scriptCode.SlotCompiled, a, b);
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
  if (interactive) ShowNotice(g, text, "Pass the Dice", 205, kMsgOk);
}

bool HandHasRolled(const Game& g) { return g.RollTally(0, 0) != 0; }

}  // namespace

std::string RailPositionName(int p) {
  return p <= 4 ? std::to_string(5 - p) + "-left" : std::to_string(p - 4) + "-right";
}

std::string PlayerNameProblem(const Game& g, std::string_view name, int ownSeat) {
  const std::string lower = Lower(name);
  for (int p = 1; p <= 8; ++p)
    if (p != ownSeat && Seated(g, p) && Lower(Name(g, p)) == lower)
      return Cat("A player named ", name,
                 " is already at the table.\r\rPlease enter a different name.\r\r");
  if (IsReservedWord(name)) return ReservedWordMessage(name);
  return {};
}

bool AddPlayer(Game& g, int position) {
  if (position < 1 || position > 8 || Seated(g, position)) return false;
  if (ShowNotice(g, "Would you like to add a player here?", "Add New Player?", 180,
                 kMsgYes | kMsgNo) != kAnswerYes)
    return false;
  const std::string name = AskName(g, "What's the new player's name?\r", "Add New Player", 0);
  if (name.empty()) return false;
  std::string lead;
  for (int tries = 0; tries < kMaxAsks; ++tries) {
    std::string answer;
    if (!AskText(g, Cat(lead, "How much would ", name, " like to buy-in for?\r"), "Bankroll", 180,
                 kMsgSignedInput, answer))
      return false;
    const Currency bankroll = ParseAmount(answer);
    if (bankroll > kBankLimit)
      lead = "The maximum player bankroll is $9,999,999\r\r";
    else if (bankroll < -kBankLimit)
      lead = "The minimum player bankroll is -$9,999,999\r\r";
    else {
      SeatPlayer(g, position, name, bankroll);
      return true;
    }
  }
  return false;
}

void SeatPlayer(Game& g, int p, std::string_view name, Currency bankroll) {
  if (p < 1 || p > 8 || Seated(g, p) || name.empty()) return;
  bankroll = std::clamp(bankroll, -kBankLimit, kBankLimit);
  g.PlayerCount += 1;
  Name(g, p) = std::string(name);
  ResetPlayer(g, p);
  g.InvestedBankroll(p) = bankroll;
  g.Bet(p, 0) = g.BetAtRoll(p, 0) = g.BetAfterRoll(p, 0) = bankroll;
  g.BankrollHigh(p) = g.BankrollLow(p) = g.BankrollSum(p) = bankroll;
  g.RailAtRoll(p) = bankroll;
  g.betting.StartBankroll(p) = bankroll;
  g.GraphHigh(p) = g.GraphLow(p) = bankroll;
  if (bankroll < Currency{}) g.betting.AllowNegBankroll(p) = true;
  g.roll.SessionLogPath[static_cast<std::size_t>(p)] = g.roll.DataFolder + Lower(name) + ".slg";
  if (g.Shooter == 0) {
    g.Shooter = p;
    if (!HandHasRolled(g)) g.HandShooter = p;
  }
  if (g.roll.LogOn)
    Log(g, Cat("    ", name, " joined the game at stick ", RailPositionName(p), " with $",
               PlainAmount(bankroll)));
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
  Refresh(g);
  if (g.PlayerCount == 1 && g.Point == 0) PlayComeOutCall(g);
}

bool RenamePlayer(Game& g, int p, bool* chooseLogFile) {
  if (chooseLogFile) *chooseLogFile = false;
  if (!Seated(g, p)) return false;
  const std::string old = Name(g, p);
  const std::string name = AskName(g, Cat("Enter a new name for ", old, "\r"), "Rename Player", p);
  if (name.empty()) return false;
  RenamePlayerTo(g, p, name);
  if (Lower(name) != Lower(old)) {
    const int answer = ShowNotice(
        g,
        Cat("Would you also like to change ", name, "'s sessions log filename?\r\rCurrently:\r\r",
            g.roll.SessionLogPath[static_cast<std::size_t>(p)]),
        "Rename Sessions Log", 180, kMsgYes | kMsgNo);
    if (chooseLogFile) *chooseLogFile = answer == kAnswerYes;
  }
  return true;
}

std::string RenamePlayerTo(Game& g, int p, std::string_view name) {
  if (!Seated(g, p)) return "No player sits at this position.";
  const std::string trimmed = Trim(name);
  if (trimmed.empty()) return "Please enter a name.";
  std::string problem = PlayerNameProblem(g, trimmed, p);
  if (!problem.empty()) return problem;
  Log(g, Cat("    ", Name(g, p), "'s name changed to ", trimmed));
  Name(g, p) = trimmed;
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
  Refresh(g);
  return {};
}

void MovePlayer(Game& g, int a, int b) {
  if (a < 1 || a > 8 || b < 1 || b > 8 || a == b) return;
  SwapSeats(g, a, b);
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
  Log(g, Cat("    ", Name(g, b), " moved to stick ", RailPositionName(b)));
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
               "Cash out?", 180, kMsgOk);
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
  if (ShowNotice(g, question, "Cash out?", 180, kMsgYes | kMsgNo) != kAnswerYes) return false;

  if (g.roll.LogOn) {
    const Currency net = g.Bet(p, 0) - g.InvestedBankroll(p) - abandoned;
    std::string line =
        Cat("    ", name, " cashed out with $", PlainAmount(g.Bet(p, 0) - abandoned));
    if (net > Currency{})
      line += Cat("(net win: $", PlainAmount(net), ")");
    else if (net < Currency{})
      line += Cat("(net loss: $", PlainAmount(-net),
                  abandoned > Currency{} ? Cat(" includes $", PlainAmount(abandoned), " abandoned)")
                                         : std::string(")"));
    Log(g, line);
  }
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
    Log(g, Cat("    ", oldName, " passed the dice to ", Name(g, next)));
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
  g.BankrollHigh(p) = g.BankrollLow(p) = g.BankrollSum(p) = g.RailAtRoll(p) = Currency{};
  g.GraphHigh(p) = g.GraphLow(p) = Currency{};
  BettingState& s = g.betting;
  s.StartBankroll(p) = Currency{};
  s.StartBankrollMode(p) = kStartWithAmount;
  s.AllowNegBankroll(p) = false;
  g.InvestedBankroll(p) = Currency{};
  g.TotalBets(p) = Currency{};
  for (int b = 0; b <= kLastBetId; ++b) g.Bet(p, b) = g.BetAtRoll(p, b) = g.BetAfterRoll(p, b) = {};
  for (int b = 0; b <= kLastRealBet; ++b) g.BetContract(p, b) = {};
  for (int i = 0; i < 6; ++i) g.LayVig(p, i) = g.BuyVig(p, i) = g.ComeFlatAtSet(p, i) = {};
  for (int b = 0; b <= 100; ++b) g.BetTrend(p, b, 0) = g.BetTrend(p, b, 1) = 0;
  for (int n = 0; n <= 99; ++n) g.CheckStackName(p, n).clear();
  for (int i = 1; i <= 4; ++i) s.CheckStackSlot(p, i) = bet::kCheckStackFirst + i;
  for (int b = 0; b <= 100; ++b) {
    g.BetWorkingDefault(p, b) = g.BetWorkingDefault(0, b);
    g.BetWorking(p, b) = 1;
    if (g.Point == 0) g.BetWorking(p, b) = g.BetWorkingDefault(p, b);
    g.BetWorkingAfterRoll(p, b) = g.BetWorking(p, b);
  }
  g.roll.ScriptActive[static_cast<std::size_t>(p)] = false;
  // A seat's Auto-Play rules start afresh: a newcomer never inherits the
  // previous occupant's standing rules.
  SetAutoPlayDefaults(g, p);
}

void PromptAddPlayer(Game& g) {
  ShowNotice(g, "Click an open position on the rail to add a player.", "Add a Player", 180, kMsgOk);
}

void StartMovePlayer(Game& g) {
  if (Seated(g, g.betting.CurPlayer))
    g.betting.PendingAction = kPendingMoveBase + g.betting.CurPlayer;
}

void ClickOnRail(Game& g, int position) {
  if (position < 1 || position > 8) return;
  BettingState& s = g.betting;
  if (s.PendingAction > kPendingMoveBase) {
    const int from = s.PendingAction - kPendingMoveBase;
    s.PendingAction = kPendingNone;
    if (Seated(g, from)) MovePlayer(g, from, position);
    return;
  }
  if (!Seated(g, position)) {
    AddPlayer(g, position);
    return;
  }
  s.CurPlayer = position;
  Refresh(g);
}
