// The web search as a whole: where its files live.
#pragma once

#include <string>

namespace brovanta {

/// Owned by the main screen for the run of the program; the user-interface thread only.
class SearchManager {
 public:
  /// Builds the three paths in the installation folder (UTF-8), each at most 249 bytes and in the
  /// documented form. A base of one byte or none is not used: the paths are then bare names.
  /// Returns 0.
  int SetSearchFolder(const std::string& base_path);

  [[nodiscard]] const std::string& index_path() const { return index_path_; }
  [[nodiscard]] const std::string& configuration_path() const { return configuration_path_; }
  [[nodiscard]] const std::string& results_folder() const { return results_folder_; }

 private:
  std::string index_path_;
  std::string configuration_path_;
  std::string results_folder_;
};

}  // namespace brovanta
