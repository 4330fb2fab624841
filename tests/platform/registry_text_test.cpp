#include "platform/registry_text.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Bytes;
using test::Hex;

std::string Format(std::uint32_t type, const Bytes& data, std::size_t column = 0) {
  return FormatRegistryValue({type, data}, column, "\n");
}

void ExpectParsed(std::string_view text, std::uint32_t type, const Bytes& data) {
  const auto value = ParseRegistryValue(text);
  ASSERT_TRUE(value) << text;
  EXPECT_EQ(value->type, type) << text;
  EXPECT_EQ(value->data, data) << text;
}

TEST(RegistryNameTest, NamesAreEqualWhateverTheCaseOfAsciiLetters) {
  EXPECT_TRUE(SameRegistryName("ZipCode", "zIPcODE"));
  EXPECT_FALSE(SameRegistryName("ZipCode", "ZipCodes"));
  EXPECT_FALSE(SameRegistryName("ZipCodes", "ZipCode"));
  EXPECT_FALSE(SameRegistryName("@", "`"));
  EXPECT_FALSE(SameRegistryName("[", "{"));
}

TEST(RegistryNameTest, AControlCharacterIsNotAllowed) {
  EXPECT_TRUE(IsRegistryName("Zip Code \xC3\xA9"));
  EXPECT_FALSE(IsRegistryName("Zip\nCode"));
  EXPECT_FALSE(IsRegistryName(std::string_view("\0", 1)));
}

TEST(QuotedTextTest, BackslashAndQuotationMarkAreEscaped) {
  EXPECT_EQ(QuotedText("C:\\a \"b\""), R"("C:\\a \"b\"")");
  std::string_view line = R"("C:\\a \"b\""=x)";
  EXPECT_EQ(TakeQuotedText(line), "C:\\a \"b\"");
  EXPECT_EQ(line, "=x");
}

TEST(QuotedTextTest, WhatIsNotClosedOrKnownIsLeft) {
  for (const std::string_view text : {"", "x", "\"", "\"abc", R"("a\)", R"("a\")", R"("a\n")"}) {
    std::string_view line = text;
    EXPECT_EQ(TakeQuotedText(line), std::nullopt) << text;
    EXPECT_EQ(line, text);
  }
}

TEST(FormatRegistryValueTest, ATextIsQuoted) {
  EXPECT_EQ(Format(REG_SZ, Hex("41 00 E9 00 AC 20 00 00")), "\"A\xC3\xA9\xE2\x82\xAC\"");
  EXPECT_EQ(Format(REG_SZ, Hex("00 00")), "\"\"");
  EXPECT_EQ(Format(REG_SZ, Hex("5C 00 22 00 00 00")), R"("\\\"")");
}

TEST(FormatRegistryValueTest, ATextThatQuotesWouldNotGiveBackIsWrittenAsBytes) {
  EXPECT_EQ(Format(REG_SZ, Hex("41 00 0A 00 00 00")), "hex(1):41,00,0a,00,00,00");
  EXPECT_EQ(Format(REG_SZ, Hex("41 00")), "hex(1):41,00");                          // not ended
  EXPECT_EQ(Format(REG_SZ, Hex("41 00 00 00 42 00")), "hex(1):41,00,00,00,42,00");  // more behind
  EXPECT_EQ(Format(REG_SZ, Hex("41 00 00")), "hex(1):41,00,00");                    // half a unit
  EXPECT_EQ(Format(REG_SZ, Hex("3C D8 00 00")), "hex(1):3c,d8,00,00");              // half a pair
  EXPECT_EQ(Format(REG_SZ, {}), "hex(1):");
}

TEST(FormatRegistryValueTest, ANumberOfFourBytesIsADword) {
  EXPECT_EQ(Format(REG_DWORD, Hex("2A 00 00 00")), "dword:0000002a");
  EXPECT_EQ(Format(REG_DWORD, Hex("EF CD AB 89")), "dword:89abcdef");
}

TEST(FormatRegistryValueTest, ANumberOfEightBytesKeepsThem) {
  EXPECT_EQ(Format(REG_DWORD, Hex("00 00 00 00 00 80 20 40")), "hex(4):00,00,00,00,00,80,20,40");
}

TEST(FormatRegistryValueTest, OtherTypesAreBytes) {
  EXPECT_EQ(Format(REG_BINARY, Hex("01 FF")), "hex:01,ff");
  EXPECT_EQ(Format(0, Hex("01")), "hex(0):01");
  EXPECT_EQ(Format(11, Hex("01")), "hex(b):01");
  EXPECT_EQ(Format(0xFFFFFFFF, {}), "hex(ffffffff):");
}

TEST(FormatRegistryValueTest, ALongListGoesOnInTheNextLine) {
  // "hex:" and 25 bytes of three characters make 79, the mark 80.
  std::string first = "hex:";
  for (int i = 0; i < 25; ++i) first += "00,";
  EXPECT_EQ(Format(REG_BINARY, test::Run(26), 0), first + "\\\n  00");
  EXPECT_EQ(first.size() + 1, kRegistryLineLength);
  // Two blanks and 25 bytes: 77 characters and the mark.
  std::string second = "  ";
  for (int i = 0; i < 25; ++i) second += "00,";
  EXPECT_EQ(Format(REG_BINARY, test::Run(51), 0), first + "\\\n" + second + "\\\n  00");
}

TEST(FormatRegistryValueTest, AfterALongNameOneByteStandsInTheFirstLine) {
  EXPECT_EQ(Format(REG_BINARY, test::Run(2), 200), "hex:00,\\\n  00");
}

TEST(ParseRegistryValueTest, ReadsEachForm) {
  ExpectParsed("\"A\"", REG_SZ, Hex("41 00 00 00"));
  ExpectParsed(" \"\" \t", REG_SZ, Hex("00 00"));
  ExpectParsed("dword:0000002a", REG_DWORD, Hex("2A 00 00 00"));
  ExpectParsed("dword:89ABcdef", REG_DWORD, Hex("EF CD AB 89"));
  ExpectParsed("dword:7", REG_DWORD, Hex("07 00 00 00"));
  ExpectParsed("hex:01,fF", REG_BINARY, Hex("01 FF"));
  ExpectParsed("hex:", REG_BINARY, {});
  ExpectParsed("hex(4): 00 , 1,  02", REG_DWORD, Hex("00 01 02"));
  ExpectParsed("hex(ffffffff):", 0xFFFFFFFF, {});
}

TEST(ParseRegistryValueTest, AnUnknownFormIsNoValue) {
  for (const char* text : {"",         "-",         "abc",       "\"A",
                           "\"A\" x",  "\"\xFF\"",  "dword:",    "dword:123456789",
                           "dword:-1", "dword:0x1", "dword:1 2", "hex",
                           "hex:1,",   "hex:,1",    "hex:1,,2",  "hex:100",
                           "hex:g",    "hex:1 2",   "hex(",      "hex(4)",
                           "hex(4)00", "hex():00",  "hex(g):00", "hex(100000000):00"}) {
    EXPECT_FALSE(ParseRegistryValue(text)) << text;
  }
}

TEST(RegistryBytesTest, TextEndsAtItsFirstZero) {
  EXPECT_EQ(BytesFromText(u"A\u20AC"), Hex("41 00 AC 20 00 00"));
  EXPECT_EQ(TextFromBytes(Hex("41 00 00 00 42 00")), u"A");
  EXPECT_EQ(TextFromBytes(Hex("41 00 42")), u"A");
  EXPECT_EQ(TextFromBytes({}), u"");
}

}  // namespace
}  // namespace brovanta::platform
