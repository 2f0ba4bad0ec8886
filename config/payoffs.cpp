#include "config/payoffs.h"

#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "core/platform.h"

const std::string_view kFieldRowLabel[kFieldRows + 1] = {"",
                                                         "2    (1.1)",
                                                         "3    (1.2) (2.1)",
                                                         "4    (1.3) (3.1)",
                                                         "4    (2.2)",
                                                         "5    (1.4) (4.1)",
                                                         "5    (2.3) (3.2)",
                                                         "6    (1.5) (5.1)",
                                                         "6    (2.4) (4.2)",
                                                         "6    (3.3)",
                                                         "7    (1.6) (6.1)",
                                                         "7    (2.5) (5.2)",
                                                         "7    (3.4) (4.3)",
                                                         "8    (2.6) (6.2)",
                                                         "8    (3.5) (5.3)",
                                                         "8    (4.4)",
                                                         "9    (3.6) (6.3)",
                                                         "9    (4.5) (5.4)",
                                                         "10   (4.6) (6.4)",
                                                         "10   (5.5)",
                                                         "11   (5.6) (6.5)",
                                                         "12   (6.6)"};

const std::string_view kFieldPresetCaption[kFieldPresetCount] = {"&Field w/ 2x on Two and Twelve",
                                                                 "&Pass Line",
                                                                 "&Don't Pass (bar 12)",
                                                                 "Place &6",
                                                                 "Place to &Lose 8",
                                                                 "Buy &10 (5 % vig)",
                                                                 "Lay &4 (5% vig on win only)",
                                                                 "H&ard 8",
                                                                 "&Horn",
                                                                 "&World",
                                                                 "H&op 13",
                                                                 "&Midway",
                                                                 "&Crapless Craps Pass Line"};

namespace {

template <class T>
void SetRow(T& table, int row, long a, int flag, long d) {
  table(1, row) = Currency::FromWhole(a);
  table(2, row) = Currency::FromWhole(flag);
  table(3, row) = Currency::FromWhole(d);
}

void SetBets(Game& game, std::initializer_list<int> bets, long a, long d) {
  for (int b : bets) SetRow(game.PayoffTbl, b, a, -1, d);
}

// The pair of each Field row, smaller die first; every pair has one row.
constexpr int kFieldRowDice[kFieldRows + 1][2] = {
    {0, 0}, {1, 1}, {1, 2}, {1, 3}, {2, 2}, {1, 4}, {2, 3}, {1, 5}, {2, 4}, {3, 3}, {1, 6},
    {2, 5}, {3, 4}, {2, 6}, {3, 5}, {4, 4}, {3, 6}, {4, 5}, {4, 6}, {5, 5}, {5, 6}, {6, 6}};

void FieldAll(Game& game, long a, long d) {
  for (int r = 1; r <= kFieldRows; ++r) SetRow(game.FieldPayoff, r, a, -1, d);
}
void FieldTotal(Game& game, int total, long a, long d, int flag = -1) {
  for (int r = 1; r <= kFieldRows; ++r)
    if (kFieldRowTotal[r] == total) SetRow(game.FieldPayoff, r, a, flag, d);
}

}  // namespace

int FieldRow(int die1, int die2) {
  const int lo = die1 < die2 ? die1 : die2, hi = die1 < die2 ? die2 : die1;
  for (int r = 1; r <= kFieldRows; ++r)
    if (kFieldRowDice[r][0] == lo && kFieldRowDice[r][1] == hi) return r;
  return 0;
}

void SetDefaultPayoffs(Game& game) {
  for (int b = 1; b <= 100; ++b) SetRow(game.PayoffTbl, b, 1, -1, 1);
  using namespace bet;
  SetBets(game, {LayId(4), LayId(10), DontComeId(4) + 6, DontComeId(10) + 6}, 1, 2);
  SetBets(game, {LayId(5), LayId(9), DontComeId(5) + 6, DontComeId(9) + 6}, 2, 3);
  SetBets(game, {LayId(6), LayId(8), DontComeId(6) + 6, DontComeId(8) + 6}, 5, 6);
  SetBets(game, {ComeId(4) + 6, ComeId(10) + 6, BuyId(4), BuyId(10)}, 2, 1);
  SetBets(game, {ComeId(5) + 6, ComeId(9) + 6, BuyId(5), BuyId(9)}, 3, 2);
  SetBets(game, {ComeId(6) + 6, ComeId(8) + 6, BuyId(6), BuyId(8)}, 6, 5);
  SetBets(game, {PlaceId(4), PlaceId(10)}, 9, 5);
  SetBets(game, {PlaceId(5), PlaceId(9)}, 7, 5);
  SetBets(game, {PlaceId(6), PlaceId(8)}, 7, 6);
  SetBets(game, {kHard4, kHard10}, 7, 1);
  SetBets(game, {kHard6, kHard8}, 9, 1);
  SetBets(game, {kTwo, kTwelve}, 30, 1);
  SetBets(game, {kThree, kEleven}, 15, 1);
  SetBets(game, {kSeven}, 4, 1);
  SetBets(game, {kCraps}, 7, 1);
  for (int h = kHopFirst; h <= kHopLast; ++h) {
    const int i = h - kHopFirst;
    const bool pair = kHopDice[i][0] == kHopDice[i][1];
    SetBets(game, {h}, pair ? 30 : 15, 1);
  }
  SetBets(game, {kCandE}, 1, 2);
  SetBets(game, {kHorn}, 1, 4);
  SetBets(game, {kWorld}, 1, 5);

  FieldAll(game, 1, 1);
  for (int total = 5; total <= 8; ++total) FieldTotal(game, total, -1, 1);
  FieldTotal(game, 2, 2, 1);
  FieldTotal(game, 12, 2, 1);

  for (int r = 1; r <= kMidwayRows; ++r) SetRow(game.MidwayPayoff, r, 1, -1, 1);
  SetRow(game.MidwayPayoff, 1, 2, -1, 1);
  SetRow(game.MidwayPayoff, 5, 2, -1, 1);

  for (int r = 0; r <= 3; ++r) SetRow(game.FirePayoff, r, -1, -1, 1);
  SetRow(game.FirePayoff, 4, 24, -1, 1);
  SetRow(game.FirePayoff, 5, 249, -1, 1);
  SetRow(game.FirePayoff, 6, 999, -1, 1);

  FigureProperUnits(game);
  if (game.Point != 0) SetLineOddsPayoffs(game);
}

bool RestoreDefaultPayoffs(Game& game) {
  const int answer =
      ShowNotice(game, "Do you want to restore all payoffs to \rtheir original Ravelton settings?",
                 "Restore Default Payoffs", kHelpPayoffs, kMsgYes | kMsgNo | kMsgPicQmark);
  if (answer != kAnswerYes) return false;
  SetDefaultPayoffs(game);
  if (game.platform != nullptr) game.platform->RequestRedraw(Redraw::Table);
  return true;
}

void SetLineOddsPayoffs(Game& game) {
  if (!IsBoxNumber(game.Point)) return;
  const int come = ComeId(game.Point) + 6, dont = DontComeId(game.Point) + 6;
  for (int k = 1; k <= 3; ++k) {
    game.PayoffTbl(k, bet::kPassLineOdds) = game.PayoffTbl(k, come);
    game.PayoffTbl(k, bet::kDontPassOdds) = game.PayoffTbl(k, dont);
  }
}

Currency FieldDenominator(const Game& game) {
  Currency d;
  for (int r = 1; r <= kFieldRows; ++r) {
    if (game.FieldPayoff(1, r).IsZero()) continue;
    if (d.IsZero())
      d = game.FieldPayoff(3, r);
    else if (game.FieldPayoff(3, r) != d)
      return 1_usd;
  }
  return d.raw > 0 ? d : 1_usd;
}

void SetFieldPreset(Game& game, FieldPreset preset) {
  switch (preset) {
    case kSFField:
      FieldAll(game, 1, 1);
      for (int t = 5; t <= 8; ++t) FieldTotal(game, t, -1, 1);
      FieldTotal(game, 2, 2, 1);
      FieldTotal(game, 12, 2, 1);
      break;
    case kSFPass:
    case kSFDontPass: {
      const long s = preset == kSFPass ? 1 : -1;  // the Don't is the Pass's mirror
      FieldTotal(game, 2, -s, 1);
      FieldTotal(game, 3, -s, 1);
      for (int t : {4, 10}) FieldTotal(game, t, -s, 3);
      for (int t : {5, 9}) FieldTotal(game, t, -s, 5);
      for (int t : {6, 8}) FieldTotal(game, t, -s, 11);
      FieldTotal(game, 7, s, 1);
      FieldTotal(game, 11, s, 1);
      FieldTotal(game, 12, preset == kSFPass ? -1 : 0, 1);
      break;
    }
    case kSFPlace6:
      FieldAll(game, 0, 1);
      FieldTotal(game, 6, 7, 6);
      FieldTotal(game, 7, -1, 1);
      break;
    case kSFPlaceLose8:
      FieldAll(game, 0, 1);
      FieldTotal(game, 7, 4, 5);
      FieldTotal(game, 8, -5, 5);
      break;
    case kSFBuy10:
      FieldAll(game, 0, 1);
      FieldTotal(game, 7, -1, 1);
      FieldTotal(game, 10, 39, 21);
      break;
    case kSFLay4:
      FieldAll(game, 0, 1);
      FieldTotal(game, 4, -1, 1);
      FieldTotal(game, 7, 19, 40);
      break;
    case kSFHard8:
      FieldAll(game, 0, 1);
      FieldTotal(game, 7, -1, 1);
      SetRow(game.FieldPayoff, 13, -1, -1, 1);
      SetRow(game.FieldPayoff, 14, -1, -1, 1);
      SetRow(game.FieldPayoff, 15, 9, -1, 1);
      break;
    case kSFHorn:
      FieldAll(game, -1, 1);
      for (int t : {2, 12}) FieldTotal(game, t, 27, 4, 0);
      for (int t : {3, 11}) FieldTotal(game, t, 12, 4, 0);
      break;
    case kSFWorld:
      FieldAll(game, -1, 1);
      for (int t : {2, 12}) FieldTotal(game, t, 26, 5, 0);
      for (int t : {3, 11}) FieldTotal(game, t, 11, 5, 0);
      FieldTotal(game, 7, 0, 5, 0);
      break;
    case kSFHop13:
      FieldAll(game, -1, 1);
      SetRow(game.FieldPayoff, 3, 15, -1, 1);
      break;
    case kSFMidway:
      FieldAll(game, -1, 1);
      for (int r : {7, 8, 13, 14}) SetRow(game.FieldPayoff, r, 1, -1, 1);
      FieldTotal(game, 7, 1, 1);
      SetRow(game.FieldPayoff, 9, 2, -1, 1);
      SetRow(game.FieldPayoff, 15, 2, -1, 1);
      break;
    case kSFCrapless:
      for (int t : {2, 12}) FieldTotal(game, t, -5, 7);
      for (int t : {3, 11}) FieldTotal(game, t, -1, 2);
      for (int t : {4, 10}) FieldTotal(game, t, -1, 3);
      for (int t : {5, 9}) FieldTotal(game, t, -1, 5);
      for (int t : {6, 8}) FieldTotal(game, t, -1, 11);
      FieldTotal(game, 7, 1, 1);
      break;
    case kFieldPresetCount:
      break;
  }
}

int PayoffRowCode(int listRow) {
  if (listRow < 0 || listRow >= kPayoffListRows) return 0;
  if (listRow < 42) return listRow + 1;  // 1..42
  if (listRow == 42) return 45;
  if (listRow == 43) return 48;
  if (listRow < 56) return listRow + 6;  // 50..61
  return listRow + 9;                    // 65..97
}

bool IsPayoffHeading(int code) { return code == 84 || code == 90; }

std::string PayoffRowLabel(int code) {
  static constexpr const char* kNumbers[6] = {"4", "5", "6", "8", "9", "10"};
  static constexpr const char* kMidway[6] = {"",       "  -- Hard 6", "  -- Easy 6",
                                             "  -- 7", "  -- Easy 8", "  -- Hard 8"};
  std::string s;
  if (code >= 7 && code <= 12) return (s = "DP/DC ") += kNumbers[code - 7];
  if (code >= 13 && code <= 18) return ((s = "DP/DC ") += kNumbers[code - 13]) += " Odds";
  if (code >= 19 && code <= 24) return (s = "Pass/Come ") += kNumbers[code - 19];
  if (code >= 25 && code <= 30) return ((s = "Pass/Come ") += kNumbers[code - 25]) += " Odds";
  if (code == 45) return "Passline/Come (c.o.)";
  if (code == 48) return "Don't Pass/Come (c.o.)";
  if (code == 84) return "Midway";
  if (code >= 85 && code <= 89) return kMidway[code - 84];
  if (code == 90) return "Fire";
  if (code == 91) return "  -- 0 points";
  if (code == 92) return "  -- 1 point";
  if (code >= 93 && code <= 97) return ("  -- " + std::to_string(code - 91)) + " points";
  return std::string(BetName(code));
}

std::optional<PayoffCell> PayoffCellOf(int code) {
  if ((code >= 1 && code <= 42) || code == 45 || code == 48 || (code >= 50 && code <= 61) ||
      (code >= 65 && code <= 83))
    return PayoffCell{PayoffTable::Bets, code};
  if (code >= 85 && code <= 89) return PayoffCell{PayoffTable::Midway, code - 84};
  if (code >= 91 && code <= 97) return PayoffCell{PayoffTable::Fire, code - 91};
  return std::nullopt;
}

std::string PayoffText(Game& game, PayoffCell cell) {
  if (cell.table == PayoffTable::Field && PayoffValue(game, cell, 1) < Currency{}) return "loses";
  const bool to = PayoffValue(game, cell, 2) != Currency{};
  return FormatMoney(PayoffShownFirst(game, cell)) + (to ? " to " : " for ") +
         FormatMoney(PayoffValue(game, cell, 3));
}

Currency& PayoffValue(Game& game, PayoffCell cell, int k) {
  switch (cell.table) {
    case PayoffTable::Midway:
      return game.MidwayPayoff(k, cell.row);
    case PayoffTable::Fire:
      return game.FirePayoff(k, cell.row);
    case PayoffTable::Field:
      return game.FieldPayoff(k, cell.row);
    case PayoffTable::Bets:
      break;
  }
  return game.PayoffTbl(k, cell.row);
}

Currency PayoffShownFirst(Game& game, PayoffCell cell) {
  const Currency a = PayoffValue(game, cell, 1);
  return PayoffValue(game, cell, 2).IsZero() ? a + PayoffValue(game, cell, 3) : a;
}

void EnterPayoffFirst(Game& game, PayoffCell cell, Currency value) {
  const bool isFor = PayoffValue(game, cell, 2).IsZero();
  PayoffValue(game, cell, 1) = isFor ? value - PayoffValue(game, cell, 3) : value;
}

bool EnterPayoffDenominator(Game& game, PayoffCell cell, Currency d) {
  if (d.raw <= 0) return false;
  const Currency old = PayoffValue(game, cell, 3);
  if (PayoffValue(game, cell, 2).IsZero()) PayoffValue(game, cell, 1) -= d - old;
  PayoffValue(game, cell, 3) = d;
  return true;
}

bool PayoffFlagKey(Game& game, PayoffCell cell, char key) {
  const bool isFor = PayoffValue(game, cell, 2).IsZero();
  bool wantFor;
  if (key == 'T' || key == 't')
    wantFor = false;
  else if (key == 'F' || key == 'f')
    wantFor = true;
  else if (key == ' ')
    wantFor = !isFor;
  else
    return false;
  if (wantFor != isFor) {
    // The number on the screen stays: a + d "for" d shows what a "to" d showed.
    Currency& a = PayoffValue(game, cell, 1);
    const Currency d = PayoffValue(game, cell, 3);
    a = wantFor ? a - d : a + d;
    PayoffValue(game, cell, 2) = wantFor ? Currency{} : -1_usd;
  }
  return true;
}

std::optional<ConfigFault> CheckPayoffs(const Game& game) {
  for (int listRow = 0; listRow < kPayoffListRows; ++listRow) {
    const int code = PayoffRowCode(listRow);
    if (code > 83) break;
    if (game.PayoffTbl(1, code).raw <= 0)
      return ConfigFault{kTabPayoffs, code, 0, "Payoff ratio error",
                         "The payoff on " + PayoffRowLabel(code) + " must be a positive amount."};
  }
  for (int r = 1; r <= kMidwayRows; ++r)
    if (game.MidwayPayoff(1, r).raw <= 0)
      return ConfigFault{kTabPayoffs, 84 + r, 0, "Payoff ratio error",
                         "The payoffs on Midway must be positive amounts."};
  if (game.rules.UseFireBet && game.rules.MaxFireBet.IsZero())
    return ConfigFault{kTabBets, 0, 0, "Max Fire Bet",
                       "The max Fire bet must be greater than zero."};
  bool anyWin = false;
  for (int r = 0; r < kFireRows; ++r) {
    if (game.FirePayoff(1, r) < -game.FirePayoff(3, r))
      return ConfigFault{kTabPayoffs, 91 + r, 0, "Payoff error",
                         "The loss on any Fire bet payoff cannot exceed the amount wagered."};
    anyWin = anyWin || game.FirePayoff(1, r).raw > 0;
  }
  if (!anyWin)
    return ConfigFault{kTabPayoffs, 91, 0, "Payoff error",
                       "At least one of the Fire bet payoffs must be positive."};
  anyWin = false;
  for (int r = 1; r <= kFieldRows; ++r) {
    if (game.FieldPayoff(1, r) < -game.FieldPayoff(3, r))
      return ConfigFault{kTabPayoffs, 0, r, "Payoff error",
                         "The loss on any Field bet payoff cannot exceed the amount wagered."};
    anyWin = anyWin || game.FieldPayoff(1, r).raw > 0;
  }
  if (!anyWin)
    return ConfigFault{kTabPayoffs, 0, 1, "Payoff error",
                       "At least one of the Field bet payoffs must be postiive."};
  return std::nullopt;
}
