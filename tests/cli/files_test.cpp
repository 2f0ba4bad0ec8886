// End-to-end tests of ravelton-cli with files: run --load/--save/--data,
// seats by --player, info; run --record/--playback/--log and the rolls
// command. A run split by a save and a load ends as the straight run; a
// recorded run played back is the same game and stops at the end of its file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "cli_util.h"
#include "core/file_io.h"
#include "dice/dice_file.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

namespace {

using cli_test::Cli;
using cli_test::Result;

class CliFiles : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir / name; }
  // A run in this test's data folder.
  Result Run(const std::string& args, bool stderrOnly = false) const {
    return Cli("run --data '" + dir.Path() + "' " + args, stderrOnly);
  }
  // What info says of a game file of this test, as JSON.
  nlohmann::json Info(const std::string& name) const {
    return cli_test::Json("info --json --data '" + dir.Path() + "' '" + Path(name) + "'");
  }
  TempFolder dir;
};

const std::string kPlayers =
    "--player Ann=500@3 --player Bo=300 --bet Ann:43=10 --bet Bo:Field=5 --win-rule Ann:2 "
    "--lose-rule Ann:2 --win-rule Bo:2 --lose-rule Bo:2 --take-odds Ann --rng 3 --seed 42 ";

// A loaded and saved game keeps every byte (the store's own tests hold
// that); here the options on the way keep it too.
TEST_F(CliFiles, ARunSplitBySaveAndLoadEndsAsTheStraightRun) {
  const auto straight = Run(kPlayers + "--rolls 1000 --json --save '" + Path("full.rvg") + "'");
  ASSERT_EQ(straight.exitCode, 0);
  ASSERT_EQ(Run(kPlayers + "--rolls 377 --save '" + Path("half.rvg") + "'").exitCode, 0);
  const auto rest =
      Run("--load '" + Path("half.rvg") + "' --rolls 623 --json --save '" + Path("rest.rvg") + "'");
  ASSERT_EQ(rest.exitCode, 0);
  // The same game, byte for byte, and the same summary: rolls go on counting.
  EXPECT_TRUE(ReadWholeFile(Path("full.rvg")) == ReadWholeFile(Path("rest.rvg")));
  auto a = nlohmann::json::parse(straight.out), b = nlohmann::json::parse(rest.out);
  a.erase("seconds"), b.erase("seconds");
  EXPECT_EQ(a, b);
  EXPECT_EQ(b["rolls"], 1000);
}

TEST_F(CliFiles, ALoadedGameKeepsItsSettingsUnlessAnOptionIsGiven) {
  ASSERT_EQ(
      Run("--rolls 0 --require any --auto-stop 50 --rng 5 --save '" + Path("g.rvg") + "'").exitCode,
      0);
  auto info = Info("g.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Any bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
  ASSERT_EQ(
      Run("--load '" + Path("g.rvg") + "' --rolls 0 --require line --save '" + Path("h.rvg") + "'")
          .exitCode,
      0);
  info = Info("h.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Line bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
}

// What the messages say and that no temporary is left are the store's tests;
// here the program stops with them.
TEST_F(CliFiles, AGameThatDoesNotOpenOrSaveStopsTheProgram) {
  WriteWholeFile(Path("junk.rvg"), "not a game");
  const auto r = Run("--load '" + Path("junk.rvg") + "' --rolls 10", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "Unable to Open Ravelton Game File: " + Path("junk.rvg") +
                       " This is not a Ravelton game file.\n");
  EXPECT_EQ(Run("--load '" + Path("junk.rvg") + "' --rolls 10").out, "");
  const auto missing = Cli("info '" + Path("none.rvg") + "'", true);
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_NE(missing.out.find("Game File Not Found: " + Path("none.rvg")), std::string::npos);
  std::filesystem::create_directories(Path("taken.rvg/inside"));
  const auto save = Run("--rolls 5 --save '" + Path("taken.rvg") + "'", true);
  EXPECT_EQ(save.exitCode, 1);
  EXPECT_NE(save.out.find("Unable to Save Ravelton Game File"), std::string::npos) << save.out;
  EXPECT_NE(save.out.find(Path("taken.rvg")), std::string::npos);
}

TEST_F(CliFiles, PlayersSitWhereTheyAskOrInTheLowestOpenSeats) {
  const auto r = Run("--rolls 0 --json --player Ann@5 --player Bo --player Cy=20@1 --player Di");
  ASSERT_EQ(r.exitCode, 0);
  std::map<std::string, int> seats;
  const auto summary = nlohmann::json::parse(r.out);
  for (const auto& p : summary["players"]) seats[p["name"]] = p["seat"];
  EXPECT_EQ(seats, (std::map<std::string, int>{{"Ann", 5}, {"Bo", 2}, {"Cy", 1}, {"Di", 3}}));
  for (const char* bad :
       {"--player Ann@9", "--player Ann@0", "--player Ann@5 --player Bo@5", "--player Ann@x"})
    EXPECT_EQ(Run(std::string("--rolls 0 ") + bad).exitCode, 1) << bad;
  // Seats a loaded game holds are taken.
  ASSERT_EQ(Run("--rolls 0 --player Ann@2 --save '" + Path("a.rvg") + "'").exitCode, 0);
  EXPECT_EQ(Run("--load '" + Path("a.rvg") + "' --rolls 0 --player Bo@2").exitCode, 1);
  const auto more = Run("--load '" + Path("a.rvg") + "' --rolls 0 --json --player Bo");
  ASSERT_EQ(more.exitCode, 0);
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["name"], "Bo");
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["seat"], 1);
}

TEST_F(CliFiles, InfoTellsPlayersFramesFilesAndSettings) {
  ASSERT_EQ(Run(kPlayers + "--rolls 200 --save '" + Path("g.rvg") + "'").exitCode, 0);
  const auto info = Info("g.rvg");
  ASSERT_EQ(info["players"].size(), 2u);
  const auto& ann = info["players"][1];
  EXPECT_EQ(ann["slot"], 3);
  EXPECT_EQ(ann["name"], "Ann");
  EXPECT_EQ(ann["win_rule"], 2);
  EXPECT_EQ(ann["script"], "");
  EXPECT_EQ(ann["script_active"], false);
  EXPECT_DOUBLE_EQ(ann["rail"].get<double>(),
                   ann["bankroll"].get<double>() - ann["total_bets"].get<double>());
  for (const char* key : {"invested", "on_table", "checkstacks", "checkstack_names", "lose_rule"})
    EXPECT_TRUE(ann.contains(key)) << key;
  ASSERT_EQ(info["frames"].size(), 5u);
  EXPECT_EQ(info["frames"][2]["frame"], "Current session");
  EXPECT_EQ(info["frames"][2]["rolls"], 200);
  EXPECT_EQ(info["frames"][4]["rolls"], 200);
  EXPECT_EQ(info["files"][0]["path"], Path("Events Log.txt"));
  EXPECT_EQ(info["settings"]["odds_method"], "Auto select");
  // The text form names the same things.
  const auto text = Cli("info --data '" + dir.Path() + "' '" + Path("g.rvg") + "'").out;
  EXPECT_NE(text.find("Seat 3: Ann, bankroll $"), std::string::npos) << text;
  EXPECT_NE(text.find("Current session: 200 rolls"), std::string::npos) << text;
}

// The trace lines of an output and its last line (the JSON summary) apart.
struct Traced {
  std::string trace;
  nlohmann::json summary;
};
Traced Split(const Result& r) {
  Traced t;
  const auto last = r.out.rfind('\n', r.out.size() - 2);
  t.trace = r.out.substr(0, last + 1);
  t.summary = nlohmann::json::parse(r.out.substr(last + 1), nullptr, false);
  if (t.summary.is_object()) t.summary.erase("seconds");
  return t;
}

const std::string kTable =
    " --trace --json --player Ann=1000 --bet Ann:pass\\ line=10 --take-odds Ann --win-rule "
    "Ann:2 --lose-rule Ann:2 --bet Ann:field=5";

TEST_F(CliFiles, ARecordedRunPlayedBackIsTheSameGameAndEndsWithItsFile) {
  const std::string file = Path("run.rol");
  const Traced recorded =
      Split(Run("--rolls 100000 --record '" + file + "' --rng 2 --seed 31337" + kTable));
  ASSERT_TRUE(recorded.summary.is_object());
  EXPECT_EQ(FileLength(file), 100'000);
  EXPECT_EQ(recorded.summary["rolls"], 100'000);

  // Other seed, other generator: only the file's dice count.
  const Traced played =
      Split(Run("--rolls 300000 --playback '" + file + "' --rng 5 --seed 1" + kTable));
  ASSERT_TRUE(played.summary.is_object());
  EXPECT_EQ(played.trace, recorded.trace);
  EXPECT_EQ(played.summary["stop"], std::string(kEndOfDiceFileStop));
  for (const char* key : {"players", "totals", "hands"})
    EXPECT_EQ(played.summary[key], recorded.summary[key]) << key;
  EXPECT_EQ(played.summary["rolls"], 100'000);

  // From roll 99,991: the file's last ten rolls.
  const Result tail = Run("--playback '" + file + "' --from-roll 99991 --trace");
  ASSERT_EQ(tail.exitCode, 0);
  std::string lastTen;
  std::istringstream lines(recorded.trace);
  for (std::string line; std::getline(lines, line);)
    if (std::stol(line) > 99'990)
      lastTen += std::to_string(std::stol(line) - 99'990) + line.substr(line.find(' ')) + '\n';
  EXPECT_EQ(tail.out.substr(0, lastTen.size()), lastTen);
  EXPECT_NE(tail.out.find("Stopped: " + std::string(kEndOfDiceFileStop)), std::string::npos);
}

TEST_F(CliFiles, ADiceFileThatIsNotOneIsRefusedAndABadValueStopsTheRun) {
  const std::string odd = Path("odd.rol");
  std::ofstream(odd, std::ios::binary) << "\x24\x25";
  const Result r = Run("--rolls 10 --playback '" + odd + "'", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "ravelton-cli run: " + odd +
                       " is either from an earlier version, has been corrupted, or is not a true "
                       "Ravelton dice roll file.\n");
  for (const std::string& bad :
       {"--playback '" + Path("none.rol") + "'", std::string("--record a.rol --playback b.rol"),
        std::string("--from-roll 3"), std::string("--rolls 3 --log dice"),
        std::string("--rolls 3 --log-file x.txt")})
    EXPECT_EQ(Run(bad).exitCode, 1) << bad;

  const std::string bad = Path("bad.rol");
  std::ofstream(bad, std::ios::binary) << '\x24' << '\x44' << '\0' << '\x24';
  const Result stopped = Run("--rolls 10 --playback '" + bad + "' --json");
  EXPECT_EQ(stopped.exitCode, 0);
  const auto j = nlohmann::json::parse(stopped.out, nullptr, false);
  EXPECT_EQ(j["stop"], std::string(kDiceFileValueStop));
  EXPECT_EQ(j["rolls"], 2);
}

// The lines' own forms are the events log's tests; here the kinds asked
// for, and the one index in the data folder.
TEST_F(CliFiles, TheLogHoldsTheKindsAskedAndItsIndexStaysInTheDataFolder) {
  ASSERT_EQ(Run("--rolls 40 --seed 5 --log rolls,passes").exitCode, 0);
  const std::string log = ReadWholeFile(Path("Events Log.txt"));
  const auto lineCount = [](const std::string& text) {
    return static_cast<std::int64_t>(std::count(text.begin(), text.end(), '\n'));
  };
  EXPECT_EQ(log.find(" New session started "), 0u) << log;
  // Every line is a session line, a roll line from the generator, or a pass line.
  int rolls = 0;
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    ASSERT_TRUE(!line.empty() && line.back() == '\r') << "lines end in CR LF";
    line.pop_back();
    if (line.starts_with(" Roll #")) {
      EXPECT_TRUE(line.starts_with(" Roll #" + std::to_string(++rolls) + ":  ")) << line;
      EXPECT_TRUE(line.ends_with(" from RNG #1")) << line;
      continue;
    }
    const bool known = line.starts_with(" New session started ") ||
                       line == "----New hand, come-out roll----------" ||
                       line == "    Pass (point rolled)" || line == "    Pass (natural)" ||
                       line == "    Point established" || line == "    Miss (craps natural)" ||
                       line == "    Miss (seven-out)";
    EXPECT_TRUE(known) << line;
  }
  EXPECT_EQ(rolls, 40);
  EXPECT_EQ(FileLength(Path("Events Log.ref")), 4 * lineCount(log));

  const std::string own = Path("mine.txt");
  ASSERT_EQ(Run("--rolls 3 --log --log-file '" + own + "'").exitCode, 0);
  EXPECT_NE(ReadWholeFile(own).find(" Roll #3:  "), std::string::npos);
  EXPECT_EQ(FileLength(Path("Events Log.ref")), 4 * lineCount(ReadWholeFile(own)))
      << "the one index belongs to the log just written";
}

TEST_F(CliFiles, RollsPrintAsTextAndTextBecomesRolls) {
  const std::string text = Path("in.txt");
  std::ofstream(text, std::ios::binary) << "3-4, 1 6x2 and 5,5 then 2 (the last 2 is dropped)";
  const std::string file = Path("in.rol");
  const Result imported = Cli("rolls --import '" + text + "' --output '" + file + "'");
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.out, "4 rolls written to " + file + "\n");
  EXPECT_EQ(Cli("rolls '" + file + "'").out, "1 (3.4) 7\n2 (1.6) 7\n3 (2.5) 7\n4 (5.2) 7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 2 --count 2 --format 'Roll#: Die1+Die2=Total'").out,
            "2: 1+6=7\n3: 2+5=7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 9").out, "");
  for (const std::string& bad : {"rolls '" + file + "' --format 'Roll#'",
                                 "rolls '" + text + "'",  // not a dice roll file
                                 std::string("rolls"), "rolls --import '" + text + "'"})
    EXPECT_EQ(Cli(bad).exitCode, 1) << bad;
}

}  // namespace
