// Script files: plain text in and out unchanged with CR LF, the three
// record formats built byte by byte, pasting at the caret, the editor's
// copies, failures that leave the script alone, hostile bytes and the
// translate command.
#include "script/files.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "engine/game.h"

namespace fs = std::filesystem;

namespace {

struct FilesTest : ::testing::Test {
  std::unique_ptr<Game> game = std::make_unique<Game>();
  fs::path dir;

  void SetUp() override {
    dir = fs::temp_directory_path() /
          ("ravelton_files_" + std::to_string(getpid()) + "_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir);
    fs::create_directories(dir);
  }
  void TearDown() override { fs::remove_all(dir); }

  std::string Write(const std::string& name, const std::string& bytes) {
    std::string path = (dir / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  std::vector<std::string> Lines(int p = 1) {
    const auto& l = game->scriptSource.ScriptLines[p];
    return {l.begin() + 1, l.end()};
  }
};

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

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

TEST_F(FilesTest, PlainTextLoadsUnchangedAndSavesWithCrLf) {
  const std::string text =
      "' a comment: bet 5 on pass line\r\n\r\n  If x = 1 Then\r\n\tbet 5 on \"pass line\"\r\nEndIf";
  std::string path = Write("a&b.bet", text);
  ScriptSource& ss = game->scriptSource;
  ss.ScriptDirty[1] = true;
  ss.ScriptOutputFile[1] = "out.txt";
  ss.ScriptTopLine[1] = 9;
  ss.EditorOpen = true;
  ASSERT_TRUE(OpenAutoBets(*game, 1, path));
  std::vector<std::string> want = {"' a comment: bet 5 on pass line", "", "  If x = 1 Then",
                                   "\tbet 5 on \"pass line\"", "EndIf"};
  EXPECT_EQ(Lines(), want);
  EXPECT_EQ(ss.ScriptIndent[1].size(), 6u);
  EXPECT_EQ(ss.ScriptBandMark[1].size(), 6u);
  EXPECT_EQ(ss.ScriptFile[1], (dir / "a&&b.bet").string());
  EXPECT_FALSE(ss.ScriptDirty[1]);
  EXPECT_TRUE(ss.ScriptOutputFile[1].empty());
  EXPECT_EQ(ss.ScriptTopLine[1], 1);
  EXPECT_EQ(ss.EdLineCount, 5);
  EXPECT_EQ(ss.EdLines[3], "  If x = 1 Then");
  EXPECT_EQ(ss.EditorCaption, "Auto-Bet (a&&b.bet)");

  // Save through the editor's copy: every line ends in CR LF, nothing else.
  ss.EdLines[2] = "' typed";
  ASSERT_TRUE(SaveAutoBets(*game, 1));
  EXPECT_EQ(ReadBytes(path),
            "' a comment: bet 5 on pass line\r\n' typed\r\n  If x = 1 Then\r\n\tbet 5 on \"pass "
            "line\"\r\nEndIf\r\n");
  EXPECT_EQ(Lines()[1], "' typed");
  for (const auto& entry : fs::directory_iterator(dir))
    EXPECT_EQ(entry.path().filename(), "a&b.bet") << "temporary file left behind";

  // And back again, the same lines; LF and lone CR end lines too.
  ClearScript(*game, 1);
  ASSERT_TRUE(OpenAutoBets(*game, 1, path));
  want[1] = "' typed";
  EXPECT_EQ(Lines(), want);
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("mixed.bet", "a\nb\rc\r\n\nd")));
  EXPECT_EQ(Lines(), (std::vector<std::string>{"a", "b", "c", "", "d"}));
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("empty.bet", "")));
  EXPECT_TRUE(Lines().empty());
  EXPECT_EQ(ss.EdLineCount, 1);
  EXPECT_EQ(ss.EdLines.size(), 2u);
}

TEST_F(FilesTest, EachRecordFormatIsTranslated) {
  const char* headers[] = {"Quillmarsh AutoBets, Data Format 5.0",
                           "Ravelton AutoBets, Data Format 3.9",
                           "Ravelton AutoBets, Data Format 5.0"};
  for (const char* header : headers) {
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
    std::vector<std::string> want = {"bet 5 on PassLine",       "# of rolls since when 7 <=  5",
                                     "  bet 10 on Place6 ",     " EndIf",
                                     "' note: \"reset table\"", "  Show Message \"done\""};
    EXPECT_EQ(Lines(2), want) << header;
  }
  // A header that is not whole, or not at the first byte, means plain text.
  std::string almost = Record("Ravelton AutoBets, Data Format 4.0", 0) + Record("x", 0);
  ASSERT_TRUE(OpenAutoBets(*game, 2, Write("t.bet", almost)));
  EXPECT_EQ(Lines(2).size(), 1u);
  EXPECT_EQ(Lines(2)[0].size(), 512u);
}

TEST_F(FilesTest, PasteInsertsAtTheCaret) {
  ScriptSource& ss = game->scriptSource;
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("base.bet", "first\r\nbet 5 on PassLine\r\nlast\r\n")));
  std::string file = ss.ScriptFile[1];
  std::string two = Write("two.bet", "A\r\nB\r\n");
  ss.PastingScript = true;
  ss.EdCaretLine = 2;
  ss.EdCaretColumn = 4;
  ASSERT_TRUE(OpenAutoBets(*game, 1, two));
  EXPECT_EQ(Lines(), (std::vector<std::string>{"first", "bet A", "B5 on PassLine", "last"}));
  EXPECT_EQ(ss.ScriptFile[1], file);  // a paste keeps the script's own file
  EXPECT_EQ(ss.EdLineCount, 4);

  // What was typed in the editor and not yet stored is pasted into.
  ss.EdLines[1] = "typed";
  ss.EdCaretLine = 1;
  ss.EdCaretColumn = 5;
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("one.bet", "!")));
  EXPECT_EQ(Lines().front(), "typed!");

  // One line joins both halves; a caret beyond the text is held to it.
  ss.EdCaretLine = 99;
  ss.EdCaretColumn = 99;
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("one.bet", "X")));
  EXPECT_EQ(Lines().back(), "lastX");
  ss.EdCaretLine = -3;
  ss.EdCaretColumn = -1;
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("one.bet", "X")));
  EXPECT_EQ(Lines().front(), "Xtyped!");
  // An empty file changes nothing; a paste into an empty script is a load.
  auto before = Lines();
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("none.bet", "")));
  EXPECT_EQ(Lines(), before);
  ClearScript(*game, 3);
  ss.EdCaretLine = 1;
  ss.EdCaretColumn = 0;
  ASSERT_TRUE(OpenAutoBets(*game, 3, two));
  EXPECT_EQ(Lines(3), (std::vector<std::string>{"A", "B"}));
  // A legacy file pasted is translated on the way.
  std::string old = Record("Ravelton AutoBets, Data Format 3.9", 0) + Record("bet 1 on field", 0);
  ss.EdCaretLine = 2;
  ss.EdCaretColumn = 0;
  ASSERT_TRUE(OpenAutoBets(*game, 3, Write("old.bet", old)));
  EXPECT_EQ(Lines(3), (std::vector<std::string>{"A", "bet 1 on fieldB"}));
}

TEST_F(FilesTest, FailuresLeaveTheScriptAlone) {
  ScriptSource& ss = game->scriptSource;
  std::string path = Write("keep.bet", "keep me\r\n");
  ASSERT_TRUE(OpenAutoBets(*game, 4, path));
  const auto before = ss.ScriptLines[4];
  const std::string file = ss.ScriptFile[4];
  EXPECT_FALSE(OpenAutoBets(*game, 4, (dir / "missing.bet").string()));
  EXPECT_TRUE(ss.ErrorText.empty());  // a missing file passes silently
  EXPECT_FALSE(OpenAutoBets(*game, 4, dir.string()));
  EXPECT_EQ(ss.ErrorText, "Path/File access error, Error #75 occurred, at: OpenAutoBets");
  EXPECT_FALSE(OpenAutoBets(*game, 9, path));
  EXPECT_FALSE(OpenAutoBets(*game, -1, path));
  EXPECT_EQ(ss.ScriptLines[4], before);
  EXPECT_EQ(ss.ScriptFile[4], file);

  // A save that cannot be written leaves the old file as it was.
  ss.ScriptFile[4] = (dir / "no such folder" / "x.bet").string();
  ss.ErrorText.clear();
  EXPECT_FALSE(SaveAutoBets(*game, 4));
  EXPECT_EQ(ss.ErrorText, "Path/File access error, Error #75 occurred, at: SaveAutoBets");
  ss.ScriptFile[4].clear();
  EXPECT_FALSE(SaveAutoBets(*game, 4));
  EXPECT_EQ(ReadBytes(path), "keep me\r\n");
}

TEST_F(FilesTest, HotKeysAndTheEditorCopies) {
  ScriptSource& ss = game->scriptSource;
  std::string path = Write("hot.bet", "bet 5 on field\r\n");
  ss.HotKeyRunning = true;
  ss.ScriptFile[0] = "before";
  ASSERT_TRUE(OpenAutoBets(*game, 0, path));
  EXPECT_EQ(ss.ScriptFile[0], "before");
  EXPECT_EQ(Lines(0), std::vector<std::string>{"bet 5 on field"});
  ss.HotKeyRunning = false;

  // StoreEdLines keeps the first EdLineCount lines and the six positions.
  ss.EdPlayer = 5;
  ss.EdLines = {"", "one", "two", "stale"};
  ss.EdIndent = {0, 0, 2};
  ss.EdLineCount = 2;
  ss.EdTopLine = 7;
  ss.EdLeftColumn = 3;
  ss.EdSelStartColumn = 1;
  ss.EdSelEndColumn = 2;
  ss.EdSelStartLine = 4;
  ss.EdSelEndLine = 5;
  StoreEdLines(*game);
  EXPECT_EQ(Lines(5), (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(ss.ScriptIndent[5], (std::vector<std::int32_t>{0, 0, 2}));
  EXPECT_EQ(ss.ScriptBandMark[5].size(), 3u);
  EXPECT_EQ(ss.ScriptTopLine[5], 7);
  EXPECT_EQ(ss.ScriptLeftColumn[5], 3);
  EXPECT_EQ(ss.ScriptSelStartColumn[5], 1);
  EXPECT_EQ(ss.ScriptSelEndColumn[5], 2);
  EXPECT_EQ(ss.ScriptSelStartLine[5], 4);
  EXPECT_EQ(ss.ScriptSelEndLine[5], 5);
  // A count beyond the lines, or no lines at all, does not overrun.
  ss.EdLineCount = 50;
  StoreEdLines(*game);
  EXPECT_EQ(Lines(5).size(), 3u);
  ss.EdLines.clear();
  StoreEdLines(*game);
  EXPECT_TRUE(Lines(5).empty());

  ss.EditorOpen = true;
  ss.ScriptFile[5] = "x.bet";
  ss.ScriptDirty[5] = true;
  ClearScript(*game, 5);
  EXPECT_EQ(ss.ScriptLines[5].size(), 1u);
  EXPECT_EQ(ss.ScriptIndent[5].size(), 1u);
  EXPECT_TRUE(ss.ScriptFile[5].empty());
  EXPECT_FALSE(ss.ScriptDirty[5]);
  EXPECT_EQ(ss.ScriptTopLine[5], 1);
  EXPECT_EQ(ss.ScriptSelEndLine[5], 1);
  EXPECT_EQ(ss.EdLines.size(), 2u);
  EXPECT_EQ(ss.EdLineCount, 1);
  EXPECT_EQ(ss.EditorCaption, "Auto-Bet");
}

TEST_F(FilesTest, HostileFilesNeverBreakTheReader) {
  // Truncated records: the last is read as if padded with NULs.
  std::string header = Record("Ravelton AutoBets, Data Format 5.0", 0);
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("t1.bet", header.substr(0, 40))));
  EXPECT_TRUE(Lines().empty());
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("t2.bet", header + "bet 5 on pass line")));
  EXPECT_EQ(Lines(), std::vector<std::string>{"bet 5 on PassLine"});
  std::string cut = header + Record("x = 1", 30).substr(0, 129);  // half a kind
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("t3.bet", cut)));
  EXPECT_EQ(Lines(), std::vector<std::string>{"x = 1 :"});
  // Kinds at the ends of the 16-bit range are ordinary lines.
  std::string extremes = header + Record("a", -32768) + Record("b", 32767);
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("t4.bet", extremes)));
  EXPECT_EQ(Lines(), (std::vector<std::string>{"a", "b"}));
  // A huge plain line and binary junk load as they are.
  std::string huge(3'000'000, 'q');
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("huge.bet", huge)));
  EXPECT_EQ(Lines(), std::vector<std::string>{huge});
  std::string junk("\0\x01\xff\x1a\"\"\"", 7);
  ASSERT_TRUE(OpenAutoBets(*game, 1, Write("junk.bet", junk)));
  EXPECT_EQ(Lines(), std::vector<std::string>{junk});
}

// Random files, plain and with a header, through the whole reader. Words of
// the old vocabulary and the marks make the translation's paths likely.
TEST_F(FilesTest, RandomFilesFuzz) {
  static const char* kPieces[] = {"has rolled ",
                                  "each ",
                                  "more than ",
                                  "\"",
                                  ":",
                                  "highest of ",
                                  " on ",
                                  " ref #",
                                  " ref ",
                                  "is named ",
                                  "checkstack",
                                  "any(",
                                  ",",
                                  ")",
                                  "*1 ",
                                  "*3 ",
                                  "= dice total",
                                  "die1 ",
                                  "show message ",
                                  "bet input(",
                                  "output to file",
                                  "round ",
                                  " to the nearest ",
                                  "new line",
                                  "yes/no question",
                                  "endif",
                                  "else",
                                  ";",
                                  " ",
                                  "'",
                                  "number 4 (1.3) or (3.1)",
                                  "r*ll",
                                  "w**n",
                                  " when ",
                                  "a hard 4 "};
  std::mt19937 rng(20261123);
  const std::string headers[] = {"Quillmarsh AutoBets, Data Format 5.0",
                                 "Ravelton AutoBets, Data Format 3.9",
                                 "Ravelton AutoBets, Data Format 5.0", ""};
  std::string path = (dir / "fuzz.bet").string();
  for (int iter = 0; iter < 3000; ++iter) {
    std::string bytes;
    const std::string& header = headers[rng() % 4];
    if (!header.empty()) bytes = Record(header, 0);
    const int records = static_cast<int>(rng() % 12);
    for (int r = 0; r < records; ++r) {
      if (rng() % 4 == 0) {
        std::string raw(256, '\0');
        for (char& c : raw) c = static_cast<char>(rng());
        bytes += raw;
        continue;
      }
      std::string text;
      const int pieces = static_cast<int>(rng() % 10);
      for (int k = 0; k < pieces; ++k) text += kPieces[rng() % std::size(kPieces)];
      static const int kKinds[] = {0, 1, 2, 12, 13, 20, 30, 90, 99, 7};
      bytes += Record(text, kKinds[rng() % std::size(kKinds)], rng() % 2 ? ' ' : '\0');
    }
    bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), rng() % 300));
    fs::remove(path);  // a fresh file: truncating one in place can force a disk flush
    std::ofstream(path, std::ios::binary) << bytes;
    game->scriptSource.PastingScript = rng() % 3 == 0;
    game->scriptSource.EdCaretLine = static_cast<int>(rng() % 20) - 5;
    game->scriptSource.EdCaretColumn = static_cast<int>(rng() % 200) - 5;
    ASSERT_TRUE(OpenAutoBets(*game, static_cast<int>(rng() % 9), path)) << iter;
    for (int p = 0; p < kScriptSlots; ++p) {
      const ScriptSource& ss = game->scriptSource;
      ASSERT_FALSE(ss.ScriptLines[p].empty());
      ASSERT_EQ(ss.ScriptIndent[p].size(), ss.ScriptLines[p].size());
      ASSERT_EQ(ss.ScriptBandMark[p].size(), ss.ScriptLines[p].size());
    }
  }
}

TEST_F(FilesTest, TranslateCommandPrintsTheLoadedScript) {
  std::string old = Record("Ravelton AutoBets, Data Format 5.0", 0) +
                    Record("bet 5 on pass line", 0) + Record("x = 1", 1) + Record("y", 30);
  std::string path = Write("cli.bet", old);
  auto run = [](const std::string& args, int& code) {
    std::string out;
    FILE* pipe = popen((std::string(RAVELTON_CLI) + " " + args).c_str(), "r");
    if (!pipe) return out;
    std::array<char, 4096> buffer{};
    std::size_t n;
    while ((n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0) out.append(buffer.data(), n);
    int status = pclose(pipe);
    code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return out;
  };
  int code = -1;
  EXPECT_EQ(run("translate '" + path + "'", code), "bet 5 on PassLine\nx = 1\ny \n EndIf\n");
  EXPECT_EQ(code, 0);
  std::string missing = (dir / "missing.bet").string();
  std::string err = run("translate '" + missing + "' 2>&1", code);
  EXPECT_EQ(code, 1);
  EXPECT_NE(err.find(missing), std::string::npos) << err;
}

}  // namespace
