#include "ui/shell/first_rows.h"

#include <gmock/gmock.h>

#include "tests/ui/shell/main_screen.h"
#include "util/error_codes.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FirstRowsTest : public MainScreenTest {
 protected:
  std::unique_ptr<FirstRows> Begin(std::shared_future<void> begin = {}) {
    return std::make_unique<FirstRows>(std::make_unique<ShoppingDatabase>(), folder_.path(),
                                       std::move(begin));
  }

  void Show(std::unique_ptr<FirstRows> rows) {
    dialog_ = std::make_unique<MainDialog>(options_, std::move(rows),
                                           std::make_unique<SearchManager>(), folder_.path());
    dialog_->show();
  }

  static std::vector<std::string> NamesOf(const RecordRows& rows) {
    std::vector<std::string> names;
    for (std::size_t heading = 0; heading < rows.HeadingCount(); ++heading) {
      for (const RecordRow& row : rows.Under(heading)) {
        names.push_back(row.info().name.toStdString());
      }
    }
    return names;
  }
};

TEST_F(FirstRowsTest, AreTodaysProductsWithTheirStores) {
  AddProduct("Milk", kToday, "Corner Shop");
  AddProduct("Candles", kToday + kOneDay);
  const auto rows = Begin();
  EXPECT_EQ(rows->Wait(), 0);
  EXPECT_EQ(rows->query().from, kMidnight);
  EXPECT_EQ(rows->query().to, kMidnight + kOneDay - 1);
  const RecordRows taken = rows->Take();
  ASSERT_THAT(NamesOf(taken), ElementsAre("Milk"));
  EXPECT_EQ(taken.Under(0)[0].info().storeName.toStdString(), "Corner Shop");
  EXPECT_EQ(taken.Heading(0).Words().toStdString(), "Saturday 11/21/2026");
}

TEST_F(FirstRowsTest, HandTheOpenedDatabaseOver) {
  AddProduct("Milk", kToday, "Corner Shop");
  const auto rows = Begin();
  const auto database = rows->TakeDatabase();
  EXPECT_EQ(rows->Wait(), 0);
  ASSERT_NE(database, nullptr);
  EXPECT_EQ(database->products().size(), 1U);
  EXPECT_NE(database->stores().Find(5000), nullptr) << "the id of the first name";
}

TEST_F(FirstRowsTest, AreReadOnlyWhenTheWorkBeforeThemIsDone) {
  std::promise<void> before;
  const auto rows = Begin(before.get_future().share());
  AddProduct("Milk", kToday);  // nobody holds the files yet
  before.set_value();
  EXPECT_EQ(rows->Wait(), 0);
  EXPECT_THAT(NamesOf(rows->Take()), ElementsAre("Milk"));
}

TEST_F(FirstRowsTest, ALoadThatFailsGivesItsCodeAndNoRows) {
  folder_.WriteText("product.dat", "foreign");
  const auto rows = Begin();
  EXPECT_EQ(rows->Wait(), ERR_FORMAT);
  EXPECT_THAT(NamesOf(rows->Take()), IsEmpty());
}

TEST_F(FirstRowsTest, AreWhatTheMainScreenShowsFirst) {
  AddProduct("Milk", kToday, "Corner Shop");
  auto rows = Begin();
  EXPECT_EQ(rows->Wait(), 0);
  AddProduct("Bread", kToday);
  Show(std::move(rows));
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner Shop"));
  EXPECT_EQ(screen().RefreshList(true), 0);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner Shop", "Bread"));
}

TEST_F(FirstRowsTest, OfYesterdayAreNotShownWhenMidnightCameInBetween) {
  AddProduct("Milk", kToday);
  AddProduct("Candles", kToday + kOneDay);
  auto rows = Begin();
  EXPECT_EQ(rows->Wait(), 0);
  clock_.Set(kNow + kOneDay);
  Show(std::move(rows));
  EXPECT_THAT(Rows(),
              ElementsAre("[Sunday 11/22/2026]", "Candles", "[Saturday 11/21/2026]", "Milk"));
}

}  // namespace
}  // namespace brovanta::test
