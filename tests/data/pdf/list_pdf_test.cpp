#include "data/pdf/list_pdf.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "data/list/decimal.h"
#include "data/list/list_rows.h"
#include "data/pdf/pdf_page.h"
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

  // Where each word ends, in points from the left, on the page or beyond it.
  static std::vector<double> RightEdges(const std::string& pdf) {
    constexpr std::string_view kEdge = "xMax=\"";
    const std::string words = test::ReadPdf("pdftotext", pdf, "-bbox");
    std::vector<double> edges;
    for (std::size_t at = words.find(kEdge); at != std::string::npos; at = words.find(kEdge, at)) {
      at += kEdge.size();
      edges.push_back(std::stod(words.substr(at)));
    }
    return edges;
  }

  // All cells are there, each amount, price and heading in one piece, and none is in the margin.
  static void ExpectAllWithinTheMargins(const ShoppingData& data) {
    const ShoppingList list = BuildShoppingList(data, Today()).value();
    const std::string pdf = ListAsPdf(list);
    const auto pages = Pages(pdf);
    ASSERT_EQ(pages.size(), 1U);
    for (const std::string_view heading : kColumnHeadings) {
      EXPECT_THAT(pages[0], HasSubstr(std::string(heading)));
    }
    for (const ListRow& row : RowsOf(list)) {
      std::string numbers;  // in the order of the columns, whatever is between two of them
      for (std::size_t column = kPriceColumn; column < kColumnCount; ++column) {
        if (!row.cells[column].empty()) numbers += row.cells[column] + " +";
      }
      if (numbers.empty()) continue;
      numbers.resize(numbers.size() - 2);
      EXPECT_THAT(pages[0], testing::ContainsRegex(" " + numbers + "\n")) << row.cells[0];
      const std::string& quantity = row.cells[kQuantityColumn];
      EXPECT_THAT(pages[0], HasSubstr(quantity.substr(0, quantity.find(' '))));
    }
    const auto edges = RightEdges(pdf);
    EXPECT_GT(edges.size(), 20U);
    EXPECT_LE(*std::max_element(edges.begin(), edges.end()), PdfPages::kWidth - 45 + 0.01);
  }

  // Two products of that price in bottles, with 19 % tax.
  static ShoppingData TwoBottles(double price) {
    ShoppingData data;
    Name(data.units, 1, "bottle");
    data.products = {Product("Wine", 2, price), Product("Oil", 12.5, price)};
    for (ProductRecord& product : data.products) {
      product.UnitId = 1;
      product.TaxPercent = 19;
    }
    return data;
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

TEST_F(ListPdfTest, WideAmountsStayWithinTheMargins) {
  for (const double price : {1.5, 1234.5, 12345.5, 99999.5, 999999.5, 9999999.5}) {
    SCOPED_TRACE(price);
    ExpectAllWithinTheMargins(TwoBottles(price));
  }
}

TEST_F(ListPdfTest, TheLargestAmountFitsIntoEveryColumn) {
  constexpr double kLargest = static_cast<double>(kLargestAmount) / 100;
  ShoppingData data;
  Name(data.units, 1, "bottle");
  data.discounts = {Coupon(5, kStoreCoupon, kAmount, kLargest)};
  data.products = {Product("Taxed", 1, kLargest), Product("Free", 1, kLargest),
                   Product("Many", kLargest, 1)};
  data.products[0].TaxPercent = 100;
  Link(data.products[1], 0, data.discounts[0]);
  data.products[2].UnitId = 1;
  ExpectAllWithinTheMargins(data);
  const ShoppingList list = BuildShoppingList(data, Today()).value();
  const auto pages = Pages(ListAsPdf(list));
  // Three of them, the tax of one, one taken off: 2999999999.97 + 999999999.99 - 999999999.99.
  EXPECT_THAT(pages[0], HasSubstr("-999999999.99"));
  EXPECT_THAT(pages[0], testing::ContainsRegex("Without coupons .* 3999999999.96\n"));
  EXPECT_THAT(pages[0], testing::ContainsRegex("With coupons .* 2999999999.97\n"));
}

TEST_F(ListPdfTest, AnEmptyListIsOnePage) {
  const auto pages = Pages(ListAsPdf(BuildShoppingList({}, Today()).value()));
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_THAT(pages[0], HasSubstr("Nothing to buy."));
}

}  // namespace
}  // namespace brovanta::data_tool
