#include "core/data_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <optional>
#include <string>

namespace {

// Sets or unsets environment variables for one test and restores them.
class ScopedEnv {
 public:
  void Set(const char* name, const char* value) {
    if (const char* old = std::getenv(name))
      saved_.push_back({name, std::string(old)});
    else
      saved_.push_back({name, std::nullopt});
    if (value)
      ::setenv(name, value, 1);
    else
      ::unsetenv(name);
  }
  ~ScopedEnv() {
    for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
      if (it->second)
        ::setenv(it->first, it->second->c_str(), 1);
      else
        ::unsetenv(it->first);
    }
  }

 private:
  std::vector<std::pair<const char*, std::optional<std::string>>> saved_;
};

TEST(DataFolder, ResolvedFromTheEnvironmentInItsOrder) {
  struct Case {
    const char* own;
    const char* xdg;
    const char* home;
    const char* expected;
  } cases[] = {
      {"/srv/rv", "/x", "/h", "/srv/rv/"},
      {"/srv/rv/", "/x", "/h", "/srv/rv/"},
      {nullptr, "/x/share", "/h", "/x/share/ravelton/"},
      {"", "/x/share/", "/h", "/x/share/ravelton/"},
      {nullptr, nullptr, "/home/Ann", "/home/Ann/.local/share/ravelton/"},
      {nullptr, "", "/home/Ann/", "/home/Ann/.local/share/ravelton/"},
  };
  for (const Case& c : cases) {
    ScopedEnv env;
    env.Set("RAVELTON_DATA", c.own);
    env.Set("XDG_DATA_HOME", c.xdg);
    env.Set("HOME", c.home);
    EXPECT_EQ(DataFolderPath(), c.expected) << (c.own ? c.own : "-") << ' ' << (c.xdg ? c.xdg : "-");
  }
}

TEST(DataFolder, NamingTheFolderDoesNotMakeItButMakeFolderDoes) {
  const auto root = std::filesystem::temp_directory_path() / "ravelton-data-folder-test";
  std::filesystem::remove_all(root);
  ScopedEnv env;
  env.Set("RAVELTON_DATA", (root / "a" / "b").c_str());
  const std::string folder = DataFolderPath();
  EXPECT_FALSE(std::filesystem::exists(root));
  std::string error;
  ASSERT_TRUE(MakeFolder(folder, error)) << error;
  EXPECT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_TRUE(MakeFolder(folder, error));  // already there
  // A folder that cannot be made because a file stands in its way.
  std::filesystem::remove_all(root);
  std::filesystem::create_directories(root);
  { std::FILE* f = std::fopen((root / "file").c_str(), "w"); std::fclose(f); }
  EXPECT_FALSE(MakeFolder((root / "file" / "sub/").string(), error));
  EXPECT_NE(error.find((root / "file" / "sub/").string()), std::string::npos);
  std::filesystem::remove_all(root);
}

TEST(DataFolder, TypedNamesBecomePathsWithCaseKept) {
  struct Case {
    const char* typed;
    const char* expected;
  } cases[] = {
      {"Game", "/cur/Game.rvg"},
      {"  My Game  ", "/cur/My Game.rvg"},
      {"Game.RVG", "/cur/Game.RVG"},
      {"game.old", "/cur/game.old"},
      {"/elsewhere/Game", "/elsewhere/Game.rvg"},
      {"sub/Game", "sub/Game.rvg"},
      {"/dotted.dir/Game", "/dotted.dir/Game.rvg"},
      {"", ""},
      {"   ", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(ChosenFilePath(c.typed, "/cur", ".rvg"), c.expected) << c.typed;
  EXPECT_EQ(ChosenFilePath("a", "/cur/", ".prb"), "/cur/a.prb");
}

}  // namespace
