// ravelton-cli probability: shows a probability table (the true one without
// a file) after applying the tab's operations in the order given: setting a
// pair, a total or a face in table units (1/100,000) with the rebalancing
// that follows, locking and unlocking entries, turning the table into
// Percentage or Free Form dice; then --save writes it.
#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "app/cli/commands.h"
#include "app/cli/json_text.h"
#include "app/cli/probability_options.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "dice/probability.h"
#include "dice/probability_file.h"

namespace {

struct ProbabilityOptions {
  std::string file;
  std::vector<std::string> setPair, setTotal, setFace, lock, unlock;
  bool freeForm = false, percentage = false;
  std::string save;
  bool json = false;
};

bool InRange(int v, int lo, int hi) { return v >= lo && v <= hi; }

// A whole number that is the whole text.
std::optional<int> WholeNumber(const std::string& text) {
  if (text.empty() || text.size() > 3) return std::nullopt;
  int v = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    v = v * 10 + (c - '0');
  }
  return v;
}

// An entry as the options name it: "D1D2" (a pair), "T" (a total), "DIE:FACE".
std::optional<ProbEntry> PairEntry(const std::string& text) {
  if (text.size() != 2) return std::nullopt;
  const int d1 = text[0] - '0', d2 = text[1] - '0';
  if (!InRange(d1, 1, 6) || !InRange(d2, 1, 6)) return std::nullopt;
  return CellOfDice(d1, d2);
}
std::optional<ProbEntry> TotalOf(const std::string& text) {
  const auto t = WholeNumber(text);
  if (!t || !InRange(*t, 2, 12)) return std::nullopt;
  return TotalEntry(*t);
}
std::optional<ProbEntry> FaceOf(const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) return std::nullopt;
  const auto die = WholeNumber(text.substr(0, colon)), face = WholeNumber(text.substr(colon + 1));
  if (!die || !face || !InRange(*die, 1, 2) || !InRange(*face, 1, 6)) return std::nullopt;
  return FaceEntry(*die, *face);
}

// "pair:D1D2", "total:T" or "face:DIE:FACE".
std::optional<ProbEntry> NamedEntry(const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos) return std::nullopt;
  const std::string kind = text.substr(0, colon), rest = text.substr(colon + 1);
  if (kind == "pair") return PairEntry(rest);
  if (kind == "total") return TotalOf(rest);
  if (kind == "face") return FaceOf(rest);
  return std::nullopt;
}

// "ENTRY=V" with V a number of table units, from none to certainty (the
// table would hold a value outside as its nearest end without a word).
bool ParseSet(const std::string& text, std::optional<ProbEntry> (*entryOf)(const std::string&),
              ProbEntry& entry, double& value) {
  const std::size_t eq = text.find('=');
  if (eq == std::string::npos) return false;
  const auto e = entryOf(text.substr(0, eq));
  const std::string v = text.substr(eq + 1);
  char* end = nullptr;
  value = std::strtod(v.c_str(), &end);
  if (!e || v.empty() || *end != '\0' || !(value >= 0 && value <= kProbCertain)) return false;
  entry = *e;
  return true;
}

// Applies one occurrence of an option; false with `error` on a bad value.
bool ApplyOperation(Game& game, const std::string& name, const std::string& value,
                    std::string& error) {
  ProbEntry e;
  double units = 0;
  bool ok = true;
  if (name == "--set-pair") {
    ok = ParseSet(value, PairEntry, e, units);
  } else if (name == "--set-total") {
    ok = ParseSet(value, TotalOf, e, units);
  } else if (name == "--set-face") {
    ok = ParseSet(value, FaceOf, e, units);
  } else if (name == "--lock" || name == "--unlock") {
    const auto named = NamedEntry(value);
    if (!named) {
      error = name + " " + value + ": expected pair:D1D2, total:T or face:DIE:FACE";
      return false;
    }
    ProbFlag(game, named->a, named->b) = name == "--lock" ? kProbLocked : 0;
    return true;
  } else if (name == "--free-form") {
    MakeFreeFormDice(game);
    return true;
  } else if (name == "--percentage") {
    MakePercentageDice(game);
    return true;
  } else {
    return true;  // not an operation
  }
  if (!ok) {
    error = name + " " + value + ": expected " +
            (name == "--set-pair"    ? "D1D2=V (dice 1 to 6"
             : name == "--set-total" ? "T=V (a total 2 to 12"
                                     : "DIE:FACE=V (die 1 or 2, face 1 to 6") +
            ", V from 0 to 100000 units)";
    return false;
  }
  SetProbabilityCell(game, e.a, e.b, units, true);
  return true;
}

nlohmann::json EntryJson(const Game& game, ProbEntry e) {
  return {{"value", ProbValue(game, e.a, e.b)},
          {"locked", ProbFlag(game, e.a, e.b) == kProbLocked}};
}

nlohmann::json TableJson(const Game& game) {
  nlohmann::json cells = nlohmann::json::object(), totals = nlohmann::json::object(),
                 faces = nlohmann::json::object();
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2)
      cells[std::to_string(d1) + std::to_string(d2)] = EntryJson(game, CellOfDice(d1, d2));
  for (int t = 2; t <= 12; ++t) totals[std::to_string(t)] = EntryJson(game, TotalEntry(t));
  for (int die = 1; die <= 2; ++die)
    for (int face = 1; face <= 6; ++face)
      faces[std::to_string(die)][std::to_string(face)] = EntryJson(game, FaceEntry(die, face));
  const std::string& file = game.probability.ProbFilePath;
  return {{"kind", ProbabilityKindCaption(game)},
          {"file", file.empty() ? nlohmann::json() : nlohmann::json(file)},
          {"dirty", game.probability.ProbDirty},
          {"cells", cells},
          {"totals", totals},
          {"faces", faces}};
}

// An entry's text as the tab shows it, a locked one marked with '*'.
std::string Shown(const Game& game, ProbEntry e) {
  std::string text = ProbabilityCellText(game, e.a, e.b);
  text += ProbFlag(game, e.a, e.b) == kProbLocked ? '*' : ' ';
  char buf[32];
  std::snprintf(buf, sizeof buf, "%9s", text.c_str());
  return buf;
}

// A heading of numbers lo..hi over columns of Shown().
std::string Heading(const char* label, int lo, int hi) {
  std::string line = label;
  char buf[16];
  for (int n = lo; n <= hi; ++n) {
    std::snprintf(buf, sizeof buf, "%8d ", n);
    line += buf;
  }
  return line + '\n';
}

void PrintTable(std::ostream& out, const Game& game) {
  const std::string& file = game.probability.ProbFilePath;
  out << "Probability table: " << (file.empty() ? "untitled" : file) << " ("
      << ProbabilityKindCaption(game) << ")\n"
      << ProbabilityModeCaption(game) << "; * locked\n";
  out << Heading("Totals    ", 2, 12) << "          ";
  for (int t = 2; t <= 12; ++t) out << Shown(game, TotalEntry(t));
  out << '\n' << Heading("1st\\2nd  ", 1, 6);
  for (int d1 = 1; d1 <= 6; ++d1) {
    out << "Pair " << d1 << "-   ";
    for (int d2 = 1; d2 <= 6; ++d2) out << Shown(game, CellOfDice(d1, d2));
    out << '\n';
  }
  out << Heading("Faces     ", 1, 6);
  for (int die = 1; die <= 2; ++die) {
    out << (die == 1 ? "1st die   " : "2nd die   ");
    for (int face = 1; face <= 6; ++face) out << Shown(game, FaceEntry(die, face));
    out << '\n';
  }
}

int RunProbability(const ProbabilityOptions& options, const CLI::App& cmd) {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  std::string error;
  if (!options.file.empty() && !ReadProbabilityFileOption(*game, options.file, error)) {
    std::cerr << "ravelton-cli probability: " << error << '\n';
    return 1;
  }
  // The options in the order given: the i-th time an option appears takes its i-th value.
  std::map<const CLI::Option*, std::size_t> seen;
  for (const CLI::Option* opt : cmd.parse_order()) {
    const std::size_t i = seen[opt]++;
    const auto& results = opt->results();
    const std::string value = i < results.size() ? results[i] : std::string();
    if (!ApplyOperation(*game, opt->get_name(), value, error)) {
      std::cerr << "ravelton-cli probability: " << error << '\n';
      return 1;
    }
  }
  if (!options.save.empty()) {
    std::error_code ec;
    const std::string full = std::filesystem::absolute(options.save, ec).string();
    if (!SaveProbabilityFile(*game, ec ? options.save : full)) {
      std::cerr << "ravelton-cli probability: " << options.save << ": cannot be written\n";
      return 1;
    }
  }
  if (options.json)
    std::cout << JsonText(TableJson(*game)) << '\n';
  else
    PrintTable(std::cout, *game);
  return 0;
}

}  // namespace

void AddProbabilityCommand(CLI::App& app) {
  auto options = std::make_shared<ProbabilityOptions>();
  CLI::App* cmd =
      app.add_subcommand("probability", "Show and change a probability table (skewed dice)");
  cmd->add_option("file", options->file, "A probability file to start from (FILE.prb)");
  auto many = [&](const char* name, std::vector<std::string>& into, const char* help) {
    cmd->add_option(name, into, help)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  };
  many("--set-pair", options->setPair, "Set the pair D1D2 to V units: --set-pair 36=4000");
  many("--set-total", options->setTotal, "Set the total T to V units: --set-total 7=20000");
  many("--set-face", options->setFace, "Set face FACE of die DIE to V units: --set-face 1:6=20000");
  many("--lock", options->lock, "Lock pair:D1D2, total:T or face:DIE:FACE");
  many("--unlock", options->unlock, "Unlock pair:D1D2, total:T or face:DIE:FACE");
  CLI::Option* freeForm = cmd->add_flag("--free-form", options->freeForm,
                                        "Make Free Form dice (faces follow the cells)");
  cmd->add_flag("--percentage", options->percentage,
                "Make Percentage dice (each pair the product of its faces)")
      ->excludes(freeForm);
  cmd->add_option("--save", options->save, "Write the table to OUT.prb");
  cmd->add_flag("--json", options->json, "Print the table as one JSON object");
  cmd->callback([options, cmd] {
    if (const int rc = RunProbability(*options, *cmd); rc != 0) throw CLI::RuntimeError(rc);
  });
}
