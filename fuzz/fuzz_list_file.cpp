// Any bytes as a name list: documented codes, and a new name never costs an old one.
#include <cstddef>
#include <cstdint>
#include <string>

#include "db/error_codes.h"
#include "db/name_list.h"
#include "db/record_format.h"
#include "db/shopping_database.h"
#include "fuzz/scratch_folder.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr char kFile[] = "store.lst";

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write(kFile, bytes);
  folder.Drop("store.lst.bad");
  ShoppingDatabase database;
  const int code = database.Open(folder.path());
  NameList read;
  const int list_code = read.Load(folder.path() + "\\" + kFile);
  Require(list_code == 0 || list_code == ERR_IO || list_code == ERR_FORMAT, "documented codes");
  Require(list_code == 0 || code == list_code, "Open gives the list's code");
  Require(read.size() <= bytes.size() / (kWordSize + list_layout::kSize), "no more than there are");
  Require(read.loaded() == (list_code == 0), "loaded when there was no error");

  NameRef store{0, "Corner Shop"};
  const int resolved = database.ResolveNames(&store, nullptr, nullptr);
  if (resolved != 0) {
    Require(resolved == ERR_IO && read.LargestId() == 0x7FFFFFFF, "ids are used up");
    Require(store.Id == 0 && folder.Read(kFile) == bytes, "nothing has changed");
    return;
  }
  Require(store.Id >= kFirstOwnId && store.Id > read.LargestId(), "a new id");
  const auto kept = folder.Read("store.lst.bad");
  Require(kept.has_value() == (list_code != 0), "a damaged list is kept, a sound one is not");
  Require(!kept || *kept == bytes, "kept byte for byte");
  NameList written;
  Require(written.Load(folder.path() + "\\" + kFile) == 0, "the new list is sound");
  Require(written.size() == read.size() + 1, "one name more");
  for (const auto& [id, item] : read) {
    const ListItem* found = written.Find(id);
    Require(found != nullptr && *found == item, "every name is still there");
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
