#include "automation/hyperdrive.h"

#include "engine/game.h"

void RunHyperDrive(Game&) {}
void PaceHyperDrive(Game&) {}
void EndHyperDrive(Game&) {}
void StopHyperDrive(Game&) {}
