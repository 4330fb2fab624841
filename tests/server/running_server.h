// A server within the test's own process, for tests of what asks it.
#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "server/command_line.h"
#include "server/http_server.h"
#include "server/store.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Serves an empty database in a folder of its own, on a free port of 127.0.0.1, until it is
/// destroyed or stopped.
class RunningServer {
 public:
  /// The demonstration's shops are open; the slow one takes so long.
  explicit RunningServer(std::chrono::milliseconds slow_shop = std::chrono::milliseconds(4'000));

  /// "http://127.0.0.1:PORT"; stays the same after Stop and Restart.
  [[nodiscard]] const std::string& url() const { return url_; }

  /// Fills the database with the invented world of `today`.
  void FillWithDemo(server::Day today);
  /// Imports the text of a table or an agent file, while it serves. False when it is faulty.
  [[nodiscard]] bool Import(server::Subject subject, std::string_view text);

  /// Nobody answers at url() any more.
  void Stop();
  /// Serves at url() again.
  void Restart();

  /// The lines of the log so far, one for each answered request. A line comes behind its answer:
  /// only after Stop() are all of them there.
  [[nodiscard]] std::vector<std::string> Log() const;

 private:
  void Serve(std::uint16_t port);

  TempFolder folder_;
  std::chrono::milliseconds slow_shop_;
  std::unique_ptr<server::Store> store_;
  mutable std::mutex mutex_;
  std::vector<std::string> log_;
  std::string url_;
  std::uint16_t port_ = 0;
  std::unique_ptr<server::HttpServer> server_;
};

}  // namespace brovanta::test
