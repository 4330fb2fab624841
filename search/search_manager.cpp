#include "search/search_manager.h"

#include <cstddef>
#include <string_view>

namespace brovanta {
namespace {

// What a path's buffer holds besides its terminator.
constexpr std::size_t kPathLength = 249;

// The folder as it stands in front of a name: with a separator at its end, or empty.
std::string Prefix(const std::string& base_path) {
  if (base_path.size() < 2) return "";
  const bool separated = base_path.back() == '\\' || base_path.back() == '/';
  return separated ? base_path : base_path + '\\';
}

std::string Path(const std::string& prefix, std::string_view name) {
  return (prefix + std::string(name)).substr(0, kPathLength);
}

}  // namespace

int SearchManager::SetSearchFolder(const std::string& base_path) {
  const std::string prefix = Prefix(base_path);
  index_path_ = Path(prefix, "websearch.dat");
  configuration_path_ = Path(prefix, "webspider.xml");
  results_folder_ = Path(prefix, "WebSearch");
  return 0;
}

}  // namespace brovanta
