#include "data/import_command.h"

#include <new>
#include <optional>
#include <string>

#include "data/exit_status.h"
#include "data/folder_change.h"
#include "data/import_json.h"
#include "platform/quiet_read.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

using Outcome = FolderChangeEnd::Outcome;
using platform::QuietResult;

std::string WhyNotRead(QuietResult result) {
  switch (result) {
    case QuietResult::kMissing:
      return "there is no such file";
    case QuietResult::kHeld:
      return "someone else has the file open";
    case QuietResult::kRefused:
      return "this is no file, or it may not be read";
    case QuietResult::kTooLarge:
      return "the file is larger than 256 MB";
    case QuietResult::kChanging:
      return "the file changes while it is read";
    case QuietResult::kRead:
    case QuietResult::kFailed:
      break;
  }
  return "the file cannot be read";
}

std::optional<DataSnapshot> ReadDocument(const std::string& path, std::string& error) {
  std::string document;
  const QuietResult result = platform::ReadQuietly(path, document);
  if (result != QuietResult::kRead) {
    error = WhyNotRead(result);
    return std::nullopt;
  }
  try {
    auto files = ImportJson(document, error);
    if (!files || !files->empty()) return files;
    error = "there are no files in this document";
  } catch (const std::bad_alloc&) {
    error = "there is not enough memory for it";
  }
  return std::nullopt;
}

bool PutIn(const DataSnapshot& files, bool may_replace, FolderChange& change) {
  if (!change.TakeFolder() || !change.ReadCurrent(files)) return false;
  if (!may_replace && !HoldsNothing(change.current())) {
    return change.Stop(Outcome::kHasData,
                       "there are data files in it already; --replace keeps them as a copy and "
                       "puts the others in their place");
  }
  return change.KeepCurrent() && change.Replace(files);
}

std::string Count(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Report(const FolderChangeEnd& end, const std::string& file, const std::string& folder) {
  if (end.outcome == Outcome::kSame) {
    return Quoted(folder) + " holds the very data of " + Quoted(file) + " already.\n";
  }
  std::string text = Quoted(folder) + " holds the data of " + Quoted(file) + ": " +
                     Count(end.written, "file") + " written, " + std::to_string(end.removed) +
                     " removed.\n";
  if (!end.kept_as.empty()) text += "What stood there before is kept as " + end.kept_as + ".\n";
  return text;
}

}  // namespace

CommandEnd ImportFromJson(const CommandLine& line) {
  const std::string& file = line.arguments[0];
  const std::string& folder = line.arguments[1];
  std::string error;
  const auto files = ReadDocument(file, error);
  if (!files) return {kBad, {}, {Quoted(file) + ": " + error}};
  FolderChange change(folder);
  (void)PutIn(*files, line.Has("--replace"), change);
  const FolderChangeEnd& end = change.end();
  if (end.outcome == Outcome::kDone || end.outcome == Outcome::kSame) {
    return {kGood, Report(end, file, folder), {}};
  }
  return {kBad, {}, {Quoted(folder) + ": " + end.words}};
}

}  // namespace brovanta::data_tool
