// Hot-Keys: Ctrl and a letter bound to a script file. Pressing one on the
// table loads the file into slot 0, compiles it and runs it once for the
// player who is current at the table, without touching any player's own
// script. The table lives in scriptSource.HotKeyTable and in the file
// HotKeys.dta of the data folder.
//
// HotKeys.dta is a file of 256-byte records, each holding 201 bytes of
// fields: the key (1 byte), a first text (100) and a second text (100),
// ANSI padded with blanks. Record 1 is the header: a blank key,
// "Ravelton Hot-Key File" and the number of Hot-Keys in decimal digits;
// records 2 on are the rows: key, script file, description.
//
// What must stay true:
// - Reading never trusts the file: a short, corrupt or hostile file is
//   refused with an error that names it, the table is left empty, and the
//   count is checked against the file's size before anything is made.
// - Writing goes through a temporary file and a rename.
// - A Hot-Key leaves every player's script, file and changed flag as they
//   were, and ScriptsOK cleared so the next roll compiles the players'
//   scripts anew.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "script/hot_key_state.h"

struct Game;

// Bytes of one record and of its fields.
inline constexpr std::size_t kHotKeyRecordSize = 256;
inline constexpr std::size_t kHotKeyTextSize = 100;
inline constexpr std::size_t kHotKeyFieldsSize = 1 + 2 * kHotKeyTextSize;
inline constexpr std::string_view kHotKeyFileName = "HotKeys.dta";
inline constexpr std::string_view kHotKeyHeader = "Ravelton Hot-Key File";
// The longest file read: room for thousands of rows where a table has one a
// letter, and short of what a damaged file could make the program hold.
inline constexpr std::size_t kHotKeyFileLimit = 4096 * kHotKeyRecordSize;

// The file's bytes for a table.
std::string HotKeyFileBytes(const std::vector<HotKeyRow>& rows);
// The table of a file's bytes; false with `error` (without the file's name)
// when the bytes are not a Hot-Key file.
bool ReadHotKeyFileBytes(std::string_view bytes, std::vector<HotKeyRow>& rows, std::string& error);

// The path of HotKeys.dta in the data folder.
std::string HotKeysPath(const Game& game);
// LoadHotKeys at start-up: the table from the file, empty without one; a
// file that can't be read is told in a message naming it (false).
bool LoadHotKeys(Game& game);
// Writes the whole table; false after a message naming the file.
bool SaveHotKeys(Game& game);

// Why a row can't be added, or "" when it can: the file must be named and
// the texts must fit their fields.
std::string HotKeyRowProblem(const HotKeyRow& row);

// A row as the clipboard holds it: "Ctrl " + key, three blanks, the file,
// three blanks, the description.
std::string HotKeyClipboardText(const HotKeyRow& row);
// The rows of clipboard text, one a line; lines that are not rows are skipped.
std::vector<HotKeyRow> ParseHotKeyClipboard(std::string_view text);

// Ctrl + key pressed on the table: the first row with that key is loaded,
// compiled and run once. False when no row has the key (it goes on to the
// table's other key commands) or a Hot-Key is already running.
bool FireHotKey(Game& game, char key);
