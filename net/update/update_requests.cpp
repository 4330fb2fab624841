#include "net/update/update_requests.h"

#include <algorithm>
#include <string_view>

#include "util/text.h"

namespace brovanta {
namespace {

std::string Request(const UpdateServer& server, std::string_view object) {
  std::string request = server.address;
  while (!request.empty() && request.back() == '/') request.pop_back();
  return request.append(object);
}

std::string ListRequest(const UpdateServer& server, std::string_view page, const NameList& held) {
  std::string request = Request(server, page);
  request.append("?idx=").append(std::to_string(HighestSharedId(held)));
  return request.append("&user=").append(server.user);
}

}  // namespace

std::string UserIdentifier(const std::string& country, const std::string& zip_code) {
  return UrlEncode((country + "-" + zip_code).c_str()).value_or("");
}

std::int32_t HighestSharedId(const NameList& names) {
  constexpr std::int32_t kLimit = kFirstOwnId - 1;
  std::int32_t highest = 0;
  for (const auto& [id, item] : names) {
    if (id < kLimit) highest = std::max(highest, id);
  }
  return highest;
}

std::string AgentsRequest(const UpdateServer& server) { return Request(server, "/webspider.xml"); }

std::string StoresRequest(const UpdateServer& server, const NameList& stores) {
  return ListRequest(server, "/stores.aspx", stores);
}

std::string CategoriesRequest(const UpdateServer& server, const NameList& categories) {
  return ListRequest(server, "/categories.aspx", categories);
}

std::optional<std::string> CouponsRequest(const UpdateServer& server, const MaxDiscountIds& held) {
  if (held.source_1 < 0 || held.source_2 < 0) return std::nullopt;
  std::string request = Request(server, "/coupons.aspx");
  request.append("?idx=").append(std::to_string(held.source_1));
  request.append("&edx=").append(std::to_string(held.source_2));
  return request.append("&user=").append(server.user);
}

}  // namespace brovanta
