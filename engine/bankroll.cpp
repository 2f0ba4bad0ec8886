#include "engine/bankroll.h"

#include <algorithm>
#include <string>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/place.h"
#include "engine/settle_text.h"

namespace {

constexpr Currency kBankLimit = Currency::FromWhole(kBankrollLimit);
constexpr int kMaxAsks = 50;

const std::string& Name(const Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }

bool ShowAtmNotice(const Game& g, bool fromConfigure) {
  if (fromConfigure) return true;
  return !g.HyperDrive && (g.rules.NoticeFlags & kNoticeNotAllowed) != 0;
}

// After money moved: the session's records restart while nothing was rolled,
// and the graph's range holds the new bankroll.
void FollowBankroll(Game& g, int p) {
  const Currency bank = g.Bet(p, bet::kBankroll);
  if (g.RollTally(kTableSession, kEventRolls) == 0) g.BankrollHigh(p) = g.BankrollLow(p) = bank;
  if (g.GraphRollCount == 0) {
    g.GraphHigh(p) = g.GraphLow(p) = bank;
  } else {
    g.GraphHigh(p) = std::max(g.GraphHigh(p), bank);
    g.GraphLow(p) = std::min(g.GraphLow(p), bank);
  }
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Graph);
}

}  // namespace

Currency Atm(Game& g, int p, bool isDeposit, Currency amount, bool fromConfigure) {
  if (p < 1 || p > 8 || amount <= Currency{}) return Currency{};
  const Currency bank = g.Bet(p, bet::kBankroll), bets = g.TotalBets(p);
  Currency allowed = amount;
  std::string why, title = isDeposit ? "ATM Deposit" : "ATM Withdrawal";
  // The limits are tested against the room left, never by adding the
  // amount to the bankroll: a script may ask for any amount up to the
  // largest one, which the sum would overflow.
  if (!isDeposit) {
    if (amount > kBankLimit - bank) {
      allowed = kBankLimit - bank;
      why =
          "The full amount of this transaction was not allowed since it would have caused the "
          "current bankroll to exceed the bank limit of $9,999,999";
    }
  } else if (!g.betting.AllowNegBankroll(p)) {
    if (amount > bank - bets) {
      allowed = bank - bets;
      const bool betting = bets > Currency{};
      why = Cat("The full amount of this transaction was not allowed since it would have ",
                betting
                    ? "caused your current bankroll to drop below the amount of your current bets."
                    : "resulted in a negative current bankroll.",
                "\r\rYou can deposit more by checking the box marked, \"Allow negative bankroll "
                "amounts\"",
                fromConfigure ? "" : " on the Configuration screen",
                betting ? ", and/or by reducing the amount of your current bets." : ".");
    }
  } else if (amount > bank + kBankLimit) {
    allowed = bank + kBankLimit;
    why =
        "The full amount of this transaction was not allowed since it would have caused your "
        "current bankroll to exceed the bank limit of $-9,999,999";
  }
  if (allowed < Currency{}) allowed = Currency{};
  if (!why.empty() && ShowAtmNotice(g, fromConfigure))
    ShowNotice(g,
               Cat("Requested amount:  $", FormatMoney(amount), "\rAllowed amount:  $",
                   FormatMoney(allowed), "\r\r", why),
               title, kHelpLimits, kMsgOk | (fromConfigure ? 0 : kMsgHideNotAllowed));
  const Currency moved = isDeposit ? -allowed : allowed;
  g.InvestedBankroll(p) += moved;
  g.Bet(p, bet::kBankroll) += moved;
  FollowBankroll(g, p);
  return allowed;
}

Currency AtmFromBankrollTab(Game& g, bool isDeposit) {
  const int p = g.betting.BankrollTabPlayer;
  if (p < 1 || p > 8 || Name(g, p).empty()) return Currency{};
  const Currency moved = Atm(g, p, isDeposit, g.betting.AtmAmount, true);
  if (g.platform) g.platform->RequestRedraw(Redraw::Table);
  return moved;
}

bool OpenBankrollTab(Game& g) {
  if (g.PlayerCount > 0) return true;
  ShowNotice(g,
             "You need to add one or more players before you can set bankroll parameters.\r\rTo "
             "add a player return to the main table and click on the \"Players\" menu.",
             "No Players", kHelpPlayers, kMsgOk);
  return false;
}

bool ChangeAllowNegBankroll(Game& g, int p, bool on) {
  if (p < 1 || p > 8) return false;
  bool& allow = g.betting.AllowNegBankroll(p);
  if (on || !allow) {
    allow = on;
    return allow;
  }
  const Currency bank = g.Bet(p, bet::kBankroll), bets = g.TotalBets(p);
  const std::string& name = Name(g, p);
  if (bank < Currency{}) {
    ShowNotice(g,
               Cat("Before you can un-check this box, ", name,
                   " must have a non-negative bankroll. Some options:\r\r -- Win some more money "
                   "first, or\r -- Make a withdrawal from the ATM."),
               "Bankroll", kHelpLimits, kMsgOk);
    return true;
  }
  if (bank < bets) {
    ShowNotice(
        g,
        Cat("The amount of ", name,
            "'s current bets exceeds his/her current bankroll.\r\rTherefore, before you can "
            "un-check this box, ",
            name,
            " must either:\r\r -- Reduce the amount of his/her current bets, or \r -- Make at "
            "least a $",
            FormatMoney(bets - bank), " withdrawal from the ATM."),
        "Bankroll", kHelpLimits, kMsgOk);
    return true;
  }
  allow = false;
  return false;
}

void SetBeginningBankroll(Game& g, int p, Currency previous) {
  if (p < 1 || p > 8) return;
  BettingState& s = g.betting;
  const int mode = s.StartBankrollMode(p);
  const bool carry = mode == kStartCarry || mode == kStartCarryWithNet;
  Currency bank = s.StartBankroll(p);
  if (carry && previous <= kBankLimit && previous >= -kBankLimit) {
    bank = previous;
  } else if (mode != kStartWithAmount) {
    std::string lead;
    for (int tries = 0; tries < kMaxAsks; ++tries) {
      g.msg.MsgText = Cat(lead, "Enter ", Name(g, p), "'s beginning bankroll:");
      g.msg.MsgTitle = "Beginning Bankroll";
      g.msg.MsgHelpId = kHelpCheckStacks;
      g.msg.MsgStyle = kMsgOk | kMsgCancel | kMsgInput1 | kMsgSignedInput;
      g.msg.MsgInput1 = PlainAmount(s.StartBankroll(p));
      ShowMessage(g, true);
      if (g.msg.MsgAnswer == kAnswerCancel) break;
      const Currency typed = ParseAmount(g.msg.MsgInput1);
      if (typed > kBankLimit) {
        lead = "The maximum player bankroll is $9,999,999\r\r";
      } else if (typed < -kBankLimit) {
        lead = "The minimum player bankroll is -$9,999,999\r\r";
      } else {
        s.StartBankroll(p) = typed;
        break;
      }
    }
    bank = s.StartBankroll(p);
  }
  bank = std::clamp(bank, -kBankLimit, kBankLimit);
  g.Bet(p, bet::kBankroll) = g.BetAtRoll(p, bet::kBankroll) = g.BetAfterRoll(p, bet::kBankroll) =
      bank;
  if (mode != kStartCarryWithNet) g.InvestedBankroll(p) = bank;
  if (bank < Currency{}) s.AllowNegBankroll(p) = true;
  g.BankrollHigh(p) = g.BankrollLow(p) = bank;
  g.BankrollSum(p) = g.InvestedBankroll(p);
  g.RailAtRoll(p) = bank;
}

std::vector<CheckStackRow> ShowCheckStacks(const Game& g, int p) {
  std::vector<CheckStackRow> rows;
  if (p < 1 || p > 8) return rows;
  for (int n = 0; n <= 99; ++n) {
    const Currency value = g.Bet(p, bet::kCheckStackFirst + n);
    const std::string& name = g.CheckStackName(p, n);
    const bool named = name.find_first_not_of(' ') != std::string::npos;
    if (!named && value.IsZero() && !g.betting.DisplayZeroStacks) continue;
    rows.push_back({n, value, name, value < Currency{} ? 255 : value > Currency{} ? 0xFF0000 : 0});
  }
  return rows;
}

void MarkCheckStacksChanged(Game& g, int p) {
  g.roll.UpperCellsChangedAtRoll |= 1u << p;
  g.roll.UpperCellsChangedAfterRoll |= 1u << p;
}

void SetCheckStackValue(Game& g, int p, int n, std::string_view text) {
  if (p < 1 || p > 8 || n < 0 || n > 99) return;
  g.Bet(p, bet::kCheckStackFirst + n) =
      std::clamp(ParseAmount(text), -kCheckStackLimit, kCheckStackLimit);
  MarkCheckStacksChanged(g, p);
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
}

void SetCheckStackName(Game& g, int p, int n, std::string_view name) {
  if (p < 1 || p > 8 || n < 0 || n > 99) return;
  g.CheckStackName(p, n) = std::string(name);
}

bool DeleteAllCheckStacks(Game& g, int p, StackClear what) {
  if (p < 1 || p > 8) return false;
  const char* lead =
      what == StackClear::All
          ? "Are you sure you want to delete all the CheckStack values and names for "
      : what == StackClear::Values
          ? "Are you sure you want to delete all the CheckStack values for "
          : "Are you sure you want to delete all the CheckStack names for ";
  const char* title = what == StackClear::All      ? "Delete All"
                      : what == StackClear::Values ? "Delete All Values"
                                                   : "Delete All Names";
  if (ShowNotice(g, Cat(lead, Name(g, p), "?"), title, kHelpNone, kMsgYes | kMsgNo) != kAnswerYes)
    return false;
  for (int n = 0; n <= 99; ++n) {
    if (what != StackClear::Names) g.Bet(p, bet::kCheckStackFirst + n) = Currency{};
    if (what != StackClear::Values) g.CheckStackName(p, n).clear();
  }
  MarkCheckStacksChanged(g, p);
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
  return true;
}

bool SetVisibleCheckStacks(Game& g, int p, const int (&numbers)[4]) {
  if (p < 1 || p > 8) return false;
  for (int i = 0; i < 4; ++i) {
    if (numbers[i] < 0 || numbers[i] > 99) return false;
    for (int j = 0; j < i; ++j)
      if (numbers[i] == numbers[j]) {
        ShowNotice(g, "Each CheckStack entry should be a different number.",
                   "Set Visible CheckStacks", kHelpNone, kMsgOk);
        return false;
      }
  }
  for (int i = 0; i < 4; ++i)
    g.betting.CheckStackSlot(p, i + 1) = bet::kCheckStackFirst + numbers[i];
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
  return true;
}

std::string CheckStackSpotName(const Game& g, int p, int spot) {
  if (p < 0 || p > 8 || spot < 1 || spot > 4) return {};
  return "CheckStack #" + std::to_string(g.betting.CheckStackSlot(p, spot) - bet::kCheckStackFirst);
}

std::string ConvertNonPrinting(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c < ' ' || c > '~') c = '\0';
  return out;
}
