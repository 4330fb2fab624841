// The tables of the server's file, and how a file is recognised as one.
#pragma once

#include <string>
#include <string_view>

#include "server/sqlite.h"
#include "server/store.h"

namespace brovanta::server {

/// The columns of a coupon, in the order of the fields of `Coupon`.
inline constexpr std::string_view kCouponColumns =
    "source, id, name, product, description, type, value_type, value, start_date, end_date,"
    " store_id, category_id";

[[nodiscard]] std::string_view TableOf(ListKind kind);

/// Makes the tables in a new file, checks that another one is ours, and sets the connection up so
/// that a commit is on the disk. False on failure, `error` then says why.
[[nodiscard]] bool PrepareDatabase(sqlite::Connection& connection, std::string& error);

}  // namespace brovanta::server
