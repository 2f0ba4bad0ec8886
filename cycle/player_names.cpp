#include "cycle/player_names.h"

#include <string>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "core/text.h"
#include "engine/players.h"
#include "engine/settle_text.h"
#include "script/tokenizer.h"

namespace {

constexpr Currency kBankLimit = Currency::FromWhole(kBankrollLimit);
// A dialog that keeps coming back (a scripted answer repeated) gives up after this many tries.
constexpr int kMaxAsks = 50;
// What is cut from both ends of a typed name.
constexpr std::string_view kNameBlanks = " \t\r\n";

std::string& Name(Game& g, int p) { return g.PlayerName[static_cast<std::size_t>(p)]; }

void Refresh(Game& g) {
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
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
    answer = std::string(Trim(answer, kNameBlanks));
    if (answer.empty()) return {};
    lead = PlayerNameProblem(g, answer, ownSeat);
    if (lead.empty()) return answer;
  }
  return {};
}

}  // namespace

std::string PlayerNameProblem(const Game& g, std::string_view name, int ownSeat) {
  if (SeatNamed(g, name, ownSeat) != 0)
    return Cat("A player named ", name,
               " is already at the table.\r\rPlease enter a different name.\r\r");
  if (IsReservedWord(name)) return ReservedWordMessage(name);
  return {};
}

bool AddPlayer(Game& g, int position) {
  if (position < 1 || position > 8 || Seated(g, position)) return false;
  if (ShowNotice(g, "Would you like to add a player here?", "Add New Player?", kHelpPlayers,
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

bool RenamePlayer(Game& g, int p, bool* chooseLogFile) {
  if (chooseLogFile) *chooseLogFile = false;
  if (!Seated(g, p)) return false;
  const std::string old = Name(g, p);
  const std::string name = AskName(g, Cat("Enter a new name for ", old, "\r"), "Rename Player", p);
  if (name.empty()) return false;
  RenamePlayerTo(g, p, name);
  if (LowerCase(name) != LowerCase(old)) {
    const int answer = ShowNotice(
        g,
        Cat("Would you also like to change ", name, "'s sessions log filename?\r\rCurrently:\r\r",
            g.roll.SessionLogPath[static_cast<std::size_t>(p)]),
        "Rename Sessions Log", kHelpPlayers, kMsgYes | kMsgNo);
    if (chooseLogFile) *chooseLogFile = answer == kAnswerYes;
  }
  return true;
}

std::string RenamePlayerTo(Game& g, int p, std::string_view name) {
  if (!Seated(g, p)) return "No player sits at this position.";
  const std::string trimmed(Trim(name, kNameBlanks));
  if (trimmed.empty()) return "Please enter a name.";
  std::string problem = PlayerNameProblem(g, trimmed, p);
  if (!problem.empty()) return problem;
  LogPlayerLine(g, Cat("    ", Name(g, p), "'s name changed to ", trimmed));
  Name(g, p) = trimmed;
  g.roll.ScriptsOK = false;
  g.roll.SessionDirty = true;
  Refresh(g);
  return {};
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
