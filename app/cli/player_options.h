// The player options of ravelton-cli run: who sits at the table, what they
// bet before the first roll, their Auto-Play rules, and the players' part of
// the JSON summary.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "core/currency.h"

namespace CLI {
class App;
}
struct Game;


struct PlayerOptions {
  std::vector<std::string> players;   // NAME[=BANKROLL][@SEAT]
  std::vector<std::string> bets;      // NAME:BET=AMOUNT
  std::vector<std::string> winRules;  // NAME:R
  std::vector<std::string> loseRules;
  std::vector<std::string> takeOdds;  // NAME
  std::vector<std::string> layOdds;
  std::vector<std::string> allowNegative;
  std::string command = "run";  // named in the reports of cut bets on stderr
};

// Adds --player, --bet, --win-rule, --lose-rule, --take-odds, --lay-odds and
// --allow-negative to the run command.
void AddPlayerOptions(CLI::App& cmd, PlayerOptions& options);
// Seats the players and places their bets; false with `error` on bad usage.
// A bet the rules refuse or cut is reported on stderr and the run goes on.
bool SetUpPlayerOptions(Game& game, const PlayerOptions& options, std::string& error);
// Places the --bet bets again (at the start of a further session).
bool PlacePlayerBets(Game& game, const PlayerOptions& options, std::string& error);
// One object per seated player: name, seat, money, and the decided bets of the session.
nlohmann::json PlayersJson(const Game& game);
// The same for people: each seated player's money, then one line per decided
// bet with its decisions, amount wagered, net and net per amount wagered.
void PrintPlayers(std::ostream& out, const Game& game);
// An amount typed on the command line (digits, optional sign and point).
std::optional<Currency> CommandLineAmount(std::string_view text);
// The seat of the player so named (case ignored), or 0.
int SeatOfPlayer(const Game& game, std::string_view name);
