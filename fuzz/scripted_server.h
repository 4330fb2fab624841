// A server on the loopback that answers each connection with the next part of a script. It is also
// the proxy for every other server, so that nothing is asked beyond this machine.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "fuzz/require.h"

namespace brovanta::fuzz {

/// Lives until the process ends. Parts of a script are separated by kNextConnection, what is sent
/// at once within a part by kNextPiece. Behind its last part everybody gets a small page, so that
/// every chain of redirects comes to an end.
class ScriptedServer {
 public:
  static constexpr char kNextConnection = '\x1E';
  static constexpr char kNextPiece = '\x1F';

  ScriptedServer() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    Require(listener_ >= 0 &&
                bind(listener_, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
                listen(listener_, kQueueLength) == 0 &&
                getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) == 0,
            "a server can listen");
    url_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    for (const char* name : {"HTTP_PROXY", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
      unsetenv(name);
    }
    setenv("http_proxy", url_.c_str(), 1);
    std::thread([this] { Serve(); }).detach();
  }
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  [[nodiscard]] const std::string& url() const { return url_; }

  void Begin(std::string script) {
    const std::lock_guard lock(mutex_);
    script_ = std::move(script);
    has_more_ = true;
  }

 private:
  static constexpr int kQueueLength = 16;
  static constexpr std::string_view kLastAnswer = "HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nend";

  std::string NextPart() {
    const std::lock_guard lock(mutex_);
    if (!has_more_) return std::string(kLastAnswer);
    const std::size_t end = script_.find(kNextConnection);
    has_more_ = end != std::string::npos;
    std::string part = script_.substr(0, end);
    if (has_more_) script_.erase(0, end + 1);
    return part;
  }

  void Serve() {
    for (;;) {
      const int peer = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      if (peer < 0) continue;
      const int at_once = 1;
      setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &at_once, sizeof at_once);
      if (ReadRequest(peer)) Answer(peer, NextPart());
      shutdown(peer, SHUT_WR);
      std::array<char, 4096> ignored;
      while (recv(peer, ignored.data(), ignored.size(), 0) > 0) {
      }
      close(peer);
    }
  }
  static bool ReadRequest(int peer) {
    std::string request;
    std::array<char, 4096> buffer;
    while (request.find("\r\n\r\n") == std::string::npos) {
      const ssize_t count = recv(peer, buffer.data(), buffer.size(), 0);
      if (count <= 0) return false;
      request.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return true;
  }
  static void Answer(int peer, std::string_view part) {
    while (!part.empty()) {
      const std::size_t end = part.find(kNextPiece);
      std::string_view piece = part.substr(0, end);
      part.remove_prefix(end == std::string_view::npos ? part.size() : end + 1);
      while (!piece.empty()) {
        const ssize_t count = send(peer, piece.data(), piece.size(), MSG_NOSIGNAL);
        if (count <= 0) return;
        piece.remove_prefix(static_cast<std::size_t>(count));
      }
    }
  }

  const int listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  std::string url_;
  std::mutex mutex_;
  std::string script_;     // guarded by mutex_
  bool has_more_ = false;  // guarded by mutex_
};

}  // namespace brovanta::fuzz
