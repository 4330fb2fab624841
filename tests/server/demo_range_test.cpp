#include "server/demo_range.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace brovanta::server {
namespace {

Article Named(const char* name) { return {1, name, "", Department::kGroceries, 100}; }

TEST(DemoRange, HasManyArticlesInEachDepartment) {
  std::map<Department, int> counts;
  std::set<std::string> names;
  for (const Article& article : Articles()) {
    ++counts[article.department];
    names.insert(article.name);
  }
  EXPECT_GE(Articles().size(), 800u);
  EXPECT_EQ(names.size(), Articles().size());
  EXPECT_EQ(counts.size(), 3u);
  for (const auto& [department, count] : counts)
    EXPECT_GE(count, 250) << DepartmentName(department);
}

TEST(DemoRange, NumbersArticlesFromOne) {
  std::int32_t number = 0;
  for (const Article& article : Articles()) EXPECT_EQ(article.number, ++number);
  EXPECT_EQ(FindArticle(0), nullptr);
  EXPECT_EQ(FindArticle(-1), nullptr);
  EXPECT_EQ(FindArticle(number + 1), nullptr);
  ASSERT_NE(FindArticle(number), nullptr);
  EXPECT_EQ(FindArticle(number)->number, number);
}

// The first good is milk at $1.29 in "Whole", "Low Fat" and "Lactose Free", of 1 and 2 liters: the
// second size costs 180 % (232), the second variety 107 % (138), its second size 248.
TEST(DemoRange, NamesAndPricesFollowTheRule) {
  const Article& first = *FindArticle(1);
  EXPECT_TRUE(first.name.ends_with(" Whole Milk 1 l")) << first.name;
  EXPECT_TRUE(first.name.starts_with(first.maker + " "));
  EXPECT_EQ(first.cents, 129);
  EXPECT_EQ(FindArticle(2)->name, first.maker + " Whole Milk 2 l");
  EXPECT_EQ(FindArticle(2)->cents, 239);
  EXPECT_TRUE(FindArticle(3)->name.ends_with(" Low Fat Milk 1 l"));
  EXPECT_EQ(FindArticle(3)->cents, 139);
  EXPECT_EQ(FindArticle(4)->cents, 249);
  EXPECT_TRUE(FindArticle(7)->name.ends_with(" Plain Yogurt 150 g"));
}

// The last good is the laptop at $649.99; its second size costs 130 %, $844.98.
TEST(DemoRange, TheNextSizeOfADeviceCostsLittleMore) {
  const Article& first = *FindArticle(static_cast<std::int32_t>(Articles().size()) - 5);
  EXPECT_TRUE(first.name.ends_with(" Student Laptop 14 inch")) << first.name;
  EXPECT_EQ(first.cents, 64'999);
  EXPECT_TRUE(FindArticle(first.number + 1)->name.ends_with(" Student Laptop 16 inch"));
  EXPECT_EQ(FindArticle(first.number + 1)->cents, 84'499);
}

TEST(DemoRange, PriceTagsEndInNine) {
  EXPECT_EQ(PriceTag(120), 129);
  EXPECT_EQ(PriceTag(129), 129);
  EXPECT_EQ(PriceTag(130), 139);
  EXPECT_EQ(PriceTag(0), 9);
}

TEST(DemoRange, PriceTagsEndInAnotherDigitWhereOneIsAskedFor) {
  EXPECT_EQ(PriceTag(120, 5), 125);
  EXPECT_EQ(PriceTag(125, 5), 125);
  EXPECT_EQ(PriceTag(126, 5), 135);
  EXPECT_EQ(PriceTag(120, 0), 120);
  EXPECT_EQ(PriceTag(121, 0), 130);
}

TEST(DemoRange, ChanceIsTheSameForTheSameAndDiffersOtherwise) {
  std::set<std::uint32_t> seen;
  for (std::uint32_t i = 0; i < 100; ++i) {
    for (std::uint32_t j = 0; j < 10; ++j) {
      EXPECT_EQ(Chance(i, j), Chance(i, j));
      seen.insert(Chance(i, j));
    }
  }
  EXPECT_EQ(seen.size(), 1000u);
}

TEST(NameSearch, FindsWordsInAnyCaseAndOrder) {
  const NameSearch search("  MILK  whole ");
  EXPECT_TRUE(search.HasAll(Named("Whole Milk 1 l")));
  EXPECT_FALSE(search.HasAll(Named("Whole Wheat")));
  EXPECT_TRUE(search.HasAny(Named("Whole Wheat")));
  EXPECT_FALSE(search.HasAny(Named("Butter")));
}

TEST(NameSearch, NoWordsAreInEverything) {
  for (const char* words : {"", " "}) {
    EXPECT_TRUE(NameSearch(words).HasAll(Named("Butter"))) << words;
    EXPECT_FALSE(NameSearch(words).HasAny(Named("Butter"))) << words;
  }
}

// "Crème" comes from a handheld as "Cr\xFFme", from a form in UTF-8 or in Windows-1252.
TEST(NameSearch, AccentsMatchWhateverWayTheyCome) {
  const Article article = Named(
      "Cr\xC3\xA8me Fra\xC3\xAE"
      "che");
  for (const char* words : {"cr\xFFme", "CR\xC3\xA8ME",
                            "cr\xE8me fra\xEE"
                            "che"}) {
    EXPECT_TRUE(NameSearch(words).HasAll(article)) << words;
  }
  EXPECT_FALSE(NameSearch("creme").HasAll(article));
}

}  // namespace
}  // namespace brovanta::server
