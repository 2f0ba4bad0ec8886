#include "script/script_printouts.h"

#include <string>

#include "core/game.h"
#include "script/auto_bet_editor.h"
#include "script/files.h"

namespace {

// The number column is as wide as "6666"; the text starts a blank behind it.
constexpr int kNumberColumn = 4;
constexpr int kNumberedTextColumn = kNumberColumn + 2;
constexpr std::size_t kBandRule = 43;
// Hot-Key rows: the file and description stand behind "Ctrl W    ".
constexpr int kHotKeyTextColumn = 10;

}  // namespace

PrintDocument AutoBetPrintout(const Game& game, std::string_view dateTime, bool numbered,
                              bool bands) {
  const ScriptSource& ss = game.scriptSource;
  PrintDocument doc;
  doc.jobName = "Ravelton Auto-Bets";
  doc.AddText("Ravelton Auto-Bets", true, true);
  doc.AddText(std::string(dateTime), true);
  const int p = ss.EdPlayer;
  const std::string file =
      p >= 0 && p < kScriptSlots ? UndoubleAmpersands(ss.ScriptFile[static_cast<std::size_t>(p)])
                                 : std::string();
  doc.AddText("Auto-Bet File:  " + (file.empty() ? std::string("untitled") : file));
  doc.AddBlank();
  const std::vector<std::string> lines = EditorText(game);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t l = i + 1;
    if (bands && l > 1 && l < ss.EdBandMark.size() && ss.EdBandMark[l] != ss.EdBandMark[l - 1])
      doc.AddText(std::string(kBandRule, '_'));
    PrintLine line;
    if (numbered) {
      line.cells.push_back({std::to_string(l), kNumberColumn, kPrintBlack, true});
      line.cells.push_back({lines[i], kNumberedTextColumn});
    } else {
      line.cells.push_back({lines[i], 0});
    }
    doc.lines.push_back(std::move(line));
  }
  return doc;
}

PrintDocument HotKeysPrintout(const Game& game, std::string_view dateTime) {
  PrintDocument doc;
  doc.jobName = "Ravelton Hot-Keys";
  doc.AddText("Ravelton Hot-Keys    " + std::string(dateTime), false, true);
  doc.AddBlank();
  for (const HotKeyRow& row : game.scriptSource.HotKeyTable) {
    PrintLine line;
    line.cells.push_back({std::string("Ctrl ") + row.key, 0});
    line.cells.push_back({row.file, kHotKeyTextColumn});
    doc.lines.push_back(std::move(line));
    if (!row.description.empty()) {
      PrintLine under;
      under.cells.push_back({row.description, kHotKeyTextColumn});
      doc.lines.push_back(std::move(under));
    }
  }
  return doc;
}
