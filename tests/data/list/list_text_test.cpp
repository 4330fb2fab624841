#include "data/list/list_text.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "data/list/plain_line.h"
#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::HasSubstr;

class ListTextTest : public testing::Test {
 protected:
  static std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

 private:
  AtNoon noon_;
};

TEST_F(ListTextTest, IsAlignedInColumns) {
  EXPECT_EQ(ListAsText(Sample()), R"(Shopping list, Nov 21, 2026

Product                                Due  Quantity  Price  Amount  Coupons   Tax  To pay

Björn & Co <Hardware>
  No category
  [ ] Lamp                    Nov 21, 2026         1  20.00   20.00           3.80   23.80
        Coupon 6: 4.00 back by mail
        E27, warm
  [ ] Nails                   Unknown date         1
        no price entered
  Björn & Co <Hardware>, sum                                  20.00           3.80   23.80

Corner Shop
  Dairy
  [ ] Käse                    Nov 18, 2026      0.35  11.90    4.17           0.00    4.17
        overdue
  [ ] Milk                    Nov 21, 2026  2 bottle   1.50    3.00    -0.50  0.18    2.68
        Coupon 5: -0.50
  Dairy, sum                                                   7.17    -0.50  0.18    6.85
  Household
  [ ] Soap "Rose"             Nov 21, 2026         3   0.99    2.97           0.00    2.97
  Corner Shop, sum                                            10.14    -0.50  0.18    9.82

Without coupons                                               30.14           4.01   34.15
With coupons                                                  30.14    -0.50  3.98   33.62
After mail-in rebates                                                  -4.00         29.62
1 product without a price is in no sum.
)");
}

TEST_F(ListTextTest, TheDocumentsShowIt) {
  std::ifstream in(BROVANTA_SOURCE_FOLDER "/docs/data.md", std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(in), {});
  ShoppingData data = SampleData();
  Name(data.stores, 5001, "Bj\xF6rn Hardware");
  const ShoppingList list = BuildShoppingList(data, Today()).value();
  EXPECT_THAT(
      page, HasSubstr("$ brovanta-data list ~/.local/share/brovanta\n" + ListAsText(list) + "```"));
}

TEST_F(ListTextTest, WideCharactersCountTwice) {
  ShoppingData data;
  data.products = {Product("牛乳", 1, 1), Product("Milk", 1, 2)};
  std::vector<std::size_t> widths;
  for (const std::string& line : Lines(ListAsText(BuildShoppingList(data, Today()).value()))) {
    if (line.find("[ ]") != std::string::npos) widths.push_back(DisplayWidth(line));
  }
  ASSERT_EQ(widths.size(), 2U);
  EXPECT_EQ(widths[0], widths[1]);
}

TEST_F(ListTextTest, LongRemarksAreWrapped) {
  ShoppingData data;
  data.products = {Product("Milk", 1, 1)};
  std::string notes;
  for (int i = 0; i < 49; ++i) notes += "word ";
  data.products[0].Notes = FixedText<kLongTextSize>(notes);
  const std::string text = ListAsText(BuildShoppingList(data, Today()).value());
  std::size_t words = 0;
  for (const std::string& line : Lines(text)) {
    EXPECT_LE(line.size(), 90U);
    for (std::size_t at = 0; (at = line.find("word", at)) != std::string::npos; ++at) ++words;
  }
  EXPECT_EQ(words, 49U);
  EXPECT_THAT(text, HasSubstr("\n        word word"));
}

TEST_F(ListTextTest, NoLineEndsWithABlank) {
  for (const std::string& line : Lines(ListAsText(Sample()))) {
    EXPECT_TRUE(line.empty() || line.back() != ' ') << line;
  }
}

TEST_F(ListTextTest, AnEmptyListSaysSo) {
  EXPECT_EQ(ListAsText(BuildShoppingList({}, Today()).value()),
            "Shopping list, Nov 21, 2026\n\nNothing to buy.\n");
}

}  // namespace
}  // namespace brovanta::data_tool
