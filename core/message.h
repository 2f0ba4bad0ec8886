// The fields of the one message dialog. Callers fill MsgText, MsgTitle,
// MsgHelpId and MsgStyle and call ShowMessage (config/message_dialog.h); the
// answer comes back in MsgAnswer and the typed texts in MsgInput1/2.
#pragma once

#include <string>

#include "core/currency.h"

struct MessageState {
  std::string MsgText;   // pieces joined by CR ('\r')
  std::string MsgTitle;
  int MsgHelpId = 0;
  int MsgStyle = 1;
  int MsgAnswer = 1;     // 1 OK, 6 Yes, 7 No, 2 Cancel
  std::string MsgInput1;
  std::string MsgInput2;
  Currency MsgAmount2;   // the second answer box read as an amount

  friend bool operator==(const MessageState&, const MessageState&) = default;
};
