// The web search as a whole: its files, its categories and agents, the running and the saved ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "search/agent_configuration.h"
#include "search/saved_searches.h"
#include "search/search_engine.h"

namespace brovanta {

/// Owned by the main screen for the run of the program; the user-interface thread only.
class SearchManager {
 public:
  SearchManager() = default;
  /// With another network and other threads.
  explicit SearchManager(SearchServices services) : engine_(std::move(services)) {}

  /// Builds the three paths in the installation folder (UTF-8), each at most 249 bytes and in the
  /// documented form. A base of one byte or none is not used: the paths are then bare names.
  /// Returns 0.
  [[nodiscard]] int SetSearchFolder(const std::string& base_path);

  [[nodiscard]] const std::string& index_path() const { return index_path_; }
  [[nodiscard]] const std::string& configuration_path() const { return configuration_path_; }
  [[nodiscard]] const std::string& results_folder() const { return results_folder_; }

  /// Replaces categories and agents by those of the file, with the codes of the function of the
  /// same name. An agent that a search still runs lives on with that search.
  [[nodiscard]] int LoadAgentConfiguration(const std::string& path);

  /// The categories in the order of the file; nullptr at the end. Pointers are good until the next
  /// load. One shared cursor: walks must not be nested. Likewise the agents.
  [[nodiscard]] const WebAgentType* FirstCategory();
  [[nodiscard]] const WebAgentType* NextCategory();
  [[nodiscard]] std::size_t CategoryCount() const { return configuration_.categories.size(); }
  [[nodiscard]] std::shared_ptr<const WebAgent> FirstAgent();
  [[nodiscard]] std::shared_ptr<const WebAgent> NextAgent();

  /// Starts a search over the agents that are loaded and serve the category; search_engine.h says
  /// the rest. The number of agents that run.
  [[nodiscard]] std::int32_t StartSearch(std::int32_t category_id, std::string words,
                                         std::shared_ptr<ProgressWindow> window) {
    return engine_.StartSearch(configuration_.agents, category_id, std::move(words),
                               std::move(window));
  }
  std::int32_t StopSearch() { return engine_.StopSearch(); }

  /// The last search: its results, category and words.
  [[nodiscard]] const SearchEngine& engine() const { return engine_; }

  /// The saved searches of the folder.
  [[nodiscard]] SavedSearches& saved_searches() { return saved_searches_; }

 private:
  std::string index_path_;
  std::string configuration_path_;
  std::string results_folder_;
  AgentConfiguration configuration_;
  std::size_t next_category_ = 0;
  std::size_t next_agent_ = 0;
  SavedSearches saved_searches_;
  SearchEngine engine_;
};

}  // namespace brovanta
