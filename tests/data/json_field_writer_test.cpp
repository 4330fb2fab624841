#include "data/json_field_writer.h"

#include <gmock/gmock.h>

#include <limits>

#include "data/record_fields.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

class JsonFieldWriterTest : public testing::Test {
 protected:
  JsonFieldWriterTest() { json_.BeginObject(); }
  std::string Text() { return json_.EndObject().text(); }

  JsonWriter json_;
  JsonFieldWriter fields_{json_};
};

TEST_F(JsonFieldWriterTest, WritesNumbersAsTheyAre) {
  fields_.Number("a", std::int32_t{-5});
  fields_.Number("b", std::uint32_t{4294967295U});
  fields_.Number("c", std::uint16_t{65535});
  fields_.Number("d", 1.99);
  fields_.Number("e", -0.0);
  fields_.Number("f", -std::numeric_limits<double>::infinity());
  EXPECT_EQ(Text(),
            R"({"a":-5,"b":4294967295,"c":65535,"d":1.99,"e":-0.0,"f":"0xfff0000000000000"})");
}

TEST_F(JsonFieldWriterTest, WritesTextsInUtf8) {
  fields_.Text("a", FixedText<50>("caf\xE9 \x80"));
  EXPECT_EQ(Text(), "{\"a\":\"caf\xC3\xA9 \xE2\x82\xAC\"}");
}

TEST_F(JsonFieldWriterTest, WritesDatesFlagsAndWords) {
  const test::ZoneGuard zone("UTC");
  fields_.Date("a", 1112144400);
  fields_.Date("b", 0);
  fields_.Flag("c", 0);
  fields_.Flag("d", 1);
  fields_.Flag("e", 2);
  fields_.Word("f", std::uint16_t{3}, kPurchaseKinds);
  fields_.Word("g", std::uint16_t{5}, kPurchaseKinds);
  fields_.Word("h", std::int16_t{-1}, kDiscountTypes);
  fields_.Word("i", std::int16_t{0}, kDiscountTypes);
  EXPECT_EQ(Text(), R"({"a":"2005-03-30T01:00:00+00:00","b":null,"c":false,"d":true,"e":2,)"
                    R"("f":"weekly","g":5,"h":-1,"i":0})");
}

TEST_F(JsonFieldWriterTest, WritesReferencesWithTheirNames) {
  NameTable stores;
  stores.Add(7, "Mega");
  fields_.Reference("StoreId", "Store", 7, stores);
  fields_.Reference("OtherId", "Other", 8, stores);
  EXPECT_EQ(Text(), R"({"StoreId":7,"Store":"Mega","OtherId":8,"Other":null})");
}

TEST_F(JsonFieldWriterTest, WritesLinksUpToTheLastOne) {
  CouponNames coupons;
  DiscountRecord coupon;
  coupon.Id = 40;
  coupon.Source = 1;
  coupon.Name.Assign("week");
  coupons.Add(coupon);
  fields_.Links("a", DiscountSlots{{{}, {40, 1, 2}, {}, {9, 0, 102}, {}}}, coupons);
  fields_.Links("b", DiscountSlots{}, coupons);
  EXPECT_EQ(Text(), R"({"a":[null,{"Id":40,"Source":1,"Type":2,"Name":"week"},null,)"
                    R"({"Id":9,"Source":0,"Type":102,"Name":null}],"b":[]})");
}

}  // namespace
}  // namespace brovanta::data_tool
