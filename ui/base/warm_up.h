// What every first screen waits for, got ready while the toolkit starts.
#pragma once

#include <future>

namespace brovanta {

/// Reads the system's font configuration and the time zone on a thread of its own. The first text
/// and the first date would wait for them; made before the QApplication, this object works while
/// the window system is being connected to. Without a font configuration nothing happens.
class WarmUp {
 public:
  WarmUp();
  /// Waits for the end.
  ~WarmUp();

  WarmUp(const WarmUp&) = delete;
  WarmUp& operator=(const WarmUp&) = delete;

  /// Returns when both are in memory, where the toolkit and LocalZone then find them.
  void Wait() const;

 private:
  std::future<void> done_;
};

}  // namespace brovanta
