// The three forms of a report: one JSON object, CSV with one header line,
// and a text table with the view's own headings.
#include <algorithm>
#include <iomanip>

#include "app/cli/json_text.h"
#include "app/cli/report.h"
#include "core/text.h"

namespace {

std::string CsvCell(const nlohmann::json& v) {
  if (v.is_null()) return "";
  if (v.is_array()) {  // the gaps: gap:count pairs
    std::string s;
    for (const auto& e : v) s += (s.empty() ? "" : ";") + e["gap"].dump() + ":" + e["count"].dump();
    return s;
  }
  if (v.is_string()) {
    std::string s = v.get<std::string>();
    if (s.find_first_of(",\"\r\n") == std::string::npos) return s;
    std::string q = "\"";
    for (char c : s) q += c == '"' ? std::string("\"\"") : std::string(1, c);
    return q + "\"";
  }
  return JsonText(v);
}

}  // namespace

nlohmann::json ReportJson(const Report& r) {
  nlohmann::json rows = nlohmann::json::array();
  for (const ReportRow& row : r.rows) {
    nlohmann::json o = {{"label", row.label}};
    for (const ReportField& f : row.fields) o[f.key] = f.value;
    rows.push_back(o);
  }
  nlohmann::json j = {{"view", r.view}, {"frame", r.frame}, {"selection_label", r.selectionLabel}};
  for (auto it = r.extra.begin(); it != r.extra.end(); ++it) j[it.key()] = it.value();
  j["rows"] = rows;
  return j;
}

void PrintReportCsv(std::ostream& out, const Report& r) {
  out << "label";
  if (!r.rows.empty())
    for (const ReportField& f : r.rows.front().fields) out << ',' << f.key;
  out << '\n';
  for (const ReportRow& row : r.rows) {
    out << CsvCell(row.label);
    for (const ReportField& f : row.fields) out << ',' << CsvCell(f.value);
    out << '\n';
  }
}

void PrintReportText(std::ostream& out, const Report& r) {
  out << r.view << " (" << r.frame << ")";
  if (!r.selectionLabel.empty()) out << ", " << r.selectionLabel;
  out << '\n';
  if (r.extra.contains("explanation") && !r.extra["explanation"].get<std::string>().empty())
    out << MessageLine(r.extra["explanation"].get<std::string>()) << '\n';
  if (r.rows.empty()) return;
  std::vector<std::size_t> width(r.rows.front().fields.size() + 1, 0);
  for (const ReportRow& row : r.rows) {
    width[0] = std::max(width[0], row.label.size());
    for (std::size_t k = 0; k < row.fields.size() && k + 1 < width.size(); ++k)
      width[k + 1] = std::max({width[k + 1], row.fields[k].text.size(), row.fields[k].heading.size()});
  }
  out << std::left << std::setw(static_cast<int>(width[0])) << "";
  for (std::size_t k = 0; k + 1 < width.size(); ++k)
    out << "  " << std::right << std::setw(static_cast<int>(width[k + 1])) << r.rows.front().fields[k].heading;
  out << '\n';
  for (const ReportRow& row : r.rows) {
    out << std::left << std::setw(static_cast<int>(width[0])) << row.label;
    for (std::size_t k = 0; k < row.fields.size() && k + 1 < width.size(); ++k)
      out << "  " << std::right << std::setw(static_cast<int>(width[k + 1])) << row.fields[k].text;
    out << '\n';
  }
}

void PrintReport(std::ostream& out, const Report& r, const ReportOptions& o) {
  if (o.json)
    out << JsonText(ReportJson(r)) << '\n';
  else if (o.csv)
    PrintReportCsv(out, r);
  else
    PrintReportText(out, r);
}
