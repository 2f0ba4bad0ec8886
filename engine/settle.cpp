#include "engine/settle.h"

#include <string>

#include "config/sound.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/place.h"
#include "engine/settle_text.h"

namespace {

bool CanShow(const Game& g) { return !g.HyperDrive && g.platform != nullptr; }

// BetRequest through the one gate; the bet is redrawn outside Hyper-Drive.
void Request(Game& g, int p, Currency change, bool redraw = true) {
  g.BetRequest = change;
  if (change.IsZero())
    KeepBetChecked(g, p, g.CurBet);
  else
    ChangeBetChecked(g, p, g.CurBet);
  if (redraw && CanShow(g)) g.platform->RequestRedraw(Redraw::Table);
}

// Request of minus the whole bet: the bet comes down through the gate.
void RequestTakeDown(Game& g, int p) {
  TakeBetDownChecked(g, p, g.CurBet);
  if (CanShow(g)) g.platform->RequestRedraw(Redraw::Table);
}

// The notice that tells what became of the bet against the bet at the roll,
// built only when shown.
[[gnu::cold]] [[gnu::noinline]] void ShowActionNotice(Game& g, int p, std::string_view title) {
  const Currency now = g.Bet(p, g.CurBet), before = g.BetAtRoll(p, g.CurBet);
  std::string text = Cat(g.PlayerName[p], ",\r\r", BetName(g.CurBet), " bet ");
  if (now > before)
    text += Cat("increased by: $", FormatMoney(now - before));
  else if (now < before)
    text += Cat("decreased by: $", FormatMoney(before - now));
  else
    text += "remains the same.";
  ShowNotice(g, text, title, kHelpNone, kMsgOk | kMsgHideCharges);
}

// ShowActionNotice where a notice may be shown: the settling in Hyper-Drive
// makes no call for it.
void ActionNotice(Game& g, int p, std::string_view title) {
  if (CanShow(g) && (g.rules.NoticeFlags & kNoticeCharges) != 0) ShowActionNotice(g, p, title);
}

// CurMul(n, m) for an amount n and a units multiplier m, which is 1 for
// whole dollars: n times 1 is n exactly (the product in ten-thousandths
// divides by the scale without a remainder), so no product is made then.
Currency TimesUnits(Currency n, Currency m) {
  return m == Currency::FromWhole(1) ? n : CurMul(n, m);
}

int UnitsIndex(Currency units) {
  // Below one whole unit (most rules count in dollars, units 0) the index
  // is 0 without a division.
  if (units.raw < Currency::kScale) return 0;
  const std::int64_t u = units.raw / Currency::kScale;
  return u > 6 ? 6 : static_cast<int>(u);
}

// Vig of a Lay or Buy bet settled now: up front it leaves TotalBets; the
// stored figure is spent either way.
Currency* VigEntry(Game& g, int p, int b, bool* upFront) {
  if (IsLay(b)) {
    *upFront = g.rules.LayVigUpFront;
    return &g.LayVig(p, b - bet::kLayFirst);
  }
  if (IsBuy(b)) {
    *upFront = g.rules.BuyVigUpFront;
    return &g.BuyVig(p, b - bet::kBuyFirst);
  }
  return nullptr;
}

// Rule 0 acts as rule 1 where no dialog may be shown.
int EffectiveRule(const Game& g, int rule) {
  if (rule < 0 || rule > 7) return 1;
  return rule == 0 && !CanShow(g) ? 1 : rule;
}

// PressUnit is read only by the dialog and by the Press 1 Unit rule, so the
// settling figures it (a few divisions in doubles) only for those two.
bool ReadsPressUnit(int rule, int manual, int pressUnit) {
  return rule == manual || rule == pressUnit;
}

// The notices of AdjustSameBet and SetBetAmount, whose titles tell the rule:
// built only when shown, out of the way of the settling itself.
[[gnu::cold]] [[gnu::noinline]] void AdjustNotice(Game& g, int p, int op, int u, Currency n,
                                                  Currency m) {
  static constexpr const char* kHead[4] = {"Same bet plus ", "Same bet minus ", "Same bet times ",
                                           "Same bet divided by "};
  std::string title = kHead[op < 0 || op > 3 ? 0 : op];
  if (u == 0) {
    title += Cat(op <= 1 ? "$" : "", PlainAmount(n));
  } else if (u == 1) {
    title += Cat(PlainAmount(n), "%");
  } else {
    title += Cat(op == 1 ? "$" : "", PlainAmount(n), " $", PlainAmount(m), " units");
  }
  ActionNotice(g, p, title);
}

[[gnu::cold]] [[gnu::noinline]] void SetAmountNotice(Game& g, int p, int u, Currency n,
                                                     Currency m) {
  std::string title;
  if (u == 0)
    title = Cat("Bet $", PlainAmount(n));
  else if (u == 1)
    title = Cat("Bet ", PlainAmount(n), "%");
  else
    title = Cat("Bet ", PlainAmount(n), " $", PlainAmount(m), " units");
  ActionNotice(g, p, title);
}

void ShowDialogOf(Game& g, int p, SettleKind kind) {
  g.autoplay.Dialog.kind = kind;
  g.autoplay.Dialog.player = p;
  ShowSettleDialog(g, p);
}

}  // namespace

// Out of line: the settling asks it for two rules only, and its doubles
// would crowd the two entry points that take everything else in line.
[[gnu::noinline]] void FigurePressUnit(Game& g, int p, int b) {
  const double unit = g.PayoffTbl(0, b).ToDouble(), smallest = g.CheckValue(1).ToDouble();
  const Currency bet = g.Bet(p, b);
  const double below = bet.ToDouble() + 1.0;
  Currency x;
  for (int i = 5; i >= 1; --i) {
    const double figure = unit * g.CheckValue(i).ToDouble() / smallest;
    // A unit a dollar or more above the bet rounds to no amount below it:
    // the next smaller check is tried without rounding this one (the last
    // is rounded always, as it is what stays when none divides the bet).
    if (i > 1 && figure >= below) continue;
    x = CurFromDouble(figure);
    if (x > Currency{} && x < bet && IsWhole(bet.ToDouble() / x.ToDouble())) break;
  }
  g.autoplay.PressUnit = x;
}

// The two entry points the roll calls for nearly every decision take the
// actions and their small helpers in line (flatten), so that a bet settled
// in Hyper-Drive goes from here straight to the gate.
[[gnu::flatten]] void SettleWinner(Game& g, int p) {
  const int b = g.CurBet;
  // No sound plays in Hyper-Drive, so no call is made for one there.
  if (!g.HyperDrive) PlayWinSound(g, g.autoplay.HandleWinningBets(p) != kWinManual);
  bool upFront = false;
  if (Currency* vig = VigEntry(g, p, b, &upFront)) {
    if (upFront) g.TotalBets(p) -= *vig;
    g.NetPayoff += *vig;
    *vig = Currency{};
  }
  const int rule = EffectiveRule(g, g.autoplay.HandleWinningBets(p));
  if (ReadsPressUnit(rule, kWinManual, kWinPressUnit)) FigurePressUnit(g, p, b);
  switch (rule) {
    case kWinManual:
      ShowDialogOf(g, p, SettleKind::Winner);
      return;
    case kWinTakeDown:
      TakeBetDown(g, p);
      return;
    default:
      break;
  }
  if (g.BetComesDown) {
    TakeBetDown(g, p);
    return;
  }
  switch (g.autoplay.HandleWinningBets(p)) {
    case kWinSameBet:
      SameBet(g, p);
      break;
    case kWinPressUnit:
      PressOneUnit(g, p);
      break;
    case kWinPressDouble:
      PressDouble(g, p);
      break;
    case kWinParlay:
      ParlayBet(g, p);
      break;
    case kWinAdjust:
      AdjustSameBet(g, p, kAdjustAutoWinSame);
      break;
    case kWinSetAmount:
      SetBetAmount(g, p, kAdjustAutoWinBet);
      break;
    default:
      break;
  }
}

[[gnu::flatten]] void SettleLoser(Game& g, int p) {
  const int b = g.CurBet;
  const int rule = EffectiveRule(g, g.autoplay.HandleLosingBets(p));
  if (rule == kLoseManual) {
    if (g.BetAtRoll(p, b) > Currency{})
      FillSettleLines(g, p, SettleKind::Loser);
    else
      g.autoplay.Dialog.lineCount = 0;
  }
  bool upFront = false;
  if (Currency* vig = VigEntry(g, p, b, &upFront)) {
    if (upFront) g.TotalBets(p) -= *vig;
    *vig = Currency{};
  }
  if (ReadsPressUnit(rule, kLoseManual, kLosePressUnit)) FigurePressUnit(g, p, b);
  switch (rule) {
    case kLoseManual:
      ShowDialogOf(g, p, SettleKind::Loser);
      return;
    case kLoseTakeDown:
      TakeBetDown(g, p);
      return;
    default:
      break;
  }
  if (g.BetComesDown) {
    TakeBetDown(g, p);
    return;
  }
  switch (rule) {
    case kLoseSameBet:
      SameBet(g, p);
      break;
    case kLoseRemainder:
      BetRemainder(g, p);
      break;
    case kLosePressUnit:
      PressOneUnit(g, p);
      break;
    case kLosePressDouble:
      PressDouble(g, p);
      break;
    case kLoseAdjust:
      AdjustSameBet(g, p, kAdjustAutoLoseSame);
      break;
    case kLoseSetAmount:
      SetBetAmount(g, p, kAdjustAutoLoseBet);
      break;
    default:
      break;
  }
}

void SettleNotWorking(Game& g, int p) {
  const int b = g.CurBet;
  g.NetPayoff = Currency{};
  const int flat = FlatOf(b);
  if (flat == 0 || g.Bet(p, flat).IsZero() || !g.rules.AllowPutBets || IsLineOdds(b))
    g.BetComesDown = true;
  const int stored = flat != 0 && g.BetTrend(p, flat, 1) >= 2 ? g.autoplay.HandleWinningBets(p)
                                                              : g.autoplay.HandleLosingBets(p);
  // Either table's number is acted on as the winning table names it: the
  // off bet is no decision, so the losing table's own actions do not apply.
  const int rule = EffectiveRule(g, stored);
  if (ReadsPressUnit(rule, kWinManual, kWinPressUnit)) FigurePressUnit(g, p, b);
  if (rule == kWinManual) {
    FillSettleLines(g, p, SettleKind::NotWorking);
    ShowDialogOf(g, p, SettleKind::NotWorking);
    return;
  }
  if (rule == kWinTakeDown || g.BetComesDown) {
    TakeBetDown(g, p);
    return;
  }
  switch (rule) {
    case kWinSameBet:
      SameBet(g, p);
      break;
    case kWinPressUnit:
      PressOneUnit(g, p);
      break;
    case kWinPressDouble:
    case kWinParlay:
      PressDouble(g, p);
      break;
    case kWinAdjust:
      AdjustSameBet(g, p, kAdjustAutoLoseSame);
      break;
    case kWinSetAmount:
      SetBetAmount(g, p, kAdjustAutoLoseBet);
      break;
    default:
      break;
  }
}

void TakeBetDown(Game& g, int p) {
  RequestTakeDown(g, p);
  g.BetComesDown = false;
}

void SameBet(Game& g, int p) {
  if (!CanShow(g)) {  // the amount before is read only for the notice
    Request(g, p, Currency{}, false);
    return;
  }
  const Currency before = g.Bet(p, g.CurBet);
  Request(g, p, Currency{}, false);
  if (g.Bet(p, g.CurBet) != before) ActionNotice(g, p, "Same Bet");
}

void PressOneUnit(Game& g, int p) {
  Request(g, p, g.autoplay.PressUnit);
  ActionNotice(g, p, "Press 1 Unit");
}

void PressDouble(Game& g, int p) {
  Request(g, p, g.Bet(p, g.CurBet));
  ActionNotice(g, p, "Press Double");
}

void ParlayBet(Game& g, int p) {
  AutoPlayState& a = g.autoplay;
  const Long lay = a.LayBias(p), place = a.PlaceBias(p), doBias = a.DoBias(p), dont = a.DontBias(p);
  a.LayBias(p) = a.PlaceBias(p) = a.DoBias(p) = a.DontBias(p) = 2;  // round the win down
  Request(g, p, g.NetPayoff);
  a.LayBias(p) = lay;
  a.PlaceBias(p) = place;
  a.DoBias(p) = doBias;
  a.DontBias(p) = dont;
  ActionNotice(g, p, "Parlay");
}

void BetRemainder(Game& g, int p) {
  RequestTakeDown(g, p);
  Request(g, p, g.NetPayoff + g.BetAtRoll(p, g.CurBet));
  if (g.Bet(p, g.CurBet) > Currency{}) ActionNotice(g, p, "Bet remainder");
}

namespace {

// AdjustMultiplier for the units index u of the slot, read once by the caller.
Currency MultiplierOfUnits(const Game& g, int p, int u) {
  if (u == 0) return Currency::FromWhole(1);
  if (u == 1) return CurFromDouble(g.BetAtRoll(p, g.CurBet).ToDouble() / 100.0);
  return CurMul(g.CheckValue(u - 1), g.PayoffTbl(0, g.CurBet));
}

}  // namespace

Currency AdjustMultiplier(const Game& g, int p, int k) {
  return MultiplierOfUnits(g, p, UnitsIndex(g.autoplay.AdjustUnits(p, k)));
}

Currency UnitMultiplier(const Game& g, int u) {
  if (u <= 1) return Currency::FromWhole(1);
  if (u > 6) u = 6;
  return CurFromDouble(g.PayoffTbl(0, g.CurBet).ToDouble() * g.CheckValue(u - 1).ToDouble() /
                       g.CheckValue(1).ToDouble());
}

void AdjustSameBet(Game& g, int p, int k) {
  const int u = UnitsIndex(g.autoplay.AdjustUnits(p, k));
  const Currency n = g.autoplay.AdjustAmount(p, k);
  const Currency B = g.BetAtRoll(p, g.CurBet);
  Currency m = MultiplierOfUnits(g, p, u);
  const int op = g.autoplay.AdjustOperator(p, k);
  if ((op == 2 || op == 3) && u == 1) m = Currency::FromRaw(100);  // 0.01
  Currency request;
  switch (op) {
    case 0:
      request = TimesUnits(n, m);
      break;
    case 1:
      request = -TimesUnits(n, m);
      break;
    case 2:
      request = CurMul(CurMul(B, n), m) - B;
      break;
    case 3: {
      const Currency divisor = CurMul(n, m);
      request = n > Currency{} && divisor > Currency{}
                    ? CurFromDouble(B.ToDouble() / divisor.ToDouble()) - B
                    : Currency{};
      break;
    }
    default:
      break;
  }
  Request(g, p, request);
  if (CanShow(g)) AdjustNotice(g, p, op, u, n, m);  // the title is only for the notice
}

void SetBetAmount(Game& g, int p, int k) {
  const int u = UnitsIndex(g.autoplay.AdjustUnits(p, k));
  const Currency n = g.autoplay.AdjustAmount(p, k);
  // Units 1 ("%", which only the Auto-Play options offer here) is a percent
  // of the bet as it stood at the roll; 2..6 a proper unit in checks.
  const Currency m =
      u == 1 ? CurFromDouble(g.BetAtRoll(p, g.CurBet).ToDouble() / 100.0) : UnitMultiplier(g, u);
  if (g.HyperDrive) {  // no redraw between the two
    ReplaceBetChecked(g, p, g.CurBet, TimesUnits(n, m));
    return;
  }
  RequestTakeDown(g, p);
  Request(g, p, TimesUnits(n, m));
  if (CanShow(g)) SetAmountNotice(g, p, u, n, m);
}
