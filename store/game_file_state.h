// What a game file holds beyond the tables of the engine and its
// subsystems: the file of the game in play, the window's title, the window
// layout, and the view settings of desktop forms that keep no state of their
// own yet (scroll positions, fonts, the check images on the
// layout). A headless build stores these as they were read and writes them
// back unchanged, so a game opened and saved keeps them all.
//
// What must stay true:
// - Plain data only; every field has the value a game starts with.
// - LayoutA and LayoutB hold records 2 and 3 of the file as Singles, the
//   bit pattern kept exactly; a Single that no window uses stays 0.
// - CheckImages holds at most kMaxCheckImages entries.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/currency.h"
#include "table/table_state.h"

inline constexpr int kMaxCheckImages = 2000;
inline constexpr int kManyCheckImages = 900;  // above it the checks are arranged automatically

// One check drawn on the layout: whose, on which bet, its artwork, where.
struct CheckImage {
  std::int16_t player = 0, bet = 0, art = 0, x = 0, y = 0;
  friend bool operator==(const CheckImage&, const CheckImage&) = default;
};

// The game file's own part of the game.
struct GameFileState {
  using L = std::int32_t;

  // The game's own file: empty for a new game and for default.rvg.
  std::string GameFilePath;
  std::string WindowTitle = "Ravelton";
  // The folder the file chooser opens in (empty: the data folder); not saved.
  std::string ChooserFolder;

  // Window layout (records 2 and 3).
  std::array<float, 64> LayoutA{};
  std::array<float, 64> LayoutB{};

  // Events log window.
  L LogFontSize = 0;
  bool LogBold = false, LogItalic = false;

  // Scroll position of the Payoffs tab (the Advantage tab's options are the
  // analysis's own state).
  L PayoffsScroll = 0;

  // View state (record 409).
  L RollTotalsBackColor = 0, RollTotalsGraphColor = 0, RollTotalsScrollX = 0;
  L RollTotalsScrollY = 0;

  // Table options and views (record 411).
  L EnterBetId = 1;  // the bet under the keyed-in amount box
  L CheckStacksScroll = 0, CheckStacksFontSize = 0;
  bool CheckStacksItalic = false, CheckStacksBold = false;
  L DiceFilesFontSize = 0;

  // Script editor options (record 413; the step mode and the permissions per
  // player there are the scripts' own, in ScriptRunState).
  L EditorLineNumbers = 0, EditorSyntaxLists = 0, EditorAutoIndent = 0;
  L EditorHighlight = 0, EditorItalic = 0, EditorBold = 0, EditorFontSize = 0;

  // The checks drawn on the layout, in drawing order.
  std::vector<CheckImage> CheckImages;

  friend bool operator==(const GameFileState&, const GameFileState&) = default;
};
