#include "data/list_command.h"

#include <gmock/gmock.h>

#include <limits>

#include "data/commands.h"
#include "data/exit_status.h"
#include "db/schedule.h"
#include "db/shopping_database.h"
#include "tests/data/sample_folder.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Noon of 2026-11-21, a Saturday.
constexpr std::int64_t kNoon = ((56 * 365 + 14) + 324) * 86400LL + 43200;

class ListCommandTest : public testing::Test {
 protected:
  ListCommandTest() {
    test::MakeEmptyLists(folder_.path());
    EXPECT_EQ(database_.Open(folder_.path()), 0);
    Add("Milk",
        "B\xE4"
        "cker",
        0, 1.5);
    Add("Rope", "Harbour", 0, 9);
    Add("Tomorrow", "Harbour", 1, 1);
    Add("In a week", "Harbour", 8, 1);
    Add("A week ago", "Harbour", -7, 1);
  }

  void Add(const char* name, const char* store, int days, double price) {
    ProductFields fields;
    fields.name = name;
    fields.store = NameRef{IdOf(store), store};
    fields.purchase_kind = kOneTime;
    fields.start_date = static_cast<DateStamp>(kNoon + days * 86400LL);
    fields.unit_price = price;
    fields.quantity = 2;
    EXPECT_TRUE(database_.products().Add(kProductKind, fields));
  }

  CommandEnd Run(std::vector<std::string_view> arguments) {
    arguments.insert(arguments.begin(), "list");
    arguments.push_back(folder_.path());
    std::string error;
    const auto line = ParseCommandLine(arguments, Commands(), error);
    EXPECT_TRUE(line) << error;
    return line ? line->command->run(*line) : CommandEnd{-1, {}, {}};
  }

  test::TempFolder folder_;

 private:
  std::int32_t IdOf(std::string_view store) const {
    for (const auto& [id, item] : const_cast<ListCommandTest*>(this)->database_.stores()) {
      if (item.Name.view() == store) return id;
    }
    return 0;
  }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
  ShoppingDatabase database_;
};

TEST_F(ListCommandTest, IsTheTextOfTodayWithoutOptions) {
  const CommandEnd end = Run({});
  EXPECT_EQ(end.status, kGood);
  EXPECT_THAT(end.output, StartsWith("Shopping list, Nov 21, 2026\n"));
  EXPECT_THAT(end.output, AllOf(HasSubstr("Milk"), HasSubstr("A week ago"),
                                Not(HasSubstr("Tomorrow")), HasSubstr("With coupons")));
  EXPECT_EQ(Run({"--day", "--text"}).output, end.output);
}

TEST_F(ListCommandTest, PeriodsAreThoseOfTheMainScreen) {
  EXPECT_THAT(Run({"--week"}).output, StartsWith("Shopping list, Nov 15 - 21, 2026\n"));
  const std::string month = Run({"--month"}).output;
  EXPECT_THAT(month, StartsWith("Shopping list, Nov 2026\n"));
  EXPECT_THAT(month, HasSubstr("In a week"));
  const std::string tomorrow = Run({"--date", "2026-11-22"}).output;
  EXPECT_THAT(tomorrow, AllOf(HasSubstr("Tomorrow"), Not(HasSubstr("In a week"))));
  EXPECT_THAT(Run({"--week", "--date=2026-02-01"}).output,
              StartsWith("Shopping list, Feb 01 - 07, 2026\n"));
}

TEST_F(ListCommandTest, ADateThatIsNoneIsRefused) {
  for (const char* const text : {"2026-02-30", "2026-13-01", "21.11.2026", "2026-1-1", "2026-11-2x",
                                 "1970-01-01", "2038-01-19", "+026-01-01", "2026-11-211"}) {
    const CommandEnd end = Run({"--date", text});
    EXPECT_EQ(end.status, kMisused) << text;
    EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("is no date")));
    EXPECT_EQ(end.output, "");
  }
  EXPECT_EQ(Run({"--date", "1970-01-02"}).status, kGood);
  EXPECT_EQ(Run({"--month", "--date", "2038-01-18"}).status, kGood);
}

TEST_F(ListCommandTest, OneStoreAlone) {
  const CommandEnd end = Run({"--store", "bäcker"});
  EXPECT_EQ(end.status, kGood);
  EXPECT_THAT(end.output, AllOf(HasSubstr("Milk"), Not(HasSubstr("Rope"))));
  const CommandEnd none = Run({"--store", "Baker"});
  EXPECT_EQ(none.status, kBad);
  EXPECT_THAT(none.complaints, ElementsAre("There is no store \"Baker\" in the list of stores."));
}

TEST_F(ListCommandTest, PagesAndDocumentsHaveTheirForm) {
  EXPECT_THAT(Run({"--html"}).output, StartsWith("<!DOCTYPE html>"));
  EXPECT_THAT(Run({"--pdf"}).output, StartsWith("%PDF-"));
}

TEST_F(ListCommandTest, AFileTakesTheList) {
  const test::TempFolder other;
  const CommandEnd end = Run({"-o", other.File("list.html"), "--html"});
  EXPECT_EQ(end.status, kGood);
  EXPECT_EQ(end.output, "");
  EXPECT_EQ(other.ReadText("list.html"), Run({"--html"}).output);
}

TEST_F(ListCommandTest, ADamagedFolderGivesNoList) {
  folder_.WriteText("product.dat", "damaged");
  const CommandEnd end = Run({});
  EXPECT_EQ(end.status, kBad);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("product.dat is damaged: ")));
}

}  // namespace
}  // namespace brovanta::data_tool
