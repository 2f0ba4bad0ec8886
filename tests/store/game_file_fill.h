// A game whose every stored table and setting holds a value of its own, for
// the round trip of the game file, and the list of what the file does not
// keep (copied from the reopened game before the two are compared whole).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "config/payoffs.h"
#include "core/game.h"
#include "core/seats.h"
#include "core/text.h"

namespace fill {

// Gives every cell a value no other cell has (ranges are set afterwards).
struct Counter {
  std::int64_t n = 1;
  void operator()(Currency& c) { c = Currency::FromRaw(7 * n++ + 1); }
  void operator()(std::int32_t& v) { v = static_cast<std::int32_t>(n++); }
  void operator()(bool& v) { v = (n++ % 2) != 0; }
  void operator()(float& v) { v = static_cast<float>(n++) + 0.25f; }
  void operator()(std::string& s) { s = "t" + std::to_string(n++); }
  template <class T>
  void operator()(std::vector<T>&) {}  // scripts and compiled code come from their files
  void operator()(std::array<std::uint64_t, 2>&) {}
  template <class Table>
    requires requires(Table t) { t.cells; }
  void operator()(Table& t) {
    for (auto& c : t.cells) (*this)(c);
  }
  template <class T, std::size_t N>
  void operator()(std::array<T, N>& a) {
    for (auto& c : a) (*this)(c);
  }
};

// Payoff rows a : d with the "to" flag on odd rows.
template <class Table>
void Payoffs(Table& t, int rows, Counter& next) {
  for (int i = 1; i <= rows; ++i) {
    t(1, i) = Currency::FromWhole(next.n++ % 40 + 1);
    t(2, i) = Currency::FromWhole(i % 2 ? -1 : 0);
    t(3, i) = Currency::FromWhole(next.n++ % 9 + 1);
  }
}

inline void FillGame(Game& g, const std::array<const char*, 9>& names) {
  Counter next;
  ForEachSeatTable([&](const char*, auto, SeatReset, auto& table) { next(table); }, g);
  for (int p = 0; p <= 8; ++p) g.PlayerName[p] = names[p];
  g.PlayerName[0] = "House";
  next(g.RollsSince);
  g.RollsSince(kEventRolls) = g.RollTally(kTableSession, kEventRolls);  // as every roll keeps it
  next(g.GapTally);
  Payoffs(g.PayoffTbl, 100, next);
  Payoffs(g.FieldPayoff, 21, next);
  Payoffs(g.MidwayPayoff, 5, next);
  Payoffs(g.FirePayoff, 6, next);
  next(g.GraphRollCount);
  g.GraphRollCount %= kGraphColumns;

  // The game in hand (the line odds rows follow its point).
  g.Die1 = 2, g.Die2 = 5;
  g.Point = 9, g.PointAtRoll = 6, g.PointBeforeLast = 10;
  g.PointsMadeMask = 0b101101;
  g.PointsMade = 4;
  SetLineOddsPayoffs(g);
  g.ComeoutsThisHand = 3, g.PassesThisHand = 4, g.MissesThisHand = 5;
  g.Shooter = 0, g.HandShooter = 0, g.PrevHandShooter = 0;
  for (int p = 8; p >= 1; --p) {
    if (g.PlayerName[p].empty()) continue;
    g.Shooter = p;
    if (g.HandShooter == 0) g.HandShooter = p;
    else if (g.PrevHandShooter == 0) g.PrevHandShooter = p;
  }
  g.betting.CurPlayer = g.Shooter;
  g.dice.Rng3State = 12345, g.dice.LastSeed = 777, g.dice.RngIndex = 6;
  g.dice.UserSeedMode = true, g.dice.ReseedEachSession = false, g.dice.ProbabilityDiceOn = true;

  // Every player's rules within their ranges.
  for (int p = 0; p <= 8; ++p) {
    for (int b = 0; b <= 100; ++b) {
      g.BetWorking(p, b) = (p + b) % 4 - 1;
      g.BetWorkingDefault(p, b) = (p + 2 * b) % 4 - 1;
    }
    AutoPlayState& a = g.autoplay;
    g.betting.StartBankrollMode(p) = p % 4;
    a.AutoAdjustMode(p) = p % 3;
    a.HandleWinningBets(p) = p % 8;
    a.HandleLosingBets(p) = (p + 3) % 8;
    a.LayBias(p) = p % 3, a.PlaceBias(p) = (p + 1) % 3, a.DoBias(p) = (p + 2) % 3, a.DontBias(p) = 1;
    for (int k = 1; k <= 4; ++k) g.betting.CheckStackSlot(p, k) = 100 + 10 * k + p;
    for (int k = 5; k <= 12; ++k) {
      a.AdjustOperator(p, k) = (p + k) % 4;
      a.AdjustUnits(p, k) = Currency::FromWhole((p + k) % 7);
    }
    g.roll.SessionLogPath[p] = g.roll.DataFolder + LowerCase(g.PlayerName[p]) + ".slg";
    g.scriptSource.ScriptFile[p].clear();  // scripts and their files are tested on their own
  }
  g.betting.AtmAmount = Currency::FromWhole(123);
  g.betting.KeyInBetAmounts = true, g.betting.DisplayZeroStacks = true;
  g.betting.CheckStacksPlayer = 3, g.betting.BankrollTabPlayer = 4;
  g.autoplay.SelectedPlayers = 0b10110;
  g.scriptSource.EdPlayer = 5;

  TableSettings& t = g.rules;
  t.MinPlacardBet = Currency::FromWhole(3), t.MaxPlacardBet = Currency::FromWhole(3001);
  t.MaxPropBetPayoff = Currency::FromWhole(4001), t.MaxOddsBet = Currency::FromWhole(5001);
  t.MaxFireBet = Currency::FromWhole(7);
  t.OddsAllowed410 = Currency::FromWhole(3), t.OddsAllowed59 = Currency::FromWhole(4);
  t.OddsAllowed68 = Currency::FromRaw(55000);
  t.OddsCalcMethod = 4, t.BetRequirement = 2, t.BarNumber = 2;
  t.AllowPutBets = false, t.UseBig68 = false, t.UseMidwayBet = false, t.UseFireBet = true;
  t.BuyVigRate = Currency::FromRaw(400), t.LayVigRate = Currency::FromRaw(300);
  t.BuyVigUpFront = false, t.LayVigUpFront = true, t.BuyVigRound = 2, t.LayVigRound = 1;
  t.AutoArrangeChecks = false, t.UseCentsSymbol = false, t.DiceAction = 2;
  t.RollsPerHour = Currency::FromWhole(99), t.CheckStyle = 4, t.DiceStyle = 3, t.SelectedCheck = 3;
  t.CompRate = Currency::FromWhole(31), t.CompBase = 2, t.CompsUseTrueProbs = false;
  t.CompBets = {0, 11, 22, 33};
  t.DiceSoundSet = 2, t.ChipSoundSet = 3, t.WinSoundSet = 4, t.StickCallSet = 5;
  t.SoundMuted = true, t.AutoBetSoundsOff = true, t.SnapCursorToButton = false;
  t.ColorPrint = false, t.PrintColors = {1, 2, 13};
  t.NoticeFlags = 21, t.ConfigureTab = 6;

  RollState& r = g.roll;
  r.LogOn = true, r.LogRolls = false, r.LogBets = true, r.LogStacks = false, r.LogNewHand = true;
  r.LogWins = false, r.LogLosses = true, r.LogPasses = false, r.LogBankroll = true;
  r.LogClearOnNew = true;
  r.GraphPlotType = 1, r.GraphShowAverage = true, r.GraphAutoPrint = true;
  r.GraphScale = Currency::FromRaw(25000), r.GraphBaseScale = Currency::FromRaw(35000);
  r.GraphTop = Currency::FromWhole(170);
  r.ScriptActive[0] = true;
  g.hyper.HyperThrottle = 7;
  g.hyper.HyperDelaySeconds = Currency::FromWhole(12);
  g.hyper.AutoStopRolls = Currency::FromWhole(5000);

  GameFileState& f = g.gamefile;
  ViewsState& v = g.views;
  TableState& tv = g.table;
  next(f.LayoutA);
  next(f.LayoutB);
  for (SavedTableView& view : tv.SavedView) {
    next(view.zoom), next(view.rotation), next(view.offsetA), next(view.offsetB);
  }
  next(tv.TableRotation), next(tv.TableOffsetA), next(tv.TableOffsetB), next(tv.TableZoom);
  next(v.SummaryPlayers), next(v.BetResultsPlayers), next(f.BankrollPlayer), next(f.GamesPlayer);
  next(v.HandsPlayers), next(v.BetTrendsPlayer);
  f.LogLatestOnTop = true, f.LogBold = true, f.LogItalic = false;
  next(f.LogFontSize);
  g.advantage.CountZeroOutcomes = true, g.advantage.ShowMiscData = true;
  next(g.advantage.AdvantageTopRow), next(f.PayoffsScroll);
  next(tv.PaletteColor), next(tv.LayoutColor), next(tv.TablePreset);
  tv.Spotlight = false;
  for (auto* x : {&v.RollTotalsKind, &f.RollTotalsBackColor, &f.RollTotalsGraphColor,
                  &f.RollTotalsScrollX, &f.RollTotalsScrollY,
                  &v.RollTotalsFrame, &v.RollTotalsPlayers, &v.BetResultsFrame,
                  &v.HandsFrame, &v.SummaryFrame, &tv.StatusView, &f.CheckStacksScroll,
                  &f.CheckStacksFontSize, &v.SessionsFilter, &v.SessionsView,
                  &f.RyonKind, &f.RyonColor, &f.DiceFilesFontSize, &f.BankrollReferenceLines,
                  &f.BankrollColor, &f.BankrollAdjustType, &f.BankrollGraphType,
                  &f.BankrollGridLines, &f.BankrollAverageSpan, &f.EditorStepsWindow,
                  &f.EditorLineNumbers, &f.EditorSyntaxLists, &f.EditorAutoIndent,
                  &f.EditorHighlight, &f.EditorItalic, &f.EditorBold, &f.EditorFontSize})
    next(*x);
  v.BetResultsSelection = "Pass Line, Field";
  v.RollTotalsVsSkewed = true, v.HandsShowPercent = true;
  v.RollFreqCategory = 33;
  tv.AutoSize = true, tv.DisplayBetAmounts = true, tv.HopBetsShown = true;
  f.EnterBetId = 102;
  f.CheckStacksItalic = true, f.CheckStacksBold = false;
  DiceFileState& d = g.diceFile;
  d.optInsertRolls = true;
  d.DiceFileMode = 2, d.DiceFilePos = 17, d.DiceSelEnd = 17, d.DiceFileLast = 40;
  d.DiceOutputFormat = "Roll# (Die1.Die2) Total";
  for (int i = 1; i <= 6; ++i)
    for (int j = 1; j <= 6; ++j) d.HighlightCombo(i, j) = (i * j) % 3 == 1;
  for (int p = 1; p <= 8; ++p) {
    g.scriptRun.AllowReset(p) = p % 2;
    g.scriptRun.AllowActForOthers(p) = p % 3 == 0;
    g.scriptRun.AllowDiceFiles(p) = p % 4 == 1;
    g.scriptRun.AllowAnyFolder(p) = p % 5 == 2;
  }
  g.probability.ProbDisplayMode = 3;
  g.probability.RollsOutOf = 37.125;
  for (int i = 0; i < 30; ++i)
    f.CheckImages.push_back({static_cast<std::int16_t>(i % 9), static_cast<std::int16_t>(i * 3),
                             static_cast<std::int16_t>(i % 5), static_cast<std::int16_t>(-i),
                             static_cast<std::int16_t>(1000 + i)});
}

}  // namespace fill
