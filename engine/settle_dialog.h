// SettleDialog: the content of the settle dialog as plain data. The engine
// fills it from the bet under settlement; a platform shows it, lets the
// user press a button (and edit the two adjustment rows), and hands back
// the button index.
#pragma once

#include <array>
#include <string>

#include "engine/currency.h"

struct SettleDialogLine {
  std::string label;   // lblWonBetType(i)
  std::string amount;  // lblWonBet(i): "$" & FormatMoney, or empty
};

struct SettleDialogButton {
  std::string caption;  // cmdHandle(i)
  bool enabled = true;
};

// One of the two adjustment rows (buttons 5 and 6).
struct SettleDialogRow {
  int mathOperator = 0;  // 0 "+", 1 "-", 2 "x", 3 "/" (row 5 only)
  Currency amount1;      // txtModifyAmount
  Currency amount2;      // the units' own amount, where the units need one
  int units = 0;         // cmdUnits: 0 "$", 1 "%", 2..6 check units
  bool enabled = true;
};

struct SettleDialog {
  int player = 0;
  std::string caption;
  int lineCount = 0;
  std::array<SettleDialogLine, 5> lines{};
  std::array<SettleDialogButton, 7> buttons{};
  std::array<SettleDialogRow, 2> rows{};  // rows of buttons 5 and 6
  int defaultButton = 0;
};
