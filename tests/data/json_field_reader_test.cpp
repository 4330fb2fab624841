#include "data/json_field_reader.h"

#include <gmock/gmock.h>

#include <bit>
#include <functional>

#include "data/record_fields.h"

namespace brovanta::data_tool {
namespace {

using testing::HasSubstr;
using Read = std::function<void(JsonFieldReader& reader)>;

/// What is wrong with the document; empty when all is well.
std::string FaultOf(const std::string& text, const Read& read) {
  std::string error;
  const auto document = ReadJsonDocument(text, error);
  EXPECT_TRUE(document) << error;
  if (!document) return error;
  JsonFault fault;
  JsonFieldReader reader(*document, "file, records[0]", fault);
  read(reader);
  const bool is_well = reader.Finish();
  EXPECT_EQ(is_well, !fault.IsSet());
  return fault.words();
}

template <typename Value>
std::string FaultOfNumber(const std::string& value, Value& number) {
  return FaultOf("{\n\"a\": " + value + "}",
                 [&](JsonFieldReader& reader) { reader.Number("a", number); });
}

TEST(JsonFieldReaderTest, IntegersFitTheirField) {
  std::uint16_t small = 0;
  EXPECT_EQ(FaultOfNumber("65535", small), "");
  EXPECT_EQ(small, 65535);
  for (const char* const value : {"65536", "-1", "1.5", "\"1\"", "null", "1e2"}) {
    EXPECT_EQ(FaultOfNumber(value, small),
              "line 2: file, records[0], a: an integer from 0 to 65535 should stand here")
        << value;
    EXPECT_EQ(small, 65535);
  }
  std::int32_t large = 0;
  EXPECT_EQ(FaultOfNumber("-2147483648", large), "");
  EXPECT_EQ(large, std::numeric_limits<std::int32_t>::min());
  EXPECT_THAT(FaultOfNumber("2147483648", large), HasSubstr("from -2147483648 to 2147483647"));
}

TEST(JsonFieldReaderTest, NumbersComeBackToTheBit) {
  double number = 1.0;
  EXPECT_EQ(FaultOfNumber("-0.0", number), "");
  EXPECT_EQ(std::bit_cast<std::uint64_t>(number), 0x8000000000000000ULL);
  EXPECT_EQ(FaultOfNumber("2", number), "");
  EXPECT_EQ(number, 2.0);
  EXPECT_EQ(FaultOfNumber("\"0x7ff8000000000001\"", number), "");
  EXPECT_EQ(std::bit_cast<std::uint64_t>(number), 0x7FF8000000000001ULL);
  EXPECT_THAT(FaultOfNumber("\"1.5\"", number), HasSubstr("a number, or its bits in hexadecimal"));
  EXPECT_THAT(FaultOfNumber("true", number), HasSubstr("line 2: file, records[0], a: a number"));
}

std::string FaultOfText(const std::string& value, FixedText<10>& text) {
  return FaultOf("{\"a\": " + value + "}",
                 [&](JsonFieldReader& reader) { reader.Text("a", text); });
}

TEST(JsonFieldReaderTest, TextsFitTheirFieldAndTheCodePage) {
  FixedText<10> text;
  EXPECT_EQ(FaultOfText("\"caf\xC3\xA9 \xE2\x82\xAC\"", text), "");
  EXPECT_EQ(text.view(), "caf\xE9 \x80");
  EXPECT_EQ(FaultOfText("\"1234567890\"", text), "");
  EXPECT_EQ(text.view(), "1234567890");
  EXPECT_EQ(FaultOfText("\"12345678901\"", text),
            "line 1: file, records[0], a: the text has 11 characters, but only 10 fit");
  EXPECT_EQ(FaultOfText("\"\\u03a9\"", text),
            "line 1: file, records[0], a: the character \"\xCE\xA9\" is not in Windows-1252");
  EXPECT_THAT(FaultOfText("\"a\\u0000b\"", text), HasSubstr("cannot hold the character zero"));
  EXPECT_THAT(FaultOfText("7", text), HasSubstr("a text should stand here"));
  EXPECT_EQ(text.view(), "1234567890");
}

TEST(JsonFieldReaderTest, DatesFlagsAndWords) {
  DateStamp date = 1;
  std::uint8_t flag = 0;
  std::uint16_t word = 0;
  const auto fault = [&](const std::string& values) {
    return FaultOf("{" + values + "}", [&](JsonFieldReader& reader) {
      reader.Date("d", date);
      reader.Flag("f", flag);
      reader.Word("w", word, kPurchaseKinds);
    });
  };
  EXPECT_EQ(fault(R"("d":null,"f":true,"w":"weekly")"), "");
  EXPECT_TRUE(date == 0 && flag == 1 && word == 3);
  EXPECT_EQ(fault(R"("d":"2005-03-30T01:00:00+02:00","f":255,"w":9)"), "");
  EXPECT_TRUE(date == 1112137200 && flag == 255 && word == 9);
  EXPECT_THAT(fault(R"("d":5,"f":0,"w":0)"), HasSubstr("d: null or a date such as"));
  EXPECT_THAT(fault(R"("d":"2005-02-30T00:00:00Z","f":0,"w":0)"), HasSubstr("d: null or a date"));
  EXPECT_THAT(fault(R"("d":null,"f":256,"w":0)"), HasSubstr("f: an integer from 0 to 255"));
  EXPECT_THAT(
      fault(R"("d":null,"f":0,"w":"yearly")"),
      HasSubstr(R"(w: one of "none", "one time", "daily", "weekly", "monthly" or a number)"));
  EXPECT_THAT(fault(R"("d":null,"f":0,"w":"")"), HasSubstr("w: one of"));
}

TEST(JsonFieldReaderTest, NothingIsMissingAndNothingLeftOver) {
  std::int32_t number = 0;
  const Read read = [&](JsonFieldReader& reader) { reader.Number("a", number); };
  EXPECT_EQ(FaultOf("{}", read), "line 1: file, records[0], a: is missing");
  EXPECT_EQ(FaultOf("{\"a\":1,\n\"A\":2}", read), "line 2: file, records[0]: there is no \"A\"");
  EXPECT_EQ(FaultOf("[1]", read), "line 1: file, records[0]: an object should stand here");
  EXPECT_EQ(FaultOf("null", read), "line 1: file, records[0]: an object should stand here");
}

TEST(JsonFieldReaderTest, TheNameBesideANumberIsTheOneThatItLeadsTo) {
  NameTable stores;
  stores.Add(7, "Mega");
  std::uint32_t id = 0;
  const auto fault = [&](const std::string& values) {
    return FaultOf("{" + values + "}", [&](JsonFieldReader& reader) {
      reader.Reference("StoreId", "Store", id, stores);
    });
  };
  EXPECT_EQ(fault(R"("StoreId":7,"Store":"Mega")"), "");
  EXPECT_EQ(id, 7U);
  EXPECT_EQ(fault(R"("StoreId":8,"Store":null)"), "");
  EXPECT_THAT(fault(R"("StoreId":8,"Store":"Mega")"),
              HasSubstr("the number beside \"Mega\" leads to nothing in this document"));
  EXPECT_THAT(fault(R"("StoreId":7,"Store":"Maga")"),
              HasSubstr("Store: the number beside it leads to \"Mega\" and not to \"Maga\""));
  EXPECT_THAT(fault(R"("StoreId":7,"Store":null)"), HasSubstr("and not to nothing"));
  EXPECT_THAT(fault(R"("StoreId":7,"Store":7)"), HasSubstr("a text or null should stand here"));
  EXPECT_THAT(fault(R"("StoreId":7)"), HasSubstr("Store: is missing"));
}

TEST(JsonFieldReaderTest, LinksHaveTheirPlaces) {
  CouponNames coupons;
  DiscountSlots slots{};
  const auto fault = [&](const std::string& value) {
    return FaultOf("{\"L\":" + value + "}",
                   [&](JsonFieldReader& reader) { reader.Links("L", slots, coupons); });
  };
  EXPECT_EQ(fault(R"([null,{"Id":9,"Source":-1,"Type":102,"Name":null}])"), "");
  EXPECT_EQ(slots, (DiscountSlots{{{}, {9, -1, 102}, {}, {}, {}}}));
  EXPECT_EQ(fault("[]"), "");
  EXPECT_EQ(slots, DiscountSlots{});
  EXPECT_THAT(fault("[null,null,null,null,null,null]"), HasSubstr("an array of 5 links at most"));
  EXPECT_THAT(fault("{}"), HasSubstr("an array of 5 links at most"));
  EXPECT_THAT(
      fault(R"([{"Id":9,"Source":1,"Type":2,"Name":"week"}])"),
      HasSubstr("file, records[0], L[0], Name: the number beside \"week\" leads to nothing"));
  EXPECT_THAT(fault(R"([{"Id":9,"Source":1,"Type":2}])"), HasSubstr("L[0], Name: is missing"));
  EXPECT_THAT(fault(R"([{"Id":9,"Source":1,"Type":2,"Name":null,"x":0}])"),
              HasSubstr("L[0]: there is no \"x\""));
}

TEST(JsonFaultTest, KeepsTheFirst) {
  JsonFault fault;
  JsonNode node;
  node.line = 3;
  EXPECT_FALSE(fault.Set(node, "here", "first"));
  EXPECT_FALSE(fault.Set(node, "there", "second"));
  EXPECT_EQ(fault.words(), "line 3: here: first");
}

}  // namespace
}  // namespace brovanta::data_tool
