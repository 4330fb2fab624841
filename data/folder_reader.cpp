#include "data/folder_reader.h"

#include "platform/folder.h"

namespace brovanta::data_tool {

std::optional<DataSnapshot> ReadFolder(const std::string& folder, ReadProblem& problem) {
  if (!platform::IsFolder(folder)) {
    problem = {kNoFolder, "there is no such folder"};
    return std::nullopt;
  }
  DataSnapshot files;
  std::string refused;
  const SnapshotResult result = TakeDataSnapshot(platform::CanonicalFolder(folder), files, refused);
  if (result != SnapshotResult::kTaken) {
    problem = {result == SnapshotResult::kFailed ? kNoFolder : kBad,
               WhyNoSnapshot(result, refused)};
    return std::nullopt;
  }
  if (!files.empty()) return files;
  problem = {kNoFolder, "no data file of the program is in it"};
  return std::nullopt;
}

}  // namespace brovanta::data_tool
