#include "tests/server/server_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <string_view>

extern char** environ;

namespace brovanta::test {

ServerProcess::ServerProcess(const std::vector<std::string>& arguments,
                             const std::string& error_file) {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  output_ = server::UniqueFd(ends[0]);
  const server::UniqueFd writing(ends[1]);
  std::vector<std::string> words = {BROVANTA_SERVER_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, writing.get(), STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, error_file.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (posix_spawn(&pid_, pointers[0], &actions, nullptr, pointers.data(), environ) != 0) pid_ = -1;
  posix_spawn_file_actions_destroy(&actions);
}

ServerProcess::~ServerProcess() {
  if (pid_ <= 0) return;
  Signal(SIGKILL);
  static_cast<void>(Wait());
}

std::string ServerProcess::ReadLine() {
  std::string line;
  char character = 0;
  while (read(output_.get(), &character, 1) == 1 && character != '\n') line += character;
  return line;
}

std::string ServerProcess::ReadAll() {
  std::string all;
  std::array<char, 4096> piece;
  for (;;) {
    const ssize_t count = read(output_.get(), piece.data(), piece.size());
    if (count <= 0) return all;
    all.append(piece.data(), static_cast<std::size_t>(count));
  }
}

std::string ServerProcess::WaitForAddress() {
  constexpr std::string_view kStart = "listening on ";
  const std::string line = ReadLine();
  return line.starts_with(kStart) ? line.substr(kStart.size()) : std::string();
}

void ServerProcess::Signal(int number) const {
  if (pid_ > 0) kill(pid_, number);
}

bool ServerProcess::Ended() const {
  siginfo_t info{};
  return pid_ <= 0 ||
         (waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
          info.si_pid != 0);
}

int ServerProcess::Wait() {
  if (pid_ <= 0) return -1;
  int status = 0;
  while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace brovanta::test
