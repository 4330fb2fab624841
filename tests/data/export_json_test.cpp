#include "data/export_json.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "tests/support/format_page.h"
#include "tests/support/json_reader.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

using std::string_literals::operator""s;
using testing::HasSubstr;

std::string Page(const std::string& name) {
  std::ifstream in(BROVANTA_SOURCE_FOLDER "/docs/formats/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Example(const std::string& page) {
  const test::Bytes bytes = test::ExampleOf(page);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class ExportJsonTest : public testing::Test {
 protected:
  const test::ZoneGuard zone_{"UTC"};
};

// The example of the page of product.dat, with a store and a coupon that are not there.
TEST_F(ExportJsonTest, ShowsAProductWithNamesAndDates) {
  EXPECT_EQ(ExportJson({{"product.dat", Example("product.md")}, {"unit.lst", Example("list.md")}}),
            R"({
  "format": "brovanta-data",
  "version": 1,
  "files": {
    "unit.lst": {
      "records": [
        {
          "Id": 7,
          "Name": "Mega",
          "Count": 0
        },
        {
          "Id": 5000,
          "Name": "Café",
          "Count": 0
        }
      ]
    },
    "product.dat": {
      "LastId": 1,
      "records": [
        {
          "Id": 1,
          "Name": "Oat milk",
          "ShortText": "",
          "Notes": "barista",
          "StoreId": 5000,
          "Store": null,
          "CategoryId": 0,
          "Category": null,
          "UnitId": 5001,
          "Unit": null,
          "PurchaseKind": "weekly",
          "Every": 2,
          "DayValue": 3,
          "StartDate": "2005-03-30T01:00:00+00:00",
          "LastPurchased": "2005-04-06T01:00:00+00:00",
          "NextDate": null,
          "DaysOverdue": 0,
          "UnitPrice": 1.99,
          "Quantity": 2,
          "Discounts": [{"Id":2,"Source":0,"Type":102,"Name":null}],
          "TaxPercent": 8.25,
          "Deleted": false
        }
      ]
    }
  }
}
)");
}

TEST_F(ExportJsonTest, ThePageShowsADocumentAsItIsWritten) {
  const std::string document =
      ExportJson({{"store.lst", Example("list.md")}, {"discount.dat", Example("discount.md")}});
  EXPECT_THAT(Page("export.md"), HasSubstr("```json\n" + document + "```"));
}

TEST_F(ExportJsonTest, ADiscountHasTheNameOfItsStore) {
  const auto json = test::ReadJson(
      ExportJson({{"store.lst", Example("list.md")}, {"discount.dat", Example("discount.md")}}));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("files.discount.dat.records[0].StoreId"), "5000");
  EXPECT_EQ(json->at("files.discount.dat.records[0].Store"), "Caf\xC3\xA9");
  EXPECT_EQ(json->at("files.discount.dat.records[0].ValueType"), "percent");
  EXPECT_EQ(json->at("files.discount.dat.records[0].EndDate"), "2005-04-30T01:00:00+00:00");
}

TEST_F(ExportJsonTest, SearchesAndTheirResultsAreInIt) {
  const auto json = test::ReadJson(ExportJson({{"websearch.dat", Example("search_index.md")},
                                               {"WebSearch/2.dat", Example("search_results.md")}}));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("files.websearch.dat.records[0].Words"), "soap");
  EXPECT_EQ(json->at("files.WebSearch/2.dat.records[0].SiteName"), "Corner shop ab");
  EXPECT_EQ(json->at("files.WebSearch/2.dat.records[0].Text"), "null");
}

TEST_F(ExportJsonTest, OddBytesStandInTheRaw) {
  std::string list = Example("list.md");
  list[8] = '\x01';         // reserved
  list[0x10 + 6] = '\x02';  // behind the name's end
  const auto json = test::ReadJson(ExportJson({{"store.lst", list + "behind"}}));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("files.store.lst.records[0].Name"), "Mega");
  EXPECT_EQ(json->at("files.store.lst.records[0].raw[0].at"), "0");
  EXPECT_EQ(json->at("files.store.lst.records[0].raw[0].hex"), "01");
  EXPECT_EQ(json->at("files.store.lst.records[0].raw[1].at"), "14");
  EXPECT_EQ(json->at("files.store.lst.behind_end"), "626568696e64");
  EXPECT_EQ(json->count("files.store.lst.records[1].raw[0].at"), 0U);
}

TEST_F(ExportJsonTest, ADamagedFileIsKeptAsItIs) {
  const auto json = test::ReadJson(ExportJson({{"store.lst", "foobar"}}));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("files.store.lst.base64"), "Zm9vYmFy");
  EXPECT_THAT(json->at("files.store.lst.damage"), HasSubstr("this is no file of the program"));
}

TEST_F(ExportJsonTest, TheAgentsAreLinesOfText) {
  const auto utf8 = test::ReadJson(ExportJson({{"webspider.xml", "a\r\n\xC3\xA9\n"}}));
  ASSERT_TRUE(utf8);
  EXPECT_EQ(utf8->at("files.webspider.xml.encoding"), "utf-8");
  EXPECT_EQ(utf8->at("files.webspider.xml.lines[0]"), "a\r");
  EXPECT_EQ(utf8->at("files.webspider.xml.lines[1]"), "\xC3\xA9");
  EXPECT_EQ(utf8->at("files.webspider.xml.lines[2]"), "");
  const auto stored = test::ReadJson(ExportJson({{"webspider.xml", "\xE9"}}));
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->at("files.webspider.xml.encoding"), "windows-1252");
  EXPECT_EQ(stored->at("files.webspider.xml.lines[0]"), "\xC3\xA9");
}

TEST_F(ExportJsonTest, NothingIsADocumentToo) {
  EXPECT_EQ(ExportJson({}),
            "{\n  \"format\": \"brovanta-data\",\n  \"version\": 1,\n  \"files\": {}\n}\n");
}

}  // namespace
}  // namespace brovanta::data_tool
