// Opening files that are missing, foreign, cut, damaged or random: the
// message of each kind, and the game in play left exactly as it was.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <random>

#include "core/checksum.h"
#include "store/game_file.h"
#include "store/record_io.h"
#include "tests/store/game_file_fill.h"
#include "tests/store/store_fixture.h"

namespace {

constexpr const char* kCorrupt =
    "An error occurred while attempting to open:\r\r{}\r\rIt may be corrupted or not a true "
    "Ravelton game file. \r\rCheck path, filename, or device.";

std::string WithPath(std::string text, const std::string& path) {
  return text.replace(text.find("{}"), 2, path);
}

class OpenFailures : public StoreFixture {
 protected:
  void SetUp() override {
    fill::FillGame(*game, {"House", "Ann", "", "Cy", "", "", "", "Gus", ""});
    ASSERT_TRUE(SaveGame(*game, Path("good.rvg")));
    good = ReadWholeFile(Path("good.rvg"));
    before = GameFileBytes(*game);
    checksum = TablesChecksum(*game);
  }
  // Opens bytes written to a file; expects refusal and the game unchanged.
  void ExpectRefused(const std::string& bytes, const std::string& title, const std::string& text) {
    WriteWholeFile(Path("bad.rvg"), bytes);
    const std::size_t shown = platform.messages.size();
    EXPECT_FALSE(OpenGame(*game, Path("bad.rvg")));
    ASSERT_EQ(platform.messages.size(), shown + 1);
    EXPECT_EQ(platform.messages.back().title, title);
    EXPECT_EQ(platform.messages.back().text, text);
    ExpectUnchanged();
  }
  void ExpectUnchanged() {
    EXPECT_EQ(TablesChecksum(*game), checksum);
    EXPECT_TRUE(GameFileBytes(*game) == before);
  }
  std::string good, before;
  std::uint64_t checksum = 0;
};

TEST_F(OpenFailures, EachKindOfBadFileHasItsMessage) {
  const std::string path = Path("bad.rvg");
  const std::string title = "Unable to Open Ravelton Game File";
  std::string other = good;
  other.replace(0, 8, "Rolleton");
  ExpectRefused(other, title, path + "\r\rThis is not a Ravelton game file.");
  std::string older = good;
  older.replace(36, 3, "0.9");
  ExpectRefused(older, title,
                path + "\r\rThis file appears to be from an incompatible version or is not a "
                       "true Ravelton game file.");
  ExpectRefused("", title, path + "\r\rThis is not a Ravelton game file.");
  ExpectRefused(good.substr(0, good.size() - 1), title, WithPath(kCorrupt, path));
  ExpectRefused(good.substr(0, 300), title, WithPath(kCorrupt, path));

  // Counts, slots and texts out of their ranges.
  struct Patch {
    int record, at, width;
    std::int64_t value;
  } patches[] = {
      {5, 0, 4, 9},                     // nine players
      {5, 0, 4, -1},                    //
      {5, 76, 4, 2001},                 // check images above 2,000
      {5, 76, 4, 51},                   // more images than the file holds
      {5, 32, 4, 7},                    // a die of 7
      {5, 20, 4, 7},                    // a point of 7
      {5, 8, 4, 9},                     // shooter in no seat
      {10, 200, 8, 8 * 10000},          // generator 9
      {10, 200, 8, 0x7fffffffffffLL},   // a whole number beyond a Long
      {416, 0, 8, 0},                   // a block for slot 0
      {416, 0, 8, 9 * 10000},           // and slot 9
      {416 + 458, 0, 8, 1 * 10000},     // slot 1 given twice
      {416 + 5, 88, 8, 8 * 10000},      // winning-bet rule 8
      {416 + 39, 0, 2, 3},              // a working state of 3
      {416 + 1, 0, 4, 0x20202020},      // a player without a name
      {416 + 41, 10, 1, 0},             // a NUL inside a CheckStack name
      {18, 64, 8, 0},                   // a payoff "for" 0
  };
  for (const Patch& p : patches) {
    std::string bytes = good;
    PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + (p.record - 1) * 256 + p.at,
          static_cast<std::uint64_t>(p.value), p.width);
    SCOPED_TRACE(std::to_string(p.record) + ":" + std::to_string(p.at));
    ExpectRefused(bytes, title, WithPath(kCorrupt, path));
  }
}

TEST_F(OpenFailures, AMissingFileOrAFolderIsNotOpened) {
  EXPECT_FALSE(OpenGame(*game, Path("nothing here.rvg")));
  EXPECT_EQ(platform.messages.back().title, "Game File Not Found");
  EXPECT_EQ(platform.messages.back().text,
            Path("nothing here.rvg") + "\r\rFile not found.\r\rCheck path, filename, or device.");
  std::filesystem::create_directories(Path("folder.rvg"));
  EXPECT_FALSE(OpenGame(*game, Path("folder.rvg")));
  EXPECT_EQ(platform.messages.back().text, WithPath(kCorrupt, Path("folder.rvg")));
  ExpectUnchanged();
}

TEST_F(OpenFailures, FuzzedFilesNeverHarmTheGameInPlay) {
  std::mt19937 rng(20261123);
  const std::string path = Path("fuzz.rvg");
  int refused = 0, opened = 0;
  const auto pristine = std::make_unique<Game>(*game);
  auto attempt = [&](const std::string& bytes) {
    if (OpenGameBytes(*game, path, bytes)) {
      ++opened;
      *game = *pristine;
      return;
    }
    // The whole game compared after every tenth refusal.
    if (++refused % 10 == 0) {
      EXPECT_EQ(TablesChecksum(*game), checksum);
      EXPECT_TRUE(GameFileBytes(*game) == before);
    }
  };
  // Cut at every kind of place: inside the header, fixed part and blocks.
  for (int i = 0; i < 400; ++i) attempt(good.substr(0, rng() % good.size()));
  // Flipped bits, one to eight at a time, anywhere in the file.
  for (int i = 0; i < 1600; ++i) {
    std::string bytes = good;
    for (int k = 1 + static_cast<int>(rng() % 8); k > 0; --k)
      bytes[rng() % bytes.size()] ^= static_cast<char>(1 << (rng() % 8));
    attempt(bytes);
  }
  // Random files, some under a real header and with small counts.
  for (int i = 0; i < 400; ++i) {
    std::string bytes(rng() % (good.size() + 512), '\0');
    for (std::size_t k = 0; k + 4 <= bytes.size(); k += 4) PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + k, rng(), 4);
    if (i % 2 && bytes.size() > 1300) {
      bytes.replace(0, 39, "Ravelton Pro Game File, Data Format 1.0");
      PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + 4 * 256, rng() % 10, 4);
      PutLE(reinterpret_cast<unsigned char*>(bytes.data()) + 4 * 256 + 76, rng() % 30, 4);
    }
    attempt(bytes);
  }
  EXPECT_GT(refused, 700);
  EXPECT_GT(opened, 50);  // many flipped bits land in plain figures
}

TEST_F(OpenFailures, AFailedSaveLeavesTheOldFileAndNoTemporary) {
  game->PlayerName[4] = "Dee";
  const WriteProbe failHalfway = [](std::size_t written) { return written < 100'000; };
  EXPECT_FALSE(SaveGame(*game, Path("good.rvg"), failHalfway));
  EXPECT_EQ(platform.messages.back().title, "Unable to Save Ravelton Game File");
  EXPECT_NE(platform.messages.back().text.find(Path("good.rvg")), std::string::npos);
  EXPECT_TRUE(ReadWholeFile(Path("good.rvg")) == good);
  for (const auto& e : std::filesystem::directory_iterator(dir.Path())) {
    EXPECT_EQ(e.path().filename().string().find(".tmp-"), std::string::npos) << e.path();
  }
  // Into a folder that does not exist.
  EXPECT_FALSE(SaveGame(*game, Path("no/such/folder/x.rvg")));
  EXPECT_NE(platform.messages.back().text.find(Path("no/such/folder/x.rvg")), std::string::npos);
}

// References to other files: the scripts, sessions logs, events log and
// dice roll file, each missing or changed.
TEST_F(StoreFixture, ReferencesThatAreMissingOrChangedAreTold) {
  const std::string script = Path("ann.bet");
  WriteWholeFile(script, "If rolls > 3 Then\r\nEndIf\r\n");
  SeatPlayer(*game, 1, "Ann", Currency::FromWhole(100));
  SeatPlayer(*game, 2, "Bo", Currency::FromWhole(100));
  game->scriptSource.ScriptFile[1] = script;
  game->scriptSource.ScriptFile[2] = Path("gone.bet");
  game->roll.SessionLogPath[2] = Path("elsewhere/bo.slg");
  game->roll.EventsLogPath = Path("events.txt");
  game->diceFile.DiceFilePath = Path("dice.rol");
  WriteWholeFile(Path("dice.rol"), std::string(10, '\x04'));
  game->diceFile.DiceFileMode = 2;
  game->diceFile.DiceFilePos = 5;
  ASSERT_TRUE(SaveGame(*game, Path("refs.rvg")));
  // The script and the dice roll file change after the save.
  struct timespec times[2] = {{0, UTIME_OMIT}, {12345, 0}};
  ::utimensat(AT_FDCWD, script.c_str(), times, 0);
  ::utimensat(AT_FDCWD, Path("dice.rol").c_str(), times, 0);

  HeadlessPlatform other;
  auto g = NewGame(other);
  ASSERT_TRUE(OpenGame(*g, Path("refs.rvg")));
  std::vector<std::string> shown;
  for (const auto& m : other.messages) shown.push_back(m.title + ": " + m.text);
  const std::vector<std::string> expected = {
      "Altered Dice Roll File: The following Dice Roll file (that was in use when this game was "
      "saved) has been changed:\r\r" + Path("dice.rol"),
      "Auto-Bet File Changed: Ann's auto-Bet file has been changed:\r\r" + script,
      "Auto-Bet File Not Found: Bo's auto-bet file was not found:\r\r" + Path("gone.bet"),
      "Sessions Log Not Found: The following Sessions Log for Bo was not found: \r\r" +
          Path("elsewhere/bo.slg") +
          "\r\rThe following new Sessions Log will be created and opened instead:\r\r" +
          Path("bo.slg"),
  };
  EXPECT_EQ(shown, expected);
  EXPECT_EQ(g->scriptSource.ScriptLines[1].size(), 3u);  // the script was loaded
  EXPECT_EQ(g->scriptSource.ScriptLines[1][1], "If rolls > 3 Then");
  EXPECT_EQ(g->scriptSource.ScriptFile[2], "");
  EXPECT_EQ(g->roll.SessionLogPath[2], Path("bo.slg"));
  // The events log file did not exist, so the default one is used quietly.
  EXPECT_EQ(g->roll.EventsLogPath, Path("Events Log.txt"));
  // A changed dice roll file is no longer played from where it was.
  EXPECT_EQ(g->diceFile.DiceFileMode, 0);
  EXPECT_EQ(g->diceFile.DiceFilePos, 1);
  EXPECT_EQ(g->diceFile.DiceFilePath, Path("dice.rol"));

  std::filesystem::remove(Path("dice.rol"));
  ASSERT_TRUE(OpenGame(*g, Path("refs.rvg")));
  EXPECT_EQ(g->diceFile.DiceFilePath, "");
}

}  // namespace
