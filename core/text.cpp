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

std::string MessageLine(std::string_view text) {
  auto isAlnum = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  };
  std::string out;
  out.reserve(text.size() + 8);
  bool broken = false;  // a line break since the last character kept
  for (char c : text) {
    if (c == '\r') {
      broken = true;
      continue;
    }
    if (broken && !out.empty() && out.back() != ' ') {
      // A heading and the line under it ("Unknown player", "Please enter
      // ...") read as one with a colon; a sentence wrapped onto the next
      // line, or one after its full stop, takes a blank.
      if (isAlnum(out.back()) && c >= 'A' && c <= 'Z') out += ':';
      out += ' ';
    }
    broken = false;
    out += c;
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}
