// The script store's files: loading, pasting, saving and emptying scripts.
//
// A present-day .bet file is plain text, one script line a text line, read
// back unchanged. A file whose first bytes are one of the three older
// headers is read as 256-byte records and translated (script/translate.h).
// What must stay true:
// - On any failure the script in memory is as it was: everything is built
//   aside and put in place only when the whole file was read.
// - A file may be short, corrupt or hostile: reading never indexes out of
//   bounds; a trailing partial record reads as if padded with NULs.
// - Saving writes lines 1 to the end, each ended by CR LF, to a temporary
//   file beside the target and renames it into place, so an interrupted
//   save never leaves a half-written script under the script's name.
// - Failures are reported the guarded way: a description, ", Error #", the
//   number, " occurred, at: " and the place go to scriptSource.ErrorText;
//   a file longer than kScriptFileLimit gets its own message there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "script/translate.h"

struct ScriptSource;

// The longest script file read: far past any script a person writes, and
// short of what a damaged or hostile file could make the program hold.
inline constexpr std::size_t kScriptFileLimit = std::size_t{16} << 20;
inline constexpr std::string_view kScriptFileLimitText = "16 MB";

struct Game;

// Loads the file into slot p, or with PastingScript inserts it at the
// editor's caret; true when the file existed and was read.
bool OpenAutoBets(Game& game, int p, const std::string& path);
// Writes ScriptLines(p) to ScriptFile(p) with CR LF line ends; true on success.
bool SaveAutoBets(Game& game, int p);
// Empties the script of slot p and resets its file, flags and positions.
void ClearScript(Game& game, int p);
// Copies the editor's lines, indents and marks and its six positions to EdPlayer.
void StoreEdLines(Game& game);
// The editor's lines, indents and marks from slot p; an empty script shows
// one empty line.
void RefreshEditor(ScriptSource& ss, int p);

// The result of reading a script file's bytes.
struct ScriptFileContent {
  bool legacy = false;             // one of the older record headers
  std::vector<std::string> lines;  // as the script would load: line 1 at index 0
};
// Reads a script file's bytes as OpenAutoBets does: plain text unchanged,
// the record formats translated.
ScriptFileContent ReadScriptBytes(std::string_view bytes);
// Splits plain text at CR LF, LF or CR; a final line without an end counts.
std::vector<std::string> SplitTextLines(std::string_view bytes);
// The script records (header excluded) of a record file.
std::vector<LegacyRecord> ReadLegacyRecords(std::string_view bytes);
// Whether the bytes start with one of the older record headers.
bool HasLegacyHeader(std::string_view bytes);
// "&" doubled, so that a path can stand in a caption.
std::string DoubleAmpersands(std::string_view path);
// The path that a ScriptFile entry names ("&&" back to "&").
std::string UndoubleAmpersands(std::string_view text);
