// Shops on this machine that take their time.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace brovanta::bench {

/// Answers every request with the same page, each after the same time, all at once on one thread.
/// The destructor ends it.
class SlowShops {
 public:
  using Clock = std::chrono::steady_clock;

  SlowShops(std::chrono::milliseconds delay, const std::string& page);
  SlowShops(const SlowShops&) = delete;
  SlowShops& operator=(const SlowShops&) = delete;
  ~SlowShops();

  /// "http://127.0.0.N:PORT", another host for each shop; shops count from 0.
  [[nodiscard]] std::string Address(std::size_t shop) const;

  /// The longest time since the last call that an answer has taken, from the connection to its last
  /// byte, and how many there were.
  struct Answers {
    Clock::duration slowest{};
    std::size_t count = 0;
  };
  [[nodiscard]] Answers TakeAnswers();

 private:
  struct Visitor {
    int descriptor = -1;
    Clock::time_point came;
    Clock::time_point due;
    std::string request;
    bool asked = false;
    std::size_t sent = 0;
  };

  void Serve();
  void Accept();
  /// Whether the visitor stays.
  [[nodiscard]] bool Attend(Visitor& visitor, bool readable);
  [[nodiscard]] int TimeToNext() const;

  const std::chrono::milliseconds delay_;
  const std::string answer_;
  int listener_ = -1;
  int end_ = -1;  // readable once the thread is to end
  std::uint16_t port_ = 0;
  std::vector<Visitor> visitors_;
  std::mutex mutex_;
  Answers answers_;  // guarded by mutex_
  std::thread thread_;
};

}  // namespace brovanta::bench
