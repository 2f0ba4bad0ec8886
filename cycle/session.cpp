#include "cycle/session.h"

#include <cctype>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/seat_set.h"
#include "core/platform.h"
#include "core/seats.h"
#include "core/text.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/bankroll.h"
#include "engine/players.h"
#include "engine/roll_internal.h"
#include "stats/sessions_log.h"

namespace {

void RemoveFile(const std::string& path) {
  std::error_code ec;
  std::filesystem::remove(path, ec);
}

// Copies frame index `from` to `to` and/or clears index i, for tables of one to three subscripts.
template <class T, int L, int H>
void CopyIndex(Table1<T, L, H>& t, int from, int to) {
  t(to) = t(from);
}
template <class T, int L1, int H1, int L2, int H2>
void CopyIndex(Table2<T, L1, H1, L2, H2>& t, int from, int to) {
  for (int j = L2; j <= H2; ++j) t(to, j) = t(from, j);
}
template <class T, int L1, int H1, int L2, int H2, int L3, int H3>
void CopyIndex(Table3<T, L1, H1, L2, H2, L3, H3>& t, int from, int to) {
  for (int k = L3; k <= H3; ++k)
    for (int j = L2; j <= H2; ++j) t(to, j, k) = t(from, j, k);
}
template <class T, int L, int H>
void ClearIndex(Table1<T, L, H>& t, int i) {
  t(i) = T{};
}
template <class T, int L1, int H1, int L2, int H2>
void ClearIndex(Table2<T, L1, H1, L2, H2>& t, int i) {
  for (int j = L2; j <= H2; ++j) t(i, j) = T{};
}
template <class T, int L1, int H1, int L2, int H2, int L3, int H3>
void ClearIndex(Table3<T, L1, H1, L2, H2, L3, H3>& t, int i) {
  for (int k = L3; k <= H3; ++k)
    for (int j = L2; j <= H2; ++j) t(i, j, k) = T{};
}

void StartStatistics(Game& g, bool preserveGames) {
  if (!preserveGames) {
    ForEachFrameTable(g, [](auto& t) { t.Fill({}); });
    return;
  }
  if (g.RollTally(kTableSession, kEventRolls) > 0)
    ForEachFrameTable(g, [](auto& t) {
      for (int p = 0; p < kPlayerSlots; ++p)
        CopyIndex(t, FrameIndex(p, kFrameCurrentSession), FrameIndex(p, kFrameLastSession));
    });
  // A new session starts the hand and session frames afresh; the last
  // session (just carried) and all sessions stay.
  ForEachFrameTable(g, [](auto& t) {
    for (Frame frame : {kFrameCurrentHand, kFrameLastHand, kFrameCurrentSession})
      for (int p = 0; p < kPlayerSlots; ++p) ClearIndex(t, FrameIndex(p, frame));
  });
}

// The session's first lines: a rule after an earlier log, the date, the players.
void LogSessionOpening(Game& g) {
  FlushEventsLog(g);
  // A path the system cannot look at (too long, in a folder not ours to
  // read) is no earlier log; its write then fails as a log write does.
  std::error_code unseen;
  if (std::filesystem::exists(g.roll.EventsLogPath, unseen))
    WriteEventLine(g, "============================================");
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  char date[32], time[32];
  std::strftime(date, sizeof date, "%m/%d/%Y", &local);
  std::strftime(time, sizeof time, "%I:%M:%S %p", &local);
  WriteEventLine(g, std::string(" New session started ") + date + " @ " + time);
  if (g.PlayerCount > 0) {
    WriteEventLine(g, "    Players:");
    for (int p = 1; p <= 8; ++p) {
      if (!SeatNamed(g, p)) continue;
      std::string l = "      " + g.PlayerName[static_cast<std::size_t>(p)] + " at stick " +
                      RailPositionName(p) + " with $";
      AppendPlainAmount(l, g.Bet(p, bet::kBankroll));
      WriteEventLine(g, l);
    }
  }
}

// The dice roll file in play, then the hand about to start.
void LogSessionComeOut(Game& g) {
  if (g.diceFile.DiceFileMode == kDiceFilePlayback)
    WriteEventLine(g, "    Dice roll file playback active (" + g.diceFile.DiceFilePath + ")");
  if (g.Shooter == 0)
    WriteEventLine(g, "----New hand, come-out roll----------");
  else if (g.roll.LogNewHand)
    WriteEventLine(g, "----New shooter (" + g.PlayerName[static_cast<std::size_t>(g.Shooter)] +
                          ") coming out----------");
}

}  // namespace

void LogSessionStart(Game& g) {
  if (!g.roll.LogOn) return;
  LogSessionOpening(g);
  LogSessionComeOut(g);
}

void NewSession(Game& g, bool preserveGames, bool preserveCheckstacks, bool preserveSessionsLogs,
                int diceMode) {
  RollState& r = g.roll;
  // Each named player's closing record of the session goes to the sessions log.
  WriteSessionRecords(g);
  if (!preserveSessionsLogs) {
    for (int p = 1; p <= 8; ++p) {
      if (!SeatNamed(g, p)) continue;
      r.SessionLogPath[static_cast<std::size_t>(p)] = DefaultSessionLogPath(g, p);
      RemoveFile(r.SessionLogPath[static_cast<std::size_t>(p)]);
    }
  }

  StartStatistics(g, preserveGames);

  g.RollsSince.Fill(0);
  g.GapTally.Fill(0);
  g.BuyVig.Fill({});
  g.LayVig.Fill({});
  g.ComeFlatAtSet.Fill({});
  g.BetTrend.Fill(0);
  r.ScriptActiveAtRoll.fill(false);
  g.ComeoutsThisHand = g.PassesThisHand = g.MissesThisHand = 0;
  g.PointsMadeMask = g.PointsMade = 0;
  g.gamefile.CheckImages.clear();

  Currency remembered[kPlayerSlots] = {};
  for (int p = 1; p <= 8; ++p) {
    remembered[p] = g.Bet(p, bet::kBankroll);
    for (int b = 0; b <= kLastRealBet; ++b) {
      g.Bet(p, b) = {};
      g.BetAtRoll(p, b) = {};
      g.BetAfterRoll(p, b) = {};
      g.BetContract(p, b) = {};
    }
    if (!preserveCheckstacks) {
      for (int b = 100; b <= 199; ++b) g.Bet(p, b) = g.BetAtRoll(p, b) = g.BetAfterRoll(p, b) = {};
      for (int n = 0; n <= 99; ++n) g.CheckStackName(p, n).clear();
    }
    // With the stacks kept, the window redraws their check images here.
    g.TotalBets(p) = {};
  }
  for (int p = 0; p < kPlayerSlots; ++p)
    for (int b = 1; b <= kLastRealBet; ++b)
      g.BetWorkingAfterRoll(p, b) = g.BetWorking(p, b) = g.BetWorkingDefault(p, b);

  for (int p = 1; p <= 8; ++p) {
    if (!SeatNamed(g, p)) continue;
    SetBeginningBankroll(g, p, remembered[p]);
  }

  StraightenGraphRows(g);  // the trend stays, in logical order
  g.GraphBankroll.Fill({});
  r.GraphScale = Currency::FromWhole(1);
  r.GraphTop = Currency::FromWhole(150);
  g.GraphRollCount = 0;
  for (int p = 1; p <= 8; ++p) {
    g.GraphBankroll(p, 0) = Currency::FromWhole(1);
    g.GraphHigh(p) = g.GraphLow(p) = g.Bet(p, bet::kBankroll);
  }
  g.platform->RequestRedraw(Redraw::Graph);
  g.StopMessage.clear();

  if (r.LogClearOnNew) ClearEventsLog(g);

  g.HandShooter = g.Shooter;
  g.Point = g.PointAtRoll = g.PointBeforeLast = g.LastPoint = 0;

  ApplyNewSessionDiceMode(g, diceMode);

  if (r.LogOn) LogSessionOpening(g);
  if (g.dice.ReseedEachSession) SeedRng(g);
  if (r.LogOn) LogSessionComeOut(g);

  g.platform->RequestRedraw(Redraw::OpenViews);
  if (!g.HyperDrive) g.platform->RequestRedraw(Redraw::Table);
}
