// A fresh folder of its own for a test, under the system's temporary
// folder, removed with everything in it when the test ends. Tests that
// write files (the events log, dice roll files) each get one, so test
// programs running side by side never share a file.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

class TempFolder {
 public:
  TempFolder() {
    const char* base = std::getenv("TMPDIR");
    std::string pattern = std::string(base && *base ? base : "/tmp") + "/ravelton-test-XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (::mkdtemp(buffer.data())) path_ = std::string(buffer.data()) + "/";
  }
  ~TempFolder() {
    std::error_code ec;
    if (!path_.empty()) std::filesystem::remove_all(path_, ec);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  // The folder, with a trailing '/'.
  const std::string& Path() const { return path_; }
  // A file in the folder.
  std::string operator/(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};
