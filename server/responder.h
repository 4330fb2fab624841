// Answers the requests of handhelds and browsers from the store.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "server/http_message.h"
#include "server/query.h"
#include "server/store.h"

namespace brovanta::server {

/// One per thread, since it owns a connection to the database.
class Responder {
 public:
  struct Settings {
    std::string address;      ///< stands for the server where a request names no host
    bool demo_shops = false;  ///< whether the demonstration shops are open
    std::chrono::milliseconds slow_shop{4'000};  ///< how long the slow one of them takes
  };

  Responder(std::unique_ptr<Store> store, Settings settings);

  /// 200 with what was asked; 400 for a query that cannot be meant, 404 for what there is not, 405
  /// for anything but GET and HEAD, 500 when the database cannot be read. Every answer to HEAD
  /// carries the body that GET would get.
  [[nodiscard]] HttpAnswer Answer(const HttpRequest& request);

 private:
  [[nodiscard]] std::string HostOf(const HttpRequest& request) const;
  [[nodiscard]] HttpAnswer Agents(const HttpRequest& request);
  [[nodiscard]] HttpAnswer List(ListKind kind, const Target& target);
  [[nodiscard]] HttpAnswer Coupons(const Target& target);
  [[nodiscard]] HttpAnswer Page(CouponSource source, const Target& target);

  std::unique_ptr<Store> store_;
  Settings settings_;
};

}  // namespace brovanta::server
