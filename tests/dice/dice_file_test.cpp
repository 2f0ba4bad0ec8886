// Dice roll files in play: the one-byte format, the check on opening,
// recording and playback through the roll cycle with their stop reasons,
// the rewind question, the recorder's buttons and a new session's choice.
#include "dice/dice_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "core/file_io.h"
#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "cycle/session.h"
#include "tests/engine/roll_fixture.h"

namespace {

void WriteBytes(const std::string& path, const std::vector<unsigned char>& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

std::vector<unsigned char> ReadBytes(const std::string& path) {
  const std::string s = ReadWholeFile(path);
  return {s.begin(), s.end()};
}

TEST(DiceRollByte, DieOneInBitsTwoToFourDieTwoInFiveToSeven) {
  struct Case {
    int die1, die2;
    unsigned char byte;
  };
  for (const Case c : {Case{1, 1, 36}, Case{1, 2, 68}, Case{2, 1, 40}, Case{6, 6, 216}}) {
    EXPECT_EQ(DiceRollByte(c.die1, c.die2), c.byte);
    EXPECT_EQ(DieOneOf(c.byte), c.die1);
    EXPECT_EQ(DieTwoOf(c.byte), c.die2);
  }
}

class DiceFile : public RollFixture {
 protected:
  std::string Path() const { return folder / "rolls.rol"; }
  void Open(const std::vector<unsigned char>& bytes) {
    WriteBytes(Path(), bytes);
    ASSERT_TRUE(OpenDiceRollFile(g, Path()));
  }
  std::string LastMessage() const {
    return platform.messages.empty() ? "" : platform.messages.back().text;
  }
};

TEST_F(DiceFile, OpeningChecksEveryByteAndANewNameCreatesTheFile) {
  WriteBytes(Path(), {36, 68, 0, 216});  // 0 has its low bits clear
  EXPECT_TRUE(IsDiceRollFile(Path()));
  WriteBytes(folder / "empty.rol", {});
  EXPECT_TRUE(IsDiceRollFile(folder / "empty.rol"));
  EXPECT_FALSE(IsDiceRollFile(folder / "missing.rol"));
  for (int odd : {1, 2, 3, 217}) {
    std::vector<unsigned char> bytes(70'000, 36);  // the bad byte in the third block
    bytes[65'432] = static_cast<unsigned char>(odd);
    WriteBytes(Path(), bytes);
    EXPECT_FALSE(IsDiceRollFile(Path())) << odd;
    EXPECT_FALSE(OpenDiceRollFile(g, Path()));
    EXPECT_EQ(LastMessage(), Path() +
                                 "\ris either from an earlier version, has been corrupted, or is "
                                 "not a true Ravelton dice roll file.");
    EXPECT_EQ(platform.messages.back().title, "Unable to Open Dice Roll File");
    EXPECT_EQ(g.diceFile.DiceFilePath, "");
  }
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "new.rol"));
  EXPECT_TRUE(FileExists(folder / "new.rol"));
  EXPECT_EQ(g.diceFile.DiceFilePos, 0);  // an empty file: nothing to point at
  EXPECT_EQ(DiceRollFilesTitle(g), "Dice Roll Files (new.rol)");
  CloseDiceRollFile(g);
  EXPECT_EQ(DiceRollFilesTitle(g), "Dice Roll Files");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);
}

TEST_F(DiceFile, RecordingOverwritesAtThePositionAndGrowsTheFile) {
  Open({36, 36, 36});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  g.diceFile.DiceFilePos = 2;
  Roll(3, 4);
  Roll(6, 5);
  Roll(1, 2);
  EXPECT_EQ(
      ReadBytes(Path()),
      (std::vector<unsigned char>{36, DiceRollByte(3, 4), DiceRollByte(6, 5), DiceRollByte(1, 2)}));
  EXPECT_EQ(g.diceFile.DiceFileLast, 4);
  EXPECT_EQ(g.diceFile.DiceFilePos, 5);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 5);
}

TEST_F(DiceFile, AHyperDriveRunRecordsEveryRollAndPlaybackRepeatsThem) {
  constexpr int kRolls = 100'000;  // several windows of the roll's buffer
  ASSERT_TRUE(OpenDiceRollFile(g, Path()));
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  std::vector<unsigned char> rolled;
  g.hyper.RunRollLimit = kRolls;
  g.hyper.RollObserverContext = &rolled;
  g.hyper.RollObserver = [](void* c, const Game& game) {
    static_cast<std::vector<unsigned char>*>(c)->push_back(DiceRollByte(game.Die1, game.Die2));
  };
  RunHyperDrive(g);
  ASSERT_EQ(rolled.size(), static_cast<std::size_t>(kRolls));
  EXPECT_EQ(ReadBytes(Path()), rolled);

  // Playback from roll 1: the same dice, then the end of the file stops the run.
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  g.diceFile.DiceFilePos = 1;
  std::vector<unsigned char> played;
  g.hyper.RollObserverContext = &played;
  g.hyper.RunRollLimit = 0;
  platform.minimized = true;  // no rewind question
  const Long before = g.RollTally(kTableSession, kEventRolls);
  RunHyperDrive(g);
  EXPECT_EQ(played, rolled);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls) - before, kRolls);
  EXPECT_EQ(g.hyper.LastStopMessage, kEndOfDiceFileStop);
  EXPECT_EQ(g.diceFile.DiceFilePos, kRolls + 1);
  EXPECT_EQ(g.diceFile.DiceFileLast, kRolls);
}

TEST_F(DiceFile, AValueOutOfLimitsStopsPlaybackWithItsMessage) {
  for (unsigned char bad : {static_cast<unsigned char>(0), DiceRollByte(7, 1), DiceRollByte(3, 0),
                            DiceRollByte(2, 7)}) {
    Open({DiceRollByte(2, 3), bad, DiceRollByte(4, 4)});
    ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
    Roll(6, 6);  // a pad roll comes before the file
    RollDice(g);
    EXPECT_EQ(g.Die1 * 10 + g.Die2, 23);
    const Long rolls = g.RollTally(kTableSession, kEventRolls);
    platform.messages.clear();
    RollDice(g);
    EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), rolls) << "no roll is taken";
    EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Dice Roll File Error");
    EXPECT_EQ(platform.messages[0].text,
              "A dice roll value has been found to be out of limits. \r\rPlayback of this Dice "
              "Roll File has ceased so that you can check the file or continue without it.");
    EXPECT_EQ(g.diceFile.DiceFilePath, Path()) << "the file stays open";
  }
  // In Hyper-Drive the run stops with the reason instead of the message.
  Open({DiceRollByte(2, 3), 0});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  platform.minimized = true;
  platform.messages.clear();
  RunHyperDrive(g);
  EXPECT_EQ(g.hyper.LastStopMessage, kDiceFileValueStop);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(DiceFile, TheEndOfTheFileAsksToRewind) {
  Open({DiceRollByte(1, 3)});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  struct Case {
    int answer;
    std::int32_t mode, pos;
  };
  for (const Case c :
       {Case{kAnswerCancel, kDiceFilePlayback, 2}, Case{kAnswerNo, kDiceFileInactive, 2},
        Case{kAnswerYes, kDiceFilePlayback, 1}}) {
    g.diceFile.DiceFileMode = kDiceFilePlayback;
    g.diceFile.DiceFilePos = 2;
    MessageReply reply;
    reply.answer = c.answer;
    platform.queuedReplies.push_back(reply);
    platform.messages.clear();
    RollDice(g);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].text, "Playback stopped.\rRewind for playback?");
    EXPECT_EQ(platform.messages[0].title, "Dice Roll File");
    EXPECT_EQ(g.diceFile.DiceFileMode, c.mode) << c.answer;
    EXPECT_EQ(g.diceFile.DiceFilePos, c.pos) << c.answer;
    EXPECT_TRUE(g.StopMessage.empty());
  }
  g.diceFile.DiceFileMode = kDiceFileRecording;
  AskRewindDiceFile(g);
  EXPECT_EQ(platform.messages.back().text, "Recording stopped.\rRewind for playback?");
}

TEST_F(DiceFile, TheRecorderNeedsAFileAndLogsPlayback) {
  EXPECT_FALSE(SetDiceFileMode(g, kDiceFileRecording));
  EXPECT_EQ(platform.messages.back().title, "Record Dice Rolls During Game Play");
  EXPECT_FALSE(SetDiceFileMode(g, kDiceFilePlayback));
  EXPECT_EQ(platform.messages.back().title, "Playback Dice Rolls During Game Play");
  EXPECT_EQ(LastMessage(), "You need to open a file first.");

  g.roll.LogOn = true;
  Open({DiceRollByte(5, 6), DiceRollByte(2, 2)});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  RollDice(g);
  ApplyNewSessionDiceMode(g, 1);  // rewind: the same roll again
  NewSession(g, false, false, true, 1);
  RollDice(g);
  NewSession(g, false, false, true, 0);  // closes the file
  EXPECT_EQ(g.diceFile.DiceFilePath, "");
  const std::string log = EventsLogText(g);
  EXPECT_EQ(log.find("    Dice roll file playback activated (" + Path() +
                     ")\n Roll #1:  11 (5.6) "
                     "from roll file\n"),
            0u)
      << log;
  EXPECT_NE(log.find("    Dice roll file playback active (" + Path() +
                     ")\n----New hand, come-out roll----------\n Roll #1:  11 (5.6) from roll "
                     "file\n"),
            std::string::npos)
      << log;
}

}  // namespace
