// Comma-separated values as RFC 4180 has them: fields in quotation marks where needed, "" for a
// quotation mark inside, lines ended by LF or CR LF.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/problem.h"

namespace brovanta::server {

struct CsvRecord {
  std::size_t line = 0;  ///< where the record starts, counted from 1
  std::vector<std::string> fields;
};

/// Fields that one record may have; what has more is refused instead of filling the memory.
inline constexpr std::size_t kMaxCsvFields = 64;

/// Reads records one by one from a text that outlives it. A byte-order mark at the start and empty
/// lines are passed over.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// Fills `record` with the next one. False at the end and at a problem, for good.
  [[nodiscard]] bool Next(CsvRecord& record);

  /// Why reading stopped; nothing at a proper end.
  [[nodiscard]] const std::optional<Problem>& problem() const { return problem_; }

 private:
  enum class FieldEnd { kComma, kLine, kProblem };

  [[nodiscard]] FieldEnd ReadField(std::string& field);
  [[nodiscard]] FieldEnd ReadQuoted(std::string& field);
  [[nodiscard]] FieldEnd Refuse(std::size_t line, std::string message);
  [[nodiscard]] bool TakeLineEnd();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::optional<Problem> problem_;
};

/// Appends one record and a line feed. A field is put in quotation marks only where it needs them.
void AppendCsvRecord(std::string& text, const std::vector<std::string>& fields);

}  // namespace brovanta::server
