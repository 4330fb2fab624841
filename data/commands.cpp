#include "data/commands.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/backup_reports.h"
#include "data/check_folder.h"
#include "data/exit_status.h"
#include "data/export_commands.h"
#include "data/export_ics.h"
#include "data/import_command.h"
#include "data/list_command.h"
#include "data/reports.h"
#include "data/restore.h"
#include "platform/folder.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

bool AsJson(const CommandLine& line) { return line.Has("--json"); }

CommandEnd NoFolder(const std::string& folder, const std::string& error) {
  return {kNoFolder, {}, {Quoted(folder) + ": " + error}};
}

CommandEnd Check(const CommandLine& line) {
  const std::string& folder = line.arguments.front();
  std::string error;
  const auto report = CheckFolder(folder, error);
  if (!report) return NoFolder(folder, error);
  return {report->IsWhole() ? kGood : kBad,
          AsJson(line) ? CheckAsJson(*report, folder) : CheckAsText(*report, folder),
          {}};
}

CommandEnd Backups(const CommandLine& line) {
  const std::string& folder = line.arguments.front();
  const BackupsReport report = ReportBackups(folder);
  if (report.copies.empty() && !platform::IsFolder(folder)) {
    return NoFolder(folder, "there is no such folder, nor a copy of one");
  }
  const bool all_are_read =
      std::all_of(report.copies.begin(), report.copies.end(),
                  [](const ListedCopy& listed) { return listed.unreadable.empty(); });
  return {report.obstacle.empty() && all_are_read ? kGood : kBad,
          AsJson(line) ? BackupsAsJson(report) : BackupsAsText(report),
          {}};
}

CommandEnd Restore(const CommandLine& line) {
  const std::string& folder = line.arguments.front();
  const auto name =
      line.arguments.size() > 1 ? std::optional(line.arguments[1]) : std::optional<std::string>();
  const RestoreEnd end = RestoreCopy(folder, name);
  switch (end.outcome) {
    case RestoreEnd::Outcome::kDone:
    case RestoreEnd::Outcome::kSame:
      return {kGood, AsJson(line) ? RestoreAsJson(end, folder) : RestoreAsText(end, folder), {}};
    case RestoreEnd::Outcome::kNoFolder:
      return NoFolder(folder, end.words);
    case RestoreEnd::Outcome::kNoCopy:
    case RestoreEnd::Outcome::kHasData:
    case RestoreEnd::Outcome::kInUse:
    case RestoreEnd::Outcome::kFailed:
    case RestoreEnd::Outcome::kUndecided:
      break;
  }
  return {kBad, {}, {Quoted(folder) + ": " + end.words}};
}

CommandEnd Export(const CommandLine& line) {
  if (line.Has("--csv")) return ExportAsCsv(line);
  return line.Has("--ics") ? ExportAsIcs(line) : ExportAsJson(line);
}

constexpr std::array kReportOptions{Option{"--json", "", "writes JSON, for scripts"}};

constexpr int kFormats = 1;
constexpr std::array kExportOptions{
    Option{"--json", "", "everything in one document, which import takes back", kFormats},
    Option{"--csv", "", "a table for each kind of data, for spreadsheets", kFormats},
    Option{"--ics", "", "due dates and recurrence rules for a calendar", kFormats},
    Option{"--output", "PATH",
           "the file to write instead of standard output; of --csv the\nfolder for its tables", 0,
           "-o"},
};

constexpr std::array kImportOptions{
    Option{"--json", "", "FILE is a document of export --json", kFormats},
    Option{"--replace", "", "replaces the data that DIR has, and keeps it as a copy"},
};

const std::array kCommands{
    Command{"check", "DIR",
            "looks at every file of a data folder and tells what is wrong where;\n"
            "changes nothing",
            1, 1, &Check, kReportOptions},
    Command{"backups", "DIR", "lists the copies that the program has kept of it", 1, 1, &Backups,
            kReportOptions},
    Command{"restore", "DIR [NAME]",
            "brings a copy back, the newest daily one without a name such as\n"
            "2026-11-21, and keeps what it replaces as a copy",
            1, 2, &Restore, kReportOptions},
    Command{"list", "DIR",
            "writes the shopping list of a day, a week or a month, with what it costs", 1, 1, &List,
            ListOptions()},
    Command{"export", "DIR", "takes the data out; changes nothing", 1, 1, &Export, kExportOptions,
            kFormats},
    Command{"import", "FILE DIR",
            "puts data into an empty or new folder: the same files, bit for bit,\n"
            "as those that were exported",
            2, 2, &ImportFromJson, kImportOptions, kFormats},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

}  // namespace brovanta::data_tool
