#include "server/store.h"

#include <string_view>
#include <utility>

#include "server/coupon_words.h"
#include "server/store_schema.h"

namespace brovanta::server {
namespace {

using sqlite::Statement;
using sqlite::Step;

std::optional<Day> DayColumn(const Statement& row, int column) {
  return row.IsNull(column) ? std::nullopt : ParseDay(row.Text(column));
}

std::int32_t IdColumn(const Statement& row, int column) {
  return static_cast<std::int32_t>(row.Number(column));
}

// The coupon of a row of kCouponColumns; nothing when a number has no meaning.
std::optional<Coupon> CouponOf(const Statement& row) {
  const auto source = SourceFromNumber(row.Number(0));
  const auto type = TypeFromNumber(row.Number(5));
  const auto value_type = ValueTypeFromNumber(row.Number(6));
  if (!source || !type || !value_type) return std::nullopt;
  return Coupon{*source,           IdColumn(row, 1),  row.Text(2),
                row.Text(3),       row.Text(4),       *type,
                *value_type,       row.Text(7),       DayColumn(row, 8),
                DayColumn(row, 9), IdColumn(row, 10), IdColumn(row, 11)};
}

}  // namespace

Store::Store(std::unique_ptr<sqlite::Connection> connection) : connection_(std::move(connection)) {}

std::unique_ptr<Store> Store::Open(const std::string& path, sqlite::OpenMode mode,
                                   std::string& error) {
  auto connection = sqlite::Connection::Open(path, mode, error);
  if (!connection || !PrepareDatabase(*connection, error)) return nullptr;
  return std::unique_ptr<Store>(new Store(std::move(connection)));
}

bool Store::ForEachEntry(ListKind kind, std::int32_t above,
                         const std::function<bool(const ListEntry&)>& take) {
  Statement rows(*connection_, "SELECT id, name FROM " + std::string(TableOf(kind)) +
                                   " WHERE id > ? ORDER BY id");
  rows.Bind(0, above);
  for (;;) {
    switch (rows.Next()) {
      case Step::kFailed:
        return false;
      case Step::kDone:
        return true;
      case Step::kRow:
        if (!take({IdColumn(rows, 0), rows.Text(1)})) return true;
    }
  }
}

bool Store::ForEachCoupon(std::int32_t coupons_above, std::int32_t deals_above,
                          const std::function<bool(const Coupon&)>& take) {
  Statement rows(*connection_, "SELECT " + std::string(kCouponColumns) +
                                   " FROM coupon WHERE id > min(?1, ?2)"
                                   " AND id > CASE source WHEN 1 THEN ?1 ELSE ?2 END"
                                   " ORDER BY id, source");
  rows.Bind(0, coupons_above);
  rows.Bind(1, deals_above);
  for (;;) {
    const Step step = rows.Next();
    if (step != Step::kRow) return step == Step::kDone;
    const auto coupon = CouponOf(rows);
    if (!coupon) return false;
    if (!take(*coupon)) return true;
  }
}

bool Store::FindCoupon(CouponSource source, std::int32_t id, std::optional<CouponView>& found) {
  Statement rows(*connection_, "SELECT " + std::string(kCouponColumns) +
                                   ", (SELECT name FROM store WHERE store.id = store_id)"
                                   ", (SELECT name FROM category WHERE category.id = category_id)"
                                   " FROM coupon WHERE id = ? AND source = ?");
  rows.Bind(0, id);
  rows.Bind(1, static_cast<int>(source));
  const Step step = rows.Next();
  if (step != Step::kRow) return step == Step::kDone;
  auto coupon = CouponOf(rows);
  if (!coupon) return false;
  found = CouponView{*std::move(coupon), rows.Text(12), rows.Text(13)};
  return true;
}

bool Store::ReadAgentFile(std::optional<std::string>& bytes) {
  Statement rows(*connection_, "SELECT bytes FROM agent_file");
  const Step step = rows.Next();
  if (step == Step::kRow) bytes = rows.Text(0);
  return step != Step::kFailed;
}

bool Store::IsEmpty() {
  return connection_->Number(
             "SELECT EXISTS (SELECT 1 FROM store) + EXISTS (SELECT 1 FROM category) +"
             " EXISTS (SELECT 1 FROM coupon) + EXISTS (SELECT 1 FROM agent_file)",
             -1) == 0;
}

}  // namespace brovanta::server
