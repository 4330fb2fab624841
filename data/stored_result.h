// One result of a results file, with everything that its bytes tell.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "search/search_format.h"

namespace brovanta::data_tool {

/// A text of a result: its length word and as many bytes, of which the last is a zero as a rule.
struct StoredResultText {
  std::int32_t length = 0;  ///< below 1: the text is missing and no bytes follow
  std::string bytes;        ///< as many as the length says

  friend bool operator==(const StoredResultText&, const StoredResultText&) = default;
};

struct StoredResult {
  std::int32_t Id = 0;
  double Price = 0.0;
  std::int16_t Status = 0;
  std::array<StoredResultText, result_layout::kTexts> texts;  ///< Title, Text, Url, SiteName
};

/// The size of the result at the beginning of the bytes; 0 when it is not whole.
[[nodiscard]] std::size_t SizeOfResult(std::span<const std::byte> rest);

/// Of a whole result.
[[nodiscard]] StoredResult DecodeResult(std::span<const std::byte> bytes);
[[nodiscard]] std::string EncodeResult(const StoredResult& result);

}  // namespace brovanta::data_tool
