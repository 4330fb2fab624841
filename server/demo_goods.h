// The words from which the demonstration's range of products is made.
#pragma once

#include <span>
#include <string_view>

namespace brovanta::server {

/// The three departments, which are also the search categories of the agent file.
enum class Department { kGroceries = 1, kHousehold = 2, kElectronics = 3 };

/// One kind of thing. Lists are separated by "|".
struct Good {
  std::string_view name;
  int cents = 0;               ///< the usual price of the first size in the first variety
  std::string_view varieties;  ///< stand in front of the name
  std::string_view sizes;      ///< stand behind the name, growing
};

/// What a department sells; all texts are UTF-8 with characters of Windows-1252 only, and without
/// any that HTML writes as an entity but "&".
[[nodiscard]] std::span<const Good> GoodsOf(Department department);

/// The invented makers of a department's goods.
[[nodiscard]] std::span<const std::string_view> MakersOf(Department department);

}  // namespace brovanta::server
