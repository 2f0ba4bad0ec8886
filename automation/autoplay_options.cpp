// What a change on the Auto-Play form does to the game.
#include <string>

#include "automation/autoplay.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/place.h"
#include "core/platform.h"
#include "engine/resolve.h"
#include "engine/settle_text.h"

namespace {

bool Selected(std::int32_t players, int p) { return (players >> p) & 1; }

}  // namespace

void ApplyAutoAdjust(Game& g, int p) {
  const Long saved = g.rules.NoticeFlags;
  g.rules.NoticeFlags = 0;
  bool changed = false;
  for (int b = 1; b <= kLastRealBet; ++b) {
    if (g.Bet(p, b) <= Currency{}) continue;
    const Currency before = g.Bet(p, b);
    g.BetRequest = Currency{};
    SetBetChecked(g, p, b);
    changed |= g.Bet(p, b) != before;
  }
  g.rules.NoticeFlags = saved;
  if (changed && !g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
}

void ChangeAutoTakeFullOdds(Game& g, int p, bool on) {
  g.autoplay.AutoTakeFullOdds(p) = on;
  if (on) TakeFullOdds(g, p);
}

void ChangeAutoLayFullOdds(Game& g, int p, bool on) {
  g.autoplay.AutoLayFullOdds(p) = on;
  if (on) LayFullOdds(g, p);
}

void ChangeAutoDownPlaceBets(Game& g, int p, bool on) {
  g.autoplay.AutoDownPlaceBets(p) = on;
  if (!on) return;
  for (int i = 0; i < 6; ++i)
    if (g.Bet(p, bet::kComePointFirst + i) > Currency{}) RemoveBet(g, p, bet::kPlaceFirst + i);
  if (g.Bet(p, bet::kPassLine) > Currency{} && IsBoxNumber(g.Point))
    RemoveBet(g, p, PlaceId(g.Point));
}

void ChangeAutoAdjustMode(Game& g, int p, int mode) {
  g.autoplay.AutoAdjustMode(p) = mode < 0 || mode > 2 ? 0 : mode;
  if (g.autoplay.AutoAdjustMode(p) > 0) ApplyAutoAdjust(g, p);
}

const char* OperatorCaption(int op) {
  static constexpr const char* kCaption[4] = {"+", "-", "x", "/"};
  return kCaption[op & 3];
}

int AutoPlayAmountColor(double amount, int op) { return amount != 0 && op == 1 ? 192 : 9; }

std::vector<int> ComeOutListIds() {
  std::vector<int> ids;
  for (int b = 1; b <= 84; ++b)
    if (!IsDontComePoint(b) && !IsComePoint(b) && (b < bet::kPassLine || b > bet::kDontCome))
      ids.push_back(b);
  return ids;
}

std::string ComeOutRowText(const Game& g, int p, int b) {
  return Cat(BetName(b), g.BetWorkingDefault(p, b) == 1 ? " - Yes" : " - No");
}

void SetComeOutWorking(Game& g, std::int32_t players, const std::vector<int>& ids, int value) {
  for (int p = 1; p <= 8; ++p)
    if (Selected(players, p))
      for (int b : ids)
        if (IsRealBet(b)) g.BetWorkingDefault(p, b) = value ? 1 : 0;
  ResetWorkingFlags(g);
  g.roll.SessionDirty = true;
}

void CopyComeOutDefaults(Game& g, std::int32_t players, const std::vector<int>& ids) {
  for (int p = 1; p <= 8; ++p)
    if (Selected(players, p))
      for (int b : ids)
        if (IsRealBet(b)) g.BetWorkingDefault(p, b) = g.BetWorkingDefault(0, b);
  ResetWorkingFlags(g);
  g.roll.SessionDirty = true;
}

std::string AutoPlayHeading(const Game& g, std::int32_t players) {
  if (g.PlayerCount == 0) return "No players present";
  int count = 0, first = 0;
  for (int p = 1; p <= 8; ++p)
    if (Selected(players, p) && !g.PlayerName[p].empty()) {
      if (count++ == 0) first = p;
    }
  if (count == 0) return "No players selected";
  // The heading has two lines: what it is, then whose settings.
  if (count == 1) return Cat("Settings for", "\r", g.PlayerName[first]);
  return Cat("Settings for these ", std::to_string(count), "\r", "selected players:");
}
