#include "core/atomic_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

class AtomicFile : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() /
          ("ravelton-atomic-" + std::to_string(::getpid()) + "-" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dir);
    fs::create_directories(dir);
    target = (dir / "Game.rvg").string();
  }
  void TearDown() override { fs::remove_all(dir); }

  static std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // Names in the folder other than the target.
  int Leftovers() const {
    int n = 0;
    for (const auto& e : fs::directory_iterator(dir))
      if (e.path().filename() != "Game.rvg") ++n;
    return n;
  }

  fs::path dir;
  std::string target;
  const std::string oldBytes = std::string(1000, 'o');
  const std::string newBytes = std::string(300'000, 'n');
};

TEST_F(AtomicFile, ReplacesTheTargetAndLeavesNoTemporary) {
  std::string error;
  ASSERT_TRUE(WriteFileAtomically(target, oldBytes, error)) << error;
  ASSERT_TRUE(WriteFileAtomically(target, newBytes, error)) << error;
  EXPECT_EQ(Read(target), newBytes);
  EXPECT_EQ(Leftovers(), 0);
  EXPECT_EQ(fs::status(target).permissions() & fs::perms::owner_read, fs::perms::owner_read);
}

TEST_F(AtomicFile, AFailedWriteKeepsTheOldFileAndRemovesTheTemporary) {
  std::string error;
  ASSERT_TRUE(WriteFileAtomically(target, oldBytes, error));
  // Fails once part of the new content is on the disk.
  const WriteProbe failMidway = [](std::size_t written) { return written < 100'000; };
  EXPECT_FALSE(WriteFileAtomically(target, newBytes, error, failMidway));
  EXPECT_NE(error.find(target), std::string::npos);
  EXPECT_EQ(Read(target), oldBytes);
  EXPECT_EQ(Leftovers(), 0);
}

TEST_F(AtomicFile, ARenameThatFailsRemovesTheTemporary) {
  // A non-empty folder under the target's name cannot be replaced by a file.
  fs::create_directories(dir / "Game.rvg" / "inside");
  std::string error;
  EXPECT_FALSE(WriteFileAtomically(target, newBytes, error));
  EXPECT_NE(error.find(target), std::string::npos);
  EXPECT_EQ(Leftovers(), 0);
  EXPECT_TRUE(fs::is_directory(dir / "Game.rvg" / "inside"));
}

TEST_F(AtomicFile, AMissingFolderFailsNamingTheFile) {
  std::string error;
  const std::string path = (dir / "no" / "such" / "x.rvg").string();
  EXPECT_FALSE(WriteFileAtomically(path, newBytes, error));
  EXPECT_NE(error.find(path), std::string::npos);
}

TEST_F(AtomicFile, AProcessKilledInTheMiddleOfAWriteLeavesTheOldFile) {
  std::string error;
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
  EXPECT_EQ(Read(target), oldBytes);
  // The dead writer's temporary is recognisable for cleaning up.
  for (const auto& e : fs::directory_iterator(dir)) {
    if (e.path().filename() != "Game.rvg") {
      EXPECT_TRUE(IsAtomicTemporaryName(e.path().filename().string())) << e.path();
    }
  }
}

}  // namespace
