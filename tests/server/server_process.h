// The server as a program of its own.
#pragma once

#include <string>
#include <vector>

#include "tests/support/child_process.h"

namespace brovanta::test {

class ServerProcess : public ChildProcess {
 public:
  /// Starts the program with these arguments; its standard error goes to a file.
  ServerProcess(const std::vector<std::string>& arguments, const std::string& error_file);

  /// Waits for "listening on HOST:PORT" and gives the address; empty when it ends without.
  [[nodiscard]] std::string WaitForAddress();
};

}  // namespace brovanta::test
