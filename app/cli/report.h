// ravelton-cli report: the figures of a statistics view as a readable table,
// CSV for spreadsheets or one JSON object. The same options serve
// `report VIEW` and `run ... --report VIEW`.
//
// A report is a view's rows in display order; each row has its label and
// fields named after the view's columns, each field the number before
// formatting (null where the view shows "---") with the text the view shows.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

namespace CLI {
class App;
}
struct Game;

struct ReportOptions {
  std::string view;     // totals, freqs, results, trends, summary, hands, comps, bankroll, sessions
  std::string players;  // comma-separated names, "none", or empty for the view's own selection
  std::string frame;    // current-hand ... all-sessions, or empty for the view's own
  std::string kind = "basic";
  bool skewed = false;
  int category = 0;  // 0: the view's own
  std::string bets;  // comma-separated ids; empty: every bet with a decision
  std::string player;
  bool percent = false;
  int value = -1;          // sessions: the sampled value, -1 for the view's own
  std::string breakPoint;  // sessions: X or LOW:HIGH
  std::string file;        // sessions: a log file other than the player's
  bool json = false, csv = false;
  std::string load;
};

struct ReportField {
  std::string key, heading;
  nlohmann::json value;  // the number before formatting, null for none
  std::string text;      // as the view shows it
};
struct ReportRow {
  std::string label;
  std::vector<ReportField> fields;
};
struct Report {
  std::string view, frame, selectionLabel;
  std::vector<ReportRow> rows;
  nlohmann::json extra = nlohmann::json::object();  // the view's figures outside its rows
};

// Adds the view options to a command; in `run` the view comes from --report
// and the view's player from --report-player (--player seats players there).
void AddReportOptions(CLI::App& cmd, ReportOptions& options, bool inRun);
// The bits of the players named in --players ("none": nobody); false with
// `error` naming one who is not at the table.
bool NamedPlayerBits(const Game& game, const std::string& players, std::int32_t& bits,
                     std::string& error);
// Figures the report of a started game; false with `error` on bad usage.
bool BuildReport(Game& game, const ReportOptions& options, Report& report, std::string& error);
nlohmann::json ReportJson(const Report& report);
void PrintReportCsv(std::ostream& out, const Report& report);
void PrintReportText(std::ostream& out, const Report& report);
// Prints the report as the options ask (text, CSV or JSON).
void PrintReport(std::ostream& out, const Report& report, const ReportOptions& options);
