// The one message dialog of the game, and the key filter of all numeric
// boxes.
//
// Callers fill game.msg (MsgText, MsgTitle, MsgHelpId, MsgStyle, and the
// initial answer texts MsgInput1/2) and call ShowMessage; the window layer
// shows it through game.platform. What must stay true:
// - The answer is always left in MsgAnswer (1 OK, 6 Yes, 7 No, 2 Cancel),
//   also without a platform, where the style's default button answers.
// - A checked "Hide" box clears exactly one class of NoticeFlags, so the
//   user never sees that class of notice again until it is switched back on.
// - Typed answers come back as text and, for the boxes the style shows, as
//   amounts read by ParseAmount: the first in BetRequest, the second in
//   MsgAmount2. A dialog without answer boxes leaves BetRequest alone, so a
//   notice inside SetBetChecked never disturbs the request in progress.
#pragma once

#include <string>
#include <string_view>

struct Game;

// MsgStyle bits.
constexpr int kMsgOk = 0x1;      // cmdButton(0) "OK"
constexpr int kMsgYes = 0x2;     // cmdButton(1) "Yes"
constexpr int kMsgNo = 0x4;      // cmdButton(2) "No"
constexpr int kMsgCancel = 0x8;  // cmdButton(3) "Cancel"
constexpr int kMsgHelp = 0x10;   // cmdButton(4) "Help"
constexpr int kMsgSignedInput =
    0x20;                         // answer boxes: 4 decimals and a minus (without kMsgAmountInput)
constexpr int kMsgInput1 = 0x40;  // one answer box
constexpr int kMsgInput2 = 0x80;  // a second answer box
constexpr int kMsgPicOk = 0x100;
constexpr int kMsgPicStop = 0x200;
constexpr int kMsgPicQmark = 0x400;
constexpr int kMsgPicAlert = 0x800;
constexpr int kMsgFocusYes = 0x1000;         // focus opens on cmdButton(1)
constexpr int kMsgFocusNo = 0x2000;          // focus opens on cmdButton(2)
constexpr int kMsgHideNotAllowed = 0x10000;  // "Hide" clears NoticeFlags bit 1
constexpr int kMsgHideLimits = 0x20000;      // bit 2
constexpr int kMsgHideCharges = 0x40000;     // bit 4
constexpr int kMsgHideScript = 0x80000;      // bit 8 in normal play, 16 in Hyper-Drive
constexpr int kMsgAmountInput = 0x100000;    // answer boxes take amounts: 2 decimals, no minus
constexpr int kMsgHideAny = kMsgHideNotAllowed | kMsgHideLimits | kMsgHideCharges | kMsgHideScript;

// MsgAnswer values.
constexpr int kAnswerOk = 1;
constexpr int kAnswerCancel = 2;
constexpr int kAnswerYes = 6;
constexpr int kAnswerNo = 7;

// The answer of the button the focus opens on, as a dialog closed by Enter gives.
int DefaultMsgAnswer(int style);
// The NoticeFlags bits that a checked "Hide" clears for a style.
int HiddenNoticeBits(int style, bool hyperDrive);
// Shows game.msg as the message dialog and stores the answers.
void ShowMessage(Game& game, bool modal = true);
// Fills MsgText/MsgTitle/MsgHelpId/MsgStyle and shows the dialog; returns MsgAnswer.
int ShowNotice(Game& game, std::string_view text, std::string_view title, int helpId, int style);

// Decimals and sign that the answer boxes of a style accept; free text when
// `numeric` is false.
struct InputRule {
  bool numeric = false;
  int decimals = 0;
  bool allowMinus = false;
};
InputRule MsgInputRule(int style);

// A text box and one key pressed in it. The caret is at selStart with
// selLength characters selected; a key replaces the selection.
struct KeyFilterResult {
  bool accepted = false;
  std::string text;  // the box's text after the key (unchanged when refused)
  int caret = 0;     // the caret after the key
};
constexpr int kKeyBackspace = 8;
// Backspace passes; a minus only with allowMinus at the start; one point with
// at most `decimals` digits behind it; at most 13 digits before it; digits.
// Every other key is dropped.
KeyFilterResult FilterNumericKey(std::string_view text, int selStart, int selLength, int key,
                                 int decimals, bool allowMinus);
