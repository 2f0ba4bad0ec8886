#include "cycle/sample_games.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/data_folder.h"
#include "core/game.h"
#include "cycle/game_commands.h"
#include "script/files.h"
#include "store/game_file.h"

namespace {

constexpr const char* kSampleFolder = "examples";
constexpr const char* kGameExtension = ".rvg";

}  // namespace

std::vector<std::string> SampleGames(const Game& g) {
  namespace fs = std::filesystem;
  std::vector<std::string> games;
  std::error_code ec;
  for (fs::directory_iterator it(fs::path(g.roll.AppPath) / kSampleFolder, ec), end;
       !ec && it != end; it.increment(ec))
    if (it->path().extension() == kGameExtension && it->is_regular_file(ec))
      games.push_back(it->path().string());
  std::sort(games.begin(), games.end());
  return games;
}

bool OpenSampleGameCommand(Game& g, const std::string& path) {
  if (!PromptUnsavedWork(g) || !OpenGame(g, path)) return false;
  g.gamefile.GameFilePath.clear();
  g.gamefile.WindowTitle = "Ravelton";
  return true;
}

std::string SampleGameCaption(const std::string& path) {
  std::string name(FileNameOf(path));
  if (name.size() > 4 && name.compare(name.size() - 4, 4, kGameExtension) == 0)
    name.resize(name.size() - 4);
  if (!name.empty() && name[0] >= 'a' && name[0] <= 'z')
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
  std::replace(name.begin(), name.end(), '_', ' ');
  return DoubleAmpersands(name);  // a menu reads '&' as a shortcut mark: doubled, it shows
}
