// Text form of a compiled script, for the CLI's dump and for tests.
#pragma once

#include <string>

#include "script/compile_error.h"

struct ScriptCode;

// One element a line, "<index> <Kind> <Value>", then the pool as
// "S<index> <Value> \"<Text>\"". A statement mark prints as Mark and its
// source line ("Mark12"), its Value being the column.
std::string DumpScriptCode(const ScriptCode& code);

// The report of a failed compile: "FILE:LINE:COL: " and the message with each
// CR as a line break, then "(lines L1:C1 to L2:C2)" on a line of its own.
std::string FormatCompileFailure(const std::string& file, const CompileError& error);
