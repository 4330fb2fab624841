#include "tests/support/loopback_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace brovanta::test {
namespace {

constexpr int kQueueLength = 64;

sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  return address;
}

int NewSocket() {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) throw std::runtime_error("no socket");
  return descriptor;
}

// Binds to a free port, which is returned.
std::uint16_t Bind(int descriptor) {
  sockaddr_in address = Loopback(0);
  socklen_t size = sizeof(address);
  if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
      getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    throw std::runtime_error("cannot bind to 127.0.0.1");
  }
  return ntohs(address.sin_port);
}

std::string UrlOf(std::uint16_t port) { return "http://127.0.0.1:" + std::to_string(port); }

void ForgetProxies() {
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) unsetenv(name);
}

}  // namespace

LoopbackPeer::~LoopbackPeer() { Finish(); }

std::string LoopbackPeer::ReadRequest() {
  std::string request;
  std::array<char, 4096> buffer;
  while (request.find("\r\n\r\n") == std::string::npos) {
    const ssize_t count = recv(descriptor_, buffer.data(), buffer.size(), 0);
    if (count <= 0) break;
    request.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return request;
}

bool LoopbackPeer::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Without a lingering time the system answers with a reset when the descriptor is closed.
void LoopbackPeer::Reset() {
  const linger at_once{1, 0};
  setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &at_once, sizeof(at_once));
}

bool LoopbackPeer::WaitUntilClosed(std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  std::array<char, 4096> ignored;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        end - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd wait{descriptor_, POLLIN, 0};
    if (poll(&wait, 1, static_cast<int>(left.count())) <= 0) continue;
    if (recv(descriptor_, ignored.data(), ignored.size(), 0) <= 0) return true;
  }
}

void LoopbackPeer::Finish() {
  const std::lock_guard lock(mutex_);
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

void LoopbackPeer::Disconnect() {
  const std::lock_guard lock(mutex_);
  if (descriptor_ >= 0) shutdown(descriptor_, SHUT_RDWR);
}

LoopbackServer::LoopbackServer(LoopbackScript script) : script_(std::move(script)) {
  ForgetProxies();
  listener_ = NewSocket();
  port_ = Bind(listener_);
  if (listen(listener_, kQueueLength) != 0) throw std::runtime_error("cannot listen");
  acceptor_ = std::thread([this] { Accept(); });
}

LoopbackServer::~LoopbackServer() {
  shutdown(listener_, SHUT_RDWR);  // ends the accepting
  acceptor_.join();
  close(listener_);
  for (Connection& connection : connections_) {
    connection.peer.Disconnect();
    connection.thread.join();
  }
}

std::string LoopbackServer::Url(std::string_view object) const {
  return UrlOf(port_) + std::string(object);
}

std::vector<std::string> LoopbackServer::requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

void LoopbackServer::Accept() {
  for (;;) {
    const int descriptor = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0 && errno == EINTR) continue;
    if (descriptor < 0) return;
    const std::lock_guard lock(mutex_);
    Connection& connection = connections_.emplace_back(descriptor);
    connection.thread = std::thread([this, &connection] { Serve(connection.peer); });
  }
}

void LoopbackServer::Serve(LoopbackPeer& peer) {
  const std::string request = peer.ReadRequest();
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
  }
  script_(peer, request);
  peer.Finish();
}

std::string HttpReply(std::string_view status, std::string_view body,
                      const std::vector<std::string>& header_lines) {
  std::string reply = "HTTP/1.1 " + std::string(status) + "\r\n";
  for (const std::string& line : header_lines) reply += line + "\r\n";
  return reply + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + std::string(body);
}

LoopbackScript Sending(std::string bytes) {
  return [bytes = std::move(bytes)](LoopbackPeer& peer, const std::string&) { peer.Send(bytes); };
}

LoopbackScript Serving(std::map<std::string, std::string> replies) {
  return [replies = std::move(replies)](LoopbackPeer& peer, const std::string& request) {
    const std::string object = RequestedObject(request);
    auto found = replies.find(object);
    if (found == replies.end()) found = replies.find(object.substr(0, object.find('?')));
    peer.Send(found != replies.end() ? found->second : HttpReply("404 Not Found", "no such page"));
  };
}

std::string RequestedObject(std::string_view request) {
  const std::size_t start = request.find(' ');
  if (start == std::string_view::npos) return "";
  request.remove_prefix(start + 1);
  return std::string(request.substr(0, request.find(' ')));
}

std::uint16_t UnusedPort() {
  ForgetProxies();
  const int descriptor = NewSocket();
  const std::uint16_t port = Bind(descriptor);
  close(descriptor);
  return port;
}

// The queue of a listener that never accepts is filled; from then on the system drops whoever
// knocks.
DeafPort::DeafPort() {
  ForgetProxies();
  listener_ = NewSocket();
  port_ = Bind(listener_);
  if (listen(listener_, 0) != 0) throw std::runtime_error("cannot listen");
  const sockaddr_in address = Loopback(port_);
  for (int i = 0; i < 4; ++i) {
    const int descriptor = NewSocket();
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    (void)connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    waiting_.push_back(descriptor);
  }
}

DeafPort::~DeafPort() {
  for (const int descriptor : waiting_) close(descriptor);
  close(listener_);
}

std::string DeafPort::Url() const { return UrlOf(port_); }

}  // namespace brovanta::test
