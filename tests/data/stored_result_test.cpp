#include "data/stored_result.h"

#include <gmock/gmock.h>

#include "tests/support/temp_folder.h"

namespace brovanta::data_tool {
namespace {

using std::string_literals::operator""s;

// Id 1, price 2.5, status 3; "Soap", none, a length below 0, an empty text.
const test::Bytes kBytes = test::Hex(
    "01 00 00 00 00 00 00 00 00 00 04 40 03 00 05 00 00 00 53 6f 61 70 00 00 00 00 00 fe ff ff ff "
    "01 00 00 00 00");

TEST(StoredResultTest, HasEverythingThatTheBytesTell) {
  ASSERT_EQ(SizeOfResult(kBytes), kBytes.size());
  const StoredResult result = DecodeResult(kBytes);
  EXPECT_EQ(result.Id, 1);
  EXPECT_EQ(result.Price, 2.5);
  EXPECT_EQ(result.Status, 3);
  EXPECT_EQ(result.texts[0], (StoredResultText{5, "Soap\0"s}));
  EXPECT_EQ(result.texts[1], (StoredResultText{0, ""}));
  EXPECT_EQ(result.texts[2], (StoredResultText{-2, ""}));
  EXPECT_EQ(result.texts[3], (StoredResultText{1, "\0"s}));
}

TEST(StoredResultTest, ThereAndBack) {
  EXPECT_EQ(EncodeResult(DecodeResult(kBytes)),
            std::string(reinterpret_cast<const char*>(kBytes.data()), kBytes.size()));
}

TEST(StoredResultTest, ACutOneHasNoSize) {
  for (std::size_t size = 0; size < kBytes.size(); ++size) {
    EXPECT_EQ(SizeOfResult(std::span(kBytes).first(size)), 0U) << size;
  }
}

}  // namespace
}  // namespace brovanta::data_tool
