#include "server/coupon_table.h"

#include <array>
#include <cstddef>
#include <map>
#include <utility>

#include "server/coupon_words.h"
#include "server/plain_number.h"
#include "util/number.h"

namespace brovanta::server {
namespace {

enum Column : std::size_t {
  kSource,
  kId,
  kName,
  kProduct,
  kDescription,
  kType,
  kValueType,
  kValue,
  kStartDate,
  kEndDate,
  kStoreId,
  kCategoryId,
  kColumnCount
};

constexpr std::array<std::string_view, kColumnCount> kColumns = {
    "source",     "id",    "name",       "product",  "description", "type",
    "value_type", "value", "start_date", "end_date", "store_id",    "category_id"};

// Up to seven digits, and up to two decimals behind a point.
bool IsPlainDecimal(std::string_view text) {
  constexpr std::int32_t kMost = 9'999'999;
  const std::size_t point = text.find('.');
  if (!PlainNumber(text.substr(0, point), kMost)) return false;
  if (point == std::string_view::npos) return true;
  const std::string_view decimals = text.substr(point + 1);
  return (decimals.size() == 1 || decimals.size() == 2) &&
         decimals.find_first_not_of("0123456789") == std::string_view::npos;
}

template <typename Value>
Value Required(TableReader& reader, std::size_t column, std::optional<Value> value,
               std::string_view expected) {
  if (!value) reader.RefuseForm(column, expected);
  return value.value_or(Value{});
}

std::string ReadValue(TableReader& reader, ValueType type) {
  const std::string& text = reader.Field(kValue);
  if (!IsPlainDecimal(text)) {
    reader.RefuseForm(kValue, "a number with at most two decimals, such as 1.50");
  } else if (type == ValueType::kPercent && LeadingDouble(text) > 100.0) {
    reader.Refuse(kValue, "is more than 100 percent");
  }
  return text;
}

std::optional<Day> ReadDay(TableReader& reader, std::size_t column) {
  const std::string& text = reader.Field(column);
  if (text.empty()) return std::nullopt;
  const auto day = ParseDay(text);
  if (!day) {
    reader.RefuseForm(column, "a date from " + FormatDay(kFirstDay) + " to " + FormatDay(kLastDay));
  }
  return day;
}

Coupon ReadCoupon(TableReader& reader) {
  Coupon coupon;
  coupon.source =
      Required(reader, kSource, SourceFromWord(reader.Field(kSource)), "\"coupon\" or \"deal\"");
  coupon.id = reader.Number(kId, kMaxCouponId);
  coupon.name = reader.Text(kName, kCouponNameLength);
  coupon.product = reader.Text(kProduct, kProductLength);
  coupon.description = reader.Text(kDescription, kDescriptionLength);
  coupon.type = Required(reader, kType, TypeFromWord(reader.Field(kType)),
                         "\"internet code\", \"store coupon\" or \"mail in rebate\"");
  coupon.value_type = Required(reader, kValueType, ValueTypeFromWord(reader.Field(kValueType)),
                               "\"percent\" or \"amount\"");
  coupon.value = ReadValue(reader, coupon.value_type);
  coupon.start_date = ReadDay(reader, kStartDate);
  coupon.end_date = ReadDay(reader, kEndDate);
  if (coupon.start_date && coupon.end_date && *coupon.end_date < *coupon.start_date) {
    reader.Refuse(kEndDate, "is before the start date");
  }
  coupon.store_id = reader.Number(kStoreId, kMaxListId);
  coupon.category_id = reader.Number(kCategoryId, kMaxListId);
  return coupon;
}

}  // namespace

Table<Coupon> ReadCouponTable(std::string_view text) {
  Table<Coupon> table;
  TableReader reader(text, kColumns);
  std::map<std::pair<CouponSource, std::int32_t>, std::size_t> lines;
  while (reader.Next()) {
    Coupon coupon = ReadCoupon(reader);
    const auto [known, fresh] = lines.try_emplace({coupon.source, coupon.id}, reader.line());
    if (!fresh && coupon.id != 0) {
      reader.Refuse(kId, "stands in line " + std::to_string(known->second) + " already");
    }
    table.rows.push_back({reader.line(), std::move(coupon)});
  }
  table.problems = reader.TakeProblems();
  return table;
}

std::string WriteCouponTable(std::span<const Coupon> coupons) {
  std::string text;
  AppendCsvRecord(text, {kColumns.begin(), kColumns.end()});
  for (const Coupon& coupon : coupons) {
    AppendCsvRecord(text, {std::string(Word(coupon.source)), std::to_string(coupon.id), coupon.name,
                           coupon.product, coupon.description, std::string(Word(coupon.type)),
                           std::string(Word(coupon.value_type)), coupon.value,
                           coupon.start_date ? FormatDay(*coupon.start_date) : std::string(),
                           coupon.end_date ? FormatDay(*coupon.end_date) : std::string(),
                           std::to_string(coupon.store_id), std::to_string(coupon.category_id)});
  }
  return text;
}

}  // namespace brovanta::server
