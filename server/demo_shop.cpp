#include "server/demo_shop.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "server/demo_page_frame.h"
#include "server/demo_result_page.h"
#include "server/html.h"
#include "server/narrow_text.h"
#include "util/utf16.h"

namespace brovanta::server {
namespace {

constexpr std::string_view kSearch = "search";
constexpr std::string_view kRedirected = "results";
constexpr std::string_view kItem = "item";

// A question to a shop.
struct Query {
  const DemoShop& shop;
  std::optional<Department> department;
  std::string words;  // as they came
  std::string host;
};

HttpAnswer Page(const DemoShop& shop, const std::string& page) {
  if (shop.narrow) return {200, "text/html; charset=windows-1252", NarrowText(page)};
  return {200, "text/html; charset=utf-8", page};
}

// The words of the query within bounds, in one line.
std::string WordsOf(const Target& target) {
  const auto found = target.parameters.find("q");
  if (found == target.parameters.end()) return {};
  std::string words = found->second.substr(0, kMaxSearchBytes);
  for (char& character : words) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7F) character = ' ';
  }
  return words;
}

// As a page may show them: UTF-8 whatever came.
std::string Legible(std::string words) {
  if (Utf8ToUtf16(words)) return words;
  for (char& character : words) {
    if (static_cast<unsigned char>(character) >= 0x80) character = '?';
  }
  return words;
}

std::string FormEncoded(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                       (byte >= 'a' && byte <= 'z');
    if (plain) {
      encoded += character;
    } else {
      encoded.append({'%', kDigits[byte >> 4u], kDigits[byte & 15u]});
    }
  }
  return encoded;
}

// False for a department that the shop has not got.
bool ReadDepartment(const Target& target, const DemoShop& shop,
                    std::optional<Department>& department) {
  if (!target.parameters.contains("dept")) return true;
  const auto number = IdParameter(target, "dept");
  if (!number || *number < 1 || *number > 3) return false;
  department = static_cast<Department>(*number);
  return shop.Has(*department);
}

std::string Found(const Query& query) {
  return ResultPage(query.shop,
                    {query.department, Legible(query.words),
                     FindInShop(query.shop, query.department, query.words), query.host});
}

HttpAnswer Redirect(const Query& query) {
  std::string address = "http://" + query.host + ShopPath(query.shop) + std::string(kRedirected) +
                        "?q=" + FormEncoded(query.words);
  if (query.department) {
    address += "&dept=" + std::to_string(static_cast<int>(*query.department));
  }
  HttpAnswer answer = Page(query.shop, MessagePage("Moved", "The results are at another address."));
  answer.status = 302;
  answer.location = std::move(address);
  return answer;
}

// Bytes without sense, markers and zero bytes among them.
std::string Garbage() {
  constexpr std::uint32_t kPieces = 4000;
  const ResultMarkers& markers = MarkersOf(PageStyle::kTable);
  std::string bytes(markers.end_header);
  for (std::uint32_t i = 0; i < kPieces; ++i) {
    const std::uint32_t chance = Chance(i, 99);
    if (chance % 64 == 0) bytes += markers.start_result;
    if (chance % 64 == 1) bytes += markers.start_item;
    for (const unsigned shift : {24u, 16u, 8u}) {
      bytes += static_cast<char>((chance >> shift) & 0xFFu);
    }
  }
  return bytes;
}

// The page up to the middle of its results.
std::string CutInTwo(std::string page) {
  const std::size_t from = page.find("<table");
  const std::size_t to = page.find("</table>");
  page.resize(std::min(from, to) + (to - std::min(from, to)) / 2);
  return page;
}

HttpAnswer Broken(const Query& query) {
  switch (query.department.value_or(Department::kGroceries)) {
    case Department::kGroceries:
      return {500, "text/html; charset=utf-8",
              MessagePage("Out of order", "This shop of the demonstration is broken on purpose.")};
    case Department::kHousehold:
      return {200, "text/html; charset=utf-8", Garbage()};
    case Department::kElectronics:
      break;
  }
  return Page(query.shop, CutInTwo(Found(query)));
}

HttpAnswer Search(const Query& query, std::chrono::milliseconds slowness) {
  switch (query.shop.manner) {
    case ShopManner::kRedirects:
      return Redirect(query);
    case ShopManner::kBroken:
      return Broken(query);
    case ShopManner::kPlain:
    case ShopManner::kLarge:
    case ShopManner::kSlow:
      break;
  }
  HttpAnswer answer = Page(query.shop, Found(query));
  if (query.shop.manner == ShopManner::kSlow) answer.delay = slowness;
  return answer;
}

std::optional<HttpAnswer> Item(const DemoShop& shop, const Target& target) {
  const auto number = IdParameter(target, "no");
  const Article* article = number ? FindArticle(*number) : nullptr;
  if (!article || !shop.Sells(*article)) return std::nullopt;
  return Page(shop, ArticlePage(shop, *article));
}

}  // namespace

std::optional<HttpAnswer> DemoShopAnswer(const Target& target, const std::string& host,
                                         std::chrono::milliseconds slowness) {
  std::string_view path = target.path;
  if (!path.starts_with(kDemoShopRoot)) return std::nullopt;
  path.remove_prefix(kDemoShopRoot.size());
  if (path.empty()) return HttpAnswer{200, "text/html; charset=utf-8", ShopsPage()};
  const std::string_view folder = path.substr(0, path.find('/'));
  const auto shops = DemoShops();
  const auto shop = std::find_if(shops.begin(), shops.end(),
                                 [folder](const DemoShop& s) { return s.folder == folder; });
  if (shop == shops.end() || folder.size() == path.size()) return std::nullopt;
  const std::string_view page = path.substr(folder.size() + 1);
  // The links of the large page are queries to the search itself.
  if (page == kItem || (page == kSearch && target.parameters.contains("no"))) {
    return Item(*shop, target);
  }
  Query query{*shop, std::nullopt, WordsOf(target), host};
  if (!ReadDepartment(target, *shop, query.department)) return std::nullopt;
  if (page == kSearch) return Search(query, slowness);
  if (page == kRedirected && shop->manner == ShopManner::kRedirects) {
    return Page(*shop, Found(query));
  }
  return std::nullopt;
}

}  // namespace brovanta::server
