#include "core/data_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

std::string FromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string(value) : std::string();
}

std::string WithSeparator(std::string folder) {
  if (folder.empty() || folder.back() != '/') folder.push_back('/');
  return folder;
}

}  // namespace

std::string DataFolder() {
  if (std::string own = FromEnvironment("RAVELTON_DATA"); !own.empty()) return WithSeparator(own);
  // The base directory rules ignore a relative XDG_DATA_HOME.
  if (std::string xdg = FromEnvironment("XDG_DATA_HOME"); !xdg.empty() && xdg.front() == '/')
    return WithSeparator(xdg) + "ravelton/";
  std::string home = FromEnvironment("HOME");
  if (home.empty()) home = ".";
  return WithSeparator(home) + ".local/share/ravelton/";
}

bool EnsureFolder(const std::string& folder, std::string& error) {
  std::error_code ec;
  if (std::filesystem::is_directory(folder, ec)) return true;
  std::filesystem::create_directories(folder, ec);
  if (ec && !std::filesystem::is_directory(folder)) {
    error = "Cannot create the folder " + folder + ": " + ec.message();
    return false;
  }
  return true;
}
