// Editing the probability table as the tab does: the selection and its
// arrow moves over the ragged matrix, typed values read in each display
// mode, refused texts, and the "rolls out of" number.
#include "dice/probability_edit.h"

#include <optional>
#include <string>

#include "tests/engine/roll_fixture.h"

namespace {

using ProbabilityEdit = RollFixture;

TEST(ProbabilityEditMoves, ArrowsStayOnEntriesAndStopAtTheEdge) {
  struct Case {
    ProbEntry from;
    int rows, columns;
    ProbEntry to;
  };
  const Case cases[] = {
      {{1, 1}, -1, 0, {1, 1}},    // the totals row is the top
      {{1, 5}, 1, 0, {2, 5}},     // from total 6 down into its cells
      {{2, 1}, 1, 0, {2, 1}},     // total 2 has a single cell
      {{7, 6}, 1, 0, {7, 6}},     // the bottom of the longest column
      {{7, 6}, 0, 1, {7, 12}},    // row 7 skips the short columns to the faces
      {{7, 12}, 0, -1, {7, 6}},   // and back
      {{7, 12}, 0, 1, {7, 13}},   // first die to second die
      {{7, 13}, 0, 1, {7, 13}},   // the right edge
      {{1, 11}, 0, 1, {1, 11}},   // no face in the totals row
      {{2, 1}, 0, -1, {2, 1}},    // the left edge
      {{3, 12}, -1, 0, {2, 12}},  // face 2 up to face 1
      {{2, 12}, -1, 0, {2, 12}},  // no total above a face
  };
  for (const Case& c : cases)
    EXPECT_EQ(MoveProbabilityEntry(c.from, c.rows, c.columns), c.to)
        << c.from.a << "," << c.from.b << " by " << c.rows << "," << c.columns;
}

TEST_F(ProbabilityEdit, TheSelectionIsAlwaysAnEntry) {
  EXPECT_EQ(SelectedProbabilityEntry(g), TotalEntry(2));
  SelectProbabilityEntry(g, FaceEntry(2, 4));
  EXPECT_EQ(SelectedProbabilityEntry(g), FaceEntry(2, 4));
  SelectProbabilityEntry(g, {1, 12});  // not an entry: the selection stays
  EXPECT_EQ(SelectedProbabilityEntry(g), FaceEntry(2, 4));
  // A file may bring any selection; one that names no entry reads as total 2.
  ProbFlag(g, 0, 1) = 99;
  ProbFlag(g, 0, 2) = -4;
  EXPECT_EQ(SelectedProbabilityEntry(g), TotalEntry(2));
}

TEST(ProbabilityEditText, OnlyPlainNumbersAreRead) {
  const std::pair<const char*, std::optional<double>> cases[] = {
      {"20", 20.0},          {"12.345", 12.345},    {"-1.5", -1.5},
      {".5", 0.5},           {"7.", 7.0},           {"", std::nullopt},
      {"-", std::nullopt},   {".", std::nullopt},   {"1.2.3", std::nullopt},
      {"abc", std::nullopt}, {"1e5", std::nullopt}, {"5-", std::nullopt},
      {" 5", std::nullopt},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(ParseProbabilityText(text), want) << text;
}

TEST_F(ProbabilityEdit, ATypedValueIsReadInTheDisplayMode) {
  const ProbEntry seven = TotalEntry(7);
  struct Case {
    Long mode;
    double rollsOutOf;
    const char* text;
    Long total;  // total 7 after the set
  };
  const Case cases[] = {
      {kShowPercentage, 36, "20", 20000},
      {kShowPercentFromTrue, 36, "1.5", 18167},  // 16666.67 + 1500
      {kShowRollsOutOf, 36, "7", 19444},         // 7 x 100000 / 36
      {kShowRollsOutOf, 100, "25", 25000},
      {kShowRollsFromTrue, 36, "-1", 13889},  // 6 - 1 rolls out of 36
      {kShowRollsFromTrue, 100, "1", 17667},  // 1 x 100000 / 100 + 16666.67
      {kShowPercentFromTrue, 36, "-50", 0},   // below true by more than all of it
  };
  for (const Case& c : cases) {
    NewProbabilities(g);
    g.probability.ProbDisplayMode = c.mode;
    g.probability.RollsOutOf = c.rollsOutOf;
    ASSERT_TRUE(EnterProbabilityText(g, seven, c.text)) << c.text;
    EXPECT_EQ(ProbValue(g, seven.a, seven.b), c.total) << "mode " << c.mode << " " << c.text;
    EXPECT_EQ(ProbFlag(g, seven.a, seven.b), kProbLocked);
    EXPECT_TRUE(g.probability.ProbDirty);
  }
}

TEST_F(ProbabilityEdit, ARefusedTextChangesNothing) {
  const ProbabilityState before = g.probability;
  EXPECT_FALSE(EnterProbabilityText(g, TotalEntry(7), "2O"));
  EXPECT_FALSE(EnterProbabilityText(g, TotalEntry(7), ""));
  EXPECT_FALSE(EnterProbabilityText(g, {1, 12}, "20"));  // no entry there
  EXPECT_EQ(g.probability, before);
}

TEST_F(ProbabilityEdit, RollsOutOfMustBeAboveZero) {
  for (const char* bad : {"0", "-3", "0.0000", "", "x"}) {
    EXPECT_FALSE(EnterRollsOutOf(g, bad)) << bad;
    EXPECT_EQ(g.probability.RollsOutOf, 36) << bad;
  }
  ASSERT_TRUE(EnterRollsOutOf(g, "36.25"));
  EXPECT_EQ(RollsOutOfText(g), "36.25");
  g.probability.ProbDisplayMode = kShowRollsOutOf;
  EXPECT_EQ(ProbabilityModeCaption(g), "Shown as number of rolls out of 36.25");
  ASSERT_TRUE(EnterRollsOutOf(g, "100"));
  EXPECT_EQ(RollsOutOfText(g), "100");
  // In the rolls modes a cell reads as its share of N.
  EXPECT_EQ(ProbabilityCellText(g, 1, 6), "16.667");
}

TEST_F(ProbabilityEdit, TheFileCaptionIsTheNameOrUntitled) {
  EXPECT_EQ(ProbabilityFileCaption(g), "untitled");
  g.probability.ProbFilePath = "/some/folder/Loaded Sevens.prb";
  EXPECT_EQ(ProbabilityFileCaption(g), "Loaded Sevens.prb");
}

}  // namespace
