// HeadlessPlatform: the Platform of the CLI and the tests. It answers by
// rule: a queued answer if a test queued one, else the dialog's default
// (the first button of the message's style, the settle dialog's default
// button). It records every message, settle dialog and sound it was given,
// so tests can assert the exact texts. Its clock is the real steady clock
// unless a test sets a fixed time.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "core/platform.h"
#include "core/settle_dialog.h"

class HeadlessPlatform : public Platform {
 public:
  MessageReply ShowMessage(const MessageRequest& request) override;
  int ShowSettleDialog(SettleDialog& dialog) override;
  void PlaySound(std::string_view path, int flags) override;
  std::uint32_t TimeGetTime() override;
  void DoEvents() override { ++eventPumps; }
  void RequestRedraw(Redraw what) override { ++redraws[static_cast<int>(what)]; }
  bool MainWindowMinimized() override { return minimized; }
  // The next queued name, or Cancel when none is queued.
  std::optional<std::string> ChooseFile(const FileChooserRequest& request) override;
  bool ShowScriptStep(const ScriptStep& step) override {
    steps.push_back(step);
    return true;
  }
  // Keeps the document when a printer is set up; false without one.
  bool Print(const PrintDocument& document) override {
    if (!printerAvailable) return false;
    printed.push_back(document);
    return true;
  }
  // Records the notice; an empty text (taken down) is recorded too.
  void ShowProgressNotice(std::string_view text) override { progressNotices.emplace_back(text); }
  // Records the topic; there is no window to show it in.
  bool ShowHelp(int topic) override {
    helpTopics.push_back(topic);
    return false;
  }
  CalendarDate Today() override { return fixedDate ? *fixedDate : Platform::Today(); }
  int SecondsOfDay() override { return fixedSecondsOfDay ? *fixedSecondsOfDay : Platform::SecondsOfDay(); }

  // Default answer of a message style: the first button the style shows
  // (OK 1, Yes 6, No 7, Cancel 2), or the focused one if 0x1000/0x2000 says.
  static int DefaultAnswer(int style);

  // Answers for the next dialogs, taken first in first out.
  std::deque<MessageReply> queuedReplies;
  std::deque<int> queuedSettleButtons;
  std::deque<std::optional<std::string>> queuedFileNames;

  // What was shown.
  std::vector<MessageRequest> messages;
  std::vector<SettleDialog> settleDialogs;
  std::vector<FileChooserRequest> fileChoosers;
  struct Sound { std::string path; int flags; };
  // The most sounds kept: a long run by hand must not grow the record
  // without end. The benchmarks keep none, so that what they count as
  // allocated is the game's own.
  std::size_t soundsKept = 100'000;
  std::vector<Sound> sounds;
  std::vector<ScriptStep> steps;
  std::vector<PrintDocument> printed;
  std::vector<int> helpTopics;  // the topics help was asked for
  std::vector<std::string> progressNotices;
  bool printerAvailable = true;
  std::optional<CalendarDate> fixedDate;  // a fixed day for tests
  std::optional<int> fixedSecondsOfDay;   // a fixed time of day for tests
  long eventPumps = 0;
  long redraws[static_cast<int>(Redraw::kCount)] = {};

  // A fixed clock for tests; advanced by clockStep at every read.
  std::optional<std::uint32_t> fixedTime;
  std::uint32_t clockStep = 0;
  bool minimized = false;
};
