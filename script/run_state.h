// The state of running scripts: the one joined stream of every active
// script, its string pool, the position and stacks of a run, the step mode,
// and each player's script permissions.
//
// A run copies one statement at a time from AllCompiled into WorkStatement
// and shrinks it there in place; nothing else is built while it runs, so in
// Hyper-Drive a run allocates nothing once the tables have reached their
// working sizes.
//
// What must stay true:
// - AllCompiled[0] is an empty element; the scripts stand behind it in
//   player order, each beginning with its head. ScriptsOK (in the roll
//   state) is true only while AllCompiled and AllStrings match the scripts
//   and switches.
// - Shapes has one entry per element of AllCompiled and describes it as it
//   is (IndexStatements remakes it whenever the scripts are joined).
// - AllStrings is 1-based and holds AllStringsCount entries; the entries
//   behind the count are spare ones whose text buffers a run reuses, so that
//   cutting the pool back at the end of a run frees nothing and the next run
//   allocates nothing.
// - WorkStatement[0] and WorkStatement[WorkCount + 1] are the bounds of the
//   statement in hand; GosubStack[0] is the depth.
// - The permissions belong to the player in the seat: they move with the
//   player and a new player gets the defaults.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/tables.h"
#include "script/code_state.h"

struct Game;

// Deepest GoSub nesting a run allows before it ends as a run-time failure.
inline constexpr int kGosubDepthLimit = 10'000;
// Elements the work table grows by when a statement does not fit.
inline constexpr int kWorkStatementGrowth = 100;
// Elements the GoSub stack grows by when full.
inline constexpr int kGosubStackGrowth = 20;

// The statement that starts at an element of AllCompiled: its length up to
// the next statement mark and a bit for each kind the run's sweeps look for
// (see the interpreter), so that a run copies it whole and skips the sweeps
// it needs none of.
struct StatementShape {
  std::uint64_t Kinds = 0;
  std::int32_t Count = 0;
  std::int32_t Plan = 0;  // 1 + the statement's index in Plans, 0 when it has none
  // The statement's first element as a keyword reads it, so that a run need
  // not read the stream: its kind, and the code it carries (the element a
  // jump goes to, behind GoTo and GoSub the label's; a script head's seat).
  std::int32_t Head = 0;
  std::int32_t Target = 0;

  friend bool operator==(const StatementShape&, const StatementShape&) = default;
};

// Where a plan's operand comes from (see script/statement_plan.h).
enum PlanSource : std::int32_t {
  kPlanNumber = 0,     // a number written in the script: Value
  kPlanBetAmount = 1,  // the amount on bet Bet of the player whose code is Value
  kPlanVariable = 2,   // the variable at At with its qualifiers
  kPlanAggregate = 3,  // the list function at At; Bet: how many of its group's follow
  kPlanElement = 4,    // a comparison or comma of a list function's group, at At
};

struct PlanOperand {
  std::int32_t Source = kPlanNumber;
  std::int32_t At = 0;   // the element in AllCompiled
  std::int32_t Bet = 0;  // a bet amount's bet
  // A bet amount's seat when its player code is one (0 to 8) as written,
  // else -1: the code is then resolved when the amount is read.
  std::int32_t Seat = -1;
  double Value = 0;  // a number, or a bet amount's player code

  friend bool operator==(const PlanOperand&, const PlanOperand&) = default;
};

// One operator of a plan: the operands Left and Right combine into Left.
struct PlanStep {
  std::int32_t Left = 0, Op = 0, Right = 0;

  friend bool operator==(const PlanStep&, const PlanStep&) = default;
};

// A plain statement precompiled: its operands in order, then its operators
// in the order the sweeps would take them.
struct StatementPlan {
  std::int32_t FirstOperand = 0, Operands = 0;
  std::int32_t FirstStep = 0, Steps = 0;
  bool Compares = false;  // it holds a comparison (swept only in a condition)
  // A condition that is comparisons joined by And: how many, else 0. Its
  // first steps are the comparisons, in order, of operands 2k and 2k + 1.
  std::int32_t Comparisons = 0;
  // An action or assignment: the plan is of its value, the elements
  // [ValueFrom, ValueTo) from the statement's start; the rest is left as it
  // stands. Such a plan runs only outside a condition.
  bool Targets = false;
  std::int32_t ValueFrom = 0, ValueTo = 0;

  friend bool operator==(const StatementPlan&, const StatementPlan&) = default;
};

struct ScriptRunState {
  // The joined stream of the active scripts and its string pool.
  std::vector<ScriptElement> AllCompiled{ScriptElement{}};
  // One shape per element of AllCompiled, made when the scripts are joined.
  std::vector<StatementShape> Shapes{StatementShape{}};
  std::vector<PoolString> AllStrings{PoolString{}};
  int AllStringsCount = 0;
  // The plans of plain statements, made with Shapes.
  std::vector<StatementPlan> Plans;
  std::vector<PlanOperand> PlanOperands;
  std::vector<PlanStep> PlanSteps;

  // A run in progress.
  int RunPos = 0;
  std::vector<ScriptElement> WorkStatement =
      std::vector<ScriptElement>(kWorkStatementLast + 2, ScriptElement{});
  int WorkCount = 0;
  std::vector<std::int32_t> GosubStack = std::vector<std::int32_t>(kGosubStackLast + 1, 0);
  std::int32_t ScriptBettor = 0;
  bool ScriptRunning = false;
  bool FirstCycle = false;
  bool ShowSteps = false;
  bool StepWaiting = false;
  std::string CurStepNote;
  double RunStartSeconds = 0;  // the clock at the start of a run, in seconds

  // Statements after which a run ends as if the user interrupted it; 0 for
  // none. The user at the window is the only other way out of an endless
  // loop, so a headless run (the command line, the tests) sets this.
  std::int64_t RunStatementLimit = 0;
  std::int64_t StatementsThisRun = 0;
  bool RunFailed = false;  // a run-time failure ends the run at its next statement

  // The state of the language's own uniform generator (the variable "rnd").
  std::uint64_t RndState = 0x2545F4914F6CDD1DULL;

  // Texts a run reuses for operands, so that their buffers stay allocated.
  std::string TextA, TextB, TextC;

  // The last failed join: the player whose script did not compile, the
  // compiler's message and the span of source it names.
  int FailedPlayer = 0;
  std::string FailedMessage;
  int FailedLine = 0, FailedColumn = 0, FailedEndLine = 0, FailedEndColumn = 0;

  // The diagnostic text of the last run-time failure of a run or an action.
  std::string ErrorText;

  // Permissions of each seat's script.
  Table1<bool, 0, 8> AllowReset{{true, true, true, true, true, true, true, true, true}};
  Table1<bool, 0, 8> AllowActForOthers{};
  Table1<bool, 0, 8> AllowDiceFiles{{true, true, true, true, true, true, true, true, true}};
  Table1<bool, 0, 8> AllowAnyFolder{};

  // Starts a new session for a script's action; the roll cycle installs it
  // (a session belongs to a higher layer than the scripts).
  void (*NewSession)(Game& game, bool preserveGames, bool preserveCheckstacks,
                     bool preserveSessionsLogs, int diceMode) = nullptr;

  friend bool operator==(const ScriptRunState&, const ScriptRunState&) = default;
};
