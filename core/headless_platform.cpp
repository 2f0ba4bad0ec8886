#include "core/headless_platform.h"

#include <chrono>

int HeadlessPlatform::DefaultAnswer(int style) {
  const bool yes = style & 2, no = style & 4;
  if ((style & 0x1000) && yes) return 6;
  if ((style & 0x2000) && no) return 7;
  if (style & 1) return 1;
  if (yes) return 6;
  if (no) return 7;
  if (style & 8) return 2;
  return 1;
}

MessageReply HeadlessPlatform::ShowMessage(const MessageRequest& request) {
  messages.push_back(request);
  if (!queuedReplies.empty()) {
    MessageReply reply = queuedReplies.front();
    queuedReplies.pop_front();
    return reply;
  }
  MessageReply reply;
  reply.answer = DefaultAnswer(request.style);
  reply.input1 = request.input1;
  reply.input2 = request.input2;
  return reply;
}

int HeadlessPlatform::ShowSettleDialog(SettleDialog& dialog) {
  settleDialogs.push_back(dialog);
  if (!queuedSettleButtons.empty()) {
    const int button = queuedSettleButtons.front();
    queuedSettleButtons.pop_front();
    return button;
  }
  return dialog.defaultButton;
}

void HeadlessPlatform::PlaySound(std::string_view path, int flags) {
  if (sounds.size() < soundsKept) sounds.push_back({std::string(path), flags});
}

std::uint32_t HeadlessPlatform::TimeGetTime() {
  if (fixedTime) {
    const std::uint32_t now = *fixedTime;
    *fixedTime += clockStep;
    return now;
  }
  using namespace std::chrono;
  return static_cast<std::uint32_t>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

std::optional<std::string> HeadlessPlatform::ChooseFile(const FileChooserRequest& request) {
  fileChoosers.push_back(request);
  if (queuedFileNames.empty()) return std::nullopt;
  std::optional<std::string> name = queuedFileNames.front();
  queuedFileNames.pop_front();
  return name;
}
