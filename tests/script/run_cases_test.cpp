// Scripts that run, with what they leave behind: tests/script/runs/X.bet is
// the script of the first player, X.out the expected state after the steps
// of X.steps (one script run when there is no such file).
//
// The steps, one a line ('#' starts a comment):
//   player NAME [BANKROLL]   seats the next player (the first is "Ann" 1000)
//   script P                 the next lines up to "end" are player P's script
//   active P                 switches player P's script on (player 1 always is)
//   allow P PERMS            permissions: files others reset anyfolder, "-" before one denies
//   bet P ID AMOUNT          places a bet before the run
//   answer yes|no|TEXT       queues a dialog answer
//   steps                    step notes on: the editor is open on player 1
//   hyper                    the runs are Hyper-Drive runs (KeepRolling set)
//   notices N                NoticeFlags
//   run                      one run of the joined scripts (a first cycle)
//   roll D1 D2               one roll with these dice; the scripts run at its end
// The output lists each seated player's bankroll, money on bets, bets,
// CheckStacks and names, then the step notes and the messages shown.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "core/message_dialog.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/money.h"
#include "engine/place.h"
#include "engine/players.h"
#include "cycle/roll.h"
#include "cycle/startup.h"
#include "script/activation.h"
#include "script/interpreter.h"
#include "script/script_text.h"
#include "script_test_util.h"
#include "tests/support/file_text.h"

namespace fs = std::filesystem;

namespace {

std::string Shown(std::string text) {
  for (char& c : text)
    if (c == '\r') c = '|';
  return text;
}

std::string StateText(const Game& g) {
  std::ostringstream out;
  for (int p = 1; p <= 8; ++p) {
    if (g.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    out << g.PlayerName[static_cast<std::size_t>(p)] << ": bankroll "
        << FormatMoney(g.Bet(p, bet::kBankroll)) << ", on bets " << FormatMoney(g.TotalBets(p))
        << '\n';
    for (int b = 1; b <= kLastRealBet; ++b)
      if (!g.Bet(p, b).IsZero()) out << "  " << BetName(b) << " = " << FormatMoney(g.Bet(p, b)) << '\n';
    for (int n = 0; n <= 99; ++n) {
      const Currency v = g.Bet(p, 100 + n);
      if (!v.IsZero()) out << "  cs" << n << " = " << GeneralNumberText(v.ToDouble()) << '\n';
      const std::string& name = g.CheckStackName(p, n);
      if (!name.empty()) out << "  csn" << n << " = \"" << Shown(name) << "\"\n";
    }
  }
  return out.str();
}

class Case {
 public:
  Case() : owner_(MakeGame(platform_)), g_(*owner_) {
    platform_.fixedTime = 0;
    platform_.clockStep = 1000;  // the clock measure of start-up and the run floor end at once
    platform_.fixedDate = CalendarDate{2026, 11, 24};
    platform_.fixedSecondsOfDay = 9 * 3600 + 5 * 60 + 7;
    StartUp(g_, "/tmp/ravelton-run-cases");
    g_.roll.DataFolder = "/tmp/ravelton-run-cases/";
    fs::create_directories(g_.roll.DataFolder);
    g_.rules.BetRequirement = kNoBetRequired;
    SeatPlayer(g_, 1, "Ann", 1000_usd);
  }

  std::string Play(const std::string& script, const std::string& steps) {
    g_.scriptSource.ScriptLines[1] = script_test::Lines(script);
    SetScriptActive(g_, 1, true);
    std::istringstream in(steps.empty() ? "run\n" : steps);
    for (std::string line; std::getline(in, line);) Step(line, in);
    std::string out = StateText(g_);
    if (!notes_.empty()) out += "notes:\n" + notes_;
    if (!platform_.messages.empty()) {
      out += "messages:\n";
      for (const auto& m : platform_.messages) out += "  " + m.title + ": " + Shown(m.text) + '\n';
    }
    if (g_.HyperDrive)
      out += std::string("keep rolling: ") + (g_.KeepRolling ? "yes" : "no") + ", stop: \"" +
             Shown(g_.StopMessage) + "\"\n";
    if (!g_.scriptRun.ErrorText.empty()) out += "error: " + g_.scriptRun.ErrorText + '\n';
    return out;
  }

 private:
  void Step(const std::string& line, std::istream& rest) {
    std::istringstream words(line);
    std::string word, text;
    int p = 0, b = 0;
    double amount = 1000;
    if (!(words >> word) || word[0] == '#') return;
    if (word == "player") {
      words >> text >> amount;
      SeatPlayer(g_, ++seats_, text, CurFromDouble(amount));
    } else if (word == "script" && words >> p) {
      for (std::string l; std::getline(rest, l) && l != "end";) text += l + '\n';
      g_.scriptSource.ScriptLines[static_cast<std::size_t>(p)] = script_test::Lines(text);
    } else if (word == "active" && words >> p) {
      SetScriptActive(g_, p, true);
    } else if (word == "allow" && words >> p) {
      for (std::string perm; words >> perm;) {
        const bool on = perm[0] != '-';
        if (!on) perm.erase(0, 1);
        ScriptRunState& r = g_.scriptRun;
        (perm == "files" ? r.AllowDiceFiles : perm == "others" ? r.AllowActForOthers
                          : perm == "reset" ? r.AllowReset : r.AllowAnyFolder)(p) = on;
      }
    } else if (word == "bet" && words >> p >> b >> amount) {
      g_.BetRequest = CurFromDouble(amount);
      PlaceBet(g_, p, b);
    } else if (word == "answer") {
      std::getline(words >> std::ws, text);
      platform_.queuedReplies.push_back(
          {text == "yes" ? kAnswerYes : text == "no" ? kAnswerNo : kAnswerOk, text, {}, false});
    } else if (word == "steps") {
      ScriptSource& src = g_.scriptSource;
      g_.scriptRun.ShowSteps = true;
      src.EditorOpen = true;
      src.EdPlayer = 1;
      src.EdLines = src.ScriptLines[1];
      src.EdLineCount = static_cast<std::int32_t>(src.EdLines.size()) - 1;
    } else if (word == "hyper") {
      g_.HyperDrive = g_.KeepRolling = true;
    } else if (word == "notices") {
      words >> g_.rules.NoticeFlags;
    } else if (word == "run") {
      ASSERT_TRUE(InitializeScripts(g_)) << g_.scriptRun.FailedMessage;
      Collect();
    } else if (word == "roll" && words >> p >> b) {
      ASSERT_TRUE(QueueDice(g_, p, b));
      RollDice(g_);
      Collect();
    } else {
      ADD_FAILURE() << "unknown step: " << line;
    }
  }

  void Collect() {
    for (const ScriptStep& s : platform_.steps) notes_ += "  " + Shown(s.note) + '\n';
    platform_.steps.clear();
  }

  HeadlessPlatform platform_;
  std::unique_ptr<Game> owner_;
  Game& g_;
  int seats_ = 1;
  std::string notes_;
};

TEST(ScriptRuns, OutputMatchesTheExpectedFiles) {
  int checked = 0;
  const fs::path dir = fs::path(RAVELTON_SOURCE_DIR) / "tests/script/runs";
  for (const auto& entry : fs::directory_iterator(dir)) {
    const fs::path bet = entry.path();
    if (bet.extension() != ".bet") continue;
    const fs::path steps = fs::path(bet).replace_extension(".steps");
    const std::string expected = ReadWholeFile(fs::path(bet).replace_extension(".out"));
    Case c;
    const std::string got =
        c.Play(ReadWholeFile(bet), fs::exists(steps) ? ReadWholeFile(steps) : "");
    // RAVELTON_WRITE_RUNS=1 writes what a new case gives, for reading over.
    if (std::getenv("RAVELTON_WRITE_RUNS") && !fs::exists(fs::path(bet).replace_extension(".out")))
      std::ofstream(fs::path(bet).replace_extension(".out"), std::ios::binary) << got;
    EXPECT_EQ(got, expected) << bet.filename();
    ++checked;
  }
  EXPECT_GE(checked, 10);
}

}  // namespace
