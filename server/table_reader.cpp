#include "server/table_reader.h"

#include <algorithm>
#include <utility>

#include "server/plain_number.h"

namespace brovanta::server {
namespace {

std::string Listed(std::span<const std::string_view> names) {
  std::string list;
  for (const std::string_view name : names) {
    if (!list.empty()) list += ',';
    list += name;
  }
  return list;
}

}  // namespace

TableReader::TableReader(std::string_view text, std::span<const std::string_view> columns)
    : reader_(text), columns_(columns) {
  ReadHeader();
}

void TableReader::ReadHeader() {
  CsvRecord header;
  if (!reader_.Next(header)) {
    if (reader_.problem()) return problems_.push_back(*reader_.problem());
    return Note(0, "is empty; its first line names the columns: " + Listed(columns_));
  }
  std::vector<std::size_t> places(columns_.size(), header.fields.size());
  for (std::size_t i = 0; i < header.fields.size(); ++i) {
    const auto found = std::find(columns_.begin(), columns_.end(), header.fields[i]);
    if (found == columns_.end()) {
      Note(header.line, "no column is named " + Quoted(header.fields[i]) +
                            "; the columns are: " + Listed(columns_));
      continue;
    }
    std::size_t& place = places[static_cast<std::size_t>(found - columns_.begin())];
    if (place != header.fields.size())
      Note(header.line, "column " + std::string(*found) + " twice");
    place = i;
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (places[i] != header.fields.size()) continue;
    Note(header.line, "column " + std::string(columns_[i]) + " is missing");
  }
  if (problems_.empty()) places_ = std::move(places);
}

bool TableReader::Next() {
  while (!places_.empty() && problems_.size() < kMaxProblems) {
    if (!reader_.Next(record_)) {
      if (reader_.problem()) problems_.push_back(*reader_.problem());
      return false;
    }
    if (record_.fields.size() == columns_.size()) return true;
    Note(record_.line, std::to_string(record_.fields.size()) + " fields instead of " +
                           std::to_string(columns_.size()));
  }
  return false;
}

const std::string& TableReader::Field(std::size_t column) const {
  return record_.fields[places_[column]];
}

std::string TableReader::Text(std::size_t column, TextLength length) {
  if (const auto problem = TextProblem(Field(column), length)) {
    Refuse(column, *problem);
    return {};
  }
  return Field(column);
}

std::int32_t TableReader::Number(std::size_t column, std::int32_t most) {
  const std::int32_t number = PlainNumber(Field(column), most).value_or(0);
  if (number == 0) RefuseForm(column, "a whole number from 1 to " + std::to_string(most));
  return number;
}

void TableReader::Refuse(std::size_t column, std::string_view message) {
  Note(record_.line, std::string(columns_[column]) + " " + std::string(message));
}

void TableReader::RefuseForm(std::size_t column, std::string_view expected) {
  Refuse(column, Quoted(Field(column)) + " is not " + std::string(expected));
}

void TableReader::Note(std::size_t line, std::string message) {
  if (problems_.size() < kMaxProblems) problems_.push_back({line, std::move(message)});
}

}  // namespace brovanta::server
