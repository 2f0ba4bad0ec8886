// The player list of a form (cmbPlayer): the seated players by name, each
// row carrying its seat, and the form's chosen seat kept on a seated player.
#pragma once

#include <cstdint>

class QComboBox;
struct Game;

// Fills `list` with the seated players and selects `chosen`; a chosen seat
// that is empty moves to the first seated player, or to 0 with nobody
// seated. Returns the chosen seat.
int FillPlayerList(QComboBox* list, const Game& game, std::int32_t& chosen);
