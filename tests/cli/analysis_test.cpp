// End-to-end tests of ravelton-cli probability, advantage, report and run
// --prb/--report: operations applied in the order given, files saved and
// read back, the advantage figures against the independent model, skewed
// dice in a run, the views' figures as JSON, CSV and text, and the
// refusals.
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "../analysis/craps_model.h"
#include "cli_util.h"
#include "stats/sessions_log.h"
#include "tests/support/temp_folder.h"

using cli_test::Cli;
using cli_test::Json;
using cli_test::Result;
using nlohmann::json;

namespace {

using Exact = model::Craps<model::Q>;
using Skewed = model::Craps<long double>;

constexpr double kExact = 1e-9;

class CliProbability : public ::testing::Test {
 protected:
  std::string File(const std::string& name) const { return folder / name; }
  TempFolder folder;
};

bool IsLine(int b) { return b == 43 || b == 44 || b == 46 || b == 47; }

// Every bet of `advantage --json` against the model under the same dice (the
// figures themselves are the advantage tests'; here their way to the JSON).
template <class M>
void ExpectAdvantageAsTheModel(const nlohmann::json& out, const typename M::Rules& rules,
                               const typename M::Dice& dice, bool countZero) {
  ASSERT_EQ(out["bets"].size(), 85u);
  for (int b = 1; b <= 84; ++b) {
    const nlohmann::json& a = out["bets"][std::to_string(b)];
    const model::Figures m = IsLine(b) ? M::LineFigures(rules, dice, b, countZero)
                                       : M::SingleRollFigures(rules, dice, b, countZero);
    EXPECT_NEAR(a["ev_per_roll"].get<double>(), m.evPerRoll, kExact) << b;
    EXPECT_NEAR(a["ev_per_decision"].get<double>(), m.evPerDec, kExact) << b;
    EXPECT_NEAR(a["rolls_per_decision"].get<double>(), m.rollsPerDec, kExact) << b;
    EXPECT_NEAR(a["sd_per_roll"].get<double>(), m.sdPerRoll, kExact) << b;
    EXPECT_NEAR(a["sd_per_decision"].get<double>(), m.sdPerDec, kExact) << b;
    EXPECT_NEAR(a["ev_per_hour"].get<double>(), 120 * m.evPerRoll, 120 * kExact) << b;
  }
  const model::FireModel hand = M::FireHand(dice);
  for (int k = 0; k <= 6; ++k)
    EXPECT_NEAR(out["fire"]["points"][k].get<double>(), hand.made[k], kExact) << k;
  EXPECT_NEAR(out["fire"]["rolls_per_hand"].get<double>(), hand.rolls, kExact);
}

TEST_F(CliProbability, TheTrueTableAndItsJsonKeys) {
  const nlohmann::json t = Json("probability --json");
  EXPECT_TRUE(t["kind"] == "Percentage Dice" && t["file"].is_null()) << t;
  EXPECT_EQ(t["cells"].size() + t["totals"].size() + t["faces"]["1"].size(), 36u + 11 + 6);
  EXPECT_EQ(t["cells"]["36"], (nlohmann::json{{"value", 2778}, {"locked", false}}));
  EXPECT_EQ(t["totals"]["7"]["value"], 16667);
  const Result text = Cli("probability");
  EXPECT_NE(text.out.find("Probability table: untitled (Percentage Dice)"), std::string::npos);
  EXPECT_NE(text.out.find("   16.667 "), std::string::npos) << text.out;
}

// What each operation does to the table is the probability table's tests';
// here they apply in the order given.
TEST_F(CliProbability, OperationsApplyInTheOrderGiven) {
  // 1-1 locked before the face is set keeps its share; locked after, the
  // face shares its 20000 over all five free cells.
  const nlohmann::json a =
      Json("probability --set-total 7=20000 --lock pair:11 --set-face 1:1=20000 --json");
  EXPECT_EQ(a["kind"], "Free Form Dice");
  EXPECT_EQ(a["cells"]["11"], (nlohmann::json{{"value", 2667}, {"locked", true}}));
  EXPECT_EQ(a["cells"]["12"]["value"], 3500);
  EXPECT_EQ(a["faces"]["1"]["1"], (nlohmann::json{{"value", 20000}, {"locked", true}}));
  const nlohmann::json b =
      Json("probability --set-total 7=20000 --set-face 1:1=20000 --lock pair:11 --json");
  EXPECT_EQ(b["cells"]["12"]["value"], 3333);  // Round((20000 - 3333) / 5)
  EXPECT_FALSE(Json("probability --set-face 2:6=25000 --unlock face:2:6 --json")["faces"]["2"]["6"]
                   ["locked"].get<bool>());
  EXPECT_EQ(Json("probability --set-pair 33=6000 --percentage --json")["kind"], "Percentage Dice");
}

TEST_F(CliProbability, SavedFilesReadBackAndBadOnesAreRefused) {
  const nlohmann::json saved =
      Json("probability --set-total 12=9000 --lock total:2 --save " + File("skew.prb") + " --json");
  EXPECT_EQ(saved["file"], File("skew.prb"));
  EXPECT_FALSE(saved["dirty"].get<bool>());
  EXPECT_EQ(Json("probability " + File("skew.prb") + " --json"), saved);

  std::ofstream(File("other.prb")) << "not a table";
  const struct {
    std::string args, message;
  } refusals[] = {
      {"probability " + File("other.prb"),
       "ravelton-cli probability: " + File("other.prb") +
           " is either from an older version, has been corrupted, or is not a true Ravelton "
           "Probability File.\n"},
      {"probability " + File("missing.prb"),
       "ravelton-cli probability: " + File("missing.prb") + ": no such file\n"},
      {"run --rolls 5 --prb " + File("missing.prb"),
       "ravelton-cli run: " + File("missing.prb") + ": no such file\n"},
      {"probability --set-pair 70=100",
       "ravelton-cli probability: --set-pair 70=100: expected D1D2=V (dice 1 to 6, V from 0 to "
       "100000 units)\n"},
      {"probability --set-pair 16=-5",
       "ravelton-cli probability: --set-pair 16=-5: expected D1D2=V (dice 1 to 6, V from 0 to "
       "100000 units)\n"},
      {"probability --set-total 13=100",
       "ravelton-cli probability: --set-total 13=100: expected T=V (a total 2 to 12, V from 0 to "
       "100000 units)\n"},
      {"probability --set-face 1:1=100000.5",
       "ravelton-cli probability: --set-face 1:1=100000.5: expected DIE:FACE=V (die 1 or 2, face "
       "1 to 6, V from 0 to 100000 units)\n"},
      {"probability --lock face:1",
       "ravelton-cli probability: --lock face:1: expected pair:D1D2, total:T or face:DIE:FACE\n"},
      {"probability --save " + File("no/such/folder.prb"),
       "ravelton-cli probability: " + File("no/such/folder.prb") + ": cannot be written\n"},
  };
  for (const auto& r : refusals) {
    const Result out = Cli(r.args, true);
    EXPECT_EQ(out.exitCode, 1) << r.args;
    EXPECT_EQ(out.out, r.message) << r.args;
  }
}

TEST_F(CliProbability, AdvantageUnderDefaultsIsExact) {
  ExpectAdvantageAsTheModel<Exact>(Json("advantage --zero-outcomes --json"), Exact::Rules(),
                                   Exact::FairDice(), true);
  const Result text = Cli("advantage");
  EXPECT_NE(text.out.find("Passline/Come                 -0.42      54.42      -1.41      99.99"
                          "     -50.27       3.38\n"),
            std::string::npos)
      << text.out;
  EXPECT_NE(text.out.find("  6 points   0.000162\nRolls per hand: 8.525510\n"), std::string::npos);
}

TEST_F(CliProbability, AdvantageWithAProbabilityFileUsesItsDice) {
  // 1-1 never comes, 3-4 and 4-3 twice as often as the rest, 6-6 four times.
  const nlohmann::json table = Json(
      "probability --set-pair 11=0 --set-pair 34=5000 --set-pair 43=5000 --set-pair 66=10000 "
      "--save " +
      File("skew.prb") + " --json");
  Skewed::Dice dice;
  for (int i = 1; i <= 6; ++i)
    for (int j = 1; j <= 6; ++j)
      dice[i - 1][j - 1] = model::Frac<long double>(
          table["cells"][std::to_string(i) + std::to_string(j)]["value"].get<long>(), 100000);
  const nlohmann::json out = Json("advantage --prb " + File("skew.prb") + " --json");
  ExpectAdvantageAsTheModel<Skewed>(out, Skewed::Rules(), dice, false);
  EXPECT_NE(
      Cli("advantage --prb " + File("skew.prb")).out.find("Probability File:  " + File("skew.prb")),
      std::string::npos);
}

TEST_F(CliProbability, RunPlaysWithTheFilesDice) {
  ASSERT_EQ(Cli("probability --set-total 12=100000 --save " + File("boxcars.prb")).exitCode, 0);
  const nlohmann::json run =
      Json("run --rolls 500 --seed 7 --prb " + File("boxcars.prb") + " --json");
  EXPECT_EQ(run["totals"]["12"], 500) << run;
}

// A saved game figures with its own dice (one that does not open: ReportCli.Refusals).
TEST_F(CliProbability, AdvantageOfASavedGameUsesItsDice) {
  ASSERT_EQ(
      Cli("probability --set-pair 11=0 --set-pair 66=9000 --save " + File("skew.prb")).exitCode, 0);
  ASSERT_EQ(Cli("run --rolls 0 --prb " + File("skew.prb") + " --save " + File("g.rvg")).exitCode,
            0);
  const nlohmann::json loaded = Json("advantage --load " + File("g.rvg") + " --json");
  EXPECT_EQ(loaded, Json("advantage --prb " + File("skew.prb") + " --json"));
  EXPECT_NE(loaded, Json("advantage --json"));
}

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
  // A run's table has selected nobody: the report takes its seated players
  // unless asked for nobody.
  EXPECT_EQ(Json(run + "--report results --json")["report"], results["report"]);
  EXPECT_EQ(Json(run + "--report results --players none --json")["report"]["selection_label"],
            "No players selected");
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
  // At a table of one, the one player is the report's.
  EXPECT_EQ(Json(run + "--report bankroll --json")["report"], graph);
  EXPECT_EQ(Json(run + "--report trends --json")["report"],
            Json(run + "--report trends --report-player Ann --json")["report"]);
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
  EXPECT_NE(bad.out.find(path + " is either from an older version"), std::string::npos) << bad.out;

  // A saved game reports what the run that made it reported, on the
  // players the run selected.
  const std::string game = dir / "report.rvg";
  const std::string run =
      "run --rolls 250 --seed 8 --player Ann=1000 --bet Ann:\"Pass Line\"=10 "
      "--win-rule Ann:2 --lose-rule Ann:2 --player Bo --bet Bo:Field=5 ";
  const json ran = Json(run + "--report results --players Ann --json --save " + game)["report"];
  EXPECT_GT(ran["rows"][0]["wagers"].get<double>(), 50);
  EXPECT_EQ(Json("report results --players Ann --json --load " + game), ran);
  EXPECT_EQ(Json("report results --json --load " + game), ran);
  EXPECT_EQ(
      Json("report totals --frame all-sessions --json --load " + game)["rows"],
      Json(run + "--report totals --frame all-sessions --players Ann --json")["report"]["rows"]);
}

TEST(ReportCli, Refusals) {
  const std::pair<const char*, const char*> cases[] = {
      {"report totals --load no-such-game.rvg", "Game File Not Found"},
      {"advantage --load no-such-game.rvg", "Game File Not Found"},
      {"report nosuch", "unknown view nosuch"},
      {"report totals --frame yesterday", "--frame must be"},
      {"report freqs --category 91", "--category must be 1 to 90"},
      {"report trends", "needs --player NAME"},
      {"report totals --players Zed", "nobody named Zed"},
      {"run --rolls 5 --players Zed", "nobody named Zed"},
      {"run --rolls 5 --report results --bets 86", "--bets takes bet ids 1 to 85"},
  };
  for (auto [args, message] : cases) {
    const cli_test::Result r = Cli(args, true);
    EXPECT_EQ(r.exitCode, 1) << args;
    EXPECT_NE(r.out.find(message), std::string::npos) << args << ": " << r.out;
  }
}

}  // namespace
