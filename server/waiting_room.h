// Answers that are to be sent later, so that nobody who serves has to wait with them.
#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "util/unique_fd.h"

namespace brovanta::server {

/// One thread for all that wait.
class WaitingRoom {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr std::size_t kSeats = 64;

  /// `stop` is borrowed; once it is readable everything that waits is dropped. `send` is the time
  /// that a client has for reading its answer.
  WaitingRoom(int stop, std::chrono::milliseconds send);
  WaitingRoom(const WaitingRoom&) = delete;
  WaitingRoom& operator=(const WaitingRoom&) = delete;
  /// Waits for the thread: `stop` must be readable by now.
  ~WaitingRoom();

  /// Sends the bytes when their time has come, and closes the socket, which is non-blocking. False
  /// when all seats are taken or the thread cannot be reached; socket and bytes are then untouched.
  /// Any thread.
  [[nodiscard]] bool Take(UniqueFd& socket, std::string& bytes, Clock::time_point due);

 private:
  struct Guest {
    UniqueFd socket;
    std::string bytes;
    Clock::time_point due;
    std::size_t sent = 0;
  };

  void Run();
  void LetIn();
  [[nodiscard]] int WaitingTime(Clock::time_point now) const;
  [[nodiscard]] bool IsDone(Guest& guest, Clock::time_point now) const;

  int stop_;
  std::chrono::milliseconds send_;
  UniqueFd bell_;  // becomes readable when somebody stands at the door
  std::mutex mutex_;
  std::vector<Guest> door_;    // under the mutex: those who are not yet in
  std::size_t taken_ = 0;      // under the mutex: seats, those at the door included
  std::vector<Guest> guests_;  // of the thread only
  std::thread thread_;
};

}  // namespace brovanta::server
