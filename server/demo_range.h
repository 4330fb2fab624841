// The articles that the demonstration shops draw on, made by rule from the words of demo_goods.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "server/demo_goods.h"

namespace brovanta::server {

struct Article {
  std::int32_t number = 0;  ///< from 1 on, for good
  std::string name;         ///< UTF-8: maker, variety, kind and size; no two are alike
  std::string maker;
  Department department = Department::kGroceries;
  int cents = 0;  ///< what it usually costs
};

/// All of them by ascending number; made once, by whoever asks first.
[[nodiscard]] const std::vector<Article>& Articles();

/// The article of a number, nullptr when there is none.
[[nodiscard]] const Article* FindArticle(std::int32_t number);

/// "Groceries", "Household", "Electronics".
[[nodiscard]] std::string_view DepartmentName(Department department);

/// A number that looks like chance and is the same everywhere for the same arguments.
[[nodiscard]] std::uint32_t Chance(std::uint32_t first, std::uint32_t second);

/// The nearest price at or above `cents` that ends in a digit, in 9 as most price tags do.
[[nodiscard]] int PriceTag(int cents, int last_digit = 9);

/// Decides whether the name of an article has the words of a search, letter case aside. Handhelds
/// send every accented letter as the byte 0xFF: it stands for any of them, as does each of them.
class NameSearch {
 public:
  /// Words as a query brought them: UTF-8, else single bytes.
  explicit NameSearch(std::string_view words);

  [[nodiscard]] bool HasAll(const Article& article) const;
  [[nodiscard]] bool HasAny(const Article& article) const;

 private:
  std::vector<std::string> words_;
};

}  // namespace brovanta::server
