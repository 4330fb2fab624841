#include "data/raw_bytes.h"

#include <gmock/gmock.h>

namespace brovanta::data_tool {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(RawBytesTest, AreTheRunsThatDiffer) {
  EXPECT_THAT(RawBytesOf("abcdef", "abcdef"), IsEmpty());
  EXPECT_THAT(RawBytesOf("XbcYZf", "abcdef"), ElementsAre(RawBytes{0, "X"}, RawBytes{3, "YZ"}));
  EXPECT_THAT(RawBytesOf("abcdeZ", "abcdef"), ElementsAre(RawBytes{5, "Z"}));
}

TEST(RawBytesTest, AreWrittenOnlyWhereThereAreAny) {
  JsonWriter json;
  json.BeginObject();
  WriteRawBytes({}, json);
  WriteRawBytes({{3, "\x01\xff"}, {9, "a"}}, json);
  json.EndObject();
  EXPECT_EQ(json.text(), R"({"raw":[{"at":3,"hex":"01ff"},{"at":9,"hex":"61"}]})");
}

std::string FaultOf(const std::string& text, std::string& record) {
  std::string error;
  const auto document = ReadJsonDocument(text, error);
  if (!document) return error;
  JsonFault fault;
  JsonFieldReader reader(*document, "r", fault);
  ReadRawBytes(reader, record, fault);
  (void)reader.Finish();
  return fault.words();
}

TEST(RawBytesTest, AreReadOverTheRecord) {
  std::string record = "abcdef";
  EXPECT_EQ(FaultOf(R"({"raw":[{"at":1,"hex":"0058"},{"at":5,"hex":"59"}]})", record), "");
  EXPECT_EQ(record, "a\0XdeY"s);
  EXPECT_EQ(FaultOf("{}", record), "");
  EXPECT_EQ(FaultOf(R"({"raw":[{"at":6,"hex":""}]})", record), "");
}

TEST(RawBytesTest, WhatDoesNotFitIsTold) {
  std::string record = "abcdef";
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":5,"hex":"0102"}]})", record),
              HasSubstr("r, raw[0]: the bytes reach beyond the end of the record, which has 6"));
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":4294967295,"hex":"01"}]})", record), HasSubstr("beyond"));
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":-1,"hex":"01"}]})", record), HasSubstr("raw[0], at:"));
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":0,"hex":"1"}]})", record), HasSubstr("two hexadecimal"));
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":0,"hex":1}]})", record), HasSubstr("two hexadecimal"));
  EXPECT_THAT(FaultOf(R"({"raw":[{"at":0}]})", record), HasSubstr("hex: is missing"));
  EXPECT_THAT(FaultOf(R"({"raw":{}})", record), HasSubstr("r, raw: an array should stand here"));
  EXPECT_EQ(record, "abcdef");
}

TEST(CanonicalBytesTest, HaveFieldsAndNothingElse) {
  ListItem item;
  item.Id = 7;
  item.Name.Assign("Mega");
  const std::string plain = BytesText(EncodeListItem(item));
  EXPECT_EQ(CanonicalBytes<ListItemKind>(plain), plain);
  std::string record = plain;
  record[0] = 'r';      // reserved
  record[8 + 5] = 't';  // behind the zero of the name
  record[58] = 'p';     // padding
  EXPECT_EQ(CanonicalBytes<ListItemKind>(record), plain);
  record[8 + 4] = '-';  // the zero itself: the name is longer now
  EXPECT_NE(CanonicalBytes<ListItemKind>(record), plain);
}

}  // namespace
}  // namespace brovanta::data_tool
