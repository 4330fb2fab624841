// The one lock object of the common code: a semaphore with initial and maximum count 1.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace brovanta {

/// Not recursive; may be released by another thread than the one that acquired it.
class BinarySemaphore {
 public:
  /// A time-out that never runs out.
  static constexpr std::uint32_t kInfinite = 0xFFFFFFFFu;

  BinarySemaphore() = default;
  BinarySemaphore(const BinarySemaphore&) = delete;
  BinarySemaphore& operator=(const BinarySemaphore&) = delete;

  /// Takes the one unit, waiting at most the given time. 0 when acquired, -1 otherwise.
  [[nodiscard]] int Wait(std::uint32_t milliseconds);

  /// Gives the unit back. 0, or -1 when the count already is at its maximum.
  [[nodiscard]] int Release();

 private:
  std::mutex mutex_;
  std::condition_variable available_;
  bool free_ = true;
};

}  // namespace brovanta
