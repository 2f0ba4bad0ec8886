// The first fault a compile finds: its message and the span of source to
// highlight, lines and columns as the editor counts them.
#pragma once

#include <string>

struct CompileError {
  int line = 0;
  int column = 0;
  int endLine = 0;
  int endColumn = 0;
  std::string message;
};
