// State of the roll cycle and start-up that is not one of the game's bet or tally tables: folders, the clock measure, the events-log switches.
#pragma once

struct RollState {};
