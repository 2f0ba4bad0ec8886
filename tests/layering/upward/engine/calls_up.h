// A header of the engine that includes the roll cycle above it: the layering
// check must refuse this tree.
#pragma once

#include "cycle/roll.h"
