// The colours the table is drawn in: one for each part of the layout (felt,
// lines and text, rail, background, highlights), the spotlight on the felt,
// and the eight ready-made skins. The colours live in TableState (stored by
// the game file); this unit turns them into QColors for the painters and
// holds the procedures the Colors tab changes them through.
// What must stay true:
// - A colour changed by hand, or the spotlight, makes the table a custom one
//   (TablePreset 0); a skin sets all five parts, the spotlight and its number.
// - Only the low 24 bits of a stored colour are read.
#pragma once

#include <QColor>
#include <array>
#include <cstdint>

#include "table/table_state.h"

// The colours of one paint of the layout.
struct LayoutColors {
  QColor felt, feltEdge;  // the felt's centre and its darker edge
  QColor line;            // the lines and the white texts of the layout
  QColor rail, railDark;  // the wooden rail and its shadowed parts
  QColor background;      // round the table
  QColor accent;          // the gold texts (ODDS, HARD, C & E, MIDWAY)
  bool spotlight = true;  // the felt lit from the centre, else flat
};
LayoutColors ColorsOf(const TableState& table);

// A stored 0x00BBGGRR value as a colour, and back.
QColor ColorFromValue(std::int32_t value);
std::int32_t ValueFromColor(const QColor& color);

// One ready-made skin of the Options menu.
struct TableSkin {
  const char* menuName;  // mnuSetTable...
  const char* caption;
  std::array<std::int32_t, kTableParts> colors;
  bool spotlight;
};
constexpr int kTableSkins = 8;
extern const TableSkin kTableSkin[kTableSkins];
// Captions of the parts in optTableColors, by TablePart.
extern const char* const kTablePartCaption[kTableParts];

// Skin n (1..8): all five parts and the spotlight, and TablePreset = n.
void ApplyTableSkin(TableState& table, int n);
// One part's colour, set by hand: the table becomes a custom one.
void SetTablePartColor(TableState& table, int part, std::int32_t value);
// The spotlight switched by hand: the table becomes a custom one.
void SetTableSpotlight(TableState& table, bool on);
