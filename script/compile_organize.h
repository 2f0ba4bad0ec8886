// Brings every variable reference into its canonical run of elements.
//
// A reference is a contiguous run of a variable (or bet/CheckStack function
// with its bracket group), a player, a time frame, a statistic class, a field
// and a number, in any order ("Place6 wagers current session", "wins on ..").
// It is rewritten as the variable followed by exactly as many qualifiers as
// its class has (P; P H; P H Y; P H X Y), missing ones filled with defaults.
// Bracket groups are organised innermost first, then the whole stream.
#pragma once

struct Game;

// Organises all references of the stream compiled for slot p (0: the
// current player); false with game.msg and span on an ambiguous reference.
bool CompileVariablesOrganize(Game& game, int p);
