// Marking products as deleted, passed over or purchased, checked in the files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>

#include "db/error_codes.h"
#include "db/product_list.h"
#include "platform/file.h"
#include "tests/db/product_list_fixture.h"

namespace brovanta {
namespace {

using test::At;
using test::Bytes;
using test::Hex;
using test::kDay;
using test::ProductFile;
using test::StoredProduct;
using testing::ElementsAre;
using testing::IsEmpty;

/// While it lives, no file of this process grows beyond a size, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) {
    previous_action_ = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &previous_);
    rlimit limit = previous_;
    limit.rlim_cur = size;
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &previous_);
    std::signal(SIGXFSZ, previous_action_);
  }

 private:
  rlimit previous_{};
  void (*previous_action_)(int) = nullptr;
};

class ProductListMarkTest : public test::ProductListFixture {
 protected:
  /// A recurring product with something in every field, reserved bytes included.
  [[nodiscard]] static StoredProduct Weekly() {
    StoredProduct product{.reserved = test::Run(8, 0xAB),
                          .id = 2,
                          .name = "Caf\xE9",
                          .short_text = "beans",
                          .notes = "dark",
                          .store = 5,
                          .category = 6,
                          .unit = 7,
                          .kind = 3,
                          .every = 2,
                          .day_value = 1,
                          .start = At(2024, 4, 22),
                          .last_purchased = At(2024, 4, 22),
                          .next_date = 123,
                          .days_overdue = 45,
                          .price = 9.5,
                          .quantity = 1.5,
                          .tax = 7.0,
                          .padding = test::Run(2, 0xCD)};
    product.slots = {{{1, 1, 101}, {2, 2, 3}, {}, {}, {9, 0, 102}}};
    return product;
  }

  /// What is appended when it is bought now: kept fields, and nothing computed or reserved.
  [[nodiscard]] StoredProduct PurchaseOfWeekly(std::int32_t id) const {
    StoredProduct purchase = Weekly();
    purchase.reserved = test::Run(8);
    purchase.padding = test::Run(2);
    purchase.id = id;
    purchase.start = now_;
    purchase.last_purchased = 0;
    purchase.next_date = 0;
    purchase.days_overdue = 0;
    return purchase;
  }

  [[nodiscard]] StoredProduct BoughtWeekly() const {
    StoredProduct product = Weekly();
    product.last_purchased = today_;
    return product;
  }
};

TEST_F(ProductListMarkTest, DeleteSetsOneByteAndTakesTheProductOutOfTheList) {
  const StoredProduct other{.id = 1, .start = now_};
  WriteProducts({other, Weekly()});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductDelete), 2);
  StoredProduct deleted = Weekly();
  deleted.deleted = 1;
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {other, deleted}));
  EXPECT_THAT(Ids(), ElementsAre(1));
}

TEST_F(ProductListMarkTest, DeletingAPurchaseWorksOnThePurchases) {
  WriteProducts({{.id = 1, .start = now_}});
  WritePurchases({{.id = 1, .start = now_}});
  ASSERT_EQ(LoadAll(kPurchaseKind), 0);
  EXPECT_EQ(list().Mark(kPurchaseKind, 1, kProductDelete), 1);
  EXPECT_EQ(FileBytes(kPurchases), ProductFile(last_id_, {{.id = 1, .start = now_, .deleted = 1}}));
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {{.id = 1, .start = now_}}));
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListMarkTest, PassingOverWritesTodayAsTheLastPurchaseAndNothingElse) {
  WriteProducts({Weekly()});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPassOver), 2);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {BoughtWeekly()}));
  EXPECT_FALSE(folder_.Read(kPurchases).has_value());
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListMarkTest, APurchasedProductIsAppendedToThePurchases) {
  WriteProducts({Weekly()});
  const StoredProduct earlier{.id = 17, .start = At(2024, 1, 1)};
  WritePurchases({earlier});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {BoughtWeekly()}));
  EXPECT_EQ(FileBytes(kPurchases),
            ProductFile(last_id_ + 1, {earlier, PurchaseOfWeekly(last_id_ + 1)}));
}

TEST_F(ProductListMarkTest, TheFirstPurchaseMakesItsFile) {
  WriteProducts({Weekly()});
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  EXPECT_EQ(FileBytes(kPurchases), ProductFile(1, {PurchaseOfWeekly(1)}));
}

TEST_F(ProductListMarkTest, ThePurchaseIsNotPutAmongTheProducts) {
  WriteProducts({Weekly()});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ASSERT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListMarkTest, AListOfPurchasesTakesThePurchaseUp) {
  WriteProducts({Weekly()});
  WritePurchases({{.id = 2, .start = now_}});
  ASSERT_EQ(LoadAll(kPurchaseKind), 0);
  ASSERT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  // The purchase with the product's id is another record and stays.
  EXPECT_THAT(Ids(), ElementsAre(2, last_id_ + 1));
  EXPECT_EQ(list().Find(last_id_ + 1)->StartDate, now_);
}

TEST_F(ProductListMarkTest, APurchaseOutsideTheFilterIsNotTakenUp) {
  WriteProducts({Weekly()});
  WritePurchases({});
  ProductFilter filter;
  filter.kind = kPurchaseKind;
  filter.to = now_ - 1;
  ASSERT_EQ(list().Load(&filter), 0);
  ASSERT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListMarkTest, APurchaseCanBePurchasedAgain) {
  WritePurchases({Weekly()});
  ASSERT_EQ(LoadAll(kPurchaseKind), 0);
  EXPECT_EQ(list().Mark(kPurchaseKind, 2, kProductPurchased), 2);
  EXPECT_EQ(FileBytes(kPurchases),
            ProductFile(last_id_ + 1, {BoughtWeekly(), PurchaseOfWeekly(last_id_ + 1)}));
  EXPECT_THAT(Ids(), ElementsAre(last_id_ + 1));
}

TEST_F(ProductListMarkTest, ARecurringProductComesBackWithItsNextDate) {
  WriteProducts({Weekly()});  // Mondays, every second: April 22, May 6, May 20
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ASSERT_EQ(list().Find(2)->NextDate, At(2024, 5, 6));
  ASSERT_EQ(list().Mark(kProductKind, 2, kProductPurchased), 2);
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Find(2)->NextDate, At(2024, 5, 20));
}

TEST_F(ProductListMarkTest, AOneTimeProductThatWasPurchasedDoesNotComeBack) {
  WriteProducts({{.id = 1, .start = now_}});
  ASSERT_EQ(list().Mark(kProductKind, 1, kProductPurchased), 1);
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListMarkTest, ANameThatFillsItsFieldIsCutInThePurchase) {
  WriteProducts({{.id = 1, .name = std::string(50, 'x'), .start = now_}});
  ASSERT_EQ(list().Mark(kProductKind, 1, kProductPurchased), 1);
  EXPECT_EQ(FileBytes(kPurchases),
            ProductFile(1, {{.id = 1, .name = std::string(49, 'x'), .start = now_}}));
}

TEST_F(ProductListMarkTest, AFailingPurchaseLeavesTheProductAsItWas) {
  Bytes wrong_magic = ProductFile(1, {});
  wrong_magic[0] = std::byte{0};
  Bytes no_end_mark = ProductFile(1, {});
  no_end_mark[8] = std::byte{0};
  const Bytes used_up = ProductFile(0x7FFFFFFF, {});
  const struct {
    const Bytes* purchases;
    int code;
  } cases[] = {{&wrong_magic, ERR_IO}, {&no_end_mark, ERR_FORMAT}, {&used_up, ERR_IO}};
  for (const auto& [purchases, code] : cases) {
    WriteProducts({Weekly()});
    folder_.Write(kPurchases, *purchases);
    ASSERT_EQ(LoadAll(kProductKind), 0);
    EXPECT_EQ(list().Mark(kProductKind, 2, kProductPurchased), code);
    EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {Weekly()}));
    EXPECT_EQ(FileBytes(kPurchases), *purchases);
    EXPECT_THAT(Ids(), ElementsAre(2));
  }
}

TEST_F(ProductListMarkTest, PurchasesThatCannotBeOpenedLeaveTheProductAsItWas) {
  WriteProducts({Weekly()});
  std::filesystem::create_directory(folder_.File(kPurchases));
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPurchased), ERR_OPEN);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {Weekly()}));

  std::filesystem::remove(folder_.File(kPurchases));
  WritePurchases({});
  platform::File other;
  ASSERT_TRUE(other.Open(folder_.File(kPurchases), platform::File::Mode::kRead));
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPurchased), ERR_OPEN);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {Weekly()}));
}

TEST_F(ProductListMarkTest, AFullDiskLeavesBothFilesAsTheyWere) {
  WriteProducts({Weekly()});
  WritePurchases({Weekly()});
  const Bytes products = FileBytes(kProducts);
  const Bytes purchases = FileBytes(kPurchases);
  ASSERT_EQ(LoadAll(kProductKind), 0);
  int code = 0;
  {
    const FileSizeLimit full(purchases.size() + 100);
    code = list().Mark(kProductKind, 2, kProductPurchased);
  }
  EXPECT_EQ(code, ERR_IO);
  EXPECT_EQ(FileBytes(kProducts), products);
  EXPECT_EQ(FileBytes(kPurchases), purchases);
  EXPECT_THAT(Ids(), ElementsAre(2));
}

TEST_F(ProductListMarkTest, AnyOtherActionChangesNothing) {
  WriteProducts({Weekly()});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Mark(kProductKind, 2, 0), 2);
  EXPECT_EQ(list().Mark(kProductKind, 2, 4), 2);
  EXPECT_EQ(list().Mark(kProductKind, 3, 4), ERR_NOT_FOUND);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {Weekly()}));
  EXPECT_THAT(Ids(), ElementsAre(2));
}

TEST_F(ProductListMarkTest, AnotherKindGivesMinusOne) {
  EXPECT_EQ(list().Mark(0, 1, kProductDelete), -1);
  EXPECT_EQ(list().Mark(3, 1, kProductDelete), -1);
}

TEST_F(ProductListMarkTest, CodesOfFilesThatCannotBeSearched) {
  EXPECT_EQ(list().Mark(kProductKind, 1, kProductDelete), ERR_OPEN);
  folder_.Write(kProducts, Hex("80 38 01 00 00 00 00 00 83 38 01 00"));
  EXPECT_EQ(list().Mark(kProductKind, 1, kProductDelete), ERR_FORMAT);
  folder_.Write(kProducts, Hex("81 38 01 00 00 00 00 00 84 38 01 00"));
  EXPECT_EQ(list().Mark(kProductKind, 1, kProductDelete), ERR_FORMAT);
  folder_.Write(kProducts,
                test::Join({Hex("81 38 01 00 00 00 00 00 82 38 01 00"), test::Run(455)}));
  EXPECT_EQ(list().Mark(kProductKind, 1, kProductDelete), ERR_IO);
}

TEST_F(ProductListMarkTest, AnAbsentIdIsNotFound) {
  WriteProducts({Weekly()});
  EXPECT_EQ(list().Mark(kProductKind, 9, kProductDelete), ERR_NOT_FOUND);
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {Weekly()}));
}

TEST_F(ProductListMarkTest, MarkMeansTheFirstRecordWithTheIdThatIsNotDeleted) {
  const StoredProduct deleted{.id = 2, .name = "Old", .deleted = 1};
  const StoredProduct live{.id = 2, .name = "Live", .start = now_};
  const StoredProduct later{.id = 2, .name = "Later", .start = now_ + kDay};
  WriteProducts({deleted, live, later});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductDelete), 2);
  StoredProduct marked = live;
  marked.deleted = 1;
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {deleted, marked, later}));
  ASSERT_EQ(list().size(), 1U);
  EXPECT_EQ(list().First()->Name.view(), "Later");

  EXPECT_EQ(list().Mark(kProductKind, 2, kProductDelete), 2);
  EXPECT_EQ(list().Mark(kProductKind, 2, kProductPassOver), 2);  // all deleted: the first
  EXPECT_EQ(list().size(), 0U);
  StoredProduct passed_over = deleted;
  passed_over.last_purchased = today_;
  StoredProduct later_marked = later;
  later_marked.deleted = 1;
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {passed_over, marked, later_marked}));
}

}  // namespace
}  // namespace brovanta
