// The saved searches: their index "websearch.dat" and the results file of each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "search/results_file.h"
#include "search/search_result_list.h"
#include "util/date_stamp.h"

namespace brovanta {

/// An entry of the index.
struct SavedSearch {
  std::int32_t Number = 0;  ///< from 2 upward; names the results file
  std::int32_t CategoryId = 0;
  DateStamp Date = kNoDate;  ///< of the day of the search, at 01:00
  std::string Words;         ///< at most 49 bytes

  friend bool operator==(const SavedSearch&, const SavedSearch&) = default;
};

/// Which saved searches a list shows: those of the days from `from` to `to`, both included;
/// kNoDate = no bound. Nothing but the date counts.
struct SavedSearchFilter {
  DateStamp from = kNoDate;
  DateStamp to = kNoDate;

  [[nodiscard]] bool Passes(DateStamp date) const {
    return (from == kNoDate || date >= from) && (to == kNoDate || date <= to);
  }
};

/// The live saved searches that pass the filter, in the order of the index. Every operation opens,
/// works on and closes its file; a change happens whole or not at all. One thread.
class SavedSearches {
 public:
  /// Says where the index and the results are: documented paths.
  void SetPaths(std::string index_path, std::string results_folder);

  /// Writes an entry of today's date with the first 49 bytes of the words, behind a new number; a
  /// missing index is made first. With results, a copy of them is sorted by price, numbered from 1
  /// and written to the results file of that number (the folder is made when it is missing). The
  /// entry joins the list when it passes the filter of the last load.
  ///
  /// The number (kept: the first ever is 2); ERR_OPEN; ERR_IO for a wrong magic, an index too short
  /// for one, used up numbers or a failed write; ERR_FORMAT for an index that does not end with an
  /// end mark behind whole entries, to which nothing is added that no load would find. Entry and
  /// results are one unit of work: with any of these codes, and whenever the program ends, both are
  /// there or neither. Kept: when the results alone cannot be written - their folder cannot be
  /// made, their file is refused - the code of that, and the entry stays without them.
  [[nodiscard]] std::int32_t SaveSearch(std::int32_t category_id, const std::string& words,
                                        const SearchResultList* results);

  /// Fills the list anew. 0; ERR_OPEN (a missing index as well); ERR_FORMAT for a wrong magic or
  /// mark; ERR_IO for an entry cut short. What was read before an error stays in the list.
  [[nodiscard]] int LoadSavedSearches(const SavedSearchFilter& filter);

  /// Marks the first entry with the number as deleted, also one that already is, and takes it out
  /// of the list. The number; 0 when a sound index has no such entry; ERR_OPEN, ERR_FORMAT, ERR_IO
  /// as above. Its results file stays: who has asked the user whether all results shall go removes
  /// the file at ResultsPath.
  [[nodiscard]] std::int32_t DeleteSavedSearch(std::int32_t number);

  /// Good until the next call of one of the above.
  [[nodiscard]] const std::vector<SavedSearch>& searches() const { return searches_; }

  /// The documented path of a search's results file.
  [[nodiscard]] std::string ResultsPath(std::int32_t number) const;

 private:
  /// Writes the entry behind its new number, and the results with it. 0 or a code;
  /// `code_of_results` when it was the results that could not be written.
  [[nodiscard]] int WriteEntry(SavedSearch& search, const std::vector<std::byte>* results,
                               int& code_of_results) const;

  std::string index_path_;
  std::string results_folder_;
  SavedSearchFilter filter_;
  std::vector<SavedSearch> searches_;
};

}  // namespace brovanta
