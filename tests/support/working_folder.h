// Bare file names mean files in another folder for a while.
#pragma once

#include <filesystem>
#include <string>

namespace brovanta::test {

/// Works in the folder until it is destroyed. One object at a time, and no thread that looks at the
/// working folder meanwhile.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& folder) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;
  ~WorkingFolder() { std::filesystem::current_path(before_); }

 private:
  std::filesystem::path before_;
};

}  // namespace brovanta::test
