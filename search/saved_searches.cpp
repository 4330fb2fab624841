#include "search/saved_searches.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include "db/journal.h"
#include "db/marked_reader.h"
#include "db/record_file.h"
#include "db/unit_of_work.h"
#include "platform/file.h"
#include "search/search_format.h"
#include "util/error_codes.h"
#include "util/little_endian.h"

namespace brovanta {
namespace {

namespace layout = saved_search_layout;
using RecordBytes = std::array<std::byte, layout::kSize>;

RecordBytes Encode(const SavedSearch& search) {
  RecordBytes bytes{};
  StoreLittle(bytes.data() + layout::kNumber, search.Number);
  StoreLittle(bytes.data() + layout::kCategoryId, search.CategoryId);
  StoreLittle(bytes.data() + layout::kDate, search.Date);
  const auto words = std::as_bytes(std::span(search.Words));
  std::copy(words.begin(), words.end(), bytes.begin() + layout::kWords);
  return bytes;
}

SavedSearch Decode(std::span<const std::byte> bytes) {
  SavedSearch search;
  search.Number = NumberAt<std::int32_t>(bytes, layout::kNumber);
  search.CategoryId = NumberAt<std::int32_t>(bytes, layout::kCategoryId);
  search.Date = NumberAt<DateStamp>(bytes, layout::kDate);
  search.Words = TextAt(bytes, layout::kWords, layout::kWordsSize);
  return search;
}

// What of the words fits into an entry, which always ends in a zero.
std::string StoredWords(const std::string& words) {
  return words.substr(0, std::min(words.find('\0'), layout::kWordsSize - 1));
}

}  // namespace

void SavedSearches::SetPaths(std::string index_path, std::string results_folder) {
  index_path_ = std::move(index_path);
  results_folder_ = std::move(results_folder);
}

std::string SavedSearches::ResultsPath(std::int32_t number) const {
  return results_folder_ + "\\" + std::to_string(number) + kResultsSuffix;
}

std::int32_t SavedSearches::SaveSearch(std::int32_t category_id, const std::string& words,
                                       const SearchResultList* results) {
  SavedSearch search{0, category_id, TodayStamp(), StoredWords(words)};
  int code = 0;
  int code_of_results = 0;
  if (results == nullptr) {
    code = WriteEntry(search, nullptr, code_of_results);
  } else {
    SearchResultList written = *results;
    written.SortByPrice();
    written.NumberItems();
    const std::vector<std::byte> bytes = EncodeSearchResults(written);
    code = WriteEntry(search, &bytes, code_of_results);
    if (code_of_results != 0) {
      int none = 0;
      code = WriteEntry(search, nullptr, none);
    }
  }
  if (code != 0) return code;
  if (filter_.Passes(search.Date)) searches_.push_back(search);
  return code_of_results != 0 ? code_of_results : search.Number;
}

int SavedSearches::WriteEntry(SavedSearch& search, const std::vector<std::byte>* results,
                              int& code_of_results) const {
  const std::string journal = JournalBeside(index_path_);
  UnitOfWork work(journal);
  AppendPlace place;
  int code = RollBackJournal(journal);
  if (code == 0) {
    code = OpenForAppend(work, index_path_, layout::kSize, kInitialSearchNumber, place);
  }
  if (code == 0) code = NoteNextId(work, place, search.Number);
  if (code != 0) return code;
  NoteRecords(work, place, Encode(search), layout::kSize);
  if (results != nullptr) {
    if (!platform::CreateFolder(results_folder_)) return code_of_results = ERR_OPEN;
    work.Replace(ResultsPath(search.Number), *results);
  }
  code = work.Commit();
  if (code != 0 && !work.refused_path().empty()) code_of_results = ERR_OPEN;
  return code;
}

int SavedSearches::LoadSavedSearches(const SavedSearchFilter& filter) {
  filter_ = filter;
  searches_.clear();
  MarkedReader reader(layout::kSize);
  const int code = OpenRecordFile(reader, index_path_, platform::File::Mode::kRead);
  if (code != 0) return code;
  while (reader.Next()) {
    const std::span<const std::byte> bytes(reader.record(), layout::kSize);
    if (bytes[layout::kDeleted] != std::byte{0}) continue;
    if (!filter_.Passes(NumberAt<DateStamp>(bytes, layout::kDate))) continue;
    searches_.push_back(Decode(bytes));
  }
  return reader.code();
}

std::int32_t SavedSearches::DeleteSavedSearch(std::int32_t number) {
  const std::string journal = JournalBeside(index_path_);
  if (const int code = RollBackJournal(journal); code != 0) return code;
  MarkedReader reader(layout::kSize);
  int code = OpenRecordFile(reader, index_path_, platform::File::Mode::kReadWrite);
  if (code != 0) return code;
  const auto is_meant = [&reader, number] {
    return LoadLittle<std::int32_t>(reader.record() + layout::kNumber) == number;
  };
  bool found = false;
  while (!found && reader.Next()) found = is_meant();
  if (!found) return reader.code();

  const std::int64_t flag = reader.offset() + static_cast<std::int64_t>(layout::kDeleted);
  UnitOfWork work(journal);
  const auto file = work.Adopt(reader.TakeFile(), index_path_);
  work.Write(file, flag, std::array{std::byte{1}});
  code = work.Commit();
  if (code != 0) return code;
  std::erase_if(searches_, [number](const SavedSearch& search) { return search.Number == number; });
  return number;
}

}  // namespace brovanta
