#include "data/file_kind.h"

#include "data/check_searches.h"
#include "db/file_names.h"
#include "search/search_format.h"

namespace brovanta::data_tool {

std::optional<FileKind> KindOfFile(const std::string& name) {
  if (name == kStoreFile || name == kCategoryFile || name == kUnitFile) return FileKind::kList;
  if (name == kDiscountFile) return FileKind::kDiscounts;
  if (name == kProductFile || name == kPurchaseFile) return FileKind::kProducts;
  if (name == kSearchIndexFile) return FileKind::kSearches;
  if (name == kAgentFile) return FileKind::kAgents;
  const std::string folder = std::string(kResultsFolder) + "/";
  if (name.starts_with(folder) && SearchNumber(name.substr(folder.size()))) {
    return FileKind::kResults;
  }
  return std::nullopt;
}

std::optional<FrameKind> FrameOf(FileKind kind) {
  switch (kind) {
    case FileKind::kList:
      return kListFrame;
    case FileKind::kDiscounts:
      return kDiscountFrame;
    case FileKind::kProducts:
      return kProductFrame;
    case FileKind::kSearches:
      return kSearchIndexFrame;
    case FileKind::kResults:
      return kResultsFrame;
    case FileKind::kAgents:
      break;
  }
  return std::nullopt;
}

}  // namespace brovanta::data_tool
