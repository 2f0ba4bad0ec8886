#include "engine/session.h"

#include "engine/game.h"

void NewSession(Game&, bool, bool, bool, int) {}
