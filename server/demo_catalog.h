// The invented stores, categories and products of the demonstration.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace brovanta::server {

struct DemoStore {
  std::string_view name;
  std::uint32_t categories = 0;  ///< a bit for each category that it sells, 1 << id

  [[nodiscard]] bool Sells(int category) const;
};

struct DemoProduct {
  std::string_view name;
  int category = 0;  ///< its id, 1 to 20
  int cents = 0;     ///< what it usually costs
};

inline constexpr std::size_t kDemoStoreCount = 30;
inline constexpr std::size_t kDemoCategoryCount = 20;

/// Those of ids 1, 2, 3 and so on. All texts of the catalogue are UTF-8 and pass the text
/// rules.
[[nodiscard]] const std::array<DemoStore, kDemoStoreCount>& DemoStores();
[[nodiscard]] const std::array<std::string_view, kDemoCategoryCount>& DemoCategories();

/// Five products of each category.
[[nodiscard]] std::span<const DemoProduct> DemoProducts();

}  // namespace brovanta::server
