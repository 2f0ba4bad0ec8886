// Game > Show Path: every group under its caption, the per-player files of
// the seated players only, and a script path as the user typed it.
#include "store/paths_in_use.h"

#include "tests/store/store_fixture.h"

namespace {

class PathsInUseTest : public StoreFixture {};

TEST_F(PathsInUseTest, ListsEveryFileInUseUnderItsCaption) {
  SeatPlayer(*game, 2, "Ann", Currency::FromWhole(50));
  SeatPlayer(*game, 5, "Bo", Currency::FromWhole(50));
  game->gamefile.GameFilePath = Path("tuesday.rvg");
  game->diceFile.DiceFilePath = Path("rolls.rll");
  game->probability.ProbFilePath.clear();
  game->scriptSource.ScriptFile[5] = "/bets/r&&d.bet";  // kept with '&' doubled
  game->roll.SessionLogPath[2] = Path("ann.slg");
  game->roll.SessionLogPath[5].clear();

  const std::vector<PathGroup> groups = PathsInUse(*game);
  const std::vector<PathGroup> expected = {
      {"Ravelton location:", {game->roll.AppPath}},
      {"Game File:", {Path("tuesday.rvg")}},
      {"Events Log File:", {game->roll.EventsLogPath}},
      {"Dice Roll File:", {Path("rolls.rll")}},
      {"Probability File:", {"(none)"}},
      {"Auto-Bet Files:", {"Ann: (none)", "Bo: /bets/r&d.bet"}},
      {"Sessions Log Files:", {"Ann: " + Path("ann.slg"), "Bo: (none)"}},
  };
  ASSERT_EQ(groups.size(), expected.size());
  for (std::size_t i = 0; i < groups.size(); ++i) {
    EXPECT_EQ(groups[i].caption, expected[i].caption);
    EXPECT_EQ(groups[i].lines, expected[i].lines) << expected[i].caption;
  }
  EXPECT_FALSE(game->roll.AppPath.empty());
}

}  // namespace
