// When scripts run at all: which are active, when they are compiled and
// joined into the one stream the interpreter runs, the offer to initialize
// a script when it is switched on, how a compile failure reaches the user,
// the permissions of each player's script, and the interruption of a run.
//
// Three states matter: no script active; active and not compiled; active
// and compiled (ScriptsOK). Everything that could change what would run
// clears ScriptsOK, and the compile waits for the next need: the next roll,
// a new game, or the activation of a script.
//
// What must stay true:
// - The stream is joined only when every active script compiled; one
//   failure leaves all of them uncompiled and stops the rolling.
// - Two scripts never see each other's labels or strings: each keeps its
//   own range of the joined stream and pool.
// - ScriptActive(0) is true exactly when one of ScriptActive(1..8) is.
#pragma once

#include "script/compile_error.h"

struct Game;

// Joins the compiled scripts of the active players into AllCompiled and
// AllStrings, each relocated behind the ones before. ScriptsOK on success;
// on a failure the message "...'s auto-bet script contains an error ..." is
// shown, KeepRolling cleared and the failing player left in
// scriptRun.FailedPlayer.
void CompileALLAutobets(Game& game);
// Makes the script just compiled (scriptCode) the only one the run holds,
// joined as CompileALLAutobets joins each player's, and sets ScriptsOK: the
// run a Hot-Key makes of its file.
void JoinCompiledScriptAlone(Game& game);

// The fault of the script that stopped the last join (scriptRun.FailedPlayer's).
CompileError LastJoinFault(const Game& game);

// Offers to run the script of player p (0: of all active players) for one
// initializing cycle before the dice roll; Yes compiles and runs it.
void ActivateScripts(Game& game, int p);

// The script switch of player p clicked: toggled, ScriptActive(0)
// recomputed, and with the editor open an activation offered.
void ToggleScriptActive(Game& game, int p);
// Sets a player's switch without questions (a loaded game, the command line).
void SetScriptActive(Game& game, int p, bool on);
// Activate All Scripts / Deactivate All Scripts (with the interrupt
// question when a run is on).
void ActivateAllScripts(Game& game);
void DeactivateAllScripts(Game& game);

// Compiles the active scripts if needed and runs their initializing cycle,
// as a new game does. False when a script did not compile.
bool InitializeScripts(Game& game);

// The result of Check Script for the editor: the span to select (0 when
// nothing is to be selected).
struct CheckScriptResult {
  bool ok = false;
  int line = 0, col = 0, endLine = 0, endCol = 0;
};
// cmdCheckScript on the editor's player.
CheckScriptResult CheckScript(Game& game);

// While a run is on: asks whether to interrupt auto-betting (with the
// editing prefix for commands that would change a script's text). True when
// the user interrupted it: ScriptRunning and KeepRolling are then cleared.
bool AskInterruptAutoBetting(Game& game, bool editing = false);

// The permissions a new player's script has.
void SetScriptPermissionDefaults(Game& game, int p);
