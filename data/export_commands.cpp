#include "data/export_commands.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <utility>

#include "data/exit_status.h"
#include "data/export_csv.h"
#include "data/export_json.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

CommandEnd Failed(const std::string& what, const std::string& words, int status = kBad) {
  return {status, {}, {Quoted(what) + ": " + words}};
}

// Links are followed as far as the path is there; the file itself need not be.
std::filesystem::path Resolved(const std::string& path) {
  std::error_code error;
  auto resolved = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
  return error ? std::filesystem::path(path) : resolved;
}

bool IsWithin(const std::string& folder, const std::string& path) {
  const std::filesystem::path outer = Resolved(folder);
  const std::filesystem::path inner = Resolved(path);
  const auto [end, other] =
      std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end(),
                    [](const auto& left, const auto& right) { return left == right; });
  // A slash at its end gives a path an empty last name.
  return end == outer.end() || (std::next(end) == outer.end() && end->empty());
}

// Empty when it is done.
std::string Write(const std::string& path, const std::string& text) {
  switch (platform::TryReplaceFile(path, std::as_bytes(std::span(text)))) {
    case platform::Replacement::kDone:
      return {};
    case platform::Replacement::kHeld:
      return "someone else has the file open, or it may not be written";
    case platform::Replacement::kNotSynced:
      return "the file stands there but may not outlive a power loss: the device does not answer";
    case platform::Replacement::kRefused:
      break;
  }
  return "the file cannot be written";
}

constexpr char kNotInside[] = "this is in the data folder, where only data may be";

}  // namespace

std::optional<DataSnapshot> ReadForExport(const std::string& folder, CommandEnd& end) {
  if (!platform::IsFolder(folder)) {
    end = Failed(folder, "there is no such folder", kNoFolder);
    return std::nullopt;
  }
  DataSnapshot files;
  switch (TakeDataSnapshot(platform::CanonicalFolder(folder), files)) {
    case SnapshotResult::kTaken:
      if (!files.empty()) return files;
      end = Failed(folder, "no data file of the program is in it", kNoFolder);
      break;
    case SnapshotResult::kBusy:
      end = Failed(folder, "someone else has a file open: try again in a moment");
      break;
    case SnapshotResult::kUnfinished:
      end = Failed(folder, "a change was left in the middle: start the program once, it undoes it");
      break;
    case SnapshotResult::kFailed:
      end = Failed(folder, "a file cannot be read", kNoFolder);
      break;
  }
  return std::nullopt;
}

CommandEnd DeliverExport(const CommandLine& line, std::string text) {
  const auto path = line.ValueOf("--output");
  if (!path) return {kGood, std::move(text), {}};
  if (IsWithin(line.arguments.front(), *path)) return Failed(*path, kNotInside);
  const std::string trouble = Write(*path, text);
  return trouble.empty() ? CommandEnd{kGood, {}, {}} : Failed(*path, trouble);
}

CommandEnd ExportAsJson(const CommandLine& line) {
  CommandEnd end;
  const auto files = ReadForExport(line.arguments.front(), end);
  return files ? DeliverExport(line, ExportJson(*files)) : end;
}

CommandEnd ExportAsCsv(const CommandLine& line) {
  const auto folder = line.ValueOf("--output");
  if (!folder)
    return {kMisused, {}, {"--csv needs a folder: -o FOLDER. See brovanta-data --help."}};
  if (IsWithin(line.arguments.front(), *folder)) return Failed(*folder, kNotInside);
  CommandEnd end;
  const auto files = ReadForExport(line.arguments.front(), end);
  if (!files) return end;
  if (!platform::CreateFolder(*folder)) return Failed(*folder, "the folder cannot be made");
  for (const CsvTable& table : ExportCsv(*files)) {
    const std::string path = *folder + "/" + table.file;
    const std::string trouble = Write(path, table.text);
    if (!trouble.empty()) return Failed(path, trouble);
    for (const std::string& damage : table.damages) {
      end.status = kBad;
      end.complaints.push_back(damage + "; " + table.file + " has what stands in front of that");
    }
  }
  return end;
}

}  // namespace brovanta::data_tool
