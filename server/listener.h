// The address a server listens on, and the socket that does it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "util/unique_fd.h"

namespace brovanta::server {

struct ListenAddress {
  std::string host = "127.0.0.1";
  std::uint16_t port = 8427;

  friend bool operator==(const ListenAddress&, const ListenAddress&) = default;
};

/// "127.0.0.1:8427", "[::1]:8427" or "name:8427". Nothing for any other form.
[[nodiscard]] std::optional<ListenAddress> ParseListenAddress(std::string_view text);

/// A listening, non-blocking socket, with the address it has got.
struct Listener {
  UniqueFd socket;
  std::string address;  ///< as numbers: "127.0.0.1:8427", "[::1]:8427"
};

/// Binds and listens; port 0 picks a free one. Nothing on failure, `error` then says why; another
/// server on the same port is a failure.
[[nodiscard]] std::optional<Listener> Listen(const ListenAddress& address, std::string& error);

/// Host and port of a socket address as numbers, IPv6 hosts without brackets.
struct Endpoint {
  std::string host;
  int port = 0;
};

/// The own end of a socket; empty when it has none.
[[nodiscard]] Endpoint LocalEndpoint(int socket);
/// The other end of a socket; empty when it has none.
[[nodiscard]] Endpoint RemoteEndpoint(int socket);

}  // namespace brovanta::server
