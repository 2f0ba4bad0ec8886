// Texts of amounts and numbers as the settle dialog, its notices and the
// events log's win and loss lines write them: a plain number, without
// thousands separators, with as many decimals as it needs.
#pragma once

#include <string>
#include <string_view>

#include "core/currency.h"

// An amount as a plain number: "7", "7.5", "-0.25", "1234.5678".
std::string PlainAmount(Currency a);

// Pieces joined into one text (appending, never `"literal" + string`).
template <class... Parts>
std::string Cat(const Parts&... parts) {
  std::string s;
  (s.append(std::string_view(parts)), ...);
  return s;
}
