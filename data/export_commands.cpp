#include "data/export_commands.h"

#include <optional>
#include <string>

#include "data/exit_status.h"
#include "data/export_csv.h"
#include "data/export_json.h"
#include "data/output_file.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

CommandEnd Failed(const std::string& what, const std::string& words, int status = kBad) {
  return {status, {}, {Quoted(what) + ": " + words}};
}

// Nothing when they cannot be had; `end` then says so.
std::optional<DataSnapshot> ReadForExport(const std::string& folder, CommandEnd& end) {
  if (!platform::IsFolder(folder)) {
    end = Failed(folder, "there is no such folder", kNoFolder);
    return std::nullopt;
  }
  DataSnapshot files;
  std::string refused;
  const SnapshotResult result = TakeDataSnapshot(platform::CanonicalFolder(folder), files, refused);
  if (result != SnapshotResult::kTaken) {
    end = Failed(folder, WhyNoSnapshot(result, refused),
                 result == SnapshotResult::kFailed ? kNoFolder : kBad);
    return std::nullopt;
  }
  if (!files.empty()) return files;
  end = Failed(folder, "no data file of the program is in it", kNoFolder);
  return std::nullopt;
}

}  // namespace

CommandEnd ExportAsJson(const CommandLine& line) {
  CommandEnd end;
  const auto files = ReadForExport(line.arguments.front(), end);
  return files ? DeliverDocument(line, line.arguments.front(), ExportJson(*files)) : end;
}

CommandEnd ExportAsCsv(const CommandLine& line) {
  const auto folder = line.ValueOf("--output");
  if (!folder) {
    return {kMisused, {}, {"--csv needs a folder: -o FOLDER. See brovanta-data --help."}};
  }
  if (LiesIn(*folder, line.arguments.front())) return NoPlaceForIt(*folder);
  CommandEnd end;
  const auto files = ReadForExport(line.arguments.front(), end);
  if (!files) return end;
  if (!platform::CreateFolder(*folder)) return Failed(*folder, "the folder cannot be made");
  for (const CsvTable& table : ExportCsv(*files)) {
    const std::string path = *folder + "/" + table.file;
    const std::string trouble = WriteOutput(path, table.text);
    if (!trouble.empty()) return Failed(path, trouble);
    for (const std::string& damage : table.damages) {
      end.status = kBad;
      end.complaints.push_back(damage + "; " + table.file + " has what stands in front of that");
    }
  }
  return end;
}

}  // namespace brovanta::data_tool
