// End-to-end: ravelton-cli run --load/--save/--data, seats by --player, and
// info, through the real program.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/cli/cli_util.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

namespace {

using cli_test::Cli;
namespace fs = std::filesystem;

class GameFileCli : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir / name; }
  // A run in this test's data folder.
  cli_test::Result Run(const std::string& args, bool stderrOnly = false) const {
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

TEST_F(GameFileCli, ARunSplitBySaveAndLoadEndsAsTheStraightRun) {
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

  // Loaded and saved again without a roll: the same bytes.
  ASSERT_EQ(Run("--load '" + Path("full.rvg") + "' --rolls 0 --save '" + Path("again.rvg") + "'")
                .exitCode,
            0);
  EXPECT_TRUE(ReadWholeFile(Path("full.rvg")) == ReadWholeFile(Path("again.rvg")));
}

TEST_F(GameFileCli, ALoadedGameKeepsItsSettingsUnlessAnOptionIsGiven) {
  ASSERT_EQ(Run("--rolls 0 --require any --auto-stop 50 --rng 5 --save '" + Path("g.rvg") + "'")
                .exitCode,
            0);
  auto info = Info("g.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Any bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
  ASSERT_EQ(Run("--load '" + Path("g.rvg") + "' --rolls 0 --require line --save '" +
                Path("h.rvg") + "'")
                .exitCode,
            0);
  info = Info("h.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Line bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
}

TEST_F(GameFileCli, AGameThatDoesNotOpenRunsNothing) {
  WriteWholeFile(Path("junk.rvg"), "not a game");
  const auto r = Run("--load '" + Path("junk.rvg") + "' --rolls 10", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "Unable to Open Ravelton Game File: " + Path("junk.rvg") +
                       " This is not a Ravelton game file.\n");
  EXPECT_EQ(Run("--load '" + Path("junk.rvg") + "' --rolls 10").out, "");
  const auto missing = Cli("info '" + Path("none.rvg") + "'", true);
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_NE(missing.out.find("Game File Not Found: " + Path("none.rvg")), std::string::npos);
}

TEST_F(GameFileCli, AFailedSaveNamesTheFileAndLeavesNoTemporary) {
  fs::create_directories(Path("taken.rvg/inside"));
  const auto r = Run("--rolls 5 --save '" + Path("taken.rvg") + "'", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.out.find("Unable to Save Ravelton Game File"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find(Path("taken.rvg")), std::string::npos);
  for (const auto& e : fs::directory_iterator(dir.Path())) {
    EXPECT_EQ(e.path().filename().string().find(".tmp-"), std::string::npos) << e.path();
  }
}

TEST_F(GameFileCli, PlayersSitWhereTheyAskOrInTheLowestOpenSeats) {
  const auto r = Run("--rolls 0 --json --player Ann@5 --player Bo --player Cy=20@1 --player Di");
  ASSERT_EQ(r.exitCode, 0);
  std::map<std::string, int> seats;
  const auto summary = nlohmann::json::parse(r.out);
  for (const auto& p : summary["players"]) seats[p["name"]] = p["seat"];
  EXPECT_EQ(seats, (std::map<std::string, int>{{"Ann", 5}, {"Bo", 2}, {"Cy", 1}, {"Di", 3}}));
  for (const char* bad : {"--player Ann@9", "--player Ann@0", "--player Ann@5 --player Bo@5",
                          "--player Ann@x"})
    EXPECT_EQ(Run(std::string("--rolls 0 ") + bad).exitCode, 1) << bad;
  // Seats a loaded game holds are taken.
  ASSERT_EQ(Run("--rolls 0 --player Ann@2 --save '" + Path("a.rvg") + "'").exitCode, 0);
  EXPECT_EQ(Run("--load '" + Path("a.rvg") + "' --rolls 0 --player Bo@2").exitCode, 1);
  const auto more = Run("--load '" + Path("a.rvg") + "' --rolls 0 --json --player Bo");
  ASSERT_EQ(more.exitCode, 0);
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["name"], "Bo");
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["seat"], 1);
}

TEST_F(GameFileCli, InfoTellsPlayersFramesFilesAndSettings) {
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

}  // namespace
