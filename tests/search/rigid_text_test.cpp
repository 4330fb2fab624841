#include "search/rigid_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brovanta {
namespace {

constexpr std::size_t kNowhere = RigidSearch::kNowhere;

// The short way and the long ones must not be told apart.
class RigidTextTest : public testing::TestWithParam<std::size_t> {
 protected:
  // The pattern behind so many "x" that it is searched for in this test's way, and the text with
  // the same in front of each "|".
  [[nodiscard]] std::string Filled(const std::string& text) const {
    std::string filled;
    for (const char character : text) {
      if (character == '|') {
        filled.append(GetParam(), 'x');
      } else {
        filled += character;
      }
    }
    return filled;
  }
};

INSTANTIATE_TEST_SUITE_P(ShortAndLong, RigidTextTest, testing::Values(0, 1024, 1025, 1100, 1151));

TEST_P(RigidTextTest, FindsTheFirstPlaceFromAGivenOneOn) {
  const RigidText pattern(Filled("|ab"));
  RigidSearch search(pattern);
  const std::string text = Filled("-|ac|ab-|ab");
  search.Reset(text);
  const std::size_t fill = GetParam();
  EXPECT_EQ(search.Find(0), 3 + fill);
  EXPECT_EQ(search.Find(3 + fill), 3 + fill);
  EXPECT_EQ(search.Find(4 + fill), 6 + 2 * fill);
  EXPECT_EQ(search.Find(7 + 2 * fill), kNowhere);
  EXPECT_EQ(search.Find(10000), kNowhere);
}

TEST_P(RigidTextTest, QuestionMarksTakeAnyByte) {
  const RigidText pattern(Filled("?|?b"));
  RigidSearch search(pattern);
  const std::string text = Filled("|ab--|\377b");
  search.Reset(text);
  EXPECT_EQ(search.Find(0), GetParam() + 3);
  EXPECT_TRUE(search.IsAt(GetParam() + 3));
}

TEST_P(RigidTextTest, IsAtLooksAtOnePlace) {
  const RigidText pattern(Filled("a|"));
  RigidSearch search(pattern);
  const std::string text = Filled("a|ba|");
  search.Reset(text);
  EXPECT_TRUE(search.IsAt(0));
  EXPECT_FALSE(search.IsAt(1 + GetParam()));
  EXPECT_TRUE(search.IsAt(2 + GetParam()));
  EXPECT_FALSE(search.IsAt(3 + 2 * GetParam()));
  EXPECT_FALSE(search.IsAt(10000));
}

TEST_P(RigidTextTest, AnotherTextStartsFromItsBeginning) {
  const RigidText pattern(Filled("|a"));
  RigidSearch search(pattern);
  const std::string first = Filled("---|a");
  search.Reset(first);
  EXPECT_EQ(search.Find(0), 3U);
  const std::string second = Filled("|a");
  search.Reset(second);
  EXPECT_EQ(search.Find(0), 0U);
  search.Reset("");
  EXPECT_EQ(search.Find(0), kNowhere);
}

TEST(RigidTextEmptyTest, NothingIsEverywhere) {
  const RigidText pattern;
  RigidSearch search(pattern);
  search.Reset("ab");
  EXPECT_EQ(search.Find(0), 0U);
  EXPECT_EQ(search.Find(2), 2U);
  EXPECT_EQ(search.Find(3), kNowhere);
  EXPECT_TRUE(search.IsAt(1));
}

}  // namespace
}  // namespace brovanta
