#include "store/file_chooser.h"

#include "core/data_folder.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "core/text.h"
#include "store/file_stamp.h"

namespace {

// A chooser that keeps answering nothing useful is given up, so that a
// headless run can never loop.
constexpr int kMaxAsks = 20;

}  // namespace

FileChoice SessionFileChoice(const char* caption, bool writing) {
  return {caption, {"Session files (*.rvg)", "All files (*.*)"}, ".rvg", writing};
}

FileChoice TextFileChoice(const char* caption, bool writing) {
  return {caption, {"Text files (*.txt)", "All files (*.*)"}, ".txt", writing};
}

FileChoice RollFileChoice(const char* caption, bool writing) {
  return {caption, {"Roll files (*.rol)", "All files (*.*)"}, ".rol", writing};
}

std::optional<std::string> ChooseFilePath(Game& game, const FileChoice& choice) {
  GameFileState& f = game.gamefile;
  for (int ask = 0; ask < kMaxAsks; ++ask) {
    const std::string folder = f.ChooserFolder.empty() ? game.roll.DataFolder : f.ChooserFolder;
    const auto typed = game.platform->ChooseFile({choice.caption, choice.types, folder, choice.writing});
    if (!typed) return std::nullopt;
    const std::string path = ChosenFilePath(*typed, folder, choice.extension);
    if (path.empty()) {
      ShowNotice(game, "Please enter a file name.", "Missing Filename", 0, kMsgOk);
      continue;
    }
    if (choice.writing && FileExists(path) &&
        ShowNotice(game, path + "\r\ris already on file.\r\rDo you want to overwrite it?",
                   choice.caption, 0, kMsgYes | kMsgNo) != kAnswerYes)
      continue;
    f.ChooserFolder = path.substr(0, path.size() - FileNameOf(path).size());
    return path;
  }
  return std::nullopt;
}
