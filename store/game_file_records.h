// The records of a game file, each described once as a template over
// RecordWriter and RecordReader (store/record_io.h): the same lines write a
// record and read it back, so the two can never disagree on where a field
// sits. The references to other files (records 6 to 8 and the paths of a
// player block) pass through PathFields, whose time stamps the caller
// figures when writing and checks when reading.
//
// What must stay true:
// - Records are begun in ascending order; the numbers in the comments are
//   the file's record numbers, and kFixedRecords ends the fixed part.
// - A value read from the file that serves as a subscript is checked by
//   CheckLoadedGame (store/game_file_check.h) before anything uses it.
#pragma once

#include <array>
#include <string>

#include "core/game.h"
#include "core/graph_rows.h"
#include "store/record_io.h"

inline constexpr int kFixedRecords = 415;
inline constexpr int kBlockRecords = 458;
inline constexpr int kCheckImagesPerRecord = 25;
inline constexpr const char* kGameFileHeader = "Ravelton Pro Game File, Data Format 1.0";

// A path and its time stamp as the file holds them.
struct PathField {
  std::string path, stamp;
};
// Records 6, 7, 8: dice roll file, probability file, events log.
struct GameFilePaths {
  PathField dice, probability, eventsLog;
};
// The paths of a player block: the script file with its stamp, then the
// script output file and the sessions log (no stamps).
struct BlockPaths {
  PathField script, output, sessionLog;
};

namespace game_file {

// Singles of records 2 and 3 that hold a window's values, as ranges of
// Single indices (byte / 4).
struct SingleRange {
  int first, last;
};
inline constexpr SingleRange kLayoutA[] = {{0, 12}, {15, 24}, {30, 45}};
inline constexpr SingleRange kLayoutB[] = {{0, 2},   {5, 9},   {10, 12}, {15, 17}, {20, 24},
                                           {25, 27}, {30, 32}, {35, 39}, {40, 44}, {45, 47},
                                           {50, 52}, {55, 58}, {59, 61}};

template <class IO, std::size_t N>
void LayoutRecord(IO& io, std::array<float, 64>& singles, const SingleRange (&ranges)[N]) {
  io.Begin();
  for (const SingleRange& r : ranges)
    for (int i = r.first; i <= r.last; ++i) io.Single(i * 4, singles[static_cast<std::size_t>(i)]);
}

// Record 1.
template <class IO>
void HeaderRecord(IO& io, std::string& header) {
  std::string unused;
  io.Path(header, unused);
}

// Records 2 and 3: window layout.
template <class IO>
void WindowRecords(IO& io, GameFileState& f) {
  LayoutRecord(io, f.LayoutA, kLayoutA);
  LayoutRecord(io, f.LayoutB, kLayoutB);
}

// Record 4: the saved table views.
template <class IO>
void SavedViewsRecord(IO& io, TableState& t) {
  io.Begin();
  for (int v = 0; v < kSavedViews; ++v) {
    SavedTableView& view = t.SavedView[static_cast<std::size_t>(v)];
    io.Long(v * 16, view.zoom);
    io.Long(v * 16 + 4, view.rotation);
    io.Long(v * 16 + 8, view.offsetA);
    io.Long(v * 16 + 12, view.offsetB);
  }
}

// Record 5: the game in hand, the table's position, the views' players.
template <class IO>
void PositionRecord(IO& io, Game& g, Long& checkImageCount) {
  io.Begin();
  io.Long(0, g.PlayerCount);
  io.Long(4, g.betting.CurPlayer);
  io.Long(8, g.Shooter);
  io.Long(12, g.PrevHandShooter);
  io.Long(16, g.HandShooter);
  io.Long(20, g.Point);
  io.Long(24, g.PointAtRoll);
  io.Long(28, g.PointBeforeLast);
  io.Long(32, g.Die1);
  io.Long(36, g.Die2);
  io.Long(48, g.PointsMadeMask);
  io.Long(52, g.dice.Rng3State);
  io.Long(56, g.dice.LastSeed);
  io.Long(60, g.table.TableRotation);
  io.Long(64, g.table.TableOffsetA);
  io.Long(68, g.table.TableOffsetB);
  io.Long(72, g.table.TableZoom);
  io.Long(76, checkImageCount);
  io.Long(84, g.autoplay.SelectedPlayers);
  io.Long(88, g.views.SummaryPlayers);
  io.Long(92, g.views.BetResultsPlayers);
  io.Long(96, g.betting.CheckStacksPlayer);
  io.Long(100, g.betting.BankrollTabPlayer);
  io.Long(104, g.graph.GraphPlayer);
  io.Long(108, g.scriptSource.EdPlayer);
  io.Long(112, g.views.SessionsPlayer);
  io.Long(116, g.views.HandsPlayers);
  io.Long(120, g.views.BetTrendsPlayer);
}

// Records 6, 7, 8.
template <class IO>
void PathRecords(IO& io, GameFilePaths& paths) {
  io.Path(paths.dice.path, paths.dice.stamp);
  io.Path(paths.probability.path, paths.probability.stamp);
  io.Path(paths.eventsLog.path, paths.eventsLog.stamp);
}

// Records 9, 10, 11: events log options, program settings, table rules.
template <class IO>
void SettingsRecords(IO& io, Game& g) {
  RollState& r = g.roll;
  TableSettings& t = g.rules;
  GameFileState& f = g.gamefile;
  io.Begin();  // 9
  io.Long(0, r.LogOn);
  io.Long(4, r.LogClearOnNew);
  io.Long(8, r.LogRollOnTop);
  io.Long(12, f.LogFontSize);
  io.Long(16, f.LogBold);
  io.Long(20, f.LogItalic);
  io.Long(24, r.LogWins);
  io.Long(28, r.LogLosses);
  io.Long(32, r.LogBets);
  io.Long(36, r.LogStacks);
  io.Long(40, r.LogPasses);
  io.Long(44, r.LogNewHand);
  io.Long(48, r.LogBankroll);
  io.Long(52, r.LogRolls);

  io.Begin();  // 10
  io.LongCur(0, t.ConfigureTab);
  io.LongCur(8, t.SelectedCheck);
  io.LongCur(16, t.CheckStyle);
  io.LongCur(24, t.DiceStyle);
  io.LongCur(32, t.DiceAction);
  io.Cur(40, t.RollsPerHour);
  io.LongCur(48, t.UseCentsSymbol);
  io.LongCur(56, t.AutoArrangeChecks);
  io.LongCur(64, t.StickCallSet);
  io.LongCur(72, t.DiceSoundSet);
  io.LongCur(80, t.ChipSoundSet);
  io.LongCur(88, t.WinSoundSet);
  io.LongCur(96, t.AutoBetSoundsOff);
  io.LongCur(104, t.SoundMuted);
  for (int i = 1; i <= 3; ++i) io.LongCur(104 + 8 * i, t.CompBets[static_cast<std::size_t>(i)]);
  io.LongCur(136, t.CompBase);
  io.LongCur(144, t.CompsUseTrueProbs);
  io.Cur(152, t.CompRate);
  io.LongCur(160, t.NoticeFlags);
  io.LongCur(168, t.PrintColors[0]);
  io.LongCur(176, t.PrintColors[1]);
  io.LongCur(184, t.ColorPrint);
  io.LongCur(192, t.SnapCursorToButton);
  io.LongCur(200, g.dice.RngIndex);
  io.LongCur(208, g.dice.UserSeedMode);
  io.LongCur(216, g.dice.ReseedEachSession);
  io.LongCur(224, g.dice.ProbabilityDiceOn);
  io.LongCur(232, g.probability.ProbDisplayMode);
  io.LongCur(240, g.probability.RollsOutOf);

  io.Begin();  // 11
  io.Cur(0, t.MinPlacardBet);
  io.Cur(8, t.MaxPlacardBet);
  io.Cur(16, t.MaxPropBetPayoff);
  io.Cur(24, t.MaxOddsBet);
  io.Cur(32, t.OddsAllowed410);
  io.Cur(40, t.OddsAllowed59);
  io.Cur(48, t.OddsAllowed68);
  io.LongCur(56, t.OddsCalcMethod);
  // optBarDont: option 0 " Bar 2", option 1 " Bar 12".
  Long barOption = t.BarNumber == 2 ? 0 : 1;
  io.LongCur(64, barOption);
  if constexpr (IO::kReading) t.BarNumber = barOption == 0 ? 2 : 12;
  io.Cur(72, t.LayVigRate);
  io.LongCur(80, t.LayVigRound);
  io.LongCur(88, t.LayVigUpFront);
  io.Cur(96, t.BuyVigRate);
  io.LongCur(104, t.BuyVigRound);
  io.LongCur(112, t.BuyVigUpFront);
  io.LongCur(120, t.AllowPutBets);
  io.LongCur(128, t.BetRequirement);
  io.LongCur(136, t.UseBig68);
  io.LongCur(144, t.UseMidwayBet);
  io.LongCur(152, t.UseFireBet);
  io.Cur(160, t.MaxFireBet);
  io.LongCur(168, g.advantage.CountZeroOutcomes);
  io.LongCur(176, g.advantage.ShowMiscData);
  io.LongCur(184, g.advantage.AdvantageTopRow);
  io.LongCur(192, f.PayoffsScroll);
}

// Columns 1..3 of a payoff table, rows first..last, 32 Currency a record.
template <class IO, class Table>
void PayoffRun(IO& io, Table& table, int first, int last) {
  const int rows = last - first + 1;
  Run(io, 3 * rows, 32, 8, [&](int i, int byte) { io.Cur(byte, table(1 + i / rows, first + i % rows)); });
}

// Records 12 to 28: payoffs, colours, the table's working defaults.
template <class IO>
void PayoffAndColourRecords(IO& io, Game& g) {
  PayoffRun(io, g.PayoffTbl, 1, 100);   // 12-21
  PayoffRun(io, g.FieldPayoff, 1, 21);  // 22-23
  PayoffRun(io, g.MidwayPayoff, 1, 5);  // 24
  PayoffRun(io, g.FirePayoff, 1, 6);    // 25
  TableState& t = g.table;
  io.Begin();  // 26: the palette's swatches, then the spotlight
  for (int i = 0; i < kPaletteCells; ++i) io.Long(i * 4, t.PaletteColor[static_cast<std::size_t>(i)]);
  io.Long(kPaletteCells * 4, t.Spotlight);
  io.Begin();  // 27
  for (int i = 0; i < kTableParts; ++i) io.Long(i * 4, t.LayoutColor[static_cast<std::size_t>(i)]);
  io.Long(20, t.TablePreset);
  io.Begin();  // 28
  for (int b = 0; b <= 100; ++b) io.Int(b * 2, g.BetWorkingDefault(0, b));
}

// A table with one Long per frame index 0..44, one record.
template <class IO, class Table>
void FrameLongs(IO& io, Table& t) {
  io.Begin();
  for (int i = 0; i <= kLastFrameIndex; ++i) io.Long(i * 4, t(i));
}

// Records 29 to 408: the dice and hand tallies of the whole table.
template <class IO>
void TallyRecords(IO& io, Game& g) {
  constexpr int kEvents = kLastEvent + 1;  // categories 0..90
  Run(io, kFrameCount * 9 * kEvents, 64, 4,
      [&](int n, int byte) { io.Long(byte, g.RollTally(n / kEvents, n % kEvents)); });  // 29-92
  Run(io, kEvents, 32, 4, [&](int n, int byte) {  // 93-95: the counts, through a copy
    Long rolls = g.RollsSince(n);
    io.Long(byte, rolls);
    g.RollsSince.Set(n, rolls);
  });
  constexpr int kGaps = kLongGap + 1;  // 0..200
  Run(io, kLastEvent * kGaps, 64, 4,
      [&](int n, int byte) { io.Long(byte, g.GapTally(1 + n / kGaps, n % kGaps)); });  // 96-378
  Run(io, kFrameCount * 9 * 11 * 3, 64, 4, [&](int n, int byte) {
    io.Long(byte, g.TotalsTally(n / 33, 2 + n % 33 / 3, 1 + n % 3));
  });  // 379-402
  FrameLongs(io, g.HandsTally);       // 403
  FrameLongs(io, g.RollsAtTable);     // 404
  FrameLongs(io, g.MostRollsHand);    // 405
  FrameLongs(io, g.MostComeoutHand);  // 406
  FrameLongs(io, g.MostPassesHand);   // 407
  FrameLongs(io, g.MostMissesHand);   // 408
}

// Records 409 to 415: views, options, editor and graph settings.
template <class IO>
void ViewRecords(IO& io, Game& g) {
  GameFileState& f = g.gamefile;
  RollState& r = g.roll;
  io.Begin();  // 409
  ViewsState& v = g.views;
  DiceFileState& d = g.diceFile;
  io.Long(4, v.RollTotalsKind);
  io.Long(8, f.RollTotalsBackColor);
  io.Long(12, f.RollTotalsGraphColor);
  io.Long(16, f.RollTotalsScrollX);
  io.Long(20, f.RollTotalsScrollY);
  io.Long(24, v.RollTotalsVsSkewed);
  io.Long(28, v.RollTotalsFrame);
  io.Long(32, v.RollTotalsPlayers);
  io.Long(36, v.BetResultsFrame);
  io.Long(40, g.ComeoutsThisHand);
  io.Long(44, g.PassesThisHand);
  io.Long(48, g.MissesThisHand);
  io.Long(52, v.HandsShowPercent);
  io.Long(56, v.HandsFrame);
  io.Long(60, v.SummaryFrame);

  io.Begin();  // 410
  io.Text(0, kRecordBytes, v.BetResultsSelection);

  io.Begin();  // 411
  io.Long(0, g.table.AutoSize);
  io.Long(4, g.betting.KeyInBetAmounts);
  io.Long(8, g.table.DisplayBetAmounts);
  io.Long(16, f.EnterBetId);
  io.Long(20, g.table.HopBetsShown);
  io.Long(24, g.table.StatusView);
  io.Long(28, g.betting.DisplayZeroStacks);
  io.Long(32, f.CheckStacksScroll);
  io.Long(36, f.CheckStacksFontSize);
  io.Long(40, v.RollFreqCategory);
  io.Long(44, v.SessionsFilter);
  io.Long(48, v.SessionsView);
  io.Long(52, g.pad.PadOptions);
  io.Long(56, g.pad.PadColor);
  io.Long(60, d.DiceFileMode);
  io.Long(64, d.optInsertRolls);
  io.Long(84, f.DiceFilesFontSize);
  io.Long(88, d.DiceFilePos);
  io.Long(92, d.DiceFileLast);
  io.Long(96, g.GraphRollCount);
  io.Long(100, r.GraphAutoPrint);
  GraphViewState& graph = g.graph;
  io.Long(104, graph.GraphShowRefLines);
  io.Long(108, graph.GraphColor);
  io.Long(112, r.GraphPlotType);
  io.Long(116, graph.GraphAdjustType);
  io.Long(120, graph.GraphStyle);
  io.Long(124, graph.GraphShowGrid);
  io.Long(128, r.GraphShowAverage);
  io.Long(132, graph.GraphAverageSpan);
  io.Long(136, g.hyper.HyperThrottle);
  io.Long(140, f.CheckStacksItalic);
  io.Long(144, f.CheckStacksBold);

  io.Begin();  // 412
  io.Text(0, kRecordBytes, d.DiceOutputFormat);

  io.Begin();  // 413
  io.Long(0, g.scriptRun.ShowSteps);  // the step-by-step mode
  Long* editor[] = {&f.EditorLineNumbers, &f.EditorSyntaxLists, &f.EditorAutoIndent,
                    &f.EditorHighlight,   &f.EditorItalic,      &f.EditorBold,
                    &f.EditorFontSize};
  for (int i = 0; i < 7; ++i) io.Long((i + 1) * 4, *editor[i]);
  io.Long(32, r.ScriptActive[0]);
  // The script permissions by player; the fourth, the use of folders
  // other than the data folder, follows the three in bytes 136-164.
  ScriptRunState& run = g.scriptRun;
  for (int p = 1; p <= 8; ++p) {
    io.Long(36 + 4 * p, run.AllowReset(p));
    io.Long(68 + 4 * p, run.AllowActForOthers(p));
    io.Long(100 + 4 * p, run.AllowDiceFiles(p));
    io.Long(132 + 4 * p, run.AllowAnyFolder(p));
  }

  io.Begin();  // 414
  io.Cur(0, r.GraphScale);
  io.Cur(8, r.GraphBaseScale);
  io.Cur(16, r.GraphTop);
  io.Cur(24, g.hyper.HyperDelaySeconds);
  io.Cur(32, g.hyper.AutoStopRolls);

  io.Begin();  // 415
  for (int i = 1; i <= 6; ++i)
    for (int j = 1; j <= 6; ++j) io.Long(((i - 1) * 6 + j) * 4, d.HighlightCombo(i, j));
}

// The statistics of slot p in its five frames, 32 Currency a record.
template <class IO, class Table>
void SeatStatRun(IO& io, Table& t, int p) {
  constexpr int kPerFrame = 100 * 6;
  Run(io, kFrameCount * kPerFrame, 32, 8, [&](int n, int byte) {
    io.Cur(byte, t(FrameIndex(p, n / kPerFrame), 1 + n % kPerFrame / 6, 1 + n % 6));
  });
}

// Bets of slot p, ids first..last, 32 Currency a record.
template <class IO, class Table>
void SeatCurrencyRun(IO& io, Table& t, int p, int first, int last) {
  Run(io, last - first + 1, 32, 8, [&](int n, int byte) { io.Cur(byte, t(p, first + n)); });
}

// One player block: block record 1 holds the slot, which the reader checks
// before it reads anything of the seat.
template <class IO>
void PlayerBlock(IO& io, Game& g, Long& slot, BlockPaths& paths) {
  io.Begin();  // 1
  io.LongCur(0, slot);
  if constexpr (IO::kReading) {
    if (slot < 1 || slot > 8) {
      io.Fail();
      return;
    }
  }
  const int p = slot;
  const auto s = static_cast<std::size_t>(p);
  io.Cur(8, g.TotalBets(p));
  io.LongCur(16, g.roll.ScriptActive[s]);
  io.LongCur(24, g.roll.ScriptActiveAtRoll[s]);
  io.Cur(32, g.BankrollHigh(p));
  io.Cur(40, g.BankrollLow(p));
  for (int k = 1; k <= 4; ++k) io.LongCur(40 + 8 * k, g.betting.CheckStackSlot(p, k));

  std::string none;
  io.Path(g.PlayerName[s], none);                         // 2
  io.Path(paths.script.path, paths.script.stamp);         // 3
  io.Path(paths.output.path, none);                       // 4
  io.Path(paths.sessionLog.path, none);                   // 5

  AutoPlayState& a = g.autoplay;
  io.Begin();  // 6
  io.LongCur(0, g.betting.AllowNegBankroll(p));
  io.LongCur(8, g.betting.StartBankrollMode(p));
  io.Cur(16, g.betting.StartBankroll(p));
  io.Cur(24, g.betting.AtmAmount);
  io.Cur(32, g.BankrollSum(p));
  io.Cur(40, g.InvestedBankroll(p));
  io.LongCur(48, a.AutoAdjustMode(p));
  io.LongCur(56, a.AutoTakeFullOdds(p));
  io.LongCur(64, a.AutoLayFullOdds(p));
  io.LongCur(72, a.AutoDownPlaceBets(p));
  io.LongCur(80, a.AutoPassDice(p));
  io.LongCur(88, a.HandleWinningBets(p));
  io.LongCur(96, a.HandleLosingBets(p));
  io.LongCur(104, a.LayBias(p));
  io.LongCur(112, a.PlaceBias(p));
  io.LongCur(120, a.DoBias(p));
  io.LongCur(128, a.DontBias(p));

  SeatCurrencyRun(io, g.Bet, p, 0, kLastBetId);           // 7-13
  SeatCurrencyRun(io, g.BetAtRoll, p, 0, kLastBetId);     // 14-20
  SeatCurrencyRun(io, g.BetAfterRoll, p, 0, kLastBetId);  // 21-27
  SeatCurrencyRun(io, g.BetContract, p, 1, kLastRealBet); // 28-30
  io.Begin();  // 31
  for (int n = 0; n <= 5; ++n) {
    io.Cur(8 * (n + 1), g.LayVig(p, n));
    io.Cur(8 * (n + 7), g.BuyVig(p, n));
  }
  Run(io, 200, 32, 4, [&](int n, int byte) { io.Long(byte, g.BetTrend(p, 1 + n % 100, n / 100)); });  // 32-38
  io.Begin();  // 39
  for (int b = 0; b <= 100; ++b) io.Int(b * 2, g.BetWorkingDefault(p, b));
  io.Begin();  // 40
  for (int b = 0; b <= 100; ++b) io.Int(b * 2, g.BetWorking(p, b));
  for (int k = 0; k <= 99; ++k) {  // 41-140
    io.Begin();
    io.Text(0, kRecordBytes, g.CheckStackName(p, k));
  }
  Run(io, 1051, 32, 8, [&](int n, int byte) { io.Cur(byte, GraphHistory(g, p, n)); });  // 141-173, in logical order
  SeatStatRun(io, g.StatAction, p);  // 174-267
  SeatStatRun(io, g.StatWins, p);    // 268-361
  SeatStatRun(io, g.StatLosses, p);  // 362-455
  io.Begin();  // 456
  for (int n = 0; n < kFrameCount * 6; ++n) io.Cur(n * 8, g.ComeTravelTotal(FrameIndex(p, n / 6), n % 6));
  io.Begin();  // 457
  for (int k = 0; k <= 5; ++k) io.Cur(8 * (k + 1), g.ComeFlatAtSet(p, k));
  io.Begin();  // 458
  constexpr int kModeSlots[] = {5, 7, 9, 10};
  for (int i = 0; i < 4; ++i) io.LongCur(8 * i, a.AdjustOperator(p, kModeSlots[i]));
  for (int k = 5; k <= 12; ++k) io.Cur(32 + 8 * (k - 5), a.AdjustAmount(p, k));
  for (int k = 5; k <= 10; ++k) io.Cur(96 + 8 * (k - 5), a.AdjustUnits(p, k));
}

// The check image list: five Integers an entry, 25 entries a record.
template <class IO>
void CheckImageRecords(IO& io, std::vector<CheckImage>& images) {
  Run(io, static_cast<int>(images.size()), kCheckImagesPerRecord, 10, [&](int n, int byte) {
    CheckImage& c = images[static_cast<std::size_t>(n)];
    std::int32_t v[5] = {c.player, c.bet, c.art, c.x, c.y};
    for (int k = 0; k < 5; ++k) io.Int(byte + 2 * k, v[k]);
    if constexpr (IO::kReading) c = {static_cast<std::int16_t>(v[0]), static_cast<std::int16_t>(v[1]),
                                     static_cast<std::int16_t>(v[2]), static_cast<std::int16_t>(v[3]),
                                     static_cast<std::int16_t>(v[4])};
  });
}

}  // namespace game_file
