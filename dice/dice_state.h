// The state of the dice sources: the selected generator, the generators' own state, the seeds.
#pragma once

struct DiceState {};
