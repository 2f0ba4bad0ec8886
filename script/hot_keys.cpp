#include "script/hot_keys.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "core/atomic_file.h"
#include "core/data_folder.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/text.h"
#include "script/activation.h"
#include "script/compile_script.h"
#include "script/files.h"
#include "script/interpreter.h"

namespace {

constexpr std::string_view kClipboardPrefix = "Ctrl ";
constexpr std::string_view kClipboardGap = "   ";
// Digits the header's count may have: more can't be a table anyone made.
constexpr std::size_t kCountDigitsMax = 9;

// A text field: the text padded with blanks to its width.
void PutText(std::string& record, std::size_t at, std::string_view text) {
  record.replace(at, std::min(text.size(), kHotKeyTextSize), text.substr(0, kHotKeyTextSize));
}

std::string Record(char key, std::string_view first, std::string_view second) {
  std::string record(kHotKeyRecordSize, '\0');
  record.replace(0, kHotKeyFieldsSize, kHotKeyFieldsSize, ' ');
  record[0] = key;
  PutText(record, 1, first);
  PutText(record, 1 + kHotKeyTextSize, second);
  return record;
}

// A field as read: blanks and NULs cut from its right.
std::string GetText(std::string_view bytes, std::size_t at) {
  std::string text(bytes.substr(at, kHotKeyTextSize));
  const auto end = text.find_last_not_of(std::string_view(" \0", 2));
  text.resize(end == std::string::npos ? 0 : end + 1);
  return text;
}

bool IsKey(char c) { return c >= 'A' && c <= 'Z'; }

constexpr std::string_view kNotFound =
    "The Auto-Bet file defined for that Hot-Key was not found in the specified location.\r\r"
    "Please check the path and file name on the Hot-Key screen.";

}  // namespace

std::string HotKeyFileBytes(const std::vector<HotKeyRow>& rows) {
  std::string bytes = Record(' ', kHotKeyHeader, std::to_string(rows.size()));
  for (const HotKeyRow& row : rows) bytes += Record(row.key, row.file, row.description);
  return bytes;
}

bool ReadHotKeyFileBytes(std::string_view bytes, std::vector<HotKeyRow>& rows, std::string& error) {
  rows.clear();
  if (bytes.size() < kHotKeyFieldsSize) {
    error = "the file is too short to hold its header";
    return false;
  }
  const std::string count = std::string(Trim(GetText(bytes, 1 + kHotKeyTextSize)));
  std::size_t n = 0;
  const auto [end, ec] = std::from_chars(count.data(), count.data() + count.size(), n);
  if (count.empty() || count.size() > kCountDigitsMax || ec != std::errc() ||
      end != count.data() + count.size()) {
    error = "its header holds no count of Hot-Keys";
    return false;
  }
  // Every row's fields must lie inside the file.
  if ((bytes.size() - kHotKeyFieldsSize) / kHotKeyRecordSize < n) {
    error = "it is shorter than its " + count + " Hot-Keys";
    return false;
  }
  std::vector<HotKeyRow> read;
  read.reserve(n);
  for (std::size_t i = 1; i <= n; ++i) {
    const std::string_view record = bytes.substr(i * kHotKeyRecordSize, kHotKeyFieldsSize);
    HotKeyRow row;
    row.key = record[0];
    if (!IsKey(row.key)) {
      error = "Hot-Key " + std::to_string(i) + " has no letter for its key";
      return false;
    }
    row.file = GetText(record, 1);
    row.description = GetText(record, 1 + kHotKeyTextSize);
    read.push_back(std::move(row));
  }
  rows = std::move(read);
  return true;
}

std::string HotKeysPath(const Game& game) {
  return WithTrailingSlash(game.roll.DataFolder.empty() ? DataFolderPath() : game.roll.DataFolder) +
         std::string(kHotKeyFileName);
}

bool LoadHotKeys(Game& game) {
  auto& table = game.scriptSource.HotKeyTable;
  table.clear();
  const std::string path = HotKeysPath(game);
  std::error_code ec;
  if (!std::filesystem::exists(path, ec)) return true;
  std::string error;
  std::string bytes;
  switch (ReadWholeFileUpTo(path, kHotKeyFileLimit, bytes)) {
    case WholeFileRead::Read:
      if (ReadHotKeyFileBytes(bytes, table, error)) return true;
      break;
    case WholeFileRead::TooLong:
      error = "it is larger than any Hot-Key file can be";
      break;
    default:  // a folder, or a file that cannot be read
      error = "it can't be opened";
      break;
  }
  ShowNotice(game,
             path + "\r\ris not a Hot-Key file that can be read: " + error + ".\r\r" +
                 "No Hot-Keys are defined until the table is entered again.",
             "Hot-Key", kHelpHotKeys, kMsgOk);
  return false;
}

bool SaveHotKeys(Game& game) {
  const std::string path = HotKeysPath(game);
  std::string error;
  const std::string folder = path.substr(0, path.size() - kHotKeyFileName.size());
  if (MakeFolder(folder, error) &&
      WriteFileAtomically(path, HotKeyFileBytes(game.scriptSource.HotKeyTable), error))
    return true;
  ShowNotice(game, "The Hot-Keys could not be written to\r\r" + path + "\r\r" + error, "Hot-Key",
             kHelpHotKeys, kMsgOk);
  return false;
}

std::string HotKeyRowProblem(const HotKeyRow& row) {
  if (Trim(row.file).empty()) return "Please enter an Auto-Bet filename to define this Hot-Key.";
  if (!IsKey(row.key)) return "A Hot-Key is Ctrl and a letter from A to Z.";
  if (row.file.size() > kHotKeyTextSize)
    return "The Auto-Bet file's path is longer than the 100 characters a Hot-Key can hold.";
  if (row.description.size() > kHotKeyTextSize)
    return "The short description is longer than the 100 characters a Hot-Key can hold.";
  return {};
}

std::string HotKeyClipboardText(const HotKeyRow& row) {
  return std::string(kClipboardPrefix) + row.key + std::string(kClipboardGap) + row.file +
         std::string(kClipboardGap) + row.description;
}

std::vector<HotKeyRow> ParseHotKeyClipboard(std::string_view text) {
  std::vector<HotKeyRow> rows;
  for (const std::string& line : SplitTextLines(text)) {
    const std::string_view l = line;
    const std::size_t head = kClipboardPrefix.size() + 1;
    if (!l.starts_with(kClipboardPrefix) || l.size() < head + kClipboardGap.size() ||
        l.substr(head, kClipboardGap.size()) != kClipboardGap)
      continue;
    HotKeyRow row;
    row.key = l[kClipboardPrefix.size()];
    const std::string_view rest = l.substr(head + kClipboardGap.size());
    const std::size_t gap = rest.find(kClipboardGap);
    row.file = std::string(rest.substr(0, gap));
    if (gap != std::string_view::npos)
      row.description = std::string(rest.substr(gap + kClipboardGap.size()));
    if (HotKeyRowProblem(row).empty()) rows.push_back(std::move(row));
  }
  return rows;
}

bool FireHotKey(Game& game, char key) {
  ScriptSource& ss = game.scriptSource;
  if (ss.HotKeyRunning || game.RollBusy || game.scriptRun.ScriptRunning) return false;
  const auto row = std::find_if(ss.HotKeyTable.begin(), ss.HotKeyTable.end(),
                                [key](const HotKeyRow& r) { return r.key == key; });
  if (row == ss.HotKeyTable.end()) return false;
  ss.HotKeyRunning = true;
  // A name without a folder is taken in the data folder.
  std::string file = row->file;
  if (!file.empty() && std::filesystem::path(file).is_relative())
    file = WithTrailingSlash(game.roll.DataFolder) + file;
  auto finish = [&] {
    game.roll.ScriptsOK = false;
    ss.HotKeyRunning = false;
  };
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) {
    ShowNotice(game, kNotFound, "Hot-Key", kHelpHotKeys, kMsgOk);
    finish();
    return true;
  }
  if (ss.EditorOpen) StoreEdLines(game);
  if (!OpenAutoBets(game, 0, file)) {
    ShowNotice(game, kNotFound, "Hot-Key", kHelpHotKeys, kMsgOk);
    finish();
    return true;
  }
  if (CompileScript(game, 0)) {
    ShowNotice(game,
               "The Auto-Bet script for this hot-key contains a syntax error which must be "
               "corrected before you can use it.",
               "Auto-Bet Script Error", 0, kMsgOk | kMsgPicStop);
    finish();
    return true;
  }
  JoinCompiledScriptAlone(game);
  ScriptRunState& r = game.scriptRun;
  const int editing = ss.EdPlayer;
  ss.EdPlayer = 0;
  r.FirstCycle = true;
  RunAutoBets(game);
  r.FirstCycle = false;
  ss.EdPlayer = editing;
  finish();
  return true;
}
