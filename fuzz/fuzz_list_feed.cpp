// Any bytes as a feed of stores or categories: the list can be written and read back.
#include <cstddef>
#include <cstdint>
#include <string>

#include "db/feed_import.h"
#include "fuzz/scratch_folder.h"

namespace brovanta {
namespace {

using fuzz::Require;

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write("update.dat", bytes);
  folder.Drop("store.lst");
  NameList names;
  Require(ImportList(names, folder.path() + "\\update.dat") == 0, "a feed that opens is taken");
  for (const auto& [id, item] : names) {
    Require(id >= 1 && item.Id == id, "ids are positive");
    Require(item.Name.view().size() >= 2, "names have two characters");
    Require(item.Count == 0, "no counts");
  }
  const std::string path = folder.path() + "\\store.lst";
  Require(names.Save(path) == 0, "the list can be written");
  NameList read;
  Require(read.Load(path) == 0 && read.size() == names.size(), "and read back");
  for (const auto& [id, item] : names) {
    const ListItem* found = read.Find(id);
    Require(found != nullptr && *found == item, "entry for entry");
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
