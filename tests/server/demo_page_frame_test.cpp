#include "server/demo_page_frame.h"

#include <gmock/gmock.h>

namespace brovanta::server {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const DemoShop& Millstream() { return DemoShops()[0]; }
const DemoShop& Pinecrest() { return DemoShops()[5]; }

TEST(ShopFrame, FitsAPhoneAndNamesTheShop) {
  const std::string page = ShopFrame(Millstream(), {"Milk", std::nullopt, ""}, "<p>body</p>");
  EXPECT_THAT(page, AllOf(HasSubstr("<meta charset=\"utf-8\">"),
                          HasSubstr("<meta name=\"viewport\" content=\"width=device-width,"),
                          HasSubstr("<title>Milk - Millstream Market</title>"),
                          HasSubstr("<b>Millstream Market</b>"), HasSubstr("<p>body</p>"),
                          HasSubstr("<form action=\"/demo/millstream/search\">"),
                          Not(HasSubstr("name=\"dept\""))));
}

TEST(ShopFrame, SearchesOnInTheSameDepartment) {
  EXPECT_THAT(
      ShopFrame(Millstream(), {"x", Department::kHousehold, "soap"}, ""),
      AllOf(HasSubstr("name=\"dept\" value=\"2\""), HasSubstr("name=\"q\" value=\"soap\"")));
}

TEST(ShopFrame, WordsStayWords) {
  const std::string page = ShopFrame(Millstream(), {"<i>", std::nullopt, "\"><script>"}, "");
  EXPECT_THAT(
      page, AllOf(HasSubstr("<title>&lt;i&gt; -"), HasSubstr("value=\"&quot;&gt;&lt;script&gt;\""),
                  Not(HasSubstr("<script"))));
}

TEST(ShopFrame, SaysInWhichCharactersItComes) {
  EXPECT_EQ(DemoShops()[1].name, "Golden Acre Foods");
  EXPECT_THAT(ShopFrame(DemoShops()[1], {"x", std::nullopt, ""}, ""),
              HasSubstr("<meta charset=\"windows-1252\">"));
}

TEST(ArticlePage, TellsWhatTheArticleIsAndCosts) {
  const Article& article = *FindArticle(1);
  EXPECT_THAT(ArticlePage(Millstream(), article),
              AllOf(HasSubstr("<h1>" + article.name + "</h1>"),
                    HasSubstr("<strong>$" + PriceText(PriceIn(Millstream(), article).regular) +
                              "</strong>"),
                    HasSubstr("<dd>Millstream Market</dd>"), HasSubstr("<dd>Groceries</dd>"),
                    HasSubstr("<dd>" + article.maker + "</dd>"), HasSubstr("<dd>No. 1</dd>"),
                    HasSubstr("href=\"/demo/millstream/search?dept=1&amp;q=\""),
                    Not(HasSubstr("instead of"))));
}

TEST(ArticlePage, ShowsAnOfferBesideTheRegularPrice) {
  for (const Article& article : Articles()) {
    const ShopPrice price = PriceIn(Pinecrest(), article);
    if (!price.offer) continue;
    EXPECT_THAT(ArticlePage(Pinecrest(), article),
                AllOf(HasSubstr("<strong>$" + PriceText(*price.offer, true) + "</strong>"),
                      HasSubstr("instead of $" + PriceText(price.regular, true) + "<")));
    return;
  }
  FAIL() << "no offer";
}

TEST(ShopsPage, LeadsToEveryShop) {
  const std::string page = ShopsPage();
  for (const DemoShop& shop : DemoShops()) {
    EXPECT_THAT(page, HasSubstr("<a href=\"" + ShopPath(shop) + "search?q=\">" +
                                std::string(shop.name) + "</a>"));
  }
}

}  // namespace
}  // namespace brovanta::server
