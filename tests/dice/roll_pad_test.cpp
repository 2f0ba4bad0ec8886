// The roll pad: each display kind's cells, clicks turned into dice, the
// order of the dice sources, and the questions asked instead of rolling.
#include "dice/roll_pad.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "core/message_dialog.h"
#include "cycle/roll_pad_click.h"
#include "dice/dice_file.h"
#include "tests/engine/roll_fixture.h"

namespace {

int Dice(const PadCell& c) { return c.what == PadCell::Pair ? c.die1 * 10 + c.die2 : 0; }

TEST(RollPad, TheTriangleHasALineForEachTotalEitherWay) {
  // Lines as rows (a tall form): row r is total r + 1.
  const PadLayout rows = PadLayoutFor(PadKind::TriangleCombos, 300, 400);
  ASSERT_FALSE(rows.linesAsColumns);
  // Lines as columns (twice the height below the width).
  const PadLayout cols = PadLayoutFor(PadKind::TriangleCombos, 500, 200);
  ASSERT_TRUE(cols.linesAsColumns);
  int pairs = 0;
  for (int r = 1; r <= 11; ++r)
    for (int c = 1; c <= 6; ++c) {
      const PadCell a = PadCellAt(rows, r, c), b = PadCellAt(cols, c, r);
      EXPECT_EQ(Dice(a), Dice(b)) << r << ' ' << c;
      if (a.what != PadCell::Pair) continue;
      ++pairs;
      EXPECT_EQ(a.die1 + a.die2, r + 1) << r << ' ' << c;
    }
  EXPECT_EQ(pairs, 36);  // every ordered pair once; the corner cells are empty
  EXPECT_EQ(Dice(PadCellAt(rows, 6, 6)), 16);
  EXPECT_EQ(Dice(PadCellAt(rows, 7, 1)), 62);
}

TEST(RollPad, BasicNumbersBoxAndFacesByTheFormsShape) {
  struct Case {
    PadKind kind;
    int width, height, x, y;
    PadCell::Kind what;
    int value;  // total, dice as 10 x die 1 + die 2, or 10 x die + face
  };
  const Case cases[] = {
      {PadKind::BasicNumbers, 1100, 100, 1050, 50, PadCell::Total, 12},  // a row of 11
      {PadKind::BasicNumbers, 100, 1100, 50, 20, PadCell::Total, 2},     // a column of 11
      {PadKind::BasicNumbers, 500, 300, 10, 150, PadCell::Total, 7},     // the middle row
      {PadKind::BasicNumbers, 500, 300, 450, 250, PadCell::Total, 12},
      {PadKind::BasicNumbers, 500, 300, 120, 10, PadCell::Total, 3},
      {PadKind::BoxCombos, 600, 600, 250, 590, PadCell::Pair, 63},
      {PadKind::DiceFaces, 600, 200, 590, 150, PadCell::Face, 26},  // wide: a die per row
      {PadKind::DiceFaces, 200, 600, 10, 590, PadCell::Face, 16},   // tall: a die per column
  };
  for (const Case& c : cases) {
    const PadCell cell =
        PadCellOfClick(PadLayoutFor(c.kind, c.width, c.height), c.x, c.y, c.width, c.height, false);
    EXPECT_EQ(cell.what, c.what) << c.x << ',' << c.y;
    const int value = cell.what == PadCell::Total  ? cell.total
                      : cell.what == PadCell::Pair ? Dice(cell)
                                                   : cell.die * 10 + cell.face;
    EXPECT_EQ(value, c.value) << c.x << ',' << c.y;
  }
  // Beside the block's five columns, and above the cells with the counter showing.
  const PadLayout block = PadLayoutFor(PadKind::BasicNumbers, 600, 300);
  EXPECT_EQ(PadCellAt(block, 1, 6).what, PadCell::Empty);
  EXPECT_EQ(PadCellOfClick(block, 10, 19, 600, 320, true).what, PadCell::Empty);
  EXPECT_EQ(PadCellOfClick(block, 10, 20, 600, 320, true).total, 2);
}

TEST(RollPad, APickedTotalComesUpAsAnyOfItsPairs) {
  for (int total = 2; total <= 12; ++total) {
    int seen = 0;
    for (int i = 0; i < 600; ++i) {
      const auto d = PadDiceForTotal(total, i / 600.0);
      ASSERT_EQ(d[0] + d[1], total);
      ASSERT_TRUE(d[0] >= 1 && d[0] <= 6 && d[1] >= 1 && d[1] <= 6);
      seen |= 1 << d[0];
    }
    int pairs = 0;
    for (int d = 1; d <= 6; ++d) pairs += (seen >> d) & 1;
    EXPECT_EQ(pairs, 6 - std::abs(7 - total)) << total;
  }
}

// Options without a kind show the triangle; choosing a kind keeps the other
// options and drops a picked face.
TEST(RollPad, TheKindBitsOfTheOptions) {
  RollPadState pad;
  pad.PadOptions = kPadRollCounter | kPadRandomButton;
  pad.PadColor = 7;
  CheckPadOptions(pad);
  EXPECT_EQ(PadKindOf(pad.PadOptions), PadKind::TriangleCombos);
  EXPECT_EQ(pad.PadOptions, 2);
  EXPECT_EQ(pad.PadColor, 0);
  EXPECT_EQ(PadKindOf(4 | 8), PadKind::BoxCombos);

  pad.PadOptions = 4 | 8 | kPadRollCounter | kPadHyperDriveButton;
  pad.PadFacePick1 = 3;
  SetPadKind(pad, PadKind::DiceFaces);
  EXPECT_EQ(PadKindOf(pad.PadOptions), PadKind::DiceFaces);
  EXPECT_EQ(pad.PadOptions, 8 | kPadRollCounter | kPadHyperDriveButton);
  EXPECT_EQ(pad.PadFacePick1, 0);
  SetPadKind(pad, PadKind::BasicNumbers);
  EXPECT_EQ(pad.PadOptions, 1 | kPadRollCounter | kPadHyperDriveButton);
}

class PadRolls : public RollFixture {};

TEST_F(PadRolls, AClickRollsThroughTheCycleAheadOfAPlayingFile) {
  std::ofstream(folder / "f.rol", std::ios::binary) << '\x24' << '\xd8';  // 1-1, 6-6
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "f.rol"));
  g.diceFile.DiceFileMode = kDiceFilePlayback;
  g.pad.PadOptions = 1 << static_cast<int>(PadKind::BoxCombos);
  EXPECT_EQ(PadClick(g, false, 350, 150, 600, 600, 0.0), PadClickOutcome::Rolled);  // row 2, col 4
  EXPECT_EQ(g.Die1 * 10 + g.Die2, 24);
  EXPECT_FALSE(g.pad.PadRollPending);
  EXPECT_EQ(g.diceFile.DiceFilePos, 1) << "the pad's roll leaves the file where it was";
  EXPECT_TRUE(PadRandomRoll(g));  // the file's turn
  EXPECT_EQ(g.Die1 * 10 + g.Die2, 11);

  // Faces: two picks of die 1 replace each other; the roll waits for die 2.
  g.pad.PadOptions = 1 << static_cast<int>(PadKind::DiceFaces);
  EXPECT_EQ(PadClick(g, false, 10, 10, 200, 600, 0.0), PadClickOutcome::Picked);   // die 1, face 1
  EXPECT_EQ(PadClick(g, false, 10, 590, 200, 600, 0.0), PadClickOutcome::Picked);  // die 1, face 6
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 2);
  EXPECT_EQ(PadClick(g, false, 190, 250, 200, 600, 0.0), PadClickOutcome::Rolled);  // die 2, face 3
  EXPECT_EQ(g.Die1 * 10 + g.Die2, 63);
  EXPECT_EQ(g.pad.PadFacePick1 + g.pad.PadFacePick2, 0);
  EXPECT_EQ(PadCounterText(g), "3");
}

// During a Hyper-Drive or a script run a click asks to stop it, whatever
// the answer it never rolls, and the right button only opens the menu.
TEST_F(PadRolls, DuringARunAClickAsksToStopAndNeverRolls) {
  struct Case {
    bool& (*running)(Game&);
    bool runningAfterYes;
    const char *text, *title;
  };
  const Case cases[] = {
      {[](Game& g) -> bool& { return g.HyperDrive; }, true, "Do you want to stop Hyper-Drive?",
       "Hyper-Drive Active"},
      {[](Game& g) -> bool& { return g.scriptRun.ScriptRunning; }, false,
       "Do you want to interrupt auto-betting?", "Auto-Bet Active"},
  };
  g.pad.PadOptions = 1 << static_cast<int>(PadKind::BoxCombos);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.title);
    c.running(g) = g.KeepRolling = true;
    platform.messages.clear();
    EXPECT_EQ(PadClick(g, true, 350, 150, 600, 600, 0.0), PadClickOutcome::ShowMenu);
    EXPECT_TRUE(platform.messages.empty());
    platform.queuedReplies.push_back({kAnswerNo, "", "", false});
    EXPECT_EQ(PadClick(g, false, 350, 150, 600, 600, 0.0), PadClickOutcome::Nothing);
    EXPECT_TRUE(c.running(g) && g.KeepRolling) << "No keeps the run going";
    platform.queuedReplies.push_back({kAnswerYes, "", "", false});
    EXPECT_FALSE(PadRandomRoll(g));
    ASSERT_EQ(platform.messages.size(), 2u);
    for (const auto& m : platform.messages) {
      EXPECT_EQ(m.text, c.text);
      EXPECT_EQ(m.title, c.title);
    }
    EXPECT_EQ(c.running(g), c.runningAfterYes);
    EXPECT_FALSE(g.KeepRolling);
    EXPECT_FALSE(g.pad.PadRollPending);
    EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 0);
    c.running(g) = false;
  }
  g.RollBusy = true;
  EXPECT_EQ(PadClick(g, false, 350, 150, 600, 600, 0.0), PadClickOutcome::Nothing);
  EXPECT_FALSE(PadRandomRoll(g));
  g.RollBusy = false;  // with the run over the pad rolls again
  EXPECT_EQ(PadClick(g, false, 350, 150, 600, 600, 0.0), PadClickOutcome::Rolled);
}

}  // namespace
