#include "data/search_entry.h"

#include <gmock/gmock.h>

#include "tests/support/temp_folder.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;

// Reserved word 7, number 2, category 3, 2005-04-06 01:00 UTC, "soap", deleted, reserved byte 9.
const test::Bytes kBytes = test::Join({Hex("07 00 00 00 02 00 00 00 03 00 00 00 90 34 53 42"),
                                       test::Padded("soap", 50), Hex("01 09")});

TEST(SearchEntryTest, FieldsStandWhereThePageOfTheFormatSays) {
  const SearchEntry entry =
      DecodeSearchEntry(std::span(kBytes).first<saved_search_layout::kSize>());
  EXPECT_EQ(entry.Number, 2);
  EXPECT_EQ(entry.CategoryId, 3);
  EXPECT_EQ(entry.Date, 1112749200);
  EXPECT_EQ(entry.Words.view(), "soap");
  EXPECT_EQ(entry.Deleted, 1);
}

TEST(SearchEntryTest, ReservedBytesAreWrittenAsZero) {
  const SearchEntryBytes bytes =
      EncodeSearchEntry(DecodeSearchEntry(std::span(kBytes).first<saved_search_layout::kSize>()));
  test::Bytes expected = kBytes;
  expected[0] = std::byte{0};
  expected[67] = std::byte{0};
  EXPECT_EQ(test::Bytes(bytes.begin(), bytes.end()), expected);
}

}  // namespace
}  // namespace brovanta::data_tool
