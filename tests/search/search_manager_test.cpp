#include "search/search_manager.h"

#include <gtest/gtest.h>

#include "search/agent_fields.h"
#include "tests/search/recording_window.h"
#include "tests/search/scripted_shops.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

TEST(SearchManagerTest, ThePathsLieInTheFolder) {
  SearchManager manager;
  EXPECT_EQ(manager.SetSearchFolder("/home/ann/brovanta"), 0);
  EXPECT_EQ(manager.index_path(), "/home/ann/brovanta\\websearch.dat");
  EXPECT_EQ(manager.configuration_path(), "/home/ann/brovanta\\webspider.xml");
  EXPECT_EQ(manager.results_folder(), "/home/ann/brovanta\\WebSearch");
}

TEST(SearchManagerTest, ASeparatorAtTheEndIsNotDoubled) {
  SearchManager manager;
  EXPECT_EQ(manager.SetSearchFolder("\\data\\"), 0);
  EXPECT_EQ(manager.index_path(), "\\data\\websearch.dat");
  EXPECT_EQ(manager.SetSearchFolder("/data/"), 0);
  EXPECT_EQ(manager.index_path(), "/data/websearch.dat");
  EXPECT_EQ(manager.results_folder(), "/data/WebSearch");
}

TEST(SearchManagerTest, ABaseOfOneCharacterOrNoneIsNotUsed) {
  for (const char* base : {"", "/", "\\", "x"}) {
    SearchManager manager;
    EXPECT_EQ(manager.SetSearchFolder(base), 0);
    EXPECT_EQ(manager.index_path(), "websearch.dat");
    EXPECT_EQ(manager.configuration_path(), "webspider.xml");
    EXPECT_EQ(manager.results_folder(), "WebSearch");
  }
}

TEST(SearchManagerTest, ABaseOfTwoCharactersIsUsed) {
  SearchManager manager;
  EXPECT_EQ(manager.SetSearchFolder("xy"), 0);
  EXPECT_EQ(manager.index_path(), "xy\\websearch.dat");
}

TEST(SearchManagerTest, LongPathsAreCutTo249Bytes) {
  SearchManager manager;
  const std::string base(240, 'x');
  EXPECT_EQ(manager.SetSearchFolder(base), 0);
  EXPECT_EQ(manager.index_path(), base + "\\websearc");
  EXPECT_EQ(manager.configuration_path(), base + "\\webspide");
  EXPECT_EQ(manager.results_folder(), base + "\\WebSearc");
  EXPECT_EQ(manager.SetSearchFolder(std::string(300, 'x')), 0);
  EXPECT_EQ(manager.index_path(), std::string(249, 'x'));
}

TEST(SearchManagerTest, AnotherFolderTakesThePlaceOfTheFirst) {
  SearchManager manager;
  EXPECT_EQ(manager.SetSearchFolder("/first"), 0);
  EXPECT_EQ(manager.SetSearchFolder("/second"), 0);
  EXPECT_EQ(manager.index_path(), "/second\\websearch.dat");
}

// Two categories and two agents.
std::string SmallConfiguration() {
  std::string text =
      "<AgentType><TypeId>2</TypeId><TypeName>Books</TypeName></AgentType>"
      "<AgentType><TypeId>1</TypeId><TypeName>Groceries</TypeName></AgentType>";
  for (const char* id : {"5", "4"}) {
    text.append("<WebAgent><SiteId>").append(id).append("</SiteId>");
    for (const AgentField& field : kAgentFields) {
      text.append("<").append(field.name).append("></").append(field.name).append(">");
    }
    text.append("</WebAgent>");
  }
  return text;
}

TEST(SearchManagerTest, LoadedCategoriesAndAgentsAreWalkedInTheOrderOfTheFile) {
  const test::TempFolder folder;
  folder.WriteText("webspider.xml", SmallConfiguration());
  SearchManager manager;
  EXPECT_EQ(manager.SetSearchFolder(folder.path()), 0);
  ASSERT_EQ(manager.LoadAgentConfiguration(manager.configuration_path()), 0);
  EXPECT_EQ(manager.CategoryCount(), 2U);
  for (int walk = 0; walk < 2; ++walk) {
    ASSERT_NE(manager.FirstCategory(), nullptr);
    EXPECT_EQ(manager.FirstCategory()->TypeName, "Books");
    EXPECT_EQ(manager.NextCategory()->TypeName, "Groceries");
    EXPECT_EQ(manager.NextCategory(), nullptr);
    EXPECT_EQ(manager.NextCategory(), nullptr);
    EXPECT_EQ(manager.FirstAgent()->SiteId, 5);
    EXPECT_EQ(manager.NextAgent()->SiteId, 4);
    EXPECT_EQ(manager.NextAgent(), nullptr);
  }
}

TEST(SearchManagerTest, NothingLoadedMeansNothingToWalk) {
  SearchManager manager;
  EXPECT_EQ(manager.CategoryCount(), 0U);
  EXPECT_EQ(manager.FirstCategory(), nullptr);
  EXPECT_EQ(manager.FirstAgent(), nullptr);
  EXPECT_EQ(manager.LoadAgentConfiguration("/missing/webspider.xml"), -11);
  EXPECT_EQ(manager.FirstCategory(), nullptr);
}

TEST(SearchManagerTest, LoadingAgainInTheMiddleOfAWalkIsSafe) {
  const test::TempFolder folder;
  folder.WriteText("webspider.xml", SmallConfiguration());
  const std::string path = folder.File("webspider.xml");
  SearchManager manager;
  ASSERT_EQ(manager.LoadAgentConfiguration(path), 0);
  const std::shared_ptr<const WebAgent> running = manager.FirstAgent();
  folder.WriteText("webspider.xml", "");
  ASSERT_EQ(manager.LoadAgentConfiguration(path), 0);
  EXPECT_EQ(manager.NextAgent(), nullptr);
  EXPECT_EQ(running->SiteId, 5);
}

// What the search dialog does each time it opens.
TEST(SearchManagerTest, ConfigurationMayBeLoadedAnewWhileASearchRuns) {
  const test::TempFolder folder;
  const auto configuration = [](const std::string& name) {
    std::string block = "<WebAgent>";
    const WebAgent agent = test::ScriptedShops::Agent(1);
    for (const AgentField& field : kAgentFields) {
      const auto& text = agent.*field.text;
      if (text) block.append("<").append(field.name).append(">").append(*text);
      if (text) block.append("</").append(field.name).append(">");
    }
    block.replace(block.find("Shop 1"), 6, name);
    return block + "<SiteId>1</SiteId></WebAgent>";
  };
  const auto shops = std::make_shared<test::ScriptedShops>();
  shops->Answer(1, test::Block("Soap", "/1", "2"));
  shops->Hold(1);
  SearchManager manager(shops->Services());
  ASSERT_EQ(manager.SetSearchFolder(folder.path()), 0);
  folder.WriteText("webspider.xml", configuration("Old shop"));
  ASSERT_EQ(manager.LoadAgentConfiguration(manager.configuration_path()), 0);
  const auto window = std::make_shared<test::RecordingWindow>();
  ASSERT_EQ(manager.StartSearch(1, "soap", window), 1);
  ASSERT_TRUE(shops->WaitForDownloads(1));

  folder.WriteText("webspider.xml", configuration("New shop"));
  ASSERT_EQ(manager.LoadAgentConfiguration(manager.configuration_path()), 0);
  EXPECT_EQ(manager.FirstAgent()->SiteName, "New shop");
  shops->Release();
  ASSERT_TRUE(window->WaitUntilFinished());
  EXPECT_EQ(manager.engine().Results().items().at(0).SiteName, "Old shop");
}

TEST(SearchManagerTest, FinishedSearchIsSavedInTheFolder) {
  const test::TempFolder folder;
  const auto shops = std::make_shared<test::ScriptedShops>();
  SearchManager manager(shops->Services());
  ASSERT_EQ(manager.SetSearchFolder(folder.path()), 0);
  EXPECT_EQ(manager.StartSearch(4, "soap", nullptr), 0);
  const SearchResultList results = manager.engine().Results();
  EXPECT_EQ(manager.saved_searches().SaveSearch(manager.engine().category_id(),
                                                manager.engine().words(), &results),
            2);
  EXPECT_TRUE(folder.Read("websearch.dat"));
  EXPECT_TRUE(folder.Read("WebSearch/2.dat"));
  EXPECT_EQ(manager.saved_searches().searches().at(0).CategoryId, 4);
}

TEST(SearchManagerTest, StoppingReachesTheRunningSearch) {
  SearchManager manager;
  EXPECT_EQ(manager.StopSearch(), 0);
}

}  // namespace
}  // namespace brovanta
