// The demonstration shops' answers to requests.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "server/http_message.h"
#include "server/query.h"

namespace brovanta::server {

/// All addresses of the shops begin with it.
inline constexpr std::string_view kDemoShopRoot = "/demo/";

/// Bytes of search words that a shop looks at; handhelds send no more.
inline constexpr std::size_t kMaxSearchBytes = 100;

/// What "/demo/" and the addresses below it answer; nothing where there is nothing.
/// - "/demo/": the list of the shops
/// - "/demo/SHOP/search?q=WORDS&dept=N": what a shop has for the words, everything without words,
///   in the department or, without one, in all of them
/// - "/demo/SHOP/item?no=N": an article that the shop sells
/// `host` is this server as the client knows it. A slow shop's answers are to be given `slowness`
/// later.
[[nodiscard]] std::optional<HttpAnswer> DemoShopAnswer(const Target& target,
                                                       const std::string& host,
                                                       std::chrono::milliseconds slowness);

}  // namespace brovanta::server
