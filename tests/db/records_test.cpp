#include "db/records.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/db/golden_records.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Hex;
using test::Join;
using test::Padded;

template <std::size_t N>
Bytes ToBytes(const std::array<std::byte, N>& array) {
  return Bytes(array.begin(), array.end());
}

TEST(RecordsTest, DiscountIsLaidOutByteByByte) {
  EXPECT_EQ(ToBytes(EncodeDiscount(test::GoldenDiscount())), test::GoldenDiscountBytes());
}

TEST(RecordsTest, DiscountIsReadByteByByte) {
  const Bytes bytes = test::GoldenDiscountBytes();
  EXPECT_EQ(DecodeDiscount(std::span<const std::byte, 400>(bytes)), test::GoldenDiscount());
}

TEST(RecordsTest, ProductIsLaidOutByteByByte) {
  EXPECT_EQ(ToBytes(EncodeProduct(test::GoldenProduct())), test::GoldenProductBytes());
}

TEST(RecordsTest, ProductIsReadByteByByte) {
  const Bytes bytes = test::GoldenProductBytes();
  EXPECT_EQ(DecodeProduct(std::span<const std::byte, 456>(bytes)), test::GoldenProduct());
}

TEST(RecordsTest, ListItemIsLaidOutByteByByte) {
  ListItem item;
  item.Id = 5000;
  item.Name.Assign("Corner Shop");
  item.Count = 7;
  EXPECT_EQ(ToBytes(EncodeListItem(item)),
            Join({test::Run(4), Hex("88 13 00 00"), Padded("Corner Shop", 50), test::Run(2),
                  Hex("07 00 00 00")}));
}

TEST(RecordsTest, ListItemIsReadByteByByte) {
  const Bytes bytes = Join({Hex("11 22 33 44"), Hex("88 13 00 00"), Padded("Corner Shop", 50),
                            Hex("55 66"), Hex("07 00 00 00")});
  const ListItem item = DecodeListItem(std::span<const std::byte, 64>(bytes));
  EXPECT_EQ(item.Id, 5000);
  EXPECT_EQ(item.Name.view(), "Corner Shop");
  EXPECT_EQ(item.Count, 7);
}

TEST(RecordsTest, ReservedAndPaddingBytesAreIgnoredOnReadingAndWrittenAsZero) {
  Bytes discount = test::GoldenDiscountBytes();
  for (const std::size_t at : {0U, 3U, 4U, 7U, 398U, 399U}) discount[at] = std::byte{0xEE};
  EXPECT_EQ(DecodeDiscount(std::span<const std::byte, 400>(discount)), test::GoldenDiscount());

  Bytes product = test::GoldenProductBytes();
  for (const std::size_t at :
       {0U, 7U, 322U, 323U, 342U, 343U, 358U, 359U, 376U, 379U, 388U, 436U, 439U, 449U, 455U}) {
    product[at] = std::byte{0xEE};
  }
  const ProductRecord record = DecodeProduct(std::span<const std::byte, 456>(product));
  EXPECT_EQ(record, test::GoldenProduct());
  EXPECT_EQ(ToBytes(EncodeProduct(record)), test::GoldenProductBytes());
}

TEST(RecordsTest, ExtremeNumbersSurvive) {
  DiscountRecord record;
  record.Id = std::numeric_limits<std::int32_t>::min();
  record.Source = -2;
  record.EndDate = -1;
  record.StoreId = 0xFFFFFFFFu;
  record.ValueType = 0xFFFF;
  record.Value = -std::numeric_limits<double>::infinity();
  const DiscountBytes bytes = EncodeDiscount(record);
  EXPECT_EQ(DecodeDiscount(bytes), record);
}

TEST(FixedTextTest, SixtyCharactersAreStoredAsTheFirstFortyNineAndAZero) {
  const std::string sixty = "abcdefghijabcdefghijabcdefghijabcdefghijabcdefghijabcdefghij";
  DiscountRecord record;
  record.Name.Assign(sixty);
  const DiscountBytes bytes = EncodeDiscount(record);
  const Bytes field(bytes.begin() + 12, bytes.begin() + 62);
  EXPECT_EQ(field, Padded("abcdefghijabcdefghijabcdefghijabcdefghijabcdefghi", 50));
  EXPECT_EQ(record.Name.view(), sixty.substr(0, 49));
}

TEST(FixedTextTest, FortyNineCharactersFitWhole) {
  const std::string text(49, 'x');
  EXPECT_EQ(FixedText<50>(text).view(), text);
}

TEST(FixedTextTest, ShortAndLongTextsAreCutToTheirFields) {
  EXPECT_EQ(FixedText<10>("0123456789ab").view(), "012345678");
  EXPECT_EQ(FixedText<250>(std::string(300, 'n')).view(), std::string(249, 'n'));
}

TEST(FixedTextTest, AssigningAShorterTextLeavesNothingOfTheOldOne) {
  FixedText<10> text("12345678");
  text.Assign("ab");
  EXPECT_EQ(text.bytes(), (std::array<char, 10>{'a', 'b'}));
}

TEST(FixedTextTest, AnEmbeddedZeroEndsTheText) {
  EXPECT_EQ(FixedText<10>(std::string_view("ab\0cd", 5)).bytes(), (std::array<char, 10>{'a', 'b'}));
}

TEST(FixedTextTest, AFieldWithoutZeroIsReadToItsEnd) {
  FixedText<10> text;
  text.AssignWhole("0123456789ab");
  EXPECT_EQ(text.view(), "0123456789");
  const Bytes bytes = Padded("abcdefghijk", 10);
  text = FixedText<10>(bytes.data());
  EXPECT_EQ(text.view(), "abcdefghij");
  EXPECT_FALSE(text.empty());
}

}  // namespace
}  // namespace brovanta
