// SQLite with its handles owned and its failures in return values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brovanta::server::sqlite {

enum class OpenMode { kMustExist, kCreate };

/// One connection; used by one thread at a time.
class Connection {
 public:
  /// Nothing when the file cannot be opened, `error` then says why. Waits up to five seconds for
  /// another process's lock, here and in every statement.
  [[nodiscard]] static std::unique_ptr<Connection> Open(const std::string& path, OpenMode mode,
                                                        std::string& error);

  /// Runs statements without results. False on failure; Error() says why.
  [[nodiscard]] bool Run(const char* sql);

  /// The one whole number that a query gives; `otherwise` when it fails or gives none.
  [[nodiscard]] std::int64_t Number(const char* sql, std::int64_t otherwise);

  /// What went wrong last.
  [[nodiscard]] std::string Error() const;

  [[nodiscard]] sqlite3* handle() const { return handle_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };
  explicit Connection(sqlite3* handle) : handle_(handle) {}

  std::unique_ptr<sqlite3, Close> handle_;
};

enum class Step { kRow, kDone, kFailed };

/// One prepared statement. A statement that could not be prepared fails at its first step.
class Statement {
 public:
  Statement(Connection& connection, std::string_view sql);

  /// Parameters and columns are counted from 0. Texts and bytes are copied.
  void Bind(int parameter, std::int64_t number);
  void Bind(int parameter, std::string_view text);
  void BindNull(int parameter);
  void BindBytes(int parameter, std::string_view bytes);

  [[nodiscard]] Step Next();
  /// Runs a statement that gives no rows, and makes it ready to run again.
  [[nodiscard]] bool Run();

  [[nodiscard]] std::int64_t Number(int column) const;
  /// The text, or the bytes, of a column of the current row; empty for NULL.
  [[nodiscard]] std::string Text(int column) const;
  [[nodiscard]] bool IsNull(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
  bool bound_ = true;  // whether every value could be bound
};

/// Everything until Commit, or nothing at all.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  /// Rolls back what has not been committed.
  ~Transaction();

  /// Whether the transaction holds the right to write.
  [[nodiscard]] bool begun() const { return open_; }
  /// True when everything is on the disk.
  [[nodiscard]] bool Commit();

 private:
  Connection& connection_;
  bool open_;
};

}  // namespace brovanta::server::sqlite
