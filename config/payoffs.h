// The payoff tables: what each bet pays, as data. PayoffTbl by bet id, and
// three small tables for the bets paid by what the dice show: the Field by
// dice combination, Midway by total, Fire by points made.
//
// Each row holds a, a flag and d in columns 1..3: a bet of B wins B x a / d;
// a negative a loses a / d of the bet, 0 pushes. The flag only says how a is
// shown: -1 "a to d", 0 "a + d for d" (3 for 1 is stored as a = 2, d = 1).
// What must stay true:
// - d is always above 0 (the editing refuses anything else).
// - Rows Pass Line Odds and Don't Pass Odds hold the odds payoff of the
//   point in play: SetLineOddsPayoffs copies them whenever a point is set.
// - Column 0 of PayoffTbl is figured by FigureProperUnits, never edited.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "config/settings.h"
#include "core/currency.h"

struct Game;

constexpr int kFieldRows = 21;
constexpr int kMidwayRows = 5;  // 1 hard 6, 2 easy 6, 3 seven, 4 easy 8, 5 hard 8
constexpr int kFireRows = 7;    // rows 0..6: points made

// Labels of the Field rows 1..21 (index 0 unused).
extern const std::string_view kFieldRowLabel[kFieldRows + 1];
// Dice total of each Field row 1..21 (index 0 unused).
constexpr int kFieldRowTotal[kFieldRows + 1] = {0, 2, 3, 4, 4, 5, 5, 6,  6,  6,  7,
                                                7, 7, 8, 8, 8, 9, 9, 10, 10, 11, 12};
// Field row of the dice in either order (1..21).
int FieldRow(int die1, int die2);

// Fills the four payoff tables with their defaults, figures the proper units
// and, with a point on, sets the line odds rows.
void SetDefaultPayoffs(Game& game);
// mnuRestoreDefaultPayoffs: asks, and on Yes sets the default payoffs and
// redraws the table. Returns true when restored.
bool RestoreDefaultPayoffs(Game& game);
// Copies the odds payoff of Come Odds and Don't Come Odds on Point into Pass
// Line Odds and Don't Pass Odds.
void SetLineOddsPayoffs(Game& game);
// PayoffTbl(3, Field): the common d of the Field rows with a non-zero a, or 1.
Currency FieldDenominator(const Game& game);

// The "Set Field payoffs to" presets.
enum FieldPreset : int {
  kSFField,
  kSFPass,
  kSFDontPass,
  kSFPlace6,
  kSFPlaceLose8,
  kSFBuy10,
  kSFLay4,
  kSFHard8,
  kSFHorn,
  kSFWorld,
  kSFHop13,
  kSFMidway,
  kSFCrapless,
  kFieldPresetCount
};
extern const std::string_view kFieldPresetCaption[kFieldPresetCount];
// Fills FieldPayoff so that the Field behaves like the named bet.
void SetFieldPreset(Game& game, FieldPreset preset);

// The Payoffs tab's bet list: 89 rows whose codes run over 1..42, 45, 48,
// 50..61, 65..97. Codes up to 83 are bet ids; 84 and 90 are the Midway and
// Fire headings; 85..89 Midway rows 1..5; 91..97 Fire rows 0..6.
constexpr int kPayoffListRows = 89;
int PayoffRowCode(int listRow);        // list row 0..88 -> row code
bool IsPayoffHeading(int code);        // 84 and 90 have no values
std::string PayoffRowLabel(int code);  // the row's caption
// Which table cell a row code edits.
enum class PayoffTable { Bets, Midway, Fire, Field };
struct PayoffCell {
  PayoffTable table = PayoffTable::Bets;
  int row = 0;
};
std::optional<PayoffCell> PayoffCellOf(int code);
// Columns 1..3 of a cell.
Currency& PayoffValue(Game& game, PayoffCell cell, int k);

// The payoff as the lists show it: "a to d", or "a + d for d"; a Field row
// that takes the bet ("loses") when its first value is below 0.
std::string PayoffText(Game& game, PayoffCell cell);

// Editing, as the Payoffs tab does it. The first field shows a for "to" and
// a + d for "for".
Currency PayoffShownFirst(Game& game, PayoffCell cell);
void EnterPayoffFirst(Game& game, PayoffCell cell, Currency value);
// A new d; refused (false) when not above 0. With "for", a follows so a + d stays.
bool EnterPayoffDenominator(Game& game, PayoffCell cell, Currency d);
// Key in the middle field: T/t "to", F/f "for", space flips; others dropped.
bool PayoffFlagKey(Game& game, PayoffCell cell, char key);

// The payoff checks in order (bet rows, Midway, the max Fire bet, Fire rows,
// Field rows), first fault wins.
std::optional<ConfigFault> CheckPayoffs(const Game& game);
