// ravelton-cli info: what a game file holds, read with OpenGame into a fresh
// game: the players with their money, bets, CheckStacks, Auto-Play rules and
// scripts; rolls and hands of the table in each frame; the files the game
// refers to with their present time stamps; the main table settings.
#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <system_error>

#include "app/cli/commands.h"
#include "app/cli/game_file_options.h"
#include "app/cli/json_text.h"
#include "config/payoffs.h"
#include "config/settings.h"
#include "core/catalogue.h"
#include "core/frames.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/money.h"
#include "cycle/startup.h"
#include "script/files.h"
#include "store/file_stamp.h"
#include "store/game_file.h"

namespace {

constexpr const char* kFrameCaption[kFrameCount] = {"Current hand", "Last hand", "Current session",
                                                    "Last session", "All sessions"};

double Money(Currency c) { return c.ToDouble(); }
// Room for the shortest fixed-point text of any amount of the game (below
// 10^15 dollars, with the digits a double needs after the point).
constexpr std::size_t kShortestFixedChars = 64;

nlohmann::json PlayerJson(const Game& g, int p) {
  nlohmann::json onTable = nlohmann::json::object(), stacks = nlohmann::json::object(),
                 names = nlohmann::json::object();
  for (int b = 1; b <= kLastRealBet; ++b)
    if (!g.Bet(p, b).IsZero()) onTable[std::to_string(b)] = Money(g.Bet(p, b));
  for (int b = 100; b <= 199; ++b) {
    const std::string& name = g.CheckStackName(p, b - 100);
    if (!g.Bet(p, b).IsZero()) stacks[std::to_string(b)] = Money(g.Bet(p, b));
    if (!name.empty()) names[std::to_string(b)] = name;
  }
  const auto s = static_cast<std::size_t>(p);
  return {{"slot", p},
          {"name", g.PlayerName[s]},
          {"bankroll", Money(g.Bet(p, bet::kBankroll))},
          {"invested", Money(g.InvestedBankroll(p))},
          {"rail", Money(g.Bet(p, bet::kBankroll) - g.TotalBets(p))},
          {"total_bets", Money(g.TotalBets(p))},
          {"on_table", onTable},
          {"checkstacks", stacks},
          {"checkstack_names", names},
          {"win_rule", g.autoplay.HandleWinningBets(p)},
          {"lose_rule", g.autoplay.HandleLosingBets(p)},
          {"script", UndoubleAmpersands(g.scriptSource.ScriptFile[s])},
          {"script_active", g.roll.ScriptActive[s]}};
}

nlohmann::json InfoJson(const Game& g) {
  nlohmann::json players = nlohmann::json::array(), frames = nlohmann::json::array(),
                 files = nlohmann::json::array();
  for (int p = 1; p <= 8; ++p)
    if (!g.PlayerName[static_cast<std::size_t>(p)].empty()) players.push_back(PlayerJson(g, p));
  for (int t = 0; t < kFrameCount; ++t)
    frames.push_back({{"frame", kFrameCaption[t]},
                      {"rolls", g.RollTally(FrameIndex(kHouse, t), kEventRolls)},
                      {"hands", g.HandsTally(FrameIndex(kHouse, t))}});
  auto file = [&files](const std::string& kind, const std::string& path) {
    if (!path.empty()) files.push_back({{"kind", kind}, {"path", path}, {"stamp", FileStamp(path)}});
  };
  file("dice roll file", g.diceFile.DiceFilePath);
  file("probability file", g.probability.ProbFilePath);
  file("events log", g.roll.EventsLogPath);
  for (int p = 1; p <= 8; ++p) {
    const auto s = static_cast<std::size_t>(p);
    if (g.PlayerName[s].empty()) continue;
    file(g.PlayerName[s] + "'s script", UndoubleAmpersands(g.scriptSource.ScriptFile[s]));
    file(g.PlayerName[s] + "'s sessions log", g.roll.SessionLogPath[s]);
  }
  const TableSettings& t = g.rules;
  nlohmann::json field = nlohmann::json::object();
  for (int i = 1; i <= kFieldRows; ++i)
    if (!g.FieldPayoff(1, i).IsZero())
      field[std::string(kFieldRowLabel[i])] = {Money(g.FieldPayoff(1, i)), Money(g.FieldPayoff(3, i))};
  nlohmann::json settings = {
      {"min_bet", Money(t.MinPlacardBet)},
      {"max_bet", Money(t.MaxPlacardBet)},
      {"max_odds_bet", Money(t.MaxOddsBet)},
      {"max_prop_payoff", Money(t.MaxPropBetPayoff)},
      {"odds_4_10", Money(t.OddsAllowed410)},
      {"odds_5_9", Money(t.OddsAllowed59)},
      {"odds_6_8", Money(t.OddsAllowed68)},
      {"odds_method", std::string(kOddsMethodCaption[t.OddsCalcMethod])},
      {"bet_requirement", std::string(kBetRequirementCaption[t.BetRequirement])},
      {"bar", t.BarNumber},
      {"field", field},
      {"buy_vig_rate", Money(t.BuyVigRate)},
      {"buy_vig_up_front", t.BuyVigUpFront},
      {"buy_vig_round", std::string(kVigRoundCaption[t.BuyVigRound])},
      {"lay_vig_rate", Money(t.LayVigRate)},
      {"lay_vig_up_front", t.LayVigUpFront},
      {"lay_vig_round", std::string(kVigRoundCaption[t.LayVigRound])},
      {"rng", g.dice.RngIndex + 1},
      {"seed", g.dice.LastSeed},
  };
  return {{"players", players}, {"frames", frames}, {"files", files}, {"settings", settings}};
}

// An amount of the JSON as the game shows money. The double is read back
// through its shortest decimal text, which gives the amount exactly where
// the double holds it: scaled in doubles, an amount past some $900 billion
// would come out a few ten-thousandths off.
std::string Dollars(const nlohmann::json& amount) {
  const double x = amount.get<double>();
  char text[kShortestFixedChars];
  const auto [end, error] = std::to_chars(text, text + sizeof text, x, std::chars_format::fixed);
  const Currency c = error == std::errc{}
                         ? ParseAmount(std::string_view(text, static_cast<std::size_t>(end - text)))
                         : CurFromDouble(x);
  return "$" + FormatMoney(c);
}

void PrintInfo(std::ostream& out, const nlohmann::json& info) {
  for (const auto& p : info["players"]) {
    out << "Seat " << p["slot"] << ": " << p["name"].get<std::string>() << ", bankroll "
        << Dollars(p["bankroll"]) << ", invested " << Dollars(p["invested"]) << ", rail "
        << Dollars(p["rail"]) << ", on bets " << Dollars(p["total_bets"]) << '\n';
    for (const auto& [id, amount] : p["on_table"].items())
      out << "  " << BetName(std::stoi(id)) << ": " << Dollars(amount) << '\n';
    for (const auto& [id, amount] : p["checkstacks"].items()) {
      const auto name = p["checkstack_names"].find(id);
      out << "  CheckStack " << std::stoi(id) - 100 << " ("
          << (name != p["checkstack_names"].end() ? name->get<std::string>() : "") << "): "
          << Dollars(amount) << '\n';
    }
    out << "  Auto-Play: winning bets rule " << p["win_rule"] << ", losing bets rule "
        << p["lose_rule"] << '\n';
    const std::string script = p["script"];
    out << "  Script: " << (script.empty() ? "none" : script)
        << (p["script_active"].get<bool>() ? " (active)" : "") << '\n';
  }
  for (const auto& f : info["frames"])
    out << f["frame"].get<std::string>() << ": " << f["rolls"] << " rolls, " << f["hands"]
        << " hands\n";
  for (const auto& f : info["files"])
    out << f["kind"].get<std::string>() << ": " << f["path"].get<std::string>() << " ["
        << (f["stamp"].get<std::string>().empty() ? "missing" : f["stamp"].get<std::string>())
        << "]\n";
  for (const auto& [key, value] : info["settings"].items()) out << key << ": " << value << '\n';
}

struct InfoOptions {
  std::string path;
  bool json = false;
  GameFileOptions files;
};

int Info(const InfoOptions& o) {
  ApplyDataOption(o.files);
  HeadlessPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  const bool opened = OpenGame(*game, o.path);
  PrintMessages(platform, 0);
  if (!opened) return 1;
  const nlohmann::json info = InfoJson(*game);
  if (o.json)
    std::cout << JsonText(info) << '\n';
  else
    PrintInfo(std::cout, info);
  return 0;
}

}  // namespace

void AddInfoCommand(CLI::App& app) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App* cmd = app.add_subcommand("info", "Show what a game file holds");
  cmd->add_option("game", options->path, "The game file (.rvg)")->required();
  cmd->add_flag("--json", options->json, "Print it as one JSON object");
  AddDataOption(*cmd, options->files);
  cmd->callback([options] {
    if (const int rc = Info(*options); rc != 0) throw CLI::RuntimeError(rc);
  });
}
