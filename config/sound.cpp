// The sound families: listing, picking and the guarded plays.
#include "config/sound.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/game.h"
#include "core/platform.h"

namespace {

namespace fs = std::filesystem;

// A stick-call file name is the set's name, two digits and ".stk".
constexpr std::size_t kStickSuffixLength = 6;
constexpr const char* kPreferredDiceSound = "soft.dce";
// Start-up choices of the win and check families: the second win sound and
// the fourth check sound, when the folder has that many.
constexpr Long kStartWinSound = 2;
constexpr Long kStartCheckSound = 4;

// The regular files of `folder`, sorted by name; empty when it can't be read.
std::vector<std::string> FileNames(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code ec;
  fs::directory_iterator it(folder.empty() ? fs::path(".") : fs::path(folder), ec);
  for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
    std::error_code typeError;
    if (it->is_regular_file(typeError)) names.push_back(it->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool HasExtension(const std::string& name, std::string_view extension) {
  return name.size() >= extension.size() &&
         name.compare(name.size() - extension.size(), extension.size(), extension) == 0;
}

std::vector<std::string> Family(const std::vector<std::string>& names, std::string_view extension) {
  std::vector<std::string> family;
  for (const std::string& n : names)
    if (HasExtension(n, extension)) family.push_back(n);
  return family;
}

Long StartSelection(std::size_t count, Long preferred) {
  if (count == 0) return 0;
  return count >= static_cast<std::size_t>(preferred) ? preferred : 1;
}

// Cuts what plays, then plays `path` with `flags`; nothing for an empty path.
void Play(Game& g, const std::string& path, int flags) {
  if (path.empty()) return;
  g.platform->PlaySound("", kSoundStop);
  g.platform->PlaySound(path, flags);
}

}  // namespace

void ListSoundFiles(Game& g) {
  const std::vector<std::string> names = FileNames(g.roll.AppPath);
  SoundState& s = g.sound;
  if (g.platform) s.PickSeed = g.platform->TimeGetTime() | 1u;
  s.StickCallSets.clear();
  for (const std::string& n : Family(names, ".stk")) {
    const std::string set = n.size() >= kStickSuffixLength ? n.substr(0, n.size() - kStickSuffixLength)
                                                           : std::string();
    if (std::find(s.StickCallSets.begin(), s.StickCallSets.end(), set) == s.StickCallSets.end())
      s.StickCallSets.push_back(set);
  }
  g.rules.StickCallSet = s.StickCallSets.empty() ? 0 : 1;
  LoadStickCallSet(g);

  s.DiceSoundSets = Family(names, ".dce");
  const auto soft = std::find(s.DiceSoundSets.begin(), s.DiceSoundSets.end(), kPreferredDiceSound);
  g.rules.DiceSoundSet = soft != s.DiceSoundSets.end()
                             ? static_cast<Long>(soft - s.DiceSoundSets.begin()) + 1
                             : StartSelection(s.DiceSoundSets.size(), 1);
  s.WinSoundSets = Family(names, ".win");
  g.rules.WinSoundSet = StartSelection(s.WinSoundSets.size(), kStartWinSound);
  s.ChipSoundSets = Family(names, ".chp");
  g.rules.ChipSoundSet = StartSelection(s.ChipSoundSets.size(), kStartCheckSound);
}

void LoadStickCallSet(Game& g) {
  auto& files = g.roll.StickCallFile;
  std::fill(files.begin(), files.end(), std::string());
  const Long set = g.rules.StickCallSet;
  const auto& sets = g.sound.StickCallSets;
  if (set < 1 || set > static_cast<Long>(sets.size())) return;
  const std::string& name = sets[static_cast<std::size_t>(set - 1)];
  for (int n = 1; n <= kStickCallCount; ++n) {
    files[static_cast<std::size_t>(n)] =
        g.roll.AppPath + name + static_cast<char>('0' + n / 10) + static_cast<char>('0' + n % 10) + ".stk";
  }
}

std::string PickSoundFile(const std::string& folder, const std::vector<std::string>& list,
                          Long selection, double uniform) {
  const auto n = static_cast<Long>(list.size());
  if (selection <= 0 || n == 0) return {};
  Long index = selection;
  if (selection > n) index = std::clamp(static_cast<Long>(uniform * static_cast<double>(n)) + 1, Long{1}, n);
  return folder + list[static_cast<std::size_t>(index - 1)];
}

double NextSoundUniform(Game& g) {
  // A 32-bit xorshift: enough to vary a sound, and apart from the dice.
  std::uint32_t x = g.sound.PickSeed == 0 ? 1u : g.sound.PickSeed;
  x ^= x << 13;
  x ^= x >> 17;
  x ^= x << 5;
  g.sound.PickSeed = x;
  return static_cast<double>(x) / 4294967296.0;
}

bool SoundsOn(const Game& g) { return !g.HyperDrive && !g.rules.SoundMuted && g.platform != nullptr; }

void PlayStickCall(Game& g, int n) {
  if (!SoundsOn(g) || g.rules.StickCallSet <= 0) return;
  Play(g, g.roll.StickCallFile[static_cast<std::size_t>(n)], kSoundWait);
}

void PlayDiceSound(Game& g) {
  if (!SoundsOn(g) || g.rules.DiceSoundSet <= 0) return;
  Play(g, PickSoundFile(g.roll.AppPath, g.sound.DiceSoundSets, g.rules.DiceSoundSet, NextSoundUniform(g)),
       kSoundAsync);
}

void PlayWinSound(Game& g, bool wait) {
  if (!SoundsOn(g) || g.rules.WinSoundSet <= 0) return;
  Play(g, PickSoundFile(g.roll.AppPath, g.sound.WinSoundSets, g.rules.WinSoundSet, NextSoundUniform(g)),
       wait ? kSoundWait : kSoundAsync);
}

void PlayCheckSound(Game& g) {
  if (!SoundsOn(g) || g.rules.ChipSoundSet <= 0) return;
  Play(g, PickSoundFile(g.roll.AppPath, g.sound.ChipSoundSets, g.rules.ChipSoundSet, NextSoundUniform(g)),
       kSoundOverlay);
}
