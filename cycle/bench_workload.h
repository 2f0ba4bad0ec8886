// The fixed, seeded workloads that time the roll: an empty table, one Pass
// Line player with full odds, and a full table of eight players with money
// on every kind of bet under fixed Auto-Play rules. `ravelton-cli bench`,
// the benchmark programs and the test that pins the bench checksum all set
// their game up here, so they time and check the same thing.
//
// What must stay true:
// - A workload depends on nothing but its seed: the same number of rolls
//   gives the same tables, in any build.
// - Every bet goes through the placing gate, at the set-up and between
//   rolls alike; the Auto-Play rules settle every decision.
// - Between rolls of the eight-player workload the players put back the
//   bets that came down (a Come bet that travelled, a bet a rule took
//   down), as players at the table would. The game holds its own address
//   for that (hyper.RollObserverContext), so it must not move while it runs.
#pragma once

#include <cstdint>

struct Game;

enum class BenchWorkload {
  EmptyTable,    // no players: the roll's own bookkeeping
  PassLine,      // one player: Pass Line, full odds, Same Bet after wins and losses
  EightPlayers,  // eight players, every kind of bet, a mix of win and lose rules
};

// The seed of every workload (generator 0).
constexpr double kBenchSeed = 20261122;

// Sets up a started-up game with no players for `workload`: rules, seed,
// players, their Auto-Play rules and their first bets.
void SetUpBenchWorkload(Game& game, BenchWorkload workload);
// The eight-player workload's re-bets: every base bet that is down and may
// be made now goes back up at its base amount.
void KeepBenchBets(Game& game);
