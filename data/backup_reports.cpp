#include "data/backup_reports.h"

#include <utility>

#include "data/data_snapshot.h"
#include "util/json_writer.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

std::string Count(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

const char* KindOf(const BackupCopy& copy) { return copy.is_daily ? "daily" : "before restore"; }

}  // namespace

BackupsReport ReportBackups(const std::string& folder) {
  const BackupFolder backups(folder);
  BackupsReport report{folder, backups.path(), backups.Obstacle(), {}};
  for (BackupCopy& copy : backups.Copies()) {
    DataSnapshot snapshot;
    std::string refused;
    const SnapshotResult result = TakeDataSnapshot(backups.PathOf(copy.name), snapshot, refused);
    if (result == SnapshotResult::kTaken) refused.clear();
    report.copies.push_back({std::move(copy), std::move(refused)});
  }
  return report;
}

std::string BackupsAsText(const BackupsReport& report) {
  std::string text;
  for (const auto& [copy, unreadable] : report.copies) {
    text += copy.name + ": " + KindOf(copy) + ", " + Count(copy.files, "file") + ", " +
            Count(static_cast<std::size_t>(copy.bytes), "byte");
    if (!unreadable.empty()) {
      text += "; CANNOT BE READ" + (unreadable == "." ? std::string() : ": " + Quoted(unreadable));
    }
    text += "\n";
  }
  if (report.copies.empty()) text += "There are no copies in " + Quoted(report.place) + ".\n";
  if (!report.obstacle.empty()) {
    text += "NO COPY CAN BE KEPT in " + Quoted(report.place) + ": " + report.obstacle + ".\n";
  }
  return text;
}

std::string BackupsAsJson(const BackupsReport& report) {
  JsonWriter json;
  json.BeginObject();
  json.Key("folder").Text(report.folder).Key("place").Text(report.place);
  json.Key("obstacle");
  if (report.obstacle.empty()) {
    json.Null();
  } else {
    json.Text(report.obstacle);
  }
  json.Key("copies").BeginArray();
  for (const auto& [copy, unreadable] : report.copies) {
    json.BeginObject();
    json.Key("name").Text(copy.name).Key("kind").Text(KindOf(copy));
    json.Key("files").Number(copy.files);
    json.Key("bytes").Number(static_cast<std::size_t>(copy.bytes));
    json.Key("unreadable");
    if (unreadable.empty()) {
      json.Null();
    } else {
      json.Text(unreadable);
    }
    json.EndObject();
  }
  json.EndArray().EndObject();
  return json.text() + "\n";
}

std::string RestoreAsText(const RestoreEnd& end, const std::string& folder) {
  if (end.outcome == RestoreEnd::Outcome::kSame) {
    return Quoted(folder) + " holds the very files of " + end.copy + " already.\n";
  }
  std::string text = Quoted(folder) + " holds the files of " + end.copy +
                     " again: " + Count(end.written, "file") + " written, " +
                     std::to_string(end.removed) + " removed.\n";
  if (!end.kept_as.empty()) text += "What stood there before is kept as " + end.kept_as + ".\n";
  return text;
}

std::string RestoreAsJson(const RestoreEnd& end, const std::string& folder) {
  JsonWriter json;
  json.BeginObject();
  json.Key("folder").Text(folder).Key("copy").Text(end.copy);
  json.Key("changed").Bool(end.outcome != RestoreEnd::Outcome::kSame);
  json.Key("written").Number(end.written).Key("removed").Number(end.removed);
  json.Key("kept_as");
  if (end.kept_as.empty()) {
    json.Null();
  } else {
    json.Text(end.kept_as);
  }
  json.EndObject();
  return json.text() + "\n";
}

}  // namespace brovanta::data_tool
