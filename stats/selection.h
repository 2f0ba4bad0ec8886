// What every statistics view shares: the five time frames, the player
// selection and its label, the figure cell that carries a number with its
// text, and the explanation of a hand credited to someone other than the
// shooter.
//
// What must stay true:
// - Selected slots are walked in slot order and only seated ones count.
// - A Shown with `none` set is a figure the frame does not have: its text is
//   "---" (or empty where the view leaves the cell blank).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/frames.h"

struct Game;

// "Current hand", "Last hand", "Current session", "Last session", "All sessions".
std::string_view FrameName(int frame);
// The frame of a command-line word (current-hand ... all-sessions), or -1.
int FrameOfWord(std::string_view word);
// The word of a frame, as FrameOfWord reads it.
std::string_view FrameWord(int frame);

// One figure of a view: the number before formatting and the text shown.
struct Shown {
  double value = 0;
  std::string text;
  bool none = false;      // the view shows no number here ("---" or blank)
  bool integer = false;   // a count, reported without decimals
  bool negative = false;  // drawn in the view's loss colour
};
Shown ShowCount(double value, std::string_view pattern);
Shown ShowValue(double value, std::string text);
Shown ShowNone(std::string text = "---");

// True when slot p (1..8) has a player.
bool SeatTaken(const Game& game, int p);
// The seated slots of a selection bit set, in slot order.
std::vector<int> SelectedSlots(const Game& game, std::int32_t bits);
// SetSelectedPlayersLabel: "No players present", "No players selected",
// "1 Player selected", "Both players selected", "All players selected" or
// n & " players selected".
std::string SelectedPlayersLabel(const Game& game, std::int32_t bits);
// The explanation of lblExplain for the frames "Current hand" and "Last
// hand" (a hand credited to another player than the shooter), else empty.
std::string HandCreditExplanation(const Game& game, int frame);
