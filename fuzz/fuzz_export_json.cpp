// Any bytes as data files: the document has them whole, the tables what can be read. The first byte
// says which file it is.
#include <cstddef>
#include <cstdint>
#include <string>

#include "data/data_files.h"
#include "data/export_csv.h"
#include "data/export_json.h"
#include "data/import_json.h"
#include "fuzz/require.h"

namespace brovanta::data_tool {
namespace {

using fuzz::Require;

void Run(std::size_t choice, const std::string& bytes) {
  constexpr std::size_t kNames = kDataFiles.size() + 1;
  const std::size_t index = choice % kNames;
  const std::string name =
      index < kDataFiles.size() ? std::string(kDataFiles[index]) : "WebSearch/2.dat";
  const DataSnapshot files{{name, bytes}};
  std::string error;
  Require(ImportJson(ExportJson(files), error) == files, "the file comes back");
  for (const CsvTable& table : ExportCsv(files)) {
    Require(table.text.ends_with("\r\n"), "tables are made of lines");
  }
}

}  // namespace
}  // namespace brovanta::data_tool

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  brovanta::data_tool::Run(data[0], std::string(reinterpret_cast<const char*>(data + 1), size - 1));
  return 0;
}
