// ravelton-cli report and run --report: the views' figures as JSON, CSV and
// text, and the refusals.
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "cli_util.h"
#include "stats/sessions_log.h"
#include "tests/support/temp_folder.h"

namespace {

using cli_test::Cli;
using cli_test::Json;
using nlohmann::json;

TEST(ReportCli, RunThenTotalsAsOneObject) {
  const json j = Json("run --rolls 300 --seed 11 --report totals --frame current-session --json");
  ASSERT_TRUE(j.contains("run") && j.contains("report"));
  const json& r = j["report"];
  EXPECT_EQ(r["view"], "totals");
  EXPECT_EQ(r["frame"], "current-session");
  EXPECT_EQ(r["selection_label"], "No players present");
  ASSERT_EQ(r["rows"].size(), 11u);
  long counted = 0;
  for (const json& row : r["rows"]) {
    counted += row["count"].get<long>();
    EXPECT_EQ(row["count"], j["run"]["totals"][std::to_string(row["category"].get<int>())]);
  }
  EXPECT_EQ(counted, 300);
  // The current hand has no "rolls since" column: null.
  const json hand =
      Json("run --rolls 20 --seed 11 --report totals --frame current-hand --kind unique --json");
  EXPECT_EQ(hand["report"]["rows"].size(), 36u);
  EXPECT_TRUE(hand["report"]["rows"][0]["rolls_since"].is_null());
}

TEST(ReportCli, FreqsResultsAndBankrollOfARun) {
  const std::string run =
      "run --rolls 400 --seed 5 --player Ann=1000 --bet Ann:\"Pass Line\"=10 "
      "--win-rule Ann:2 --lose-rule Ann:2 ";
  const json freqs = Json(run + "--report freqs --category 7 --json")["report"];
  ASSERT_EQ(freqs["rows"].size(), 1u);
  const json& seven = freqs["rows"][0];
  long gaps = 0;
  for (const json& g : seven["gaps"]) gaps += g["count"].get<long>();
  EXPECT_EQ(gaps, seven["selection_rolls"].get<long>());  // one gap per showing
  EXPECT_EQ(seven["session_rolls"], 400);

  const json results = Json(run + "--report results --players Ann --json");
  const json& rows = results["report"]["rows"];
  EXPECT_EQ(rows[0]["label"], "Total #");
  EXPECT_EQ(results["report"]["bets"], json::array({43}));
  EXPECT_DOUBLE_EQ(rows[1]["net"].get<double>(),
                   rows[1]["wins"].get<double>() - rows[1]["losses"].get<double>());
  EXPECT_NEAR(rows[10]["net"].get<double>(), -0.014141 * rows[1]["wagers"].get<double>(), 0.0001);
  EXPECT_TRUE(rows[10]["wagers"].is_null());

  const json graph = Json(run + "--report bankroll --report-player Ann --json")["report"];
  EXPECT_EQ(graph["rows"].size(), 400u);  // one column per roll of the first page
  EXPECT_GE(graph["high"].get<double>(), graph["low"].get<double>());
}

TEST(ReportCli, CsvAndTextCarryTheViewsColumns) {
  const cli_test::Result csv = Cli("run --rolls 30 --seed 3 --report hands --csv");
  EXPECT_EQ(csv.out.substr(0, csv.out.find('\n')), "label,comeouts,passes,misses");
  EXPECT_EQ(std::count(csv.out.begin(), csv.out.end(), '\n'), 15);
  const cli_test::Result text = Cli("report summary");
  EXPECT_NE(text.out.find("Total comp action $"), std::string::npos);
}

// The figures are the sessions log's tests'; here the rows and the break point.
TEST(ReportCli, SessionsOfALogFileAndASavedGame) {
  const TempFolder dir;
  const std::string path = dir / "report.slg";
  for (int net : {10, 20, 20, -40}) {
    SessionRecord r{};
    r[kNetValue] = Currency::FromWhole(net);
    ASSERT_FALSE(AppendSessionRecord(path, r).has_value());
  }
  const json j = Json("report sessions --file " + path + " --json");
  EXPECT_EQ(j["sessions"], 4);
  EXPECT_EQ(j["rows"][0]["label"], "Sum");
  EXPECT_DOUBLE_EQ(j["rows"][0]["value"].get<double>(), 10);
  EXPECT_EQ(j["rows"][2]["label"], "   Median *");
  EXPECT_EQ(
      Json("report sessions --file " + path + " --break-point 15 --json")["classes"][0]["count"],
      2);
  std::ofstream(path, std::ios::trunc) << "not a log";
  const cli_test::Result bad = Cli("report sessions --file " + path, true);
  EXPECT_EQ(bad.exitCode, 1);
  EXPECT_NE(bad.out.find("is not a true Ravelton Sessions Log."), std::string::npos);

  // A saved game reports what the run that made it reported.
  const std::string game = dir / "report.rvg";
  const std::string run =
      "run --rolls 250 --seed 8 --player Ann=1000 --bet Ann:\"Pass Line\"=10 "
      "--win-rule Ann:2 --lose-rule Ann:2 ";
  const json ran = Json(run + "--report results --players Ann --json --save " + game)["report"];
  EXPECT_GT(ran["rows"][0]["wagers"].get<double>(), 50);
  EXPECT_EQ(Json("report results --players Ann --json --load " + game), ran);
  EXPECT_EQ(Json("report totals --frame all-sessions --json --load " + game)["rows"],
            Json(run + "--report totals --frame all-sessions --json")["report"]["rows"]);
}

TEST(ReportCli, Refusals) {
  const std::pair<const char*, const char*> cases[] = {
      {"report totals --load no-such-game.rvg", "Game File Not Found"},
      {"report nosuch", "unknown view nosuch"},
      {"report totals --frame yesterday", "--frame must be"},
      {"report freqs --category 91", "--category must be 1 to 90"},
      {"report trends", "needs --player NAME"},
      {"report totals --players Zed", "nobody named Zed"},
      {"run --rolls 5 --report results --bets 86", "--bets takes bet ids 1 to 85"},
  };
  for (auto [args, message] : cases) {
    const cli_test::Result r = Cli(args, true);
    EXPECT_EQ(r.exitCode, 1) << args;
    EXPECT_NE(r.out.find(message), std::string::npos) << args << ": " << r.out;
  }
}

}  // namespace
