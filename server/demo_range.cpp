#include "server/demo_range.h"

#include <algorithm>

#include "server/narrow_text.h"
#include "util/utf16.h"
#include "util/word_search.h"

namespace brovanta::server {
namespace {

constexpr Department kDepartments[] = {Department::kGroceries, Department::kHousehold,
                                       Department::kElectronics};

constexpr int kPercentOfNextVariety = 107;

// The second size of most things holds about twice as much, and costs somewhat less than twice;
// that of devices is a little better.
int PercentOfNextSize(Department department) {
  return department == Department::kElectronics ? 130 : 180;
}

std::vector<std::string_view> Split(std::string_view list) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t bar = list.find('|');
    parts.push_back(list.substr(0, bar));
    if (bar == std::string_view::npos) return parts;
    list.remove_prefix(bar + 1);
  }
}

std::string Joined(std::string_view a, std::string_view b, std::string_view c, std::string_view d) {
  std::string text(a);
  for (const std::string_view part : {b, c, d}) text.append(" ").append(part);
  return text;
}

// Every size of a variety has one maker.
void AppendGood(std::vector<Article>& articles, Department department, const Good& good) {
  const auto makers = MakersOf(department);
  int variety_cents = good.cents;
  for (const std::string_view variety : Split(good.varieties)) {
    const auto seed = static_cast<std::uint32_t>(articles.size());
    const std::string_view maker =
        makers[Chance(seed, 7) % static_cast<std::uint32_t>(makers.size())];
    int cents = variety_cents;
    for (const std::string_view size : Split(good.sizes)) {
      articles.push_back({static_cast<std::int32_t>(articles.size()) + 1,
                          Joined(maker, variety, good.name, size), std::string(maker), department,
                          PriceTag(cents)});
      cents = cents * PercentOfNextSize(department) / 100;
    }
    variety_cents = variety_cents * kPercentOfNextVariety / 100;
  }
}

std::vector<Article> MakeArticles() {
  std::vector<Article> articles;
  for (const Department department : kDepartments) {
    for (const Good& good : GoodsOf(department)) AppendGood(articles, department, good);
  }
  return articles;
}

// Upper case, with one byte for every accented letter.
std::string Folded(std::string_view narrow) {
  std::string folded(narrow);
  for (char& character : folded) {
    const auto byte = static_cast<unsigned char>(character);
    character = static_cast<char>(byte >= 0x80 ? 0xFF : UpperCase(byte));
  }
  return folded;
}

}  // namespace

const std::vector<Article>& Articles() {
  static const std::vector<Article> articles = MakeArticles();
  return articles;
}

const Article* FindArticle(std::int32_t number) {
  const auto& articles = Articles();
  if (number < 1 || static_cast<std::size_t>(number) > articles.size()) return nullptr;
  return &articles[static_cast<std::size_t>(number) - 1];
}

std::string_view DepartmentName(Department department) {
  switch (department) {
    case Department::kGroceries:
      return "Groceries";
    case Department::kHousehold:
      return "Household";
    case Department::kElectronics:
      return "Electronics";
  }
  return "";
}

std::uint32_t Chance(std::uint32_t first, std::uint32_t second) {
  std::uint32_t mixed = first * 0x9E3779B1u ^ (second + 1) * 0x85EBCA77u;
  mixed = (mixed ^ mixed >> 15u) * 0x2C1B3C6Du;
  mixed = (mixed ^ mixed >> 12u) * 0x297A2D39u;
  return mixed ^ mixed >> 15u;
}

int PriceTag(int cents, int last_digit) { return (cents + 9 - last_digit) / 10 * 10 + last_digit; }

NameSearch::NameSearch(std::string_view words) {
  const bool utf8 = Utf8ToUtf16(words).has_value();
  const std::string folded = Folded(utf8 ? NarrowText(words) : std::string(words));
  std::string_view rest = folded;
  while (!rest.empty()) {
    const std::size_t blank = std::min(rest.find(' '), rest.size());
    if (blank > 0) words_.emplace_back(rest.substr(0, blank));
    rest.remove_prefix(std::min(blank + 1, rest.size()));
  }
}

bool NameSearch::HasAll(const Article& article) const {
  const std::string name = Folded(NarrowText(article.name));
  return std::all_of(words_.begin(), words_.end(), [&name](const std::string& word) {
    return name.find(word) != std::string::npos;
  });
}

bool NameSearch::HasAny(const Article& article) const {
  const std::string name = Folded(NarrowText(article.name));
  return std::any_of(words_.begin(), words_.end(), [&name](const std::string& word) {
    return name.find(word) != std::string::npos;
  });
}

}  // namespace brovanta::server
