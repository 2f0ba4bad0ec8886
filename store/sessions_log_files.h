// The Sessions Log's file commands that start a player's log afresh, keep
// a copy of it or add another log's sessions to it: mnuNew for the player
// shown, mnuNewAll for every seated player, mnuSaveAs, mnuMerge. They live
// above the statistics because they ask for file names through the game's
// file chooser.
//
// What must stay true:
// - A session in progress is not in any log yet: starting new logs while
//   one runs is allowed only after the user says so, as its record will
//   land in the new log when it ends.
// - The default log of a player holds the only copy of its sessions: it is
//   never emptied without first offering to save it under another name.
// - A merge never adds a log to itself, and never touches the log it
//   reads from.
// - Every file is written through a temporary beside it and renamed into
//   place, so a failure leaves the old file whole.
#pragma once

struct Game;

// mnuSaveAs: asks for a name ("Save Sessions Log As"), copies player p's
// log there, and the copy becomes the player's log. False when nothing was
// saved (cancelled, or the copy failed with its message shown).
bool SaveSessionsLogAs(Game& game, int p);
// mnuMerge: asks for another log ("Merge Sessions Log") and, once the user
// agrees, adds its sessions after player p's. False when nothing was
// merged (cancelled, refused or failed, with its message shown).
bool MergeSessionsLog(Game& game, int p);
// mnuNew: player p's log goes back to the default file, which is deleted.
// False when the user stopped it.
bool NewSessionsLog(Game& game, int p);
// mnuNewAll: every seated player's default log recreated with no sessions,
// each offered for saving first. False when the user stopped it (players
// already done stay done).
bool NewSessionsLogs(Game& game);
