#include "server/query.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

Target Parsed(std::string_view text) { return ParseTarget(text).value_or(Target{}); }

TEST(ParseTarget, SeparatesPathAndParameters) {
  const Target target = Parsed("/coupons.aspx?idx=1&edx=22&user=Ohio-43004");
  EXPECT_EQ(target.path, "/coupons.aspx");
  EXPECT_THAT(target.parameters,
              ElementsAre(Pair("edx", "22"), Pair("idx", "1"), Pair("user", "Ohio-43004")));
}

TEST(ParseTarget, NeedsNoQuery) {
  EXPECT_EQ(Parsed("/webspider.xml").path, "/webspider.xml");
  EXPECT_THAT(Parsed("/webspider.xml?").parameters, IsEmpty());
}

TEST(ParseTarget, DecodesNamesAndValues) {
  EXPECT_THAT(Parsed("/x?user=United+States-9%200&%61=%3D").parameters,
              ElementsAre(Pair("a", "="), Pair("user", "United States-9 0")));
}

TEST(ParseTarget, KeepsThePathAsItCame) { EXPECT_EQ(Parsed("/a%2Fb").path, "/a%2Fb"); }

TEST(ParseTarget, RefusesWhatCannotBeMeant) {
  for (const char* text : {"", "x", "*", "http://a/x", "/x?idx", "/x?a=1&&b=2", "/x?a=1&a=2",
                           "/x?a=%4", "/x?a=%zz", "/x?%=1"}) {
    EXPECT_FALSE(ParseTarget(text)) << text;
  }
}

TEST(FormDecoded, UndoesTheEncodingOfForms) {
  EXPECT_EQ(FormDecoded("a+b%2fc%2FD"), "a b/c/D");
  EXPECT_EQ(FormDecoded("%ff"), "\xFF");
  EXPECT_EQ(FormDecoded("100%"), std::nullopt);
}

TEST(WithoutCutEscape, TakesOffOnlyWhatIsIncompleteAtTheEnd) {
  EXPECT_EQ(WithoutCutEscape("a%20b%"), "a%20b");
  EXPECT_EQ(WithoutCutEscape("a%20b%2"), "a%20b");
  EXPECT_EQ(WithoutCutEscape("a%20"), "a%20");
  EXPECT_EQ(WithoutCutEscape("a%zz"), "a%zz");
  EXPECT_EQ(WithoutCutEscape("%"), "");
  EXPECT_EQ(WithoutCutEscape("ab"), "ab");
  EXPECT_EQ(WithoutCutEscape(""), "");
}

TEST(IdParameter, ReadsIds) {
  EXPECT_EQ(IdParameter(Parsed("/x?idx=0"), "idx"), 0);
  EXPECT_EQ(IdParameter(Parsed("/x?idx=007"), "idx"), 7);
  EXPECT_EQ(IdParameter(Parsed("/x?idx=2147483647"), "idx"), 2147483647);
}

TEST(IdParameter, RefusesEverythingElse) {
  for (const char* text : {"/x", "/x?idx=", "/x?idx=-1", "/x?idx=+1", "/x?idx=1.5", "/x?idx=one",
                           "/x?idx=2147483648", "/x?idx=99999999999999999999999", "/x?IDX=1"}) {
    EXPECT_EQ(IdParameter(Parsed(text), "idx"), std::nullopt) << text;
  }
}

TEST(LoggedTarget, LeavesOutWhereTheUserLives) {
  EXPECT_EQ(LoggedTarget("/stores.aspx?idx=4&user=United+States-90210"),
            "/stores.aspx?idx=4&user=-");
  EXPECT_EQ(LoggedTarget("/stores.aspx?user=Ohio&idx=4"), "/stores.aspx?user=-&idx=4");
}

TEST(LoggedTarget, IsOneShortLineOfPlainCharacters) {
  EXPECT_EQ(LoggedTarget("/a\nb\x1B\xFFz"), "/a?b??z");
  EXPECT_EQ(LoggedTarget(std::string(5000, 'x')).size(), 200u);
}

}  // namespace
}  // namespace brovanta::server
