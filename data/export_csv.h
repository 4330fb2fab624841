// The data of a folder as tables; docs/formats/export.md describes their columns.
#pragma once

#include <string>
#include <vector>

#include "data/data_snapshot.h"

namespace brovanta::data_tool {

struct CsvTable {
  std::string file;  ///< "products.csv"
  std::string text;
  std::vector<std::string> damages;  ///< what is damaged in the files it was made of
};

/// One table for each kind of data, with its header alone where there is none. Deleted records are
/// in them, damaged files as far as they can be read.
[[nodiscard]] std::vector<CsvTable> ExportCsv(const DataSnapshot& files);

}  // namespace brovanta::data_tool
