#include "data/exact_values.h"

#include <gmock/gmock.h>

#include <array>
#include <bit>
#include <limits>

#include "tests/support/zone_guard.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

using std::string_literals::operator""s;

TEST(StampTextTest, ShowsTheLocalDateWithItsOffset) {
  const test::ZoneGuard zone("Europe/Berlin");
  EXPECT_EQ(StampText(1112137200), "2005-03-30T01:00:00+02:00");
  EXPECT_EQ(StampText(1104537600), "2005-01-01T01:00:00+01:00");
  EXPECT_EQ(StampText(-1), "1970-01-01T00:59:59+01:00");
}

TEST(StampTextTest, EveryStampComesBackInEveryZone) {
  for (const char* const name : {"UTC", "America/St_Johns", "Asia/Kathmandu", "Africa/Monrovia",
                                 "Pacific/Apia", "Australia/Lord_Howe"}) {
    const test::ZoneGuard zone(name);
    constexpr std::int64_t kFirst = std::numeric_limits<DateStamp>::min();
    constexpr std::int64_t kLast = std::numeric_limits<DateStamp>::max();
    for (std::int64_t stamp = kFirst; stamp <= kLast; stamp += 1'000'003) {
      const std::string text = StampText(static_cast<DateStamp>(stamp));
      ASSERT_EQ(StampFromText(text), static_cast<DateStamp>(stamp)) << name << " " << text;
    }
    EXPECT_EQ(StampFromText(StampText(static_cast<DateStamp>(kLast))), kLast);
  }
}

TEST(StampTextTest, WhatItMeansDoesNotDependOnTheZone) {
  const test::ZoneGuard zone("America/New_York");
  EXPECT_EQ(StampFromText("2005-03-30T01:00:00+02:00"), 1112137200);
  EXPECT_EQ(StampFromText("2005-03-29T23:00:00Z"), 1112137200);
  EXPECT_EQ(StampFromText("1970-01-01T00:00:00Z"), 0);
}

TEST(StampTextTest, WhatIsNoDateIsRefused) {
  for (const char* const text :
       {"", "2005-03-30", "2005-03-30T01:00:00", "2005-03-30 01:00:00Z", "2005-02-29T01:00:00Z",
        "2005-13-01T01:00:00Z", "2005-00-01T01:00:00Z", "2005-01-00T01:00:00Z",
        "2005-03-30T24:00:00Z", "2005-03-30T01:60:00Z", "2005-03-30T01:00:60Z",
        "2005-03-30T01:00:00+2:00", "2005-03-30T01:00:00+02:00 ", "2005-03-30T01:00:00z",
        "2038-01-19T03:14:08Z", "1901-12-13T20:45:51Z", "9999-12-31T23:59:59Z",
        "x005-03-30T01:00:00Z"}) {
    EXPECT_EQ(StampFromText(text), std::nullopt) << text;
  }
  EXPECT_EQ(StampFromText("2038-01-19T03:14:07Z"), 2147483647);
  EXPECT_EQ(StampFromText("1901-12-13T20:45:52Z"), std::numeric_limits<DateStamp>::min());
}

TEST(DoubleBitsTest, NoBitIsLost) {
  EXPECT_EQ(DoubleBits(std::numeric_limits<double>::infinity()), "0x7ff0000000000000");
  for (const std::uint64_t bits : {0x7FF8000000000001ULL, 0xFFF0000000000000ULL,
                                   0x7FF0000000000001ULL, 0x3FF0000000000000ULL}) {
    const auto number = DoubleFromBits(DoubleBits(std::bit_cast<double>(bits)));
    ASSERT_TRUE(number);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*number), bits);
  }
  for (const char* const text :
       {"", "0x", "7ff8000000000000", "0x7ff800000000000", "0x7ff80000000000000",
        "0x7ff800000000000g", "0x7ff80000000000000000"}) {
    EXPECT_EQ(DoubleFromBits(text), std::nullopt) << text;
  }
}

TEST(HexTextTest, ThereAndBack) {
  EXPECT_EQ(HexText("\x00\x7f\xa0\xff"s), "007fa0ff");
  EXPECT_EQ(BytesFromHex("007FA0ff"), "\x00\x7f\xa0\xff"s);
  EXPECT_EQ(BytesFromHex(""), "");
  EXPECT_EQ(BytesFromHex("0"), std::nullopt);
  EXPECT_EQ(BytesFromHex("0x"), std::nullopt);
}

// The examples of RFC 4648.
TEST(Base64TextTest, FollowsTheStandard) {
  constexpr std::array<std::array<const char*, 2>, 7> kExamples{{{"", ""},
                                                                 {"f", "Zg=="},
                                                                 {"fo", "Zm8="},
                                                                 {"foo", "Zm9v"},
                                                                 {"foob", "Zm9vYg=="},
                                                                 {"fooba", "Zm9vYmE="},
                                                                 {"foobar", "Zm9vYmFy"}}};
  for (const auto& [bytes, text] : kExamples) {
    EXPECT_EQ(Base64Text(bytes), text);
    EXPECT_EQ(BytesFromBase64(text), bytes);
  }
}

TEST(Base64TextTest, EveryByteComesBackAndNothingElseIsTaken) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    EXPECT_EQ(BytesFromBase64(Base64Text(bytes.substr(0, size))), bytes.substr(0, size));
  }
  for (const char* const text :
       {"Z", "Zg", "Zg=", "Zg==Zg==", "Zh==", "Zm9=", "====", "=m9v", "Zm 9", "Zm9-"}) {
    EXPECT_EQ(BytesFromBase64(text), std::nullopt) << text;
  }
}

TEST(StoredTextTest, EveryByteHasItsCharacter) {
  std::string stored;
  for (int byte = 0; byte < 256; ++byte) stored += static_cast<char>(byte);
  std::string culprit;
  EXPECT_EQ(StoredFromUtf8(Utf8FromWindows1252(stored), culprit), stored);
  EXPECT_EQ(Utf8FromWindows1252("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
}

TEST(StoredTextTest, AStrangeCharacterIsNamed) {
  std::string culprit;
  EXPECT_EQ(StoredFromUtf8("1 k\xCE\xA9 x", culprit), std::nullopt);
  EXPECT_EQ(culprit, "\xCE\xA9");
  EXPECT_EQ(StoredFromUtf8("\xF0\x9F\x8D\x8E", culprit), std::nullopt);
  EXPECT_EQ(culprit, "\xF0\x9F\x8D\x8E");
  EXPECT_EQ(StoredFromUtf8("\xE9", culprit), std::nullopt);
  EXPECT_EQ(culprit, "");
  EXPECT_EQ(StoredFromUtf8("a?b", culprit), "a?b");
}

}  // namespace
}  // namespace brovanta::data_tool
