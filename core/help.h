// The help pages: one HTML page per help topic, shipped in the help/ folder
// of the program's share folder (RollState::AppPath), with a contents page
// that links them all. Messages and forms name a topic by number
// (core/help_topics.h); these procedures turn the number into a page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// File name of the contents page inside the help folder.
inline constexpr const char* kHelpContentsPage = "index.html";

// The help folder inside a program folder (with or without a trailing '/').
std::string HelpFolder(std::string_view appFolder);
// File name of the page of a topic; the contents page for kHelpNone or an
// unknown topic.
std::string HelpPageName(int topic);
// Full path of the page of a topic in the program folder's help folder.
std::string HelpPagePath(std::string_view appFolder, int topic);
// Every topic number that has a page of its own.
std::vector<int> HelpTopicsWithPages();
// The targets of the href links of an HTML page, in order, without any
// "#anchor" part (an empty target for a link to an anchor of the same page).
std::vector<std::string> HelpPageLinks(std::string_view html);
