#include "server/sqlite.h"

#include <sqlite3.h>

namespace brovanta::server::sqlite {
namespace {
constexpr int kBusyMilliseconds = 5000;
}

void Connection::Close::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

std::unique_ptr<Connection> Connection::Open(const std::string& path, OpenMode mode,
                                             std::string& error) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                    (mode == OpenMode::kCreate ? SQLITE_OPEN_CREATE : 0);
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  // A handle comes even from a failed opening, unless memory ran out.
  std::unique_ptr<Connection> connection(new Connection(handle));
  if (result != SQLITE_OK) {
    error = handle != nullptr ? connection->Error() : "out of memory";
    return nullptr;
  }
  sqlite3_busy_timeout(handle, kBusyMilliseconds);
  sqlite3_extended_result_codes(handle, 1);
  return connection;
}

bool Connection::Run(const char* sql) {
  return sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::int64_t Connection::Number(const char* sql, std::int64_t otherwise) {
  Statement statement(*this, sql);
  return statement.Next() == Step::kRow ? statement.Number(0) : otherwise;
}

std::string Connection::Error() const { return sqlite3_errmsg(handle()); }

void Statement::Finalize::operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }

Statement::Statement(Connection& connection, std::string_view sql) {
  sqlite3_stmt* handle = nullptr;
  sqlite3_prepare_v2(connection.handle(), sql.data(), static_cast<int>(sql.size()), &handle,
                     nullptr);
  handle_.reset(handle);
}

void Statement::Bind(int parameter, std::int64_t number) {
  bound_ = sqlite3_bind_int64(handle_.get(), parameter + 1, number) == SQLITE_OK && bound_;
}

void Statement::Bind(int parameter, std::string_view text) {
  // A null pointer would bind NULL instead of the empty text.
  const char* const bytes = text.empty() ? "" : text.data();
  bound_ = sqlite3_bind_text64(handle_.get(), parameter + 1, bytes, text.size(), SQLITE_TRANSIENT,
                               SQLITE_UTF8) == SQLITE_OK &&
           bound_;
}

void Statement::BindNull(int parameter) {
  bound_ = sqlite3_bind_null(handle_.get(), parameter + 1) == SQLITE_OK && bound_;
}

void Statement::BindBytes(int parameter, std::string_view bytes) {
  bound_ = sqlite3_bind_blob64(handle_.get(), parameter + 1, bytes.data(), bytes.size(),
                               SQLITE_TRANSIENT) == SQLITE_OK &&
           bound_;
}

Step Statement::Next() {
  if (!bound_) return Step::kFailed;
  switch (sqlite3_step(handle_.get())) {
    case SQLITE_ROW:
      return Step::kRow;
    case SQLITE_DONE:
      return Step::kDone;
    default:
      return Step::kFailed;
  }
}

bool Statement::Run() {
  const bool done = Next() == Step::kDone;
  sqlite3_reset(handle_.get());
  sqlite3_clear_bindings(handle_.get());
  return done;
}

std::int64_t Statement::Number(int column) const {
  return sqlite3_column_int64(handle_.get(), column);
}

std::string Statement::Text(int column) const {
  const void* bytes = sqlite3_column_blob(handle_.get(), column);
  const int size = sqlite3_column_bytes(handle_.get(), column);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

bool Statement::IsNull(int column) const {
  return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL;
}

Transaction::Transaction(Connection& connection)
    : connection_(connection), open_(connection.Run("BEGIN IMMEDIATE")) {}

Transaction::~Transaction() {
  if (open_) static_cast<void>(connection_.Run("ROLLBACK"));
}

bool Transaction::Commit() {
  if (!open_ || !connection_.Run("COMMIT")) return false;
  open_ = false;
  return true;
}

}  // namespace brovanta::server::sqlite
