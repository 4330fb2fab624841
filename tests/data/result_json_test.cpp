#include "data/result_json.h"

#include <gmock/gmock.h>

#include "data/stored_result.h"

namespace brovanta::data_tool {
namespace {

using std::string_literals::operator""s;
using testing::HasSubstr;

std::string Written(const StoredResult& result) {
  JsonWriter json;
  WriteResult(EncodeResult(result), json);
  return json.text();
}

std::string ReadBack(const std::string& text, std::string& error) {
  const auto document = ReadJsonDocument(text, error);
  if (!document) return {};
  JsonFault fault;
  std::string bytes = ReadResult(*document, "r", fault);
  error = fault.words();
  return bytes;
}

StoredResult Sample() {
  StoredResult result;
  result.Id = 1;
  result.Price = 2.5;
  result.Status = -3;
  result.texts[0] = {6, "caf\xC3\xA9\0"s};
  result.texts[2] = {5, "caf\xE9\0"s};
  result.texts[3] = {1, "\0"s};
  return result;
}

TEST(ResultJsonTest, ATextIsShownAsWhatItIs) {
  EXPECT_EQ(Written(Sample()),
            "{\n"
            "  \"Id\": 1,\n"
            "  \"Price\": 2.5,\n"
            "  \"Status\": -3,\n"
            "  \"Title\": \"caf\xC3\xA9\",\n"
            "  \"Text\": null,\n"
            "  \"Url\": {\"windows-1252\":\"caf\xC3\xA9\"},\n"
            "  \"SiteName\": \"\"\n"
            "}");
}

TEST(ResultJsonTest, EveryFormComesBack) {
  StoredResult odd = Sample();
  odd.texts[0] = {-7, ""};
  odd.texts[1] = {3, "abc"};      // no zero at its end
  odd.texts[2] = {4, "a\0b\0"s};  // one before
  odd.texts[3] = {2, "\0\0"s};
  for (const StoredResult& result : {Sample(), odd, StoredResult{}}) {
    std::string error;
    EXPECT_EQ(ReadBack(Written(result), error), EncodeResult(result));
    EXPECT_EQ(error, "");
  }
  EXPECT_THAT(Written(odd), HasSubstr(R"("Text": {"hex":"616263"})"));
  EXPECT_THAT(Written(odd), HasSubstr(R"("Title": {"length":-7})"));
}

TEST(ResultJsonTest, WhatDoesNotFitIsTold) {
  const auto fault = [](const std::string& title) {
    std::string error;
    (void)ReadBack(R"({"Id":1,"Price":1,"Status":0,"Title":)" + title +
                       R"(,"Text":null,"Url":null,"SiteName":null})",
                   error);
    return error;
  };
  EXPECT_EQ(fault("\"x\""), "");
  EXPECT_THAT(fault("7"), HasSubstr("r, Title: an object should stand here"));
  EXPECT_THAT(fault("{}"), HasSubstr("r, Title: a text, null, or an object with"));
  EXPECT_THAT(fault(R"("a\u0000")"), HasSubstr("cannot hold the character zero"));
  EXPECT_THAT(fault(R"({"windows-1252":"\u03a9"})"), HasSubstr("is not in Windows-1252"));
  EXPECT_THAT(fault(R"({"length":0})"), HasSubstr("an integer below 0"));
  EXPECT_THAT(fault(R"({"length":-2147483649})"), HasSubstr("an integer below 0"));
  EXPECT_THAT(fault(R"({"hex":""})"), HasSubstr("two hexadecimal digits"));
  EXPECT_THAT(fault(R"({"hex":"00","length":-1})"), HasSubstr("there is no \"hex\""));
}

}  // namespace
}  // namespace brovanta::data_tool
