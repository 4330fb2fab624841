#include "data/json_document.h"

#include <gmock/gmock.h>

#include <limits>

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Kind = JsonNode::Kind;

JsonNode Read(std::string_view text) {
  std::string error;
  auto node = ReadJsonDocument(text, error);
  EXPECT_TRUE(node) << error;
  return node ? std::move(*node) : JsonNode{};
}

std::string ErrorOf(std::string_view text) {
  std::string error;
  EXPECT_FALSE(ReadJsonDocument(text, error)) << text;
  return error;
}

TEST(JsonDocumentTest, HasEveryKindOfValue) {
  const JsonNode root = Read(R"({"a":[null,true,false,7,-2.5,"x"],"b":{}})");
  ASSERT_EQ(root.kind, Kind::kObject);
  EXPECT_THAT(root.keys, ElementsAre("a", "b"));
  const JsonNode* const array = root.Find("a");
  ASSERT_NE(array, nullptr);
  ASSERT_EQ(array->items.size(), 6U);
  EXPECT_EQ(array->items[0].kind, Kind::kNull);
  EXPECT_TRUE(array->items[1].kind == Kind::kBool && array->items[1].boolean);
  EXPECT_TRUE(array->items[2].kind == Kind::kBool && !array->items[2].boolean);
  EXPECT_TRUE(array->items[3].kind == Kind::kInteger && array->items[3].integer == 7);
  EXPECT_EQ(array->items[3].number, 7.0);
  EXPECT_TRUE(array->items[4].kind == Kind::kNumber && array->items[4].number == -2.5);
  EXPECT_TRUE(array->items[5].kind == Kind::kText && array->items[5].text == "x");
  EXPECT_EQ(root.Find("b")->kind, Kind::kObject);
  EXPECT_EQ(root.Find("c"), nullptr);
}

TEST(JsonDocumentTest, IntegersFitInto64BitsOrAreNumbers) {
  const JsonNode root = Read(
      "[9223372036854775807,-9223372036854775808,9223372036854775808,1e2,36893488147419103232]");
  EXPECT_EQ(root.items[0].integer, std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(root.items[1].integer, std::numeric_limits<std::int64_t>::min());
  EXPECT_TRUE(root.items[2].kind == Kind::kNumber && root.items[2].number == 0x1p63);
  EXPECT_TRUE(root.items[3].kind == Kind::kNumber && root.items[3].number == 100.0);
  EXPECT_EQ(root.items[4].number, 0x1p65);
}

TEST(JsonDocumentTest, KnowsTheLineOfEachValue) {
  const JsonNode root = Read("\n{\"a\": 1\n,\"b\": [\n2\n,\n\"x\"\n,null]\n}\n");
  EXPECT_EQ(root.line, 2U);
  EXPECT_EQ(root.Find("a")->line, 2U);
  const JsonNode* const array = root.Find("b");
  EXPECT_EQ(array->line, 3U);
  EXPECT_EQ(array->items[0].line, 4U);
  EXPECT_EQ(array->items[1].line, 6U);
  EXPECT_EQ(array->items[2].line, 7U);
}

TEST(JsonDocumentTest, WhatIsNoJsonIsToldWithItsLine) {
  EXPECT_THAT(ErrorOf(""), StartsWith("line 1: this is no JSON"));
  EXPECT_THAT(ErrorOf("{\n\"a\": nope}"), StartsWith("line 2: this is no JSON"));
  EXPECT_THAT(ErrorOf("[1]\n]"), StartsWith("line 2: this is no JSON"));
  EXPECT_THAT(ErrorOf("[1,]"), HasSubstr("does not fit there"));
  EXPECT_THAT(ErrorOf("[\"\xE9\"]"), StartsWith("line 1: this is no JSON"));
  EXPECT_THAT(ErrorOf("[\"\\ud800\"]"), StartsWith("line 1: this is no JSON"));
  EXPECT_THAT(ErrorOf("[1e999]"), HasSubstr("the number \"1e999\" is too large"));
  // What a terminal would obey is not in the words.
  EXPECT_THAT(ErrorOf("[\"\x1b[2J\"]"), testing::Not(HasSubstr("\x1b")));
}

TEST(JsonDocumentTest, AKeyStandsOnlyOnceInAnObject) {
  EXPECT_EQ(ErrorOf("{\"a\":1,\n\"a\":2}"), "line 2: the key \"a\" stands there twice");
  EXPECT_EQ(Read(R"([{"a":1},{"a":{"a":2}}])").items.size(), 2U);
}

TEST(JsonDocumentTest, DepthHasABound) {
  const std::string fits = std::string(kDeepestJson, '[') + std::string(kDeepestJson, ']');
  EXPECT_EQ(Read(fits).kind, Kind::kArray);
  EXPECT_THAT(ErrorOf("[" + fits + "]"), HasSubstr("too many arrays and objects in each other"));
  EXPECT_THAT(ErrorOf(std::string(1'000'000, '[')), HasSubstr("too many"));
}

TEST(JsonDocumentTest, ACutDocumentIsNone) {
  const std::string text = R"({"a":[null,true,-2.5e3,"x\u00e9"],"b":{"c":""}})";
  for (std::size_t size = 0; size < text.size(); ++size) {
    std::string error;
    EXPECT_FALSE(ReadJsonDocument(text.substr(0, size), error)) << size;
    EXPECT_THAT(error, StartsWith("line 1: ")) << size;
  }
}

}  // namespace
}  // namespace brovanta::data_tool
