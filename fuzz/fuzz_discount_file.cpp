// Any bytes as "discount.dat": documented codes, reading changes nothing, writing changes its own.
#include <cstddef>
#include <cstdint>
#include <string>

#include "db/error_codes.h"
#include "db/record_format.h"
#include "db/shopping_database.h"
#include "fuzz/scratch_folder.h"

namespace brovanta {
namespace {

using fuzz::Require;

constexpr char kFile[] = "discount.dat";
constexpr std::size_t kFrame = kWordSize + discount_layout::kSize;

bool IsFileCode(int code) { return code == ERR_IO || code == ERR_FORMAT; }

void ReadOnly(ShoppingDatabase& database, fuzz::ScratchFolder& folder, const std::string& bytes) {
  DiscountList& list = database.discounts();
  const DiscountFilter all;
  const int code = list.Load(&all);
  Require(code == 0 || IsFileCode(code), "Load gives a documented code");
  Require(list.size() <= bytes.size() / kFrame, "no more records than the file has room for");
  DateStamp before = 0x7FFFFFFF;
  for (const DiscountRecord* record = list.First(); record != nullptr; record = list.Next()) {
    Require(record->Deleted == 0 && record->Stamp <= before, "live records, newest first");
    before = record->Stamp;
  }
  DiscountFilter some{1, 5000, 5001, 1112749200, 1, "half soap"};
  const std::size_t count = list.size();
  Require(list.Load(&some) == code, "a filter does not change the code");
  Require(list.size() <= count, "a filter lets no more through");
  ProductRecord product;
  product.Name.Assign("soap");
  const int found = list.FindForProduct(product);
  Require(code == 0 ? found >= 0 && found <= 5 : found == code, "FindForProduct agrees");
  const MaxDiscountIds ids = list.MaxIds();
  Require(ids.source_1 >= 0 && ids.source_2 >= 0, "maxima start at 0");
  (void)database.discounts().StoresWithDiscounts();
  Require(list.Mark(2, 0, 0) != ERR_OPEN, "the file opens");
  Require(folder.Read(kFile) == bytes, "reading changes no byte");
}

void Change(ShoppingDatabase& database, fuzz::ScratchFolder& folder, const std::string& bytes) {
  DiscountList& list = database.discounts();
  DiscountFields fields;
  fields.name = "soap";
  const auto updated = list.Update(2, 0, fields);
  std::string now = *folder.Read(kFile);
  Require(updated ? now.size() == bytes.size() : now == bytes, "Update writes in place");
  if (updated) Require(list.Read(2, 0) == updated, "an update can be read back");
  const int marked = list.Mark(3, 0, kMarkDeleted);
  Require(marked == 3 || marked == ERR_NOT_FOUND || IsFileCode(marked), "Mark's codes");

  now = *folder.Read(kFile);
  const auto added = list.Add(0, 0, fields);
  const std::string grown = *folder.Read(kFile);
  if (!added) {
    Require(grown == now, "a refused record changes no byte");
    return;
  }
  Require(added->Id > 0, "ids are positive");
  Require(grown.size() == now.size() + kFrame, "one record more");
  Require(grown.substr(kFirstRecordMark, now.size() - kEmptyRecordFile) ==
              now.substr(kFirstRecordMark, now.size() - kEmptyRecordFile),
          "the records before it stay");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static brovanta::fuzz::ScratchFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  folder.Write(brovanta::kFile, bytes);
  brovanta::ShoppingDatabase database;
  (void)database.Open(folder.path());  // without lists
  brovanta::ReadOnly(database, folder, bytes);
  brovanta::Change(database, folder, bytes);
  return 0;
}
