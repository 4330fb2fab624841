#include "data/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <span>
#include <system_error>
#include <utility>

#include "data/exit_status.h"
#include "platform/file.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;

// As far as the path is there; the file itself need not be.
fs::path Resolved(const std::string& path) {
  std::error_code error;
  fs::path resolved = fs::weakly_canonical(fs::absolute(path, error), error);
  return error ? fs::path(path) : resolved;
}

// 0, or the system's number of what went wrong.
int WriteToDevice(const std::string& path, std::string_view bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
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

bool LiesIn(const std::string& path, const std::string& folder) {
  const fs::path outer = Resolved(folder);
  const fs::path inner = Resolved(path);
  const auto end = std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first;
  // A slash at its end gives a path an empty last name.
  return end == outer.end() || (std::next(end) == outer.end() && end->empty());
}

CommandEnd NoPlaceForIt(const std::string& path) {
  return {kBad, {}, {Quoted(path) + ": the data folder is no place for it"}};
}

std::string WriteOutput(const std::string& path, std::string_view bytes) {
  if (platform::IsOtherThanFile(path)) {
    const int error = WriteToDevice(path, bytes);
    return error == 0 ? "" : std::generic_category().message(error);
  }
  errno = 0;
  switch (platform::TryReplaceFile(path, std::as_bytes(std::span(bytes)))) {
    case platform::Replacement::kDone:
      return {};
    case platform::Replacement::kHeld:
      return "someone else has the file open, or it may not be written";
    case platform::Replacement::kNotSynced:
      return "the file stands there, but the device does not say that it will stay";
    case platform::Replacement::kRefused:
      break;
  }
  return errno != 0 ? std::generic_category().message(errno) : "the file cannot be written";
}

CommandEnd DeliverDocument(const CommandLine& line, const std::string& folder,
                           std::string document) {
  const auto file = line.ValueOf(kOutputOption.name);
  if (!file) return {kGood, std::move(document), {}};
  if (LiesIn(*file, folder)) return NoPlaceForIt(*file);
  const std::string trouble = WriteOutput(*file, document);
  if (!trouble.empty()) return {kBad, {}, {Quoted(*file) + ": " + trouble}};
  return {kGood, {}, {}};
}

}  // namespace brovanta::data_tool
