#include "tests/support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

extern char** environ;

namespace brovanta::test {
namespace {

std::vector<char*> Pointers(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> EnvironmentWith(const std::vector<ChildProcess::Setting>& more) {
  std::vector<std::string> lines;
  for (const auto& [name, value] : more) lines.push_back(name + "=" + value);
  for (char** at = environ; *at != nullptr; ++at) {
    bool replaced = false;
    for (const auto& [name, value] : more) {
      replaced = replaced || std::strncmp(*at, (name + "=").c_str(), name.size() + 1) == 0;
    }
    if (!replaced) lines.emplace_back(*at);
  }
  return lines;
}

}  // namespace

ChildProcess::ChildProcess(std::vector<std::string> words, const std::string& error_file,
                           const std::vector<Setting>& environment) {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  output_ = ends[0];
  std::vector<std::string> lines = EnvironmentWith(environment);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, error_file.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const std::vector<char*> arguments = Pointers(words);
  if (posix_spawn(&pid_, arguments[0], &actions, nullptr, arguments.data(),
                  Pointers(lines).data()) != 0) {
    pid_ = -1;
  }
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
}

ChildProcess::~ChildProcess() {
  if (pid_ > 0) {
    Signal(SIGKILL);
    static_cast<void>(Wait());
  }
  if (output_ >= 0) close(output_);
}

std::string ChildProcess::ReadLine() {
  std::string line;
  char character = 0;
  while (read(output_, &character, 1) == 1 && character != '\n') line += character;
  return line;
}

std::string ChildProcess::ReadAll() {
  std::string all;
  std::array<char, 4096> piece;
  for (;;) {
    const ssize_t count = read(output_, piece.data(), piece.size());
    if (count <= 0) return all;
    all.append(piece.data(), static_cast<std::size_t>(count));
  }
}

void ChildProcess::Signal(int number) const {
  if (pid_ > 0) kill(pid_, number);
}

bool ChildProcess::Ended() const {
  siginfo_t info{};
  return pid_ <= 0 ||
         (waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
          info.si_pid != 0);
}

int ChildProcess::Wait() {
  if (pid_ <= 0) return -1;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace brovanta::test
