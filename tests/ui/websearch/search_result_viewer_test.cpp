#include "ui/websearch/search_result_viewer.h"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/ui/websearch/results_form.h"

namespace brovanta {
namespace {

constexpr char kFailed[] =
    "There was an error while opening the selected search result in Internet Explorer.";

const ShownResult kSoap{.search_text = QStringLiteral("soap"),
                        .title = QStringLiteral("Olive oil soap, 3 cakes of 100 g"),
                        .description = QStringLiteral("Mild soap of olive oil, without perfume."),
                        .url = QStringLiteral("http://shop.example/soap?id=3"),
                        .web_site = QStringLiteral("Corner Shop"),
                        .price = QStringLiteral("$4.90")};

class SearchResultViewerTest : public test::ResultsFormTest {
 protected:
  int View(const ShownResult& result, const Act& act) {
    SearchResultViewer viewer(result, nullptr);
    return RunDialog(viewer, act);
  }
  QScrollBar* Bar() { return Find<QScrollArea>("scrollArea")->verticalScrollBar(); }
};

TEST_F(SearchResultViewerTest, ShowsTheSixTexts) {
  View(kSoap, [&] {
    EXPECT_EQ(Label("headerLabel"), "Search: soap");
    EXPECT_EQ(Label("webSiteLabel"), "Corner Shop");
    EXPECT_EQ(Label("priceLabel"), "$4.90");
    EXPECT_EQ(Label("titleLabel"), "Olive oil soap, 3 cakes of 100 g");
    EXPECT_EQ(Label("urlLabel"), "http://shop.example/soap?id=3");
    EXPECT_EQ(Label("descriptionLabel"), "Mild soap of olive oil, without perfume.");
  });
}

TEST_F(SearchResultViewerTest, TheFieldsAndButtonsHaveTheirNames) {
  View(kSoap, [&] {
    EXPECT_EQ(Label("webSiteTitle"), "Web site:");
    EXPECT_EQ(Label("priceTitle"), "Price");
    EXPECT_EQ(Label("titleTitle"), "Title");
    EXPECT_EQ(Label("urlTitle"), "Url");
    EXPECT_EQ(Label("descriptionTitle"), "Description");
    EXPECT_EQ(Find<QPushButton>("openButton")->text(), QStringLiteral("Open"));
    EXPECT_EQ(Find<QPushButton>("closeButton")->text(), QStringLiteral("Close"));
    EXPECT_EQ(Find<QPushButton>("deleteButton")->text(), QStringLiteral("Delete"));
  });
}

TEST_F(SearchResultViewerTest, HeaderWebSiteAndPriceAreBoldAndTheUrlUnderlined) {
  View(kSoap, [&] {
    for (const char* name : {"headerLabel", "webSiteLabel", "priceLabel"}) {
      EXPECT_TRUE(Find(name)->font().bold()) << name;
      EXPECT_FALSE(Find(name)->font().underline()) << name;
    }
    EXPECT_TRUE(Find("urlLabel")->font().underline());
    EXPECT_FALSE(Find("urlLabel")->font().bold());
    for (const char* name : {"titleLabel", "descriptionLabel"}) {
      EXPECT_FALSE(Find(name)->font().bold()) << name;
      EXPECT_FALSE(Find(name)->font().underline()) << name;
    }
    for (const char* name : {"headerLabel", "urlLabel", "descriptionLabel"}) {
      EXPECT_GE(QFontInfo(Find(name)->font()).pixelSize(), 14) << name;
    }
  });
}

TEST_F(SearchResultViewerTest, DeleteEndsWith1) {
  EXPECT_EQ(View(kSoap, [&] { Press("deleteButton"); }), 1);
  EXPECT_EQ(Messages(), "");
}

TEST_F(SearchResultViewerTest, CloseEscapeAndTheCloseBoxEndWith0) {
  EXPECT_EQ(View(kSoap, [&] { Press("closeButton"); }), 0);
  EXPECT_EQ(View(kSoap, [&] { QTest::keyClick(dialog_, Qt::Key_Escape); }), 0);
  EXPECT_EQ(View(kSoap, [&] { dialog_->close(); }), 0);
}

TEST_F(SearchResultViewerTest, OpenLeavesTheViewerOpen) {
  View(kSoap, [&] {
    Press("openButton");
    EXPECT_TRUE(dialog_->isVisible());
    QTest::keyClick(dialog_, Qt::Key_Return);
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(browser_.addresses(), QStringList(2, kSoap.url));
  EXPECT_EQ(Messages(), "");
}

TEST_F(SearchResultViewerTest, APageThatDoesNotOpenIsReportedAndTheViewerStays) {
  browser_.set_works(false);
  View(kSoap, [&] {
    Press("openButton");
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(Messages(), kFailed);
}

TEST_F(SearchResultViewerTest, AnAddressThatIsNoWebPageIsNotOpened) {
  ShownResult result = kSoap;
  result.url = QStringLiteral("file:///etc/passwd");
  View(result, [&] { Press("openButton"); });
  EXPECT_EQ(browser_.addresses(), QStringList());
  EXPECT_EQ(Messages(), kFailed);
}

TEST_F(SearchResultViewerTest, ClosingTheProgramUnderItsMessageDeletesNothing) {
  browser_.set_works(false);
  const int result = View(kSoap, [&] {
    QMetaObject::invokeMethod(
        dialog_, [] { QApplication::closeAllWindows(); }, Qt::QueuedConnection);
    Press("openButton");
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(result, 0);
}

TEST_F(SearchResultViewerTest, TextsOfAPageAreShownAsTheyStand) {
  ShownResult result = kSoap;
  result.title = QStringLiteral("<img src='http://shop.example/spy'> & <b>soap</b> &amp;");
  result.description = result.title;
  View(result, [&] {
    EXPECT_EQ(Find<QLabel>("titleLabel")->text(), result.title);
    for (const char* name : {"headerLabel", "webSiteLabel", "priceLabel", "titleLabel", "urlLabel",
                             "descriptionLabel"}) {
      EXPECT_EQ(Find<QLabel>(name)->textFormat(), Qt::PlainText) << name;
    }
  });
}

TEST_F(SearchResultViewerTest, TwoThousandCharactersWithoutABlankWrap) {
  ShownResult result = kSoap;
  result.title = QString(2048, QLatin1Char('W'));
  result.url = QStringLiteral("http://shop.example/") + QString(2028, QLatin1Char('q'));
  result.web_site = QString(300, QLatin1Char('s'));
  result.price = QString(310, QLatin1Char('9'));
  result.search_text = QString(100, QLatin1Char('w'));
  View(result, [&] {
    for (const QSize size : test::ScreenSizes()) {
      dialog_->resize(size);
      EXPECT_EQ(test::Clipped(dialog_), "") << size.width();
      EXPECT_EQ(dialog_->size(), size);
      EXPECT_GT(Bar()->maximum(), 0);
      test::SavePicture(dialog_, QStringLiteral("search_result_long"));
    }
  });
}

TEST_F(SearchResultViewerTest, ALongDescriptionScrollsByKeys) {
  ShownResult result = kSoap;
  for (int i = 0; i < 200; ++i) result.description += QStringLiteral(" More about this soap.");
  View(result, [&] {
    auto* area = Find<QScrollArea>("scrollArea");
    area->setFocus();
    QTest::keyClick(area, Qt::Key_PageDown);
    const int page = Bar()->value();
    EXPECT_GT(page, 0);
    QTest::keyClick(area, Qt::Key_Down);
    EXPECT_GT(Bar()->value(), page);
    QTest::keyClick(area, Qt::Key_Up);
    EXPECT_EQ(Bar()->value(), page);
    QTest::keyClick(area, Qt::Key_PageUp);
    EXPECT_EQ(Bar()->value(), 0);
    EXPECT_EQ(area->accessibleName(), QStringLiteral("Search result"));
  });
}

TEST_F(SearchResultViewerTest, TabGoesThroughTheButtonsAndTheTexts) {
  View(kSoap, [&] {
    EXPECT_EQ(test::TabOrder(dialog_), "openButton closeButton deleteButton scrollArea");
  });
}

TEST_F(SearchResultViewerTest, FitsEveryScreen) {
  View(kSoap, [&] {
    for (const QSize size : test::ScreenSizes()) {
      dialog_->resize(size);
      EXPECT_EQ(test::Clipped(dialog_), "") << size.width();
      EXPECT_EQ(Bar()->maximum(), 0) << size.width();
      test::SavePicture(dialog_, QStringLiteral("search_result"));
    }
  });
}

TEST_F(SearchResultViewerTest, FitsWithAFontTwiceTheSize) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPixelSize(2 * QFontInfo(before).pixelSize());
  QApplication::setFont(large);
  View(kSoap, [&] {
    dialog_->resize(360, 640);
    EXPECT_EQ(test::Clipped(dialog_), "");
    EXPECT_EQ(dialog_->width(), 360);
    test::SavePicture(dialog_, QStringLiteral("search_result_large_print"));
  });
  QApplication::setFont(before);
}

}  // namespace
}  // namespace brovanta
