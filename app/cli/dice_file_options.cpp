#include "app/cli/dice_file_options.h"

#include <CLI/CLI.hpp>
#include <sstream>

#include "core/file_io.h"
#include "core/game.h"
#include "core/text.h"
#include "cycle/session.h"
#include "dice/dice_file.h"

void AddDiceFileOptions(CLI::App& cmd, DiceFileOptions& o) {
  CLI::Option* record = cmd.add_option("--record", o.record,
                                       "Record every roll of the run into FILE.rol (made afresh)");
  CLI::Option* playback = cmd.add_option("--playback", o.playback,
                                         "Roll the dice of FILE.rol; the run ends with the file");
  record->excludes(playback);
  cmd.add_option("--from-roll", o.fromRoll, "Start the playback at roll N of the file (default 1)")
      ->needs(playback);
  o.log = cmd.add_option("--log", o.logKinds,
                         "Write the events log of the run, all kinds or those listed: "
                         "rolls,bets,wins,losses,stacks,passes,shooters,bankroll")
              ->expected(0, 1);
  cmd.add_option("--log-file", o.logFile,
                 "The events log's file (default: the data folder's \"Events Log.txt\")")
      ->needs(o.log);
}

bool ApplyDiceFileOptions(Game& g, const DiceFileOptions& o, std::string& error) {
  if (!o.record.empty()) {
    // The file is replaced whole: a run records from its first roll.
    RemoveFileIfPresent(o.record);
    if (!OpenDiceRollFile(g, o.record) || !SetDiceFileMode(g, kDiceFileRecording)) {
      error = "cannot record into " + o.record + ": " + SystemErrorText();
      return false;
    }
    g.diceFile.DiceFilePos = g.diceFile.DiceSelEnd = 1;
  }
  if (!o.playback.empty()) {
    if (!FileExists(o.playback)) {
      error = "no dice roll file " + o.playback;
      return false;
    }
    if (!IsDiceRollFile(o.playback)) {
      error = MessageLine(NotADiceRollFileText(o.playback));
      return false;
    }
    if (o.fromRoll < 1 || o.fromRoll > INT32_MAX) {
      error = "--from-roll must be a roll number from 1";
      return false;
    }
    if (!OpenDiceRollFile(g, o.playback) || !SetDiceFileMode(g, kDiceFilePlayback)) {
      error = "cannot play back " + o.playback;
      return false;
    }
    g.diceFile.DiceFilePos = g.diceFile.DiceSelEnd = static_cast<std::int32_t>(o.fromRoll);
  }
  return true;
}

bool ApplyLogOptions(Game& g, const DiceFileOptions& o, std::string& error) {
  if (!o.log || o.log->count() == 0) return true;
  RollState& r = g.roll;
  if (!o.logFile.empty()) r.EventsLogPath = o.logFile;
  bool* const flags[] = {&r.LogRolls,  &r.LogBets,   &r.LogWins,    &r.LogLosses,
                         &r.LogStacks, &r.LogPasses, &r.LogNewHand, &r.LogBankroll};
  constexpr const char* kKinds[] = {"rolls",  "bets",   "wins",     "losses",
                                    "stacks", "passes", "shooters", "bankroll"};
  const bool all = o.logKinds.empty();
  for (bool* flag : flags) *flag = all;
  std::stringstream list(o.logKinds);
  for (std::string kind; std::getline(list, kind, ',');) {
    bool known = false;
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
      if (kind == kKinds[i]) *flags[i] = known = true;
    if (!known) {
      error = "--log: unknown kind '" + kind +
              "' (rolls, bets, wins, losses, stacks, passes, shooters, bankroll)";
      return false;
    }
  }
  r.LogOn = true;
  LogSessionStart(g);
  return true;
}

std::string DiceFileAndLogErrors(const Game& g) {
  std::string errors = g.eventsLog.WriteError;
  if (!g.diceFile.Error.empty()) errors += (errors.empty() ? "" : "; ") + g.diceFile.Error;
  return errors;
}
