#include "data/export_commands.h"

#include <optional>
#include <string>

#include "data/exit_status.h"
#include "data/export_csv.h"
#include "data/export_json.h"
#include "data/folder_reader.h"
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
  ReadProblem problem;
  auto files = ReadFolder(folder, problem);
  if (!files) end = Failed(folder, problem.words, problem.status);
  return files;
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
