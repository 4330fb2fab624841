// The way of an update's thread to the database, which can be closed from outside.
#pragma once

#include <functional>
#include <mutex>

#include "db/shopping_database.h"

namespace brovanta {

/// Any thread may call it. The database is borrowed until Close.
class DatabaseGate {
 public:
  explicit DatabaseGate(ShoppingDatabase& database) : database_(&database) {}
  DatabaseGate(const DatabaseGate&) = delete;
  DatabaseGate& operator=(const DatabaseGate&) = delete;

  /// Runs `work` on the database, alone. False, without running it, once the gate is closed.
  [[nodiscard]] bool Run(const std::function<void(ShoppingDatabase& database)>& work) {
    const std::lock_guard lock(mutex_);
    if (database_ == nullptr) return false;
    work(*database_);
    return true;
  }

  /// From here on nobody gets through; work that is under way is waited for.
  void Close() {
    const std::lock_guard lock(mutex_);
    database_ = nullptr;
  }

 private:
  std::mutex mutex_;
  ShoppingDatabase* database_;  // guarded by mutex_; nullptr once the gate is closed
};

}  // namespace brovanta
