// The checks and repairs a game read from a file passes before it replaces
// the game in play. A file is the user's, but it may be cut, damaged or made
// to harm: every value that later serves as a subscript, a rule number or a
// divisor is held to its range here, so nothing read can send the engine
// out of its tables. Values that the file format says to repair are
// repaired; anything else out of range refuses the whole file.
#pragma once

struct Game;
struct GameFileState;

// Applies the file's repairs and checks every range; false when the game
// must be refused.
bool CheckLoadedGame(Game& game);
// The windows' states, places and sizes of records 2 and 3 (read apart from
// the game): false for a value no screen holds, which the windows would
// turn into an int.
bool WindowPlacesSound(const GameFileState& windows);
