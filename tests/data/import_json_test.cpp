#include "data/import_json.h"

#include <gmock/gmock.h>

#include "data/export_json.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string ErrorOf(const std::string& document) {
  std::string error;
  EXPECT_FALSE(ImportJson(document, error)) << document;
  return error;
}

std::string ErrorOfFiles(const std::string& files) {
  return ErrorOf(R"({"format":"brovanta-data","version":1,"files":)" + files + "}");
}

DataSnapshot FilesOfText(const std::string& files) {
  std::string error;
  const auto read =
      ImportJson(R"({"format":"brovanta-data","version":1,"files":)" + files + "}", error);
  EXPECT_TRUE(read) << error;
  return read.value_or(DataSnapshot());
}

class HouseholdTest : public testing::Test {
 protected:
  HouseholdTest() {
    test::MakeHousehold(folder_.path());
    EXPECT_EQ(TakeDataSnapshot(folder_.path(), files_), SnapshotResult::kTaken);
    document_ = ExportJson(files_);
  }

  /// The error after the first place where `from` stands has been changed.
  [[nodiscard]] std::string ErrorAfter(const std::string& from, const std::string& to) const {
    std::string changed = document_;
    const std::size_t at = changed.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at == std::string::npos) return {};
    return ErrorOf(changed.replace(at, from.size(), to));
  }

  test::TempFolder folder_;
  DataSnapshot files_;
  std::string document_;
};

TEST_F(HouseholdTest, ComesBackBitForBit) {
  std::string error;
  EXPECT_EQ(ImportJson(document_, error), files_) << error;
}

TEST_F(HouseholdTest, EveryFieldIsNeeded) {
  for (const char* const key :
       {"\"LastId\"", "\"records\"", "\"Name\"", "\"Store\"", "\"Discounts\"", "\"Words\"",
        "\"Title\"", "\"Url\"", "\"encoding\"", "\"lines\"", "\"Deleted\"", "\"Stamp\""}) {
    EXPECT_THAT(ErrorAfter(key, "\"other\""), HasSubstr("is missing")) << key;
  }
}

TEST_F(HouseholdTest, ReferencesMustFit) {
  EXPECT_THAT(ErrorAfter("\"Store\": \"Corner Shop\"", "\"Store\": \"Corner Shoq\""),
              HasSubstr("discount.dat, records[0], Store: the number beside it leads to"));
  EXPECT_THAT(
      ErrorAfter("\"UnitId\": 5000", "\"UnitId\": 5001"),
      HasSubstr("product.dat, records[0], Unit: the number beside \"bottle\" leads to nothing"));
  EXPECT_THAT(
      ErrorAfter("\"Source\":1,\"Type\":2", "\"Source\":9,\"Type\":2"),
      HasSubstr("product.dat, records[0], Discounts[0], Name: the number beside \"Milk week\""));
}

TEST_F(HouseholdTest, ACutDocumentIsRefused) {
  std::string error;
  for (std::size_t size = 0; size + 2 < document_.size(); size += 13) {
    EXPECT_FALSE(ImportJson(document_.substr(0, size), error)) << size;
  }
}

TEST(ImportJsonTest, WhatIsNoneOfOursIsRefused) {
  EXPECT_THAT(ErrorOf("not json"), StartsWith("line 1: this is no JSON"));
  EXPECT_THAT(ErrorOf("[]"), HasSubstr("the document: an object should stand here"));
  EXPECT_THAT(ErrorOf("{}"), HasSubstr("format: is missing"));
  EXPECT_THAT(ErrorOf(R"({"format":"x","version":1,"files":{}})"),
              HasSubstr("format: should be \"brovanta-data\""));
  EXPECT_THAT(ErrorOf(R"({"format":"brovanta-data","version":2,"files":{}})"),
              HasSubstr("version: should be 1: another program has written 2"));
  EXPECT_THAT(ErrorOf(R"({"format":"brovanta-data","version":"1","files":{}})"),
              HasSubstr("version: an integer"));
  EXPECT_THAT(ErrorOf(R"({"format":"brovanta-data","version":1})"), HasSubstr("files: is missing"));
  EXPECT_THAT(ErrorOf(R"({"format":"brovanta-data","version":1,"files":{},"more":1})"),
              HasSubstr("there is no \"more\""));
  EXPECT_THAT(ErrorOfFiles("[]"), HasSubstr("files: an object should stand here"));
}

TEST(ImportJsonTest, NoOtherFilesAreWritten) {
  for (const char* const name : {"../x", "backup.dat", "WebSearch/../../x.dat", "/etc/passwd"}) {
    EXPECT_THAT(ErrorOfFiles("{\"" + std::string(name) + "\":{\"base64\":\"\"}}"),
                HasSubstr("files: no data file has the name \"" + std::string(name) + "\""));
  }
}

TEST(ImportJsonTest, FilesMustHaveTheirForm) {
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":[]})"), HasSubstr("store.lst: an object"));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{}})"), HasSubstr("store.lst, records: is missing"));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{"records":{}}})"),
              HasSubstr("store.lst, records: an array should stand here"));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{"LastId":1,"records":[]}})"),
              HasSubstr("store.lst: there is no \"LastId\""));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{"records":[5]}})"),
              HasSubstr("store.lst, records[0]: an object should stand here"));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{"records":[],"behind_end":"0"}})"),
              HasSubstr("behind_end: two hexadecimal digits"));
  EXPECT_THAT(ErrorOfFiles(R"({"store.lst":{"base64":"?"}})"), HasSubstr("bytes in base 64"));
  EXPECT_THAT(ErrorOfFiles(R"({"webspider.xml":{"encoding":"latin","lines":[]}})"),
              HasSubstr("encoding: \"utf-8\" or \"windows-1252\""));
  EXPECT_THAT(ErrorOfFiles(R"({"webspider.xml":{"encoding":"utf-8","lines":[1]}})"),
              HasSubstr("lines[0]: a text should stand here"));
  EXPECT_THAT(
      ErrorOfFiles("{\"webspider.xml\":{\"encoding\":\"windows-1252\",\"lines\":[\"\xCE\xA9\"]}}"),
      HasSubstr("lines[0]: the character \"\xCE\xA9\" is not in Windows-1252"));
}

TEST(ImportJsonTest, RawBytesMayNotBelieTheFields) {
  const auto with_raw = [](const std::string& raw) {
    return R"({"store.lst":{"records":[{"Id":7,"Name":"Mega","Count":0,"raw":)" + raw + "}]}}";
  };
  EXPECT_EQ(FilesOfText(with_raw(R"([{"at":0,"hex":"ff"}])")).at("store.lst").at(8), '\xff');
  EXPECT_THAT(ErrorOfFiles(with_raw(R"([{"at":4,"hex":"08"}])")),
              HasSubstr("store.lst, records[0], raw: bytes that belong to a field"));
  EXPECT_THAT(ErrorOfFiles(with_raw(R"([{"at":12,"hex":"73"}])")), HasSubstr("belong to a field"));
  EXPECT_THAT(ErrorOfFiles(with_raw(R"([{"at":64,"hex":"00"}])")), HasSubstr("beyond the end"));
}

TEST(ImportJsonTest, OrderOfTheFilesDoesNotMatter) {
  const DataSnapshot files = FilesOfText(
      R"({"discount.dat":{"LastId":1,"records":[{"Id":1,"Name":"x","Product":"","Description":"",
          "Source":0,"Type":"store coupon","ValueType":"amount","Value":1.5,"Stamp":null,
          "StartDate":null,"EndDate":null,"StoreId":7,"Store":"Mega","CategoryId":0,
          "Category":null,"Flagged":false,"Deleted":false}]},
          "store.lst":{"records":[{"Id":7,"Name":"Mega","Count":0}]}})");
  EXPECT_EQ(files.at("discount.dat").size(), 416U);
  EXPECT_EQ(files.at("store.lst").size(), 76U);
}

// The worked example of the page of list files, from a document written by hand.
TEST(ImportJsonTest, MakesTheBytesOfTheFormat) {
  const DataSnapshot files = FilesOfText(
      "{\"unit.lst\":{\"records\":[{\"Id\":7,\"Name\":\"Mega\",\"Count\":0},"
      "{\"Id\":5000,\"Name\":\"Caf\xC3\xA9\",\"Count\":-1}]}}");
  const test::Bytes expected = test::Join(
      {test::Hex("81 38 01 00 82 38 01 00 00 00 00 00 07 00 00 00"), test::Padded("Mega", 52),
       test::Hex("00 00 00 00 82 38 01 00 00 00 00 00 88 13 00 00"), test::Padded("Caf\xE9", 52),
       test::Hex("ff ff ff ff 83 38 01 00")});
  EXPECT_EQ(files.at("unit.lst"),
            std::string(reinterpret_cast<const char*>(expected.data()), expected.size()));
}

}  // namespace
}  // namespace brovanta::data_tool
