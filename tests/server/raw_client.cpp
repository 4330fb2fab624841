#include "tests/server/raw_client.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <utility>

#include "server/listener.h"

namespace brovanta::test {

RawClient::RawClient(std::string_view address) {
  const auto parsed = server::ParseListenAddress(address);
  if (!parsed) return;
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(parsed->port);
  inet_pton(AF_INET, parsed->host.c_str(), &to.sin_addr);
  UniqueFd fd(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (connect(fd.get(), reinterpret_cast<const sockaddr*>(&to), sizeof(to)) == 0) {
    fd_ = std::move(fd);
  }
}

bool RawClient::Send(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = send(fd_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void RawClient::FinishSending() const { shutdown(fd_.get(), SHUT_WR); }

std::string RawClient::ReadAll() const {
  std::string all;
  std::array<char, 4096> piece;
  for (;;) {
    const ssize_t count = recv(fd_.get(), piece.data(), piece.size(), 0);
    if (count <= 0) return all;
    all.append(piece.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace brovanta::test
