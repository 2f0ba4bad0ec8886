// SettleDialog: the content of the settle dialog as plain data. The engine
// fills it from the bet under settlement; a platform shows it, lets the
// user press a button (and edit the two adjustment rows), and hands back
// the button index.
#pragma once

#include <array>
#include <string>

#include "core/currency.h"

struct SettleDialogLine {
  std::string label;   // lblWonBetType(i)
  std::string amount;  // lblWonBet(i): "$" & FormatMoney, or empty

  friend bool operator==(const SettleDialogLine&, const SettleDialogLine&) = default;
};

struct SettleDialogButton {
  std::string caption;  // cmdHandle(i)
  bool enabled = true;

  friend bool operator==(const SettleDialogButton&, const SettleDialogButton&) = default;
};

// One of the two adjustment rows (buttons 5 and 6).
struct SettleDialogRow {
  int mathOperator = 0;  // 0 "+", 1 "-", 2 "x", 3 "/" (row 5 only)
  Currency amount1;      // txtModifyAmount
  Currency amount2;      // the units' own amount m, where the units need one
  int units = 0;         // cmdUnits: 0 "$", 1 "%", 2..6 check units
  bool enabled = true;
  std::string operatorCaption;  // cmdMathOperator: "+", "-", "x", "/" (row 5 only)
  std::string unitsCaption;     // cmdUnits: "$", "%" or "$" & m & " Units"

  friend bool operator==(const SettleDialogRow&, const SettleDialogRow&) = default;
};

// What the dialog settles: a bet that won or pushed, one that lost, or an
// odds bet that was off when its number or the seven came.
enum class SettleKind { Winner, Loser, NotWorking };

struct SettleDialog {
  int player = 0;
  SettleKind kind = SettleKind::Winner;
  std::string caption;
  int lineCount = 0;
  std::array<SettleDialogLine, 5> lines{};
  std::array<SettleDialogButton, 7> buttons{};
  std::array<SettleDialogRow, 2> rows{};  // rows of buttons 5 and 6
  int defaultButton = 0;
  bool snapCursor = false;  // move the pointer to the default button

  friend bool operator==(const SettleDialog&, const SettleDialog&) = default;
};
