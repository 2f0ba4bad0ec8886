// Loading, pasting, saving and emptying Auto-Bet scripts.
#include "script/files.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>

#include "core/file_io.h"
#include "core/game.h"

namespace {

constexpr std::size_t kRecordSize = 256;
constexpr std::size_t kTextSize = 128;
constexpr std::string_view kHeaders[] = {
    "Quillmarsh AutoBets, Data Format 5.0",
    "Ravelton AutoBets, Data Format 3.9",
    "Ravelton AutoBets, Data Format 5.0",
};

void ReportError(Game& game, std::string_view description, int number, std::string_view place) {
  game.scriptSource.ErrorText = std::string(description) + ", Error #" + std::to_string(number) +
                                " occurred, at: " + std::string(place);
}

void ResetPositions(ScriptSource& ss, int p) {
  ss.ScriptTopLine[p] = 1;
  ss.ScriptLeftColumn[p] = 0;
  ss.ScriptSelStartColumn[p] = 0;
  ss.ScriptSelEndColumn[p] = 0;
  ss.ScriptSelStartLine[p] = 1;
  ss.ScriptSelEndLine[p] = 1;
}

std::string FileNameOnly(std::string_view path) {
  std::size_t slash = path.find_last_of("/\\");
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

void ResetEditorView(ScriptSource& ss) {
  ss.EdTopLine = 1;
  ss.EdLeftColumn = 0;
  ss.EdSelStartColumn = ss.EdSelEndColumn = 0;
  ss.EdSelStartLine = ss.EdSelEndLine = 1;
  ss.EdCaretLine = 1;
  ss.EdCaretColumn = 0;
}

// Lines 0 to EdLineCount of the editor, with their indents and marks, to slot p.
void CopyEditorToSlot(ScriptSource& ss, int p) {
  if (ss.EdLines.empty()) ss.EdLines.emplace_back();
  const auto last = static_cast<std::int32_t>(ss.EdLines.size()) - 1;
  const auto count = static_cast<std::size_t>(std::clamp<std::int32_t>(ss.EdLineCount, 0, last));
  ss.ScriptLines[p].assign(ss.EdLines.begin(),
                           ss.EdLines.begin() + static_cast<std::ptrdiff_t>(count + 1));
  ss.ScriptIndent[p] = ss.EdIndent;
  ss.ScriptIndent[p].resize(count + 1, 0);
  ss.ScriptBandMark[p] = ss.EdBandMark;
  ss.ScriptBandMark[p].resize(count + 1, 0);
}

// Lines 1.. of `target` with `inserted` put in at the caret: the caret's line
// is split, its left part leads the first new line and its right part ends
// the last.
std::vector<std::string> PasteAtCaret(const std::vector<std::string>& target,
                                      std::vector<std::string> inserted, int caretLine,
                                      int caretColumn) {
  std::vector<std::string> out = target;
  if (out.empty()) out.emplace_back();
  if (out.size() == 1) out.emplace_back();  // an empty script shows one empty line
  if (inserted.empty()) return target;
  std::size_t line =
      static_cast<std::size_t>(std::clamp<int>(caretLine, 1, static_cast<int>(out.size() - 1)));
  const std::string& caret = out[line];
  std::size_t col =
      static_cast<std::size_t>(std::clamp<int>(caretColumn, 0, static_cast<int>(caret.size())));
  std::string left = caret.substr(0, col), right = caret.substr(col);
  inserted.front().insert(0, left);
  inserted.back() += right;
  out.erase(out.begin() + static_cast<std::ptrdiff_t>(line));
  out.insert(out.begin() + static_cast<std::ptrdiff_t>(line),
             std::make_move_iterator(inserted.begin()), std::make_move_iterator(inserted.end()));
  return out;
}

}  // namespace

void RefreshEditor(ScriptSource& ss, int p) {
  const auto& lines = ss.ScriptLines[p];
  if (lines.size() <= 1) {
    ss.EdLines.assign(2, std::string());
    ss.EdIndent.assign(2, 0);
    ss.EdBandMark.assign(2, 0);
    ss.EdLineCount = 1;
  } else {
    ss.EdLines = lines;
    ss.EdIndent = ss.ScriptIndent[p];
    ss.EdBandMark = ss.ScriptBandMark[p];
    ss.EdLineCount = static_cast<std::int32_t>(lines.size() - 1);
  }
}

bool HasLegacyHeader(std::string_view bytes) {
  return std::any_of(std::begin(kHeaders), std::end(kHeaders),
                     [&](std::string_view h) { return bytes.substr(0, h.size()) == h; });
}

std::vector<LegacyRecord> ReadLegacyRecords(std::string_view bytes) {
  std::vector<LegacyRecord> records;
  for (std::size_t at = kRecordSize; at < bytes.size(); at += kRecordSize) {
    std::string_view rec = bytes.substr(at, kRecordSize);
    LegacyRecord r;
    std::string_view text = rec.substr(0, kTextSize);
    r.startsWithNul = text.empty() || text[0] == '\0';
    r.text = std::string(text.substr(0, text.find('\0')));
    auto byteAt = [&](std::size_t i) {
      return i < rec.size() ? static_cast<unsigned char>(rec[i]) : 0u;
    };
    r.kind = static_cast<std::int16_t>(
        static_cast<std::uint16_t>(byteAt(kTextSize) | (byteAt(kTextSize + 1) << 8)));
    records.push_back(std::move(r));
  }
  return records;
}

std::vector<std::string> SplitTextLines(std::string_view bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != '\r' && bytes[i] != '\n') continue;
    lines.emplace_back(bytes.substr(start, i - start));
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    start = i + 1;
  }
  if (start < bytes.size()) lines.emplace_back(bytes.substr(start));
  return lines;
}

ScriptFileContent ReadScriptBytes(std::string_view bytes) {
  ScriptFileContent content;
  content.legacy = HasLegacyHeader(bytes);
  if (content.legacy)
    content.lines = TranslateLegacyScript(ReadLegacyRecords(bytes));
  else
    content.lines = SplitTextLines(bytes);
  return content;
}

std::string DoubleAmpersands(std::string_view path) {
  std::string out;
  for (char c : path) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}

std::string UndoubleAmpersands(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    out += text[i];
    if (text[i] == '&' && i + 1 < text.size() && text[i + 1] == '&') ++i;
  }
  return out;
}

bool OpenAutoBets(Game& game, int p, const std::string& path) {
  ScriptSource& ss = game.scriptSource;
  if (p < 0 || p >= kScriptSlots) return false;
  try {
    std::error_code ec;
    if (path.empty() || !std::filesystem::exists(path, ec)) return false;
    std::string bytes;
    switch (ReadWholeFileUpTo(path, kScriptFileLimit, bytes)) {
      case WholeFileRead::Read:
        break;
      case WholeFileRead::TooLong:
        ss.ErrorText = path + "\r\ris larger than " + std::string(kScriptFileLimitText) +
                       ", too large to be an Auto-Bet file.";
        return false;
      default:  // a folder, or a file that cannot be read
        ReportError(game, "Path/File access error", 75, "OpenAutoBets");
        return false;
    }
    std::vector<std::string> loaded = ReadScriptBytes(bytes).lines;

    std::vector<std::string> lines;
    const bool pasting = ss.PastingScript;
    if (pasting) {
      // The editor's lines are the newest text of its player's script.
      std::vector<std::string> target = ss.ScriptLines[p];
      if (p == ss.EdPlayer && !ss.EdLines.empty()) {
        const auto last = static_cast<std::int32_t>(ss.EdLines.size()) - 1;
        const auto count =
            static_cast<std::size_t>(std::clamp<std::int32_t>(ss.EdLineCount, 0, last));
        target.assign(ss.EdLines.begin(),
                      ss.EdLines.begin() + static_cast<std::ptrdiff_t>(count + 1));
      }
      lines = PasteAtCaret(target, std::move(loaded), ss.EdCaretLine, ss.EdCaretColumn);
    } else {
      lines.reserve(loaded.size() + 1);
      lines.emplace_back();
      std::move(loaded.begin(), loaded.end(), std::back_inserter(lines));
    }
    std::vector<std::int32_t> zeros(lines.size(), 0);

    // Everything is read: put it in place.
    if (!pasting && !ss.HotKeyRunning) ss.ScriptFile[p] = DoubleAmpersands(path);
    ss.ScriptLines[p] = std::move(lines);
    ss.ScriptIndent[p] = zeros;
    ss.ScriptBandMark[p] = std::move(zeros);
    if (p > 0) {
      ResetPositions(ss, p);
      ss.ScriptOutputFile[p].clear();
      ss.ScriptDirty[p] = false;
      if (p == ss.EdPlayer) {
        RefreshEditor(ss, p);
        if (ss.EditorOpen) {
          ResetEditorView(ss);
          ss.EditorCaption = ss.ScriptFile[p].empty()
                                 ? std::string("Auto-Bet")
                                 : "Auto-Bet (" + FileNameOnly(ss.ScriptFile[p]) + ")";
        }
      }
    }
    return true;
  } catch (const std::bad_alloc&) {
    ReportError(game, "Out of memory", 7, "OpenAutoBets");
  } catch (const std::exception& e) {
    ReportError(game, e.what(), 5, "OpenAutoBets");
  }
  return false;
}

bool SaveAutoBets(Game& game, int p) {
  ScriptSource& ss = game.scriptSource;
  if (p < 0 || p >= kScriptSlots) return false;
  if (p == ss.EdPlayer) CopyEditorToSlot(ss, p);
  const std::string path = UndoubleAmpersands(ss.ScriptFile[p]);
  if (path.empty()) {
    ReportError(game, "Bad file name or number", 52, "SaveAutoBets");
    return false;
  }
  const std::string temp = path + ".~sav";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    const auto& lines = ss.ScriptLines[p];
    for (std::size_t i = 1; out && i < lines.size(); ++i) {
      out.write(lines[i].data(), static_cast<std::streamsize>(lines[i].size()));
      out.write("\r\n", 2);
    }
    out.flush();
    if (!out) {
      out.close();
      std::remove(temp.c_str());
      ReportError(game, "Path/File access error", 75, "SaveAutoBets");
      return false;
    }
  }
  std::error_code ec;
  std::filesystem::rename(temp, path, ec);
  if (ec) {
    std::remove(temp.c_str());
    ReportError(game, "Path/File access error", 75, "SaveAutoBets");
    return false;
  }
  return true;
}

void ClearScript(Game& game, int p) {
  ScriptSource& ss = game.scriptSource;
  if (p < 0 || p >= kScriptSlots) return;
  ss.ScriptLines[p].assign(1, std::string());
  ss.ScriptIndent[p].assign(1, 0);
  ss.ScriptBandMark[p].assign(1, 0);
  ss.ScriptFile[p].clear();
  ss.ScriptOutputFile[p].clear();
  ss.ScriptDirty[p] = false;
  ResetPositions(ss, p);
  if (p == ss.EdPlayer) {
    RefreshEditor(ss, p);
    if (ss.EditorOpen) {
      ResetEditorView(ss);
      ss.EditorCaption = "Auto-Bet";
    }
  }
}

void StoreEdLines(Game& game) {
  ScriptSource& ss = game.scriptSource;
  const int p = ss.EdPlayer;
  if (p < 1 || p >= kScriptSlots) return;
  CopyEditorToSlot(ss, p);
  ss.ScriptTopLine[p] = ss.EdTopLine;
  ss.ScriptLeftColumn[p] = ss.EdLeftColumn;
  ss.ScriptSelStartColumn[p] = ss.EdSelStartColumn;
  ss.ScriptSelEndColumn[p] = ss.EdSelEndColumn;
  ss.ScriptSelStartLine[p] = ss.EdSelStartLine;
  ss.ScriptSelEndLine[p] = ss.EdSelEndLine;
}
