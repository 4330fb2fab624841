#include "server/text_rules.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::Optional;

constexpr TextLength kAny = {0, 1000};

TEST(TextProblem, AcceptsOrdinaryText) {
  EXPECT_EQ(TextProblem("Corner Shop", kListNameLength), std::nullopt);
  EXPECT_EQ(TextProblem("Caf\xC3\xA9 \xE2\x80\x93 5 \xE2\x82\xAC <b> & \"x\"", kAny), std::nullopt);
}

TEST(TextProblem, CountsCharactersAndNotBytes) {
  std::string accents;
  for (int i = 0; i < 49; ++i) accents += "\xC3\xA9";
  EXPECT_EQ(TextProblem(accents, kListNameLength), std::nullopt);
  EXPECT_THAT(TextProblem(accents + "e", kListNameLength), Optional(HasSubstr("longer than 49")));
}

TEST(TextProblem, KnowsTheLengthsOfEachField) {
  EXPECT_THAT(TextProblem("", kListNameLength), Optional(HasSubstr("is empty")));
  EXPECT_THAT(TextProblem("A", kListNameLength), Optional(HasSubstr("shorter than 2")));
  EXPECT_EQ(TextProblem("AB", kListNameLength), std::nullopt);
  EXPECT_THAT(TextProblem("", kCouponNameLength), Optional(HasSubstr("is empty")));
  EXPECT_EQ(TextProblem("A", kCouponNameLength), std::nullopt);
  EXPECT_EQ(TextProblem("", kProductLength), std::nullopt);
  EXPECT_EQ(TextProblem(std::string(249, 'x'), kDescriptionLength), std::nullopt);
  EXPECT_THAT(TextProblem(std::string(250, 'x'), kDescriptionLength),
              Optional(HasSubstr("longer than 249")));
}

TEST(TextProblem, RefusesEveryFeedTag) {
  for (const std::string_view tag : kFeedTags) {
    const std::string name(tag);
    EXPECT_THAT(TextProblem("a<" + name + ">b", kAny), Optional(HasSubstr("<" + name + ">")));
    EXPECT_THAT(TextProblem("a</" + name + ">b", kAny), Optional(HasSubstr("</" + name + ">")));
  }
}

TEST(TextProblem, AcceptsWhatOnlyLooksLikeAFeedTag) {
  EXPECT_EQ(TextProblem("<nm>", kAny), std::nullopt);
  EXPECT_EQ(TextProblem("<NM", kAny), std::nullopt);
  EXPECT_EQ(TextProblem("NM>", kAny), std::nullopt);
  EXPECT_EQ(TextProblem("<NM >", kAny), std::nullopt);
}

TEST(TextProblem, RefusesControlCharacters) {
  for (const std::string_view text : {"a\nb", "a\tb", "a\rb", "a\x7F", "a\xC2\x85"}) {
    EXPECT_THAT(TextProblem(text, kAny), Optional(HasSubstr("control character"))) << text;
  }
  EXPECT_THAT(TextProblem(std::string_view("a\0b", 3), kAny),
              Optional(HasSubstr("control character")));
}

TEST(TextProblem, NamesACharacterThatCannotBeShown) {
  EXPECT_THAT(TextProblem("a \xE2\x86\x92 b", kAny), Optional(HasSubstr("(U+2192)")));
  EXPECT_THAT(TextProblem("\xF0\x9F\x8D\x8E", kAny), Optional(HasSubstr("(U+1F34E)")));
  EXPECT_THAT(TextProblem("\xCA\xBC", kAny), Optional(HasSubstr("(U+02BC)")));
}

TEST(TextProblem, RefusesWhatIsNoUtf8) {
  EXPECT_THAT(TextProblem("Caf\xE9", kAny), Optional(HasSubstr("UTF-8")));
}

TEST(Quoted, PutsAShortTextInQuotationMarks) { EXPECT_EQ(Quoted("abc"), "\"abc\""); }

TEST(Quoted, CutsALongTextBetweenCharacters) {
  EXPECT_EQ(Quoted(std::string(41, 'x')), "\"" + std::string(40, 'x') + "...\"");
  EXPECT_EQ(Quoted(std::string(39, 'x') + "\xC3\xA9\xC3\xA9"),
            "\"" + std::string(39, 'x') + "...\"");
}

TEST(Quoted, HidesControlCharacters) { EXPECT_EQ(Quoted("a\n\x1B[2J"), "\"a??[2J\""); }

}  // namespace
}  // namespace brovanta::server
