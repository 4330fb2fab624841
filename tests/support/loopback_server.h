// A server on 127.0.0.1 that says, byte for byte, what a test tells it to.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace brovanta::test {

/// One accepted connection, used by its script on a thread of the server's.
class LoopbackPeer {
 public:
  explicit LoopbackPeer(int descriptor) : descriptor_(descriptor) {}
  LoopbackPeer(const LoopbackPeer&) = delete;
  LoopbackPeer& operator=(const LoopbackPeer&) = delete;
  ~LoopbackPeer();

  /// Reads up to the blank line behind a request's headers; what has come when the other side
  /// closes first.
  std::string ReadRequest();

  /// False when the other side is gone.
  bool Send(std::string_view bytes);

  /// Ends the connection with a reset instead of a regular close.
  void Reset();

  /// Waits until the other side closes; false when it does not within the limit.
  bool WaitUntilClosed(std::chrono::milliseconds limit = std::chrono::seconds(30));

  /// Ends the connection when the script is done, by a close or by the reset that was asked for.
  void Finish();

  /// Makes every call fail from now on, from any thread.
  void Disconnect();

 private:
  std::mutex mutex_;     // guards the closing against Disconnect
  int descriptor_ = -1;  // -1 once it is closed
};

/// What happens on a connection. The connection is closed when the script returns.
using LoopbackScript = std::function<void(LoopbackPeer&, const std::string& request)>;

/// Listens on a free port from the constructor on; the destructor ends all connections and waits
/// for their scripts. Every connection runs on its own thread. The program's proxy settings are
/// taken out of the environment, so that they do not come between.
class LoopbackServer {
 public:
  /// Reads a request and runs the script, for each connection.
  explicit LoopbackServer(LoopbackScript script);
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;
  ~LoopbackServer();

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// "http://127.0.0.1:PORT" and the object behind it.
  [[nodiscard]] std::string Url(std::string_view object = "") const;

  /// The requests so far, byte for byte, in the order in which they came.
  [[nodiscard]] std::vector<std::string> requests() const;

 private:
  struct Connection {
    explicit Connection(int descriptor) : peer(descriptor) {}
    LoopbackPeer peer;
    std::thread thread;
  };

  void Accept();
  void Serve(LoopbackPeer& peer);

  const LoopbackScript script_;
  int listener_ = -1;
  std::uint16_t port_ = 0;
  mutable std::mutex mutex_;
  std::list<Connection> connections_;  // guarded by mutex_
  std::vector<std::string> requests_;  // guarded by mutex_
  std::thread acceptor_;
};

/// A whole reply: status ("200 OK"), the header lines given, Content-Length and the body.
[[nodiscard]] std::string HttpReply(std::string_view status, std::string_view body,
                                    const std::vector<std::string>& header_lines = {});

/// A script that sends the same bytes to everybody.
[[nodiscard]] LoopbackScript Sending(std::string bytes);

/// A script that answers by the object asked for, without its query where the map has none with it;
/// 404 for everything else.
[[nodiscard]] LoopbackScript Serving(std::map<std::string, std::string> replies);

/// The object (path and query) of a request's first line.
[[nodiscard]] std::string RequestedObject(std::string_view request);

/// A port of 127.0.0.1 on which nobody listens.
[[nodiscard]] std::uint16_t UnusedPort();

/// A port of 127.0.0.1 that takes no connection and refuses none: to connect to it takes for ever.
class DeafPort {
 public:
  DeafPort();
  DeafPort(const DeafPort&) = delete;
  DeafPort& operator=(const DeafPort&) = delete;
  ~DeafPort();
  [[nodiscard]] std::string Url() const;

 private:
  int listener_ = -1;
  std::uint16_t port_ = 0;
  std::vector<int> waiting_;
};

}  // namespace brovanta::test
