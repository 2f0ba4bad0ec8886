// Bet resolution: after the state machine has moved, the roll decides the
// bets. The decision rules are code, not data: a fixed sequence of passes
// (losers, point made, winners) over bet ids, each pass visiting the seats 1
// to 8, asks which bets the dice decide and calls ResolveBet for each. The
// seat order pays the players from the ends of the table inward.
//
// What must stay true:
// - Every decision tests PointAtRoll, never Point.
// - A decision never removes a bet: it adds NetPayoff to the bankroll and
//   hands over to the settling (engine/settle.h), which decides what stands.
// - A bet that is off (BetWorking below 1) is neither won nor lost; an odds
//   bet that is off comes back to the player through SettleNotWorking.
// - Pushes (net 0) are no decisions and leave the statistics alone.
// - Live statistics touch the frames p, p + 18 and p + 36 only.
// - Nothing here allocates or builds text unless the events log asks for it.
// - Only the bets a roll can decide are looked for: the one-roll bets, the
//   Come and Don't Come boxes, the line bets on a come-out or at the point,
//   the bets of a box number on that number, and every bet on a seven.
#pragma once

#include <array>

#include "core/currency.h"
#include "core/frames.h"

struct Game;

// The player at each seat 1..8 in stick order (index 0 unused).
inline constexpr std::array<int, 9> kPlayerAtSeat = {0, 1, 8, 2, 7, 3, 6, 4, 5};
// Player who sits at seat 1..8 in stick order: 1, 8, 2, 7, 3, 6, 4, 5.
constexpr int PlayerOfSeat(int seat) { return kPlayerAtSeat[static_cast<std::size_t>(seat)]; }

// FirePayoff row of the points made (held to 0..6 against a corrupt count).
int FireRow(const Game& game);

// Sign arguments of ResolveBet.
constexpr int kWins = 1, kOddsWins = 2, kLoses = -1, kOddsLoses = -2;

// Decides every bet of the roll now on the table: losers, point made, winners.
void DecideBets(Game& game);
// DecideBets within a roll call, for the seated players (bit p for player
// p): their bets are known from the ids the at-roll snapshot took (RollState
// HeldBetIds), not read cell by cell.
void DecideRolledBets(Game& game, unsigned seated);
// DecideBets without its shortcuts: every seat is visited for every bet id.
// The plain computation that tests hold the shortcuts against.
void DecideBetsVisitingAll(Game& game);
// Resolves bet b of the player at seat 1..8 with the given sign: money, tallies, log, settling.
void ResolveBet(Game& game, int seat, int sign, int b);
// Sets PayoffTbl row 0, GrossPayoff and NetPayoff for bet b of player p.
void FigurePayoff(Game& game, int p, int b, int sign, Currency amount);
// Counts a decision of bet b in the live frames of player p (nothing for a push).
void TallyBetResult(Game& game, int p, int b, Currency amount, Currency net);
// Rolls between two calls of HoldStatTotals: a quarter of the rolls that
// could carry a total from its limit past 64 bits (some 4,100: a bet of a
// player has at most two decisions a roll, each of at most kMoneyLimit).
constexpr Long kStatHoldRolls = 1024;
// Holds every total of the session and all-sessions frames (wagered, won,
// lost; a come bet's travel) within kStatTotalLimit, rather than let years
// of play wrap them.
void HoldStatTotals(Game& game);
// Moves a Come or Don't Come bet from its box to its number.
void MoveBet(Game& game, int p, int fromBet, int toBet);
// Brings every player's working flags in line with the point that just changed.
void ResetWorkingFlags(Game& game);
// The same for the seated players the caller already has (bit p for seat p),
// which spares reading the names; with `alsoAfterRoll` the flags set are
// stored in BetWorkingAfterRoll too (for a roll whose after-roll snapshot
// would copy them next, with nothing reading that row in between).
void ResetWorkingFlags(Game& game, unsigned seated, bool alsoAfterRoll = false);
