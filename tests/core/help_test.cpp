// The help pages against the code: every help topic the code names has a
// page of its own that is shipped, and every link of every page leads to a
// shipped page.
#include "core/help.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "core/help_topics.h"

namespace {

namespace fs = std::filesystem;

const fs::path kSource = RAVELTON_SOURCE_DIR;

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The topic numbers of help_topics.h, read from the header itself so that a
// constant added there without a page is caught.
std::set<int> DeclaredTopics() {
  const std::string header = ReadAll(kSource / "core/help_topics.h");
  const std::regex constant(R"(constexpr int kHelp\w+ = (\d+);)");
  std::set<int> topics;
  for (std::sregex_iterator it(header.begin(), header.end(), constant), end; it != end; ++it)
    topics.insert(std::stoi((*it)[1]));
  return topics;
}

// Help numbers written as literals in the sources (helpId = 640,
// kSaveQuestionHelp = 600).
std::set<int> LiteralTopics() {
  const std::regex literal(R"([Hh]elp\w*\s*=\s*(\d+)\s*;)");
  std::set<int> topics;
  for (const char* folder : {"core", "logs", "dice", "config", "analysis", "stats", "engine",
                             "automation", "script", "store", "cycle", "batch", "table", "app"})
    for (const auto& entry : fs::recursive_directory_iterator(kSource / folder)) {
      if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
      const std::string text = ReadAll(entry.path());
      for (std::sregex_iterator it(text.begin(), text.end(), literal), end; it != end; ++it)
        topics.insert(std::stoi((*it)[1]));
    }
  return topics;
}

TEST(Help, EveryTopicOfTheCodeHasAShippedPageOfItsOwn) {
  std::set<int> topics = DeclaredTopics();
  ASSERT_GE(topics.size(), 14u);  // the header was read
  topics.merge(LiteralTopics());
  const auto withPages = HelpTopicsWithPages();
  for (int topic : topics) {
    if (topic == kHelpNone) continue;
    EXPECT_NE(std::find(withPages.begin(), withPages.end(), topic), withPages.end())
        << "help topic " << topic << " has no page";
    EXPECT_NE(HelpPageName(topic), kHelpContentsPage) << topic;
    EXPECT_TRUE(fs::exists(HelpPagePath(kSource.string(), topic))) << HelpPageName(topic);
  }
}

TEST(Help, NoTopicAndUnknownTopicsOpenTheContents) {
  EXPECT_EQ(HelpPageName(kHelpNone), kHelpContentsPage);
  EXPECT_EQ(HelpPageName(9999), kHelpContentsPage);
  EXPECT_EQ(HelpPagePath("/opt/ravelton", kHelpHyperDrive), "/opt/ravelton/help/hyper-drive.html");
  EXPECT_EQ(HelpPagePath("/opt/ravelton/", kHelpNone), "/opt/ravelton/help/index.html");
}

TEST(Help, LinksAreReadWithoutTheirAnchors) {
  EXPECT_EQ(
      HelpPageLinks(R"(<a href="a.html">A</a> <a href="b.html#x">B</a> <a href="#top">T</a>)"),
      (std::vector<std::string>{"a.html", "b.html", ""}));
  EXPECT_TRUE(HelpPageLinks("<p>no links</p>").empty());
}

TEST(Help, EveryLinkLeadsToAPageAndTheContentsReachesEveryPage) {
  const fs::path folder = HelpFolder(kSource.string());
  ASSERT_TRUE(fs::exists(folder / kHelpContentsPage));
  std::set<std::string> pages, linkedFromContents;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".html") pages.insert(entry.path().filename().string());
  for (const std::string& page : pages) {
    const std::string html = ReadAll(folder / page);
    EXPECT_NE(html.find("<title>"), std::string::npos) << page << " has no title";
    for (const std::string& link : HelpPageLinks(html)) {
      if (link.empty()) continue;
      EXPECT_TRUE(pages.count(link)) << page << " links to missing " << link;
      if (page == kHelpContentsPage) linkedFromContents.insert(link);
    }
  }
  for (const std::string& page : pages) {
    if (page == kHelpContentsPage) continue;
    EXPECT_TRUE(linkedFromContents.count(page)) << page << " is not in the contents";
  }
}

}  // namespace
