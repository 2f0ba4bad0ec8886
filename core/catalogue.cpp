#include "core/catalogue.h"

#include <array>

#include "core/game.h"

namespace {

constexpr std::array<std::string_view, bet::kLastNamed + 1> kBetNames = [] {
  std::array<std::string_view, bet::kLastNamed + 1> n{};
  constexpr std::string_view lay[] = {"Lay 4", "Lay 5", "Lay 6", "Lay 8", "Lay 9", "Lay 10"};
  constexpr std::string_view dc[] = {"Don't Come 4", "Don't Come 5", "Don't Come 6",
                                     "Don't Come 8", "Don't Come 9", "Don't Come 10"};
  constexpr std::string_view dco[] = {"Don't Come 4 Odds", "Don't Come 5 Odds",
                                      "Don't Come 6 Odds", "Don't Come 8 Odds",
                                      "Don't Come 9 Odds", "Don't Come 10 Odds"};
  constexpr std::string_view come[] = {"Come 4", "Come 5", "Come 6", "Come 8", "Come 9", "Come 10"};
  constexpr std::string_view co[] = {"Come 4 Odds", "Come 5 Odds", "Come 6 Odds",
                                     "Come 8 Odds", "Come 9 Odds", "Come 10 Odds"};
  constexpr std::string_view place[] = {"Place 4", "Place 5", "Place 6",
                                        "Place 8", "Place 9", "Place 10"};
  constexpr std::string_view buy[] = {"Buy 4", "Buy 5", "Buy 6", "Buy 8", "Buy 9", "Buy 10"};
  for (int i = 0; i < 6; ++i) {
    n[1 + i] = lay[i];
    n[7 + i] = dc[i];
    n[13 + i] = dco[i];
    n[19 + i] = come[i];
    n[25 + i] = co[i];
    n[31 + i] = place[i];
    n[37 + i] = buy[i];
  }
  constexpr std::string_view rest[] = {
      "Pass Line",  "Pass Line Odds", "Come",    "Don't Pass", "Don't Pass Odds",
      "Don't Come", "Field",          "Big 6",   "Big 8",      "Hard 4",
      "Hard 6",     "Hard 8",         "Hard 10", "Two",        "Three",
      "Seven",      "Eleven",         "Twelve",  "Craps",      "C and E",
      "Horn",       "World",          "Over 7",  "Under 7"};
  for (int i = 0; i < 24; ++i) n[43 + i] = rest[i];
  constexpr std::string_view hops[] = {"Hop 13", "Hop 14", "Hop 15", "Hop 16", "Hop 22", "Hop 23",
                                       "Hop 24", "Hop 25", "Hop 26", "Hop 33", "Hop 34", "Hop 35",
                                       "Hop 36", "Hop 44", "Hop 45", "Hop 46", "Hop 55"};
  for (int i = 0; i < kHopCount; ++i) n[67 + i] = hops[i];
  n[84] = "Midway";
  n[85] = "Fire";
  n[93] = "Rail";
  n[101] = "CheckStack #1";
  n[102] = "CheckStack #2";
  n[103] = "CheckStack #3";
  n[104] = "CheckStack #4";
  return n;
}();

static_assert(BoxIndex(8) == 3 && ComeId(8) == 22 && PlaceId(8) == 34 && DontComeId(8) == 10);
static_assert(LayId(10) == 6 && BuyId(4) == 37 && BoxNumber(BoxIndex(9)) == 9);

}  // namespace

std::string_view BetName(int id) {
  if (id < 0 || id > bet::kLastNamed) return {};
  return kBetNames[static_cast<std::size_t>(id)];
}

void SetDefaultWorking(Game& game) {
  for (int b = 1; b <= kLastRealBet; ++b) game.BetWorkingDefault(0, b) = DefaultWorking(b);
}
