// Splitting a web address into what a request needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovanta {

/// The parts of an address. User name, password and fragment are not kept: they are never sent.
struct HttpUrl {
  std::string service;  ///< lower case, for example "http"
  std::string server;   ///< name or number; an IPv6 number in brackets
  std::uint16_t port = 0;
  std::string object;  ///< path and query, "/" when the address has none

  [[nodiscard]] bool is_http() const { return service == "http"; }

  /// Whether the server is a name of the very machine that asks: "localhost" or a loopback number.
  [[nodiscard]] bool is_this_machine() const;

  /// The whole address of an HTTP object again, for a request.
  [[nodiscard]] std::string Address() const;

  friend bool operator==(const HttpUrl&, const HttpUrl&) = default;
};

/// The parts of an absolute address, or nothing when it cannot be split: relative, without a
/// server, with a bad port or with control characters inside. Blanks and control characters around
/// it are dropped (what is cut out of a redirect's header ends with a carriage return); blanks
/// inside become %20, every other character goes out as it stands.
[[nodiscard]] std::optional<HttpUrl> SplitUrl(std::string_view address);

}  // namespace brovanta
