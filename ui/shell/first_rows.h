// The rows that the program comes up with, read before there is a window.
#pragma once

#include <future>
#include <memory>
#include <string>

#include "db/shopping_database.h"
#include "ui/base/date_headings.h"

namespace brovanta {

/// Opens a database and reads today's products from it on a thread of its own, which asks nothing
/// of the toolkit: it may run before there is an application. Where no thread can be had, Wait
/// does the work.
class FirstRows {
 public:
  /// The folder is as ShoppingDatabase::Open takes it. The work begins when `begin` is there; at
  /// once without one.
  FirstRows(std::unique_ptr<ShoppingDatabase> database, std::string data_folder,
            std::shared_future<void> begin = {});
  /// Waits for the end.
  ~FirstRows();

  FirstRows(const FirstRows&) = delete;
  FirstRows& operator=(const FirstRows&) = delete;

  /// Hands the database over, once. It must not be used before Wait has returned, and must live
  /// until then.
  [[nodiscard]] std::unique_ptr<ShoppingDatabase> TakeDatabase() { return std::move(database_); }

  /// Waits for the rows. The code of loading the products.
  [[nodiscard]] int Wait();

  /// What the products were loaded with. After Wait.
  [[nodiscard]] const ProductFilter& query() const { return query_; }

  /// The rows, once. After Wait; none when loading has failed.
  [[nodiscard]] RecordRows Take() { return headings_.Take(); }

 private:
  [[nodiscard]] int Read(const std::string& data_folder);

  std::unique_ptr<ShoppingDatabase> database_;
  ShoppingDatabase& opened_;
  ProductFilter query_;
  DateHeadings headings_;
  std::shared_future<int> code_;
};

}  // namespace brovanta
