#include "server/csv.h"

#include <utility>

namespace brovanta::server {

CsvReader::CsvReader(std::string_view text) : text_(text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) at_ = kByteOrderMark.size();
}

bool CsvReader::Next(CsvRecord& record) {
  while (TakeLineEnd()) {
  }
  if (problem_ || at_ == text_.size()) return false;
  record.line = line_;
  record.fields.clear();
  for (;;) {
    if (record.fields.size() == kMaxCsvFields) {
      static_cast<void>(Refuse(record.line, "more fields than any table has"));
      return false;
    }
    switch (ReadField(record.fields.emplace_back())) {
      case FieldEnd::kComma:
        break;
      case FieldEnd::kLine:
        return true;
      case FieldEnd::kProblem:
        return false;
    }
  }
}

CsvReader::FieldEnd CsvReader::ReadField(std::string& field) {
  if (at_ < text_.size() && text_[at_] == '"') return ReadQuoted(field);
  while (at_ < text_.size()) {
    if (TakeLineEnd()) return FieldEnd::kLine;
    const char character = text_[at_];
    if (character == '"') return Refuse(line_, "a quotation mark inside a field without them");
    ++at_;
    if (character == ',') return FieldEnd::kComma;
    field += character;
  }
  return FieldEnd::kLine;
}

CsvReader::FieldEnd CsvReader::ReadQuoted(std::string& field) {
  const std::size_t opened = line_;
  for (++at_; at_ < text_.size(); ++at_) {
    const char character = text_[at_];
    if (character == '\n') ++line_;
    if (character != '"') {
      field += character;
      continue;
    }
    ++at_;
    if (at_ == text_.size() || TakeLineEnd()) return FieldEnd::kLine;
    if (text_[at_] == '"') {
      field += '"';
      continue;
    }
    if (text_[at_] != ',') return Refuse(line_, "text behind a closing quotation mark");
    ++at_;
    return FieldEnd::kComma;
  }
  return Refuse(opened, "a quotation mark is opened and never closed");
}

CsvReader::FieldEnd CsvReader::Refuse(std::size_t line, std::string message) {
  problem_ = Problem{line, std::move(message)};
  return FieldEnd::kProblem;
}

bool CsvReader::TakeLineEnd() {
  const std::string_view rest = text_.substr(at_);
  const std::size_t length = rest.starts_with('\n') ? 1 : rest.starts_with("\r\n") ? 2 : 0;
  if (length == 0) return false;
  at_ += length;
  ++line_;
  return true;
}

void AppendCsvRecord(std::string& text, const std::vector<std::string>& fields) {
  bool first = true;
  for (const std::string& field : fields) {
    if (!first) text += ',';
    first = false;
    // A record of one empty field would be an empty line.
    const bool quote = field.find_first_of("\",\r\n") != std::string::npos ||
                       (fields.size() == 1 && field.empty());
    if (!quote) {
      text += field;
      continue;
    }
    text += '"';
    for (const char character : field) {
      if (character == '"') text += '"';
      text += character;
    }
    text += '"';
  }
  text += '\n';
}

}  // namespace brovanta::server
