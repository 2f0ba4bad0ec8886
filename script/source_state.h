// The script store: each slot's source lines, indents and editor positions.
#pragma once

struct ScriptSource {};
