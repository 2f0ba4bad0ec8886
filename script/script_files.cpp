#include "script/script_files.h"

#include <cstdio>
#include <fstream>
#include <system_error>

#include "core/file_io.h"
#include "core/game.h"

namespace fs = std::filesystem;

namespace {

// True when `path` lies strictly inside `folder` (both made absolute, with
// links and "." and ".." resolved as far as they exist).
bool Inside(const fs::path& folder, const fs::path& path) {
  auto f = folder.begin(), p = path.begin();
  for (; f != folder.end(); ++f, ++p) {
    if (f->empty()) continue;  // a trailing separator
    if (p == path.end() || *f != *p) return false;
  }
  return p != path.end();
}

}  // namespace

fs::path ScriptDataFolder(const Game& game) {
  const std::string& folder = game.roll.DataFolder;
  return folder.empty() ? fs::path(".") : fs::path(folder);
}

bool ScriptFilePath(const Game& game, int p, std::string_view name, fs::path& out) {
  std::error_code ec;
  const fs::path folder = fs::weakly_canonical(fs::absolute(ScriptDataFolder(game), ec), ec);
  const fs::path named(name);
  const fs::path full = named.is_absolute() ? named : folder / named;
  out = fs::weakly_canonical(full, ec);
  if (ec) out = full.lexically_normal();
  const bool anyFolder = p >= 1 && p <= 8 && game.scriptRun.AllowAnyFolder(p);
  return anyFolder || Inside(folder, out);
}

bool OpenOutputFile(const fs::path& path, bool clear, std::string& error) {
  std::error_code ec;
  if (clear && fs::exists(path, ec)) {
    // An empty file replaces the old one in one rename, never half-written.
    TempFileBeside empty(path.string());
    std::string why;
    if (!empty.Commit(why)) {
      error = "Path/File access error";
      return false;
    }
    return true;
  }
  std::ofstream out(path, std::ios::binary | std::ios::app);
  if (!out) {
    error = "Path/File access error";
    return false;
  }
  return true;
}

bool AppendOutputFile(const fs::path& path, std::string_view text, std::string& error) {
  // Appending leaves what the file held intact up to the new text, so the
  // file is written in place rather than through a temporary copy.
  std::ofstream out(path, std::ios::binary | std::ios::app);
  if (!out) {
    error = "Path/File access error";
    return false;
  }
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) {
    error = "Path/File access error";
    return false;
  }
  return true;
}
