#include "server/demo_shops.h"

#include <array>

namespace brovanta::server {
namespace {

constexpr std::array kShops = {
    DemoShop{1, "Millstream Market", "millstream", "#0b5d3b", PageStyle::kTable, ShopManner::kPlain,
             100, 9, "12"},
    DemoShop{2, "Golden Acre Foods", "golden-acre", "#8a5a00", PageStyle::kCards,
             ShopManner::kPlain, 104, 5, "1", true},
    DemoShop{3, "Juniper Home Goods", "juniper", "#1f4e79", PageStyle::kDefinitions,
             ShopManner::kPlain, 98, 0, "23"},
    DemoShop{4, "Hilltop Wholesale", "hilltop", "#5b2a86", PageStyle::kParagraphs,
             ShopManner::kLarge, 94, 8, "123"},
    DemoShop{5, "Lighthouse Mart", "lighthouse", "#a3261f", PageStyle::kList,
             ShopManner::kRedirects, 101, 7, "13"},
    DemoShop{6, "Pinecrest Outlet", "pinecrest", "#2d5a1e", PageStyle::kOffers, ShopManner::kPlain,
             106, 4, "123"},
    DemoShop{7, "Slow Boat Traders", "slow-boat", "#37474f", PageStyle::kTable, ShopManner::kSlow,
             91, 6, "123"},
    DemoShop{8, "Creaky Gate Bazaar", "creaky-gate", "#6d4c41", PageStyle::kTable,
             ShopManner::kBroken, 97, 3, "123"},
};

// The articles of a shop that its department (or all of them) and a test let through.
template <typename Test>
std::vector<const Article*> Collect(const DemoShop& shop, std::optional<Department> department,
                                    Test&& test) {
  std::vector<const Article*> found;
  for (const Article& article : Articles()) {
    if (department && article.department != *department) continue;
    if (shop.Sells(article) && test(article)) found.push_back(&article);
  }
  return found;
}

// What is decided by chance; each shop and each of its purposes has chances of its own.
enum class Purpose : std::uint32_t { kRange, kPrice, kOffer, kReduction, kStock };

std::uint32_t ChanceIn(const DemoShop& shop, const Article& article, Purpose purpose) {
  return Chance(static_cast<std::uint32_t>(article.number),
                shop.number * 8 + static_cast<std::uint32_t>(purpose));
}

}  // namespace

bool DemoShop::Has(Department department) const {
  return departments.find(static_cast<char>('0' + static_cast<int>(department))) !=
         std::string_view::npos;
}

bool DemoShop::Sells(const Article& article) const {
  return Has(article.department) && ChanceIn(*this, article, Purpose::kRange) % 5 != 0;
}

std::span<const DemoShop> DemoShops() { return kShops; }

ShopPrice PriceIn(const DemoShop& shop, const Article& article) {
  const int percent =
      shop.price_level - 8 + static_cast<int>(ChanceIn(shop, article, Purpose::kPrice) % 17);
  ShopPrice price;
  price.regular = PriceTag(article.cents * percent / 100, shop.last_digit);
  if (shop.style == PageStyle::kOffers && ChanceIn(shop, article, Purpose::kOffer) % 3 == 0) {
    const int reduced = 65 + static_cast<int>(ChanceIn(shop, article, Purpose::kReduction) % 21);
    price.offer = PriceTag(price.regular * reduced / 100 - 10, shop.last_digit);
  }
  return price;
}

std::string StockOf(const DemoShop& shop, const Article& article) {
  const std::uint32_t chance = ChanceIn(shop, article, Purpose::kStock) % 12;
  if (chance == 0) return "Only 3 left";
  if (chance == 1) return "Ready tomorrow";
  return chance == 2 ? "In the store only" : "In stock";
}

std::vector<const Article*> FindInShop(const DemoShop& shop, std::optional<Department> department,
                                       std::string_view words) {
  const NameSearch search(words);
  auto found = Collect(shop, department, [&search](const Article& a) { return search.HasAll(a); });
  if (!found.empty()) return found;
  return Collect(shop, department, [&search](const Article& a) { return search.HasAny(a); });
}

std::string PriceText(int cents, bool grouped) {
  const int units = cents / 100;
  const std::string thousands = grouped && units >= 1000 ? std::to_string(units / 1000) : "";
  std::string rest = std::to_string(thousands.empty() ? cents : cents % 100'000);
  const std::size_t digits = thousands.empty() ? 3 : 5;
  while (rest.size() < digits) rest.insert(rest.begin(), '0');
  rest.insert(rest.end() - 2, '.');
  return thousands.empty() ? rest : thousands + "," + rest;
}

}  // namespace brovanta::server
