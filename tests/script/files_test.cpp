// Script files: plain text in and out unchanged with CR LF, the three
// record formats built byte by byte, short and hostile bytes, pasting at the
// caret, the editor's copies, failures that leave the script alone, random
// files and the translate command. Then Hot-Keys: the HotKeys.dta records
// byte by byte, short and hostile files, the clipboard rows, and a key fired
// on a seated table.
#include "script/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "../cli/cli_util.h"
#include "core/atomic_file.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "script/auto_bet_editor.h"
#include "script/hot_keys.h"
#include "tests/store/store_fixture.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

namespace fs = std::filesystem;

namespace {

using Lines = std::vector<std::string>;

struct FilesTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  ScriptSource& ss = game->scriptSource;
  TempFolder folder;
  const fs::path dir = folder.Path();

  std::string Write(const std::string& name, const std::string& bytes) {
    std::string path = (dir / name).string();
    fs::remove(path);  // a fresh file: truncating one in place can force a disk flush
    WriteWholeFile(path, bytes);
    return path;
  }
  Lines Script(int p = 1) { return {ss.ScriptLines[p].begin() + 1, ss.ScriptLines[p].end()}; }
  auto Positions(int p) {
    return std::tuple(ss.ScriptTopLine[p], ss.ScriptLeftColumn[p], ss.ScriptSelStartColumn[p],
                      ss.ScriptSelEndColumn[p], ss.ScriptSelStartLine[p], ss.ScriptSelEndLine[p]);
  }
};

// One 256-byte record: text padded with `pad`, kind little-endian, and a
// second text that nobody reads.
std::string Record(const std::string& text, int kind, char pad = ' ') {
  std::string r = text.substr(0, 128);
  r.resize(128, pad);
  r += static_cast<char>(kind & 0xff);
  r += static_cast<char>((kind >> 8) & 0xff);
  r += std::string(126, 'Z');
  return r;
}

const char* const kHeaders[] = {"Quillmarsh AutoBets, Data Format 5.0",
                                "Ravelton AutoBets, Data Format 3.9",
                                "Ravelton AutoBets, Data Format 5.0"};

TEST_F(FilesTest, PlainTextRoundTripsWithCrLf) {
  const std::string path = Write("a&b.bet",
                                 "' a comment: bet 5 on pass line\r\n\r\n  If x = 1 Then\r\n\tbet "
                                 "5 on \"pass line\"\r\nEndIf");
  ss.ScriptDirty[1] = true;
  ss.EditorOpen = true;
  ASSERT_TRUE(OpenAutoBets(*game, 1, path));
  const Lines want = {"' a comment: bet 5 on pass line", "", "  If x = 1 Then",
                      "\tbet 5 on \"pass line\"", "EndIf"};
  EXPECT_EQ(Script(), want);
  EXPECT_EQ(ss.ScriptFile[1], (dir / "a&&b.bet").string());
  EXPECT_FALSE(ss.ScriptDirty[1]);

  // Save through the editor's copy: every line ends in CR LF, nothing else.
  ss.EdLines[2] = "' typed";
  ASSERT_TRUE(SaveAutoBets(*game, 1));
  EXPECT_EQ(ReadWholeFile(path),
            "' a comment: bet 5 on pass line\r\n' typed\r\n  If x = 1 Then\r\n\tbet 5 on \"pass "
            "line\"\r\nEndIf\r\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(dir), {}), 1) << "temporary file left behind";
}

TEST_F(FilesTest, EachRecordFormatIsTranslated) {
  for (const char* header : kHeaders) {
    std::string bytes = Record(header, 0);
    bytes += Record("bet 5 on pass line", 0, '\0');
    bytes += Record("", 0, '\0');  // starts with a NUL: skipped
    bytes += Record("when a 7 has rolled in the last 5 rolls", 1);
    bytes += Record("  bet 10 on place 6", 30);
    bytes += Record("' note: \"reset table\"", 99);
    bytes += Record("dropped", 13);
    bytes += Record("  display message \"done\"", 0);
    ASSERT_TRUE(OpenAutoBets(*game, 2, Write("old.bet", bytes))) << header;
    // The run's colon goes again once its EndIf follows it.
    const Lines want = {"bet 5 on PassLine",       "# of rolls since when 7 <=  5",
                        "  bet 10 on Place6 ",     " EndIf",
                        "' note: \"reset table\"", "  Show Message \"done\""};
    EXPECT_EQ(Script(2), want) << header;
  }
}

TEST_F(FilesTest, ShortAndStrangeBytesAreRead) {
  const std::string header = Record(kHeaders[2], 0);
  const std::string junk("\0\x01\xff\x1a\"\"\"", 7);
  // A header that is not whole, or not at the first byte, means plain text.
  const std::string almost = Record("Ravelton AutoBets, Data Format 4.0", 0) + Record("x", 0);
  const std::string late = " " + header;
  const struct {
    std::string bytes;
    Lines want;
  } cases[] = {
      {"a\nb\rc\r\n\nd", {"a", "b", "c", "", "d"}},
      {"", {}},
      {junk, {junk}},
      {almost, {almost}},
      {late, {late}},
      // A truncated record reads as if padded with NULs.
      {header.substr(0, 40), {}},
      {header + "bet 5 on pass line", {"bet 5 on PassLine"}},
      {header + Record("x = 1", 30).substr(0, 129), {"x = 1 :"}},  // half a kind
      // Kinds at the ends of the 16-bit range are ordinary lines.
      {header + Record("a", -32768) + Record("b", 32767), {"a", "b"}},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadScriptBytes(c.bytes).lines, c.want);
}

TEST_F(FilesTest, PasteInsertsAtTheCaret) {
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("base.bet", "first\r\nbet 5 on PassLine\r\nlast\r\n")));
  const std::string file = ss.ScriptFile[1];
  const std::string two = Write("two.bet", "A\r\nB\r\n"), x = Write("x.bet", "X");
  ss.PastingScript = true;
  auto paste = [&](int p, int line, int column, const std::string& path) {
    ss.EdCaretLine = line;
    ss.EdCaretColumn = column;
    EXPECT_TRUE(OpenAutoBets(*game, p, path));
    return Script(p);
  };
  ss.EdLines[1] = "typed";  // in the editor, not yet stored: pasted into all the same
  EXPECT_EQ(paste(1, 1, 5, x), (Lines{"typedX", "bet 5 on PassLine", "last"}));
  EXPECT_EQ(paste(1, 2, 4, two), (Lines{"typedX", "bet A", "B5 on PassLine", "last"}));
  EXPECT_EQ(ss.EdLineCount, 4);
  // A caret beyond the text is held to it.
  EXPECT_EQ(paste(1, 99, 99, x).back(), "lastX");
  EXPECT_EQ(paste(1, -3, -1, x).front(), "XtypedX");
  const Lines before = Script();
  EXPECT_EQ(paste(1, 2, 1, Write("none.bet", "")), before);
  EXPECT_EQ(ss.ScriptFile[1], file);  // a paste keeps the script's own file
  ClearScript(*game, 3);
  EXPECT_EQ(paste(3, 1, 0, two), (Lines{"A", "B"}));
}

TEST_F(FilesTest, FailuresLeaveTheScriptAlone) {
  const std::string path = Write("keep.bet", "keep me\r\n");
  ASSERT_TRUE(OpenAutoBets(*game, 4, path));
  const Lines before = Script(4);
  const std::string file = ss.ScriptFile[4];
  EXPECT_FALSE(OpenAutoBets(*game, 4, (dir / "missing.bet").string()));
  EXPECT_TRUE(ss.ErrorText.empty());  // a missing file passes silently
  EXPECT_FALSE(OpenAutoBets(*game, 4, dir.string()));
  EXPECT_EQ(ss.ErrorText, "Path/File access error, Error #75 occurred, at: OpenAutoBets");
  // A file past the limit is refused without being read (a sparse one here).
  const std::string huge = Write("huge.bet", "bet 5 on field\r\n");
  fs::resize_file(huge, kScriptFileLimit + 1);
  EXPECT_FALSE(OpenAutoBets(*game, 4, huge));
  EXPECT_EQ(ss.ErrorText, huge + "\r\ris larger than 16 MB, too large to be an Auto-Bet file.");
  fs::resize_file(huge, kScriptFileLimit);
  ss.ErrorText.clear();
  EXPECT_TRUE(OpenAutoBets(*game, 3, huge));
  EXPECT_TRUE(ss.ErrorText.empty());
  EXPECT_FALSE(OpenAutoBets(*game, 9, path) || OpenAutoBets(*game, -1, path));
  EXPECT_EQ(Script(4), before);
  EXPECT_EQ(ss.ScriptFile[4], file);

  // A save that cannot be written or put in place leaves no temporary file.
  fs::create_directories(dir / "taken.bet" / "inside");
  for (const fs::path& target : {dir / "no such folder" / "x.bet", dir / "taken.bet"}) {
    ss.ScriptFile[4] = target.string();
    ss.ErrorText.clear();
    EXPECT_FALSE(SaveAutoBets(*game, 4)) << target;
    EXPECT_EQ(ss.ErrorText, "Path/File access error, Error #75 occurred, at: SaveAutoBets");
  }
  EXPECT_FALSE(fs::exists(dir / "taken.bet.~sav"));
  ss.ScriptFile[4].clear();
  EXPECT_FALSE(SaveAutoBets(*game, 4));
}

TEST_F(FilesTest, HotKeysAndTheEditorCopies) {
  ss.HotKeyRunning = true;
  ss.ScriptFile[0] = "before";
  ASSERT_TRUE(OpenAutoBets(*game, 0, Write("hot.bet", "bet 5 on field\r\n")));
  EXPECT_EQ(ss.ScriptFile[0], "before");
  EXPECT_EQ(Script(0), Lines{"bet 5 on field"});

  // StoreEdLines keeps the first EdLineCount lines and the six positions.
  ss.EdPlayer = 5;
  ss.EdLines = {"", "one", "two", "stale"};
  ss.EdIndent = {0, 0, 2};
  ss.EdLineCount = 2;
  std::tie(ss.EdTopLine, ss.EdLeftColumn, ss.EdSelStartColumn, ss.EdSelEndColumn, ss.EdSelStartLine,
           ss.EdSelEndLine) = std::tuple(7, 3, 1, 2, 4, 5);
  StoreEdLines(*game);
  EXPECT_EQ(Script(5), (Lines{"one", "two"}));
  EXPECT_EQ(ss.ScriptIndent[5], (std::vector<std::int32_t>{0, 0, 2}));
  EXPECT_EQ(Positions(5), std::tuple(7, 3, 1, 2, 4, 5));
  // A count beyond the lines, or no lines at all, does not overrun.
  ss.EdLineCount = 50;
  StoreEdLines(*game);
  EXPECT_EQ(Script(5).size(), 3u);
  ss.EdLines.clear();
  StoreEdLines(*game);
  EXPECT_TRUE(Script(5).empty());

  ss.EditorOpen = true;
  ss.ScriptFile[5] = "x.bet";
  ClearScript(*game, 5);
  EXPECT_TRUE(ss.ScriptLines[5].size() == 1 && ss.ScriptFile[5].empty());
  EXPECT_EQ(Positions(5), std::tuple(1, 0, 0, 0, 1, 1));
  EXPECT_EQ(ss.EdLineCount, 1);  // the emptied editor shows one line
}

// Random files, plain and with a header, through the whole reader. Words of
// the old vocabulary and the marks make the translation's paths likely.
TEST_F(FilesTest, RandomFilesFuzz) {
  std::vector<std::string> pieces;
  std::istringstream words(
      "has rolled |each |more than |\"|:|highest of | on | ref #| ref |is named |checkstack|"
      "any(|,|)|*1 |*3 |= dice total|die1 |show message |bet input(|output to file|round |"
      " to the nearest |new line|yes/no question|endif|else|;| |'|number 4 (1.3) or (3.1)|"
      "r*ll|w**n| when |a hard 4 ");
  for (std::string w; std::getline(words, w, '|');) pieces.push_back(w);
  const int kinds[] = {0, 1, 2, 12, 13, 20, 30, 90, 99, 7};
  std::mt19937 rng(20261123);
  for (int iter = 0; iter < 3000; ++iter) {
    std::string bytes;
    if (const unsigned h = rng() % 4; h < 3) bytes = Record(kHeaders[h], 0);
    for (int r = static_cast<int>(rng() % 12); r > 0; --r) {
      if (rng() % 4 == 0) {
        for (int k = 0; k < 256; ++k) bytes += static_cast<char>(rng());
        continue;
      }
      std::string text;
      for (int k = static_cast<int>(rng() % 10); k > 0; --k) text += pieces[rng() % pieces.size()];
      bytes += Record(text, kinds[rng() % std::size(kinds)], rng() % 2 ? ' ' : '\0');
    }
    bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), rng() % 300));
    const std::string path = Write("fuzz.bet", bytes);
    ss.PastingScript = rng() % 3 == 0;
    ss.EdCaretLine = static_cast<int>(rng() % 20) - 5;
    ss.EdCaretColumn = static_cast<int>(rng() % 200) - 5;
    ASSERT_TRUE(OpenAutoBets(*game, static_cast<int>(rng() % 9), path)) << iter;
    for (int p = 0; p < kScriptSlots; ++p) {
      ASSERT_FALSE(ss.ScriptLines[p].empty());
      ASSERT_EQ(ss.ScriptIndent[p].size(), ss.ScriptLines[p].size());
      ASSERT_EQ(ss.ScriptBandMark[p].size(), ss.ScriptLines[p].size());
    }
  }
}

TEST_F(FilesTest, TranslateCommandPrintsTheLoadedScript) {
  const std::string path =
      Write("cli.bet", Record(kHeaders[2], 0) + Record("bet 5 on pass line", 0) +
                           Record("x = 1", 1) + Record("y", 30));
  const std::string missing = (dir / "missing.bet").string();
  cli_test::Result r = cli_test::Cli("translate '" + path + "'");
  EXPECT_TRUE(r.exitCode == 0 && r.out == "bet 5 on PassLine\nx = 1\ny \n EndIf\n") << r.out;
  r = cli_test::Cli("translate '" + missing + "'", true);
  EXPECT_TRUE(r.exitCode == 1 && r.out == missing + ": no such script file\n") << r.out;
}

std::vector<HotKeyRow> TwoRows() {
  return {{'F', "/data/field.bet", "Field once", false}, {'P', "pass.bet", "", false}};
}

TEST(HotKeyFile, RecordsAndClipboardRowsHoldTheirFieldsAndBadFilesAreRefused) {
  const std::string bytes = HotKeyFileBytes(TwoRows());
  ASSERT_EQ(bytes.size(), 3 * kHotKeyRecordSize);
  EXPECT_EQ(bytes.substr(0, 23), " Ravelton Hot-Key File ");
  EXPECT_EQ(bytes.substr(101, 2), "2 ");
  // The last byte of the fields, then the rest of the record, not read.
  EXPECT_EQ(bytes.substr(200, 2), std::string(" \0", 2));
  EXPECT_EQ(bytes[256], 'F');
  EXPECT_EQ(bytes.substr(257, 16), "/data/field.bet ");
  EXPECT_EQ(bytes.substr(357, 11), "Field once ");

  std::vector<HotKeyRow> rows;
  std::string error;
  ASSERT_TRUE(ReadHotKeyFileBytes(bytes, rows, error)) << error;
  EXPECT_EQ(rows, TwoRows());
  // A last record that ends with its fields is whole.
  ASSERT_TRUE(
      ReadHotKeyFileBytes(bytes.substr(0, 2 * kHotKeyRecordSize + kHotKeyFieldsSize), rows, error));
  EXPECT_EQ(rows.size(), 2u);
  // An empty table is the header alone.
  ASSERT_TRUE(ReadHotKeyFileBytes(HotKeyFileBytes({}), rows, error));
  EXPECT_TRUE(rows.empty());

  // Short, corrupt and hostile files are refused.
  const std::string& good = bytes;
  rows = TwoRows();
  EXPECT_FALSE(ReadHotKeyFileBytes("", rows, error));
  EXPECT_TRUE(rows.empty());
  EXPECT_FALSE(ReadHotKeyFileBytes(good.substr(0, 2 * kHotKeyRecordSize + 200), rows, error));
  EXPECT_NE(error.find("shorter"), std::string::npos);

  // A count no file holds, a negative one, one that is not a number.
  for (const char* count : {"999999999999", "-1          ", "2x          "}) {
    std::string hostile = good;
    EXPECT_FALSE(ReadHotKeyFileBytes(hostile.replace(101, 12, count), rows, error)) << count;
  }
  std::string badKey = good;
  badKey[2 * kHotKeyRecordSize] = 'p';
  EXPECT_FALSE(ReadHotKeyFileBytes(badKey, rows, error));
  EXPECT_NE(error.find("Hot-Key 2"), std::string::npos);

  // Clipboard rows go out and come back.
  const HotKeyRow row{'F', "/data/field.bet", "Field once", false};
  EXPECT_EQ(HotKeyClipboardText(row), "Ctrl F   /data/field.bet   Field once");
  const auto back = ParseHotKeyClipboard(HotKeyClipboardText(row) + "\r\nnot a row\r\n" +
                                         "Ctrl P   pass.bet   \nCtrl x   lower.bet   \n");
  ASSERT_EQ(back.size(), 2u);
  EXPECT_TRUE(back[0] == row && back[1].file == "pass.bet");
  EXPECT_EQ(HotKeyRowProblem({'A', std::string(101, 'a'), "", false}).substr(0, 24),
            "The Auto-Bet file's path");
  EXPECT_EQ(HotKeyRowProblem({'A', "  ", "", false}),
            "Please enter an Auto-Bet filename to define this Hot-Key.");
}

class HotKeys : public StoreFixture {
 protected:
  HotKeys() {
    SeatPlayer(*game, 2, "Ann", Currency::FromWhole(500));
    game->betting.CurPlayer = 2;
    game->scriptRun.RunStatementLimit = 10'000;
  }
};

TEST_F(HotKeys, TheFileIsWrittenAtomicallyAndReadBackAtStartUp) {
  game->scriptSource.HotKeyTable = TwoRows();
  ASSERT_TRUE(SaveHotKeys(*game));
  for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
    EXPECT_FALSE(IsAtomicTemporaryName(entry.path().filename().string()));
  game->scriptSource.HotKeyTable.clear();
  ASSERT_TRUE(LoadHotKeys(*game));
  EXPECT_EQ(game->scriptSource.HotKeyTable, TwoRows());

  WriteWholeFile(HotKeysPath(*game), "Ravelton");
  EXPECT_FALSE(LoadHotKeys(*game));
  EXPECT_TRUE(game->scriptSource.HotKeyTable.empty());
  EXPECT_NE(LastMessage().find(HotKeysPath(*game)), std::string::npos) << LastMessage();
  // Bytes past the rows are ignored up to the limit, and beyond it the file
  // is not read at all.
  game->scriptSource.HotKeyTable = TwoRows();
  ASSERT_TRUE(SaveHotKeys(*game));
  std::filesystem::resize_file(HotKeysPath(*game), kHotKeyFileLimit);
  ASSERT_TRUE(LoadHotKeys(*game));
  EXPECT_EQ(game->scriptSource.HotKeyTable, TwoRows());
  std::filesystem::resize_file(HotKeysPath(*game), kHotKeyFileLimit + 1);
  EXPECT_FALSE(LoadHotKeys(*game));
  EXPECT_TRUE(game->scriptSource.HotKeyTable.empty());
  EXPECT_NE(LastMessage().find("larger than any Hot-Key file"), std::string::npos);
  std::filesystem::remove(HotKeysPath(*game));
  EXPECT_TRUE(LoadHotKeys(*game));  // no file: no Hot-Keys, no message
}

TEST_F(HotKeys, AKeyRunsItsScriptOnceForTheCurrentPlayerAndAFailureChangesNothing) {
  // A jump to a named label: the run holds the file's links and strings.
  WriteWholeFile(Path("field.bet"),
                 "If cs1 = 0 Then\r\n  GoTo \"skip\"\r\nEndIf\r\nbet 9 on field\r\n"
                 ":\"skip\":\r\nbet 5 on field\r\n");
  game->scriptSource.HotKeyTable = {{'F', Path("field.bet"), "", false}};
  SetEditorText(*game, {"bet 1 on big6"}, false);
  game->roll.ScriptsOK = true;

  EXPECT_FALSE(FireHotKey(*game, 'G'));  // no such key: the table's
  EXPECT_TRUE(FireHotKey(*game, 'F'));
  EXPECT_EQ(game->Bet(2, bet::kField), Currency::FromWhole(5));
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(game->scriptSource.HotKeyRunning);
  const ScriptSource& ss = game->scriptSource;
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{"bet 1 on big6"}));
  for (int p = 1; p <= 8; ++p) {
    EXPECT_FALSE(ss.ScriptDirty[p]);
    EXPECT_TRUE(ss.ScriptFile[p].empty());
  }

  // While one runs, another key is not taken.
  game->scriptSource.HotKeyRunning = true;
  EXPECT_FALSE(FireHotKey(*game, 'F'));
  game->scriptSource.HotKeyRunning = false;

  // A missing file or a script with an error changes nothing at the table.
  const Currency field = game->Bet(2, bet::kField);
  WriteWholeFile(Path("broken.bet"), "If dice total = 7\r\nbet 5 on field\r\n");
  game->scriptSource.HotKeyTable = {{'M', Path("missing.bet"), "", false},
                                    {'B', Path("broken.bet"), "", false}};
  EXPECT_TRUE(FireHotKey(*game, 'M'));
  EXPECT_EQ(platform.messages.back().title, "Hot-Key");
  EXPECT_EQ(platform.messages.back().helpId, 110);
  EXPECT_TRUE(FireHotKey(*game, 'B'));
  EXPECT_EQ(platform.messages.back().title, "Auto-Bet Script Error");
  EXPECT_EQ(game->Bet(2, bet::kField), field);
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(game->scriptSource.HotKeyRunning);
}

}  // namespace
