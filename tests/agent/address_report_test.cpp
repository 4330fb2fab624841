#include "agent/address_report.h"

#include <gmock/gmock.h>

#include "tests/search/agents.h"

namespace brovanta::agent_tool {
namespace {

using test::PlainAgent;
using testing::HasSubstr;

TEST(AddressOfTest, IsThatOfTheSearch) {
  const AddressReport report = AddressOf(PlainAgent(), "red shoes");
  EXPECT_EQ(report.status, 0);
  EXPECT_EQ(report.address, "http://shop.example/find?q=red+shoes");
  EXPECT_FALSE(report.cut);
  EXPECT_TRUE(report.downloadable);
}

TEST(AddressOfTest, TellsWhenItIsCut) {
  WebAgent agent = PlainAgent();
  agent.FormatString = "http://s/ KEYWORD ";  // nine bytes in front of the words
  EXPECT_FALSE(AddressOf(agent, std::string(240, 'x')).cut);
  const AddressReport report = AddressOf(agent, std::string(241, 'x'));
  EXPECT_TRUE(report.cut);
  EXPECT_EQ(report.address, "http://s/" + std::string(240, 'x'));
  EXPECT_TRUE(AddressOf(agent, std::string(81, '\xE9')).cut);  // "%ff" for each
}

TEST(AddressOfTest, TellsWhatCannotBeDownloaded) {
  WebAgent agent = PlainAgent();
  for (const char* format : {"https://shop.example/ KEYWORD ", "ftp://x/ KEYWORD ", "x KEYWORD "}) {
    agent.FormatString = format;
    const AddressReport report = AddressOf(agent, "a");
    EXPECT_EQ(report.status, 0);
    EXPECT_FALSE(report.downloadable) << format;
  }
}

TEST(AddressOfTest, HasNoAddressWithoutAPlaceForTheWordsOrWords) {
  WebAgent agent = PlainAgent();
  EXPECT_EQ(AddressOf(agent, "").status, -62);
  agent.FormatString = " KEYWORD http://shop.example";
  const AddressReport report = AddressOf(agent, "a");
  EXPECT_EQ(report.status, -63);
  EXPECT_EQ(report.address, "");
  EXPECT_FALSE(report.downloadable);
}

TEST(StatusTextTest, SaysWhatIsWrong) {
  EXPECT_THAT(StatusText(-62), HasSubstr("no search words"));
  EXPECT_THAT(StatusText(-63), HasSubstr("\" KEYWORD \""));
  EXPECT_THAT(StatusText(-64), HasSubstr("encoded"));
}

}  // namespace
}  // namespace brovanta::agent_tool
