#include "server/plain_number.h"

#include <gtest/gtest.h>

namespace brovanta::server {
namespace {

TEST(PlainNumber, ReadsDigits) {
  EXPECT_EQ(PlainNumber("0", 10), 0);
  EXPECT_EQ(PlainNumber("10", 10), 10);
  EXPECT_EQ(PlainNumber("2147483647", 2147483647), 2147483647);
}

TEST(PlainNumber, RefusesWhatIsTooLarge) {
  EXPECT_EQ(PlainNumber("11", 10), std::nullopt);
  EXPECT_EQ(PlainNumber("2147483648", 2147483647), std::nullopt);
  EXPECT_EQ(PlainNumber("99999999999999999999", 2147483647), std::nullopt);
}

TEST(PlainNumber, RefusesEverythingElse) {
  for (const char* text : {"", "-1", "+1", " 1", "1 ", "01", "00", "1.0", "1e3", "x", "0x1"}) {
    EXPECT_EQ(PlainNumber(text, 1000), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace brovanta::server
