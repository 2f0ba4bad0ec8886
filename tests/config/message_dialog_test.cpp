#include "config/message_dialog.h"

#include <gtest/gtest.h>

#include <memory>

#include "engine/game.h"
#include "engine/headless_platform.h"

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

TEST_F(MessageDialog, RequestCarriesTheMessage) {
  g.msg.MsgInput1 = "10";
  EXPECT_EQ(ShowNotice(g, "a\rb", "Title", 130, kMsgYes | kMsgNo | kMsgInput1), kAnswerYes);
  ASSERT_EQ(platform.messages.size(), 1u);
  const MessageRequest& r = platform.messages[0];
  EXPECT_EQ(r.text, "a\rb");
  EXPECT_EQ(r.title, "Title");
  EXPECT_EQ(r.helpId, 130);
  EXPECT_EQ(r.style, kMsgYes | kMsgNo | kMsgInput1);
  EXPECT_EQ(r.input1, "10");
  EXPECT_TRUE(r.modal);
  g.msg.MsgStyle = kMsgOk;
  ShowMessage(g, false);
  EXPECT_FALSE(platform.messages[1].modal);
}

TEST_F(MessageDialog, DefaultAnswersFollowTheFocus) {
  EXPECT_EQ(DefaultMsgAnswer(kMsgOk), kAnswerOk);
  EXPECT_EQ(DefaultMsgAnswer(kMsgYes | kMsgNo), kAnswerYes);
  EXPECT_EQ(DefaultMsgAnswer(kMsgYes | kMsgNo | kMsgFocusNo), kAnswerNo);
  EXPECT_EQ(DefaultMsgAnswer(kMsgOk | kMsgCancel | kMsgFocusYes), kAnswerOk) << "no Yes button";
  EXPECT_EQ(DefaultMsgAnswer(kMsgCancel | kMsgHelp), kAnswerCancel);
  EXPECT_EQ(DefaultMsgAnswer(0x2406), kAnswerNo);
  // Without a window the default button answers.
  g.platform = nullptr;
  EXPECT_EQ(ShowNotice(g, "x", "t", 1, kMsgYes | kMsgNo | kMsgFocusNo), kAnswerNo);
}

TEST_F(MessageDialog, HideClearsOneClassOfNotice) {
  Reply(kAnswerOk, true);
  ShowNotice(g, "x", "t", 130, kMsgOk | kMsgHideLimits);
  EXPECT_EQ(g.rules.NoticeFlags, 15 & ~2);
  Reply(kAnswerOk, false);
  ShowNotice(g, "x", "t", 130, kMsgOk | kMsgHideCharges);
  EXPECT_EQ(g.rules.NoticeFlags, 15 & ~2) << "unchecked Hide keeps the flags";
  Reply(kAnswerOk, true);
  ShowNotice(g, "x", "t", 130, kMsgOk);
  EXPECT_EQ(g.rules.NoticeFlags, 15 & ~2) << "no Hide box shown, nothing to clear";
  g.rules.NoticeFlags = 31;
  Reply(kAnswerOk, true);
  ShowNotice(g, "x", "t", 130, kMsgOk | kMsgHideScript);
  EXPECT_EQ(g.rules.NoticeFlags, 31 & ~8);
  g.HyperDrive = true;
  Reply(kAnswerOk, true);
  ShowNotice(g, "x", "t", 130, kMsgOk | kMsgHideScript);
  EXPECT_EQ(g.rules.NoticeFlags, 31 & ~8 & ~16);
  EXPECT_EQ(HiddenNoticeBits(kMsgHideNotAllowed, false), 1);
}

TEST_F(MessageDialog, AnswersComeBackAsAmounts) {
  g.BetRequest = 99_usd;
  Reply(kAnswerOk, false, "12.50", "3");
  ShowNotice(g, "How much?", "t", 1, kMsgOk | kMsgInput1 | kMsgInput2 | kMsgAmountInput);
  EXPECT_EQ(g.msg.MsgInput1, "12.50");
  EXPECT_EQ(g.msg.MsgInput2, "3");
  EXPECT_EQ(g.BetRequest, Currency::FromRaw(125000));
  EXPECT_EQ(g.msg.MsgAmount2, 3_usd);
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

TEST(MsgInputRule, ByStyle) {
  EXPECT_FALSE(MsgInputRule(kMsgInput1).numeric);
  const InputRule amounts = MsgInputRule(kMsgInput1 | kMsgAmountInput | kMsgSignedInput);
  EXPECT_TRUE(amounts.numeric);
  EXPECT_EQ(amounts.decimals, 2);
  EXPECT_FALSE(amounts.allowMinus);
  const InputRule signedRule = MsgInputRule(kMsgInput1 | kMsgSignedInput);
  EXPECT_EQ(signedRule.decimals, 4);
  EXPECT_TRUE(signedRule.allowMinus);
}

// Types `keys` into an empty box with the caret at the end; returns the text.
std::string Type(std::string_view keys, int decimals, bool allowMinus) {
  std::string text;
  for (char k : keys) {
    const KeyFilterResult r =
        FilterNumericKey(text, static_cast<int>(text.size()), 0, k, decimals, allowMinus);
    text = r.text;
  }
  return text;
}

TEST(FilterNumericKey, DigitsPointAndMinus) {
  EXPECT_EQ(Type("12a.3,4 5", 2, false), "12.34");
  EXPECT_EQ(Type("1.2.3", 2, false), "1.23");
  EXPECT_EQ(Type("-5", 2, false), "5");
  EXPECT_EQ(Type("-5-", 4, true), "-5");
  EXPECT_EQ(Type("0.12345", 4, true), "0.1234");
  EXPECT_EQ(Type("7.5", 0, false), "75");
  EXPECT_EQ(Type("12345678901234567", 2, false), "1234567890123");
  EXPECT_EQ(Type("1234567890123.45", 2, false), "1234567890123.45");
}

TEST(FilterNumericKey, CaretAndSelection) {
  // A minus at the start of a number, not behind it.
  KeyFilterResult r = FilterNumericKey("25", 0, 0, '-', 4, true);
  EXPECT_TRUE(r.accepted);
  EXPECT_EQ(r.text, "-25");
  EXPECT_EQ(r.caret, 1);
  EXPECT_FALSE(FilterNumericKey("25", 1, 0, '-', 4, true).accepted);
  EXPECT_FALSE(FilterNumericKey("-25", 0, 0, '-', 4, true).accepted);
  EXPECT_FALSE(FilterNumericKey("-25", 0, 0, '3', 4, true).accepted) << "nothing before the minus";
  // Replacing a selection: the selected point may be typed again.
  r = FilterNumericKey("1.50", 1, 1, '.', 2, false);
  EXPECT_TRUE(r.accepted);
  EXPECT_EQ(r.text, "1.50");
  r = FilterNumericKey("1.50", 0, 4, '9', 2, false);
  EXPECT_EQ(r.text, "9");
  // A point that would leave three decimals behind it is refused.
  EXPECT_FALSE(FilterNumericKey("1234", 1, 0, '.', 2, false).accepted);
  EXPECT_TRUE(FilterNumericKey("1234", 2, 0, '.', 2, false).accepted);
  // A digit typed before the point counts toward the whole digits, not the decimals.
  EXPECT_TRUE(FilterNumericKey("1.25", 0, 0, '3', 2, false).accepted);
  EXPECT_FALSE(FilterNumericKey("1.25", 3, 0, '3', 2, false).accepted);
  // Backspace deletes the selection or the character before the caret.
  r = FilterNumericKey("1.25", 4, 0, kKeyBackspace, 2, false);
  EXPECT_EQ(r.text, "1.2");
  r = FilterNumericKey("1.25", 1, 2, kKeyBackspace, 2, false);
  EXPECT_EQ(r.text, "15");
  EXPECT_EQ(r.caret, 1);
  r = FilterNumericKey("12", 0, 0, kKeyBackspace, 2, false);
  EXPECT_TRUE(r.accepted);
  EXPECT_EQ(r.text, "12");
  // Out-of-range carets are held to the text.
  EXPECT_EQ(FilterNumericKey("12", 99, 5, '3', 2, false).text, "123");
}

}  // namespace
