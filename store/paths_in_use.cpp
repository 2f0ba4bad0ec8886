#include "store/paths_in_use.h"

#include "core/game.h"
#include "script/files.h"

namespace {

constexpr const char* kNone = "(none)";

std::string OrNone(const std::string& path) { return path.empty() ? kNone : path; }

}  // namespace

std::vector<PathGroup> PathsInUse(const Game& g) {
  std::vector<PathGroup> groups = {
      {"Ravelton location:", {OrNone(g.roll.AppPath)}},
      {"Game File:", {OrNone(g.gamefile.GameFilePath)}},
      {"Events Log File:", {OrNone(g.roll.EventsLogPath)}},
      {"Dice Roll File:", {OrNone(g.diceFile.DiceFilePath)}},
      {"Probability File:", {OrNone(g.probability.ProbFilePath)}},
      {"Auto-Bet Files:", {}},
      {"Sessions Log Files:", {}},
  };
  PathGroup& scripts = groups[groups.size() - 2];
  PathGroup& logs = groups.back();
  for (std::size_t p = 1; p <= 8; ++p) {
    const std::string& name = g.PlayerName[p];
    if (name.empty()) continue;
    scripts.lines.push_back(name + ": " + OrNone(UndoubleAmpersands(g.scriptSource.ScriptFile[p])));
    logs.lines.push_back(name + ": " + OrNone(g.roll.SessionLogPath[p]));
  }
  for (PathGroup* group : {&scripts, &logs})
    if (group->lines.empty()) group->lines.push_back(kNone);
  return groups;
}
