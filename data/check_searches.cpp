#include "data/check_searches.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "db/file_names.h"
#include "db/marked_reader.h"
#include "db/record_format.h"
#include "search/search_format.h"

namespace brovanta::data_tool {
namespace {

namespace entry_layout = saved_search_layout;

constexpr std::array<const char*, result_layout::kTexts> kTextNames{"Title", "Text", "Url",
                                                                    "SiteName"};

std::string ResultsName(std::int32_t number) {
  return std::string(kResultsFolder) + "/" + std::to_string(number) + kResultsSuffix;
}

void CheckEntry(std::size_t byte, FileBytes entry, std::int32_t last_number, IndexedSearches& index,
                FileReport& report, FileNotes& notes) {
  const auto number = NumberAt<std::int32_t>(entry, entry_layout::kNumber);
  const auto deleted = std::to_integer<int>(entry[entry_layout::kDeleted]);
  const auto add = [&](Severity severity, std::string words, std::size_t offset) {
    notes.Add(severity, std::move(words), byte + offset, number);
  };
  ++*report.records;
  if (number < 1) {
    add(Severity::kError, "the search number is " + std::to_string(number) + ", below 1",
        entry_layout::kNumber);
  } else if (number > last_number) {
    add(Severity::kError,
        "the search number is above LastId " + std::to_string(last_number) +
            " and will be given out again",
        entry_layout::kNumber);
  }
  if (TextAt(entry, entry_layout::kWords, entry_layout::kWordsSize).size() ==
      entry_layout::kWordsSize) {
    add(Severity::kWarning, "the text Words has no zero at its end", entry_layout::kWords);
  }
  if (deleted > 1) {
    add(Severity::kWarning, "Deleted is " + std::to_string(deleted) + " and neither 0 nor 1",
        entry_layout::kDeleted);
  }
  if (deleted != 0) {
    ++*report.deleted;
    index.deleted.insert(number);
  } else if (!index.live.insert(number).second) {
    add(Severity::kError, "a live search with this number stands in front of it already",
        entry_layout::kNumber);
  }
}

/// One result of a results file: its numbers and texts.
class ResultCheck {
 public:
  ResultCheck(std::size_t byte, FileBytes rest, FileNotes& notes)
      : byte_(byte), rest_(rest), notes_(notes) {}

  /// Its size, nothing when it is not whole.
  std::optional<std::size_t> Check(std::set<std::int32_t>& ids) {
    if (rest_.size() < result_layout::kSize) {
      notes_.Add(Severity::kError, "the file is cut off: it ends within a result", byte_);
      return std::nullopt;
    }
    id_ = NumberAt<std::int32_t>(rest_, result_layout::kId);
    if (id_ < 1) {
      Add(Severity::kWarning, "the id is below 1", result_layout::kId);
    } else if (!ids.insert(id_).second) {
      Add(Severity::kWarning, "a result with this id stands in front of it already",
          result_layout::kId);
    }
    const auto price = NumberAt<double>(rest_, result_layout::kPrice);
    if (!std::isfinite(price) || price <= 0) {
      Add(Severity::kWarning, "the price is no number above 0", result_layout::kPrice);
    }
    at_ = result_layout::kSize;
    for (const char* const name : kTextNames) {
      if (!CheckText(name)) return std::nullopt;
    }
    return at_;
  }

 private:
  void Add(Severity severity, std::string words, std::size_t offset) {
    notes_.Add(severity, std::move(words), byte_ + offset, id_);
  }

  bool CheckText(const char* name) {
    const std::string what = std::string("the text ") + name;
    if (rest_.size() - at_ < result_layout::kLengthSize) {
      Add(Severity::kError, "the file is cut off: it ends in front of " + what, at_);
      return false;
    }
    const auto length = NumberAt<std::int32_t>(rest_, at_);
    if (length < 0) {
      Add(Severity::kWarning, what + " has the length " + std::to_string(length), at_);
    }
    at_ += result_layout::kLengthSize;
    if (length < 1) return true;  // missing
    const auto size = static_cast<std::size_t>(length);
    if (rest_.size() - at_ < size) {
      Add(Severity::kError,
          what + " has the length " + std::to_string(length) + ", beyond the end of the file",
          at_ - result_layout::kLengthSize);
      return false;
    }
    if (TextAt(rest_, at_, size).size() + 1 != size) {
      Add(Severity::kWarning, what + " has no zero at its end, or one before", at_);
    }
    at_ += size;
    return true;
  }

  std::size_t byte_;
  FileBytes rest_;
  FileNotes& notes_;
  std::int32_t id_ = 0;
  std::size_t at_ = 0;
};

}  // namespace

IndexedSearches CheckSearchIndex(FileBytes bytes, FileReport& report, FileNotes& notes) {
  IndexedSearches index;
  report.records = 0;
  report.deleted = 0;
  const std::int32_t last_number =
      bytes.size() >= kFirstRecordMark ? NumberAt<std::int32_t>(bytes, kLastIdOffset) : 0;
  const Frame frame{entry_layout::kSize, kFirstRecordMark};
  index.sound = WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    CheckEntry(byte, rest.first(entry_layout::kSize), last_number, index, report, notes);
    return std::optional<std::size_t>();
  });
  if (index.sound && last_number == kLastOfAllIds) {
    notes.Add(Severity::kError, kUsedUp, kLastIdOffset);
  }
  if (index.sound && last_number < kInitialSearchNumber) {
    notes.Add(Severity::kError,
              "LastId is " + std::to_string(last_number) + ", below the " +
                  std::to_string(kInitialSearchNumber) + " of an empty file",
              kLastIdOffset);
  }
  return index;
}

void CheckResults(FileBytes bytes, FileReport& report, FileNotes& notes) {
  report.records = 0;
  std::set<std::int32_t> ids;
  const Frame frame{0, kFirstResultMark, Severity::kWarning};
  WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    const auto size = ResultCheck(byte, rest, notes).Check(ids);
    if (size) ++*report.records;
    return size;
  });
}

std::optional<std::int32_t> SearchNumber(const std::string& name) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  const bool is_number = error == std::errc() && number >= 1;
  // No other spelling, such as leading zeros, is the name of a results file.
  if (!is_number || name != std::to_string(number) + kResultsSuffix) return std::nullopt;
  return number;
}

void CompareWithIndex(const IndexedSearches& index, const std::vector<std::string>& result_files,
                      std::vector<Finding>& findings) {
  std::set<std::int32_t> files;
  for (const std::string& name : result_files) {
    const auto number = SearchNumber(name);
    if (!number) continue;
    files.insert(*number);
    if (!index.sound || index.live.count(*number) > 0) continue;
    FileNotes notes(std::string(kResultsFolder) + "/" + name, findings);
    if (index.deleted.count(*number) > 0) {
      notes.Add(Severity::kNote, "its search is deleted; nothing reads it any more");
    } else {
      notes.Add(Severity::kWarning, "the index has no search of this number", std::nullopt,
                *number);
    }
  }
  for (const std::int32_t number : index.live) {
    if (files.count(number) > 0) continue;
    FileNotes notes(kSearchIndexFile, findings);
    notes.Add(Severity::kWarning, "its results file " + ResultsName(number) + " is missing",
              std::nullopt, number);
  }
}

}  // namespace brovanta::data_tool
