#include "table/table_colors.h"

namespace {

constexpr std::int32_t kRgbMask = 0xFFFFFF;
constexpr int kEdgeDarker = 150;  // the felt's edge against its centre, percent
constexpr int kRailDarker = 170;

}  // namespace

const char* const kTablePartCaption[kTableParts] = {" Felt", " Lines && text", " Rail",
                                                    " Background", " Highlights"};

const TableSkin kTableSkin[kTableSkins] = {
    {"mnuSetTableTraditionalGreen", "Traditional &Green", kTraditionalGreen, true},
    {"mnuSetTableBurgundy", "&Burgundy", {0x20186E, 0xD8E4F0, 0x1A2A48, 0x1C1C24, 0x60C8F0}, true},
    {"mnuSetTableHotChocolate",
     "Hot &Chocolate",
     {0x1A3658, 0xC8E0F0, 0x10203A, 0x141A20, 0x70B0E0},
     true},
    {"mnuSetTableOak", "&Oak", {0x3C6E9A, 0x203040, 0x2C5A8C, 0x202830, 0x10306A}, false},
    {"mnuSetTableSunrise", "&Sunrise", {0x3080E0, 0xFFFFFF, 0x204080, 0x40302A, 0x80F0FF}, true},
    {"mnuSetTableBlueVelvet",
     "Blue &Velvet",
     {0x70301A, 0xF0E8E0, 0x302010, 0x201814, 0x80D0F0},
     true},
    {"mnuSetTableBlueJeans",
     "Blue &Jeans",
     {0x9A6A40, 0xF0F0F0, 0x5A3C24, 0x302820, 0x60B8E8},
     false},
    {"mnuSetTableBlackLight",
     "Black &Light",
     {0x180A10, 0x40FF40, 0x100810, 0x000000, 0xFF40FF},
     true},
};

QColor ColorFromValue(std::int32_t value) {
  const std::int32_t v = value & kRgbMask;
  return QColor(v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF);
}

std::int32_t ValueFromColor(const QColor& c) {
  return c.red() | (c.green() << 8) | (c.blue() << 16);
}

LayoutColors ColorsOf(const TableState& t) {
  LayoutColors c;
  c.felt = ColorFromValue(t.LayoutColor[kPartFelt]);
  c.feltEdge = c.felt.darker(kEdgeDarker);
  c.line = ColorFromValue(t.LayoutColor[kPartLines]);
  c.rail = ColorFromValue(t.LayoutColor[kPartRail]);
  c.railDark = c.rail.darker(kRailDarker);
  c.background = ColorFromValue(t.LayoutColor[kPartBackground]);
  c.accent = ColorFromValue(t.LayoutColor[kPartHighlights]);
  c.spotlight = t.Spotlight;
  return c;
}

void ApplyTableSkin(TableState& t, int n) {
  if (n < 1 || n > kTableSkins) return;
  const TableSkin& skin = kTableSkin[n - 1];
  t.LayoutColor = skin.colors;
  t.Spotlight = skin.spotlight;
  t.TablePreset = n;
}

void SetTablePartColor(TableState& t, int part, std::int32_t value) {
  if (part < 0 || part >= kTableParts) return;
  t.LayoutColor[static_cast<std::size_t>(part)] = value & kRgbMask;
  t.TablePreset = 0;
}

void SetTableSpotlight(TableState& t, bool on) {
  t.Spotlight = on;
  t.TablePreset = 0;
}
