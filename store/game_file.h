// The game file: the whole game in play saved to a file of fixed 256-byte
// records and opened again (the record layout is in store/game_file_records.h).
//
// SaveGame writes the file through a temporary and a rename, so a crash or a
// full disk leaves the old file or the new one, never a cut one. OpenGame
// reads into a separate game, checks it whole, follows the references to
// the dice roll file, the probability file, the events log, the scripts and
// the sessions logs (each with its message when missing or changed), and
// only then puts it in place of the game in play.
//
// What must stay true:
// - A file that does not open leaves the game in play exactly as it was,
//   with the message of its kind shown.
// - The file's length is (415 + 458 x players + ceil(check images / 25)) x 256.
// - default.rvg keeps no title, no GameFilePath and no window layout.
// - Opening and saving again without a change gives the same bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/atomic_file.h"

struct Game;

// The bytes of the game as a game file; what SaveGame writes. Holds the
// statistics totals first (HoldStatTotals), so that the file opens again.
std::string GameFileBytes(Game& game);
// Saves the game to path; sets the title and GameFilePath and clears
// SessionDirty. False, with a message naming the file, when it could not be written.
bool SaveGame(Game& game, const std::string& path, const WriteProbe& probe = {});
// Opens a game file in place of the game in play; false with the message shown.
bool OpenGame(Game& game, const std::string& path);
// The same for a file's bytes already read (path names it in the messages).
bool OpenGameBytes(Game& game, const std::string& path, std::string_view bytes);
// The length of a game file with that many players and check images.
std::size_t GameFileLength(int players, int checkImages);
// Whether path names the data folder's default game (by file name, case ignored).
bool IsDefaultGameFile(std::string_view path);
