#include "engine/roll.h"

#include "engine/game.h"

void RollDice(Game&) {}
void LimitExceeded(Game&, int) {}
bool BankrollBeyondLimit(const Game&, int) { return false; }
bool QueueDice(Game&, int, int) { return false; }
void TallyHandAndRoll(Game&) {}
void TallyRollEvent(Game&, int) {}
void TallyRollEvents(Game&) {}
void AdvanceStateMachine(Game&) {}
void ShiftGraphHistory(Game&) {}
