#include "data/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "data/exit_status.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;

bool LiesIn(const std::string& file, const std::string& folder) {
  const fs::path parent = fs::path(file).parent_path();
  std::error_code ignored;
  return fs::equivalent(parent.empty() ? fs::path(".") : parent, folder, ignored);
}

// 0, or the system's number of what went wrong.
int WriteFile(const std::string& path, std::string_view bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) return errno;
  int error = 0;
  while (!bytes.empty() && error == 0) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      error = errno;
    }
  }
  if (close(file) != 0 && error == 0) error = errno;
  return error;
}

}  // namespace

CommandEnd DeliverDocument(const CommandLine& line, const std::string& folder,
                           std::string document) {
  const auto file = line.ValueOf(kOutputOption.name);
  if (!file) return {kGood, std::move(document), {}};
  if (LiesIn(*file, folder)) {
    return {kBad, {}, {Quoted(*file) + ": the data folder is no place for it"}};
  }
  if (const int error = WriteFile(*file, document); error != 0) {
    return {kBad, {}, {Quoted(*file) + ": " + std::generic_category().message(error)}};
  }
  return {kGood, {}, {}};
}

}  // namespace brovanta::data_tool
