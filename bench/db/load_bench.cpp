// Loading the lists, side by side with SQLite and with reading the file without looking at it.
// Names are "measure/subject"; scripts/bench says which subjects are compared.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "bench/db/household.h"
#include "bench/db/sqlite_store.h"
#include "db/shopping_database.h"
#include "util/clock.h"

namespace brovanta::bench {
namespace {

std::int64_t LongAfterNow() {
  static const std::int64_t start = std::time(nullptr);
  return start + 3600;
}
std::int64_t LongBeforeNow() { return kToday; }

/// A database for files that have not changed for a while: loaded a second time, they need not be
/// read again. SQLite has all of its file in memory too.
ShoppingDatabase& Settled() {
  static ShoppingDatabase database;
  static const int code = (WriteDataFiles(), database.Open(BenchFolder::Instance().path()));
  if (code != 0) std::abort();
  SetClock(LongAfterNow);
  return database;
}

/// A database for files that change between all loads, so that each reads the whole file.
ShoppingDatabase& Unsettled() {
  static ShoppingDatabase database;
  static const int code = (WriteDataFiles(), database.Open(BenchFolder::Instance().path()));
  if (code != 0) std::abort();
  SetClock(LongBeforeNow);
  return database;
}

DiscountFilter TwoWordsInOneStore() {
  DiscountFilter filter;
  filter.store_id = kStore;
  filter.valid_on = kToday;
  filter.text = std::string(kFirstWord) + " " + kSecondWord;
  return filter;
}

ProductFilter AllProducts() {
  ProductFilter filter;
  filter.from = kToday;
  filter.to = std::numeric_limits<DateStamp>::max();
  return filter;
}

std::string AllDiscountsSql() {
  return std::string("SELECT ") + kDiscountColumns +
         " FROM discount WHERE deleted = 0 ORDER BY stamp DESC, row";
}

std::string TwoWordsInOneStoreSql() {
  const auto both_words_in = [](const std::string& column) {
    return "(" + column + " LIKE '%" + kFirstWord + "%' AND " + column + " LIKE '%" + kSecondWord +
           "%')";
  };
  const std::string today = std::to_string(kToday);
  const std::string store = std::to_string(kStore);
  return std::string("SELECT ") + kDiscountColumns +
         " FROM discount WHERE deleted = 0 AND (end_date <= 0 OR end_date >= " + today +
         ") AND (store_id = 0 OR store_id = " + store + ") AND (" + both_words_in("name") + " OR " +
         both_words_in("product") + ") ORDER BY stamp DESC, row";
}

std::string AnyOrderProductsSql() {
  return std::string("SELECT ") + kProductColumns +
         " FROM product NOT INDEXED WHERE deleted = 0 AND next_date <> 0";
}

std::string AllProductsSql() {
  return std::string("SELECT ") + kProductColumns +
         " FROM product WHERE deleted = 0 AND next_date <> 0 ORDER BY next_date DESC, row";
}

/// Whether a list holds the rows of a query, in their order if the query gives one: only
/// equal work is compared.
template <typename List, typename Record>
bool HoldsRows(List& list, const std::vector<Record>& rows, bool in_order) {
  if (!in_order) return list.size() == rows.size();
  const Record* record = list.First();
  for (const Record& row : rows) {
    if (record == nullptr || record->Id != row.Id || record->Name != row.Name) return false;
    record = list.Next();
  }
  return record == nullptr && !rows.empty();
}

template <typename List, typename Filter>
void LoadList(benchmark::State& state, List& list, const Filter& filter) {
  while (state.KeepRunning()) {
    if (list.Load(&filter) != 0) state.SkipWithError("the list does not load");
    benchmark::DoNotOptimize(list.First());
  }
  state.counters["rows"] = static_cast<double>(list.size());
}

template <typename Record, typename List, typename Filter>
void QuerySqlite(benchmark::State& state, const std::string& sql, List& list, const Filter& filter,
                 bool in_order = true) {
  const Statement query(SqliteStore::Instance().connection(), sql);
  static std::vector<Record> rows;
  ReadRows(query, rows);
  if (list.Load(&filter) != 0 || !HoldsRows(list, rows, in_order)) {
    state.SkipWithError("SQLite does not give the rows of the list");
    return;
  }
  while (state.KeepRunning()) {
    ReadRows(query, rows);
    benchmark::DoNotOptimize(rows.data());
  }
  state.counters["rows"] = static_cast<double>(rows.size());
}

void ReadFile(benchmark::State& state, const std::string& path) {
  while (state.KeepRunning()) benchmark::DoNotOptimize(ReadWholeFile(path));
}

void Add(const char* name, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
}

const bool kAdded = [] {
  Add("all_discounts/brovanta",
      [](benchmark::State& state) { LoadList(state, Settled().discounts(), DiscountFilter()); });
  Add("all_discounts/brovanta_reading",
      [](benchmark::State& state) { LoadList(state, Unsettled().discounts(), DiscountFilter()); });
  Add("all_discounts/sqlite", [](benchmark::State& state) {
    QuerySqlite<DiscountRecord>(state, AllDiscountsSql(), Settled().discounts(), DiscountFilter());
  });
  Add("filtered_discounts/brovanta", [](benchmark::State& state) {
    LoadList(state, Settled().discounts(), TwoWordsInOneStore());
  });
  Add("filtered_discounts/brovanta_reading", [](benchmark::State& state) {
    LoadList(state, Unsettled().discounts(), TwoWordsInOneStore());
  });
  Add("filtered_discounts/sqlite", [](benchmark::State& state) {
    QuerySqlite<DiscountRecord>(state, TwoWordsInOneStoreSql(), Settled().discounts(),
                                TwoWordsInOneStore());
  });
  Add("filtered_discounts/plain_read", [](benchmark::State& state) {
    WriteDataFiles();
    ReadFile(state, BenchFolder::Instance().File("discount.dat"));
  });
  Add("scheduled_products/brovanta",
      [](benchmark::State& state) { LoadList(state, Settled().products(), AllProducts()); });
  Add("scheduled_products/brovanta_reading",
      [](benchmark::State& state) { LoadList(state, Unsettled().products(), AllProducts()); });
  Add("scheduled_products/sqlite", [](benchmark::State& state) {
    QuerySqlite<ProductRecord>(state, AllProductsSql(), Settled().products(), AllProducts());
  });
  Add("scheduled_products/sqlite_any_order", [](benchmark::State& state) {
    QuerySqlite<ProductRecord>(state, AnyOrderProductsSql(), Settled().products(), AllProducts(),
                               false);
  });
  return true;
}();

}  // namespace
}  // namespace brovanta::bench
