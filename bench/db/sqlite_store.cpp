#include "bench/db/sqlite_store.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "bench/db/household.h"
#include "db/schedule.h"
#include "util/local_zone.h"

namespace brovanta::bench {
namespace {

[[noreturn]] void Fail(sqlite3* connection) {
  std::fprintf(stderr, "SQLite: %s\n", sqlite3_errmsg(connection));
  std::exit(EXIT_FAILURE);
}

/// Binds the values of one row, one column after the other.
class RowWriter {
 public:
  explicit RowWriter(const Statement& insert) : statement_(insert.get()) {}

  RowWriter& Integer(std::int64_t value) {
    sqlite3_bind_int64(statement_, ++column_, value);
    return *this;
  }
  RowWriter& Real(double value) {
    sqlite3_bind_double(statement_, ++column_, value);
    return *this;
  }
  template <std::size_t N>
  RowWriter& Text(const FixedText<N>& text) {
    const std::string_view view = text.view();
    sqlite3_bind_text(statement_, ++column_, view.data(), static_cast<int>(view.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  RowWriter& Slots(const DiscountSlots& slots) {
    const bool empty = std::all_of(slots.begin(), slots.end(),
                                   [](const AppliedDiscount& slot) { return slot.Id == 0; });
    if (empty) {
      sqlite3_bind_null(statement_, ++column_);
    } else {
      sqlite3_bind_blob(statement_, ++column_, slots.data(), sizeof slots, SQLITE_TRANSIENT);
    }
    return *this;
  }

 private:
  sqlite3_stmt* statement_;
  int column_ = 0;
};

/// Takes the values of one row, one column after the other.
class RowReader {
 public:
  explicit RowReader(sqlite3_stmt* row) : row_(row) {}

  template <typename Number>
  void Integer(Number& value) {
    value = static_cast<Number>(sqlite3_column_int64(row_, column_++));
  }
  void Real(double& value) { value = sqlite3_column_double(row_, column_++); }
  template <std::size_t N>
  void Text(FixedText<N>& text) {
    const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(row_, column_));
    text.Assign({characters, static_cast<std::size_t>(sqlite3_column_bytes(row_, column_))});
    ++column_;
  }
  void Slots(DiscountSlots& slots) {
    const void* bytes = sqlite3_column_blob(row_, column_++);
    if (bytes != nullptr) std::memcpy(slots.data(), bytes, sizeof slots);
  }

 private:
  sqlite3_stmt* row_;
  int column_ = 0;
};

}  // namespace

Statement::Statement(sqlite3* connection, const std::string& sql) {
  if (sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
    Fail(connection);
  }
}

Statement::~Statement() { sqlite3_finalize(statement_); }

bool Statement::Step() const {
  const int result = sqlite3_step(statement_);
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) Fail(sqlite3_db_handle(statement_));
  sqlite3_reset(statement_);
  return false;
}

SqliteStore& SqliteStore::Instance() {
  static SqliteStore store;
  return store;
}

SqliteStore::SqliteStore() {
  if (sqlite3_open(BenchFolder::Instance().File("records.sqlite").c_str(), &connection_) !=
      SQLITE_OK) {
    Fail(connection_);
  }
  Run("PRAGMA locking_mode = EXCLUSIVE");
  Run("PRAGMA synchronous = OFF");
  Run("PRAGMA cache_size = -262144");
  Run("BEGIN");
  FillDiscounts();
  FillProducts();
  Run("COMMIT");
  Run("ANALYZE");
}

SqliteStore::~SqliteStore() { sqlite3_close(connection_); }

void SqliteStore::Run(const std::string& sql) const {
  if (sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    Fail(connection_);
  }
}

void SqliteStore::FillDiscounts() const {
  Run("CREATE TABLE discount (row INTEGER PRIMARY KEY, id INTEGER, name TEXT, product TEXT, "
      "description TEXT, source INTEGER, type INTEGER, value_type INTEGER, value REAL, "
      "stamp INTEGER, start_date INTEGER, end_date INTEGER, store_id INTEGER, category_id INTEGER, "
      "flagged INTEGER, deleted INTEGER)");
  const Statement insert(connection_, std::string("INSERT INTO discount (") + kDiscountColumns +
                                          ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  for (const DiscountRecord& discount : MakeDiscounts()) {
    RowWriter row(insert);
    row.Integer(discount.Id).Text(discount.Name).Text(discount.Product).Text(discount.Description);
    row.Integer(discount.Source).Integer(discount.Type).Integer(discount.ValueType);
    row.Real(discount.Value).Integer(discount.Stamp).Integer(discount.StartDate);
    row.Integer(discount.EndDate).Integer(discount.StoreId).Integer(discount.CategoryId);
    row.Integer(discount.Flagged).Integer(discount.Deleted);
    static_cast<void>(insert.Step());
  }
  // Descending, so that equal dates come in order of arrival without a sort.
  Run("CREATE INDEX discount_by_date ON discount (stamp DESC)");
}

void SqliteStore::FillProducts() const {
  Run("CREATE TABLE product (row INTEGER PRIMARY KEY, id INTEGER, name TEXT, short_text TEXT, "
      "notes TEXT, store_id INTEGER, category_id INTEGER, unit_id INTEGER, purchase_kind INTEGER, "
      "every INTEGER, day_value INTEGER, start_date INTEGER, last_purchased INTEGER, "
      "next_date INTEGER, days_overdue INTEGER, unit_price REAL, quantity REAL, discounts BLOB, "
      "tax_percent REAL, deleted INTEGER)");
  const Statement insert(connection_, std::string("INSERT INTO product (") + kProductColumns +
                                          ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  const auto zone = LocalZone::Current();
  for (const ProductRecord& product : MakeProducts()) {
    RowWriter row(insert);
    row.Integer(product.Id).Text(product.Name).Text(product.ShortText).Text(product.Notes);
    row.Integer(product.StoreId).Integer(product.CategoryId).Integer(product.UnitId);
    row.Integer(product.PurchaseKind).Integer(product.Every).Integer(product.DayValue);
    row.Integer(product.StartDate).Integer(product.LastPurchased);
    // SQLite is given the dates that Brovanta has to compute.
    row.Integer(NextDueDate(product, *zone)).Integer(product.DaysOverdue);
    row.Real(product.UnitPrice).Real(product.Quantity).Slots(product.Discounts);
    row.Real(product.TaxPercent).Integer(product.Deleted);
    static_cast<void>(insert.Step());
  }
  Run("CREATE INDEX product_by_date ON product (next_date DESC)");
}

void ReadRow(sqlite3_stmt* row, DiscountRecord& discount) {
  RowReader reader(row);
  reader.Integer(discount.Id);
  reader.Text(discount.Name);
  reader.Text(discount.Product);
  reader.Text(discount.Description);
  reader.Integer(discount.Source);
  reader.Integer(discount.Type);
  reader.Integer(discount.ValueType);
  reader.Real(discount.Value);
  reader.Integer(discount.Stamp);
  reader.Integer(discount.StartDate);
  reader.Integer(discount.EndDate);
  reader.Integer(discount.StoreId);
  reader.Integer(discount.CategoryId);
  reader.Integer(discount.Flagged);
  reader.Integer(discount.Deleted);
}

void ReadRow(sqlite3_stmt* row, ProductRecord& product) {
  RowReader reader(row);
  reader.Integer(product.Id);
  reader.Text(product.Name);
  reader.Text(product.ShortText);
  reader.Text(product.Notes);
  reader.Integer(product.StoreId);
  reader.Integer(product.CategoryId);
  reader.Integer(product.UnitId);
  reader.Integer(product.PurchaseKind);
  reader.Integer(product.Every);
  reader.Integer(product.DayValue);
  reader.Integer(product.StartDate);
  reader.Integer(product.LastPurchased);
  reader.Integer(product.NextDate);
  reader.Integer(product.DaysOverdue);
  reader.Real(product.UnitPrice);
  reader.Real(product.Quantity);
  reader.Slots(product.Discounts);
  reader.Real(product.TaxPercent);
  reader.Integer(product.Deleted);
}

}  // namespace brovanta::bench
