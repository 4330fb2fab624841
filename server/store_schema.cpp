#include "server/store_schema.h"

#include <cstdint>

namespace brovanta::server {
namespace {

// The letters "Brov", as the file's mark.
constexpr std::int64_t kApplicationId = 0x42726F76;
constexpr std::int64_t kVersion = 1;

constexpr const char* kSchema =
    "CREATE TABLE store ("
    " id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 4998), name TEXT NOT NULL) STRICT;"
    "CREATE TABLE category ("
    " id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 4998), name TEXT NOT NULL) STRICT;"
    "CREATE TABLE coupon ("
    " source INTEGER NOT NULL CHECK (source IN (1, 2)),"
    " id INTEGER NOT NULL CHECK (id BETWEEN 1 AND 2147483647),"
    " name TEXT NOT NULL, product TEXT NOT NULL, description TEXT NOT NULL,"
    " type INTEGER NOT NULL CHECK (type IN (1, 2, 3)),"
    " value_type INTEGER NOT NULL CHECK (value_type IN (1, 2)), value TEXT NOT NULL,"
    " start_date TEXT, end_date TEXT,"
    " store_id INTEGER NOT NULL, category_id INTEGER NOT NULL,"
    " PRIMARY KEY (id, source)) STRICT, WITHOUT ROWID;"
    "CREATE TABLE agent_file ("
    " id INTEGER PRIMARY KEY CHECK (id = 1), bytes BLOB NOT NULL) STRICT;";

// Looks at the marks of an existing file. -1 stands for a file that cannot be read as a database.
enum class Kind { kNew, kOurs, kForeign, kNewer, kUnreadable };

Kind KindOf(sqlite::Connection& connection) {
  const std::int64_t tables = connection.Number("SELECT count(*) FROM sqlite_schema", -1);
  const std::int64_t application = connection.Number("PRAGMA application_id", -1);
  const std::int64_t version = connection.Number("PRAGMA user_version", -1);
  if (tables < 0 || application < 0 || version < 0) return Kind::kUnreadable;
  if (tables == 0 && application == 0 && version == 0) return Kind::kNew;
  if (application != kApplicationId) return Kind::kForeign;
  return version == kVersion ? Kind::kOurs : Kind::kNewer;
}

// Another process may make the tables at the same moment: whoever comes second finds them.
bool MakeTables(sqlite::Connection& connection) {
  sqlite::Transaction transaction(connection);
  if (!transaction.begun()) return false;
  const std::string marks = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                            "; PRAGMA user_version = " + std::to_string(kVersion);
  if (KindOf(connection) == Kind::kNew &&
      !(connection.Run(kSchema) && connection.Run(marks.c_str()))) {
    return false;
  }
  return transaction.Commit();
}

}  // namespace

std::string_view TableOf(ListKind kind) {
  switch (kind) {
    case ListKind::kStores:
      return "store";
    case ListKind::kCategories:
      return "category";
  }
  return "";
}

bool PrepareDatabase(sqlite::Connection& connection, std::string& error) {
  const Kind kind = KindOf(connection);
  switch (kind) {
    case Kind::kNew:
    case Kind::kOurs:
      break;
    case Kind::kForeign:
      error = "is a database of another program";
      return false;
    case Kind::kNewer:
      error = "was written by a newer version of this server";
      return false;
    case Kind::kUnreadable:
      error = connection.Error();
      return false;
  }
  // Readers go on while an import is written, and an import is synced before it counts.
  if (!connection.Run("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;") ||
      (kind == Kind::kNew && !MakeTables(connection))) {
    error = connection.Error();
    return false;
  }
  return true;
}

}  // namespace brovanta::server
