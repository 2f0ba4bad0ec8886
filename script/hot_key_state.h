// One row of the Hot-Keys table: Ctrl and a letter bound to a script file.
#pragma once

#include <string>

struct HotKeyRow {
  char key = 'A';           // one upper-case letter
  std::string file;         // the script file, a path
  std::string description;  // the short description
  bool selected = false;    // selected in the Hot-Keys list; never stored

  friend bool operator==(const HotKeyRow&, const HotKeyRow&) = default;
};
