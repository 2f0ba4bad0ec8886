// The data folder and the files in it: where the folder is, names typed by
// the user made into paths, and whole files written so that a failure or a
// crash never leaves a cut file or a stray temporary.
#include "core/data_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "core/atomic_file.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

// Sets the three variables the data folder is read from, and restores them.
class ScopedEnv {
 public:
  static constexpr std::array<const char*, 3> kNames = {"RAVELTON_DATA", "XDG_DATA_HOME", "HOME"};
  ScopedEnv() {
    for (std::size_t i = 0; i < kNames.size(); ++i)
      if (const char* v = std::getenv(kNames[i])) saved_[i] = v;
  }
  void Set(const std::array<const char*, 3>& values) {
    for (std::size_t i = 0; i < kNames.size(); ++i) Put(kNames[i], values[i]);
  }
  ~ScopedEnv() {
    for (std::size_t i = 0; i < kNames.size(); ++i)
      Put(kNames[i], saved_[i] ? saved_[i]->c_str() : nullptr);
  }

 private:
  static void Put(const char* name, const char* value) {
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  std::array<std::optional<std::string>, 3> saved_;
};

TEST(DataFolder, ResolvedFromTheEnvironmentInItsOrder) {
  // RAVELTON_DATA, XDG_DATA_HOME and HOME, then the folder.
  const std::pair<std::array<const char*, 3>, const char*> cases[] = {
      {{"/srv/rv", "/x", "/h"}, "/srv/rv/"},
      {{"/srv/rv/", "/x", "/h"}, "/srv/rv/"},
      {{"", "/x/share/", "/h"}, "/x/share/ravelton/"},
      {{nullptr, "/x/share", "/h"}, "/x/share/ravelton/"},
      {{nullptr, "", "/home/Ann/"}, "/home/Ann/.local/share/ravelton/"},
  };
  ScopedEnv env;
  for (const auto& [variables, expected] : cases) {
    env.Set(variables);
    EXPECT_EQ(DataFolderPath(), expected) << expected;
  }
}

TEST(DataFolder, NamingTheFolderDoesNotMakeItButMakeFolderDoes) {
  const TempFolder root;
  ScopedEnv env;
  env.Set({(root / "a/b").c_str(), nullptr, nullptr});
  const std::string folder = DataFolderPath();
  EXPECT_FALSE(fs::exists(root / "a"));
  std::string error;
  ASSERT_TRUE(MakeFolder(folder, error)) << error;
  EXPECT_TRUE(fs::is_directory(folder));
  EXPECT_TRUE(MakeFolder(folder, error));  // already there
  // A folder that cannot be made because a file stands in its way.
  WriteWholeFile(root / "file", "");
  EXPECT_FALSE(MakeFolder(root / "file/sub/", error));
  EXPECT_NE(error.find(root / "file/sub/"), std::string::npos);
}

TEST(DataFolder, TypedNamesBecomePathsWithCaseKept) {
  const std::pair<const char*, const char*> cases[] = {
      {"Game", "/cur/Game.rvg"},
      {"  My Game  ", "/cur/My Game.rvg"},
      {"Game.RVG", "/cur/Game.RVG"},
      {"/elsewhere/Game", "/elsewhere/Game.rvg"},
      {"sub/Game", "sub/Game.rvg"},
      {"/dotted.dir/Game", "/dotted.dir/Game.rvg"},
      {"   ", ""},
  };
  for (auto [typed, expected] : cases)
    EXPECT_EQ(ChosenFilePath(typed, "/cur", ".rvg"), expected) << typed;
  EXPECT_EQ(ChosenFilePath("a", "/cur/", ".prb"), "/cur/a.prb");
}

class AtomicFile : public ::testing::Test {
 protected:
  // Names in the folder other than the target.
  int Leftovers() const {
    int n = 0;
    for (const auto& e : fs::directory_iterator(dir.Path()))
      if (e.path().filename() != "Game.rvg") ++n;
    return n;
  }

  TempFolder dir;
  const std::string target = dir / "Game.rvg";
  const std::string oldBytes = std::string(1000, 'o');
  const std::string newBytes = std::string(300'000, 'n');
  std::string error;
};

TEST_F(AtomicFile, ReplacesTheTargetAndLeavesNoTemporary) {
  ASSERT_TRUE(WriteFileAtomically(target, oldBytes, error)) << error;
  ASSERT_TRUE(WriteFileAtomically(target, newBytes, error)) << error;
  EXPECT_EQ(ReadWholeFile(target), newBytes);
  EXPECT_EQ(Leftovers(), 0);
  EXPECT_EQ(fs::status(target).permissions() & fs::perms::owner_read, fs::perms::owner_read);
}

// A write that fails midway, a rename that fails, a folder that is missing:
// each names the file, and the old file and no temporary stay.
TEST_F(AtomicFile, AFailedWriteKeepsTheOldFileAndRemovesTheTemporary) {
  ASSERT_TRUE(WriteFileAtomically(target, oldBytes, error));
  const WriteProbe failMidway = [](std::size_t written) { return written < 100'000; };
  EXPECT_FALSE(WriteFileAtomically(target, newBytes, error, failMidway));
  EXPECT_NE(error.find(target), std::string::npos);
  EXPECT_EQ(ReadWholeFile(target), oldBytes);
  EXPECT_EQ(Leftovers(), 0);

  // A non-empty folder under the target's name cannot be replaced by a file.
  const std::string folder = dir / "Folder.rvg";
  fs::create_directories(folder + "/inside");
  EXPECT_FALSE(WriteFileAtomically(folder, newBytes, error));
  EXPECT_NE(error.find(folder), std::string::npos);
  EXPECT_EQ(Leftovers(), 1);  // the folder itself
  EXPECT_TRUE(fs::is_directory(folder + "/inside"));

  const std::string missing = dir / "no/such/x.rvg";
  EXPECT_FALSE(WriteFileAtomically(missing, newBytes, error));
  EXPECT_NE(error.find(missing), std::string::npos);
}

TEST_F(AtomicFile, AProcessKilledInTheMiddleOfAWriteLeavesTheOldFile) {
  ASSERT_TRUE(WriteFileAtomically(target, oldBytes, error));
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    // Dies as a crash would, with the new content half written.
    const WriteProbe die = [](std::size_t written) {
      if (written >= 100'000) ::_exit(9);
      return true;
    };
    std::string e;
    WriteFileAtomically(target, newBytes, e, die);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 9);
  EXPECT_EQ(ReadWholeFile(target), oldBytes);
  // The dead writer's temporary is recognisable for cleaning up.
  for (const auto& e : fs::directory_iterator(dir.Path())) {
    if (e.path().filename() == "Game.rvg") continue;
    EXPECT_TRUE(IsAtomicTemporaryName(e.path().filename().string())) << e.path();
  }
}

}  // namespace
