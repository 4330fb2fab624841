// A locale that writes numbers with a comma, made for the length of a test.
#pragma once

#include <optional>
#include <string>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Compiles a German locale into a temporary folder and sets it for the whole process; the old
/// locale comes back at the end.
class CommaLocale {
 public:
  CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale();

  /// Whether this system has the compiler of locales.
  [[nodiscard]] static bool IsAvailable();

 private:
  TempFolder folder_;
  std::string previous_locale_;
  std::optional<std::string> previous_path_;
};

}  // namespace brovanta::test
