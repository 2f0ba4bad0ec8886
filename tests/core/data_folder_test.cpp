// The data folder follows the environment: RAVELTON_DATA, else an absolute
// XDG_DATA_HOME, else the home folder's .local/share.
#include "core/data_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "tests/support/temp_folder.h"

namespace {

void Set(const char* name, const char* value) {
  if (value)
    ::setenv(name, value, 1);
  else
    ::unsetenv(name);
}

TEST(DataFolder, FromTheEnvironmentWithATrailingSeparator) {
  struct Case {
    const char *own, *xdg, *home, *want;
  };
  const Case cases[] = {
      {"/data/r", "/xdg", "/home/u", "/data/r/"},
      {"/data/r/", nullptr, "/home/u", "/data/r/"},
      {"", "/xdg", "/home/u", "/xdg/ravelton/"},
      {nullptr, "/xdg/", "/home/u", "/xdg/ravelton/"},
      {nullptr, "relative/xdg", "/home/u", "/home/u/.local/share/ravelton/"},
      {nullptr, nullptr, "/home/u", "/home/u/.local/share/ravelton/"},
  };
  for (const Case& c : cases) {
    Set("RAVELTON_DATA", c.own);
    Set("XDG_DATA_HOME", c.xdg);
    Set("HOME", c.home);
    EXPECT_EQ(DataFolder(), c.want) << (c.own ? c.own : "-") << ' ' << (c.xdg ? c.xdg : "-");
  }
}

TEST(DataFolder, EnsureFolderCreatesParentsAndNamesAFailure) {
  TempFolder tmp;
  std::string error;
  EXPECT_TRUE(EnsureFolder(tmp / "a/b/c/", error));
  EXPECT_TRUE(std::filesystem::is_directory(tmp / "a/b/c"));
  EXPECT_TRUE(EnsureFolder(tmp / "a/b/c/", error));  // already there
  // A file stands where a folder should be.
  { std::ofstream(tmp / "file") << "x"; }
  EXPECT_FALSE(EnsureFolder(tmp / "file/sub/", error));
  EXPECT_NE(error.find(tmp / "file/sub/"), std::string::npos) << error;
}

}  // namespace
