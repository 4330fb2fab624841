// The pages in docs/formats/ say what record_format.h says, and their examples can be read.
#include "db/record_format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/name_list.h"
#include "db/record_file.h"
#include "db/records.h"
#include "tests/support/format_page.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::ExampleOf;
using test::ExpectWithoutGap;
using test::Rows;
using test::TableOf;

const Rows kRecordFileFrame = {{"FILE_MAGIC", 0, kWordSize, "uint32"},
                               {"LastId", kLastIdOffset, kWordSize, "int32"},
                               {"first mark", kFirstRecordMark, kWordSize, "uint32"}};

TEST(RecordFormatTest, MarksHaveTheirValues) {
  EXPECT_EQ(FILE_MAGIC, 80001u);
  EXPECT_EQ(RECORD_MARK, 80002u);
  EXPECT_EQ(END_MARK, 80003u);
}

TEST(RecordFormatTest, RecordSizesAreThoseOfTheFiles) {
  EXPECT_EQ(discount_layout::kSize, 400u);
  EXPECT_EQ(product_layout::kSize, 456u);
  EXPECT_EQ(list_layout::kSize, 64u);
  EXPECT_EQ(kEmptyRecordFile, 12u);
  EXPECT_EQ(kEmptyListFile, 8u);
}

TEST(RecordFormatTest, DiscountPageAgrees) {
  namespace layout = discount_layout;
  EXPECT_EQ(TableOf("discount.md", "File"), kRecordFileFrame);
  const Rows rows = TableOf("discount.md", "Record");
  EXPECT_EQ(rows, (Rows{{"reserved", 0, 8, "-"},
                        {"Id", layout::kId, 4, "int32"},
                        {"Name", layout::kName, kNameSize, "text"},
                        {"Product", layout::kProduct, kNameSize, "text"},
                        {"Description", layout::kDescription, kLongTextSize, "text"},
                        {"Source", layout::kSource, 2, "int16"},
                        {"Type", layout::kType, 2, "int16"},
                        {"ValueType", layout::kValueType, 2, "uint16"},
                        {"Value", layout::kValue, 8, "double"},
                        {"Stamp", layout::kStamp, 4, "date"},
                        {"StartDate", layout::kStartDate, 4, "date"},
                        {"EndDate", layout::kEndDate, 4, "date"},
                        {"StoreId", layout::kStoreId, 4, "uint32"},
                        {"CategoryId", layout::kCategoryId, 4, "uint32"},
                        {"Flagged", layout::kFlagged, 1, "uint8"},
                        {"Deleted", layout::kDeleted, 1, "uint8"},
                        {"padding", 398, 2, "-"}}));
  ExpectWithoutGap(rows, layout::kSize);
}

TEST(RecordFormatTest, ProductPageAgrees) {
  namespace layout = product_layout;
  EXPECT_EQ(TableOf("product.md", "File"), kRecordFileFrame);
  const Rows rows = TableOf("product.md", "Record");
  EXPECT_EQ(rows, (Rows{{"reserved", 0, 8, "-"},
                        {"Id", layout::kId, 4, "int32"},
                        {"Name", layout::kName, kNameSize, "text"},
                        {"ShortText", layout::kShortText, kShortTextSize, "text"},
                        {"Notes", layout::kNotes, kLongTextSize, "text"},
                        {"padding", 322, 2, "-"},
                        {"StoreId", layout::kStoreId, 4, "uint32"},
                        {"CategoryId", layout::kCategoryId, 4, "uint32"},
                        {"UnitId", layout::kUnitId, 4, "uint32"},
                        {"PurchaseKind", layout::kPurchaseKind, 2, "uint16"},
                        {"Every", layout::kEvery, 2, "uint16"},
                        {"DayValue", layout::kDayValue, 2, "uint16"},
                        {"padding", 342, 2, "-"},
                        {"StartDate", layout::kStartDate, 4, "date"},
                        {"LastPurchased", layout::kLastPurchased, 4, "date"},
                        {"NextDate", layout::kNextDate, 4, "date"},
                        {"DaysOverdue", layout::kDaysOverdue, 2, "uint16"},
                        {"padding", 358, 2, "-"},
                        {"UnitPrice", layout::kUnitPrice, 8, "double"},
                        {"Quantity", layout::kQuantity, 8, "double"},
                        {"Discounts", layout::kDiscounts, kSlotCount * layout::kSlotSize,
                         std::to_string(kSlotCount) + " slots"},
                        {"padding", 436, 4, "-"},
                        {"TaxPercent", layout::kTaxPercent, 8, "double"},
                        {"Deleted", layout::kDeleted, 1, "uint8"},
                        {"padding", 449, 7, "-"}}));
  ExpectWithoutGap(rows, layout::kSize);
  const Rows slot = TableOf("product.md", "Slot");
  EXPECT_EQ(slot, (Rows{{"reserved", 0, 4, "-"},
                        {"Id", layout::kSlotId, 4, "uint32"},
                        {"Source", layout::kSlotSource, 2, "int16"},
                        {"Type", layout::kSlotType, 2, "int16"}}));
  ExpectWithoutGap(slot, layout::kSlotSize);
}

TEST(RecordFormatTest, ListPageAgrees) {
  namespace layout = list_layout;
  EXPECT_EQ(TableOf("list.md", "File"),
            (Rows{{"FILE_MAGIC", 0, kWordSize, "uint32"},
                  {"first mark", kFirstListMark, kWordSize, "uint32"}}));
  const Rows rows = TableOf("list.md", "Record");
  EXPECT_EQ(rows, (Rows{{"reserved", 0, 4, "-"},
                        {"Id", layout::kId, 4, "int32"},
                        {"Name", layout::kName, kNameSize, "text"},
                        {"padding", 58, 2, "-"},
                        {"Count", layout::kCount, 4, "int32"}}));
  ExpectWithoutGap(rows, layout::kSize);
}

class FormatExampleTest : public testing::Test {
 protected:
  std::string Stored(const std::string& page) const {
    folder_.Write("example", ExampleOf(page));
    return folder_.File("example");
  }
  test::TempFolder folder_;
};

TEST_F(FormatExampleTest, Discount) {
  RecordScanner<DiscountFormat> scan;
  ASSERT_EQ(scan.Open(Stored("discount.md")), 0);
  EXPECT_EQ(scan.last_id(), 2);
  ASSERT_TRUE(scan.Next());
  DiscountRecord expected;
  expected.Id = 2;
  expected.Name.Assign("Soap offer");
  expected.Product.Assign("Soap");
  expected.Description.Assign("Half price");
  expected.Type = 2;
  expected.ValueType = 1;
  expected.Value = 50.0;
  expected.Stamp = 1112749200;
  expected.EndDate = 1114822800;
  expected.StoreId = 5000;
  EXPECT_EQ(scan.Decode(), expected);
  EXPECT_FALSE(scan.Next());
  EXPECT_EQ(scan.code(), 0);
}

TEST_F(FormatExampleTest, Product) {
  RecordScanner<ProductFormat> scan;
  ASSERT_EQ(scan.Open(Stored("product.md")), 0);
  EXPECT_EQ(scan.last_id(), 1);
  ASSERT_TRUE(scan.Next());
  ProductRecord expected;
  expected.Id = 1;
  expected.Name.Assign("Oat milk");
  expected.Notes.Assign("barista");
  expected.StoreId = 5000;
  expected.UnitId = 5001;
  expected.PurchaseKind = 3;
  expected.Every = 2;
  expected.DayValue = 3;
  expected.StartDate = 1112144400;
  expected.LastPurchased = 1112749200;
  expected.UnitPrice = 1.99;
  expected.Quantity = 2.0;
  expected.Discounts[0] = {2, 0, 102};
  expected.TaxPercent = 8.25;
  EXPECT_EQ(scan.Decode(), expected);
  EXPECT_FALSE(scan.Next());
  EXPECT_EQ(scan.code(), 0);
}

TEST_F(FormatExampleTest, List) {
  NameList list;
  ASSERT_EQ(list.Load(Stored("list.md")), 0);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list.Find(7)->Name.view(), "Mega");
  EXPECT_EQ(list.Find(5000)->Name.view(), "Caf\xE9");
}

}  // namespace
}  // namespace brovanta
