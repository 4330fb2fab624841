// Layout of the search index and of the results files, byte by byte; docs/formats/search_index.md
// and docs/formats/search_results.md describe them. Reader, writer and tests share these numbers.
// Marks and frame are those of db/record_format.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brovanta {

inline constexpr char kSearchIndexFile[] = "websearch.dat";
inline constexpr char kResultsSuffix[] = ".dat";  ///< behind the search's number
inline constexpr char kAgentFile[] = "webspider.xml";

namespace saved_search_layout {
inline constexpr std::size_t kReserved = 0;
inline constexpr std::size_t kNumber = 4;
inline constexpr std::size_t kCategoryId = 8;
inline constexpr std::size_t kDate = 12;
inline constexpr std::size_t kWords = 16;
inline constexpr std::size_t kWordsSize = 50;
inline constexpr std::size_t kDeleted = 66;
inline constexpr std::size_t kSize = 68;

static_assert(kNumber == kReserved + 4 && kCategoryId == kNumber + 4 && kDate == kCategoryId + 4);
static_assert(kWords == kDate + 4 && kDeleted == kWords + kWordsSize && kSize == kDeleted + 2);
}  // namespace saved_search_layout

/// Kept: the first search ever saved gets the number behind it, 2.
inline constexpr std::int32_t kInitialSearchNumber = 1;

/// The numbers of a result; its four texts follow, each behind its length.
namespace result_layout {
inline constexpr std::size_t kId = 0;
inline constexpr std::size_t kPrice = 4;
inline constexpr std::size_t kStatus = 12;
inline constexpr std::size_t kSize = 14;
inline constexpr std::size_t kLengthSize = 4;  ///< in front of each text
inline constexpr std::size_t kTexts = 4;       ///< Title, Text, Url, SiteName

static_assert(kPrice == kId + 4 && kStatus == kPrice + 8 && kSize == kStatus + 2);
}  // namespace result_layout

/// A results file has no LastId: its first mark stands right behind the magic.
inline constexpr std::size_t kFirstResultMark = 4;

}  // namespace brovanta
