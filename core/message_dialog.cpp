#include "core/message_dialog.h"

#include <algorithm>

#include "config/settings_state.h"
#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"

int DefaultMsgAnswer(int style) {
  const bool yes = style & kMsgYes, no = style & kMsgNo;
  if ((style & kMsgFocusYes) && yes) return kAnswerYes;
  if ((style & kMsgFocusNo) && no) return kAnswerNo;
  if (style & kMsgOk) return kAnswerOk;
  if (yes) return kAnswerYes;
  if (no) return kAnswerNo;
  if (style & kMsgCancel) return kAnswerCancel;
  return kAnswerOk;
}

int HiddenNoticeBits(int style, bool hyperDrive) {
  int bits = 0;
  if (style & kMsgHideNotAllowed) bits |= kNoticeNotAllowed;
  if (style & kMsgHideLimits) bits |= kNoticeLimits;
  if (style & kMsgHideCharges) bits |= kNoticeCharges;
  if (style & kMsgHideScript) bits |= hyperDrive ? kNoticeScriptHyper : kNoticeScriptNormal;
  return bits;
}

InputRule MsgInputRule(int style) {
  if (style & kMsgAmountInput) return {true, 2, false};
  if (style & kMsgSignedInput) return {true, 4, true};
  return {};
}

void ShowMessage(Game& game, bool modal) {
  MessageState& msg = game.msg;
  MessageReply reply;
  if (game.platform != nullptr) {
    MessageRequest request;
    request.text = msg.MsgText;
    request.title = msg.MsgTitle;
    request.helpId = msg.MsgHelpId;
    request.style = msg.MsgStyle;
    request.modal = modal;
    request.input1 = msg.MsgInput1;
    request.input2 = msg.MsgInput2;
    reply = game.platform->ShowMessage(request);
  } else {
    reply.answer = DefaultMsgAnswer(msg.MsgStyle);
    reply.input1 = msg.MsgInput1;
    reply.input2 = msg.MsgInput2;
  }
  msg.MsgAnswer = reply.answer;
  msg.MsgInput1 = std::move(reply.input1);
  msg.MsgInput2 = std::move(reply.input2);
  if (reply.hideChecked) game.rules.NoticeFlags &= ~HiddenNoticeBits(msg.MsgStyle, game.HyperDrive);
  if (msg.MsgStyle & kMsgInput1) game.BetRequest = ParseAmount(msg.MsgInput1);
  if (msg.MsgStyle & kMsgInput2) msg.MsgAmount2 = ParseAmount(msg.MsgInput2);
}

int ShowNotice(Game& game, std::string_view text, std::string_view title, int helpId, int style) {
  game.msg.MsgText = text;
  game.msg.MsgTitle = title;
  game.msg.MsgHelpId = helpId;
  game.msg.MsgStyle = style;
  ShowMessage(game, true);
  return game.msg.MsgAnswer;
}

KeyFilterResult FilterNumericKey(std::string_view text, int selStart, int selLength, int key,
                                 int decimals, bool allowMinus) {
  const int size = static_cast<int>(text.size());
  selStart = std::clamp(selStart, 0, size);
  selLength = std::clamp(selLength, 0, size - selStart);
  KeyFilterResult refused{false, std::string(text), selStart};

  if (key == kKeyBackspace) {
    KeyFilterResult r{true, std::string(text), selStart};
    if (selLength > 0) {
      r.text.erase(static_cast<std::size_t>(selStart), static_cast<std::size_t>(selLength));
    } else if (selStart > 0) {
      r.text.erase(static_cast<std::size_t>(selStart - 1), 1);
      r.caret = selStart - 1;
    }
    return r;
  }

  const bool digit = key >= '0' && key <= '9';
  if (!digit && key != '-' && key != '.') return refused;

  // The text as it would stand with the selection replaced.
  const std::string_view before = text.substr(0, static_cast<std::size_t>(selStart));
  const std::string_view after = text.substr(static_cast<std::size_t>(selStart + selLength));
  const bool hasMinus = (!before.empty() && before.front() == '-') ||
                        (before.empty() && !after.empty() && after.front() == '-');

  if (key == '-') {
    if (!allowMinus || selStart != 0 || hasMinus) return refused;
  } else {
    // Nothing goes in front of a minus sign.
    if (before.empty() && !after.empty() && after.front() == '-') return refused;
    const std::size_t pointBefore = before.find('.');
    const std::size_t pointAfter = after.find('.');
    const bool hasPoint =
        pointBefore != std::string_view::npos || pointAfter != std::string_view::npos;
    if (key == '.') {
      if (hasPoint || decimals <= 0) return refused;
      // The digits that would stand behind the new point.
      const auto tail =
          std::count_if(after.begin(), after.end(), [](char c) { return c >= '0' && c <= '9'; });
      if (tail > decimals) return refused;
    } else if (pointBefore != std::string_view::npos) {
      const auto behind =
          std::count_if(before.begin() + static_cast<long>(pointBefore), before.end(),
                        [](char c) { return c >= '0' && c <= '9'; }) +
          std::count_if(after.begin(), after.end(), [](char c) { return c >= '0' && c <= '9'; });
      if (behind + 1 > decimals) return refused;
    } else {
      // A digit in the whole part: count the whole digits around the caret.
      auto wholeDigits = [](std::string_view s) {
        return std::count_if(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
      };
      const std::string_view afterWhole =
          pointAfter == std::string_view::npos ? after : after.substr(0, pointAfter);
      if (wholeDigits(before) + wholeDigits(afterWhole) + 1 > 13) return refused;
    }
  }

  KeyFilterResult r;
  r.accepted = true;
  r.text.reserve(before.size() + 1 + after.size());
  r.text.append(before);
  r.text += static_cast<char>(key);
  r.text.append(after);
  r.caret = selStart + 1;
  return r;
}
