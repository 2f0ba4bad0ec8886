// State of placing bets and of the players' money: the keyed request, the ATM, the start rules.
#pragma once

struct BettingState {};
