#include "data/check_records.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/data/sample_folder.h"
#include "util/little_endian.h"

namespace brovanta::data_tool {
namespace {

using test::Hex;
using test::Join;
using testing::ElementsAre;
using testing::IsEmpty;

/// A file of the records behind a LastId of 9.
template <typename Encoded>
test::Bytes FileOf(const std::vector<Encoded>& records) {
  test::Bytes bytes = Hex("81 38 01 00 09 00 00 00");
  for (const Encoded& record : records) {
    bytes = Join({bytes, Hex("82 38 01 00"), test::Bytes(record.begin(), record.end())});
  }
  return Join({bytes, Hex("83 38 01 00")});
}

class CheckRecordsTest : public testing::Test {
 protected:
  CheckRecordsTest() {
    names_.stores.emplace({7U});
    names_.categories.emplace({8U});
    names_.units.emplace({9U});
  }

  std::vector<std::string> Products(const std::vector<ProductBytes>& records,
                                    const DiscountIndex* discounts = nullptr) {
    return ProductFile(FileOf(records), discounts);
  }
  std::vector<std::string> ProductFile(const test::Bytes& bytes,
                                       const DiscountIndex* discounts = nullptr) {
    std::vector<Finding> findings;
    FileNotes notes("p", findings);
    report_ = {};
    CheckProducts(bytes, names_, discounts, report_, notes);
    return test::Lines(findings);
  }
  std::vector<std::string> Discounts(const std::vector<DiscountBytes>& records) {
    std::vector<Finding> findings;
    FileNotes notes("d", findings);
    report_ = {};
    index_ = CheckDiscounts(FileOf(records), names_, report_, notes);
    return test::Lines(findings);
  }

  KnownNames names_;
  FileReport report_;
  std::optional<DiscountIndex> index_;
};

ProductRecord Product(std::int32_t id) {
  ProductRecord record;
  record.Id = id;
  record.Name.Assign("Milk");
  return record;
}

DiscountRecord Discount(std::int32_t id, std::int16_t source, std::int16_t type = 2) {
  DiscountRecord record;
  record.Id = id;
  record.Source = source;
  record.Type = type;
  return record;
}

TEST_F(CheckRecordsTest, SoundProductsGiveNothing) {
  ProductRecord all = Product(2);
  all.StoreId = 7;
  all.CategoryId = 8;
  all.UnitId = 9;
  all.PurchaseKind = 4;
  ProductRecord deleted = Product(1);
  deleted.Deleted = 1;
  EXPECT_THAT(Products({EncodeProduct(Product(1)), EncodeProduct(all), EncodeProduct(deleted)}),
              IsEmpty());
  EXPECT_EQ(report_.records, 3U);
  EXPECT_EQ(report_.deleted, 1U);
}

TEST_F(CheckRecordsTest, IdsOfProducts) {
  EXPECT_THAT(Products({EncodeProduct(Product(0))}),
              ElementsAre("error p 20 #0: the id is 0, below 1"));
  EXPECT_THAT(Products({EncodeProduct(Product(10))}),
              ElementsAre("error p 20 #10: the id is above LastId 9 and will be given out again"));
  EXPECT_THAT(Products({EncodeProduct(Product(3)), EncodeProduct(Product(3))}),
              ElementsAre("error p 480 #3: a live record with this id stands in front of it "
                          "already; only that one can be changed"));
}

TEST_F(CheckRecordsTest, LastIdBelowThatOfAnEmptyFile) {
  EXPECT_THAT(ProductFile(Hex("81 38 01 00 ff ff ff ff 83 38 01 00")),
              ElementsAre("error p 4 #-: LastId is -1, below the 0 of an empty file"));
  std::vector<Finding> findings;
  FileNotes notes("d", findings);
  EXPECT_TRUE(CheckDiscounts(Hex("81 38 01 00 00 00 00 00 83 38 01 00"), names_, report_, notes));
  EXPECT_THAT(test::Lines(findings),
              ElementsAre("error d 4 #-: LastId is 0, below the 1 of an empty file"));
}

TEST_F(CheckRecordsTest, ReferencesToLists) {
  ProductRecord record = Product(1);
  record.StoreId = 70;
  record.CategoryId = 80;
  record.UnitId = 90;
  EXPECT_THAT(Products({EncodeProduct(record)}),
              ElementsAre("warning p 336 #1: the store 70 is not in its list",
                          "warning p 340 #1: the category 80 is not in its list",
                          "warning p 344 #1: the unit 90 is not in its list"));
  record.Deleted = 1;
  EXPECT_THAT(Products({EncodeProduct(record)}), IsEmpty());
  record.Deleted = 0;
  names_ = {};  // lists that cannot be read say nothing
  EXPECT_THAT(Products({EncodeProduct(record)}), IsEmpty());
}

TEST_F(CheckRecordsTest, FieldsThatMakeNoSense) {
  ProductRecord record = Product(1);
  record.PurchaseKind = 5;
  record.UnitPrice = std::numeric_limits<double>::infinity();
  record.Quantity = std::numeric_limits<double>::quiet_NaN();
  record.Deleted = 2;
  ProductBytes bytes = EncodeProduct(record);
  for (std::size_t i = 0; i < 50; ++i) bytes[12 + i] = std::byte{'x'};
  EXPECT_THAT(Products({bytes}),
              ElementsAre("warning p 24 #1: the text Name has no zero at its end",
                          "warning p 348 #1: PurchaseKind is 5 and not 0 to 4",
                          "warning p 372 #1: UnitPrice is no finite number",
                          "warning p 380 #1: Quantity is no finite number",
                          "warning p 460 #1: Deleted is 2 and neither 0 nor 1"));
}

TEST_F(CheckRecordsTest, SoundDiscountsGiveNothing) {
  // Ids of the server stand above LastId, and each source has ids of its own.
  DiscountRecord deleted = Discount(40, 1);
  deleted.Deleted = 1;
  EXPECT_THAT(Discounts({EncodeDiscount(Discount(2, 0)), EncodeDiscount(Discount(40, 1)),
                         EncodeDiscount(Discount(40, 2)), EncodeDiscount(deleted)}),
              IsEmpty());
  EXPECT_EQ(report_.records, 4U);
  EXPECT_EQ(report_.deleted, 1U);
}

TEST_F(CheckRecordsTest, IdsAndReferencesOfDiscounts) {
  DiscountRecord record = Discount(40, 1);
  record.StoreId = 70;
  record.CategoryId = 80;
  record.Flagged = 3;
  record.Value = std::numeric_limits<double>::infinity();
  EXPECT_THAT(
      Discounts({EncodeDiscount(Discount(-1, 1)), EncodeDiscount(Discount(10, 0)),
                 EncodeDiscount(Discount(40, 1)), EncodeDiscount(record)}),
      ElementsAre("error d 20 #-1: the id is -1, below 1",
                  "warning d 424 #10: the id is above LastId 9 and will be given out again",
                  "warning d 1592 #40: Value is no finite number",
                  "warning d 1620 #40: Flagged is 3 and neither 0 nor 1",
                  "warning d 1232 #40: a live discount with this id and source 1 stands in front "
                  "of it already; only that one can be changed",
                  "warning d 1612 #40: the store 70 is not in its list",
                  "warning d 1616 #40: the category 80 is not in its list"));
}

TEST_F(CheckRecordsTest, CouponLinksLeadWhereTheProgramFindsThem) {
  DiscountRecord deleted = Discount(41, 1);
  deleted.Deleted = 1;
  ASSERT_THAT(Discounts({EncodeDiscount(Discount(40, 1)), EncodeDiscount(deleted)}), IsEmpty());
  ProductRecord record = Product(1);
  record.Discounts[0] = {40, 1, 2};    // the key
  record.Discounts[1] = {40, 0, 102};  // found by the search
  record.Discounts[2] = {40, 0, 103};  // found when its type was another one
  record.Discounts[3] = {41, 1, 2};    // deleted since
  record.Discounts[4] = {42, 1, 2};    // never there
  EXPECT_THAT(
      Products({EncodeProduct(record)}, &*index_),
      ElementsAre(
          "note p 412 #1: slot 3 links discount 40 of source 0, which is deleted or changed",
          "note p 424 #1: slot 4 links discount 41 of source 1, which is deleted or changed",
          "warning p 436 #1: slot 5 links discount 42 of source 1, which is not there"));
  EXPECT_THAT(Products({EncodeProduct(record)}), IsEmpty());  // purchases: history
}

TEST_F(CheckRecordsTest, ABrokenFrameGivesNoIndex) {
  std::vector<Finding> findings;
  FileNotes notes("d", findings);
  EXPECT_FALSE(CheckDiscounts(Hex("81 38 01 00 09 00 00 00"), names_, report_, notes));
  EXPECT_EQ(findings.size(), 1U);
}

}  // namespace
}  // namespace brovanta::data_tool
