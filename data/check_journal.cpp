#include "data/check_journal.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "data/data_files.h"
#include "db/file_names.h"
#include "db/journal_format.h"

namespace brovanta::data_tool {
namespace {

constexpr std::size_t kTemporarySuffix = 7;  // ".XXXXXX"

// No change makes a file shorter: where one is, these are other files.
bool Fits(const UndoRecord& record, const std::vector<FileReport>& files) {
  if (record.kind != UndoKind::kOverwritten) return true;
  const auto file = std::find_if(files.begin(), files.end(),
                                 [&](const FileReport& one) { return one.name == record.name; });
  if (file == files.end() || file->state == FileState::kNotRead) return true;  // not known
  return file->state == FileState::kRead &&
         static_cast<std::int64_t>(file->bytes) >= record.old_size;
}

bool IsTemporaryOf(std::string_view name, std::string_view file) {
  return name.size() == file.size() + kTemporarySuffix && name.starts_with(file) &&
         name[file.size()] == '.' &&
         std::all_of(
             name.begin() + static_cast<std::ptrdiff_t>(file.size()) + 1, name.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
             });
}

}  // namespace

void CheckJournal(FileBytes bytes, const std::vector<FileReport>& files, FileNotes& notes) {
  if (bytes.empty()) return;
  const auto records = DecodeJournal(bytes);
  if (!records) {
    notes.Add(Severity::kWarning,
              "the journal is none of the program's, or was not written to its end: no file was "
              "changed by it, and the program sets it aside at its next start",
              0);
    return;
  }
  if (records->empty()) return;
  std::set<std::string> names;
  for (const UndoRecord& record : *records) names.insert(record.name);
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  const bool fits = std::all_of(records->begin(), records->end(),
                                [&](const UndoRecord& record) { return Fits(record, files); });
  notes.Add(
      Severity::kWarning,
      fits ? "a change was left in the middle; the program undoes it at its next start, in " + list
           : "a change was left in the middle, but not in these files (" + list +
                 "): the program sets the journal aside at its next start",
      0);
}

void CheckLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings) {
  for (const std::string& name : names) {
    const auto add = [&](const char* words) {
      FileNotes(name, findings).Add(Severity::kNote, words);
    };
    const auto begins = [&](std::string_view file) {
      return name.starts_with(std::string(file) + ".bad");
    };
    const auto is_temporary = [&](std::string_view file) { return IsTemporaryOf(name, file); };
    if (begins(kJournalFile) || std::any_of(kDataFiles.begin(), kDataFiles.end(), begins)) {
      add("set aside by the program because it could not be read");
    } else if (std::any_of(kDataFiles.begin(), kDataFiles.end(), is_temporary)) {
      add("left behind by a program that ended while it wrote; nothing reads it");
    }
  }
}

}  // namespace brovanta::data_tool
