// What a look at a data folder brought.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace brovanta::data_tool {

enum class Severity {
  kNote,     ///< worth knowing; nothing is wrong
  kWarning,  ///< something does not fit together; the program lives with it
  kError,    ///< the program cannot read the file or add to it, or data is lost
};

struct Finding {
  Severity severity = Severity::kNote;
  std::string file;                    ///< its name in the folder
  std::optional<std::size_t> byte;     ///< in the file, from 0
  std::optional<std::int32_t> record;  ///< the id of the record
  std::string words;                   ///< for a person, without a full stop
};

enum class FileState { kRead, kMissing, kNotRead };

struct FileReport {
  std::string name;
  FileState state = FileState::kMissing;
  std::size_t bytes = 0;               ///< when it was read
  std::optional<std::size_t> records;  ///< that could be read, deleted ones included
  std::optional<std::size_t> deleted;
};

struct FolderReport {
  bool in_use = false;  ///< someone works in the folder: the program, as a rule
  std::vector<FileReport> files;
  std::vector<Finding> findings;

  [[nodiscard]] std::size_t Count(Severity severity) const {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [severity](const Finding& one) { return one.severity == severity; }));
  }

  /// No errors and no warnings.
  [[nodiscard]] bool IsWhole() const {
    return Count(Severity::kError) == 0 && Count(Severity::kWarning) == 0;
  }
};

/// Takes what is found in one file.
class FileNotes {
 public:
  FileNotes(std::string file, std::vector<Finding>& findings)
      : file_(std::move(file)), findings_(findings) {}

  void Add(Severity severity, std::string words, std::optional<std::size_t> byte = std::nullopt,
           std::optional<std::int32_t> record = std::nullopt) {
    findings_.push_back({severity, file_, byte, record, std::move(words)});
  }

 private:
  std::string file_;
  std::vector<Finding>& findings_;
};

}  // namespace brovanta::data_tool
