// Any bytes as "websearch.dat": documented codes, and every change happens whole or not at all.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/scratch_folder.h"
#include "search/saved_searches.h"
#include "util/clock.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr char kIndex[] = "websearch.dat";
constexpr std::size_t kFrame = 4 + 68;

std::int64_t Noon() { return 1112788800; }  // 2005-04-06

bool IsReadingCode(int code) { return code == ERR_FORMAT || code == ERR_IO; }

void DeleteEach(fuzz::ScratchFolder& folder, SavedSearches& saved) {
  const std::vector<SavedSearch> before = saved.searches();
  const std::size_t size = folder.Read(kIndex)->size();
  for (const SavedSearch& search : before) {
    Require(saved.DeleteSavedSearch(search.Number) == search.Number, "what is listed is found");
  }
  Require(saved.searches().empty() && folder.Read(kIndex)->size() == size, "in its place");
}

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write(kIndex, bytes);
  SavedSearches saved;
  saved.SetPaths(folder.path() + "\\" + kIndex, folder.path() + "\\WebSearch");
  const int loaded = saved.LoadSavedSearches({});
  Require(loaded == 0 || IsReadingCode(loaded), "codes of loading");
  Require(saved.searches().size() <= bytes.size() / kFrame, "no more entries than room");
  const std::int32_t missing = saved.DeleteSavedSearch(-12345);
  Require(missing == -12345 || missing == 0 || IsReadingCode(missing), "codes of deleting");
  if (missing != -12345) Require(folder.Read(kIndex) == bytes, "nothing found, nothing changed");

  const std::string before = *folder.Read(kIndex);
  const std::int32_t number = saved.SaveSearch(1, "soap", nullptr);
  const std::string after = *folder.Read(kIndex);
  if (number > 0) {
    Require(after.size() == before.size() + kFrame, "one entry more");
    Require(saved.searches().back().Number == number, "it joins the list");
  } else {
    Require(IsReadingCode(number) && after == before, "all or nothing");
  }
  if (saved.LoadSavedSearches({kNoDate, 1112788800}) == 0) DeleteEach(folder, saved);
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::SetClock(brovanta::Noon);
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
