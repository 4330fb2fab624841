// Walks the records of a table whose first line names its columns, in any order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "server/csv.h"
#include "server/text_rules.h"

namespace brovanta::server {

/// What was read from one record.
template <typename Entry>
struct Row {
  std::size_t line = 0;
  Entry entry;
};

/// What was read from a file. Where there is a problem, nothing of it may be used.
template <typename Entry>
struct Table {
  std::vector<Row<Entry>> rows;
  std::vector<Problem> problems;
};

class TableReader {
 public:
  /// Reads the line of column names. All of `columns` must be there, each once, and no other. The
  /// text and the names outlive the reader.
  TableReader(std::string_view text, std::span<const std::string_view> columns);

  /// Goes to the next record. False at the end, and when enough problems are known.
  [[nodiscard]] bool Next();

  [[nodiscard]] std::size_t line() const { return record_.line; }

  /// The field of the current record, by the column's place in `columns`.
  [[nodiscard]] const std::string& Field(std::size_t column) const;

  /// The field as a text; an unsuitable one is a problem and gives the empty text.
  [[nodiscard]] std::string Text(std::size_t column, TextLength length);

  /// The field as a whole number from 1 to `most`, without a sign or leading zeros; another one is
  /// a problem and gives 0.
  [[nodiscard]] std::int32_t Number(std::size_t column, std::int32_t most);

  /// Notes what is wrong with the field: the column's name, then `message`.
  void Refuse(std::size_t column, std::string_view message);

  /// Notes that the field is none of the forms that `expected` describes.
  void RefuseForm(std::size_t column, std::string_view expected);

  /// The problems so far; after the last Next all of the file's, up to kMaxProblems.
  [[nodiscard]] std::vector<Problem> TakeProblems() { return std::move(problems_); }

 private:
  void ReadHeader();
  void Note(std::size_t line, std::string message);

  CsvReader reader_;
  std::span<const std::string_view> columns_;
  std::vector<std::size_t> places_;  // of each column within a record; empty without a header
  CsvRecord record_;
  std::vector<Problem> problems_;
};

}  // namespace brovanta::server
