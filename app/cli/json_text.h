// JsonText: a JSON value as the one line a command prints.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

// `value` as compact JSON text. Text read from a user's file (a player's
// name in a damaged game, a line of a script) may hold bytes that are not
// UTF-8: each becomes U+FFFD, where a plain dump would throw.
inline std::string JsonText(const nlohmann::json& value) {
  return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}
