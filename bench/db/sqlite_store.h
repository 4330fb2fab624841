// The same records in SQLite, as a program would keep them there, for comparison.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string>
#include <vector>

#include "db/records.h"

namespace brovanta::bench {

/// One prepared statement, kept for the length of the benchmark.
class Statement {
 public:
  Statement(sqlite3* connection, const std::string& sql);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement();

  [[nodiscard]] sqlite3_stmt* get() const { return statement_; }
  /// True while there is another row; afterwards the statement starts anew.
  [[nodiscard]] bool Step() const;

 private:
  sqlite3_stmt* statement_ = nullptr;
};

/// A database file with the records of household.h, indexed by date: open all the time, with a
/// cache that holds all of it.
class SqliteStore {
 public:
  static SqliteStore& Instance();

  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;

  [[nodiscard]] sqlite3* connection() const { return connection_; }

 private:
  SqliteStore();
  ~SqliteStore();

  void Run(const std::string& sql) const;
  void FillDiscounts() const;
  void FillProducts() const;

  sqlite3* connection_ = nullptr;
};

/// The columns that the row functions expect, in order.
inline constexpr const char* kDiscountColumns =
    "id, name, product, description, source, type, value_type, value, stamp, start_date, end_date, "
    "store_id, category_id, flagged, deleted";
inline constexpr const char* kProductColumns =
    "id, name, short_text, notes, store_id, category_id, unit_id, purchase_kind, every, day_value, "
    "start_date, last_purchased, next_date, days_overdue, unit_price, quantity, discounts, "
    "tax_percent, deleted";

/// The current row as the structure that the lists hold.
void ReadRow(sqlite3_stmt* row, DiscountRecord& discount);
void ReadRow(sqlite3_stmt* row, ProductRecord& product);

/// Runs a query to its end and puts its rows into `records`, whose memory is used again.
template <typename Record>
void ReadRows(const Statement& query, std::vector<Record>& records) {
  records.clear();
  while (query.Step()) ReadRow(query.get(), records.emplace_back());
}

}  // namespace brovanta::bench
