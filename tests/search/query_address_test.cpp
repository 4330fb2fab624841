#include "search/query_address.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>

#include "search/agent_status.h"

namespace brovanta {
namespace {

std::string Address(const std::string& format_string, const std::string& words) {
  std::string address;
  EXPECT_EQ(BuildQueryAddress(format_string, words, address), 0);
  return address;
}

std::int32_t Status(const std::string& format_string, const std::string& words) {
  std::string address = "untouched";
  const std::int32_t status = BuildQueryAddress(format_string, words, address);
  EXPECT_EQ(address, "untouched");
  return status;
}

TEST(QueryAddressTest, WordsTakeThePlaceOfTheKeywordAndItsBlanks) {
  EXPECT_EQ(Address("http://a.example/?q= KEYWORD ", "red shoes"), "http://a.example/?q=red+shoes");
  EXPECT_EQ(Address("http://a.example/?q= KEYWORD &sort=price", "soap"),
            "http://a.example/?q=soap&sort=price");
}

TEST(QueryAddressTest, OnlyTheFirstKeywordIsReplaced) {
  EXPECT_EQ(Address("a KEYWORD b KEYWORD ", "x"), "axb KEYWORD ");
}

TEST(QueryAddressTest, OtherBytesAreWrittenInHexadecimal) {
  EXPECT_EQ(Address("a KEYWORD ", "b&c/d"), "ab%26c%2fd");
}

TEST(QueryAddressTest, EveryByteAbove7FIsWrittenAsFF) {
  EXPECT_EQ(Address("a KEYWORD ", "caf\xC3\xA9\x80\xFF"), "acaf%ff%ff%ff%ff");
}

TEST(QueryAddressTest, ByteBelow16EndsTheWords) {
  EXPECT_EQ(Address("a KEYWORD z", "b\tc"), "ab%9z");
}

TEST(QueryAddressTest, FormatWithoutKeywordFails) {
  for (const char* format : {"", "http://a.example/", "a KEYWORD", "aKEYWORD b", "a keyword b"}) {
    EXPECT_EQ(Status(format, "x"), AGENT_NO_KEYWORD) << format;
  }
}

TEST(QueryAddressTest, KeywordAtTheVeryFirstCharacterFails) {
  EXPECT_EQ(Status(" KEYWORD http://a.example/", "x"), AGENT_NO_KEYWORD);
  EXPECT_EQ(Status(" KEYWORD a KEYWORD ", "x"), AGENT_NO_KEYWORD);
}

TEST(QueryAddressTest, NoWordsFailFirst) { EXPECT_EQ(Status("no keyword", ""), AGENT_NO_WORDS); }

TEST(QueryAddressTest, WordsOfBlanksAreWords) { EXPECT_EQ(Address("a KEYWORD ", "  "), "a++"); }

TEST(QueryAddressTest, AddressIsCutBehind249Bytes) {
  // 100 bytes of words become 300.
  std::string expected = "http://a.example/?q=";
  while (expected.size() < 249) expected += "%ff";
  expected.resize(249);
  EXPECT_EQ(Address("http://a.example/?q= KEYWORD &sort=price", std::string(100, '\xE9')),
            expected);
  EXPECT_EQ(Address(std::string(300, 'x') + " KEYWORD ", "w"), std::string(249, 'x'));
}

TEST(QueryAddressTest, WordsThatCannotBeEncodedFail) {
  const WordsEncoder without_memory = [](const char*) -> std::optional<std::string> {
    throw std::bad_alloc();
  };
  const WordsEncoder without_result = [](const char*) -> std::optional<std::string> {
    return std::nullopt;
  };
  for (const WordsEncoder encoder : {without_memory, without_result}) {
    std::string address = "untouched";
    EXPECT_EQ(BuildQueryAddress("a KEYWORD ", "x", address, encoder), AGENT_NO_ENCODING);
    EXPECT_EQ(BuildQueryAddress("a", "x", address, encoder), AGENT_NO_KEYWORD) << "before that";
    EXPECT_EQ(address, "untouched");
  }
}

TEST(QueryAddressTest, CodesAreThoseOfTheMessages) {
  EXPECT_EQ(AGENT_NO_WORDS, -62);
  EXPECT_EQ(AGENT_NO_KEYWORD, -63);
  EXPECT_EQ(AGENT_NO_ENCODING, -64);
  EXPECT_EQ(AGENT_NO_PAGE, 0x10000010);
}

}  // namespace
}  // namespace brovanta
