// Any bytes as a feed of coupons: nothing but whole records comes of it.
#include <cstddef>
#include <cstdint>
#include <string>

#include "db/feed_import.h"
#include "db/record_format.h"
#include "db/shopping_database.h"
#include "fuzz/scratch_folder.h"

namespace brovanta {
namespace {

using fuzz::Require;

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  for (const char* name : {"discount.dat", "store.lst", "category.lst"}) folder.Drop(name);
  folder.Write("update.dat", bytes);
  ShoppingDatabase database;
  (void)database.Open(folder.path());  // without lists
  DiscountList& list = database.discounts();
  Require(ImportCoupons(list, folder.path() + "\\update.dat") == 0, "a feed that opens is taken");

  const std::size_t shown = list.size();
  Require(shown <= Count(bytes, "</CP>"), "no more coupons than spans");
  const auto file = folder.Read("discount.dat");
  Require(file.has_value() == (shown > 0), "a file when there is a coupon");
  if (!file) return;
  Require(file->size() == kEmptyRecordFile + shown * (kWordSize + discount_layout::kSize),
          "whole records and nothing else");
  const DiscountFilter all;
  Require(list.Load(&all) == 0 && list.size() == shown, "the file is sound");
  for (const DiscountRecord* record = list.First(); record != nullptr; record = list.Next()) {
    Require(record->Id != 0, "a coupon has an id");
    Require(record->ValueType == 1 || record->ValueType == 2, "a coupon has a value type");
    Require(record->StoreId != 0 && record->CategoryId != 0, "a coupon has store and category");
  }
  for (const char* name : {"store.lst", "category.lst"}) {
    NameList names;
    Require(!folder.Read(name) || names.Load(folder.path() + "\\" + name) == 0,
            "the lists are sound");
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
