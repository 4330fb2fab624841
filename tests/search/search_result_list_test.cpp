#include "search/search_result_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "db/error_codes.h"

namespace brovanta {
namespace {

using testing::ElementsAre;

SearchResultItem Item(const char* title, double price, std::int32_t id = 0) {
  SearchResultItem item;
  item.Id = id;
  item.Title = title;
  item.Price = price;
  return item;
}

std::vector<std::string> Titles(const SearchResultList& list) {
  std::vector<std::string> titles;
  for (const SearchResultItem& item : list.items()) titles.push_back(*item.Title);
  return titles;
}

TEST(SearchResultListTest, SortingPutsTheCheapestFirst) {
  SearchResultList list;
  list.Append({Item("five", 5), Item("one", 1), Item("three", 3)});
  list.SortByPrice();
  EXPECT_THAT(Titles(list), ElementsAre("one", "three", "five"));
}

TEST(SearchResultListTest, EqualPricesStayInTheOrderOfTheirArrival) {
  SearchResultList list;
  list.Append({Item("a", 2), Item("b", 2), Item("c", 2)});
  list.Append({Item("cheap", 1), Item("d", 2)});
  list.SortByPrice();
  EXPECT_THAT(Titles(list), ElementsAre("cheap", "a", "b", "c", "d"));
}

TEST(SearchResultListTest, PricesThatAreNoNumberStandLast) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  SearchResultList list;
  list.Append({Item("nan", nan), Item("huge", std::numeric_limits<double>::infinity()),
               Item("second", nan), Item("less", -1)});
  list.SortByPrice();
  EXPECT_THAT(Titles(list), ElementsAre("less", "huge", "nan", "second"));
}

TEST(SearchResultListTest, AppendTakesThemAsTheyCome) {
  SearchResultList list;
  list.Append({Item("five", 5), Item("one", 1)});
  list.Append({Item("three", 3)});
  list.Append({});
  EXPECT_THAT(Titles(list), ElementsAre("five", "one", "three"));
}

TEST(SearchResultListTest, NumbersRunFromOneInTheListsOrder) {
  SearchResultList list;
  list.Append({Item("b", 2, 9), Item("a", 1, 9)});
  list.NumberItems();
  EXPECT_EQ(list.items()[0].Id, 1);
  EXPECT_EQ(list.items()[1].Id, 2);
}

TEST(SearchResultListTest, FindsTheFirstWithTheId) {
  SearchResultList list;
  list.Append({Item("a", 1, 7), Item("b", 2, 8), Item("c", 3, 8)});
  EXPECT_EQ(list.Find(8), &list.items()[1]);
  EXPECT_EQ(list.Find(9), nullptr);
}

TEST(SearchResultListTest, RemovesTheFirstWithTheId) {
  SearchResultList list;
  list.Append({Item("a", 1, 7), Item("b", 2, 8), Item("c", 3, 8)});
  EXPECT_EQ(list.Remove(8), 0);
  EXPECT_THAT(Titles(list), ElementsAre("a", "c"));
  EXPECT_EQ(list.Remove(9), ERR_NOT_FOUND);
  EXPECT_EQ(list.size(), 2U);
}

TEST(SearchResultListTest, CanBeEmptied) {
  SearchResultList list;
  EXPECT_TRUE(list.empty());
  list.Append({Item("a", 1)});
  EXPECT_FALSE(list.empty());
  list.Clear();
  EXPECT_TRUE(list.empty());
}

}  // namespace
}  // namespace brovanta
