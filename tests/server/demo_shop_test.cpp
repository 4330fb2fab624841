#include "server/demo_shop.h"

#include <gmock/gmock.h>

#include "server/agent_file.h"
#include "util/text.h"

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string Page(std::string_view target) {
  return DemoShopPage(ParseTarget(target).value_or(Target{})).value_or("");
}

std::string Marker(const char* opening, const char* closing) {
  return TagText(DemoAgentFile().c_str(), opening, closing).value_or("");
}

TEST(DemoAgentFile, IsAnAgentFile) { EXPECT_THAT(AgentFileProblems(DemoAgentFile()), IsEmpty()); }

TEST(DemoAgentFile, LeadsBackToThisServer) {
  EXPECT_EQ(Marker("<SiteAddress>", "</SiteAddress>"), "http://{server}");
  EXPECT_EQ(Marker("<FormatString>", "</FormatString>"),
            "http://{server}/demo/market?words= KEYWORD ");
}

TEST(DemoShopPage, ListsWhatHoldsAnyOfTheWords) {
  const std::string page = Page("/demo/market?words=MILK+tea");
  EXPECT_THAT(page, HasSubstr(">Whole Milk</a></td><td class=\"price\">$3.49</td></tr>"));
  EXPECT_THAT(page, HasSubstr(">Earl Grey Tea<"));
  EXPECT_THAT(page, Not(HasSubstr("Bananas")));
}

TEST(DemoShopPage, ListsEverythingWithoutWords) {
  EXPECT_THAT(Page("/demo/market"), HasSubstr("Bananas"));
  EXPECT_THAT(Page("/demo/market?words="), HasSubstr("Newborn Diapers"));
}

TEST(DemoShopPage, MayFindNothing) {
  const std::string page = Page("/demo/market?words=submarine");
  EXPECT_THAT(page, HasSubstr(Marker("<EndHeader>", "</EndHeader>")));
  EXPECT_THAT(page, Not(HasSubstr(Marker("<StartResult>", "</StartResult>"))));
}

// Cuts the page by hand as the agent's markers say, without their wildcard.
TEST(DemoShopPage, HasTheMarkersOfItsAgentWhereTheyBelong) {
  const std::string page = Page("/demo/market?words=bananas");
  const std::string start = Marker("<StartResult>", "</StartResult>");
  const std::string end = Marker("<EndResult>", "</EndResult>");
  const std::size_t at = page.find(start);
  ASSERT_NE(at, std::string::npos);
  EXPECT_GT(at, page.find(Marker("<EndHeader>", "</EndHeader>")));
  const std::string block = page.substr(at, page.find(end, at) + end.size() - at);
  EXPECT_EQ(block,
            "<tr class=\"item\"><td><a href=\"/demo/market/item?no=47\">Bananas</a></td>"
            "<td class=\"price\">$1.39</td></tr>");
  EXPECT_EQ(TagText(block.c_str(), "<a href=\"", "\">Bananas"), "/demo/market/item?no=47");
  EXPECT_EQ(TagText(block.c_str(), "no=47\">", "</a>"), "Bananas");
  EXPECT_EQ(TagText(block.c_str(), "<td class=\"price\">", "</td></tr>"), "$1.39");
}

TEST(DemoShopPage, LinksLeadToItems) {
  const std::string page = Page("/demo/market/item?no=47");
  EXPECT_THAT(page, HasSubstr("<h1>Bananas</h1>"));
  EXPECT_THAT(page, HasSubstr("$1.39"));
  EXPECT_THAT(page, HasSubstr("<dd>Fruit</dd>"));
}

TEST(DemoShopPage, KnowsNoOtherAddresses) {
  for (const char* target :
       {"/demo", "/demo/market/", "/demo/market/item", "/demo/market/item?no=0",
        "/demo/market/item?no=101", "/demo/market/item?no=x"}) {
    EXPECT_EQ(Page(target), "") << target;
  }
  EXPECT_NE(Page("/demo/market/item?no=100"), "");
}

}  // namespace
}  // namespace brovanta::server
