#include "cycle/probability_commands.h"

#include <string>

#include "core/game.h"
#include "core/message_dialog.h"
#include "dice/probability.h"
#include "dice/probability_file.h"
#include "store/file_chooser.h"

namespace {

constexpr const char* kOpenTitle = "Unable to Open Probability File";
constexpr const char* kSaveTitle = "Unable to Save Probability File";

// The question about unsaved numbers; true when the command may go on.
bool MayLeaveTable(Game& game) {
  switch (AskToSaveProbabilities(game)) {
    case ProbSaveChoice::Go:
      return true;
    case ProbSaveChoice::SaveAs:
      return SaveProbabilityAsCommand(game);
    case ProbSaveChoice::Cancel:
      return false;
  }
  return false;
}

bool SaveTo(Game& game, const std::string& path) {
  if (SaveProbabilityFile(game, path)) return true;
  ShowNotice(game, ProbabilityFilePath(game, path) + "\r\rcould not be written.", kSaveTitle, 0,
             kMsgOk | kMsgPicStop);
  return false;
}

}  // namespace

FileChoice ProbabilityFileChoice(const char* caption, bool writing) {
  return {caption, {"Probability files (*.prb)", "All files (*.*)"}, ".prb", writing};
}

bool NewProbabilityCommand(Game& game) {
  if (!MayLeaveTable(game)) return false;
  NewProbabilities(game);
  return true;
}

bool OpenProbabilityCommand(Game& game) {
  if (!MayLeaveTable(game)) return false;
  const auto path = ChooseFilePath(game, ProbabilityFileChoice("Open Probability File", false));
  if (!path) return false;
  // A foreign or corrupt file is told by the reader itself (picked by hand).
  switch (ReadProbabilityFile(game, *path, true)) {
    case ProbFileStatus::Ok:
      return true;
    case ProbFileStatus::NotFound:
      ShowNotice(game, *path + "\r\rwas not found.", kOpenTitle, 0, kMsgOk | kMsgPicStop);
      return false;
    case ProbFileStatus::Unreadable:
      ShowNotice(game, *path + "\r\rcould not be read.", kOpenTitle, 0, kMsgOk | kMsgPicStop);
      return false;
    case ProbFileStatus::NotProbabilityFile:
      return false;
  }
  return false;
}

bool SaveProbabilityCommand(Game& game) {
  if (ProbabilitySaveNeedsName(game)) return SaveProbabilityAsCommand(game);
  return SaveTo(game, game.probability.ProbFilePath);
}

bool SaveProbabilityAsCommand(Game& game) {
  const auto path = ChooseFilePath(game, ProbabilityFileChoice("Save Probability File As", true));
  return path && SaveTo(game, *path);
}
