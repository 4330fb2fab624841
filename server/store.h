// What the server knows, in one SQLite file: stores, categories, coupons and the agent file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "server/entries.h"
#include "server/problem.h"
#include "server/sqlite.h"
#include "server/table_reader.h"

namespace brovanta::server {

enum class ListKind { kStores, kCategories };

/// What a coupon is known by.
struct CouponKey {
  CouponSource source = CouponSource::kCoupon;
  std::int32_t id = 0;
};

/// What one import brings. Only what is present is touched.
struct Import {
  std::optional<std::vector<Row<ListEntry>>> stores;
  std::optional<std::vector<Row<ListEntry>>> categories;
  std::optional<std::vector<Row<Coupon>>> coupons;
  std::optional<std::string> agents;
  std::vector<CouponKey> withdrawn;  ///< coupons that go before the others come
  /// Empties the tables first; otherwise an entry takes the place of the one with its id, and all
  /// others stay. The agent file is always replaced.
  bool replace = false;
};

/// One connection to the file, for one thread at a time. Several may work on one file at once, in
/// one process or more: readers see whole imports only.
class Store {
 public:
  /// Opens the file, with kCreate a missing one is made. Nothing on failure, `error` then says why;
  /// a file that is no database of this server is left as it is.
  [[nodiscard]] static std::unique_ptr<Store> Open(const std::string& path, sqlite::OpenMode mode,
                                                   std::string& error);

  /// Brings everything in, or nothing. Returns what stands against it: stores or categories that
  /// coupons refer to and nobody knows, or a failure to write. With no problem returned the import
  /// is on the disk and survives whatever happens to the process or the machine.
  [[nodiscard]] std::vector<Problem> Apply(const Import& import);

  /// The same with what `make` makes of what is there; nobody else can change it in between.
  using Amendment =
      std::function<Import(const std::vector<Coupon>& coupons, const std::string& agents)>;
  [[nodiscard]] std::vector<Problem> Amend(const Amendment& make);

  /// Calls `take` with each entry above the id, by ascending id, until it returns false. Returns
  /// false when the database cannot be read.
  [[nodiscard]] bool ForEachEntry(ListKind kind, std::int32_t above,
                                  const std::function<bool(const ListEntry&)>& take);

  /// The same for coupons above one id and deals above the other: by ascending id, the coupon
  /// before the deal of equal id.
  [[nodiscard]] bool ForEachCoupon(std::int32_t coupons_above, std::int32_t deals_above,
                                   const std::function<bool(const Coupon&)>& take);

  /// False when the database cannot be read; `found` stays empty when there is no such coupon.
  [[nodiscard]] bool FindCoupon(CouponSource source, std::int32_t id,
                                std::optional<CouponView>& found);

  /// False when the database cannot be read; `bytes` stays empty when there is no agent file.
  [[nodiscard]] bool ReadAgentFile(std::optional<std::string>& bytes);

  /// Whether there is nothing at all in it; false also when it cannot be read.
  [[nodiscard]] bool IsEmpty();

 private:
  explicit Store(std::unique_ptr<sqlite::Connection> connection);

  [[nodiscard]] std::vector<Problem> Finish(sqlite::Transaction& transaction, const Import& import);
  std::unique_ptr<sqlite::Connection> connection_;
};

}  // namespace brovanta::server
