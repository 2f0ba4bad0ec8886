#include "automation/autoplay.h"

#include "engine/game.h"

void AutoPlayPointActions(Game&) {}
void SetAutoPlayDefaults(Game&, int) {}
