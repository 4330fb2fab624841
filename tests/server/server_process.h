// The server as a program of its own.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "server/unique_fd.h"

namespace brovanta::test {

class ServerProcess {
 public:
  /// Starts the program; its standard error goes to a file.
  ServerProcess(const std::vector<std::string>& arguments, const std::string& error_file);
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;
  /// Kills what still runs.
  ~ServerProcess();

  /// One line of standard output without its end; empty at the end.
  [[nodiscard]] std::string ReadLine();
  /// Everything that is left of standard output.
  [[nodiscard]] std::string ReadAll();
  /// Waits for "listening on HOST:PORT" and gives the address.
  [[nodiscard]] std::string WaitForAddress();

  void Signal(int number) const;
  /// Whether it has ended already; does not wait.
  [[nodiscard]] bool Ended() const;
  /// Waits for the end: the exit status, or minus the signal that ended it.
  [[nodiscard]] int Wait();

 private:
  pid_t pid_ = -1;
  server::UniqueFd output_;
};

}  // namespace brovanta::test
