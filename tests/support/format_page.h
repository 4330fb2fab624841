// The pages of docs/formats/, read by the tests that compare them with the code.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// A row of a page's table of fields.
struct Row {
  std::string field;
  std::size_t offset = 0;
  std::size_t width = 0;
  std::string type;

  friend bool operator==(const Row&, const Row&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.field << " " << row.offset << " " << row.width << " " << row.type;
  }
};
using Rows = std::vector<Row>;

/// The rows below the heading that start with a field and an offset.
[[nodiscard]] Rows TableOf(const std::string& page, const std::string& heading);

/// Expects that every byte is described once.
void ExpectWithoutGap(const Rows& rows, std::size_t size);

/// The bytes of the page's example; expects that the offsets at the lines' starts fit.
[[nodiscard]] Bytes ExampleOf(const std::string& page);

}  // namespace brovanta::test
