// A file of marked records taken apart and put together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/record_format.h"
#include "search/search_format.h"

namespace brovanta::data_tool {

/// What the files of one kind are made of.
struct FrameKind {
  std::size_t record_size = 0;  ///< 0: search results, which tell their own size
  bool has_last_id = false;
};

inline constexpr FrameKind kListFrame{list_layout::kSize, false};
inline constexpr FrameKind kDiscountFrame{discount_layout::kSize, true};
inline constexpr FrameKind kProductFrame{product_layout::kSize, true};
inline constexpr FrameKind kSearchIndexFrame{saved_search_layout::kSize, true};
inline constexpr FrameKind kResultsFrame{0, false};

struct FramedFile {
  std::int32_t last_id = 0;               ///< where the kind has it
  std::vector<std::string_view> records;  ///< without their marks
  std::string_view behind_end;            ///< bytes behind the end mark
  /// What is damaged and where; the records are then those in front of it. A file without damage
  /// comes back from PutTogether bit for bit.
  std::optional<std::string> damage;
};

/// Borrows the bytes.
[[nodiscard]] FramedFile TakeApart(std::string_view bytes, const FrameKind& kind);

[[nodiscard]] std::string PutTogether(const FramedFile& file, const FrameKind& kind);

}  // namespace brovanta::data_tool
