#include "engine/setting_changes.h"

#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/payoff_math.h"
#include "core/platform.h"
#include "engine/place.h"
#include "engine/resolve.h"

namespace {

struct SwitchInfo {
  int bets[2];
  int count;
  const char* title;
  const char* text;
};

const SwitchInfo& Info(BetSwitch which) {
  static const SwitchInfo kInfo[3] = {
      {{bet::kBig6, bet::kBig8},
       2,
       "Remove Big 6 / Big 8 Bets",
       "There are presently bets on the Big 6 and/or Big 8 which will be "
       "removed if you continue with "
       "this operation.  Would you like to continue?"},
      {{bet::kMidway, 0},
       1,
       "Remove Midway Bets",
       "There are currently Midway bets present which will be removed if you "
       "continue with this "
       "operation.  Would you like to continue?"},
      {{bet::kFire, 0},
       1,
       "Remove Fire Bets",
       "There are presently wagers on the Fire bet which will be removed if "
       "you continue with this "
       "operation.  Would you like to continue?"},
  };
  return kInfo[static_cast<int>(which)];
}

bool& SwitchSetting(TableSettings& rules, BetSwitch which) {
  switch (which) {
    case BetSwitch::Big68:
      return rules.UseBig68;
    case BetSwitch::Midway:
      return rules.UseMidwayBet;
    case BetSwitch::Fire:
      break;
  }
  return rules.UseFireBet;
}

void RedrawTable(Game& game) {
  if (!game.HyperDrive && game.platform != nullptr) game.platform->RequestRedraw(Redraw::Table);
}

int VigBase(VigSide side) { return side == VigSide::Buy ? bet::kBuyFirst : bet::kLayFirst; }

}  // namespace

bool AnyBetUnder(const Game& game, BetSwitch which) {
  const SwitchInfo& info = Info(which);
  for (int p = 1; p <= 8; ++p)
    for (int i = 0; i < info.count; ++i)
      if (!game.Bet(p, info.bets[i]).IsZero()) return true;
  return false;
}

bool ChangeBetSwitch(Game& game, BetSwitch which, bool on) {
  if (!on && AnyBetUnder(game, which)) {
    const SwitchInfo& info = Info(which);
    if (ShowNotice(game, info.text, info.title, kHelpLimits, kMsgYes | kMsgNo | kMsgPicQmark) !=
        kAnswerYes)
      return false;
    for (int p = 1; p <= 8; ++p)
      for (int i = 0; i < info.count; ++i) {
        const int b = info.bets[i];
        if (game.Bet(p, b).IsZero()) continue;
        game.BetRequest = -game.Bet(p, b);
        SetBetChecked(game, p, b);
      }
  }
  SwitchSetting(game.rules, which) = on;
  RedrawTable(game);
  return true;
}

void RefigureVig(Game& game, VigSide side) {
  const int base = VigBase(side);
  for (int p = 1; p <= 8; ++p)
    for (int i = 0; i <= 5; ++i) {
      const Currency amount = game.Bet(p, base + i);
      if (side == VigSide::Buy)
        game.BuyVig(p, i) = FigureBuyVig(game, base + i, amount);
      else
        game.LayVig(p, i) = FigureLayVig(game, base + i, amount);
    }
}

std::string VigRefusalText(int playerCount) {
  std::string s;
  if (playerCount <= 1) {
    s = "You're not allowed to change this setting at this time because you "
        "don't have enough bankroll "
        "remaining to pay the added up-front vig that would be required.\r\r"
        "You can remedy this by doing one or more of the following:";
  } else {
    s = "You're not allowed to change this setting at this time because one or "
        "more players doesn't have "
        "enough bankroll remaining to pay the added up-front vig that would be "
        "required.\r\r"
        "This can be remedied by doing one or more of the following:";
  }
  s += "\r\r -- Make a withdrawal from the ATM\r -- Reduce the amount on "
       "current bets\r -- Check "
       "\"Allow negative bankroll amounts\"";
  return s;
}

namespace {

// Stores a value of one vig control, refigures what depends on it, and says
// whether every player can still pay.
template <class T>
bool ApplyVigControl(Game& game, VigSide side, T TableSettings::*buy, T TableSettings::*lay,
                     T value, bool refigure) {
  game.rules.*(side == VigSide::Buy ? buy : lay) = value;
  if (refigure) RefigureVig(game, side);
  for (int p = 1; p <= 8; ++p) game.TotalBets(p) = TotalUpBets(game, p);
  for (int p = 1; p <= 8; ++p) {
    if (game.betting.AllowNegBankroll(p)) continue;
    if (game.Bet(p, bet::kBankroll) - game.TotalBets(p) < Currency{}) return false;
  }
  return true;
}

template <class T>
bool ChangeVigControl(Game& game, VigSide side, T TableSettings::*buy, T TableSettings::*lay,
                      T value, bool refigure) {
  const T old = game.rules.*(side == VigSide::Buy ? buy : lay);
  if (ApplyVigControl(game, side, buy, lay, value, refigure)) return true;
  ShowNotice(game, VigRefusalText(game.PlayerCount),
             side == VigSide::Buy ? "Buy Bet Vig" : "Lay Bet Vig", kHelpLimits,
             kMsgOk | kMsgPicStop);
  ApplyVigControl(game, side, buy, lay, old, refigure);
  return false;
}

}  // namespace

bool ChangeVigRate(Game& game, VigSide side, Currency rate) {
  return ChangeVigControl(game, side, &TableSettings::BuyVigRate, &TableSettings::LayVigRate, rate,
                          true);
}

bool ChangeVigRounding(Game& game, VigSide side, Long rounding) {
  return ChangeVigControl(game, side, &TableSettings::BuyVigRound, &TableSettings::LayVigRound,
                          rounding, true);
}

bool ChangeVigUpFront(Game& game, VigSide side, bool upFront) {
  return ChangeVigControl(game, side, &TableSettings::BuyVigUpFront, &TableSettings::LayVigUpFront,
                          upFront, false);
}

void SetTableWorkingDefault(Game& game, int bet, Long working) {
  if (!IsRealBet(bet)) return;
  game.BetWorkingDefault(0, bet) = working;
  ResetWorkingFlags(game);
}

void RestoreTableWorkingDefault(Game& game, int bet) {
  if (!IsRealBet(bet)) return;
  SetTableWorkingDefault(game, bet, DefaultWorking(bet));
}
