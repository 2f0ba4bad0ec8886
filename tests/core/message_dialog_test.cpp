#include "config/settings.h"
#include "core/message_dialog.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

#include "core/game.h"
#include "core/headless_platform.h"

namespace {

class MessageDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    g.platform = &platform;
  }
  void Reply(int answer, bool hide, std::string in1 = "", std::string in2 = "") {
    platform.queuedReplies.push_back({answer, std::move(in1), std::move(in2), hide});
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

// Text, title, help and style reach the platform in every notice the other
// tests read; here the box's starting input and the modeless form.
TEST_F(MessageDialog, RequestCarriesTheInputAndTheMode) {
  g.msg.MsgInput1 = "10";
  EXPECT_EQ(ShowNotice(g, "a", "t", 130, kMsgYes | kMsgNo | kMsgInput1), kAnswerYes);
  EXPECT_TRUE(platform.messages[0].input1 == "10" && platform.messages[0].modal);
  g.msg.MsgStyle = kMsgOk;
  ShowMessage(g, false);
  EXPECT_FALSE(platform.messages[1].modal);
}

TEST_F(MessageDialog, DefaultAnswersFollowTheFocus) {
  EXPECT_EQ(DefaultMsgAnswer(kMsgYes | kMsgNo), kAnswerYes);
  EXPECT_EQ(DefaultMsgAnswer(kMsgOk | kMsgCancel | kMsgFocusYes), kAnswerOk) << "no Yes button";
  EXPECT_EQ(DefaultMsgAnswer(kMsgCancel | kMsgHelp), kAnswerCancel);
  // Without a window the default button answers.
  g.platform = nullptr;
  EXPECT_EQ(ShowNotice(g, "x", "t", 1, kMsgYes | kMsgNo | kMsgFocusNo), kAnswerNo);
}

// A checked Hide box clears the flag of its class of notice; a script notice
// hidden in Hyper-Drive clears the Hyper-Drive class instead.
TEST_F(MessageDialog, HideClearsOneClassOfNotice) {
  // Flags before, style, Hide checked, in Hyper-Drive, flags after.
  const std::tuple<long, int, bool, bool, long> cases[] = {
      {15, kMsgHideLimits, true, false, 15 & ~2},
      {15, kMsgHideCharges, false, false, 15},  // Hide left unchecked
      {15, 0, true, false, 15},                 // no Hide box shown
      {31, kMsgHideScript, true, false, 31 & ~8},
      {31, kMsgHideScript, true, true, 31 & ~16}};
  for (auto [before, style, hide, hyper, after] : cases) {
    g.rules.NoticeFlags = before;
    g.HyperDrive = hyper;
    Reply(kAnswerOk, hide);
    ShowNotice(g, "x", "t", 130, kMsgOk | style);
    EXPECT_EQ(g.rules.NoticeFlags, after) << style << " " << hyper;
  }
  EXPECT_EQ(HiddenNoticeBits(kMsgHideNotAllowed, false), 1);
}

TEST_F(MessageDialog, AnswersComeBackAsAmounts) {
  g.BetRequest = 99_usd;
  Reply(kAnswerOk, false, "12.50", "3");
  ShowNotice(g, "How much?", "t", 1, kMsgOk | kMsgInput1 | kMsgInput2 | kMsgAmountInput);
  EXPECT_TRUE(g.msg.MsgInput1 == "12.50" && g.msg.MsgInput2 == "3");
  EXPECT_TRUE(g.BetRequest == Currency::FromRaw(125000) && g.msg.MsgAmount2 == 3_usd);
  // A notice without answer boxes leaves the request alone.
  g.BetRequest = 7_usd;
  Reply(kAnswerCancel, false, "55", "66");
  EXPECT_EQ(ShowNotice(g, "x", "t", 1, kMsgOk | kMsgCancel), kAnswerCancel);
  EXPECT_EQ(g.BetRequest, 7_usd);
  // A non-numeric answer counts as 0.
  Reply(kAnswerOk, false, "lots");
  ShowNotice(g, "x", "t", 1, kMsgOk | kMsgInput1);
  EXPECT_EQ(g.BetRequest, 0_usd);
}

// Types `keys` into an empty box with the caret at the end; returns the text.
std::string Type(std::string_view keys, int decimals, bool allowMinus) {
  std::string text;
  for (char k : keys)
    text = FilterNumericKey(text, static_cast<int>(text.size()), 0, k, decimals, allowMinus).text;
  return text;
}

TEST(FilterNumericKey, DigitsPointAndMinus) {
  EXPECT_EQ(Type("12a.3,4 5", 2, false), "12.34");
  EXPECT_EQ(Type("-5", 2, false), "5");
  EXPECT_EQ(Type("-5-0.12.345", 4, true), "-50.1234");
  EXPECT_EQ(Type("7.5", 0, false), "75");
  EXPECT_EQ(Type("12345678901234567", 2, false), "1234567890123");
  EXPECT_EQ(Type("1234567890123.45", 2, false), "1234567890123.45");
}

TEST(FilterNumericKey, CaretAndSelection) {
  // A minus at the start of a number, not behind it, and nothing before it.
  KeyFilterResult r = FilterNumericKey("25", 0, 0, '-', 4, true);
  EXPECT_TRUE(r.accepted && r.text == "-25" && r.caret == 1) << r.text << " " << r.caret;
  EXPECT_FALSE(FilterNumericKey("-25", 0, 0, '3', 4, true).accepted);
  // Replacing a selection: the selected point may be typed again.
  EXPECT_EQ(FilterNumericKey("1.50", 1, 1, '.', 2, false).text, "1.50");
  // A point that would leave three decimals behind it is refused; a digit
  // typed before the point counts toward the whole digits.
  EXPECT_FALSE(FilterNumericKey("1234", 1, 0, '.', 2, false).accepted);
  EXPECT_TRUE(FilterNumericKey("1234", 2, 0, '.', 2, false).accepted);
  EXPECT_FALSE(FilterNumericKey("1.25", 3, 0, '3', 2, false).accepted);
  // Backspace deletes the selection or the character before the caret.
  r = FilterNumericKey("1.25", 1, 2, kKeyBackspace, 2, false);
  EXPECT_TRUE(r.text == "15" && r.caret == 1) << r.text << " " << r.caret;
  EXPECT_EQ(FilterNumericKey("12", 0, 0, kKeyBackspace, 2, false).text, "12");
  // Out-of-range carets are held to the text.
  EXPECT_EQ(FilterNumericKey("12", 99, 5, '3', 2, false).text, "123");
}

}  // namespace
