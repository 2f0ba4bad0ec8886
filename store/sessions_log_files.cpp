#include "store/sessions_log_files.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/frames.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "stats/selection.h"
#include "stats/sessions_log.h"
#include "store/file_chooser.h"

namespace {

constexpr const char* kSaveAsTitle = "Save Sessions Log As";
constexpr const char* kMergeTitle = "Merge Sessions Log";

bool SamePath(const std::string& a, const std::string& b) {
  std::error_code ec;
  return a == b || std::filesystem::weakly_canonical(a, ec) == std::filesystem::weakly_canonical(b, ec);
}

// The warning when the table's session has rolls: its record will go to
// the new log or logs. True to go on.
bool AcceptSessionInProgress(Game& g, bool all) {
  if (g.RollTally(kTableSession, kEventRolls) <= 0) return true;
  const std::string logs = all ? "Logs" : "Log";
  const std::string text =
      "There's currently a session in progress which will be added to your new Sessions " + logs +
      " when it's finished.\r\rIf you don't want this to happen, then you should select \"New\" "
      "from the Game menu on the game table.\r\rWould you like to continue with this action anyway?";
  return ShowNotice(g, text, "Session in progress will be added to new Sessions " + logs, 0,
                    kMsgYes | kMsgNo | kMsgPicAlert) == kAnswerYes;
}

// Player p's log back to the default file, offering first to save a
// default log that holds sessions; the file is deleted or, with
// `recreate`, written anew with no sessions.
bool RenewLog(Game& g, int p, bool recreate) {
  const std::string name = g.PlayerName[static_cast<std::size_t>(p)];
  const std::string def = DefaultSessionLogPath(g, p);
  if (SamePath(SessionLogPathOf(g, p), def) && SessionsLogReader(def).count() > 0) {
    const int answer = ShowNotice(g,
                                  name + "'s log needs to be re-named \rif you want to save it.\r\r"
                                         "Do you want to re-name it now?",
                                  "Save Sessions Log", 0, kMsgYes | kMsgNo | kMsgCancel | kMsgPicQmark);
    if (answer == kAnswerCancel) return false;
    if (answer == kAnswerYes && !SaveSessionsLogAs(g, p)) return false;
  }
  g.roll.SessionLogPath[static_cast<std::size_t>(p)] = def;
  g.roll.SessionDirty = true;
  if (!recreate) {
    RemoveFileIfPresent(def);
    return true;
  }
  if (const auto error = CreateSessionsLog(def)) {
    ShowNotice(g, *error, "New Sessions Logs", 0, kMsgOk | kMsgPicStop);
    return false;
  }
  return true;
}

}  // namespace

bool SaveSessionsLogAs(Game& g, int p) {
  if (!SeatTaken(g, p)) return false;
  const std::string from = SessionLogPathOf(g, p);
  const std::optional<std::string> to =
      ChooseFilePath(g, {kSaveAsTitle, {"Sessions logs (*.slg)", "All files (*.*)"}, ".slg", true});
  if (!to) return false;
  if (!SamePath(from, *to)) {
    if (const auto error = CopySessionsLog(from, *to)) {
      ShowNotice(g, *error, kSaveAsTitle, 0, kMsgOk | kMsgPicStop);
      return false;
    }
  }
  g.roll.SessionLogPath[static_cast<std::size_t>(p)] = *to;
  g.roll.SessionDirty = true;
  return true;
}

bool MergeSessionsLog(Game& g, int p) {
  if (!SeatTaken(g, p)) return false;
  const std::string into = SessionLogPathOf(g, p);
  const std::optional<std::string> from =
      ChooseFilePath(g, {kMergeTitle, {"Sessions logs (*.slg)", "All files (*.*)"}, ".slg", false});
  if (!from) return false;
  const auto refuse = [&](const std::string& text, std::string_view title) {
    ShowNotice(g, text, title, 0, kMsgOk | kMsgPicStop);
    return false;
  };
  if (SamePath(into, *from))
    return refuse("A sessions log can't be merged into itself.", kMergeTitle);
  const SessionsLogReader source(*from);
  if (!source.exists()) return refuse(*from + "\r\rFile not found.", kMergeTitle);
  if (!source.ok()) return refuse(source.error(), kSessionsLogTitle);
  if (source.count() == 0) return refuse(*from + "\r\rholds no sessions to merge.", kMergeTitle);
  const std::string name = g.PlayerName[static_cast<std::size_t>(p)];
  const std::string count = std::to_string(source.count());
  const std::string text = "Add the " + count + (source.count() == 1 ? " session" : " sessions") +
                           " in the file\r\"" + std::string(FileNameOf(*from)) +
                           "\"\rto the end of " + name + "'s Sessions Log?";
  if (ShowNotice(g, text, kMergeTitle, 0, kMsgYes | kMsgNo | kMsgPicQmark) != kAnswerYes)
    return false;
  if (const auto error = MergeSessionsLogs(into, *from)) return refuse(*error, kMergeTitle);
  return true;
}

bool NewSessionsLog(Game& g, int p) {
  if (!SeatTaken(g, p) || !AcceptSessionInProgress(g, false)) return false;
  return RenewLog(g, p, false);
}

bool NewSessionsLogs(Game& g) {
  if (!AcceptSessionInProgress(g, true)) return false;
  for (int p = 1; p <= 8; ++p)
    if (SeatTaken(g, p) && !RenewLog(g, p, true)) return false;
  return true;
}
