// The player commands that take a name: adding a player at the rail,
// renaming, and the rail click that leads to them. A name is checked against
// the other seats and against the words of the betting language, which is
// why these live above both the players and the scripts.
#pragma once

#include <string>
#include <string_view>

struct Game;

// Why a name can't be used at seat ownSeat ("" when it can): the same name in
// another seat (case ignored), or a word of the betting language.
std::string PlayerNameProblem(const Game& game, std::string_view name, int ownSeat);
// Asks for a name and a buy-in and seats the player at an open seat; false
// when the user cancels or the seat is taken.
bool AddPlayer(Game& game, int position);
// Asks for a new name for the player at seat p (mnuPlayerRename). When the
// name changed beyond its case, asks whether the sessions log file should
// change too; *chooseLogFile tells the window to offer its file chooser.
bool RenamePlayer(Game& game, int p, bool* chooseLogFile = nullptr);
// Renames seat p without dialogs; returns the problem text, "" when done.
std::string RenamePlayerTo(Game& game, int p, std::string_view name);
// A click on rail position `position`: a pending move, a new player at an
// open seat, else the seat becomes CurPlayer.
void ClickOnRail(Game& game, int position);
