// One connection as the HTTP library reads and writes it, with bounds of its own: whoever sends
// endlessly, slowly or not at all, or does not read, holds a thread for a limited time only.
#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace brovanta::server {

struct ConnectionLimits {
  std::size_t request_bytes = 16'384;         ///< request line and headers together
  std::chrono::milliseconds receive{10'000};  ///< for the whole request
  std::chrono::milliseconds send{60'000};     ///< for the whole answer
  std::chrono::milliseconds stopping{2'000};  ///< what is left for an answer when the server stops
};

class ConnectionStream final : public httplib::Stream {
 public:
  using Clock = std::chrono::steady_clock;

  /// Borrows both descriptors: a non-blocking socket, and one that becomes readable when the server
  /// stops. Time for the request runs from now on.
  ConnectionStream(int socket, int stop, const ConnectionLimits& limits);

  [[nodiscard]] bool is_readable() const override;
  [[nodiscard]] bool is_writable() const override;
  /// Bytes read, 0 at the end, -1 when a limit is reached, the server stops or the connection
  /// fails.
  ssize_t read(char* to, std::size_t size) override;
  /// Writes everything; -1 when that fails or takes too long.
  ssize_t write(const char* from, std::size_t size) override;
  using httplib::Stream::write;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  [[nodiscard]] socket_t socket() const override { return socket_; }

  /// Keeps what is written from now on instead of sending it.
  void KeepBack() { keeps_back_ = true; }
  /// What was kept back; from now on it is sent again.
  [[nodiscard]] std::string TakeKept();

  /// Whether a request was begun and cut off by a limit.
  [[nodiscard]] bool cut_off() const { return cut_off_; }
  /// Whether anything was answered.
  [[nodiscard]] bool answered() const { return answered_; }

  /// Ends the connection so that the answer reaches a client that is still sending: closes the own
  /// direction, then takes a little of what still comes.
  void FinishSending();

 private:
  enum class Wait { kReady, kTimeOut, kStopped, kFailed };

  [[nodiscard]] Wait WaitFor(short events, Clock::time_point deadline, bool heed_stop) const;
  [[nodiscard]] ssize_t Receive(char* to, std::size_t size, Clock::time_point deadline);
  [[nodiscard]] Wait WaitToSend();

  int socket_;
  int stop_;
  ConnectionLimits limits_;
  Clock::time_point receive_until_;
  std::optional<Clock::time_point> send_until_;
  bool stopping_ = false;
  bool cut_off_ = false;
  bool answered_ = false;
  bool keeps_back_ = false;
  std::string kept_;
  std::size_t received_ = 0;
  std::array<char, 4096> buffer_;
  std::size_t buffer_at_ = 0;
  std::size_t buffer_end_ = 0;
};

}  // namespace brovanta::server
