#include "server/agent_file.h"

#include <gmock/gmock.h>

#include "server/feed.h"

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kCategory =
    "<AgentType><TypeId>1</TypeId><TypeName>Books</TypeName></AgentType>\n";

constexpr std::string_view kAgent =
    "<WebAgent><SiteId>1</SiteId><SiteType>1</SiteType><SiteName>Shop</SiteName>"
    "<SiteAddress>http://{server}</SiteAddress>"
    "<FormatString>http://{server}/find?q= KEYWORD </FormatString>"
    "<StartResult><li></StartResult><EndResult></li></EndResult>"
    "<StartItem><b></StartItem><EndItem></b></EndItem>"
    "<StartURL>href=</StartURL><EndURL>></EndURL></WebAgent>\n";

std::string Without(std::string_view text, std::string_view part) {
  std::string rest(text);
  rest.erase(rest.find(part), part.size());
  return rest;
}

TEST(AgentFileProblems, AcceptsACategoryAndAnAgent) {
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + std::string(kAgent)), IsEmpty());
}

TEST(AgentFileProblems, AsksForOneOfEach) {
  EXPECT_THAT(AgentFileProblems(""),
              ElementsAre(Problem{0, "holds no <AgentType>"}, Problem{0, "holds no <WebAgent>"}));
  EXPECT_THAT(AgentFileProblems(kCategory), ElementsAre(Problem{0, "holds no <WebAgent>"}));
  // The handheld distinguishes upper and lower case.
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + "<webagent></webagent>"),
              ElementsAre(Problem{0, "holds no <WebAgent>"}));
}

TEST(AgentFileProblems, AsksForEveryRequiredField) {
  const std::string category(kCategory);
  for (const char* tag : {"SiteType", "SiteName", "SiteAddress", "StartResult", "EndResult",
                          "StartItem", "EndItem", "StartURL", "EndURL", "FormatString"}) {
    const std::string opening = std::string("<").append(tag).append(">");
    const std::string closing = std::string("</").append(tag).append(">");
    EXPECT_THAT(AgentFileProblems(category + Without(kAgent, opening)),
                ElementsAre(Problem{2, "<WebAgent> lacks " + opening}));
    EXPECT_THAT(AgentFileProblems(category + Without(kAgent, closing)),
                ElementsAre(Problem{2, "<WebAgent> lacks " + opening}));
  }
}

TEST(AgentFileProblems, AsksForTheNumbersOfAgentAndCategory) {
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + Without(kAgent, "<SiteId>1</SiteId>")),
              ElementsAre(Problem{2, "<WebAgent> needs a <SiteId> of 1 or more"}));
  EXPECT_THAT(
      AgentFileProblems(Without(kCategory, "<TypeName>Books</TypeName>") + std::string(kAgent)),
      ElementsAre(Problem{1, "<AgentType> lacks <TypeName>"}));
  for (const char* number : {"0", "10", "x", "-1"}) {
    std::string category = "<AgentType><TypeId>";
    category.append(number).append("</TypeId><TypeName>Books</TypeName></AgentType>");
    EXPECT_THAT(AgentFileProblems(category + std::string(kAgent)),
                ElementsAre(Problem{1, "<AgentType> needs a <TypeId> from 1 to 9"}));
  }
}

TEST(AgentFileProblems, AsksForAPlaceForTheSearchWords) {
  const Problem missing{2, "<WebAgent> has no \" KEYWORD \" inside its <FormatString>"};
  std::string agent(kAgent);
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + Without(agent, " KEYWORD ")),
              ElementsAre(missing));
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + Without(agent, "http://{server}/find?q=")),
              ElementsAre(missing));
}

TEST(AgentFileProblems, LooksAtEveryBlockAndNamesItsLine) {
  const std::string bad = Without(kAgent, "<EndURL>");
  EXPECT_THAT(AgentFileProblems("\n\n" + std::string(kCategory) + bad + std::string(kAgent) + bad),
              ElementsAre(Problem{4, "<WebAgent> lacks <EndURL>"},
                          Problem{6, "<WebAgent> lacks <EndURL>"}));
}

TEST(AgentFileProblems, RefusesABlockThatIsNeverClosed) {
  EXPECT_THAT(AgentFileProblems(std::string(kCategory) + std::string(kAgent) + "<WebAgent>"),
              ElementsAre(Problem{3, "<WebAgent> is never closed"}));
}

TEST(AgentFileProblems, RefusesAZeroByte) {
  const std::string file = std::string(kCategory) + std::string(kAgent) + std::string(1, '\0');
  EXPECT_THAT(AgentFileProblems(file), SizeIs(1));
}

TEST(AgentFileProblems, RefusesWhatHandheldsWouldCut) {
  const std::string file =
      std::string(kCategory) + Without(Without(kAgent, "{server}"), "{server}");
  const std::string full = file + std::string(kMaxFeedBytes - file.size(), ' ');
  EXPECT_THAT(AgentFileProblems(full), IsEmpty());
  EXPECT_THAT(AgentFileProblems(full + " "), SizeIs(1));
  // A token may grow to the longest address.
  const std::string token = full.substr(0, full.size() - kServerToken.size());
  EXPECT_THAT(AgentFileProblems(token + std::string(kServerToken)), SizeIs(1));
}

TEST(AgentFileProblems, TellsOnlySoMany) {
  std::string file;
  for (int i = 0; i < 100; ++i) file += "<AgentType></AgentType><WebAgent></WebAgent>";
  EXPECT_THAT(AgentFileProblems(file), SizeIs(kMaxProblems));
}

TEST(WithServerAddress, ReplacesEveryToken) {
  EXPECT_EQ(WithServerAddress("a{server}b{server}", "[::1]:80"), "a[::1]:80b[::1]:80");
  EXPECT_EQ(WithServerAddress("a{Server}b{server", "x"), "a{Server}b{server");
  EXPECT_EQ(WithServerAddress("", "x"), "");
}

TEST(IsPlainHost, TakesNamesAndNumbersWithTheirPorts) {
  for (const char* host :
       {"localhost", "localhost:8427", "127.0.0.1:1", "[::1]:80", "my-shop.de"}) {
    EXPECT_TRUE(IsPlainHost(host)) << host;
  }
}

TEST(IsPlainHost, RefusesWhatCouldBreakTheFile) {
  for (const char* host : {"", "a b", "a/b", "a<b", "a@b", "a\n", "\xC3\xA9"}) {
    EXPECT_FALSE(IsPlainHost(host)) << host;
  }
  EXPECT_TRUE(IsPlainHost(std::string(kMaxHostLength, 'a')));
  EXPECT_FALSE(IsPlainHost(std::string(kMaxHostLength + 1, 'a')));
}

}  // namespace
}  // namespace brovanta::server
