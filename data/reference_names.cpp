#include "data/reference_names.h"

#include <algorithm>
#include <span>

#include "data/exact_values.h"
#include "data/framed_file.h"
#include "db/file_names.h"
#include "db/record_format.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

constexpr std::int16_t kFoundByProduct = 100;  // added to the type where the search made the link

template <std::size_t Size>
std::span<const std::byte, Size> RecordBytes(std::string_view record) {
  return std::as_bytes(std::span(record)).template first<Size>();
}

NameTable NamesOfList(const DataSnapshot& files, const std::string& file) {
  NameTable names;
  const auto found = files.find(file);
  if (found == files.end()) return names;
  for (const std::string_view record : TakeApart(found->second, kListFrame).records) {
    const ListItem item = DecodeListItem(RecordBytes<list_layout::kSize>(record));
    names.Add(item.Id, Utf8FromWindows1252(item.Name.view()));
  }
  return names;
}

}  // namespace

std::optional<std::string> NameTable::Find(std::uint32_t id) const {
  const auto found = names_.find(id);
  return found != names_.end() ? std::optional(found->second) : std::nullopt;
}

void CouponNames::Add(const DiscountRecord& record) {
  coupons_.emplace(static_cast<std::uint32_t>(record.Id),
                   Coupon{record.Source, record.Type, record.Deleted != 0,
                          Utf8FromWindows1252(record.Name.view())});
}

std::optional<std::string> CouponNames::Find(const AppliedDiscount& link) const {
  const auto range = coupons_.equal_range(link.Id);
  const auto name_where = [&](auto fits) {
    const auto found =
        std::find_if(range.first, range.second, [&](const auto& one) { return fits(one.second); });
    return found != range.second ? std::optional(found->second.name) : std::nullopt;
  };
  const auto has_key = [&](const Coupon& one) { return one.source == link.Source; };
  auto name = name_where([&](const Coupon& one) { return has_key(one) && !one.deleted; });
  if (!name && link.Source == 0) {
    name = name_where(
        [&](const Coupon& one) { return !one.deleted && one.type + kFoundByProduct == link.Type; });
  }
  return name ? name : name_where(has_key);
}

ReferenceNames NamesOf(const DataSnapshot& files) {
  ReferenceNames names{NamesOfList(files, kStoreFile),
                       NamesOfList(files, kCategoryFile),
                       NamesOfList(files, kUnitFile),
                       {}};
  const auto discounts = files.find(kDiscountFile);
  if (discounts == files.end()) return names;
  for (const std::string_view record : TakeApart(discounts->second, kDiscountFrame).records) {
    names.coupons.Add(DecodeDiscount(RecordBytes<discount_layout::kSize>(record)));
  }
  return names;
}

}  // namespace brovanta::data_tool
