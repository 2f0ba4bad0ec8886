// Runs ravelton-cli for the end-to-end tests.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

namespace cli_test {

struct Result {
  int exitCode = -1;
  std::string out;
};

// Captures stdout with stderr dropped, or with `stderrOnly` stderr alone.
inline Result Cli(const std::string& args, bool stderrOnly = false) {
  Result r;
  const char* redirect = stderrOnly ? " 2>&1 >/dev/null" : " 2>/dev/null";
  FILE* pipe = popen((std::string(RAVELTON_CLI) + " " + args + redirect).c_str(), "r");
  if (!pipe) return r;
  for (int c; (c = fgetc(pipe)) != EOF;) r.out += static_cast<char>(c);
  const int status = pclose(pipe);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

// The JSON of a command that must succeed, without the seconds a run took
// (the one figure that differs between two runs).
inline nlohmann::json Json(const std::string& args) {
  const Result r = Cli(args);
  EXPECT_EQ(r.exitCode, 0) << args;
  nlohmann::json j = nlohmann::json::parse(r.out, nullptr, false);
  EXPECT_FALSE(j.is_discarded()) << args << ": " << r.out;
  if (j.is_object()) j.erase("seconds");
  return j;
}

}  // namespace cli_test
