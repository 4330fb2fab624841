// Any bytes as a results file: documented codes, results by price, and what is written back is what
// was read.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/scratch_folder.h"
#include "search/results_file.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr std::size_t kSmallestResult = 4 + 14 + 4 * 4;

bool InOrder(const SearchResultItem& left, const SearchResultItem& right) {
  return left.Price <= right.Price || std::isnan(right.Price);
}

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write("2.dat", bytes);
  SearchResultList list;
  const int code = ReadSearchResults(list, folder.path() + "\\2.dat");
  Require(code == 0 || code == ERR_FORMAT || code == ERR_IO, "documented codes");
  Require(code == 0 || list.empty(), "all results or none");
  Require(list.size() <= bytes.size() / kSmallestResult, "no more results than there is room for");
  for (std::size_t i = 1; i < list.size(); ++i) {
    Require(InOrder(list.items()[i - 1], list.items()[i]), "the cheapest first");
  }
  Require(WriteSearchResults(list, folder.path() + "\\3.dat") == 0, "the list can be written");
  const std::string written = *folder.Read("3.dat");
  SearchResultList again;
  Require(ReadSearchResults(again, folder.path() + "\\3.dat") == 0, "and read");
  Require(again.size() == list.size(), "the same results");
  Require(WriteSearchResults(again, folder.path() + "\\2.dat") == 0, "and written");
  Require(folder.Read("2.dat") == written, "byte for byte");
  if (list.empty()) return;
  const std::int32_t id = list.items().back().Id;
  Require(list.Find(id) != nullptr && list.Remove(id) == 0, "what is there can be removed");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
