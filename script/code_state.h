// Each slot's compiled script: its element stream, string pool and compile state.
#pragma once

struct ScriptCode {};
