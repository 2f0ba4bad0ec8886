#include "core/text.h"

std::string LowerCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = LowerChar(c);
  return out;
}

std::string_view Trim(std::string_view text, std::string_view chars) {
  const auto first = text.find_first_not_of(chars);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(chars) - first + 1);
}

void TrimRight(std::string& s, std::string_view chars) {
  const auto last = s.find_last_not_of(chars);
  s.resize(last == std::string::npos ? 0 : last + 1);
}
