// The commands of ravelton-cli: each command file adds its subcommand to the
// app with a callback. A callback reports a failure by writing to stderr
// and throwing CLI::RuntimeError(1); main turns every parse or usage error
// into exit code 1.
#pragma once

namespace CLI {
class App;
}

// ravelton-cli run: a seeded headless Hyper-Drive session.
void AddRunCommand(CLI::App& app);
// ravelton-cli bench: a fixed seeded workload, its speed and a checksum.
void AddBenchCommand(CLI::App& app);
// ravelton-cli check and dump: compile an Auto-Bet script, report or print it.
void AddScriptCommands(CLI::App& app);
// ravelton-cli translate: print a script file as it loads, older formats translated.
void AddTranslateCommand(CLI::App& app);
// ravelton-cli advantage: what every bet is worth, and the Fire odds.
void AddAdvantageCommand(CLI::App& app);
// ravelton-cli probability: show, change and save a probability table.
void AddProbabilityCommand(CLI::App& app);
// ravelton-cli report: the figures of a statistics view.
void AddReportCommand(CLI::App& app);
// ravelton-cli info: what a game file holds.
void AddInfoCommand(CLI::App& app);
// ravelton-cli rolls: a dice roll file as text, or a text as a dice roll file.
void AddRollsCommand(CLI::App& app);
// ravelton-cli batch: many seeded sessions from one starting game, per-player figures.
void AddBatchCommand(CLI::App& app);
