#include "app/cli/player_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <iomanip>
#include <iostream>
#include <optional>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/text.h"
#include "cycle/player_names.h"
#include "engine/place.h"
#include "engine/players.h"

namespace {

constexpr Currency kDefaultBankroll = Currency::FromWhole(1000);
constexpr Currency kBankLimit = Currency::FromWhole(kBankrollLimit);

// An amount typed on the command line: digits with an optional sign and point.
std::optional<Currency> Amount(std::string_view text) {
  if (text.empty()) return std::nullopt;
  std::size_t i = text[0] == '-' || text[0] == '+' ? 1 : 0;
  bool digit = false, point = false;
  for (; i < text.size(); ++i) {
    if (std::isdigit(static_cast<unsigned char>(text[i])))
      digit = true;
    else if (text[i] == '.' && !point)
      point = true;
    else
      return std::nullopt;
  }
  if (!digit || text.size() > 20) return std::nullopt;
  const Currency a = ParseAmount(text.substr(text[0] == '+' ? 1 : 0));
  return text[0] == '-' && a > Currency{} ? -a : a;
}

int SeatOf(const Game& game, std::string_view name) {
  const std::string lower = LowerCase(name);
  for (int p = 1; p <= 8; ++p)
    if (!game.PlayerName[p].empty() && LowerCase(game.PlayerName[p]) == lower) return p;
  return 0;
}

// A bet by id (1..85, CheckStacks 100..199) or by its name, case ignored.
int BetOf(std::string_view text) {
  if (!text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return std::isdigit(static_cast<unsigned char>(c));
      })) {
    if (text.size() > 3) return 0;
    const int id = std::stoi(std::string(text));
    return IsRealBet(id) || IsCheckStack(id) ? id : 0;
  }
  const std::string lower = LowerCase(text);
  for (int b = 1; b <= kLastRealBet; ++b)
    if (LowerCase(BetName(b)) == lower) return b;
  return 0;
}

// NAME:REST split at the first colon; the seat of NAME.
bool PlayerAndRest(const Game& game, const std::string& arg, const char* option, int& seat,
                   std::string& rest, std::string& error) {
  const auto colon = arg.find(':');
  if (colon == std::string::npos) {
    error = std::string(option) + " expects NAME:VALUE, got '" + arg + "'";
    return false;
  }
  seat = SeatOf(game, arg.substr(0, colon));
  if (seat == 0) {
    error = std::string(option) + ": no player named '" + arg.substr(0, colon) + "'";
    return false;
  }
  rest = arg.substr(colon + 1);
  return true;
}

// NAME[=BANKROLL][@SEAT] taken apart; seat 0 when none is asked.
struct PlayerArg {
  std::string name;
  Currency bankroll = kDefaultBankroll;
  int seat = 0;
};

bool ParsePlayer(const std::string& arg, PlayerArg& out, std::string& error) {
  std::string rest = arg;
  if (const auto at = rest.rfind('@'); at != std::string::npos) {
    const std::string seat = rest.substr(at + 1);
    if (seat.size() != 1 || seat[0] < '1' || seat[0] > '8') {
      error = "--player " + arg + ": the seat is a number 1 to 8";
      return false;
    }
    out.seat = seat[0] - '0';
    rest.resize(at);
  }
  const auto eq = rest.find('=');
  out.name = rest.substr(0, eq);
  if (eq != std::string::npos) {
    const auto amount = Amount(rest.substr(eq + 1));
    if (!amount || *amount > kBankLimit || *amount < -kBankLimit) {
      error = "--player " + arg + ": the bankroll must be a number from -9999999 to 9999999";
      return false;
    }
    out.bankroll = *amount;
  }
  if (out.name.empty() || out.name.find_first_not_of(' ') == std::string::npos) {
    error = "--player " + arg + ": the name is empty";
    return false;
  }
  return true;
}

// Players with a seat sit there; the others take the lowest open seats in
// the order given.
bool SeatAll(Game& game, const PlayerOptions& o, std::string& error) {
  std::vector<PlayerArg> args(o.players.size());
  for (std::size_t i = 0; i < o.players.size(); ++i)
    if (!ParsePlayer(o.players[i], args[i], error)) return false;
  int open = 0;
  for (int p = 1; p <= 8; ++p) open += game.PlayerName[p].empty();
  if (static_cast<int>(args.size()) > open) {
    error = "--player: at most 8 players sit at the table";
    return false;
  }
  for (int pass = 0; pass < 2; ++pass) {
    for (std::size_t i = 0; i < args.size(); ++i) {
      PlayerArg& a = args[i];
      if ((pass == 0) != (a.seat > 0)) continue;
      if (a.seat == 0)
        for (a.seat = 1; !game.PlayerName[a.seat].empty(); ++a.seat) {
        }
      if (!game.PlayerName[a.seat].empty()) {
        error = "--player " + o.players[i] + ": seat " + std::to_string(a.seat) + " is taken";
        return false;
      }
      if (const std::string problem = PlayerNameProblem(game, a.name, 0); !problem.empty()) {
        error = "--player " + o.players[i] + ": " + MessageLine(problem);
        return false;
      }
      SeatPlayer(game, a.seat, a.name, a.bankroll);
    }
  }
  return true;
}

bool SetFlags(Game& game, const std::vector<std::string>& names, const char* option,
              Table1<bool, 0, 8>& flag, std::string& error) {
  for (const std::string& name : names) {
    const int p = SeatOf(game, name);
    if (p == 0) {
      error = std::string(option) + ": no player named '" + name + "'";
      return false;
    }
    flag(p) = true;
  }
  return true;
}

bool SetRules(Game& game, const std::vector<std::string>& args, const char* option,
              Table1<std::int32_t, 0, 8>& rule, std::string& error) {
  for (const std::string& arg : args) {
    int p = 0;
    std::string rest;
    if (!PlayerAndRest(game, arg, option, p, rest, error)) return false;
    if (rest.size() != 1 || rest[0] < '0' || rest[0] > '7') {
      error = std::string(option) + " " + arg + ": the rule is a number 0 to 7";
      return false;
    }
    rule(p) = rest[0] - '0';
  }
  return true;
}

bool PlaceAll(Game& game, const PlayerOptions& o, std::string& error) {
  for (const std::string& arg : o.bets) {
    int p = 0;
    std::string rest;
    if (!PlayerAndRest(game, arg, "--bet", p, rest, error)) return false;
    const auto eq = rest.find('=');
    const int b = BetOf(rest.substr(0, eq));
    if (eq == std::string::npos || b == 0) {
      error = "--bet " + arg + ": expected NAME:BET=AMOUNT with a bet id or name";
      return false;
    }
    const auto amount = Amount(rest.substr(eq + 1));
    if (!amount) {
      error = "--bet " + arg + ": the amount is not a number";
      return false;
    }
    // Nothing stands on the table before the first roll, so a request of 0
    // or less (or of less than a ten-thousandth) would place nothing.
    if (*amount <= Currency{}) {
      error = "--bet " + arg + ": the amount must be $0.0001 or more";
      return false;
    }
    game.msg.MsgText.clear();
    game.BetRequest = *amount;
    PlaceBet(game, p, b);
    if (game.betting.BetChange != *amount) {
      std::cerr << "ravelton-cli " << o.command << ": --bet " << arg << ": "
                << FormatMoney(game.betting.BetChange) << " placed";
      if (!game.msg.MsgText.empty()) std::cerr << ": " << MessageLine(game.msg.MsgText);
      std::cerr << '\n';
    }
  }
  return true;
}

double Money(Currency a) { return a.ToDouble(); }

}  // namespace

bool PlacePlayerBets(Game& game, const PlayerOptions& o, std::string& error) {
  return PlaceAll(game, o, error);
}

void AddPlayerOptions(CLI::App& cmd, PlayerOptions& o) {
  cmd.add_option("--player", o.players,
                 "Seat a player: NAME[=BANKROLL][@SEAT] (bankroll 1000; without a seat, the "
                 "lowest open one)");
  cmd.add_option("--bet", o.bets, "Place a bet before the first roll: NAME:BET=AMOUNT");
  cmd.add_option("--win-rule", o.winRules, "Winning-bet rule of a player: NAME:R, R 0..7");
  cmd.add_option("--lose-rule", o.loseRules, "Losing-bet rule of a player: NAME:R, R 0..7");
  cmd.add_option("--take-odds", o.takeOdds, "Keep a player's Pass and Come odds at the maximum");
  cmd.add_option("--lay-odds", o.layOdds,
                 "Keep a player's Don't Pass and Don't Come odds at the maximum");
  cmd.add_option("--allow-negative", o.allowNegative, "Allow a player's bankroll below zero");
}

bool SetUpPlayerOptions(Game& game, const PlayerOptions& o, std::string& error) {
  if (!SeatAll(game, o, error)) return false;
  if (!SetFlags(game, o.allowNegative, "--allow-negative", game.betting.AllowNegBankroll, error) ||
      !SetFlags(game, o.takeOdds, "--take-odds", game.autoplay.AutoTakeFullOdds, error) ||
      !SetFlags(game, o.layOdds, "--lay-odds", game.autoplay.AutoLayFullOdds, error) ||
      !SetRules(game, o.winRules, "--win-rule", game.autoplay.HandleWinningBets, error) ||
      !SetRules(game, o.loseRules, "--lose-rule", game.autoplay.HandleLosingBets, error))
    return false;
  return PlaceAll(game, o, error);
}

nlohmann::json PlayersJson(const Game& game) {
  nlohmann::json list = nlohmann::json::array();
  for (int p = 1; p <= 8; ++p) {
    if (game.PlayerName[p].empty()) continue;
    const int f = FrameIndex(p, kFrameCurrentSession);
    nlohmann::json bets = nlohmann::json::object();
    for (int b = 1; b <= kLastRealBet; ++b) {
      const Currency decisions = game.StatAction(f, b, kStatCount);
      if (decisions <= Currency{}) continue;
      const Currency won = game.StatWins(f, b, kStatTotal), lost = game.StatLosses(f, b, kStatTotal);
      bets[std::to_string(b)] = {
          {"decisions", decisions.raw / Currency::kScale},
          {"wagered", Money(game.StatAction(f, b, kStatTotal))},
          {"won", Money(won)},
          {"lost", Money(lost)},
          {"net", Money(won - lost)},
      };
    }
    list.push_back({
        {"name", game.PlayerName[p]},
        {"seat", p},
        {"bankroll", Money(game.Bet(p, bet::kBankroll))},
        {"invested", Money(game.InvestedBankroll(p))},
        {"total_bets", Money(game.TotalBets(p))},
        {"bets", bets},
    });
  }
  return list;
}

void PrintPlayers(std::ostream& out, const Game& game) {
  for (int p = 1; p <= 8; ++p) {
    if (game.PlayerName[p].empty()) continue;
    const int f = FrameIndex(p, kFrameCurrentSession);
    out << game.PlayerName[p] << " (seat " << p << "): bankroll $"
        << FormatMoney(game.Bet(p, bet::kBankroll)) << ", invested $"
        << FormatMoney(game.InvestedBankroll(p)) << ", on bets $" << FormatMoney(game.TotalBets(p))
        << '\n';
    for (int b = 1; b <= kLastRealBet; ++b) {
      const Currency decisions = game.StatAction(f, b, kStatCount);
      if (decisions <= Currency{}) continue;
      const Currency wagered = game.StatAction(f, b, kStatTotal);
      const Currency net = game.StatWins(f, b, kStatTotal) - game.StatLosses(f, b, kStatTotal);
      out << "  " << BetName(b) << ": " << FormatMoney(decisions) << " decisions, wagered $"
          << FormatMoney(wagered) << ", net $" << FormatMoney(net);
      if (wagered > Currency{})
        out << " (" << std::showpos << std::fixed << std::setprecision(2)
            << 100.0 * net.ToDouble() / wagered.ToDouble() << std::noshowpos << std::defaultfloat
            << "%)";
      out << '\n';
    }
  }
}

std::optional<Currency> CommandLineAmount(std::string_view text) { return Amount(text); }

int SeatOfPlayer(const Game& game, std::string_view name) { return SeatOf(game, name); }
