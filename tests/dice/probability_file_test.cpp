// Probability files: the bytes of a saved table, a round trip through the
// data folder, and files that must be refused with the table left in use.
#include "dice/probability_file.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/message_dialog.h"
#include "dice/probability.h"
#include "tests/engine/roll_fixture.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFileBytes = 5 * 256;

void WriteBytes(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::int32_t EntryAt(const std::string& bytes, std::size_t offset) {
  std::uint32_t u = 0;
  for (int i = 3; i >= 0; --i) u = u << 8 | static_cast<unsigned char>(bytes[offset + i]);
  return static_cast<std::int32_t>(u);
}

void PutEntry(std::string& bytes, std::size_t offset, std::int32_t v) {
  for (int i = 0; i < 4; ++i) bytes[offset + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
}

// Byte offset of entry (k, a, b) in a file.
std::size_t Offset(int k, int a, int b) { return 256 + 4 * (k * 112 + a * 14 + b); }

class ProbabilityFile : public RollFixture {
 protected:
  // A skewed, partly locked table to save.
  void Skew() {
    SetProbabilityCell(g, kTotalRow, 6, 20000, true);
    const ProbEntry cell = CellOfDice(2, 5);
    SetProbabilityCell(g, cell.a, cell.b, 4000, true);
    ProbFlag(g, 0, 1) = 3;  // the selected entry
    ProbFlag(g, 0, 2) = 4;
  }
};

TEST_F(ProbabilityFile, SavedBytesHoldTheHeaderThenFlagsThenValuesInFileOrder) {
  Skew();
  ASSERT_TRUE(SaveProbabilityFile(g, "skew.prb"));
  const std::string bytes = ReadWholeFile(folder / "skew.prb");
  ASSERT_EQ(bytes.size(), kFileBytes);
  EXPECT_EQ(bytes.substr(0, 200), std::string(kProbabilityFileHeader) +
                                      std::string(200 - kProbabilityFileHeader.size(), ' '));
  EXPECT_EQ(EntryAt(bytes, Offset(0, 0, 0)), kFreeFormDice);
  EXPECT_EQ(EntryAt(bytes, Offset(0, 0, 1)), 3);
  EXPECT_EQ(EntryAt(bytes, Offset(0, 0, 2)), 4);
  EXPECT_EQ(EntryAt(bytes, Offset(0, 1, 6)), kProbLocked);  // total 7
  EXPECT_EQ(EntryAt(bytes, Offset(1, 1, 6)), 20000);
  const ProbEntry cell = CellOfDice(2, 5);
  EXPECT_EQ(EntryAt(bytes, Offset(1, cell.a, cell.b)), 4000);
  EXPECT_EQ(EntryAt(bytes, Offset(1, 7, 13)), ProbValue(g, 7, 13));  // the last entry
  EXPECT_EQ(Offset(1, 7, 13) + 4, 256 + 224 * 4u);
  EXPECT_EQ(bytes.substr(Offset(1, 7, 13) + 4), std::string(128, '\0'));
  EXPECT_EQ(g.probability.ProbFilePath, folder / "skew.prb");
  EXPECT_FALSE(g.probability.ProbDirty);
  EXPECT_FALSE(fs::exists(folder / "skew.prb.~prb"));
}

TEST_F(ProbabilityFile, RoundTripRestoresTheWholeTableAndLeavesTheDiceSwitchAlone) {
  Skew();
  ASSERT_TRUE(SaveProbabilityFile(g, folder / "round.prb"));
  const auto saved = g.probability.ProbabilityTable;
  NewProbabilities(g);
  g.probability.ProbDirty = true;
  g.dice.ProbabilityDiceOn = true;
  ASSERT_TRUE(LoadProbabilityFile(g, "round.prb"));  // a bare name: the data folder
  EXPECT_EQ(g.probability.ProbabilityTable, saved);
  EXPECT_EQ(g.probability.ProbFilePath, folder / "round.prb");
  EXPECT_FALSE(g.probability.ProbDirty);
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
  // The record's ignored tail may be missing: 1152 bytes are a whole table.
  WriteBytes(folder / "short-tail.prb",
             ReadWholeFile(folder / "round.prb").substr(0, 256 + 224 * 4));
  NewProbabilities(g);
  EXPECT_TRUE(LoadProbabilityFile(g, folder / "short-tail.prb"));
  EXPECT_EQ(g.probability.ProbabilityTable, saved);
}

TEST_F(ProbabilityFile, BadFilesAreRefusedAndTheTableInUseStays) {
  Skew();
  ASSERT_TRUE(SaveProbabilityFile(g, "good.prb"));
  const std::string good = ReadWholeFile(folder / "good.prb");
  NewProbabilities(g);
  SetProbabilityCell(g, kTotalRow, 1, 9000, true);
  const auto inUse = g.probability.ProbabilityTable;
  const std::string path = g.probability.ProbFilePath;

  auto with = [&](std::size_t offset, std::int32_t v) {
    std::string b = good;
    PutEntry(b, offset, v);
    return b;
  };
  std::string otherHeader = good;
  otherHeader.replace(0, 6, "Bogus ");
  std::string olderFormat = good;
  olderFormat.replace(kProbabilityFileHeader.size() - 3, 3, "4.5");
  const struct {
    const char* why;
    std::string bytes;
    ProbFileStatus status;
  } cases[] = {
      {"empty", "", ProbFileStatus::NotProbabilityFile},
      {"one byte short", good.substr(0, 256 + 224 * 4 - 1), ProbFileStatus::NotProbabilityFile},
      {"another header", otherHeader, ProbFileStatus::NotProbabilityFile},
      {"an older format", olderFormat, ProbFileStatus::NotProbabilityFile},
      {"a negative cell", with(Offset(1, 2, 1), -5), ProbFileStatus::NotProbabilityFile},
      {"a mark left in a flag", with(Offset(0, 2, 1), 4), ProbFileStatus::NotProbabilityFile},
      {"an unknown kind of dice", with(Offset(0, 0, 0), 7), ProbFileStatus::NotProbabilityFile},
      {"random bytes", std::string(kFileBytes, '\xA5'), ProbFileStatus::NotProbabilityFile},
  };
  for (const auto& c : cases) {
    WriteBytes(folder / "bad.prb", c.bytes);
    EXPECT_EQ(ReadProbabilityFile(g, "bad.prb"), c.status) << c.why;
    EXPECT_EQ(g.probability.ProbabilityTable, inUse) << c.why;
    EXPECT_EQ(g.probability.ProbFilePath, path) << c.why;
    EXPECT_TRUE(g.probability.ProbDirty) << c.why;
  }
  EXPECT_TRUE(platform.messages.empty());  // from a game file or a script: silent
  EXPECT_EQ(ReadProbabilityFile(g, "missing.prb"), ProbFileStatus::NotFound);
  EXPECT_FALSE(fs::exists(folder / "missing.prb"));
  EXPECT_EQ(ReadProbabilityFile(g, folder.Path()), ProbFileStatus::Unreadable);
  EXPECT_EQ(g.probability.ProbabilityTable, inUse);
}

TEST_F(ProbabilityFile, AFilePickedByHandThatIsNotAProbabilityFileIsTold) {
  WriteBytes(folder / "notes.prb", "Some other text");
  const std::string path = folder / "notes.prb";
  EXPECT_FALSE(LoadProbabilityFile(g, path, true));
  ASSERT_EQ(platform.messages.size(), 1u);
  const MessageRequest& m = platform.messages[0];
  EXPECT_EQ(m.text, path +
                        "\ris either from an older version, has been corrupted, or is not a "
                        "true Ravelton Probability File.");
  EXPECT_EQ(m.title, "Unable to Open Probability File");
  EXPECT_EQ(m.helpId, 105);
  EXPECT_EQ(m.style, kMsgOk | kMsgPicStop);
}

TEST_F(ProbabilityFile, ASaveThatCannotWriteLeavesTheOldFileAndNoTemporary) {
  ASSERT_TRUE(SaveProbabilityFile(g, "kept.prb"));
  const std::string before = ReadWholeFile(folder / "kept.prb");
  SetProbabilityCell(g, kTotalRow, 6, 30000, true);
  EXPECT_FALSE(SaveProbabilityFile(g, folder / "no-such-folder/x.prb"));
  EXPECT_TRUE(g.probability.ProbDirty);
  EXPECT_EQ(g.probability.ProbFilePath, folder / "kept.prb");
  fs::create_directories(folder / "kept-dir.prb");  // a folder in the way of the rename
  EXPECT_FALSE(SaveProbabilityFile(g, folder / "kept-dir.prb"));
  EXPECT_FALSE(fs::exists(folder / "kept-dir.prb.~prb"));
  EXPECT_EQ(ReadWholeFile(folder / "kept.prb"), before);
}

TEST_F(ProbabilityFile, UnsavedNumbersAreAskedAboutBeforeNewOrOpen) {
  EXPECT_EQ(AskToSaveProbabilities(g), ProbSaveChoice::Go);  // nothing unsaved: no question
  EXPECT_TRUE(platform.messages.empty());
  SetProbabilityCell(g, kTotalRow, 6, 20000, true);
  const struct {
    int answer;
    const char* path;
    ProbSaveChoice choice;
    bool dirtyAfter;
  } cases[] = {
      {kAnswerCancel, "", ProbSaveChoice::Cancel, true},
      {kAnswerNo, "", ProbSaveChoice::Go, true},
      {kAnswerYes, "", ProbSaveChoice::SaveAs, true},
      {kAnswerYes, "default.prb", ProbSaveChoice::SaveAs, true},
      {kAnswerYes, "mine.prb", ProbSaveChoice::Go, false},
  };
  for (const auto& c : cases) {
    g.probability.ProbDirty = true;
    g.probability.ProbFilePath = c.path[0] ? folder / c.path : "";
    platform.queuedReplies.push_back({c.answer, "", "", false});
    EXPECT_EQ(AskToSaveProbabilities(g), c.choice) << c.answer << c.path;
    EXPECT_EQ(g.probability.ProbDirty, c.dirtyAfter) << c.answer << c.path;
  }
  EXPECT_TRUE(fs::exists(folder / "mine.prb"));
  ASSERT_EQ(platform.messages.size(), 5u);
  const MessageRequest& m = platform.messages[0];
  EXPECT_EQ(m.text, "These numbers have not been saved.\r\rDo you want to save them now?");
  EXPECT_EQ(m.title, "Save Probabilities?");
  EXPECT_EQ(m.helpId, 600);
  EXPECT_EQ(m.style, kMsgYes | kMsgNo | kMsgCancel | kMsgFocusYes);
}

TEST_F(ProbabilityFile, HostileTablesThatPassTheChecksStillDrawAndBalance) {
  // Files with the right header and random entries, most of them refused;
  // what is accepted must still give dice in range and take any set.
  ASSERT_TRUE(SaveProbabilityFile(g, "base.prb"));
  const std::string base = ReadWholeFile(folder / "base.prb");
  std::uint32_t state = 12345;
  auto next = [&] { return state = state * 1664525u + 1013904223u; };
  int accepted = 0;
  for (int file = 0; file < 200; ++file) {
    std::string bytes = base;
    const int changes = 1 + static_cast<int>(next() % 40);
    for (int i = 0; i < changes; ++i) {
      const std::size_t entry = next() % 224;
      // Values: anything, or small ones that keep the table legal.
      const std::int32_t v = (next() & 1) ? static_cast<std::int32_t>(next())
                                          : static_cast<std::int32_t>(next() % 200000);
      PutEntry(bytes, 256 + 4 * entry, entry < 112 ? ((next() & 1) ? 0 : kProbLocked) : v);
    }
    WriteBytes(folder / "hostile.prb", bytes);
    if (!LoadProbabilityFile(g, "hostile.prb")) continue;
    ++accepted;
    for (Long k : {1, 50000, 100000, 100001}) {
      PickProbabilityDice(g, k);
      ASSERT_TRUE(g.Die1 >= 1 && g.Die1 <= 6 && g.Die2 >= 1 && g.Die2 <= 6) << file;
    }
    const ProbEntry e = (file % 3 == 0)   ? TotalEntry(2 + file % 11)
                        : (file % 3 == 1) ? FaceEntry(1 + file % 2, 1 + file % 6)
                                          : CellOfDice(1 + file % 6, 1 + (file / 6) % 6);
    SetProbabilityCell(g, e.a, e.b, static_cast<double>(next() % 150000), true);
  }
  EXPECT_GT(accepted, 10);
}

}  // namespace
