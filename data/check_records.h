// A look at products, purchases and discounts.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "data/check_lists.h"
#include "data/folder_report.h"
#include "data/frame.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// The ids that the records of a folder may refer to.
struct KnownNames {
  KnownIds stores;
  KnownIds categories;
  KnownIds units;
};

/// Tells what a coupon link of a product leads to, by the program's own rule.
class DiscountIndex {
 public:
  void Add(const DiscountRecord& record);

  enum class Target {
    kLive,
    kGone,     ///< there is a discount with the id, but it is deleted or another one by now
    kNothing,  ///< there is none
  };
  [[nodiscard]] Target Of(const AppliedDiscount& link) const;

 private:
  struct Entry {
    std::int16_t source = 0;
    std::int16_t type = 0;
    bool deleted = false;
  };
  std::multimap<std::uint32_t, Entry> entries_;
};

/// Checks the bytes of "discount.dat". The index of its records; nothing when it cannot be said
/// which there are.
[[nodiscard]] std::optional<DiscountIndex> CheckDiscounts(FileBytes bytes, const KnownNames& names,
                                                          FileReport& report, FileNotes& notes);

/// Checks the bytes of "product.dat"; of "purchase.dat" without `discounts`, because the links of a
/// purchase are history.
void CheckProducts(FileBytes bytes, const KnownNames& names, const DiscountIndex* discounts,
                   FileReport& report, FileNotes& notes);

}  // namespace brovanta::data_tool
