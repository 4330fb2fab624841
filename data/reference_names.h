// What the ids in records stand for: names of the lists, coupons behind links.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "data/data_snapshot.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// UTF-8 names by id; of items with one id the first counts, as in the program.
class NameTable {
 public:
  void Add(std::int32_t id, std::string name) {
    names_.emplace(static_cast<std::uint32_t>(id), std::move(name));
  }
  [[nodiscard]] std::optional<std::string> Find(std::uint32_t id) const;

 private:
  std::map<std::uint32_t, std::string> names_;
};

/// Coupons by what links to them.
class CouponNames {
 public:
  void Add(const DiscountRecord& record);

  /// The name of the coupon that the link leads to: that of its key, live or not, and for a link of
  /// the search, whose source is 0, the first live one with its id and type.
  [[nodiscard]] std::optional<std::string> Find(const AppliedDiscount& link) const;

 private:
  struct Coupon {
    std::int16_t source = 0;
    std::int16_t type = 0;
    bool deleted = false;
    std::string name;
  };
  std::multimap<std::uint32_t, Coupon> coupons_;  // equal ids in file order
};

struct ReferenceNames {
  NameTable stores;
  NameTable categories;
  NameTable units;
  CouponNames coupons;
};

/// Those of a folder's files, of a damaged one as far as it can be read. Files that are missing
/// have no names.
[[nodiscard]] ReferenceNames NamesOf(const DataSnapshot& files);

}  // namespace brovanta::data_tool
