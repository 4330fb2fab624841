#include "search/search_manager.h"

#include <cstddef>
#include <string_view>

#include "db/file_names.h"
#include "search/search_format.h"

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
  index_path_ = Path(prefix, kSearchIndexFile);
  configuration_path_ = Path(prefix, kAgentFile);
  results_folder_ = Path(prefix, kResultsFolder);
  saved_searches_.SetPaths(index_path_, results_folder_);
  return 0;
}

int SearchManager::LoadAgentConfiguration(const std::string& path) {
  next_category_ = 0;
  next_agent_ = 0;
  return brovanta::LoadAgentConfiguration(path, configuration_);
}

const WebAgentType* SearchManager::FirstCategory() {
  next_category_ = 0;
  return NextCategory();
}

const WebAgentType* SearchManager::NextCategory() {
  if (next_category_ == configuration_.categories.size()) return nullptr;
  return &configuration_.categories[next_category_++];
}

std::shared_ptr<const WebAgent> SearchManager::FirstAgent() {
  next_agent_ = 0;
  return NextAgent();
}

std::shared_ptr<const WebAgent> SearchManager::NextAgent() {
  if (next_agent_ == configuration_.agents.size()) return nullptr;
  return configuration_.agents[next_agent_++];
}

}  // namespace brovanta
