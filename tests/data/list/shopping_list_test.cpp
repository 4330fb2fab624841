#include "data/list/shopping_list.h"

#include <gmock/gmock.h>

#include <random>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::ElementsAre;
using testing::IsEmpty;

class ShoppingListTest : public testing::Test {
 protected:
  static ShoppingList Build(const ShoppingData& data, const ListRequest& request = Today()) {
    const auto list = BuildShoppingList(data, request);
    EXPECT_TRUE(list.has_value());
    return list.value_or(ShoppingList{});
  }

  // Every line as "store/category/name".
  static std::vector<std::string> Paths(const ShoppingList& list) {
    std::vector<std::string> paths;
    for (const StoreGroup& store : list.stores) {
      for (const CategoryGroup& category : store.categories) {
        for (const ListLine& line : category.lines) {
          paths.push_back(store.name + "/" + category.name + "/" + line.name);
        }
      }
    }
    return paths;
  }

  static ListLine OnlyLine(const ProductRecord& product, const ListRequest& request = Today()) {
    ShoppingData data;
    data.products.push_back(product);
    const ShoppingList list = Build(data, request);
    return list.lines == 1 ? list.stores[0].categories[0].lines[0] : ListLine{};
  }

 private:
  AtNoon noon_;
};

TEST_F(ShoppingListTest, GroupsByStoreAndCategoryInTheOrderOfTheirNames) {
  ShoppingData data;
  Name(data.stores, 5000, "zoo");
  Name(data.stores, 5001, "Aldgate");
  Name(data.stores, 5002, "ZOO");
  Name(data.categories, 5000, "\xC4pfel");
  Name(data.categories, 5001, "Dairy");
  const auto add = [&](const char* name, std::uint32_t store, std::uint32_t category) {
    data.products.push_back(Product(name, 1, 1));
    data.products.back().StoreId = store;
    data.products.back().CategoryId = category;
  };
  add("milk", 5000, 5001);
  add("Butter", 5002, 5001);
  add("Soap", 5001, 0);
  add("Boskoop", 5001, 5000);
  add("Curd", 5001, 5001);
  add("Nails", 0, 0);
  add("Rope", 77, 0);
  EXPECT_THAT(Paths(Build(data)),
              ElementsAre("Aldgate/Dairy/Curd", "Aldgate/Äpfel/Boskoop", "Aldgate//Soap",
                          "ZOO/Dairy/Butter", "ZOO/Dairy/milk", "//Nails", "//Rope"));
}

TEST_F(ShoppingListTest, ShowsWhatTheMainScreenShows) {
  ShoppingData data;
  const auto add = [&](const char* name, DateStamp due) -> ProductRecord& {
    data.products.push_back(Product(name, 1, 1));
    data.products.back().StartDate = due;
    return data.products.back();
  };
  add("due", kToday);
  add("overdue", kToday - 40 * kDay);
  add("tomorrow", kToday + kDay);
  add("bought", kToday).LastPurchased = kToday;
  add("deleted", kToday).Deleted = 1;
  add("unscheduled", 0).PurchaseKind = kUnscheduled;
  ProductRecord& weekly = add("weekly", kToday - 7 * kDay);
  weekly.PurchaseKind = kWeekly;
  weekly.Every = 1;
  weekly.DayValue = 6;  // Saturday
  weekly.LastPurchased = kToday - 7 * kDay;
  EXPECT_THAT(Paths(Build(data)), ElementsAre("//due", "//overdue", "//unscheduled", "//weekly"));
  ListRequest tomorrow = Today();
  tomorrow.date.day = 22;
  EXPECT_THAT(Paths(Build(data, tomorrow)),
              ElementsAre("//due", "//overdue", "//tomorrow", "//unscheduled", "//weekly"));
}

TEST_F(ShoppingListTest, KeepsToOneStoreWhateverItsLetterCase) {
  ShoppingData data;
  Name(data.stores, 5000,
       "B\xE4"
       "cker");
  Name(data.stores, 5001, "Other");
  for (const std::uint32_t store : {5000U, 5001U, 0U}) {
    data.products.push_back(Product("Bread", 1, 1));
    data.products.back().StoreId = store;
  }
  ListRequest request = Today();
  request.store =
      "B\xC4"
      "CKER";
  EXPECT_TRUE(HasStore(data, *request.store));
  EXPECT_FALSE(HasStore(data, "Bread"));
  const ShoppingList list = Build(data, request);
  EXPECT_THAT(Paths(list), ElementsAre("Bäcker//Bread"));
  EXPECT_EQ(list.store, "BÄCKER");
  request.store = "";
  EXPECT_THAT(Paths(Build(data, request)), IsEmpty());
}

TEST_F(ShoppingListTest, AnEmptyListHasAPeriodAndNothingElse) {
  const ShoppingList list = Build({}, Today(PeriodKind::kWeek));
  EXPECT_EQ(list.period, "Nov 15 - 21, 2026");
  EXPECT_THAT(list.stores, IsEmpty());
  EXPECT_EQ(list.sum, Amounts());
  EXPECT_EQ(list.lines, 0U);
}

TEST_F(ShoppingListTest, OverdueIsWhatWasDueBeforeTodayOrBeforeThePeriod) {
  ProductRecord product = Product("Milk", 1, 1);
  EXPECT_FALSE(OnlyLine(product).overdue);
  product.StartDate = kToday - kDay;
  EXPECT_TRUE(OnlyLine(product).overdue);
  EXPECT_TRUE(OnlyLine(product, Today(PeriodKind::kWeek)).overdue);
  ListRequest past{PeriodKind::kWeek, Date(2026, 11, 10), std::nullopt};
  product.StartDate = kToday - 10 * kDay;
  EXPECT_FALSE(OnlyLine(product, past).overdue);
  product.PurchaseKind = kUnscheduled;
  EXPECT_FALSE(OnlyLine(product).overdue);
}

TEST_F(ShoppingListTest, CouponsAreJudgedOnTheDayOfBuying) {
  ShoppingData data;
  data.discounts.push_back(Coupon(5, kStoreCoupon, kAmount, 0.25));
  data.discounts[0].StartDate = kToday + 2 * kDay;
  data.discounts[0].EndDate = kToday + 4 * kDay;
  data.products.push_back(Product("Milk", 1, 1));
  Link(data.products[0], 0, data.discounts[0]);
  ListRequest month = Today(PeriodKind::kMonth);
  const auto state_when_due = [&](DateStamp due) {
    data.products[0].StartDate = due;
    return Build(data, month).stores[0].categories[0].lines[0].price.coupons[0].state;
  };
  EXPECT_EQ(state_when_due(kToday + 3 * kDay), CouponState::kTaken);
  EXPECT_EQ(state_when_due(kToday + 5 * kDay), CouponState::kExpired);
  EXPECT_EQ(state_when_due(kToday - 9 * kDay), CouponState::kNotYet);  // bought today
  month.date = Date(2026, 12, 1);
  EXPECT_EQ(state_when_due(kToday), CouponState::kExpired);  // bought on the first
}

TEST_F(ShoppingListTest, LinesCarryWhatIsPrinted) {
  ShoppingData data;
  Name(data.units, 5000, "bottle");
  data.products.push_back(Product("Milk\n1 l", 2.5, 1.5));
  data.products[0].UnitId = 5000;
  data.products[0].Notes = FixedText<kLongTextSize>("fresh\r\n\r\nnot from the shelf");
  const ListLine line = Build(data).stores[0].categories[0].lines[0];
  EXPECT_EQ(line.name, "Milk 1 l");
  EXPECT_EQ(line.unit, "bottle");
  EXPECT_EQ(line.notes, "fresh not from the shelf");
  EXPECT_EQ(line.quantity, "2.5");
  EXPECT_EQ(line.unit_price, "1.50");
  EXPECT_EQ(line.due, kToday);
}

TEST_F(ShoppingListTest, NumbersThatCannotBeShownAreEmpty) {
  EXPECT_EQ(OnlyLine(Product("Milk", 0, 0)).quantity, "1");
  EXPECT_EQ(OnlyLine(Product("Milk", 0, 0)).unit_price, "");
  EXPECT_EQ(OnlyLine(Product("Milk", -2, -3)).quantity, "-2");
  EXPECT_EQ(OnlyLine(Product("Milk", -2, -3)).unit_price, "-3.00");
  EXPECT_EQ(OnlyLine(Product("Milk", 1e300, 1e300)).quantity, "");
  EXPECT_EQ(OnlyLine(Product("Milk", 1, 1e300)).unit_price, "");
}

TEST_F(ShoppingListTest, LinesWithoutAPriceAreCountedAndAddNothing) {
  ShoppingData data;
  data.products = {Product("Milk", 2, 1.5), Product("Salt", 1, 0), Product("Debt", 1, -5)};
  const ShoppingList list = Build(data);
  EXPECT_EQ(list.lines, 3U);
  EXPECT_EQ(list.without_price, 2U);
  EXPECT_EQ(list.sum, (Amounts{300, 0, 0, 0, 0}));
}

// Random households: whatever they hold, lines add up to groups and groups to the whole.
class RandomHousehold {
 public:
  explicit RandomHousehold(std::uint32_t seed) : random_(seed) {}

  ShoppingData Make() {
    ShoppingData data;
    for (std::int32_t id = 1; id <= 4; ++id) {
      Name(data.stores, id, "Store " + std::to_string(id));
      Name(data.categories, id, "Category " + std::to_string(id));
    }
    for (std::int32_t id = 1; id <= 6; ++id) {
      data.discounts.push_back(Coupon(id, static_cast<std::int16_t>(1 + Upto(3)),
                                      static_cast<std::uint16_t>(1 + Upto(1)), Number()));
      data.discounts.back().StoreId = Upto(6) == 0 ? 1 : 0;
    }
    const std::uint32_t count = Upto(30);
    for (std::uint32_t i = 0; i < count; ++i) data.products.push_back(Thing(data));
    return data;
  }

 private:
  std::uint32_t Upto(std::uint32_t most) {
    return static_cast<std::uint32_t>(random_() % (most + 1));
  }

  // Typed with up to four decimals, and now and then what a damaged file may hold.
  double Number() {
    static const std::array kOdd{0.0,
                                 -1.5,
                                 1e300,
                                 5e-324,
                                 1e9,
                                 999999999.99,
                                 std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()};
    if (Upto(9) == 0) return kOdd[Upto(kOdd.size() - 1)];
    static const std::array kUnits{1.0, 10.0, 100.0, 1000.0, 10000.0};
    return Upto(50000) / kUnits[Upto(kUnits.size() - 1)];
  }

  ProductRecord Thing(const ShoppingData& data) {
    ProductRecord product = Product("Thing", Number(), Number());
    product.StoreId = Upto(4);
    product.CategoryId = Upto(4);
    product.TaxPercent = Upto(3) == 0 ? Number() : Upto(2500) / 100.0;
    for (std::size_t slot = 0; slot < product.Discounts.size(); ++slot) {
      if (Upto(2) == 0) Link(product, slot, data.discounts[Upto(5)]);
    }
    return product;
  }

  std::mt19937 random_;
};

void ExpectSum(const std::vector<Amounts>& parts, const Amounts& sum) {
  Amounts expected;
  for (const Amounts& part : parts) {
    expected.price += part.price;
    expected.tax_before += part.tax_before;
    expected.coupons += part.coupons;
    expected.tax += part.tax;
    expected.rebates += part.rebates;
  }
  EXPECT_EQ(expected, sum);
}

void ExpectSoundLine(const LinePrice& line) {
  Cents till = 0;
  Cents mail = 0;
  for (const LineCoupon& coupon : line.coupons) {
    EXPECT_GE(coupon.amount, 0);
    if (coupon.state == CouponState::kTaken) till += coupon.amount;
    if (coupon.state == CouponState::kRebate) mail += coupon.amount;
    if (coupon.state != CouponState::kTaken && coupon.state != CouponState::kRebate) {
      EXPECT_EQ(coupon.amount, 0);
    }
  }
  EXPECT_EQ(till, line.amounts.coupons);
  EXPECT_EQ(mail, line.amounts.rebates);
  EXPECT_LE(till + mail, line.amounts.price);
  EXPECT_LE(line.amounts.tax, line.amounts.tax_before);
  EXPECT_LE(line.amounts.price, kLargestAmount);
  if (line.state != PriceState::kPriced) {
    EXPECT_EQ(line.amounts, Amounts());
  }
}

TEST_F(ShoppingListTest, LinesAddUpToGroupsAndTotalsInThousandsOfLists) {
  std::size_t lines = 0;
  std::size_t with_coupons = 0;
  for (std::uint32_t seed = 1; seed <= 4000; ++seed) {
    SCOPED_TRACE(seed);
    const ShoppingList list = Build(RandomHousehold(seed).Make());
    std::vector<Amounts> stores;
    for (const StoreGroup& store : list.stores) {
      std::vector<Amounts> categories;
      for (const CategoryGroup& category : store.categories) {
        std::vector<Amounts> in_category;
        for (const ListLine& line : category.lines) {
          ExpectSoundLine(line.price);
          in_category.push_back(line.price.amounts);
          with_coupons += line.price.amounts.coupons > 0 ? 1 : 0;
          ++lines;
        }
        ExpectSum(in_category, category.sum);
        categories.push_back(category.sum);
      }
      ExpectSum(categories, store.sum);
      stores.push_back(store.sum);
    }
    ExpectSum(stores, list.sum);
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(lines, 50000U);
  EXPECT_GT(with_coupons, 10000U);
}

}  // namespace
}  // namespace brovanta::data_tool
