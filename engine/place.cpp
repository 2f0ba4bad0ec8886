// SetBetChecked: the contract rules, the table's limits, the proper-odds
// adjustment, the bankroll and the vig, in that order, then the write.
#include "engine/place.h"

#include <algorithm>
#include <array>
#include <string>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "core/platform.h"
#include "engine/bankroll.h"
#include "engine/place_internal.h"
#include "engine/settle_text.h"

namespace {

// What the contract rules leave for the rest of the call.
enum class Next { Free, Apply, Return };

constexpr const char* kPutClause =
    "\r\r(Unless you check \"Allow Put Bets\" on the\rConfiguration screen.)";

// The clause that tells a removed Don't or Fire bet may be put back up to C.
std::string RestoreClause(Currency bet, Currency contract) {
  return Cat("\r\rHowever, you're allowed to restore up to $", PlainAmount(contract),
             " here because it was previously established and the dice have not rolled since you ",
             bet > Currency{} ? "partially " : "", "removed it.");
}

// A notice of the class Actions not allowed: the player's name, then text.
[[gnu::cold]] [[gnu::noinline]] void RefuseNotice(Game& g, int p, int b, std::string_view text,
                                                  int help) {
  if (!CanNotify(g, kNoticeNotAllowed)) return;
  ShowNotice(g, Cat(g.PlayerName[p], ",\r\r", text), BetTitle(b), help,
             kMsgOk | kMsgHideNotAllowed);
}

// The refusals whose text is put together: built only when shown, out of the
// way of the rules' straight path.
[[gnu::cold]] [[gnu::noinline]] void RefusePut(Game& g, int p, int b, const char* text, int help) {
  RefuseNotice(g, p, b, Cat(text, kPutClause), help);
}

[[gnu::cold]] [[gnu::noinline]] void RefuseRestore(Game& g, int p, int b, const char* text,
                                                   bool restore, int help) {
  const Currency B = g.Bet(p, b), C = g.BetContract(p, b);
  RefuseNotice(g, p, b, Cat(text, restore ? RestoreClause(B, C) : std::string()), help);
}

[[gnu::cold]] [[gnu::noinline]] void RefuseOddsWithoutFlat(Game& g, int p, int b) {
  RefuseNotice(g, p, b,
               Cat("You may not make a ", BetName(b), " bet \runtil you've established a ",
                   BetName(b - 6), " bet."),
               IsComeOdds(b) ? kHelpComeBet : kHelpDontComeBet);
}

// Amounts are stepped in CheckValue(1): a positive change up to the next
// multiple, a negative one down to the next, never below minus the bet.
Currency RoundChange(Currency change, Currency unit, Currency bet) {
  // A change of no more than minus the bet is rounded only further down, so
  // it ends at -bet without a division (every take-down).
  if (change.raw <= 0 && change <= -bet) return -bet;
  if (unit.raw > 0 && change.raw != 0) {  // no change is a multiple of any unit
    std::int64_t q = change.raw / unit.raw, r = change.raw % unit.raw;
    if (r < 0) --q;
    if (r != 0) change = Currency::FromRaw(q * unit.raw + (change.raw > 0 ? unit.raw : 0));
  }
  return change < -bet ? -bet : change;
}

// The bets the contract rules can act on: the line, Come and Don't Come bets
// on their boxes and numbers, their odds, and Fire. Any other bet is free.
constexpr bool UnderContract(int b) {
  return b == bet::kPassLine || b == bet::kDontPass || b == bet::kCome || b == bet::kDontCome ||
         IsLineOdds(b) || b == bet::kFire || IsComePoint(b) || IsDontComePoint(b) ||
         IsComeOdds(b) || IsDontComeOdds(b);
}

constexpr auto kUnderContract = [] {
  std::array<bool, kLastRealBet + 1> under{};
  for (int b = 0; b <= kLastRealBet; ++b) under[static_cast<std::size_t>(b)] = UnderContract(b);
  return under;
}();

Next ContractRules(Game& g, int p, int b) {
  BettingState& s = g.betting;
  const Currency B = g.Bet(p, b);
  const bool point = g.Point > 0;
  const bool comePoint = IsComePoint(b);
  // The contract, the new total and whether a notice may be shown are read
  // where a rule needs them: most calls pass on the bet id and the sign of
  // the change alone. Every path reads the contract before it shows a
  // notice, and keeps what it read.
  Currency contract;
  bool contractRead = false;
  auto C = [&] {
    if (!contractRead) {
      contract = g.BetContract(p, b);
      contractRead = true;
    }
    return contract;
  };
  auto N = [&] { return B + s.BetChange; };
  // Texts are built only when they will be shown: never in Hyper-Drive.
  auto tell = [&] { return CanNotify(g, kNoticeNotAllowed); };

  if (s.BetChange.IsZero()) {
    if ((b == bet::kPassLine || comePoint) && point && B < C()) {
      if (tell())
        RefuseNotice(g, p, b,
                     b == bet::kPassLine
                         ? "You may not decrease or remove your Pass Line bet \rwhile a "
                           "point is established."
                         : "You may not decrease or remove an established Come bet.",
                     kHelpContractBets);
      s.BetChange = C() - B;
    }
    return Next::Free;
  }

  if (s.BetChange < Currency{}) {
    if (comePoint || (b == bet::kPassLine && point)) {
      if (B == C()) {
        if (tell())
          RefuseNotice(
              g, p, b,
              comePoint
                  ? "You may not decrease or remove a Come bet \rwhich is established on a point."
                  : "You may not decrease or remove a Pass Line bet \rwhile a point is "
                    "established.",
              kHelpContractBets);
        s.BetChange = Currency{};
        return Next::Return;
      }
      if (N() >= C()) return Next::Free;
      s.BetChange = C() - B;
      return Next::Apply;
    }
    return Next::Free;
  }

  // A positive change.
  const bool put = g.rules.AllowPutBets;
  auto cutToContract = [&](bool returnWhenZero) {
    s.BetChange = C() - B;
    return returnWhenZero && s.BetChange.IsZero() ? Next::Return : Next::Apply;
  };
  switch (b) {
    case bet::kPassLine:
      if (!point || (N() >= C() && put)) return Next::Free;
      if (N() >= C()) {
        if (tell())
          RefusePut(g, p, b,
                    "You may not make or increase a Pass Line bet \rwhile a point is established.",
                    kHelpPutBets);
        return cutToContract(true);
      }
      if (tell())
        RefuseNotice(
            g, p, b,
            "You may not decrease or remove a Pass Line bet \rwhile a point is established.",
            kHelpContractBets);
      return cutToContract(false);
    case bet::kCome:
    case bet::kDontCome:
      if (point) return Next::Free;
      if (tell())
        RefuseNotice(g, p, b,
                     b == bet::kCome
                         ? "You may not make a Come bet \runtil a point is established."
                         : "You may not make a Don't Come bet \runtil a point is established.",
                     b == bet::kCome ? kHelpComeBet : kHelpDontComeBet);
      s.BetChange = Currency{};
      return Next::Return;
    case bet::kDontPass:
      if (!point || N() <= C()) return Next::Free;
      if (tell())
        RefuseRestore(
            g, p, b,
            "You may not make or increase a Don't Pass bet \rwhile a point is established.",
            C() > Currency{}, kHelpDontPassBet);
      return cutToContract(false);
    case bet::kPassLineOdds:
    case bet::kDontPassOdds: {
      const bool pass = b == bet::kPassLineOdds;
      if (!g.Bet(p, pass ? bet::kPassLine : bet::kDontPass).IsZero() && g.Point != 0)
        return Next::Free;
      if (tell())
        RefuseNotice(
            g, p, b,
            pass ? "You may not make a Pass Line Odds bet unless \ryou also have a Pass Line bet "
                   "and a point is established."
                 : "You may not make a Don't Pass Odds bet unless \ryou also have a Don't Pass "
                   "bet and a point is established.",
            pass ? kHelpPassLineBet : kHelpDontPassBet);
      s.BetChange = Currency{};
      return Next::Return;
    }
    case bet::kFire:
      if (g.RollTally(kTableHand, kEventRolls) == 0 || N() <= C()) return Next::Free;
      if (tell())
        RefuseRestore(
            g, p, b,
            "You may not make or increase a Fire bet \rafter the shooter has started a hand.",
            B < C(), kHelpPutBets);
      return cutToContract(true);
    default:
      break;
  }
  if (comePoint) {
    if (s.MovingBet || (N() > C() && put)) return Next::Free;
    if (N() > C()) {
      if (tell())
        RefusePut(g, p, b, "You may not make or increase a Come bet \rdirectly on a point number.",
                  kHelpPutBets);
      return cutToContract(true);
    }
    if (N() < C())
      RefuseNotice(g, p, b,
                   "You may not decrease or remove a Come bet \rwhich is established on a point.",
                   kHelpContractBets);
    return cutToContract(false);
  }
  if (IsDontComePoint(b)) {
    if (s.MovingBet || N() <= C()) return Next::Free;
    if (tell())
      RefuseRestore(g, p, b,
                    "You may not make or increase a Don't Come bet \rdirectly on a point number.",
                    C() > Currency{}, kHelpDontComeBet);
    return cutToContract(false);
  }
  if (IsComeOdds(b) || IsDontComeOdds(b)) {
    if (!g.Bet(p, b - 6).IsZero()) return Next::Free;
    if (tell()) RefuseOddsWithoutFlat(g, p, b);
    s.BetChange = Currency{};
    return Next::Return;
  }
  return Next::Free;
}

// Up-front vig that bet b would hold at `total` (0 when vig is paid on a win).
Currency UpFrontVig(const Game& g, int b, Currency total) {
  if (IsBuy(b)) return g.rules.BuyVigUpFront ? FigureBuyVig(g, b, total) : Currency{};
  if (IsLay(b)) return g.rules.LayVigUpFront ? FigureLayVig(g, b, total) : Currency{};
  return Currency{};
}

Currency StoredUpFrontVig(const Game& g, int p, int b) {
  if (IsBuy(b)) return g.rules.BuyVigUpFront ? g.BuyVig(p, b - bet::kBuyFirst) : Currency{};
  if (IsLay(b)) return g.rules.LayVigUpFront ? g.LayVig(p, b - bet::kLayFirst) : Currency{};
  return Currency{};
}

[[gnu::cold]] [[gnu::noinline]] void MinimumText(Game& g, int b) {
  g.betting.LimitText =
      Cat("The minimum ", BetName(b), " bet is $", FormatMoney(g.betting.BetMinimum));
}

void SetMinimumText(Game& g, int b) {
  if (!g.HyperDrive) MinimumText(g, b);
}

[[gnu::cold]] [[gnu::noinline]] void MaximumText(Game& g, int b) {
  g.betting.LimitText =
      Cat("The maximum ", BetName(b), " bet is $", FormatMoney(g.betting.BetMaximum));
}

// The contract bet stays where it was established above a lowered maximum.
[[gnu::cold]] [[gnu::noinline]] void ContractAboveMaximumNotice(Game& g, int p, int b, Currency C) {
  RefuseNotice(g, p, b,
               Cat("The maximum ", BetName(b), " bet is $", FormatMoney(g.betting.BetMaximum),
                   "\r\rHowever, because the ", BetName(b),
                   " is a contract bet and you established it at $", PlainAmount(C),
                   " before you recently lowered the maximum allowed on the Configuration "
                   "screen, it must remain unchanged until it resolves."),
               kHelpContractBets);
}

// Shrinks a change that the money can't carry. A player whose bets already
// stand above the bankroll (they lost and stay up) sees even a bet that is
// merely looked at again come down to what the money covers, never below 0.
// Returns true when it shrank the change.
[[gnu::noinline]] bool ShrinkToBankroll(Game& g, int p, int b) {
  BettingState& s = g.betting;
  const Currency B = g.Bet(p, b), bank = g.Bet(p, bet::kBankroll), unit = g.CheckValue(1);
  const Currency oldVig = StoredUpFrontVig(g, p, b);
  auto need = [&] {
    return g.TotalBets(p) + s.BetChange + UpFrontVig(g, b, B + s.BetChange) - oldVig;
  };
  if (need() <= bank) return false;
  const Currency asked = s.BetChange, lowest = -B;
  const Currency free = bank - g.TotalBets(p);
  s.BetChange = unit.raw > 0 ? RoundDownToMultiple(free, unit) : free;
  s.BetChange = std::clamp(s.BetChange, lowest, std::max(asked, lowest));
  while (need() > bank && s.BetChange > lowest) {
    s.BetChange -= unit.raw > 0 ? unit : s.BetChange - lowest;
    if (s.BetChange < lowest) s.BetChange = lowest;
  }
  return true;
}

// A player allowed a negative bankroll is never held (the usual Auto-Play case).
bool HoldToBankroll(Game& g, int p, int b) {
  return !g.betting.AllowNegBankroll(p) && ShrinkToBankroll(g, p, b);
}

[[gnu::cold]] [[gnu::noinline]] void BankrollNotice(Game& g, int p, int b) {
  if (!CanNotify(g, kNoticeLimits)) return;
  const BettingState& s = g.betting;
  std::string text = Cat(g.PlayerName[p], ",\r\r");
  if (!s.LimitText.empty()) text += Cat(s.LimitText, "\r");
  text +=
      "You don't have enough bankroll remaining to bet the full amount requested.\r\r"
      "Your options are: \r";
  if (g.TotalBets(p) - g.Bet(p, b) - StoredUpFrontVig(g, p, b) > Currency{})
    text += "      - Bet less on other bets.\r";
  text += "      - Make a withdrawal from the ATM.\r      - Allow negative bankroll amounts.";
  ShowNotice(g, text, BetTitle(b), kHelpLimits, kMsgOk | kMsgHideLimits);
}

[[gnu::cold]] [[gnu::noinline]] void ShowLimitNotice(Game& g, int p, int b) {
  const BettingState& s = g.betting;
  std::string text = s.LimitText;
  if (text.find("Unable") == std::string::npos)
    text = Cat(g.PlayerName[p], ",\r\r", s.LimitText, "\r",
               s.BetChange.IsZero() ? "which is already bet." : "which is being bet.");
  ShowNotice(g, text, BetTitle(b), kHelpLimits, kMsgOk | kMsgHideLimits);
}

void LimitNotice(Game& g, int p, int b) {
  if (!g.betting.LimitText.empty() && CanNotify(g, kNoticeLimits)) ShowLimitNotice(g, p, b);
}

// The notice of a changed vig, out of the way of the write.
[[gnu::cold]] [[gnu::noinline]] void VigNotice(Game& g, int b, bool buy, bool upFront, Currency old,
                                               Currency now) {
  std::string text = Cat(upFront ? "Total vig charge $" : "If you win, the vig charge will be $",
                         FormatMoney(now));
  if (old > Currency{}) {
    if (now > old)
      text += Cat("\r\rVig increased by $", FormatMoney(now - old));
    else if (!now.IsZero())
      text += Cat("\r\rVig decreased by $", FormatMoney(old - now));
    else if (upFront)
      text = Cat("Vig charge returned $", FormatMoney(old));
  }
  if (now > Currency{} || upFront)
    ShowNotice(g, text, BetTitle(b), buy ? kHelpBuyBets : kHelpBetting, kMsgOk | kMsgHideCharges);
}

// The vig entry of a Buy or Lay bet follows its new total; up front it counts in TotalBets.
void UpdateVig(Game& g, int p, int b) {
  const bool buy = IsBuy(b);
  Currency& entry = buy ? g.BuyVig(p, b - bet::kBuyFirst) : g.LayVig(p, b - bet::kLayFirst);
  const bool upFront = buy ? g.rules.BuyVigUpFront : g.rules.LayVigUpFront;
  const Currency old = entry;
  const Currency now = buy ? FigureBuyVig(g, b, g.Bet(p, b)) : FigureLayVig(g, b, g.Bet(p, b));
  entry = now;
  if (upFront) g.TotalBets(p) += now - old;
  if (now != old && CanNotify(g, kNoticeCharges)) VigNotice(g, b, buy, upFront, old, now);
}

[[gnu::noinline]] void ChangeCheckStack(Game& g, int p, int b) {
  BettingState& s = g.betting;
  s.BetMaximum = kCheckStackLimit;
  const Currency B = g.Bet(p, b);
  std::int64_t total = 0;
  const bool overflow = __builtin_add_overflow(B.raw, s.BetChange.raw, &total);
  const char* text = nullptr;
  Currency limit = kCheckStackLimit;
  if (overflow || total > kCheckStackLimit.raw || total < -kCheckStackLimit.raw) {
    if (s.BetChange < Currency{}) limit = -kCheckStackLimit;
    s.BetChange = limit - B;
    text = limit > Currency{} ? "The maximum CheckStack value is: $"
                              : "The minimum CheckStack value is: $";
  }
  if (text && CanNotify(g, kNoticeLimits))
    ShowNotice(g,
               Cat(g.PlayerName[p], ",\r\r", text, FormatMoney(limit), "\r",
                   s.BetChange.IsZero() ? "which is already stacked." : "which is being stacked."),
               Cat("CheckStack #", std::to_string(b - bet::kCheckStackFirst)), kHelpLimits,
               kMsgOk | kMsgHideLimits);
  g.Bet(p, b) += s.BetChange;
  MarkCheckStacksChanged(g, p);
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::OpenViews);
}

// The bankroll held the change: the limits are told again at what the money
// covers. `before` is the limit text as it stood before a first adjustment
// added to it (null when there was none): the second one starts from it.
[[gnu::noinline]] void TellHeldToBankroll(Game& g, int p, int b, bool adjust,
                                          const std::string* before) {
  BettingState& s = g.betting;
  const Currency B = g.Bet(p, b);
  s.BetMaximum = B + s.BetChange;
  if (before && !g.HyperDrive) s.LimitText = *before;
  if (adjust && !ProperAsAsked(g, p, b)) AdjustForProperOdds(g, p, b);
  const Currency total = B + s.BetChange;
  if (total > Currency{} && total < s.BetMinimum) {
    SetMinimumText(g, b);
    s.BetChange = -B;
  }
  BankrollNotice(g, p, b);
}

// The proper-odds adjustment of a change that needs one (a real bet of a seat
// with AutoAdjustMode above 0, ProperAsAsked false), then the bankroll,
// outside Hyper-Drive: only there does the adjustment write the limit text,
// so only there is the text before it kept. In Hyper-Drive the gate makes
// the two steps itself, without this call.
[[gnu::noinline]] void AdjustThenHoldToBankroll(Game& g, int p, int b) {
  const std::string before = g.betting.LimitText;
  AdjustWhereNeeded(g, p, b);
  if (HoldToBankroll(g, p, b))
    TellHeldToBankroll(g, p, b, true, &before);
  else
    LimitNotice(g, p, b);
}

[[gnu::always_inline]] inline void Apply(Game& g, int p, int b) {
  BettingState& s = g.betting;
  g.Bet(p, b) += s.BetChange;
  g.roll.MarkBetChanged(p, b);
  g.TotalBets(p) += s.BetChange;
  if (g.Bet(p, b).IsZero()) ResetWorkingOfMarked(g, p, b);  // a seat and a real bet
  if (IsBuy(b) || IsLay(b)) UpdateVig(g, p, b);
  if (!g.HyperDrive && g.platform && !s.BetChange.IsZero())
    g.platform->RequestRedraw(Redraw::OpenViews);
}

// The gate's start for a bet's own limits: no limit text yet, and the
// bet's minimum.
inline void ClearLimitsOf(Game& g, int b) {
  BettingState& s = g.betting;
  if (!g.HyperDrive) s.LimitText.clear();
  s.BetMinimum = b < bet::kHard4 ? g.rules.MinPlacardBet : g.CheckValue(1);
}

// A bet taken down entirely can't pass a maximum (never below 0), and the
// proper-odds adjustment leaves a change to 0 as it is: only the bankroll
// may still hold it (a seat whose bets stand above its money), and the
// limit text, cleared at the start, has nothing to tell. BetMaximum is left
// unfigured.
inline void FinishTakeDown(Game& g, int p, int b) {
  BettingState& s = g.betting;
  if (HoldToBankroll(g, p, b)) {
    s.BetMaximum = g.Bet(p, b) + s.BetChange;
    BankrollNotice(g, p, b);
  }
  Apply(g, p, b);
}

// The gate's last steps for a change within the bet's limits: the
// proper-odds adjustment (called only when it has something to do), the
// bankroll, the limit notice and the write.
[[gnu::always_inline]] inline void FinishChange(Game& g, int p, int b) {
  const bool adjust = g.autoplay.AutoAdjustMode(p) > 0;
  if (adjust && !ProperAsAsked(g, p, b)) {
    if (!g.HyperDrive) {
      AdjustThenHoldToBankroll(g, p, b);
    } else {  // no text to keep: the string is not even made
      AdjustWhereNeeded(g, p, b);
      if (HoldToBankroll(g, p, b)) TellHeldToBankroll(g, p, b, true, nullptr);
    }
  } else if (HoldToBankroll(g, p, b))
    TellHeldToBankroll(g, p, b, adjust, nullptr);
  else
    LimitNotice(g, p, b);
  Apply(g, p, b);
}

// Where the gate's short paths may run: in Hyper-Drive, which shows no
// notice, text or redraw, for a real bet of a seat the bankroll never holds
// (HoldToBankroll then never holds).
[[gnu::always_inline]] inline bool QuietSeatBet(const Game& g, int p, int b) {
  return g.HyperDrive && p >= 1 && p <= 8 && IsRealBet(b) && g.betting.AllowNegBankroll(p);
}

// The contract rules let an odds bet grow only over its flat bet (and the
// line odds with a point on); the bets outside the rules always.
[[gnu::always_inline]] inline bool FreeToGrow(const Game& g, int p, int b) {
  if (!kUnderContract[static_cast<std::size_t>(b)]) return true;
  if (!IsOddsBet(b)) return false;  // not known here: the whole gate decides
  return !g.Bet(p, FlatOf(b)).IsZero() && (!IsLineOdds(b) || g.Point != 0);
}

// The contract rules pass a positive change to a bet standing at 0 as it
// is, whatever its amount: a line bet on a come-out, a Come or Don't Come
// bet with a point on, Fire before the hand's first roll, a bet carried to
// its number (MovingBet), odds over their flat bet, and every bet outside
// the rules. Any other such change the whole gate decides.
[[gnu::always_inline]] inline bool FreeFromZero(const Game& g, int p, int b) {
  if (!kUnderContract[static_cast<std::size_t>(b)]) return true;  // most bets
  switch (b) {
    case bet::kPassLine:
    case bet::kDontPass:
      return g.Point <= 0;
    case bet::kCome:
    case bet::kDontCome:
      return g.Point > 0;
    case bet::kFire:
      return g.RollTally(kTableHand, kEventRolls) == 0;
    default:
      break;
  }
  if (IsComePoint(b) || IsDontComePoint(b)) return g.betting.MovingBet;
  return FreeToGrow(g, p, b);
}

// A positive amount no larger than the largest request, in steps of the
// smallest check: the rounding of the gate leaves it as it is.
inline bool InWholeChecks(const Game& g, Currency amount) {
  const Currency unit = g.CheckValue(1);
  return amount > Currency{} && amount <= kCheckStackLimit &&
         (unit.raw <= 0 || amount.raw % unit.raw == 0);
}

// Figures the limits of bet b of seat p, as the gate does, and tells whether
// `amount` asked of the bet standing at 0 passes them unchanged: within the
// minimum and the maximum and, for a seat whose bets are adjusted, in whole
// proper units.
inline bool SetFromZeroAsAsked(Game& g, int p, int b, Currency amount) {
  const BettingState& s = g.betting;
  ClearLimitsOf(g, b);
  FigureMaximumOfId(g, p, b);
  return amount >= s.BetMinimum && amount <= s.BetMaximum &&
         (g.autoplay.AutoAdjustMode(p) <= 0 || ProperFromZero(g, b, amount));
}

// The proper-odds adjustment of a change that needs one (ProperAsAsked
// false: a total above 0 and not in whole units), figured in place for a
// bet outside the contract rules (neither odds nor a line or Come bet) and
// a change other than 0 for which a color correction finds no wider unit:
// the rule then comes down to the pick by the bet's bias (Place and Lay
// bets have one) between the whole units either side, held to the limits;
// a change that both limits refuse is the room left to the maximum (a
// decrease: the take-down). Returns false, leaving the change, when a
// wider unit would be taken: AdjustWhereNeeded decides it.
bool AdjustPlainChange(Game& g, int p, int b) {
  BettingState& s = g.betting;
  const Currency a = s.BetChange, B = g.Bet(p, b);
  // ProperOddsUnit of a bet outside the contract rules: its own unit.
  const Currency w = g.PayoffTbl(0, b), total = B + a;
  if (a.IsZero()) return false;
  if (g.autoplay.AutoAdjustMode(p) == 2 &&
      ColorCorrectionUnit(w, a, B, [&g](int i) { return g.CheckValue(i); }) != w)
    return false;
  const Currency lo = Currency::FromRaw(total.raw / w.raw * w.raw) - B, hi = lo + w;
  const int bias = IsPlace(b) ? g.autoplay.PlaceBias(p) : IsLay(b) ? g.autoplay.LayBias(p) : 0;
  if (B + hi > s.BetMaximum && B + lo < s.BetMinimum) {
    s.BetChange = a.raw < 0 ? -B : std::max(s.BetMaximum - B, Currency{});
    return true;
  }
  s.BetChange = HoldProperPick(ProperPicksHigh(B, a, lo, hi, bias, false, false, Currency{}), B, a,
                               lo, hi, s.BetMinimum, s.BetMaximum);
  return true;
}

}  // namespace

bool CanNotify(const Game& g, long noticeBit) {
  return !g.HyperDrive && (g.rules.NoticeFlags & noticeBit) != 0;
}

std::string BetTitle(int b) { return Cat(BetName(b), " Bet"); }

void SetBetChecked(Game& g, int p, int b) {
  BettingState& s = g.betting;
  s.BetChange = g.BetRequest;
  if (p < 1 || p > 8) {
    s.BetChange = Currency{};
    return;
  }
  if (IsCheckStack(b)) {
    ChangeCheckStack(g, p, b);
    return;
  }
  if (!IsRealBet(b)) {
    s.BetChange = Currency{};
    return;
  }
  const Currency B = g.Bet(p, b);
  // A hostile request (a script's huge number) is held where sums can't overflow.
  // Clamped on the raw ten-thousandths, so the bounds are plain constants.
  const Currency request =
      Currency::FromRaw(std::clamp(g.BetRequest.raw, -kCheckStackLimit.raw, kCheckStackLimit.raw));
  s.BetChange = RoundChange(request, g.CheckValue(1), B);

  switch (kUnderContract[static_cast<std::size_t>(b)] ? ContractRules(g, p, b) : Next::Free) {
    case Next::Return:
      return;
    case Next::Apply:
      // A restore up to the contract is money like any other: it must fit
      // the bankroll too.
      if (s.BetChange > Currency{}) {
        if (!g.HyperDrive) s.LimitText.clear();
        if (HoldToBankroll(g, p, b)) BankrollNotice(g, p, b);
      }
      Apply(g, p, b);
      return;
    case Next::Free:
      break;
  }

  ClearLimitsOf(g, b);

  const Currency T = B + request;
  // A bet taken down entirely: only the bankroll may still hold it.
  if (T <= Currency{} && s.BetChange <= -B) {
    FinishTakeDown(g, p, b);
    return;
  }
  if (T > Currency{} && T < s.BetMinimum) {
    if (s.BetChange <= Currency{}) {
      s.BetChange = -B;
    } else {
      s.BetChange = s.BetMinimum - B;
      SetMinimumText(g, b);
    }
  }

  FigureMaximumOfId(g, p, b);
  if (T > s.BetMaximum) {
    const Currency C = g.BetContract(p, b);
    if ((b == bet::kPassLine || IsComePoint(b)) && C > s.BetMaximum) {
      s.BetChange = C - B;
      if (CanNotify(g, kNoticeNotAllowed)) ContractAboveMaximumNotice(g, p, b, C);
      Apply(g, p, b);
      return;
    }
    if (s.BetChange > s.BetMaximum - B) {
      s.BetChange = s.BetMaximum - B;
      if (!g.HyperDrive) MaximumText(g, b);
    }
  }

  FinishChange(g, p, b);
}

void TakeBetDownChecked(Game& g, int p, int b) {
  const Currency B = g.Bet(p, b);
  g.BetRequest = -B;
  // The contract rules hold up a take-down only of a Pass Line or Come point
  // bet whose contract is above 0 (a decision clears it, so a settling's
  // take-down never meets one): such a bet, and a bet outside 0..the
  // largest request, go through the whole gate.
  if (p < 1 || p > 8 || !IsRealBet(b) || B < Currency{} || B > kCheckStackLimit ||
      ((b == bet::kPassLine || IsComePoint(b)) && g.BetContract(p, b) > Currency{})) {
    SetBetChecked(g, p, b);
    return;
  }
  // SetBetChecked's own path for this request: minus the bet is a multiple
  // of any unit, and a total of 0 skips the minimum, the maximum and the
  // proper-odds adjustment; only the bankroll may still hold it.
  g.betting.BetChange = -B;
  ClearLimitsOf(g, b);
  FinishTakeDown(g, p, b);
}

void KeepBetChecked(Game& g, int p, int b) {
  g.BetRequest = Currency{};
  // A seat held to its bankroll, a bet below 0, and a Pass Line or Come bet
  // on a point below its contract (which the gate brings back up to it even
  // when no change is asked) take the whole gate.
  if (p < 1 || p > 8 || !IsRealBet(b) || !g.betting.AllowNegBankroll(p)) {
    SetBetChecked(g, p, b);
    return;
  }
  const Currency B = g.Bet(p, b);
  if (B < Currency{} ||
      ((b == bet::kPassLine || IsComePoint(b)) && g.Point > 0 && B < g.BetContract(p, b))) {
    SetBetChecked(g, p, b);
    return;
  }
  // No change is a multiple of any unit and passes the contract rules; the
  // bankroll holds nothing for this seat, so the gate ends in Apply of 0.
  BettingState& s = g.betting;
  s.BetChange = Currency{};
  ClearLimitsOf(g, b);
  if (!B.IsZero()) {
    // A bet at 0 is the gate's take-down, which figures no maximum; any
    // other stays as it is only within its limits and, for a seat whose
    // bets are adjusted, in whole proper units. Else the gate cuts it.
    FigureMaximumOfId(g, p, b);
    if (B < s.BetMinimum || B > s.BetMaximum ||
        (g.autoplay.AutoAdjustMode(p) > 0 && !ProperAsAsked(g, p, b))) {
      SetBetChecked(g, p, b);
      return;
    }
  }
  // Apply of no change: the bet and TotalBets stay, nothing is redrawn.
  g.roll.MarkBetChanged(p, b);
  if (B.IsZero()) ResetWorkingOfMarked(g, p, b);
  if (IsBuy(b) || IsLay(b)) UpdateVig(g, p, b);
}

void OpenBetChecked(Game& g, int p, int b) {
  const Currency amount = g.BetRequest;
  // In Hyper-Drive, for a seat the bankroll never holds, a bet at 0 and an
  // amount already in steps of a check that the contract rules pass as it
  // is, the gate only writes the amount when it lies within the bet's
  // limits and, for a seat whose bets are adjusted, in whole proper units:
  // no rounding, cut, adjustment, text, notice or redraw is made. Else (the
  // limits figured here are figured the same again) the whole gate.
  if (QuietSeatBet(g, p, b) && g.Bet(p, b).IsZero() && InWholeChecks(g, amount) &&
      FreeFromZero(g, p, b) && SetFromZeroAsAsked(g, p, b, amount)) {
    g.betting.BetChange = amount;
    Apply(g, p, b);
    return;
  }
  SetBetChecked(g, p, b);
}

bool CarryBetChecked(Game& g, int p, int from, int to) {
  // The take-down of a bet on a box ends at 0 for a seat the bankroll never
  // holds, and the open of a bet carried to its number at 0 is the gate's
  // short path (OpenBetChecked) when the amount lies within the limits of
  // `to`, which hang on no bet of the seat: the take-down leaves them as
  // they are.
  // A bet already standing on the number (one left up) takes the amount
  // the same way: the contract rules pass a carried bet, the rounding
  // leaves a change in whole checks as it is, and the limits and proper
  // units hold the new total as they hold an amount asked of a bet at 0.
  // An empty box (not in whole checks) carries nothing: the plain steps
  // then change no bet and leave the session unmarked.
  const Currency amount = g.Bet(p, from), standing = g.Bet(p, to);
  if (!QuietSeatBet(g, p, to) || (from != bet::kCome && from != bet::kDontCome) ||
      !(IsComePoint(to) || IsDontComePoint(to)) || standing < Currency{} ||
      standing > kCheckStackLimit || !InWholeChecks(g, amount) ||
      !SetFromZeroAsAsked(g, p, to, standing + amount))
    return false;
  // Apply of minus the amount on `from`, then of the amount on `to`:
  // TotalBets ends as it was.
  g.Bet(p, from) = Currency{};
  g.roll.MarkBetChanged(p, from);
  ResetWorkingOfMarked(g, p, from);
  g.Bet(p, to) = standing + amount;
  g.roll.MarkBetChanged(p, to);
  g.BetRequest = amount;
  g.betting.BetChange = amount;
  return true;
}

void ReplaceBetChecked(Game& g, int p, int b, Currency amount) {
  BettingState& s = g.betting;
  // In Hyper-Drive, for a bet the contract rules leave alone and a seat the
  // bankroll never holds, the take-down always ends at 0, and a positive
  // amount already in steps of a check is set from 0 unchanged when it lies
  // within the bet's limits and, for a seat whose bets are adjusted, in
  // whole proper units. Then only the writes of the two remain. No notice,
  // text or redraw is made in Hyper-Drive; the maximum of such a bet hangs
  // on no bet of the seat, so it is the same before the take-down as after.
  const bool plain = QuietSeatBet(g, p, b) && !kUnderContract[static_cast<std::size_t>(b)] &&
                     InWholeChecks(g, amount) && g.Bet(p, b) >= Currency{} &&
                     g.Bet(p, b) <= kCheckStackLimit && SetFromZeroAsAsked(g, p, b, amount);
  if (!plain) {
    TakeBetDownChecked(g, p, b);
    g.BetRequest = amount;
    if (amount.IsZero())
      KeepBetChecked(g, p, b);
    else
      ChangeBetChecked(g, p, b);
    return;
  }
  const bool vig = IsBuy(b) || IsLay(b);
  const Currency B = g.Bet(p, b);
  // The take-down's Apply of -B, then the set's Apply of the amount.
  g.Bet(p, b) -= B;
  g.TotalBets(p) -= B;
  ResetWorkingOf(g, p, b);
  if (vig) UpdateVig(g, p, b);
  g.Bet(p, b) += amount;
  g.TotalBets(p) += amount;
  if (vig) UpdateVig(g, p, b);
  g.BetRequest = amount;
  s.BetChange = amount;
}

void ChangeBetChecked(Game& g, int p, int b) {
  BettingState& s = g.betting;
  // In Hyper-Drive, for a bet the contract rules leave alone and a seat the
  // bankroll never holds, the gate's steps are the rounding, the minimum,
  // the maximum, the proper-odds adjustment and the write: no notice, text
  // or redraw is made, and HoldToBankroll never holds. Else the whole gate.
  if (!QuietSeatBet(g, p, b) || kUnderContract[static_cast<std::size_t>(b)]) {
    SetBetChecked(g, p, b);
    return;
  }
  const Currency B = g.Bet(p, b);
  const Currency request =
      Currency::FromRaw(std::clamp(g.BetRequest.raw, -kCheckStackLimit.raw, kCheckStackLimit.raw));
  s.BetChange = RoundChange(request, g.CheckValue(1), B);
  ClearLimitsOf(g, b);
  const Currency T = B + request;
  if (!(T <= Currency{} && s.BetChange <= -B)) {  // else a take-down: the write alone
    if (T > Currency{} && T < s.BetMinimum)
      s.BetChange = s.BetChange <= Currency{} ? -B : s.BetMinimum - B;
    FigureMaximumOfId(g, p, b);
    if (T > s.BetMaximum && s.BetChange > s.BetMaximum - B) s.BetChange = s.BetMaximum - B;
    if (g.autoplay.AutoAdjustMode(p) > 0 && !ProperAsAsked(g, p, b) && !AdjustPlainChange(g, p, b))
      AdjustWhereNeeded(g, p, b);
  }
  Apply(g, p, b);
}

// TakeBetToMaximum's set of a bet standing at 0 (or just taken down to it)
// in Hyper-Drive, for a seat the bankroll never holds and a bet the contract
// rules let grow from 0: the gate's own steps for it with no text, notice
// or redraw, the request rounded only when the maximum does not cut it.
// The take-down's mark is left to the set's write, which always comes.
[[gnu::always_inline]] inline void MaximumFromZero(Game& g, int p, int b, Currency asked) {
  BettingState& s = g.betting;
  s.BetChange = Currency{};
  ClearLimitsOf(g, b);
  ResetWorkingOfMarked(g, p, b);
  if (IsBuy(b) || IsLay(b)) UpdateVig(g, p, b);
  g.BetRequest = asked;
  if (asked >= s.BetMinimum) {
    FigureMaximumOfId(g, p, b);
    s.BetChange =
        asked > s.BetMaximum ? s.BetMaximum : RoundChange(asked, g.CheckValue(1), Currency{});
    FinishChange(g, p, b);
    return;
  }
  // Past the minimum: the whole gate, which finds the take-down done.
  SetBetChecked(g, p, b);
}

// Beside the gate, so that the take-down of a bet already at 0 (the odds
// taken at a new point) is made inline, without a call of its own.
void TakeBetToMaximum(Game& g, int p, int b) {
  if (p < 1 || p > 8 || b < 0 || b > kLastBetId) return;
  constexpr Currency kAsked = Currency::FromWhole(9999999);
  // In Hyper-Drive a bet of a seat the bankroll never holds, which the
  // contract rules let grow (the odds at a new point): at 0 the take-down
  // is Apply of 0.
  const bool quiet = QuietSeatBet(g, p, b) && FreeToGrow(g, p, b);
  const Currency B = g.Bet(p, b);
  if (quiet && B.IsZero()) {
    MaximumFromZero(g, p, b, kAsked);
    return;
  }
  // The same for odds that stand (taken to a new maximum): the take-down is
  // Apply of minus the bet. Such a bet's maximum hangs on no amount of its own.
  if (quiet && B > Currency{} && B <= kCheckStackLimit) {
    g.Bet(p, b) = Currency{};
    g.TotalBets(p) -= B;
    MaximumFromZero(g, p, b, kAsked);
    return;
  }
  const Long flags = g.rules.NoticeFlags;
  g.rules.NoticeFlags = 0;
  TakeBetDownChecked(g, p, b);
  g.BetRequest = kAsked;
  SetBetChecked(g, p, b);
  if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
  g.rules.NoticeFlags = flags;
}

Currency TotalUpBets(const Game& g, int p) {
  Currency total;
  for (int b = 1; b <= kLastRealBet; ++b) total += g.Bet(p, b);
  for (int i = 0; i < 6; ++i) {
    if (g.rules.LayVigUpFront) total += g.LayVig(p, i);
    if (g.rules.BuyVigUpFront) total += g.BuyVig(p, i);
  }
  return total;
}

bool CheckBetLedger(const Game& g, int p) {
  if (TotalUpBets(g, p) != g.TotalBets(p)) return false;
  const Currency unit = g.CheckValue(1);
  for (int b = 1; b <= kLastRealBet; ++b) {
    const Currency x = g.Bet(p, b);
    if (x < Currency{} || (unit.raw > 0 && x.raw % unit.raw != 0)) return false;
  }
  for (int i = 0; i < 6; ++i) {
    if (g.BuyVig(p, i) != FigureBuyVig(g, bet::kBuyFirst + i, g.Bet(p, bet::kBuyFirst + i)))
      return false;
    if (g.LayVig(p, i) != FigureLayVig(g, bet::kLayFirst + i, g.Bet(p, bet::kLayFirst + i)))
      return false;
  }
  return true;
}
