// The file with the results of one saved search; docs/formats/search_results.md describes it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "search/search_result_list.h"

namespace brovanta {

/// The bytes of a results file with the list, in its order and with the ids as they are.
[[nodiscard]] std::vector<std::byte> EncodeSearchResults(const SearchResultList& list);

/// Puts the list into a whole new file at the documented path; the old file stays when that fails.
/// In a folder of results this is a unit of work of the data folder above it, whose journal is
/// rolled back first. 0; ERR_OPEN when the file cannot be made, someone else holds the old one or
/// the journal, or what stands in the journal cannot be rolled back.
[[nodiscard]] int WriteSearchResults(const SearchResultList& list, const std::string& path);

/// Fills the list from the file, by price. 0; ERR_OPEN; ERR_FORMAT for a wrong magic, and for
/// anything else than a mark where one should be, the end of the file included; ERR_IO when the
/// file ends within the numbers of an item. With an error the list is empty: half of a file that is
/// changed and written back would be the end of the other half. A text with a length below 1 or
/// beyond the end of the file is missing.
[[nodiscard]] int ReadSearchResults(SearchResultList& list, const std::string& path);

}  // namespace brovanta
