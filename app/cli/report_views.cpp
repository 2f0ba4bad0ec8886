// Each view's figures as report rows: the stats library figures them, this
// file only names the columns.
#include <algorithm>
#include <bit>
#include <sstream>

#include "app/cli/report.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/seat_set.h"
#include "core/text.h"
#include "engine/players.h"
#include "stats/bankroll_graph.h"
#include "stats/bet_results.h"
#include "stats/roll_totals.h"
#include "stats/sessions_log.h"
#include "stats/sessions_printouts.h"
#include "stats/sessions_stats.h"
#include "stats/summary.h"

namespace {

ReportField Field(std::string key, std::string heading, const Shown& s) {
  nlohmann::json v;
  if (!s.none) v = s.integer ? nlohmann::json(static_cast<std::int64_t>(s.value)) : nlohmann::json(s.value);
  return {std::move(key), std::move(heading), v, s.text};
}
ReportField Field(std::string key, std::string heading, nlohmann::json v, std::string text) {
  return {std::move(key), std::move(heading), std::move(v), std::move(text)};
}
double Money(Currency a) { return a.ToDouble(); }

std::vector<std::string> SplitCommas(const std::string& s) {
  std::vector<std::string> parts;
  std::stringstream in(s);
  for (std::string part; std::getline(in, part, ',');)
    if (!Trim(part).empty()) parts.emplace_back(Trim(part));
  return parts;
}

struct Context {
  Game& game;
  const ReportOptions& o;
  std::string& error;
  bool Fail(std::string text) {
    error = std::move(text);
    return false;
  }
};

}  // namespace

bool NamedPlayerBits(const Game& game, const std::string& players, std::int32_t& bits,
                     std::string& error) {
  bits = 0;
  if (players == "none") return true;
  for (const std::string& name : SplitCommas(players)) {
    const int p = SeatNamed(game, name, 0);
    if (p == 0) {
      error = "--players: nobody named " + name + " is at the table";
      return false;
    }
    bits |= 1 << p;
  }
  return true;
}

namespace {

// The players of --players, else the view's stored selection. A fresh
// table has selected nobody, and whoever asks for a report of a run means
// the players of the run: an empty stored selection takes every seated one
// ("none" asks for nobody).
bool Selection(Context& c, std::int32_t stored, std::int32_t& bits) {
  if (c.o.players.empty()) {
    bits = stored != 0 ? stored : static_cast<std::int32_t>(SeatedPlayers(c.game));
    return true;
  }
  return NamedPlayerBits(c.game, c.o.players, bits, c.error);
}

bool ChosenFrame(Context& c, std::int32_t stored, int& frame) {
  frame = stored;
  if (c.o.frame.empty()) return true;
  frame = FrameOfWord(c.o.frame);
  if (frame < 0)
    return c.Fail("--frame must be current-hand, last-hand, current-session, last-session or all-sessions");
  return true;
}

// The player of a one-player report: --player, else the one player at a
// table of one; empty when neither names one.
std::string ReportPlayerName(const Context& c) {
  if (!c.o.player.empty()) return c.o.player;
  const unsigned seated = SeatedPlayers(c.game);
  if (std::popcount(seated) != 1) return {};
  return c.game.PlayerName[static_cast<std::size_t>(std::countr_zero(seated))];
}

bool Player(Context& c, int& p) {
  const std::string name = ReportPlayerName(c);
  if (name.empty()) return c.Fail("the " + c.o.view + " report needs --player NAME");
  p = SeatNamed(c.game, name, 0);
  if (p == 0) return c.Fail("nobody named " + name + " is at the table");
  return true;
}

void Totals(Context& c, Report& r, int frame, std::int32_t players, int kind) {
  const RollTotalsFigures f = FigureRollTotals(c.game, kind, frame, players, c.o.skewed);
  r.selectionLabel = f.selectionLabel;
  r.extra = {{"kind", std::string(KindCaption(f.kind))}, {"skewed", f.skewed},
             {"total_rolls", f.totalRolls.value}, {"graph_top", f.graphTop},
             {"explanation", f.explanation}};
  for (const RollTotalsRow& row : f.rows)
    r.rows.push_back({row.text,
                      {Field("category", "Category", row.category, std::to_string(row.category)),
                       Field("text", "", row.text, ""),
                       Field("probable_pct", "Prob %", row.probablePct),
                       Field("actual_pct", "Actual %", row.actualPct),
                       Field("count", "# of rolls", row.count),
                       Field("rolls_since", "# of rolls since last", row.rollsSince)}});
}

void Freqs(Context& c, Report& r, int category) {
  const RollFreqFigures f = FigureRollFreqs(c.game, category, c.o.skewed);
  nlohmann::json gaps = nlohmann::json::array();
  std::string gapText;
  for (const RollFreqGap& g : f.gaps) {
    gaps.push_back({{"gap", g.gap}, {"count", g.count}});
    gapText += (gapText.empty() ? "" : " ") + g.gapText + ":" + std::to_string(g.count);
  }
  r.extra = {{"probable_caption", f.probableCaption}};
  r.rows.push_back({f.text,
                    {Field("category", "Category", f.category, std::to_string(f.category)),
                     Field("session_rolls", "Total session rolls:", f.sessionRolls),
                     Field("selection_rolls", "Total rolls this selection:", f.selectionRolls),
                     Field("actual_pct", "Actual % rolled:", f.actualPct),
                     Field("rolls_since", "# rolls since last rolled:", f.rollsSince),
                     Field("average", "Average # of rolls to achieve:", f.average),
                     Field("probable_pct", f.probableCaption, f.probablePct),
                     Field("gaps", "Gaps", gaps, gapText)}});
}

bool Results(Context& c, Report& r, int frame, std::int32_t players) {
  std::vector<int> bets;
  if (c.o.bets.empty()) {
    bets = BetsWithDecisions(c.game, frame, players);
  } else {
    for (const std::string& id : SplitCommas(c.o.bets)) {
      char* end = nullptr;
      const long b = std::strtol(id.c_str(), &end, 10);
      if (*end != '\0' || !IsRealBet(static_cast<int>(b))) return c.Fail("--bets takes bet ids 1 to 85, not " + id);
      bets.push_back(static_cast<int>(b));
    }
  }
  const BetResultsFigures f = FigureBetResults(c.game, frame, players, bets);
  r.selectionLabel = f.selectionLabel;
  r.extra = {{"bets", f.bets},
             {"bets_label", f.betsLabel},
             {"on_table",
              {{"current_count", f.onTable[0].value}, {"current_amount", f.onTable[1].value},
               {"last_roll_count", f.onTable[2].value}, {"last_roll_amount", f.onTable[3].value}}}};
  const char* keys[kResultColumns] = {"wagers", "wins", "losses", "net", "net_pct"};
  for (int row = 1; row <= kResultRows; ++row) {
    ReportRow out{std::string(ResultRowLabel(row)), {}};
    for (int k = 0; k < kResultColumns; ++k)
      out.fields.push_back(Field(keys[k], std::string(ResultColumnTitle(k)), f.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)]));
    r.rows.push_back(std::move(out));
  }
  return true;
}

void Trends(Context& c, Report& r, int p) {
  for (const BetTrendRow& row : FigureBetTrends(c.game, p))
    r.rows.push_back({row.name, {Field("bet", "Bet", row.bet, std::to_string(row.bet)), Field("trend", "Trend", row.trend)}});
}

void Summary(Context& c, Report& r, int frame, std::int32_t players, bool compsOnly) {
  const SummaryFigures f = FigureSummary(c.game, frame, players);
  r.selectionLabel = f.selectionLabel;
  auto line = [&](const std::string& label, const Shown& s) {
    r.rows.push_back({label, {Field("value", "", s)}});
  };
  if (!compsOnly) {
    line("Total rolls", f.totalRolls);
    line("Total hands", f.totalHands);
    line("Total rolls shooting", f.rollsShooting);
    line("Rolls / hour", f.rollsPerHour);
    line("Sim hours", f.simHours);
    line("Sim hours shooting", f.simHoursShooting);
    line(f.bankrollCaption, f.bankrollCurrent);
    line("High", f.bankrollHigh);
    line("Low", f.bankrollLow);
    line("Average bankroll", f.bankrollAverage);
  }
  for (int k = 0; k < 7; ++k) line(f.compLabels[static_cast<std::size_t>(k)], f.comps[static_cast<std::size_t>(k)]);
  if (compsOnly) return;
  const char* rows[2] = {"Decisions Total #", "Decisions Total $"};
  const char* cols[5] = {"Wagers", "Wins", "Losses", "Net $", "Net %"};
  r.extra["decisions"] = nlohmann::json::array();
  for (int row = 0; row < 2; ++row) {
    nlohmann::json o = {{"label", rows[row]}};
    const char* keys[5] = {"wagers", "wins", "losses", "net", "net_pct"};
    for (int k = 0; k < 5; ++k) o[keys[k]] = f.decisions[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)].value;
    r.extra["decisions"].push_back(o);
    for (int k = 0; k < 5; ++k)
      line(std::string(rows[row]) + " " + cols[k], f.decisions[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)]);
  }
}

void Hands(Context& c, Report& r, int frame, std::int32_t players) {
  const HandsFigures f = FigureHands(c.game, frame, players, c.o.percent);
  r.selectionLabel = f.selectionLabel;
  for (int row = 2; row <= kHandRows; ++row) {
    const auto& cells = f.cells[static_cast<std::size_t>(row)];
    r.rows.push_back({HandRowLabel(row),
                      {Field("comeouts", "Come-out rolls", cells[0]), Field("passes", "Passes", cells[1]),
                       Field("misses", "Misses", cells[2])}});
  }
  r.extra = {{"explanation", f.explanation},
             {"hand_total", f.handTotal.value},
             {"total_rolls", f.totalRolls.value},
             {"most_rolls", f.mostRolls.value},
             {"most_comeouts", f.mostComeouts.value},
             {"most_passes", f.mostPasses.value},
             {"most_misses", f.mostMisses.value},
             {"avg_rolls", f.avgRolls.value},
             {"avg_comeouts", f.avgComeouts.value},
             {"avg_passes", f.avgPasses.value},
             {"avg_misses", f.avgMisses.value}};
}

void Bankroll(Context& c, Report& r, int p) {
  const BankrollGraphFigures f = FigureBankrollGraph(c.game, p);
  r.selectionLabel = f.playerName;
  const double first = c.game.GraphBankroll(p, 0).ToDouble();
  for (const GraphColumn& col : f.columns) {
    const auto roll = static_cast<std::int64_t>(first) + col.x - 1;
    r.rows.push_back({std::to_string(roll),
                      {Field("column", "Column", col.x, std::to_string(col.x)),
                       Field("bankroll", "Bankroll", Money(col.bankroll), FormatMoney(col.bankroll)),
                       Field("trend", f.averageLabel.empty() ? "Beginning" : "Average", Money(col.line), FormatMoney(col.line)),
                       Field("row", "Row", col.row, std::to_string(col.row))}});
  }
  r.extra = {{"player", f.playerName},       {"high", f.high.value},
             {"low", f.low.value},           {"current", f.current.value},
             {"scale", Money(f.scale)},      {"top", Money(f.top)},
             {"trend_label", f.averageLabel}, {"total_rolls", f.totalRolls.value},
             {"sim_hours", f.simHours.text}, {"page_high", Money(c.game.GraphHigh(p))},
             {"page_low", Money(c.game.GraphLow(p))}};
}

bool Sessions(Context& c, Report& r) {
  std::string path;
  if (!c.o.file.empty()) {
    path = c.o.file;
  } else if (const std::string name = ReportPlayerName(c); !name.empty()) {
    const int p = SeatNamed(c.game, name, 0);
    path = p ? SessionLogPathOf(c.game, p) : c.game.roll.DataFolder + LowerCase(name) + ".slg";
  } else {
    return c.Fail("the sessions report needs --player NAME or --file PATH");
  }
  // The view's own settings, then what the options change.
  SessionsRequest rq = SessionsRequestOf(c.game, std::move(path));
  if (c.o.value >= 0) rq.value = c.o.value;
  if (rq.value >= kSessionValues) return c.Fail("--value must be 0 to 31");
  if (!c.o.breakPoint.empty()) {
    const std::size_t colon = c.o.breakPoint.find(':');
    Currency a = ParseAmount(c.o.breakPoint.substr(0, colon));
    Currency b = colon == std::string::npos ? a : ParseAmount(c.o.breakPoint.substr(colon + 1));
    rq.breakLow = std::min(a, b);
    rq.breakHigh = std::max(a, b);
  }
  const SessionsFigures f = FigureSessionsLog(rq);
  if (!f.error.empty() && f.sessions == 0) return c.Fail(MessageLine(f.error));
  r.selectionLabel = ReportPlayerName(c);
  for (const auto& [label, s] : f.results) r.rows.push_back({label, {Field("value", "", s)}});
  nlohmann::json classes = nlohmann::json::array();
  for (int k = 0; k < 4; ++k)
    classes.push_back({{"label", f.classLabels[static_cast<std::size_t>(k)]},
                       {"count", f.classCounts[static_cast<std::size_t>(k)].value},
                       {"percent", f.classPercents[static_cast<std::size_t>(k)].value}});
  r.extra = {{"file", rq.path},          {"value", rq.value},
             {"value_name", f.valueName}, {"sessions", f.sessions},
             {"included", f.included},    {"classes", classes},
             {"median_between", f.medianBetween}, {"error", f.error}};
  return true;
}

}  // namespace

bool BuildReport(Game& game, const ReportOptions& o, Report& r, std::string& error) {
  Context c{game, o, error};
  ViewsState& v = game.views;
  r.view = o.view;
  int frame = 2;
  std::int32_t players = 0;
  const std::string& view = o.view;
  bool ok = true;
  if (view == "totals") {
    const char* kinds[] = {"basic", "distinguishable", "unique", "faces"};
    const auto kind = std::find(std::begin(kinds), std::end(kinds), o.kind) - std::begin(kinds);
    if (kind == 4) return c.Fail("--kind must be basic, distinguishable, unique or faces");
    ok = ChosenFrame(c, v.RollTotalsFrame, frame) && Selection(c, v.RollTotalsPlayers, players);
    if (ok) Totals(c, r, frame, players, static_cast<int>(kind));
  } else if (view == "freqs") {
    const int category = o.category ? o.category : v.RollFreqCategory;
    if (category < 1 || category > 90) return c.Fail("--category must be 1 to 90");
    frame = 2;
    Freqs(c, r, category);
  } else if (view == "results") {
    ok = ChosenFrame(c, v.BetResultsFrame, frame) && Selection(c, v.BetResultsPlayers, players) &&
         Results(c, r, frame, players);
  } else if (view == "trends") {
    int p = 0;
    ok = Player(c, p);
    if (ok) Trends(c, r, p);
    r.selectionLabel = ReportPlayerName(c);
  } else if (view == "summary" || view == "comps") {
    ok = ChosenFrame(c, v.SummaryFrame, frame) && Selection(c, v.SummaryPlayers, players);
    if (ok) Summary(c, r, frame, players, view == "comps");
  } else if (view == "hands") {
    ok = ChosenFrame(c, v.HandsFrame, frame) && Selection(c, v.HandsPlayers, players);
    if (ok) Hands(c, r, frame, players);
  } else if (view == "bankroll") {
    int p = 0;
    ok = Player(c, p);
    if (ok) Bankroll(c, r, p);
  } else if (view == "sessions") {
    ok = Sessions(c, r);
  } else {
    return c.Fail("unknown view " + view +
                  " (totals, freqs, results, trends, summary, hands, comps, bankroll, sessions)");
  }
  r.frame = view == "sessions" ? std::string(FrameWord(4))
          : view == "trends" || view == "bankroll" || view == "freqs"
                ? std::string(FrameWord(2))
                : std::string(FrameWord(frame));
  return ok;
}
