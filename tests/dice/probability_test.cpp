// The probability table: every kind of set against tables worked by hand,
// the locks between them, the undo of a set that can't be balanced, the
// display modes, the axis dialog and the pick of a pair from k.
#include "dice/probability.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "core/headless_platform.h"
#include "cycle/startup.h"

namespace {

// Cells by dice: grid[die1 - 1][die2 - 1].
using Grid = std::array<std::array<Long, 6>, 6>;
using Totals = std::array<Long, 11>;  // totals 2..12
using Faces = std::array<Long, 6>;

Grid Uniform(Long v) {
  Grid g;
  for (auto& row : g) row.fill(v);
  return g;
}

// A started-up game and readers of its probability table.
struct TableUnderTest {
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = MakeGame(platform);
  Game& g = *owner;

  TableUnderTest() {
    platform.fixedTime = 0;
    platform.clockStep = 1000;
    StartUp(g, "/tmp/ravelton-tests");
  }

  Grid Cells() const {
    Grid grid{};
    for (int d1 = 1; d1 <= 6; ++d1)
      for (int d2 = 1; d2 <= 6; ++d2) {
        const ProbEntry e = CellOfDice(d1, d2);
        grid[d1 - 1][d2 - 1] = ProbValue(g, e.a, e.b);
      }
    return grid;
  }
  Totals TotalValues() const {
    Totals t{};
    for (int n = 2; n <= 12; ++n) t[n - 2] = ProbValue(g, kTotalRow, n - 1);
    return t;
  }
  Faces FaceValues(int die) const {
    Faces f{};
    for (int face = 1; face <= 6; ++face) {
      const ProbEntry e = FaceEntry(die, face);
      f[face - 1] = ProbValue(g, e.a, e.b);
    }
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

struct ProbabilityFixture : ::testing::Test, TableUnderTest {};

TEST(ProbabilityGeometry, CellsAndDiceMapBothWaysAndFacesHoldSixCells) {
  int cells = 0;
  for (int a = 0; a <= 7; ++a)
    for (int b = 0; b <= 13; ++b) {
      if (!IsProbabilityCell(a, b)) continue;
      ++cells;
      const DicePair d = CellDice(a, b);
      EXPECT_EQ(d.die1 + d.die2, b + 1);
      EXPECT_EQ(CellOfDice(d.die1, d.die2), (ProbEntry{a, b}));
    }
  EXPECT_EQ(cells, 36);
}

TEST_F(ProbabilityFixture, TotalSetSharesItsValueInItsColumnAndTheRestOutside) {
  SetProbabilityCell(g, kTotalRow, 6, 20000, false);  // 20 percent typed in mode 0
  Grid expected = Uniform(2667);
  for (int d1 = 1; d1 <= 6; ++d1) expected[d1 - 1][6 - d1] = 3333;
  EXPECT_EQ(Cells(), expected);
  // Locked by the edit, the total stays 20000 though its cells add to 19998.
  EXPECT_EQ(TotalValues(),
            (Totals{2667, 5334, 8001, 10668, 13335, 20000, 13335, 10668, 8001, 5334, 2667}));
  EXPECT_EQ(FaceValues(1), (Faces{16668, 16668, 16668, 16668, 16668, 16668}));
  EXPECT_TRUE(Locked(TotalEntry(7)));
  EXPECT_EQ(LockedCount(), 1);
  EXPECT_TRUE(IsFreeFormDice(g));
  EXPECT_TRUE(g.probability.ProbDirty);
}

TEST_F(ProbabilityFixture, RoundingGoesToTheEvenUnitOnATie) {
  Set(TotalEntry(3), 5001);  // (5001 - 0) / 2 = 2500.5
  EXPECT_EQ(Cells()[0][1], 2500);
  EXPECT_EQ(Cells()[1][0], 2500);
  EXPECT_EQ(Cells()[0][0], 2794);  // Round(94999 / 34)
  EXPECT_EQ(ProbValue(g, kTotalRow, 2), 5001);
}

TEST_F(ProbabilityFixture, ATotalAboveCertaintyIsCutAndLeavesTheOthersEmpty) {
  Set(TotalEntry(12), 150000);
  Grid expected = Uniform(0);
  expected[5][5] = 100000;
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(ProbValue(g, kTotalRow, 11), 100000);
}

TEST_F(ProbabilityFixture, FaceSetWithNothingLockedKeepsTheDiceIndependent) {
  const ProbEntry six = FaceEntry(1, 6);
  SetProbabilityCell(g, six.a, six.b, 20000, false);
  EXPECT_EQ(FaceValues(1), (Faces{16000, 16000, 16000, 16000, 16000, 20000}));
  EXPECT_EQ(FaceValues(2), (Faces{16667, 16667, 16667, 16667, 16667, 16667}));
  Grid expected = Uniform(2667);  // Round(16000 x 16667 x 0.00001) = Round(2666.72)
  expected[5].fill(3333);         // Round(20000 x 16667 x 0.00001) = Round(3333.4)
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(ProbValue(g, kTotalRow, 6), 5 * 2667 + 3333);
  EXPECT_FALSE(IsFreeFormDice(g));
  EXPECT_TRUE(Locked(six));
}

TEST_F(ProbabilityFixture, FaceSetWithALockedCellSpreadsOverTheFaceAndTheFreeCells) {
  Lock(CellOfDice(1, 1));
  Set(FaceEntry(1, 1), 20000);
  Grid expected = Uniform(2667);                       // Round(80000 / 30)
  expected[0] = {2778, 3444, 3444, 3444, 3444, 3444};  // Round((20000 - 2778) / 5)
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(FaceValues(1), (Faces{20000, 16002, 16002, 16002, 16002, 16002}));
  EXPECT_EQ(FaceValues(2), (Faces{16113, 16779, 16779, 16779, 16779, 16779}));
  EXPECT_EQ(TotalValues()[1], 3444 + 2667);
  EXPECT_TRUE(IsFreeFormDice(g));
  EXPECT_TRUE(Locked(CellOfDice(1, 1)));
  EXPECT_EQ(LockedCount(), 2);
}

TEST_F(ProbabilityFixture, CellSetInsideALockedTotalRebalancesTheTotalFirst) {
  Lock(TotalEntry(7));
  Set(CellOfDice(1, 6), 5000);
  Grid expected = Uniform(2778);  // Round((100000 - 11665 - 5000) / 30) = Round(2777.83)
  for (int d1 = 1; d1 <= 6; ++d1) expected[d1 - 1][6 - d1] = 2333;  // Round(11667 / 5)
  expected[0][5] = 5000;
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(ProbValue(g, kTotalRow, 6), 16667);
  EXPECT_EQ(FaceValues(1), (Faces{5000 + 5 * 2778, 2333 + 5 * 2778, 2333 + 5 * 2778,
                                  2333 + 5 * 2778, 2333 + 5 * 2778, 2333 + 5 * 2778}));
}

TEST_F(ProbabilityFixture, CellSetIsLimitedByWhatItsLockedFaceHasLeft) {
  // Face 1 of the first die locked at 16667 with four of its cells locked at
  // 2778: the two free cells share 16667 - 11112 = 5555.
  Lock(FaceEntry(1, 1));
  for (int d2 = 2; d2 <= 5; ++d2) Lock(CellOfDice(1, d2));
  Set(CellOfDice(1, 1), 9000);
  const Grid cells = Cells();
  EXPECT_EQ(cells[0][0], 5555);  // min(9000, 5555)
  EXPECT_EQ(cells[0][5], 0);     // Round((16667 - 5555 - 11112) / 1)
  // The 30 other cells share the rest: Round((88888 - 5555) / 30).
  EXPECT_EQ(cells[3][3], 2778);
}

TEST_F(ProbabilityFixture, UnbalanceableSetsAreUndoneButStayLocked) {
  struct Case {
    const char* why;
    void (*prepare)(TableUnderTest&);
    ProbEntry entry;
  };
  const Case cases[] = {
      {"a total whose only cell is locked", [](TableUnderTest& f) { f.Lock(CellOfDice(1, 1)); },
       TotalEntry(2)},
      {"a face with the five others of its die locked",
       [](TableUnderTest& f) {
         for (int face = 1; face <= 5; ++face) f.Lock(FaceEntry(2, face));
       },
       FaceEntry(2, 6)},
      {"a cell whose locked face has every other cell locked",
       [](TableUnderTest& f) {
         f.Lock(FaceEntry(1, 1));
         for (int d2 = 2; d2 <= 6; ++d2) f.Lock(CellOfDice(1, d2));
       },
       CellOfDice(1, 1)},
      {"a face with something locked and no free cell outside it",
       [](TableUnderTest& f) {
         for (int d1 = 2; d1 <= 6; ++d1)
           for (int d2 = 1; d2 <= 6; ++d2) f.Lock(CellOfDice(d1, d2));
       },
       FaceEntry(1, 1)},
  };
  for (const Case& c : cases) {
    TableUnderTest f;
    c.prepare(f);
    const Grid before = f.Cells();
    const Long old = ProbValue(f.g, c.entry.a, c.entry.b);
    f.Set(c.entry, 50000);
    EXPECT_EQ(f.Cells(), before) << c.why;
    EXPECT_EQ(ProbValue(f.g, c.entry.a, c.entry.b), old) << c.why;
    EXPECT_TRUE(f.Locked(c.entry)) << c.why;
    EXPECT_FALSE(f.g.probability.ProbDirty) << c.why;
    for (int a = 1; a <= 7; ++a)
      for (int b = 1; b <= 13; ++b) {
        const Long flag = ProbFlag(f.g, a, b);
        EXPECT_TRUE(flag == 0 || flag == kProbLocked) << c.why;
      }
  }
}

TEST_F(ProbabilityFixture, LocksFlipAndClear) {
  Lock(TotalEntry(4));
  Lock(FaceEntry(2, 3));
  EXPECT_FALSE(NoCellLocked(g));
  Lock(TotalEntry(4));
  EXPECT_TRUE(NoCellLocked(g));  // a locked face is not a locked cell
  Lock(CellOfDice(2, 2));
  UnlockAllProbabilities(g);
  EXPECT_EQ(LockedCount(), 0);
  EXPECT_EQ(Cells(), Uniform(2778));  // a lock never rebalances
}

TEST_F(ProbabilityFixture, AxisDialogMakesPercentageDiceAboutTheAxis) {
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
}

TEST_F(ProbabilityFixture, CellTextFollowsTheDisplayMode) {
  Set(TotalEntry(7), 20000);
  struct Case {
    Long mode;
    double n;
    ProbEntry entry;
    const char* text;
    int sign;
  };
  const Case cases[] = {
      {kShowPercentage, 36, CellOfDice(1, 6), "3.333", 0},
      {kShowPercentage, 36, TotalEntry(7), "20.000", 0},
      {kShowPercentFromTrue, 36, TotalEntry(7), "+3.333", 1},
      {kShowPercentFromTrue, 36, CellOfDice(1, 1), "-0.111", -1},
      {kShowPercentFromTrue, 36, FaceEntry(1, 1), "+0.001", 1},  // 16.668 - 16.6667
      {kShowRollsOutOf, 36, TotalEntry(7), "7.200", 0},
      {kShowRollsOutOf, 100000, TotalEntry(7), "20,000.000", 0},
      {kShowRollsFromTrue, 36, CellOfDice(1, 1), "-0.040", -1},  // 0.96012 - 1
      {kShowRollsFromTrue, 36, TotalEntry(8), "-0.199", -1},     // 4.8006 - 5
  };
  for (const Case& c : cases) {
    g.probability.ProbDisplayMode = c.mode;
    g.probability.RollsOutOf = c.n;
    EXPECT_EQ(ProbabilityCellText(g, c.entry.a, c.entry.b), c.text) << c.mode;
    EXPECT_EQ(ProbabilityCellSign(g, c.entry.a, c.entry.b), c.sign) << c.mode;
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
}

TEST_F(ProbabilityFixture, PickScansTheCellsRowByRow) {
  struct Case {
    Long k;
    DicePair dice;
  };
  // Row 2 holds 1-1, 1-2 .. 1-6, 2-6 .. 6-6; row 3 starts with 2-1.
  const Case cases[] = {{1, {1, 1}},
                        {2778, {1, 1}},
                        {2779, {1, 2}},
                        {6 * 2778, {1, 6}},
                        {6 * 2778 + 1, {2, 6}},
                        {11 * 2778, {6, 6}},
                        {11 * 2778 + 1, {2, 1}},
                        {100000, {6, 1}},
                        {100001, {6, 1}}};
  for (const Case& c : cases) {
    PickProbabilityDice(g, c.k);
    EXPECT_EQ((DicePair{g.Die1, g.Die2}), c.dice) << c.k;
  }
}

TEST_F(ProbabilityFixture, PickDrawsAgainBeyondTheSumAndEndsOnAnEmptyTable) {
  Set(TotalEntry(12), 100000);  // all on 6-6, the cells sum to exactly 100000
  for (int i = 0; i < 20; ++i) {
    PickProbabilityDice(g, 100001);
    EXPECT_EQ((DicePair{g.Die1, g.Die2}), (DicePair{6, 6}));
  }
  // A table whose cells are all 0 (as a file may hold) can't be hit.
  for (int a = 2; a <= 7; ++a)
    for (int b = a - 1; b <= 13 - a; ++b) ProbValue(g, a, b) = 0;
  std::array<int, 7> seen{};
  for (int i = 0; i < 600; ++i) {
    PickProbabilityDice(g, 1);
    ASSERT_TRUE(g.Die1 >= 1 && g.Die1 <= 6 && g.Die2 >= 1 && g.Die2 <= 6);
    ++seen[g.Die1];
  }
  for (int face = 1; face <= 6; ++face) EXPECT_GT(seen[face], 50) << face;
}

TEST_F(ProbabilityFixture, KindSwitchesRebuildWhatTheKindImplies) {
  Set(CellOfDice(3, 3), 10000);
  EXPECT_TRUE(IsFreeFormDice(g));
  UnlockAllProbabilities(g);
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
  EXPECT_EQ(TotalValues()[0], 1667);

  MakeFreeFormDice(g);  // the faces follow the cells
  EXPECT_STREQ(ProbabilityKindCaption(g), "Free Form Dice");
  EXPECT_EQ(Cells(), expected);
  EXPECT_EQ(FaceValues(1), (Faces{10002, 19998, 19998, 19998, 19998, 10002}));
  EXPECT_EQ(FaceValues(2)[0], 2 * 1667 + 4 * 3333);

  NewProbabilities(g);
  EXPECT_EQ(Cells(), Uniform(2778));
  EXPECT_FALSE(IsFreeFormDice(g));
  EXPECT_FALSE(g.probability.ProbDirty);
}

}  // namespace
