// The sounds of the table: the families of wave files beside the program
// (stick calls, dice, wins, checks), the choice of a file from a family, and
// the guarded calls that play them through the platform.
//
// The program never reads a sound file: it lists the files by name at
// start-up, shows them on the Sound tab and hands a path to
// Platform::PlaySound. Every play is skipped in Hyper-Drive, with SoundMuted
// and with selection 0, so a run of millions of rolls is silent and a game
// plays the same with sound on or off.
// What must stay true:
// - A missing or unreadable folder gives empty lists and selections 0, and
//   never an error: the table simply stays silent.
// - A selection beyond its list (a game file from another machine) plays a
//   random entry of the list, or nothing when the list is empty.
#pragma once

#include <string>
#include <vector>

#include "core/frames.h"

struct Game;

// The stick calls of a set.
enum StickCall : int {
  kCallPass = 13,          // the shooter made the point
  kCallMiss = 14,          // seven out
  kCallMissAtBar = 15,     // a miss on the barred number
  kCallPair = 16,          // follows the total when the dice are a pair
  kCallComeOut = 17,       // before a come-out roll
  kCallFirstComeOut = 18,  // before the first come-out of a session
  kStickCallCount = 18,
};

// Flags of Platform::PlaySound.
inline constexpr int kSoundStop = 0;           // with no file: cut what plays
inline constexpr int kSoundWait = 2;           // no default sound, wait for the end
inline constexpr int kSoundAsync = 3;          // no default sound, return at once
inline constexpr int kSoundLoop = 11;          // asynchronous, looping
inline constexpr int kSoundOverlay = 131091;   // asynchronous, leaves a playing sound alone

// The file of the big-win loop, part of the win family when it is there.
inline constexpr const char* kBigWinSoundFile = "Chips.win";

// Lists the four families found in AppPath (sorted by name) and sets each
// selection to its start-up choice; loads the first stick-call set.
void ListSoundFiles(Game& game);

// Fills StickCallFile(1..18) for StickCallSet, or empties them for none.
void LoadStickCallSet(Game& game);

// The path to play for `selection` of `list`: the entry itself, or for a
// selection beyond the list the entry that `uniform` (in [0, 1)) falls on.
// Empty for selection 0 or an empty list.
std::string PickSoundFile(const std::string& folder, const std::vector<std::string>& list,
                          Long selection, double uniform);

// The next value in [0, 1) of the sound's own generator.
double NextSoundUniform(Game& game);

// Whether the table may sound now: not in Hyper-Drive, not muted, a platform.
bool SoundsOn(const Game& game);

// Stick call n of the chosen set, waited for; silent without a set.
void PlayStickCall(Game& game, int n);

// The dice sound, as the dice leave the shooter's hand.
void PlayDiceSound(Game& game);

// The win sound of a winning bet; `wait` holds the game until it ends.
void PlayWinSound(Game& game, bool wait);

// The checks sound of a changed bet, over whatever else plays.
void PlayCheckSound(Game& game);
