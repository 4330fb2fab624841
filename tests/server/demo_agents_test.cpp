#include "server/demo_agents.h"

#include <gmock/gmock.h>

#include "search/agent_configuration.h"
#include "server/agent_file.h"
#include "server/demo_shops.h"
#include "tests/support/temp_folder.h"

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class DemoAgentsTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.WriteText("webspider.xml", WithServerAddress(DemoAgentFile(), "shop:1"));
    ASSERT_EQ(LoadAgentConfiguration(folder_.File("webspider.xml"), configuration_), 0);
  }

  test::TempFolder folder_;
  AgentConfiguration configuration_;
};

TEST_F(DemoAgentsTest, MayBeImported) {
  EXPECT_THAT(AgentFileProblems(DemoAgentFile()), IsEmpty());
}

TEST_F(DemoAgentsTest, NamesTheDepartmentsAsCategories) {
  ASSERT_EQ(configuration_.categories.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(configuration_.categories[i].TypeId, static_cast<std::int32_t>(i) + 1);
    EXPECT_EQ(configuration_.categories[i].TypeName,
              DepartmentName(static_cast<Department>(i + 1)));
  }
}

TEST_F(DemoAgentsTest, EveryShopServesExactlyItsDepartmentsOnce) {
  for (const DemoShop& shop : DemoShops()) {
    for (std::int32_t category = 1; category <= 3; ++category) {
      int serving = 0;
      for (const auto& agent : configuration_.agents) {
        if (agent->SiteName == shop.name && agent->Serves(category)) ++serving;
      }
      EXPECT_EQ(serving, shop.Has(static_cast<Department>(category)) ? 1 : 0) << shop.name;
    }
  }
}

TEST_F(DemoAgentsTest, LeadToTheServerAndHaveNumbersOfTheirOwn) {
  std::int32_t number = 0;
  for (const auto& agent : configuration_.agents) {
    EXPECT_EQ(agent->SiteId, ++number);
    EXPECT_THAT(agent->SiteAddress.value_or(""), StartsWith("http://shop:1"));
    EXPECT_THAT(agent->FormatString.value_or(""), StartsWith("http://shop:1/demo/"));
    EXPECT_THAT(agent->FormatString.value_or(""), HasSubstr("q= KEYWORD "));
    EXPECT_TRUE(agent->IsComplete());
    EXPECT_EQ(agent->StartPromo.has_value(), agent->SiteName == "Pinecrest Outlet");
  }
  EXPECT_EQ(number, 17);
}

TEST(IsDemoAgentFile, KnowsTheFileOfThisVersionAndEarlierOnes) {
  EXPECT_TRUE(IsDemoAgentFile(DemoAgentFile()));
  EXPECT_TRUE(IsDemoAgentFile(
      "<WebAgent><FormatString>http://{server}/demo/market?words= KEYWORD </FormatString>"));
}

TEST(IsDemoAgentFile, LeavesAFileWithAnyOtherShopToItsOwner) {
  EXPECT_FALSE(IsDemoAgentFile(""));
  EXPECT_FALSE(IsDemoAgentFile("<WebAgent></WebAgent>"));
  EXPECT_FALSE(IsDemoAgentFile(DemoAgentFile() +
                               "<FormatString>http://shop.example/?q= KEYWORD </FormatString>"));
  EXPECT_FALSE(IsDemoAgentFile("<FormatString>http://{server}/own?q= KEYWORD </FormatString>"));
}

}  // namespace
}  // namespace brovanta::server
