#include "core/data_folder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/text.h"

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string(value) : std::string();
}

}  // namespace

std::string WithTrailingSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder.push_back('/');
  return folder;
}

std::string DataFolderPath() {
  if (std::string own = Variable(kDataFolderVariable); !own.empty())
    return WithTrailingSlash(std::move(own));
  if (std::string xdg = Variable("XDG_DATA_HOME"); !xdg.empty())
    return WithTrailingSlash(std::move(xdg)) + "ravelton/";
  std::string home = Variable("HOME");
  if (home.empty()) home = ".";
  return WithTrailingSlash(std::move(home)) + ".local/share/ravelton/";
}

bool MakeFolder(const std::string& folder, std::string& error) {
  std::error_code ec;
  if (std::filesystem::is_directory(folder, ec)) return true;
  std::filesystem::create_directories(folder, ec);
  std::error_code unseen;  // the error to report is the creation's
  if (ec && !std::filesystem::is_directory(folder, unseen)) {
    error = "Unable to create the folder " + folder + ": " + ec.message();
    return false;
  }
  return true;
}

std::string_view FileNameOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string ChosenFilePath(std::string_view typed, std::string_view folder,
                           std::string_view extension) {
  std::string path(Trim(typed));
  if (path.empty()) return path;
  if (path.find('/') == std::string::npos) path = WithTrailingSlash(std::string(folder)) + path;
  if (FileNameOf(path).find('.') == std::string_view::npos) path += extension;
  return path;
}
