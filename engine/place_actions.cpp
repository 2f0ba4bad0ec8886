// The operations round SetBetChecked: placing a visible bet with the odds
// that follow it, removing, taking to the maximum, full odds, buying a Place
// bet, calling bets on and off, and a typed amount.
#include <string>

#include "config/settings.h"
#include "config/sound.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/place.h"
#include "engine/place_internal.h"
#include "engine/settle_text.h"

namespace {

// A table seat and a bet id the tables hold; anything else is ignored.
bool Valid(int p, int b) { return p >= 1 && p <= 8 && b >= 0 && b <= kLastBetId; }
bool Seat(int p) { return p >= 1 && p <= 8; }

bool SwitchedOff(const Game& g, int b) {
  return (IsBig(b) && !g.rules.UseBig68) || (b == bet::kFire && !g.rules.UseFireBet) ||
         (b == bet::kMidway && !g.rules.UseMidwayBet);
}

void RedrawTable(Game& g) {
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
}

// The odds on flat bet b follow it: to the maximum with the Auto-Play switch
// on, else only down when they now stand above what the flat bet allows.
void FollowOdds(Game& g, int p, int flat) {
  int odds = 0;
  bool full = false;
  if ((flat == bet::kPassLine && g.Point > 0) || IsComePoint(flat)) {
    odds = OddsOf(flat);
    full = g.autoplay.AutoTakeFullOdds(p);
  } else if ((flat == bet::kDontPass && g.Point > 0) || IsDontComePoint(flat)) {
    odds = OddsOf(flat);
    full = g.autoplay.AutoLayFullOdds(p);
  }
  if (odds == 0) return;
  // Taking the odds to their maximum figures it anyway.
  if (!full) {
    FigureBetMaximum(g, p, odds);
    if (g.Bet(p, odds) <= g.betting.BetMaximum) return;
  }
  TakeBetToMaximum(g, p, odds);
}

// Calls that a bet can't take: the line and contract bets and Fire.
bool Uncallable(int b) {
  return b == bet::kPassLine || b == bet::kDontPass || b == bet::kCome || b == bet::kDontCome ||
         IsComePoint(b) || IsDontComePoint(b) || b == bet::kFire;
}

void ToggleCall(Game& g, int p, int b, int tool) {
  const Long now = g.BetWorking(p, b);
  if ((tool == kToolCallOn && now == -1) || (tool == kToolCallOff && now == 2))
    ResetBetWorking(g, p, b);
  else
    g.BetWorking(p, b) = tool == kToolCallOn ? 2 : -1;
  g.roll.MarkBetChanged(p, b);
}

}  // namespace

void PlaceBet(Game& g, int p, int b, int /*x*/, int /*y*/) {
  BettingState& s = g.betting;
  if (!Valid(p, b) || SwitchedOff(g, b)) {
    s.BetChange = Currency{};
    return;
  }
  OpenBetChecked(g, p, b);
  const Currency change = s.BetChange;
  if (!change.IsZero()) {
    // A bet carried to its number (MoveBet) and a script's bets make no
    // sound; Hyper-Drive makes neither sound nor redraw.
    if (!g.HyperDrive) {
      if (!s.MovingBet && !g.scriptRun.ScriptRunning) PlayCheckSound(g);
      RedrawTable(g);
    }
    g.roll.SessionDirty = true;
  }
  FollowOdds(g, p, b);
  s.BetChange = change;  // what the caller asked about, not the odds
  s.PendingAction = kPendingNone;
}

void CarryBet(Game& g, int p, int from, int to) {
  BettingState& s = g.betting;
  if (!CarryBetChecked(g, p, from, to)) {
    const Currency amount = g.Bet(p, from);
    TakeBetDownChecked(g, p, from);
    s.MovingBet = true;
    g.BetRequest = amount;
    PlaceBet(g, p, to);
    s.MovingBet = false;
    return;
  }
  // PlaceBet's steps after a change: a carried bet makes no sound, and
  // Hyper-Drive no redraw.
  const Currency change = s.BetChange;
  g.roll.SessionDirty = true;
  s.MovingBet = true;
  FollowOdds(g, p, to);
  s.MovingBet = false;
  s.BetChange = change;
  s.PendingAction = kPendingNone;
}

void RemoveBet(Game& g, int p, int b) {
  if (!Valid(p, b)) return;
  if (g.Bet(p, b).IsZero()) return;
  g.BetRequest = -g.Bet(p, b);
  PlaceBet(g, p, b);
}

void TakeFullOdds(Game& g, int p) {
  if (!Seat(p)) return;
  if (g.Bet(p, bet::kPassLine) > Currency{} && g.Point > 0)
    TakeBetToMaximum(g, p, bet::kPassLineOdds);
  for (int b = bet::kComePointFirst; b <= bet::kComePointLast; ++b)
    if (g.Bet(p, b) > Currency{}) TakeBetToMaximum(g, p, OddsOf(b));
}

void LayFullOdds(Game& g, int p) {
  if (!Seat(p)) return;
  if (g.Bet(p, bet::kDontPass) > Currency{} && g.Point > 0) {
    RedrawTable(g);
    TakeBetToMaximum(g, p, bet::kDontPassOdds);
  }
  for (int b = bet::kDontComePointFirst; b <= bet::kDontComePointLast; ++b)
    if (g.Bet(p, b) > Currency{}) TakeBetToMaximum(g, p, OddsOf(b));
}

void BuyPlaceBet(Game& g, int p, int b) {
  if (!Valid(p, b)) return;
  if (!IsPlace(b) || g.Bet(p, b).IsZero()) {
    if (CanNotify(g, kNoticeNotAllowed))
      ShowNotice(g, "You may only buy Place bets.", "Action not allowed", kHelpBuyBets,
                 kMsgOk | kMsgHideNotAllowed);
    g.betting.BetChange = Currency{};
    return;
  }
  const Currency amount = g.Bet(p, b);
  const Long called = g.BetWorking(p, b);
  const int buy = b + (bet::kBuyFirst - bet::kPlaceFirst);
  RemoveBet(g, p, b);
  g.BetRequest = amount;
  PlaceBet(g, p, buy);
  if ((called == 2 || called == -1) && !g.Bet(p, buy).IsZero()) {
    g.BetWorking(p, buy) = called;
    g.roll.MarkBetChanged(p, buy);
  }
}

void CallBetOnOff(Game& g, int p, int b, int tool, bool byScript) {
  if (!Valid(p, b)) return;
  if (!IsRealBet(b) || g.Bet(p, b).IsZero()) return;
  if (Uncallable(b)) {
    if (CanNotify(g, kNoticeNotAllowed))
      ShowNotice(g, Cat("You may not call the ", BetName(b), " bet ON or OFF."),
                 "Action not allowed", kHelpWorkingBets, kMsgOk | kMsgHideNotAllowed);
    return;
  }
  if (byScript) {
    g.BetWorking(p, b) = tool == kToolCallOn ? 2 : -1;
    g.roll.MarkBetChanged(p, b);
  } else {
    ToggleCall(g, p, b, tool);
  }
  RedrawTable(g);
}

void CallAllBetsOnOff(Game& g, int p, int tool) {
  if (!Seat(p)) return;
  for (int b = 1; b <= kLastRealBet; ++b) {
    if (g.Bet(p, b).IsZero()) continue;
    if (b == bet::kPassLine || b == bet::kDontPass || b == bet::kDontCome || IsComePoint(b) ||
        IsDontComePoint(b))
      continue;
    ToggleCall(g, p, b, tool);
  }
  RedrawTable(g);
}

void ResetBetWorking(Game& g, int p, int b) {
  if (p < 0 || p > 8 || b < 0 || b > 85) return;
  ResetWorkingOf(g, p, b);
}

void RemoveAllBets(Game& g, int p) {
  if (!Seat(p)) return;
  const Long flags = g.rules.NoticeFlags;
  g.rules.NoticeFlags = 0;
  for (int b = 1; b <= kLastRealBet; ++b) RemoveBet(g, p, b);
  g.rules.NoticeFlags = flags;
}

std::string CommitKeyedAmount(Game& g, int p, int b, std::string_view text) {
  if (!Valid(p, b)) return "0";
  const Currency amount = ParseAmount(text);
  if (IsRealBet(b) && amount != g.Bet(p, b)) {
    g.TotalBets(p) -= g.Bet(p, b);
    g.Bet(p, b) = Currency{};
    g.roll.MarkBetChanged(p, b);
    g.BetRequest = amount;
    PlaceBet(g, p, b);
  }
  return PlainAmount(g.Bet(p, b));
}

Currency SelectedAmount(const Game& g, int p) {
  if (!Seat(p)) return Currency{};
  const Long sel = g.rules.SelectedCheck;
  if (sel >= 1 && sel <= 5) return g.CheckValue(sel);
  if (sel >= 7 && sel <= 10) {
    const int id = g.betting.CheckStackSlot(p, sel - 6);
    if (IsCheckStack(id)) return g.Bet(p, id);
  }
  return Currency{};
}

void ClickOnBet(Game& g, int b, BetClick click) {
  BettingState& s = g.betting;
  const int p = s.CurPlayer;
  if (p < 1 || p > 8 || g.PlayerName[p].empty()) {
    if (g.PlayerCount == 0)
      ShowNotice(g,
                 "If you'd like to make a bet, please click an\ropen position on the rail to add a "
                 "player.",
                 "No Players Present", kHelpNone, kMsgOk);
    else
      ShowNotice(g, "If you'd like to make a bet, please select a player.", "Bettor Not Selected",
                 kHelpNone, kMsgOk);
    return;
  }
  const int pending = s.PendingAction;
  s.PendingAction = kPendingNone;
  if (pending == kPendingCallOn || pending == kPendingCallOff) {
    CallBetOnOff(g, p, b, pending == kPendingCallOn ? kToolCallOn : kToolCallOff);
    return;
  }
  if (pending == kPendingBuy) return BuyPlaceBet(g, p, b);
  if (pending == kPendingRemove) return RemoveBet(g, p, b);
  const Long tool = g.rules.SelectedCheck;
  if (tool == kToolBuy) return BuyPlaceBet(g, p, b);
  if (tool == kToolCallOff || tool == kToolCallOn) return CallBetOnOff(g, p, b, tool);

  if (click != BetClick::Plain && (b == bet::kDontPassOdds || IsDontComeOdds(b)) &&
      g.Bet(p, b).IsZero())
    b = FlatOf(b);
  if (click == BetClick::Plain)
    g.BetRequest = SelectedAmount(g, p);
  else if (click == BetClick::Ctrl)
    g.BetRequest = -SelectedAmount(g, p);
  else
    g.BetRequest = -g.Bet(p, b);
  PlaceBet(g, p, b);
}

Currency LiftBet(Game& g, int b) {
  const int p = g.betting.CurPlayer;
  if (p < 1 || p > 8 || g.PlayerName[p].empty() || !(IsRealBet(b) || IsCheckStack(b)))
    return Currency{};
  if ((b == bet::kDontPassOdds || IsDontComeOdds(b)) && g.Bet(p, b).IsZero()) b = FlatOf(b);
  g.BetRequest = -g.Bet(p, b);
  PlaceBet(g, p, b);
  return -g.betting.BetChange;
}

void DropLiftedAmount(Game& g, int target, Currency amount) {
  const int p = g.betting.CurPlayer;
  if (p < 1 || p > 8 || amount.IsZero() || !(IsRealBet(target) || IsCheckStack(target))) return;
  g.BetRequest = amount;
  PlaceBet(g, p, target);
}
