#include "server/waiting_room.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>
#include <utility>

namespace brovanta::server {

WaitingRoom::WaitingRoom(int stop, std::chrono::milliseconds send)
    : stop_(stop),
      send_(send),
      bell_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      thread_([this] { Run(); }) {}

WaitingRoom::~WaitingRoom() { thread_.join(); }

bool WaitingRoom::Take(UniqueFd& socket, std::string& bytes, Clock::time_point due) {
  if (!bell_.valid()) return false;
  const std::lock_guard lock(mutex_);
  if (taken_ == kSeats) return false;
  ++taken_;
  door_.push_back({std::move(socket), std::move(bytes), due});
  const std::uint64_t one = 1;
  // Only a full counter could refuse it, and then the bell rings already.
  static_cast<void>(!write(bell_.get(), &one, sizeof(one)));
  return true;
}

void WaitingRoom::Run() {
  std::vector<pollfd> watched;
  for (;;) {
    const auto now = Clock::now();
    watched = {{stop_, POLLIN, 0}, {bell_.get(), POLLIN, 0}};
    for (const Guest& guest : guests_) {
      if (guest.due <= now) watched.push_back({guest.socket.get(), POLLOUT, 0});
    }
    static_cast<void>(poll(watched.data(), watched.size(), WaitingTime(now)));
    if (watched[0].revents != 0) return;
    LetIn();
    const std::size_t before = guests_.size();
    std::erase_if(guests_,
                  [this, sending = Clock::now()](Guest& guest) { return IsDone(guest, sending); });
    const std::lock_guard lock(mutex_);
    taken_ -= before - guests_.size();
  }
}

void WaitingRoom::LetIn() {
  std::uint64_t rung = 0;
  static_cast<void>(!read(bell_.get(), &rung, sizeof(rung)));
  const std::lock_guard lock(mutex_);
  std::move(door_.begin(), door_.end(), std::back_inserter(guests_));
  door_.clear();
}

// Until the next answer is due or the next client has had its time; -1 while nobody waits.
int WaitingRoom::WaitingTime(Clock::time_point now) const {
  if (guests_.empty()) return -1;
  auto next = Clock::time_point::max();
  for (const Guest& guest : guests_) {
    next = std::min(next, guest.due > now ? guest.due : guest.due + send_);
  }
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - now);
  constexpr std::chrono::milliseconds kHour{3'600'000};
  return static_cast<int>(std::clamp(left, std::chrono::milliseconds(0), kHour).count());
}

// Sends what the client takes without waiting.
bool WaitingRoom::IsDone(Guest& guest, Clock::time_point now) const {
  if (guest.due > now) return false;
  while (guest.sent < guest.bytes.size()) {
    const ssize_t count = send(guest.socket.get(), guest.bytes.data() + guest.sent,
                               guest.bytes.size() - guest.sent, MSG_NOSIGNAL);
    if (count < 0) {
      if (errno == EINTR) continue;
      const bool full = errno == EAGAIN || errno == EWOULDBLOCK;
      return !full || now >= guest.due + send_;
    }
    guest.sent += static_cast<std::size_t>(count);
  }
  shutdown(guest.socket.get(), SHUT_WR);
  return true;
}

}  // namespace brovanta::server
