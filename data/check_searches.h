// A look at the saved searches and their results.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/folder_report.h"
#include "data/frame.h"

namespace brovanta::data_tool {

/// The search numbers in the index; `sound` false when there may be more.
struct IndexedSearches {
  std::set<std::int32_t> live;
  std::set<std::int32_t> deleted;
  bool sound = true;
};

/// Checks the bytes of "websearch.dat".
[[nodiscard]] IndexedSearches CheckSearchIndex(FileBytes bytes, FileReport& report,
                                               FileNotes& notes);

/// Checks the bytes of a results file.
void CheckResults(FileBytes bytes, FileReport& report, FileNotes& notes);

/// The number of a search from the name of its results file; nothing for any other name.
[[nodiscard]] std::optional<std::int32_t> SearchNumber(const std::string& name);

/// Notes searches without their file and files without their search.
void CompareWithIndex(const IndexedSearches& index, const std::vector<std::string>& result_files,
                      std::vector<Finding>& findings);

}  // namespace brovanta::data_tool
