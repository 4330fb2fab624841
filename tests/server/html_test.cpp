#include "server/html.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(Escaped, WritesEveryMeaningfulCharacterAsAnEntity) {
  EXPECT_EQ(Escaped("a<b>&\"c\"'d'"), "a&lt;b&gt;&amp;&quot;c&quot;&#39;d&#39;");
  EXPECT_EQ(Escaped("Caf\xC3\xA9"), "Caf\xC3\xA9");
}

TEST(HtmlPage, IsAWholePageThatFitsAPhone) {
  const std::string page = HtmlPage("Milk", "<p>body</p>\n");
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">"));
  EXPECT_THAT(page, HasSubstr("<meta charset=\"utf-8\">"));
  EXPECT_THAT(
      page, HasSubstr("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"));
  EXPECT_THAT(page, HasSubstr("<title>Milk - Brovanta</title>"));
  EXPECT_THAT(page, HasSubstr("<main>\n<p>body</p>\n</main>"));
  EXPECT_TRUE(page.ends_with("</html>\n"));
}

TEST(HtmlPage, FetchesNothingFromElsewhere) {
  const std::string page = HtmlPage("Milk", "");
  for (const char* part : {"http:", "https:", "url(", "@import", "<script", "<img", "<link"}) {
    EXPECT_THAT(page, Not(HasSubstr(part)));
  }
}

TEST(HtmlPage, EscapesItsTitle) {
  EXPECT_THAT(HtmlPage("</title><script>", ""), HasSubstr("<title>&lt;/title&gt;&lt;script&gt;"));
}

TEST(MessagePage, EscapesBothTexts) {
  const std::string page = MessagePage("<b>", "<i>");
  EXPECT_THAT(page, HasSubstr("<h1>&lt;b&gt;</h1>\n<p>&lt;i&gt;</p>"));
}

}  // namespace
}  // namespace brovanta::server
