// A progress window that keeps what it is told.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <ostream>
#include <utility>
#include <vector>

#include "search/progress_window.h"
#include "search/web_agent.h"

namespace brovanta::test {

struct Seen {
  std::uint32_t message = 0;
  std::int32_t site = 0;  ///< SiteId of the agent, 0 for none
  std::intptr_t value = 0;

  friend bool operator==(const Seen&, const Seen&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Seen& seen) {
    return out << seen.message << " of " << seen.site << ": " << seen.value;
  }
};

inline Seen Started(std::int32_t site) { return {WM_SEARCH_AGENT_STARTED, site, 0}; }
inline Seen Delivered(std::int32_t site, std::intptr_t count) {
  return {WM_SEARCH_AGENT_RESULTS, site, count};
}
inline Seen Failed(std::int32_t site, std::intptr_t status) {
  return {WM_SEARCH_AGENT_FAILED, site, status};
}
inline Seen Finished(std::intptr_t total) { return {WM_SEARCH_FINISHED, 0, total}; }

/// Takes messages on whatever thread they come and counts how many come at a time.
class RecordingWindow : public ProgressWindow {
 public:
  /// Called with each message after it was written down, on its thread.
  explicit RecordingWindow(std::function<void(const Seen& seen)> then = nullptr)
      : then_(std::move(then)) {}

  void SendMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) override {
    const WebAgent* agent = AgentOf(wParam);
    const Seen seen{message, agent == nullptr ? 0 : agent->SiteId, lParam};
    {
      const std::lock_guard lock(mutex_);
      seen_.push_back(seen);
      at_once_ = ++inside_ > at_once_ ? inside_ : at_once_;
      changed_.notify_all();
    }
    if (then_) then_(seen);
    const std::lock_guard lock(mutex_);
    --inside_;
  }

  [[nodiscard]] std::vector<Seen> seen() const {
    const std::lock_guard lock(mutex_);
    return seen_;
  }
  [[nodiscard]] std::size_t Count(std::uint32_t message) const {
    const std::lock_guard lock(mutex_);
    return CountLocked(message);
  }
  /// The most messages that were being handled at the same moment.
  [[nodiscard]] int at_once() const {
    const std::lock_guard lock(mutex_);
    return at_once_;
  }

  /// Waits until the message has come so often; false when it has not within the limit.
  [[nodiscard]] bool WaitFor(std::uint32_t message, std::size_t times = 1,
                             std::chrono::milliseconds limit = std::chrono::seconds(30)) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [&] { return CountLocked(message) >= times; });
  }
  [[nodiscard]] bool WaitUntilFinished(std::size_t times = 1) {
    return WaitFor(WM_SEARCH_FINISHED, times);
  }

 private:
  std::size_t CountLocked(std::uint32_t message) const {
    std::size_t count = 0;
    for (const Seen& seen : seen_) count += seen.message == message ? 1 : 0;
    return count;
  }

  const std::function<void(const Seen&)> then_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Seen> seen_;
  int inside_ = 0;
  int at_once_ = 0;
};

}  // namespace brovanta::test
