// The roll pad (frmRYON): the user picks the next roll by hand. The pad can
// be laid out four ways; this unit holds each way as data (the grid of
// cells and what each cell stands for) and turns a click into two dice.
// The roll itself is the ordinary roll cycle, which takes PadDie1/PadDie2
// before any dice roll file or generator (cycle/roll_pad_click.h).
//
// What must stay true:
// - A cell stands for the same thing when it is drawn and when it is
//   clicked: both go through PadCellAt.
// - A click that lands outside the pad's cells, or on the empty corner of
//   the triangle, gives no dice.
// - Picking a total (kind 0) chooses evenly among its ordered pairs with a
//   uniform value the caller draws, not with the game's generator.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

struct Game;
struct RollPadState;

// The display kinds of mnuDisplayRYON.
enum class PadKind { BasicNumbers = 0, TriangleCombos = 1, BoxCombos = 2, DiceFaces = 3 };
struct PadKindInfo {
  PadKind kind;
  std::string_view menuText;
};
inline constexpr std::array<PadKindInfo, 4> kPadKinds = {{
    {PadKind::BasicNumbers, "&11 Basic Numbers"},
    {PadKind::TriangleCombos, "&36 Combos (triangle)"},
    {PadKind::BoxCombos, "&36 Combos (box)"},
    {PadKind::DiceFaces, "&Individual Dice Faces"},
}};

// PadOptions bits beyond the kinds (1, 2, 4, 8 for kinds 0..3).
constexpr std::int32_t kPadRollCounter = 16;
constexpr std::int32_t kPadHyperDriveButton = 32;
constexpr std::int32_t kPadRandomButton = 64;
// Height of the counter strip above the cells while the counter shows.
constexpr int kPadCounterHeight = 20;

// Form_Load's check: a colour outside 0..2 reads as 0; options with no kind
// are cleared to kind 1 alone.
void CheckPadOptions(RollPadState& pad);
// The kind the options select (the lowest kind bit set).
PadKind PadKindOf(std::int32_t options);
// Shows `kind` instead of the current one, keeping the other options; a face
// picked on the old layout is dropped, as its cell no longer shows.
void SetPadKind(RollPadState& pad, PadKind kind);

// The pad's cells for a kind and the form's shape.
struct PadLayout {
  PadKind kind = PadKind::TriangleCombos;
  int rows = 0, columns = 0;
  bool linesAsColumns = false;  // triangle: a total per column; faces: a die per row
  int basicShape = 0;           // basic numbers: 0 a row of 11, 1 a column of 11, 2 a block
};
PadLayout PadLayoutFor(PadKind kind, int width, int height);

// What a cell stands for.
struct PadCell {
  enum Kind { Empty, Total, Pair, Face } what = Empty;
  int total = 0;           // Total: 2..12
  int die1 = 0, die2 = 0;  // Pair
  int die = 0, face = 0;   // Face: die 1 or 2, face 1..6
};
// The cell at row r and column c (from 1).
PadCell PadCellAt(const PadLayout& layout, int r, int c);
// The cell under a click at (x, y) on a form of width x height; Empty above
// the counter strip or beside the cells.
PadCell PadCellOfClick(const PadLayout& layout, int x, int y, int width, int height,
                       bool counterShown);
// The dice of a total picked on the pad: evenly among its ordered pairs by
// the uniform value rnd in [0, 1).
std::array<int, 2> PadDiceForTotal(int total, double rnd);

// A click on the pad's cells: sets PadDie1/PadDie2 and PadRollPending when
// the click gives dice (kind 3 needs a face for each die first). True when
// a roll should go off.
bool ChoosePadDice(RollPadState& pad, const PadCell& cell, double rnd);
// The counter strip: the session's rolls as #,#0.
std::string PadCounterText(const Game& game);
