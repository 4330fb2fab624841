// Any bytes as a document to import: refused with words, or files that come back from their own
// document bit for bit.
#include <cstddef>
#include <cstdint>
#include <string>

#include "data/export_json.h"
#include "data/file_kind.h"
#include "data/import_json.h"
#include "fuzz/require.h"

namespace brovanta::data_tool {
namespace {

using fuzz::Require;

void Run(const std::string& document) {
  std::string error;
  const auto files = ImportJson(document, error);
  if (!files) {
    Require(error.starts_with("line "), "what is wrong has its line");
    Require(error.find('\n') == std::string::npos, "and stands on one");
    return;
  }
  for (const auto& [name, bytes] : *files) {
    Require(KindOfFile(name).has_value(), "no other file than those of the program");
  }
  Require(ImportJson(ExportJson(*files), error) == files, "the files come back");
}

}  // namespace
}  // namespace brovanta::data_tool

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brovanta::data_tool::Run(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
