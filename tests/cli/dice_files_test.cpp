// End-to-end: ravelton-cli run --record / --playback / --log, and the rolls
// command. A recorded run played back gives the same dice and the same
// game, and stops exactly at the end of its file.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "cli_util.h"
#include "core/file_io.h"
#include "dice/dice_file.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

using cli_test::Cli;
using cli_test::Result;

namespace {

std::int64_t Lines(const std::string& text) {
  return static_cast<std::int64_t>(std::count(text.begin(), text.end(), '\n'));
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

class CliDiceFiles : public ::testing::Test {
 protected:
  CliDiceFiles() { ::setenv("RAVELTON_DATA", folder.Path().c_str(), 1); }
  TempFolder folder;
  const std::string kTable =
      " --trace --json --player Ann=1000 --bet Ann:pass\\ line=10 --take-odds Ann --win-rule "
      "Ann:2 --lose-rule Ann:2 --bet Ann:field=5";
};

TEST_F(CliDiceFiles, ARecordedRunPlayedBackIsTheSameGameAndEndsWithItsFile) {
  const std::string file = folder / "run.rol";
  const Traced recorded =
      Split(Cli("run --rolls 100000 --record '" + file + "' --rng 2 --seed 31337" + kTable));
  ASSERT_TRUE(recorded.summary.is_object());
  EXPECT_EQ(FileLength(file), 100'000);
  EXPECT_EQ(recorded.summary["rolls"], 100'000);

  // Other seed, other generator: only the file's dice count.
  const Traced played =
      Split(Cli("run --rolls 300000 --playback '" + file + "' --rng 5 --seed 1" + kTable));
  ASSERT_TRUE(played.summary.is_object());
  EXPECT_EQ(played.trace, recorded.trace);
  EXPECT_EQ(played.summary["stop"], std::string(kEndOfDiceFileStop));
  EXPECT_EQ(played.summary["players"], recorded.summary["players"]);
  EXPECT_EQ(played.summary["totals"], recorded.summary["totals"]);
  EXPECT_EQ(played.summary["hands"], recorded.summary["hands"]);
  EXPECT_EQ(played.summary["rolls"], 100'000);

  // From roll 99,991: the file's last ten rolls.
  const Result tail = Cli("run --playback '" + file + "' --from-roll 99991 --trace");
  ASSERT_EQ(tail.exitCode, 0);
  std::string lastTen;
  std::istringstream lines(recorded.trace);
  for (std::string line; std::getline(lines, line);)
    if (std::stol(line) > 99'990)
      lastTen += std::to_string(std::stol(line) - 99'990) + line.substr(line.find(' ')) + '\n';
  EXPECT_EQ(tail.out.substr(0, lastTen.size()), lastTen);
  EXPECT_NE(tail.out.find("Stopped: " + std::string(kEndOfDiceFileStop)), std::string::npos);
}

TEST_F(CliDiceFiles, AFileThatIsNotOneIsRefusedAndABadValueStopsTheRun) {
  const std::string odd = folder / "odd.rol";
  std::ofstream(odd, std::ios::binary) << "\x24\x25";
  const Result r = Cli("run --rolls 10 --playback '" + odd + "'", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "ravelton-cli run: " + odd +
                       " is either from an earlier version, has been corrupted, or is not a true "
                       "Ravelton dice roll file.\n");
  EXPECT_EQ(Cli("run --playback '" + folder / "none.rol" + "'").exitCode, 1);
  EXPECT_EQ(Cli("run --record a.rol --playback b.rol").exitCode, 1);
  EXPECT_EQ(Cli("run --from-roll 3").exitCode, 1);

  const std::string bad = folder / "bad.rol";
  std::ofstream(bad, std::ios::binary) << '\x24' << '\x44' << '\0' << '\x24';
  const Result stopped = Cli("run --rolls 10 --playback '" + bad + "' --json");
  EXPECT_EQ(stopped.exitCode, 0);
  const auto j = nlohmann::json::parse(stopped.out, nullptr, false);
  EXPECT_EQ(j["stop"], std::string(kDiceFileValueStop));
  EXPECT_EQ(j["rolls"], 2);
}

TEST_F(CliDiceFiles, TheLogHoldsTheKindsAskedAndItsIndexStaysInTheDataFolder) {
  ASSERT_EQ(Cli("run --rolls 40 --seed 5 --log rolls,passes").exitCode, 0);
  const std::string log = ReadWholeFile(folder / "Events Log.txt");
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
  EXPECT_EQ(FileLength(folder / "Events Log.ref"), 4 * Lines(log));

  const std::string own = folder / "mine.txt";
  ASSERT_EQ(Cli("run --rolls 3 --log --log-file '" + own + "'").exitCode, 0);
  EXPECT_NE(ReadWholeFile(own).find(" Roll #3:  "), std::string::npos);
  EXPECT_EQ(FileLength(folder / "Events Log.ref"), 4 * Lines(ReadWholeFile(own)))
      << "the one index belongs to the log just written";
  EXPECT_EQ(Cli("run --rolls 3 --log dice").exitCode, 1);
  EXPECT_EQ(Cli("run --rolls 3 --log-file x.txt").exitCode, 1);
}

TEST_F(CliDiceFiles, RollsPrintAsTextAndTextBecomesRolls) {
  const std::string text = folder / "in.txt";
  std::ofstream(text, std::ios::binary) << "3-4, 1 6x2 and 5,5 then 2 (the last 2 is dropped)";
  const std::string file = folder / "in.rol";
  const Result imported = Cli("rolls --import '" + text + "' --output '" + file + "'");
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.out, "4 rolls written to " + file + "\n");
  EXPECT_EQ(Cli("rolls '" + file + "'").out, "1 (3.4) 7\n2 (1.6) 7\n3 (2.5) 7\n4 (5.2) 7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 2 --count 2 --format 'Roll#: Die1+Die2=Total'").out,
            "2: 1+6=7\n3: 2+5=7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 9").out, "");
  EXPECT_EQ(Cli("rolls '" + file + "' --format 'Roll#'").exitCode, 1);
  EXPECT_EQ(Cli("rolls '" + text + "'").exitCode, 1);  // not a dice roll file
  EXPECT_EQ(Cli("rolls").exitCode, 1);
  EXPECT_EQ(Cli("rolls --import '" + text + "'").exitCode, 1);  // no --output
}

}  // namespace
