// The settle dialog's content: lines, caption, buttons, rows, and the action
// of the button pressed.
#include <string>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "engine/settle.h"
#include "engine/settle_text.h"

namespace {

void AddLine(SettleDialog& d, std::string label, const Currency* amount) {
  if (d.lineCount >= static_cast<int>(d.lines.size())) return;
  SettleDialogLine& line = d.lines[d.lineCount++];
  line.label = std::move(label);
  line.amount = amount ? Cat("$", FormatMoney(*amount)) : std::string();
}

void AddLine(SettleDialog& d, std::string label, Currency amount) {
  AddLine(d, std::move(label), &amount);
}

// "Payoff at a to d:" or "Payoff at a + d for d:"; a loser's loss reads "Loss at".
std::string PayoffLabel(const Game& g, bool loser) {
  const Currency a = g.PayoffTbl(1, 0), flag = g.PayoffTbl(2, 0), d = g.PayoffTbl(3, 0);
  const char* head = loser && a < Currency{} ? "Loss at " : "Payoff at ";
  if (!flag.IsZero()) return Cat(head, PlainAmount(a), " to ", PlainAmount(d), ":");
  return Cat(head, PlainAmount(a + d), " for ", PlainAmount(d), ":");
}

// Share of the bet that one part of a split bet stands for.
Currency PartOf(Currency bet, int parts, int count) {
  return CurFromDouble(bet.ToDouble() * count / parts);
}

const char* const kOperatorCaption[4] = {"+", "-", "x", "/"};

std::string UnitsCaption(const Game& g, int u) {
  if (u == 0) return "$";
  if (u == 1) return "%";
  return Cat("$", PlainAmount(UnitMultiplier(g, u)), " Units");
}

int UnitsOf(Currency units) {
  const std::int64_t u = units.raw / Currency::kScale;
  return u < 0 ? 0 : u > 6 ? 6 : static_cast<int>(u);
}

}  // namespace

void FillSettleLines(Game& g, int p, SettleKind kind) {
  SettleDialog& d = g.autoplay.Dialog;
  d.player = p;
  d.kind = kind;
  d.lineCount = 0;
  d.lines = {};
  const int b = g.CurBet;
  const Currency bet = g.Bet(p, b);
  const std::string name(BetName(b));
  if (kind == SettleKind::NotWorking) {
    AddLine(d, Cat(name, " bet:"), bet);
    AddLine(d, "wasn't working!", nullptr);
    return;
  }
  const bool loser = kind == SettleKind::Loser;
  if (b == bet::kFire) {
    AddLine(d,
            Cat(name, " bet (", std::to_string(g.PointsMade),
                g.PointsMade == 1 ? " point made):" : " points made):"),
            bet);
  } else {
    AddLine(d, Cat(name, " bet:"), bet);
  }
  const bool rounded = g.NetPayoff != g.GrossPayoff;
  const std::string netLabel =
      Cat(loser ? "Net loss" : "Net payoff", rounded ? " (rounded): " : ": ");
  const Currency vig = g.autoplay.VigCharged;
  if (IsLay(b) || IsBuy(b)) {
    AddLine(d, PayoffLabel(g, loser), g.GrossPayoff + vig);
    const Currency rate = IsLay(b) ? g.rules.LayVigRate : g.rules.BuyVigRate;
    AddLine(d, Cat(PlainAmount(-CurMulInt(rate, 100)), "% vig:"), -vig);
    AddLine(d, netLabel, g.NetPayoff);
    // A loser's remainder is figured with the vig given back.
    if (loser) g.NetPayoff += vig;
  } else if (IsSplit(b) && !loser) {
    const int parts = b == bet::kCandE ? 2 : b == bet::kHorn ? 4 : 5;
    static constexpr const char* kPart[3] = {"1/2", "1/4", "1/5"};
    static constexpr const char* kRest[3] = {"1/2", "3/4", "4/5"};
    const int i = b - bet::kCandE;
    const Currency rest = PartOf(bet, parts, parts - 1);
    AddLine(d, Cat(kPart[i], " of bet:"), PartOf(bet, parts, 1));
    AddLine(d, PayoffLabel(g, loser), g.GrossPayoff + rest);
    AddLine(d, Cat("Less ", kRest[i], " of bet:"), -rest);
    AddLine(d, netLabel, g.NetPayoff);
  } else {
    AddLine(d, PayoffLabel(g, loser), g.GrossPayoff);
    if (rounded) AddLine(d, netLabel, g.NetPayoff);
  }
  if (loser) AddLine(d, "Remainder: ", bet + g.NetPayoff);
}

void BuildSettleDialog(Game& g, int p) {
  SettleDialog& d = g.autoplay.Dialog;
  d.player = p;
  const std::string& name = g.PlayerName[p];
  const std::string press =
      Cat("Press &1 Unit - Add $", PlainAmount(g.autoplay.PressUnit), " to Bet");
  const char* captions[7] = {};
  int k = kAdjustDialogLose;
  switch (d.kind) {
    case SettleKind::Winner:
      d.caption = Cat(name, g.NetPayoff.IsZero() ? " pushes" : " wins!");
      captions[0] = "&Take Bet and Winnings";
      captions[1] = "&Same Bet - Take Winnings";
      captions[2] = nullptr;  // press caption
      captions[3] = "Press - Add Winnings to &Double Bet";
      captions[4] = "Parlay - Add &All Winnings to Bet";
      k = kAdjustDialogWin;
      break;
    case SettleKind::Loser:
      d.caption = Cat(name, " lost");
      captions[0] = "&No Bet/Take Remainder";
      captions[1] = "&Same Bet";
      captions[2] = "Bet &Remainder";
      captions[3] = nullptr;
      captions[4] = "&Double Bet";
      break;
    case SettleKind::NotWorking:
      d.caption = name;
      captions[0] = g.BetComesDown ? "&Take Returned Bet" : "&No Bet/Take Back";
      captions[1] = "&Same Bet";
      captions[2] = nullptr;
      captions[3] = "Press - &Double Bet";
      captions[4] = "Take M&ax Odds";
      break;
  }
  captions[5] = "Sa&me Bet:";
  captions[6] = "&Bet:";
  for (int i = 0; i < 7; ++i) {
    d.buttons[i].caption = captions[i] ? captions[i] : press;
    d.buttons[i].enabled = i == 0 || !g.BetComesDown;
  }

  const AutoPlayState& a = g.autoplay;
  for (int r = 0; r < 2; ++r) {
    SettleDialogRow& row = d.rows[r];
    row.mathOperator = r == 0 ? a.AdjustOperator(p, k) & 3 : 0;
    row.amount1 = a.AdjustAmount(p, k + r);
    row.units = UnitsOf(a.AdjustUnits(p, k + r));
    if (r == 1 && row.units == 1) row.units = 0;  // the "&Bet:" row has no "%"
    row.amount2 = row.units >= 2 ? UnitMultiplier(g, row.units) : Currency{};
    row.operatorCaption = r == 0 ? kOperatorCaption[row.mathOperator] : "";
    row.unitsCaption = UnitsCaption(g, row.units);
    row.enabled = !g.BetComesDown;
  }

  int def = g.NetPayoff < Currency{} ? a.LastLoseButton(p) : a.LastWinButton(p);
  if (def < 0 || def > 6 || !d.buttons[1].enabled) def = 0;
  d.defaultButton = def;
  d.snapCursor = g.rules.SnapCursorToButton;
}

void ShowSettleDialog(Game& g, int p) {
  BuildSettleDialog(g, p);
  SettleDialog& d = g.autoplay.Dialog;
  const int button = g.platform ? g.platform->ShowSettleDialog(d) : d.defaultButton;
  PressSettleButton(g, p, button);
}

void PressSettleButton(Game& g, int p, int button) {
  SettleDialog& d = g.autoplay.Dialog;
  if (button < 0 || button > 6 || !d.buttons[button].enabled) button = 0;
  AutoPlayState& a = g.autoplay;
  const bool loser = g.NetPayoff < Currency{};
  const int k = loser ? kAdjustDialogLose : kAdjustDialogWin;
  a.AdjustAmount(p, k) = d.rows[0].amount1;
  a.AdjustAmount(p, k + 1) = d.rows[1].amount1;
  a.AdjustOperator(p, k) = d.rows[0].mathOperator & 3;
  a.AdjustUnits(p, k) = Currency::FromWhole(d.rows[0].units);
  a.AdjustUnits(p, k + 1) = Currency::FromWhole(d.rows[1].units);

  switch (button) {
    case 0:
      TakeBetDown(g, p);
      break;
    case 1:
      SameBet(g, p);
      break;
    case 2:
      loser ? BetRemainder(g, p) : PressOneUnit(g, p);
      break;
    case 3:
      loser ? PressOneUnit(g, p) : PressDouble(g, p);
      break;
    case 4:
      loser ? PressDouble(g, p) : ParlayBet(g, p);
      break;
    case 5:
      AdjustSameBet(g, p, k);
      break;
    case 6:
      SetBetAmount(g, p, k + 1);
      break;
    default:
      break;
  }
  (loser ? a.LastLoseButton(p) : a.LastWinButton(p)) = button;

  for (int i = 1; i <= 3 && i < d.lineCount; ++i) d.lines[i] = {};
  for (SettleDialogButton& b : d.buttons) b.enabled = true;
  for (SettleDialogRow& r : d.rows) r.enabled = true;
}

int NextSettleUnits(int units, int row) {
  int next = units >= 6 || units < 0 ? 0 : units + 1;
  if (row == 1 && next == 1) next = 2;
  return next;
}

void StepSettleOperator(Game& g, int row) {
  SettleDialogRow& r = g.autoplay.Dialog.rows[row & 1];
  if (row != 0) return;  // only the "Sa&me Bet:" row has an operator
  r.mathOperator = (r.mathOperator + 1) & 3;
  r.operatorCaption = kOperatorCaption[r.mathOperator];
}

void StepSettleUnits(Game& g, int row) {
  SettleDialogRow& r = g.autoplay.Dialog.rows[row & 1];
  r.units = NextSettleUnits(r.units, row & 1);
  r.amount2 = r.units >= 2 ? UnitMultiplier(g, r.units) : Currency{};
  r.unitsCaption = UnitsCaption(g, r.units);
}

AmountColor SettleAmountColor(const SettleDialogRow& r, int row) {
  if (r.amount1.IsZero()) return AmountColor::Black;
  return row == 0 && r.mathOperator == 1 ? AmountColor::Red : AmountColor::Blue;
}
