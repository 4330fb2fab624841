#include "server/responder.h"

#include <optional>
#include <string_view>
#include <utility>

#include "server/agent_file.h"
#include "server/coupon_page.h"
#include "server/demo_shop.h"
#include "server/feed.h"
#include "server/html.h"

namespace brovanta::server {
namespace {

HttpAnswer Html(int status, std::string page) {
  return {status, "text/html; charset=utf-8", std::move(page)};
}

HttpAnswer Feed(std::string text) {
  return {200, "text/plain; charset=windows-1252", std::move(text)};
}

HttpAnswer BadQuery(std::string_view sentence) {
  return Html(400, MessagePage("Bad request", sentence));
}

HttpAnswer NotFound(std::string_view sentence) {
  return Html(404, MessagePage("Not found", sentence));
}

HttpAnswer Unreadable() {
  return Html(500, MessagePage("Server error", "The database cannot be read."));
}

}  // namespace

Responder::Responder(std::unique_ptr<Store> store, Settings settings)
    : store_(std::move(store)), settings_(std::move(settings)) {}

HttpAnswer Responder::Answer(const HttpRequest& request) {
  if (request.method != "GET" && request.method != "HEAD") {
    return Html(405, MessagePage("Method not allowed", "This server only answers GET and HEAD."));
  }
  const bool in_shop = settings_.demo_shops && request.target.starts_with(kDemoShopRoot);
  const auto target = ParseTarget(in_shop ? WithoutCutEscape(request.target) : request.target);
  if (!target) return BadQuery("The address cannot be read.");
  if (target->path == "/webspider.xml") return Agents(request);
  if (target->path == "/stores.aspx") return List(ListKind::kStores, *target);
  if (target->path == "/categories.aspx") return List(ListKind::kCategories, *target);
  if (target->path == "/coupons.aspx") return Coupons(*target);
  if (target->path == "/coupons/coupon.aspx") return Page(CouponSource::kCoupon, *target);
  if (target->path == "/coupons/deal.aspx") return Page(CouponSource::kDeal, *target);
  if (in_shop) {
    auto answer = DemoShopAnswer(*target, HostOf(request), settings_.slow_shop);
    if (answer) return *std::move(answer);
  }
  return NotFound("There is nothing at this address.");
}

// The server as the client knows it.
std::string Responder::HostOf(const HttpRequest& request) const {
  return IsPlainHost(request.host) ? request.host : settings_.address;
}

HttpAnswer Responder::Agents(const HttpRequest& request) {
  std::optional<std::string> bytes;
  if (!store_->ReadAgentFile(bytes)) return Unreadable();
  if (!bytes) return NotFound("This server has no search agents.");
  return {200, "text/xml", WithServerAddress(*bytes, HostOf(request))};
}

HttpAnswer Responder::List(ListKind kind, const Target& target) {
  const auto above = IdParameter(target, "idx");
  if (!above) return BadQuery("The query needs idx, the highest id that is known already.");
  FeedText feed;
  const bool read = store_->ForEachEntry(
      kind, *above, [&feed](const ListEntry& entry) { return feed.Add(ListSpan(entry)); });
  return read ? Feed(feed.Take()) : Unreadable();
}

HttpAnswer Responder::Coupons(const Target& target) {
  const auto coupons_above = IdParameter(target, "idx");
  const auto deals_above = IdParameter(target, "edx");
  if (!coupons_above || !deals_above) {
    return BadQuery("The query needs idx and edx, the highest ids that are known already.");
  }
  FeedText feed;
  const auto zone = LocalZone::Current();
  const bool read = store_->ForEachCoupon(
      *coupons_above, *deals_above,
      [&feed, &zone](const Coupon& coupon) { return feed.Add(CouponSpan(coupon, *zone)); });
  return read ? Feed(feed.Take()) : Unreadable();
}

HttpAnswer Responder::Page(CouponSource source, const Target& target) {
  const auto id = IdParameter(target, "srcId");
  if (!id) return BadQuery("The query needs srcId, the number of an offer.");
  std::optional<CouponView> found;
  if (!store_->FindCoupon(source, *id, found)) return Unreadable();
  if (!found) return NotFound("There is no offer of this number. Perhaps it has been withdrawn.");
  return Html(200, CouponPage(*found, Today()));
}

}  // namespace brovanta::server
