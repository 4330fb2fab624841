#include "tests/server/server_process.h"

#include <string_view>

namespace brovanta::test {
namespace {

std::vector<std::string> Words(const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {BROVANTA_SERVER_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return words;
}

}  // namespace

ServerProcess::ServerProcess(const std::vector<std::string>& arguments,
                             const std::string& error_file)
    : ChildProcess(Words(arguments), error_file) {}

std::string ServerProcess::WaitForAddress() {
  constexpr std::string_view kStart = "listening on ";
  const std::string line = ReadLine();
  return line.starts_with(kStart) ? line.substr(kStart.size()) : std::string();
}

}  // namespace brovanta::test
