// An entry of the index of saved searches as a value, deleted ones included.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "db/records.h"
#include "search/search_format.h"
#include "util/date_stamp.h"

namespace brovanta::data_tool {

struct SearchEntry {
  std::int32_t Number = 0;
  std::int32_t CategoryId = 0;  ///< of the shops' categories, not of "category.lst"
  DateStamp Date = 0;
  FixedText<saved_search_layout::kWordsSize> Words;
  std::uint8_t Deleted = 0;
};

using SearchEntryBytes = std::array<std::byte, saved_search_layout::kSize>;

/// Encoding writes zero to the reserved bytes.
[[nodiscard]] SearchEntryBytes EncodeSearchEntry(const SearchEntry& entry);
[[nodiscard]] SearchEntry DecodeSearchEntry(
    std::span<const std::byte, saved_search_layout::kSize> bytes);

}  // namespace brovanta::data_tool
