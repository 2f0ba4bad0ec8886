// The events-log lines that the roll writes itself: the players' changes
// since the last roll, the roll line, and the roll's bankroll results. All
// of it runs only under LogOn; each line is built in the log's reused line
// buffer and handed to WriteEventLine.
#include <cstdlib>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/seat_set.h"
#include "core/platform.h"
#include "engine/roll_internal.h"

namespace {

// A section of the log: its head is written once, before its first line.
struct Section {
  Section(Game& game, std::string_view headLine) : g(game), head(headLine) {}
  Game& g;
  std::string_view head;
  bool written = false;

  // Starts a line: six blanks and the player's name.
  std::string& Begin(int p) {
    std::string& line = StartEventLine(g);
    line.append("      ");
    line += g.PlayerName[static_cast<std::size_t>(p)];
    return line;
  }
  void End() {
    if (!written) {
      WriteEventLine(g, head);
      written = true;
    }
    WriteEventLine(g, g.eventsLog.LogLine);
  }
};

Currency Abs(Currency a) { return a.raw < 0 ? -a : a; }

void LogScriptSwitches(Game& g) {
  Section s{g, "    AutoBets:"};
  for (int p = 1; p <= 8; ++p) {
    const bool now = g.roll.ScriptActive[static_cast<std::size_t>(p)];
    if (now == g.roll.ScriptActiveAtRoll[static_cast<std::size_t>(p)]) continue;
    std::string& l = s.Begin(p);
    const std::string& file = g.scriptSource.ScriptFile[static_cast<std::size_t>(p)];
    if (!now) {
      l += " deactivated auto-bets";
    } else if (file.empty()) {
      l += " activated untitled auto-bets";
    } else {
      // The stored path has each '&' doubled for captions; the log shows it as it is.
      l += " activated (";
      for (std::size_t i = 0; i < file.size(); ++i) {
        l += file[i];
        if (file[i] == '&' && i + 1 < file.size() && file[i + 1] == '&') ++i;
      }
      l += ')';
    }
    s.End();
  }
}

// The "Bankroll:" section: one line per player whose bankroll differs from
// its copy in `before`, e.g. name & " increased to $" & amount & " ($" &
// difference & " gain)".
struct BankrollWords {
  std::string_view increased, decreased, rose, fell;
};
void LogBankrollChanges(Game& g, const Table2<Currency, 0, 8, 0, 200>& before,
                        const BankrollWords& w) {
  Section s{g, "    Bankroll:"};
  for (int p = 1; p <= 8; ++p) {
    const Currency now = g.Bet(p, bet::kBankroll), was = before(p, bet::kBankroll);
    if (now == was) continue;
    std::string& l = s.Begin(p);
    l += now > was ? w.increased : w.decreased;
    AppendPlainAmount(l, now);
    l += " ($";
    AppendPlainAmount(l, Abs(now - was));
    l += now > was ? w.rose : w.fell;
    s.End();
  }
}

void LogAtmMoves(Game& g) {
  LogBankrollChanges(g, g.BetAfterRoll,
                     {"'s bankroll increased to $", "'s bankroll decreased to $",
                      " ATM withdrawal)", " ATM deposit)"});
}

void LogBetChange(Game& g, Section& s, int p, int b) {
  const Currency a = g.Bet(p, b), was = g.BetAtRoll(p, b);
  const int total = g.DiceTotal;  // still the previous roll's
  const int dc = IsBoxNumber(total) ? DontComeId(total) : -1;
  // A bet that was not there and is not there now has nothing to say, but
  // for the Don't Come point its box just moved to.
  if (a.IsZero() && was.IsZero() && b != dc) return;
  // Decisions of the last roll carry its number (none before a session's first roll).
  const Long rolls = g.RollTally(kTableSession, kEventRolls);
  const Currency lastRoll = Currency::FromWhole(rolls);
  const int row = FrameIndex(p, kFrameCurrentSession);
  const bool lostLast = rolls > 0 && g.StatLosses(row, b, kStatRollOfLast) == lastRoll;
  // A bet the last roll decided and that came down was not removed by its player.
  const bool decidedLast = rolls > 0 && g.StatAction(row, b, kStatRollOfLast) == lastRoll;
  const int cp = IsBoxNumber(total) ? ComeId(total) : -1;
  const Currency dcBox = g.BetAtRoll(p, bet::kDontCome), comeBox = g.BetAtRoll(p, bet::kCome);
  const std::string_view name = BetName(b);
  auto amountLine = [&](std::string_view verb, Currency x, std::string_view mid) {
    std::string& l = s.Begin(p);
    l += verb;
    AppendPlainAmount(l, x);
    l += mid;
    l += name;
    s.End();
  };
  auto changeLine = [&](std::string_view verb) {
    std::string& l = s.Begin(p);
    l += verb;
    l += name;
    l += " to $";
    AppendPlainAmount(l, a);
    s.End();
  };
  if (a.IsZero() && !decidedLast && was.raw > 0 && b != bet::kCome && b != bet::kDontCome) {
    amountLine(" removed $", was, " bet on ");
  } else if (a.IsZero() && !decidedLast && b == dc && dcBox.raw > 0) {
    amountLine(" removed $", dcBox, " bet on ");
  } else if (a.raw > 0 && (b == bet::kCome || b == bet::kDontCome) && was.raw > 0) {
    amountLine(" bet $", a, " on ");
  } else if (b == dc && dcBox.raw > 0) {
    if (a < dcBox) changeLine(" decreased ");
  } else if (b == cp && comeBox.raw > 0) {
    if (a > comeBox) changeLine(" increased ");
  } else if (a.raw > 0 && (was.IsZero() || lostLast)) {
    amountLine(" bet $", a, " on ");
  } else if (a.raw > 0 && a > was) {
    changeLine(" increased ");
  } else if (a.raw > 0 && a < was) {
    changeLine(" decreased ");
  }
  if (a.raw <= 0) return;
  const Long state = g.BetWorking(p, b);
  const bool called = state == -1 || state == 2;
  const bool isNew = was.IsZero();
  const bool changed = !isNew && state != g.BetWorkingAfterRoll(p, b);
  if ((isNew && called) || (changed && called)) {
    std::string& l = s.Begin(p);
    l += state == -1 ? " called OFF " : " called ON ";
    l += name;
    l += " bet";
    s.End();
  } else if (changed) {
    std::string& l = s.Begin(p);
    l += " called ";
    l += name;
    l += " bet working normally again";
    s.End();
  }
}

void LogBetChanges(Game& g) {
  Section s{g, "    Bets:"};
  for (int p = 1; p <= 8; ++p) {
    if (!SeatNamed(g, p)) continue;
    for (int b = 1; b <= kLastRealBet; ++b) LogBetChange(g, s, p, b);
  }
}

void LogStackChanges(Game& g) {
  Section s{g, "    CheckStacks:"};
  for (int p = 1; p <= 8; ++p) {
    if (!SeatNamed(g, p)) continue;
    for (int b = bet::kCheckStackFirst; b <= bet::kCheckStackLast; ++b) {
      const Currency a = g.Bet(p, b), was = g.BetAtRoll(p, b);
      if (a == was) continue;
      std::string& l = s.Begin(p);
      l += a > was ? " increased CheckStack #" : " decreased CheckStack #";
      AppendWhole(l, b - bet::kCheckStackFirst);
      l += " to $";
      AppendPlainAmount(l, a);
      s.End();
    }
  }
}

}  // namespace

void LogChangesSinceLastRoll(Game& g) {
  LogScriptSwitches(g);
  if (g.roll.LogBankroll) LogAtmMoves(g);
  if (g.roll.LogBets) LogBetChanges(g);
  if (g.roll.LogStacks) LogStackChanges(g);
}

void LogRollLine(Game& g, DiceSource source) {
  if (!g.roll.LogRolls) return;
  std::string& l = StartEventLine(g);
  l += " Roll #";
  AppendWhole(l, g.RollTally(kTableSession, kEventRolls) + 1);
  l += ":  ";
  AppendWhole(l, g.Die1 + g.Die2);
  l += " (";
  AppendWhole(l, g.Die1);
  l += '.';
  AppendWhole(l, g.Die2);
  l += ')';
  switch (source) {
    case DiceSource::Queued:
    case DiceSource::Pad:
      l += " from manual roll pad";
      break;
    case DiceSource::File:
      l += " from roll file";
      break;
    case DiceSource::Generator:
      l += " from RNG #";
      AppendWhole(l, g.dice.RngIndex + 1);
      if (g.dice.ProbabilityDiceOn) {
        const std::string& file = g.probability.ProbFilePath;
        if (file.empty()) {
          l += " using untitled probability matrix";
        } else {
          l += " using probability matrix: ";
          l += file;
        }
      }
      break;
  }
  WriteEventLine(g, l);
}

void LogRollResults(Game& g) {
  if (g.roll.LogBankroll)
    LogBankrollChanges(g, g.BetAtRoll, {" increased to $", " decreased to $", " gain)", " loss)"});
  if (g.roll.LogNewHand && g.DiceTotal == 7 && g.PointAtRoll > 0) {
    const std::string& shooter = g.PlayerName[static_cast<std::size_t>(g.Shooter)];
    if (g.Shooter != g.PrevHandShooter || g.Shooter != 0) {
      std::string& l = StartEventLine(g);
      l += g.Shooter != g.PrevHandShooter ? "----New shooter (" : "----Same shooter (";
      l += shooter;
      l += ") coming out----------";
      WriteEventLine(g, l);
    } else {
      WriteEventLine(g, "----New hand, come-out roll----------");
    }
  }
}

void PlayComeOutCall(Game& g) {
  if (g.Point != 0) return;
  if (g.rules.BetRequirement != kNoBetRequired && g.PlayerCount == 0) return;
  if (g.RollTally(kTableHand, kEventRolls) == 0) PlayStickCall(g, kCallFirstComeOut);
  PlayStickCall(g, kCallComeOut);
}
