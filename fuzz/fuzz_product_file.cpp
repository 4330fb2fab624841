// Any bytes as "product.dat" and "purchase.dat": documented codes, no schedule hangs, and both
// files change together or not at all.
#include <cstddef>
#include <cstdint>
#include <string>

#include "db/error_codes.h"
#include "db/record_format.h"
#include "db/shopping_database.h"
#include "fuzz/scratch_folder.h"
#include "util/clock.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr char kProducts[] = "product.dat";
constexpr char kPurchases[] = "purchase.dat";
constexpr std::size_t kFrame = kWordSize + product_layout::kSize;

std::int64_t Noon() { return 1112788800; }  // 2005-04-06

int LoadAll(ProductList& list, std::int32_t kind) {
  ProductFilter all;
  all.kind = kind;
  all.to = kind == kProductKind ? 0x7FFFFFFF : 0;
  const int code = list.Load(&all);
  Require(code == 0 || code == ERR_IO || code == ERR_FORMAT, "Load gives a documented code");
  DateStamp before = 0x7FFFFFFF;
  for (const ProductRecord* record = list.First(); record != nullptr; record = list.Next()) {
    Require(record->Deleted == 0 && record->NextDate <= before, "live records, latest first");
    before = record->NextDate;
  }
  return code;
}

void Run(fuzz::ScratchFolder& folder, const std::string& bytes) {
  folder.Write(kProducts, bytes);
  folder.Write(kPurchases, bytes);
  ShoppingDatabase database;
  (void)database.Open(folder.path());  // without lists
  ProductList& list = database.products();
  const int code = LoadAll(list, kPurchaseKind);
  Require(LoadAll(list, kProductKind) == code, "both kinds agree on the file");
  Require(list.size() <= bytes.size() / kFrame, "no more records than the file has room for");
  (void)list.StoresInUse();
  Require(folder.Read(kProducts) == bytes, "reading changes no byte");

  const int bought = list.Mark(kProductKind, 1, kProductPurchased);
  const std::string purchases = *folder.Read(kPurchases);
  if (bought == 1) {
    Require(purchases.size() == bytes.size() + kFrame, "one purchase more");
    Require(folder.Read(kProducts)->size() == bytes.size(), "the product stays in its place");
  } else {
    Require(bought == ERR_NOT_FOUND || bought == ERR_IO || bought == ERR_FORMAT, "Mark's codes");
    Require(purchases == bytes && folder.Read(kProducts) == bytes, "neither file has changed");
  }
  ProductFields fields;
  fields.name = "soap";
  const std::string before = *folder.Read(kProducts);
  const auto added = list.Add(kProductKind, fields);
  const std::string after = *folder.Read(kProducts);
  Require(added ? after.size() == before.size() + kFrame : after == before, "all or nothing");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  brovanta::SetClock(brovanta::Noon);
  brovanta::Run(folder, std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
