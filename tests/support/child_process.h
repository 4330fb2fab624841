// A program that a test starts, listens to and ends.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace brovanta::test {

class ChildProcess {
 public:
  struct Setting {
    std::string name;
    std::string value;
  };

  /// Starts `words`, the first of which is the program's path. Its standard input is empty, its
  /// standard error goes to a file, and `environment` is what it has beside this process's own.
  ChildProcess(std::vector<std::string> words, const std::string& error_file,
               const std::vector<Setting>& environment = {});
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  /// Kills what still runs.
  ~ChildProcess();

  /// One line of standard output without its end; empty at the end.
  [[nodiscard]] std::string ReadLine();
  /// Everything that is left of standard output.
  [[nodiscard]] std::string ReadAll();

  void Signal(int number) const;
  /// Whether it has ended already; does not wait.
  [[nodiscard]] bool Ended() const;
  /// Waits for the end: the exit status, or minus the signal that ended it.
  [[nodiscard]] int Wait();

 private:
  pid_t pid_ = -1;
  int output_ = -1;
};

}  // namespace brovanta::test
