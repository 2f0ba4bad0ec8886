// The game file: a game whose every stored table holds a value of its own
// comes back whole and saves to the same bytes; records sit where the layout
// puts them; out-of-range values are repaired on reading; files that are
// missing, foreign, cut, damaged or random are refused with their message and
// leave the game in play exactly as it was; references to other files are
// checked; Game > Show Path lists every file in use. Then the Sessions
// Log's file commands: a new log deletes the player's default file after
// offering to save it, a session in progress is warned about, a new log for
// all players recreates every default file, and Save As copies the log byte
// for byte and makes the copy the player's log.
#include "store/game_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <random>
#include <set>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "config/payoffs.h"
#include "core/checksum.h"
#include "core/file_io.h"
#include "core/message_dialog.h"
#include "core/seats.h"
#include "core/text.h"
#include "dice/probability_file.h"
#include "engine/place.h"
#include "stats/sessions_log.h"
#include "store/game_file_records.h"
#include "store/paths_in_use.h"
#include "store/record_io.h"
#include "store/sessions_log_files.h"
#include "tests/engine/roll_fixture.h"
#include "tests/store/store_fixture.h"

namespace {

// A game whose every stored table and setting holds a value of its own.
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

void FillGame(Game& g, const std::array<const char*, 9>& names) {
  Counter next;
  ForEachSeatTable([&](const char*, auto, SeatReset, auto& table) { next(table); }, g);
  for (int p = 0; p <= 8; ++p) g.PlayerName[p] = names[p];
  g.PlayerName[0] = "House";
  for (int k = 0; k <= kLastEvent; ++k) g.RollsSince.Set(k, static_cast<Long>(next.n++));
  g.RollsSince.Set(kEventRolls, g.RollTally(kTableSession, kEventRolls));  // as every roll keeps it
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
  next(v.SummaryPlayers), next(v.BetResultsPlayers);
  v.SessionsPlayer = 7;
  next(v.HandsPlayers), next(v.BetTrendsPlayer);
  r.LogRollOnTop = true, f.LogBold = true, f.LogItalic = false;
  next(f.LogFontSize);
  g.advantage.CountZeroOutcomes = true, g.advantage.ShowMiscData = true;
  next(g.advantage.AdvantageTopRow), next(f.PayoffsScroll);
  next(tv.PaletteColor), next(tv.LayoutColor), next(tv.TablePreset);
  tv.Spotlight = false;
  for (auto* x : {&v.RollTotalsKind, &f.RollTotalsBackColor, &f.RollTotalsGraphColor,
                  &f.RollTotalsScrollX, &f.RollTotalsScrollY,
                  &v.RollTotalsPlayers, &tv.StatusView, &f.CheckStacksScroll,
                  &f.CheckStacksFontSize, &v.SessionsFilter, &v.SessionsView,
                  &f.DiceFilesFontSize,
                  &f.EditorLineNumbers, &f.EditorSyntaxLists, &f.EditorAutoIndent,
                  &f.EditorHighlight, &f.EditorItalic, &f.EditorBold, &f.EditorFontSize})
    next(*x);
  // The views' frames, each off its default.
  v.RollTotalsFrame = 1, v.BetResultsFrame = 3, v.HandsFrame = 4, v.SummaryFrame = 0;
  // The bankroll graph's player and options, each off its default.
  GraphViewState& graph = g.graph;
  graph.GraphPlayer = 6, graph.GraphAdjustType = 3, graph.GraphStyle = 2, graph.GraphColor = 9;
  graph.GraphShowGrid = false, graph.GraphShowRefLines = true, graph.GraphAverageSpan = 525;
  g.pad.PadOptions = 2 | 16 | 64, g.pad.PadColor = 2;  // the roll pad's kind, buttons and colours
  g.scriptRun.ShowSteps = true;
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


// Seat tables the file does not keep at all, with why. The round trip
// compares every other seat table through the seat visitor, so a table added
// to the game fails it until the file keeps it or it is named here.
const std::set<std::string_view> kSeatTablesNotStored = {
    "RailAtRoll",                             // a snapshot taken at every roll
    "GraphTrend", "GraphHigh", "GraphLow",    // the graph's lines, figured when drawn
    "StatRowsThisHand", "StatRowsLastHand",   // set to every row after a load
    "BetWorkingAfterRoll",                    // set to BetWorking after a load
    "LastWinButton", "LastLoseButton",        // the settle dialog's memory
    "SlotScript", "SlotStrings", "SlotCompiled",  // compiled code: scripts compile again
    "ScriptLines", "ScriptIndent", "ScriptBandMark",  // read from the script's own file
    "ScriptFile", "ScriptDirty",  // kept, but only as the reference to a file that exists
    // The editor's positions.
    "ScriptTopLine", "ScriptLeftColumn", "ScriptSelStartColumn", "ScriptSelEndColumn",
    "ScriptSelStartLine", "ScriptSelEndLine"};

// Copies slot p's rows of every seat table from `loaded` into `expected`.
void CopySlot(Game& expected, const Game& loaded, int p) {
  ForEachSeatTable(
      [p](const char*, auto axis, SeatReset, auto& e, const auto& l) {
        for (int frame = 0; frame < SeatFrames(axis); ++frame) {
          auto from = SeatRow(l, p, frame);
          std::copy(from.begin(), from.end(), SeatRow(e, p, frame).begin());
        }
      },
      expected, loaded);
}

// Copies into `expected` what the file does not keep, from the reopened game.
void CopyNotStored(Game& expected, const Game& loaded) {
  ForEachSeatTable(
      [](const char* name, auto, SeatReset, auto& e, const auto& l) {
        if (kSeatTablesNotStored.count(name)) e = l;
      },
      expected, loaded);
  CopySlot(expected, loaded, 0);  // slot 0 (the House) has no player block
  // Partly kept tables: bet 0 and column 0 of the statistics, trend and
  // contract of bet 0, the operators and units of the rows the file skips.
  for (auto stat : {&Game::StatAction, &Game::StatWins, &Game::StatLosses})
    for (int i = 0; i <= kLastFrameIndex; ++i) {
      for (int b = 0; b <= 100; ++b) (expected.*stat)(i, b, 0) = (loaded.*stat)(i, b, 0);
      for (int k = 0; k <= 6; ++k) (expected.*stat)(i, 0, k) = (loaded.*stat)(i, 0, k);
    }
  for (int p = 0; p <= 8; ++p) {
    expected.BetTrend(p, 0, 0) = loaded.BetTrend(p, 0, 0);
    expected.BetTrend(p, 0, 1) = loaded.BetTrend(p, 0, 1);
    expected.BetContract(p, bet::kBankroll) = loaded.BetContract(p, bet::kBankroll);
    for (int k : {6, 8, 11, 12}) expected.autoplay.AdjustOperator(p, k) = loaded.autoplay.AdjustOperator(p, k);
    for (int k : {11, 12}) expected.autoplay.AdjustUnits(p, k) = loaded.autoplay.AdjustUnits(p, k);
  }
  // Whole-table values figured again on reading.
  for (int g = 0; g <= kLongGap; ++g) expected.GapTally(0, g) = loaded.GapTally(0, g);
  expected.RollsSince.Set(0, loaded.RollsSince(0));
  // Row 0 and column 0 of a payoff table of `rows` rows.
  auto figured = [](auto& e, const auto& l, int rows) {
    for (int b = 0; b <= rows; ++b) e(0, b) = l(0, b);
    for (int k = 0; k <= 3; ++k) e(k, 0) = l(k, 0);
  };
  figured(expected.PayoffTbl, loaded.PayoffTbl, 100);
  figured(expected.FieldPayoff, loaded.FieldPayoff, 21);
  figured(expected.MidwayPayoff, loaded.MidwayPayoff, 5);
  figured(expected.FirePayoff, loaded.FirePayoff, 6);
  // The exchange amount is kept in the player blocks only.
  if (expected.PlayerCount == 0) expected.betting.AtmAmount = loaded.betting.AtmAmount;
  expected.rules.PrintColors[2] = loaded.rules.PrintColors[2];
  expected.rules.CompBets[0] = loaded.rules.CompBets[0];
  expected.rules.RollsPerTimeRow = loaded.rules.RollsPerTimeRow;  // the rate's display row
  expected.rules.VolumeLevel = loaded.rules.VolumeLevel;          // the machine's volume
  // Singles of the layout records that no window uses.
  GameFileState& f = expected.gamefile;
  for (int i = 0; i < 64; ++i) {
    auto kept = [i](const auto& ranges) {
      for (const auto& r : ranges)
        if (i >= r.first && i <= r.last) return true;
      return false;
    };
    if (!kept(game_file::kLayoutA)) f.LayoutA[i] = loaded.gamefile.LayoutA[i];
    if (!kept(game_file::kLayoutB)) f.LayoutB[i] = loaded.gamefile.LayoutB[i];
  }
  f.GameFilePath = loaded.gamefile.GameFilePath;
  f.WindowTitle = loaded.gamefile.WindowTitle;
}

// Equality of two tables; compiled code has none and is never stored.
template <class T>
bool Same(const T& a, const T& b) {
  if constexpr (std::is_same_v<T, std::array<std::vector<ScriptElement>, 9>> ||
                std::is_same_v<T, std::array<std::vector<PoolString>, 9>>)
    return true;
  else
    return a == b;
}

// Compares every seat table through the seat visitor and the whole-game
// tables and settings by name; returns the names that differ.
std::vector<std::string> Differences(const Game& a, const Game& b) {
  std::vector<std::string> out;
  ForEachSeatTable(
      [&out](const char* name, auto, SeatReset, const auto& x, const auto& y) {
        if (!Same(x, y)) out.push_back(name);
      },
      a, b);
#define SAME(field) \
  if (!(a.field == b.field)) out.push_back(#field)
  SAME(PlayerCount); SAME(Die1); SAME(Die2); SAME(DiceTotal); SAME(Point); SAME(PointAtRoll);
  SAME(PointBeforeLast); SAME(PointsMadeMask); SAME(PointsMade); SAME(Shooter); SAME(HandShooter);
  SAME(PrevHandShooter); SAME(ComeoutsThisHand); SAME(PassesThisHand); SAME(MissesThisHand);
  SAME(RollsSince); SAME(GapTally); SAME(GraphRollCount); SAME(PayoffTbl); SAME(FieldPayoff);
  SAME(MidwayPayoff); SAME(FirePayoff); SAME(CheckValue);
  SAME(rules);
  SAME(dice.RngIndex); SAME(dice.LastSeed); SAME(dice.Rng3State); SAME(dice.UserSeedMode);
  SAME(dice.ReseedEachSession); SAME(dice.ProbabilityDiceOn);
  SAME(roll.LogOn); SAME(roll.LogRolls); SAME(roll.LogBets); SAME(roll.LogStacks);
  SAME(roll.LogNewHand); SAME(roll.LogWins); SAME(roll.LogLosses); SAME(roll.LogPasses);
  SAME(roll.LogBankroll); SAME(roll.LogClearOnNew); SAME(roll.LogRollOnTop);
  SAME(roll.GraphPlotType);
  SAME(roll.GraphShowAverage); SAME(roll.GraphAutoPrint); SAME(roll.GraphScale);
  SAME(roll.GraphBaseScale); SAME(roll.GraphTop); SAME(roll.ScriptActive); SAME(roll.EventsLogPath);
  SAME(hyper.HyperThrottle); SAME(hyper.HyperDelaySeconds); SAME(hyper.AutoStopRolls);
  SAME(betting.AtmAmount); SAME(betting.KeyInBetAmounts); SAME(betting.DisplayZeroStacks);
  SAME(betting.CheckStacksPlayer); SAME(betting.BankrollTabPlayer); SAME(betting.CurPlayer);
  SAME(autoplay.SelectedPlayers); SAME(scriptSource.EdPlayer); SAME(gamefile);
  SAME(views.SessionsPlayer);
  SAME(table.SavedView); SAME(table.TableRotation); SAME(table.TableOffsetA);
  SAME(table.TableOffsetB); SAME(table.TableZoom); SAME(table.AutoSize);
  SAME(table.DisplayBetAmounts); SAME(table.HopBetsShown); SAME(table.StatusView);
  SAME(table.LayoutColor); SAME(table.Spotlight); SAME(table.TablePreset); SAME(table.PaletteColor);
  SAME(graph.GraphPlayer); SAME(graph.GraphAdjustType); SAME(graph.GraphStyle);
  SAME(graph.GraphColor); SAME(graph.GraphShowGrid); SAME(graph.GraphShowRefLines);
  SAME(graph.GraphAverageSpan); SAME(pad.PadOptions); SAME(pad.PadColor);
  SAME(scriptRun.ShowSteps);
  SAME(views.SummaryPlayers); SAME(views.BetResultsPlayers); SAME(views.HandsPlayers);
  SAME(views.BetTrendsPlayer); SAME(views.RollTotalsKind); SAME(views.RollTotalsFrame);
  SAME(views.RollTotalsPlayers); SAME(views.BetResultsFrame); SAME(views.HandsFrame);
  SAME(views.SummaryFrame); SAME(views.BetResultsSelection); SAME(views.SessionsFilter);
  SAME(views.SessionsView); SAME(diceFile.DiceFileMode); SAME(diceFile.optInsertRolls);
  SAME(diceFile.DiceFilePos); SAME(diceFile.DiceSelEnd); SAME(diceFile.DiceFileLast);
  SAME(diceFile.DiceOutputFormat); SAME(diceFile.HighlightCombo); SAME(diceFile.DiceFilePath);
  SAME(probability.ProbDisplayMode); SAME(probability.RollsOutOf);
  SAME(scriptRun.AllowReset); SAME(scriptRun.AllowActForOthers); SAME(scriptRun.AllowDiceFiles);
  SAME(scriptRun.AllowAnyFolder); SAME(views.RollTotalsVsSkewed); SAME(views.HandsShowPercent);
  SAME(views.RollFreqCategory);
#undef SAME
  return out;
}

using GameFile = StoreFixture;

// Reopened, every stored table is what was saved, and saved again it gives
// the same bytes.
TEST_F(GameFile, EverySavedTableComesBackWholeAndSavesToTheSameBytes) {
  for (const auto& names : {std::array<const char*, 9>{"House", "Ann", "Bo", "Cy", "Di", "Ed", "Flo",
                                                        "Gus", "Hal"},
                            std::array<const char*, 9>{"House", "", "Ann", "", "", "", "", "Bo", ""},
                            std::array<const char*, 9>{"House", "", "", "", "", "", "", "", ""}}) {
    FillGame(*game, names);
    // A long session at a large bankroll sums it beyond the money limit.
    for (int p = 1; p <= 8; ++p)
      if (*names[p]) game->BankrollSum(p) = p % 2 ? kCheckStackLimit : -kCheckStackLimit;
    // So do the totals of the longer frames over years of play.
    for (int p = 1; p <= 8; ++p) {
      const int all = FrameIndex(p, kFrameAllSessions);
      game->StatAction(all, bet::kPassLine, kStatTotal) = kStatTotalLimit;
      game->StatLosses(all, bet::kField, kStatTotal) = -kStatTotalLimit;
      game->ComeTravelTotal(FrameIndex(p, kFrameCurrentSession), 5) = kStatTotalLimit;
    }
    const auto original = std::make_unique<Game>(*game);
    ASSERT_TRUE(SaveGame(*game, Path("full.rvg"))) << LastMessage();
    HeadlessPlatform other;
    auto loaded = NewGame(other);
    ASSERT_TRUE(OpenGame(*loaded, Path("full.rvg"))) << other.messages.size();
    EXPECT_TRUE(other.messages.empty()) << other.messages.front().text;
    ASSERT_TRUE(SaveGame(*loaded, Path("again.rvg")));
    EXPECT_TRUE(ReadWholeFile(Path("full.rvg")) == ReadWholeFile(Path("again.rvg")));
    // The empty seats of the file are fresh seats of the reopened game.
    auto expected = std::make_unique<Game>(*original);
    for (int p = 1; p <= 8; ++p)
      if (expected->PlayerName[p].empty()) CopySlot(*expected, *loaded, p);
    expected->PlayerCount = loaded->PlayerCount;
    CopyNotStored(*expected, *loaded);
    EXPECT_EQ(Differences(*expected, *loaded), std::vector<std::string>{}) << names[2];
    EXPECT_EQ(loaded->PlayerCount, std::count_if(names.begin() + 1, names.end(),
                                                 [](const char* n) { return *n != 0; }));
  }
}

// The roll holds the totals every so many rolls; one that has passed its
// limit since is held as the game is saved, so the file opens again.
TEST_F(GameFile, ATotalPastItsLimitIsHeldAsTheGameIsSaved) {
  SeatPlayer(*game, 3, "Cy", 100_usd);
  const int all = FrameIndex(3, kFrameAllSessions);
  game->StatWins(all, bet::kField, kStatTotal) = kStatTotalLimit + 1_usd;
  game->ComeTravelTotal(all, 0) = kStatTotalLimit + 1_usd;
  ASSERT_TRUE(SaveGame(*game, Path("long.rvg"))) << LastMessage();
  HeadlessPlatform other;
  auto loaded = NewGame(other);
  ASSERT_TRUE(OpenGame(*loaded, Path("long.rvg")));
  EXPECT_EQ(loaded->StatWins(all, bet::kField, kStatTotal), kStatTotalLimit);
  EXPECT_EQ(loaded->ComeTravelTotal(all, 0), kStatTotalLimit);
}

// Tables drawn at random up to the extremes: limits up to the money limit,
// payoffs up to a million to one over a ten-thousandth and the other way,
// vig rates of many times the bet, checks of odd sizes, every odds method
// and adjustment, and players allowed below zero who bet up to the limit.
// Maxima, vig, proper units and wins would carry amounts past the money
// limit; whatever the dice do, no bankroll passes it and the game saved
// after the rolls opens again. A bankroll that breaks the bank limit stops
// the game, so it starts over at $100 and the play goes on.
TEST_F(GameFile, TablesAtTheExtremesSaveToFilesThatOpen) {
  std::mt19937_64 rng(11);
  auto pick = [&rng](std::int64_t lo, std::int64_t hi) {
    return lo + static_cast<std::int64_t>(rng() % static_cast<std::uint64_t>(hi - lo + 1));
  };
  auto amount = [&pick] {  // from a ten-thousandth to the money limit, spread over the digits
    std::int64_t top = 1;
    for (auto digits = pick(2, 15); digits > 0; --digits) top *= 10;
    return Currency::FromRaw(pick(1, top));
  };
  auto limitOrAmount = [&] { return pick(1, 3) == 1 ? kMoneyLimit : amount(); };
  constexpr std::int64_t kMillion = Currency::FromWhole(1'000'000).raw;
  for (int round = 0; round < 150; ++round) {
    SCOPED_TRACE(round);
    HeadlessPlatform table;
    auto g = NewGame(table);
    TableSettings& t = g->rules;
    t.BetRequirement = kNoBetRequired;
    std::int64_t check = pick(1, 4) == 1 ? pick(1, 10000) : Currency::kScale * pick(1, 5);
    for (int i = 1; i <= 5; ++i, check *= pick(1, 5)) g->CheckValue(i) = Currency::FromRaw(check);
    t.MinPlacardBet = g->CheckValue(1);
    t.MaxPlacardBet = std::max(t.MinPlacardBet, limitOrAmount());
    t.MaxOddsBet = limitOrAmount();
    t.MaxPropBetPayoff = limitOrAmount();
    t.MaxFireBet = amount();
    t.OddsCalcMethod = pick(0, kOddsMethodCount - 1);
    for (Currency* odds : {&t.OddsAllowed410, &t.OddsAllowed59, &t.OddsAllowed68})
      *odds = Currency::FromWhole(pick(0, 1000));
    for (Currency* rate : {&t.LayVigRate, &t.BuyVigRate})
      *rate = Currency::FromRaw(pick(0, 3) == 0 ? pick(0, 100'000'000) : pick(0, 1000));
    t.LayVigUpFront = pick(0, 1);
    t.BuyVigUpFront = pick(0, 1);
    t.LayVigRound = pick(0, 2);
    t.BuyVigRound = pick(0, 2);
    t.AllowPutBets = pick(0, 1);
    t.UseBig68 = t.UseMidwayBet = t.UseFireBet = true;
    for (int b = 1; b <= kLastRealBet; ++b) {
      if (pick(0, 3) != 0 || g->PayoffTbl(1, b).IsZero()) continue;
      g->PayoffTbl(1, b) = Currency::FromRaw(pick(1, kMillion));
      g->PayoffTbl(3, b) = Currency::FromRaw(pick(1, kMillion));
    }
    const int players = static_cast<int>(pick(1, 8));
    for (int p = 1; p <= players; ++p) {
      SeatPlayer(*g, p, std::string(1, static_cast<char>('A' + p)), amount());
      g->betting.AllowNegBankroll(p) = pick(0, 1);
      g->autoplay.HandleWinningBets(p) = pick(1, 7);
      g->autoplay.HandleLosingBets(p) = pick(1, 7);
      g->autoplay.AutoTakeFullOdds(p) = pick(0, 1);
      g->autoplay.AutoLayFullOdds(p) = pick(0, 1);
      g->autoplay.AutoAdjustMode(p) = pick(0, 2);
    }
    for (int roll = 0; roll < 100; ++roll) {
      for (int k = 0; k < 10; ++k) {
        g->BetRequest = pick(0, 2) == 0 ? kMoneyLimit : amount();
        PlaceBet(*g, static_cast<int>(pick(1, players)), static_cast<int>(pick(1, kLastRealBet)));
      }
      MarkSeatRowsChanged(*g);
      ASSERT_TRUE(QueueDice(*g, static_cast<int>(pick(1, 6)), static_cast<int>(pick(1, 6))));
      RollDice(*g);
      g->roll.QueuedCount = 0;  // a roll refused at the bank limit leaves its dice
      for (int p = 1; p <= players; ++p) {
        ASSERT_LE(g->Bet(p, bet::kBankroll), kMoneyLimit);
        if (BankrollBeyondLimit(*g, p)) g->Bet(p, bet::kBankroll) = 100_usd;
      }
    }
    ASSERT_TRUE(SaveGame(*g, Path("extremes.rvg")));
    HeadlessPlatform other;
    auto loaded = NewGame(other);
    EXPECT_TRUE(OpenGame(*loaded, Path("extremes.rvg")));
  }
}

TEST_F(GameFile, LengthFollowsPlayersAndCheckImages) {
  // The seated slots, the check images, the records.
  const std::tuple<std::string, int, int> cases[] = {{"", 0, 415},
                                                     {"27", 25, 415 + 2 * 458 + 1},
                                                     {"1", 26, 415 + 458 + 2},
                                                     {"12345678", 2000, 415 + 8 * 458 + 80}};
  for (const auto& [seated, images, records] : cases) {
    for (int p = 1; p <= 8; ++p)
      game->PlayerName[p] = seated.find(char('0' + p)) != std::string::npos ? "P" : "";
    game->gamefile.CheckImages.assign(static_cast<std::size_t>(images), CheckImage{1, 2, 3, 4, 5});
    const std::string bytes = GameFileBytes(*game);
    EXPECT_EQ(bytes.size(), static_cast<std::size_t>(records) * kRecordBytes) << seated;
    EXPECT_EQ(GameFileLength(static_cast<int>(seated.size()), images), bytes.size());
  }
}

// A little-endian field of record n (from 1) at byte `at`.
std::int64_t Field(const std::string& bytes, std::int64_t record, std::int64_t at,
                   std::int64_t width) {
  const auto* p = reinterpret_cast<const unsigned char*>(bytes.data()) + (record - 1) * 256 + at;
  const std::uint64_t v = GetLE(p, static_cast<int>(width));
  const int shift = static_cast<int>(64 - 8 * width);
  return static_cast<std::int64_t>(v << shift) >> shift;
}

TEST_F(GameFile, RecordsSitWhereTheLayoutPutsThem) {
  game->PlayerName[2] = "Ann";
  game->PlayerName[7] = "Bo";
  for (int c = 0; c <= 90; ++c) game->RollsSince.Set(c, 1000 + c);
  for (int b = 0; b <= 200; ++b) game->Bet(7, b) = Currency::FromWhole(b);
  game->gamefile.CheckImages.assign(26, CheckImage{7, 101, 2, -3, 4});
  game->hyper.HyperDelaySeconds = Currency::FromWhole(12);
  const std::string bytes = GameFileBytes(*game);
  // Header, padded with blanks to 200.
  EXPECT_EQ(bytes.substr(0, 39), "Ravelton Pro Game File, Data Format 1.0");
  EXPECT_EQ(bytes.substr(39, 161), std::string(161, ' '));
  // RollsSince: 32 a record over records 93-95, 27 in the last, rest zeros.
  EXPECT_EQ(bytes.substr(94 * 256 + 27 * 4, 256 - 27 * 4), std::string(256 - 27 * 4, '\0'));
  EXPECT_EQ(bytes.substr(416 * 256, 3), "Ann");  // the first block is slot 2's
  const int images = 415 + 2 * 458 + 1;  // the check images behind the last block
  // Record, byte, width and value: PlayerCount and CheckImageCount; the first
  // and last RollsSince; the blocks by count, slot 2 first, then 7, each with
  // its slot as Long-as-Currency, and Bet(7, 32), the first value of the
  // block's second bet record; the Hyper-Drive delay; the first check image.
  const std::int64_t fields[][4] = {
      {5, 0, 4, 2}, {5, 76, 4, 26}, {93, 0, 4, 1000}, {95, 26 * 4, 4, 1090},
      {416, 0, 8, 2 * 10000}, {416 + 458, 0, 8, 7 * 10000}, {416 + 458 + 7, 0, 8, 32 * 10000},
      {414, 24, 8, 12 * 10000}, {images, 0, 2, 7}, {images, 6, 2, -3}};
  for (const auto& f : fields)
    EXPECT_EQ(Field(bytes, f[0], f[1], f[2]), f[3]) << "record " << f[0] << " byte " << f[1];
}

// Writes a game, changes one field of its bytes, opens it into a new game.
class ReadRepairs : public StoreFixture {
 protected:
  std::unique_ptr<Game> Reopened(int record, int at, std::int64_t value, int width) {
    std::string bytes = GameFileBytes(*game);
    PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + (record - 1) * 256 + at,
          static_cast<std::uint64_t>(value), width);
    WriteWholeFile(Path("r.rvg"), bytes);
    auto g = NewGame(other);
    EXPECT_TRUE(OpenGame(*g, Path("r.rvg"))) << other.messages.back().text;
    return g;
  }
  HeadlessPlatform other;
};

TEST_F(ReadRepairs, OutOfRangeValuesAreRepairedAsTheFileRulesSay) {
  // The bet id of Enter Bet (record 411): stored, then as read.
  for (auto [stored, expected] :
       {std::pair{84, 1}, {100, 1}, {83, 83}, {101, 101}, {105, 1}, {0, 1}})
    EXPECT_EQ(Reopened(411, 16, stored, 4)->gamefile.EnterBetId, expected) << stored;
  EXPECT_EQ(Reopened(414, 24, 301 * 10000, 8)->hyper.HyperDelaySeconds, Currency::FromWhole(300));
  EXPECT_EQ(Reopened(414, 24, -1, 8)->hyper.HyperDelaySeconds, Currency{});
  EXPECT_EQ(Reopened(414, 0, 0, 8)->roll.GraphScale, Currency::FromRaw(2000));
  EXPECT_EQ(Reopened(414, 8, -5, 8)->roll.GraphBaseScale, game->roll.GraphScale);
  // The roll pad: a colour past the last reads as the first; options
  // without a display kind show kind 1 alone.
  EXPECT_EQ(Reopened(411, 56, 3, 4)->pad.PadColor, 0);
  EXPECT_EQ(Reopened(411, 52, 16 | 32, 4)->pad.PadOptions, 2);
  EXPECT_EQ(Reopened(413, 40, 5, 4)->scriptRun.AllowReset(1), true);
  EXPECT_EQ(Reopened(413, 72, 5, 4)->scriptRun.AllowActForOthers(1), true);
  EXPECT_EQ(Reopened(413, 164, -1, 4)->scriptRun.AllowAnyFolder(8), true);
  // Record 5: the dice total and the points made follow the stored dice and mask.
  auto g = Reopened(5, 48, 0b110011, 4);
  EXPECT_EQ(g->PointsMade, 4);
  EXPECT_EQ(g->DiceTotal, g->Die1 + g->Die2);
}

TEST_F(ReadRepairs, ABlocksAutoPlayRowsAreRepaired) {
  game->PlayerName[3] = "Ann";
  const int block = 416;
  EXPECT_EQ(Reopened(block + 457, 32, -25 * 10000, 8)->autoplay.AdjustAmount(3, 5), Currency::FromWhole(25));
  EXPECT_EQ(Reopened(block + 457, 40, -25 * 10000, 8)->autoplay.AdjustAmount(3, 6), Currency{});
  EXPECT_EQ(Reopened(block + 457, 8, 4 * 10000, 8)->autoplay.AdjustOperator(3, 7), 0);
  EXPECT_EQ(Reopened(block + 457, 96, 7 * 10000, 8)->autoplay.AdjustUnits(3, 5), Currency{});
  EXPECT_EQ(Reopened(block + 457, 96, 6 * 10000, 8)->autoplay.AdjustUnits(3, 5), Currency::FromWhole(6));
}

// Saving and opening also clear the session's unsaved mark.
TEST_F(GameFile, TheDefaultGameKeepsNoTitlePathOrWindowLayout) {
  game->gamefile.LayoutA[1] = 111.f;
  game->table.SavedView[0] = {600, 1, 2, 3};
  game->roll.SessionDirty = true;
  ASSERT_TRUE(SaveGame(*game, Path("My Game.rvg")));
  EXPECT_FALSE(game->roll.SessionDirty);
  EXPECT_EQ(game->gamefile.WindowTitle, "Ravelton (My Game.rvg)");
  EXPECT_EQ(game->gamefile.GameFilePath, Path("My Game.rvg"));
  ASSERT_TRUE(SaveGame(*game, Path("default.rvg")));
  EXPECT_EQ(game->gamefile.WindowTitle, "Ravelton");

  HeadlessPlatform other;
  auto loaded = NewGame(other);
  loaded->gamefile.LayoutA[1] = 5.f;
  loaded->roll.SessionDirty = true;
  ASSERT_TRUE(OpenGame(*loaded, Path("default.rvg")));
  EXPECT_FALSE(loaded->roll.SessionDirty);
  EXPECT_EQ(loaded->gamefile.LayoutA[1], 5.f);  // the windows stay as they are
  EXPECT_EQ(loaded->gamefile.GameFilePath, "");
  ASSERT_TRUE(OpenGame(*loaded, Path("My Game.rvg")));
  EXPECT_EQ(loaded->table.SavedView[0].zoom, 600);
  EXPECT_EQ(loaded->gamefile.WindowTitle, "Ravelton (My Game.rvg)");
}

constexpr const char* kCorrupt =
    "An error occurred while attempting to open:\r\r{}\r\rIt may be corrupted or not a true "
    "Ravelton game file. \r\rCheck path, filename, or device.";

std::string WithPath(std::string text, const std::string& path) {
  return text.replace(text.find("{}"), 2, path);
}

class OpenFailures : public StoreFixture {
 protected:
  void SetUp() override {
    FillGame(*game, {"House", "Ann", "", "Cy", "", "", "", "Gus", ""});
    ASSERT_TRUE(SaveGame(*game, Path("good.rvg")));
    good = ReadWholeFile(Path("good.rvg"));
    before = GameFileBytes(*game);
    checksum = TablesChecksum(*game);
  }
  // Opens bytes written to a file; expects refusal and the game unchanged.
  void ExpectRefused(const std::string& bytes, const std::string& title, const std::string& text) {
    WriteWholeFile(Path("bad.rvg"), bytes);
    const std::size_t shown = platform.messages.size();
    EXPECT_FALSE(OpenGame(*game, Path("bad.rvg")));
    ASSERT_EQ(platform.messages.size(), shown + 1);
    EXPECT_EQ(platform.messages.back().title, title);
    EXPECT_EQ(platform.messages.back().text, text);
    ExpectUnchanged();
  }
  void ExpectUnchanged() {
    EXPECT_EQ(TablesChecksum(*game), checksum);
    EXPECT_TRUE(GameFileBytes(*game) == before);
  }
  std::string good, before;
  std::uint64_t checksum = 0;
};

TEST_F(OpenFailures, EachKindOfBadFileHasItsMessage) {
  const std::string path = Path("bad.rvg");
  const std::string title = "Unable to Open Ravelton Game File";
  std::string other = good;
  other.replace(0, 8, "Rolleton");
  ExpectRefused(other, title, path + "\r\rThis is not a Ravelton game file.");
  std::string older = good;
  older.replace(36, 3, "0.9");
  ExpectRefused(older, title,
                path + "\r\rThis file appears to be from an incompatible version or is not a "
                       "true Ravelton game file.");
  ExpectRefused("", title, path + "\r\rThis is not a Ravelton game file.");
  ExpectRefused(good.substr(0, good.size() - 1), title, WithPath(kCorrupt, path));
  ExpectRefused(good.substr(0, 300), title, WithPath(kCorrupt, path));

  // Counts, slots and texts out of their ranges: record, byte, width, value.
  constexpr std::int64_t kPastTotal = kStatTotalLimit.raw + 1, kPastMoney = kMoneyLimit.raw + 1;
  // Past what every bet and vig entry at the money limit add up to.
  constexpr std::int64_t kPastBets = (kLastRealBet + 13) * kMoneyLimit.raw;
  const std::tuple<int, int, int, std::int64_t> patches[] = {
      {2, 4, 4, 0x7fc00000},           // a window's top that is not a number
      {3, 8, 4, 0x7149f2ca},           // a window's left of 1e30 pixels
      {5, 0, 4, 9},                    // nine players
      {5, 0, 4, -1},                   //
      {5, 76, 4, 2001},                // check images above 2,000
      {5, 76, 4, 51},                  // more images than the file holds
      {5, 32, 4, 7},                   // a die of 7
      {5, 20, 4, 7},                   // a point of 7
      {5, 8, 4, 9},                    // shooter in no seat
      {5, 104, 4, 9},                  // the bankroll graph's player in no seat
      {5, 112, 4, -1},                 // the sessions log's player in no seat
      {409, 36, 4, 9},                 // the bet results view on a frame past the last
      {409, 60, 4, -1},                // the summary view on a frame before the first
      {411, 108, 4, 10},               // a graph colour scheme past the last
      {411, 132, 4, 526},              // a moving average longer than the page
      {29, 0, 4, -1},                  // a negative tally
      {96, 0, 4, 0x7fffffff},          // a gap tally the next roll would carry past a Long
      {10, 200, 8, 8 * 10000},         // generator 9
      {10, 200, 8, 0x7fffffffffffLL},  // a whole number beyond a Long
      {416, 0, 8, 0},                  // a block for slot 0
      {416, 8, 8, kPastBets},          // more on the table than every bet can hold
      {416 + 458, 0, 8, 1 * 10000},    // slot 1 given twice
      {416 + 5, 88, 8, 8 * 10000},     // winning-bet rule 8
      {416 + 39, 0, 2, 3},             // a working state of 3
      {416 + 31, 0, 4, INT32_MIN},     // a losing streak the next loss would carry past a Long
      {416 + 173, 8, 8, INT64_MAX},    // a bet's total wagered beyond 64 bits' reach
      {416 + 173, 8, 8, kPastTotal},   // and just beyond a total's limit
      {416 + 173, 16, 8, kPastMoney},  // a largest amount beyond the money limit
      {416 + 455, 8, 8, -kPastTotal},  // a come bet's travel beyond a total's limit
      {416 + 457, 32, 8, INT64_MIN},   // an auto-adjust amount of the lowest 64-bit value
      {416 + 457, 40, 8, INT64_MAX},   // and of the highest
      {416 + 1, 0, 4, 0x20202020},     // a player without a name
      {416 + 41, 10, 1, 0},            // a NUL inside a CheckStack name
      {18, 64, 8, 0},                  // a payoff "for" 0
      {12, 0, 8, INT64_MIN},           // a payoff of the lowest 64-bit amount
  };
  for (auto [record, at, width, value] : patches) {
    std::string bytes = good;
    PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + (record - 1) * 256 + at,
          static_cast<std::uint64_t>(value), width);
    SCOPED_TRACE(std::to_string(record) + ":" + std::to_string(at));
    ExpectRefused(bytes, title, WithPath(kCorrupt, path));
  }
}

TEST_F(OpenFailures, AMissingFileOrAFolderIsNotOpened) {
  EXPECT_FALSE(OpenGame(*game, Path("nothing here.rvg")));
  EXPECT_EQ(platform.messages.back().title, "Game File Not Found");
  EXPECT_EQ(platform.messages.back().text,
            Path("nothing here.rvg") + "\r\rFile not found.\r\rCheck path, filename, or device.");
  std::filesystem::create_directories(Path("folder.rvg"));
  EXPECT_FALSE(OpenGame(*game, Path("folder.rvg")));
  EXPECT_EQ(platform.messages.back().text, WithPath(kCorrupt, Path("folder.rvg")));
  ExpectUnchanged();
}

TEST_F(OpenFailures, FuzzedFilesNeverHarmTheGameInPlay) {
  std::mt19937 rng(20261123);
  const std::string path = Path("fuzz.rvg");
  int refused = 0, opened = 0;
  const auto pristine = std::make_unique<Game>(*game);
  auto attempt = [&](const std::string& bytes) {
    if (OpenGameBytes(*game, path, bytes)) {
      ++opened;
      *game = *pristine;
      return;
    }
    // The whole game compared after every tenth refusal.
    if (++refused % 10 == 0) {
      EXPECT_EQ(TablesChecksum(*game), checksum);
      EXPECT_TRUE(GameFileBytes(*game) == before);
    }
  };
  // Cut at every kind of place: inside the header, fixed part and blocks.
  for (int i = 0; i < 400; ++i) attempt(good.substr(0, rng() % good.size()));
  // Flipped bits, one to eight at a time, anywhere in the file.
  for (int i = 0; i < 1600; ++i) {
    std::string bytes = good;
    for (int k = 1 + static_cast<int>(rng() % 8); k > 0; --k)
      bytes[rng() % bytes.size()] ^= static_cast<char>(1 << (rng() % 8));
    attempt(bytes);
  }
  // Random files, some under a real header and with small counts.
  for (int i = 0; i < 400; ++i) {
    std::string bytes(rng() % (good.size() + 512), '\0');
    for (std::size_t k = 0; k + 4 <= bytes.size(); k += 4) PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + k, rng(), 4);
    if (i % 2 && bytes.size() > 1300) {
      bytes.replace(0, 39, "Ravelton Pro Game File, Data Format 1.0");
      PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + 4 * 256, rng() % 10, 4);
      PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + 4 * 256 + 76, rng() % 30, 4);
    }
    attempt(bytes);
  }
  EXPECT_GT(refused, 700);
  EXPECT_GT(opened, 50);  // many flipped bits land in plain figures
}

TEST_F(OpenFailures, AFailedSaveLeavesTheOldFile) {
  game->PlayerName[4] = "Dee";
  const WriteProbe failHalfway = [](std::size_t written) { return written < 100'000; };
  EXPECT_FALSE(SaveGame(*game, Path("good.rvg"), failHalfway));
  EXPECT_EQ(platform.messages.back().title, "Unable to Save Ravelton Game File");
  EXPECT_NE(platform.messages.back().text.find(Path("good.rvg")), std::string::npos);
  // The old file stays (that no temporary is left is the atomic writer's test).
  EXPECT_TRUE(ReadWholeFile(Path("good.rvg")) == good);
}

// References to other files: the scripts, sessions logs, events log and
// dice roll file, each missing or changed.
TEST_F(StoreFixture, ReferencesThatAreMissingOrChangedAreTold) {
  const std::string script = Path("ann.bet");
  WriteWholeFile(script, "If rolls > 3 Then\r\nEndIf\r\n");
  SeatPlayer(*game, 1, "Ann", Currency::FromWhole(100));
  SeatPlayer(*game, 2, "Bo", Currency::FromWhole(100));
  game->scriptSource.ScriptFile[1] = script;
  game->scriptSource.ScriptFile[2] = Path("gone.bet");
  game->roll.SessionLogPath[2] = Path("elsewhere/bo.slg");
  game->roll.EventsLogPath = Path("events.txt");
  game->diceFile.DiceFilePath = Path("dice.rol");
  WriteWholeFile(Path("dice.rol"), std::string(10, '\x04'));
  game->diceFile.DiceFileMode = 2;
  game->diceFile.DiceFilePos = 5;
  ASSERT_TRUE(SaveGame(*game, Path("refs.rvg")));
  // The script and the dice roll file change after the save.
  struct timespec times[2] = {{0, UTIME_OMIT}, {12345, 0}};
  ::utimensat(AT_FDCWD, script.c_str(), times, 0);
  ::utimensat(AT_FDCWD, Path("dice.rol").c_str(), times, 0);

  HeadlessPlatform other;
  auto g = NewGame(other);
  ASSERT_TRUE(OpenGame(*g, Path("refs.rvg")));
  std::vector<std::string> shown;
  for (const auto& m : other.messages) shown.push_back(m.title + ": " + m.text);
  const std::vector<std::string> expected = {
      "Altered Dice Roll File: The following Dice Roll file (that was in use when this game was "
      "saved) has been changed:\r\r" + Path("dice.rol"),
      "Auto-Bet File Changed: Ann's auto-Bet file has been changed:\r\r" + script,
      "Auto-Bet File Not Found: Bo's auto-bet file was not found:\r\r" + Path("gone.bet"),
      "Sessions Log Not Found: The following Sessions Log for Bo was not found: \r\r" +
          Path("elsewhere/bo.slg") +
          "\r\rThe following new Sessions Log will be created and opened instead:\r\r" +
          Path("bo.slg"),
  };
  EXPECT_EQ(shown, expected);
  EXPECT_EQ(g->scriptSource.ScriptLines[1][1], "If rolls > 3 Then");  // the script was loaded
  EXPECT_EQ(g->scriptSource.ScriptFile[2], "");
  EXPECT_EQ(g->roll.SessionLogPath[2], Path("bo.slg"));
  // The events log file did not exist, so the default one is used quietly.
  EXPECT_EQ(g->roll.EventsLogPath, Path("Events Log.txt"));
  // A changed dice roll file is no longer played from where it was.
  EXPECT_TRUE(g->diceFile.DiceFileMode == 0 && g->diceFile.DiceFilePos == 1);
  EXPECT_EQ(g->diceFile.DiceFilePath, Path("dice.rol"));

  std::filesystem::remove(Path("dice.rol"));
  ASSERT_TRUE(OpenGame(*g, Path("refs.rvg")));
  EXPECT_EQ(g->diceFile.DiceFilePath, "");
}

// Logs in their default places are stored without a path: a game shared
// into another data folder opens quietly onto that folder's own logs.
TEST_F(StoreFixture, LogsInTheirDefaultPlacesFollowTheDataFolderOfWhoeverOpens) {
  SeatPlayer(*game, 1, "Ann", Currency::FromWhole(100));
  WriteWholeFile(game->roll.EventsLogPath, "New session started\r\n");
  ASSERT_FALSE(AppendSessionRecord(SessionLogPathOf(*game, 1), SessionRecord{}).has_value());
  ASSERT_TRUE(SaveGame(*game, Path("shared.rvg")));

  HeadlessPlatform other;
  other.fixedTime = 0;
  other.clockStep = 1000;
  auto g = MakeGame(other);
  StartUp(*g, Path("theirs"));
  ASSERT_TRUE(OpenGame(*g, Path("shared.rvg")));
  EXPECT_TRUE(other.messages.empty()) << other.messages.front().title;
  EXPECT_EQ(g->roll.EventsLogPath, Path("theirs/Events Log.txt"));
  EXPECT_EQ(g->roll.SessionLogPath[1], Path("theirs/ann.slg"));
}

// The sample games of examples/ open quietly in any data folder and play on
// with the players and bets they hold; the sample dice read as what they say.
TEST_F(StoreFixture, TheSampleGamesOpenInAnyDataFolderAndPlayOn) {
  const std::string examples = std::string(RAVELTON_SOURCE_DIR) + "/examples";
  constexpr int kValueRow = 1, kTotalsRow = 1, kSevenColumn = 6;
  ASSERT_EQ(ReadProbabilityFile(*game, examples + "/fewer_sevens.prb"), ProbFileStatus::Ok);
  EXPECT_EQ(game->probability.ProbabilityTable(kValueRow, kTotalsRow, kSevenColumn), 15'000);
  int samples = 0;
  for (const auto& entry : std::filesystem::directory_iterator(examples)) {
    if (entry.path().extension() != ".rvg") continue;
    ++samples;
    SCOPED_TRACE(entry.path().string());
    HeadlessPlatform on;
    auto g = NewGame(on);
    ASSERT_TRUE(OpenGame(*g, entry.path().string()));
    EXPECT_TRUE(on.messages.empty()) << on.messages.front().title;
    ASSERT_FALSE(g->PlayerName[1].empty());
    const Long rolls = g->RollTally(kTableSession, kEventRolls);
    const Currency before = g->Bet(1, bet::kBankroll);
    for (int roll = 0; roll < 200; ++roll) RollDice(*g);
    EXPECT_EQ(g->RollTally(kTableSession, kEventRolls), rolls + 200);
    EXPECT_NE(g->Bet(1, bet::kBankroll), before);  // the seat's bets were decided
  }
  EXPECT_GE(samples, 3);
}

// Game > Show Path: every group under its caption, the per-player files of
// the seated players only, and a script path as the user typed it.
TEST_F(StoreFixture, PathsInUseListsEveryFileUnderItsCaption) {
  SeatPlayer(*game, 2, "Ann", Currency::FromWhole(50));
  SeatPlayer(*game, 5, "Bo", Currency::FromWhole(50));
  game->gamefile.GameFilePath = Path("tuesday.rvg");
  game->diceFile.DiceFilePath = Path("rolls.rll");
  game->probability.ProbFilePath.clear();
  game->scriptSource.ScriptFile[5] = "/bets/r&&d.bet";  // kept with '&' doubled
  game->roll.SessionLogPath[2] = Path("ann.slg");
  game->roll.SessionLogPath[5].clear();

  const std::vector<PathGroup> groups = PathsInUse(*game);
  const std::vector<PathGroup> expected = {
      {"Ravelton location:", {game->roll.AppPath}},
      {"Game File:", {Path("tuesday.rvg")}},
      {"Events Log File:", {game->roll.EventsLogPath}},
      {"Dice Roll File:", {Path("rolls.rll")}},
      {"Probability File:", {"(none)"}},
      {"Auto-Bet Files:", {"Ann: (none)", "Bo: /bets/r&d.bet"}},
      {"Sessions Log Files:", {"Ann: " + Path("ann.slg"), "Bo: (none)"}},
  };
  ASSERT_EQ(groups.size(), expected.size());
  for (std::size_t i = 0; i < groups.size(); ++i) {
    EXPECT_EQ(groups[i].caption, expected[i].caption);
    EXPECT_EQ(groups[i].lines, expected[i].lines) << expected[i].caption;
  }
}

class SessionsLogFiles : public RollFixture {
 protected:
  SessionsLogFiles() {
    SeatPlayer(g, 1, "Ann", 500_usd);
    SeatPlayer(g, 2, "Bo", 500_usd);
  }
  // Appends sessions with these nets to the log at path.
  static void Log(const std::string& path, std::initializer_list<int> nets) {
    for (int net : nets) {
      SessionRecord r{};
      r[kNetValue] = Currency::FromWhole(net);
      ASSERT_FALSE(AppendSessionRecord(path, r).has_value());
    }
  }
  void Answer(int answer) { platform.queuedReplies.push_back({answer, {}, {}, false}); }
  std::string Default(int p) const { return DefaultSessionLogPath(g, p); }
};

TEST_F(SessionsLogFiles, NewOffersToSaveTheDefaultLogThenDeletesIt) {
  Log(Default(1), {5, -3});
  const std::string kept = ReadWholeFile(Default(1));

  Answer(kAnswerCancel);  // nothing changes
  EXPECT_FALSE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.messages.back().title, "Save Sessions Log");
  EXPECT_EQ(platform.messages.back().text,
            "Ann's log needs to be re-named \rif you want to save it.\r\rDo you want to re-name it now?");
  EXPECT_EQ(SessionsLogReader(Default(1)).count(), 2);

  // Yes: saved under the name given, then the default file is gone and the
  // player's log is the default again.
  Answer(kAnswerYes);
  platform.queuedFileNames.push_back(folder / "ann-week1.slg");
  EXPECT_TRUE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.fileChoosers.back().caption, "Save Sessions Log As");
  EXPECT_EQ(ReadWholeFile(folder / "ann-week1.slg"), kept);
  EXPECT_FALSE(FileExists(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), Default(1));
  EXPECT_TRUE(g.roll.SessionDirty);

  // A log that is not the default is left alone, and nobody is asked.
  g.roll.SessionLogPath[1] = folder / "ann-week1.slg";
  Log(Default(1), {1});
  const std::size_t asked = platform.messages.size();
  EXPECT_TRUE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.messages.size(), asked);
  EXPECT_EQ(SessionsLogReader(folder / "ann-week1.slg").count(), 2);
  EXPECT_FALSE(FileExists(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), Default(1));
}

TEST_F(SessionsLogFiles, ASessionInProgressIsWarnedAbout) {
  Roll(3, 4);
  Answer(kAnswerNo);
  Log(Default(2), {1});
  EXPECT_FALSE(NewSessionsLogs(g));
  EXPECT_EQ(platform.messages.back().title, "Session in progress will be added to new Sessions Logs");
  EXPECT_TRUE(platform.messages.back().text.starts_with(
      "There's currently a session in progress which will be added to your new Sessions Logs "
      "when it's finished.\r\r"));
  EXPECT_EQ(SessionsLogReader(Default(2)).count(), 1);
  Answer(kAnswerNo);
  EXPECT_FALSE(NewSessionsLog(g, 2));
  EXPECT_EQ(platform.messages.back().title, "Session in progress will be added to new Sessions Log");

  // Going on: Bo's default log holds a session, and No to saving it loses
  // it; every seated player gets a log of no sessions.
  Answer(kAnswerYes);
  Answer(kAnswerNo);
  EXPECT_TRUE(NewSessionsLogs(g));
  for (int p : {1, 2}) {
    SessionsLogReader log(Default(p));
    EXPECT_TRUE(log.ok() && log.exists() && log.count() == 0) << p;
  }
}

TEST_F(SessionsLogFiles, SaveAsCopiesTheLogAndMakesItThePlayers) {
  // A log not yet written is saved as a log of no sessions.
  platform.queuedFileNames.push_back(folder / "empty.slg");
  EXPECT_TRUE(SaveSessionsLogAs(g, 2));
  EXPECT_EQ(SessionsLogReader(folder / "empty.slg").count(), 0);
  EXPECT_EQ(SessionLogPathOf(g, 2), folder / "empty.slg");

  // A log with a deleted session keeps its bytes, leftovers included.
  Log(Default(1), {1, 2, 3});
  EXPECT_EQ(DeleteSessions(Default(1), 3, 3), "");
  platform.queuedFileNames.push_back(folder / "copy.slg");
  EXPECT_TRUE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(ReadWholeFile(folder / "copy.slg"), ReadWholeFile(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");

  // Cancelled: the player keeps the log. A damaged log is not copied.
  platform.queuedFileNames.push_back(std::nullopt);
  EXPECT_FALSE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");
  WriteWholeFile(folder / "copy.slg", "not a log");
  platform.queuedFileNames.push_back(folder / "other.slg");
  EXPECT_FALSE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(platform.messages.back().title, "Save Sessions Log As");
  EXPECT_FALSE(FileExists(folder / "other.slg"));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");
}

}  // namespace
