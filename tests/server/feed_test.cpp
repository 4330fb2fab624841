#include "server/feed.h"

#include <gtest/gtest.h>

#include "tests/support/zone_guard.h"

namespace brovanta::server {
namespace {

Coupon Example() {
  const Day start(std::chrono::year(2025), std::chrono::May, std::chrono::day(1));
  return {CouponSource::kDeal,
          12,
          "Caf\xC3\xA9 & more",
          "Espresso",
          "Only \xE2\x82\xAC 1",
          CouponType::kMailInRebate,
          ValueType::kPercent,
          "12.5",
          start,
          std::nullopt,
          3,
          8};
}

TEST(ListSpan, IsTheEntryInTagsAndWindows1252) {
  EXPECT_EQ(ListSpan({7,
                      "B\xC3\xA4"
                      "ckerei & Co"}),
            "<IT><ID>7</ID><NM>B\xE4"
            "ckerei & Co</NM></IT>\n");
}

TEST(CouponSpan, HoldsEveryFieldUnescaped) {
  EXPECT_EQ(CouponSpan(Example(), *LocalZone::Current()),
            "<CP><ID>12</ID><SR>2</SR><NM>Caf\xE9 & more</NM><PR>Espresso</PR>"
            "<DS>Only \x80 1</DS><TP>3</TP><VT>1</VT><VL>12.5</VL>"
            "<SD>1746100800</SD><ED>0</ED><SI>3</SI><CI>8</CI></CP>\n");
}

TEST(CouponSpan, CountsDatesInTheServersZone) {
  const test::ZoneGuard zone("America/New_York");
  // Noon there is 16:00 UTC in summer.
  EXPECT_NE(CouponSpan(Example(), *LocalZone::Current()).find("<SD>1746115200</SD>"),
            std::string::npos);
}

TEST(FeedText, TakesWholeSpansUpToTheLimit) {
  FeedText feed(10);
  EXPECT_TRUE(feed.Add("12345\n"));
  EXPECT_FALSE(feed.Add("12345"));
  EXPECT_TRUE(feed.Add("123\n"));
  EXPECT_FALSE(feed.Add("x"));
  EXPECT_EQ(feed.Take(), "12345\n123\n");
}

TEST(FeedText, KnowsWhatAHandheldReads) {
  FeedText feed;
  EXPECT_TRUE(feed.Add(std::string(638'976, 'x')));
  EXPECT_FALSE(feed.Add("x"));
}

}  // namespace
}  // namespace brovanta::server
