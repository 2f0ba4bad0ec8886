// The probability table: every kind of set against tables worked by hand,
// the locks, the undo of a set that can't be balanced, the display modes,
// the axis dialog, the pick of a pair from k and, in the large, the pairs a
// Hyper-Drive run draws; editing as the tab does; and probability files,
// their bytes, round trip and the files that must be refused.
#include "dice/probability.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>

#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "dice/probability_edit.h"
#include "dice/probability_file.h"
#include "dice/rng.h"
#include "tests/engine/roll_fixture.h"

namespace {

namespace fs = std::filesystem;

using Grid = std::array<std::array<Long, 6>, 6>;  // cells by dice: [die1 - 1][die2 - 1]
using Faces = std::array<Long, 6>;

bool DiceInRange(const Game& g) { return g.Die1 >= 1 && g.Die1 <= 6 && g.Die2 >= 1 && g.Die2 <= 6; }

Grid Uniform(Long v) {
  Grid g;
  for (auto& row : g) row.fill(v);
  return g;
}

void ExpectMessage(const MessageRequest& m, const std::string& text, const std::string& title,
                   int helpId, int style) {
  EXPECT_EQ(m.text, text);
  EXPECT_EQ(m.title, title);
  EXPECT_EQ(m.helpId, helpId);
  EXPECT_EQ(m.style, style);
}

class Probability : public RollFixture {
 protected:
  Long Value(ProbEntry e) const { return ProbValue(g, e.a, e.b); }
  Grid Cells() const {
    Grid grid{};
    for (int d1 = 1; d1 <= 6; ++d1)
      for (int d2 = 1; d2 <= 6; ++d2) grid[d1 - 1][d2 - 1] = Value(CellOfDice(d1, d2));
    return grid;
  }
  Faces FaceValues(int die) const {
    Faces f{};
    for (int face = 1; face <= 6; ++face) f[face - 1] = Value(FaceEntry(die, face));
    return f;
  }
  bool Locked(ProbEntry e) const { return ProbFlag(g, e.a, e.b) == kProbLocked; }
  int LockedCount() const {
    int n = 0;
    for (int a = 1; a <= 7; ++a)
      for (int b = 1; b <= 13; ++b) n += ProbFlag(g, a, b) != 0;
    return n;
  }
  void Set(ProbEntry e, double units) { SetProbabilityCell(g, e.a, e.b, units, true); }
  void Lock(ProbEntry e) { FlipProbabilityLock(g, e.a, e.b); }
};

TEST_F(Probability, TotalSetSharesItsValueInItsColumnAndTheRestOutside) {
  SetProbabilityCell(g, kTotalRow, 6, 20000, false);  // 20 percent typed in mode 0
  Grid expected = Uniform(2667);
  for (int d1 = 1; d1 <= 6; ++d1) expected[d1 - 1][6 - d1] = 3333;
  EXPECT_EQ(Cells(), expected);
  // Locked by the edit, the total stays 20000 though its cells add to 19998.
  EXPECT_EQ(Value(TotalEntry(7)), 20000);
  EXPECT_EQ(Value(TotalEntry(8)), 5 * 2667);
  EXPECT_TRUE(Locked(TotalEntry(7)));
  EXPECT_EQ(LockedCount(), 1);
  EXPECT_TRUE(IsFreeFormDice(g));
  EXPECT_TRUE(g.probability.ProbDirty);

  // Rounding goes to the even unit on a tie: (5001 - 0) / 2 = 2500.5.
  NewProbabilities(g);
  Set(TotalEntry(3), 5001);
  EXPECT_EQ(Cells()[0][1], 2500);
  EXPECT_EQ(Cells()[0][0], 2794);  // Round(94999 / 34)

  // A total above certainty is cut and leaves the others empty.
  NewProbabilities(g);
  Set(TotalEntry(12), 150000);
  expected = Uniform(0);
  expected[5][5] = 100000;
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(Value(TotalEntry(12)), 100000);
}

TEST_F(Probability, FaceSetsKeepTheDiceIndependentOrSpreadOverTheFreeCells) {
  const ProbEntry six = FaceEntry(1, 6);
  SetProbabilityCell(g, six.a, six.b, 20000, false);
  EXPECT_EQ(FaceValues(1), (Faces{16000, 16000, 16000, 16000, 16000, 20000}));
  EXPECT_EQ(FaceValues(2), (Faces{16667, 16667, 16667, 16667, 16667, 16667}));
  Grid expected = Uniform(2667);  // Round(16000 x 16667 x 0.00001) = Round(2666.72)
  expected[5].fill(3333);         // Round(20000 x 16667 x 0.00001) = Round(3333.4)
  EXPECT_EQ(Cells(), expected);
  EXPECT_FALSE(IsFreeFormDice(g));
  EXPECT_TRUE(Locked(six));

  // With a locked cell the set spreads over the face and the free cells.
  NewProbabilities(g);
  Lock(CellOfDice(1, 1));
  Set(FaceEntry(1, 1), 20000);
  expected = Uniform(2667);                            // Round(80000 / 30)
  expected[0] = {2778, 3444, 3444, 3444, 3444, 3444};  // Round((20000 - 2778) / 5)
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(FaceValues(1), (Faces{20000, 16002, 16002, 16002, 16002, 16002}));
  EXPECT_TRUE(IsFreeFormDice(g));
  EXPECT_EQ(LockedCount(), 2);
}

TEST_F(Probability, CellSetsAreHeldByTheirLocksAndUnbalanceableSetsUndone) {
  Lock(TotalEntry(7));
  Set(CellOfDice(1, 6), 5000);
  Grid expected = Uniform(2778);  // Round((100000 - 11665 - 5000) / 30) = Round(2777.83)
  for (int d1 = 1; d1 <= 6; ++d1) expected[d1 - 1][6 - d1] = 2333;  // Round(11667 / 5)
  expected[0][5] = 5000;
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(Value(TotalEntry(7)), 16667);

  // Face 1 of the first die locked at 16667 with four of its cells locked at
  // 2778: the two free cells share 16667 - 11112 = 5555.
  NewProbabilities(g);
  Lock(FaceEntry(1, 1));
  for (int d2 = 2; d2 <= 5; ++d2) Lock(CellOfDice(1, d2));
  Set(CellOfDice(1, 1), 9000);
  const Grid cells = Cells();
  EXPECT_EQ(cells[0][0], 5555);  // min(9000, 5555)
  EXPECT_EQ(cells[0][5], 0);     // Round((16667 - 5555 - 11112) / 1)
  EXPECT_EQ(cells[3][3], 2778);  // the 30 others share Round((88888 - 5555) / 30)

  // Sets that can't be balanced are undone but stay locked.
  std::vector<ProbEntry> allButDieOne1, dieOne1Others = {FaceEntry(1, 1)};
  for (int d1 = 2; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) allButDieOne1.push_back(CellOfDice(d1, d2));
  for (int d2 = 2; d2 <= 6; ++d2) dieOne1Others.push_back(CellOfDice(1, d2));
  // Why it can't balance, the entries locked first, the entry set.
  const std::tuple<const char*, std::vector<ProbEntry>, ProbEntry> cases[] = {
      {"a total whose only cell is locked", {CellOfDice(1, 1)}, TotalEntry(2)},
      {"a face with the five others of its die locked",
       {FaceEntry(2, 1), FaceEntry(2, 2), FaceEntry(2, 3), FaceEntry(2, 4), FaceEntry(2, 5)},
       FaceEntry(2, 6)},
      {"a cell whose locked face has every other cell locked", dieOne1Others, CellOfDice(1, 1)},
      {"a face with something locked and no free cell outside it", allButDieOne1, FaceEntry(1, 1)},
  };
  for (const auto& [why, locks, entry] : cases) {
    SCOPED_TRACE(why);
    NewProbabilities(g);
    for (const ProbEntry e : locks) Lock(e);
    const Grid before = Cells();
    const Long old = Value(entry);
    Set(entry, 50000);
    EXPECT_EQ(Cells(), before);
    EXPECT_EQ(Value(entry), old);
    EXPECT_TRUE(Locked(entry));
    EXPECT_FALSE(g.probability.ProbDirty);
    for (int a = 1; a <= 7; ++a)
      for (int b = 1; b <= 13; ++b) EXPECT_TRUE(ProbFlag(g, a, b) == 0 || Locked({a, b})) << a << b;
  }
}

TEST_F(Probability, AxisDialogCellTextAndThePick) {
  SetAxisProbabilities(g, 0, 100, 0, 100);
  for (int die = 1; die <= 2; ++die)
    EXPECT_EQ(FaceValues(die), (Faces{0, 25000, 25000, 25000, 25000, 0}));
  Grid expected = Uniform(0);
  for (int d1 = 2; d1 <= 5; ++d1)
    for (int d2 = 2; d2 <= 5; ++d2) expected[d1 - 1][d2 - 1] = 6250;
  EXPECT_EQ(Cells(), expected);
  EXPECT_FALSE(IsFreeFormDice(g));
  EXPECT_EQ(LockedCount(), 4);

  // Half effective about 3-4 for the first die: (1 - 0.5) / 6 in single
  // precision is 0.083333336, so faces 3 and 4 get 8333 and the rest
  // Round((100000 - 16666) / 4) = Round(20833.5) = 20834, to even. With no
  // effect about 2-5 the second die's axis gets Round(16666.667) = 16667,
  // the others Round(66666 / 4) = Round(16666.5) = 16666.
  SetAxisProbabilities(g, 2, 50, 1, 0);
  EXPECT_EQ(FaceValues(1), (Faces{20834, 20834, 8333, 8333, 20834, 20834}));
  EXPECT_EQ(FaceValues(2), (Faces{16666, 16667, 16666, 16666, 16667, 16666}));

  // Cell text follows the display mode.
  NewProbabilities(g);
  Set(TotalEntry(7), 20000);
  // The display mode, the rolls out of, the entry, its text and sign.
  const std::tuple<Long, double, ProbEntry, const char*, int> cases[] = {
      {kShowPercentage, 36, CellOfDice(1, 6), "3.333", 0},
      {kShowPercentFromTrue, 36, CellOfDice(1, 1), "-0.111", -1},
      {kShowPercentFromTrue, 36, FaceEntry(1, 1), "+0.001", 1},  // 16.668 - 16.6667
      {kShowRollsOutOf, 100000, TotalEntry(7), "20,000.000", 0},
      {kShowRollsFromTrue, 36, CellOfDice(1, 1), "-0.040", -1},  // 0.96012 - 1
      {kShowRollsFromTrue, 36, TotalEntry(8), "-0.199", -1},     // 4.8006 - 5
  };
  for (const auto& [mode, n, entry, text, sign] : cases) {
    g.probability.ProbDisplayMode = mode;
    g.probability.RollsOutOf = n;
    EXPECT_EQ(ProbabilityCellText(g, entry.a, entry.b), text) << mode;
    EXPECT_EQ(ProbabilityCellSign(g, entry.a, entry.b), sign) << mode;
  }
  g.probability.ProbDisplayMode = kShowRollsFromTrue;
  g.probability.RollsOutOf = 1234.5;
  EXPECT_EQ(ProbabilityModeCaption(g), "Shown as +/- from true number of rolls out of 1234.5");
  // A value that rounds to true reads as zero, unsigned and black.
  NewProbabilities(g);
  g.probability.ProbDisplayMode = kShowPercentFromTrue;
  EXPECT_EQ(ProbabilityCellText(g, 2, 1), "0.000");
  EXPECT_EQ(ProbabilityCellSign(g, 2, 1), 0);
  EXPECT_EQ(ProbabilityCellText(g, 0, 0), "");

  // The pick scans the cells row by row and always ends.
  // Row 2 holds 1-1, 1-2 .. 1-6, 2-6 .. 6-6; row 3 starts with 2-1.
  const std::pair<Long, DicePair> picks[] = {
      {2778, {1, 1}},          {2779, {1, 2}},   {6 * 2778 + 1, {2, 6}}, {11 * 2778, {6, 6}},
      {11 * 2778 + 1, {2, 1}}, {100000, {6, 1}}, {100001, {6, 1}}};
  for (const auto& [k, dice] : picks) {
    PickProbabilityDice(g, k);
    EXPECT_EQ((DicePair{g.Die1, g.Die2}), dice) << k;
  }
  // Beyond the sum k is drawn again.
  Set(TotalEntry(12), 100000);  // all on 6-6, the cells sum to exactly 100000
  for (int i = 0; i < 20; ++i) {
    PickProbabilityDice(g, 100001);
    EXPECT_EQ((DicePair{g.Die1, g.Die2}), (DicePair{6, 6}));
  }
  // A table whose cells can't be hit (a file may hold one) gives fair dice.
  for (int a = 2; a <= 7; ++a)
    for (int b = a - 1; b <= 13 - a; ++b) ProbValue(g, a, b) = 0;
  std::array<int, 7> seen{};
  for (int i = 0; i < 600; ++i) {
    PickProbabilityDice(g, 1);
    ASSERT_TRUE(DiceInRange(g));
    ++seen[g.Die1];
  }
  for (int face = 1; face <= 6; ++face) EXPECT_GT(seen[face], 50) << face;
}

TEST_F(Probability, KindSwitchesRebuildWhatTheKindImpliesAndAHyperDriveRunFitsTheTable) {
  Set(CellOfDice(3, 3), 10000);
  EXPECT_TRUE(IsFreeFormDice(g));
  UnlockAllProbabilities(g);
  EXPECT_EQ(LockedCount(), 0);
  const Faces die1 = {10000, 20000, 20000, 20000, 20000, 10000};
  for (int face = 1; face <= 6; ++face) {
    ProbValue(g, face + 1, kFirstDieColumn) = die1[face - 1];
    ProbValue(g, face + 1, kSecondDieColumn) = 16667;
  }
  MakePercentageDice(g);
  EXPECT_STREQ(ProbabilityKindCaption(g), "Percentage Dice");
  Grid expected = Uniform(3333);  // Round(20000 x 16667 x 0.00001) = Round(3333.4)
  expected[0].fill(1667);         // Round(1666.7)
  expected[5].fill(1667);
  EXPECT_EQ(Cells(), expected);

  MakeFreeFormDice(g);  // the faces follow the cells
  EXPECT_STREQ(ProbabilityKindCaption(g), "Free Form Dice");
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(FaceValues(1), (Faces{10002, 19998, 19998, 19998, 19998, 10002}));

  NewProbabilities(g);
  EXPECT_EQ(Cells(), Uniform(2778));
  EXPECT_FALSE(IsFreeFormDice(g));
  EXPECT_FALSE(g.probability.ProbDirty);

  // Skewed dice in the large: a long Hyper-Drive run with probability dice on
  // shows each pair as often as its cell says. Pearson's chi-square over the
  // 35 pairs that can come stays below its 0.999 quantile with 34 degrees of
  // freedom (a fit fails by chance once in a thousand seeds).
#ifdef NDEBUG
  constexpr std::int64_t kRolls = 10'000'000;
#else
  constexpr std::int64_t kRolls = 300'000;  // a smoke run; the check proper needs Release
#endif
  // Sevens 4000 each, 3-3 6000, 1-2 never, the 28 others 2500: 100000 in all.
  Grid cells = Uniform(2500);
  for (int d1 = 1; d1 <= 6; ++d1) cells[d1 - 1][6 - d1] = 4000;
  cells[2][2] = 6000;
  cells[0][1] = 0;
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) {
      const ProbEntry e = CellOfDice(d1, d2);
      ProbValue(g, e.a, e.b) = cells[d1 - 1][d2 - 1];
    }
  g.dice.RngIndex = 0;
  SeedRngWith(g, 20261123);
  g.dice.ProbabilityDiceOn = true;
  g.hyper.RunRollLimit = kRolls;
  Grid counts{};
  g.hyper.RollObserver = [](void* c, const Game& game) {
    (*static_cast<Grid*>(c))[game.Die1 - 1][game.Die2 - 1]++;
  };
  g.hyper.RollObserverContext = &counts;
  RunHyperDrive(g);
  EXPECT_EQ(g.hyper.RollsThisRun, kRolls) << g.StopMessage;
  double chi = 0;
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 6; ++j) {
      const double expected = static_cast<double>(cells[i][j] * kRolls) / kProbCertain;
      const double d = static_cast<double>(counts[i][j]) - expected;
      if (expected == 0)
        EXPECT_EQ(counts[i][j], 0);
      else
        chi += d * d / expected;
    }
  EXPECT_LT(chi, 65.247);
}

TEST_F(Probability, TheEventsLogNamesTheTableArrowsStayOnEntriesAndOnlyPlainNumbersAreRead) {
  Set(TotalEntry(12), 100000);  // every roll 6-6
  g.dice.RngIndex = 0;
  g.dice.ProbabilityDiceOn = true;
  g.roll.LogOn = true;
  ClearEventsLog(g);
  g.hyper.RunRollLimit = 1;
  RunHyperDrive(g);
  g.probability.ProbFilePath = "/data/boxcars.prb";
  RunHyperDrive(g);
  EXPECT_EQ(EventsLogText(g),
            " Roll #1:  12 (6.6) from RNG #1 using untitled probability matrix\n"
            "    Miss (craps natural)\n"
            " Roll #2:  12 (6.6) from RNG #1 using probability matrix: /data/boxcars.prb\n"
            "    Miss (craps natural)\n");

  // Editing as the tab does.
  const auto move = [](ProbEntry from, int rows, int columns) {
    const ProbEntry to = MoveProbabilityEntry(from, rows, columns);
    return to.a * 100 + to.b;
  };
  EXPECT_EQ(move({1, 1}, -1, 0), 101);   // the totals row is the top
  EXPECT_EQ(move({1, 5}, 1, 0), 205);    // from total 6 down into its cells
  EXPECT_EQ(move({7, 6}, 0, 1), 712);    // row 7 skips the short columns to the faces
  EXPECT_EQ(move({7, 13}, 0, 1), 713);   // the right edge
  EXPECT_EQ(move({1, 11}, 0, 1), 111);   // no face in the totals row
  EXPECT_EQ(move({2, 12}, -1, 0), 212);  // no total above a face

  // Only plain numbers are read.
  const std::pair<const char*, std::optional<double>> cases[] = {
      {"20", 20.0},          {"12.345", 12.345},    {"-1.5", -1.5},
      {".5", 0.5},           {"7.", 7.0},           {"", std::nullopt},
      {"-", std::nullopt},   {".", std::nullopt},   {"1.2.3", std::nullopt},
      {"abc", std::nullopt}, {"1e5", std::nullopt}, {"5-", std::nullopt},
      {" 5", std::nullopt},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(ParseProbabilityText(text), want) << text;
}

TEST_F(Probability, TheSelectionIsAnEntryAndATypedValueIsReadInTheDisplayMode) {
  EXPECT_EQ(ProbabilityFileCaption(g), "untitled");
  EXPECT_EQ(SelectedProbabilityEntry(g), TotalEntry(2));
  SelectProbabilityEntry(g, FaceEntry(2, 4));
  EXPECT_EQ(SelectedProbabilityEntry(g), FaceEntry(2, 4));
  SelectProbabilityEntry(g, {1, 12});  // not an entry: the selection stays
  EXPECT_EQ(SelectedProbabilityEntry(g), FaceEntry(2, 4));
  // A file may bring any selection; one that names no entry reads as total 2.
  ProbFlag(g, 0, 1) = 99;
  ProbFlag(g, 0, 2) = -4;
  EXPECT_EQ(SelectedProbabilityEntry(g), TotalEntry(2));

  // A typed value is read in the display mode; a bad one changes nothing.
  const ProbEntry seven = TotalEntry(7);
  const ProbabilityState before = g.probability;
  for (auto [entry, text] : {std::pair{seven, "2O"}, {seven, ""}, {ProbEntry{1, 12}, "20"}})
    EXPECT_FALSE(EnterProbabilityText(g, entry, text)) << text;  // {1, 12} is no entry
  EXPECT_EQ(g.probability, before);
  // The display mode, the rolls out of, the text typed and total 7 after.
  const std::tuple<Long, double, const char*, Long> cases[] = {
      {kShowPercentage, 36, "20", 20000},       {kShowRollsOutOf, 100, "25", 25000},
      {kShowPercentFromTrue, 36, "1.5", 18167},  // 16666.67 + 1500
      {kShowRollsOutOf, 36, "7", 19444},         // 7 x 100000 / 36
      {kShowRollsFromTrue, 36, "-1", 13889},     // 6 - 1 rolls out of 36
      {kShowPercentFromTrue, 36, "-50", 0},      // below true by more than all of it
  };
  for (const auto& [mode, rollsOutOf, text, total] : cases) {
    NewProbabilities(g);
    g.probability.ProbDisplayMode = mode;
    g.probability.RollsOutOf = rollsOutOf;
    ASSERT_TRUE(EnterProbabilityText(g, seven, text)) << text;
    EXPECT_EQ(Value(seven), total) << "mode " << mode << " " << text;
    EXPECT_TRUE(Locked(seven));
    EXPECT_TRUE(g.probability.ProbDirty);
  }
}

TEST_F(Probability, RollsOutOfMustBeAboveZero) {
  for (const char* bad : {"0", "-3", "0.0000", "", "x"}) {
    EXPECT_FALSE(EnterRollsOutOf(g, bad)) << bad;
    EXPECT_EQ(g.probability.RollsOutOf, 36) << bad;
  }
  ASSERT_TRUE(EnterRollsOutOf(g, "36.25"));
  EXPECT_EQ(RollsOutOfText(g), "36.25");
  ASSERT_TRUE(EnterRollsOutOf(g, "100"));
  EXPECT_EQ(RollsOutOfText(g), "100");
  EXPECT_EQ(ProbabilityCellText(g, 1, 6), "16.667");  // a cell reads as its share of N
}

// Probability files.
constexpr std::size_t kFileBytes = 5 * 256;
constexpr std::size_t kTableEnd = 256 + 224 * 4;  // the bytes a whole table needs

std::int32_t EntryAt(const std::string& bytes, std::size_t offset) {
  std::uint32_t u = 0;
  for (int i = 3; i >= 0; --i) u = u << 8 | static_cast<unsigned char>(bytes[offset + i]);
  return static_cast<std::int32_t>(u);
}
void PutEntry(std::string& bytes, std::size_t offset, std::int32_t v) {
  for (int i = 0; i < 4; ++i) bytes[offset + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
}
// Byte offset of entry (k, a, b) in a file.
std::size_t Offset(int k, int a, int b) { return 256 + 4 * (k * 112 + a * 14 + b); }

// A skewed, partly locked table to save, with a selected entry.
void Skew(Game& g) {
  SetProbabilityCell(g, kTotalRow, 6, 20000, true);
  const ProbEntry cell = CellOfDice(2, 5);
  SetProbabilityCell(g, cell.a, cell.b, 4000, true);
  ProbFlag(g, 0, 1) = 3;
  ProbFlag(g, 0, 2) = 4;
}

using ProbabilityFile = Probability;

// The header, then the flags, then the values, in file order; loaded back
// (a bare name is in the data folder) the whole table returns, and the dice
// switch stays as it was.
TEST_F(ProbabilityFile, SavedBytesLoadBackWholeAndBadFilesAreRefused) {
  Skew(g);
  ASSERT_TRUE(SaveProbabilityFile(g, "skew.prb"));
  const std::string bytes = ReadWholeFile(folder / "skew.prb");
  ASSERT_EQ(bytes.size(), kFileBytes);
  EXPECT_EQ(bytes.substr(0, 200), std::string(kProbabilityFileHeader) +
                                      std::string(200 - kProbabilityFileHeader.size(), ' '));
  // The kind of dice, the selection, total 7's lock and value, the set cell, the last entry.
  const ProbEntry cell = CellOfDice(2, 5);
  const std::pair<std::size_t, Long> entries[] = {
      {Offset(0, 0, 0), kFreeFormDice},  {Offset(0, 0, 1), 3},
      {Offset(0, 1, 6), kProbLocked},    {Offset(1, 1, 6), 20000},
      {Offset(1, cell.a, cell.b), 4000}, {Offset(1, 7, 13), ProbValue(g, 7, 13)}};
  for (auto [offset, value] : entries) EXPECT_EQ(EntryAt(bytes, offset), value) << offset;
  EXPECT_EQ(Offset(1, 7, 13) + 4, kTableEnd);
  EXPECT_EQ(bytes.substr(kTableEnd), std::string(128, '\0'));
  EXPECT_FALSE(fs::exists(folder / "skew.prb.~prb"));
  const auto saved = g.probability.ProbabilityTable;
  NewProbabilities(g);
  g.probability.ProbDirty = true;
  g.dice.ProbabilityDiceOn = true;
  ASSERT_TRUE(LoadProbabilityFile(g, "skew.prb"));
  EXPECT_EQ(g.probability.ProbabilityTable, saved);
  EXPECT_EQ(g.probability.ProbFilePath, folder / "skew.prb");
  EXPECT_FALSE(g.probability.ProbDirty);
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
  // The record's ignored tail may be missing: 1152 bytes are a whole table.
  WriteWholeFile(folder / "short-tail.prb",
                 ReadWholeFile(folder / "skew.prb").substr(0, kTableEnd));
  NewProbabilities(g);
  EXPECT_TRUE(LoadProbabilityFile(g, folder / "short-tail.prb"));
  EXPECT_EQ(g.probability.ProbabilityTable, saved);

  // Bad files are refused and the table in use stays.
  Skew(g);
  ASSERT_TRUE(SaveProbabilityFile(g, "good.prb"));
  const std::string good = ReadWholeFile(folder / "good.prb");
  NewProbabilities(g);
  Set(TotalEntry(2), 9000);
  const auto inUse = g.probability.ProbabilityTable;
  const std::string path = g.probability.ProbFilePath;

  auto with = [&](std::size_t offset, std::int32_t v) {
    std::string b = good;
    PutEntry(b, offset, v);
    return b;
  };
  std::string otherHeader = good, olderFormat = good;
  otherHeader.replace(0, 6, "Bogus ");
  olderFormat.replace(kProbabilityFileHeader.size() - 3, 3, "4.5");
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"one byte short", good.substr(0, kTableEnd - 1)},
      {"another header", otherHeader},
      {"an older format", olderFormat},
      {"a negative cell", with(Offset(1, 2, 1), -5)},
      {"a mark left in a flag", with(Offset(0, 2, 1), 4)},
      {"an unknown kind of dice", with(Offset(0, 0, 0), 7)},
      {"random bytes", std::string(kFileBytes, '\xA5')},
  };
  for (const auto& [why, bytes] : cases) {
    SCOPED_TRACE(why);
    WriteWholeFile(folder / "bad.prb", bytes);
    EXPECT_EQ(ReadProbabilityFile(g, "bad.prb"), ProbFileStatus::NotProbabilityFile);
    EXPECT_EQ(g.probability.ProbabilityTable, inUse);
    EXPECT_EQ(g.probability.ProbFilePath, path);
    EXPECT_TRUE(g.probability.ProbDirty);
  }
  EXPECT_TRUE(platform.messages.empty());  // from a game file or a script: silent
  EXPECT_EQ(ReadProbabilityFile(g, "missing.prb"), ProbFileStatus::NotFound);
  EXPECT_FALSE(fs::exists(folder / "missing.prb"));
  EXPECT_EQ(ReadProbabilityFile(g, folder.Path()), ProbFileStatus::Unreadable);
  EXPECT_EQ(g.probability.ProbabilityTable, inUse);

  // Picked by hand, the user is told.
  EXPECT_FALSE(LoadProbabilityFile(g, folder / "bad.prb", true));
  ASSERT_EQ(platform.messages.size(), 1u);
  ExpectMessage(platform.messages[0],
                folder / "bad.prb" +
                    "\ris either from an older version, has been corrupted, or is not a "
                    "true Ravelton Probability File.",
                "Unable to Open Probability File", 105, kMsgOk | kMsgPicStop);
}

TEST_F(ProbabilityFile, ASaveThatCannotWriteLeavesTheOldFileAndNoTemporary) {
  ASSERT_TRUE(SaveProbabilityFile(g, "kept.prb"));
  const std::string before = ReadWholeFile(folder / "kept.prb");
  Set(TotalEntry(7), 30000);
  EXPECT_FALSE(SaveProbabilityFile(g, folder / "no-such-folder/x.prb"));
  EXPECT_TRUE(g.probability.ProbDirty);
  EXPECT_EQ(g.probability.ProbFilePath, folder / "kept.prb");
  fs::create_directories(folder / "kept-dir.prb");  // a folder in the way of the rename
  EXPECT_FALSE(SaveProbabilityFile(g, folder / "kept-dir.prb"));
  EXPECT_FALSE(fs::exists(folder / "kept-dir.prb.~prb"));
  EXPECT_EQ(ReadWholeFile(folder / "kept.prb"), before);
}

TEST_F(ProbabilityFile, UnsavedNumbersAreAskedAboutBeforeNewOrOpen) {
  EXPECT_EQ(AskToSaveProbabilities(g), ProbSaveChoice::Go);  // nothing unsaved: no question
  EXPECT_TRUE(platform.messages.empty());
  Set(TotalEntry(7), 20000);
  // The answer, the file in use, the choice made and the table left unsaved.
  const std::tuple<int, const char*, ProbSaveChoice, bool> cases[] = {
      {kAnswerCancel, "", ProbSaveChoice::Cancel, true},
      {kAnswerNo, "", ProbSaveChoice::Go, true},
      {kAnswerYes, "", ProbSaveChoice::SaveAs, true},
      {kAnswerYes, "default.prb", ProbSaveChoice::SaveAs, true},
      {kAnswerYes, "mine.prb", ProbSaveChoice::Go, false},
  };
  for (const auto& [answer, path, choice, dirtyAfter] : cases) {
    g.probability.ProbDirty = true;
    g.probability.ProbFilePath = path[0] ? folder / path : "";
    platform.queuedReplies.push_back({answer, "", "", false});
    EXPECT_EQ(AskToSaveProbabilities(g), choice) << answer << path;
    EXPECT_EQ(g.probability.ProbDirty, dirtyAfter) << answer << path;
  }
  EXPECT_TRUE(fs::exists(folder / "mine.prb"));
  ASSERT_EQ(platform.messages.size(), 5u);
  ExpectMessage(platform.messages[0],
                "These numbers have not been saved.\r\rDo you want to save them now?",
                "Save Probabilities?", 600, kMsgYes | kMsgNo | kMsgCancel | kMsgFocusYes);
}

TEST_F(ProbabilityFile, HostileTablesThatPassTheChecksStillDrawAndBalance) {
  // Files with the right header and random entries, most of them refused;
  // what is accepted must still give dice in range and take any set.
  ASSERT_TRUE(SaveProbabilityFile(g, "base.prb"));
  const std::string base = ReadWholeFile(folder / "base.prb");
  std::uint32_t state = 12345;
  auto next = [&] { return state = state * 1664525u + 1013904223u; };
  int accepted = 0;
  for (int file = 0; file < 200; ++file) {
    std::string bytes = base;
    const int changes = 1 + static_cast<int>(next() % 40);
    for (int i = 0; i < changes; ++i) {
      const std::size_t entry = next() % 224;
      // Values: anything, or small ones that keep the table legal.
      const std::int32_t v = (next() & 1) ? static_cast<std::int32_t>(next())
                                          : static_cast<std::int32_t>(next() % 200000);
      PutEntry(bytes, 256 + 4 * entry, entry < 112 ? ((next() & 1) ? 0 : kProbLocked) : v);
    }
    WriteWholeFile(folder / "hostile.prb", bytes);
    if (!LoadProbabilityFile(g, "hostile.prb")) continue;
    ++accepted;
    for (Long k : {1, 50000, 100000, 100001}) {
      PickProbabilityDice(g, k);
      EXPECT_TRUE(DiceInRange(g)) << "file " << file;
    }
    const ProbEntry e = (file % 3 == 0)   ? TotalEntry(2 + file % 11)
                        : (file % 3 == 1) ? FaceEntry(1 + file % 2, 1 + file % 6)
                                          : CellOfDice(1 + file % 6, 1 + (file / 6) % 6);
    Set(e, static_cast<double>(next() % 150000));
  }
  EXPECT_GT(accepted, 10);
}

}  // namespace
