#include "script/script_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "script/compile_common.h"

namespace {

constexpr int kDateValue = -1;
constexpr int kTimeValue = -2;
constexpr int kFromRollValue = -15;
constexpr int kStackNameBase = -800;
constexpr int kPlayerNameBase = -900;

// Today's date or the time of day, read from the platform, so that a run
// with the platform's clock fixed reads the same texts every time.
void AppendClock(Game& game, std::string& out, bool date) {
  if (!game.platform) return;
  char buf[32];
  int n = 0;
  if (date) {
    const CalendarDate d = game.platform->Today();
    n = std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", d.year, d.month, d.day);
  } else {
    const int s = game.platform->SecondsOfDay();
    n = std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", s / 3600, s / 60 % 60, s % 60);
  }
  out.append(buf, static_cast<std::size_t>(std::clamp(n, 0, static_cast<int>(sizeof buf) - 1)));
}

}  // namespace

void AppendGeneralNumber(std::string& out, double value) {
  if (value == 0 || std::isnan(value)) {
    out += '0';
    return;
  }
  char buf[40];
  const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
  for (char* c = buf; c < r.ptr; ++c)
    if (*c == 'e') *c = 'E';
  out.append(buf, r.ptr);
}

std::string GeneralNumberText(double value) {
  std::string out;
  AppendGeneralNumber(out, value);
  return out;
}

bool StepNotesWanted(const Game& game) { return game.scriptRun.ShowSteps && !game.HyperDrive; }

void AddStepNote(Game& game, std::string_view line) {
  if (!StepNotesWanted(game)) return;
  std::string& note = game.scriptRun.CurStepNote;
  if (!note.empty()) note += '\r';
  note += line;
}

void ElementText(Game& game, const ScriptElement& e, std::string& out) {
  out.clear();
  if (e.Kind != kString) {
    AppendGeneralNumber(out, e.Value);
    return;
  }
  const ScriptRunState& run = game.scriptRun;
  const double v = e.Value;
  if (v > 0) {
    const int k = Code(v);
    if (k >= 1 && k <= run.AllStringsCount) {
      out = run.AllStrings[static_cast<std::size_t>(k)].Text;
      return;
    }
  } else if (v == 0 || v == kFromRollValue) {
    return;
  } else if (v == kDateValue || v == kTimeValue) {
    AppendClock(game, out, v == kDateValue);
    return;
  } else if (v <= kStackNameBase && v > kStackNameBase - 100) {
    const int n = kStackNameBase - Code(v);
    const int p = run.ScriptBettor;
    if (p >= 0 && p <= 8) out = game.CheckStackName(p, n);
    return;
  } else if (v <= kPlayerNameBase - 1 && v >= kPlayerNameBase - 8) {
    out = game.PlayerName[static_cast<std::size_t>(kPlayerNameBase - Code(v))];
    return;
  }
  AddStepNote(game, "Error building string.");
}

int NewRunString(Game& game) {
  ScriptRunState& run = game.scriptRun;
  const std::size_t k = static_cast<std::size_t>(++run.AllStringsCount);
  if (run.AllStrings.size() <= k) run.AllStrings.resize(k + 1);
  run.AllStrings[k].Text.clear();
  run.AllStrings[k].Value = 0;
  return static_cast<int>(k);
}

ScriptElement MakeRunString(Game& game, std::string_view text) {
  const int k = NewRunString(game);
  game.scriptRun.AllStrings[static_cast<std::size_t>(k)].Text.assign(text.substr(0, kMaxRunText));
  return {kString, static_cast<double>(k)};
}

double TextValue(std::string_view text) { return LeadingValue(text); }
