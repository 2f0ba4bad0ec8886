// Text form of a compiled script, for the CLI's dump and for tests.
#pragma once

#include <string>

struct ScriptCode;

// One element a line, "<index> <Kind> <Value>", then the pool as
// "S<index> <Value> \"<Text>\"". Marks print as Mark with their line in the
// Value column as "<line>:<column>".
std::string DumpScriptCode(const ScriptCode& code);
