#include "data/reports.h"

#include "util/json_writer.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

std::string Count(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

const char* SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return "note";
    case Severity::kWarning:
      return "warning";
    case Severity::kError:
      return "error";
  }
  return "";
}

const char* StateName(FileState state) {
  switch (state) {
    case FileState::kRead:
      return "read";
    case FileState::kMissing:
      return "missing";
    case FileState::kNotRead:
      return "not read";
  }
  return "";
}

// File names come from the folder: they must not steer a terminal.
std::string NameText(const std::string& name) {
  const std::string quoted = Quoted(name);
  return quoted.substr(1, quoted.size() - 2);
}

std::string FileLine(const FileReport& file) {
  std::string line = NameText(file.name) + ": ";
  if (file.state != FileState::kRead) {
    return line + (file.state == FileState::kMissing ? "none\n" : "not looked at\n");
  }
  line += Count(file.bytes, "byte");
  if (file.records) {
    line += ", " + std::to_string(*file.records) + (*file.records == 1 ? " entry" : " entries");
  }
  if (file.deleted && *file.deleted > 0) line += ", " + std::to_string(*file.deleted) + " deleted";
  return line + "\n";
}

std::string FindingLine(const Finding& finding) {
  std::string line = std::string(SeverityName(finding.severity)) + ": " + NameText(finding.file);
  if (finding.byte) line += ", byte " + std::to_string(*finding.byte);
  if (finding.record) line += ", record " + std::to_string(*finding.record);
  return line + ": " + finding.words + "\n";
}

template <typename Number>
void OptionalNumber(JsonWriter& json, const char* key, const std::optional<Number>& number) {
  json.Key(key);
  if (number) {
    json.Number(*number);
  } else {
    json.Null();
  }
}

void FileAsJson(JsonWriter& json, const FileReport& file) {
  json.BeginObject();
  json.Key("file").Text(file.name).Key("state").Text(StateName(file.state));
  OptionalNumber(json, "bytes",
                 file.state == FileState::kRead ? std::optional(file.bytes) : std::nullopt);
  OptionalNumber(json, "entries", file.records);
  OptionalNumber(json, "deleted", file.deleted);
  json.EndObject();
}

void FindingAsJson(JsonWriter& json, const Finding& finding) {
  json.BeginObject();
  json.Key("severity").Text(SeverityName(finding.severity)).Key("file").Text(finding.file);
  OptionalNumber(json, "byte", finding.byte);
  OptionalNumber(json, "record", finding.record);
  json.Key("words").Text(finding.words).EndObject();
}

}  // namespace

std::string CheckAsText(const FolderReport& report, const std::string& folder) {
  std::string text = NameText(folder) + "\n";
  if (report.in_use) {
    text +=
        "The program works in this folder just now; what it changes meanwhile may look wrong.\n";
  }
  for (const FileReport& file : report.files) text += FileLine(file);
  for (const Finding& finding : report.findings) text += FindingLine(finding);
  if (report.IsWhole()) return text + "The folder is whole.\n";
  return text + "The folder is NOT whole: " + Count(report.Count(Severity::kError), "error") +
         " and " + Count(report.Count(Severity::kWarning), "warning") + ".\n";
}

std::string CheckAsJson(const FolderReport& report, const std::string& folder) {
  JsonWriter json;
  json.BeginObject();
  json.Key("folder").Text(folder).Key("whole").Bool(report.IsWhole());
  json.Key("in_use").Bool(report.in_use);
  json.Key("errors").Number(report.Count(Severity::kError));
  json.Key("warnings").Number(report.Count(Severity::kWarning));
  json.Key("notes").Number(report.Count(Severity::kNote));
  json.Key("files").BeginArray();
  for (const FileReport& file : report.files) FileAsJson(json, file);
  json.EndArray().Key("findings").BeginArray();
  for (const Finding& finding : report.findings) FindingAsJson(json, finding);
  json.EndArray().EndObject();
  return json.text() + "\n";
}

}  // namespace brovanta::data_tool
