// The addresses that an update asks the update server for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "db/discount_list.h"
#include "db/name_list.h"

namespace brovanta {

/// What every request of an update needs.
struct UpdateServer {
  std::string address;  ///< "http://host:port", a "/" at its end does not matter
  std::string user;     ///< UserIdentifier
};

/// What the server learns about the user: "United+States-90210", form-encoded and never more than
/// the location. UTF-8.
[[nodiscard]] std::string UserIdentifier(const std::string& country, const std::string& zip_code);

/// The highest id below 4999, 0 when there is none: higher ones are the user's own.
[[nodiscard]] std::int32_t HighestSharedId(const NameList& names);

[[nodiscard]] std::string AgentsRequest(const UpdateServer& server);
[[nodiscard]] std::string StoresRequest(const UpdateServer& server, const NameList& stores);
[[nodiscard]] std::string CategoriesRequest(const UpdateServer& server, const NameList& categories);

/// Nothing when either id is negative: the server could not tell what is new.
[[nodiscard]] std::optional<std::string> CouponsRequest(const UpdateServer& server,
                                                        const MaxDiscountIds& held);

}  // namespace brovanta
