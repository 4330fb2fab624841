#include "search/search_manager.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace brovanta
