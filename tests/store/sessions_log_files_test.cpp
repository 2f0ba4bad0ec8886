// The Sessions Log's file commands: a new log deletes the player's default
// file after offering to save it, a session in progress is warned about,
// a new log for all players recreates every default file, and Save As
// copies the log byte for byte and makes the copy the player's log.
#include "store/sessions_log_files.h"

#include <gtest/gtest.h>

#include <fstream>

#include "core/file_io.h"
#include "core/message_dialog.h"
#include "engine/players.h"
#include "stats/sessions_log.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/file_text.h"

namespace {

class SessionsLogFiles : public RollFixture {
 protected:
  SessionsLogFiles() {
    SeatPlayer(g, 1, "Ann", 500_usd);
    SeatPlayer(g, 2, "Bo", 500_usd);
  }
  // Appends sessions with these nets to the log at path.
  static void Log(const std::string& path, std::initializer_list<int> nets) {
    for (int net : nets) {
      SessionRecord r{};
      r[kNetValue] = Currency::FromWhole(net);
      ASSERT_FALSE(AppendSessionRecord(path, r).has_value());
    }
  }
  void Answer(int answer) {
    MessageReply r;
    r.answer = answer;
    platform.queuedReplies.push_back(r);
  }
  std::string Default(int p) const { return DefaultSessionLogPath(g, p); }
};

TEST_F(SessionsLogFiles, NewOffersToSaveTheDefaultLogThenDeletesIt) {
  Log(Default(1), {5, -3});
  const std::string kept = ReadWholeFile(Default(1));

  Answer(kAnswerCancel);  // nothing changes
  EXPECT_FALSE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.messages.back().title, "Save Sessions Log");
  EXPECT_EQ(platform.messages.back().text,
            "Ann's log needs to be re-named \rif you want to save it.\r\rDo you want to re-name it now?");
  EXPECT_EQ(SessionsLogReader(Default(1)).count(), 2);

  // Yes: saved under the name given, then the default file is gone and the
  // player's log is the default again.
  Answer(kAnswerYes);
  platform.queuedFileNames.push_back(folder / "ann-week1.slg");
  EXPECT_TRUE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.fileChoosers.back().caption, "Save Sessions Log As");
  EXPECT_EQ(ReadWholeFile(folder / "ann-week1.slg"), kept);
  EXPECT_FALSE(FileExists(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), Default(1));
  EXPECT_TRUE(g.roll.SessionDirty);

  // A log that is not the default is left alone, and nobody is asked.
  g.roll.SessionLogPath[1] = folder / "ann-week1.slg";
  Log(Default(1), {1});
  const std::size_t asked = platform.messages.size();
  EXPECT_TRUE(NewSessionsLog(g, 1));
  EXPECT_EQ(platform.messages.size(), asked);
  EXPECT_EQ(SessionsLogReader(folder / "ann-week1.slg").count(), 2);
  EXPECT_FALSE(FileExists(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), Default(1));
}

TEST_F(SessionsLogFiles, ASessionInProgressIsWarnedAbout) {
  Roll(3, 4);
  Answer(kAnswerNo);
  Log(Default(2), {1});
  EXPECT_FALSE(NewSessionsLogs(g));
  EXPECT_EQ(platform.messages.back().title, "Session in progress will be added to new Sessions Logs");
  EXPECT_NE(platform.messages.back().text.find(
                "There's currently a session in progress which will be added to your new Sessions Logs "
                "when it's finished.\r\r"),
            std::string::npos);
  EXPECT_EQ(SessionsLogReader(Default(2)).count(), 1);
  Answer(kAnswerNo);
  EXPECT_FALSE(NewSessionsLog(g, 2));
  EXPECT_EQ(platform.messages.back().title, "Session in progress will be added to new Sessions Log");

  // Going on: Bo's default log holds a session, and No to saving it loses
  // it; every seated player gets a log of no sessions.
  Answer(kAnswerYes);
  Answer(kAnswerNo);
  EXPECT_TRUE(NewSessionsLogs(g));
  for (int p : {1, 2}) {
    SessionsLogReader log(Default(p));
    EXPECT_TRUE(log.ok() && log.exists()) << p;
    EXPECT_EQ(log.count(), 0) << p;
  }
}

TEST_F(SessionsLogFiles, SaveAsCopiesTheLogAndMakesItThePlayers) {
  // A log not yet written is saved as a log of no sessions.
  platform.queuedFileNames.push_back(folder / "empty.slg");
  EXPECT_TRUE(SaveSessionsLogAs(g, 2));
  EXPECT_EQ(SessionsLogReader(folder / "empty.slg").count(), 0);
  EXPECT_EQ(SessionLogPathOf(g, 2), folder / "empty.slg");

  // A log with a deleted session keeps its bytes, leftovers included.
  Log(Default(1), {1, 2, 3});
  EXPECT_EQ(DeleteSessions(Default(1), 3, 3), "");
  platform.queuedFileNames.push_back(folder / "copy.slg");
  EXPECT_TRUE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(ReadWholeFile(folder / "copy.slg"), ReadWholeFile(Default(1)));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");

  // Cancelled: the player keeps the log. A damaged log is not copied.
  platform.queuedFileNames.push_back(std::nullopt);
  EXPECT_FALSE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");
  {
    std::ofstream bad(folder / "copy.slg", std::ios::trunc);
    bad << "not a log";
  }
  platform.queuedFileNames.push_back(folder / "other.slg");
  EXPECT_FALSE(SaveSessionsLogAs(g, 1));
  EXPECT_EQ(platform.messages.back().title, "Save Sessions Log As");
  EXPECT_FALSE(FileExists(folder / "other.slg"));
  EXPECT_EQ(SessionLogPathOf(g, 1), folder / "copy.slg");
}

}  // namespace
