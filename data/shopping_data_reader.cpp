#include "data/shopping_data_reader.h"

#include <span>
#include <utility>
#include <vector>

#include "data/frame.h"
#include "db/file_names.h"
#include "db/record_format.h"

namespace brovanta::data_tool {
namespace {

class Reader {
 public:
  Reader(const DataSnapshot& snapshot, ReadProblem& problem)
      : snapshot_(snapshot), problem_(problem) {}

  bool ReadProducts(std::vector<ProductRecord>& products) {
    return Walk(kProductFile, {product_layout::kSize, kFirstRecordMark, Severity::kNote},
                [&](FileBytes bytes) {
                  products.push_back(DecodeProduct(bytes.first<product_layout::kSize>()));
                });
  }

  bool ReadDiscounts(std::vector<DiscountRecord>& discounts) {
    return Walk(kDiscountFile, {discount_layout::kSize, kFirstRecordMark, Severity::kNote},
                [&](FileBytes bytes) {
                  discounts.push_back(DecodeDiscount(bytes.first<discount_layout::kSize>()));
                });
  }

  bool ReadNames(const char* file, NameList& names) {
    return Walk(file, {list_layout::kSize, kFirstListMark, Severity::kNote}, [&](FileBytes bytes) {
      names.Insert(DecodeListItem(bytes.first<list_layout::kSize>()));
    });
  }

 private:
  template <typename Take>
  bool Walk(const char* file, const Frame& frame, Take take) {
    const auto found = snapshot_.find(file);
    if (found == snapshot_.end()) return true;
    std::vector<Finding> findings;
    FileNotes notes(file, findings);
    const bool whole = WalkFrame(std::as_bytes(std::span(found->second)), frame, notes,
                                 [&](std::size_t, FileBytes rest) {
                                   take(rest);
                                   return std::optional<std::size_t>();
                                 });
    if (whole) return true;
    problem_ = {kBad, std::string(file) + " is damaged: " + findings.back().words};
    return false;
  }

  const DataSnapshot& snapshot_;
  ReadProblem& problem_;
};

}  // namespace

std::optional<ShoppingData> ReadShoppingData(const std::string& folder, ReadProblem& problem) {
  const auto snapshot = ReadFolder(folder, problem);
  if (!snapshot) return std::nullopt;
  ShoppingData data;
  Reader reader(*snapshot, problem);
  if (!reader.ReadNames(kStoreFile, data.stores) ||
      !reader.ReadNames(kCategoryFile, data.categories) ||
      !reader.ReadNames(kUnitFile, data.units) || !reader.ReadProducts(data.products) ||
      !reader.ReadDiscounts(data.discounts)) {
    return std::nullopt;
  }
  return data;
}

}  // namespace brovanta::data_tool
