#include "data/export_csv.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/data/sample_folder.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::int64_t kNoon = 20778 * std::int64_t{86400} + 43200;  // 2026-11-21

class ExportCsvTest : public testing::Test {
 protected:
  ExportCsvTest() {
    test::MakeHousehold(folder_.path());
    EXPECT_EQ(TakeDataSnapshot(folder_.path(), files_), SnapshotResult::kTaken);
  }
  [[nodiscard]] CsvTable Table(const std::string& name) const {
    for (CsvTable& table : ExportCsv(files_)) {
      if (table.file == name) return std::move(table);
    }
    ADD_FAILURE() << name;
    return {};
  }

  const test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
  test::TempFolder folder_;
  DataSnapshot files_;
};

TEST_F(ExportCsvTest, EachKindHasItsTable) {
  std::vector<std::string> names;
  for (const CsvTable& table : ExportCsv(files_)) {
    names.push_back(table.file);
    EXPECT_THAT(table.damages, IsEmpty());
  }
  EXPECT_THAT(names, ElementsAre("products.csv", "purchases.csv", "discounts.csv", "stores.csv",
                                 "categories.csv", "units.csv", "searches.csv", "results.csv"));
}

TEST_F(ExportCsvTest, ListsHaveIdAndName) {
  EXPECT_EQ(Table("stores.csv").text, "id,name\r\n5000,Corner Shop\r\n");
  EXPECT_EQ(Table("categories.csv").text, "id,name\r\n5000,Food\r\n");
  EXPECT_EQ(Table("units.csv").text, "id,name\r\n5000,bottle\r\n");
}

TEST_F(ExportCsvTest, ProductsHaveNamesAndIds) {
  const std::string text = Table("products.csv").text;
  EXPECT_THAT(text, StartsWith("id,name,short_text,notes,store,store_id,category,category_id,unit,"
                               "unit_id,quantity,unit_price,tax_percent,repeat,every,day_value,"
                               "start_date,last_purchased,deleted,coupon_1,coupon_1_id,"
                               "coupon_1_source,coupon_2"));
  EXPECT_THAT(text, HasSubstr("\r\n1,Milk,,,Corner Shop,5000,Food,5000,bottle,5000,2,0,0,none,0,0,,"
                              "2026-11-21,false,Milk week,40,1,Milk week,40,0,,,,,,,,,\r\n"));
  EXPECT_THAT(text, HasSubstr("\r\n2,Bread,"));
  EXPECT_THAT(text, HasSubstr(",true,"));  // the deleted one
}

TEST_F(ExportCsvTest, EveryLineHasAsManyCellsAsTheHeader) {
  for (const CsvTable& table : ExportCsv(files_)) {
    std::size_t begin = 0;
    const auto commas = [&](std::size_t from, std::size_t to) {
      return std::count(table.text.begin() + static_cast<std::ptrdiff_t>(from),
                        table.text.begin() + static_cast<std::ptrdiff_t>(to), ',');
    };
    const auto expected = commas(0, table.text.find("\r\n"));
    // No cell of the household has a comma or a line break in it.
    for (std::size_t end = table.text.find("\r\n"); end != std::string::npos;
         end = table.text.find("\r\n", begin)) {
      EXPECT_EQ(commas(begin, end), expected)
          << table.file << ": " << table.text.substr(begin, end);
      begin = end + 2;
    }
    EXPECT_EQ(begin, table.text.size());
  }
}

TEST_F(ExportCsvTest, PurchasesHaveTheMoment) {
  const std::string text = Table("purchases.csv").text;
  EXPECT_THAT(text, HasSubstr(",purchased,"));
  EXPECT_THAT(text, HasSubstr(",2026-11-21T12:00:00,"));
}

TEST_F(ExportCsvTest, DiscountsHaveWords) {
  EXPECT_THAT(Table("discounts.csv").text,
              HasSubstr("\r\n2,0,Own,Milk,,store coupon,amount,0.5,2026-11-21,,,Corner Shop,5000,"
                        "Food,5000,false,false\r\n"));
  EXPECT_THAT(Table("discounts.csv").text, HasSubstr("\r\n41,1,Gone,"));
}

TEST_F(ExportCsvTest, ResultsHaveTheWordsOfTheirSearch) {
  EXPECT_EQ(Table("searches.csv").text,
            "number,words,category_id,date,deleted\r\n"
            "2,shoe,1,2026-11-21,false\r\n"
            "3,shoe,1,2026-11-21,true\r\n"
            "4,shoe,1,2026-11-21,false\r\n");
  EXPECT_EQ(Table("results.csv").text,
            "search,words,id,price,title,text,url,site\r\n"
            "2,shoe,1,2.5,Shoe lace,,http://shop.example/1,Corner Shop\r\n"
            "2,shoe,2,39.9,Red shoe,,http://shop.example/1,Corner Shop\r\n"
            "4,shoe,1,2.5,Shoe lace,,http://shop.example/1,Corner Shop\r\n"
            "4,shoe,2,39.9,Red shoe,,http://shop.example/1,Corner Shop\r\n");
}

TEST_F(ExportCsvTest, OfADamagedFileThereIsWhatStandsInFront) {
  files_["product.dat"].resize(900);
  const CsvTable table = Table("products.csv");
  EXPECT_THAT(table.damages,
              ElementsAre("product.dat: the file is cut off: it ends within a record (byte 472)"));
  EXPECT_THAT(table.text, HasSubstr("\r\n1,Milk,"));
  EXPECT_EQ(table.text.find("\r\n2,Bread,"), std::string::npos);
}

TEST_F(ExportCsvTest, WithoutFilesThereAreHeaders) {
  for (const CsvTable& table : ExportCsv({})) {
    EXPECT_EQ(table.text.find("\r\n"), table.text.size() - 2) << table.file;
  }
}

TEST_F(ExportCsvTest, ThePageNamesEveryColumn) {
  std::ifstream in(BROVANTA_SOURCE_FOLDER "/docs/formats/export.md", std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(in), {});
  for (const CsvTable& table : ExportCsv({})) {
    EXPECT_THAT(page, HasSubstr("| `" + table.file + "` |"));
    std::istringstream header(table.text.substr(0, table.text.find('\r')));
    for (std::string column; std::getline(header, column, ',');) {
      if (column.starts_with("coupon_") && !column.starts_with("coupon_1")) continue;
      EXPECT_THAT(page, HasSubstr("`" + column + "`")) << table.file;
    }
  }
}

}  // namespace
}  // namespace brovanta::data_tool
