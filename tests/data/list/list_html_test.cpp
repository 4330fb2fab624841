#include "data/list/list_html.h"

#include <gmock/gmock.h>
#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <array>
#include <memory>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// A page read by a parser that takes nothing but well-formed XML.
class ParsedPage {
 public:
  explicit ParsedPage(const std::string& html)
      : document_(xmlReadMemory(html.data(), static_cast<int>(html.size()), nullptr, "UTF-8",
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
                  xmlFreeDoc) {}

  [[nodiscard]] bool IsWellFormed() const { return document_ != nullptr; }

  // The texts of all elements that the path leads to; h: is the name space of HTML.
  [[nodiscard]] std::vector<std::string> Texts(const char* path) const {
    std::vector<std::string> texts;
    const std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context(
        xmlXPathNewContext(document_.get()), xmlXPathFreeContext);
    xmlXPathRegisterNs(context.get(), reinterpret_cast<const xmlChar*>("h"),
                       reinterpret_cast<const xmlChar*>("http://www.w3.org/1999/xhtml"));
    const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> found(
        xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), context.get()),
        xmlXPathFreeObject);
    if (found == nullptr || found->nodesetval == nullptr) return texts;
    for (int i = 0; i < found->nodesetval->nodeNr; ++i) {
      const std::unique_ptr<xmlChar, decltype(xmlFree)> text(
          xmlNodeGetContent(found->nodesetval->nodeTab[i]), xmlFree);
      texts.emplace_back(reinterpret_cast<const char*>(text.get()));
    }
    return texts;
  }

 private:
  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_;
};

class ListHtmlTest : public testing::Test {
 private:
  AtNoon noon_;
};

TEST_F(ListHtmlTest, IsWellFormedAndHoldsEveryProductEscaped) {
  const ParsedPage page(ListAsHtml(Sample()));
  ASSERT_TRUE(page.IsWellFormed());
  EXPECT_THAT(page.Texts("//h:h1"), ElementsAre("Shopping list, Nov 21, 2026"));
  EXPECT_THAT(page.Texts("//h:tr[@class='product']/h:td[1]"),
              ElementsAre("Lamp", "Nails", "Käse", "Milk", "Soap \"Rose\""));
  EXPECT_THAT(page.Texts("//h:tr[@class='store']"),
              ElementsAre("Björn & Co <Hardware>", "Corner Shop"));
  EXPECT_THAT(page.Texts("//h:tr[starts-with(@class,'total')]/h:td[@data-label='To pay']"),
              ElementsAre("34.15", "33.62", "29.62"));
}

TEST_F(ListHtmlTest, ProductsHaveABoxToTick) {
  const ParsedPage page(ListAsHtml(Sample()));
  ASSERT_TRUE(page.IsWellFormed());
  EXPECT_EQ(page.Texts("//h:label[h:input[@type='checkbox']]").size(), 5U);
}

TEST_F(ListHtmlTest, NamesCannotPutAnythingIntoThePage) {
  ShoppingData data;
  data.products = {Product("<script>alert('&')</script>\"", 1, 1)};
  data.products[0].Notes = FixedText<kLongTextSize>("</td></table>&amp;\x01");
  const std::string html = ListAsHtml(BuildShoppingList(data, Today()).value());
  EXPECT_THAT(html, Not(HasSubstr("<script")));
  const ParsedPage page(html);
  ASSERT_TRUE(page.IsWellFormed());
  EXPECT_THAT(page.Texts("//h:label"), ElementsAre("<script>alert('&')</script>\""));
  EXPECT_THAT(page.Texts("//h:tr[@class='remark']"), ElementsAre("</td></table>&amp;"));
}

TEST_F(ListHtmlTest, EveryByteInANameLeavesItWellFormed) {
  ShoppingData data;
  for (int byte = 1; byte < 256; ++byte) {
    const std::array name{'a', static_cast<char>(byte), 'z'};
    data.products.push_back(Product({name.data(), name.size()}, 1, 1));
  }
  const ParsedPage page(ListAsHtml(BuildShoppingList(data, Today()).value()));
  ASSERT_TRUE(page.IsWellFormed());
  EXPECT_EQ(page.Texts("//h:label").size(), 255U);
}

TEST_F(ListHtmlTest, NeedsNothingElse) {
  const std::string html = ListAsHtml(Sample());
  EXPECT_THAT(html, Not(HasSubstr("src=")));
  EXPECT_THAT(html, Not(HasSubstr("href=")));
  EXPECT_THAT(html, Not(HasSubstr("url(")));
  EXPECT_THAT(html, HasSubstr("<meta charset=\"utf-8\"/>"));
  EXPECT_THAT(html, HasSubstr("name=\"viewport\""));
  EXPECT_THAT(html, HasSubstr("@media print"));
}

TEST_F(ListHtmlTest, AnEmptyListIsAPageToo) {
  const ParsedPage page(ListAsHtml(BuildShoppingList({}, Today()).value()));
  ASSERT_TRUE(page.IsWellFormed());
  EXPECT_THAT(page.Texts("//h:tbody"), ElementsAre("\nNothing to buy.\n"));
}

}  // namespace
}  // namespace brovanta::data_tool
