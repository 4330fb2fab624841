#include "util/binary_semaphore.h"

#include <chrono>

namespace brovanta {

int BinarySemaphore::Wait(std::uint32_t milliseconds) {
  std::unique_lock lock(mutex_);
  const auto is_free = [this] { return free_; };
  if (milliseconds == kInfinite) {
    available_.wait(lock, is_free);
  } else if (!available_.wait_for(lock, std::chrono::milliseconds(milliseconds), is_free)) {
    return -1;
  }
  free_ = false;
  return 0;
}

int BinarySemaphore::Release() {
  const std::lock_guard lock(mutex_);
  if (free_) return -1;
  free_ = true;
  // Under the lock: whoever is woken may destroy the object.
  available_.notify_one();
  return 0;
}

}  // namespace brovanta
