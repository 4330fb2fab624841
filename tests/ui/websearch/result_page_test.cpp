#include "ui/websearch/result_page.h"

#include "tests/ui/websearch/results_form.h"

namespace brovanta {
namespace {

constexpr char kFailed[] =
    "There was an error while opening the selected search result in Internet Explorer.";

class ResultPageTest : public test::ResultsFormTest {};

TEST_F(ResultPageTest, WebPagesAreOpened) {
  OpenResultPage(QStringLiteral("http://shop.example/1?a=b&c=d"), nullptr);
  OpenResultPage(QStringLiteral("HTTPS://shop.example/2"), nullptr);
  OpenResultPage(QStringLiteral(" http://shop.example/3\r\n"), nullptr);
  EXPECT_EQ(browser_.addresses(), (QStringList{QStringLiteral("http://shop.example/1?a=b&c=d"),
                                               QStringLiteral("HTTPS://shop.example/2"),
                                               QStringLiteral("http://shop.example/3")}));
  EXPECT_EQ(Messages(), "");
}

TEST_F(ResultPageTest, FilesOfAServerAndMailAreOpened) {
  OpenResultPage(QStringLiteral("ftp://shop.example/prices.txt"), nullptr);
  OpenResultPage(QStringLiteral("mailto:sales@shop.example"), nullptr);
  OpenResultPage(QStringLiteral("MailTo:sales@shop.example?subject=tea"), nullptr);
  EXPECT_EQ(browser_.addresses(),
            (QStringList{QStringLiteral("ftp://shop.example/prices.txt"),
                         QStringLiteral("mailto:sales@shop.example"),
                         QStringLiteral("MailTo:sales@shop.example?subject=tea")}));
  EXPECT_EQ(Messages(), "");
}

TEST_F(ResultPageTest, NothingElseIs) {
  const QStringList addresses = {QStringLiteral("file:///etc/passwd"),
                                 QStringLiteral("file://shop.example/1"),
                                 QStringLiteral("/etc/passwd"),
                                 QStringLiteral("javascript:alert(1)"),
                                 QStringLiteral("tel:112"),
                                 QStringLiteral("shop.example/1"),
                                 QStringLiteral("http:"),
                                 QStringLiteral("http:///1"),
                                 QStringLiteral("ftp:///1"),
                                 QStringLiteral("mailto:"),
                                 QStringLiteral(" "),
                                 QString()};
  for (const QString& address : addresses) OpenResultPage(address, nullptr);
  EXPECT_EQ(browser_.addresses(), QStringList());
  EXPECT_EQ(answers_.texts(), QStringList(addresses.size(), QString::fromLatin1(kFailed)));
}

TEST_F(ResultPageTest, ABrowserThatFailsIsReported) {
  browser_.set_works(false);
  OpenResultPage(QStringLiteral("http://shop.example/1"), nullptr);
  EXPECT_EQ(browser_.addresses().size(), 1);
  EXPECT_EQ(Messages(), kFailed);
}

}  // namespace
}  // namespace brovanta
