#include "bench/search/slow_shops.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace brovanta::bench {
namespace {

int Checked(int result) {
  if (result < 0) std::abort();
  return result;
}

}  // namespace

SlowShops::SlowShops(std::chrono::milliseconds delay, const std::string& page)
    : delay_(delay),
      answer_(
          "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: text/html\r\nContent-Length: " +
          std::to_string(page.size()) + "\r\n\r\n" + page) {
  listener_ = Checked(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  Checked(bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof(address)));
  Checked(listen(listener_, 1024));
  socklen_t length = sizeof(address);
  Checked(getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length));
  port_ = ntohs(address.sin_port);
  end_ = Checked(eventfd(0, EFD_CLOEXEC));
  thread_ = std::thread([this] { Serve(); });
}

SlowShops::~SlowShops() {
  const std::uint64_t one = 1;
  if (write(end_, &one, sizeof(one)) != sizeof(one)) std::abort();
  thread_.join();
  for (const Visitor& visitor : visitors_) close(visitor.descriptor);
  close(end_);
  close(listener_);
}

std::string SlowShops::Address(std::size_t shop) const {
  return "http://127.0.0." + std::to_string(shop + 1) + ":" + std::to_string(port_);
}

SlowShops::Answers SlowShops::TakeAnswers() {
  const std::lock_guard lock(mutex_);
  return std::exchange(answers_, {});
}

void SlowShops::Serve() {
  std::vector<pollfd> waits;
  for (;;) {
    waits.assign({{end_, POLLIN, 0}, {listener_, POLLIN, 0}});
    for (const Visitor& visitor : visitors_) {
      const bool late = visitor.asked && visitor.due <= Clock::now();
      waits.push_back({visitor.descriptor, static_cast<short>(late ? POLLOUT : POLLIN), 0});
    }
    Checked(poll(waits.data(), waits.size(), TimeToNext()));
    if (waits[0].revents != 0) return;
    std::size_t index = 2;
    std::erase_if(visitors_, [&](Visitor& visitor) {
      const short events = waits[index++].revents;
      if (Attend(visitor, (events & (POLLIN | POLLHUP | POLLERR)) != 0)) return false;
      close(visitor.descriptor);
      return true;
    });
    if (waits[1].revents != 0) Accept();
  }
}

void SlowShops::Accept() {
  for (;;) {
    const int descriptor = accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (descriptor < 0) return;
    visitors_.emplace_back();
    visitors_.back().descriptor = descriptor;
    visitors_.back().came = Clock::now();
  }
}

bool SlowShops::Attend(Visitor& visitor, bool readable) {
  if (readable) {
    std::array<char, 4096> piece{};
    const ssize_t length = recv(visitor.descriptor, piece.data(), piece.size(), 0);
    if (length <= 0) return false;
    visitor.request.append(piece.data(), static_cast<std::size_t>(length));
    if (!visitor.asked && visitor.request.find("\r\n\r\n") != std::string::npos) {
      visitor.asked = true;
      visitor.due = Clock::now() + delay_;
    }
  }
  if (!visitor.asked || visitor.due > Clock::now()) return true;
  const ssize_t length = send(visitor.descriptor, answer_.data() + visitor.sent,
                              answer_.size() - visitor.sent, MSG_NOSIGNAL);
  if (length > 0) visitor.sent += static_cast<std::size_t>(length);
  if (visitor.sent < answer_.size()) return true;
  const std::lock_guard lock(mutex_);
  answers_.slowest = std::max(answers_.slowest, Clock::now() - visitor.came);
  ++answers_.count;
  return false;
}

// Milliseconds until somebody is to be answered, rounded up; -1 when nobody is waiting.
int SlowShops::TimeToNext() const {
  int wait = -1;
  for (const Visitor& visitor : visitors_) {
    if (!visitor.asked) continue;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(visitor.due - Clock::now());
    const int time = std::max(0, static_cast<int>(left.count()));
    if (visitor.due > Clock::now()) wait = wait < 0 ? time : std::min(wait, time);
  }
  return wait;
}

}  // namespace brovanta::bench
