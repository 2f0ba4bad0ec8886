// Start-up without a window. The steps that only concern the window (the
// table font, the screen's units, the colours, the layout geometry, the
// about box) are the window's own; the default probability file, the
// sound sets, the Hot-Keys file and the game file at start-up belong to
// their own units and are not read here.
#include "cycle/startup.h"

#include <filesystem>
#include <system_error>

#include "config/payoffs.h"
#include "config/settings.h"
#include "dice/probability.h"
#include "core/data_folder.h"
#include "dice/rng.h"
#include "core/catalogue.h"
#include "core/data_folder.h"
#include "core/game.h"
#include "core/platform.h"
#include "engine/roll_internal.h"
#include "config/sound.h"
#include "cycle/session.h"
#include "logs/events_log.h"

namespace {

// The folder of the files that ship with the program (the sounds): the
// install's share folder beside bin/, which a build tree mirrors beside app/;
// else the program's own folder, else the current folder.
std::string ProgramFolder() {
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (!ec && exe.has_parent_path()) {
    const auto share = exe.parent_path().parent_path() / "share" / "ravelton";
    if (std::filesystem::is_directory(share, ec)) return share.string();
    return exe.parent_path().string();
  }
  const auto cwd = std::filesystem::current_path(ec);
  return ec ? std::string(".") : cwd.string();
}

}  // namespace

std::unique_ptr<Game> MakeGame(Platform& platform) {
  auto game = std::make_unique<Game>();
  game->platform = &platform;
  // A script's new-session action reaches the session through this hook.
  game->scriptRun.NewSession = &NewSession;
  return game;
}

int MeasureLoopsPerTick(Game& game) {
  // A clock that never advances (a test's fixed clock) must not hang start-up.
  constexpr long kMaxCalls = 200'000'000;
  const std::uint32_t start = game.platform->TimeGetTime();
  long count = 0;
  while (game.platform->TimeGetTime() - start < 100u && count < kMaxCalls) ++count;
  return static_cast<int>(count / 10);
}

void StartUp(Game& game) { StartUp(game, ProgramFolder(), DataFolderPath()); }

void StartUp(Game& game, const std::string& appFolder) { StartUp(game, appFolder, appFolder); }

void StartUp(Game& game, const std::string& appFolder, const std::string& dataFolder) {
  assert(game.platform != nullptr);
  RollState& r = game.roll;
  // File names are case-sensitive here, so the folder keeps its case.
  r.AppPath = WithTrailingSlash(appFolder.empty() ? std::string(".") : appFolder);
  r.HelpFilePath = r.AppPath + "ravelton.chm";
  // The program's folder is read-only once installed: the user's files go
  // to the data folder, which is made when first written to.
  r.DataFolder = WithTrailingSlash(dataFolder.empty() ? r.AppPath : dataFolder);
  r.EventsLogPath = DefaultEventsLogPath(game);
  InitEventsLog(game);

  r.LoopsPerTick = MeasureLoopsPerTick(game);

  // The generators are built into the program, so none is missing.
  game.dice.MissingDllMask = 0;
  SeedGeneratorsAtStartUp(game);
  SetTrueProbabilities(game);

  game.PlayerName[0] = "House";

  SetDefaultSettings(game);
  for (int p = 0; p < kPlayerSlots; ++p)
    for (int spot = 1; spot <= 4; ++spot) game.betting.CheckStackSlot(p, spot) = 100 + spot;
  r.GraphPlotType = 0;
  r.GraphShowAverage = false;
  r.GraphAutoPrint = false;
  r.GraphScale = Currency::FromWhole(1);
  r.GraphBaseScale = Currency::FromWhole(1);
  r.GraphTop = Currency::FromWhole(150);
  // The graph's first column is the session's first roll, as a new session
  // leaves it.
  for (int p = 1; p <= 8; ++p) game.GraphBankroll(p, 0) = Currency::FromWhole(1);
  SetDefaultWorking(game);
  for (int p = 0; p < kPlayerSlots; ++p)
    for (int b = 1; b <= kLastRealBet; ++b) {
      game.BetWorkingDefault(p, b) = game.BetWorkingDefault(0, b);
      game.BetWorking(p, b) = game.BetWorkingDefault(0, b);
      game.BetWorkingAfterRoll(p, b) = game.BetWorkingDefault(0, b);
    }
  constexpr std::int64_t kChecks[5] = {1, 5, 25, 100, 500};
  for (int i = 1; i <= 5; ++i) game.CheckValue(i) = Currency::FromWhole(kChecks[i - 1]);
  SetDefaultPayoffs(game);
  ListSoundFiles(game);

  if (game.Shooter > 0 && game.Point == 0) PlayComeOutCall(game);
}
