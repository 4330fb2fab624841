#include "agent/agent_notes.h"

#include <gmock/gmock.h>

#include <memory>
#include <utility>

#include "tests/search/agents.h"

namespace brovanta::agent_tool {
namespace {

using test::PlainAgent;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<std::string> NotesOf(const WebAgent& agent) {
  return AgentNotes(agent, {{1, "Books"}});
}

AgentConfiguration With(WebAgent agent) {
  AgentConfiguration configuration;
  configuration.agents.push_back(std::make_shared<const WebAgent>(std::move(agent)));
  return configuration;
}

TEST(CategoryNotesTest, NothingAboutACategoryThatIsServed) {
  EXPECT_THAT(CategoryNotes({1, "Books"}, With(PlainAgent())), IsEmpty());
}

TEST(CategoryNotesTest, TellsOfACategoryThatNobodyServes) {
  EXPECT_THAT(CategoryNotes({2, "Hats"}, With(PlainAgent())),
              ElementsAre(StartsWith("no agent of the file serves it")));
}

TEST(CategoryNotesTest, TellsThatNumbersOfTwoDigitsCannotBeServed) {
  WebAgent agent = PlainAgent();
  agent.SiteType = "10";
  EXPECT_THAT(CategoryNotes({10, "Hats"}, With(agent)), ElementsAre(HasSubstr("one digit")));
}

TEST(AgentNotesTest, NothingAboutAGoodAgent) { EXPECT_THAT(NotesOf(PlainAgent()), IsEmpty()); }

TEST(AgentNotesTest, TellsOfAnAgentThatServesNoCategory) {
  WebAgent agent = PlainAgent();
  agent.SiteType = "2, 3";
  EXPECT_THAT(NotesOf(agent), ElementsAre("SiteType \"2, 3\" serves no category of the file"));
  agent.SiteType = "21";  // the program matches the 1, whatever stands before it
  EXPECT_THAT(NotesOf(agent), IsEmpty());
}

TEST(AgentNotesTest, TellsOfAnAddressWithoutAPlaceForTheWords) {
  WebAgent agent = PlainAgent();
  for (const char* format : {"http://shop.example/q=KEYWORD", " KEYWORD ", "", "q= keyword "}) {
    agent.FormatString = format;
    EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("fails with -63"))) << format;
  }
}

TEST(AgentNotesTest, TellsOfAnAddressThatCannotBeDownloaded) {
  WebAgent agent = PlainAgent();
  for (const char* format : {"https://shop.example/ KEYWORD ", "/find?q= KEYWORD ", "x KEYWORD "}) {
    agent.FormatString = format;
    EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("no http:// address"))) << format;
  }
}

TEST(AgentNotesTest, TellsOfHalfAPairOfMarkers) {
  WebAgent agent = PlainAgent();
  agent.EndText.reset();
  EXPECT_THAT(NotesOf(agent), ElementsAre("StartText is of no use without EndText"));
  agent = PlainAgent();
  agent.StartPromo.reset();
  EXPECT_THAT(NotesOf(agent), ElementsAre("EndPromo is of no use without StartPromo"));
}

TEST(AgentNotesTest, TellsThatWithoutAPriceEverythingIsDropped) {
  WebAgent agent = PlainAgent();
  agent.StartPrice.reset();
  agent.EndPrice.reset();
  EXPECT_THAT(NotesOf(agent), IsEmpty());  // the promotion is left
  agent.StartPromo.reset();
  agent.EndPromo.reset();
  EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("every item will be dropped")));
}

TEST(AgentNotesTest, TellsOfEmptyMarkersThatEndThePage) {
  WebAgent agent = PlainAgent();
  agent.EndItem = "";
  EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("EndItem is empty")));
  agent = PlainAgent();
  agent.EndResult = "";
  EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("no page gives an item")));
  agent = PlainAgent();
  agent.EndPrice = "";
  EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("EndPrice is empty")));
}

TEST(AgentNotesTest, TellsThatTheHeaderHasNoWildcards) {
  WebAgent agent = PlainAgent();
  agent.EndHeader = "<ul*>";
  EXPECT_THAT(NotesOf(agent), ElementsAre(HasSubstr("EndHeader")));
  agent.EndHeader = "<ul>";
  EXPECT_THAT(NotesOf(agent), IsEmpty());
}

}  // namespace
}  // namespace brovanta::agent_tool
