// Whole files as byte strings in tests: read one back (empty when it is
// missing) or write one afresh.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

inline std::string ReadWholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void WriteWholeFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}
