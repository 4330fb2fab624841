// Data folders for tests, made by the program's own operations.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "data/folder_report.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// A household in the folder: lists, three products (one deleted, one with coupon links), a
/// purchase, four discounts (one deleted), three saved searches (one deleted) and two agents.
void MakeHousehold(const std::string& folder);

/// The three empty lists of a first start.
void MakeEmptyLists(const std::string& folder);

/// Everything that stands in a folder: names, bytes, times and permissions.
struct StoredFile {
  Bytes bytes;
  std::int64_t changed = 0;  ///< nanoseconds
  std::uint32_t mode = 0;
  friend bool operator==(const StoredFile&, const StoredFile&) = default;
};
[[nodiscard]] std::map<std::string, StoredFile> PictureOf(const std::string& folder);

/// The bytes alone.
[[nodiscard]] std::map<std::string, Bytes> FilesOf(const std::string& folder);

/// The findings as lines: "error store.lst 8 #5000: words", with "-" for what is not known.
[[nodiscard]] std::vector<std::string> Lines(const std::vector<data_tool::Finding>& findings);

}  // namespace brovanta::test
