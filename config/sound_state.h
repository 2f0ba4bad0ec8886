// The sound families found in the program's folder: the data. The procedures
// that list, pick and play them are in config/sound.h.
//
// Each list holds the entries of one family in the order of the folder's
// file names (entry 1 first); its count is the list's size. A selection
// (StickCallSet, DiceSoundSet, WinSoundSet, ChipSoundSet in TableSettings) is
// 0 for none, 1..n for that entry, above n for a file at random at each use.
// What must stay true:
// - Entries are bare file names (a stick-call entry is the name its 18
//   files share); the folder is RollState::AppPath.
// - Sounds are presentation: picking a random one never draws from the
//   dice's generators, so a seeded game rolls the same with or without sound.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct SoundState {
  std::vector<std::string> StickCallSets;  // "*.stk": one entry per voice
  std::vector<std::string> DiceSoundSets;  // "*.dce"
  std::vector<std::string> WinSoundSets;   // "*.win"
  std::vector<std::string> ChipSoundSets;  // "*.chp"
  // A small generator of its own for "< random >" selections.
  std::uint32_t PickSeed = 1;

  friend bool operator==(const SoundState&, const SoundState&) = default;
};
