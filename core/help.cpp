#include "core/help.h"

#include <array>

#include "core/data_folder.h"
#include "core/help_topics.h"

namespace {

struct TopicPage {
  int topic;
  const char* page;
};

// Several topics may share a page: a message about an empty script is
// answered by the page on the language, whose checking it explains.
constexpr std::array<TopicPage, 29> kTopicPages{{
    {kHelpBetting, "betting.html"},
    {kHelpHotKeys, "hot-keys.html"},
    {kHelpLimits, "limits.html"},
    {kHelpPayoffs, "payoffs.html"},
    {kHelpPlayers, "players.html"},
    {kHelpPassDice, "pass-dice.html"},
    {kHelpBuyBets, "buy-bets.html"},
    {kHelpPassLineBet, "pass-line.html"},
    {kHelpComeBet, "come-bets.html"},
    {kHelpDontPassBet, "dont-pass.html"},
    {kHelpDontComeBet, "dont-come.html"},
    {kHelpContractBets, "contract-bets.html"},
    {kHelpPutBets, "put-bets.html"},
    {kHelpCheckStacks, "checkstacks.html"},
    {kHelpWorkingBets, "working-bets.html"},
    {kHelpHyperDrive, "hyper-drive.html"},
    {kHelpScriptMessages, "script-messages.html"},
    {kHelpScriptEmpty, "script-language.html"},
    {kHelpScriptSteps, "script-steps.html"},
    {kHelpScriptActivation, "script-activation.html"},
    {kHelpProbabilities, "probabilities.html"},
    {kHelpSaveFiles, "saving.html"},
    {kHelpAutoPlay, "auto-play.html"},
    {kHelpStatistics, "statistics.html"},
    {kHelpSessionsLog, "sessions-log.html"},
    {kHelpEventsLog, "events-log.html"},
    {kHelpDiceRollFiles, "dice-roll-files.html"},
    {kHelpAdvantage, "advantage.html"},
    {kHelpBatch, "batch.html"},
}};

}  // namespace

std::string HelpFolder(std::string_view appFolder) {
  return WithTrailingSlash(std::string(appFolder)) + "help/";
}

std::string HelpPageName(int topic) {
  for (const TopicPage& entry : kTopicPages)
    if (entry.topic == topic) return entry.page;
  return kHelpContentsPage;
}

std::string HelpPagePath(std::string_view appFolder, int topic) {
  return HelpFolder(appFolder) + HelpPageName(topic);
}

std::vector<int> HelpTopicsWithPages() {
  std::vector<int> topics;
  for (const TopicPage& entry : kTopicPages) topics.push_back(entry.topic);
  return topics;
}

std::vector<std::string> HelpPageLinks(std::string_view html) {
  std::vector<std::string> links;
  constexpr std::string_view kHref = "href=\"";
  for (std::size_t at = html.find(kHref); at != std::string_view::npos; at = html.find(kHref, at)) {
    at += kHref.size();
    const std::size_t end = html.find('"', at);
    if (end == std::string_view::npos) break;
    std::string_view target = html.substr(at, end - at);
    target = target.substr(0, target.find('#'));
    links.emplace_back(target);
    at = end;
  }
  return links;
}
