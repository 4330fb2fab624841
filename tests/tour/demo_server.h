// The demonstration server as the tour uses it: a program of its own.
#pragma once

#include <QString>
#include <memory>
#include <string>

#include "tests/support/child_process.h"

namespace brovanta::tour {

/// Runs from the constructor on, on a free port of 127.0.0.1, with its database in the folder.
class DemoServer {
 public:
  explicit DemoServer(std::string folder);

  /// "http://127.0.0.1:PORT", empty when it could not be started.
  [[nodiscard]] const std::string& url() const { return url_; }

  /// Imports the text of a table while it serves. False when it is refused.
  bool Import(const char* subject, const std::string& text);

  /// It takes connections, and does not answer on them until GoOn.
  void HoldStill();
  void GoOn();

  /// Asks it to end. Its exit status.
  int Stop();

  /// A line for each request so far.
  [[nodiscard]] QString Log() const;

  /// Draws a page in a file by the browser without a window. Also true where there is none.
  bool TakePagePicture(const QString& address, const QString& file);

 private:
  int RunToEnd(std::vector<std::string> words);

  std::string folder_;
  std::string url_;
  std::unique_ptr<test::ChildProcess> process_;
};

/// Whether this build has a server to play with.
[[nodiscard]] bool HasDemoServer();

}  // namespace brovanta::tour
