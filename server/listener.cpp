#include "server/listener.h"

#include <netdb.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include "server/plain_number.h"

namespace brovanta::server {
namespace {

constexpr int kBacklog = 64;
constexpr std::int32_t kMaxPort = 65535;

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

AddressList Resolve(const ListenAddress& address, std::string& error) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
  addrinfo* found = nullptr;
  const int result =
      getaddrinfo(address.host.c_str(), std::to_string(address.port).c_str(), &hints, &found);
  if (result != 0) error = gai_strerror(result);
  return {result == 0 ? found : nullptr, freeaddrinfo};
}

// SO_REUSEADDR lets a restarted server have its port back at once; unlike SO_REUSEPORT it does not
// let two servers share one.
UniqueFd ListenOn(const addrinfo& candidate, std::string& error) {
  UniqueFd socket(::socket(candidate.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  const int on = 1;
  if (!socket.valid() || setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on)) != 0 ||
      bind(socket.get(), candidate.ai_addr, candidate.ai_addrlen) != 0 ||
      listen(socket.get(), kBacklog) != 0) {
    error = std::generic_category().message(errno);
    return UniqueFd();
  }
  return socket;
}

Endpoint EndpointOf(const sockaddr_storage& address, socklen_t size) {
  std::array<char, NI_MAXHOST> host;
  std::array<char, NI_MAXSERV> port;
  if (getnameinfo(reinterpret_cast<const sockaddr*>(&address), size, host.data(), host.size(),
                  port.data(), port.size(), NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
    return {};
  }
  return {host.data(), PlainNumber(port.data(), kMaxPort).value_or(0)};
}

}  // namespace

std::optional<ListenAddress> ParseListenAddress(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto port = PlainNumber(text.substr(colon + 1), kMaxPort);
  std::string_view host = text.substr(0, colon);
  const bool brackets = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (brackets) host = host.substr(1, host.size() - 2);
  // Without brackets nobody knows which colon starts the port.
  const bool colons = host.find(':') != std::string_view::npos;
  if (!port || host.empty() || colons != brackets) return std::nullopt;
  if (host.find_first_of("[]") != std::string_view::npos) return std::nullopt;
  return ListenAddress{std::string(host), static_cast<std::uint16_t>(*port)};
}

std::optional<Listener> Listen(const ListenAddress& address, std::string& error) {
  const AddressList candidates = Resolve(address, error);
  for (const addrinfo* at = candidates.get(); at != nullptr; at = at->ai_next) {
    UniqueFd socket = ListenOn(*at, error);
    if (!socket.valid()) continue;
    const Endpoint own = LocalEndpoint(socket.get());
    const std::string host =
        own.host.find(':') == std::string::npos ? own.host : "[" + own.host + "]";
    return Listener{std::move(socket), host + ":" + std::to_string(own.port)};
  }
  return std::nullopt;
}

Endpoint LocalEndpoint(int socket) {
  sockaddr_storage address{};
  socklen_t size = sizeof(address);
  if (getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return {};
  return EndpointOf(address, size);
}

Endpoint RemoteEndpoint(int socket) {
  sockaddr_storage address{};
  socklen_t size = sizeof(address);
  if (getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) return {};
  return EndpointOf(address, size);
}

}  // namespace brovanta::server
