#include "util/json_writer.h"

#include <gmock/gmock.h>

#include <string>

#include "tests/support/comma_locale.h"
#include "tests/support/json_reader.h"

namespace brovanta {
namespace {

using std::string_literals::operator""s;
using test::ReadJson;

TEST(JsonWriterTest, PutsCommasBetweenValuesOnly) {
  JsonWriter json;
  json.BeginObject().Key("a").BeginArray().EndArray().Key("b").BeginObject().EndObject();
  json.Key("c").BeginArray().Number(std::size_t{1}).Number(-2).Bool(true).Bool(false).Null();
  json.BeginArray().Text("x").EndArray().Text("y").EndArray().EndObject();
  EXPECT_EQ(json.text(), "{\"a\":[],\"b\":{},\"c\":[1,-2,true,false,null,[\"x\"],\"y\"]}");
}

TEST(JsonWriterTest, EveryByteOfATextIsWrittenSoThatItReadsBack) {
  for (int byte = 0; byte < 128; ++byte) {
    const std::string text = "a"s + static_cast<char>(byte) + "b";
    JsonWriter json;
    json.BeginArray().Text(text).EndArray();
    const auto values = ReadJson(json.text());
    ASSERT_TRUE(values) << byte;
    EXPECT_EQ(values->at("[0]"), text) << byte;
  }
}

TEST(JsonWriterTest, QuotesBackslashesAndControlCharactersAreEscaped) {
  JsonWriter json;
  json.Text("\"\\\n\x1f\x7f/"s + '\0');
  EXPECT_EQ(json.text(), "\"\\\"\\\\\\u000a\\u001f\x7f/\\u0000\"");
}

TEST(JsonWriterTest, BytesThatAreNoUtf8AreWindows1252) {
  JsonWriter json;
  json.BeginArray().Text("caf\xE9 \x80").Text("caf\xC3\xA9").EndArray();
  EXPECT_EQ(json.text(), "[\"caf\xC3\xA9 \xE2\x82\xAC\",\"caf\xC3\xA9\"]");
}

TEST(JsonWriterTest, NumbersReadBackAsTheyAreInAnyLocale) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale locale;
  JsonWriter json;
  json.BeginArray().Number(51.77).Number(0.0).Number(1e300).Number(0.1 + 0.2).EndArray();
  EXPECT_EQ(json.text(), "[51.77,0,1e+300,0.30000000000000004]");
  EXPECT_TRUE(ReadJson(json.text()));
}

TEST(JsonWriterTest, MembersStandOnLinesOfTheirOwnWhereAskedFor) {
  JsonWriter json;
  json.BeginObject(JsonLayout::kLines).Key("a").BeginArray(JsonLayout::kLines).Number(1);
  json.BeginObject().Key("b").Number(2).Key("c").Null().EndObject().EndArray();
  json.Key("d").BeginArray(JsonLayout::kLines).EndArray().EndObject();
  EXPECT_EQ(json.text(),
            "{\n"
            "  \"a\": [\n"
            "    1,\n"
            "    {\"b\":2,\"c\":null}\n"
            "  ],\n"
            "  \"d\": []\n"
            "}");
}

TEST(JsonWriterTest, TheNegativeZeroKeepsItsSign) {
  JsonWriter json;
  json.BeginArray().Number(-0.0).Number(0.0).EndArray();
  EXPECT_EQ(json.text(), "[-0.0,0]");
}

// The reader with which all JSON is tested refuses what is none.
TEST(JsonReaderTest, TakesNothingButJson) {
  for (const char* text :
       {"", "{", "{}}", "[1,]", "{\"a\":1,}", "{\"a\":1,\"a\":2}", "[01]", "[1.]", "{a:1}",
        "[\"\n\"]", "[\"\\x\"]", "[\"\xE9\"]", "nul", "[1 2]", "['a']"}) {
    EXPECT_FALSE(ReadJson(text)) << text;
  }
  EXPECT_TRUE(ReadJson(" {\"a\" : [ 1 , -2.5e3 , \"\\u00e9\" , {} , [] ] }\n"));
}

}  // namespace
}  // namespace brovanta
