#include "store/game_file_refs.h"

#include <string>

#include "core/game.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "dice/probability_file.h"
#include "logs/events_log.h"
#include "script/files.h"
#include "stats/sessions_log.h"
#include "store/file_stamp.h"

namespace {

void Tell(Game& g, const std::string& text, const char* title) {
  ShowNotice(g, text, title, 0, kMsgOk);
}

// The dice roll file; true when it is missing or changed since the save.
bool FollowDiceFile(Game& g, const PathField& ref) {
  std::string& path = g.diceFile.DiceFilePath;
  path = ref.path;
  if (ref.path.empty()) return false;
  const char* kept = "(that was in use when this game was saved) ";
  if (!FileExists(ref.path)) {
    Tell(g, std::string("The following Dice Roll file ") + kept + "was not found:\r\r" + ref.path,
         "Missing Dice Roll File");
    path.clear();
    return true;
  }
  if (FileStamp(ref.path) != ref.stamp) {
    Tell(g, std::string("The following Dice Roll file ") + kept + "has been changed:\r\r" + ref.path,
         "Altered Dice Roll File");
    return true;
  }
  return false;
}

// The probability file is read into the table; one that does not read is
// dropped with its message and the table stays as it was.
void FollowProbabilityFile(Game& g, const PathField& ref) {
  if (ref.path.empty()) return;
  const char* kept = "(that was in use when this game was saved) ";
  if (ReadProbabilityFile(g, ref.path) != ProbFileStatus::Ok) {
    Tell(g, std::string("The following Probability file ") + kept + "was not found:\r\r" + ref.path,
         "Missing Probability File");
  } else if (FileStamp(ref.path) != ref.stamp) {
    Tell(g, std::string("The following Probability file ") + kept + "has been changed:\r\r" + ref.path,
         "Altered Probability File");
  }
}

void FollowEventsLog(Game& g, const PathField& ref) {
  const std::string fallback = DefaultEventsLogPath(g);
  g.roll.EventsLogPath = ref.path.empty() ? fallback : ref.path;
  if (!ref.path.empty() && !FileExists(ref.path)) {
    Tell(g,
         "The following Events Log (that was open when this game was saved) was not found.\r\r" +
             ref.path,
         "Missing Events Log");
    g.roll.EventsLogPath = fallback;
  }
}

void FollowScript(Game& g, int p, const BlockPaths& ref) {
  ScriptSource& ss = g.scriptSource;
  const auto s = static_cast<std::size_t>(p);
  const std::string& name = g.PlayerName[s];
  const std::string& path = ref.script.path;
  if (path.empty()) {
    ClearScript(g, p);
  } else if (!FileExists(path)) {
    Tell(g, name + "'s auto-bet file was not found:\r\r" + path, "Auto-Bet File Not Found");
    ClearScript(g, p);
  } else if (!OpenAutoBets(g, p, path)) {
    Tell(g, "An error occurred while attempting to load " + name + "'s auto-bet file:\r\r" + path,
         "Unable To Open Auto-Bet File");
    ClearScript(g, p);
  } else if (FileStamp(path) != ref.script.stamp) {
    Tell(g, name + "'s auto-Bet file has been changed:\r\r" + path, "Auto-Bet File Changed");
  }
  ss.ScriptOutputFile[s] = ref.output.path;
}

void FollowSessionsLog(Game& g, int p, const BlockPaths& ref) {
  const auto s = static_cast<std::size_t>(p);
  const std::string& name = g.PlayerName[s];
  const std::string ownPath = DefaultSessionLogPath(g, p);
  std::string& path = g.roll.SessionLogPath[s];
  path = ref.sessionLog.path;
  // A player who never had a sessions log takes the default one quietly.
  if (path.empty()) path = ownPath;
  if (FileExists(path) || path == ownPath) return;
  Tell(g,
       "The following Sessions Log for " + name + " was not found: \r\r" + path + "\r\r" +
           (FileExists(ownPath) ? "The following existing Sessions Log will be opened instead:"
                                : "The following new Sessions Log will be created and opened "
                                  "instead:") +
           "\r\r" + ownPath,
       "Sessions Log Not Found");
  path = ownPath;
}

}  // namespace

void FollowReferences(Game& g, const GameFilePaths& paths, const std::array<BlockPaths, 9>& blocks) {
  if (FollowDiceFile(g, paths.dice)) {
    DiceFileState& f = g.diceFile;
    f.DiceFilePos = f.DiceSelEnd = 1;
    f.DiceFileLast = 0;
    f.DiceFileMode = kDiceFileInactive;
  }
  FollowProbabilityFile(g, paths.probability);
  FollowEventsLog(g, paths.eventsLog);
  g.scriptSource.PastingScript = false;
  g.scriptSource.HotKeyRunning = false;
  for (int p = 1; p <= 8; ++p) {
    if (g.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    FollowScript(g, p, blocks[static_cast<std::size_t>(p)]);
    FollowSessionsLog(g, p, blocks[static_cast<std::size_t>(p)]);
  }
}
