// State of the drawn table that the game keeps and stores: where the layout
// lies on the screen (zoom, angle, offsets) and the ten saved views, which
// set of the centre bets shows, how bets and status boxes are shown, and
// the flashing of the bettor's bets. Data only: the window reads and writes
// it, the game file stores it.
//
// What must stay true:
// - TableZoom lies within 500..5000 and TableRotation within 0..359.
// - A saved view with a zoom below 500 was never saved and restores nothing.
// - Colours are 0x00BBGGRR values (red in the low byte); TablePreset is the
//   skin 1..8 the colours were last set from, 0 once any was changed by hand.
#pragma once

#include <array>
#include <cstdint>

// Where the status boxes stand (mnuStatusView).
enum StatusViewKind : std::int32_t {
  kStatusTop = 0,      // "Align at &top of window"
  kStatusBottom = 1,   // "Align at &bottom of window"
  kStatusLeft = 2,     // "Align at &left-side of window"
  kStatusRight = 3,    // "Align at &right-side of window"
  kStatusNear = 4,     // "Place &near individual players"
};

constexpr std::int32_t kTableZoomMin = 500;
constexpr std::int32_t kTableZoomMax = 5000;
constexpr int kSavedViews = 10;
// The parts of the layout with a colour of their own (optTableColors).
enum TablePart : int { kPartFelt, kPartLines, kPartRail, kPartBackground, kPartHighlights };
constexpr int kTableParts = 5;
constexpr int kPaletteCells = 36;  // the swatches of picColorpal
// The first skin, "Traditional Green": the colours a new game starts with.
constexpr std::array<std::int32_t, kTableParts> kTraditionalGreen = {0x4A8012, 0xDEEEF4, 0x183460,
                                                                     0x221E1C, 0x5AC4E8};
// The swatches a new game starts with: greys, then six hues in five shades.
constexpr std::array<std::int32_t, kPaletteCells> kDefaultPalette = {
    0x000000, 0x404040, 0x808080, 0xA0A0A0, 0xD0D0D0, 0xFFFFFF,  //
    0x000080, 0x0000C0, 0x2828D6, 0x6060FF, 0xA0A0FF, 0x202060,  //
    0x004000, 0x306010, 0x4A8012, 0x60B040, 0xA0E0A0, 0x204020,  //
    0x600000, 0x904010, 0xC06020, 0xE0A060, 0xF0D0B0, 0x402010,  //
    0x004080, 0x0070C0, 0x00A0E0, 0x5AC4E8, 0xA0E0F0, 0x183460,  //
    0x600060, 0x800080, 0xB040B0, 0x4000A0, 0x1040FF, 0x00D7FF};

struct SavedTableView {
  std::int32_t zoom = 0;  // 0: never saved
  std::int32_t rotation = 0;
  std::int32_t offsetA = 0;
  std::int32_t offsetB = 0;
  friend bool operator==(const SavedTableView&, const SavedTableView&) = default;
};

struct TableState {
  std::int32_t TableZoom = 1248;  // displayed width of the layout
  std::int32_t TableRotation = 0;
  std::int32_t TableOffsetA = 0;  // where the layout's origin falls on the screen
  std::int32_t TableOffsetB = 0;
  bool AutoSize = true;  // the layout is fitted to the window until it is moved by hand
  std::array<SavedTableView, kSavedViews> SavedView{};

  bool HopBetsShown = false;       // mnuDisplayHopBets
  bool DisplayBetAmounts = false;  // mnuDisplayBetAmounts: bets as numbers
  bool FlashBets = false;          // mnuFlashBets
  bool FlashOff = false;           // the flash phase: the bettor's checks are hidden
  bool StatusBoxesShown = true;    // mnuStatus
  std::int32_t StatusView = kStatusNear;

  // Colours of the layout (the Colors tab): one per TablePart, the light on
  // the felt, the skin they came from, and the palette's swatches.
  std::array<std::int32_t, kTableParts> LayoutColor = kTraditionalGreen;
  bool Spotlight = true;
  std::int32_t TablePreset = 1;
  std::array<std::int32_t, kPaletteCells> PaletteColor = kDefaultPalette;
  friend bool operator==(const TableState&, const TableState&) = default;
};
