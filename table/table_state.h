// State of the drawn table that the game keeps and stores: where the layout
// lies on the screen (zoom, angle, offsets) and the ten saved views, which
// set of the centre bets shows, how bets and status boxes are shown, and
// the flashing of the bettor's bets. Data only: the window reads and writes
// it, the game file stores it.
//
// What must stay true:
// - TableZoom lies within 500..5000 and TableRotation within 0..359.
// - A saved view with a zoom below 500 was never saved and restores nothing.
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
  friend bool operator==(const TableState&, const TableState&) = default;
};
