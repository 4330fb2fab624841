#include "data/check_journal.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "data/check_searches.h"
#include "data/data_files.h"
#include "db/file_names.h"
#include "db/journal_fit.h"
#include "db/journal_format.h"
#include "search/search_format.h"

namespace brovanta::data_tool {
namespace {

constexpr std::size_t kTemporarySuffix = 7;  // ".XXXXXX"
constexpr char kSetAside[] =
    "kept by the program: it could not be read, or a change undone in it may have been somebody's";
constexpr char kLeftBehind[] =
    "left behind by a program that ended while it wrote; nothing reads it";

// One that cannot be read just now may fit.
bool Fits(const std::string& name, const RecordsOfFile& records, const ReadByName& read) {
  std::string text;
  const platform::QuietResult result = read(name, text);
  PresentFile file;
  if (result == platform::QuietResult::kRead) {
    file.size = static_cast<std::int64_t>(text.size());
  } else if (result != platform::QuietResult::kMissing) {
    return true;
  }
  file.read_at = [&text](std::int64_t offset, std::span<std::byte> bytes) {
    const auto all = std::as_bytes(std::span(text)).subspan(static_cast<std::size_t>(offset));
    const auto piece = all.first(std::min(bytes.size(), all.size()));
    std::copy(piece.begin(), piece.end(), bytes.begin());
    return static_cast<std::int64_t>(piece.size());
  };
  const Fit fit = FitOf(records, file);
  return fit == Fit::kFits || fit == Fit::kDoubtful;
}

bool IsTemporaryOf(std::string_view name, std::string_view file) {
  return name.size() == file.size() + kTemporarySuffix && name.starts_with(file) &&
         name[file.size()] == '.' &&
         std::all_of(
             name.begin() + static_cast<std::ptrdiff_t>(file.size()) + 1, name.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
             });
}

bool IsAsideOf(std::string_view name, std::string_view file) {
  return name.starts_with(std::string(file) + ".bad");
}

}  // namespace

void CheckJournal(FileBytes bytes, const ReadByName& read, FileNotes& notes) {
  if (bytes.empty() || IsEmptiedJournal(bytes)) return;
  const auto records = DecodeJournal(bytes);
  if (!records) {
    notes.Add(Severity::kWarning,
              "the journal is none of the program's, or was not written to its end: no file was "
              "changed by it, and the program sets it aside at its next start",
              0);
    return;
  }
  if (records->empty()) return;
  std::string list;
  bool fits = true;
  for (const auto& [name, records_of_file] : ByFile(*records)) {
    list += (list.empty() ? "" : ", ") + name;
    fits = fits && Fits(name, records_of_file, read);
  }
  notes.Add(
      Severity::kWarning,
      fits ? "a change was left in the middle; the program undoes it at its next start, in " + list
           : "a change was left in the middle, but not in these files (" + list +
                 "): the program sets the journal aside at its next start",
      0);
}

void CheckLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings) {
  for (const std::string& name : names) {
    const auto is_aside = [&](std::string_view file) { return IsAsideOf(name, file); };
    const auto is_temporary = [&](std::string_view file) { return IsTemporaryOf(name, file); };
    FileNotes notes(name, findings);
    if (is_aside(kJournalFile)) {
      notes.Add(Severity::kNote,
                "a journal that the program did not follow: not written to its end, none of its "
                "own, or of other files than those that stood there; it may hold what files held");
    } else if (std::any_of(kDataFiles.begin(), kDataFiles.end(), is_aside)) {
      notes.Add(Severity::kNote, kSetAside);
    } else if (std::any_of(kDataFiles.begin(), kDataFiles.end(), is_temporary)) {
      notes.Add(Severity::kNote, kLeftBehind);
    }
  }
}

void CheckResultLeftOvers(const std::vector<std::string>& names, std::vector<Finding>& findings) {
  const std::string_view suffix = kResultsSuffix;
  for (const std::string& name : names) {
    const std::size_t end = name.find(suffix);
    if (end == std::string::npos) continue;
    const std::string file = name.substr(0, end + suffix.size());
    if (!SearchNumber(file)) continue;
    FileNotes notes(std::string(kResultsFolder) + "/" + name, findings);
    if (IsAsideOf(name, file)) notes.Add(Severity::kNote, kSetAside);
    if (IsTemporaryOf(name, file)) notes.Add(Severity::kNote, kLeftBehind);
  }
}

}  // namespace brovanta::data_tool
