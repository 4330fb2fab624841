#include <gmock/gmock.h>

#include "server/store.h"
#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using StoreImportTest = StoreTest;

TEST_F(StoreImportTest, AnEntryTakesThePlaceOfTheOneWithItsId) {
  PutLists();
  Import import;
  import.stores = RowsOf<ListEntry>({{2, "Other"}, { 9, "Nine" }});
  EXPECT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_THAT(Entries(ListKind::kStores), ElementsAre(ListEntry{1, "One"}, ListEntry{2, "Other"},
                                                      ListEntry{3, "Three"}, ListEntry{9, "Nine"}));
}

TEST_F(StoreImportTest, ReplacingEmptiesTheTableFirst) {
  PutLists();
  Import import;
  import.replace = true;
  import.stores = RowsOf<ListEntry>({{ 9, "Nine" }});
  EXPECT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_THAT(Entries(ListKind::kStores), ElementsAre(ListEntry{9, "Nine"}));
  EXPECT_THAT(Entries(ListKind::kCategories), SizeIs(3));
}

TEST_F(StoreImportTest, ACouponTakesThePlaceOfTheOneWithItsKey) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1), SimpleCoupon(CouponSource::kDeal, 1)});
  Coupon changed = SimpleCoupon(CouponSource::kDeal, 1, 3, 3);
  changed.value = "9";
  PutCoupons({changed});
  EXPECT_THAT(Coupons(), ElementsAre(SimpleCoupon(CouponSource::kCoupon, 1), changed));
}

TEST_F(StoreImportTest, ReplacingCouponsForgetsTheOldOnes) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1), SimpleCoupon(CouponSource::kCoupon, 2)});
  Import import;
  import.replace = true;
  import.coupons = RowsOf<Coupon>({SimpleCoupon(CouponSource::kCoupon, 3)});
  EXPECT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_THAT(Coupons(), ElementsAre(SimpleCoupon(CouponSource::kCoupon, 3)));
}

TEST_F(StoreImportTest, ACouponOfAnUnknownStoreBringsNothingIn) {
  PutLists();
  Import import;
  import.coupons = RowsOf<Coupon>({SimpleCoupon(CouponSource::kCoupon, 1),
                                   SimpleCoupon(CouponSource::kCoupon, 2, 1, 77),
                                   SimpleCoupon(CouponSource::kCoupon, 3, 88, 1)});
  EXPECT_THAT(store_->Apply(import),
              ElementsAre(Problem{3, "there is no category 77; import it first"},
                          Problem{4, "there is no store 88; import it first"}));
  EXPECT_THAT(Coupons(), IsEmpty());
}

TEST_F(StoreImportTest, AStoreThatCouponsBelongToCannotGo) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 5, 1), SimpleCoupon(CouponSource::kDeal, 6, 2)});
  Import import;
  import.replace = true;
  import.stores = RowsOf<ListEntry>({{ 1, "Changed" }});
  EXPECT_THAT(store_->Apply(import),
              ElementsAre(Problem{0, "lacks store 2, to which deal 6 belongs"}));
  EXPECT_THAT(Entries(ListKind::kStores), SizeIs(3));
  EXPECT_EQ(Entries(ListKind::kStores)[0].name, "One");
}

TEST_F(StoreImportTest, OneImportMayBringEverything) {
  Import import;
  import.coupons = RowsOf<Coupon>({SimpleCoupon(CouponSource::kCoupon, 1, 4, 5)});
  import.stores = RowsOf<ListEntry>({{ 4, "Four" }});
  import.categories = RowsOf<ListEntry>({{ 5, "Five" }});
  import.agents = std::string("a\0b", 3);
  EXPECT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_THAT(Coupons(), SizeIs(1));
  std::optional<std::string> bytes;
  ASSERT_TRUE(store_->ReadAgentFile(bytes));
  EXPECT_EQ(bytes, std::string("a\0b", 3));
}

TEST_F(StoreImportTest, TheAgentFileIsReplaced) {
  for (const char* text : {"old", "new"}) {
    Import import;
    import.agents = text;
    ASSERT_THAT(store_->Apply(import), IsEmpty());
  }
  std::optional<std::string> bytes;
  ASSERT_TRUE(store_->ReadAgentFile(bytes));
  EXPECT_EQ(bytes, "new");
}

TEST_F(StoreImportTest, TellsOnlySoManyProblems) {
  PutLists();
  std::vector<Coupon> coupons;
  for (int id = 1; id <= 500; ++id) coupons.push_back(SimpleCoupon(CouponSource::kDeal, id, 9, 9));
  Import import;
  import.coupons = RowsOf(coupons);
  EXPECT_THAT(store_->Apply(import), SizeIs(kMaxProblems));
}

TEST_F(StoreImportTest, AFailureToWriteBringsNothingIn) {
  PutLists();
  std::string error;
  const auto raw = sqlite::Connection::Open(path(), sqlite::OpenMode::kMustExist, error);
  ASSERT_TRUE(
      raw->Run("CREATE TRIGGER full BEFORE INSERT ON store WHEN new.id = 7"
               " BEGIN SELECT RAISE(ABORT, 'disk is full'); END"));
  Import import;
  import.stores = RowsOf<ListEntry>({{6, "Six"}, { 7, "Seven" }});
  const auto problems = store_->Apply(import);
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_THAT(problems[0].message, testing::HasSubstr("disk is full"));
  EXPECT_THAT(Entries(ListKind::kStores), SizeIs(3));
}

TEST_F(StoreImportTest, WithdrawsCouponsBeforeTheNewOnesCome) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1), SimpleCoupon(CouponSource::kDeal, 1),
              SimpleCoupon(CouponSource::kCoupon, 2)});
  Import import;
  import.withdrawn = {{CouponSource::kCoupon, 1},
                      {CouponSource::kCoupon, 2},
                      { CouponSource::kDeal,
                        9 }};
  import.coupons = RowsOf<Coupon>({SimpleCoupon(CouponSource::kCoupon, 2, 3, 3)});
  EXPECT_EQ(store_->Apply(import), std::vector<Problem>{});
  EXPECT_EQ(Coupons(), (std::vector<Coupon>{SimpleCoupon(CouponSource::kDeal, 1),
                                            SimpleCoupon(CouponSource::kCoupon, 2, 3, 3)}));
}

TEST_F(StoreImportTest, AmendsWhatIsThereWholeOrNotAtAll) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1)});
  const auto before = Coupons();
  const auto faulty = [&before](const std::vector<Coupon>& coupons, const std::string& agents) {
    EXPECT_EQ(coupons, before);
    EXPECT_EQ(agents, "");
    Import import;
    import.agents = "new";
    import.withdrawn = {{ CouponSource::kCoupon, 1 }};
    import.coupons = RowsOf<Coupon>({SimpleCoupon(CouponSource::kCoupon, 2, 99)});
    return import;
  };
  EXPECT_EQ(store_->Amend(faulty).size(), 1u);
  EXPECT_EQ(Coupons(), before);
}

}  // namespace
}  // namespace brovanta::server
