#include "data/export_ics.h"

#include <gmock/gmock.h>

#include "data/commands.h"
#include "data/exit_status.h"
#include "db/schedule.h"
#include "db/shopping_database.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ExportIcsTest : public testing::Test {
 protected:
  ExportIcsTest() {
    test::MakeEmptyLists(folder_.path());
    ShoppingDatabase database;
    EXPECT_EQ(database.Open(folder_.path()), 0);
    ProductFields milk;
    milk.name = "Milk";
    milk.purchase_kind = kMonthly;
    milk.every = 3;
    milk.day_value = 31;
    milk.start_date = 1795222800;  // 2026-11-21 01:00
    EXPECT_TRUE(database.products().Add(kProductKind, milk));
  }

  CommandEnd Run(std::vector<std::string_view> arguments) {
    arguments.insert(arguments.begin(), {"export", "--ics"});
    arguments.push_back(folder_.path());
    std::string error;
    const auto line = ParseCommandLine(arguments, Commands(), error);
    EXPECT_TRUE(line) << error;
    return line ? line->command->run(*line) : CommandEnd{-1, {}, {}};
  }

  test::TempFolder folder_;
};

TEST_F(ExportIcsTest, WritesACalendar) {
  const CommandEnd end = Run({});
  EXPECT_EQ(end.status, kGood);
  EXPECT_THAT(end.output,
              AllOf(StartsWith("BEGIN:VCALENDAR\r\n"), HasSubstr("UID:product-1@brovanta\r\n"),
                    HasSubstr("DTSTART;VALUE=DATE:20261130\r\n"),
                    HasSubstr("RRULE:FREQ=MONTHLY;INTERVAL=3;BYMONTHDAY=-1\r\n")));
}

TEST_F(ExportIcsTest, WritesIntoAFile) {
  const test::TempFolder other;
  const CommandEnd end = Run({"-o", other.File("list.ics")});
  EXPECT_EQ(end.status, kGood);
  EXPECT_EQ(end.output, "");
  EXPECT_THAT(other.ReadText("list.ics").value_or(""), StartsWith("BEGIN:VCALENDAR\r\n"));
}

TEST_F(ExportIcsTest, ADamagedFolderGivesNone) {
  folder_.WriteText("product.dat", "damaged");
  const CommandEnd end = Run({});
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("product.dat is damaged: ")));
}

TEST(ExportCommandTest, NeedsAFormat) {
  std::string error;
  const std::vector<std::string_view> arguments{"export", "folder"};
  EXPECT_FALSE(ParseCommandLine(arguments, Commands(), error));
}

}  // namespace
}  // namespace brovanta::data_tool
