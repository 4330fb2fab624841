#include "platform/local_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace brovanta::platform {

namespace {

constexpr int kKind = SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC;
constexpr int kBacklog = 16;
constexpr mode_t kOnlyThisUser = S_IRUSR | S_IWUSR;

/// Nothing for a path that is too long.
std::optional<sockaddr_un> AddressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof(address.sun_path)) return std::nullopt;
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

const sockaddr* General(const sockaddr_un& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

bool IsOfThisUser(int descriptor) {
  ucred other{};
  socklen_t size = sizeof(other);
  return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 &&
         other.uid == geteuid();
}

}  // namespace

LocalSocket LocalSocket::ListenAt(const std::string& path) {
  const std::optional<sockaddr_un> address = AddressOf(path);
  if (!address) return {};
  LocalSocket listener(socket(AF_UNIX, kKind, 0));
  // The mode is there before the name is, so that nobody else gets in meanwhile.
  if (!listener.valid() || fchmod(listener.descriptor(), kOnlyThisUser) != 0) return {};
  if (unlink(path.c_str()) != 0 && errno != ENOENT) return {};
  if (bind(listener.descriptor(), General(*address), sizeof(*address)) != 0) return {};
  if (listen(listener.descriptor(), kBacklog) != 0) return {};
  return listener;
}

LocalSocket LocalSocket::ConnectTo(const std::string& path) {
  const std::optional<sockaddr_un> address = AddressOf(path);
  if (!address) return {};
  LocalSocket end(socket(AF_UNIX, kKind, 0));
  if (!end.valid()) return {};
  if (connect(end.descriptor(), General(*address), sizeof(*address)) != 0) return {};
  if (!IsOfThisUser(end.descriptor())) return {};
  return end;
}

LocalSocket LocalSocket::Accept() const {
  return LocalSocket(accept4(descriptor(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

bool LocalSocket::WaitToRead(int patience) const {
  pollfd asked{.fd = descriptor(), .events = POLLIN, .revents = 0};
  return valid() && poll(&asked, 1, patience) > 0;
}

std::optional<std::string> LocalSocket::Read() {
  constexpr std::size_t kPiece = 1024;
  std::string bytes;
  std::array<char, kPiece> piece{};
  while (true) {
    const ssize_t count = recv(descriptor(), piece.data(), piece.size(), 0);
    if (count > 0) {
      bytes.append(piece.data(), static_cast<std::size_t>(count));
      continue;
    }
    if (count < 0 && errno == EINTR) continue;
    const bool waits = count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    if (bytes.empty() && !waits) return std::nullopt;
    return bytes;
  }
}

bool LocalSocket::Write(std::string_view bytes) {
  const ssize_t count = send(descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  return count == static_cast<ssize_t>(bytes.size());
}

}  // namespace brovanta::platform
