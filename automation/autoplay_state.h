// Each player's standing Auto-Play rules and the settling memory (press unit, last buttons, adjustment rows).
#pragma once

struct AutoPlayState {};
