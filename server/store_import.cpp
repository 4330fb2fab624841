#include <algorithm>
#include <map>
#include <utility>

#include "server/coupon_words.h"
#include "server/store.h"
#include "server/store_schema.h"

namespace brovanta::server {
namespace {

using sqlite::Connection;
using sqlite::Statement;
using sqlite::Step;

constexpr const char* kCouponParameters = "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?";

bool Empty(Connection& connection, std::string_view table) {
  return connection.Run(("DELETE FROM " + std::string(table)).c_str());
}

bool PutEntries(Connection& connection, ListKind kind, const std::vector<Row<ListEntry>>& rows,
                bool replace) {
  const std::string table(TableOf(kind));
  if (replace && !Empty(connection, table)) return false;
  Statement put(connection, "INSERT OR REPLACE INTO " + table + " (id, name) VALUES (?, ?)");
  for (const auto& row : rows) {
    put.Bind(0, row.entry.id);
    put.Bind(1, row.entry.name);
    if (!put.Run()) return false;
  }
  return true;
}

void BindDay(Statement& put, int parameter, const std::optional<Day>& day) {
  if (day) {
    put.Bind(parameter, FormatDay(*day));
  } else {
    put.BindNull(parameter);
  }
}

bool PutCoupon(Statement& put, const Coupon& coupon) {
  put.Bind(0, static_cast<int>(coupon.source));
  put.Bind(1, coupon.id);
  put.Bind(2, coupon.name);
  put.Bind(3, coupon.product);
  put.Bind(4, coupon.description);
  put.Bind(5, static_cast<int>(coupon.type));
  put.Bind(6, static_cast<int>(coupon.value_type));
  put.Bind(7, coupon.value);
  BindDay(put, 8, coupon.start_date);
  BindDay(put, 9, coupon.end_date);
  put.Bind(10, coupon.store_id);
  put.Bind(11, coupon.category_id);
  return put.Run();
}

bool PutCoupons(Connection& connection, const std::vector<Row<Coupon>>& rows, bool replace) {
  if (replace && !Empty(connection, "coupon")) return false;
  Statement put(connection, "INSERT OR REPLACE INTO coupon (" + std::string(kCouponColumns) +
                                ") VALUES (" + kCouponParameters + ")");
  for (const auto& row : rows) {
    if (!PutCoupon(put, row.entry)) return false;
  }
  return true;
}

bool WithdrawCoupons(Connection& connection, const std::vector<CouponKey>& keys) {
  Statement withdraw(connection, "DELETE FROM coupon WHERE id = ? AND source = ?");
  for (const CouponKey& key : keys) {
    withdraw.Bind(0, key.id);
    withdraw.Bind(1, static_cast<int>(key.source));
    if (!withdraw.Run()) return false;
  }
  return true;
}

bool PutAgentFile(Connection& connection, const std::string& bytes) {
  Statement put(connection, "INSERT OR REPLACE INTO agent_file (id, bytes) VALUES (1, ?)");
  put.BindBytes(0, bytes);
  return put.Run();
}

bool PutAll(Connection& connection, const Import& import) {
  if (import.stores && !PutEntries(connection, ListKind::kStores, *import.stores, import.replace)) {
    return false;
  }
  if (import.categories &&
      !PutEntries(connection, ListKind::kCategories, *import.categories, import.replace)) {
    return false;
  }
  if (!WithdrawCoupons(connection, import.withdrawn)) return false;
  if (import.coupons && !PutCoupons(connection, *import.coupons, import.replace)) return false;
  return !import.agents || PutAgentFile(connection, *import.agents);
}

using Lines = std::map<std::pair<std::int64_t, std::int64_t>, std::size_t>;

// Where each coupon of the import stands in its file, by source and id.
Lines LinesOf(const Import& import) {
  Lines lines;
  if (!import.coupons) return lines;
  for (const auto& row : *import.coupons) {
    lines[{static_cast<int>(row.entry.source), row.entry.id}] = row.line;
  }
  return lines;
}

// A problem for each coupon whose store (or category) is in no table. False when the database
// cannot be read.
bool FindOrphans(Connection& connection, ListKind kind, const Lines& lines,
                 std::vector<Problem>& problems) {
  const std::string table(TableOf(kind));
  Statement rows(connection, "SELECT source, id, " + table + "_id FROM coupon WHERE " + table +
                                 "_id NOT IN (SELECT id FROM " + table + ") ORDER BY id, source");
  Step step = rows.Next();
  for (; step == Step::kRow && problems.size() < kMaxProblems; step = rows.Next()) {
    const std::string missing = table + " " + rows.Text(2);
    const auto line = lines.find({rows.Number(0), rows.Number(1)});
    if (line != lines.end()) {
      problems.push_back({line->second, "there is no " + missing + "; import it first"});
    } else {
      const auto source = SourceFromNumber(rows.Number(0)).value_or(CouponSource::kCoupon);
      problems.push_back({0, "lacks " + missing + ", to which " + std::string(Word(source)) + " " +
                                 rows.Text(1) + " belongs"});
    }
  }
  return step != Step::kFailed;
}

}  // namespace

std::vector<Problem> Store::Apply(const Import& import) {
  sqlite::Transaction transaction(*connection_);
  return Finish(transaction, import);
}

std::vector<Problem> Store::Amend(const Amendment& make) {
  sqlite::Transaction transaction(*connection_);
  std::vector<Coupon> coupons;
  std::optional<std::string> agents;
  const bool read = ForEachCoupon(0, 0,
                                  [&coupons](const Coupon& coupon) {
                                    coupons.push_back(coupon);
                                    return true;
                                  }) &&
                    ReadAgentFile(agents);
  if (!read) return {{0, "cannot read the database: " + connection_->Error()}};
  return Finish(transaction, make(coupons, agents.value_or("")));
}

std::vector<Problem> Store::Finish(sqlite::Transaction& transaction, const Import& import) {
  const Lines lines = LinesOf(import);
  std::vector<Problem> problems;
  const bool written = transaction.begun() && PutAll(*connection_, import) &&
                       FindOrphans(*connection_, ListKind::kStores, lines, problems) &&
                       FindOrphans(*connection_, ListKind::kCategories, lines, problems);
  if (written && !problems.empty()) {
    std::stable_sort(problems.begin(), problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return problems;
  }
  if (!written || !transaction.Commit()) {
    return {{0, "cannot be written to the database: " + connection_->Error()}};
  }
  return {};
}

}  // namespace brovanta::server
