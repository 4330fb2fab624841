// Serves HTTP from a listening socket with a fixed number of threads.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "server/connection_stream.h"
#include "server/http_message.h"
#include "server/listener.h"
#include "server/waiting_room.h"

namespace brovanta::server {

/// Takes one line for each request, without a line end. Called from every serving thread.
using LogSink = std::function<void(const std::string& line)>;

/// Each thread takes a connection, answers its one request and closes it: nobody can hold a thread
/// longer than the limits say, and nothing waits in a queue but the system's own. An answer that is
/// to come later waits in a room apart, and its thread goes on.
class HttpServer {
 public:
  /// Starts one thread for each handler; a handler is only ever called by its thread. Nothing on
  /// failure, `error` then says why.
  [[nodiscard]] static std::unique_ptr<HttpServer> Start(Listener listener,
                                                         std::vector<HttpHandler> handlers,
                                                         LogSink log,
                                                         const ConnectionLimits& limits,
                                                         std::string& error);
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;
  /// Takes no new connections, drops requests that are still coming in, gives answers under way a
  /// short while, forgets those that wait for their time, and ends the threads.
  ~HttpServer();

  /// Where it listens: "127.0.0.1:8427".
  [[nodiscard]] const std::string& address() const { return listener_.address; }

 private:
  HttpServer(Listener listener, UniqueFd stop, std::vector<HttpHandler> handlers, LogSink log,
             const ConnectionLimits& limits);

  void Serve(const HttpHandler& handler);
  void SendLater(UniqueFd socket, ConnectionStream& stream, std::chrono::milliseconds delay);
  [[nodiscard]] bool WaitForConnection() const;
  void PauseAfterFailure() const;

  Listener listener_;
  UniqueFd stop_;  // becomes readable when the threads are to end
  LogSink log_;
  ConnectionLimits limits_;
  WaitingRoom waiting_room_;
  std::vector<HttpHandler> handlers_;
  std::vector<std::thread> threads_;
};

}  // namespace brovanta::server
