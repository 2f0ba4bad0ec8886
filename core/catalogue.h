// The bet catalogue: every place on the layout is a bet id that indexes all
// per-bet tables. The ids, their order and their names are fixed because the
// game file, the statistics, the payoffs and the script language all address
// bets by number.
//
// What must stay true:
// - Ids 1..85 are real bets; 0 is the bankroll column of the same tables;
//   93 is the rail and 101..104 the four default CheckStack spots; every
//   other id up to 104 has an empty name.
// - The six box numbers run 4, 5, 6, 8, 9, 10; a group of six ids is
//   base + BoxIndex(n). These formulas are the only mapping from a roll
//   total to a bet id.
#pragma once

#include <cstdint>
#include <string_view>

struct Game;

// Bet ids that the engine names directly.
namespace bet {
constexpr int kBankroll = 0;
constexpr int kLayFirst = 1, kLayLast = 6;
constexpr int kDontComePointFirst = 7, kDontComePointLast = 12;
constexpr int kDontComeOddsFirst = 13, kDontComeOddsLast = 18;
constexpr int kComePointFirst = 19, kComePointLast = 24;
constexpr int kComeOddsFirst = 25, kComeOddsLast = 30;
constexpr int kPlaceFirst = 31, kPlaceLast = 36;
constexpr int kBuyFirst = 37, kBuyLast = 42;
constexpr int kPassLine = 43, kPassLineOdds = 44, kCome = 45;
constexpr int kDontPass = 46, kDontPassOdds = 47, kDontCome = 48;
constexpr int kField = 49, kBig6 = 50, kBig8 = 51;
constexpr int kHard4 = 52, kHard6 = 53, kHard8 = 54, kHard10 = 55;
constexpr int kTwo = 56, kThree = 57, kSeven = 58, kEleven = 59, kTwelve = 60;
constexpr int kCraps = 61, kCandE = 62, kHorn = 63, kWorld = 64;
constexpr int kOver7 = 65, kUnder7 = 66;
constexpr int kHopFirst = 67, kHopLast = 83;
constexpr int kMidway = 84, kFire = 85;
constexpr int kRail = 93;
constexpr int kCheckStackFirst = 100, kCheckStackLast = 199;
constexpr int kLastNamed = 104;  // BetName runs 0..104
}  // namespace bet

constexpr int kLastRealBet = bet::kFire;  // ids 1..85 are real bets

// Index 0..5 of box number n (4, 5, 6, 8, 9, 10): 8 gives 3.
constexpr int BoxIndex(int n) { return n - 4 - n / 7; }
// Box number of index 0..5.
constexpr int BoxNumber(int index) { return index < 3 ? index + 4 : index + 5; }
// Lay id of box number n.
constexpr int LayId(int n) { return n - 3 - n / 7; }
// Don't Come point id of box number n.
constexpr int DontComeId(int n) { return n + 3 - n / 7; }
// Come point id of box number n.
constexpr int ComeId(int n) { return n + 15 - n / 7; }
// Place id of box number n.
constexpr int PlaceId(int n) { return n + 27 - n / 7; }
// Buy id of box number n.
constexpr int BuyId(int n) { return n + 33 - n / 7; }
// True for the six box numbers.
constexpr bool IsBoxNumber(int n) { return n >= 4 && n <= 10 && n != 7; }

// Hop bets: id 67 + i is the pair (kHopDice[i][0], kHopDice[i][1]).
constexpr int kHopCount = 17;
constexpr int kHopDice[kHopCount][2] = {{1, 3}, {1, 4}, {1, 5}, {1, 6}, {2, 2}, {2, 3},
                                        {2, 4}, {2, 5}, {2, 6}, {3, 3}, {3, 4}, {3, 5},
                                        {3, 6}, {4, 4}, {4, 5}, {4, 6}, {5, 5}};
// Hop id of the dice in either order, or 0 when the pair has no hop bet
// (1-1, 1-2, 5-6 and 6-6 are the bets Two, Three, Eleven and Twelve).
constexpr int HopId(int die1, int die2) {
  const int lo = die1 < die2 ? die1 : die2, hi = die1 < die2 ? die2 : die1;
  for (int i = 0; i < kHopCount; ++i)
    if (kHopDice[i][0] == lo && kHopDice[i][1] == hi) return bet::kHopFirst + i;
  return 0;
}

// Groups by id range.
constexpr bool IsLay(int b) { return b >= bet::kLayFirst && b <= bet::kLayLast; }
constexpr bool IsDontComePoint(int b) { return b >= 7 && b <= 12; }
constexpr bool IsDontComeOdds(int b) { return b >= 13 && b <= 18; }
constexpr bool IsComePoint(int b) { return b >= 19 && b <= 24; }
constexpr bool IsComeOdds(int b) { return b >= 25 && b <= 30; }
constexpr bool IsPlace(int b) { return b >= 31 && b <= 36; }
constexpr bool IsBuy(int b) { return b >= 37 && b <= 42; }
constexpr bool IsLineBet(int b) { return b == bet::kPassLine || b == bet::kDontPass; }
constexpr bool IsLineOdds(int b) { return b == bet::kPassLineOdds || b == bet::kDontPassOdds; }
constexpr bool IsContract(int b) { return b == bet::kCome || b == bet::kDontCome; }
// Any odds bet: Don't Come odds, Come odds and the two line odds.
constexpr bool IsOddsBet(int b) { return IsDontComeOdds(b) || IsComeOdds(b) || IsLineOdds(b); }
constexpr bool IsBig(int b) { return b == bet::kBig6 || b == bet::kBig8; }
constexpr bool IsHard(int b) { return b >= bet::kHard4 && b <= bet::kHard10; }
constexpr bool IsSingleNumber(int b) { return b >= bet::kTwo && b <= bet::kTwelve; }
constexpr bool IsSplit(int b) { return b >= bet::kCandE && b <= bet::kWorld; }
constexpr bool IsHop(int b) { return b >= bet::kHopFirst && b <= bet::kHopLast; }
// The bets decided on every roll (Field, the propositions, hops, Midway).
constexpr bool IsOneRoll(int b) {
  return b == bet::kField || (b >= bet::kTwo && b <= bet::kUnder7) || IsHop(b) || b == bet::kMidway;
}
constexpr bool IsRealBet(int b) { return b >= 1 && b <= 85; }
constexpr bool IsCheckStack(int b) {
  return b >= bet::kCheckStackFirst && b <= bet::kCheckStackLast;
}
// Odds bet that hangs on flat bet b (Don't Come and Come points), else 0.
constexpr int OddsOf(int b) {
  if (IsDontComePoint(b) || IsComePoint(b)) return b + 6;
  if (b == bet::kPassLine) return bet::kPassLineOdds;
  if (b == bet::kDontPass) return bet::kDontPassOdds;
  return 0;
}
// Flat bet under odds bet b, else 0.
constexpr int FlatOf(int b) {
  if (IsDontComeOdds(b) || IsComeOdds(b)) return b - 6;
  if (b == bet::kPassLineOdds) return bet::kPassLine;
  if (b == bet::kDontPassOdds) return bet::kDontPass;
  return 0;
}

// Working state a bet returns to at the come-out: 0 for Come odds, Place,
// Buy, Pass Line odds, Come, Don't Pass odds and Don't Come; 1 otherwise.
constexpr int DefaultWorking(int b) {
  return ((b >= 25 && b <= 42) || b == 44 || b == 45 || b == 47 || b == 48) ? 0 : 1;
}

// Default comp-rating masks: bit i - 1 of mask 1 for ids up to 31, bit
// i - 32 of mask 2 up to 62, bit i - 63 of mask 3 above. The odds bets
// (13-18, 25-30, 44, 47) are not rated.
constexpr std::uint32_t kDefaultCompMask1 = 0xC0FC0FFFu;
constexpr std::uint32_t kDefaultCompMask2 = 0xFFFF6FFFu;
constexpr std::uint32_t kDefaultCompMask3 = 0xFFFFFFFFu;
// True when id b (1..85) is rated under the three masks.
constexpr bool CompRated(int b, std::uint32_t m1, std::uint32_t m2, std::uint32_t m3) {
  if (b <= 31) return (m1 >> (b - 1)) & 1u;
  if (b <= 62) return (m2 >> (b - 32)) & 1u;
  return (m3 >> (b - 63)) & 1u;
}

// Name of bet id 0..104; empty for ids without a bet and out of range.
std::string_view BetName(int id);
// Sets BetWorkingDefault of the table (slot 0) for ids 1..85.
void SetDefaultWorking(Game& game);
