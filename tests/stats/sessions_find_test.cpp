// Find in the Sessions Log's data list: forward and backward from the top
// session with wrapping, the top session itself tested last, and sessions
// outside the included classes skipped.
#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

#include "stats/sessions_find.h"
#include "stats/sessions_log.h"

namespace {

namespace fs = std::filesystem;

class SessionsFind : public ::testing::Test {
 protected:
  // Nets of sessions 1..5: 10, -5, 10, 0, 7.
  SessionsFind() {
    path_ = (fs::temp_directory_path() / ("ravelton-find-" + std::to_string(::getpid()) + ".slg")).string();
    fs::remove(path_);
    for (int net : {10, -5, 10, 0, 7}) {
      SessionRecord r{};
      r[kNetValue] = Currency::FromWhole(net);
      EXPECT_FALSE(AppendSessionRecord(path_, r).has_value());
    }
    rq_.path = path_;
    rq_.value = kNetValue;
  }
  ~SessionsFind() override { fs::remove(path_); }
  std::int32_t Find(int wanted, int direction, std::int32_t top) {
    rq_.rawTop = top;
    return FindSessionValue(rq_, Currency::FromWhole(wanted), direction);
  }
  std::string path_;
  SessionsRequest rq_;
};

TEST_F(SessionsFind, WalksFromTheTopWrappingAndTestsTheTopLast) {
  EXPECT_EQ(Find(10, 1, 1), 3);
  EXPECT_EQ(Find(10, 1, 3), 1);   // past the end, round to the start
  EXPECT_EQ(Find(10, -1, 3), 1);
  EXPECT_EQ(Find(10, -1, 1), 3);  // before the start, round to the end
  EXPECT_EQ(Find(7, 1, 5), 5);    // only the top itself holds it
  EXPECT_EQ(Find(99, 1, 2), 0);
}

TEST_F(SessionsFind, SkipsSessionsOfClassesLeftOut) {
  rq_.filter = kIncludeLost | kIncludeEven;  // the won sessions left out
  EXPECT_EQ(Find(10, 1, 1), 0);
  EXPECT_EQ(Find(-5, 1, 1), 2);
  rq_.filter = kIncludeWon | kIncludeLost;
  EXPECT_EQ(Find(0, 1, 1), 0);
  rq_.path = path_ + ".missing";
  EXPECT_EQ(Find(10, 1, 1), 0);
}

}  // namespace
