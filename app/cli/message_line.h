// A message of the game on one line of the command line's output: its CR
// pieces (the dialog's line breaks) joined by single blanks, none at the end.
#pragma once

#include <string>
#include <string_view>

inline std::string MessageLine(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    if (c != '\r')
      out += c;
    else if (!out.empty() && out.back() != ' ')
      out += ' ';
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}
