// The files of a data folder that a user's data consists of.
#pragma once

#include <array>
#include <string_view>

#include "db/file_names.h"
#include "search/search_format.h"

namespace brovanta::data_tool {

/// Without the results files, which have a folder of their own, and without the journal.
inline constexpr std::array<std::string_view, 8> kDataFiles{
    kStoreFile,   kCategoryFile, kUnitFile,        kDiscountFile,
    kProductFile, kPurchaseFile, kSearchIndexFile, kAgentFile};

}  // namespace brovanta::data_tool
