#include "data/pdf/list_pdf.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "data/list/list_rows.h"
#include "tests/data/list/list_samples.h"
#include "tests/data/pdf/pdf_reader.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::HasSubstr;

class ListPdfTest : public testing::Test {
 protected:
  static std::vector<std::string> Pages(const std::string& pdf) {
    std::vector<std::string> pages;
    std::istringstream in(test::ReadPdf("pdftotext", pdf, "-layout"));
    for (std::string page; std::getline(in, page, '\f');) pages.push_back(page);
    return pages;
  }

  static std::string WithoutBlanks(std::string text) {
    text.erase(std::remove_if(text.begin(), text.end(),
                              [](char character) { return character == ' ' || character == '\n'; }),
               text.end());
    return text;
  }

  // So many products in two stores of three categories each, with long names now and then.
  static ShoppingList LongList(std::size_t count) {
    ShoppingData data;
    for (std::int32_t id = 1; id <= 2; ++id) Name(data.stores, id, "Store " + std::to_string(id));
    for (std::int32_t id = 1; id <= 3; ++id) {
      Name(data.categories, id, "Category " + std::to_string(id));
    }
    for (std::size_t i = 0; i < count; ++i) {
      const std::string length = i % 7 == 0 ? " with a rather long name to be broken" : "";
      ProductRecord product = Product("Product " + std::to_string(1000 + i) + length, 1.5,
                                      0.99 + static_cast<double>(i));
      product.StoreId = static_cast<std::uint32_t>(1 + i % 2);
      product.CategoryId = static_cast<std::uint32_t>(1 + i % 3);
      product.TaxPercent = 7;
      if (i % 5 == 0) product.Notes = FixedText<kLongTextSize>("note " + std::to_string(2000 + i));
      data.products.push_back(product);
    }
    return BuildShoppingList(data, Today()).value();
  }

 private:
  AtNoon noon_;
};

TEST_F(ListPdfTest, HoldsEveryCellOfEveryRow) {
  const ShoppingList list = Sample();
  const auto pages = Pages(ListAsPdf(list));
  ASSERT_EQ(pages.size(), 1U);
  const std::string text = WithoutBlanks(pages[0]);
  for (const ListRow& row : RowsOf(list)) {
    for (const std::string& cell : row.cells) EXPECT_THAT(text, HasSubstr(WithoutBlanks(cell)));
  }
  EXPECT_THAT(pages[0], HasSubstr("Shopping list, Nov 21, 2026\n"));
  EXPECT_THAT(pages[0], HasSubstr("Page 1 of 1"));
}

TEST_F(ListPdfTest, ALongListGoesOnOverPages) {
  const ShoppingList list = LongList(300);
  const auto pages = Pages(ListAsPdf(list));
  ASSERT_GT(pages.size(), 5U);
  std::string all;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_THAT(pages[i], HasSubstr("Shopping list, Nov 21, 2026")) << i;
    EXPECT_THAT(pages[i],
                HasSubstr("Page " + std::to_string(i + 1) + " of " + std::to_string(pages.size())));
    EXPECT_THAT(WithoutBlanks(pages[i]), HasSubstr("ProductDueQuantityPriceAmountCouponsTaxTopay"))
        << i;
    all += pages[i];
  }
  EXPECT_THAT(pages[1], HasSubstr("Store 1, Category 1, continued"));
  for (std::size_t i = 0; i < 300; ++i) {
    EXPECT_THAT(all, HasSubstr("Product " + std::to_string(1000 + i)));
    if (i % 5 == 0) {
      EXPECT_THAT(all, HasSubstr("note " + std::to_string(2000 + i)));
    }
  }
}

TEST_F(ListPdfTest, EveryAmountIsOnThePages) {
  const ShoppingList list = LongList(120);
  std::string all;
  for (const std::string& page : Pages(ListAsPdf(list))) all += page;
  for (const ListRow& row : RowsOf(list)) {
    if (!row.cells[kToPayColumn].empty()) {
      EXPECT_THAT(all, HasSubstr(row.cells[kToPayColumn]));
    }
    if (!row.cells[kAmountColumn].empty()) {
      EXPECT_THAT(all, HasSubstr(row.cells[kAmountColumn]));
    }
  }
}

TEST_F(ListPdfTest, AProductStandsOnOnePageWithItsNotes) {
  for (const std::string& page : Pages(ListAsPdf(LongList(300)))) {
    for (std::size_t i = 0; i < 300; i += 5) {
      const bool product = page.find("Product " + std::to_string(1000 + i)) != std::string::npos;
      const bool note = page.find("note " + std::to_string(2000 + i)) != std::string::npos;
      EXPECT_EQ(product, note) << i;
    }
  }
}

TEST_F(ListPdfTest, AllFontsAreEmbedded) {
  std::istringstream fonts(test::ReadPdf("pdffonts", ListAsPdf(Sample())));
  std::string line;
  std::getline(fonts, line);
  const std::size_t column = line.find("emb");
  ASSERT_NE(column, std::string::npos);
  std::getline(fonts, line);
  std::size_t count = 0;
  while (std::getline(fonts, line)) {
    EXPECT_EQ(line.substr(column, 3), "yes") << line;
    ++count;
  }
  EXPECT_GE(count, 2U);  // plain and bold at least
}

TEST_F(ListPdfTest, WideUnitsLeaveRoomForTheName) {
  ShoppingData data;
  Name(data.units, 1, std::string(49, 'W'));
  data.products = {Product("A name of some words that needs its room", 123456.789, 4321.25)};
  data.products[0].UnitId = 1;
  const auto pages = Pages(ListAsPdf(BuildShoppingList(data, Today()).value()));
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_THAT(pages[0], HasSubstr("533487649.47"));  // 123456.789 x 4321.25 = 533487649.46625
}

TEST_F(ListPdfTest, AnEmptyListIsOnePage) {
  const auto pages = Pages(ListAsPdf(BuildShoppingList({}, Today()).value()));
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_THAT(pages[0], HasSubstr("Nothing to buy."));
}

}  // namespace
}  // namespace brovanta::data_tool
