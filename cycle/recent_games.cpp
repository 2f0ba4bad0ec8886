#include "cycle/recent_games.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/atomic_file.h"
#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "cycle/game_commands.h"
#include "script/files.h"
#include "store/game_file.h"

namespace {

// Enough for the kept lines at their longest, with their line ends.
constexpr std::size_t kListReadLimit = kRecentGamesKept * (kRecentGamePathLimit + 2);

void WriteList(const Game& g, const std::vector<std::string>& paths) {
  std::string bytes;
  for (const std::string& p : paths) bytes += p + "\n";
  std::string error;
  if (!MakeFolder(g.roll.DataFolder, error)) return;
  WriteFileAtomically(RecentGamesPath(g), bytes, error);
}

}  // namespace

std::string RecentGamesPath(const Game& g) { return g.roll.DataFolder + "Recent Games.txt"; }

std::vector<std::string> ReadRecentGames(const Game& g) {
  std::vector<std::string> paths;
  std::string bytes;
  // A list past the limit is read as far as the limit.
  if (ReadFileStart(RecentGamesPath(g), kListReadLimit, bytes) != WholeFileRead::Read) return paths;
  std::size_t start = 0;
  while (start < bytes.size() && paths.size() < kRecentGamesKept) {
    std::size_t end = bytes.find('\n', start);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const bool usable = !line.empty() && line.size() <= kRecentGamePathLimit &&
                        line.find('\0') == std::string::npos &&
                        std::find(paths.begin(), paths.end(), line) == paths.end();
    if (usable) paths.push_back(std::move(line));
  }
  return paths;
}

void NoteRecentGame(const Game& g, const std::string& named) {
  // A name relative to the folder the program started in is kept whole, so
  // that it still finds the game from anywhere.
  std::error_code ec;
  const std::filesystem::path whole = std::filesystem::absolute(named, ec).lexically_normal();
  const std::string path = ec ? named : whole.string();
  if (path.empty() || path.size() > kRecentGamePathLimit || path.find('\n') != std::string::npos ||
      IsDefaultGameFile(path))
    return;
  std::vector<std::string> paths = ReadRecentGames(g);
  if (!paths.empty() && paths.front() == path) return;  // already first: nothing to write
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  if (paths.size() > kRecentGamesKept) paths.resize(kRecentGamesKept);
  WriteList(g, paths);
}

void ForgetRecentGame(const Game& g, const std::string& path) {
  std::vector<std::string> paths = ReadRecentGames(g);
  if (std::erase(paths, path) != 0) WriteList(g, paths);
}

bool OpenRecentGameCommand(Game& g, const std::string& path) {
  if (!PromptUnsavedWork(g)) return false;
  // OpenGame tells a missing file ("Game File Not Found") as the chooser's
  // Open would; the entry then goes.
  if (OpenGame(g, path)) {
    NoteRecentGame(g, path);
    return true;
  }
  if (!FileExists(path)) ForgetRecentGame(g, path);
  return false;
}

std::string RecentGameCaption(std::size_t index, const std::string& path) {
  const std::string_view name = FileNameOf(path);
  std::string folder = path.substr(0, path.size() - name.size());
  if (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  const std::string shown = std::string(name) + (folder.empty() ? "" : "  (" + folder + ")");
  // A menu takes '&' as the mark of a shortcut letter: doubled, it shows.
  return "&" + std::to_string(index + 1) + " " + DoubleAmpersands(shown);
}
