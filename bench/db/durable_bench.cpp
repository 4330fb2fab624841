// Adding one product so that no power loss takes it away again, side by side with SQLite.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/db/household.h"
#include "bench/db/sqlite_store.h"
#include "db/shopping_database.h"

namespace brovanta::bench {
namespace {

constexpr int kRecordsBefore = 1000;
constexpr const char* kName = "Organic milk, 1 l";
constexpr const char* kNotes = "Ask for the one with the green cap";

std::string DurableFolder() {
  static const std::string folder = [] {
    std::string path = BenchFolder::Instance().File("durable");
    std::filesystem::create_directory(path);
    for (const char* list : {"/store.lst", "/category.lst", "/unit.lst"}) {
      std::ofstream(path + list, std::ios::binary).write("\x81\x38\x01\0\x83\x38\x01\0", 8);
    }
    return path;
  }();
  return folder;
}

bool AddProduct(ShoppingDatabase& database) {
  ProductFields fields;
  fields.name = kName;
  fields.notes = kNotes;
  fields.quantity = 2;
  fields.unit_price = 1.19;
  fields.start_date = kToday;
  return database.products().Add(kProductKind, fields).has_value();
}

/// The lists in memory stay empty: no date of the filter passes.
ShoppingDatabase& Filled() {
  static ShoppingDatabase database;
  static const bool ready = [] {
    if (database.Open(DurableFolder()) != 0) return false;
    for (int i = 0; i < kRecordsBefore; ++i) {
      if (!AddProduct(database)) return false;
    }
    return true;
  }();
  if (!ready) std::abort();
  return database;
}

void AddToBrovanta(benchmark::State& state) {
  ShoppingDatabase& database = Filled();
  while (state.KeepRunning()) {
    if (!AddProduct(database)) state.SkipWithError("the product is not added");
  }
}

void Run(sqlite3* connection, const std::string& sql) {
  if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
}

/// Its default of a rollback journal, and every sync that keeps a transaction through a power loss.
sqlite3* DurableSqlite() {
  static sqlite3* connection = nullptr;
  if (connection != nullptr) return connection;
  if (sqlite3_open((DurableFolder() + "/durable.sqlite").c_str(), &connection) != SQLITE_OK) {
    std::abort();
  }
  Run(connection, "PRAGMA journal_mode = DELETE");
  Run(connection, "PRAGMA synchronous = FULL");
  Run(connection,
      "CREATE TABLE product (row INTEGER PRIMARY KEY, id INTEGER, name TEXT, short_text TEXT, "
      "notes TEXT, store_id INTEGER, category_id INTEGER, unit_id INTEGER, purchase_kind INTEGER, "
      "every INTEGER, day_value INTEGER, start_date INTEGER, last_purchased INTEGER, next_date "
      "INTEGER, days_overdue INTEGER, unit_price REAL, quantity REAL, discounts BLOB, tax_percent "
      "REAL, deleted INTEGER)");
  return connection;
}

void AddToSqlite(benchmark::State& state) {
  sqlite3* const connection = DurableSqlite();
  static const Statement insert(
      connection,
      std::string("INSERT INTO product (") + kProductColumns +
          ") VALUES (?1, ?2, '', ?3, 0, 0, 0, 0, 0, 0, ?4, 0, 0, 0, 1.19, 2, NULL, 0, 0)");
  static int id = 0;
  const auto add = [] {
    sqlite3_bind_int(insert.get(), 1, ++id);
    sqlite3_bind_text(insert.get(), 2, kName, -1, SQLITE_STATIC);
    sqlite3_bind_text(insert.get(), 3, kNotes, -1, SQLITE_STATIC);
    sqlite3_bind_int(insert.get(), 4, kToday);
    return insert.Step();
  };
  if (id == 0) {
    Run(connection, "BEGIN");
    while (id < kRecordsBefore) (void)add();
    Run(connection, "COMMIT");
  }
  while (state.KeepRunning()) benchmark::DoNotOptimize(add());
}

const bool kAdded = [] {
  benchmark::RegisterBenchmark("durable_add/brovanta", AddToBrovanta)
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("durable_add/sqlite", AddToSqlite)->Unit(benchmark::kMillisecond);
  return true;
}();

}  // namespace
}  // namespace brovanta::bench
