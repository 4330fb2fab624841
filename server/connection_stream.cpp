#include "server/connection_stream.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "server/listener.h"

namespace brovanta::server {
namespace {

// What a client may still send behind a request that was answered without being read whole.
constexpr std::size_t kDrainedBytes = 65'536;
constexpr std::chrono::milliseconds kDrainTime{500};

bool WouldBlock() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

}  // namespace

ConnectionStream::ConnectionStream(int socket, int stop, const ConnectionLimits& limits)
    : socket_(socket),
      stop_(stop),
      limits_(limits),
      receive_until_(Clock::now() + limits.receive) {}

bool ConnectionStream::is_readable() const {
  return buffer_at_ < buffer_end_ || WaitFor(POLLIN, receive_until_, true) == Wait::kReady;
}

bool ConnectionStream::is_writable() const {
  return WaitFor(POLLOUT, send_until_.value_or(Clock::now() + limits_.send), false) == Wait::kReady;
}

ssize_t ConnectionStream::read(char* to, std::size_t size) {
  if (buffer_at_ == buffer_end_) {
    const std::size_t left = limits_.request_bytes - received_;
    if (left == 0) {
      cut_off_ = true;
      return -1;
    }
    const ssize_t got = Receive(buffer_.data(), std::min(buffer_.size(), left), receive_until_);
    if (got <= 0) return got;
    buffer_at_ = 0;
    buffer_end_ = static_cast<std::size_t>(got);
    received_ += buffer_end_;
  }
  const std::size_t count = std::min(size, buffer_end_ - buffer_at_);
  std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(buffer_at_), count, to);
  buffer_at_ += count;
  return static_cast<ssize_t>(count);
}

ssize_t ConnectionStream::write(const char* from, std::size_t size) {
  answered_ = true;
  if (keeps_back_) {
    kept_.append(from, size);
    return static_cast<ssize_t>(size);
  }
  for (std::size_t sent = 0; sent < size;) {
    const ssize_t count = send(socket_, from + sent, size - sent, MSG_NOSIGNAL);
    if (count >= 0) {
      sent += static_cast<std::size_t>(count);
    } else if (!WouldBlock() || WaitToSend() != Wait::kReady) {
      return -1;
    }
  }
  return static_cast<ssize_t>(size);
}

std::string ConnectionStream::TakeKept() {
  keeps_back_ = false;
  return std::exchange(kept_, {});
}

void ConnectionStream::get_remote_ip_and_port(std::string& ip, int& port) const {
  const Endpoint endpoint = RemoteEndpoint(socket_);
  ip = endpoint.host;
  port = endpoint.port;
}

void ConnectionStream::get_local_ip_and_port(std::string& ip, int& port) const {
  const Endpoint endpoint = LocalEndpoint(socket_);
  ip = endpoint.host;
  port = endpoint.port;
}

void ConnectionStream::FinishSending() {
  shutdown(socket_, SHUT_WR);
  const auto deadline = Clock::now() + kDrainTime;
  for (std::size_t drained = 0; drained < kDrainedBytes;) {
    const ssize_t got = Receive(buffer_.data(), buffer_.size(), deadline);
    if (got <= 0) return;
    drained += static_cast<std::size_t>(got);
  }
}

ConnectionStream::Wait ConnectionStream::WaitFor(short events, Clock::time_point deadline,
                                                 bool heed_stop) const {
  using std::chrono::milliseconds;
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
    std::array<pollfd, 2> watched = {pollfd{socket_, events, 0}, pollfd{stop_, POLLIN, 0}};
    const int result = poll(watched.data(), heed_stop ? 2 : 1,
                            static_cast<int>(std::max(left, milliseconds(0)).count()));
    if (result < 0 && errno != EINTR) return Wait::kFailed;
    if (result > 0) return watched[1].revents != 0 ? Wait::kStopped : Wait::kReady;
    if (Clock::now() >= deadline) return Wait::kTimeOut;
  }
}

ssize_t ConnectionStream::Receive(char* to, std::size_t size, Clock::time_point deadline) {
  for (;;) {
    const ssize_t got = recv(socket_, to, size, 0);
    if (got >= 0) return got;
    if (!WouldBlock()) return -1;
    const Wait wait = WaitFor(POLLIN, deadline, true);
    if (wait == Wait::kReady) continue;
    if (wait == Wait::kTimeOut && received_ > 0) cut_off_ = true;
    return -1;
  }
}

// An answer that is under way may still arrive when the server stops, but only for a short while.
ConnectionStream::Wait ConnectionStream::WaitToSend() {
  if (!send_until_) send_until_ = Clock::now() + limits_.send;
  Wait wait = WaitFor(POLLOUT, *send_until_, !stopping_);
  if (wait == Wait::kStopped) {
    stopping_ = true;
    send_until_ = std::min(*send_until_, Clock::now() + limits_.stopping);
    wait = WaitFor(POLLOUT, *send_until_, false);
  }
  return wait;
}

}  // namespace brovanta::server
