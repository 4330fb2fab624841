#include "data/search_entry.h"

#include <cstring>

#include "util/little_endian.h"

namespace brovanta::data_tool {

namespace layout = saved_search_layout;

SearchEntryBytes EncodeSearchEntry(const SearchEntry& entry) {
  SearchEntryBytes bytes{};
  StoreLittle(bytes.data() + layout::kNumber, entry.Number);
  StoreLittle(bytes.data() + layout::kCategoryId, entry.CategoryId);
  StoreLittle(bytes.data() + layout::kDate, entry.Date);
  std::memcpy(bytes.data() + layout::kWords, entry.Words.bytes().data(), layout::kWordsSize);
  bytes[layout::kDeleted] = std::byte{entry.Deleted};
  return bytes;
}

SearchEntry DecodeSearchEntry(std::span<const std::byte, layout::kSize> bytes) {
  SearchEntry entry;
  entry.Number = LoadLittle<std::int32_t>(bytes.data() + layout::kNumber);
  entry.CategoryId = LoadLittle<std::int32_t>(bytes.data() + layout::kCategoryId);
  entry.Date = LoadLittle<DateStamp>(bytes.data() + layout::kDate);
  entry.Words = FixedText<layout::kWordsSize>(bytes.data() + layout::kWords);
  entry.Deleted = std::to_integer<std::uint8_t>(bytes[layout::kDeleted]);
  return entry;
}

}  // namespace brovanta::data_tool
