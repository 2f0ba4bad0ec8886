// The batch engine: sessions that do not depend on the threads that play
// them, the stop rules, and the figures against known answers.
#include "batch/batch.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <new>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "analysis/advantage.h"
#include "automation/autoplay_state.h"
#include "batch/batch_csv.h"
#include "batch/batch_settings.h"
#include "batch/batch_stats.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"
#include "engine/settle_text.h"
#include "script/activation.h"
#include "script/files.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

using namespace std::string_literals;

namespace {

// Sessions of the gambler's-ruin check; the sanitizer build plays fewer.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::int64_t kRuinSessions = 2'000;
#else
constexpr std::int64_t kRuinSessions = 20'000;
#endif

// Room to grow that holds no copy of a game (nor a thread's stack).
constexpr std::size_t kLessThanAGame = sizeof(Game) / 2;

// Lets this process's address space grow by at most `bytes` from here.
void LimitAddressSpaceToGrowth(std::size_t bytes) {
  std::ifstream statm("/proc/self/statm");
  std::size_t pages = 0;
  statm >> pages;
  const auto size = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const rlimit limit{size + bytes, size + bytes};
  if (pages == 0 || setrlimit(RLIMIT_AS, &limit) != 0) std::_Exit(1);
}

// A fresh table with Ann at seat 1 holding `bankroll`, a flat Pass Line bet
// of 10 that stays up whether it wins or loses.
class BatchTest : public ::testing::Test {
 protected:
  void SetUp() override {
    game = MakeGame(platform);
    StartUp(*game);
    SeedRngWith(*game, 1);
  }
  void SeatFlatPassLine(int seat, const char* name, Currency bankroll) {
    SeatPlayer(*game, seat, name, bankroll);
    game->autoplay.HandleWinningBets(seat) = kWinSameBet;
    game->autoplay.HandleLosingBets(seat) = kLoseSameBet;
    game->BetRequest = 10_usd;
    PlaceBet(*game, seat, bet::kPassLine);
    ASSERT_EQ(game->Bet(seat, bet::kPassLine), 10_usd);
  }
  std::vector<std::int64_t> Indices(std::int64_t n) {
    std::vector<std::int64_t> v(static_cast<std::size_t>(n));
    std::iota(v.begin(), v.end(), 0);
    return v;
  }

  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
};

TEST_F(BatchTest, SessionsDependOnTheSeedAndIndexNotOnThreadsOrOrder) {
  SeatFlatPassLine(1, "Ann", 200_usd);
  SeatFlatPassLine(4, "Bo", 100_usd);
  BatchConfig config;
  config.rolls = 150;
  config.seed = 77;
  config.stopWin[4] = 50_usd;
  const auto before = std::make_unique<Game>(*game);
  const auto one = PlaySessions(*game, config, Indices(40), 1);
  const auto two = PlaySessions(*game, config, Indices(40), 2);
  EXPECT_EQ(one, two);
  EXPECT_TRUE(*before == *game) << "the starting game must not change";
  // A session played alone (as one rank of many would) is the same again.
  EXPECT_EQ(PlaySession(*game, config, 17), one[17]);
  // Sessions differ from one another: they are seeded by the batch seed and
  // the index alone, within the generator's range.
  EXPECT_NE(one[0].net, one[1].net);
  EXPECT_NE(SessionSeed(5, 9, 999'999), SessionSeed(6, 9, 999'999));
  for (std::int64_t k = 0; k < 1000; ++k) {
    const Long s = SessionSeed(3, k, 999'999);
    ASSERT_TRUE(s >= 1 && s <= 999'999) << s;
  }
}

// A Pass Line player with flat bets of 10 and 100 who plays to broke or +100:
// a gambler's ruin from 10 units to 0 or 20 with p = 244/495.
TEST_F(BatchTest, ShareReachingTheGoalAgreesWithGamblersRuin) {
  SeatFlatPassLine(1, "Ann", 100_usd);
  BatchConfig config;
  config.seed = 11;
  config.stopWin[1] = 100_usd;
  const auto results = PlaySessions(*game, config, Indices(kRuinSessions), 2);
  const double p = 244.0 / 495.0, r = (1 - p) / p;
  const double expected = (1 - std::pow(r, 10)) / (1 - std::pow(r, 20));
  const PlayerSummary s = SummarizePlayer(*game, 1, results, bet::kPassLine);
  const double se = std::sqrt(expected * (1 - expected) / static_cast<double>(kRuinSessions));
  EXPECT_NEAR(s.stopWinShare, expected, 2 * se);
  EXPECT_DOUBLE_EQ(s.stopWinShare + s.brokeShare, 1.0) << "every session ends one way or the other";
  EXPECT_TRUE(s.min == -100 && s.max == 100) << s.min << " " << s.max;
  ASSERT_TRUE(s.exactEdge.has_value());
  EXPECT_NEAR(*s.exactEdge, -7.0 / 495.0, 1e-12);
  EXPECT_LE(s.edgeCi95[0], *s.exactEdge);
  EXPECT_GE(s.edgeCi95[1], *s.exactEdge);
  for (const SessionResult& one : results) {
    ASSERT_EQ(one.end, SessionEnd::kNoPlayerLeft);
    ASSERT_EQ(one.onlyBet[1], bet::kPassLine);
  }
}

// The first limit reached ends the session; a stopped player is cashed out
// at the net of the roll that reached the stop.
TEST_F(BatchTest, LimitsAndStopsEndSessions) {
  SeatFlatPassLine(1, "Ann", 1000_usd);
  struct Case {
    std::int64_t rolls, hands;
    std::optional<Currency> win, loss;
  };
  const Case cases[] = {{25, 0, {}, {}}, {0, 3, {}, {}}, {0, 0, 30_usd, 30_usd}, {40, 2, {}, {}}};
  for (const Case& c : cases) {
    BatchConfig config;
    config.rolls = c.rolls, config.hands = c.hands;
    config.stopWin[1] = c.win, config.stopLoss[1] = c.loss;
    for (const SessionResult& r : PlaySessions(*game, config, Indices(30), 2)) {
      if (c.hands > 0) { EXPECT_LE(r.hands, c.hands); }
      if (c.rolls > 0) { EXPECT_LE(r.rolls, c.rolls); }
      if (r.end == SessionEnd::kRolls) { EXPECT_EQ(r.rolls, c.rolls); }
      if (r.end == SessionEnd::kHands) { EXPECT_EQ(r.hands, c.hands); }
      if (c.win) {
        ASSERT_EQ(r.end, SessionEnd::kNoPlayerLeft);
        const bool won = r.outcome[1] == PlayerOutcome::kStopWin;
        EXPECT_TRUE(won || r.outcome[1] == PlayerOutcome::kStopLoss);
        EXPECT_TRUE(won ? r.net[1] >= 30_usd : r.net[1] <= -30_usd);
        EXPECT_LE(r.net[1] > Currency{} ? r.net[1] : -r.net[1], 40_usd) << "one bet past the stop";
      }
    }
  }
}

// A starting game with a history (a loaded game): limits and nets count
// from where it stands, not from the table's first roll.
TEST_F(BatchTest, SessionsCountFromTheStartingGame) {
  SeatFlatPassLine(1, "Ann", 1000_usd);
  game->betting.AllowNegBankroll(1) = true;
  game->hyper.RunRollLimit = 200;
  RunHyperDrive(*game);
  ASSERT_EQ(game->RollTally(kTableSession, kEventRolls), 200);
  ASSERT_NE(PlayerNet(*game, 1), Currency{});
  BatchConfig config;
  config.rolls = 1;
  for (const SessionResult& r : PlaySessions(*game, config, Indices(50), 2)) {
    EXPECT_EQ(r.rolls, 1);
    EXPECT_TRUE(r.net[1] == -10_usd || r.net[1] == Currency{} || r.net[1] == 10_usd)
        << r.net[1].raw;
    EXPECT_LE(r.wagered[1], 10_usd);
  }
}

// Whatever goes wrong while sessions play reaches the caller as an
// exception, with every thread ended, rather than ending the program: a
// progress report that throws, and a system out of memory for the threads'
// copies of the game (and out of threads, which the batch plays without).
TEST_F(BatchTest, AThrowingProgressReportReachesTheCaller) {
  SeatFlatPassLine(1, "Ann", 1000_usd);
  game->betting.AllowNegBankroll(1) = true;
  BatchConfig config;
  config.rolls = 100'000;  // sessions long enough that a report comes before they end
  int reports = 0;
  EXPECT_THROW(PlaySessions(*game, config, Indices(1'000), 2,
                            [&](std::int64_t) {
                              ++reports;
                              throw std::runtime_error("stopped");
                            }),
               std::runtime_error);
  EXPECT_EQ(reports, 1);
}

// The sanitizer reserves address space of its own; the memory that sessions
// freed would hold a new copy, so this stands in a test of its own.
#if !defined(__SANITIZE_ADDRESS__)
TEST_F(BatchTest, NoMemoryForTheGamesReachesTheCaller) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  constexpr int kThrownToTheCaller = 3;
  SeatFlatPassLine(1, "Ann", 1000_usd);
  BatchConfig config;
  config.rolls = 10;
  const auto indices = Indices(4);
  EXPECT_EXIT(
      {
        LimitAddressSpaceToGrowth(kLessThanAGame);
        try {
          PlaySessions(*game, config, indices, 4, [](std::int64_t) {});
        } catch (const std::bad_alloc&) {
          std::_Exit(kThrownToTheCaller);
        }
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(kThrownToTheCaller), "");
}
#endif

// Sessions played at once keep none of the user's files: a player cashed
// out at a stop leaves no sessions-log record, the dice roll file that the
// starting game records into is not written, and the events log is neither
// written nor cleared by a script's new session.
TEST_F(BatchTest, SessionsTouchNoneOfTheUsersFiles) {
  const TempFolder folder;
  SeatFlatPassLine(1, "Ann", 1000_usd);
  WriteWholeFile(folder / "new.bet", "If # rolls = 20 Then\r\n  start new session\r\nEndIf\r\n");
  ASSERT_TRUE(OpenAutoBets(*game, 1, folder / "new.bet"));
  SetScriptActive(*game, 1, true);
  game->roll.SessionLogPath[1] = folder / "ann.slg";
  game->roll.LogOn = game->roll.LogClearOnNew = true;
  game->roll.EventsLogPath = folder / "events.txt";
  WriteWholeFile(game->roll.EventsLogPath, "kept\r\n");
  game->diceFile.DiceFilePath = folder / "dice.rol";
  game->diceFile.DiceFileMode = kDiceFileRecording;
  BatchConfig config;
  config.rolls = 100;
  config.stopWin[1] = config.stopLoss[1] = 20_usd;
  const auto results = PlaySessions(*game, config, Indices(40), 2);
  EXPECT_TRUE(std::any_of(results.begin(), results.end(), [](const SessionResult& r) {
    return r.outcome[1] == PlayerOutcome::kStopWin;
  }));
  for (const char* name : {"ann.slg", "dice.rol"})
    EXPECT_FALSE(std::filesystem::exists(folder / name)) << name;
  EXPECT_EQ(ReadWholeFile(folder / "events.txt"), "kept\r\n");
}

// The Batch Run window's settings come back as written, stops by name;
// a damaged or hostile file gives each line it cannot read its default.
TEST_F(BatchTest, SettingsComeBackAndABadFileGivesDefaults) {
  const TempFolder folder;
  game->roll.DataFolder = folder.Path() + "data/";  // made by the first write
  EXPECT_EQ(ReadBatchSettings(*game), BatchSettings{});
  BatchSettings s;
  s.sessions = 5000;
  s.hands = 40;
  s.seed = kMostBatchSeed;
  s.threads = 3;
  s.stops["Ann Lee"] = {Currency{12'345'678}, std::nullopt};  // 1,234.5678
  s.stops["B=o"] = {std::nullopt, 75_usd};
  s.stops["Nobody"] = {};  // no stop: not kept
  std::string error;
  ASSERT_TRUE(WriteBatchSettings(*game, s, error)) << error;
  s.stops.erase("Nobody");
  EXPECT_EQ(ReadBatchSettings(*game), s);

  const std::string path = BatchSettingsPath(*game);
  WriteWholeFile(path,
                 "Sessions=0\nRolls=-1\nHands=1000000001\nSeed=12x\nThreads=\nSessions\n"
                 "Stop=Ann\t0\t\nStop=\t5\t5\nStop=Cy\t\t\nStop=D\x01i\t5\t\n"
                 "Stop=Ed\t99999999999999999999\t\n\x00\xff=\xfe\r\n"s);
  EXPECT_EQ(ReadBatchSettings(*game), BatchSettings{});
  // Past the read limit the rest is not read; stops are kept for so many names.
  std::string many = "Rolls=7\r\n";
  for (std::size_t i = 0; many.size() < 2 * kBatchSettingsReadLimit; ++i)
    many += "Stop=P" + std::to_string(i) + "\t10000\t\r\n";
  many += "Rolls=9\n";
  WriteWholeFile(path, many);
  const BatchSettings read = ReadBatchSettings(*game);
  EXPECT_EQ(read.rolls, 7);
  EXPECT_EQ(read.stops.size(), kBatchStopsKept);
  EXPECT_EQ(read.stops.at("P0").win, 1_usd);
}

// The sessions' CSV: exact amounts, quoted fields, a line a session, and a
// file written whole or not at all.
TEST_F(BatchTest, SessionsCsvIsExactAndQuoted) {
  EXPECT_EQ(PlainAmount(Currency{-12'345'678}), "-1234.5678");
  EXPECT_EQ(PlainAmount(Currency{-5'000}), "-0.5");
  EXPECT_EQ(PlainAmount(Currency{1}), "0.0001");
  EXPECT_EQ(PlainAmount(1'234'567_usd), "1234567");
  EXPECT_EQ(PlainAmount(Currency{std::numeric_limits<std::int64_t>::min()}),
            "-922337203685477.5808");
  EXPECT_EQ(ShortestText(1234567.89), "1234567.89");  // six digits would give 1.23457e+06
  EXPECT_EQ(CsvField("Stopped, \"at\" 7\r\n"), "\"Stopped, \"\"at\"\" 7  \"");

  SeatFlatPassLine(1, "Ann", 1000_usd);
  BatchConfig config;
  config.rolls = 30;
  const auto sessions = PlaySessions(*game, config, Indices(5), 1);
  const auto players = SummarizePlayers(*game, sessions);
  const TempFolder folder;
  std::string error;
  ASSERT_TRUE(WriteSessionsCsv(folder / "s.csv", sessions, players, error)) << error;
  std::string expected = "session,seed,rolls,hands,end,Ann net,Ann end,stop\n";
  for (const SessionResult& r : sessions)
    expected += std::to_string(r.index) + "," + std::to_string(r.seed) + "," +
                std::to_string(r.rolls) + "," + std::to_string(r.hands) + ",rolls," +
                PlainAmount(r.net[1]) + ",in play,\n";
  EXPECT_EQ(ReadWholeFile(folder / "s.csv"), expected);
  EXPECT_FALSE(WriteSessionsCsv(folder / "none/s.csv", sessions, players, error));
  EXPECT_NE(error.find(folder / "none/s.csv"), std::string::npos) << error;
}

// Players at one table roll the same dice: Bob, with Ann's Pass Line and a
// Field bet beside it, differs from Ann by Cy's Field bet alone, session by
// session. So the comparison's mean and interval are those of Cy's net
// turned round, and Ann ends ahead of Bob just where Cy lost.
TEST_F(BatchTest, APlayerComparedWithAnotherDiffersByTheirDifferentBets) {
  SeatFlatPassLine(1, "Ann", 1000_usd);
  SeatFlatPassLine(2, "Bob", 1000_usd);
  SeatPlayer(*game, 3, "Cy", 1000_usd);
  for (int p : {2, 3}) {
    game->autoplay.HandleWinningBets(p) = kWinSameBet;
    game->autoplay.HandleLosingBets(p) = kLoseSameBet;
    game->BetRequest = 5_usd;
    PlaceBet(*game, p, bet::kField);
  }
  BatchConfig config;
  config.rolls = 40;
  const auto results = PlaySessions(*game, config, Indices(3'000), 2);
  const PlayerSummary cy = SummarizePlayer(*game, 3, results, 0);
  const PairedNets annBob = ComparePlayers(results, 1, 2);
  EXPECT_EQ(annBob.sessions, 3'000);
  EXPECT_NEAR(annBob.meanDifference, -cy.meanNet, 1e-9);
  const double halfWidth = kZ95 * cy.sdNet / std::sqrt(3'000.0);
  EXPECT_NEAR(annBob.ci95[0], -cy.meanNet - halfWidth, 1e-9);
  EXPECT_NEAR(annBob.ci95[1], -cy.meanNet + halfWidth, 1e-9);
  const auto cyLost = std::count_if(results.begin(), results.end(),
                                    [](const SessionResult& r) { return r.net[3] < Currency{}; });
  EXPECT_DOUBLE_EQ(annBob.aheadShare, static_cast<double>(cyLost) / 3'000);
  EXPECT_DOUBLE_EQ(annBob.levelShare + annBob.aheadShare + cy.wonShare, 1.0);
  // Turned round, the same comparison; with itself, level in every session.
  const PairedNets bobAnn = ComparePlayers(results, 2, 1);
  EXPECT_NEAR(bobAnn.meanDifference, -annBob.meanDifference, 1e-9);
  EXPECT_DOUBLE_EQ(bobAnn.aheadShare, cy.wonShare);
  const PairedNets annAnn = ComparePlayers(results, 1, 1);
  EXPECT_TRUE(annAnn.meanDifference == 0 && annAnn.ci95[0] == 0 && annAnn.ci95[1] == 0);
  EXPECT_EQ(annAnn.levelShare, 1.0);
}

// Percentiles by the nearest ranks around q/100 * (n - 1), computed here
// from scratch with a different walk over the data.
double DirectPercentile(std::vector<double> v, double q) {
  const double rank = q / 100 * static_cast<double>(v.size() - 1);
  const auto below = static_cast<std::size_t>(rank);
  std::nth_element(v.begin(), v.begin() + static_cast<long>(below), v.end());
  const double lo = v[below];
  if (below + 1 >= v.size()) return lo;
  const double hi = *std::min_element(v.begin() + static_cast<long>(below) + 1, v.end());
  return lo + (rank - static_cast<double>(below)) * (hi - lo);
}

TEST(BatchStatsTest, FiguresAgreeWithADirectComputation) {
  const auto start = std::make_unique<Game>();
  start->PlayerName[2] = "Cy";
  std::vector<SessionResult> results;
  std::vector<double> nets, wagers;
  std::uint64_t x = 12345;
  for (int k = 0; k < 501; ++k) {
    x = x * 6364136223846793005ULL + 1442695040888963407ULL;
    SessionResult r;
    r.index = k;
    r.rolls = k % 7;
    r.net[2] = Currency::FromWhole(static_cast<std::int64_t>(x >> 40) % 400 - 230);
    r.wagered[2] = Currency::FromWhole(100 + static_cast<std::int64_t>(x >> 50) % 900);
    r.outcome[2] = k % 4 == 0 ? PlayerOutcome::kBroke : PlayerOutcome::kInPlay;
    nets.push_back(r.net[2].ToDouble());
    wagers.push_back(r.wagered[2].ToDouble());
    results.push_back(r);
  }
  const PlayerSummary s = SummarizePlayer(*start, 2, results, 0);
  const double n = static_cast<double>(nets.size());
  const double mean = std::accumulate(nets.begin(), nets.end(), 0.0) / n;
  double sq = 0;
  for (double v : nets) sq += v * v;
  EXPECT_NEAR(s.meanNet, mean, 1e-9);
  EXPECT_NEAR(s.sdNet, std::sqrt((sq - n * mean * mean) / (n - 1)), 1e-6);
  for (std::size_t i = 0; i < kBatchPercentiles.size(); ++i)
    EXPECT_NEAR(s.percentiles[i], DirectPercentile(nets, kBatchPercentiles[i]), 1e-9)
        << kBatchPercentiles[i];
  EXPECT_EQ(s.min, *std::min_element(nets.begin(), nets.end()));
  EXPECT_EQ(s.brokeShare, 126.0 / 501.0);
  const auto ahead = std::count_if(results.begin(), results.end(),
                                   [](const SessionResult& r) { return r.net[2] > Currency{}; });
  EXPECT_EQ(s.wonShare, static_cast<double>(ahead) / 501.0);
  EXPECT_GT(ahead, 0);
  EXPECT_DOUBLE_EQ(s.meanRolls, (71 * 21 + 6) / 501.0);  // 0..6 repeating: 71 cycles, then 0..3
  // The ratio's interval by the delta method from the moments of the pairs.
  const double mw = std::accumulate(wagers.begin(), wagers.end(), 0.0) / n;
  const double edge = mean / mw;
  double snn = 0, sww = 0, snw = 0;
  for (std::size_t i = 0; i < nets.size(); ++i) {
    snn += (nets[i] - mean) * (nets[i] - mean);
    sww += (wagers[i] - mw) * (wagers[i] - mw);
    snw += (nets[i] - mean) * (wagers[i] - mw);
  }
  const double var = (snn - 2 * edge * snw + edge * edge * sww) / (n - 1) / n / (mw * mw);
  EXPECT_NEAR(s.edge, edge, 1e-12);
  EXPECT_NEAR(s.edgeCi95[0], edge - kZ95 * std::sqrt(var), 1e-9);
  EXPECT_NEAR(s.edgeCi95[1], edge + kZ95 * std::sqrt(var), 1e-9);
  EXPECT_FALSE(s.exactEdge.has_value());
}

// Bins span whole steps of the nets, rounded to edges that read well: nets
// -10, 0, 10 and 25 move by $5; nets 3, 8 and 13 by $5 off the round edges.
TEST(BatchStatsTest, NetBinsSpanWholeStepsOfTheNets) {
  std::vector<SessionResult> results;
  const auto nets = [&results](std::initializer_list<int> dollars) {
    results.clear();
    for (int d : dollars) {
      results.emplace_back();
      results.back().net[3] = Currency::FromWhole(d);
    }
  };
  nets({25, -10, 0, 10});
  NetHistogram h = BinNets(results, 3);
  EXPECT_EQ(h.low, -10_usd);
  EXPECT_EQ(h.width, 5_usd);
  EXPECT_EQ(h.step, 5_usd);
  EXPECT_EQ(h.counts, (std::vector<std::int64_t>{1, 0, 1, 0, 1, 0, 0, 1}));
  h = BinNets(results, 3, 3);  // eight nets in three bins: 5 steps of $5
  EXPECT_EQ(h.low, -25_usd);
  EXPECT_EQ(h.width, 25_usd);
  EXPECT_EQ(h.counts, (std::vector<std::int64_t>{1, 2, 1}));
  h = BinNets(results, 3, 2);  // two bins: 10 steps, from -$50
  EXPECT_EQ(h.low, -50_usd);
  EXPECT_EQ(h.counts, (std::vector<std::int64_t>{1, 3}));
  nets({13, 3, 8});
  h = BinNets(results, 3, 2);  // bins of $10 from $3, the nearest a net can be to $0
  EXPECT_EQ(h.low, 3_usd);
  EXPECT_EQ(h.width, 10_usd);
  EXPECT_EQ(h.counts, (std::vector<std::int64_t>{2, 1}));
  nets({-7, -7});
  h = BinNets(results, 3);
  EXPECT_EQ(h.low, -7_usd);
  EXPECT_EQ(h.counts, std::vector<std::int64_t>{2});
  EXPECT_TRUE(BinNets({}, 3).counts.empty());
}

TEST(BatchStatsTest, PercentileEnds) {
  EXPECT_EQ(Percentile({}, 50), 0);
  EXPECT_EQ(Percentile({4}, 99), 4);
  EXPECT_EQ(Percentile({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 100), 10);
}

}  // namespace
